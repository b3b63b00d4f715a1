#include "durchgang.h"
#include "einrichtung.h"
#include "modelldienst.h"
#include "ordnerwahl.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "testserver.h"
#include "vorlagenmangel.h"
#include "zustand.h"
#include "zustandsprobe.h"

#include <QDir>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::zustand;
using Lage = Abschnittsstand::Lage;
using Wechsel = Strukturzeile::Wechsel;

namespace
{
void schreiben(const QString &pfad)
{
    QDir().mkpath(QFileInfo(pfad).path());
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    datei.write("%PDF-1.4");
}
} // namespace

/** What the setup card is told and what it has done, with real folders, a real catalogue and a real server. */
class TestEinrichtung : public Zustandsprobe
{
    Q_OBJECT

private:
    void beginnen()
    {
        Zustandsprobe::beginnen();
        m_z->setzeReiter(Reiter::Einrichtung);
    }
    void aendern(const std::function<void(Profil &)> &aenderung)
    {
        Profil neu = *m_z->profilwahl()->aktiv();
        aenderung(neu);
        m_z->profilwahl()->setzeProfil(neu);
    }
    void einlesen()
    {
        m_z->einrichtung()->strukturEinlesen();
        QTRY_VERIFY(!m_z->einrichtung()->stand().liestStruktur);
    }
    [[nodiscard]] QStringList mitWechsel(Wechsel wechsel) const
    {
        QStringList namen;
        for (const Strukturzeile &zeile : m_z->einrichtung()->stand().struktur) {
            if (zeile.wechsel == wechsel)
                namen << zeile.name;
        }
        return namen;
    }
    [[nodiscard]] qsizetype gezaehlt() const
    {
        return m_z->einrichtung()->stand().quelle.value_or(Quellstand{-1, 0}).anzahl;
    }

private Q_SLOTS:
    void programmeUndSprachen()
    {
        beginnen();
        QTRY_VERIFY(m_z->einrichtung()->stand().programme);
        QCOMPARE(m_z->einrichtung()->stand().programme->werkzeuge.size(), 3);
        QVERIFY(QFile::exists(m_z->einrichtung()->stand().programme->werkzeuge.last().pfad));
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Programme).lage, Lage::Gut);
        aendern([](Profil &p) { p.ocrSprache = u"deu+tlh"_s; });
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Programme).lage, Lage::Warnung);
        QCOMPARE(
            Programmstand::sprachenAus("List of available languages in \"/x\" (4):\nosd\neng\ndeu\nscript/Latin\n"),
            (QStringList{u"deu"_s, u"eng"_s}));
    }

    void strukturMitNeuemUndEntfallenem()
    {
        m_b->profil.zweige.clear();
        beginnen();
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Ziel).lage, Lage::Fehlt);
        einlesen();
        QVERIFY(m_z->einrichtung()->stand().strukturmangel.startsWith(u"Hier liegt noch keine Struktur."_s));
        for (const QString &ordner : {u"Haus/Jahre/2023/Strom"_s, u"Haus/Jahre/2024/Gas"_s, u"Haus/Fest/Urkunden"_s})
            QDir().mkpath(m_b->ziel(ordner));
        einlesen();
        QCOMPARE(m_z->einrichtung()->stand().zahlen,
                 (Strukturzahlen{.zweige = 1, .ablagen = 2, .rubriken = 3, .neu = 0, .entfallen = 0}));
        QVERIFY(!m_z->einrichtung()
                     ->stand()
                     .geradeGelesen); // the first time there is nothing that could have stayed the same
        QVERIFY(kenntRubrik(m_z->einrichtung()->stand().struktur, u"Gas"_s));
        QDir().mkpath(m_b->ziel(u"Verein/Fest/Satzung"_s));
        QDir(m_b->ziel(u"Haus/Jahre/2024/Gas"_s)).removeRecursively();
        einlesen();
        QCOMPARE(mitWechsel(Wechsel::Neu), (QStringList{u"Verein"_s, u"Fest"_s, u"Satzung"_s}));
        QCOMPARE(mitWechsel(Wechsel::Entfallen), QStringList{u"Gas"_s});
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Ziel).zeile, u"1 neu, 1 entfallen"_s);
        QVERIFY(!kenntRubrik(m_z->einrichtung()->stand().struktur, u"Gas"_s));
        QTRY_COMPARE(Profilspeicher::laden().first().zweige.size(), 2);
        // A drive that is not there takes nothing away.
        const QList<Zweig> bekannte = m_z->profilwahl()->aktiv()->zweige;
        QVERIFY(QDir().rename(m_b->profil.zielWurzel, m_b->profil.zielWurzel + u"-weg"_s));
        einlesen();
        QCOMPARE(m_z->einrichtung()->stand().strukturmangel, u"Der Zielordner ist nicht erreichbar."_s);
        QTRY_COMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Ziel).lage, Lage::Gestoert);
        QDir().mkpath(m_b->profil.zielWurzel);
        einlesen();
        QVERIFY(m_z->einrichtung()->stand().strukturmangel.endsWith(u"Die bisherige gilt weiter."_s));
        QCOMPARE(m_z->profilwahl()->aktiv()->zweige, bekannte);
        // Another root has another structure, which nobody has read yet.
        const QString wurzel = m_b->profil.zielWurzel;
        aendern([&](Profil &p) { p.zielWurzel = m_b->ziel(u"Verein"_s); });
        QVERIFY(m_z->einrichtung()->stand().strukturAlt);
        aendern([&](Profil &p) { p.zielWurzel = wurzel; });
        QVERIFY(!m_z->einrichtung()->stand().strukturAlt);
        const QString andere = m_b->ordner() + u"/andere"_s;
        QDir().mkpath(andere + u"/Amt/Akten/Bescheide"_s);
        aendern([&](Profil &p) { p.zielWurzel = andere; });
        QTRY_COMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Ziel).zeile, u"Struktur neu einlesen"_s);
        einlesen();
        QVERIFY(!m_z->einrichtung()->stand().strukturAlt &&
                kenntRubrik(m_z->einrichtung()->stand().struktur, u"Bescheide"_s));
    }

    void zaehltUndNimmtAus()
    {
        const qint64 a = m_b->dokument(u"a.pdf"_s, [](Dokument &d) { d.altOrdner = u"Fotos"_s; });
        m_b->dokument(u"b.pdf"_s);
        schreiben(m_b->quelle(u"Fotos/2020/c.pdf"_s));
        schreiben(m_b->quelle(u"privat/d.pdf"_s));
        beginnen();
        QTRY_COMPARE(gezaehlt(), 4);
        QCOMPARE(m_z->einrichtung()->ausnahmeAufnehmen(u" /Fotos/ "_s), QString());
        QTRY_COMPARE(m_z->pruefung()->ausgenommen(), 1);
        QTRY_COMPARE(gezaehlt(), 3);
        QCOMPARE(m_z->einrichtung()->ausnahmeAufnehmen(u"fotos"_s), u"fotos steht schon in der Liste"_s);
        QCOMPARE(m_z->einrichtung()->ausnahmeAufnehmen(u" // "_s), QString());
        Ordnerwahl::ordnerwaehler = [this](const QString &, const QString &) { return m_b->profil.quelle; };
        QCOMPARE(m_z->einrichtung()->ausnahmeWaehlen(),
                 u"Das ist der Herkunftsordner selbst. Dann bliebe nichts zu lesen."_s);
        Ordnerwahl::ordnerwaehler = [this](const QString &, const QString &) { return m_b->quelle(u"privat"_s); };
        QCOMPARE(m_z->einrichtung()->ausnahmeWaehlen(), QString());
        QCOMPARE(m_z->profilwahl()->aktiv()->ausnahmen.last(), u"./privat"_s);
        QTRY_COMPARE(gezaehlt(), 2);
        m_z->einrichtung()->ausnahmeEntfernen(m_z->profilwahl()->aktiv()->ausnahmen.first());
        QTRY_COMPARE(m_z->pruefung()->ausgenommen(), 0);
        QTRY_COMPARE(gezaehlt(), 3);
        QCOMPARE(m_b->lesen(a).status, Status::Bereit);
        aendern([](Profil &p) { p.mitUnterordnern = false; });
        QTRY_COMPARE(gezaehlt(), 2);
        aendern([this](Profil &p) { p.quelle = m_b->quelle(u"nirgends"_s); });
        QTRY_COMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Herkunft).lage, Lage::Gestoert);
    }

    void profilEntfernenLaesstDenKatalog()
    {
        Profil anderes;
        anderes.name = u"Anderes"_s;
        m_b->dokument(u"a.pdf"_s);
        m_b->schliessen();
        m_b->profilSichern({anderes});
        m_z = std::make_unique<Zustand>();
        m_z->profilwahl()->beginnen(u"Haushalt"_s);
        QTRY_VERIFY(m_z->profilwahl()->offen() && m_z->pruefung()->aktuelles());
        m_z->profilwahl()->profilEntfernen(m_b->profil.id);
        QTRY_VERIFY(m_z->profilwahl()->offen() && m_z->profilwahl()->aktiv()->name == u"Anderes"_s);
        QVERIFY(!m_z->pruefung()->aktuelles());
        QVERIFY(QFile::exists(Profilspeicher::katalogDatei(m_b->profil)));
        QTRY_COMPARE(Profilspeicher::laden().size(), 1);
        m_z->profilwahl()->profilEntfernen(anderes.id);
        QVERIFY(!m_z->profilwahl()->aktiv() && !m_z->profilwahl()->offen() && !m_z->durchgang()->analyse());
        QTRY_VERIFY(Profilspeicher::laden().isEmpty());
        QCOMPARE(m_z->pruefung()->zaehlwerk(), Zaehlwerk());
        m_z->profilwahl()->neuesProfil();
        QTRY_VERIFY(m_z->profilwahl()->offen());
        QCOMPARE(m_z->einrichtung()->naechsterAbschnitt(Abschnitt::Programme), Abschnitt::Herkunft);
        QVERIFY(m_z->einrichtung()->starthindernis().contains(u"Herkunft"_s));
    }

    void gelerntes()
    {
        m_b->sql(u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl) VALUES "
                 "('bank','Bank','Haushalt','Stammdaten','Verträge',3),('stadt','Stadt','Verein','','',1)"_s);
        m_b->sql(u"INSERT INTO namen (von, nach, anzahl) VALUES ('alt','Neu',2)"_s);
        beginnen();
        QTRY_COMPARE(m_z->einrichtung()->stand().gelerntes.zuordnungen.size(), 2);
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Gelernt).zeile, u"2 Zuordnungen, 1 Name"_s);
        m_z->einrichtung()->ortVergessen(m_z->einrichtung()->stand().gelerntes.orte.first().kennung);
        QTRY_COMPARE(m_z->einrichtung()->stand().gelerntes.zuordnungen.size(), 1);
        // Of several places of one counterpart only the one that is meant.
        m_b->sql(u"INSERT INTO gelernte_orte (schluessel, zweig, ablage, rubrik, anzahl, baum) VALUES "
                 "('stadt','Verein','Jahresablage','Spenden',2,0),('stadt','Haushalt','Jahresablage','Wasser',0,48)"_s);
        m_z->einrichtung()->einrichtungPruefen();
        QTRY_COMPARE(m_z->einrichtung()->stand().gelerntes.orte.size(), 2);
        QCOMPARE(m_z->einrichtung()->stand().gelerntes.orte.last().baum, 48);
        m_z->einrichtung()->ortVergessen(m_z->einrichtung()->stand().gelerntes.orte.first().kennung);
        QTRY_COMPARE(m_z->einrichtung()->stand().gelerntes.orte.size(), 1);
        QCOMPARE(m_z->einrichtung()->stand().gelerntes.orte.first().ziel, u"Haushalt/Jahresablage/Wasser"_s);
        QCOMPARE(m_z->einrichtung()->stand().gelerntes.zuordnungen.first().ziel(), u"Haushalt/Jahresablage/Wasser"_s);
        m_z->einrichtung()->allesVergessen();
        QTRY_VERIFY(m_z->einrichtung()->stand().gelerntes == Lernstand());
    }

    void beispielAusDerWarteschlange()
    {
        const qint64 a = m_b->dokument(u"a.pdf"_s);
        m_b->dokument(u"b.pdf"_s, [](Dokument &d) { d.angaben.titel.clear(); });
        m_b->dokument(u"c.pdf"_s);
        beginnen();
        QTRY_VERIFY(m_z->einrichtung()->beispiel().echt);
        QCOMPARE(m_z->einrichtung()->stand().beispiel->id, a);
        aendern([](Profil &p) { p.namensVorlage = u"{titel}, {gegenueber}"_s; });
        QCOMPARE(m_z->einrichtung()->beispiel().name, u"a, Stadtwerke.pdf"_s);
        QCOMPARE(m_z->einrichtung()->beispiel().ort,
                 (QStringList{u"Haushalt"_s, u"Jahresablage"_s, u"2023"_s, u"Strom"_s}));
        QCOMPARE(m_z->einrichtung()->beispiel().ohneRubrik, (QStringList{u"Haushalt"_s, u"prüfen"_s}));
        m_z->einrichtung()->anderesBeispiel();
        QTRY_COMPARE(m_z->einrichtung()->beispiel().dokument, u"c.pdf"_s);
        m_z->einrichtung()->anderesBeispiel();
        QTRY_COMPARE(m_z->einrichtung()->beispiel().dokument, u"a.pdf"_s);
    }

    void grossesModellLaden()
    {
        m_b->profil.modell = u"klein:1b"_s;
        m_b->profil.modellGross = u"gross:9b"_s;
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::fest(200, "{}"));
        server.antworten("/api/tags", Testantwort::fest(200, R"({"models":[{"name":"klein:1b"}]})"));
        server.antworten("/api/pull",
                         Testantwort::inStuecken({"{\"status\":\"pulling\",\"total\":4000,\"completed\":1000}\n",
                                                  "{\"error\":\"no space left\"}\n"}));
        beginnen();
        QTRY_VERIFY(m_z->modelldienst()->modellBereit());
        QList<Modellstand> gesehen;
        connect(m_z->modelldienst(), &Modelldienst::modellGeaendert, this,
                [&] { gesehen << m_z->modelldienst()->modellstand(); });
        m_z->modelldienst()->modellGrossLaden();
        QVERIFY(m_z->modelldienst()->modellBereit()); // the other one stays usable
        QTRY_COMPARE(m_z->modelldienst()->modellstand().ladefehler, u"no space left"_s);
        QCOMPARE(m_z->modelldienst()->modellstand().fehlermodell, u"gross:9b"_s);
        QVERIFY(m_z->modelldienst()->modellstand().laedtModell.isEmpty() && m_z->modelldienst()->modellBereit());
        QVERIFY(std::any_of(gesehen.cbegin(), gesehen.cend(),
                            [](const Modellstand &s) { return s.geladen == 1000 && s.ladegroesse == 4000; }));
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Modell).lage, Lage::Gut);
        Zweig viele{.name = u"Viele"_s, .ablagen = {{.name = u"Art"_s, .mitJahr = false, .rubriken = {}}}};
        for (int n = 0; n < 5000; ++n)
            viele.ablagen.first().rubriken << u"Rubrik %1"_s.arg(n);
        aendern([&](Profil &p) { p.zweige << viele; });
        QVERIFY(platzImModell(*m_z->profilwahl()->aktiv()) > 1);
        QCOMPARE(m_z->einrichtung()->abschnittsstand(Abschnitt::Modell).lage, Lage::Warnung);
    }

    /** While a model is being fetched, which may take hours, another one is chosen: what is known is about that one. */
    void modellWechselnWaehrendGeladenWird()
    {
        m_b->profil.modell = u"klein:1b"_s;
        m_b->profil.modellGross = u"gross:9b"_s;
        Testserver server;
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(server.port()));
        server.antworten("/api/version", Testantwort::fest(200, "{}"));
        server.antworten("/api/tags",
                         Testantwort::fest(200, R"({"models":[{"name":"klein:1b"},{"name":"mittel:4b"}]})"));
        server.antworten("/api/pull",
                         Testantwort::stumm(60s, "HTTP/1.1 200 OK\r\n\r\n{\"status\":\"pulling manifest\"}\n"));
        beginnen();
        QTRY_VERIFY(m_z->modelldienst()->modellBereit());
        m_z->modelldienst()->modellGrossLaden();
        QTRY_COMPARE(m_z->modelldienst()->modellstand().ladetext, u"pulling manifest"_s);
        const auto waehlen = [this](const QString &modell) { aendern([&](Profil &p) { p.modell = modell; }); };
        waehlen(u"fehlt:1b"_s);
        QTRY_VERIFY(!m_z->modelldienst()->modellBereit());
        QSignalSpy fraglich(m_z->durchgang(), &Durchgang::startFraglich);
        m_z->durchgang()->durchgangErbitten();
        QTRY_COMPARE(fraglich.size(), 1); // instead of failing document by document
        waehlen(u"mittel:4b"_s);
        QTRY_VERIFY(m_z->modelldienst()->modellBereit());
        waehlen(u"gross:9b"_s);
        QTRY_COMPARE(m_z->modelldienst()->modellstand().art, Modellstand::Art::Laedt);
        QCOMPARE(m_z->modelldienst()->modellstand().laedtModell, u"gross:9b"_s);
        m_z->modelldienst()->modellLadenAbbrechen();
        QTRY_COMPARE(m_z->modelldienst()->modellstand().art, Modellstand::Art::ModellFehlt);
    }

    void vorlagen_data()
    {
        QTest::addColumn<QString>("vorlage");
        QTest::addColumn<bool>("istPfad");
        QTest::addColumn<QStringList>("bloecke");
        QTest::addColumn<QString>("ohneErsten");
        QTest::newRow("in Ordnung") << u"{datum} {gegenueber} - {titel}"_s << false << QStringList{} << QString();
        QTest::newRow("unbekannt") << u"{datum} - {Titel}"_s << false << QStringList{u"{Titel}"_s} << u"{datum}"_s;
        QTest::newRow("vorn") << u"{ort} - {titel}"_s << false << QStringList{u"{ort}"_s} << u"{titel}"_s;
        QTest::newRow("leer im Pfad") << u"{zweig}/{monat}/{rubrik}"_s << true << QStringList{u"{monat}"_s}
                                      << u"{zweig}/{rubrik}"_s;
        QTest::newRow("offen") << u"{datum} {titel"_s << false << QStringList{QString()} << QString();
        QTest::newRow("leer") << u" "_s << false << QStringList{QString()} << QString();
        QTest::newRow("leerer Pfad") << QString() << true << QStringList{} << QString();
    }
    void vorlagen()
    {
        QFETCH(QString, vorlage);
        QFETCH(bool, istPfad);
        QFETCH(QStringList, bloecke);
        QStringList gefunden;
        for (const Vorlagenmangel &mangel : vorlagenmaengel(vorlage, istPfad))
            gefunden << mangel.block;
        QCOMPARE(gefunden, bloecke);
        if (!gefunden.isEmpty() && !gefunden.first().isEmpty())
            QTEST(ohneBlock(vorlage, gefunden.first()), "ohneErsten");
    }
};

QTEST_GUILESS_MAIN(TestEinrichtung)
#include "test_einrichtung.moc"
