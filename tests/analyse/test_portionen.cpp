#include "analyse.h"
#include "archiv.h"
#include "gesamtmass.h"
#include "modellserver.h"
#include "pdf.h"
#include "portionen.h"
#include "pruefstand.h"
#include "satz.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
/** What a run has published, a line for each stage: its name, and its last message if it had one. */
class Mitschrift
{
public:
    void nehmen(const Laufstand &stand)
    {
        if (stand.meldung.isEmpty() && stand.dokument.isEmpty())
            m_zeilen << stand.stufe;
        else if (!stand.meldung.isEmpty())
            m_zeilen.last() = stand.stufe + u": "_s + stand.meldung;
        ganze << stand.ganzes;
    }
    [[nodiscard]] QStringList zeilen(const QString &stufe) const { return m_zeilen.filter(stufe); }
    [[nodiscard]] const QStringList &zeilen() const { return m_zeilen; }

    QList<Laufganzes> ganze;

private:
    QStringList m_zeilen;
};

/** A letter of one page; @p anhang makes another file of the same text. */
void schreiben(const QString &pfad, const QStringList &zeilen, const QByteArray &anhang = {})
{
    QFile datei(pfad);
    const QByteArray bytes = vorfuehrung::pdf({{vorfuehrung::seitenSatz(zeilen), {}, {}}}) + anhang;
    if (!datei.open(QIODevice::WriteOnly) || datei.write(bytes) != bytes.size())
        qFatal("cannot write");
}

/** What a run made of the sample archive. */
struct Bild {
    QMap<QString, QStringList> vorgeschlagene; ///< the paths of each content
    QMap<QString, QString> dublettenVon;       ///< the path that stayed, by that of the duplicate
};

Bild bildVon(Datenbank &db)
{
    Bild bild;
    for (const Zeile &z : db.abfragen(u"SELECT d.*, t.text, coalesce(o.pfad,'') AS original FROM dokumente d\n"
                                      "LEFT JOIN texte t ON t.dokument_id=d.id\n"
                                      "LEFT JOIN dokumente o ON o.id=d.dublette_von ORDER BY d.id"_s)) {
        const QString inhalt = z.text(u"text").isEmpty() ? z.text(u"sha256") : z.text(u"text");
        if (z.text(u"status") == u"bereit"_s)
            bild.vorgeschlagene[inhalt] << z.text(u"pfad");
        else
            bild.dublettenVon.insert(z.text(u"pfad"), z.text(u"original"));
    }
    return bild;
}
} // namespace

/** A run over more documents than one portion has. */
class TestPortionen : public QObject
{
    Q_OBJECT
    std::unique_ptr<Pruefstand> m_stand;
    Mitschrift m_mitschrift;

    [[nodiscard]] Lauf lauf(std::function<bool()> halt = [] { return false; })
    {
        return {m_stand->katalog(), m_stand->profil, std::move(halt), {}, [this](const Laufstand &stand) {
                    m_mitschrift.nehmen(stand);
                }};
    }
    void dokumente(int anzahl)
    {
        for (int i = 0; i < anzahl; ++i)
            m_stand->dokument(u"%1.pdf"_s.arg(i), u"Text %1"_s.arg(i));
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag())});
    }
    [[nodiscard]] qsizetype anzahl(const QString &bedingung) const
    {
        return m_stand->db().abfragen(u"SELECT id FROM dokumente WHERE "_s + bedingung).size();
    }

private Q_SLOTS:
    void init()
    {
        m_stand = std::make_unique<Pruefstand>();
        m_mitschrift = {};
    }
    void cleanup() { m_stand.reset(); }

    void umfang_data()
    {
        QTest::addColumn<int>("offene");
        QTest::addColumn<int>("erste");
        QTest::addColumn<int>("weitere");
        QTest::addColumn<QString>("portionen");
        const Portionsgroesse uebliche;
        const auto zeile = [&](const char *name, int offene, const Portionsgroesse &groesse, const QString &soll) {
            QTest::newRow(name) << offene << int(groesse.erste) << int(groesse.weitere) << soll;
        };
        zeile("nichts", 0, uebliche, u""_s);
        zeile("eines", 1, uebliche, u"1"_s);
        zeile("gerade noch eine", 50, uebliche, u"50"_s);
        zeile("eines mehr", 51, uebliche, u"10 41"_s);
        zeile("drei", 61, uebliche, u"10 50 1"_s);
        zeile("einzeln", 3, {.erste = 1, .weitere = 1}, u"1 1 1"_s);
    }
    void umfang()
    {
        QFETCH(const int, offene);
        QFETCH(const int, erste);
        QFETCH(const int, weitere);
        QFETCH(const QString, portionen);
        dokumente(offene);
        Lauf einer = lauf();
        Portionen::durchlaufen(einer, {.nurDies = {}, .portionen = {.erste = erste, .weitere = weitere}});
        QStringList ist;
        for (const QString &zeile : m_mitschrift.zeilen(u" eingeordnet"_s))
            ist << zeile.section(u' ', -2, -2);
        QCOMPARE(ist.join(u' '), portionen);
        QCOMPARE(anzahl(u"status='bereit'"_s), offene);
        const bool mehrere = portionen.contains(u' ');
        QCOMPARE(m_mitschrift.ganze.last().gesamt, mehrere ? offene : 0);
        QCOMPARE(m_mitschrift.ganze.last().fertig, mehrere ? offene : 0);
        const QString alle = u"%1 von %1 eingeordnet"_s.arg(offene);
        QCOMPARE(einer.fazit().ergebnisse.isEmpty(), !mehrere);
        if (mehrere)
            QCOMPARE(einer.fazit().ergebnisse.last(), std::pair(u"Dokumente einordnen"_s, alle));
    }

    /** Within a portion one stage after the other, in the order that a small stock has. */
    void einePortionNachDerAnderen()
    {
        dokumente(3);
        Lauf einer = lauf();
        Portionen::durchlaufen(einer, {.nurDies = {}, .portionen = {.erste = 1, .weitere = 2}});
        const QStringList durchgang = {u"Text lesen"_s,
                                       u"Ähnliche Dokumente suchen: 0 textgleiche Dubletten, 0 ähnliche Paare"_s};
        QCOMPARE(m_mitschrift.zeilen(), durchgang + QStringList{u"Dokumente einordnen: 1 von 1 eingeordnet"_s} +
                                            durchgang + QStringList{u"Dokumente einordnen: 2 von 2 eingeordnet"_s});
        QVERIFY(std::ranges::any_of(m_mitschrift.ganze, [](const Laufganzes &g) {
            return g.fertig == 1 && g.gesamt == 3 && g.von == 2 && g.bis == 3 && !g.restzeit.isEmpty();
        }));
    }

    /** Changing the model costs more than asking it. */
    void zweitmeinungErstGanzAmEnde()
    {
        const QTemporaryDir quelle;
        m_stand->profil.quelle = quelle.path();
        m_stand->profil.zweitmeinung = true;
        dokumente(5);
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag({{u"konfidenz"_s, 0.3}}))});
        Analyse analyse(m_stand->katalog(), m_stand->profil);
        analyse.allesStarten({.nurDies = {}, .portionen = {.erste = 1, .weitere = 2}});
        QTRY_VERIFY(!analyse.laeuft());
        QStringList modelle;
        for (const QJsonObject &frage : m_stand->fragen())
            modelle << frage.value("model"_L1).toString();
        QCOMPARE(modelle, QStringList(5, u"klein"_s) + QStringList(5, u"gross"_s));
        QCOMPARE(analyse.meldung(), u"5 von 5 nachgeprüft"_s);
        QVERIFY(!analyse.ganzes().inPortionen());
    }

    /** Whatever is left cannot be asked about either: it is read in one go, and waits. */
    void ohneModellWirdDerRestGelesen()
    {
        const QTemporaryDir quelle;
        m_stand->profil.quelle = quelle.path();
        dokumente(1);
        for (int i = 0; i < 5; ++i) {
            const QString pfad = quelle.filePath(u"%1.pdf"_s.arg(i));
            schreiben(pfad, {u"Brief %1 "_s.arg(i).repeated(30)});
            m_stand->db().ausfuehren(u"INSERT INTO dokumente (pfad, dateiname) VALUES (?,?)"_s,
                                     {pfad, u"%1.pdf"_s.arg(i)});
        }
        m_stand->modellSagt({Pruefstand::antwort(Pruefstand::vorschlag()),
                             Testantwort::fest(404, R"({"error": "model 'klein' not found"})")});
        Lauf einer = lauf();
        Portionen::durchlaufen(einer, {.nurDies = {}, .portionen = {.erste = 2, .weitere = 2}});
        QCOMPARE(m_mitschrift.zeilen(u" gelesen"_s),
                 (QStringList{u"Text lesen: 1 von 1 gelesen"_s, u"Text lesen: 4 von 4 gelesen"_s}));
        QCOMPARE(anzahl(u"text_hash IS NULL"_s), 0);
        QCOMPARE(einer.fazit().behinderte, QStringList{u"Dokumente einordnen"_s});
    }

    void angehaltenUndFortgesetzt()
    {
        dokumente(6);
        Lauf erster = lauf([this] { return m_stand->fragen().size() == 3; });
        const Laufauftrag auftrag{.nurDies = {}, .portionen = {.erste = 2, .weitere = 2}};
        Portionen::durchlaufen(erster, auftrag);
        QCOMPARE(anzahl(u"status='neu'"_s), 3);
        QCOMPARE(erster.fazit().ergebnisse.last().second, u"3 von 6 eingeordnet"_s);
        Lauf zweiter = lauf();
        Portionen::durchlaufen(zweiter, auftrag);
        QCOMPARE(anzahl(u"status='bereit'"_s), 6);
        QCOMPARE(m_stand->fragen().size(), 6);
    }

    /** Others never keep a run going: each document comes once, and those that are newer than its beginning wait. */
    void wasInzwischenDazukommt()
    {
        dokumente(4);
        m_stand->db().ausfuehren(u"UPDATE dokumente SET status='erledigt' WHERE id=1"_s);
        qsizetype neue = 0;
        Lauf einer = lauf([&] {
            if (m_stand->fragen().size() > neue) {
                m_stand->dokument(u"neu %1.pdf"_s.arg(neue++), u"Text"_s);
                m_stand->db().ausfuehren(u"UPDATE dokumente SET status='neu', vorschlag=NULL WHERE id<4"_s);
            }
            return false;
        });
        Portionen::durchlaufen(einer, {.nurDies = {}, .portionen = {.erste = 1, .weitere = 1}});
        QCOMPARE(m_stand->fragen().size(), 4); // also the one that was open again
        QCOMPARE(anzahl(u"id>4 AND status='neu'"_s), neue);
    }

    void archiv()
    {
        const QTemporaryDir ordner;
        vorfuehrung::archivSchreiben(ordner.path());
        const QString quelle = vorfuehrung::quelleVon(ordner.path());
        QFile erwartet(ordner.filePath(u"erwartet.json"_s));
        QVERIFY(erwartet.open(QIODevice::ReadOnly));
        for (const QJsonValue &wert : QJsonDocument::fromJson(erwartet.readAll())["dokumente"_L1].toArray()) {
            // Recognising takes long and is the same in every portion; duplicates are not read at all.
            if (!wert["hat_textebene"_L1].toBool() && wert["status"_L1] != "dublette"_L1)
                QVERIFY(QFile::remove(quelle + u'/' + wert["pfad"_L1].toString()));
        }
        const QStringList brief = {u"Ein Brief in drei Fassungen, "_s +
                                   u"gleich bis auf den letzten Buchstaben. "_s.repeated(4)};
        for (const QString &name :
             {u"/Alt/Post/Brief vom Amt.pdf"_s, u"/Brief.pdf"_s, u"/Verträge/Brief noch einmal.pdf"_s}) {
            QVERIFY(QDir().mkpath(QFileInfo(quelle + name).path()));
            schreiben(quelle + name, brief, '%' + name.toUtf8());
        }
        vorfuehrung::Modellserver server(u"klein"_s);
        QVERIFY(server.lauschen(0));
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        const auto durchgang = [&](qsizetype umfang) {
            const auto db = std::make_shared<Datenbank>(ordner.filePath(u"%1.db"_s.arg(umfang)));
            Profil profil = m_stand->profil;
            profil.quelle = quelle;
            Analyse analyse(db, profil);
            analyse.allesStarten(
                {.nurDies = {}, .portionen = {.erste = std::min<qsizetype>(umfang, 10), .weitere = umfang}});
            while (analyse.laeuft())
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            return bildVon(*db);
        };
        const Bild ganz = durchgang(50);
        const Bild einzeln = durchgang(1);
        QCOMPARE(ganz.dublettenVon.size(), 5);
        for (const Bild &bild : {einzeln, durchgang(7), ganz}) {
            QCOMPARE(bild.vorgeschlagene.keys(), ganz.vorgeschlagene.keys());
            for (const QStringList &gleiche : bild.vorgeschlagene)
                QCOMPARE(gleiche.size(), 1);
            QCOMPARE(bild.dublettenVon.size(), ganz.dublettenVon.size());
            for (const QString &original : bild.dublettenVon)
                QVERIFY(!original.isEmpty() && !bild.dublettenVon.contains(original));
        }
        // All at once the shortest path stays; one by one the first, since a proposal is never taken back.
        QVERIFY(ganz.dublettenVon.contains(quelle + u"/Alt/Post/Brief vom Amt.pdf"_s));
        QCOMPARE(einzeln.dublettenVon.value(quelle + u"/Brief.pdf"_s), quelle + u"/Alt/Post/Brief vom Amt.pdf"_s);
    }

    void restdauern_data()
    {
        QTest::addColumn<QList<Stufenmass>>("stufen");
        QTest::addColumn<double>("sekunden"); // negative: not known
        using L = QList<Stufenmass>;
        QTest::newRow("keine Stufe") << L{} << -1.0;
        QTest::newRow("nichts mehr") << L{{10s, 5, 0}, {3s, 3, 0}} << -1.0;
        QTest::newRow("jede nach ihrem Takt") << L{{20s, 10, 70}, {5s, 5, 93}} << 233.0;
        QTest::newRow("eine noch nicht gemessen") << L{{20s, 10, 70}, {0s, 0, 93}} << -1.0;
        QTest::newRow("eine hat nichts zu tun") << L{{0s, 0, 0}, {5s, 5, 93}} << 93.0;
    }
    void restdauern()
    {
        QFETCH(const QList<Stufenmass>, stufen);
        QFETCH(const double, sekunden);
        const auto rest = restdauer(stufen);
        QCOMPARE(rest ? rest->count() : -1.0, sekunden);
    }

    /** A hundred documents, twenty of them read before, two of the first ten duplicates. */
    void dasGanze()
    {
        Gesamtmass mass;
        mass.portion(10, 100, 80);
        QCOMPARE(mass.ganzes(), (Laufganzes{.fertig = 0, .gesamt = 100, .von = 1, .bis = 10, .restzeit = {}}));
        mass.messen(Stufenart::Lesen, 20s, 10, 10);
        QCOMPARE(mass.ganzes().restzeit, QString());
        mass.messen(Stufenart::Einordnen, 5s, 5, 8);
        QCOMPARE(mass.ganzes(),
                 (Laufganzes{.fertig = 7, .gesamt = 100, .von = 1, .bis = 10, .restzeit = u"noch rund 3 Minuten"_s}));
        mass.messen(Stufenart::Einordnen, 8s, 8, 8);
        mass.portion(50, 90, 70);
        QCOMPARE(mass.ganzes().fertig, 10);
        QCOMPARE(mass.ganzes().portionssatz(), u"Jetzt: Dokumente 11 bis 60"_s);
        QCOMPARE(mass.stufe(Stufenart::Lesen), (Stufenmass{20s, 10, 70}));
        mass.messen(Stufenart::Lesen, 30s, 20, 50);
        QCOMPARE(mass.stufe(Stufenart::Lesen), (Stufenmass{50s, 30, 50}));
        mass.portion(1, 1, 0);
        QCOMPARE(mass.ganzes().portionssatz(), u"Jetzt: Dokument 61"_s);
        mass.messen(Stufenart::Nachpruefen, 30s, 1, 2);
        QCOMPARE(mass.ganzes(),
                 (Laufganzes{.fertig = 61, .gesamt = 61, .von = 0, .bis = 0, .restzeit = u"noch rund 30 Sekunden"_s}));
        QCOMPARE(mass.ganzes().portionssatz(), QString());
        QCOMPARE(mass.ganzes().satz(), u"61 von 61 Dokumenten fertig"_s);
    }
};

QTEST_GUILESS_MAIN(TestPortionen)
#include "test_portionen.moc"
