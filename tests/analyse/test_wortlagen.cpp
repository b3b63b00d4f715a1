#include "wortlagen.h"
#include "wortspeicher.h"

#include "fehler.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

namespace
{
QByteArray seite(const char *groesse, const char *worte)
{
    return QByteArray("<html xmlns=\"http://www.w3.org/1999/xhtml\"><body><doc><page ") + groesse + ">" + worte +
           "</page></doc></body></html>";
}

bool nahe(const QRectF &a, const QRectF &b)
{
    constexpr double genau = 0.002;
    return std::abs(a.left() - b.left()) < genau && std::abs(a.top() - b.top()) < genau &&
           std::abs(a.right() - b.right()) < genau && std::abs(a.bottom() - b.bottom()) < genau;
}
} // namespace

class TestWortlagen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textebene_data()
    {
        using Lage = Wortlagen::Ebenenseite::Lage;
        QTest::addColumn<QByteArray>("worte");
        QTest::addColumn<Lage>("lage");
        QTest::newRow("am Fuß einer stehenden")
            << QByteArray(R"(<word xMin="10" yMin="700" xMax="40" yMax="712">Fuß</word>)") << Lage::Aufrecht;
        QTest::newRow("am Rand einer liegenden")
            << QByteArray(R"(<word xMin="700" yMin="10" xMax="712" yMax="40">Rand</word>)") << Lage::Quer;
        QTest::newRow("beides möglich") << QByteArray(R"(<word xMin="10" yMin="10" xMax="30" yMax="20">A</word>)")
                                        << Lage::Unklar;
    }
    void textebene()
    {
        QFETCH(QByteArray, worte);
        const auto seiten = Wortlagen::ebenenseiten(seite("width=\"595\" height=\"842\"", worte));
        QCOMPARE(seiten.size(), 1);
        QCOMPARE(seiten.first().worte.size(), 1);
        QTEST(seiten.first().lage(), "lage");
    }

    void wasKeinXmlIst()
    {
        const auto seiten = Wortlagen::ebenenseiten(seite(
            "width=\"10\" height=\"10\"", "<word xMin=\"1\" yMin=\"1\" xMax=\"2\" yMax=\"2\">A\x02&amp;B</word>"));
        QCOMPARE(seiten.first().worte.first().text, u"A&B"_s);
        QVERIFY_THROWS_EXCEPTION(Fehler, Q_UNUSED(Wortlagen::ebenenseiten("<html><page")));
        for (const QByteArray wo : {"1e300", "nan", "-inf"})
            QVERIFY(
                Wortlagen::ebenenseiten(seite("width=\"10\" height=\"10\"",
                                              "<word xMin=\"1\" yMin=\"" + wo + "\" xMax=\"2\" yMax=\"2\">A</word>"))
                    .first()
                    .worte.isEmpty());
    }

    // A box of the image that was straightened by two degrees lies where it was before.
    void geradeGestellt()
    {
        const QSize bild(1000, 1400);
        const QByteArray kopf = "1\t1\t0\t0\t0\t0\t0\t0\t1048\t1434\t-1\t\n";
        const QByteArray wort = "5\t1\t1\t1\t1\t1\t%1\t%2\t100\t20\t96\tWort\n";
        const double winkel = 2 * M_PI / 180;
        const QPointF vorher(200, 300); // from the middle
        const QPointF nachher(vorher.x() * std::cos(winkel) - vorher.y() * std::sin(winkel),
                              vorher.x() * std::sin(winkel) + vorher.y() * std::cos(winkel));
        QByteArray zeile = wort;
        zeile.replace("%1", QByteArray::number(524 + nachher.x() - 50))
            .replace("%2", QByteArray::number(717 + nachher.y() - 10));
        const auto worte = Wortlagen::ausTsv(kopf + zeile + "5\tzu wenig\n", {.bild = bild, .neigung = 2});
        QCOMPARE(worte.size(), 1);
        const QPointF mitte = worte.first().ort.center();
        QVERIFY(std::abs(mitte.x() * 1000 - 700) < 1 && std::abs(mitte.y() * 1400 - 1000) < 1);
        QVERIFY(worte.first().ort.height() * 1400 > 22 && worte.first().ort.height() * 1400 < 26);
    }

    void gedrehteSeite()
    {
        const QRectF ort(0.1, 0.2, 0.3, 0.05);
        QVERIFY(nahe(gedreht(ort, 90), {0.75, 0.1, 0.05, 0.3}));
        QVERIFY(nahe(gedreht(gedreht(ort, 90), 90), gedreht(ort, 180)));
        for (const int grad : {0, 90, 180, 270, -90})
            QVERIFY(nahe(gedreht(gedreht(ort, grad), -grad), ort));
    }

    void leserichtungEinerSeite()
    {
        Seitenworte worte;
        for (int i = 0; i < 12; ++i) // four lines of three
            worte << Seitenwort{.text = u"Wort %1"_s.arg(i),
                                .ort = {0.1 + i % 3 * 0.2, 0.1 + i / 3 * 0.03, 0.15, 0.02}};
        for (const int grad : {0, 90, 180, 270})
            QCOMPARE((leserichtung(gedreht(worte, grad)) + grad) % 360, 0);
        QCOMPARE(leserichtung({}), 0);
    }

    void speicher()
    {
        const QTemporaryDir ort;
        const QString ordner = ort.filePath(u"neu/Quillmar"_s);
        const Wortspeicher speicher(ordner, 4000);
        const QList<Seitenworte> seiten{{{.text = u"Meißen"_s, .ort = {0.1, 0.2, 0.3, 0.04}}}, {}};
        QVERIFY(!speicher.lesen(u"a"_s, u"deu"_s));
        speicher.ablegen(u"a"_s, u"deu"_s, seiten);
        const auto gelesen = speicher.lesen(u"a"_s, u"deu"_s);
        QVERIFY(gelesen && gelesen->size() == 2 && gelesen->last().isEmpty());
        QCOMPARE(gelesen->first().first().text, u"Meißen"_s);
        QVERIFY(nahe(gelesen->first().first().ort, seiten.first().first().ort));
        QVERIFY(!speicher.lesen(u"a"_s, u"eng"_s));
        QCOMPARE(QFile::permissions(ordner) & (QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther),
                 QFile::Permissions());
        const QString datei = ordner + u"/a.worte"_s;
        QCOMPARE(QFile::permissions(datei) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
        // What is no such file says nothing.
        QFile kaputt(datei);
        QVERIFY(kaputt.open(QIODevice::WriteOnly) && kaputt.write("\x81\x82Unsinn") > 0);
        kaputt.close();
        QVERIFY(!speicher.lesen(u"a"_s, u"deu"_s));
    }

    void derAeltesteGeht()
    {
        const QTemporaryDir ort;
        const Wortspeicher speicher(ort.path(), 4000);
        const Seitenworte viele(40, {.text = u"Wort"_s, .ort = {0.1, 0.2, 0.3, 0.4}}); // some 700 bytes
        const auto altern = [&](const QString &digest, int tage) {
            QFile datei(ort.filePath(digest + u".worte"_s));
            QVERIFY(datei.open(QIODevice::ReadWrite));
            QVERIFY(datei.setFileTime(QDateTime::currentDateTime().addDays(-tage), QFileDevice::FileModificationTime));
        };
        for (int i = 0; i < 4; ++i) {
            speicher.ablegen(QString::number(i), {}, {viele});
            altern(QString::number(i), 10 - i);
        }
        QVERIFY(speicher.lesen(u"0"_s, {})); // used: it is the newest now
        for (int i = 4; i < 7; ++i)
            speicher.ablegen(QString::number(i), {}, {viele});
        QVERIFY(speicher.lesen(u"0"_s, {}) && speicher.lesen(u"6"_s, {}));
        QVERIFY(!speicher.lesen(u"1"_s, {}));
        QVERIFY(QDir(ort.path()).entryList(QDir::Files).size() < 7);
    }
};

QTEST_GUILESS_MAIN(TestWortlagen)
#include "test_wortlagen.moc"
