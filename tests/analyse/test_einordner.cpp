#include "analyse.h"
#include "einordner.h"
#include "fehlertext.h"
#include "lernspeicher.h"
#include "pruefstand.h"
#include "sprache.h"
#include "wiedervorlage.h"

#include <QTest>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;

namespace
{
const QStringList ortSpalten = {u"zweig"_s,     u"ablage"_s,     u"rubrik"_s,
                                u"konfidenz"_s, u"ort_quelle"_s, u"gelernt_von"_s};
const QString amOrt = u"Privat|Steuern|Bescheide|"_s;
} // namespace

class TestEinordner : public QObject
{
    Q_OBJECT
    std::unique_ptr<Pruefstand> m_stand;

    void einordnen() const
    {
        Lauf lauf = m_stand->lauf();
        Einordner::einordnen(lauf);
    }

    void lernen(const QString &gegenueber, const QString &rubrik, const QString &vorher = {}) const
    {
        Angaben a;
        a.gegenueber = gegenueber;
        a.ort = {.zweig = rubrik.isEmpty() ? QString() : u"Privat"_s, .ablage = u"Steuern"_s, .rubrik = rubrik};
        Lernspeicher(m_stand->db()).merken(0, a, vorher);
    }

private Q_SLOTS:
    void init() { m_stand = std::make_unique<Pruefstand>(); }
    void cleanupTestCase() { m_stand.reset(); }

    void einVorschlag()
    {
        const qint64 id = m_stand->dokument(u"Scan.PDF"_s, u"Ein Bescheid"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        einordnen();
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"datum"_s, u"jahr"_s, u"gegenueber"_s, u"titel"_s, u"vorschlag"_s,
                                     u"modell_zweig"_s, u"modell_ablage"_s, u"modell_rubrik"_s, u"fehler"_s}),
                 u"bereit|2023-05-17|2023|Finanzamt Meißen|Bescheid 7|2023-05-17 Finanzamt Meißen - Bescheid 7.pdf|"
                 "Privat|Steuern|Bescheide|NULL"_s);
        QCOMPARE(m_stand->werte(id, ortSpalten), amOrt + u"0.8|modell|"_s);
        QVERIFY(QRegularExpression(u"^\\d+\\.\\d\\z"_s).match(m_stand->zeile(id).text(u"zeit")).hasMatch());
        QCOMPARE(m_stand->fragen().size(), 1);
        QCOMPARE(m_stand->fragen().first().value("model"_L1), u"klein"_s);
        QCOMPARE(m_stand->fragen().first().value("prompt"_L1),
                 Einordnung::frage(Einordnung::anweisung(m_stand->profil), u"Scan.PDF"_s, u"Ein Bescheid"_s, 1400));
        einordnen();
        QCOMPARE(m_stand->fragen().size(), 1);
    }

    void ortsquelle_data()
    {
        QTest::addColumn<QString>("altOrdner");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("lag nirgends") << u""_s << u"modell"_s;
        QTest::newRow("lag schon dort, anderes Jahr") << u"Privat/Steuern/2019/Bescheide"_s << u"modell"_s;
        QTest::newRow("lag woanders in der Ablage") << u"Privat/Steuern/2023/Belege"_s << u"umsortierung"_s;
        QTest::newRow("lag an keinem gültigen Ort") << u"Privat/Steuern/2023/Fremdes"_s << u"modell"_s;
    }
    void ortsquelle()
    {
        QFETCH(QString, altOrdner);
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"x"_s, altOrdner);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        einordnen();
        QTEST(m_stand->zeile(id).text(u"ort_quelle"), "erwartet");
    }

    void rechnungsrichtung()
    {
        const QJsonObject eingang = {
            {u"ablage"_s, u"Firma"_s}, {u"rubrik"_s, u"Eingangsrechnungen"_s}, {u"datum"_s, u""_s}};
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"Weg 100 - 12345 Ort\nRechnung"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag(eingang))});
        einordnen();
        QCOMPARE(m_stand->werte(id, ortSpalten), u"Privat|Firma|Ausgangsrechnungen|0.9|modell|"_s);
        QCOMPARE(m_stand->werte(id, {u"modell_rubrik"_s, u"datum"_s}), u"Ausgangsrechnungen|"_s);
    }

    void eigenerNameFragtNach_data()
    {
        QTest::addColumn<Testantwort>("zweite");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("andere Partei") << Pruefstand::antwort({{u"gegenueber"_s, u" Stadtwerke\n"_s}})
                                       << u"Stadtwerke"_s;
        QTest::newRow("keine") << Pruefstand::antwort({{u"gegenueber"_s, u""_s}}) << u""_s;
        QTest::newRow("wieder der Eigentümer") << Pruefstand::antwort({{u"gegenueber"_s, u"Fa. MUSTER"_s}}) << u""_s;
        QTest::newRow("gescheitert") << Testantwort::fest(500, "{}") << u""_s;
    }
    void eigenerNameFragtNach()
    {
        QFETCH(Testantwort, zweite);
        QFETCH(QString, erwartet);
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, u"A. Muster"_s}})), zweite});
        einordnen();
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"gegenueber"_s, u"titel"_s, u"fehler"_s}),
                 u"bereit|"_s + erwartet + u"|Bescheid 7|NULL"_s);
        QCOMPARE(m_stand->fragen().size(), 2);
        QCOMPARE(m_stand->fragen().last().value("prompt"_L1), Gegenpruefung::frage(u"Text"_s, m_stand->profil));
        QCOMPARE(m_stand->fragen().last().value("model"_L1), u"klein"_s);
    }

    void gelerntes_data()
    {
        QTest::addColumn<QString>("gegenueber");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("ort");
        QTest::newRow("Schreibweise wird angeglichen")
            << u"STADTWERKE"_s << u"Stadtwerke GmbH"_s << u"Privat|Steuern|Belege|0.85|gelernt|stadtwerke"_s;
        QTest::newRow("Langform behält ihren Namen")
            << u"Stadtwerke Gas"_s << u"Stadtwerke Gas"_s << u"Privat|Steuern|Belege|0.85|gelernt|stadtwerke"_s;
        QTest::newRow("nur eine Gleichung") << u"Altname AG"_s << u"Neuname"_s << amOrt + u"0.8|modell|altname"_s;
        QTest::newRow("Gleichung, dann Ort")
            << u"Werkstadt"_s << u"Stadtwerke GmbH"_s << u"Privat|Steuern|Belege|0.85|gelernt|stadtwerke"_s;
        QTest::newRow("nichts gelernt") << u"Finanzamt"_s << u"Finanzamt"_s << amOrt + u"0.8|modell|"_s;
        QTest::newRow("leer") << u""_s << u""_s << amOrt + u"0.8|modell|"_s;
    }
    void gelerntes()
    {
        QFETCH(QString, gegenueber);
        lernen(u"Stadtwerke GmbH"_s, u"Belege"_s, u"Werkstadt"_s);
        lernen(u"Neuname"_s, {}, u"Altname"_s);
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"Text"_s, u"Privat/Steuern/2020/Bescheide"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, gegenueber}}))});
        einordnen();
        QTEST(m_stand->zeile(id).text(u"gegenueber"), "name");
        QTEST(m_stand->werte(id, ortSpalten), "ort");
        QCOMPARE(m_stand->zeile(id).text(u"modell_rubrik"), u"Bescheide"_s);
    }

    void gescheitert_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("vorher");
        QTest::addColumn<Testantwort>("antwort");
        QTest::addColumn<QString>("erwartet");
        const Testantwort gut = Pruefstand::antwort(Pruefstand::vorschlag());
        QTest::newRow("kein Text") << u""_s << u""_s << gut << u"Einordnung nicht möglich: kein Text"_s;
        QTest::newRow("nicht gelesen") << u""_s << u"Lesen nicht möglich: verschlüsselt"_s << gut
                                       << u"Einordnung nicht möglich: verschlüsselt"_s;
        QTest::newRow("Unfug") << u"x"_s << u""_s << Testantwort::fest(200, "Unfug")
                               << u"Einordnung nicht möglich: Antwort des Modells nicht lesbar"_s;
    }
    void gescheitert()
    {
        QFETCH(QString, text);
        QFETCH(QString, vorher);
        QFETCH(Testantwort, antwort);
        const qint64 id = m_stand->dokument(u"Alt.pdf"_s, text);
        if (!vorher.isEmpty())
            m_stand->db().ausfuehren(u"UPDATE dokumente SET fehler=?"_s, {vorher});
        const qint64 danach = m_stand->dokument(u"b.pdf"_s, u"Text"_s);
        QList<Testantwort> folge = {Pruefstand::antwort(Pruefstand::vorschlag())};
        if (!text.isEmpty())
            folge.prepend(antwort);
        m_stand->modellSagt(folge);
        einordnen();
        QTEST(m_stand->zeile(id).text(u"fehler"), "erwartet");
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"konfidenz"_s, u"vorschlag"_s}), u"bereit|0|Alt.pdf"_s);
        QCOMPARE(m_stand->werte(danach, {u"status"_s, u"konfidenz"_s, u"fehler"_s}), u"bereit|0.8|NULL"_s);
        QCOMPARE(m_stand->fragen().size(), text.isEmpty() ? 1 : 2);
    }

    // In whatever language a run spoke, its failures are found and shown in the present one.
    void fehlerInAndererSprache()
    {
        Sprache::setzeGewaehlteKennung(u"en"_s);
        const qint64 id = m_stand->dokument(u"a.pdf"_s, {});
        m_stand->db().ausfuehren(u"UPDATE dokumente SET fehler=?"_s, {Fehlertext::lesen(u"encrypted"_s)});
        einordnen();
        const QString fehler = m_stand->zeile(id).text(u"fehler");
        const QString anzeige = Fehlertext::anzeige(fehler);
        Sprache::setzeGewaehlteKennung({});
        QCOMPARE(fehler, u"Einordnung nicht möglich: encrypted"_s);
        QCOMPARE(anzeige, u"Cannot be classified: encrypted"_s);
        QCOMPARE(Wiedervorlage::oeffnen(m_stand->db()), 1);
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"fehler"_s, u"vorschlag"_s, u"text_hash"_s}),
                 u"neu|NULL|NULL|NULL"_s);
    }

    // Whatever the next document may be: it cannot be asked about either, so all of them wait, and it is told once.
    void mittendrinOhneModell_data()
    {
        QTest::addColumn<int>("gefragt"); // documents before the model goes
        QTest::addColumn<bool>("anderswo");
        QTest::addColumn<QString>("gegenueber");
        QTest::newRow("rechnet gleich anderswo") << 0 << true << u"Stadtwerke"_s;
        QTest::newRow("rechnet dann anderswo") << 1 << true << u"Stadtwerke"_s;
        QTest::newRow("fehlt gleich") << 0 << false << u"Stadtwerke"_s;
        QTest::newRow("fehlt dann") << 1 << false << u"Stadtwerke"_s;
        QTest::newRow("fehlt bei der Rückfrage") << 1 << false << u"Anna Muster"_s;
    }
    void mittendrinOhneModell()
    {
        QFETCH(int, gefragt);
        QFETCH(bool, anderswo);
        QFETCH(QString, gegenueber);
        for (int i = 0; i < 3; ++i)
            m_stand->dokument(QString::number(i), u"Text"_s);
        const Testantwort fehlt = Testantwort::fest(404, R"({"error": "model 'klein' not found"})");
        const Testantwort gut = Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, gegenueber}}));
        m_stand->modellSagt(gefragt > 0 && !anderswo ? QList{gut, fehlt} : QList{anderswo ? gut : fehlt});
        Lauf lauf = m_stand->lauf([&] {
            if (anderswo && m_stand->fragen().size() >= gefragt)
                m_stand->serverListet({{{u"name"_s, u"Klein:latest"_s}, {u"remote_host"_s, u"https://example.org"_s}}});
            return false;
        });
        Einordner::einordnen(lauf);
        const bool rueckfrage = gegenueber == u"Anna Muster"_s;
        QCOMPARE(m_stand->fragen().size(), gefragt + (anderswo ? 0 : 1));
        QCOMPARE(m_stand->db().abfragen(u"SELECT 1 FROM dokumente WHERE status='neu' AND fehler IS NULL"_s).size(),
                 3 - (rueckfrage ? 0 : gefragt));
        const auto art = anderswo ? Laufhindernis::Art::ModellAnderswo : Laufhindernis::Art::ErstesModellFehlt;
        QCOMPARE(lauf.fazit().hindernisse, (QList<Laufhindernis>{{.art = art, .modell = u"klein"_s}}));
        QVERIFY(lauf.fazit().gescheiterte.isEmpty());
    }

    void dasInstallierteModellWirdGefragt()
    {
        m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->serverListet({{{u"name"_s, u"gross:1"_s}}, {{u"name"_s, u"klein:4b"_s}}});
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"gegenueber"_s, u"Anna Muster"_s}}))});
        einordnen();
        QCOMPARE(m_stand->fragen().size(), 2);
        for (const QJsonObject &frage : m_stand->fragen())
            QCOMPARE(frage.value("model"_L1), u"klein:4b"_s);
    }

    // Each document fails with its reason; that the server has gone is told once, and each reason is counted.
    void derServerStirbtMittendrin()
    {
        for (int i = 0; i < 4; ++i)
            m_stand->dokument(QString::number(i), i == 3 ? QString() : u"Text"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        Lauf lauf = m_stand->lauf([this] {
            if (!m_stand->fragen().isEmpty())
                m_stand->serverStirbt();
            return false;
        });
        Einordner::einordnen(lauf);
        const Lauffazit &fazit = lauf.fazit();
        QCOMPARE(fazit.hindernisse, QList<Laufhindernis>{Laufhindernis{}});
        QCOMPARE(fazit.gescheiterte,
                 (QList<std::pair<QString, int>>{{u"Der Modellserver ollama läuft nicht"_s, 2}, {u"kein Text"_s, 1}}));
        QCOMPARE(m_stand->db().abfragen(u"SELECT id FROM dokumente WHERE status='bereit'"_s).size(), 4);
    }

    /** Only the document in hand is named, and only once it takes longer than is usual. */
    void wasLangeDauertWirdGenannt_data()
    {
        QTest::addColumn<int>("geduld");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("lange") << 0 << u"b.pdf dauert länger"_s;
        QTest::newRow("nicht lange") << 3600000 << QString();
    }
    void wasLangeDauertWirdGenannt()
    {
        QFETCH(const int, geduld);
        QFETCH(const QString, erwartet);
        const QTemporaryDir quelle;
        m_stand->profil.quelle = quelle.path();
        m_stand->profil.zweitmeinung = false;
        m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->dokument(u"b.pdf"_s, u"Anderes"_s);
        const Testantwort antwort = Pruefstand::antwort(Pruefstand::vorschlag());
        m_stand->modellSagt({antwort, Testantwort::gehalten(antwort)});
        Analyse analyse(m_stand->katalog(), m_stand->profil);
        analyse.setzeGeduld(std::chrono::milliseconds(geduld));
        analyse.allesStarten();
        QTRY_COMPARE(m_stand->fragen().size(), 2);
        QTRY_COMPARE(analyse.dauersatz(), erwartet);
        // What it was reckoned to take yet holds no longer.
        QTRY_COMPARE(analyse.restzeit().isEmpty(), !erwartet.isEmpty());
        m_stand->loslassen();
        QTRY_VERIFY(!analyse.laeuft());
        QCOMPARE(analyse.dauersatz(), QString());
        QCOMPARE(analyse.meldung(), u"2 von 2 eingeordnet"_s);
    }

    void wasDerMenschInzwischenTatBleibt()
    {
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->modellSagt({Testantwort::gehalten(Pruefstand::antwort(Pruefstand::vorschlag()))});
        {
            const std::jthread mensch([&] {
                while (m_stand->fragen().isEmpty())
                    std::this_thread::sleep_for(5ms);
                m_stand->db().ausfuehren(u"UPDATE dokumente SET status='erledigt', titel='von Hand'"_s);
                m_stand->loslassen();
            });
            einordnen();
        }
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"titel"_s, u"vorschlag"_s}), u"erledigt|von Hand|NULL"_s);
    }

    void angehaltenUndFortgesetzt()
    {
        for (int i = 0; i < 3; ++i)
            m_stand->dokument(QString::number(i), u"Text"_s);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
        const QString offene = u"SELECT id FROM dokumente WHERE status='neu'"_s;
        Lauf erster = m_stand->lauf([this] { return !m_stand->fragen().isEmpty(); });
        Einordner::einordnen(erster);
        QCOMPARE(m_stand->db().abfragen(offene).size(), 2);
        einordnen();
        QVERIFY(m_stand->db().abfragen(offene).isEmpty());
        QCOMPARE(m_stand->fragen().size(), 3);
    }

    void amEndeDesProgrammsBleibtDasDokumentOffen()
    {
        const qint64 id = m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->modellSagt({Testantwort::stumm(60s)});
        std::stop_source ende;
        {
            const std::jthread mensch([&] {
                while (m_stand->fragen().isEmpty())
                    std::this_thread::sleep_for(5ms);
                ende.request_stop();
            });
            Lauf lauf = m_stand->lauf([] { return false; }, ende.get_token());
            Einordner::einordnen(lauf);
        }
        QCOMPARE(m_stand->werte(id, {u"status"_s, u"vorschlag"_s, u"fehler"_s}), u"neu|NULL|NULL"_s);
    }

    void ausgenommeneRuhen()
    {
        m_stand->dokument(u"a.pdf"_s, u"Text"_s);
        m_stand->db().ausfuehren(u"UPDATE dokumente SET ausgenommen=1"_s);
        einordnen();
        QVERIFY(m_stand->fragen().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestEinordner)
#include "test_einordner.moc"
