#include "analyse.h"
#include "ausfuehrung.h"
#include "dateien.h"
#include "durchgang.h"
#include "einordnung.h"
#include "einrichtung.h"
#include "entwurf.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "protokollbuch.h"
#include "pruefung.h"
#include "seitenlagen.h"
#include "sitzungen.h"
#include "testserver.h"
#include "zustand.h"
#include "zustandsprobe.h"

#include <QDate>
#include <QDir>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

namespace
{

/** Another program that keeps the catalogue locked. */
class Fremdsperre
{
public:
    explicit Fremdsperre(const QString &katalog)
    {
        sqlite3_open(katalog.toUtf8().constData(), &m_griff);
        sqlite3_exec(m_griff, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
    }
    ~Fremdsperre() { sqlite3_close(m_griff); }
    Fremdsperre(const Fremdsperre &) = delete;
    Fremdsperre &operator=(const Fremdsperre &) = delete;

private:
    sqlite3 *m_griff = nullptr;
};

bool liegt(const QString &pfad) { return QFile::exists(pfad); }

bool gefragt(const Testserver &server, const QByteArray &pfad)
{
    const auto anfragen = server.anfragen();
    return std::any_of(anfragen.begin(), anfragen.end(), [&](const auto &anfrage) { return anfrage.pfad == pfad; });
}
} // namespace

class TestZustand : public Zustandsprobe
{
    Q_OBJECT

private Q_SLOTS:
    void ohneProfilGeschiehtNichts()
    {
        Zustand z;
        z.profilwahl()->beginnen();
        z.ausfuehrung()->uebernehmen();
        z.ausfuehrung()->rueckgaengig();
        z.ausfuehrung()->weiter(Richtung::Weiter);
        z.ausfuehrung()->dublettenAusraeumen();
        z.sitzungen()->protokollZurueckdrehen();
        z.pruefung()->setzeFeld(Feld::Titel, u"x"_s);
        z.durchgang()->durchgangStarten();
        QVERIFY(!z.profilwahl()->aktiv() && !z.profilwahl()->offen() && !z.ausfuehrung()->beschaeftigt() &&
                z.meldestelle()->hinweis().isEmpty());
        QCOMPARE(z.reiter(), Reiter::Einrichtung);
        QCOMPARE(z.teilung(), 0.5);
    }

    void oeffnetAufDerPassendenKarte_data()
    {
        QTest::addColumn<bool>("ziel");
        QTest::addColumn<Reiter>("karte");
        QTest::newRow("eingerichtet") << true << Reiter::Pruefen;
        QTest::newRow("Ziel fehlt") << false << Reiter::Einrichtung;
    }
    void oeffnetAufDerPassendenKarte()
    {
        QFETCH(bool, ziel);
        QFETCH(Reiter, karte);
        if (!ziel)
            m_b->profil.zielWurzel += u"-weg"_s;
        beginnen();
        QCOMPARE(m_z->reiter(), karte);
        QCOMPARE(m_z->profilwahl()->bereitschaft()->ziel, ziel);
    }

    // How a page lies is kept with the document: for the preview, over the end of the program.
    void gedrehteSeiteBleibt()
    {
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        Seitenlagen(m_b->db()).speichern(
            a, {{.seite = 1, .drehung = 180, .neigung = 0.5}, {.seite = 2, .drehung = 0, .neigung = 1}});
        beginnen();
        QCOMPARE(m_z->pruefung()->drehungen(), (Drehungen{{m_b->quelle(u"a.pdf"_s), {{1, 180}}}}));
        m_z->pruefung()->seiteDrehen(2, 90);
        QTRY_COMPARE(Seitenlagen(m_b->db()).drehungen(a), (QMap<int, int>{{1, 180}, {2, 90}}));
        Seitenlagen(m_b->db()).speichern(a, {}); // read anew: what was done by hand stays
        QCOMPARE(Seitenlagen(m_b->db()).drehungen(a), (QMap<int, int>{{2, 90}}));
        // Another file in its place lies as it lies.
        m_b->db().ausfuehren(u"UPDATE dokumente SET status='neu' WHERE id=?"_s, {a});
        const Dateien::Fund andere{.pfad = m_b->quelle(u"a.pdf"_s), .name = u"a.pdf"_s, .ordner = {}, .groesse = 1};
        QVERIFY(Dateien(m_b->db()).neuFassen(a, andere, u"andere"_s));
        QVERIFY(Seitenlagen(m_b->db()).drehungen(a).isEmpty());
    }

    void uebernehmenUndLernen()
    {
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        const qint64 b = m_b->dokument(u"b.pdf"_s);
        const qint64 c = m_b->dokument(u"c.pdf"_s, [](Dokument &d) { d.angaben.gegenueber = u"Andere"_s; });
        beginnen();
        QCOMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_z->pruefung()->voraus(), QStringList{m_b->quelle(u"b.pdf"_s)});
        m_z->pruefung()->setzeFeld(Feld::Titel, u"  Abschlag  "_s);
        m_z->pruefung()->setzeFeld(Feld::Rubrik, u"Wasser"_s);
        QCOMPARE(m_z->pruefung()->zielpfad(), (QStringList{u"Haushalt"_s, u"Jahresablage"_s, u"2023"_s, u"Wasser"_s}));
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QCOMPARE(m_z->meldestelle()->hinweis(), u"Gemerkt. 1 wartendes Dokument von Stadtwerke wurde angepasst."_s);
        QCOMPARE(m_z->meldestelle()->geschehen(), u"Einsortiert: 2023-02-14 Stadtwerke - Abschlag.pdf"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Wasser"_s);
        const QString neu = m_b->ziel(u"Haushalt/Jahresablage/2023/Wasser/2023-02-14 Stadtwerke - Abschlag.pdf"_s);
        QVERIFY(liegt(neu) && !liegt(m_b->quelle(u"a.pdf"_s)));
        QCOMPARE(m_b->lesen(a).status, Status::Erledigt);
        QCOMPARE(m_b->lesen(a).angaben.titel, u"Abschlag"_s);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QCOMPARE(m_z->meldestelle()->hinweis(), QString());
        QCOMPARE(m_z->pruefung()->zaehlwerk().erledigt, 2);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QCOMPARE(m_b->lesen(b).status, Status::Erledigt);
        QCOMPARE(m_b->lesen(c).status, Status::Erledigt);
        // The newest movement comes back and under review, whatever stands there.
        m_z->ausfuehrung()->rueckgaengig();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QVERIFY(liegt(m_b->quelle(u"c.pdf"_s)));
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        // All movements of one run stand in one log.
        QTRY_COMPARE(m_z->sitzungen()->protokollDateien().size(), 1);
        m_z->sitzungen()->protokollWaehlen(m_z->sitzungen()->protokollDateien().first());
        QTRY_COMPARE(m_z->sitzungen()->protokollZeilen().size(), 4);
        QCOMPARE(m_z->sitzungen()->protokollKopf()->profil, u"Haushalt"_s);
        m_z->sitzungen()->protokollZurueckdrehen();
        QVERIFY(m_z->sitzungen()->rueckbauLaeuft());
        QCOMPARE(m_z->sitzungen()->rueckbauMeldung(), u"Wird zurückgedreht"_s);
        QTRY_VERIFY(!m_z->sitzungen()->rueckbauLaeuft());
        QCOMPARE(m_z->sitzungen()->rueckbauMeldung(), u"3 zurückgeholt, 1 übersprungen"_s);
        QTRY_COMPARE(m_z->pruefung()->zaehlwerk().bereit, 3);
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QVERIFY(liegt(m_b->quelle(u"a.pdf"_s)) && liegt(m_b->quelle(u"b.pdf"_s)));
    }

    void jedeTatHatIhrenRueckweg_data()
    {
        QTest::addColumn<bool>("kopieren");
        QTest::addColumn<QString>("taste");
        QTest::addColumn<Status>("status");
        QTest::addColumn<QString>("geschehen");
        QTest::newRow("verschieben") << false << u"Eingabe"_s << Status::Erledigt
                                     << u"Einsortiert: 2023-02-14 Stadtwerke - a.pdf"_s;
        QTest::newRow("kopieren") << true << u"Eingabe"_s << Status::Erledigt
                                  << u"Kopiert: 2023-02-14 Stadtwerke - a.pdf"_s;
        QTest::newRow("zurückstellen") << false << u"Z"_s << Status::Zurueckgestellt << u"Zurückgestellt: a.pdf"_s;
        QTest::newRow("Dublette") << false << u"D"_s << Status::Aussortiert << u"Als Dublette beiseitegelegt: a.pdf"_s;
        QTest::newRow("Dublette kopierend")
            << true << u"D"_s << Status::Aussortiert << u"Als Dublette vermerkt: a.pdf"_s;
    }
    void jedeTatHatIhrenRueckweg()
    {
        QFETCH(bool, kopieren);
        QFETCH(QString, taste);
        m_b->profil.kopieren = kopieren;
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        beginnen();
        QVERIFY(!m_z->ausfuehrung()->tatRuecknehmbar());
        if (taste == u"Eingabe")
            m_z->ausfuehrung()->uebernehmen();
        else
            taste == u"Z" ? m_z->ausfuehrung()->zuruecklegen() : m_z->ausfuehrung()->aussortieren();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QTEST(m_b->lesen(a).status, "status");
        QTEST(m_z->meldestelle()->geschehen(), "geschehen");
        QCOMPARE(liegt(m_b->quelle(u"a.pdf"_s)), kopieren || taste == u"Z");
        QVERIFY(m_z->ausfuehrung()->tatRuecknehmbar());
        m_z->ausfuehrung()->tatZuruecknehmen();
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_b->lesen(a).status, Status::Bereit);
        QVERIFY(liegt(m_b->quelle(u"a.pdf"_s)));
        QVERIFY(!m_z->ausfuehrung()->tatRuecknehmbar());
    }

    void blaetternAendertNichts()
    {
        for (const QString &n : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s})
            m_b->dokument(n);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Getippt"_s);
        using enum Richtung;
        const QList<Richtung> weg = {Weiter, Weiter, Weiter, Zurueck, Erstes, Weiter};
        const QStringList erwartet = {u"b.pdf"_s, u"c.pdf"_s, u"a.pdf"_s, u"a.pdf"_s, u"a.pdf"_s, u"b.pdf"_s};
        for (qsizetype i = 0; i < weg.size(); ++i) {
            m_z->ausfuehrung()->weiter(weg.at(i));
            QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
            QCOMPARE(name(), erwartet.at(i));
        }
        m_z->ausfuehrung()->weiter(Richtung::Zurueck);
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel, u"Getippt"_s);
        QCOMPARE(m_b->lesen(1).angaben.titel, u"a"_s);
    }

    void wasGetipptIstBleibt()
    {
        const qint64 id = m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Von Hand"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2019-05-0"_s); // half typed: the year stays
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2023"_s);
        QVERIFY(datumswort(m_z->pruefung()->aktuelles()->angaben.datum).second);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(m_z->meldestelle()->hinweis(), u"Das Datum hat nicht die Form JJJJ-MM-TT"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u" 2019-05-03 "_s); // as it is pasted
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2019"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2019-05-03"_s);
        m_b->sql(u"UPDATE dokumente SET titel='Modell', datum='2001-01-01', jahr='2001', gegenueber='Neu' WHERE id=?"_s,
                 {id});
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(m_z->pruefung()->aktuelles()->angaben.gegenueber, u"Neu"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel, u"Von Hand"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.datum, u"2019-05-03"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2019"_s);
        m_z->pruefung()->setzeFeld(Feld::Jahr, u"2020"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2022-05-03"_s); // the year was edited: it follows no more
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2020"_s);
        m_z->pruefung()->setzeFeld(Feld::Zweig, u"Verein"_s); // has the kind and the category
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Strom"_s);
        m_z->pruefung()->setzeFeld(Feld::Rubrik, u"Spenden"_s);
        m_z->pruefung()->setzeFeld(Feld::Zweig, u"Haushalt"_s); // the kind only
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.ablage, u"Jahresablage"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, QString());
        m_z->pruefung()->setzeFeld(Feld::Ablage, u"Stammdaten"_s);
        m_z->pruefung()->setzeFeld(Feld::Zweig, u"Verein"_s); // neither
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.ablage, QString());
        // Another program took it out of the queue: it leaves the review.
        m_b->sql(u"UPDATE dokumente SET ausgenommen=1 WHERE id=?"_s, {id});
        m_z->pruefung()->aktualisieren();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
    }

    void keinTag_data()
    {
        QTest::addColumn<QString>("datum");
        QTest::addColumn<QString>("mangel");
        const QString jahr = QString::number(QDate::currentDate().year() + 2);
        const QString bereich = u"Das Jahr liegt nicht zwischen 1900 und %1"_s.arg(QDate::currentDate().year() + 1);
        QTest::newRow("Form") << u"2024-1-5"_s << u"Das Datum hat nicht die Form JJJJ-MM-TT"_s;
        QTest::newRow("Monat") << u"2024-13-45"_s << u"Diesen Tag gibt es nicht"_s;
        QTest::newRow("Tag") << u"2023-02-29"_s << u"Diesen Tag gibt es nicht"_s;
        QTest::newRow("Schalttag") << u"2024-02-29"_s << QString();
        QTest::newRow("Null") << u"0000-00-00"_s << u"Diesen Tag gibt es nicht"_s;
        QTest::newRow("früh") << u"1899-12-31"_s << bereich;
        QTest::newRow("spät") << jahr + u"-01-01"_s << bereich;
        QTest::newRow("keines") << QString() << QString();
    }
    void keinTag()
    {
        QFETCH(QString, datum);
        QFETCH(QString, mangel);
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Datum, datum);
        QCOMPARE(Einordnung::datumsmangel(datum), mangel);
        QCOMPARE(datumswort(datum).second, !mangel.isEmpty());
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(m_b->lesen(a).status, mangel.isEmpty() ? Status::Erledigt : Status::Bereit);
        if (!mangel.isEmpty())
            QCOMPARE(m_z->meldestelle()->hinweis(), mangel);
    }

    /** Whatever is done with a document and taken back, what was typed stays until it is filed. */
    void entwurfBleibtBisZumUebernehmen_data()
    {
        QTest::addColumn<bool>("kopieren");
        QTest::newRow("verschieben") << false;
        QTest::newRow("kopieren") << true;
    }
    void entwurfBleibtBisZumUebernehmen()
    {
        QFETCH(bool, kopieren);
        m_b->profil.kopieren = kopieren;
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Von Hand"_s);
        for (const auto tat : {&Ausfuehrung::aussortieren, &Ausfuehrung::zuruecklegen}) {
            (m_z->ausfuehrung()->*tat)();
            QTRY_COMPARE(name(), u"b.pdf"_s);
            QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
            m_z->ausfuehrung()->tatZuruecknehmen();
            QTRY_COMPARE(name(), u"a.pdf"_s);
            QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
            QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel, u"Von Hand"_s);
        }
    }

    /** What was typed outlives the program; what is filed leaves nothing behind. */
    void entwurfUeberlebtDasProgramm()
    {
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Von Hand"_s);
        m_z->pruefung()->setzeFeld(Feld::Jahr, u"2020"_s);
        m_z.reset();
        beginnen();
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel, u"Von Hand"_s);
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2022-05-03"_s); // the year was edited before
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2020"_s);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        QCOMPARE(m_b->lesen(a).status, Status::Erledigt);
        QCOMPARE(m_b->lesen(a).angaben.titel, u"Von Hand"_s);
        m_z.reset();
        QVERIFY(m_b->db().abfragen(u"SELECT * FROM entwuerfe"_s).isEmpty());
    }

    /** The next one behind, wherever the reviewer stands; at the end the first. */
    void nachJederTatDasNaechste()
    {
        for (const char *name : {"a.pdf", "b.pdf", "c.pdf", "d.pdf"})
            m_b->dokument(QString::fromLatin1(name));
        beginnen();
        m_z->ausfuehrung()->weiter(Richtung::Weiter);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QCOMPARE(m_z->pruefung()->voraus(), QStringList{m_b->quelle(u"c.pdf"_s)});
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        m_b->sql(u"UPDATE dokumente SET status='erledigt' WHERE dateiname='c.pdf'"_s);
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"d.pdf"_s);
        m_z->ausfuehrung()->zuruecklegen();
        QTRY_COMPARE(name(), u"a.pdf"_s);
    }

    /** The equation and the place of the new name meet in the same documents. */
    void jedesAngepassteZaehltEinmal()
    {
        for (const char *name : {"a.pdf", "b.pdf", "c.pdf"})
            m_b->dokument(QString::fromLatin1(name));
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Gegenueber, u"Elbtalwerke"_s);
        m_z->pruefung()->setzeFeld(Feld::Rubrik, u"Wasser"_s);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QCOMPARE(m_z->meldestelle()->hinweis(), u"Gemerkt. 2 wartende Dokumente von Elbtalwerke wurden angepasst."_s);
    }

    /** The proposal has a counterpart, whatever the reviewer is just typing. */
    void hinweisGiltDemVorschlag()
    {
        m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->pruefung()->setzeFeld(Feld::Gegenueber, {});
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.gegenueber, QString());
        QCOMPARE(m_z->pruefung()->pruefhinweise(), QList<Pruefhinweis>());
    }

    void katalogGehtNichtAuf()
    {
        m_b->dokument(u"a.pdf"_s);
        m_b->profilSichern();
        m_b->schliessen();
        const QString katalog = Profilspeicher::katalogDatei(m_b->profil);
        QVERIFY(QFile::rename(katalog, katalog + u".gut"_s));
        QFile kaputt(katalog);
        QVERIFY(kaputt.open(QIODevice::WriteOnly));
        kaputt.write(QByteArray(8192, 'x'));
        kaputt.close();
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen();
        QTRY_VERIFY(!m_z->profilwahl()->oeffnet());
        QVERIFY(!m_z->profilwahl()->offen());
        QCOMPARE(m_z->profilwahl()->katalogdatei(), katalog);
        QVERIFY(m_z->profilwahl()->katalogfehler().startsWith(u"Datenbank lässt sich nicht öffnen: "_s));
        QVERIFY(QFile::remove(katalog) && QFile::rename(katalog + u".gut"_s, katalog));
        m_z->profilwahl()->erneutOeffnen();
        QCOMPARE(m_z->profilwahl()->katalogfehler(), QString());
        QTRY_COMPARE(name(), u"a.pdf"_s);
    }

    /** A server that takes the question and says nothing: what is waited for is said. */
    void stummerModellserver()
    {
        beginnen();
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::stumm(std::chrono::seconds(60)));
        m_z->durchgang()->durchgangErbitten();
        QVERIFY(m_z->durchgang()->startErbeten() && !m_z->durchgang()->startWartet());
        QTRY_VERIFY(m_z->durchgang()->startWartet());
    }

    /** It ends after the document in hand, and says how far it came. */
    void ausraeumenAnhalten()
    {
        for (int n = 0; n < 300; ++n)
            m_b->dokument(u"%1.pdf"_s.arg(n), [](Dokument &d) { d.status = Status::Dublette; });
        beginnen();
        QVERIFY(!m_z->ausfuehrung()->anhaltbar());
        m_z->ausfuehrung()->dublettenAusraeumen();
        QVERIFY(m_z->ausfuehrung()->anhaltbar());
        QTRY_VERIFY(m_z->ausfuehrung()->vorgangsanteil() > 0);
        m_z->ausfuehrung()->anhalten();
        QVERIFY(!m_z->ausfuehrung()->anhaltbar() && m_z->ausfuehrung()->raeumtAus());
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QVERIFY(!m_z->ausfuehrung()->raeumtAus());
        QVERIFY(m_z->pruefung()->zaehlwerk().dubletten > 0 && m_z->pruefung()->zaehlwerk().dubletten < 300);
    }

    void alterOrt()
    {
        m_b->dokument(u"a.pdf"_s, [](Dokument &d) { d.altOrdner = u"Haushalt/Jahresablage/2021/Wasser"_s; });
        beginnen();
        const auto anders = [&] {
            for (const Pruefhinweis &h : m_z->pruefung()->pruefhinweise()) {
                if (h.art == Pruefhinweis::Art::AndererOrt)
                    return h.text;
            }
            return QString();
        };
        QCOMPARE(anders(), u"Vorschlag weicht vom heutigen Ort ab. Bisher: Haushalt/Jahresablage/Wasser"_s);
        m_z->pruefung()->altenOrtBehalten();
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.ort.rubrik, u"Wasser"_s);
        QCOMPARE(m_z->pruefung()->zielpfad(), (QStringList{u"Haushalt"_s, u"Jahresablage"_s, u"2021"_s, u"Wasser"_s}));
        QCOMPARE(anders(), QString());
        m_z->pruefung()->setzeFeld(Feld::Datum, u"2022-05-03"_s); // the year is the place's own
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.jahr, u"2021"_s);
    }

    void hinweiseNachIhrerBedingung_data()
    {
        using Art = Pruefhinweis::Art;
        QTest::addColumn<QString>("aenderung");
        QTest::addColumn<QList<Art>>("arten");
        QTest::newRow("nichts") << QString() << QList<Art>{};
        QTest::newRow("Texterkennung") << u"hat_textebene=0"_s << QList<Art>{Art::Texterkennung};
        QTest::newRow("gelernt") << u"ort_quelle='gelernt'"_s << QList<Art>{Art::Gelernt};
        QTest::newRow("nachgeprüft") << u"zweitmeinung=1; INSERT INTO nachgeprueft SELECT id FROM dokumente"_s
                                     << QList<Art>{Art::Nachgeprueft};
        QTest::newRow("nur gefragt") << u"zweitmeinung=1"_s << QList<Art>{};
        QTest::newRow("ohne Gegenüber") << u"gegenueber=''"_s << QList<Art>{Art::KeinGegenueber};
        QTest::newRow("Ort unbekannt") << u"alt_ordner='Sonst/Wo'"_s << QList<Art>{};
        QTest::newRow("gescheitert, ohne Text")
            << u"fehler='Einordnung nicht möglich: verschlüsselt', gegenueber='', id=id+100"_s
            << QList<Art>{Art::Fehler, Art::KeinText};
        QTest::newRow("alles zusammen")
            << u"hat_textebene=0, gegenueber='', alt_ordner='Verein/Jahresablage/2020/Spenden', ort_quelle='gelernt', aehnlich_zu=id"_s
            << QList<Art>{Art::Texterkennung, Art::KeinGegenueber, Art::AndererOrt, Art::Gelernt, Art::Aehnlich};
    }
    void hinweiseNachIhrerBedingung()
    {
        QFETCH(QString, aenderung);
        QFETCH(QList<Pruefhinweis::Art>, arten);
        m_b->dokument(u"a.pdf"_s);
        if (!aenderung.isEmpty())
            m_b->sql(u"UPDATE dokumente SET "_s + aenderung);
        beginnen();
        QList<Pruefhinweis::Art> gefunden;
        for (const Pruefhinweis &h : m_z->pruefung()->pruefhinweise())
            gefunden << h.art;
        QCOMPARE(gefunden, arten);
    }

    void hinweisNenntDieHerkunft_data()
    {
        QTest::addColumn<QString>("zeile");
        QTest::addColumn<QString>("stimme");
        QTest::addColumn<QString>("satz");
        const QString ort = u"'stadtwerke','Haushalt','Jahresablage','Strom',"_s;
        QTest::newRow("correction") << ort + u"3,1,0"_s << QString() << u"Vorschlag stammt aus deiner eigenen"_s;
        QTest::newRow("confirmed") << ort + u"3,0,48"_s << QString() << u"Vorschlag wie bei 3 bestätigten Dokumenten"_s;
        QTest::newRow("tree") << ort + u"0,0,48"_s << QString() << u"Vorschlag wie 48 Dokumente in deiner Ablage."_s;
        QTest::newRow("texts") << ort + u"3,0,48"_s << u"4711-02"_s << u"Vorschlag wie 11 Dokumente mit „4711-02“."_s;
    }
    void hinweisNenntDieHerkunft()
    {
        QFETCH(QString, zeile);
        QFETCH(QString, stimme);
        QFETCH(QString, satz);
        const qint64 id = m_b->dokument(u"a.pdf"_s);
        m_b->sql(u"UPDATE dokumente SET ort_quelle='gelernt', gelernt_von='stadtwerke'"_s);
        m_b->sql(u"INSERT INTO gelernt VALUES ('stadtwerke','Stadtwerke','Haushalt','Jahresablage','Strom',3,'')"_s);
        m_b->sql(
            u"INSERT INTO gelernte_orte (schluessel, zweig, ablage, rubrik, anzahl, korrekturen, baum) VALUES ("_s +
            zeile + u')');
        m_b->sql(u"INSERT INTO modellantworten (dokument_id, stimmwort, stimmen) VALUES (?,?,11)"_s, {id, stimme});
        beginnen();
        QVERIFY2(m_z->pruefung()->pruefhinweise().first().text.startsWith(satz),
                 qPrintable(m_z->pruefung()->pruefhinweise().first().text));
    }

    // Without a model nothing would come of it: the document keeps its reason until the run begins.
    void wasGescheitertIstWirdErstMitDemDurchgangWiederGeoeffnet()
    {
        const qint64 id = m_b->dokument(u"a.pdf"_s);
        m_b->sql(u"UPDATE dokumente SET fehler='Einordnung nicht möglich: x', vorschlag='a.pdf' WHERE id=?"_s, {id});
        beginnen();
        const QSignalSpy fraglich(m_z->durchgang(), &Durchgang::startFraglich);
        m_z->durchgang()->erneutVersuchen(id);
        QTRY_COMPARE(fraglich.size(), 1);
        QCOMPARE(m_z->durchgang()->erbetenesDokument(), id);
        QCOMPARE(m_b->lesen(id).status, Status::Bereit);
        QVERIFY(m_b->lesen(id).fehler);
        m_z->durchgang()->durchgangStarten(Durchgang::Art::ErneutLesen);
        QTRY_COMPARE(m_b->lesen(id).status, Status::Neu);
        QTRY_VERIFY(!m_z->durchgang()->analyse()->laeuft());
    }

    void ohneZielWirdNichtAbgelegt_data()
    {
        QTest::addColumn<QString>("ziel");
        QTest::addColumn<QString>("grund");
        QTest::newRow("keines") << QString() << u"Es ist noch kein Zielordner gewählt"_s;
        QTest::newRow("verschwunden") << u"/nicht/da"_s << u"Der Zielordner ist nicht erreichbar: /nicht/da"_s;
    }
    void ohneZielWirdNichtAbgelegt()
    {
        QFETCH(QString, ziel);
        m_b->profil.zielWurzel = ziel;
        m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QTEST(m_z->meldestelle()->hinweis(), "grund");
        m_z->ausfuehrung()->aussortieren();
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QTEST(m_z->meldestelle()->hinweis(), "grund");
        QCOMPARE(name(), u"a.pdf"_s);
        QVERIFY(!m_z->sitzungen()->laufendesBuch() && !QFile::exists(u"/nicht"_s));
    }

    /** The notice stands beside another document then. */
    void wasScheiterteNenntSeinDokument()
    {
        m_b->dokument(u"a.pdf"_s);
        const qint64 b = m_b->dokument(u"b.pdf"_s);
        m_b->dokument(u"c.pdf"_s);
        QVERIFY(QFile::remove(m_b->quelle(u"a.pdf"_s)));
        beginnen();
        m_z->ausfuehrung()->uebernehmen();
        m_z->ausfuehrung()->uebernehmen(); // not of the document that nobody has seen yet
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QVERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QCOMPARE(m_z->meldestelle()->hinweis(), u"a.pdf: Die Datei liegt nicht mehr am erwarteten Ort"_s);
        m_b->sql(u"UPDATE dokumente SET status='erledigt' WHERE id=?"_s, {b});
        m_z->ausfuehrung()->zuruecklegen();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QCOMPARE(m_z->meldestelle()->hinweis(), u"b.pdf: Dieses Dokument wurde inzwischen schon bearbeitet"_s);
        // What came last is said first, with its mark.
        m_z->ausfuehrung()->zuruecklegen();
        QTRY_VERIFY(!m_z->pruefung()->aktuelles());
        m_z->meldestelle()->melden(u"Neu"_s);
        QCOMPARE(m_z->meldestelle()->meldungen(), (QStringList{u"Neu"_s, u"Zurückgestellt: c.pdf"_s}));
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Warnung);
        m_z->ausfuehrung()->tatZuruecknehmen();
        QTRY_COMPARE(m_z->meldestelle()->meldungen(), QStringList{u"Wieder zur Prüfung: c.pdf"_s});
    }

    void einProtokollDasNichtGehtHindertNicht()
    {
        QFile sperre(m_b->ordner() + u"/datei"_s);
        QVERIFY(sperre.open(QIODevice::WriteOnly));
        m_b->profil.protokollOrdner = sperre.fileName() + u"/Protokolle"_s;
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        beginnen();
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(m_z->meldestelle()->hinweis(),
                     u"Das Protokoll konnte nicht angelegt werden. Prüfe den Ordner auf der Karte Protokoll."_s);
        QCOMPARE(m_b->lesen(a).status, Status::Erledigt);
        QCOMPARE(m_z->meldestelle()->geschehen(), u"Einsortiert: 2023-02-14 Stadtwerke - a.pdf"_s);
        // It goes before all else that is said, as a warning.
        QCOMPARE(m_z->meldestelle()->meldungen(),
                 (QStringList{m_z->meldestelle()->hinweis(), m_z->meldestelle()->geschehen()}));
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Warnung);
        m_b->dokument(u"b.pdf"_s);
        m_b->dokument(u"c.pdf"_s, [](Dokument &d) { d.angaben.ort.rubrik.clear(); });
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        m_z->pruefung()->setzeFeld(Feld::Rubrik, u"Wasser"_s);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QVERIFY(
            m_z->meldestelle()->meldungen().constFirst().startsWith(u"Das Protokoll konnte nicht angelegt werden."_s));
        QVERIFY(m_z->meldestelle()->hinweis().contains(u"Gemerkt. "_s));
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Warnung);
        // Setting all duplicates aside tells of it as well.
        const qint64 original = m_b->dokument(u"o.pdf"_s, {}, "gleich");
        const qint64 doppelt = m_b->dokument(
            u"p.pdf"_s, [](Dokument &d) { d.status = Status::Dublette; }, "gleich");
        m_b->sql(u"UPDATE dokumente SET dublette_von=?, aehnlichkeit=1 WHERE id=?"_s, {original, doppelt});
        m_z->ausfuehrung()->dublettenAusraeumen();
        QTRY_COMPARE(m_b->lesen(doppelt).status, Status::Aussortiert);
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
        QVERIFY(
            m_z->meldestelle()->meldungen().constFirst().startsWith(u"Das Protokoll konnte nicht angelegt werden."_s));
        QCOMPARE(m_z->meldestelle()->ton(), Meldestelle::Ton::Warnung);
    }

    void andereBedingungenAnderesBuch()
    {
        for (const QString &n : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s})
            m_b->dokument(n);
        beginnen();
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        const QString erstes = m_z->sitzungen()->laufendesBuch()->datei();
        m_z->profilwahl()->setzeKopieren(true);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QVERIFY(liegt(m_b->quelle(u"b.pdf"_s)));
        QVERIFY(m_z->sitzungen()->laufendesBuch()->datei() != erstes);
        QTRY_VERIFY(Profilspeicher::laden().first().kopieren);
    }

    /** Another program has stored other settings: the next document goes where they say, and what is set here stays. */
    void einstellungenEinesAnderenProgramms()
    {
        m_b->dokument(u"a.pdf"_s);
        beginnen();
        Profil anders = m_b->profil;
        anders.pfadVorlage = u"{jahr}/{zweig}"_s;
        QVERIFY(Profilspeicher::sichern({anders}, {m_b->profil}).gelungen);
        m_z->pruefung()->aktualisieren();
        QTRY_COMPARE(m_z->pruefung()->zielpfad(), (QStringList{u"2023"_s, u"Haushalt"_s}));
        m_z->pruefung()->aktualisieren(); // reads while the settings are changed here
        m_z->profilwahl()->setzeKopieren(true);
        m_z->pruefung()->aktualisieren();
        QTRY_VERIFY(Profilspeicher::laden().first().kopieren);
        QVERIFY(m_z->profilwahl()->aktiv()->kopieren);
        QCOMPARE(m_z->profilwahl()->aktiv()->pfadVorlage, anders.pfadVorlage);
    }

    void gesperrterKatalogHaeltNichtsAuf()
    {
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        m_b->dokument(u"c.pdf"_s);
        beginnen();
        auto sperre = std::make_unique<Fremdsperre>(Profilspeicher::katalogDatei(m_b->profil));
        // Whoever waited for the catalogue would wait until it gives up: it is set free below, by this very thread.
        m_z->ausfuehrung()->uebernehmen();
        m_z->pruefung()->aktualisieren();
        m_z->ausfuehrung()->weiter(Richtung::Weiter); // kept
        QSignalSpy zuFrueh(m_z->ausfuehrung(), &Ausfuehrung::zuFruehGedrueckt);
        m_z->ausfuehrung()->zuruecklegen(); // of a document that nobody has seen
        m_z->ausfuehrung()->uebernehmen();
        m_z->ausfuehrung()->aussortieren();
        QCOMPARE(zuFrueh.size(), 3);
        QTRY_COMPARE(m_z->ausfuehrung()->vorgang(), u"Datei wird verschoben"_s);
        QCOMPARE(name(), u"a.pdf"_s);
        sperre.reset();
        QTRY_COMPARE(name(), u"c.pdf"_s);
        QCOMPARE(m_b->lesen(1).status, Status::Erledigt);
        m_z->ausfuehrung()->weiter(Richtung::Zurueck);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        for (const QString &danach : {u"c.pdf"_s, QString()}) {
            QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
            m_z->ausfuehrung()->zuruecklegen();
            QTRY_COMPARE(name(), danach);
        }
        QCOMPARE(m_b->lesen(2).status, Status::Zurueckgestellt);
        m_z->ausfuehrung()->zurueckgestellteVorlegen();
        QTRY_COMPARE(name(), u"b.pdf"_s);
    }

    void profilwechsel()
    {
        Buehne zweite(u"Verein"_s);
        zweite.dokument(u"zweit.pdf"_s);
        m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s);
        zweite.profilSichern({m_b->profil});
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen(u"Verein"_s);
        QTRY_COMPARE(name(), u"zweit.pdf"_s);
        m_z->pruefung()->setzeFeld(Feld::Titel, u"Von Hand"_s);
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        m_z->ausfuehrung()->uebernehmen(); // nothing of the profile that is being left
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel,
                 u"a"_s); // not the other profile's draft for the same number
        m_z->profilwahl()->aktivieren(zweite.profil.id);
        QTRY_COMPARE(name(), u"zweit.pdf"_s);
        QCOMPARE(m_z->pruefung()->aktuelles()->angaben.titel, u"Von Hand"_s);
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        QTRY_COMPARE(name(), u"a.pdf"_s);
        QCOMPARE(zweite.lesen(1).status, Status::Bereit);
        m_z->ausfuehrung()->uebernehmen();
        QTRY_COMPARE(name(), u"b.pdf"_s);
        QVERIFY(m_z->sitzungen()->laufendesBuch());
        m_z->profilwahl()->neuesProfil();
        QTRY_COMPARE(m_z->profilwahl()->aktiv()->name, u"Ablage 3"_s);
        QTRY_VERIFY(!m_z->profilwahl()->oeffnet());
        QVERIFY(!m_z->pruefung()->aktuelles() && !m_z->sitzungen()->laufendesBuch() &&
                !m_z->ausfuehrung()->tatRuecknehmbar());
        QTRY_COMPARE(Profilspeicher::laden().size(), 3);
        // A catalogue that is none leaves the one in use.
        zweite.schliessen();
        QFile kaputt(Profilspeicher::katalogDatei(zweite.profil));
        QVERIFY(kaputt.open(QIODevice::WriteOnly | QIODevice::Truncate));
        kaputt.write(QByteArray(8192, 'x'));
        kaputt.close();
        m_z->profilwahl()->aktivieren(m_b->profil.id);
        QTRY_COMPARE(name(), u"b.pdf"_s);
        m_z->profilwahl()->aktivieren(zweite.profil.id);
        QTRY_VERIFY(!m_z->profilwahl()->oeffnet());
        QVERIFY(m_z->meldestelle()->hinweis().startsWith(u"Datenbank lässt sich nicht öffnen: "_s));
        QCOMPARE(m_z->profilwahl()->aktiv()->name, u"Haushalt"_s);
        QCOMPARE(name(), u"b.pdf"_s);
    }

    void dublettenAusraeumen()
    {
        beginnen();
        m_z->ausfuehrung()->dublettenAusraeumen();
        QTRY_COMPARE(m_z->meldestelle()->hinweis(), u"0 Dubletten nach _Dubletten verschoben"_s);
        const QByteArray inhalt = "gleich";
        const qint64 original = m_b->dokument(u"o.pdf"_s, {}, inhalt);
        for (const QString &n : {u"a.pdf"_s, u"b.pdf"_s, u"weg.pdf"_s})
            m_b->dokument(
                n, [](Dokument &d) { d.status = Status::Dublette; }, inhalt);
        m_b->sql(u"UPDATE dokumente SET dublette_von=?, aehnlichkeit=1 WHERE status='dublette'"_s, {original});
        QVERIFY(QFile::remove(m_b->quelle(u"weg.pdf"_s)));
        m_z->ausfuehrung()->dublettenAusraeumen();
        QTRY_COMPARE(
            m_z->meldestelle()->hinweis(),
            u"2 Dubletten nach _Dubletten verschoben, 1 nicht: Die Datei liegt nicht mehr am erwarteten Ort"_s);
        QVERIFY(liegt(m_b->ziel(u"_Dubletten/b.pdf"_s)));
        QCOMPARE(m_z->pruefung()->zaehlwerk().aussortiert, 2);
        // The original has been written to since: what was its copy may be the only one of what is in it.
        const qint64 letzte = m_b->dokument(
            u"letzte.pdf"_s, [](Dokument &d) { d.status = Status::Dublette; }, inhalt);
        m_b->sql(u"UPDATE dokumente SET dublette_von=?, aehnlichkeit=1 WHERE id=?"_s, {original, letzte});
        QFile datei(m_b->quelle(u"o.pdf"_s));
        QVERIFY(datei.open(QIODevice::Append) && datei.write("!") == 1);
        datei.close();
        m_z->ausfuehrung()->dublettenAusraeumen();
        QTRY_VERIFY2(m_z->meldestelle()->hinweis().contains(u"1 ist keine Dublette mehr"_s),
                     qPrintable(m_z->meldestelle()->hinweis()));
        QCOMPARE(m_b->lesen(letzte).status, Status::Neu);
        QVERIFY(liegt(m_b->quelle(u"letzte.pdf"_s)));
    }

    void ausnahmenMeldenNurAenderungen()
    {
        m_b->dokument(u"a.pdf"_s);
        beginnen();
        Profil neu = *m_z->profilwahl()->aktiv();
        neu.ausnahmen = {u"a.pdf"_s};
        m_z->profilwahl()->setzeProfil(neu);
        m_z->einrichtung()->ausnahmenAnwenden();
        QTRY_COMPARE(m_z->meldestelle()->hinweis(), u"1 aus der Warteschlange genommen"_s);
        QTRY_COMPARE(m_z->pruefung()->ausgenommen(), 1);
        QVERIFY(!m_z->pruefung()->aktuelles());
        m_z->meldestelle()->melden(u"bleibt"_s);
        QSignalSpy hinweise(m_z->meldestelle(), &Meldestelle::hinweisGeaendert);
        m_z->einrichtung()->ausnahmenAnwenden();
        QVERIFY(!hinweise.wait(200));
        QCOMPARE(m_z->meldestelle()->hinweis(), u"bleibt"_s);
        neu.ausnahmen.clear();
        m_z->profilwahl()->setzeProfil(neu);
        m_z->einrichtung()->ausnahmenAnwenden();
        QTRY_COMPARE(m_z->meldestelle()->hinweis(), u"1 zurückgeholt"_s);
        QTRY_COMPARE(name(), u"a.pdf"_s);
    }

    void modellTreffer_data()
    {
        QTest::addColumn<QStringList>("vorhandene");
        QTest::addColumn<QString>("gesucht");
        QTest::addColumn<QString>("treffer");
        QTest::newRow("ohne Marke") << QStringList{u"andere:1b"_s, u"qwen3:7b"_s} << u"qwen3"_s << u"qwen3:7b"_s;
        QTest::newRow("andere Marke") << QStringList{u"qwen3:latest"_s} << u"qwen3:7b"_s << QString();
        QTest::newRow("nur ähnlich") << QStringList{u"qwen3-vl:4b"_s} << u"qwen3"_s << QString();
    }
    void modellTreffer()
    {
        QFETCH(QStringList, vorhandene);
        QFETCH(QString, gesucht);
        QTEST(Modellstand::treffer(vorhandene, gesucht).value_or(QString()), "treffer");
    }

    void modellPruefenUndLaden()
    {
        m_b->profil.modell = u"klein:1b"_s;
        beginnen();
        QTRY_COMPARE(m_z->modelldienst()->modellMeldung(), u"Der Modellserver ollama läuft nicht"_s);
        QVERIFY(!m_z->modelldienst()->modellBereit());
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::fest(200, "{}"));
        server.antworten("/api/tags", {Testantwort::fest(200, R"({"models":[]})"),
                                       Testantwort::fest(200, R"({"models":[{"name":"klein:1b"}]})")});
        server.antworten("/api/pull", Testantwort::inStuecken(
                                          {"{\"status\":\"pulling manifest\"}\n", "{\"status\":\"success\"}\n"}));
        m_z->modelldienst()->modellPruefen();
        QTRY_COMPARE(m_z->modelldienst()->modellMeldung(), u"Das Modell klein:1b fehlt noch"_s);
        m_z->modelldienst()->modellLaden();
        QCOMPARE(m_z->modelldienst()->modellMeldung(), u"Modell wird geladen"_s);
        QTRY_COMPARE(m_z->modelldienst()->modellMeldung(), u"Sprachmodell klein:1b einsatzbereit"_s);
        QVERIFY(m_z->modelldienst()->modellBereit());
    }

    void schliessenMittenImLauf()
    {
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::fest(200, "{}"));
        server.antworten("/api/generate", Testantwort::gehalten());
        m_b->dokument(u"a.pdf"_s, [](Dokument &d) { d.status = Status::Neu; });
        m_b->sql(u"UPDATE dokumente SET text_hash='x', sha256='x'"_s);
        beginnen();
        m_z->durchgang()->durchgangStarten();
        QVERIFY(m_z->durchgang()->analyse()->laeuft());
        QTRY_VERIFY(gefragt(server, "/api/generate"));
        m_z->profilwahl()->neuesProfil(); // the run goes on with its document, under no window's eyes
        QTRY_COMPARE(m_z->profilwahl()->aktiv()->name, u"Ablage 2"_s);
        QTRY_VERIFY(m_z->durchgang()->analyse() && !m_z->durchgang()->analyse()->laeuft());
        QCOMPARE(m_z->meldestelle()->hinweis(),
                 u"Der Durchgang von Haushalt wurde angehalten, der nächste Start setzt ihn fort"_s);
        m_z.reset();
        QTRY_COMPARE(server.offene(), 0); // hung up, although the answer is still held back
        QCOMPARE(m_b->lesen(1).status, Status::Neu);
        QCOMPARE(Profilspeicher::laden().size(), 2);
    }
};

QTEST_GUILESS_MAIN(TestZustand)
#include "test_zustand.moc"
