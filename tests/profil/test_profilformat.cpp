#include "profilformat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::profil;

namespace
{
Profil ausgefuellt()
{
    Profil p;
    p.id = QUuid::fromString(u"6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f"_s);
    p.name = u"Büro \"Nord\""_s;
    p.quelle = u"/scans"_s;
    p.mitUnterordnern = false;
    p.ausnahmen = QStringList{u"Fotos"_s, u"privat/2019"_s};
    p.zielWurzel = u"/ablage"_s;
    p.kopieren = true;
    p.protokollOrdner = u"/protokolle"_s;
    p.namensVorlage = u"{titel}"_s;
    p.pfadVorlage = u"{zweig}"_s;
    p.auffangOrdner = u"offen"_s;
    p.dublettenOrdner = u"doppelt"_s;
    p.zweige = {{.name = u"Privat"_s,
                 .ablagen = {{.name = u"Steuern"_s, .mitJahr = true, .rubriken = QStringList{u"Bescheide"_s}}}}};
    p.eigentuemer = u"Erika Muster"_s;
    p.modell = u"klein"_s;
    p.modellGross = u"groß"_s;
    p.ocrSprache = u"eng"_s;
    p.seiten = 3;
    p.maxZeichen = 900;
    p.zweitmeinung = false;
    p.eigeneAnschriften = QStringList{u"Weg 1, 01662 Meißen"_s};
    p.eigeneNamen = QStringList{u"Muster"_s};
    p.rubrikAusgang = u"Aus"_s;
    p.rubrikEingang = u"Ein"_s;
    return p;
}

/** A list of one profile that holds only @p felder. */
QByteArray mit(const QByteArray &felder) { return "[{" + felder + "}]"; }
} // namespace

class TestProfilformat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hinUndZurueck()
    {
        Profil zweites;
        zweites.id = QUuid::createUuid();
        const QList<Profil> profile = {ausgefuellt(), zweites};
        QVERIFY(Profilformat::lesen(Profilformat::schreiben(profile)) == profile);
        QVERIFY(Profilformat::lesen("[]") == QList<Profil>());
    }

    void alleSchluesselSortiertUndUebersichtlich()
    {
        const QByteArray text = Profilformat::schreiben({ausgefuellt()});
        const QJsonObject objekt = QJsonDocument::fromJson(text).array().first().toObject();
        QCOMPARE(objekt.keys().size(), 24);
        QCOMPARE(objekt.value(u"id").toString(), u"6F1C0D2A-93B4-4E1F-8C55-1A2B3C4D5E6F"_s);
        QVERIFY(text.contains("\n        \"seiten\": 3,\n"));
        QStringList folge;
        for (const QByteArray &zeile : text.split('\n')) {
            if (zeile.startsWith("        \""))
                folge << QString::fromUtf8(zeile.trimmed().split('"').at(1));
        }
        QStringList sortiert = folge;
        sortiert.sort();
        QCOMPARE(folge, sortiert);
        QCOMPARE(folge.size(), 24);
    }

    void fehlendeSchluesselHabenIhrenVorgabewert()
    {
        const auto gelesen = Profilformat::lesen(R"([{}, {"frueher": 1, "name": "Alt"}])");
        QVERIFY(gelesen && gelesen->size() == 2);
        Profil vorgabe;
        vorgabe.id = gelesen->first().id;
        QVERIFY(gelesen->first() == vorgabe);
        QCOMPARE(gelesen->last().name, u"Alt"_s);
        QVERIFY(!vorgabe.id.isNull() && gelesen->last().id != vorgabe.id);
        const auto nochmal = Profilformat::lesen("[{}]");
        QVERIFY(nochmal && nochmal->first().id != vorgabe.id);
    }

    void vorgabewerte()
    {
        const QJsonObject neu = QJsonDocument::fromJson(Profilformat::schreiben({Profil()})).array().first().toObject();
        const QByteArray erwartet = R"({"name":"Neues Profil","quelle":"","mitUnterordnern":true,"ausnahmen":[],
            "zielWurzel":"","kopieren":false,"protokollOrdner":"","namensVorlage":"{datum} {gegenueber} - {titel}",
            "pfadVorlage":"{zweig}/{ablage}/{jahr}/{rubrik}","auffangOrdner":"prüfen","dublettenOrdner":"_Dubletten",
            "zweige":[],"eigentuemer":"","modell":"qwen3:4b","modellGross":"qwen3.6:27b","ocrSprache":"deu","seiten":2,
            "maxZeichen":1400,"zweitmeinung":true,"eigeneAnschriften":[],"eigeneNamen":[],
            "rubrikAusgang":"Ausgangsrechnungen","rubrikEingang":"Eingangsrechnungen"})";
        QJsonObject objekt = QJsonDocument::fromJson(erwartet).object();
        objekt.insert(u"id"_s, neu.value(u"id"));
        QCOMPARE(neu, objekt);
    }

    void zahlenInIhrenGrenzen()
    {
        const auto gelesen = Profilformat::auswerten(
            R"([{"name": "A", "seiten": 0, "maxZeichen": -1}, {"seiten": 1, "maxZeichen": 1e12}])");
        QVERIFY(gelesen);
        QCOMPARE(gelesen->profile.first().seiten, 1);
        QCOMPARE(gelesen->profile.first().maxZeichen, 1);
        QCOMPARE(gelesen->profile.last().seiten, 1);
        QCOMPARE(gelesen->profile.last().maxZeichen, 2147483647);
        QCOMPARE(gelesen->anmerkungen,
                 (QStringList{u"Profil A: seiten ist 0, es gilt 1"_s, u"Profil A: maxZeichen ist -1, es gilt 1"_s,
                              u"Profil Neues Profil: maxZeichen ist 1000000000000, es gilt 2147483647"_s}));
    }

    void wasEineSpaetereFassungSpeicherteBleibt()
    {
        const QByteArray zweig =
            R"({"name":"A","farbe":3,"ablagen":[{"name":"B","mitJahr":true,"rubriken":[],"x":null}]})";
        const auto gelesen =
            Profilformat::lesen(mit(R"("spaeter": {"tief": [1]}, "name": "N", "zweige": [)" + zweig + "]"));
        QVERIFY(gelesen);
        const QJsonObject objekt =
            QJsonDocument::fromJson(Profilformat::schreiben(*gelesen)).array().first().toObject();
        QCOMPARE(objekt.value("spaeter"_L1), QJsonValue(QJsonObject{{u"tief"_s, QJsonArray{1}}}));
        QCOMPARE(objekt.value("zweige"_L1), QJsonValue(QJsonArray{QJsonDocument::fromJson(zweig).object()}));
        QCOMPARE(objekt.value("name"_L1), u"N"_s);
        QCOMPARE(objekt.keys().size(), 25);
    }

    void jedesProfilHatEineEigeneKennung()
    {
        const QByteArray id = R"("id": "6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f")";
        const QByteArray text = "[{" + id + "},{" + id + ",\"name\": \"B\"},{" + id + ",\"name\": \"C\"}]";
        const auto gelesen = Profilformat::auswerten(text);
        QVERIFY(gelesen && gelesen->profile.size() == 3);
        QSet<QUuid> kennungen;
        for (const Profil &p : gelesen->profile)
            kennungen << p.id;
        QCOMPARE(kennungen.size(), 3);
        QCOMPARE(gelesen->profile.first().id, QUuid(u"6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f"_s));
        QCOMPARE(gelesen->anmerkungen.size(), 2);
        QVERIFY(Profilformat::lesen(text) == gelesen->profile); // until it is stored: the same at every reading
    }

    void unlesbar_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("leer") << QByteArray();
        QTest::newRow("kein JSON") << QByteArray("[{]");
        QTest::newRow("abgebrochen") << Profilformat::schreiben({ausgefuellt()}).chopped(3);
        QTest::newRow("Objekt statt Liste") << QByteArray("{}");
        QTest::newRow("Eintrag ist kein Objekt") << QByteArray("[1]");
        QTest::newRow("Text als Zahl") << mit(R"("name": 5)");
        QTest::newRow("Text ist null") << mit(R"("name": null)");
        QTest::newRow("Zahl als Text") << mit(R"("seiten": "2")");
        QTest::newRow("Zahl mit Bruch") << mit(R"("seiten": 2.5)");
        QTest::newRow("Wahrheitswert als Zahl") << mit(R"("kopieren": 1)");
        QTest::newRow("Liste mit Zahl") << mit(R"("ausnahmen": ["a", 1])");
        QTest::newRow("Liste als Text") << mit(R"("eigeneNamen": "ich")");
        QTest::newRow("Kennung unsinnig") << mit(R"("id": "abc")");
        QTest::newRow("Zweig ohne Ablagen") << mit(R"("zweige": [{"name": "A"}])");
        QTest::newRow("Zweig ohne Namen") << mit(R"("zweige": [{"ablagen": []}])");
        QTest::newRow("Ablage ohne mitJahr")
            << mit(R"("zweige": [{"name":"A","ablagen":[{"name":"B","rubriken":[]}]}])");
        QTest::newRow("Ablage ohne Rubriken")
            << mit(R"("zweige": [{"name":"A","ablagen":[{"name":"B","mitJahr":true}]}])");
        QTest::newRow("ein Fehler verdirbt die ganze Liste") << QByteArray(R"([{}, {"seiten": "zwei"}])");
    }
    void unlesbar()
    {
        QFETCH(QByteArray, json);
        QVERIFY(!Profilformat::lesen(json));
    }
};

QTEST_GUILESS_MAIN(TestProfilformat)
#include "test_profilformat.moc"
