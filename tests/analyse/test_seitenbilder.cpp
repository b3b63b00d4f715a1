#include "fehler.h"
#include "rohpdf.h"
#include "seitenbilder.h"
#include "werkzeuge.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::analyse;

namespace
{
/** A square page with a word over its whole width. */
Rohpdf::Seite blatt(const QByteArray &wort, int kante)
{
    const QByteArray groesse = QByteArray::number(kante / 20);
    return {.inhalt = "BT /F " + groesse + " Tf " + groesse + ' ' + groesse + " Td (" + wort + ") Tj ET",
            .kasten = "0 0 " + QByteArray::number(kante) + ' ' + QByteArray::number(kante)};
}
} // namespace

/** Pages that are too large for the usual resolution. */
class TestSeitenbilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void masse_data()
    {
        QTest::addColumn<QByteArray>("ausgabe");
        QTest::addColumn<QString>("erwartet");
        const QByteArray kopf = "Pages: 2\nPage    1 size:  600 x 800 pts\n";
        QTest::newRow("nichts") << QByteArray() << QString();
        QTest::newRow("zwei") << QByteArray(kopf + "Page    1 MediaBox:      0.00     0.00   600.00   800.00\n"
                                                   "Page    1 CropBox:      10.00    10.00   500.00   500.00\n"
                                                   "Page    2 MediaBox:   -100.00     0.00   100.00  1000.50\n")
                              << u"1:600x800 2:200x1000.5"_s;
        QTest::newRow("verkehrt") << QByteArray("Page   12 MediaBox:    600.00   800.00     0.00     0.00\n")
                                  << u"12:600x800"_s;
        QTest::newRow("keine Zahlen") << QByteArray("Page    1 MediaBox:     0.00     0.00      nan      inf\n")
                                      << QString();
    }
    void masse()
    {
        QFETCH(const QByteArray, ausgabe);
        QStringList masse;
        for (const auto &m : Seitenbilder::seitenmasse(ausgabe))
            masse << u"%1:%2x%3"_s.arg(m.seite).arg(m.breite).arg(m.hoehe);
        QTEST(masse.join(u' '), "erwartet");
    }

    void aufloesungen_data()
    {
        QTest::addColumn<double>("breite");
        QTest::addColumn<double>("hoehe");
        QTest::addColumn<bool>("grob");
        QTest::newRow("A4") << 595.0 << 842.0 << false;
        QTest::newRow("A0") << 2384.0 << 3370.0 << false;
        QTest::newRow("gerade noch") << 3600.0 << 3600.0 << false;
        QTest::newRow("darüber") << 3600.1 << 3600.1 << true;
        QTest::newRow("langer Streifen") << 14400.0 << 300.0 << false;
        QTest::newRow("breiter Streifen") << 100000.0 << 200.0 << true;
        QTest::newRow("200 Zoll") << 14400.0 << 14400.0 << true;
        QTest::newRow("14 Kilometer") << 40e6 << 40e6 << true;
    }
    void aufloesungen()
    {
        QFETCH(const double, breite);
        QFETCH(const double, hoehe);
        QFETCH(const bool, grob);
        const double dpi = Seitenbilder::aufloesungFuer({.seite = 1, .breite = breite, .hoehe = hoehe});
        QCOMPARE(dpi < 200, grob);
        QVERIFY(breite * dpi / 72 * hoehe * dpi / 72 <= (grob ? 50e6 : 100e6) * 1.001);
        QVERIFY(!grob || std::max(breite, hoehe) * dpi / 72 <= 32000.001);
    }

    void riesigeSeitenWerdenGroberGelesen()
    {
        const QTemporaryDir ordner;
        const QString pfad = ordner.filePath(u"a.pdf"_s);
        QFile datei(pfad);
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(Rohpdf::seiten({blatt("ERSTES", 600), blatt("ZWEITES", 14400)}));
        datei.close();
        const Werkzeuge::Text text = Werkzeuge::text(pfad, 2, u"deu"_s);
        QVERIFY(!text.textebene);
        QVERIFY2(QRegularExpression(u"^ERSTES\\s+ZWEITES\\z"_s).match(text.text).hasMatch(), qPrintable(text.text));
        QVERIFY(QDir::temp().entryList({u"ablage-*"_s}, QDir::Dirs).isEmpty());
    }

    /** The limit that stopped the tool is named, and nothing is left. */
    void grenzenWerdenGenannt_data()
    {
        QTest::addColumn<qint64>("speicher");
        QTest::addColumn<int>("rechenzeit");
        QTest::addColumn<QString>("erwartet");
        const qint64 mebi = 1024 * 1024;
        QTest::newRow("Rechenzeit") << 2048 * mebi << 1
                                    << u"pdftoppm hat zu viel Rechenzeit gebraucht (Grenze: 1 Sekunde)"_s;
        QTest::newRow("Speicher") << 64 * mebi << 60 << u"pdftoppm hat zu viel Speicher gebraucht (Grenze: 64 MB)"_s;
    }
    void grenzenWerdenGenannt()
    {
        QFETCH(const qint64, speicher);
        QFETCH(const int, rechenzeit);
        const QTemporaryDir ordner;
        const QString pfad = ordner.filePath(u"a.pdf"_s);
        QFile datei(pfad);
        QVERIFY(datei.open(QIODevice::WriteOnly));
        datei.write(Rohpdf::seite(blatt("ERSTES", 3500))); // just below 100 megapixels
        datei.close();
        Lesegrenzen grenzen;
        grenzen.speicher = speicher;
        grenzen.rechenzeit = std::chrono::seconds(rechenzeit);
        QString grund;
        try {
            static_cast<void>(Werkzeuge::text(pfad, 1, u"deu"_s, {}, grenzen));
        } catch (const Fehler &f) {
            grund = f.text();
        }
        QTEST(grund, "erwartet");
        QVERIFY(QDir::temp().entryList({u"ablage-*"_s}, QDir::Dirs).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestSeitenbilder)
#include "test_seitenbilder.moc"
