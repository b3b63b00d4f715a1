#include "ausgabe.h"
#include "datenbank.h"
#include "kommandozeile.h"
#include "programm.h"
#include "testserver.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace quillmar::app;

namespace
{
const QString leererBestand =
    u"\nBestand\n  in Analyse      0\n  zu prüfen       0\n  einsortiert     0\n  zurückgestellt  0\n"
    "  Dubletten       0\n  aussortiert     0\n"_s;

Profil namens(const QString &name)
{
    Profil p;
    p.name = name;
    return p;
}

void dateiSchreiben(const QString &pfad, const QByteArray &inhalt)
{
    QDir().mkpath(QFileInfo(pfad).path());
    QFile datei(pfad);
    QVERIFY(datei.open(QIODevice::WriteOnly));
    datei.write(inhalt);
}

void bereitesDokument(Datenbank &db, const QString &gegenueber, const QString &rubrik, const QString &text)
{
    const qint64 id = db.abfragen(u"SELECT COUNT(*) n FROM dokumente"_s).first().ganz(u"n") + 1;
    db.ausfuehren(
        u"INSERT INTO dokumente (id, pfad, dateiname, alt_ordner, status, datum, gegenueber, titel, zweig,\n"
        "ablage, rubrik, konfidenz, ort_quelle) VALUES (?,?,?,'','bereit',?,?,?,'Privat','Stammdaten',?,0.5,?)"_s,
        {id, u"/x/%1.pdf"_s.arg(id), u"%1.pdf"_s.arg(id), id == 2 ? u"2024-1-1"_s : u"2024-13-45"_s, gegenueber,
         u"Brief"_s, rubrik, id == 1 ? u"umsortierung"_s : u"modell"_s});
    db.ausfuehren(u"INSERT INTO texte VALUES (?,?)"_s, {id, text});
}
} // namespace

class TestKommandozeile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void wert_data();
    void wert();
    void ohneKatalog_data();
    void ohneKatalog();
    void profilwahl();
    void kaputterKatalog_data();
    void kaputterKatalog();
    void beschaedigterKatalog_data();
    void beschaedigterKatalog();
    void befehleUndIhreReihenfolge();
    void ausDerAblage();
    void ausDerAblageNichts();
    void berichtigungen();
    void inzwischenBearbeitet();
    void selbsttestLaesstAllesWieEsWar();
    void selbsttestMitFehlenderDatei();
    void sprachenlos();
    void fensterUndHilfe();
    void statuszeile();
};

void TestKommandozeile::wert_data()
{
    QTest::addColumn<QStringList>("argumente");
    QTest::addColumn<QString>("erwartet");
    QTest::newRow("fehlt") << QStringList{u"q"_s, u"--bericht"_s} << QString();
    QTest::newRow("letztes") << QStringList{u"q"_s, u"--profil"_s} << QString();
    QTest::newRow("mit Strichen") << QStringList{u"q"_s, u"--profil"_s, u"--bericht"_s} << u"--bericht"_s;
    QTest::newRow("erstes zählt") << QStringList{u"--profil"_s, u"A"_s, u"--profil"_s, u"B"_s} << u"A"_s;
}

void TestKommandozeile::wert()
{
    QFETCH(QStringList, argumente);
    QFETCH(QString, erwartet);
    QCOMPARE(Kommandozeile::wert(argumente, u"--profil"_s).value_or(QString()), erwartet);
}

void TestKommandozeile::ohneKatalog_data()
{
    QTest::addColumn<QByteArray>("liste");
    QTest::addColumn<bool>("unlesbar");
    QTest::newRow("keine Datei") << QByteArray() << false;
    QTest::newRow("leere Liste") << QByteArray("[]") << false;
    QTest::newRow("kein JSON") << QByteArray("[{") << true;
    QTest::newRow("falscher Typ") << QByteArray("[{\"name\": 5}]") << true;
}

void TestKommandozeile::ohneKatalog()
{
    QFETCH(QByteArray, liste);
    QTemporaryDir daten;
    Programm programm(daten.path());
    if (!liste.isEmpty())
        dateiSchreiben(programm.ordner() + u"/profile.json"_s, liste);
    const auto ende = programm.laufen({u"--bericht"_s});
    QCOMPARE(ende.status, 0);
    QCOMPARE(ende.ausgabe, u"Kein Profil vorhanden\n"_s);
    QTEST(ende.meldungen == u"Die Profilliste ist nicht lesbar: "_s + programm.ordner() + u"/profile.json\n"_s,
          "unlesbar");
}

void TestKommandozeile::profilwahl()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    programm.profileSchreiben({namens(u"Eins"_s), namens(u"Zwei"_s)});
    QCOMPARE(programm.laufen({u"--bericht"_s}).ausgabe, u"Profil: Eins\n"_s + leererBestand);
    QCOMPARE(programm.laufen({u"--bericht"_s, u"--profil"_s, u"Zwei"_s}).ausgabe, u"Profil: Zwei\n"_s + leererBestand);
    QCOMPARE(programm.laufen({u"--bericht"_s, u"--profil"_s, u"zwei"_s}).ausgabe, u"Profil nicht gefunden\n"_s);
    QCOMPARE(programm.laufen({u"--bericht"_s, u"--profil"_s}).ausgabe, u"Profil: Eins\n"_s + leererBestand);
}

void TestKommandozeile::kaputterKatalog_data()
{
    QTest::addColumn<QByteArray>("inhalt");
    QTest::newRow("keine Datenbank") << QByteArray("Das ist nur ein Brief, und zwar ein langer.\n").repeated(40);
    QTest::newRow("abgeschnittener Kopf") << QByteArray("SQLite format 3\0\x10", 17);
}

void TestKommandozeile::kaputterKatalog()
{
    QFETCH(QByteArray, inhalt);
    QTemporaryDir daten;
    Programm programm(daten.path());
    const Profil p = namens(u"P"_s);
    programm.profileSchreiben({p});
    dateiSchreiben(programm.katalog(p), inhalt);
    const auto ende = programm.laufen({u"--analyse"_s});
    QCOMPARE(ende.status, 0);
    QCOMPARE(ende.ausgabe, u"Profil: P\nDatenbank nicht erreichbar\n"_s);
    QVERIFY(ende.meldungen.contains(u"Datenbank lässt sich nicht öffnen: "_s + programm.katalog(p)));
    QFile datei(programm.katalog(p));
    QVERIFY(datei.open(QIODevice::ReadOnly));
    QCOMPARE(datei.readAll(), inhalt);
}

void TestKommandozeile::beschaedigterKatalog_data()
{
    QTest::addColumn<QStringList>("befehl");
    QTest::addColumn<bool>("druckt");
    QTest::newRow("bericht") << QStringList{u"--bericht"_s} << true;
    QTest::newRow("gelernt") << QStringList{u"--gelernt"_s} << true;
    QTest::newRow("analyse") << QStringList{u"--analyse"_s} << false;
    QTest::newRow("gelernt anwenden") << QStringList{u"--gelernt"_s, u"--anwenden"_s} << false;
    QTest::newRow("rechnungen anwenden") << QStringList{u"--rechnungen"_s, u"--anwenden"_s} << false;
    QTest::newRow("selbsttest") << QStringList{u"--selbsttest"_s} << false;
}

// The index that the exclusions have lost its page; whatever is asked first, nothing is written.
void TestKommandozeile::beschaedigterKatalog()
{
    QFETCH(QStringList, befehl);
    QFETCH(bool, druckt);
    QTemporaryDir daten;
    Programm programm(daten.path());
    Profil p = namens(u"P"_s);
    p.ausnahmen = {u"1"_s};
    programm.profileSchreiben({p});
    qint64 seite = 0;
    {
        Datenbank db(programm.katalog(p));
        bereitesDokument(db, u"Stadtwerke"_s, u"Strom"_s, u"Text"_s);
        seite = db.zahl(u"SELECT rootpage n FROM sqlite_master WHERE name='i_zaehlen'"_s);
    }
    QFile datei(programm.katalog(p));
    QVERIFY(datei.open(QIODevice::ReadWrite) && datei.seek((seite - 1) * 4096));
    datei.write(QByteArray(4096, 0));
    datei.close();
    QVERIFY(datei.open(QIODevice::ReadOnly));
    const QByteArray vorher = datei.readAll();
    const auto ende = programm.laufen(befehl);
    QVERIFY2(ende.meldungen.contains(u"Der Katalog ist beschädigt"_s), qPrintable(ende.meldungen));
    QVERIFY2((ende.ausgabe != u"Profil: P\n") == druckt, qPrintable(ende.ausgabe));
    if (befehl.contains(u"--bericht"_s))
        QVERIFY2(ende.ausgabe.contains(u"Gegenüber       1 von 1"_s), qPrintable(ende.ausgabe));
    QVERIFY(datei.seek(0));
    QCOMPARE(datei.readAll(), vorher);
}

void TestKommandozeile::befehleUndIhreReihenfolge()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    Profil p = namens(u"P"_s);
    p.ausnahmen = {u"geheim"_s};
    programm.profileSchreiben({p});
    {
        Datenbank db(programm.katalog(p));
        bereitesDokument(db, u"Stadtwerke"_s, u"Strom"_s, u"Text"_s);
        bereitesDokument(db, u""_s, u""_s, u"Text"_s);
        bereitesDokument(db, u"Stadtwerke"_s, u"Strom"_s, u"Text"_s);
        db.ausfuehren(u"INSERT INTO dokumente (pfad, dateiname, alt_ordner) VALUES ('/x/y.pdf','Geheimes.pdf','')"_s);
    }
    QCOMPARE(programm.laufen({u"--bericht"_s, u"--anwenden"_s}).ausgabe,
             u"Profil: P\nAusnahmen: 1 ruhen jetzt, 0 zurückgeholt\n\nBestand\n  in Analyse      0\n"
             "  zu prüfen       3\n  einsortiert     0\n  zurückgestellt  0\n  Dubletten       0\n"
             "  aussortiert     0\nGüte der Vorschläge\n  gültiges Datum  2 von 3\n  Gegenüber       2 von 3\n"
             "  Titel           3 von 3\n  Umsortierung    1\n  doppelte Namen  1\n"_s);
    QCOMPARE(programm.laufen({u"--bericht"_s, u"--gelernt"_s}).ausgabe, u"Profil: P\nNoch nichts gelernt.\n"_s);
    {
        Datenbank db(programm.katalog(p));
        db.ausfuehren(
            u"INSERT INTO gelernt VALUES ('stadtwerke nord','Stadtwerke Nord GmbH','Privat','Stammdaten','',3,'')"_s);
    }
    QCOMPARE(programm.laufen({u"--rechnungen"_s, u"--gelernt"_s, u"--anwenden"_s}).ausgabe,
             u"Profil: P\nGelernte Zuordnungen, 1 Stück\n\n  3x  Stadtwerke Nord GmbH\n"
             "        -> Privat/Stammdaten\n\nAuf die Warteschlange angewendet: 2 Dokumente\n"_s);
}

void TestKommandozeile::ausDerAblage()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    Profil p = namens(u"P"_s);
    p.zielWurzel = daten.filePath(u"ziel"_s);
    p.eigeneNamen = {u"Anna Müller"_s};
    p.zweige = {
        {.name = u"Privat"_s, .ablagen = {{.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = {u"Strom"_s}}}}};
    programm.profileSchreiben({p});
    const QString ordner = p.zielWurzel + u"/Privat/Stammdaten/Strom/"_s;
    for (const QString &name :
         {u"2024-01-31 Stadtwerke Nord - 1"_s, u"2024-02-31 Stadtwerke Nord - 2"_s, u"2024-01-31 Müller - x\ny"_s,
          u"2024-01-31 Müller - z"_s, u"2024-01-31 Zahnarzt - x"_s, u"Scan"_s})
        dateiSchreiben(ordner + name + u".pdf"_s, {});
    dateiSchreiben(p.zielWurzel + u"/Alt/2024-01-31 Stadtwerke Nord - 3.pdf"_s, {});
    {
        Datenbank db(programm.katalog(p));
        bereitesDokument(db, u"Stadtwerke Nord"_s, u""_s, u"Text"_s);
    }
    const QString liste = u"Profil: P\nPDF-Dateien in der Ablage: 7\n"
                          "\nAus der Ablage zu lernen, 1 Gegenüber\n\n  2x  Stadtwerke Nord\n"
                          "        -> Privat/Stammdaten/Strom, 2x\n"
                          "        etwa Privat/Stammdaten/Strom/2024-01-31 Stadtwerke Nord - 1.pdf\n"
                          "        etwa Privat/Stammdaten/Strom/2024-02-31 Stadtwerke Nord - 2.pdf\n"
                          "\nNicht vorgeschlagen, 2 Gegenüber\n\n  2x  Müller (eigener Name)\n"
                          "        -> Privat/Stammdaten/Strom, 2x\n"
                          "        etwa Privat/Stammdaten/Strom/2024-01-31 Müller - x␊y.pdf\n"
                          "        etwa Privat/Stammdaten/Strom/2024-01-31 Müller - z.pdf\n"
                          "  1x  Zahnarzt (einzelnes Dokument)\n        -> Privat/Stammdaten/Strom, 1x\n"
                          "        etwa Privat/Stammdaten/Strom/2024-01-31 Zahnarzt - x.pdf\n"
                          "\nDer Name sagt kein Gegenüber: 1 Datei\n        etwa Privat/Stammdaten/Strom/Scan.pdf\n"
                          "\nDer Ort steht nicht in der Struktur: 1 Datei\n"
                          "        etwa Alt/2024-01-31 Stadtwerke Nord - 3.pdf\n\n"_s;
    const QStringList vorher = auszug(programm.katalog(p));
    QCOMPARE(programm.laufen({u"--gelernt"_s, u"--aus-ablage"_s}).ausgabe,
             liste + u"Nur gezeigt. Mit --anwenden wird es übernommen.\n"_s);
    QCOMPARE(auszug(programm.katalog(p)), vorher);
    QCOMPARE(programm.laufen({u"--gelernt"_s, u"--aus-ablage"_s, u"--anwenden"_s}).ausgabe,
             liste + u"Aus der Ablage gelernt: 1 Gegenüber\n"_s);
    QCOMPARE(programm.laufen({u"--gelernt"_s}).ausgabe,
             u"Profil: P\nGelernte Zuordnungen, 1 Stück\n\n  2x  Stadtwerke Nord\n"
             "        -> Privat/Stammdaten/Strom\n"_s);
    Datenbank db(programm.katalog(p));
    QCOMPARE(db.abfragen(u"SELECT rubrik FROM dokumente"_s).first().text(u"rubrik"), u""_s); // it still waits as it was
}

void TestKommandozeile::ausDerAblageNichts()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    Profil p = namens(u"P"_s);
    p.zweige = {{.name = u"Privat"_s, .ablagen = {}}};
    programm.profileSchreiben({p});
    const QStringList befehl = {u"--gelernt"_s, u"--aus-ablage"_s, u"--anwenden"_s};
    auto ende = programm.laufen(befehl);
    QCOMPARE(ende.ausgabe, u"Profil: P\n"_s);
    QCOMPARE(ende.meldungen, u"Es ist noch kein Zielordner gewählt\n"_s);
    p.zielWurzel = daten.path();
    p.namensVorlage = u"{datum} {titel}"_s;
    programm.profileSchreiben({p});
    QVERIFY(programm.laufen(befehl).meldungen.startsWith(u"Aus der Ablage lässt sich nichts lernen"_s));
    p.namensVorlage = Profil().namensVorlage;
    programm.profileSchreiben({p});
    QCOMPARE(programm.laufen(befehl).ausgabe, u"Profil: P\nPDF-Dateien in der Ablage: 0\n\nNichts zu lernen.\n"_s);
}

void TestKommandozeile::berichtigungen()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    Profil p = namens(u"P"_s);
    programm.profileSchreiben({p});
    {
        Datenbank db(programm.katalog(p));
        bereitesDokument(db, u"Müller, Anna"_s, u"Eingangsrechnungen"_s,
                         u"Anna Mueller · Hauptstraße 5 · 01234 Musterstadt\nRechnung an Herrn Kunde"_s);
        bereitesDokument(db, u"Stadtwerke"_s, u"Strom"_s, u"Hauptstraße 5\n01234 Musterstadt"_s);
    }
    QCOMPARE(programm.laufen({u"--gegenueber"_s}).ausgabe,
             u"Profil: P\nIm Profil ist kein eigener Name hinterlegt.\n"_s);
    QCOMPARE(programm.laufen({u"--rechnungen"_s}).ausgabe,
             u"Profil: P\nIm Profil ist keine eigene Anschrift hinterlegt.\n"_s);
    p.eigeneNamen = {u"Anna Müller"_s};
    p.eigeneAnschriften = {u"Hauptstr. 5, nirgends"_s, u"Hauptstraße 5, 01234 Musterstadt"_s};
    programm.profileSchreiben({p});
    const QString tabelle = u"Profil: P\nRichtungsregel fuer Rechnungen\n  betrachtete Dokumente  2\n"
                            "  mit Rechnungsrubrik    1\n  berichtigt             1\n"
                            "    Eingangsrechnungen nach Ausgangsrechnungen\n"_s;
    QCOMPARE(programm.laufen({u"--rechnungen"_s}).ausgabe,
             tabelle + u"Nur gezeigt. Mit --anwenden wird es geschrieben.\n"_s);
    QVERIFY(programm.laufen({u"--rechnungen"_s, u"--anwenden"_s}).ausgabe.startsWith(tabelle));
    QCOMPARE(programm.laufen({u"--gegenueber"_s}).ausgabe,
             u"Profil: P\nBetroffen: 1 Dokumente\nNur gezeigt. Mit --anwenden wird nachgefragt und geschrieben.\n"_s);
    // No server answers here: the row must stay as it is.
    QCOMPARE(programm.laufen({u"--gegenueber"_s, u"--anwenden"_s}).ausgabe,
             u"Profil: P\nBetroffen: 1 Dokumente\n1 von 1\n\nGegenueber berichtigt\n  ersetzt  0\n  geleert  0\n"_s);
    Datenbank db(programm.katalog(p));
    const Zeile zeile = db.abfragen(u"SELECT * FROM dokumente WHERE id=1"_s).first();
    QCOMPARE(zeile.text(u"gegenueber"), u"Müller, Anna"_s);
    // What an exclusion covers is no command's business.
    db.ausfuehren(u"UPDATE dokumente SET ausgenommen=1, pfad='/x/geheim.pdf', dateiname='geheim.pdf' WHERE id=1"_s);
    p.ausnahmen = {u"geheim"_s};
    programm.profileSchreiben({p});
    QVERIFY(programm.laufen({u"--gegenueber"_s}).ausgabe.contains("Betroffen: 0 "_L1));
    QVERIFY(programm.laufen({u"--rechnungen"_s}).ausgabe.contains("betrachtete Dokumente  1\n"_L1));
    QCOMPARE(zeile.text(u"rubrik"), u"Ausgangsrechnungen"_s);
    QCOMPARE(zeile.komma(u"konfidenz"), 0.9);
}

/** A document that cannot be filed fails the test, and nothing is left of it: no folder, no log, nothing learned. */
void TestKommandozeile::selbsttestMitFehlenderDatei()
{
    for (const bool kopieren : {false, true}) {
        QTemporaryDir daten;
        Programm programm(daten.path());
        Profil p = namens(u"P"_s);
        p.quelle = daten.filePath(u"quelle"_s);
        p.zielWurzel = daten.filePath(u"ziel"_s);
        p.kopieren = kopieren;
        p.zweige = {
            {.name = u"Privat"_s, .ablagen = {{.name = u"Stammdaten"_s, .mitJahr = false, .rubriken = {u"Strom"_s}}}}};
        programm.profileSchreiben({p});
        QVERIFY(QDir().mkpath(p.zielWurzel));
        {
            Datenbank db(programm.katalog(p));
            for (int i = 1; i <= 3; ++i) {
                bereitesDokument(db, u"Stadtwerke"_s, u"Strom"_s, u"Text"_s);
                db.ausfuehren(u"UPDATE dokumente SET datum='2024-01-31', pfad=? WHERE id=?"_s,
                              {p.quelle + u"/%1.pdf"_s.arg(i), i});
                if (i != 2)
                    dateiSchreiben(p.quelle + u"/%1.pdf"_s.arg(i), "Inhalt");
            }
        }
        const auto baum = [&] {
            QStringList alles;
            for (const QString &ordner : {p.quelle, p.zielWurzel}) {
                QDirIterator lauf(ordner, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                  QDirIterator::Subdirectories);
                while (lauf.hasNext())
                    alles << lauf.next();
            }
            alles.sort();
            return alles;
        };
        const QStringList dateien = baum();
        const QStringList katalog = auszug(programm.katalog(p));
        const QString ausgabe = programm.laufen({u"--selbsttest"_s}).ausgabe;
        QVERIFY2(ausgabe.contains(u"Selbsttest mit "_s), qPrintable(ausgabe));
        QCOMPARE(baum(), dateien);
        QCOMPARE(auszug(programm.katalog(p)), katalog);
        // With all files there it passes, and leaves as little.
        dateiSchreiben(p.quelle + u"/2.pdf"_s, "Inhalt");
        const QStringList alle = baum();
        QVERIFY(programm.laufen({u"--selbsttest"_s}).ausgabe.endsWith("\nSelbsttest bestanden\n"_L1));
        QCOMPARE(baum(), alle);
        QCOMPARE(auszug(programm.katalog(p)), katalog);
    }
}

/** While the model thinks about the counterpart, the user files one document and corrects another. */
void TestKommandozeile::inzwischenBearbeitet()
{
    QTemporaryDir daten;
    Testserver server;
    Testantwort antwort = Testantwort::fest(200, R"({"response": "{\"gegenueber\": \"Stadtwerke\"}", "done": true})");
    antwort.schritte.prepend({.art = Testschritt::Art::Warten, .dauer = std::chrono::seconds(1)});
    server.antworten("/api/generate", antwort);
    Programm programm(daten.path(), server.port());
    Profil p = namens(u"P"_s);
    p.eigeneNamen = {u"Anna Müller"_s};
    programm.profileSchreiben({p});
    Datenbank db(programm.katalog(p));
    for (int i = 0; i < 3; ++i)
        bereitesDokument(db, u"Anna Müller"_s, u"Strom"_s, u"Text"_s);
    const auto generiert = [&server] {
        const auto anfragen = server.anfragen();
        return std::count_if(anfragen.begin(), anfragen.end(), [](const auto &a) { return a.pfad == "/api/generate"; });
    };
    QTimer mensch;
    connect(&mensch, &QTimer::timeout, this, [&] {
        if (generiert() == 1)
            db.ausfuehren(u"UPDATE dokumente SET status='erledigt' WHERE id=1"_s);
        else if (generiert() == 2)
            db.ausfuehren(u"UPDATE dokumente SET gegenueber='von Hand' WHERE id=2"_s);
    });
    mensch.start(20);
    const auto ende = programm.laufen({u"--gegenueber"_s, u"--anwenden"_s});
    QVERIFY2(ende.ausgabe.endsWith("  ersetzt  1\n  geleert  0\n"_L1), qPrintable(ende.ausgabe + ende.meldungen));
    QStringList staende;
    for (const Zeile &z : db.abfragen(u"SELECT status, gegenueber FROM dokumente ORDER BY id"_s))
        staende << z.text(u"status") + u' ' + z.text(u"gegenueber");
    QCOMPARE(staende, (QStringList{u"erledigt Anna Müller"_s, u"bereit von Hand"_s, u"bereit Stadtwerke"_s}));
}

void TestKommandozeile::selbsttestLaesstAllesWieEsWar()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    const Profil p = namens(u"P"_s);
    programm.profileSchreiben({p});
    {
        Datenbank db(programm.katalog(p));
        for (int i = 0; i < 50; ++i)
            bereitesDokument(db, u"Altername Selbsttest AG"_s, u"Strom"_s, u"Text"_s);
    }
    const QStringList vorher = auszug(programm.katalog(p));
    const auto ende = programm.laufen({u"--selbsttest"_s});
    QVERIFY2(ende.ausgabe.endsWith("\nSelbsttest bestanden\n"_L1), qPrintable(ende.ausgabe));
    QVERIFY(ende.ausgabe.contains(u"\n=== Gedächtnis\n"_s) && ende.ausgabe.contains("\n=== Ausnahmen\n"_L1));
    QCOMPARE(auszug(programm.katalog(p)), vorher);
    {
        Datenbank db(programm.katalog(p));
        bereitesDokument(db, u"Eines"_s, u"zu"_s, u"viel"_s);
    }
    const QString abbruch = programm.laufen({u"--selbsttest"_s}).ausgabe;
    QVERIFY(abbruch.contains("Abbruch. Das Profil"_L1));
    QVERIFY(abbruch.endsWith(u"Der Selbsttest ist nur für kleine Probeprofile gedacht.\n"_s));
}

void TestKommandozeile::sprachenlos()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    programm.profileSchreiben({namens(u"P"_s)});
    dateiSchreiben(programm.ordner() + u"/Sprachen/de.json"_s, "{\"Profil: \": \"Anders: \"}");
    QProcessEnvironment umgebung = programm.prozess().processEnvironment();
    umgebung.insert(u"LC_ALL"_s, u"en_GB.UTF-8"_s);
    programm.prozess().setProcessEnvironment(umgebung);
    QVERIFY(programm.laufen({u"--bericht"_s}).ausgabe.startsWith("Profil: P\n"_L1));
}

void TestKommandozeile::fensterUndHilfe()
{
    QTemporaryDir daten;
    Programm programm(daten.path());
    const QString fassung = programm.laufen({u"--version"_s}).ausgabe;
    QVERIFY(fassung.startsWith(QStringLiteral("Quillmar " QUILLMAR_FASSUNG "\nQt 6.")));
    static const QRegularExpression helfer(u"\ntesseract \\d+\\.\\d\\S* \\(/.*/tesseract\\)\nollama "_s);
    QVERIFY2(helfer.match(fassung).hasMatch(), qPrintable(fassung));
    QVERIFY(programm.laufen({u"--help"_s}).ausgabe.contains("--analyse"_L1));
    QProcessEnvironment umgebung = programm.prozess().processEnvironment();
    umgebung.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    umgebung.insert(u"DISPLAY"_s, u":7777"_s);
    programm.prozess().setProcessEnvironment(umgebung);
    const auto ende = programm.laufen({});
    QCOMPARE(ende.status, 1);
    QVERIFY(ende.meldungen.contains("--analyse"_L1));
}

void TestKommandozeile::statuszeile()
{
    const QString zeile = Ausgabe::Statuszeile::zeile(u"Text lesen"_s, 0.5, u"12 von 24 gelesen"_s, u""_s, 100);
    QCOMPARE(zeile, u"Text lesen  [##########..........]  12 von 24 gelesen"_s);
    QCOMPARE(Ausgabe::sichtbar(u"a\tb\n\x1b[31m\x7f\u009b\u202e\U000E0041ä"_s), u"a\tb\n␛[31m␡\uFFFD\uFFFD\uFFFDä"_s);
    QCOMPARE(Ausgabe::Statuszeile::zeile(u"Text lesen"_s, 7, u"m"_s, u"r"_s, 20).size(), 19);
}

QTEST_GUILESS_MAIN(TestKommandozeile)
#include "test_kommandozeile.moc"
