#include "ocrsprachen.h"
#include "sprache.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

class TestOcrsprachen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { Sprache::setzeGewaehlteKennung(u"de"_s); }

    void name_data()
    {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("paket");
        const QString p = u"tesseract-ocr-"_s;
        QTest::newRow("eine") << u"deu"_s << u"Deutsch (deu)"_s << p + u"deu"_s;
        QTest::newRow("zwei") << u"deu+eng"_s << u"Deutsch + Englisch (deu+eng)"_s << p + u"deu"_s;
        QTest::newRow("ihr eigener Name") << u"fra"_s << u"français (fra)"_s << p + u"fra"_s;
        QTest::newRow("keine, die man kennt") << u"osd"_s << u"osd (osd)"_s << p + u"osd"_s;
        QTest::newRow("Unterstrich") << u"chi_sim"_s << u"chi_sim (chi_sim)"_s << p + u"chi-sim"_s;
    }
    void name()
    {
        QFETCH(const QString, code);
        QTEST(Ocrsprachen::name(code), "name");
        QTEST(Ocrsprachen::paket(code), "paket");
    }

    void auswahl_data()
    {
        QTest::addColumn<QStringList>("installierte");
        QTest::addColumn<QString>("jetzige");
        QTest::addColumn<QStringList>("auswahl");
        const QStringList beide{u"deu"_s, u"eng"_s};
        QTest::newRow("beide") << beide << u"deu"_s << beide + QStringList{u"deu+eng"_s};
        QTest::newRow("eine allein") << QStringList{u"eng"_s} << u"eng"_s << QStringList{u"eng"_s};
        QTest::newRow("die jetzige fehlt") << QStringList{u"eng"_s} << u"fra"_s << QStringList{u"fra"_s, u"eng"_s};
        QTest::newRow("nichts da") << QStringList{} << u"deu+eng"_s << QStringList{u"deu+eng"_s};
    }
    void auswahl()
    {
        QFETCH(const QStringList, installierte);
        QFETCH(const QString, jetzige);
        QTEST(Ocrsprachen::auswahl(installierte, jetzige), "auswahl");
    }
};

QTEST_GUILESS_MAIN(TestOcrsprachen)
#include "test_ocrsprachen.moc"
