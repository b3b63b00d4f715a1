#include "feindlichepdfs.h"
#include "kleinespdf.h"
#include "seitenwerk.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;

namespace
{
constexpr int geduld = 60'000; // under the sanitizers on a busy machine
constexpr QSize klein(300, 424);
constexpr std::chrono::milliseconds kurz(300);
constexpr std::chrono::milliseconds lang(60'000);

/** Processes that this one has started and that draw. */
QList<pid_t> maler()
{
    QList<pid_t> gefunden;
    for (const QString &name : QDir(u"/proc"_s).entryList(QDir::Dirs)) {
        QFile datei(u"/proc/"_s + name + u"/stat"_s);
        if (!datei.open(QIODevice::ReadOnly))
            continue;
        const QByteArray stand = datei.readAll();
        // Number, (name), state, parent; the dead that nobody has asked for yet do not count.
        const QList<QByteArray> felder = stand.mid(stand.lastIndexOf(')') + 2).split(' ');
        if (felder.value(1).toInt() == ::getpid() && felder.value(0) != "Z" && stand.contains("(quillmar-seiten"))
            gefunden << name.toInt();
    }
    return gefunden;
}

bool zeigtSchrift(const QImage &bild)
{
    int dunkle = 0;
    for (int y = 0; y < bild.height(); ++y) {
        for (int x = 0; x < bild.width(); ++x)
            dunkle += qGray(bild.pixel(x, y)) < 100;
    }
    return dunkle > 20 && qGray(bild.pixel(0, 0)) == 255;
}
} // namespace

class SeitenwerkTest : public QObject
{
    Q_OBJECT

private:
    QTemporaryDir m_ordner;
    std::unique_ptr<Seitenwerk> m_werk;
    QHash<quint64, Dokumentstand> m_geoeffnet;
    QHash<std::pair<quint64, int>, std::pair<QImage, Vorschaubefund>> m_gemalt;

    void anlegen(const Malgrenzen &grenzen)
    {
        m_werk = std::make_unique<Seitenwerk>(grenzen);
        connect(m_werk.get(), &Seitenwerk::geoeffnet, this,
                [this](quint64 kennung, const Dokumentstand &stand) { m_geoeffnet.insert(kennung, stand); });
        connect(m_werk.get(), &Seitenwerk::gemalt, this,
                [this](quint64 kennung, int seite, const QImage &bild, Vorschaubefund befund) {
                    m_gemalt.insert({kennung, seite}, {bild, befund});
                });
    }

    /** The program with so little memory that it is used up soon. */
    [[nodiscard]] QString mitWenigSpeicher() const
    {
        QFile datei(m_ordner.filePath(u"knapp"_s));
        if (!datei.open(QIODevice::WriteOnly) ||
            datei.write("#!/bin/sh\nulimit -v 400000\nexec " QUILLMAR_SEITEN_SCHLICHT "\n") <= 0 ||
            !datei.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner))
            qFatal("no program to test with");
        return datei.fileName();
    }

    quint64 oeffnen(const QByteArray &inhalt, Vorrang vorrang = Vorrang::Sofort)
    {
        static int nummer = 0;
        QFile datei(m_ordner.filePath(QString::number(++nummer) + u".pdf"_s));
        if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size())
            qFatal("no file to test with");
        datei.close();
        return m_werk->oeffnen(datei.fileName(), {}, vorrang);
    }

    [[nodiscard]] Vorschaubefund befund(quint64 kennung) const { return m_geoeffnet.value(kennung).befund; }

    [[nodiscard]] bool istGemalt(quint64 kennung, int seite = 0) const
    {
        return zeigtSchrift(m_gemalt.value({kennung, seite}).first);
    }

    /** @p inhalt opened by the program that is in use now. */
    void offenWerden(quint64 &kennung, const QByteArray &inhalt)
    {
        kennung = oeffnen(inhalt);
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(kennung), geduld);
        QCOMPARE(befund(kennung), Vorschaubefund::Offen);
    }

    /** Another document is drawn as if nothing had happened, and one that had been open before. */
    void esGehtWeiter(quint64 vorher)
    {
        const quint64 naechstes = oeffnen(Kleinespdf::brav());
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(naechstes), geduld);
        m_werk->malen(naechstes, 0, klein, Vorrang::Sofort);
        QTRY_VERIFY_WITH_TIMEOUT(istGemalt(naechstes), geduld);
        m_gemalt.clear();
        m_werk->malen(vorher, 1, klein, Vorrang::Nachbar);
        QTRY_VERIFY_WITH_TIMEOUT(istGemalt(vorher, 1), geduld);
    }

private Q_SLOTS:
    void cleanup()
    {
        m_werk.reset();
        m_geoeffnet.clear();
        m_gemalt.clear();
        QTRY_VERIFY_WITH_TIMEOUT(maler().isEmpty(), geduld);
    }

    void jedesScheitern_data()
    {
        QTest::addColumn<QByteArray>("inhalt");
        QTest::addColumn<Vorschaubefund>("beimOeffnen");
        QTest::addColumn<Vorschaubefund>("beimMalen");
        QTest::addColumn<std::chrono::milliseconds>("rechenzeit");
        const auto nichts = Vorschaubefund::Keines;
        QTest::newRow("Absturz beim Öffnen")
            << Kleinespdf::mitTrailer("/Prev -1") << Vorschaubefund::Abgestuerzt << nichts << lang;
        QTest::newRow("zu lange") << Kleinespdf::endloseStriche() << Vorschaubefund::Offen << Vorschaubefund::ZuLange
                                  << kurz;
        QTest::newRow("zu viel Speicher")
            << Kleinespdf::geschachtelteFormen() << Vorschaubefund::Offen << Vorschaubefund::ZuVielSpeicher << lang;
        QTest::newRow("kein PDF") << QByteArray("Kein PDF") << Vorschaubefund::Beschaedigt << nichts << lang;
    }

    // Whatever a document does, it is said of it alone.
    void jedesScheitern()
    {
        QFETCH(const QByteArray, inhalt);
        QFETCH(const Vorschaubefund, beimMalen);
        QFETCH(const std::chrono::milliseconds, rechenzeit);
        anlegen({.programm = mitWenigSpeicher(), .rechenzeit = rechenzeit});
        quint64 vorher = 0;
        offenWerden(vorher, Kleinespdf::brav(3));
        const quint64 boeses = oeffnen(inhalt);
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(boeses), geduld);
        QTEST(befund(boeses), "beimOeffnen");
        if (beimMalen != Vorschaubefund::Keines) {
            m_werk->malen(boeses, 0, klein, Vorrang::Sofort);
            QTRY_VERIFY_WITH_TIMEOUT(m_gemalt.contains({boeses, 0}), geduld);
            QCOMPARE(m_gemalt.value({boeses, 0}).second, beimMalen);
            QVERIFY(m_gemalt.value({boeses, 0}).first.isNull());
        }
        esGehtWeiter(vorher);
    }

    void vonAussenGestoert_data()
    {
        QTest::addColumn<int>("signal");
        QTest::addColumn<Vorschaubefund>("erwartet");
        QTest::newRow("getötet") << SIGKILL << Vorschaubefund::Abgestuerzt;
        QTest::newRow("angehalten") << SIGSTOP << Vorschaubefund::ZuLange;
    }

    void vonAussenGestoert()
    {
        QFETCH(const int, signal);
        anlegen({.rechenzeit = lang, .wanduhr = std::chrono::milliseconds(2000)});
        quint64 dauert = 0;
        offenWerden(dauert, Kleinespdf::endloseStriche());
        m_werk->malen(dauert, 0, klein, Vorrang::Sofort);
        QTRY_COMPARE(maler().size(), 1);
        ::kill(maler().first(), signal);
        QTRY_VERIFY_WITH_TIMEOUT(m_gemalt.contains({dauert, 0}), geduld);
        QTEST(m_gemalt.value({dauert, 0}).second, "erwartet");
        quint64 naechstes = 0;
        offenWerden(naechstes, Kleinespdf::brav(2));
        esGehtWeiter(naechstes);
    }

    // Ended while it has nothing to do, it is there again before anybody asks for anything.
    void unbeschaeftigtGetoetet()
    {
        anlegen({});
        quint64 vorher = 0;
        offenWerden(vorher, Kleinespdf::brav(2));
        const pid_t alter = maler().value(0);
        ::kill(alter, SIGKILL);
        QTRY_VERIFY_WITH_TIMEOUT(maler().value(0, alter) != alter, geduld);
        esGehtWeiter(vorher);
    }

    // What is on show does not wait for what is drawn ahead; that is not lost, and not told of as failed.
    void vorausGezeichnetesGibtNach()
    {
        anlegen({.rechenzeit = lang, .wanduhr = lang, .geduld = std::chrono::milliseconds(50)});
        quint64 dauert = 0;
        offenWerden(dauert, Kleinespdf::endloseStriche());
        quint64 gezeigtes = 0;
        offenWerden(gezeigtes, Kleinespdf::brav(3));
        m_werk->malen(dauert, 0, klein, Vorrang::Voraus);
        // Three times: the first time it is tried again, then it rests.
        for (int seite = 0; seite < 3; ++seite) {
            m_werk->malen(gezeigtes, seite, klein, Vorrang::Sofort);
            QTRY_VERIFY_WITH_TIMEOUT(istGemalt(gezeigtes, seite), geduld);
        }
        QVERIFY(!m_gemalt.contains({dauert, 0}));
        // Once it is on show itself, it is what others wait for.
        m_werk->vorziehen(dauert, 0, Vorrang::Sofort);
        QTRY_VERIFY_WITH_TIMEOUT(!maler().isEmpty(), geduld);
        m_werk->malen(gezeigtes, 0, klein, Vorrang::Nachbar);
        m_werk->abbestellen(dauert);
        m_gemalt.clear();
        QTRY_VERIFY_WITH_TIMEOUT(istGemalt(gezeigtes, 0), geduld);
        QVERIFY(!m_gemalt.contains({dauert, 0}));
    }

    // One that takes long to open, and was left meanwhile, does not keep the next one waiting.
    void verlassenesGibtNach()
    {
        anlegen({.rechenzeit = lang, .wanduhr = lang, .geduld = std::chrono::milliseconds(50)});
        const quint64 verlassenes = oeffnen(FeindlichePdfs::bytesVon("tiefer-baum"));
        const quint64 wartendes = oeffnen(FeindlichePdfs::bytesVon("tiefer-baum"));
        const quint64 voriges = oeffnen(Kleinespdf::brav());
        m_werk->abbestellen(verlassenes);
        m_werk->abbestellen(wartendes);
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(voriges), geduld);
        m_werk->vorziehen(verlassenes, -1, Vorrang::Sofort); // shown again, and left again while it is being opened
        m_werk->abbestellen(verlassenes);
        const quint64 gezeigtes = oeffnen(Kleinespdf::brav());
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(gezeigtes), geduld);
        m_werk->malen(gezeigtes, 0, klein, Vorrang::Sofort);
        QTRY_VERIFY_WITH_TIMEOUT(istGemalt(gezeigtes), geduld);
        QVERIFY(!m_geoeffnet.contains(verlassenes) && !m_geoeffnet.contains(wartendes));
    }

    void falscheProgramme_data()
    {
        QTest::addColumn<QString>("art");
        QTest::addColumn<Vorschaubefund>("beimOeffnen");
        const auto nichtDa = Vorschaubefund::NichtGestartet;
        const auto abgestuerzt = Vorschaubefund::Abgestuerzt;
        QTest::newRow("fehlt") << u"fehlt"_s << nichtDa;
        QTest::newRow("endet sofort") << u"endet"_s << nichtDa;
        QTest::newRow("meldet sich nicht") << u"stumm"_s << nichtDa;
        QTest::newRow("Unsinn") << u"unsinn"_s << abgestuerzt;
        QTest::newRow("zu lange Nachricht") << u"riesig"_s << abgestuerzt;
        QTest::newRow("von einem anderen Dokument") << u"fremdes"_s << abgestuerzt;
        QTest::newRow("zweimal bereit") << u"zweimal"_s << abgestuerzt;
        QTest::newRow("ungefragt gemalt") << u"malt"_s << abgestuerzt;
        QTest::newRow("andere Seite gemalt") << u"andereSeite"_s << Vorschaubefund::Offen;
    }

    // Nothing that the process says is trusted.
    void falscheProgramme()
    {
        QFETCH(const QString, art);
        const QString programm = m_ordner.filePath(art);
        if (art != u"fehlt")
            QVERIFY(QFile::link(QStringLiteral(QUILLMAR_FALSCHMALER), programm));
        anlegen({.programm = programm, .wanduhr = art == u"stumm" ? kurz : lang});
        const quint64 kennung = oeffnen(Kleinespdf::brav());
        QTRY_VERIFY_WITH_TIMEOUT(m_geoeffnet.contains(kennung), geduld);
        QTEST(befund(kennung), "beimOeffnen");
        if (befund(kennung) != Vorschaubefund::Offen)
            return;
        m_werk->malen(kennung, 0, klein, Vorrang::Sofort);
        QTRY_VERIFY_WITH_TIMEOUT(m_gemalt.contains({kennung, 0}), geduld);
        QCOMPARE(m_gemalt.value({kennung, 0}).second, Vorschaubefund::Abgestuerzt);
    }

    // Once the program is there, it is used, without a new start of the window.
    void nachtraeglichEingerichtet()
    {
        const QString programm = m_ordner.filePath(u"quillmar-seiten"_s);
        anlegen({.programm = programm});
        const quint64 erstes = oeffnen(Kleinespdf::brav());
        QTRY_COMPARE_WITH_TIMEOUT(befund(erstes), Vorschaubefund::NichtGestartet, geduld);
        QVERIFY(QFile::link(Malprozess::programm(), programm));
        quint64 zweites = 0;
        offenWerden(zweites, Kleinespdf::brav());
    }

    void vieleSeiten_data()
    {
        QTest::addColumn<int>("seiten");
        QTest::addColumn<int>("gezeigte");
        QTest::addColumn<bool>("weitere");
        QTest::newRow("alle gemessen") << 30 << 30 << false;
        QTest::newRow("mehr als gemessen werden") << 2500 << 2500 << false;
        QTest::newRow("mehr als gezeigt werden") << 30'000 << 20'000 << true;
    }

    void vieleSeiten()
    {
        QFETCH(const int, seiten);
        anlegen({});
        quint64 kennung = 0;
        offenWerden(kennung, Kleinespdf::brav(seiten));
        const Dokumentstand stand = m_geoeffnet.value(kennung);
        QTEST(int(stand.groessen.size()), "gezeigte");
        QTEST(stand.weitere, "weitere");
        QCOMPARE(stand.groessen.last(), QSizeF(595, 842));
        const int letzte = int(stand.groessen.size()) - 1;
        m_werk->malen(kennung, letzte, klein, Vorrang::Sofort);
        QTRY_VERIFY_WITH_TIMEOUT(istGemalt(kennung, letzte), geduld);
    }
};

QTEST_GUILESS_MAIN(SeitenwerkTest)
#include "test_seitenwerk.moc"
