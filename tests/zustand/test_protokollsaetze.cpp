#include "protokollkarte.h"
#include "sprache.h"

#include <QtTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

namespace
{
QDateTime zeit(int sekunde) { return {QDate(2025, 1, 31), QTime(14, 5, sekunde)}; }

Protokollkopf kopf(const QString &quelle, const QString &ziel, bool kopieren = false)
{
    Protokollkopf k;
    k.quelle = quelle;
    k.ziel = ziel;
    k.kopieren = kopieren;
    return k;
}
} // namespace

/** What the log card says in each of its states. */
class TestProtokollsaetze : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        Sprache::setzeGewaehlteKennung(u"de"_s);
        QLocale::setDefault(QLocale(QLocale::German));
    }

    void sitzung_data()
    {
        QTest::addColumn<std::optional<Sitzungsbild>>("bild");
        QTest::addColumn<bool>("sekunden");
        QTest::addColumn<bool>("laufend");
        QTest::addColumn<QString>("titel");
        QTest::addColumn<QString>("inhalt");
        using Bild = std::optional<Sitzungsbild>;
        QTest::newRow("ungelesen") << Bild() << false << false << u"Protokoll 1.jsonl"_s << QString();
        QTest::newRow("ohne Kopf") << Bild({{}, zeit(9), 2, false}) << false << false << u"Protokoll 1.jsonl"_s
                                   << u"2 Bewegungen"_s;
        QTest::newRow("eine") << Bild({zeit(3), zeit(9), 1, false}) << false << false << u"31. Januar 2025, 14:05"_s
                              << u"1 Bewegung"_s;
        QTest::newRow("mit Sekunden") << Bild({zeit(3), zeit(9), 1200, false}) << true << false
                                      << u"31. Januar 2025, 14:05:03"_s << u"1.200 Bewegungen"_s;
        QTest::newRow("laufend") << Bild({zeit(3), zeit(9), 3, false}) << false << true << u"31. Januar 2025, 14:05"_s
                                 << u"3 Bewegungen, zuletzt um 14:05"_s;
        QTest::newRow("laufend, leer") << Bild({zeit(3), {}, 0, false}) << false << true << u"31. Januar 2025, 14:05"_s
                                       << u"0 Bewegungen"_s;
        QTest::newRow("zurückgedreht") << Bild({zeit(3), zeit(9), 3, true}) << false << true
                                       << u"31. Januar 2025, 14:05"_s << u"3 Bewegungen, zurückgedreht"_s;
    }
    void sitzung()
    {
        QFETCH(const std::optional<Sitzungsbild>, bild);
        QFETCH(const bool, sekunden);
        QFETCH(const bool, laufend);
        QTEST(sitzungszeit(u"/logs/Protokoll 1.jsonl"_s, bild, sekunden), "titel");
        QTEST(sitzungsinhalt(bild, laufend), "inhalt");
    }

    void anzahl_data()
    {
        QTest::addColumn<int>("alle");
        QTest::addColumn<bool>("nurLaufende");
        QTest::addColumn<QString>("satz");
        QTest::newRow("keines") << 0 << true << u"Im Protokollordner liegt noch nichts."_s;
        QTest::newRow("nur das laufende") << 1 << true << u"Im Protokollordner liegt nur die laufende Sitzung."_s;
        QTest::newRow("eines") << 1 << false << u"1 Protokoll gefunden."_s;
        QTest::newRow("zwei") << 2 << false << u"2 Protokolle gefunden, neueste zuerst."_s;
    }
    void anzahl()
    {
        QFETCH(const int, alle);
        QFETCH(const bool, nurLaufende);
        QTEST(protokollanzahl(alle, nurLaufende), "satz");
    }

    void ordner_data()
    {
        QTest::addColumn<QString>("ziel");
        QTest::addColumn<QString>("eigener");
        QTest::addColumn<QString>("satz");
        QTest::newRow("ohne Ziel") << QString() << QString() << u"noch kein Zielordner"_s;
        QTest::newRow("Standard") << QDir::homePath() + u"/Ablage"_s << QString()
                                  << u"Standard: ~/Ablage/_Protokolle"_s;
        QTest::newRow("eigener") << u"/ablage"_s << u"/logs"_s << u"Eigener Ort gewählt"_s;
    }
    void ordner()
    {
        Profil profil;
        QFETCH(const QString, ziel);
        QFETCH(const QString, eigener);
        profil.zielWurzel = ziel;
        profil.protokollOrdner = eigener;
        QTEST(ordnersatz(profil), "satz");
    }

    void frage_data()
    {
        QTest::addColumn<std::optional<Protokollkopf>>("kopf");
        QTest::addColumn<int>("bewegungen");
        QTest::addColumn<QString>("frage");
        using Kopf = std::optional<Protokollkopf>;
        const QString woanders = u"Dieses Protokoll kommt von woanders. Es bewegt Dateien von "_s;
        QTest::newRow("eigene") << Kopf(kopf(u"/scans"_s, u"/ablage"_s)) << 3
                                << u"3 Bewegungen werden zurückgedreht. Sicher?"_s;
        QTest::newRow("eine") << Kopf(kopf(u"/scans"_s, u"/ablage"_s)) << 1
                              << u"1 Bewegung wird zurückgedreht. Sicher?"_s;
        QTest::newRow("fremde") << Kopf(kopf(u"/fremd"_s, u"/ablage"_s)) << 1
                                << woanders + u"/ablage nach /fremd. 1 Bewegung wird zurückgedreht. Sicher?"_s;
        QTest::newRow("ohne Kopf") << Kopf() << 1
                                   << woanders + u"/ablage nach /scans. 1 Bewegung wird zurückgedreht. Sicher?"_s;
    }
    void frage()
    {
        QFETCH(const std::optional<Protokollkopf>, kopf);
        QFETCH(const int, bewegungen);
        Profil profil;
        profil.quelle = u"/scans"_s;
        profil.zielWurzel = u"/ablage"_s;
        QTEST(rueckbaufrage(&profil, kopf, bewegungen), "frage");
    }

    void fehlerUndBedingungen()
    {
        Protokollzeile zeile;
        zeile.nach = u"/ablage/Brief.pdf"_s;
        const Bilanz bilanz{.zurueckgedreht = 1,
                            .fehler = {{0, u"kein Platz"_s}, {-1, u"Das Protokoll lässt sich nicht schreiben"_s}},
                            .uebersprungen = {{0, u"weg"_s}}};
        QCOMPARE(rueckbaufehler(bilanz, {zeile}), u"Brief.pdf: kein Platz\nDas Protokoll lässt sich nicht schreiben"_s);
        QVERIFY(rueckbauerklaerung(true).startsWith(rueckbauerklaerung(false) + u' '));
        const auto zeilen = bedingungen(kopf(QDir::homePath() + u"/Scans"_s, u"/ablage"_s, true));
        QCOMPARE(zeilen.size(), 7);
        QCOMPARE(zeilen.at(2), std::pair(u"Herkunft"_s, u"~/Scans"_s));
        QCOMPARE(zeilen.at(4), std::pair(u"Betriebsart"_s, u"Kopieren"_s));
        for (const auto &[name, wert] : bedingungen(std::nullopt))
            QVERIFY2(!name.isEmpty() && wert.isEmpty(), qPrintable(name));
    }
};

QTEST_GUILESS_MAIN(TestProtokollsaetze)
#include "test_protokollsaetze.moc"
