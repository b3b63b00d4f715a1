#include "protokollbuch.h"
#include "werkbank.h"

#include <QDir>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
/** The system calls after which the disk is not what it was before, and those that guard them. */
const QString aenderungen = u"write,pwrite64,openat,close,renameat2,rename,link,linkat,unlink,unlinkat,mkdir,mkdirat,"
                            "ftruncate,fsync,fdatasync,fchmod,utimensat,flock"_s;

struct Lauf {
    int status = -1; ///< -1: killed
    QString meldungen;
};

Lauf treiber(const QStringList &vorspann, const Werkbank &bank, const QString &ordner, const QString &aktion)
{
    QStringList befehl = vorspann;
    befehl << QStringLiteral(QUILLMAR_TREIBER) << ordner << bank.profil().zielWurzel
           << (bank.profil().kopieren ? u"copy"_s : u"move"_s) << aktion;
    QProcess prozess;
    QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
    umgebung.insert(u"ASAN_OPTIONS"_s, u"detect_leaks=0"_s); // does not work under strace
    prozess.setProcessEnvironment(umgebung);
    prozess.start(befehl.takeFirst(), befehl);
    prozess.waitForFinished(120000);
    // strace ends itself with the signal of what it ran.
    return {.status = prozess.exitStatus() == QProcess::NormalExit ? prozess.exitCode() : -1,
            .meldungen = QString::fromUtf8(prozess.readAllStandardError())};
}

dev_t datentraeger(const QString &ordner)
{
    struct stat s = {};
    return ::stat(ordner.toUtf8().constData(), &s) == 0 ? s.st_dev : 0;
}

/** A system call and the how manyeth of its name in the driver's life it is. */
struct Punkt {
    QString aufruf;
    int nummer = 0;
};

/** The calls of a whole undisturbed run that come after the beginning of the action. */
QList<Punkt> punkte(const QByteArray &spur)
{
    QList<Punkt> liste;
    QHash<QString, int> gezaehlt;
    bool begonnen = false;
    for (const QByteArray &zeile : spur.split('\n')) {
        begonnen = begonnen || zeile.contains("\"/beginn\"");
        const qsizetype klammer = zeile.indexOf('(');
        const QString name = QString::fromLatin1(zeile.left(klammer)).section(u' ', -1);
        if (klammer <= 0 || name == u"access"_s || zeile.contains("resumed>"))
            continue;
        const int nummer = ++gezaehlt[name];
        if (begonnen)
            liste << Punkt{.aufruf = name, .nummer = nummer};
    }
    return liste;
}
} // namespace

/** Every system call of every movement is killed, and given the failures of a full or broken disk, once. */
class TestAbsturz : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void getoetet_data();
    void getoetet() { anJedemSystemaufruf(u"signal=KILL"_s); }
    void volleplatte_data() { getoetet_data(); }
    void volleplatte() { anJedemSystemaufruf(u"error=ENOSPC"_s); }
    void kaputteplatte_data() { getoetet_data(); }
    void kaputteplatte() { anJedemSystemaufruf(u"error=EIO"_s); }
    void ohneumbenennen_data();
    void ohneumbenennen()
    {
        anJedemSystemaufruf(u"signal=KILL"_s,
                            {u"-e"_s, u"inject=renameat2:error=EINVAL"_s, u"-e"_s, u"inject=link:error=EOPNOTSUPP"_s});
    }

private:
    void anJedemSystemaufruf(const QString &eingriff, const QStringList &stets = {});
    void vorbereiten(Werkbank &bank, const QString &aktion) const;
    void einmal(const QString &aktion, bool kopieren, bool anderer, const QStringList &eingriff, QList<Punkt> *stellen,
                int *status = nullptr) const;
    bool m_straceGeht = false;
};

void TestAbsturz::initTestCase()
{
    m_straceGeht = QProcess::execute(u"strace"_s, {u"-f"_s, u"-o"_s, u"/dev/null"_s, u"true"_s}) == 0;
}

/** Documents, and for the ways back some movements of an earlier session. */
void TestAbsturz::vorbereiten(Werkbank &bank, const QString &aktion) const
{
    bank.dokument(u"Scan 1.pdf"_s, QByteArray("eins").repeated(20000));
    bank.dokument(u"Scan 2.pdf"_s, QByteArray("zwei").repeated(20000));
    bank.dokument(u"Scan 3.pdf"_s, QByteArray("drei").repeated(20000), u"Rechnung"_s);
    if (aktion == u"rueckgaengig"_s || aktion == u"sitzung"_s) {
        bank.uebernehmen(2);
        bank.uebernehmen(3);
    }
}

void TestAbsturz::getoetet_data()
{
    QTest::addColumn<QString>("aktion");
    QTest::addColumn<bool>("kopieren");
    QTest::addColumn<bool>("anderer");
    QTest::newRow("Verschieben") << u"uebernehmen"_s << false << false;
    QTest::newRow("Verschieben über Datenträger") << u"uebernehmen"_s << false << true;
    QTest::newRow("Kopieren") << u"uebernehmen"_s << true << false;
    QTest::newRow("Aussortieren") << u"aussortieren"_s << false << false;
    QTest::newRow("Rückgängig") << u"rueckgaengig"_s << false << false;
    QTest::newRow("Rückgängig über Datenträger") << u"rueckgaengig"_s << false << true;
    QTest::newRow("Kopie rückgängig") << u"rueckgaengig"_s << true << false;
    QTest::newRow("Kopie rückgängig über Datenträger") << u"rueckgaengig"_s << true << true;
    QTest::newRow("Sitzung") << u"sitzung"_s << false << false;
    QTest::newRow("Sitzung über Datenträger") << u"sitzung"_s << false << true;
    QTest::newRow("Sitzung von Kopien") << u"sitzung"_s << true << false;
}

/** File systems that know neither renaming without replacing nor links take a name with an empty file. */
void TestAbsturz::ohneumbenennen_data()
{
    QTest::addColumn<QString>("aktion");
    QTest::addColumn<bool>("kopieren");
    QTest::addColumn<bool>("anderer");
    QTest::newRow("Verschieben") << u"uebernehmen"_s << false << false;
    QTest::newRow("Rückgängig") << u"rueckgaengig"_s << false << false;
    QTest::newRow("Kopie rückgängig") << u"rueckgaengig"_s << true << false;
    QTest::newRow("Kopie rückgängig über Datenträger") << u"rueckgaengig"_s << true << true;
}

/** @p stets are the faults of the file system itself, there in every run. */
void TestAbsturz::anJedemSystemaufruf(const QString &eingriff, const QStringList &stets)
{
    QFETCH(QString, aktion);
    QFETCH(bool, kopieren);
    QFETCH(bool, anderer);
    if (!m_straceGeht)
        QSKIP("strace is missing or may not trace here");
    if (anderer && datentraeger(u"/dev/shm"_s) == datentraeger(QDir::tempPath()))
        QSKIP("there is no second file system at /dev/shm");
    const bool toedlich = eingriff == u"signal=KILL"_s;
    QList<Punkt> stellen;
    einmal(aktion, kopieren, anderer, stets, &stellen);
    QVERIFY(stellen.size() > 10);
    for (const Punkt &punkt : std::as_const(stellen)) {
        if (stets.join(u' ').contains(u"inject="_s + punkt.aufruf + u':'))
            continue; // does nothing there
        // On a busy machine newer kernels swallow a kill now and then: that run counts as one without a fault.
        const QStringList alle =
            stets + QStringList{u"-e"_s, u"inject=%1:%2:when=%3"_s.arg(punkt.aufruf, eingriff).arg(punkt.nummer)};
        int status = 0;
        for (int versuch = 0; versuch < 5 && (versuch == 0 || (toedlich && status != -1)); ++versuch) {
            einmal(aktion, kopieren, anderer, alle, nullptr, &status);
            if (QTest::currentTestFailed())
                return;
        }
        QVERIFY2(!toedlich || status == -1, qPrintable(alle.join(u' ')));
    }
    qInfo("%lld injection points", qlonglong(stellen.size()));
}

/** One run of the driver on a fresh bench with the fault @p eingriff, and the look at what is left. */
void TestAbsturz::einmal(const QString &aktion, bool kopieren, bool anderer, const QStringList &eingriff,
                         QList<Punkt> *stellen, int *status) const
{
    // In memory if possible: a kill needs no flushes, and they would take most of the time.
    const bool imSpeicher = datentraeger(u"/dev/shm"_s) != 0;
    QTemporaryDir ordner(imSpeicher ? u"/dev/shm/quillmar-XXXXXX"_s : QDir::tempPath() + u"/quillmar-XXXXXX"_s);
    QTemporaryDir fern;
    const QString spur = ordner.filePath(u"spur"_s);
    qputenv("XDG_DATA_HOME", ordner.filePath(u"daten"_s).toUtf8()); // a trash of its own, which stays small
    auto bank = std::make_unique<Werkbank>(ordner.path(), kopieren, anderer ? fern.path() : QString());
    vorbereiten(*bank, aktion);
    const auto vorher = bank->bestand();
    // Stopping at these calls alone is faster, but newer kernels then swallow the signal.
    const bool toedlich = eingriff.join(u' ').contains(u"signal=KILL"_s);
    const Lauf lauf =
        treiber(QStringList{u"strace"_s, u"-f"_s, u"-o"_s, spur, u"-e"_s, u"trace=%1,access"_s.arg(aenderungen)} +
                    (toedlich ? QStringList() : QStringList{u"--seccomp-bpf"_s}) + eingriff,
                *bank, ordner.path(), aktion);
    if (!toedlich)
        QVERIFY2(lauf.status != -1, "ended by a signal that nobody sent");
    if (stellen)
        *stellen = punkte(inhaltVon(spur));
    if (status)
        *status = lauf.status;
    bank = std::make_unique<Werkbank>(ordner.path(), kopieren, anderer ? fern.path() : QString());
    const auto nachher = bank->bestand();
    for (auto summe = vorher.begin(); summe != vorher.end(); ++summe)
        QVERIFY2(nachher.value(summe.key()) >= summe.value(), "a document is lost");
    const QByteArray lage = (u"%1 status %2 %3\n"_s.arg(eingriff.join(u' ')).arg(lauf.status).arg(lauf.meldungen) +
                             bank->widersprueche().join(u'\n'))
                                .toUtf8() +
                            '\n' + inhaltVon(spur).right(2500);
    if (!kopieren)
        QVERIFY2(nachher == vorher, lage.constData());
    QVERIFY2(bank->reste().isEmpty(), lage.constData());
    QStringList falsch = bank->widersprueche();
    if (lauf.status == 3) // told to the user: the movement stands in the catalogue alone
        falsch.removeIf([](const QString &zeile) { return zeile.contains("im Protokoll"_L1); });
    QVERIFY2(falsch.isEmpty(), lage.constData());
    if (aktion == u"uebernehmen"_s && bank->lesen(1).status == Status::Bereit)
        bank->uebernehmen(1);
    QVERIFY(!QFile::exists(bank->ziel(u"2024-03-05 Stadtwerke - Abschlag (2).pdf"_s)));
    QVERIFY(!QFile::exists(bank->ziel(u"2024-03-05 Stadtwerke Nord - Abschlag (2).pdf"_s)));
}

QTEST_GUILESS_MAIN(TestAbsturz)
#include "test_absturz.moc"
