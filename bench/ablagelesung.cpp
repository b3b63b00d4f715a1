#include "ablagelesung.h"

#include "messung.h"
#include "probe.h"
#include "reihen.h"

#include <QDir>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
constexpr int zweige = 4;
constexpr int arten = 5;
constexpr int jahre = 10;
constexpr int rubriken = 5;
constexpr int jeOrdner = 100;
constexpr int dateien = zweige * arten * jahre * rubriken * jeOrdner;

Profil profil(const QString &wurzel)
{
    Profil p;
    p.zielWurzel = wurzel;
    for (int z = 0; z < zweige; ++z) {
        Zweig zweig{.name = u"Zweig %1"_s.arg(z), .ablagen = {}};
        for (int a = 0; a < arten; ++a) {
            Ablageart art{.name = u"Jahresablage %1"_s.arg(a), .mitJahr = true, .rubriken = {}};
            for (int r = 0; r < rubriken; ++r)
                art.rubriken << u"Rubrik %1"_s.arg(r);
            zweig.ablagen << art;
        }
        p.zweige << zweig;
    }
    return p;
}

/** A hundred letters of the three counterparts of a place. */
void ordnerFuellen(const QString &ordner, int jahr, int platz, Probe::Zufall &zufall)
{
    QDir().mkpath(ordner);
    for (int i = 0; i < jeOrdner; ++i)
        Probe::schreiben(ordner + u"/%1-%2-%3 Müller & Söhne %4 - Abschlag, Rechnung %5.pdf"_s.arg(jahr)
                                      .arg(i % 12 + 1, 2, 10, QChar(u'0'))
                                      .arg(i % 28 + 1, 2, 10, QChar(u'0'))
                                      .arg(platz * 3 + int(zufall() % 3))
                                      .arg(i),
                         {});
}

void baumAnlegen(const Profil &p)
{
    Probe::Zufall zufall{1};
    int artnummer = 0;
    for (const Zweig &zweig : p.zweige) {
        for (const Ablageart &art : zweig.ablagen) {
            for (int i = 0; i < jahre * rubriken; ++i) {
                const int jahr = 2015 + i / rubriken;
                ordnerFuellen(QStringList{p.zielWurzel, zweig.name, art.name, QString::number(jahr),
                                          art.rubriken.at(i % rubriken)}
                                  .join(u'/'),
                              jahr, artnummer * rubriken + i % rubriken, zufall);
            }
            ++artnummer;
        }
    }
}

double unser(Datenbank &db, const Profil &p)
{
    return Messung::dauer([&] {
        const auto ergebnis = Ablagelesung::lesen(db, p);
        if (ergebnis.dateien != dateien || ergebnis.zeilen.size() != 300 || ergebnis.namen.anzahl != 0)
            throw std::runtime_error("not every file was read");
    });
}

/** A plain walk, each name looked at. */
double blank(const Profil &p)
{
    return Messung::dauer([&] {
        std::FILE *funde = ::popen(("LC_ALL=C.UTF-8 find '" + p.zielWurzel.toUtf8() + "' -type f").constData(), "re");
        char zeile[4096];
        int pdfs = 0;
        while (std::fgets(zeile, sizeof zeile, funde) != nullptr)
            pdfs += std::strstr(zeile, ".pdf\n") != nullptr ? 1 : 0;
        ::pclose(funde);
        if (pdfs != dateien)
            throw std::runtime_error("find did not list every file");
    });
}
} // namespace

void Reihen::ablagelesung()
{
    const QTemporaryDir ordner;
    const Profil p = profil(ordner.filePath(u"Ablage"_s));
    baumAnlegen(p);
    const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
    const auto paar = Messung::paarweise(
        11, [&] { return unser(*db, p); }, [&] { return blank(p); });
    Messung::drucken("filing tree of 100,000 files read", paar, 1.5);
}
