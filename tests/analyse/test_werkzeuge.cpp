#include "abbruch.h"
#include "bilderordner.h"
#include "kindprozess.h"
#include "pdf.h"
#include "satz.h"
#include "scan.h"
#include "werkzeuge.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;
using vorfuehrung::Schreibweise;

namespace
{
void schreiben(const QString &pfad, const QByteArray &inhalt, bool ausfuehrbar = false)
{
    QFile datei(pfad);
    QVERIFY(QDir().mkpath(QFileInfo(pfad).path()));
    QVERIFY(datei.open(QIODevice::WriteOnly));
    datei.write(inhalt);
    if (ausfuehrbar)
        datei.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

template <typename Arbeit>
QString fehlerVon(Arbeit arbeit)
{
    try {
        arbeit();
    } catch (const Fehler &f) {
        return f.text();
    }
    return {};
}

/** A page whose lines stand in large, clear print. */
vorfuehrung::Seite seite(const QStringList &zeilen)
{
    return {.inhalt = vorfuehrung::seitenSatz(zeilen), .jpeg = {}, .bildgroesse = {}};
}

/** Of more than 120 characters. */
QStringList schreiben()
{
    return {u"Sehr geehrte Frau Muster,"_s,
            u"die Rechnung vom letzten Monat ist noch nicht bezahlt."_s,
            u"Bitte holen Sie das in den nächsten Tagen nach und"_s,
            u"melden Sie sich, wenn etwas nicht stimmt."_s,
            u"Wir danken Ihnen für Ihr Vertrauen und stehen bei"_s,
            u"allen Fragen zu dieser Rechnung gern bereit."_s,
            u"Mit freundlichen Grüßen aus unserer Buchhaltung"_s,
            u"Ihre Werkstatt am alten Bahnhof"_s};
}

/** As many visible characters, blanks apart. */
QStringList zeichen(int anzahl)
{
    QString zeile;
    for (int i = 0; i < anzahl; ++i)
        zeile += QString(i % 8 == 7 ? u"w "_s : u"w"_s);
    return {zeile};
}

QStringList bilderordner() { return QDir::temp().entryList({u"ablage-*"_s}, QDir::Dirs); }
} // namespace

class TestWerkzeuge : public QObject
{
    Q_OBJECT
    std::unique_ptr<QTemporaryDir> m_ordner;

    [[nodiscard]] QByteArray laufen(const QByteArray &skript, const Grenzen &grenzen = {.uhr = 30s},
                                    const std::stop_token &ende = {}) const
    {
        const QString pfad = m_ordner->filePath(u"skript"_s);
        schreiben(pfad, "#!/bin/sh\n" + skript, true);
        return Kindprozess::ausfuehren(
            {.pfad = pfad, .name = u"skript"_s, .argumente = {m_ordner->path()}, .umgebung = Werkzeuge::umgebung()},
            grenzen, ende);
    }

    /** The process that a script wrote down is gone. */
    [[nodiscard]] bool kindIstTot() const
    {
        QFile datei(m_ordner->filePath(u"kind"_s));
        return datei.open(QIODevice::ReadOnly) && ::kill(datei.readAll().trimmed().toInt(), 0) != 0;
    }

private Q_SLOTS:
    void init() { m_ordner = std::make_unique<QTemporaryDir>(); }

    /** Page images that a killed program left behind go; what is in use, fresh or something else stays. */
    void verwaisteBilder()
    {
        const QByteArray vorher = qgetenv("TMPDIR");
        qputenv("TMPDIR", m_ordner->path().toUtf8());
        const auto ordner = [&](const QString &name, bool alt, time_t sekunden = 1000) {
            const QString ort = m_ordner->filePath(name);
            QVERIFY(QDir().mkpath(ort));
            schreiben(ort + u"/s-1.png"_s, "x");
            const struct timespec zeiten[2] = {{sekunden, 0}, {sekunden, 0}};
            if (alt)
                QVERIFY(::utimensat(AT_FDCWD, ort.toUtf8().constData(), zeiten, 0) == 0);
        };
        const QString id = u"6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6"_s;
        ordner(u"ablage-"_s + id + u'1', true);
        ordner(u"ablage-"_s + id + u'2', true);
        ordner(u"ablage-"_s + id + u'3', false);
        ordner(u"ablage-"_s + id + u'4', true, ::time(nullptr) + 86400); // before the clock was set back
        ordner(u"ablage-steuer"_s, true);
        const int griff = ::open(m_ordner->filePath(u"ablage-"_s + id + u'2').toUtf8().constData(), O_RDONLY);
        QVERIFY(::flock(griff, LOCK_EX | LOCK_NB) == 0);
        Bilderordner::verwaisteEntfernen();
        ::close(griff);
        QCOMPARE(QDir(m_ordner->path()).entryList({u"ablage-*"_s}, QDir::Dirs, QDir::Name),
                 (QStringList{u"ablage-"_s + id + u'2', u"ablage-"_s + id + u'3', u"ablage-steuer"_s}));
        qputenv("TMPDIR", vorher);
    }

    void suchfolge()
    {
        const QString a = m_ordner->filePath(u"a"_s);
        const QString b = m_ordner->filePath(u"b"_s);
        const QString c = m_ordner->filePath(u"c"_s);
        QVERIFY(QDir().mkpath(a + u"/tesseract"_s)); // a folder is no tool
        schreiben(a + u"/pdftotext"_s, "");          // nor is what cannot be executed
        for (const QString &ort : {b, c}) {
            schreiben(ort + u"/pdftotext"_s, "", true);
            schreiben(ort + u"/tesseract"_s, "", true);
        }
        QCOMPARE(Werkzeuge::pfadIn({a, b, c}, u"pdftotext"_s), b + u"/pdftotext"_s);
        QCOMPARE(Werkzeuge::pfadIn({c, a, b}, u"tesseract"_s), c + u"/tesseract"_s);
        QVERIFY(!Werkzeuge::pfadIn({a}, u"pdftotext"_s));
        QVERIFY(!Werkzeuge::pfadIn({QString(), u"/fehlt"_s}, u"bin"_s));
        QCOMPARE(Werkzeuge::suchorte().join(u':'), u"/opt/homebrew/bin:/usr/local/bin:/usr/bin:/bin"_s);
        QVERIFY(Werkzeuge::vollstaendig() == Werkzeuge::fehlende().isEmpty());
        QCOMPARE(fehlerVon([] { Werkzeuge::starten(u"gibtesnicht"_s, {}, {.uhr = 1s}); }),
                 u"Hilfsprogramm gibtesnicht nicht gefunden"_s);
    }

    void ausgabeUndUmgebung()
    {
        QCOMPARE(laufen("echo laut >&2; cat; echo \"$1|$OMP_THREAD_LIMIT|$LC_ALL\""),
                 m_ordner->path().toUtf8() + "|1|C\n");
        QCOMPARE(laufen("head -c 1000000 /dev/zero").size(), 1000000);
    }

    void scheitern_data()
    {
        QTest::addColumn<QByteArray>("skript");
        QTest::addColumn<int>("grenze");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("Status") << QByteArray("echo halb; exit 3") << 30000 << u"skript ist gescheitert"_s;
        QTest::newRow("Signal") << QByteArray("kill -SEGV $$") << 30000 << u"skript ist gescheitert"_s;
        QTest::newRow("zu langsam") << QByteArray("sleep 100") << 200
                                    << u"skript hat zu lange gebraucht (Grenze: 1 Sekunde)"_s;
        QTest::newRow("stellt sich taub") << QByteArray("trap '' TERM INT HUP; while :; do sleep 1; done") << 1200
                                          << u"skript hat zu lange gebraucht (Grenze: 2 Sekunden)"_s;
        QTest::newRow("rechnet ohne Ende") << QByteArray("while :; do :; done") << 30000
                                           << u"skript hat zu viel Rechenzeit gebraucht (Grenze: 1 Sekunde)"_s;
        QTest::newRow("schwätzt") << QByteArray("exec cat /dev/zero") << 60000
                                  << u"skript hat zu viel ausgegeben (Grenze: 64 MB)"_s;
        QTest::newRow("klagt ohne Ende") << QByteArray("exec cat /dev/zero >&2") << 1000
                                         << u"skript hat zu lange gebraucht (Grenze: 1 Sekunde)"_s;
        QTest::newRow("hebt die Grenze nicht")
            << QByteArray("ulimit -v 3000000 || exit 4") << 30000 << u"skript ist gescheitert"_s;
        // As poppler and C++ programs die of it.
        QTest::newRow("will zu viel Speicher") << QByteArray("echo 'Out of memory' >&2; exit 1") << 30000
                                               << u"skript hat zu viel Speicher gebraucht (Grenze: 2048 MB)"_s;
        QTest::newRow("stirbt am Speicher") << QByteArray("echo \"an instance of 'std::bad_alloc'\" >&2; kill -ABRT $$")
                                            << 30000 << u"skript hat zu viel Speicher gebraucht (Grenze: 2048 MB)"_s;
    }
    void scheitern()
    {
        QFETCH(QByteArray, skript);
        QFETCH(int, grenze);
        QTEST(
            fehlerVon([&] { Q_UNUSED(laufen(skript, {.uhr = std::chrono::milliseconds(grenze), .rechenzeit = 1s})); }),
            "erwartet");
    }

    void keinProgramm()
    {
        const QString pfad = m_ordner->filePath(u"text"_s);
        schreiben(pfad, "kein Programm");
        QCOMPARE(fehlerVon([&] {
                     Kindprozess::ausfuehren({.pfad = pfad, .name = u"text"_s, .argumente = {}, .umgebung = {}},
                                             {.uhr = 5s});
                 }),
                 u"Hilfsprogramm text lässt sich nicht starten"_s);
    }

    void auchDieKinderSterben()
    {
        const QByteArray skript = "sleep 100 &\necho $! > \"$1/kind\"\nwait";
        QCOMPARE(fehlerVon([&] { Q_UNUSED(laufen(skript, {.uhr = 500ms})); }),
                 u"skript hat zu lange gebraucht (Grenze: 1 Sekunde)"_s);
        QTRY_VERIFY(kindIstTot());
    }

    void dasEndeDesProgrammsBrichtAb()
    {
        std::stop_source ende;
        const std::jthread halter([&] {
            while (!QFile::exists(m_ordner->filePath(u"kind"_s)))
                std::this_thread::sleep_for(5ms);
            ende.request_stop();
        });
        QVERIFY_EXCEPTION_THROWN(Q_UNUSED(laufen("sleep 100 & echo $! > \"$1/k\"; mv \"$1/k\" \"$1/kind\"; wait",
                                                 {.uhr = 60s}, ende.get_token())),
                                 Abbruch);
        QTRY_VERIFY(kindIstTot());
    }

    void textebeneAb120SichtbarenZeichen_data()
    {
        QTest::addColumn<int>("anzahl");
        QTest::addColumn<bool>("textebene");
        QTest::newRow("119") << 119 << false;
        QTest::newRow("120") << 120 << true;
    }
    void textebeneAb120SichtbarenZeichen()
    {
        QFETCH(int, anzahl);
        const QString pfad = m_ordner->filePath(u"Prüfung '$x'.pdf"_s);
        schreiben(pfad.normalized(QString::NormalizationForm_D), vorfuehrung::pdf({seite(zeichen(anzahl))}));
        const Werkzeuge::Text text = Werkzeuge::text(pfad, 2, u"deu"_s);
        QTEST(text.textebene, "textebene");
        QCOMPARE(text.text, text.text.trimmed());
        QVERIFY(!text.text.isEmpty());
        QVERIFY(bilderordner().isEmpty());
    }

    void nurDieErstenSeiten()
    {
        const QString pfad = m_ordner->filePath(u"a.pdf"_s);
        QList<vorfuehrung::Seite> seiten;
        for (const auto &wort : {u"ERSTES"_s, u"ZWEITES"_s, u"DRITTES"_s})
            seiten << seite({u"# "_s + wort});
        schreiben(pfad, vorfuehrung::pdf(seiten));
        const Werkzeuge::Text text = Werkzeuge::text(pfad, 2, u"deu"_s);
        QVERIFY(!text.textebene);
        QVERIFY2(QRegularExpression(u"^ERSTES\\s+ZWEITES\\z"_s).match(text.text).hasMatch(), qPrintable(text.text));
        schreiben(pfad, vorfuehrung::pdf({seite(zeichen(200)), seite({u"ZWEITES"_s}), seite({u"DRITTES"_s})}));
        const QString ebene = Werkzeuge::text(pfad, 2, u"deu"_s).text;
        QVERIFY(ebene.contains(u"ZWEITES"_s) && !ebene.contains(u"DRITTES"_s));
    }

    // As a sheet feeder delivers them: the words arrive, and how the page lies is told.
    void wieDerEinzugSieLiefert_data()
    {
        QTest::addColumn<vorfuehrung::Scanlage>("lage");
        QTest::addColumn<int>("drehung");
        QTest::newRow("straight") << vorfuehrung::Scanlage{} << 0;
        QTest::newRow("askew") << vorfuehrung::Scanlage{.neigung = 6} << 0;
        QTest::newRow("on its head") << vorfuehrung::Scanlage{.neigung = -2, .drehung = 180} << 180;
        QTest::newRow("on its side") << vorfuehrung::Scanlage{.neigung = 1, .drehung = 90} << 270;
        QTest::newRow("on the other side") << vorfuehrung::Scanlage{.neigung = 0, .drehung = 270} << 90;
    }
    void wieDerEinzugSieLiefert()
    {
        QFETCH(vorfuehrung::Scanlage, lage);
        QFETCH(int, drehung);
        const QString pfad = m_ordner->filePath(u"scan.pdf"_s);
        schreiben(pfad, vorfuehrung::pdf({vorfuehrung::gescannt(vorfuehrung::seitenSatz(schreiben()), lage, 7)}));
        const Werkzeuge::Text text = Werkzeuge::text(pfad, 2, u"deu"_s);
        QCOMPARE(text.text.simplified(), schreiben().join(u' '));
        const Seitenlage gefunden = text.lagen.value(0);
        QCOMPARE(gefunden.drehung, drehung);
        QVERIFY2(std::abs(gefunden.neigung - lage.neigung) < 0.3, qPrintable(QString::number(gefunden.neigung)));
        QVERIFY(!text.textebene && !text.ebeneVerworfen);
    }

    void textebeneDieKeinerLiest()
    {
        QStringList verschoben = schreiben();
        for (QString &zeile : verschoben)
            for (QChar &c : zeile)
                c = c.isLetter() ? QChar(c.unicode() + 1) : c;
        vorfuehrung::Seite bild = vorfuehrung::gescannt(vorfuehrung::seitenSatz(schreiben()), {}, 7);
        bild.inhalt = vorfuehrung::seitenSatz(verschoben);
        const QString pfad = m_ordner->filePath(u"kaputt.pdf"_s);
        schreiben(pfad, vorfuehrung::pdf({bild}));
        const Werkzeuge::Text text = Werkzeuge::text(pfad, 2, u"deu"_s);
        QVERIFY(text.ebeneVerworfen && !text.textebene);
        QCOMPARE(text.text.simplified(), schreiben().join(u' '));
        // Where the image says no better, the layer stays.
        schreiben(pfad, vorfuehrung::pdf({seite(verschoben)}));
        const Werkzeuge::Text gleich = Werkzeuge::text(pfad, 2, u"deu"_s);
        QVERIFY(gleich.textebene && !gleich.ebeneVerworfen);
        QVERIFY(gleich.text.simplified().startsWith(verschoben.first().left(4)));
    }

    void wasKeinTextIst_data()
    {
        QTest::addColumn<QByteArray>("ausgabe");
        QTest::addColumn<QString>("text");
        QTest::newRow("Text") << QByteArray("Gr\xC3\xBC\xC3\x9F") + "e" << u"Grüße"_s;
        QTest::newRow("Latin-1") << QByteArray("Gr\xFC\xDF") + "e" << QString();
        QTest::newRow("halbes Zeichen am Ende") << QByteArray("Gr\xC3") << QString();
        QTest::newRow("leer") << QByteArray() << QString();
    }
    void wasKeinTextIst()
    {
        QFETCH(QByteArray, ausgabe);
        QTEST(Werkzeuge::alsText(ausgabe), "text");
    }

    void leereSeite()
    {
        const QString pfad = m_ordner->filePath(u"leer.pdf"_s);
        schreiben(pfad, vorfuehrung::pdf({seite({})}));
        QCOMPARE(Werkzeuge::text(pfad, 2, u"deu"_s), (Werkzeuge::Text{}));
    }

    void warumEinDokumentNichtLesbarIst_data()
    {
        QTest::addColumn<QByteArray>("inhalt");
        QTest::addColumn<QString>("sprache");
        QTest::addColumn<QString>("erwartet");
        const auto seiten = QList{seite(zeichen(30))};
        const QString deu = u"deu"_s;
        QTest::newRow("verschlüsselt") << vorfuehrung::pdf(seiten, Schreibweise::verschluesselt) << deu
                                       << u"verschlüsselt"_s;
        QTest::newRow("leer") << QByteArray() << deu << u"die Datei ist leer"_s;
        QTest::newRow("kein PDF") << QByteArray("Guten Tag\n") << deu << u"die Datei ist beschädigt"_s;
        QTest::newRow("nur der Anfang") << vorfuehrung::pdf(seiten).first(40) << deu << u"die Datei ist beschädigt"_s;
        QTest::newRow("Sprache fehlt") << vorfuehrung::pdf(seiten) << u"xyz"_s
                                       << u"Sprachdaten der Texterkennung fehlen"_s;
    }
    void warumEinDokumentNichtLesbarIst()
    {
        QFETCH(QByteArray, inhalt);
        QFETCH(QString, sprache);
        const QString pfad = m_ordner->filePath(u"a.pdf"_s);
        schreiben(pfad, inhalt);
        QTEST(fehlerVon([&] { Q_UNUSED(Werkzeuge::text(pfad, 2, sprache)); }), "erwartet");
        QVERIFY(bilderordner().isEmpty());
    }

    void keineDatei()
    {
        QCOMPARE(fehlerVon([&] { Q_UNUSED(Werkzeuge::text(m_ordner->filePath(u"fehlt.pdf"_s), 2, u"deu"_s)); }),
                 u"Datei nicht gefunden"_s);
        QCOMPARE(fehlerVon([&] { Q_UNUSED(Werkzeuge::text(m_ordner->path(), 2, u"deu"_s)); }), u"keine Datei"_s);
    }
};

QTEST_GUILESS_MAIN(TestWerkzeuge)
#include "test_werkzeuge.moc"
