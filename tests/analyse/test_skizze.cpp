#include "restzeit.h"
#include "skizze.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

class TestSkizze : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void worte_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("erwartet");
        QTest::newRow("leer") << u" -.\n"_s << QStringList{};
        QTest::newRow("Satzzeichen") << u"Re.-Nr. 12/3_4,Ende"_s
                                     << QStringList{u"re"_s, u"nr"_s, u"12"_s, u"3"_s, u"4"_s, u"ende"_s};
        QTest::newRow("zerlegt") << u"A\u0308rger U\u0308BER"_s << QStringList{u"ärger"_s, u"über"_s};
        QTest::newRow("Zeichen ohne fertige Form") << u"x\u0331y"_s << QStringList{u"x\u0331y"_s};
        QTest::newRow("loser Akzent") << u"a \u0301 b"_s << QStringList{u"a"_s, u"b"_s};
        QTest::newRow("außerhalb der Grundebene") << u"𝒜𐐀😀b"_s << QStringList{u"𝒜𐐨"_s, u"b"_s};
        QTest::newRow("Zahlzeichen") << u"½ Ⅳ ²"_s << QStringList{u"½"_s, u"ⅳ"_s, u"²"_s};
    }
    void worte()
    {
        QFETCH(QString, text);
        QTEST(Skizze::normalisiert(text), "erwartet");
    }

    // Digests computed with sha256sum.
    void werte()
    {
        QVERIFY(Skizze(u"eins zwei drei vier"_s).werte().isEmpty());
        QCOMPARE(Skizze(u"Eins, zwei; drei – vier (fünf)"_s).werte(), QList<quint64>{0x4b7ede3ce7fa74cc});
        const QList<quint64> zweimal = Skizze(u"a b c d e f a b c d e f"_s).werte();
        QCOMPARE(zweimal.size(), 6); // of eight runs two come twice
        QVERIFY(std::is_sorted(zweimal.begin(), zweimal.end()));
        QString lang;
        for (int i = 0; i < 200; ++i)
            lang += QString::number(i) + u' ';
        QCOMPARE(Skizze(lang).werte(), Skizze(lang).werte(1000).first(64));
    }

    void schreibweisenGebenDasselbe()
    {
        const Skizze a(u"Über die Gebühren der Prüfung, und noch viel mehr davon."_s.repeated(3));
        const Skizze b(u"ÜBER  die gebühren\nder PRÜFUNG und noch: viel mehr davon "_s.repeated(3).normalized(
            QString::NormalizationForm_D));
        QVERIFY(!a.textHash().isEmpty());
        QCOMPARE(a.textHash(), b.textHash());
        QCOMPARE(a.werte(), b.werte());
    }

    void textHash_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("leer") << u""_s << u""_s;
        QTest::newRow("79 Zeichen") << u"a "_s.repeated(79) << u""_s;
        QTest::newRow("80 Zeichen") << u"a, "_s.repeated(80)
                                    << u"0f45e858fbc4176cdf4e411f88281edefc390ae5afe7df0f44cd9297f0a64580"_s;
        QTest::newRow("79 wahrgenommene Zeichen") << u"x\u0331"_s.repeated(79) << u""_s;
        QTest::newRow("1500 zählen") << QString(1500, u'a')
                                     << u"b935f6b7a9c56a15e7b99c8d6d4b5e918f5a68fafc4490544a446b2ae47bf809"_s;
        QTest::newRow("was danach kommt nicht")
            << QString(1500, u'a') + u" anders"_s
            << u"b935f6b7a9c56a15e7b99c8d6d4b5e918f5a68fafc4490544a446b2ae47bf809"_s;
    }
    void textHash()
    {
        QFETCH(QString, text);
        const QString hash = Skizze(text).textHash();
        QVERIFY(!hash.isNull()); // NULL in the catalogue would mean: not read yet
        QTEST(hash, "erwartet");
    }

    void jsonHinUndZurueck()
    {
        const QList<quint64> werte = {0, 1, 0x7fffffffffffffff, 0x8000000000000000, 0xffffffffffffffff};
        QCOMPARE(Skizze::json(werte), u"[0,1,9223372036854775807,-9223372036854775808,-1]"_s);
        QVERIFY(Skizze::ausJson(Skizze::json(werte)) == werte);
        QVERIFY(Skizze::ausJson(Skizze::json({})) == QList<quint64>());
        QVERIFY(Skizze::ausJson(u" [ 1 , -2\n] "_s) == (QList<quint64>{1, quint64(-2)}));
    }

    void unfugIstKeineSkizze_data()
    {
        QTest::addColumn<QString>("json");
        for (const auto *json :
             {u"", u"[", u"]", u"1,2", u"[1 2]", u"[1,]", u"[,1]", u"[1,,2]", u"[a]", u"[1.5]", u"[\"1\"]",
              u"[99999999999999999999]", u"{\"a\":1}", u"null", u"[1]x", u"[- 1]", u"[1][2]"})
            QTest::newRow(qPrintable(QString::fromUtf16(json))) << QString::fromUtf16(json);
    }
    void unfugIstKeineSkizze()
    {
        QFETCH(QString, json);
        QVERIFY(!Skizze::ausJson(json));
    }

    void restzeit_data()
    {
        QTest::addColumn<double>("sekunden");
        QTest::addColumn<int>("fertig");
        QTest::addColumn<int>("gesamt");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("noch nichts") << 10.0 << 0 << 5 << u""_s;
        QTest::newRow("alles") << 10.0 << 5 << 5 << u""_s;
        QTest::newRow("89,9 s") << 89.9 << 1 << 2 << u"noch rund 89 Sekunden"_s;
        QTest::newRow("90 s") << 90.0 << 1 << 2 << u"noch rund 1 Minute"_s;
        QTest::newRow("5399 s") << 5399.0 << 1 << 2 << u"noch rund 89 Minuten"_s;
        QTest::newRow("5400 s") << 5400.0 << 1 << 2 << u"noch rund 1.5 Stunden"_s;
        QTest::newRow("hochgerechnet") << 30.0 << 3 << 6 << u"noch rund 30 Sekunden"_s;
        QTest::newRow("lange") << 3600.0 << 1 << 2001 << u"noch rund 2000.0 Stunden"_s;
    }
    void restzeit()
    {
        QFETCH(double, sekunden);
        QFETCH(int, fertig);
        QFETCH(int, gesamt);
        QTEST(restzeitText(std::chrono::duration<double>(sekunden), fertig, gesamt), "erwartet");
    }
};

QTEST_GUILESS_MAIN(TestSkizze)
#include "test_skizze.moc"
