#include "archiv.h"
#include "belege.h"
#include "vorlagen.h"
#include "wortlagen.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <future>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;
using namespace quillmar::fundstellen;
using vorfuehrung::Machart;
using vorfuehrung::Vorlage;

namespace
{
constexpr Seitenspanne seiten{.erste = 1, .letzte = 2};

QList<Wortfolge> gelesen(const QString &quelle, const Vorlage &vorlage)
{
    const QString pdf = quelle + u'/' + vorlage.pfad;
    if (vorlage.machart == Machart::text)
        return wortfolgen(Wortlagen::ausTextebene(pdf, seiten, {}, {}));
    constexpr int ganz = 360;
    const int drehung = (ganz - vorlage.lage.drehung) % ganz;
    Wortlagen::Erkennung wie{.seiten = seiten, .sprache = u"deu"_s, .drehungen = {}};
    for (int seite = 1; seite <= seiten.letzte; ++seite)
        wie.drehungen.insert(seite, drehung);
    QList<Seitenworte> worte = Wortlagen::erkannte(pdf, wie, {}, {});
    for (Seitenworte &seite : worte)
        seite = gedreht(seite, drehung);
    return wortfolgen(worte);
}

/** One line for each passage: what it is for, its words, and the line that they stand in. */
QStringList stellen(const QList<Wortfolge> &folgen, const Vorlage &vorlage)
{
    const QStringList namen = {u"datum"_s, u"gegenüber"_s, u"titel"_s};
    const Belege alle = belege(folgen, vorlage.datum, vorlage.gegenueber, vorlage.titel);
    QStringList zeilen;
    for (const Beleg &beleg : alle.stellen) {
        const Wortfolge &folge = folgen.at(beleg.stelle.seite);
        zeilen << namen.at(int(beleg.wert)) + u": "_s + folge.wortlaut(beleg.stelle) + u" | "_s +
                      folge.wortlaut(folge.zeilenstelle(folge.zeile(beleg.stelle.wort)));
    }
    if (alle.datumFehlt)
        zeilen << u"datum: nirgends"_s;
    if (alle.gegenueberFehlt)
        zeilen << u"gegenüber: nirgends"_s;
    for (const QString &zahl : alle.fehlendeZahlen)
        zeilen << u"titel: nirgends "_s + zahl;
    return zeilen;
}
} // namespace

/** All documents of the sample archive that have words: where their values are found, and where they stand. */
class TestBelegtafel : public QObject
{
    Q_OBJECT

    static QHash<QString, QStringList> erwartete()
    {
        QFile datei(QStringLiteral(QUILLMAR_BELEGE));
        if (!datei.open(QIODevice::ReadOnly))
            return {};
        QHash<QString, QStringList> je;
        QString pfad;
        for (const QString &zeile : QString::fromUtf8(datei.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
            if (zeile.startsWith(u"=== "_s))
                pfad = zeile.mid(4);
            else if (!zeile.startsWith(u'#'))
                je[pfad] << zeile;
        }
        return je;
    }

private Q_SLOTS:
    void alleDokumente()
    {
        const QTemporaryDir ordner;
        vorfuehrung::archivSchreiben(ordner.path());
        const QString quelle = vorfuehrung::quelleVon(ordner.path());
        QList<Vorlage> vorlagen = vorfuehrung::vorlagen();
        vorlagen.removeIf([](const Vorlage &v) {
            return (v.machart != Machart::text && v.machart != Machart::bild) || v.titel.isEmpty();
        });
        QVERIFY(vorlagen.size() > 30);
        const auto haelfte = [&](qsizetype erste) {
            QHash<QString, QStringList> je;
            for (qsizetype i = erste; i < vorlagen.size(); i += 2)
                je.insert(vorlagen.at(i).pfad, stellen(gelesen(quelle, vorlagen.at(i)), vorlagen.at(i)));
            return je;
        };
        auto zweite = std::async(std::launch::async, [&] { return haelfte(1); });
        QHash<QString, QStringList> gefundene = haelfte(0);
        gefundene.insert(zweite.get());

        const QHash<QString, QStringList> soll = erwartete();
        int richtig = 0;
        int falsch = 0;
        int verfehlt = 0;
        for (const Vorlage &vorlage : std::as_const(vorlagen)) {
            QStringList uebrige = soll.value(vorlage.pfad);
            for (const QString &zeile : gefundene.value(vorlage.pfad)) {
                const bool steht = uebrige.removeOne(zeile);
                richtig += steht ? 1 : 0;
                falsch += steht ? 0 : 1;
                if (!steht)
                    qInfo().noquote() << u"\n=== "_s + vorlage.pfad + u"\n+"_s + zeile;
            }
            verfehlt += int(uebrige.size());
            for (const QString &zeile : std::as_const(uebrige))
                qInfo().noquote() << u"\n=== "_s + vorlage.pfad + u"\n-"_s + zeile;
        }
        qInfo("%d found, %d wrong, %d missed, %d documents", richtig, falsch, verfehlt, int(vorlagen.size()));
        QVERIFY(richtig >= 0.95 * (richtig + verfehlt));
        QVERIFY(falsch <= 0.01 * (richtig + falsch));
    }
};

QTEST_GUILESS_MAIN(TestBelegtafel)
#include "test_belegtafel.moc"
