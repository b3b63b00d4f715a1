#include "datenbank.h"
#include "dubletten.h"
#include "paare.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;
using Paare::Abdruck;
using Paare::Paar;

namespace
{
QList<quint64> zahlen(quint64 von, qsizetype anzahl)
{
    QList<quint64> liste;
    for (qsizetype i = 0; i < anzahl; ++i)
        liste << von + quint64(i);
    return liste;
}

double jaccard(const QList<quint64> &a, const QList<quint64> &b)
{
    const QSet<quint64> x(a.begin(), a.end());
    const QSet<quint64> y(b.begin(), b.end());
    const auto gemeinsam = (QSet<quint64>(x) &= y).size();
    return double(gemeinsam) / double(x.size() + y.size() - gemeinsam);
}

/** Every document with every earlier one. */
QList<Paar> schlicht(QList<Abdruck> alle)
{
    std::sort(alle.begin(), alle.end(), [](const Abdruck &a, const Abdruck &b) { return a.id < b.id; });
    QList<Paar> paare;
    for (qsizetype i = 0; i < alle.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j) {
            if (alle.at(i).werte.size() < 16 || alle.at(j).werte.size() < 16)
                continue;
            if (const double wert = jaccard(alle.at(i).werte, alle.at(j).werte); wert >= 0.75) {
                paare << Paar{.id = alle.at(i).id, .partner = alle.at(j).id, .aehnlichkeit = wert};
                break;
            }
        }
    }
    return paare;
}

/** Families of sketches: each takes most of its values from a small common stock, so that many are near the border. */
QList<Abdruck> familien(quint32 saat)
{
    QRandomGenerator zufall(saat);
    QList<Abdruck> alle;
    for (qint64 id = 1; id <= 60; ++id) {
        QList<quint64> werte = zahlen(1000 * zufall.bounded(6U), zufall.bounded(12, 65));
        const int getauscht = zufall.bounded(1 + int(werte.size()) / 4);
        for (int n = 0; n < getauscht; ++n)
            werte[zufall.bounded(int(werte.size()))] = 100'000 + zufall.bounded(40U);
        const QSet<quint64> menge(werte.begin(), werte.end());
        alle << Abdruck{.id = id * 7 % 61, .werte = menge.values()};
    }
    return alle;
}
} // namespace

class TestPaare : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** What is sieved out would not have become a partner. */
    void dasSiebLaesstKeinPaarFallen()
    {
        qsizetype gesiebte = 0;
        for (quint32 saat = 0; saat < 60; ++saat) {
            QList<Abdruck> alle = familien(saat);
            for (Abdruck &a : alle)
                a.neu = a.id > 50;
            QList<Abdruck> rest = alle;
            rest.removeIf([](const Abdruck &a) { return !a.neu; });
            const Paare::Sieb sieb(rest);
            for (const Abdruck &a : alle) {
                if (!a.neu && sieb.laesstDurch(a.werte))
                    rest << a;
            }
            gesiebte += alle.size() - rest.size();
            QCOMPARE(Paare::finden(rest), Paare::finden(alle));
        }
        QVERIFY(gesiebte > 0);
        const Paare::Sieb sieb({{.id = 1, .werte = zahlen(0, 64)}});
        QVERIFY(sieb.laesstDurch(zahlen(16, 64)));
        QVERIFY(!sieb.laesstDurch(zahlen(17, 64)));
    }

    void wieDerSchlichteVergleich()
    {
        qsizetype gefunden = 0;
        for (quint32 saat = 0; saat < 60; ++saat) {
            const QList<Abdruck> alle = familien(saat);
            const QList<Paar> paare = Paare::finden(alle);
            QVERIFY2(paare == schlicht(alle), qPrintable(u"seed %1"_s.arg(saat)));
            gefunden += paare.size();
        }
        QVERIFY(gefunden > 300);
    }

    void schwelle_data()
    {
        QTest::addColumn<int>("umfangA");
        QTest::addColumn<int>("umfangB");
        QTest::addColumn<int>("gemeinsam");
        QTest::addColumn<double>("erwartet"); // 0: no pair
        QTest::newRow("genau 0,75") << 64 << 48 << 48 << 0.75;
        QTest::newRow("genau 0,75 bei gleicher Größe") << 56 << 56 << 48 << 0.75;
        QTest::newRow("eben darunter") << 64 << 64 << 54 << 0.0;
        QTest::newRow("eben darüber") << 64 << 64 << 55 << 55.0 / 73;
        QTest::newRow("gleich") << 16 << 16 << 16 << 1.0;
        QTest::newRow("zu klein") << 15 << 15 << 15 << 0.0;
        QTest::newRow("einer zu klein") << 16 << 15 << 15 << 0.0;
        QTest::newRow("nichts gemeinsam") << 64 << 64 << 0 << 0.0;
    }
    void schwelle()
    {
        QFETCH(int, umfangA);
        QFETCH(int, umfangB);
        QFETCH(int, gemeinsam);
        QFETCH(double, erwartet);
        const QList<Abdruck> beide = {{.id = 9, .werte = zahlen(0, umfangA)},
                                      {.id = 4, .werte = zahlen(quint64(umfangA - gemeinsam), umfangB)}};
        const QList<Paar> soll =
            erwartet > 0 ? QList{Paar{.id = 9, .partner = 4, .aehnlichkeit = erwartet}} : QList<Paar>();
        QVERIFY(Paare::finden(beide) == soll);
        QVERIFY(Paare::finden({}).isEmpty());
    }

    void welcheKopieBleibt_data()
    {
        QTest::addColumn<QStringList>("pfade");
        QTest::addColumn<int>("bleibt");
        QTest::newRow("kürzester Pfad") << QStringList{u"/a/lang"_s, u"/a/b"_s, u"/a/mittel"_s} << 1;
        QTest::newRow("fester Ort vor Eingang") << QStringList{u"/Inbox/a"_s, u"/viel/laengerer/Ort/a"_s} << 1;
        QTest::newRow("fester Ort vor prüfen") << QStringList{u"/a/prüfen/x"_s, u"/a/geprueft/xx"_s} << 1;
        QTest::newRow("alle im Eingang") << QStringList{u"/Inbox/lang"_s, u"/Inbox/b"_s} << 1;
        QTest::newRow("inbox ist kein Eingang") << QStringList{u"/inbox/a"_s, u"/andere/a"_s} << 0;
        QTest::newRow("im Dateinamen auch") << QStringList{u"/a/Inbox.pdf"_s, u"/a/laenger/x.pdf"_s} << 1;
        QTest::newRow("gleich lang: der erste") << QStringList{u"/b"_s, u"/a"_s, u"/c"_s} << 0;
        QTest::newRow("Zeichen, nicht Bytes") << QStringList{u"/x/abcd"_s, u"/x/👨‍👩‍👧"_s} << 1;
    }
    void welcheKopieBleibt()
    {
        QFETCH(QStringList, pfade);
        QFETCH(int, bleibt);
        const QTemporaryDir ordner;
        Datenbank db(ordner.filePath(u"k.db"_s));
        Dubletten::Gruppen gruppen;
        for (const QString &pfad : pfade) {
            db.ausfuehren(u"INSERT INTO dokumente (pfad) VALUES (?)"_s, {pfad});
            gruppen[u"hash"_s] << Dubletten::Mitglied{.id = gruppen[u"hash"_s].size() + 1, .pfad = pfad};
        }
        gruppen[u"einzeln"_s] << Dubletten::Mitglied{.id = 99, .pfad = u"/z"_s};
        QCOMPARE(Dubletten::dublettenMarkieren(db, gruppen, 0.99), pfade.size() - 1);
        for (const Zeile &z : db.abfragen(u"SELECT * FROM dokumente"_s)) {
            const bool dublette = z.ganz(u"id") != bleibt + 1;
            QCOMPARE(z.text(u"status"), dublette ? u"dublette"_s : u"neu"_s);
            QCOMPARE(z.ganz(u"dublette_von"), dublette ? bleibt + 1 : 0);
            QCOMPARE(z.komma(u"aehnlichkeit"), dublette ? 0.99 : 0.0);
        }
    }

    void werSchonWeiterIstBleibtWieErIst()
    {
        const QTemporaryDir ordner;
        Datenbank db(ordner.filePath(u"k.db"_s));
        db.ausfuehren(u"INSERT INTO dokumente (pfad, status) VALUES ('/a','neu'), ('/bb','erledigt')"_s);
        const Dubletten::Gruppen gruppen = {{u"h"_s, {{.id = 1, .pfad = u"/a"_s}, {.id = 2, .pfad = u"/bb"_s}}}};
        QCOMPARE(Dubletten::dublettenMarkieren(db, gruppen, 1.0), 1);
        const Zeile z = db.abfragen(u"SELECT * FROM dokumente WHERE id=2"_s).first();
        QCOMPARE(z.text(u"status"), u"erledigt"_s);
        QCOMPARE(z.ganz(u"dublette_von"), 0);
    }
};

QTEST_GUILESS_MAIN(TestPaare)
#include "test_paare.moc"
