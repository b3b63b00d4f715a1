#include "einordnung.h"

#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

namespace
{
Profil profil()
{
    Profil p;
    p.zweige = {
        {.name = u"Privat"_s,
         .ablagen = {{.name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Bescheide"_s, u"Belege"_s}},
                     {.name = u"Wohnung"_s, .mitJahr = false, .rubriken = {}}}},
        {.name = u"Büro"_s,
         .ablagen = {{.name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Umsatzsteuer"_s}}}}};
    return p;
}

QJsonObject objekt(const QByteArray &json) { return QJsonDocument::fromJson(json).object(); }
} // namespace

class TestEinordnung : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void anweisung()
    {
        const QString davor = u"Du bist Archivar einer deutschen Dokumentenablage.\n"_s;
        const QString mitte =
            u"\n\nDu bekommst den Text eines eingescannten Dokuments. Entscheide allein aus dem Inhalt.\n"
            "Der bisherige Dateiname kann ein Datum enthalten, ist sonst aber unzuverlaessig.\n\nLiefere:\n"
            "- datum: das Datum AUF dem Dokument, Format JJJJ-MM-TT. Kein Scandatum. Unbekannt heisst leer.\n"
            "- gegenueber: Name der ANDEREN Seite, also Absender oder Empfaenger. Ausgeschrieben mit\n"
            "  Leerzeichen, ohne Rechtsform. Beispiele: Finanzamt Meissen, GLS Bank, Telekom Deutschland.\n"
            "  Bei eigenen Ausgangsrechnungen ist das Gegenueber der Kunde.\n"
            "  WICHTIG: Das Gegenueber ist NIEMALS der Eigentuemer selbst"_s;
        const QString danach =
            u".\n  Steht der Eigentuemer als Absender, nimm den Empfaenger. Steht er als Empfaenger,\n"
            "  nimm den Absender. Gibt es keine andere Seite, lass das Feld leer.\n"
            "- titel: worum es konkret geht, kurz und sachlich. Er muss dieses Dokument von allen\n"
            "  anderen desselben Absenders unterscheidbar machen. Nenne Rechnungsnummer, Vertragsnummer,\n"
            "  Zeitraum oder Gegenstand. Keine Wiederholung des Gegenuebers, kein Datum im Titel.\n"
            "- zweig: einer von Privat, Büro.\n- ablage: eine von Steuern, Wohnung.\n"
            "- rubrik: exakt ein Eintrag aus der Liste des gewaehlten Zweigs und der gewaehlten Ablage.\n"
            "- konfidenz: Zahl zwischen 0 und 1.\n\nRubriken:\n"
            "Privat / Steuern: Bescheide, Belege\nPrivat / Wohnung: \nBüro / Steuern: Umsatzsteuer\n"
            "\nAntworte ausschliesslich mit einem JSON-Objekt mit den Schluesseln\n"
            "datum, gegenueber, titel, zweig, ablage, rubrik, konfidenz."_s;
        Profil p = profil();
        QCOMPARE(Einordnung::anweisung(p), davor + mitte + danach);
        p.eigentuemer = u"Anna Muster, Töpferin"_s;
        p.eigeneNamen = QStringList{u"Anna Muster "_s, u""_s, u"Tonwerk"_s, u"Anna Muster"_s};
        QCOMPARE(Einordnung::anweisung(p), davor + u"Eigentuemer: Anna Muster, Töpferin"_s + mitte +
                                               u", also nicht Anna Muster, Tonwerk"_s + danach);
    }

    void frage()
    {
        QCOMPARE(Einordnung::frage(u"A"_s, u"b.pdf"_s, u"Gru\u0308ße\nvon %1"_s, 6),
                 u"A\n\nBisheriger Dateiname: b.pdf\n\nDokumenttext:\n\"\"\"\nGru\u0308ße\n\n\"\"\""_s);
    }

    void auswerten_data()
    {
        QTest::addColumn<QByteArray>("antwort");
        QTest::addColumn<QString>("erwartet"); // date|counterpart|title|branch/kind/category|confidence
        QTest::newRow("vollständig")
            << QByteArray(R"({"datum":"2023-05-17","gegenueber":" Finanzamt\n","titel":"ESt","zweig":"Privat",
                             "ablage":"Steuern","rubrik":"Bescheide","konfidenz":0.8})")
            << u"2023-05-17|Finanzamt|ESt|Privat/Steuern/Bescheide|0.8"_s;
        const QByteArray ort = R"("zweig":"Privat","ablage":"Steuern","rubrik":"Bescheide")";
        const auto mit = [&](const QByteArray &felder) { return "{" + ort + "," + felder + "}"; };
        const QString amOrt = u"|Privat/Steuern/Bescheide|"_s;
        QTest::newRow("leer") << QByteArray("{}") << u"2020-01-31|||//|0"_s;
        QTest::newRow("zu sicher") << mit(R"("datum":"2023-01-01","konfidenz":1.7)")
                                   << u"2023-01-01||"_s + amOrt + u"1"_s;
        QTest::newRow("negativ") << mit(R"("datum":"2023-01-01","konfidenz":-0.2)")
                                 << u"2023-01-01||"_s + amOrt + u"0"_s;
        QTest::newRow("als Text") << mit(R"("datum":"2023-01-01","konfidenz":"0.9")")
                                  << u"2023-01-01||"_s + amOrt + u"0"_s;
        QTest::newRow("ganze Zahl") << mit(R"("datum":"2023-01-01","konfidenz":1)")
                                    << u"2023-01-01||"_s + amOrt + u"1"_s;
        QTest::newRow("nur die Form des Datums zählt")
            << mit(R"("datum":"2023-13-45","konfidenz":0.9)") << u"2023-13-45||"_s + amOrt + u"0.9"_s;
        QTest::newRow("deutsches Datum") << mit(R"("datum":"23.05.2023","konfidenz":0.9)")
                                         << u"2020-01-31||"_s + amOrt + u"0.9"_s;
        QTest::newRow("Datum mit Zeilenende")
            << mit(R"("datum":"2023-05-17\n","konfidenz":0.9)") << u"2023-05-17||"_s + amOrt + u"0.9"_s;
        QTest::newRow("Datum als Zahl") << mit(R"("datum":20230517,"titel":5,"gegenueber":null,"konfidenz":0.9)")
                                        << u"2020-01-31||"_s + amOrt + u"0.9"_s;
        QTest::newRow("Felder sind Listen")
            << QByteArray(R"({"titel":["a"],"zweig":["Privat"],"konfidenz":[1]})") << u"2020-01-31|||//|0"_s;
        QTest::newRow("Rubrik eines anderen Zweigs")
            << QByteArray(R"({"zweig":"Büro","ablage":"Steuern","rubrik":"Belege","konfidenz":0.9})")
            << u"2020-01-31|||Büro/Steuern/|0.4"_s;
        QTest::newRow("Ablage unbekannt")
            << QByteArray(R"({"zweig":"Büro","ablage":"Wohnung","rubrik":"Umsatzsteuer","konfidenz":0.9})")
            << u"2020-01-31|||Büro//|0.4"_s;
        QTest::newRow("Ausbruch") << QByteArray(R"({"zweig":"../../etc","ablage":"..","rubrik":"/","konfidenz":0.3})")
                                  << u"2020-01-31|||//|0.3"_s;
        QTest::newRow("beide Ebenen im Zweig")
            << QByteArray(R"({"zweig":"Privat / Steuern","ablage":"Steuern","rubrik":"Belege","konfidenz":0.3})")
            << u"2020-01-31|||Privat/Steuern/Belege|0.3"_s;
        QTest::newRow("beide Ebenen nur im Zweig")
            << QByteArray(R"({"zweig":"privat/steuern","ablage":"","rubrik":"Belege","konfidenz":0.3})")
            << u"2020-01-31|||Privat/Steuern/Belege|0.3"_s;
        QTest::newRow("beide Ebenen in der Ablage")
            << QByteArray(R"({"zweig":"BUERO","ablage":"Büro / Steuern","rubrik":"Umsatzsteuer","konfidenz":0.3})")
            << u"2020-01-31|||Büro/Steuern/Umsatzsteuer|0.3"_s;
        QTest::newRow("die Rubrik nur genau")
            << QByteArray(R"({"zweig":"privat","ablage":"S teuern","rubrik":"belege","konfidenz":0.3})")
            << u"2020-01-31|||Privat/Steuern/|0.3"_s;
        QTest::newRow("Fremdes in einem Pfad")
            << QByteArray(R"({"zweig":"Fremd / Steuern","ablage":"Steuern","rubrik":"Belege","konfidenz":0.3})")
            << u"2020-01-31|||//|0.3"_s;
        QTest::newRow("Leerraum und zerlegter Umlaut")
            << QByteArray("{\"zweig\":\" Bu\u0308ro \",\"konfidenz\":0}") << u"2020-01-31|||Büro//|0"_s;
    }
    void auswerten()
    {
        QFETCH(QByteArray, antwort);
        const auto e = Einordnung::auswerten(objekt(antwort), u"Scan 20200131.pdf"_s, profil());
        const Angaben &a = e.angaben;
        QTEST(QStringList({a.datum, a.gegenueber, a.titel, a.ort.zweig + u'/' + a.ort.ablage + u'/' + a.ort.rubrik,
                           QString::number(e.konfidenz)})
                  .join(u'|'),
              "erwartet");
    }

    void ohneDatumHoechstensVierZehntel()
    {
        const auto e =
            Einordnung::auswerten(objekt(R"({"zweig":"Privat","ablage":"Steuern","rubrik":"Belege","konfidenz":0.9})"),
                                  u"Scan.pdf"_s, profil());
        QCOMPARE(e.angaben.datum, QString());
        QCOMPARE(e.angaben.jahr, QString());
        QCOMPARE(e.angaben.ort.rubrik, u"Belege"_s);
        QCOMPARE(e.konfidenz, 0.4);
    }

    void datumAusName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("Unterstriche") << u"Brief 2023_05_17.pdf"_s << u"2023-05-17"_s;
        QTest::newRow("ohne Trenner") << u"19991231 x.pdf"_s << u"1999-12-31"_s;
        QTest::newRow("gemischt") << u"2023.05 17.pdf"_s << u"2023-05-17"_s;
        QTest::newRow("das erste") << u"2023-05-17 bis 2024-01-01"_s << u"2023-05-17"_s;
        QTest::newRow("falsches Jahrhundert") << u"1899 05 17.pdf"_s << u""_s;
        QTest::newRow("zwei Trenner") << u"2023--05-17"_s << u""_s;
        QTest::newRow("zu kurz") << u"2023-05"_s << u""_s;
        QTest::newRow("deutsch") << u"17.05.2023"_s << u""_s;
        QTest::newRow("fremde Ziffern") << u"20٢٣-٠٥-١٧"_s << u""_s;
        QTest::newRow("leer") << u""_s << u""_s;
    }
    void datumAusName()
    {
        QFETCH(QString, name);
        QTEST(Einordnung::datumAusName(name), "erwartet");
    }

    void istDatum()
    {
        QVERIFY(Einordnung::istDatum(u"2023-13-45"_s));
        for (const auto &falsch : {u""_s, u"2023-1-1"_s, u"2023-01-01\n"_s, u" 2023-01-01"_s, u"٢٠٢٣-٠١-٠١"_s})
            QVERIFY2(!Einordnung::istDatum(falsch), qPrintable(falsch));
    }

    void istTag_data()
    {
        QTest::addColumn<QString>("datum");
        QTest::addColumn<bool>("erwartet");
        for (const auto &gut : {u"1900-01-01"_s, u"2024-02-29"_s, u"2027-12-31"_s})
            QTest::newRow(qPrintable(gut)) << gut << true;
        for (const auto &falsch : {u""_s, u"0000-00-00"_s, u"9999-99-99"_s, u"2024-13-45"_s, u"2024-02-30"_s,
                                   u"1899-12-31"_s, u"2028-01-01"_s, u"2024-1-1"_s})
            QTest::newRow(qPrintable(u"nicht "_s + falsch)) << falsch << false;
    }
    void istTag()
    {
        QFETCH(QString, datum);
        QTEST(Einordnung::istTag(datum, QDate(2026, 11, 22)), "erwartet");
    }
};

QTEST_GUILESS_MAIN(TestEinordnung)
#include "test_einordnung.moc"
