#include "fehler.h"
#include "ollama.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

class TestOllama : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void dasObjektEinerAntwort_data()
    {
        QTest::addColumn<QString>("antwort");
        QTest::addColumn<QJsonObject>("erwartet");
        const QJsonObject eins{{u"a"_s, 1}};
        QTest::newRow("bloß") << u"{\"a\": 1}"_s << eins;
        QTest::newRow("eingezäunt") << u"```json\n{\"a\": 1}\n```"_s << eins;
        QTest::newRow("mit Vor- und Nachrede") << u"Gern: {\"a\": 1} Noch etwas?"_s << eins;
        QTest::newRow("Nachdenken mit Klammern") << u"<think>{ \"a\": 2 } {</think>{\"a\": 1}"_s << eins;
        QTest::newRow("Nachdenken dahinter") << u"{\"a\": 1}<think>}</think>"_s << eins;
        QTest::newRow("Nachdenken mitten darin") << u"{\"a\":<think>}{</think> 1}"_s << eins;
        QTest::newRow("Liste mit einem Objekt") << u"[{\"a\": 1}]"_s << eins;
        QTest::newRow("leeres Objekt") << u"{}"_s << QJsonObject{};
        QTest::newRow("andere Arten von Werten")
            << u"{\"t\": null, \"l\": [1, {}], \"w\": true}"_s
            << QJsonObject{{u"t"_s, QJsonValue::Null}, {u"l"_s, QJsonArray{1, QJsonObject{}}}, {u"w"_s, true}};
        QTest::newRow("Umlaute") << u"{\"ä\": \"\u00FC\U0001F600\"}"_s << QJsonObject{{u"ä"_s, u"ü\U0001F600"_s}};
    }

    void dasObjektEinerAntwort()
    {
        QFETCH(QString, antwort);
        QTEST(Ollama::objektAus(antwort), "erwartet");
    }

    void eineUnlesbareAntwort_data()
    {
        QTest::addColumn<QString>("antwort");
        QTest::newRow("leer") << QString();
        QTest::newRow("ohne Klammern") << u"Das weiß ich nicht."_s;
        QTest::newRow("Liste") << u"[1, 2]"_s;
        QTest::newRow("verkehrt herum") << u"} {"_s;
        QTest::newRow("nur auf") << u"{\"a\": 1"_s;
        QTest::newRow("nur zu") << u"\"a\": 1}"_s;
        QTest::newRow("zwei Objekte") << u"{\"a\": 1} {\"a\": 2}"_s;
        QTest::newRow("Nachdenken ohne Ende") << u"<think>{ {\"a\": 1}"_s;
        QTest::newRow("Ende vor dem Anfang") << u"</think>{<think>{\"a\": 1}"_s;
        QTest::newRow("falsche Anführungszeichen") << u"{'a': 1}"_s;
        QTest::newRow("unendlich verschachtelt") << u"{\"a\":"_s.repeated(5000) + u"1"_s + u"}"_s.repeated(5000);
    }

    void eineUnlesbareAntwort()
    {
        QFETCH(QString, antwort);
        try {
            Q_UNUSED(Ollama::objektAus(antwort));
            QFAIL("no failure");
        } catch (const Fehler &f) {
            QCOMPARE(f.text(), u"Antwort des Modells nicht lesbar"_s);
        }
    }

    void derFortschrittEinerZeile_data()
    {
        QTest::addColumn<QByteArray>("zeile");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("fehler");
        const QString nichts;
        QTest::newRow("nur Stand") << QByteArray("{\"status\": \"pulling manifest\"}") << u"pulling manifest"_s
                                   << nichts;
        QTest::newRow("Anteil") << QByteArray("{\"status\": \"pulling 1a2b3c\", \"total\": 2000, \"completed\": 500}")
                                << u"pulling 1a2b3c 25 Prozent"_s << nichts;
        QTest::newRow("abgerundet") << QByteArray("{\"status\": \"x\", \"total\": 2000, \"completed\": 1999}")
                                    << u"x 99 Prozent"_s << nichts;
        QTest::newRow("von nichts") << QByteArray("{\"status\": \"x\", \"total\": 0, \"completed\": 0}") << u"x"_s
                                    << nichts;
        QTest::newRow("ohne Fertiges") << QByteArray("{\"status\": \"x\", \"total\": 2000}") << u"x"_s << nichts;
        QTest::newRow("Text statt Zahl") << QByteArray("{\"status\": \"x\", \"total\": \"2000\", \"completed\": 1}")
                                         << u"x"_s << nichts;
        QTest::newRow("maßlos") << QByteArray("{\"status\": \"x\", \"total\": 1e-300, \"completed\": 1e300}")
                                << u"x 1000000000 Prozent"_s << nichts;
        QTest::newRow("Fehler") << QByteArray("{\"error\": \"pull model manifest: file does not exist\"}") << nichts
                                << u"pull model manifest: file does not exist"_s;
        QTest::newRow("Stand keine Zeichen") << QByteArray("{\"status\": 5}") << nichts << nichts;
        QTest::newRow("kein Objekt") << QByteArray("[\"status\"]") << nichts << nichts;
        QTest::newRow("kein JSON") << QByteArray("<html>") << nichts << nichts;
        QTest::newRow("kein UTF-8") << QByteArray("{\"status\": \"\xC3\"}") << nichts << nichts;
        QTest::newRow("leer") << QByteArray("") << nichts << nichts;
    }

    void derFortschrittEinerZeile()
    {
        QFETCH(QByteArray, zeile);
        QString fehler;
        QTEST(Ollama::fortschritt(zeile, fehler), "text");
        QTEST(fehler, "fehler");
    }

    void wasAnderswoRechnet_data()
    {
        QTest::addColumn<QByteArray>("liste");
        QTest::addColumn<QString>("modell");
        QTest::addColumn<bool>("anderswo");
        const QByteArray entfernt =
            R"({"models": [{"name": "klein:latest"},)"
            R"({"name": "hausmodell:latest", "remote_host": "https://example.org", "remote_model": "gross"},)"
            R"({"name": "anna/Alias:v1", "remote_model": "gross"}, {"model": "namenlos", "remote_host": "x"}]})";
        QTest::newRow("hiesiges") << entfernt << u"klein"_s << false;
        QTest::newRow("unbekanntes") << entfernt << u"gross"_s << false;
        QTest::newRow("unter hiesigem Namen") << entfernt << u"hausmodell:latest"_s << true;
        QTest::newRow("ohne Zusatz") << entfernt << u"hausmodell"_s << true;
        QTest::newRow("andere Schreibweise") << entfernt << u"HausModell:Latest"_s << true;
        QTest::newRow("ausgeschrieben") << entfernt << u"registry.ollama.ai/library/hausmodell"_s << true;
        QTest::newRow("mit Besitzer") << entfernt << u"Anna/alias:V1"_s << true;
        QTest::newRow("anderer Zusatz") << entfernt << u"hausmodell:v2"_s << false;
        QTest::newRow("nur als Modell genannt") << entfernt << u"namenlos"_s << true;
        QTest::newRow("dem Namen nach") << QByteArray() << u"qwen3:480B-Cloud"_s << true;
        QTest::newRow("dem Namen nach, als Zusatz") << QByteArray("[]") << u"qwen3:CLOUD "_s << true;
        QTest::newRow("dem Namen nach, ohne Strich") << QByteArray("{}") << u"GrossCloud"_s << true;
        QTest::newRow("heißt nur ähnlich") << QByteArray("{}") << u"cloudy:4b"_s << false;
        QTest::newRow("Angaben ohne Inhalt")
            << QByteArray(R"({"models": [{"name": "a", "remote_host": "", "remote_model": null}]})") << u"a"_s << false;
        QTest::newRow("keine Liste") << QByteArray("<html>") << u"hausmodell"_s << false;
    }

    void wasAnderswoRechnet()
    {
        QFETCH(QByteArray, liste);
        QFETCH(QString, modell);
        QTEST(Modellverzeichnis::aus(liste).rechnetAnderswo(modell), "anderswo");
    }

    void welchesModellGemeintIst_data()
    {
        QTest::addColumn<QStringList>("liste"); // a leading "*": computed on another computer
        QTest::addColumn<QString>("treffer");
        QTest::newRow("genau") << QStringList{u"qwen3:latest"_s, u"qwen3"_s} << u"qwen3"_s;
        QTest::newRow("latest") << QStringList{u"qwen3:4b"_s, u"qwen3:latest"_s} << u"qwen3:latest"_s;
        QTest::newRow("hiesiges") << QStringList{u"qwen3:480b-cloud"_s, u"*qwen3:x"_s, u"qwen3:4b"_s, u"qwen3:8b"_s}
                                  << u"qwen3:4b"_s;
        QTest::newRow("keines von hier") << QStringList{u"*qwen3:x"_s, u"qwen3:480b-cloud"_s} << u"qwen3:x"_s;
        QTest::newRow("keines") << QStringList{u"qwen3-vl:4b"_s, u"andere"_s} << QString();
    }

    void welchesModellGemeintIst()
    {
        QFETCH(QStringList, liste);
        QJsonArray modelle;
        for (const QString &eintrag : liste) {
            const bool fremd = eintrag.startsWith(u'*');
            modelle << QJsonObject{{u"name"_s, fremd ? eintrag.mid(1) : eintrag},
                                   {u"remote_host"_s, fremd ? u"https://example.org"_s : QString()}};
        }
        const QByteArray antwort = QJsonDocument(QJsonObject{{u"models"_s, modelle}}).toJson();
        QTEST(Modellverzeichnis::aus(antwort).treffer(u"qwen3"_s).value_or(QString()), "treffer");
    }

    void woDerServerIst_data()
    {
        QTest::addColumn<QString>("einstellung");
        QTest::addColumn<QString>("rechner");
        QTest::addColumn<int>("port");
        QTest::addColumn<QByteArray>("pfad");
        QTest::addColumn<Ollama::Einstellung>("urteil");
        constexpr auto gut = Ollama::Einstellung::Brauchbar;
        constexpr auto fremd = Ollama::Einstellung::Fremd;
        constexpr auto unlesbar = Ollama::Einstellung::Unlesbar;
        const QString hier = u"127.0.0.1"_s;
        QTest::newRow("keine") << QString() << hier << 11434 << QByteArray("") << gut;
        QTest::newRow("Blanks") << u"  "_s << hier << 11434 << QByteArray("") << gut;
        QTest::newRow("Adresse") << hier << hier << 11434 << QByteArray("") << gut;
        QTest::newRow("anderer Anschluss") << u"127.0.0.1:8080"_s << hier << 8080 << QByteArray("") << gut;
        QTest::newRow("nur Anschluss") << u":8080"_s << hier << 8080 << QByteArray("") << gut;
        QTest::newRow("Name") << u"localhost:8080"_s << hier << 8080 << QByteArray("") << gut;
        QTest::newRow("anderer Name für hier") << u"127.0.0.2"_s << u"127.0.0.2"_s << 11434 << QByteArray("") << gut;
        QTest::newRow("alle Schnittstellen") << u"0.0.0.0:8080"_s << hier << 8080 << QByteArray("") << gut;
        QTest::newRow("alle, sechste Fassung") << u"[::]:8080"_s << u"::1"_s << 8080 << QByteArray("") << gut;
        QTest::newRow("hier, sechste Fassung") << u"[::1]"_s << u"::1"_s << 11434 << QByteArray("") << gut;
        QTest::newRow("ganze Adresse") << u"http://127.0.0.1:8080/vor/satz/"_s << hier << 8080
                                       << QByteArray("/vor/satz") << gut;
        QTest::newRow("ganze Adresse ohne Anschluss") << u"http://localhost"_s << hier << 80 << QByteArray("") << gut;
        QTest::newRow("fremder Rechner") << u"192.168.1.5:8080"_s << hier << 11434 << QByteArray("") << fremd;
        QTest::newRow("fremder Name") << u"localhost.example.org"_s << hier << 11434 << QByteArray("") << fremd;
        QTest::newRow("fremd hinter dem Klammeraffen")
            << u"http://127.0.0.1@example.org"_s << hier << 11434 << QByteArray("") << unlesbar;
        QTest::newRow("verschlüsselt") << u"https://127.0.0.1:8080"_s << hier << 11434 << QByteArray("") << unlesbar;
        QTest::newRow("kein Anschluss") << u"127.0.0.1:99999"_s << hier << 11434 << QByteArray("") << unlesbar;
        QTest::newRow("Wort als Anschluss") << u"127.0.0.1:x/y"_s << hier << 11434 << QByteArray("/y") << unlesbar;
        QTest::newRow("Leerzeichen im Namen") << u"my host"_s << hier << 11434 << QByteArray("") << unlesbar;
        QTest::newRow("alle, ohne Klammern") << u"::"_s << u"::1"_s << 11434 << QByteArray("") << gut;
        QTest::newRow("hier, ohne Klammern") << u"::1"_s << u"::1"_s << 11434 << QByteArray("") << gut;
        QTest::newRow("lange Form von hier") << u"[0:0:0:0:0:0:0:1]:80"_s << u"::1"_s << 80 << QByteArray("") << gut;
        QTest::newRow("in Anführungszeichen") << u" \"127.0.0.1:8080\" "_s << hier << 8080 << QByteArray("") << gut;
        QTest::newRow("in einfachen") << u"'[::1]:8080'"_s << u"::1"_s << 8080 << QByteArray("") << gut;
        QTest::newRow("fremd ohne Klammern") << u"2001:db8::1"_s << hier << 11434 << QByteArray("") << fremd;
    }

    void woDerServerIst()
    {
        QFETCH(QString, einstellung);
        QFETCH(QString, rechner);
        QFETCH(int, port);
        QFETCH(QByteArray, pfad);
        auto urteil = Ollama::Einstellung::Unlesbar;
        const Ollama::Basis basis = Ollama::basisAus(einstellung, &urteil);
        QCOMPARE(basis.rechner, rechner);
        QCOMPARE(int(basis.port), port);
        QCOMPARE(basis.pfad, pfad);
        QTEST(urteil, "urteil");
    }
};

QTEST_GUILESS_MAIN(TestOllama)
#include "test_ollama.moc"
