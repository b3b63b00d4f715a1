#include "rechnungsrichtung.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::regeln;
using Richtung = Rechnungsrichtung::Richtung;

class TestRechnungsrichtung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void erkennen_data()
    {
        QTest::addColumn<QStringList>("anschriften");
        QTest::addColumn<QString>("text");
        QTest::addColumn<Richtung>("erwartet");
        const QStringList eine = {u"Musterweg 12, 01662 Meißen"_s};
        const QStringList dreiteilig = {u"Muster & Söhne\nMusterweg 12\n01662 Meißen"_s};
        QTest::newRow("keine Anschrift") << QStringList{} << u"Musterweg 12 01662 Meißen"_s << Richtung::Unbekannt;
        QTest::newRow("kein Text") << eine << u""_s << Richtung::Unbekannt;
        QTest::newRow("Absenderzeile") << eine << u"Muster · MUSTERWEG 12 · 01662 Meissen\nAn Kunde"_s
                                       << Richtung::Ausgang;
        QTest::newRow("Adressfeld") << eine << u"Herrn\nM. Muster\nMusterweg 12\n01662 Meißen\n"_s << Richtung::Eingang;
        QTest::newRow("umgekehrte Reihenfolge") << eine << u"01662 Meißen\nMusterweg 12"_s << Richtung::Eingang;
        QTest::newRow("Zeilenenden von Windows") << eine << u"Musterweg 12\r\n01662 Meißen\r\n"_s << Richtung::Eingang;
        QTest::newRow("Seitenwechsel trennt") << eine << u"Musterweg 12\f01662 Meißen"_s << Richtung::Eingang;
        QTest::newRow("zwei Zeilen Abstand") << eine << u"Musterweg 12\n\nc/o\n01662 Meißen"_s << Richtung::Eingang;
        QTest::newRow("zu weit auseinander") << eine << u"Musterweg 12\n\n\n\n01662 Meißen"_s << Richtung::Unbekannt;
        QTest::newRow("nur ein Teil") << eine << u"Musterweg 12\n01663 Coswig"_s << Richtung::Unbekannt;
        QTest::newRow("Absender geht vor Empfänger")
            << eine << u"Musterweg 12\n01662 Meißen\nMusterweg 12, 01662 Meißen"_s << Richtung::Ausgang;
        QTest::newRow("drei Teile in fünf Zeilen")
            << dreiteilig << u"Muster & Söhne\nx\nMusterweg 12\ny\n01662 Meißen"_s << Richtung::Eingang;
        QTest::newRow("drei Teile in sechs Zeilen")
            << dreiteilig << u"Muster & Söhne\nx\nMusterweg 12\ny\nz\n01662 Meißen"_s << Richtung::Unbekannt;
        QTest::newRow("zu kurze Teile zählen nicht")
            << QStringList{u"A1, B2, Meißen"_s} << u"a1 b2 meissen"_s << Richtung::Unbekannt;
        QTest::newRow("zweite Anschrift") << QStringList{u"Gibtesnicht 1, Nirgends"_s, eine.first()}
                                          << u"Musterweg 12, 01662 Meißen"_s << Richtung::Ausgang;
        QTest::newRow("Teile zweier Anschriften")
            << QStringList{u"Musterweg 12, Dresden"_s, u"Hauptstr. 5, 01662 Meißen"_s}
            << u"Musterweg 12, 01662 Meißen"_s << Richtung::Unbekannt;
    }
    void erkennen()
    {
        QFETCH(QStringList, anschriften);
        QFETCH(QString, text);
        QTEST(Rechnungsrichtung(anschriften).erkennen(text), "erwartet");
    }

    void berichtigen_data()
    {
        QTest::addColumn<QString>("rubrik");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("erwartet"); // "-": nothing to change
        const QString ausgang = u"Weg 100, 12345 Ort"_s;
        const QString eingang = u"Weg 100\n12345 Ort"_s;
        QTest::newRow("gedreht") << u"Eingangsrechnungen"_s << ausgang << u"Ausgangsrechnungen"_s;
        QTest::newRow("zurückgedreht") << u"Ausgangsrechnungen"_s << eingang << u"Eingangsrechnungen"_s;
        QTest::newRow("stimmt schon") << u"Ausgangsrechnungen"_s << ausgang << u"-"_s;
        QTest::newRow("unbekannt") << u"Eingangsrechnungen"_s << u"kein Wort davon"_s << u"-"_s;
        QTest::newRow("andere Rubrik") << u"Verträge"_s << ausgang << u"-"_s;
        QTest::newRow("keine Rubrik") << u""_s << ausgang << u"-"_s;
        QTest::newRow("Bindestrich trennt Wörter") << u"Ausgangs-Rechnungen"_s << ausgang << u"-"_s;
        QTest::newRow("Großschreibung") << u"AUSGANGSRECHNUNGEN"_s << ausgang << u"Ausgangsrechnungen"_s;
    }
    void berichtigen()
    {
        QFETCH(QString, rubrik);
        QFETCH(QString, text);
        Profil profil;
        profil.eigeneAnschriften = QStringList{u"Weg 100, 12345 Ort"_s};
        QTEST(Rechnungsrichtung::berichtigen(rubrik, text, profil).value_or(u"-"_s), "erwartet");
        profil.rubrikEingang.clear();
        QVERIFY(!Rechnungsrichtung::berichtigen(rubrik, text, profil));
    }
};

QTEST_GUILESS_MAIN(TestRechnungsrichtung)
#include "test_rechnungsrichtung.moc"
