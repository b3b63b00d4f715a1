#include "dateibewegung.h"
#include "papierkorb.h"
#include "pfade.h"
#include "plattenfehler.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;
using Dateibewegung::Art;

namespace
{
void schreiben(const QString &pfad, const QByteArray &inhalt)
{
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    datei.write(inhalt);
}

QByteArray lesen(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray("-");
}

void nichts(const Dateibewegung::Schritt &) {}

bool andererDatentraeger(const QString &a, const QString &b)
{
    struct stat sa = {};
    struct stat sb = {};
    return ::stat(a.toUtf8().constData(), &sa) == 0 && ::stat(b.toUtf8().constData(), &sb) == 0 &&
           sa.st_dev != sb.st_dev;
}

QStringList namenIn(const QString &ordner) { return QDir(ordner).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
} // namespace

class TestDateibewegung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void bewegen_data();
    void bewegen();
    void nummeriert_data();
    void nummeriert();
    void fuenfzigAufEinenNamen_data();
    void fuenfzigAufEinenNamen();
    void nameGenommenNachDerAnkuendigung();
    void liegtSchonRichtig();
    void falscheQuelle();
    void ohneAnkuendigungKeineBewegung();
    void veraendertWaehrendDesKopierens();
    void ersetztNachDemKopieren();
    void ordner();
    void papierkorb();
    void fremdeZeiten_data();
    void fremdeZeiten();

private:
    QTemporaryDir m_hier;
    QTemporaryDir m_dort{u"/dev/shm/quillmar-XXXXXX"_s};
    QString m_von;
    QString m_nach;
};

void TestDateibewegung::init()
{
    static int nummer = 0;
    m_von = m_hier.filePath(u"von%1"_s.arg(++nummer));
    m_nach = m_hier.filePath(u"nach%1"_s.arg(nummer));
    QVERIFY(QDir().mkpath(m_von) && QDir().mkpath(m_nach));
}

void TestDateibewegung::bewegen_data()
{
    QTest::addColumn<bool>("kopieren");
    QTest::addColumn<bool>("anderswo");
    QTest::newRow("Verschieben") << false << false;
    QTest::newRow("Kopieren") << true << false;
    QTest::newRow("Verschieben, anderer Datenträger") << false << true;
    QTest::newRow("Kopieren, anderer Datenträger") << true << true;
}

/** Bytes, time and mode arrive; nothing is overwritten; NFC in the order finds NFD on the disk. */
void TestDateibewegung::bewegen()
{
    QFETCH(bool, kopieren);
    QFETCH(bool, anderswo);
    if (anderswo && !andererDatentraeger(m_dort.path(), m_hier.path()))
        QSKIP("there is no second file system at /dev/shm");
    const QString ziel = anderswo ? m_dort.filePath(kopieren ? u"k"_s : u"v"_s) : m_nach;
    QDir().mkpath(ziel);
    const QByteArray inhalt = QByteArray("Zeile\n").repeated(300000);
    const QString nfd = m_von + u"/Bu\u0308ro \"1\"\n.PDF"_s;
    schreiben(nfd, inhalt);
    QVERIFY(::chmod(nfd.toUtf8().constData(), 0640) == 0);
    const struct timespec zeiten[2] = {{1700000000, 0}, {1600000000, 123456789}};
    QVERIFY(::utimensat(AT_FDCWD, nfd.toUtf8().constData(), zeiten, 0) == 0);
    schreiben(ziel + u"/Büro.pdf"_s, "schon da");
    // A tag of the file manager, where both file systems know such things.
    const bool merkmale = ::setxattr(nfd.toUtf8().constData(), "user.xdg.tags", "Steuer", 6, 0) == 0 &&
                          ::setxattr((ziel + u"/Büro.pdf"_s).toUtf8().constData(), "user.probe", "1", 1, 0) == 0;

    const QString ergebnis = Dateibewegung::ausfuehren({.von = m_von + u"/Büro \"1\"\n.PDF"_s,
                                                        .ordner = ziel,
                                                        .name = u"Büro.pdf"_s,
                                                        .art = kopieren ? Art::Kopieren : Art::Verschieben},
                                                       nichts);
    QCOMPARE(ergebnis, ziel + u"/Büro (2).pdf"_s);
    QCOMPARE(lesen(ziel + u"/Büro.pdf"_s), QByteArray("schon da"));
    QVERIFY(lesen(ergebnis) == inhalt);
    QCOMPARE(QFile::exists(nfd), kopieren);
    char wert[6] = {};
    if (merkmale)
        QCOMPARE(QByteArray(wert, int(::getxattr(ergebnis.toUtf8().constData(), "user.xdg.tags", wert, sizeof wert))),
                 QByteArray("Steuer"));
    struct stat s = {};
    QVERIFY(::stat(ergebnis.toUtf8().constData(), &s) == 0);
    QCOMPARE(s.st_mode & 07777, 0640U);
    QCOMPARE(qint64(s.st_mtim.tv_sec), 1600000000);
    QCOMPARE(qint64(s.st_mtim.tv_nsec), 123456789);
    QCOMPARE(namenIn(ziel).size(), 2);
}

void TestDateibewegung::nummeriert_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("n");
    QTest::addColumn<QString>("erwartet");
    QTest::newRow("einfach") << u"Brief.pdf"_s << 2 << u"Brief (2).pdf"_s;
    QTest::newRow("ohne Endung") << u"Brief"_s << 3 << u"Brief (3)"_s;
    QTest::newRow("Punkt vorn") << u".pdf"_s << 2 << u".pdf (2)"_s;
    QTest::newRow("zu lang") << QString(251, u'a') + u".pdf"_s << 12 << QString(246, u'a') + u" (12).pdf"_s;
    QTest::newRow("am Zeichen") << QString(125, u'ä') + u".pdf"_s << 2 << QString(123, u'ä') + u" (2).pdf"_s;
    QTest::newRow("passt gerade") << QString(251, u'x') + u".pdf"_s << 1 << QString(251, u'x') + u".pdf"_s;
    QTest::newRow("kein halbes Zeichen") << QString(248, u'x') + u"👨‍👩‍👧.pdf"_s << 1
                                         << QString(248, u'x') + u".pdf"_s;
    QTest::newRow("kein Leerzeichen am Schnitt")
        << QString(250, u'x') + u" yz.pdf"_s << 1 << QString(250, u'x') + u".pdf"_s;
}

void TestDateibewegung::nummeriert()
{
    QFETCH(QString, name);
    QFETCH(int, n);
    QFETCH(QString, erwartet);
    QCOMPARE(Dateibewegung::nummeriert(name, n), erwartet);
}

void TestDateibewegung::fuenfzigAufEinenNamen_data() { bewegen_data(); }

void TestDateibewegung::fuenfzigAufEinenNamen()
{
    QFETCH(bool, kopieren);
    QFETCH(bool, anderswo);
    if (anderswo && !andererDatentraeger(m_dort.path(), m_hier.path()))
        QSKIP("there is no second file system at /dev/shm");
    const QString ziel = anderswo ? m_dort.filePath(kopieren ? u"viele-k"_s : u"viele-v"_s) : m_nach;
    QDir().mkpath(ziel);
    constexpr int anzahl = 50;
    for (int i = 0; i < anzahl; ++i)
        schreiben(m_von + u'/' + QString::number(i), QByteArray::number(i));
    {
        std::vector<std::jthread> faeden;
        faeden.reserve(anzahl);
        for (int i = 0; i < anzahl; ++i)
            faeden.emplace_back([&, i] {
                Q_UNUSED(Dateibewegung::ausfuehren({.von = m_von + u'/' + QString::number(i),
                                                    .ordner = ziel,
                                                    .name = u"Brief.pdf"_s,
                                                    .art = kopieren ? Art::Kopieren : Art::Verschieben},
                                                   nichts));
            });
    }
    const QStringList namen = namenIn(ziel);
    QCOMPARE(namen.size(), anzahl);
    QSet<QByteArray> inhalte;
    for (const QString &name : namen)
        inhalte.insert(lesen(ziel + u'/' + name));
    QCOMPARE(inhalte.size(), anzahl);
    QVERIFY(namen.contains(u"Brief (50).pdf"_s));
}

void TestDateibewegung::nameGenommenNachDerAnkuendigung()
{
    schreiben(m_von + u"/a"_s, "meins");
    QStringList angekuendigt;
    const auto dazwischen = [&](const Dateibewegung::Schritt &schritt) {
        if (angekuendigt.isEmpty())
            schreiben(schritt.nach, "fremd");
        angekuendigt << nameVon(schritt.nach);
    };
    const QString nach =
        Dateibewegung::ausfuehren({.von = m_von + u"/a"_s, .ordner = m_nach, .name = u"B.pdf"_s}, dazwischen);
    QCOMPARE(nach, m_nach + u"/B (2).pdf"_s);
    QCOMPARE(lesen(m_nach + u"/B.pdf"_s), QByteArray("fremd"));
    QCOMPARE(angekuendigt, (QStringList{u"B.pdf"_s, u"B (2).pdf"_s}));
    schreiben(m_von + u"/a"_s, "noch eins");
    QVERIFY_EXCEPTION_THROWN(
        Dateibewegung::ausfuehren(
            {.von = m_von + u"/a"_s, .ordner = m_nach, .name = u"B.pdf"_s, .nameArt = Dateibewegung::Name::Genau},
            nichts),
        Plattenfehler);
    QCOMPARE(lesen(m_von + u"/a"_s), QByteArray("noch eins"));
}

void TestDateibewegung::liegtSchonRichtig()
{
    const QString richtig = m_nach + u"/Brief.pdf"_s;
    const QString numeriert = m_nach + u"/Brief (2).pdf"_s;
    schreiben(richtig, "eins");
    schreiben(numeriert, "zwei");
    for (const Art art : {Art::Verschieben, Art::Kopieren}) {
        QCOMPARE(
            Dateibewegung::ausfuehren({.von = richtig, .ordner = m_nach, .name = u"Brief.pdf"_s, .art = art}, nichts),
            richtig);
        QCOMPARE(
            Dateibewegung::ausfuehren({.von = numeriert, .ordner = m_nach, .name = u"Brief.pdf"_s, .art = art}, nichts),
            numeriert);
    }
    QCOMPARE(namenIn(m_nach), (QStringList{u"Brief (2).pdf"_s, u"Brief.pdf"_s}));
}

void TestDateibewegung::falscheQuelle()
{
    schreiben(m_von + u"/echt"_s, "echt");
    QVERIFY(::symlink("echt", (m_von + u"/verweis"_s).toUtf8().constData()) == 0);
    QVERIFY(::mkfifo((m_von + u"/leitung"_s).toUtf8().constData(), 0600) == 0);
    for (const QString &name : {u"weg"_s, u"verweis"_s, u"leitung"_s, u""_s}) {
        for (const Art art : {Art::Verschieben, Art::Kopieren})
            QVERIFY_EXCEPTION_THROWN(
                Dateibewegung::ausfuehren({.von = m_von + u'/' + name, .ordner = m_nach, .name = u"x"_s, .art = art},
                                          nichts),
                Plattenfehler);
    }
    QCOMPARE(namenIn(m_nach), QStringList());
}

void TestDateibewegung::ohneAnkuendigungKeineBewegung()
{
    schreiben(m_von + u"/a"_s, "a");
    for (const Art art : {Art::Verschieben, Art::Kopieren})
        QVERIFY_EXCEPTION_THROWN(
            Dateibewegung::ausfuehren({.von = m_von + u"/a"_s, .ordner = m_nach, .name = u"x"_s, .art = art},
                                      [](const Dateibewegung::Schritt &) { throw Plattenfehler(u"voll"_s); }),
            Plattenfehler);
    QCOMPARE(namenIn(m_von), QStringList{u"a"_s});
    QCOMPARE(namenIn(m_nach), QStringList());
}

void TestDateibewegung::veraendertWaehrendDesKopierens()
{
    schreiben(m_von + u"/a"_s, "vorher");
    int aufruf = 0;
    // The second announcement comes when the copy is made and about to get its name.
    const auto aendern = [&](const Dateibewegung::Schritt &) {
        if (++aufruf == 1)
            schreiben(m_von + u"/a"_s, "nachher, und zwar länger");
    };
    QVERIFY_EXCEPTION_THROWN(
        Dateibewegung::ausfuehren({.von = m_von + u"/a"_s, .ordner = m_nach, .name = u"x"_s, .art = Art::Kopieren},
                                  aendern),
        Plattenfehler);
    QCOMPARE(lesen(m_von + u"/a"_s), QByteArray("nachher, und zwar länger"));
    QCOMPARE(namenIn(m_nach), QStringList());
}

/** What another program has put in the source's place meanwhile is not removed, and the copy of the document stays. */
void TestDateibewegung::ersetztNachDemKopieren()
{
    if (!andererDatentraeger(m_dort.path(), m_hier.path()))
        QSKIP("there is no second file system at /dev/shm");
    schreiben(m_von + u"/a"_s, "Brief");
    int aufruf = 0;
    const auto ersetzen = [&](const Dateibewegung::Schritt &) {
        if (++aufruf != 2)
            return;
        QFile::remove(m_von + u"/a"_s);
        schreiben(m_von + u"/a"_s, "ein anderer Brief");
    };
    QCOMPARE(Dateibewegung::ausfuehren({.von = m_von + u"/a"_s, .ordner = m_dort.path(), .name = u"e"_s}, ersetzen),
             m_dort.filePath(u"e"_s));
    QCOMPARE(lesen(m_dort.filePath(u"e"_s)), QByteArray("Brief"));
    QCOMPARE(lesen(m_von + u"/a"_s), QByteArray("ein anderer Brief"));
}

void TestDateibewegung::ordner()
{
    QVERIFY(QDir().mkpath(m_nach + u"/Bu\u0308ro"_s));
    Dateibewegung::ordnerAnlegen(m_nach + u"/Büro/2024/Strom"_s, m_nach);
    QVERIFY(QFile::exists(m_nach + u"/Bu\u0308ro/2024/Strom"_s));
    QVERIFY(!QFile::exists(m_nach + u"/Büro"_s));
    const QString weg = m_hier.filePath(u"nicht/eingehaengt"_s);
    QVERIFY_EXCEPTION_THROWN(Dateibewegung::ordnerAnlegen(weg + u"/a"_s, weg), Plattenfehler);
    QVERIFY(!QFile::exists(weg));
    schreiben(m_nach + u"/Datei"_s, "x");
    QVERIFY_EXCEPTION_THROWN(Dateibewegung::ordnerAnlegen(m_nach + u"/Datei/a"_s, m_nach), Plattenfehler);
}

void TestDateibewegung::papierkorb()
{
    const QByteArray daten = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", m_hier.filePath(u"frisch"_s).toUtf8());
    schreiben(m_von + u"/Kopie.pdf"_s, "Kopie");
    Papierkorb::hineinlegen(m_von + u"/Kopie.pdf"_s, nichts);
    QCOMPARE(lesen(m_hier.filePath(u"frisch/Trash/files/Kopie.pdf"_s)), QByteArray("Kopie"));
    QVERIFY(!QFile::exists(m_von + u"/Kopie.pdf"_s));
    QVERIFY(lesen(m_hier.filePath(u"frisch/Trash/info/Kopie.pdf.trashinfo"_s))
                .startsWith("[Trash Info]\nPath=" + m_von.toUtf8() + "/Kopie.pdf\nDeletionDate=20"));
    schreiben(m_von + u"/Kopie.pdf"_s, "zweite");
    Papierkorb::hineinlegen(m_von + u"/Kopie.pdf"_s, nichts);
    QCOMPARE(lesen(m_hier.filePath(u"frisch/Trash/files/Kopie (2).pdf"_s)), QByteArray("zweite"));
    const QString lang = m_von + u'/' + QString(251, u'l') + u".pdf"_s;
    schreiben(lang, "lang");
    Papierkorb::hineinlegen(lang, nichts);
    QVERIFY(!QFile::exists(lang));
    QCOMPARE(namenIn(m_hier.filePath(u"frisch/Trash/files"_s)).size(), 3);
    QCOMPARE(namenIn(m_hier.filePath(u"frisch/Trash/info"_s)).size(), 3);
    QVERIFY_EXCEPTION_THROWN(Papierkorb::hineinlegen(m_von + u"/Kopie.pdf"_s, nichts), Plattenfehler);
    qputenv("XDG_DATA_HOME", daten);
}

/** The clock was wrong, or the drive comes from elsewhere: such a file is moved and recognised like any other. */
void TestDateibewegung::fremdeZeiten_data()
{
    QTest::addColumn<QDate>("tag");
    for (const int jahr : {1, 1901, 1969, 1970, 2038, 2100, 2300, 9999})
        QTest::newRow(qPrintable(QString::number(jahr))) << QDate(jahr, 1, 1);
}

void TestDateibewegung::fremdeZeiten()
{
    QFETCH(const QDate, tag);
    schreiben(m_von + u"/a.pdf"_s, "alt");
    const struct timespec zeit = {tag.startOfDay(Qt::UTC).toSecsSinceEpoch(), 0};
    const struct timespec zeiten[2] = {zeit, zeit};
    QCOMPARE(::utimensat(AT_FDCWD, (m_von + u"/a.pdf"_s).toUtf8().constData(), zeiten, 0), 0);
    Dateibewegung::Schritt angesagt;
    const QString nach = Dateibewegung::ausfuehren({.von = m_von + u"/a.pdf"_s, .ordner = m_nach, .name = u"a.pdf"_s},
                                                   [&](const Dateibewegung::Schritt &s) { angesagt = s; });
    QVERIFY(Dateibewegung::istDieselbe(nach, angesagt.groesse, angesagt.zeit));
    QVERIFY(!Dateibewegung::istDieselbe(nach, angesagt.groesse, angesagt.zeit / 2 + 3000000000));
    using Grenze = std::numeric_limits<qint64>;
    const qint64 fern = angesagt.zeit > 0 ? Grenze::min() : Grenze::max(); // further than a number of this size tells
    QVERIFY(!Dateibewegung::istDieselbe(nach, angesagt.groesse, fern));
}

QTEST_GUILESS_MAIN(TestDateibewegung)
#include "test_dateibewegung.moc"
