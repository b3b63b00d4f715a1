#include "lernspeicher.h"
#include "pruefstand.h"
#include "wiedervorlage.h"
#include "zweitmeinung.h"

#include "einordnung.h"

#include <QTest>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;

class TestZweitmeinung : public QObject
{
    Q_OBJECT
    std::unique_ptr<Pruefstand> m_stand;

    Lauffazit einholen() const
    {
        Lauf lauf = m_stand->lauf();
        Zweitmeinung::einholen(lauf);
        return lauf.fazit();
    }

    /** A waiting document with the first model's proposal. */
    qint64 vorgeschlagen(double konfidenz = 0.5, const QString &ortQuelle = u"modell"_s,
                         const QString &text = u"Text"_s) const
    {
        const qint64 id = m_stand->dokument(u"%1.pdf"_s.arg(konfidenz) + ortQuelle, text);
        m_stand->db().ausfuehren(
            u"UPDATE dokumente SET status='bereit', gegenueber='Erster', titel='alt', rubrik='Belege',\n"
            "vorschlag='alt.pdf', konfidenz=?, ort_quelle=? WHERE id=?"_s,
            {konfidenz, ortQuelle, id});
        return id;
    }

private Q_SLOTS:
    void init() { m_stand = std::make_unique<Pruefstand>(); }
    void cleanupTestCase() { m_stand.reset(); }

    void werGefragtWird_data()
    {
        QTest::addColumn<double>("konfidenz");
        QTest::addColumn<QString>("ortQuelle");
        QTest::addColumn<QString>("aenderung");
        QTest::addColumn<bool>("erwartet");
        const QString m = u"modell"_s;
        QTest::newRow("genau 0,75") << 0.75 << m << u""_s << false;
        QTest::newRow("darunter") << 0.7499 << m << u""_s << true;
        QTest::newRow("umsortiert") << 0.99 << u"umsortierung"_s << u""_s << true;
        QTest::newRow("gelernt") << 0.1 << u"gelernt"_s << u""_s << false;
        QTest::newRow("gescheitert, ohne Quelle") << 0.0 << m << u"ort_quelle=NULL"_s << true;
        QTest::newRow("schon gefragt") << 0.1 << m << u"zweitmeinung=1"_s << false;
        QTest::newRow("noch nicht gefragt") << 0.1 << m << u"zweitmeinung=0"_s << true;
        QTest::newRow("ausgenommen") << 0.1 << m << u"ausgenommen=1"_s << false;
        QTest::newRow("zurückgestellt") << 0.1 << m << u"status='zurueckgestellt'"_s << false;
    }
    void werGefragtWird()
    {
        QFETCH(double, konfidenz);
        QFETCH(QString, ortQuelle);
        QFETCH(QString, aenderung);
        QFETCH(bool, erwartet);
        vorgeschlagen(konfidenz, ortQuelle);
        if (!aenderung.isEmpty())
            QCOMPARE(m_stand->db().ausfuehren(u"UPDATE dokumente SET "_s + aenderung), 0);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        einholen();
        QCOMPARE(m_stand->fragen().size(), erwartet ? 1 : 0);
        einholen();
        QCOMPARE(m_stand->fragen().size(), erwartet ? 1 : 0);
    }

    void dieAntwortErsetztDenVorschlag()
    {
        const qint64 id = vorgeschlagen(0.7, u"umsortierung"_s);
        m_stand->db().ausfuehren(
            u"UPDATE dokumente SET fehler='Einordnung nicht möglich: x', modell_rubrik='Belege'"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"konfidenz"_s, 0.2}}))});
        einholen();
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"datum"_s, u"jahr"_s, u"gegenueber"_s, u"titel"_s, u"zweig"_s,
                                     u"ablage"_s, u"rubrik"_s, u"konfidenz"_s, u"zweitmeinung"_s, u"fehler"_s}),
                 u"bereit|2023-05-17|2023|Finanzamt Meißen|Bescheid 7|Privat|Steuern|Bescheide|0.2|1|NULL"_s);
        QCOMPARE(m_stand->werte(id, {u"vorschlag"_s, u"ort_quelle"_s, u"modell_rubrik"_s}),
                 u"alt.pdf|umsortierung|Belege"_s);
        const QJsonObject frage = m_stand->fragen().first();
        QCOMPARE(frage.value("model"_L1), u"gross"_s);
        QCOMPARE(frage.value("prompt"_L1),
                 Einordnung::frage(Einordnung::anweisung(m_stand->profil), u"0.7.pdfumsortierung"_s, u"Text"_s, 1400));
    }

    void ohneAntwortBleibtDerVorschlag_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("fragen");
        QTest::addColumn<Testantwort>("antwort");
        QTest::addColumn<int>("gemerkt");
        const auto leer = Pruefstand::antwort({});
        QTest::newRow("gescheitert") << u"Text"_s << 1 << Testantwort::fest(500, "{}") << 1;
        QTest::newRow("sagt nichts") << u"Text"_s << 1 << leer << 1;
        QTest::newRow("sagt nur Unbekanntes")
            << u"Text"_s << 1 << Pruefstand::antwort({{u"zweig"_s, u"Fremd"_s}, {u"datum"_s, u"neulich"_s}}) << 1;
        QTest::newRow("kein Text") << u""_s << 0 << leer << 0;
    }
    void ohneAntwortBleibtDerVorschlag()
    {
        QFETCH(QString, text);
        QFETCH(Testantwort, antwort);
        QFETCH(int, gemerkt);
        const qint64 id = vorgeschlagen(0.0, u"modell"_s, text);
        m_stand->db().ausfuehren(u"UPDATE dokumente SET fehler='Einordnung nicht möglich: x'"_s);
        m_stand->modellSagt({antwort});
        einholen();
        einholen();
        QCOMPARE(m_stand->werte(id, {u"titel"_s, u"rubrik"_s, u"zweitmeinung"_s, u"fehler"_s}),
                 u"alt|Belege|1|Einordnung nicht möglich: x"_s);
        QTEST(int(m_stand->fragen().size()), "fragen");
        // What was never answered is asked again on request, and no more once it was answered.
        m_stand->db().ausfuehren(u"UPDATE dokumente SET fehler=NULL"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        QCOMPARE(Wiedervorlage::oeffnen(m_stand->db()), gemerkt);
        einholen();
        QCOMPARE(m_stand->werte(id, {u"titel"_s}), gemerkt ? u"Bescheid 7"_s : u"alt"_s);
        QCOMPARE(m_stand->db().abfragen(u"SELECT 1 FROM nachgeprueft"_s).size(), gemerkt);
        QCOMPARE(Wiedervorlage::oeffnen(m_stand->db()), 0);
    }

    // No document is to blame: nothing is marked, and the reason is told.
    void ohneBrauchbaresModellWirdNichtsVermerkt_data()
    {
        QTest::addColumn<QString>("modell");
        QTest::addColumn<Laufhindernis::Art>("art");
        QTest::addColumn<int>("fragen");
        QTest::newRow("fehlt") << u"gross"_s << Laufhindernis::Art::ModellFehlt << 1;
        QTest::newRow("heißt wie eines anderswo") << u"gross:120b-CLOUD"_s << Laufhindernis::Art::ModellAnderswo << 0;
        QTest::newRow("rechnet anderswo") << u"haus"_s << Laufhindernis::Art::ModellAnderswo << 0;
    }
    void ohneBrauchbaresModellWirdNichtsVermerkt()
    {
        QFETCH(QString, modell);
        QFETCH(Laufhindernis::Art, art);
        vorgeschlagen(0.1);
        const qint64 id = vorgeschlagen(0.2);
        m_stand->profil.modellGross = modell;
        m_stand->serverListet({{{u"name"_s, u"haus:latest"_s}, {u"remote_model"_s, u"x"_s}}});
        m_stand->modellSagt({Testantwort::fest(404, R"({"error": "model 'gross' not found"})")});
        const Lauffazit fazit = einholen();
        QCOMPARE(fazit.hindernisse, (QList<Laufhindernis>{{.art = art, .modell = modell}}));
        QTEST(int(m_stand->fragen().size()), "fragen");
        QCOMPARE(m_stand->werte(id, {u"titel"_s, u"zweitmeinung"_s}), u"alt|NULL"_s);
    }

    void einToterServerWirdEinmalGenannt()
    {
        for (const double konfidenz : {0.1, 0.2})
            vorgeschlagen(konfidenz);
        m_stand->serverStirbt();
        QCOMPARE(einholen().hindernisse, QList<Laufhindernis>{Laufhindernis{}});
        QCOMPARE(Wiedervorlage::oeffnen(m_stand->db()), 2);
    }

    void werSichSelbstNenntBehaeltDasErsteGegenueber()
    {
        const qint64 id = vorgeschlagen();
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, u"Anna Muster"_s}}))});
        einholen();
        QCOMPARE(m_stand->werte(id, {u"gegenueber"_s, u"titel"_s}), u"Erster|Bescheid 7"_s);
        QCOMPARE(m_stand->fragen().size(), 1);
    }

    // The larger model names a counterpart whose place the user has taught.
    void gelerntesGehtVor()
    {
        const qint64 id = vorgeschlagen();
        Angaben gelernt;
        gelernt.gegenueber = u"Finanzamt Meißen"_s;
        gelernt.ort = {.zweig = u"Privat"_s, .ablage = u"Steuern"_s, .rubrik = u"Belege"_s};
        Lernspeicher(m_stand->db()).merken(0, gelernt, u"Amt für Finanzen"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, u"Amt fuer Finanzen"_s}}))});
        einholen();
        QCOMPARE(m_stand->werte(id, {u"gegenueber"_s, u"rubrik"_s, u"ort_quelle"_s, u"gelernt_von"_s}),
                 u"Finanzamt Meißen|Belege|gelernt|finanzamt meissen"_s);
    }

    // The owner's address on the paper proves the direction, whatever a model or an earlier correction says.
    void dieAnschriftGehtVorAllem()
    {
        m_stand->profil.zweige.first().ablagen[1].rubriken << u"Mahnungen"_s;
        const qint64 id = vorgeschlagen(0.5, u"modell"_s, u"Weg 100 - 12345 Ort\nRechnung"_s);
        Angaben gelernt;
        gelernt.gegenueber = u"Kunde"_s;
        gelernt.ort = {.zweig = u"Privat"_s, .ablage = u"Firma"_s, .rubrik = u"Eingangsrechnungen"_s};
        Lernspeicher(m_stand->db(), m_stand->profil).merken(0, gelernt, {});
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, u"Kunde"_s}}))});
        einholen();
        const QStringList spalten = {u"rubrik"_s, u"ort_quelle"_s};
        QCOMPARE(m_stand->werte(id, spalten), u"Ausgangsrechnungen|gelernt"_s);
        QCOMPARE(Lernspeicher(m_stand->db(), m_stand->profil).allesAnwenden(), 0);
        gelernt.ort.rubrik = u"Mahnungen"_s; // no matter of direction
        Lernspeicher(m_stand->db(), m_stand->profil).vergessen(u"kunde"_s);
        Lernspeicher(m_stand->db(), m_stand->profil).merken(0, gelernt, {});
        QCOMPARE(m_stand->werte(id, spalten), u"Mahnungen|gelernt"_s);
    }

    // Taught or excluded while the larger model thinks: its answer comes too late. The same for those not asked yet.
    void wasInzwischenGeschahGehtVor_data()
    {
        QTest::addColumn<QString>("aenderung");
        QTest::newRow("gelernt") << u"ort_quelle='gelernt', titel='neu'"_s;
        QTest::newRow("ausgenommen") << u"ausgenommen=1, titel='neu'"_s;
        QTest::newRow("zurückgestellt") << u"status='zurueckgestellt', titel='neu'"_s;
    }
    void wasInzwischenGeschahGehtVor()
    {
        QFETCH(QString, aenderung);
        const QList<qint64> ids = {vorgeschlagen(0.1), vorgeschlagen(0.2)};
        m_stand->modellSagt({Testantwort::gehalten(Pruefstand::antwort(Pruefstand::vorschlag()))});
        {
            const std::jthread mensch([&] {
                while (m_stand->fragen().isEmpty())
                    std::this_thread::sleep_for(5ms);
                m_stand->db().ausfuehren(u"UPDATE dokumente SET "_s + aenderung);
                m_stand->loslassen();
            });
            einholen();
        }
        for (const qint64 id : ids)
            QCOMPARE(m_stand->werte(id, {u"titel"_s, u"gegenueber"_s, u"zweitmeinung"_s}), u"neu|Erster|NULL"_s);
        QCOMPARE(m_stand->fragen().size(), 1);
    }

    void wasDerMenschInzwischenTatBleibt()
    {
        const qint64 id = vorgeschlagen();
        m_stand->modellSagt({Testantwort::gehalten(Pruefstand::antwort(Pruefstand::vorschlag()))});
        {
            const std::jthread mensch([&] {
                while (m_stand->fragen().isEmpty())
                    std::this_thread::sleep_for(5ms);
                m_stand->db().ausfuehren(u"UPDATE dokumente SET status='erledigt', titel='von Hand'"_s);
                m_stand->loslassen();
            });
            einholen();
        }
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"titel"_s, u"gegenueber"_s}), u"erledigt|von Hand|Erster"_s);
    }

    void angehaltenUndFortgesetzt()
    {
        for (const double konfidenz : {0.1, 0.2, 0.3})
            vorgeschlagen(konfidenz);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"konfidenz"_s, 0.1}}))});
        Lauf erster = m_stand->lauf([this] { return m_stand->fragen().size() >= 2; });
        Zweitmeinung::einholen(erster);
        QCOMPARE(m_stand->fragen().size(), 2);
        einholen();
        QCOMPARE(m_stand->fragen().size(), 3);
    }

    void ohneGrossesModellNichts()
    {
        const qint64 id = vorgeschlagen();
        m_stand->profil.modellGross.clear();
        einholen();
        QVERIFY(m_stand->fragen().isEmpty());
        QCOMPARE(m_stand->werte(id, {u"zweitmeinung"_s}), u"NULL"_s);
    }
};

QTEST_GUILESS_MAIN(TestZweitmeinung)
#include "test_zweitmeinung.moc"
