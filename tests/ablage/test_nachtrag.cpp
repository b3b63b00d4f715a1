#include "bewegungsgang.h"
#include "herkunft.h"
#include "katalog.h"
#include "katalogtausch.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"
#include "sicherungen.h"
#include "werkbank.h"
#include "wiederherstellung.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
QString summe(const QByteArray &bytes) { return Sha256::hex(Sha256().von(bytes)); }

/** A bench on which letters are as they are after a run: with their digest. */
class Buehne
{
public:
    explicit Buehne(bool kopieren = false) : m_bank(m_ordner.path(), kopieren) {}

    Werkbank &bank() { return m_bank; }
    [[nodiscard]] QString katalog() const { return m_ordner.path() + u"/katalog.db"_s; }
    [[nodiscard]] QString quelle(const QString &name) const { return m_bank.quelle(name); }

    qint64 brief(const QString &name, const QByteArray &inhalt, const QString &titel = u"Abschlag"_s)
    {
        const qint64 id = m_bank.dokument(name, inhalt, titel);
        m_bank.db()->ausfuehren(u"UPDATE dokumente SET sha256=?, groesse=? WHERE id=?"_s,
                                {summe(inhalt), inhalt.size(), id});
        return id;
    }
    void sichern()
    {
        m_bank.schliessen();
        Sicherungen::anlegen(katalog());
        m_bank.oeffnen();
    }
    Wiederherstellung::Ergebnis einsetzen(qsizetype welche = 0)
    {
        m_bank.schliessen();
        auto ergebnis = Wiederherstellung::einsetzen(katalog(), Sicherungen::alle(katalog()).at(welche).datei,
                                                     m_bank.profil(), {u"Nachbar"_s});
        m_bank.oeffnen();
        return ergebnis;
    }

    struct Stand {
        QString status, pfad, titel;
        qint64 id = 0;
    };
    /** What the catalogue knows of the document with these bytes. */
    [[nodiscard]] QList<Stand> staende(const QByteArray &inhalt) const
    {
        QList<Stand> liste;
        for (const Zeile &z : m_bank.db()->abfragen(u"SELECT * FROM dokumente WHERE sha256=?"_s, {summe(inhalt)}))
            liste << Stand{z.text(u"status"), z.text(u"pfad"), z.text(u"titel"), z.ganz(u"id")};
        return liste;
    }

private:
    QTemporaryDir m_ordner;
    Werkbank m_bank;
};
} // namespace

class TestNachtrag : public QObject
{
    Q_OBJECT

    static void zweiFaelle()
    {
        QTest::addColumn<bool>("kopieren");
        QTest::newRow("move") << false;
        QTest::newRow("copy") << true;
    }
    static void vierFaelle()
    {
        QTest::addColumn<bool>("vorDerSicherung");
        QTest::addColumn<bool>("kopieren");
        QTest::newRow("move known to the backup") << true << false;
        QTest::newRow("move since") << false << false;
        QTest::newRow("copy known to the backup") << true << true;
        QTest::newRow("copy since") << false << true;
    }

private Q_SLOTS:
    // The scanner gives the same name to the next scan.
    void gleicherScanname_data()
    {
        QTest::addColumn<bool>("vorDerSicherung");
        QTest::newRow("known to the backup") << true;
        QTest::newRow("come in since") << false;
    }
    void gleicherScanname()
    {
        QFETCH(bool, vorDerSicherung);
        Buehne b;
        b.brief(u"anderer.pdf"_s, "%PDF anderer");
        if (!vorDerSicherung)
            b.sichern();
        const qint64 a = b.brief(u"scan.pdf"_s, "%PDF erster");
        if (vorDerSicherung)
            b.sichern();
        const QString ziel = b.bank().uebernehmen(a).nach;
        dateiSchreiben(b.quelle(u"scan.pdf"_s), "%PDF zweiter");
        b.einsetzen();
        const auto s = b.staende("%PDF erster");
        QCOMPARE(s.size(), 1);
        QCOMPARE(s.first().pfad, ziel);
        QCOMPARE(s.first().status, u"erledigt"_s);
    }

    // Logs that were copied back from somewhere all have the time of the copying, in whatever order.
    void protokolleOhneZeiten()
    {
        Buehne b;
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        const qint64 c = b.brief(u"c.pdf"_s, "%PDF c");
        b.sichern();
        b.bank().uebernehmen(a);
        const QString erstes = b.bank().buchDatei();
        QTest::qWait(1100); // lines tell seconds
        b.bank().schliessen();
        b.bank().oeffnen();
        b.bank().uebernehmen(c);
        QFile log(erstes);
        QVERIFY(log.open(QIODevice::ReadWrite));
        QVERIFY(log.setFileTime(QDateTime::currentDateTime().addDays(1), QFile::FileModificationTime));
        log.close();
        b.einsetzen();
        // The next undo takes back what was filed last.
        b.bank().rueckgaengig();
        QVERIFY(istVorhanden(b.quelle(u"c.pdf"_s)));
        QVERIFY(!istVorhanden(b.quelle(u"a.pdf"_s)));
    }

    // A single undo, then another letter under the same name at the target.
    void zurueckUndNeuBelegt_data() { vierFaelle(); }
    void zurueckUndNeuBelegt()
    {
        QFETCH(bool, vorDerSicherung);
        QFETCH(bool, kopieren);
        Buehne b(kopieren);
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        const qint64 c = b.brief(u"c.pdf"_s, "%PDF c");
        if (!vorDerSicherung)
            b.sichern();
        b.bank().uebernehmen(a);
        if (vorDerSicherung)
            b.sichern();
        b.bank().rueckgaengig();
        const QString ziel = b.bank().uebernehmen(c).nach;
        b.einsetzen();
        QCOMPARE(b.staende("%PDF a").first().status, u"bereit"_s);
        QCOMPARE(b.staende("%PDF a").first().pfad, b.quelle(u"a.pdf"_s));
        QCOMPARE(b.staende("%PDF c").first().status, u"erledigt"_s);
        // The next undo takes back the letter that was filed last.
        b.bank().rueckgaengig();
        QVERIFY(!istVorhanden(ziel));
        QCOMPARE(inhaltVon(b.quelle(u"a.pdf"_s)), QByteArray("%PDF a"));
        QCOMPARE(inhaltVon(b.quelle(u"c.pdf"_s)), QByteArray("%PDF c"));
    }

    // Undone, and by hand something else was put where it was.
    void zurueckUndVonHandBelegt_data() { vierFaelle(); }
    void zurueckUndVonHandBelegt()
    {
        QFETCH(bool, vorDerSicherung);
        QFETCH(bool, kopieren);
        Buehne b(kopieren);
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        if (!vorDerSicherung)
            b.sichern();
        const QString ziel = b.bank().uebernehmen(a).nach;
        if (vorDerSicherung)
            b.sichern();
        b.bank().rueckgaengig();
        dateiSchreiben(ziel, "%PDF fremd");
        b.einsetzen();
        QCOMPARE(b.staende("%PDF a").first().status, u"bereit"_s);
        QCOMPARE(b.staende("%PDF a").first().pfad, b.quelle(u"a.pdf"_s));
    }

    // The same after the undo is known to the backup.
    void langeZurueckUndVonHandBelegt_data() { zweiFaelle(); }
    void langeZurueckUndVonHandBelegt()
    {
        QFETCH(bool, kopieren);
        Buehne b(kopieren);
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        const QString ziel = b.bank().uebernehmen(a).nach;
        b.bank().rueckgaengig();
        b.sichern();
        dateiSchreiben(ziel, "%PDF fremd");
        if (!kopieren)
            QFile::rename(b.quelle(u"a.pdf"_s), b.quelle(u"b.pdf"_s));
        b.einsetzen();
        QCOMPARE(b.staende("%PDF a").first().status, u"bereit"_s);
        QCOMPARE(b.staende("%PDF fremd").size(), 0);
    }

    // The first undo after it takes back what was filed last.
    void dasLetzteZuerstZurueck()
    {
        Buehne b;
        QList<qint64> briefe;
        for (const QString &name : {u"a.pdf"_s, u"b.pdf"_s, u"c.pdf"_s})
            briefe << b.brief(name, "%PDF " + name.toUtf8());
        b.sichern();
        for (const qint64 id : briefe)
            b.bank().uebernehmen(id);
        b.einsetzen();
        for (const QString &name : {u"c.pdf"_s, u"b.pdf"_s, u"a.pdf"_s}) {
            b.bank().rueckgaengig();
            QVERIFY(istVorhanden(b.quelle(name)));
        }
    }

    // Known, taken back since and filed elsewhere: there is one movement, and one undo brings it home.
    void zurueckUndAnderswohin_data() { zweiFaelle(); }
    void zurueckUndAnderswohin()
    {
        QFETCH(bool, kopieren);
        Buehne b(kopieren);
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        b.bank().uebernehmen(a);
        b.sichern();
        b.bank().rueckgaengig();
        b.bank().uebernehmen(a, u"Anderswo"_s);
        b.einsetzen();
        QVERIFY(b.bank().lesen(a).status == Status::Erledigt);
        QCOMPARE(b.bank().db()->abfragen(u"SELECT COUNT(*) n FROM protokoll WHERE rueckgaengig=0"_s).first().ganz(u"n"),
                 1);
        QCOMPARE(b.bank().db()->abfragen(u"SELECT COUNT(*) n FROM gelernt"_s).first().ganz(u"n"), 0); // taken back too
        b.bank().rueckgaengig();
        QVERIFY(b.bank().lesen(a).status == Status::Bereit);
    }

    // The user writes into a letter after it was filed.
    void nachDemAblegenBearbeitet_data() { zweiFaelle(); }
    void nachDemAblegenBearbeitet()
    {
        QFETCH(bool, kopieren);
        Buehne b(kopieren);
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a", u"Mein Titel"_s);
        b.sichern();
        const QString ziel = b.bank().uebernehmen(a).nach;
        dateiSchreiben(ziel, "%PDF a, angestrichen");
        b.einsetzen();
        const Dokument d = b.bank().lesen(a);
        QVERIFY(d.status == Status::Erledigt);
        QCOMPARE(d.pfad, kopieren ? b.quelle(u"a.pdf"_s) : ziel);
    }

    // Whatever copy is taken, and however often: each letter is known once.
    void zweimalEinsetzenUndAeltere()
    {
        Buehne b;
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        b.sichern();
        b.bank().uebernehmen(a);
        const qint64 c = b.brief(u"c.pdf"_s, "%PDF c");
        b.sichern();
        b.bank().uebernehmen(c);
        const qint64 d = b.brief(u"d.pdf"_s, "%PDF d");
        b.bank().uebernehmen(d);
        for (const qsizetype welche : {1, 0, 1, 1}) {
            b.einsetzen(welche);
            b.sichern();
            QVERIFY(b.bank().widerspruecheOhneProtokoll().isEmpty());
            for (const char *inhalt : {"%PDF a", "%PDF c", "%PDF d"}) {
                QCOMPARE(b.staende(inhalt).size(), 1);
                QCOMPARE(b.staende(inhalt).first().status, u"erledigt"_s);
            }
        }
    }

    // The journal of a catalogue that is gone must not be played into the one that takes its place.
    void journalOhneKatalog()
    {
        Buehne b;
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        b.sichern();
        b.bank().uebernehmen(a);
        for (int i = 0; i < 50; ++i)
            b.brief(u"n%1.pdf"_s.arg(i), "%PDF n" + QByteArray::number(i));
        const QByteArray journal = inhaltVon(b.katalog() + u"-wal"_s);
        QVERIFY(!journal.isEmpty());
        b.bank().schliessen();
        QFile::remove(b.katalog());
        dateiSchreiben(b.katalog() + u"-wal"_s, journal);
        b.einsetzen();
        QCOMPARE(b.bank().db()->abfragen(u"PRAGMA integrity_check"_s).first().text(u"integrity_check"), u"ok"_s);
        QCOMPARE(b.staende("%PDF a").first().status, u"erledigt"_s);
        QCOMPARE(b.bank().db()->abfragen(u"SELECT COUNT(*) n FROM dokumente"_s).first().ganz(u"n"), 1);
    }

    // Names in the other form of Unicode.
    void zerlegteUmlaute()
    {
        Buehne b;
        const QString name = u"Prüfung.pdf"_s;
        const qint64 a = b.brief(name, "%PDF a");
        const QString zerlegt = name.normalized(QString::NormalizationForm_D);
        QVERIFY(QFile::rename(b.quelle(name), b.quelle(zerlegt)));
        b.sichern();
        b.bank().uebernehmen(a);
        b.einsetzen();
        QCOMPARE(b.staende("%PDF a").size(), 1);
        QCOMPARE(b.staende("%PDF a").first().status, u"erledigt"_s);
        b.bank().rueckgaengig();
        QVERIFY(QFile::exists(b.quelle(zerlegt)));
    }

    void herkunftslaufwerkFehlt()
    {
        Buehne b;
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        b.brief(u"c.pdf"_s, "%PDF c");
        Herkunft::merken(*b.bank().db(), b.bank().profil());
        b.sichern();
        b.bank().uebernehmen(a);
        const QString quelle = b.bank().profil().quelle;
        QVERIFY(QFile::rename(quelle, quelle + u" weg"_s));
        QDir().mkpath(quelle); // the empty folder it is mounted on
        QVERIFY(fehlerBei([&] { Q_UNUSED(b.einsetzen()); }).contains(quelle));
    }

    // A drive that is not there: what was filed on it must not be forgotten.
    void laufwerkFehlt()
    {
        Buehne b;
        const qint64 a = b.brief(u"a.pdf"_s, "%PDF a");
        b.sichern();
        b.bank().uebernehmen(a);
        const QString wurzel = b.bank().profil().zielWurzel;
        QVERIFY(QFile::rename(wurzel, wurzel + u" weg"_s));
        QDir().mkpath(wurzel); // the empty folder it is mounted on
        QVERIFY(fehlerBei([&] { Q_UNUSED(b.einsetzen()); }).contains(wurzel));
        QVERIFY(QDir().rmdir(wurzel));
        QVERIFY(QFile::rename(wurzel + u" weg"_s, wurzel));
        QCOMPARE(b.einsetzen().bilanz.eingetragen, 1);
        QVERIFY(b.bank().lesen(a).status == Status::Erledigt);
    }

    // An announcement that cannot be settled yet names a number: it is not given out again either.
    void nummernVonAbsichten()
    {
        Buehne b;
        b.brief(u"a.pdf"_s, "%PDF a");
        b.sichern();
        b.bank().schliessen();
        Absicht absicht = absichtFuer(999, b.quelle(u"a.pdf"_s), u"/nirgends/x.pdf"_s);
        absicht.zeile.von = u"/nirgends/y.pdf"_s;
        absicht.groesse = 5;
        absicht.dateizeit = 5;
        dateiSchreiben(Katalog::absichtsdatei(b.katalog()), absicht.json() + '\n');
        b.einsetzen();
        const Dateien::Fund fund{.pfad = u"/neu.pdf"_s, .name = u"neu.pdf"_s, .ordner = {}, .groesse = 1};
        QVERIFY(Dateien(*b.bank().db()).aufnehmen(fund, 0));
        QVERIFY(Dateien(*b.bank().db()).anPfad(u"/neu.pdf"_s)->id > 999);
    }

    // Killed between the exchange and the clearing of the announcements: nothing is entered twice.
    void absichtenNachDemTausch()
    {
        Buehne b;
        for (int i = 0; i < 3; ++i)
            b.bank().uebernehmen(b.brief(u"v%1.pdf"_s.arg(i), "%PDF v" + QByteArray::number(i)));
        b.sichern();
        for (int i = 0; i < 3; ++i) // rows of the former catalogue that the new one will not have
            b.bank().db()->ausfuehren(u"INSERT INTO protokoll (dokument_id, rueckgaengig) VALUES (0,1)"_s);
        const QString von = b.quelle(u"x.pdf"_s);
        const QString nach = b.bank().ziel(u"x.pdf"_s);
        const qint64 id = b.brief(u"x.pdf"_s, "%PDF x");
        Absicht absicht = absichtFuer(id, von, nach);
        absicht.zeile.aktion = u"einsortiert"_s;
        absicht.status = Status::Erledigt;
        absicht.protokollId = 6;
        QVERIFY(QFile::rename(von, nach));
        b.bank().schliessen();
        dateiSchreiben(Katalog::absichtsdatei(b.katalog()), absicht.json() + '\n');
        b.einsetzen();
        b.bank().schliessen();
        dateiSchreiben(Katalog::absichtsdatei(b.katalog()), absicht.json() + '\n'); // not cleared any more
        b.bank().oeffnen();
        QCOMPARE(
            b.bank().db()->abfragen(u"SELECT COUNT(*) n FROM protokoll WHERE nach_pfad=?"_s, {nach}).first().ganz(u"n"),
            1);
    }
};

QTEST_GUILESS_MAIN(TestNachtrag)
#include "test_nachtrag.moc"
