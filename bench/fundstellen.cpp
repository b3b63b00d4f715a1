#include "abbruch.h"
#include "angebote.h"
#include "belege.h"
#include "bestand.h"
#include "kommando.h"
#include "messung.h"
#include "probe.h"
#include "reihen.h"
#include "textleser.h"
#include "unterschiede.h"
#include "werkzeuge.h"
#include "wortlagen.h"

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;
using namespace quillmar::fundstellen;

namespace
{
constexpr int runden = 21;

/** A full page of words in lines of ten, among them a date, a name and a number that are looked for. */
Seitenworte volleSeite(qsizetype anzahl)
{
    Probe::Zufall zufall(1);
    QStringList texte = Probe::worte(zufall, anzahl);
    const auto ab = [&](qsizetype stelle, const QStringList &neue) {
        for (qsizetype i = 0; i < neue.size(); ++i)
            texte[stelle + i] = neue.at(i);
    };
    ab(3, {u"Stadtwerke"_s, u"Meißen"_s, u"GmbH"_s});
    ab(101, {u"Datum:"_s, u"31."_s, u"Januar"_s, u"2024"_s});
    ab(203, {u"Jahresabrechnung"_s, u"Nr."_s, u"4711-02"_s});
    Seitenworte worte;
    for (qsizetype i = 0; i < anzahl; ++i)
        worte << Seitenwort{.text = texte.at(i), .ort = {0.09 * double(i % 10), 0.015 * double(i / 10), 0.08, 0.01}};
    return worte;
}

/** Milliseconds, the median of many. */
double mitte(const std::function<void()> &arbeit)
{
    QList<double> zeiten;
    for (int i = 0; i < runden; ++i)
        zeiten << 1000 * Messung::dauer(arbeit);
    std::sort(zeiten.begin(), zeiten.end());
    return zeiten.at(runden / 2);
}

void markenMessen()
{
    const Seitenworte worte = volleSeite(600);
    Messung::drucken("marks of a page of 600 words", mitte([&] {
                         const auto alle = belege(wortfolgen({worte}), u"2024-01-31"_s, u"Stadtwerke Meißen"_s,
                                                  u"Jahresabrechnung 4711-02"_s);
                         if (alle.stellen.size() != 3)
                             throw std::runtime_error("not every value was found");
                     }),
                     "ms", 5);
    const QList<Wortfolge> seiten = wortfolgen({worte});
    Messung::mitteilen("what such a page offers for all fields", mitte([&] {
                           if (Angebote::daten(seiten).isEmpty() || Angebote::titel(seiten).isEmpty() ||
                               Angebote::namen(seiten, {}).isEmpty())
                               throw std::runtime_error("nothing is offered");
                       }),
                       "ms");
}

void ortenMessen()
{
    const QTemporaryDir ordner;
    const QString pdf = Probe::textPdfs(ordner.path(), 1).first();
    const QByteArray pdftotext = Werkzeuge::pfad(u"pdftotext"_s).value().toUtf8();
    const auto unser = [&] {
        return Messung::dauer([&] {
            if (Wortlagen::ausTextebene(pdf, {}, {}, {}).value(0).isEmpty())
                throw std::runtime_error("no words");
        });
    };
    const auto blank = [&] {
        return Messung::dauer([&] { Kommando::laufen({pdftotext, "-bbox", "-l", "1", pdf.toUtf8(), "-"}); });
    };
    const auto paar = Messung::paarweise(runden, unser, blank);
    Messung::drucken("boxes of a text layer page, beside pdftotext -bbox", paar, 2);
    Messung::drucken("boxes of a text layer page", 1000 * paar.unser, "ms", 20);
}
} // namespace

/** A run beside the recognition of pages that one looks at, one after the other without a pause. */
void Reihen::nebenher()
{
    constexpr int gescannte = 10;
    constexpr int paare = 5;
    const QTemporaryDir ordner;
    QDir(ordner.path()).mkdir(u"Scans"_s);
    QDir(ordner.path()).mkdir(u"gezeigt"_s);
    Probe::scans(ordner.filePath(u"Scans"_s), gescannte);
    const QString gezeigt = Probe::scans(ordner.filePath(u"gezeigt"_s), 1).first();
    const auto ohne = [&] {
        const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
        Lauf lauf = Probe::lauf(db, ordner.filePath(u"Scans"_s));
        Bestand::aufnehmen(lauf);
        return Messung::dauer([&] { Textleser::textLesen(lauf); });
    };
    const auto mit = [&] {
        const std::jthread ansehen([&](const std::stop_token &ende) {
            Lesegrenzen grenzen;
            grenzen.nachrangig = true;
            const Wortlagen::Erkennung wie{.seiten = {}, .sprache = u"deu"_s, .drehungen = {}};
            try {
                while (!ende.stop_requested())
                    Q_UNUSED(Wortlagen::erkannte(gezeigt, wie, grenzen, ende));
            } catch (const Abbruch &) {
                return;
            }
        });
        return ohne();
    };
    Messung::drucken("reading 10 scans, beside pages on show", Messung::paarweise(paare, mit, ohne), 1.03);
}

void Reihen::fundstellen()
{
    markenMessen();
    ortenMessen();
}
