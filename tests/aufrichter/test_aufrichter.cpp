#include "aufrichter.h"
#include "pdf.h"
#include "satz.h"
#include "scan.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using quillmar::aufrichter::aufrichten;

/** The measuring and straightening of page images, without the process that has it done. */
class TestAufrichter : public QObject
{
    Q_OBJECT
    QTemporaryDir m_ordner;

    [[nodiscard]] std::string bild(const vorfuehrung::Scanlage &lage, const QStringList &zeilen) const
    {
        const QString pdf = m_ordner.filePath(u"a.pdf"_s);
        const QString stamm = m_ordner.filePath(u"a"_s);
        QFile datei(pdf);
        if (!datei.open(QIODevice::WriteOnly) ||
            datei.write(vorfuehrung::pdf({vorfuehrung::gescannt(vorfuehrung::seitenSatz(zeilen), lage, 1)})) < 0)
            qFatal("cannot write");
        datei.close();
        if (QProcess::execute(u"pdftoppm"_s, {u"-r"_s, u"200"_s, u"-png"_s, u"-singlefile"_s, pdf, stamm}) != 0)
            qFatal("no picture");
        return (stamm + u".png"_s).toStdString();
    }
    static QStringList brief()
    {
        QStringList worte = u"Sehr geehrte Frau Muster die Rechnung liegt diesem Schreiben wie immer bei"_s.split(u' ');
        QStringList zeilen;
        for (int i = 0; i < 20; ++i) {
            zeilen << worte.join(u' ');
            worte.move(i * 7 % 12, i * 5 % 12);
        }
        return zeilen;
    }
    static QByteArray bytes(const std::string &pfad)
    {
        QFile datei(QString::fromStdString(pfad));
        return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
    }

private Q_SLOTS:
    void schief_data()
    {
        QTest::addColumn<double>("neigung");
        QTest::addColumn<int>("drehung");
        QTest::addColumn<double>("erwartet"); // degrees clockwise that make it straight
        QTest::newRow("not worth it") << 0.2 << 0 << 0.0;
        QTest::newRow("a little") << 0.6 << 0 << 0.6;
        QTest::newRow("to the other side") << -2.0 << 0 << -2.0;
        QTest::newRow("much") << 12.0 << 0 << 12.0;
        QTest::newRow("on its head") << 6.0 << 180 << 6.0;
        QTest::newRow("on its side") << -3.0 << 90 << -3.0;
        QTest::newRow("on the other side") << 8.0 << 270 << 8.0;
    }
    void schief()
    {
        QFETCH(double, neigung);
        QFETCH(int, drehung);
        QFETCH(double, erwartet);
        const std::string pfad = bild({.neigung = neigung, .drehung = drehung}, brief());
        const QByteArray vorher = bytes(pfad);
        const auto lage = aufrichten(pfad, 0);
        QVERIFY(lage.has_value());
        QCOMPARE(lage->hochkant, drehung % 180 != 0);
        QVERIFY2(std::abs(lage->neigung - erwartet) < 0.2, qPrintable(QString::number(lage->neigung)));
        QCOMPARE(bytes(pfad) == vorher, erwartet == 0);
        // What was straightened is straight.
        QCOMPARE(aufrichten(pfad, 0).value().neigung, 0.0);
    }

    void gedreht()
    {
        const std::string pfad = bild({.neigung = 2, .drehung = 270}, brief());
        const auto lage = aufrichten(pfad, 90);
        QVERIFY(lage && !lage->hochkant && lage->neigung > 1.5);
        QVERIFY(!aufrichten(pfad, 0)->hochkant);
    }

    // No lines, no skew; what is no image stays as it is.
    void nichtsZuMessen()
    {
        const std::string leer = bild({}, {});
        const auto lage = aufrichten(leer, 0);
        QVERIFY(lage && lage->neigung == 0 && !lage->hochkant);
        const std::string keines = m_ordner.filePath(u"s.png"_s).toStdString();
        QVERIFY(!aufrichten(keines, 0));
        QFile datei(QString::fromStdString(keines));
        QVERIFY(datei.open(QIODevice::WriteOnly) && datei.write("\x89PNG\r\n\x1a\n halb") > 0);
        datei.close();
        QVERIFY(!aufrichten(keines, 90));
        QVERIFY(bytes(keines).endsWith("halb"));
    }
};

QTEST_GUILESS_MAIN(TestAufrichter)
#include "test_aufrichter.moc"
