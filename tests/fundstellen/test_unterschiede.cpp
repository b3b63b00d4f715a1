#include "brief.h"
#include "unterschiede.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::fundstellen;

class TestUnterschiede : public QObject
{
    Q_OBJECT

    static QStringList worte(const QList<Wortfolge> &seiten, const QList<Fundstelle> &stellen)
    {
        QStringList alle;
        for (const Fundstelle &stelle : stellen)
            alle << wortlaut(seiten, stelle);
        return alle;
    }

private Q_SLOTS:
    void worte_data()
    {
        QTest::addColumn<QString>("links");
        QTest::addColumn<QString>("rechts");
        QTest::addColumn<QStringList>("nurLinks");
        QTest::addColumn<QStringList>("nurRechts");
        QTest::newRow("gleich") << u"ein Brief."_s << u"Ein Brief"_s << QStringList() << QStringList();
        QTest::newRow("ausgetauscht") << u"Rechnung vom 31.01.2024 über 12,50 EUR"_s
                                      << u"Rechnung vom 28.02.2024 über 13,50 EUR"_s
                                      << QStringList{u"31.01.2024"_s, u"12,50"_s}
                                      << QStringList{u"28.02.2024"_s, u"13,50"_s};
        QTest::newRow("dazu") << u"ein Brief"_s << u"noch ein langer Brief hier"_s << QStringList()
                              << QStringList{u"noch"_s, u"langer"_s, u"hier"_s};
        QTest::newRow("mehrere weg") << u"a b c d e"_s << u"a e"_s << QStringList{u"b c d"_s} << QStringList();
        QTest::newRow("nichts gemein") << u"a b"_s << u"c"_s << QStringList{u"a b"_s} << QStringList{u"c"_s};
        QTest::newRow("leer") << u""_s << u"c"_s << QStringList() << QStringList{u"c"_s};
    }
    void worte()
    {
        QFETCH(QString, links);
        QFETCH(QString, rechts);
        const auto l = brief({links});
        const auto r = brief({rechts});
        const Unterschiede u = unterschiede(l, r);
        QTEST(worte(l, u.links), "nurLinks");
        QTEST(worte(r, u.rechts), "nurRechts");
    }

    void zuVerschieden()
    {
        QStringList a;
        QStringList b;
        for (int i = 0; i < 1500; ++i) {
            a << u"a%1"_s.arg(i);
            b << u"b%1"_s.arg(i);
        }
        const Unterschiede u = unterschiede(brief(a), brief(b));
        QVERIFY(u.links.isEmpty() && u.rechts.isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestUnterschiede)
#include "test_unterschiede.moc"
