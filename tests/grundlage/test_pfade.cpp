#include "pfade.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;

namespace
{
const QByteArray nfcName = "Pr\xC3\xBC"
                           "fung \xC3\xA4.pdf";
const QByteArray nfdName = "Pru\xCC\x88"
                           "fung a\xCC\x88.pdf";
const QByteArray gemischterName = "Pru\xCC\x88"
                                  "fung \xC3\xA4.pdf";

/** As another user for a while, since root may read everything. */
class OhneVorrechte
{
public:
    OhneVorrechte() : m_vorher(::geteuid())
    {
        if (m_vorher == 0 && ::seteuid(65534) != 0)
            qFatal("seteuid");
    }
    ~OhneVorrechte()
    {
        if (::seteuid(m_vorher) != 0)
            qFatal("seteuid");
    }
    Q_DISABLE_COPY_MOVE(OhneVorrechte)

private:
    uid_t m_vorher;
};
} // namespace

class TestPfade : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;

    [[nodiscard]] QByteArray bytes(const QByteArray &name) const { return m_ordner->path().toUtf8() + '/' + name; }

    void dateiAnlegen(const QByteArray &name) const
    {
        const int griff = ::open(bytes(name).constData(), O_CREAT | O_EXCL | O_WRONLY, 0600);
        QVERIFY2(griff >= 0, name.constData());
        ::close(griff);
    }

    void ordnerAnlegen(const QByteArray &name) const { QCOMPARE(::mkdir(bytes(name).constData(), 0700), 0); }

private Q_SLOTS:
    void init() { m_ordner = std::make_unique<QTemporaryDir>(); }

    void derNameAufDerPlatte_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("zusammengesetzt") << nfcName;
        QTest::newRow("zerlegt") << nfdName;
        QTest::newRow("gemischt") << gemischterName;
        QTest::newRow("Zeilenumbruch und Anführungszeichen") << QByteArray("a\n\"b\" 'c'\\d.pdf");
        QTest::newRow("255 Bytes") << QByteArray("\xC3\xBC").repeated(127) + 'x';
        QTest::newRow("255 Bytes zerlegt") << QByteArray("u\xCC\x88").repeated(85);
    }

    void derNameAufDerPlatte()
    {
        QFETCH(QByteArray, name);
        dateiAnlegen(name);
        const QString gesucht = m_ordner->filePath(nameVonPlatte(name));
        QCOMPARE(gesucht, gesucht.normalized(QString::NormalizationForm_C));
        QCOMPARE(aufDerPlatte(gesucht), bytes(name));
        QVERIFY(istVorhanden(gesucht));
        QVERIFY(!istVorhanden(gesucht + u"x"_s));
        QVERIFY(!istOrdner(gesucht));
    }

    void jederOrdnerDesWegsBehaeltSeineSchreibweise()
    {
        ordnerAnlegen("Bu\xCC\x88ro");
        ordnerAnlegen("Bu\xCC\x88ro/Gru\xCC\x88n\xC3\xA4");
        dateiAnlegen("Bu\xCC\x88ro/Gru\xCC\x88n\xC3\xA4/x.pdf");
        QCOMPARE(aufDerPlatte(m_ordner->filePath(u"Büro/Grünä/x.pdf"_s)),
                 bytes("Bu\xCC\x88ro/Gru\xCC\x88n\xC3\xA4/x.pdf"));
        QCOMPARE(plattenPfad(m_ordner->filePath(u"Büro/Grünä/neu/Tür.pdf"_s)),
                 bytes("Bu\xCC\x88ro/Gru\xCC\x88n\xC3\xA4/neu/T\xC3\xBCr.pdf"));
        QCOMPARE(aufDerPlatte(m_ordner->filePath(u"Büro/Grünä/neu/Tür.pdf"_s)), QByteArray());
    }

    void beideSchreibweisenNebeneinander()
    {
        dateiAnlegen(nfdName);
        dateiAnlegen(nfcName);
        QCOMPARE(aufDerPlatte(m_ordner->filePath(QString::fromUtf8(nfcName))), bytes(nfcName));
    }

    void wasKeinPfadIst()
    {
        QCOMPARE(aufDerPlatte({}), QByteArray());
        QCOMPARE(aufDerPlatte(u"etc"_s), QByteArray());
        QCOMPARE(aufDerPlatte(u"/"_s), "/");
        dateiAnlegen("datei");
        QVERIFY(!istVorhanden(m_ordner->filePath(u"datei/darin"_s)));
    }

    void verweise()
    {
        ordnerAnlegen("ziel");
        for (const auto &[nach, name] :
             {std::pair("ziel", "gut"), std::pair("fehlt", "tot"), std::pair("kreis", "kreis")})
            QCOMPARE(::symlink(nach, bytes(name).constData()), 0);
        QVERIFY(istOrdner(m_ordner->filePath(u"gut"_s)));
        for (const QString &name : {u"tot"_s, u"kreis"_s}) {
            QVERIFY(istVorhanden(m_ordner->filePath(name)));
            QVERIFY(!istOrdner(m_ordner->filePath(name)));
        }
    }

    void eintraegeEinesOrdners()
    {
        dateiAnlegen("datei");
        dateiAnlegen(".versteckt");
        dateiAnlegen("kein UTF-8 \xFF");
        ordnerAnlegen("x.pdf");
        QCOMPARE(::mkfifo(bytes("rohr").constData(), 0600), 0);
        QCOMPARE(::symlink("x.pdf", bytes("verweis").constData()), 0);
        QMap<QByteArray, Eintragsart> gesehen;
        QVERIFY(ordnerLesen(bytes(""), [&](int griff, const Ordnereintrag &e) {
            struct stat s = {};
            QCOMPARE(::fstatat(griff, e.name.constData(), &s, AT_SYMLINK_NOFOLLOW), 0);
            gesehen[e.name] = e.art;
        }));
        const QMap<QByteArray, Eintragsart> erwartet{
            {"datei", Eintragsart::Datei},  {".versteckt", Eintragsart::Datei}, {"kein UTF-8 \xFF", Eintragsart::Datei},
            {"x.pdf", Eintragsart::Ordner}, {"rohr", Eintragsart::Anderes},     {"verweis", Eintragsart::Verweis},
        };
        QCOMPARE(gesehen, erwartet);
    }

    void unterordnerOhneVersteckteUndVerweise()
    {
        for (const QByteArray &name : {QByteArray("b"), QByteArray("a"), QByteArray(".git"), QByteArray("kaputt\xFF"),
                                       QByteArray("T\xC3\xBCr"), QByteArray("Tu\xCC\x88r")})
            ordnerAnlegen(name);
        dateiAnlegen("datei");
        QCOMPARE(::symlink("a", bytes("c").constData()), 0);
        QCOMPARE(unterordner(m_ordner->path()), (QStringList{u"Tür"_s, u"a"_s, u"b"_s}));
    }

    void wasSichNichtLesenLaesst()
    {
        const auto besuch = [](int, const Ordnereintrag &) { QFAIL("visited"); };
        dateiAnlegen("datei");
        ordnerAnlegen("zu");
        ordnerAnlegen("zu/darin");
        QCOMPARE(::chmod(bytes("zu").constData(), 0), 0);
        {
            const OhneVorrechte niemand;
            QVERIFY(!ordnerLesen(bytes("zu"), besuch));
            QCOMPARE(unterordner(m_ordner->filePath(u"zu"_s)), QStringList{});
            QVERIFY(!istVorhanden(m_ordner->filePath(u"zu/darin"_s)));
        }
        QVERIFY(!ordnerLesen(bytes("datei"), besuch));
        QVERIFY(!ordnerLesen(bytes("fehlt"), besuch));
        QCOMPARE(::chmod(bytes("zu").constData(), 0700), 0);
    }

    void namenVonDerPlatte_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("zerlegt") << QByteArray("Tu\xCC\x88r") << u"Tür"_s;
        QTest::newRow("einzelnes Byte") << QByteArray("a\xFC") << QString();
        QTest::newRow("abgeschnitten") << QByteArray("a\xE2\x82") << QString();
        QTest::newRow("überlang") << QByteArray("\xC0\xAF") << QString();
        QTest::newRow("Ersatzzeichen selbst") << QByteArray("\xEF\xBF\xBD") << u"\uFFFD"_s;
    }

    void namenVonDerPlatte()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, erwartet);
        QCOMPARE(nameVonPlatte(name), erwartet);
        QCOMPARE(nameVonPlatte(name).isNull(), erwartet.isNull());
    }

    void teileEinesPfades_data()
    {
        QTest::addColumn<QString>("pfad");
        QTest::addColumn<QString>("ordner");
        QTest::addColumn<QString>("name");
        QTest::newRow("tief") << u"/a/b/c.pdf"_s << u"/a/b"_s << u"c.pdf"_s;
        QTest::newRow("in der Wurzel") << u"/c.pdf"_s << u"/"_s << u"c.pdf"_s;
    }

    void teileEinesPfades()
    {
        QFETCH(QString, pfad);
        QTEST(ordnerVon(pfad), "ordner");
        QTEST(nameVon(pfad), "name");
    }

    /** A dialog begins at what is there. */
    void vorhandenes()
    {
        const QTemporaryDir ordner;
        QCOMPARE(vorhandenerOrdner(ordner.path()), ordner.path());
        QCOMPARE(vorhandenerOrdner(ordner.filePath(u"weg/und/fort/"_s)), ordner.path());
        QCOMPARE(vorhandenerOrdner({}), QDir::homePath());
        QCOMPARE(vorhandenerOrdner(u"/gibt/es/nicht"_s), u"/"_s);
    }

    void kurzpfad_data()
    {
        QTest::addColumn<QString>("pfad");
        QTest::addColumn<QString>("kurz");
        const QString heim = QDir::homePath();
        QTest::newRow("Heim") << heim << u"~"_s;
        QTest::newRow("darunter") << heim + u"/Akten/a.pdf"_s << u"~/Akten/a.pdf"_s;
        QTest::newRow("daneben") << heim + u"-alt/a.pdf"_s << heim + u"-alt/a.pdf"_s;
        QTest::newRow("anderswo") << u"/srv"_s + heim << u"/srv"_s + heim;
        QTest::newRow("keiner") << QString() << QString();
    }
    void kurzpfad()
    {
        QFETCH(const QString, pfad);
        QTEST(quillmar::grundlage::kurzpfad(pfad), "kurz");
        QCOMPARE(langpfad(quillmar::grundlage::kurzpfad(pfad)), pfad);
    }
};

QTEST_GUILESS_MAIN(TestPfade)
#include "test_pfade.moc"
