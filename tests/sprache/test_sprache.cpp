#include "einstellungen.h"
#include "fehler.h"
#include "platte.h"
#include "programmordner.h"
#include "sprache.h"
#include "textkatalog.h"
#include "uebertragung.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>
#include <QtConcurrent>
#include <numeric>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quillmar::sprache;

namespace
{
void schreiben(const QString &pfad, const QByteArray &inhalt)
{
    QVERIFY(QDir().mkpath(QFileInfo(pfad).path()));
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    QCOMPARE(datei.write(inhalt), inhalt.size());
}

QByteArray lesen(const QString &pfad)
{
    QFile datei(pfad);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}

QStringList kennungen(const QList<Sprachsatz> &saetze)
{
    QStringList liste;
    for (const Sprachsatz &satz : saetze)
        liste << satz.kennung;
    return liste;
}
} // namespace

class TestSprache : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void cleanup()
    {
        QDir(programmOrdner()).removeRecursively();
        Sprache::setzeGewaehlteKennung({});
    }

    void kennungFuerDieVorliebe_data()
    {
        QTest::addColumn<QString>("gewaehlt");
        QTest::addColumn<QStringList>("bevorzugt");
        QTest::addColumn<QString>("erwartet");
        const QString keine;
        QTest::newRow("gewählt, auch ohne Datei") << u"tlh"_s << QStringList{u"en-GB"_s} << u"tlh"_s;
        QTest::newRow("erste vorhandene") << keine << QStringList{u"fr-FR"_s, u"en-GB"_s} << u"en"_s;
        QTest::newRow("Reihenfolge") << keine << QStringList{u"de-DE"_s, u"en-GB"_s} << u"de"_s;
        QTest::newRow("Großschreibung") << keine << QStringList{u"EN"_s} << u"en"_s;
        QTest::newRow("keine passt") << keine << QStringList{u"fr-FR"_s} << u"de"_s;
        QTest::newRow("keine genannt") << keine << QStringList{} << u"de"_s;
        QTest::newRow("zu kurz") << keine << QStringList{u"C"_s, QString()} << u"de"_s;
    }

    void kennungFuerDieVorliebe()
    {
        QFETCH(QString, gewaehlt);
        QFETCH(QStringList, bevorzugt);
        QTEST(kennungFuer(gewaehlt, {u"de"_s, u"en"_s}, bevorzugt), "erwartet");
    }

    void dateienDerSprachen()
    {
        const QTemporaryDir mit;
        const QTemporaryDir eigen;
        schreiben(mit.filePath(u"de.json"_s), R"({"_sprache": "Deutsch"})");
        schreiben(mit.filePath(u"en.json"_s), R"({"_sprache": "English"})");
        schreiben(mit.filePath(u"_Vorlage.json"_s), "{}");
        schreiben(mit.filePath(u".json"_s), "{}");
        schreiben(mit.filePath(u"nl.txt"_s), "{}");
        schreiben(eigen.filePath(u"EN.JSON"_s), R"({"_sprache": "Anglais"})");
        schreiben(eigen.filePath(u"pt.br.json"_s), R"({"Ja": "Sim"})");
        schreiben(eigen.filePath(u"zz.json"_s), R"({"_sprache": "Zahl", "Ja": 1})");
        QVERIFY(QDir(eigen.path()).mkpath(u"ordner.json"_s));
        QCOMPARE(::mkfifo(eigen.filePath(u"rohr.json"_s).toUtf8().constData(), 0600), 0);
        const QList<Sprachsatz> erwartet{
            {u"en"_s, u"Anglais"_s, true, eigen.filePath(u"EN.JSON"_s), {}},
            {u"de"_s, u"Deutsch"_s, false, mit.filePath(u"de.json"_s), {}},
            {u"pt.br"_s, u"PT.BR"_s, true, eigen.filePath(u"pt.br.json"_s), {}},
            {u"zz"_s, u"ZZ"_s, true, eigen.filePath(u"zz.json"_s), u"Die Datei lässt sich nicht lesen"_s},
        };
        QCOMPARE(sprachsaetze(mit.path(), eigen.path()), erwartet);
        QCOMPARE(kennungen(sprachsaetze({}, u"/gibt/es/nicht"_s)), QStringList{});
    }

    void mitgelieferteSprachenWerdenGefunden()
    {
        QVERIFY(!Sprache::mitgelieferterOrdner().isEmpty());
        QCOMPARE(kennungen(Sprache::verfuegbare()), (QStringList{u"de"_s, u"en"_s}));
    }

    void eineWahlWirktBeimNaechstenNachschlagen()
    {
        schreiben(Sprache::eigenerOrdner() + u"/xx.json"_s, R"({"Ja": "Da", "Nein": ""})");
        QCOMPARE(Sprache::text(u"Ja"_s), u"Ja"_s);
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QCOMPARE(Sprache::text(u"Ja"_s), u"Da"_s);
        QCOMPARE(Sprache::text(u"Nein"_s), u"Nein"_s);
        QCOMPARE(Sprache::text(u"Vielleicht"_s), u"Vielleicht"_s);
        QCOMPARE(Einstellungen::wert(u"AppleLanguages"_s).toStringList(), QStringList{u"xx"_s});
        Sprache::setzeGewaehlteKennung({});
        QCOMPARE(Sprache::text(u"Ja"_s), u"Ja"_s);
        QCOMPARE(Sprache::wirksameKennung(), u"de"_s);
        QVERIFY(!Einstellungen::wert(u"AppleLanguages"_s).isValid());
    }

    /** A file that is edited is read again; one that is broken meanwhile changes nothing. */
    void eineGeaenderteDateiGilt()
    {
        const QString ort = Sprache::eigenerOrdner() + u"/xx.json"_s;
        schreiben(ort, R"({"Ja": "Da"})");
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QCOMPARE(Sprache::text(u"Ja"_s), u"Da"_s);
        QVERIFY(!Sprache::auffrischen());
        schreiben(ort, R"({"Ja": "Jo", )");
        QVERIFY(!Sprache::auffrischen());
        QCOMPARE(Sprache::text(u"Ja"_s), u"Da"_s);
        schreiben(ort, R"({"Ja": "Jo"})");
        QVERIFY(Sprache::auffrischen());
        QCOMPARE(Sprache::text(u"Ja"_s), u"Jo"_s);
        QCOMPARE(Sprache::text(1, u"Ja"_s, u"Nein"_s) + Sprache::text(0, u"Ja"_s, u"Nein"_s), u"JoNein"_s);
        QVERIFY(QFile::remove(ort));
    }

    void nochEinmalGesagt_data()
    {
        QTest::addColumn<QString>("gesagt");
        QTest::addColumn<QString>("erwartet");
        QTest::newRow("Text") << u"Fertig"_s << u"Done"_s;
        QTest::newRow("gefüllt") << u"Einsortiert: a, b.pdf"_s << u"Filed: a, b.pdf"_s;
        QTest::newRow("der genauere") << u"Einsortiert: 3 Briefe"_s << u"3 letters filed"_s;
        QTest::newRow("mit Grund") << u"x.pdf: Fertig"_s << u"x.pdf: Fertig"_s;
        QTest::newRow("Grund dahinter") << u"Gescheitert: Fertig"_s << u"Failed: Done"_s;
        QTest::newRow("mehrere") << u"2 Briefe, Fertig"_s << u"2 letters, Done"_s;
        QTest::newRow("nicht übersetzt") << u"Offen"_s << u"Offen"_s;
        QTest::newRow("von anderswo") << u"disk I/O error"_s << u"disk I/O error"_s;
    }
    void nochEinmalGesagt()
    {
        QFETCH(QString, gesagt);
        const QStringList texte = {u"Fertig"_s,    u"Einsortiert: %@"_s, u"Einsortiert: %@ Briefe"_s,
                                   u"%@ Briefe"_s, u"Gescheitert"_s,     u"Offen"_s,
                                   u"%@: %@"_s};
        const QHash<QString, QString> englisch = {{u"Fertig"_s, u"Done"_s},
                                                  {u"Einsortiert: %@"_s, u"Filed: %@"_s},
                                                  {u"Einsortiert: %@ Briefe"_s, u"%@ letters filed"_s},
                                                  {u"%@ Briefe"_s, u"%@ letters"_s},
                                                  {u"Gescheitert"_s, u"Failed"_s},
                                                  {u"Offen"_s, {}}};
        QTEST(uebertragen(gesagt, texte, {}, englisch), "erwartet");
        QCOMPARE(uebertragen(uebertragen(gesagt, texte, {}, englisch), texte, englisch, {}), gesagt);
    }

    /** Sentences that used to be put together keep the translation of their pieces until they have one of their own. */
    void einSatzAusFrueherenStuecken_data()
    {
        QTest::addColumn<QByteArray>("datei");
        QTest::addColumn<QString>("eingeordnet");
        QTest::addColumn<QString>("von");
        const QString satz = u"%@ von %@ eingeordnet"_s;
        const QString von = u"Von: %@"_s;
        QTest::newRow("alle Stücke") << QByteArray(R"({" von ": " of ", " eingeordnet": " filed", "Von: ": "From "})")
                                     << u"%@ of %@ filed"_s << u"From %@"_s;
        QTest::newRow("eines davon") << QByteArray(R"({" eingeordnet": " filed"})") << u"%@ von %@ filed"_s << von;
        QTest::newRow("der ganze Satz") << QByteArray(R"({" von ": " of ", "%@ von %@ eingeordnet": "%@/%@"})")
                                        << u"%@/%@"_s << von;
        QTest::newRow("noch leer") << QByteArray(R"({" von ": " of ", "%@ von %@ eingeordnet": ""})")
                                   << u"%@ of %@ eingeordnet"_s << von;
        QTest::newRow("nichts") << QByteArray(R"({"%@": "!", " von ": ""})") << satz << von;
    }

    void einSatzAusFrueherenStuecken()
    {
        QFETCH(QByteArray, datei);
        const QString ort = Sprache::eigenerOrdner() + u"/xx.json"_s;
        schreiben(ort, datei);
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QTEST(Sprache::text(u"%@ von %@ eingeordnet"_s), "eingeordnet");
        QTEST(Sprache::text(u"Von: %@"_s), "von");
        schreiben(ort, R"({" von ": " / "})");
        QVERIFY(Sprache::auffrischen());
        QCOMPARE(Sprache::text(u"%@ von %@ eingeordnet"_s), u"%@ / %@ eingeordnet"_s);
    }

    void einFehlerDerPlatteInDerSprache()
    {
        const auto gescheitert = [](int fehler) {
            try {
                Platte::scheitern(u"Der Ordner ließ sich nicht anlegen"_s, fehler);
            } catch (const Fehler &f) {
                return f.text();
            }
        };
        schreiben(
            Sprache::eigenerOrdner() + u"/xx.json"_s,
            R"({"Der Ordner ließ sich nicht anlegen": "No folder", "kein Platz mehr auf dem Datenträger": "full"})");
        QCOMPARE(gescheitert(ENOSPC), u"Der Ordner ließ sich nicht anlegen: kein Platz mehr auf dem Datenträger"_s);
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QCOMPARE(gescheitert(ENOSPC), u"No folder: full"_s);
        QCOMPARE(gescheitert(EACCES), u"No folder: keine Berechtigung"_s);
    }

    void eineKaputteDateiIstKeinFehler_data()
    {
        QTest::addColumn<QByteArray>("inhalt");
        QTest::newRow("abgeschnitten") << QByteArray(R"({"Ja": "Da")");
        QTest::newRow("eine Liste") << QByteArray(R"(["Ja"])");
        QTest::newRow("eine Zahl darin") << QByteArray(R"({"Ja": "Da", "Nein": 1})");
        QTest::newRow("leer") << QByteArray();
        QTest::newRow("kein UTF-8") << QByteArray("{\"Ja\": \"D\xff\"}");
    }

    void eineKaputteDateiIstKeinFehler()
    {
        QFETCH(QByteArray, inhalt);
        const QString ort = Sprache::eigenerOrdner() + u"/xx.json"_s;
        schreiben(ort, inhalt);
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QCOMPARE(Sprache::text(u"Ja"_s), u"Ja"_s);
        schreiben(ort, R"({"Ja": "Da"})");
        QCOMPARE(Sprache::text(u"Ja"_s), u"Ja"_s);
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QCOMPARE(Sprache::text(u"Ja"_s), u"Da"_s);
    }

    void dieVorlageHatJedenText()
    {
        Sprache::vorbereiten();
        const QString ort = programmOrdner() + u"/Sprachen/_Vorlage.json"_s;
        const QByteArray zuerst = lesen(ort);
        QStringList texte = QJsonDocument::fromJson(zuerst).object().keys();
        texte.sort();
        QStringList erwartet = Textkatalog::alle();
        erwartet.sort();
        QCOMPARE(texte, erwartet);
        schreiben(ort, "{}");
        Sprache::vorbereiten();
        QCOMPARE(lesen(ort), zuerst);
    }

    void eineFruehereUebersetzungZiehtUm()
    {
        const QString alt = programmOrdner() + u"/Texte.json"_s;
        const QString neu = Sprache::eigenerOrdner() + u"/eigene.json"_s;
        schreiben(alt, "1");
        Sprache::vorbereiten();
        QCOMPARE(lesen(neu), "1");
        QVERIFY(!QFile::exists(alt));
        schreiben(alt, "2");
        Sprache::vorbereiten();
        QCOMPARE(lesen(neu), "1");
        QCOMPARE(lesen(alt), "2");
    }

    void nachschlagenAusVielenFaeden()
    {
        schreiben(Sprache::eigenerOrdner() + u"/xx.json"_s, R"({"Ja": "Da"})");
        Sprache::setzeGewaehlteKennung(u"xx"_s);
        QList<int> laeufe(200);
        std::iota(laeufe.begin(), laeufe.end(), 0);
        QtConcurrent::blockingMap(laeufe, [](int &lauf) {
            if (lauf % 20 == 0)
                Sprache::setzeGewaehlteKennung(u"xx"_s);
            lauf = Sprache::text(u"Ja"_s) == u"Da"_s ? 1 : 0;
        });
        QCOMPARE(std::count(laeufe.begin(), laeufe.end(), 1), 200);
    }

    // Last, since it holds for the rest of the program.
    void zuletztNurDeutsch()
    {
        schreiben(Sprache::eigenerOrdner() + u"/de.json"_s, R"({"Ja": "Jawohl"})");
        Sprache::setzeGewaehlteKennung(u"de"_s);
        QCOMPARE(Sprache::text(u"Ja"_s), u"Jawohl"_s);
        Sprache::nurDeutsch();
        QCOMPARE(Sprache::text(u"Ja"_s), u"Ja"_s);
    }
};

QTEST_GUILESS_MAIN(TestSprache)
#include "test_sprache.moc"
