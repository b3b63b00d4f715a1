#include "bestand.h"
#include "datenbank.h"
#include "kommando.h"
#include "messung.h"
#include "probe.h"
#include "reihen.h"
#include "textleser.h"
#include "werkzeuge.h"

#include <QDir>
#include <QTemporaryDir>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int briefe = 200;
constexpr int seiten = 10;

QByteArray werkzeug(const QString &name) { return Werkzeuge::pfad(name).value().toUtf8(); }

QByteArray textVon(const QByteArray &pdf)
{
    static const QByteArray pdftotext = werkzeug(u"pdftotext"_s);
    return Kommando::laufen({pdftotext, "-l", "2", "-enc", "UTF-8", pdf, "-"}).ausgabe;
}

QByteArray erkannt(const QByteArray &pdf)
{
    static const QByteArray pdftoppm = werkzeug(u"pdftoppm"_s);
    static const QByteArray tesseract = werkzeug(u"tesseract"_s);
    const QTemporaryDir bilder;
    Kommando::laufen({pdftoppm, "-r", "200", "-f", "1", "-l", "2", "-png", pdf, bilder.filePath(u"s"_s).toUtf8()});
    QByteArray text;
    for (const QString &bild : QDir(bilder.path()).entryList(QDir::Files))
        text += Kommando::laufen({tesseract, bilder.filePath(bild).toUtf8(), "stdout", "-l", "deu"}).ausgabe;
    return text;
}

double stufe(const QTemporaryDir &ordner)
{
    const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
    Lauf lauf = Probe::lauf(db, ordner.filePath(u"Scans"_s));
    Bestand::aufnehmen(lauf);
    const double dauer = Messung::dauer([&] { Textleser::textLesen(lauf); });
    if (db->abfragen(u"SELECT 1 FROM texte WHERE length(text) > 500"_s).size() != briefe)
        throw std::runtime_error("not every text was read");
    return dauer;
}
} // namespace

void Reihen::lesen()
{
    const QTemporaryDir ordner;
    QDir(ordner.path()).mkdir(u"Scans"_s);
    const QStringList pfade = Probe::textPdfs(ordner.filePath(u"Scans"_s), briefe);
    const auto blank = [&] {
        return Messung::dauer([&] {
            for (const QString &pfad : pfade)
                textVon(pfad.toUtf8());
        });
    };
    Messung::drucken("reading 200 text PDFs",
                     Messung::paarweise(
                         9, [&] { return stufe(ordner); }, blank),
                     1.10);
}

void Reihen::erkennung()
{
    const QTemporaryDir ordner;
    Messung::Paar summe;
    // Page by page, so that both meet the machine in the same state.
    for (const QString &pfad : Probe::scans(ordner.path(), seiten)) {
        const Messung::Paar paar = Messung::paarweise(
            2,
            [&] {
                Werkzeuge::Text text;
                const double dauer = Messung::dauer([&] { text = Werkzeuge::text(pfad, 2, u"deu"_s); });
                if (text.text.size() < 500)
                    throw std::runtime_error("nothing was recognised");
                return dauer;
            },
            [&] { return Messung::dauer([&] { textVon(pfad.toUtf8()), erkannt(pfad.toUtf8()); }); });
        summe.unser += paar.unser;
        summe.blank += paar.blank;
    }
    summe.verhaeltnis = summe.unser / summe.blank;
    Messung::drucken("recognising 10 scanned pages", summe, 1.10);
}
