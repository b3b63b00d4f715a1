#include "gegenpruefung.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::regeln;

class TestGegenpruefung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void istEigen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("erwartet");
        QTest::newRow("leer") << u""_s << false;
        QTest::newRow("wie geschrieben") << u"Jörg Müller-Lüdenscheidt"_s << true;
        QTest::newRow("umschrieben") << u"JOERG MUELLER LUEDENSCHEIDT"_s << true;
        QTest::newRow("nur der Nachname") << u"Familie Müller"_s << true;
        QTest::newRow("zerlegte Umlaute") << u"Mu\u0308ller"_s << true;
        QTest::newRow("Teil eines Wortes") << u"Müllerei Nord"_s << false;
        QTest::newRow("die Firma") << u"Ton & Scherben"_s << true;
        QTest::newRow("gleiche Rechtsform") << u"Stadtwerke GmbH & Co. KG"_s << false;
        QTest::newRow("gleiches Bindewort") << u"Sparkasse und Bank"_s << false;
        QTest::newRow("gleiches kurzes Wort") << u"Kaufhaus am Ring"_s << false;
        QTest::newRow("fremd") << u"Finanzamt Meißen"_s << false;
        QTest::newRow("nur Zeichen") << u"–––"_s << false;
    }
    void istEigen()
    {
        QFETCH(QString, name);
        Profil profil;
        profil.eigeneNamen =
            QStringList{u" Jörg Müller-Lüdenscheidt "_s, u""_s, u"Ton und Scherben am See GmbH & Co. KG"_s};
        QTEST(Gegenpruefung(profil).istEigen(name), "erwartet");
        QVERIFY(!Gegenpruefung(Profil()).istEigen(name));
    }

    void frage()
    {
        Profil profil;
        profil.eigeneNamen = QStringList{u"Anna Muster "_s, u" "_s, u"Muster GbR"_s, u"Anna Muster"_s};
        profil.maxZeichen = 7;
        const QString erwartet = u"Der Eigentuemer dieser Ablage ist: Anna Muster, Muster GbR.\n\n"
                                 "Nenne aus dem folgenden Dokumenttext die ANDERE Partei, also Absender oder\n"
                                 "Empfaenger, der nicht der Eigentuemer ist. Ausgeschrieben, ohne Rechtsform.\n"
                                 "Ist keine andere Partei erkennbar, antworte mit leerem Wert.\n\n"
                                 "Antworte ausschliesslich mit einem JSON-Objekt in genau dieser Form:\n"
                                 "{\"gegenueber\": \"Finanzamt Meissen\"}\n"
                                 "Oder, wenn es keine andere Partei gibt:\n"
                                 "{\"gegenueber\": \"\"}\n\n"
                                 "Dokumenttext:\n\"\"\"\nRe\u0308chnun\n\"\"\""_s;
        QCOMPARE(Gegenpruefung::frage(u"Re\u0308chnung 17"_s, profil), erwartet);
    }
};

QTEST_GUILESS_MAIN(TestGegenpruefung)
#include "test_gegenpruefung.moc"
