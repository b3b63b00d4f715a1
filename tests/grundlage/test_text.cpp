#include "text.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::grundlage;

namespace
{
/** The rule that gefaltet() makes one pass of, step by step: replacements in order, then regular expressions. */
QString nachDerRegel(QString text, Faltung faltung)
{
    text = text.normalized(QString::NormalizationForm_C).toLower();
    text.replace(u'ä', u'a').replace(u'ö', u'o').replace(u'ü', u'u').replace(u"ß"_s, u"ss"_s);
    text.replace(u"ae"_s, u"a"_s).replace(u"oe"_s, u"o"_s).replace(u"ue"_s, u"u"_s);
    if (faltung == Faltung::Rubriken)
        return text.remove(QRegularExpression(u"[^a-z0-9/]"_s));
    text.replace(u'-', u' ').remove(QRegularExpression(u"[^a-z0-9 ]"_s)).replace(QRegularExpression(u" +"_s), u" "_s);
    while (text.startsWith(u' '))
        text.remove(0, 1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

/** Texts put together from @p stuecke, the same in every run. */
QStringList erfundene(const QStringList &stuecke, int anzahl)
{
    QRandomGenerator zufall(20240305);
    QStringList texte;
    for (int n = 0; n < anzahl; ++n) {
        QString text;
        for (int teil = zufall.bounded(12); teil > 0; --teil)
            text += stuecke.at(zufall.bounded(int(stuecke.size())));
        texte << text;
    }
    return texte;
}

const QString familie = u"\U0001F468\u200D\U0001F469\u200D\U0001F467"_s;
const QString kombiniertesE = u"e\u0301"_s;
} // namespace

class TestText : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void gefalteteNamen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("namen");
        QTest::addColumn<QString>("rubriken");
        QTest::newRow("leer") << QString() << QString() << QString();
        QTest::newRow("Umlaut und Bindestrich")
            << u"Müller-Lüdenscheidt"_s << u"muller ludenscheidt"_s << u"mullerludenscheidt"_s;
        QTest::newRow("umschrieben") << u"Mueller Luedenscheidt"_s << u"muller ludenscheidt"_s
                                     << u"mullerludenscheidt"_s;
        QTest::newRow("zerlegter Umlaut") << u"Mu\u0308ller"_s << u"muller"_s << u"muller"_s;
        QTest::newRow("Umlaut vor e") << u"Bäer"_s << u"bar"_s << u"bar"_s;
        QTest::newRow("e nach dem Paar") << u"aee"_s << u"ae"_s << u"ae"_s;
        QTest::newRow("Bindestrich trennt das Paar") << u"ue-e"_s << u"u e"_s << u"ue"_s;
        QTest::newRow("Punkt trennt das Paar") << u"u.e"_s << u"ue"_s << u"ue"_s;
        QTest::newRow("scharfes S") << u"Straße STRAẞE"_s << u"strasse strasse"_s << u"strassestrasse"_s;
        QTest::newRow("Kelvinzeichen") << u"\u212AG"_s << u"kg"_s << u"kg"_s;
        QTest::newRow("großes I mit Punkt") << u"\u0130zmir"_s << u"izmir"_s << u"izmir"_s;
        QTest::newRow("Zeichen fallen ohne Lücke weg") << u"A. & B. e.V."_s << u"a b ev"_s << u"abev"_s;
        QTest::newRow("nur Ränder") << u" - . - "_s << QString() << QString();
        QTest::newRow("geschütztes Leerzeichen") << u"a\u00A0b"_s << u"ab"_s << u"ab"_s;
        QTest::newRow("Schrägstrich") << u"Kfz/Gebühren"_s << u"kfzgebuhren"_s << u"kfz/gebuhren"_s;
        QTest::newRow("außerhalb der Grundebene") << u"a\U0001D400b"_s << u"ab"_s << u"ab"_s;
    }

    void gefalteteNamen()
    {
        QFETCH(QString, text);
        QTEST(gefaltet(text, Faltung::Namen), "namen");
        QTEST(gefaltet(text, Faltung::Rubriken), "rubriken");
        QTEST(nachDerRegel(text, Faltung::Namen), "namen");
        QTEST(nachDerRegel(text, Faltung::Rubriken), "rubriken");
    }

    void dasFaltenFolgtDerRegelAuchBeiErfundenen()
    {
        const QStringList stuecke{u"a"_s,       u"e"_s,       u"o"_s,      u"u"_s,         u"E"_s,      u"ä"_s,
                                  u"Ö"_s,       u"ü"_s,       u"ß"_s,      u"ẞ"_s,         u"-"_s,      u" "_s,
                                  u"."_s,       u"/"_s,       u"s"_s,      u"K"_s,         u"7"_s,      u"&"_s,
                                  u"u\u0308"_s, u"A\u0308"_s, u"\u212A"_s, u"é"_s,         u"\u0130"_s, u"\u0301"_s,
                                  u"Σ"_s,       u"\u00A0"_s,  u"\t"_s,     u"\U0001F600"_s};
        for (const QString &text : erfundene(stuecke, 5000)) {
            QCOMPARE(gefaltet(text, Faltung::Namen), nachDerRegel(text, Faltung::Namen));
            QCOMPARE(gefaltet(text, Faltung::Rubriken), nachDerRegel(text, Faltung::Rubriken));
        }
    }

    void gezaehlteZeichen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("anzahl");
        QTest::addColumn<int>("sichtbar");
        QTest::addColumn<QString>("ersteZwei");
        QTest::newRow("leer") << QString() << 0 << 0 << QString();
        QTest::newRow("einfach") << u"Tür"_s << 3 << 3 << u"Tü"_s;
        QTest::newRow("zerlegt") << u"Tu\u0308r"_s << 3 << 3 << u"Tu\u0308"_s;
        QTest::newRow("Zeichen hinter der Grenze")
            << u"a"_s + kombiniertesE + u"b"_s << 3 << 3 << u"a"_s + kombiniertesE;
        QTest::newRow("Ersatzpaar") << u"\U0001F600\U0001F600\U0001F600"_s << 3 << 3 << u"\U0001F600\U0001F600"_s;
        QTest::newRow("Familie") << familie + u"xy"_s << 3 << 3 << familie + u"x"_s;
        QTest::newRow("Flaggen") << u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7!"_s << 3 << 3
                                 << u"\U0001F1E9\U0001F1EA\U0001F1EB\U0001F1F7"_s;
        QTest::newRow("Zeilenende") << u"a\r\nb"_s << 3 << 2 << u"a\r\n"_s;
        QTest::newRow("Leerraum") << u" \u00A0\t\n\u2003x"_s << 6 << 1 << u" \u00A0"_s;
    }

    void gezaehlteZeichen()
    {
        QFETCH(QString, text);
        QTEST(int(zeichenAnzahl(text)), "anzahl");
        QTEST(int(sichtbareZeichen(text)), "sichtbar");
        QTEST(ersteZeichen(text, 2), "ersteZwei");
        QCOMPARE(ersteZeichen(text, 0), QString());
        QCOMPARE(ersteZeichen(text, -1), QString());
        QCOMPARE(ersteZeichen(text, zeichenAnzahl(text)), text);
    }

    void einAnfangHatSovieleZeichenWieVerlangt()
    {
        const QStringList stuecke{u"a"_s, u"ü"_s, kombiniertesE, familie, u"\r\n"_s, u"\u0308"_s, u" "_s, u"\r"_s};
        for (const QString &text : erfundene(stuecke, 1000)) {
            const qsizetype alle = zeichenAnzahl(text);
            for (qsizetype n = 0; n <= alle; ++n) {
                const QString anfang = ersteZeichen(text, n);
                QVERIFY(text.startsWith(anfang));
                QCOMPARE(zeichenAnzahl(anfang), n);
            }
        }
    }

    void zeilen_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QStringList>("zeilen");
        QTest::newRow("leer") << QString() << QStringList();
        QTest::newRow("nur Leeres") << u"\n \n\t\n"_s << QStringList();
        QTest::newRow("zwei") << u" Anna Muster \n\nMuster Lichtbilder"_s
                              << QStringList{u"Anna Muster"_s, u"Muster Lichtbilder"_s};
        QTest::newRow("mit Wagenrücklauf") << u"a\r\nb\r\n"_s << QStringList{u"a"_s, u"b"_s};
    }
    void zeilen()
    {
        QFETCH(QString, text);
        QTEST(zeilenAus(text), "zeilen");
    }

    void gefuellteMuster_data()
    {
        QTest::addColumn<QString>("muster");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("beide") << u"%@ von %@ gelesen"_s << u"1 von %@ gelesen"_s;
        QTest::newRow("nur einer") << u"Seite %@"_s << u"Seite 1"_s;
        QTest::newRow("keiner") << u"100 %"_s << u"100 %"_s;
        QTest::newRow("drei") << u"%@%@%@"_s << u"1%@%@"_s;
    }

    // The second value looks like a placeholder itself.
    void gefuellteMuster()
    {
        QFETCH(QString, muster);
        QTEST(gefuellt(muster, {u"1"_s, u"%@"_s}), "erwartet");
    }
};

QTEST_GUILESS_MAIN(TestText)
#include "test_text.moc"
