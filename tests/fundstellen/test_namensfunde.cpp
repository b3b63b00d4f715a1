#include "belege.h"
#include "brief.h"
#include "namensfunde.h"
#include "rechtsform.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::fundstellen;

class TestNamensfunde : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stellen_data()
    {
        QTest::addColumn<QStringList>("zeilen");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("erwartet");
        const auto zeile = [](const char *was, const QStringList &zeilen, const QString &name, const QString &wo) {
            QTest::newRow(was) << zeilen << name << wo;
        };
        const QString werke = u"Stadtwerke Meißen"_s;
        zeile("wie geschrieben", {u"Ihre Stadtwerke Meißen GmbH"_s}, werke, u"Stadtwerke Meißen"_s);
        zeile("Umlaute", {u"STADTWERKE MEISSEN"_s}, werke, u"STADTWERKE MEISSEN"_s);
        zeile("mit Rechtsform gesucht", {u"Stadtwerke Meißen"_s}, u"Stadtwerke Meißen GmbH & Co. KG"_s,
              u"Stadtwerke Meißen"_s);
        zeile("über das Zeilenende", {u"von Ihren Stadtwerken und Stadtwerke"_s, u"Meißen aus"_s}, werke,
              u"Stadtwerke Meißen"_s);
        zeile("getrennt", {u"an die Stadt-"_s, u"werke Meißen"_s}, werke, u"Stadt- werke Meißen"_s);
        zeile("mit Bindestrich", {u"Elbtal-Energie"_s}, u"Elbtal Energie"_s, u"Elbtal-Energie"_s);
        zeile("zusammen", {u"ElbtalEnergie"_s}, u"Elbtal Energie"_s, u"ElbtalEnergie"_s);
        zeile("ein Buchstabe falsch erkannt", {u"Stadtwerkc Meißen"_s}, werke, u"Stadtwerkc Meißen"_s);
        zeile("einer verloren", {u"Stadtwrke Meißen"_s}, werke, u"Stadtwrke Meißen"_s);
        zeile("und als Zeichen", {u"Müller & Söhne"_s}, u"Müller und Söhne"_s, u"Müller & Söhne"_s);
        zeile("Zeichen als und", {u"Müller und Söhne"_s}, u"Müller & Söhne"_s, u"Müller und Söhne"_s);
        zeile("mit Fachrichtung", {u"Dr. med. Anna Schulz"_s}, u"Dr. Anna Schulz"_s, u"Dr. med. Anna Schulz"_s);
        zeile("mit zweitem Namen", {u"Anna M. Schulz"_s}, u"Anna Schulz"_s, u"Anna M. Schulz"_s);
        zeile("andere Rechtsform", {u"Acme"_s}, u"Acme eG"_s, u"Acme"_s);
        zeile("zwei sind zu viele", {u"Stadtwcrkc Meißen"_s}, werke, {});
        zeile("kurze Wörter genau", {u"GLZ Bank"_s}, u"GLS Bank"_s, {});
        zeile("Rechtsform mittendrin", {u"Meier GmbH Bau"_s}, u"Meier Bau"_s, u"Meier GmbH Bau"_s);
        zeile("Nachname voran", {u"Müller, Anna"_s}, u"Anna Müller"_s, u"Müller, Anna"_s);
        zeile("nur ein Teil", {u"Stadtwerke Dresden"_s}, werke, {});
        zeile("Teil eines Wortes", {u"Hauptpostamt"_s}, u"Post"_s, {});
        zeile("Netz zuletzt", {u"www.telekom.de"_s, u"Ihre Telekom"_s}, u"Telekom"_s, u"Telekom"_s);
        zeile("genau vor ungefähr", {u"Landesbanc Sachsen"_s, u"Landesbank Sachsen"_s}, u"Landesbank Sachsen"_s,
              u"Landesbank Sachsen"_s);
        zeile("ohne Buchstaben", {u"–"_s}, u"–"_s, {});
    }
    void stellen()
    {
        QFETCH(QStringList, zeilen);
        QFETCH(QString, name);
        const auto seiten = brief(zeilen);
        QTEST(wortlaut(seiten, Namensfunde::zu(seiten, name)), "erwartet");
    }

    void vorneImBrief()
    {
        const QList<Wortfolge> seiten = wortfolgen({getippt({u"Anlage"_s}), getippt({u"Telekom"_s})});
        QCOMPARE(Namensfunde::zu(seiten, u"Telekom"_s)->seite, 1);
        QStringList zeilen(40);
        zeilen.first() = u"Telekom"_s;
        zeilen << u"Telekom"_s;
        QCOMPARE(Namensfunde::zu(brief(zeilen), u"Telekom"_s)->wort, 0);
    }

    void rechtsformen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("ohne");
        QTest::newRow("GmbH") << u"Stadtwerke Meißen GmbH"_s << u"Stadtwerke Meißen"_s;
        QTest::newRow("lange Form") << u"Meier Bau GmbH & Co. KG"_s << u"Meier Bau"_s;
        QTest::newRow("mit Komma") << u"Meier Bau, Inc."_s << u"Meier Bau"_s;
        QTest::newRow("e. V.") << u"Turnverein e. V."_s << u"Turnverein"_s;
        QTest::newRow("keine") << u"Finanzamt Meißen"_s << u"Finanzamt Meißen"_s;
        QTest::newRow("mittendrin bleibt sie") << u"Meier GmbH Bau"_s << u"Meier GmbH Bau"_s;
        QTest::newRow("nichts sonst") << u"GmbH"_s << u"GmbH"_s;
    }
    void rechtsformen()
    {
        QFETCH(QString, name);
        QTEST(quillmar::regeln::Rechtsform::ausgeschriebenOhne(name), "ohne");
    }
};

QTEST_GUILESS_MAIN(TestNamensfunde)
#include "test_namensfunde.moc"
