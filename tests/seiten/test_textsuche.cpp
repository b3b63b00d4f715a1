#include "textsuche.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::seiten;

namespace
{
Wortkarte seite(const QString &worte)
{
    Seitenworte ergebnis;
    const QStringList teile = worte.split(u' ', Qt::SkipEmptyParts);
    for (const QString &wort : teile)
        ergebnis << Seitenwort{.text = wort, .ort = {0.1, 0.02 * double(ergebnis.size()), 0.1, 0.02}};
    return Wortkarte(ergebnis);
}

Textkarte karte()
{
    return Textkarte({seite(u"Müller & Söhne Straße 5 — 12,50 EUR Quelle RE‑2024 neue"_s), seite({}),
                      seite(u"Mueller Cafe\u0301 STRASSE 1250 ﬁnden Söhne"_s)});
}
} // namespace

class TestTextsuche : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void funde_data()
    {
        QTest::addColumn<QString>("anfrage");
        QTest::addColumn<QStringList>("gefunden");
        const auto zeile = [](const char *name, const QString &anfrage, const QStringList &gefunden) {
            QTest::newRow(name) << anfrage << gefunden;
        };
        zeile("Umlaut", u"müller"_s, {u"Müller"_s, u"Mueller"_s});
        zeile("ausgeschrieben", u"MUELLER"_s, {u"Müller"_s, u"Mueller"_s});
        zeile("ohne Punkte", u"muller"_s, {u"Müller"_s});
        zeile("scharfes s", u"strasse"_s, {u"Straße"_s, u"STRASSE"_s});
        zeile("Akzent in zwei Zeichen", u"café"_s, {u"Cafe\u0301"_s});
        zeile("ohne Akzent", u"cafe"_s, {u"Cafe\u0301"_s});
        zeile("verbundene Buchstaben", u"finden"_s, {u"ﬁnden"_s});
        zeile("mitten im Wort", u"elle"_s, {u"Mueller"_s, u"Quelle"_s, u"Müller"_s});
        zeile("nicht jedes u", u"neue"_s, {u"neue"_s});
        zeile("Satzzeichen zählen", u"12,5"_s, {u"12,50"_s});
        zeile("anderer Strich", u"re-2024"_s, {u"RE‑2024"_s});
        zeile("über Wörter", u"ne  straße 5"_s, {u"Söhne Straße 5"_s});
        zeile("nicht über Seiten", u"neue mueller"_s, {});
        zeile("zweimal", u"söhne"_s, {u"Söhne"_s, u"Söhne"_s});
        zeile("fehlt", u"Strom"_s, {});
        zeile("nichts", u"  "_s, {});
        zeile("nur ein Akzent", u"\u0301"_s, {});
    }
    void funde()
    {
        QFETCH(const QString, anfrage);
        QFETCH(QStringList, gefunden);
        QStringList texte;
        const QList<Wortspanne> funde = Textsuche(karte()).funde(anfrage);
        QVERIFY(std::is_sorted(funde.cbegin(), funde.cend()));
        for (const Wortspanne &fund : funde)
            texte << karte().phrase(fund);
        texte.sort();
        gefunden.sort();
        QCOMPARE(texte, gefunden);
    }

    void treffer()
    {
        const QList<Wortspanne> funde = Textsuche(karte()).funde(u"söhne"_s);
        Treffer treffer(funde, {1, 0});
        QCOMPARE(treffer.nummer(), 2);
        QCOMPARE(treffer.jetziger(), funde.last());
        treffer.weiter(1);
        QCOMPARE(treffer.nummer(), 1);
        treffer.weiter(-3);
        QCOMPARE(treffer.jetziger(), funde.last());
        QCOMPARE(Treffer(funde, {2, 9}).nummer(), 1);
        Treffer keiner({}, {0, 0});
        keiner.weiter(1);
        QCOMPARE(keiner.nummer(), 0);
        QCOMPARE(keiner.jetziger(), std::nullopt);
    }
};

QTEST_APPLESS_MAIN(TestTextsuche)
#include "test_textsuche.moc"
