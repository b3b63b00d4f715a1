#include "werkbank.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

/** Full and write-protected disks, made with mounts in a name space of their own, and programs side by side. */
class TestDatentraeger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gescheitert_data();
    void gescheitert();
    void sitzungMitSchreibgeschuetztemOrdner();
    void vieleProgrammeAufEinenNamen();
};

void TestDatentraeger::gescheitert_data()
{
    QTest::addColumn<QString>("vorbereitung"); // $1 target root, $2 source folder, $3 the whole bench
    QTest::addColumn<bool>("kopieren");
    QTest::addColumn<QString>("meldung");
    const QString voll = u"mount -t tmpfs -o size=1m tmpfs \"$1\"\n"
                         "dd if=/dev/zero of=\"$1/voll\" bs=1024 count=%1 2>/dev/null\n"_s;
    const QString keinPlatz = u"kein Platz mehr auf dem Datenträger"_s;
    QTest::newRow("voll am Anfang") << voll.arg(1024) << false << keinPlatz;
    QTest::newRow("voll in der Mitte") << voll.arg(824) << false << keinPlatz;
    QTest::newRow("voll in den letzten 16 KiB") << voll.arg(632) << false << keinPlatz;
    QTest::newRow("Kopie auf voller Platte") << voll.arg(824) << true << keinPlatz;
    QTest::newRow("kein Platz für den Ordner")
        << u"mount -t tmpfs -o nr_inodes=3 tmpfs \"$1\"\n"_s << false << keinPlatz;
    const QString nurLesen = u"mount --bind \"$%1\" \"$%1\"\nmount -o remount,ro,bind \"$%1\"\n"_s;
    QTest::newRow("Ziel schreibgeschützt") << nurLesen.arg(1) << false << u"schreibgeschützt"_s;
    QTest::newRow("Quelle schreibgeschützt") << nurLesen.arg(2) << false << u"schreibgeschützt"_s;
    QTest::newRow("nur die Katalogdatei schreibgeschützt")
        << u"k=\"$3/katalog.db\"\nmount --bind \"$k\" \"$k\"\nmount -o remount,ro,bind \"$k\"\n"_s << false
        << u"Der Katalog lässt sich nicht beschreiben"_s;
    QTest::newRow("Katalog schreibgeschützt")
        << nurLesen.arg(3) + u"mount -t tmpfs tmpfs \"$1\"\n"_s << false << u"schreibgeschützt"_s;
}

void TestDatentraeger::gescheitert()
{
    QFETCH(QString, vorbereitung);
    QFETCH(bool, kopieren);
    QFETCH(QString, meldung);
    if (QProcess::execute(u"unshare"_s, {u"-Urm"_s, u"true"_s}) != 0)
        QSKIP("user namespaces are not allowed here");
    QTemporaryDir ordner;
    Werkbank bank(ordner.path(), kopieren);
    bank.dokument(u"Scan.pdf"_s, QByteArray("x").repeated(400 * 1024));
    const auto vorher = bank.bestand();
    const QString skript = u"set -e\n"_s + vorbereitung +
                           u"status=0\n\"$4\" \"$3\" \"$1\" \"$5\" uebernehmen || status=$?\n"
                           "find \"$1\" -type f ! -name voll\nexit $status"_s;
    QProcess prozess;
    prozess.start(u"unshare"_s,
                  {u"-Urm"_s, u"sh"_s, u"-c"_s, skript, u"sh"_s, bank.profil().zielWurzel, bank.profil().quelle,
                   ordner.path(), QStringLiteral(QUILLMAR_TREIBER), kopieren ? u"copy"_s : u"move"_s});
    QVERIFY(prozess.waitForFinished(60000));
    const QString gesagt = QString::fromUtf8(prozess.readAllStandardError());
    QCOMPARE(prozess.exitCode(), 1);
    QCOMPARE(prozess.readAllStandardOutput(), QByteArray());
    QVERIFY2(gesagt.contains(meldung), qPrintable(gesagt));
    bank.oeffnen();
    QCOMPARE(bank.bestand(), vorher);
    QCOMPARE(bank.lesen(1).status, Status::Bereit);
    QCOMPARE(bank.lesen(1).angaben.gegenueber, u"Stadtwerke"_s);
    QCOMPARE(bank.widersprueche(), QStringList());
}

/** What lies in a read-only folder has a failure line and stays; the rest of the session is turned back. */
void TestDatentraeger::sitzungMitSchreibgeschuetztemOrdner()
{
    if (QProcess::execute(u"unshare"_s, {u"-Urm"_s, u"true"_s}) != 0)
        QSKIP("user namespaces are not allowed here");
    QTemporaryDir ordner;
    Werkbank bank(ordner.path());
    bank.uebernehmen(bank.dokument(u"1.pdf"_s, "eins"));
    const qint64 wasser = bank.dokument(u"2.pdf"_s, "zwei");
    bank.db()->ausfuehren(u"UPDATE dokumente SET rubrik='Wasser' WHERE id=?"_s, {wasser});
    bank.uebernehmen(wasser);
    bank.uebernehmen(bank.dokument(u"3.pdf"_s, "drei"));
    const auto vorher = bank.bestand();
    QProcess prozess;
    prozess.start(u"unshare"_s,
                  {u"-Urm"_s, u"sh"_s, u"-c"_s,
                   u"mount --bind \"$1\" \"$1\" && mount -o remount,ro,bind \"$1\" && shift && exec \"$@\""_s, u"sh"_s,
                   bank.profil().zielWurzel + u"/Privat/Stammdaten/Wasser"_s, QStringLiteral(QUILLMAR_TREIBER),
                   ordner.path(), bank.profil().zielWurzel, u"move"_s, u"sitzung"_s});
    QVERIFY(prozess.waitForFinished(60000));
    QCOMPARE(QString::fromUtf8(prozess.readAllStandardError()),
             u"Die Datei ließ sich nicht bewegen: der Datenträger ist schreibgeschützt\n"_s);
    QCOMPARE(prozess.exitCode(), 1);
    bank.oeffnen();
    QCOMPARE(bank.bestand(), vorher);
    QCOMPARE(bank.lesen(wasser).status, Status::Erledigt);
    QVERIFY(QFile::exists(bank.quelle(u"1.pdf"_s)) && QFile::exists(bank.quelle(u"3.pdf"_s)));
    QCOMPARE(bank.widersprueche(), QStringList());
}

void TestDatentraeger::vieleProgrammeAufEinenNamen()
{
    constexpr int anzahl = 12;
    QTemporaryDir ordner;
    const QString ziel = ordner.filePath(u"gemeinsam"_s);
    std::vector<std::unique_ptr<QProcess>> programme;
    for (int i = 0; i < anzahl; ++i) {
        const QString bank = ordner.filePath(QString::number(i));
        QDir().mkpath(bank);
        Werkbank(bank, false, ziel).dokument(u"Scan.pdf"_s, QByteArray::number(i));
        programme.push_back(std::make_unique<QProcess>());
    }
    for (int i = 0; i < anzahl; ++i)
        programme[size_t(i)]->start(QStringLiteral(QUILLMAR_TREIBER),
                                    {ordner.filePath(QString::number(i)), ziel, u"move"_s, u"uebernehmen"_s});
    for (const auto &programm : programme) {
        QVERIFY(programm->waitForFinished(60000));
        QCOMPARE(programm->exitCode(), 0);
    }
    const QDir strom(ziel + u"/Privat/Stammdaten/Strom"_s);
    QSet<QByteArray> inhalte;
    for (const QString &name : strom.entryList(QDir::Files | QDir::Hidden))
        inhalte.insert(inhaltVon(strom.filePath(name)));
    QCOMPARE(inhalte.size(), anzahl);
    QCOMPARE(strom.entryList(QDir::Files | QDir::Hidden).size(), anzahl);
}

QTEST_GUILESS_MAIN(TestDatentraeger)
#include "test_datentraeger.moc"
