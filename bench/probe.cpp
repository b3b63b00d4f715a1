#include "probe.h"

#include "datenbank.h"
#include "pdf.h"
#include "satz.h"
#include "scan.h"

#include <QFile>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
const QStringList wortschatz = {
    u"Sehr"_s,      u"geehrte"_s,   u"Frau"_s,     u"Müller"_s,  u"Rechnung"_s,  u"über"_s,         u"Straße"_s,
    u"Betrag"_s,    u"zahlen"_s,    u"bis"_s,      u"zum"_s,     u"Grüße"_s,     u"Meißen"_s,       u"Konto"_s,
    u"Auszug"_s,    u"Vertrag"_s,   u"kündigen"_s, u"Beitrag"_s, u"jährlich"_s,  u"Versicherung"_s, u"Bescheid"_s,
    u"Steuer"_s,    u"Finanzamt"_s, u"gemäß"_s,    u"Anlage"_s,  u"Datum"_s,     u"Kunde"_s,        u"Nummer"_s,
    u"Lieferung"_s, u"Öl"_s,        u"Heizung"_s,  u"Wärme"_s,   u"monatlich"_s, u"Abschlag"_s,     u"Überweisung"_s};

QString ziffern(Probe::Zufall &zufall) { return QString::number(zufall() % 100000); }

/** The lines of a letter with a number of its own. */
QStringList brief(int nummer)
{
    Probe::Zufall zufall{quint64(nummer) + 1};
    QStringList zeilen = {u"# Schreiben Nummer "_s + QString::number(nummer), u""_s};
    for (int i = 0; i < 30; ++i)
        zeilen << Probe::worte(zufall, 8).join(u' ');
    return zeilen;
}

QString pdfName(const QString &ordner, int nummer)
{
    return ordner + u"/Brief %1.pdf"_s.arg(nummer, 4, 10, QChar(u'0'));
}
} // namespace

QStringList Probe::worte(Zufall &zufall, qsizetype anzahl)
{
    QStringList liste;
    for (qsizetype i = 0; i < anzahl; ++i) {
        const quint64 wurf = zufall();
        const QString &wort = wortschatz.at(qsizetype(wurf % quint64(wortschatz.size())));
        liste << (i % 7 == 6 ? ziffern(zufall) + u'.' : i % 5 == 4 ? wort + u',' : wort);
    }
    return liste;
}

QStringList Probe::namen(qsizetype anzahl)
{
    static const QStringList muster = {u"Müller & Söhne GmbH %1"_s,         u"Finanzamt Meißen-Süd %1"_s,
                                       u"Stadtwerke Görlitz AG %1"_s,       u"Dr. Anna-Lena Schröder %1"_s,
                                       u"Boehme Versicherungs-Verein %1"_s, u"Sparkasse Oberlausitz %1"_s};
    QStringList liste;
    for (qsizetype i = 0; i < anzahl; ++i)
        liste << muster.at(i % muster.size()).arg(i);
    return liste;
}

QStringList Probe::textPdfs(const QString &ordner, int anzahl)
{
    QStringList pfade;
    for (int i = 0; i < anzahl; ++i) {
        pfade << pdfName(ordner, i);
        schreiben(pfade.last(), vorfuehrung::pdf({{vorfuehrung::seitenSatz(brief(i)), {}, {}}}));
    }
    return pfade;
}

QStringList Probe::scans(const QString &ordner, int anzahl)
{
    QStringList pfade;
    for (int i = 0; i < anzahl; ++i) {
        pfade << pdfName(ordner, i);
        schreiben(pfade.last(), vorfuehrung::pdf({vorfuehrung::gescannt(vorfuehrung::seitenSatz(brief(i)),
                                                                        {.neigung = 0.4}, quint32(i))}));
    }
    return pfade;
}

std::shared_ptr<Datenbank> Probe::katalog(const QString &datei)
{
    for (const QString &endung : {u""_s, u"-wal"_s, u"-shm"_s})
        QFile::remove(datei + endung);
    return std::make_shared<Datenbank>(datei);
}

Lauf Probe::lauf(const std::shared_ptr<Datenbank> &db, const QString &quelle)
{
    Profil profil;
    profil.quelle = quelle;
    return {db, profil, [] { return false; }, {}, [](const Laufstand &) {}};
}

void Probe::schreiben(const QString &datei, const QByteArray &bytes)
{
    QFile f(datei);
    if (!f.open(QFile::WriteOnly) || f.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + datei.toStdString());
}
