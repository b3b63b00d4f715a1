#include "fehler.h"
#include "ziel.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
Profil profil()
{
    Profil p;
    p.zielWurzel = u"/ziel"_s;
    p.zweige = {{.name = u"Privat"_s,
                 .ablagen = {{.name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Bescheide"_s}},
                             {.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = QStringList{u"Auto/Kfz"_s}}}}};
    return p;
}

const QString altName = u"Scan.0017.PDF"_s;

Angaben angaben()
{
    return {.datum = u"2024-03-05"_s,
            .gegenueber = u"Stadtwerke"_s,
            .titel = u"Abschlag"_s,
            .ort = {.zweig = u"Privat"_s, .ablage = u"Stammdaten"_s, .rubrik = u"Auto/Kfz"_s},
            .jahr = u"2024"_s};
}
} // namespace

class TestZiel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dateiname_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<QString>("feld");
        QTest::addColumn<QString>("wert");
        QTest::addColumn<QString>("erwartet");
        const QString ueblich = Profil().namensVorlage;
        QTest::newRow("üblich") << ueblich << u""_s << u""_s << u"2024-03-05 Stadtwerke - Abschlag.pdf"_s;
        QTest::newRow("Gegenüber gesäubert")
            << ueblich << u"gegenueber"_s << u"A/B: C*D"_s << u"2024-03-05 A B C D - Abschlag.pdf"_s;
        QTest::newRow("Titel aus Punkten ist leer")
            << ueblich << u"titel"_s << u"..."_s << u"2024-03-05 Stadtwerke.pdf"_s;
        QTest::newRow("langer Titel") << u"{titel}"_s << u"titel"_s << QString(89, u'x') + u" - y"_s
                                      << QString(89, u'x') + u".pdf"_s;
        QTest::newRow("langes Gegenüber")
            << u"{gegenueber}"_s << u"gegenueber"_s << QString(70, u'x') << QString(60, u'x') + u".pdf"_s;
        QTest::newRow("Monat") << u"{jahr}_{monat}"_s << u""_s << u""_s << u"2024_03.pdf"_s;
        QTest::newRow("Monat ohne Datum") << u"{jahr}_{monat}"_s << u"datum"_s << u"2024"_s << u"2024.pdf"_s;
        QTest::newRow("bisheriger Name") << u"{altname} neu"_s << u""_s << u""_s << u"Scan.0017 neu.pdf"_s;
        QTest::newRow("alles leer") << u"{titel}"_s << u"titel"_s << u""_s << u"unbenannt.pdf"_s;
        QTest::newRow("Strich aus der Rubrik")
            << u"{rubrik}: {titel}"_s << u""_s << u""_s << u"Auto-Kfz: Abschlag.pdf"_s;
        QTest::newRow("Strich aus der Vorlage")
            << u"../{zweig}/{titel}"_s << u""_s << u""_s << u"Privat-Abschlag.pdf"_s;
        QTest::newRow("Zweig mit zerlegtem Umlaut") << u"{zweig}"_s << u"zweig"_s << u"Bu\u0308ro"_s << u"Büro.pdf"_s;
    }
    void dateiname()
    {
        QFETCH(QString, vorlage);
        QFETCH(QString, feld);
        QFETCH(QString, wert);
        Profil p = profil();
        p.namensVorlage = vorlage;
        Angaben a = angaben();
        const QMap<QString, QString *> felder = {{u"gegenueber"_s, &a.gegenueber},
                                                 {u"titel"_s, &a.titel},
                                                 {u"datum"_s, &a.datum},
                                                 {u"zweig"_s, &a.ort.zweig}};
        if (!feld.isEmpty())
            *felder.value(feld) = wert;
        QTEST(Ziel::dateiname(a, altName, p), "erwartet");
    }

    void einLangerNamePasstInsDateisystem()
    {
        Profil p = profil();
        p.namensVorlage = u"{gegenueber} {titel} {altname}"_s;
        Angaben a = angaben();
        a.gegenueber = QString(60, u'ä');
        a.titel = QString(90, u'ö');
        const QString name = Ziel::dateiname(a, altName, p);
        QVERIFY(name.endsWith(u"ö.pdf"_s));
        QVERIFY(name.toUtf8().size() > 250 && name.toUtf8().size() <= 255);
    }

    void ordner_data()
    {
        QTest::addColumn<Ort>("ort");
        QTest::addColumn<QString>("jahr");
        QTest::addColumn<QString>("erwartet");
        const QString p = u"Privat"_s;
        const QString s = u"Steuern"_s;
        const QString b = u"Bescheide"_s;
        QTest::newRow("mit Jahr") << Ort{p, s, b} << u"2024"_s << u"/ziel/Privat/Steuern/2024/Bescheide"_s;
        QTest::newRow("Jahr fehlt") << Ort{p, s, b} << u""_s << u"/ziel/Privat/prüfen"_s;
        QTest::newRow("Jahr zu lang") << Ort{p, s, b} << u"20244"_s << u"/ziel/Privat/prüfen"_s;
        QTest::newRow("ohne Jahre") << Ort{p, u"Stammdaten"_s, u"Auto/Kfz"_s} << u"2024"_s
                                    << u"/ziel/Privat/Stammdaten/Auto/Kfz"_s;
        QTest::newRow("Rubrik fehlt") << Ort{p, s, u""_s} << u"2024"_s << u"/ziel/Privat/prüfen"_s;
        QTest::newRow("Ablage unbekannt") << Ort{p, u"x"_s, b} << u"2024"_s << u"/ziel/Privat/prüfen"_s;
        QTest::newRow("Zweig unbekannt") << Ort{u"x"_s, s, b} << u"2024"_s << u"/ziel/x/prüfen"_s;
        QTest::newRow("Zweig fehlt") << Ort{} << u"2024"_s << u"/ziel/prüfen/prüfen"_s;
        QTest::newRow("kein Ausbruch") << Ort{u"../../etc"_s, s, b} << u"2024"_s << u"/ziel/etc/prüfen"_s;
        QTest::newRow("auch nicht durch die Rubrik")
            << Ort{p, s, u"../../../../etc"_s} << u"2024"_s << u"/ziel/Privat/Steuern/2024/etc"_s;
        QTest::newRow("auch nicht durch das Jahr") << Ort{p, s, b} << u"../."_s << u"/ziel/Privat/Steuern/Bescheide"_s;
    }
    void ordner()
    {
        QFETCH(Ort, ort);
        QFETCH(QString, jahr);
        QTEST(Ziel::ordner(ort, jahr, profil()), "erwartet");
    }

    // What the structure has read from the disk is no name to be cleaned.
    void bekannteEbenenBleibenWieSieSind()
    {
        Profil p = profil();
        p.zweige << Zweig{.name = u"Dr. Roth & Co."_s,
                          .ablagen = {{.name = u"Akten  alt"_s, .mitJahr = false, .rubriken = {u"Verträge usw."_s}}}};
        Ort ort = {u"Dr. Roth & Co."_s, u"Akten  alt"_s, u"Verträge usw."_s};
        QCOMPARE(Ziel::ordner(ort, {}, p), u"/ziel/Dr. Roth & Co./Akten  alt/Verträge usw."_s);
        ort.rubrik = u"Neues  usw."_s;
        QCOMPARE(Ziel::ordner(ort, {}, p), u"/ziel/Dr. Roth & Co./Akten  alt/Neues usw"_s);
    }

    void derDublettenordnerLiegtImZiel_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("erwartet"); // empty: refused
        QTest::newRow("Name") << u"Doppelt"_s << u"/ziel/Doppelt"_s;
        QTest::newRow("Pfad") << u"a/../b"_s << u"/ziel/b"_s;
        QTest::newRow("Ausbruch") << u"../woanders"_s << QString();
        QTest::newRow("daneben") << u"../ziel2"_s << QString();
        QTest::newRow("die Wurzel selbst") << u"."_s << QString();
        QTest::newRow("leer") << u""_s << QString();
    }
    void derDublettenordnerLiegtImZiel()
    {
        QFETCH(QString, name);
        Profil p = profil();
        p.dublettenOrdner = name;
        QString ordner;
        try {
            ordner = Ziel::dublettenordner(p);
        } catch (const Fehler &) {
            ordner.clear();
        }
        QTEST(ordner, "erwartet");
    }

    void andereVorlagen()
    {
        Profil p = profil();
        const Ort ort = {u"Privat"_s, u"Steuern"_s, u"Bescheide"_s};
        p.pfadVorlage = u"{jahr}/{datum}/{monat}/{titel}/Archiv/{rubrik}"_s;
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), u"/ziel/2024/Archiv/Bescheide"_s);
        // No level is joined with another one.
        p.pfadVorlage = u"{zweig}/{ablage}/{jahr} {rubrik}"_s;
        const Ort kfz = {u"Privat"_s, u"Stammdaten"_s, u"Auto/Kfz"_s};
        QCOMPARE(Ziel::ordner(kfz, u"2024"_s, p), u"/ziel/Privat/Stammdaten/Auto/Kfz"_s);
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), u"/ziel/Privat/Steuern/2024 Bescheide"_s);
        p.pfadVorlage = u"{zweig}/{jahr}-{monat}/{a/b}/{rubrik}"_s;
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), u"/ziel/Privat/2024/Bescheide"_s);
        p.pfadVorlage = u""_s;
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), u"/ziel"_s);
        p.zielWurzel = u"/Bu\u0308ro/"_s;
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), u"/Büro"_s);
        p.zielWurzel.clear();
        QCOMPARE(Ziel::ordner(ort, u"2024"_s, p), QDir::tempPath());
    }
};

QTEST_GUILESS_MAIN(TestZiel)
#include "test_ziel.moc"
