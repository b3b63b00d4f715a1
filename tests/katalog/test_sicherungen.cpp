#include "datenbank.h"
#include "katalogpruefung.h"
#include "katalogtausch.h"
#include "sicherungen.h"
#include "sperrdatei.h"

#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <cstring>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::katalog;

namespace
{
QByteArray lesen(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}

void schreiben(const QString &pfad, const QByteArray &bytes)
{
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    QCOMPARE(datei.write(bytes), bytes.size());
}

void eintragen(Datenbank &db, const QString &text)
{
    QCOMPARE(db.ausfuehren(u"INSERT INTO texte (text) VALUES (?)"_s, {text}), 0);
}

QStringList texte(const QString &pfad)
{
    Datenbank db(pfad);
    QStringList liste;
    for (const Zeile &z : db.abfragen(u"SELECT text FROM texte ORDER BY dokument_id"_s))
        liste << z.text(u"text");
    return liste;
}

/** On a disk of two megabytes: a catalogue, and what is said of copying it. */
int aufKleinerPlatte(const QString &ordner)
{
    const QString pfad = ordner + u"/k.db"_s;
    Datenbank db(pfad);
    eintragen(db, QString(800'000, u'x'));
    QString fehler = u"keiner"_s;
    try {
        Sicherungen::anlegen(pfad);
    } catch (const Fehler &f) {
        fehler = f.text();
    }
    db.ausfuehren(u"UPDATE texte SET text='kurz'"_s);
    const bool schreibt = db.ausfuehren(u"INSERT INTO texte (text) VALUES ('danach')"_s) == 0;
    std::printf("%s\n%d %d\n", qPrintable(fehler), int(Sicherungen::alle(pfad).size()), int(schreibt));
    return 0;
}
} // namespace

class TestSicherungen : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;
    QString m_pfad;

    [[nodiscard]] QString kopie(int stelle) const { return Sicherungen::alle(m_pfad).value(stelle).datei; }
    [[nodiscard]] QStringList dateien() const { return QDir(m_ordner->path()).entryList(QDir::Files, QDir::Name); }

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_pfad = m_ordner->filePath(u"k.db"_s);
    }

    void kopiertNebenher()
    {
        Datenbank db(m_pfad);
        eintragen(db, u"eins"_s);
        QVERIFY(Sicherungen::istFaellig(m_pfad, QDateTime::currentDateTime()));
        QVERIFY(db.ausfuehren(u"BEGIN IMMEDIATE"_s) == 0); // somebody is writing
        eintragen(db, u"zwei"_s);
        QVERIFY(Sicherungen::anlegen(m_pfad));
        QVERIFY(db.ausfuehren(u"COMMIT"_s) == 0);
        QVERIFY(!Sicherungen::istFaellig(m_pfad, QDateTime::currentDateTime()));
        QCOMPARE(texte(kopie(0)), QStringList{u"eins"_s});
        const auto nurBesitzer = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
        QVERIFY(QFileInfo(kopie(0)).permissions() == nurBesitzer);
        QVERIFY(!(QFileInfo(Sicherungen::ordner(m_pfad)).permissions() & (QFile::ReadGroup | QFile::ReadOther)));
    }

    // Whatever the clock says: what was made last is the newest, and seven are kept.
    void siebenBleiben()
    {
        Datenbank db(m_pfad);
        QDir().mkpath(Sicherungen::ordner(m_pfad));
        schreiben(Sicherungen::ordner(m_pfad) + u"/k-000001-21000101T000000Z.db"_s, "2100");
        schreiben(Sicherungen::ordner(m_pfad) + u"/anderer-000009-20200101T000000Z.db"_s, "fremd");
        schreiben(Sicherungen::ordner(m_pfad) + u"/k-000002-19700101T000000Z.db.teil"_s, "Rest");
        QVERIFY(Sicherungen::istFaellig(m_pfad, QDateTime::currentDateTime()));
        QVERIFY(!Sicherungen::istFaellig(m_pfad, QDateTime(QDate(2100, 1, 1), QTime(0, 0), Qt::UTC)));
        for (int i = 2; i <= 9; ++i) {
            eintragen(db, QString::number(i));
            QVERIFY(Sicherungen::anlegen(m_pfad));
        }
        const QList<Sicherung> alle = Sicherungen::alle(m_pfad);
        QCOMPARE(alle.size(), Sicherungen::hoechstens);
        QCOMPARE(alle.first().nummer, 9);
        QCOMPARE(alle.last().nummer, 3);
        QCOMPARE(texte(alle.first().datei).last(), u"9"_s);
        QVERIFY(QFile::exists(Sicherungen::ordner(m_pfad) + u"/anderer-000009-20200101T000000Z.db"_s));
        QVERIFY(!QFile::exists(Sicherungen::ordner(m_pfad) + u"/k-000002-19700101T000000Z.db.teil"_s));
    }

    void einandererIstDabei()
    {
        const Datenbank db(m_pfad);
        QVERIFY(Sicherungen::anlegen(m_pfad));
        const auto sperre = Sperrdatei::nehmen(Sicherungen::ordner(m_pfad) + u"/.sperre"_s, 0s);
        QVERIFY(sperre);
        QVERIFY(!Sicherungen::anlegen(m_pfad));
        QCOMPARE(Sicherungen::alle(m_pfad).size(), 1);
    }

    void hoertAuf()
    {
        const Datenbank db(m_pfad);
        std::stop_source ende;
        ende.request_stop();
        QVERIFY(!Sicherungen::anlegen(m_pfad, ende.get_token()));
        QVERIFY(Sicherungen::alle(m_pfad).isEmpty());
        QVERIFY(Katalogpruefung::pruefen(m_pfad, ende.get_token()) == Katalogpruefung::Befund::Offen);
    }

    void ohnePlatz()
    {
        QProcess kind;
        const QString skript = u"mount -t tmpfs -o size=2m tmpfs \"$1\" || exit 77; exec \"$2\" --klein \"$1\""_s;
        kind.start(u"unshare"_s, {u"-Urm"_s, u"sh"_s, u"-c"_s, skript, u"sh"_s, m_ordner->path(),
                                  QCoreApplication::applicationFilePath()});
        QVERIFY(kind.waitForFinished(60000));
        if (kind.error() == QProcess::FailedToStart || kind.exitCode() == 77 || kind.exitCode() == 1)
            QSKIP("no small disk of one's own here: unshare -Urm or mount is not allowed");
        QCOMPARE(QString::fromUtf8(kind.readAllStandardOutput()),
                 u"Der Katalog ließ sich nicht sichern: kein Platz mehr auf dem Datenträger\n0 1\n"_s);
    }

    // An earlier version's catalogue is kept as it was before it gets new tables.
    void vorDerUmstellung()
    {
        {
            Datenbank db(m_pfad);
            eintragen(db, u"alt"_s);
            db.ausfuehren(u"DROP TABLE taten; DROP TABLE nachgeprueft"_s);
        }
        QVERIFY(Sicherungen::alle(m_pfad).isEmpty());
        const QString alter = QStringLiteral("SELECT 1 FROM sqlite_master WHERE name='taten'");
        QVERIFY(!Datenbank(m_pfad).abfragen(alter).isEmpty());
        QCOMPARE(Sicherungen::alle(m_pfad).size(), 1);
        QVERIFY(Datenbank(kopie(0), false).abfragen(u"SELECT 1 FROM texte WHERE text='alt'"_s).size() == 1);
        {
            const Datenbank nochEinmal(m_pfad);
        }
        QCOMPARE(Sicherungen::alle(m_pfad).size(), 1);
    }

    void ohneSicherungKeineUmstellung()
    {
        {
            Datenbank db(m_pfad);
            db.ausfuehren(u"DROP TABLE taten"_s);
        }
        schreiben(Sicherungen::ordner(m_pfad), "im Weg");
        const Datenbank db(m_pfad);
        QVERIFY(db.zugang() == Zugang::Ungesichert);
        QVERIFY(Katalog::nurLesenSatz(db).contains(u"frühere"_s));
    }

    void beschaedigtWirdNurGelesen_data()
    {
        QTest::addColumn<QString>("art");
        for (const auto &art : {u"gekippt"_s, u"genullt"_s, u"abgeschnitten"_s, u"fremde Seite"_s})
            QTest::newRow(qPrintable(art)) << art;
    }
    void beschaedigtWirdNurGelesen()
    {
        QFETCH(QString, art);
        {
            Datenbank db(m_pfad);
            db.ausfuehren(u"BEGIN"_s);
            for (int i = 0; i < 400; ++i)
                QCOMPARE(db.ausfuehren(u"INSERT INTO dokumente (pfad, status, sha256) VALUES (?,'bereit',?)"_s,
                                       {u"/scans/%1.pdf"_s.arg(i), QString(64, QChar(u'a' + i % 6))}),
                         0);
            db.ausfuehren(u"COMMIT"_s);
        }
        QByteArray bytes = lesen(m_pfad);
        const qsizetype stelle = bytes.lastIndexOf("/scans/200.pdf") / 4096 * 4096;
        if (art == u"gekippt"_s)
            bytes[stelle + 3] = char(bytes.at(stelle + 3) ^ 0x40); // more cells than there is room for
        else if (art == u"genullt"_s)
            bytes.replace(stelle, 4096, QByteArray(4096, 0));
        else if (art == u"abgeschnitten"_s)
            bytes.chop(4096);
        else
            bytes.replace(stelle, 4096, bytes.sliced(4096, 4096));
        schreiben(m_pfad, bytes);

        const auto db = Katalog::oeffnen(m_pfad, Katalog::Vorpruefung::Immer);
        QVERIFY(Katalog::zugang(*db) == Zugang::Beschaedigt);
        QVERIFY_EXCEPTION_THROWN(db->schreiben(u"UPDATE dokumente SET status='neu' WHERE id=1"_s), Katalogfehler);
        QVERIFY(Katalog::schreibmangel(*db).contains(u"beschädigt"_s));
        QVERIFY(db->gibtEs(u"SELECT 1 FROM dokumente WHERE id=1"_s, {}));
        QCOMPARE(lesen(m_pfad), bytes);
        QVERIFY(Datenbank(m_pfad).zugang() == Zugang::Beschaedigt); // remembered without looking again
    }

    // Found only by reading: from then on nothing is written.
    void beimLesenBemerkt()
    {
        {
            Datenbank db(m_pfad);
            db.ausfuehren(u"BEGIN"_s);
            for (int i = 0; i < 400; ++i)
                eintragen(db, QString(500, QChar(u'a' + i % 20)));
            db.ausfuehren(u"COMMIT"_s);
        }
        QByteArray bytes = lesen(m_pfad);
        bytes.replace(bytes.size() - 8192, 4096, QByteArray(4096, '\xff'));
        schreiben(m_pfad, bytes);
        Datenbank db(m_pfad);
        QVERIFY(db.zugang() == Zugang::Schreiben);
        QVERIFY_EXCEPTION_THROWN(Q_UNUSED(db.lesen(u"SELECT text FROM texte"_s)), Katalogfehler);
        QVERIFY(db.zugang() == Zugang::Beschaedigt);
        QVERIFY_EXCEPTION_THROWN(db.schreiben(u"DELETE FROM namen"_s), Katalogfehler);
    }

    void derTauschWirdBeendet_data()
    {
        QTest::addColumn<bool>("journal");
        QTest::addColumn<bool>("alterDa");
        QTest::newRow("before the first step") << true << true;
        QTest::newRow("journal laid aside") << false << true;
        QTest::newRow("former one laid aside") << false << false;
        QTest::newRow("of the former one only its journal is left") << true << false;
    }
    void derTauschWirdBeendet()
    {
        QFETCH(bool, journal);
        QFETCH(bool, alterDa);
        for (const QString &wort : {u"alt"_s, u"neu"_s}) {
            Datenbank db(wort == u"neu" ? Katalogtausch::entstehender(m_pfad) : m_pfad);
            eintragen(db, wort);
        }
        QVERIFY(QFile::rename(Katalogtausch::entstehender(m_pfad), m_pfad + u".neu"_s));
        if (journal)
            schreiben(m_pfad + u"-wal"_s, "Journal des alten");
        if (!alterDa)
            QVERIFY(QFile::rename(m_pfad, m_ordner->filePath(u"k beiseite.db"_s)));
        const auto db = Katalog::oeffnen(m_pfad);
        QCOMPARE(db->zahl(u"SELECT COUNT(*) n FROM texte WHERE text='neu'"_s), 1);
        const QStringList beiseite = dateien().filter(QRegularExpression(u"beiseite.*\\.db$"_s));
        QCOMPARE(beiseite.size(), 1);
        QCOMPARE(dateien().filter(u"-wal"_s).filter(u"beiseite"_s).size(), journal ? 1 : 0);
    }

    // On a full disk the journal cannot be written into the file when it is closed.
    void einJournalGehtNichtVerloren()
    {
        for (const QString &wort : {u"alt"_s, u"neu"_s}) {
            Datenbank db(wort == u"neu" ? Katalogtausch::entstehender(m_pfad) : m_pfad);
            eintragen(db, wort);
        }
        schreiben(Katalogtausch::entstehender(m_pfad) + u"-wal"_s, "was noch fehlt");
        QVERIFY_EXCEPTION_THROWN(Katalogtausch::vollziehen(m_pfad), Fehler);
        Katalogtausch::verwerfen(m_pfad);
        QCOMPARE(Katalog::oeffnen(m_pfad)->zahl(u"SELECT COUNT(*) n FROM texte WHERE text='alt'"_s), 1);
        QCOMPARE(dateien().filter(u"beiseite"_s), QStringList());
    }

    // One that is cut off to nothing is a new one for SQLite; the user is told.
    void derNeuanfangWirdGesagt()
    {
        QVERIFY(Katalog::neuanfangSatz(*Katalog::oeffnen(m_pfad)).isEmpty()); // the first of all
        QVERIFY(Sicherungen::anlegen(m_pfad));
        QVERIFY(Katalog::neuanfangSatz(*Katalog::oeffnen(m_pfad)).isEmpty());
        schreiben(m_pfad, {});
        QVERIFY(!Katalog::neuanfangSatz(*Katalog::oeffnen(m_pfad)).isEmpty());
        QVERIFY(Katalog::neuanfangSatz(*Katalog::oeffnen(m_pfad)).isEmpty());
    }

    void anderswoOffen()
    {
        {
            const Datenbank db(m_pfad);
        }
        QVERIFY(!Katalogpruefung::istAnderswoOffen(m_pfad));
        QProcess kind;
        kind.start(QCoreApplication::applicationFilePath(), {u"--offen"_s, m_pfad});
        QVERIFY(kind.waitForReadyRead(30000));
        QVERIFY(Katalogpruefung::istAnderswoOffen(m_pfad));
        {
            const Datenbank neuer(Katalogtausch::entstehender(m_pfad));
        }
        QVERIFY_EXCEPTION_THROWN(Katalogtausch::vollziehen(m_pfad), Fehler);
        QVERIFY(!Katalogtausch::istImGange(m_pfad));
        kind.closeWriteChannel();
        QVERIFY(kind.waitForFinished(30000));
        QVERIFY(!Katalogpruefung::istAnderswoOffen(m_pfad));
    }
};

int main(int argc, char **argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--klein") == 0)
        return aufKleinerPlatte(QString::fromUtf8(argv[2]));
    if (argc == 3 && std::strcmp(argv[1], "--offen") == 0) {
        const Datenbank db(QString::fromUtf8(argv[2]));
        std::puts("offen");
        std::fflush(stdout);
        return std::getchar() == EOF ? 0 : 1;
    }
    QCoreApplication app(argc, argv);
    TestSicherungen test;
    return QTest::qExec(&test, argc, argv);
}
#include "test_sicherungen.moc"
