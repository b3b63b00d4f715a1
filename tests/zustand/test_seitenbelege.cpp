#include "dokumente.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "satz.h"
#include "scan.h"
#include "seitenbelege.h"
#include "vorauslesung.h"
#include "zustandsprobe.h"

#include <QDir>
#include <QSignalSpy>
#include <QStandardPaths>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

namespace
{
QByteArray brief(const QString &nummer)
{
    vorfuehrung::Seite seite;
    seite.inhalt = vorfuehrung::seitenSatz({u"# Stadtwerke Meißen GmbH"_s, u""_s, u"Meißen, 31.01.2024"_s, u""_s,
                                            u"* Rechnung Nr. "_s + nummer, u"Sehr geehrte Frau Muster,"_s,
                                            u"wir berechnen Ihnen den Strom, zahlbar bis 14.02.2024."_s});
    return vorfuehrung::pdf({seite});
}
} // namespace

class TestSeitenbelege : public Zustandsprobe
{
    Q_OBJECT

    [[nodiscard]] Seitenbelege *belege() const { return m_z->seitenbelege(); }
    qint64 wartet(const QString &name, const QByteArray &pdf, bool textebene = true)
    {
        return m_b->dokument(
            name,
            [&](Dokument &d) {
                d.hatTextebene = textebene;
                d.angaben.datum = u"2024-01-31"_s;
                d.angaben.gegenueber = u"Stadtwerke Meißen"_s;
                d.angaben.titel = u"Rechnung 4711"_s;
            },
            pdf);
    }
    [[nodiscard]] int stellen(Feld feld) const
    {
        const auto marken = belege()->marken();
        return int(std::count_if(marken.begin(), marken.end(), [&](const Seitenmarke &m) { return m.feld == feld; }));
    }

private Q_SLOTS:
    void werteUndAngebote()
    {
        wartet(u"a.pdf"_s, brief(u"4711"_s));
        beginnen();
        QTRY_COMPARE(belege()->pfad(), m_b->quelle(u"a.pdf"_s));
        QTRY_COMPARE(belege()->marken().size(), 3);
        QVERIFY(belege()->fehlende().isEmpty());
        const Seitenmarke datum = belege()->marken().first();
        QCOMPARE(datum.feld, Feld::Datum);
        QCOMPARE(datum.orte.size(), 1);
        QVERIFY(QRectF(0, 0, 1, 1).contains(datum.orte.first()));

        // What is typed is looked for at once.
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Rechnung 4712"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2024-02-01"_s);
        QTRY_COMPARE(belege()->fehlende(), (QList<Feld>{Feld::Datum, Feld::Titel}));
        QCOMPARE(stellen(Feld::Datum), 0);

        const auto daten = belege()->angebote(Feld::Datum);
        QCOMPARE(daten.size(), 2);
        QCOMPARE(daten.first().wert, u"2024-01-31"_s);
        const auto titel = belege()->angebote(Feld::Titel);
        QCOMPARE(titel.last().wert, u"4711"_s);
        QCOMPARE(belege()->gewaehlt(titel.last()), u"Rechnung 4711"_s);
        QCOMPARE(belege()->angebote(Feld::Gegenueber).first().wert, u"Stadtwerke Meißen"_s);
        QVERIFY(belege()->angebote(Feld::Zweig).isEmpty());
        QCOMPARE(belege()->uebernommen(Feld::Datum, {.text = u"14.02.2024."_s}), u"2024-02-14"_s);
        QCOMPARE(belege()->uebernommen(Feld::Jahr, {.text = u"14.02.2024."_s}), u"2024"_s);
        QCOMPARE(belege()->uebernommen(Feld::Gegenueber, {.text = u"Meißen GmbH"_s}), u"Meißen"_s);
    }

    void einAnderesDokument()
    {
        const qint64 a = wartet(u"a.pdf"_s, brief(u"4711"_s));
        wartet(u"b.pdf"_s, brief(u"17"_s));
        wartet(u"c.pdf"_s, "no PDF");
        beginnen();
        QTRY_COMPARE(belege()->marken().size(), 3);
        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE id=?"_s, {a});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(belege()->pfad(), m_b->quelle(u"b.pdf"_s));
        QTRY_COMPARE(belege()->fehlende(), QList<Feld>{Feld::Titel});
        // What cannot be read has no words, and nothing is said to be missing.
        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE dateiname='b.pdf'"_s);
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QTRY_VERIFY(belege()->pfad().isEmpty() && belege()->marken().isEmpty());
        QVERIFY(belege()->fehlende().isEmpty());
    }

    void wasSichUnterscheidet()
    {
        const qint64 a = wartet(u"a.pdf"_s, brief(u"4711"_s));
        const qint64 b = wartet(u"b.pdf"_s, brief(u"4712"_s));
        m_b->sql(u"UPDATE dokumente SET aehnlich_zu=?, aehnlichkeit=0.97 WHERE id=?"_s, {b, a});
        m_b->sql(u"UPDATE dokumente SET status='erledigt' WHERE id=?"_s, {b});
        beginnen();
        QTRY_COMPARE(belege()->marken().size(), 3);
        QVERIFY(belege()->unterschiede(false).isEmpty());
        m_z->pruefung()->setzePartnerZeigen(true);
        QTRY_COMPARE(belege()->partnerPfad(), m_b->quelle(u"b.pdf"_s));
        QCOMPARE(belege()->unterschiede(true).size(), 1);
        m_z->pruefung()->setzePartnerZeigen(false);
        QCOMPARE(belege()->unterschiede(false).size(), 1); // once they are known, on both
        // Read anew, they go with the words that they were reckoned from.
        const QSignalSpy gelesen(belege(), &Seitenbelege::worteGeaendert);
        m_z->pruefung()->seiteDrehen(1, 180);
        QTRY_COMPARE(gelesen.size(), 1);
        QVERIFY(belege()->unterschiede(false).isEmpty());
    }

    // Of a text layer all pages are known once the file is looked at, of a scan the one that is; values are looked for
    // on the pages that were read.
    void weitereSeiten()
    {
        const QByteArray inhalt = vorfuehrung::seitenSatz({u"# Rechnung 4711"_s});
        vorfuehrung::Seite text;
        text.inhalt = inhalt;
        const auto bild = vorfuehrung::gescannt(inhalt, {}, 1);
        const qint64 a = wartet(u"a.pdf"_s, vorfuehrung::pdf({text, text, text, text}));
        wartet(u"b.pdf"_s, vorfuehrung::pdf({bild, bild, bild, bild}), false);
        beginnen();
        QTRY_COMPARE(belege()->worte().size(), 2);
        belege()->imBlick(m_b->quelle(u"b.pdf"_s), 1, 2, 4); // not the one under review
        belege()->imBlick(m_b->quelle(u"a.pdf"_s), 1, 2, 4);
        QTRY_COMPARE(belege()->worte().size(), 4);
        QCOMPARE(belege()->worte().last().last().text, u"4711"_s);
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Rechnung 4712"_s);
        QTRY_COMPARE(belege()->fehlende().contains(Feld::Titel), true);
        QCOMPARE(stellen(Feld::Titel), 1);

        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE id=?"_s, {a});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE_WITH_TIMEOUT(belege()->worte().size(), 2, 60000);
        belege()->imBlick(m_b->quelle(u"b.pdf"_s), 4, 4, 4);
        QTRY_COMPARE_WITH_TIMEOUT(belege()->worte().size(), 4, 60000);
        QVERIFY(belege()->worte().at(2).isEmpty());
        QCOMPARE(belege()->worte().last().last().text, u"4711"_s);
        QTRY_COMPARE(QDir(Wortspeicher::ueblicherOrdner()).entryList({u"*-4.worte"_s}).size(), 1);
        belege()->imBlick(m_b->quelle(u"b.pdf"_s), 2, 4, 4); // the one of them that is not known
        QTRY_VERIFY_WITH_TIMEOUT(!belege()->worte().at(2).isEmpty(), 60000);
    }

    // The words are those of the file that lies there now.
    void eineAndereDatei()
    {
        wartet(u"a.pdf"_s, brief(u"4711"_s));
        beginnen();
        QTRY_COMPARE(belege()->marken().size(), 3);
        QFile datei(m_b->quelle(u"a.pdf"_s));
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write(brief(u"4712"_s)) > 0);
        datei.close();
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Rechnung 4712"_s);
        QTRY_COMPARE(belege()->angebote(Feld::Titel).value(1).wert, u"4712"_s);
        QTRY_COMPARE(belege()->marken().size(), 3);
        QVERIFY(belege()->fehlende().isEmpty());
    }

    // Nothing is read before the page has been painted, or another one in its place.
    void dieSeiteGehtVor()
    {
        const qint64 a = wartet(u"a.pdf"_s, brief(u"4711"_s));
        const qint64 b = wartet(u"b.pdf"_s, brief(u"4712"_s));
        const qint64 c = wartet(u"c.pdf"_s, brief(u"4713"_s));
        m_b->sql(u"UPDATE dokumente SET aehnlich_zu=?, aehnlichkeit=0.97 WHERE id=?"_s, {c, b});
        beginnen();
        QTRY_COMPARE(belege()->pfad(), m_b->quelle(u"a.pdf"_s));
        m_z->pruefung()->setzeUngesehen(true);
        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE id=?"_s, {a});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QTest::qWait(100);
        QVERIFY(belege()->pfad().isEmpty() && belege()->liest());
        m_z->pruefung()->setzePartnerZeigen(true);
        QTRY_COMPARE(belege()->partnerPfad(), m_b->quelle(u"c.pdf"_s));
        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE id=?"_s, {b});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        m_z->pruefung()->setzeUngesehen(false);
        QTRY_COMPARE(belege()->pfad(), m_b->quelle(u"c.pdf"_s));
        QVERIFY(!belege()->liest());
    }

    // What is on its way ahead is waited for when its document comes.
    void wasGeradeVorausGelesenWird()
    {
        const qint64 a = wartet(u"a.pdf"_s, brief(u"4711"_s));
        wartet(u"b.pdf"_s, brief(u"4712"_s));
        wartet(u"c.pdf"_s, "no PDF", false);
        const QByteArray inhalt = vorfuehrung::seitenSatz({u"# Rechnung 4711"_s});
        wartet(u"d.pdf"_s, vorfuehrung::pdf({vorfuehrung::gescannt(inhalt, {}, 1)}), false);
        beginnen();
        Vorauslesung voraus(nullptr);
        QStringList fertige;
        connect(&voraus, &Vorauslesung::fertig, this, [&](const Leseauftrag &a) {
            fertige << QFileInfo(a.quelle.pfad).fileName();
            QVERIFY(!voraus.liest(a));
        });
        const Wortlagen::Erkennung wie{.seiten = {.erste = 1, .letzte = 2}, .sprache = u"deu"_s, .drehungen = {}};
        const Leseauftrag d{.quelle = {.pfad = m_b->quelle(u"d.pdf"_s), .textebene = false, .wie = wie}, .eigene = {}};
        voraus.beginnen(m_z->profilwahl()->offenes()->db(), a, d, false);
        QTRY_VERIFY_WITH_TIMEOUT(voraus.liest(d), 60000);
        QTRY_COMPARE_WITH_TIMEOUT(fertige, QStringList({u"b.pdf"_s, u"c.pdf"_s, u"d.pdf"_s}), 60000);
        const Lesungszeiger gelesen = voraus.bereit(d);
        QVERIFY(gelesen && gelesen->istAktuell());
        QCOMPARE(gelesen->worte().first().last().text, u"4711"_s);
        // What lies there by now is another letter.
        QFile datei(m_b->quelle(u"d.pdf"_s));
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write(brief(u"4712"_s)) > 0);
        datei.close();
        QVERIFY(!gelesen->istAktuell());
    }

    // Pages that are only images: the words are recognised once, also of documents that are not on show yet.
    void erkannteWorteWerdenGehalten()
    {
        const QByteArray inhalt = vorfuehrung::seitenSatz({u"# Rechnung 4711"_s});
        vorfuehrung::Scanlage schief;
        schief.neigung = 2;
        const QByteArray bild = vorfuehrung::pdf({vorfuehrung::gescannt(inhalt, schief, 1)});
        wartet(u"a.pdf"_s, brief(u"4711"_s));
        wartet(u"b.pdf"_s, bild, false);
        QDir ordner(Wortspeicher::ueblicherOrdner());
        QVERIFY(ordner.removeRecursively());
        beginnen();
        QTRY_COMPARE_WITH_TIMEOUT((ordner.refresh(), ordner.entryList({u"*.worte"_s}).size()), 1, 60000);
        m_b->sql(u"UPDATE dokumente SET status='dublette' WHERE dateiname='a.pdf'"_s);
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(belege()->pfad(), m_b->quelle(u"b.pdf"_s));
        QTRY_COMPARE(stellen(Feld::Titel), 1);
    }
};

QTEST_GUILESS_MAIN(TestSeitenbelege)
#include "test_seitenbelege.moc"
