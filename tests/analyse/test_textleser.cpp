#include "bestand.h"
#include "datenbank.h"
#include "lauf.h"
#include "pdf.h"
#include "satz.h"
#include "skizze.h"
#include "textleser.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

namespace
{
/** Text of @p anzahl different words, from the one numbered @p von on. */
QStringList brief(int von, int anzahl)
{
    QStringList zeilen;
    for (int i = von; i < von + anzahl; ++i) {
        if ((i - von) % 10 == 0)
            zeilen << QString();
        zeilen.last() += u"Zeile%1 "_s.arg(i);
    }
    zeilen.last() += u"von der"_s;
    return zeilen;
}
} // namespace

class TestTextleser : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;

    qint64 dokument(const QString &name, const QByteArray &inhalt) const
    {
        const QString pfad = m_profil.quelle + u'/' + name;
        QFile datei(pfad);
        if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size())
            qFatal("cannot write");
        m_db->ausfuehren(u"INSERT INTO dokumente (pfad, dateiname) VALUES (?,?)"_s, {pfad, name});
        return m_db->abfragen(u"SELECT MAX(id) id FROM dokumente"_s).first().ganz(u"id");
    }

    qint64 dokument(const QString &name, const QStringList &zeilen) const
    {
        return dokument(name,
                        vorfuehrung::pdf({{.inhalt = vorfuehrung::seitenSatz(zeilen), .jpeg = {}, .bildgroesse = {}}}));
    }

    [[nodiscard]] Zeile zeile(qint64 id) const
    {
        return m_db
            ->abfragen(u"SELECT d.*, t.text FROM dokumente d LEFT JOIN texte t ON t.dokument_id=d.id WHERE id=?"_s,
                       {id})
            .first();
    }

    /** The progress messages of the stage. */
    QStringList lesen() const
    {
        QStringList meldungen;
        Lauf lauf(
            m_db, m_profil, [] { return false; }, {}, [&](const Laufstand &stand) { meldungen << stand.meldung; });
        Textleser::textLesen(lauf);
        meldungen.removeAll(QString());
        return meldungen;
    }

    void aufnehmen() const
    {
        Lauf lauf(
            m_db, m_profil, [] { return false; }, {}, [](const Laufstand &) {});
        Bestand::aufnehmen(lauf);
    }

private Q_SLOTS:
    void init()
    {
        m_db.reset();
        m_ordner = std::make_unique<QTemporaryDir>();
        m_db = std::make_shared<Datenbank>(m_ordner->filePath(u"k.db"_s));
        m_profil = {};
        m_profil.quelle = m_ordner->filePath(u"scans"_s);
        m_profil.maxZeichen = 100;
        QVERIFY(QDir().mkdir(m_profil.quelle));
    }
    void cleanupTestCase() { m_db.reset(); }

    void gelesenUndNurEinmal()
    {
        const qint64 id = dokument(u"a.pdf"_s, brief(0, 100));
        QCOMPARE(lesen(), (QStringList{u"1 von 1 gelesen"_s, u"0 textgleiche Dubletten, 0 ähnliche Paare"_s}));
        const Zeile z = zeile(id);
        QCOMPARE(z.text(u"text").size(), 300);
        QVERIFY(z.text(u"text").startsWith(u"Zeile0 Zeile1"_s));
        QCOMPARE(z.ganz(u"hat_textebene"), 1);
        QCOMPARE(z.text(u"text_hash").size(), 64);
        QCOMPARE(Skizze::ausJson(z.text(u"skizze"))->size(), 64);
        QCOMPARE(lesen(), QStringList{u"0 textgleiche Dubletten, 0 ähnliche Paare"_s});
    }

    void textgleicheUndAehnliche()
    {
        const qint64 aehnlich = dokument(u"aehnlich.pdf"_s, brief(3, 150));
        const qint64 langerName = dokument(u"gleicher Text.pdf"_s, brief(0, 150));
        QStringList anders = brief(0, 150);
        anders.prepend(u" -- "_s); // another file, the same words
        const qint64 kurzerName = dokument(u"b.pdf"_s, anders);
        const qint64 fremd = dokument(u"fremd.pdf"_s, brief(1000, 150));
        m_profil.seiten = 1;
        QCOMPARE(lesen().last(), u"1 textgleiche Dubletten, 1 ähnliche Paare"_s);
        QCOMPARE(zeile(langerName).text(u"status"), u"dublette"_s);
        QCOMPARE(zeile(langerName).ganz(u"dublette_von"), kurzerName);
        QCOMPARE(zeile(langerName).komma(u"aehnlichkeit"), 0.99);
        const Zeile spaeteres = zeile(kurzerName);
        QCOMPARE(spaeteres.text(u"status"), u"neu"_s);
        QCOMPARE(spaeteres.ganz(u"aehnlich_zu"), aehnlich);
        const double grad = spaeteres.komma(u"aehnlichkeit");
        QVERIFY(grad >= 0.75 && grad < 1);
        QCOMPARE(QString::number(grad), QString::number(grad, 'f', 3).remove(QRegularExpression(u"0+\\z"_s)));
        QCOMPARE(zeile(fremd).ganz(u"aehnlich_zu"), 0);
        QCOMPARE(zeile(aehnlich).ganz(u"aehnlich_zu"), 0);
        QCOMPARE(lesen().last(), u"0 textgleiche Dubletten, 0 ähnliche Paare"_s);
    }

    /** Two policies with the same conditions in front: only the whole text tells them apart. */
    void gleicherAnfangIstKeinDoppel()
    {
        m_profil.maxZeichen = 6000;
        const QStringList bedingungen = brief(0, 240);
        const qint64 erste = dokument(u"a.pdf"_s, bedingungen + brief(5000, 100));
        const qint64 zweite = dokument(u"b.pdf"_s, bedingungen + brief(7000, 100));
        QCOMPARE(lesen().last(), u"0 textgleiche Dubletten, 1 ähnliche Paare"_s);
        QCOMPARE(zeile(erste).text(u"text_hash"), zeile(zweite).text(u"text_hash"));
        QCOMPARE(zeile(zweite).text(u"status"), u"neu"_s);
        QCOMPARE(zeile(zweite).ganz(u"aehnlich_zu"), erste);
    }

    /** Scanned this week, known since last week: the new one is marked, the known one never. */
    void mitFrueherGelesenenVerglichen()
    {
        const qint64 fertig = dokument(u"fertig.pdf"_s, brief(0, 150));
        const qint64 anderes = dokument(u"anderes.pdf"_s, brief(1000, 150));
        lesen();
        m_db->ausfuehren(u"UPDATE dokumente SET status='erledigt'"_s);
        QStringList nochmal = brief(0, 150);
        nochmal.prepend(u" -- "_s);
        const qint64 doppelt = dokument(u"1.pdf"_s, nochmal);
        const qint64 aehnlich = dokument(u"2.pdf"_s, brief(1003, 150));
        QCOMPARE(lesen().last(), u"1 textgleiche Dubletten, 1 ähnliche Paare"_s);
        QCOMPARE(zeile(doppelt).ganz(u"dublette_von"), fertig);
        QCOMPARE(zeile(aehnlich).ganz(u"aehnlich_zu"), anderes);
        QCOMPARE(zeile(fertig).text(u"status") + zeile(anderes).text(u"status"), u"erledigterledigt"_s);
    }

    /** A file that was away for a while is read by itself once an inventory finds it again. */
    void abwesendeWerdenNachgelesen()
    {
        const qint64 id = dokument(u"a.pdf"_s, brief(0, 50));
        dokument(u"b.pdf"_s, brief(100, 50));
        const QString pfad = m_profil.quelle + u"/a.pdf"_s;
        QVERIFY(QFile::rename(pfad, pfad + u".weg"_s));
        lesen();
        m_db->ausfuehren(u"UPDATE dokumente SET status='bereit', vorschlag='x'"_s);
        QVERIFY(QFile::rename(pfad + u".weg"_s, pfad));
        aufnehmen();
        QCOMPARE(zeile(id).text(u"status"), u"neu"_s);
        lesen();
        QVERIFY(zeile(id).text(u"text").startsWith(u"Zeile0"_s) && zeile(id).text(u"fehler").isEmpty());
    }

    /** What lies under a document's name while it is read must be what the inventory has seen there. */
    void anderesUnterSeinemNamen_data()
    {
        QTest::addColumn<QByteArray>("anderes");
        QTest::addColumn<bool>("zurueck");
        const QByteArray brief =
            vorfuehrung::pdf({{.inhalt = vorfuehrung::seitenSatz(::brief(500, 90)), .jpeg = {}, .bildgroesse = {}}});
        QTest::newRow("another document, for a while") << brief << true;
        QTest::newRow("half of one, for a while") << brief.left(brief.size() / 2) << true;
        QTest::newRow("another document, for good") << brief << false;
        QTest::newRow("half of one, for good") << brief.left(brief.size() / 2) << false;
    }
    void anderesUnterSeinemNamen()
    {
        QFETCH(const QByteArray, anderes);
        QFETCH(const bool, zurueck);
        const qint64 id = dokument(u"a.pdf"_s, brief(0, 50));
        const qint64 doppelt = dokument(u"b.pdf"_s, brief(500, 90)); // what a.pdf is meanwhile
        const QString pfad = m_profil.quelle + u"/a.pdf"_s;
        aufnehmen();
        QVERIFY(QFile::rename(pfad, pfad + u".weg"_s));
        QFile fremde(pfad);
        QVERIFY(fremde.open(QIODevice::WriteOnly) && fremde.write(anderes) == anderes.size());
        fremde.close();
        lesen();
        QVERIFY(zeile(id).text(u"fehler").startsWith(u"Lesen nicht möglich"_s));
        QCOMPARE(zeile(id).text(u"text"), QString());
        m_db->ausfuehren(u"UPDATE dokumente SET status='bereit', vorschlag='x' WHERE status='neu'"_s);
        if (zurueck)
            QVERIFY(QFile::remove(pfad) && QFile::rename(pfad + u".weg"_s, pfad));
        aufnehmen();
        lesen();
        QCOMPARE(zeile(id).text(u"text").startsWith(u"Zeile0 "_s), zurueck);
        QCOMPARE(zeile(id).text(u"status"), zurueck ? u"neu"_s : u"fehlt"_s);
        QCOMPARE(zeile(doppelt).text(u"status"), u"bereit"_s);
        QVERIFY(zurueck || m_db->abfragen(u"SELECT 1 FROM dokumente WHERE pfad=? AND id>?"_s, {pfad, id}).size() == 1);
    }

    void unlesbareHaltenNichtAuf()
    {
        const qint64 kaputt = dokument(u"a.pdf"_s, QByteArray("kein PDF"));
        const qint64 weg = dokument(u"b.pdf"_s, QByteArray());
        QVERIFY(QFile::remove(m_profil.quelle + u"/b.pdf"_s));
        const qint64 gut = dokument(u"c.pdf"_s, brief(0, 50));
        const qint64 ruht = dokument(u"d.pdf"_s, brief(0, 50));
        m_db->ausfuehren(u"UPDATE dokumente SET ausgenommen=1 WHERE id=?"_s, {ruht});
        QCOMPARE(lesen().last(), u"0 textgleiche Dubletten, 0 ähnliche Paare"_s);
        QCOMPARE(zeile(kaputt).text(u"fehler"), u"Lesen nicht möglich: die Datei ist beschädigt"_s);
        QCOMPARE(zeile(weg).text(u"fehler"), u"Lesen nicht möglich: Datei nicht gefunden"_s);
        for (const qint64 id : {kaputt, weg}) {
            QCOMPARE(zeile(id).wert(u"text_hash"), Wert(QString(u""_s)));
            QCOMPARE(zeile(id).text(u"status"), u"neu"_s);
        }
        QVERIFY(!zeile(gut).text(u"text").isEmpty());
        QCOMPARE(zeile(ruht).wert(u"text_hash"), Wert());
        QCOMPARE(lesen().size(), 1);
    }

    // A drive that was pulled out is no fault of the documents.
    void verschwundenerHerkunftsordner()
    {
        const qint64 id = dokument(u"a.pdf"_s, brief(0, 50));
        QVERIFY(QDir(m_profil.quelle).removeRecursively());
        QVERIFY_EXCEPTION_THROWN(lesen(), Fehler);
        QCOMPARE(zeile(id).wert(u"fehler"), Wert());
        QCOMPARE(zeile(id).wert(u"text_hash"), Wert());
    }
};

QTEST_GUILESS_MAIN(TestTextleser)
#include "test_textleser.moc"
