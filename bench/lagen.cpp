#include "kommando.h"
#include "messung.h"
#include "pdf.h"
#include "probe.h"
#include "reihen.h"
#include "satz.h"
#include "scan.h"
#include "werkzeuge.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr std::array drehungen = {0, 90, 180, 270};
constexpr std::array neigungen = {-12.0, -8.0, -6.0, -2.0, -0.5, 0.5, 2.0, 6.0, 8.0, 12.0};
constexpr double mindestens = 0.95;

QSet<QString> worteVon(const QString &text)
{
    static const QRegularExpression fuge(u"[^\\p{L}]+"_s);
    QSet<QString> worte;
    for (const QString &wort : text.toLower().split(fuge, Qt::SkipEmptyParts)) {
        if (wort.size() >= 4)
            worte.insert(wort);
    }
    return worte;
}

/** The share of a page's words that arrive. */
double anteil(const QSet<QString> &gemeint, const QString &gelesen)
{
    const QSet<QString> da = worteVon(gelesen);
    const auto angekommen =
        std::count_if(gemeint.begin(), gemeint.end(), [&](const QString &w) { return da.contains(w); });
    return double(angekommen) / double(gemeint.size());
}

/** What the bare tools read. */
QString blank(const QByteArray &pdf)
{
    static const QByteArray pdftoppm = Werkzeuge::pfad(u"pdftoppm"_s).value().toUtf8();
    static const QByteArray tesseract = Werkzeuge::pfad(u"tesseract"_s).value().toUtf8();
    const QTemporaryDir bilder;
    Kommando::laufen({pdftoppm, "-r", "200", "-png", pdf, bilder.filePath(u"s"_s).toUtf8()});
    QByteArray text;
    for (const QString &bild : QDir(bilder.path()).entryList(QDir::Files))
        text += Kommando::laufen({tesseract, bilder.filePath(bild).toUtf8(), "stdout", "-l", "deu"}).ausgabe;
    return QString::fromUtf8(text);
}

struct Anteile {
    double vorher = 0;
    double nachher = 0;
};

Anteile eineSeite(const QTemporaryDir &ordner, int nummer, const vorfuehrung::Scanlage &lage)
{
    Probe::Zufall zufall{quint64(nummer)};
    QStringList zeilen;
    for (int zeile = 0; zeile < 24; ++zeile)
        zeilen << Probe::worte(zufall, 8).join(u' ');
    const QString pfad = ordner.filePath(u"%1.pdf"_s.arg(nummer));
    Probe::schreiben(pfad,
                     vorfuehrung::pdf({vorfuehrung::gescannt(vorfuehrung::seitenSatz(zeilen), lage, quint32(nummer))}));
    const QSet<QString> gemeint = worteVon(zeilen.join(u' '));
    return {.vorher = anteil(gemeint, blank(pfad.toUtf8())),
            .nachher = anteil(gemeint, Werkzeuge::text(pfad, 1, u"deu"_s).text)};
}
} // namespace

void Reihen::lagen()
{
    const QTemporaryDir ordner;
    double schlechteste = 1;
    int nummer = 0;
    std::printf("words that arrive, before and now      %6s %12s %12s %12s\n", "0", "90", "180", "270 degrees");
    for (const double neigung : neigungen) {
        std::printf("%+6.1f degrees askew             ", neigung);
        for (const int drehung : drehungen) {
            const Anteile a =
                eineSeite(ordner, ++nummer, {.neigung = neigung, .drehung = drehung, .papier = 0.9, .flecken = 600});
            schlechteste = std::min(schlechteste, a.nachher);
            std::printf("  %4.2f %4.2f ", a.vorher, a.nachher);
            std::fflush(stdout);
        }
        std::printf("\n");
    }
    Messung::drucken("words that do not arrive, the worst of 40 pages", 1 - schlechteste, "", 1 - mindestens);
}
