#include "ausnahmefilter.h"
#include "profil.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::profil;

class TestAusnahmefilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void regeln()
    {
        const Ausnahmefilter filter(
            {u"Fotos"_s, u""_s, u" \t"_s, u"//"_s, u" /Privat/2019/Belege/ "_s, u"Fotos"_s, u"\u00a0U\u0308ber "_s});
        const QList<Ausnahmefilter::Regel> erwartet = {
            {.roh = u"Fotos"_s, .kern = u"fotos"_s, .istPfad = false},
            {.roh = u"/Privat/2019/Belege/"_s, .kern = u"privat/2019/belege"_s, .istPfad = true},
            {.roh = u"Fotos"_s, .kern = u"fotos"_s, .istPfad = false},
            {.roh = u"Über"_s, .kern = u"über"_s, .istPfad = false},
        };
        QVERIFY(filter.regeln() == erwartet);
    }

    void treffer_data()
    {
        QTest::addColumn<QStringList>("regeln");
        QTest::addColumn<QString>("ordner");
        QTest::addColumn<QString>("datei");
        QTest::addColumn<QString>("erwartet"); // the rule as written; empty: none
        const QStringList drei = {u"Fotos"_s, u"privat/2019/Belege"_s, u"/Vorlagen/"_s};
        const QString brief = u"Brief.pdf"_s;
        QTest::newRow("bloßer Name überall") << drei << u"Fotograf/Jahresablage/2019/Fotos"_s << brief << u"Fotos"_s;
        QTest::newRow("an zweiter Stelle") << drei << u"privat/Stammdaten/Fotos"_s << brief << u"Fotos"_s;
        QTest::newRow("Pfadregel") << drei << u"privat/2019/Belege"_s << brief << u"privat/2019/Belege"_s;
        QTest::newRow("Pfadregel darunter")
            << drei << u"x/Privat/2019/BELEGE/tief"_s << brief << u"privat/2019/Belege"_s;
        QTest::newRow("anderswo nicht") << drei << u"Fotograf/2019/Belege"_s << brief << QString();
        QTest::newRow("Schrägstriche am Rand") << drei << u"a/Vorlagen/b"_s << brief << u"/Vorlagen/"_s;
        QTest::newRow("im Dateinamen") << drei << u"egal"_s << u"Urlaubsfotos 2020.pdf"_s << u"Fotos"_s;
        QTest::newRow("unbeteiligt") << drei << u"Fotograf"_s << u"Rechnung.pdf"_s << QString();
        QTest::newRow("Teil eines Ordnernamens") << drei << u"Urlaubsfotos"_s << brief << QString();
        QTest::newRow("Pfadregel nie im Dateinamen") << QStringList{u"a/b"_s} << u""_s << u"a/b.pdf"_s << QString();
        QTest::newRow("an jeder Ordnergrenze")
            << QStringList{u"2019/Belege"_s} << u"privat/2019/Belege"_s << brief << u"2019/Belege"_s;
        QTest::newRow("nicht mitten im Namen")
            << QStringList{u"19/Belege"_s} << u"privat/2019/Belege"_s << brief << QString();
        QTest::newRow("direkt in der Herkunft") << drei << u""_s << brief << QString();
        QTest::newRow("Endung zählt zum Namen") << QStringList{u".pdf"_s} << u""_s << u"Brief.PDF"_s << u".pdf"_s;
        QTest::newRow("die erste der Liste") << QStringList{u"brief"_s, u"x"_s} << u"x"_s << brief << u"brief"_s;
        const QStringList gewaehlt = {u"./Alt"_s};
        QTest::newRow("gewählter Ordner") << gewaehlt << u"alt"_s << brief << u"./Alt"_s;
        QTest::newRow("gewählter Ordner, darunter") << gewaehlt << u"Alt/2019"_s << brief << u"./Alt"_s;
        QTest::newRow("gewählter Ordner, gleichnamiger anderswo") << gewaehlt << u"privat/Alt"_s << brief << QString();
        QTest::newRow("gewählter Ordner, gleicher Anfang") << gewaehlt << u"Altes"_s << brief << QString();
        QTest::newRow("gewählter Ordner, nicht im Dateinamen")
            << gewaehlt << u""_s << u"Gehaltsabrechnung.pdf"_s << QString();
        QTest::newRow("zerlegte Umlaute") << QStringList{u"prüfung"_s} << u"PRU\u0308FUNG"_s << brief << u"prüfung"_s;
        QTest::newRow("zerlegt im Dateinamen")
            << QStringList{u"pru\u0308f"_s} << u""_s << u"Prüfung.pdf"_s << u"prüf"_s;
    }
    void treffer()
    {
        QFETCH(QStringList, regeln);
        QFETCH(QString, ordner);
        QFETCH(QString, datei);
        const auto regel = Ausnahmefilter(regeln).erste(ordner, datei);
        QTEST(regel ? regel->roh : QString(), "erwartet");
    }

    void regelFuer_data()
    {
        QTest::addColumn<QString>("quelle");
        QTest::addColumn<QString>("gewaehlt");
        QTest::addColumn<QString>("erwartet"); // "-": none
        const QString quelle = u"/Volumes/Platte/Ablage"_s;
        QTest::newRow("Zwischenpfad") << quelle << quelle + u"/privat/2019/Fotos"_s << u"privat/2019/Fotos"_s;
        QTest::newRow("Herkunft selbst") << quelle << quelle << u"-"_s;
        QTest::newRow("Herkunft mit Strich") << quelle + u'/' << quelle << u"-"_s;
        QTest::newRow("außerhalb") << quelle << u"/ganz/woanders/Fotos"_s << u"Fotos"_s;
        QTest::newRow("nur gleicher Anfang") << u"/a/b"_s << u"/a/bc/x"_s << u"x"_s;
        QTest::newRow("keine Herkunft") << u""_s << u"/a/Fotos/"_s << u"Fotos"_s;
        QTest::newRow("Wurzel gewählt") << u"/a"_s << u"/"_s << u"-"_s;
        QTest::newRow("Wurzel als Herkunft") << u"/"_s << u"/a/b"_s << u"a/b"_s;
        QTest::newRow("zerlegte Umlaute") << u"/Büro"_s << u"/Bu\u0308ro/O\u0308l"_s << u"./Öl"_s;
        QTest::newRow("direkt darin") << quelle << quelle + u"/Alt/"_s << u"./Alt"_s;
    }
    void regelFuer()
    {
        QFETCH(QString, quelle);
        QFETCH(QString, gewaehlt);
        Profil p;
        p.quelle = quelle;
        QTEST(p.regelFuer(gewaehlt).value_or(u"-"_s), "erwartet");
    }
};

QTEST_GUILESS_MAIN(TestAusnahmefilter)
#include "test_ausnahmefilter.moc"
