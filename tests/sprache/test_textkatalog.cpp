#include "quelltexte.h"
#include "sprachsatz.h"
#include "textkatalog.h"

#include <QRegularExpression>
#include <QSet>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{
const QString wurzel = QStringLiteral(QUILLMAR_QUELLEN);

QStringList sortiert(const QSet<QString> &menge)
{
    QStringList liste = menge.values();
    liste.sort();
    return liste;
}

QSet<QString> katalog()
{
    const QStringList alle = Textkatalog::alle();
    return {alle.begin(), alle.end()};
}

QStringList platzhalter(const QString &text)
{
    static const QRegularExpression muster(u"%(?:@|\\.\\d+f|L?\\d+|n|s|d)"_s);
    QStringList liste;
    for (auto treffer = muster.globalMatch(text); treffer.hasNext();)
        liste << treffer.next().captured();
    return liste;
}
} // namespace

class TestTextkatalog : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void wasInEinerQuelleSteht_data()
    {
        QTest::addColumn<QString>("quelltext");
        QTest::addColumn<QStringList>("texte");
        QTest::addColumn<int>("verstoesse");
        QTest::newRow("Literal") << u"x = Sprache::text(u\"Ja \\\"%@\\\"\\n\"_s);"_s << QStringList{u"Ja \"%@\"\n"_s}
                                 << 0;
        QTest::newRow("mehrzeilig") << u"Sprache::text(\n    u\"Eins \"\n    u\"zwei\"_s)"_s
                                    << QStringList{u"Eins zwei"_s} << 0;
        QTest::newRow("Merker") << u"QUILLMAR_TEXT(u\"Drei\"), QUILLMAR_TEXT(u\"Vier\"_s)"_s
                                << QStringList{u"Drei"_s, u"Vier"_s} << 0;
        QTest::newRow("eines und mehrere")
            << u"Sprache::text(liste.size(), u\"%@ Blatt\"_s,\n u\"%@ \" \"Blätter\"_s)"_s
            << QStringList{u"%@ Blatt"_s, u"%@ Blätter"_s} << 0;
        QTest::newRow("Variable") << u"Sprache::text(titel)"_s << QStringList{} << 1;
        QTest::newRow("zwei zur Wahl") << u"Sprache::text(a ? u\"A\"_s : u\"B\"_s)"_s << QStringList{} << 1;
        QTest::newRow("zusammengesetzt") << u"Sprache::text(u\"A\"_s + b)"_s << QStringList{} << 1;
        QTest::newRow("ohne Aufruf") << u"transform(a, b, Sprache::text)"_s << QStringList{} << 1;
        QTest::newRow("leer") << u"Sprache::text(u\"\"_s)"_s << QStringList{} << 0;
        QTest::newRow("gekennzeichnet") << u"Sprache::text(/* QUILLMAR_TEXT */ titel)"_s << QStringList{} << 0;
        QTest::newRow("Kommentar") << u"// Sprache::text(titel)\n/* Sprache::text(b) */"_s << QStringList{} << 0;
        QTest::newRow("Schrägstriche im Text")
            << u"Sprache::text(u\"http://a\"_s)"_s << QStringList{u"http://a"_s} << 0;
    }

    void wasInEinerQuelleSteht()
    {
        QFETCH(QString, quelltext);
        Fund fund;
        ausQuelle(quelltext, u"datei"_s, fund);
        QTEST(sortiert(fund.texte), "texte");
        QTEST(int(fund.verstoesse.size()), "verstoesse");
    }

    // scripts/texte brings the catalogue up to date.
    void derKatalogHatGenauDieTexteDerQuellen()
    {
        const Fund fund = ausAllenQuellen(wurzel + u"/src"_s);
        QCOMPARE(fund.verstoesse, QStringList{});
        QCOMPARE(sortiert(fund.texte - katalog()), QStringList{});
        QCOMPARE(sortiert(katalog() - fund.texte), QStringList{});
    }

    void dieEnglischeDateiIstVollstaendig()
    {
        auto texte = spracheLesen(wurzel + u"/sprachen/en.json"_s);
        QVERIFY(texte);
        QCOMPARE(texte->take(u"_sprache"_s), u"English"_s);
        QStringList leer;
        QStringList falsch;
        for (auto it = texte->cbegin(); it != texte->cend(); ++it) {
            if (it.value().trimmed().isEmpty())
                leer << it.key();
            if (platzhalter(it.key()) != platzhalter(it.value()))
                falsch << it.key();
        }
        QCOMPARE(leer, QStringList{});
        QCOMPARE(falsch, QStringList{});
        const QSet<QString> schluessel(texte->keyBegin(), texte->keyEnd());
        QCOMPARE(sortiert(katalog() - schluessel), QStringList{});
        QCOMPARE(sortiert(schluessel - katalog()), QStringList{});
    }
};

QTEST_GUILESS_MAIN(TestTextkatalog)
#include "test_textkatalog.moc"
