#include "absichtsdatei.h"
#include "bewegungsgang.h"
#include "fehler.h"
#include "lernspeicher.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "taten.h"
#include "werkbank.h"
#include "zielwurzel.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::ablage;

namespace
{
const QString abschlag = u"2024-03-05 Stadtwerke - Abschlag.pdf"_s;

} // namespace

/** The road of a document there and back, in both modes. */
class TestBewegungen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_ordner = std::make_unique<QTemporaryDir>(); }
    void hinUndZurueck_data();
    void hinUndZurueck();
    void zweiMitEinemNamen();
    void aussortieren_data();
    void aussortieren();
    void gegenueberKorrigiert();
    void werWiederkommtLerntNach();
    void liegtSchonRichtig();
    void verschwundenes();
    void laufwerkeFehlen();
    void zielVonHandVeraendert();
    void alterPlatzBesetzt();
    void nfdAufDerPlatte();
    void katalogVoll();
    void katalogVollBeimRueckgaengig();
    void kopieWirdZumEinzigen();
    void protokollNichtSchreibbar();
    void gleicheDateiAmZiel();
    void zweitesProgrammWaehrendDerKopie();
    void katalogGesperrt();
    void verlassenerPlatzImKatalog();

private:
    std::unique_ptr<QTemporaryDir> m_ordner;
};

void TestBewegungen::hinUndZurueck_data()
{
    QTest::addColumn<bool>("kopieren");
    QTest::newRow("Verschieben") << false;
    QTest::newRow("Kopieren") << true;
}

void TestBewegungen::hinUndZurueck()
{
    QFETCH(bool, kopieren);
    Werkbank bank(m_ordner->path(), kopieren);
    const qint64 id = bank.dokument(u"Scan.pdf"_s, "Brief");
    const Dokument vorher = bank.lesen(id);
    QVERIFY(!QFile::exists(bank.buchDatei()));
    bank.uebernehmen(id);
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("Brief"));
    QCOMPARE(QFile::exists(bank.quelle(u"Scan.pdf"_s)), kopieren);
    const Dokument danach = bank.lesen(id);
    QCOMPARE(danach.status, Status::Erledigt);
    QCOMPARE(danach.pfad, kopieren ? vorher.pfad : bank.ziel(abschlag));
    QCOMPARE(danach.dateiname, kopieren ? vorher.dateiname : abschlag);

    const QList<Protokollzeile> zeilen = Protokollbuch::lesen(bank.buchDatei());
    QCOMPARE(zeilen.size(), 1);
    const Protokollzeile erwartet{.zeit = zeilen.first().zeit,
                                  .aktion = u"einsortiert"_s,
                                  .dokument = id,
                                  .von = vorher.pfad,
                                  .nach = bank.ziel(abschlag),
                                  .altStatus = u"bereit"_s,
                                  .kopiert = kopieren};
    QCOMPARE(zeilen.first().json(), erwartet.json());
    QCOMPARE(Protokollbuch::kopf(bank.buchDatei())->kopieren, kopieren);

    QCOMPARE(bank.rueckgaengig(), id);
    QCOMPARE(bank.lesen(id), vorher);
    QCOMPARE(inhaltVon(bank.quelle(u"Scan.pdf"_s)), QByteArray("Brief"));
    QVERIFY(!QFile::exists(bank.ziel(abschlag)));
    QVERIFY(QFile::exists(bank.ziel(QString()))); // emptied folders are left alone
    QCOMPARE(fehlerBei([&] { bank.rueckgaengig(); }), u"Es gibt nichts rückgängig zu machen"_s);
    QCOMPARE(bank.widersprueche(), QStringList());
}

void TestBewegungen::zweiMitEinemNamen()
{
    Werkbank bank(m_ordner->path());
    const qint64 eins = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 zwei = bank.dokument(u"2.pdf"_s, "zwei");
    bank.uebernehmen(eins);
    bank.uebernehmen(zwei);
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("eins"));
    QCOMPARE(inhaltVon(bank.ziel(u"2024-03-05 Stadtwerke - Abschlag (2).pdf"_s)), QByteArray("zwei"));
    // The document moved away makes room; it comes back under its first name.
    QCOMPARE(bank.rueckgaengig(), zwei);
    QCOMPARE(bank.rueckgaengig(), eins);
    bank.uebernehmen(zwei);
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("zwei"));
}

void TestBewegungen::aussortieren_data() { hinUndZurueck_data(); }

void TestBewegungen::aussortieren()
{
    QFETCH(bool, kopieren);
    Werkbank bank(m_ordner->path(), kopieren);
    const qint64 id = bank.dokument(u"Inbox/Doppelt.pdf"_s, "x");
    bank.db()->ausfuehren(u"UPDATE dokumente SET alt_ordner='Inbox', dateiname='Doppelt.pdf', status='dublette'"_s);
    bank.aussortieren(id);
    QCOMPARE(bank.lesen(id).status, Status::Aussortiert);
    const QString ziel = bank.profil().zielWurzel + u"/_Dubletten/Inbox/Doppelt.pdf"_s;
    QCOMPARE(QFile::exists(ziel), !kopieren);
    QCOMPARE(Protokollbuch::lesen(bank.buchDatei()).size(), kopieren ? 0 : 1);
    if (kopieren)
        return;
    bank.rueckgaengig();
    QCOMPARE(bank.lesen(id).status, Status::Dublette);
    QVERIFY(QFile::exists(bank.quelle(u"Inbox/Doppelt.pdf"_s)));
}

void TestBewegungen::gegenueberKorrigiert()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 wartet = bank.dokument(u"2.pdf"_s, "zwei");
    QCOMPARE(bank.uebernehmen(id, u"Elbstrom GmbH"_s).angepasst, 1);
    QVERIFY(QFile::exists(bank.ziel(u"2024-03-05 Elbstrom GmbH - Abschlag.pdf"_s)));
    QCOMPARE(bank.lesen(wartet).angaben.gegenueber, u"Elbstrom GmbH"_s);
    QCOMPARE(Lernspeicher(*bank.db()).gleichwertig(u"Stadtwerke"_s), u"Elbstrom GmbH"_s);
    QCOMPARE(bank.uebernehmen(wartet).angepasst, 0);
    QCOMPARE(Lernspeicher(*bank.db()).alle().first().anzahl, 2);
}

// What was learned while a document did not wait reaches it when it waits again.
void TestBewegungen::werWiederkommtLerntNach()
{
    Werkbank bank(m_ordner->path());
    const qint64 beiseite = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 zurueckgestellt = bank.dokument(u"2.pdf"_s, "zwei");
    const qint64 ausgenommen = bank.dokument(u"Bilder 3.pdf"_s, "drei");
    Profil profil = bank.profil();
    profil.ausnahmen = {u"Bilder 3.pdf"_s};
    QCOMPARE(Ablagewerk::ausnahmenAnwenden(*bank.db(), profil).ruhen, 1);
    bank.aussortieren(beiseite);
    QVERIFY(Taten::statusWechseln(*bank.db(), u"zurueckgestellt"_s, zurueckgestellt, Status::Bereit,
                                  Status::Zurueckgestellt));
    Angaben gelernt = bank.lesen(beiseite).angaben;
    gelernt.gegenueber = u"Elbstrom GmbH"_s;
    QCOMPARE(Lernspeicher(*bank.db(), profil).merken(0, gelernt, u"Stadtwerke"_s), 0);

    QCOMPARE(Ablagewerk::ausnahmenAnwenden(*bank.db(), bank.profil()).zurueckgeholt, 1);
    QCOMPARE(bank.lesen(ausgenommen).angaben.gegenueber, gelernt.gegenueber);
    Ablagewerk werk(bank.db(), bank.profil());
    for (const qint64 id : {zurueckgestellt, beiseite}) {
        QCOMPARE(bank.lesen(id).angaben.gegenueber, u"Stadtwerke"_s);
        QCOMPARE(werk.tatZuruecknehmen().dokumente, QList<qint64>{id});
        QCOMPARE(bank.lesen(id).status, Status::Bereit);
        QCOMPARE(bank.lesen(id).angaben.gegenueber, gelernt.gegenueber);
    }
}

void TestBewegungen::liegtSchonRichtig()
{
    for (const bool kopieren : {false, true}) {
        QTemporaryDir ordner;
        Werkbank bank(ordner.path(), kopieren);
        const qint64 id = bank.dokument(u"weg.pdf"_s, "x");
        QDir().mkpath(bank.ziel(QString()));
        QVERIFY(QFile::rename(bank.quelle(u"weg.pdf"_s), bank.ziel(abschlag)));
        bank.db()->ausfuehren(u"UPDATE dokumente SET pfad=?"_s, {bank.ziel(abschlag)});
        bank.uebernehmen(id);
        QCOMPARE(QDir(bank.ziel(QString())).entryList(QDir::Files), QStringList{abschlag});
        const Protokollzeile zeile = Protokollbuch::lesen(bank.buchDatei()).first();
        QCOMPARE(zeile.kopiert, false);
        QCOMPARE(zeile.von, zeile.nach);
        bank.rueckgaengig();
        QVERIFY(QFile::exists(bank.ziel(abschlag)));
        QCOMPARE(bank.lesen(id).status, Status::Bereit);
    }
}

void TestBewegungen::verschwundenes()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 verweis = bank.dokument(u"2.pdf"_s, "zwei");
    QFile::remove(bank.quelle(u"1.pdf"_s));
    QCOMPARE(fehlerBei([&] { bank.uebernehmen(id); }), u"Die Datei liegt nicht mehr am erwarteten Ort"_s);
    QCOMPARE(bank.lesen(id).status, Status::Fehlt);
    QCOMPARE(fehlerBei([&] { bank.uebernehmen(99); }), u"Dokument unbekannt"_s);
    QFile::remove(bank.quelle(u"2.pdf"_s));
    QVERIFY(::symlink("/etc/hostname", bank.quelle(u"2.pdf"_s).toUtf8().constData()) == 0);
    QVERIFY(!fehlerBei([&] { bank.uebernehmen(verweis, u"Neu AG"_s); }).isEmpty());
    QCOMPARE(bank.lesen(verweis).angaben.gegenueber, u"Stadtwerke"_s);
    QVERIFY(Lernspeicher(*bank.db()).alle().isEmpty());
    QVERIFY(!QFile::exists(bank.buchDatei()));
}

void TestBewegungen::laufwerkeFehlen()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 fertig = bank.dokument(u"2.pdf"_s, "zwei", u"Anderes"_s);
    bank.uebernehmen(fertig);
    const QString quelle = bank.profil().quelle;
    QVERIFY(QDir().rename(quelle, quelle + u".weg"_s));
    QVERIFY(fehlerBei([&] { bank.uebernehmen(id); }).startsWith(u"Der Herkunftsordner ist nicht erreichbar"_s));
    QCOMPARE(bank.lesen(id).status, Status::Bereit);
    QVERIFY(fehlerBei([&] { bank.rueckgaengig(); }).startsWith(u"Der Herkunftsordner ist nicht erreichbar"_s));
    QVERIFY(!QFile::exists(quelle));
    QVERIFY(QDir().rename(quelle + u".weg"_s, quelle));
    const QString ziel = bank.profil().zielWurzel;
    QVERIFY(QDir().rename(ziel, ziel + u".weg"_s));
    QVERIFY(fehlerBei([&] { bank.uebernehmen(id); }).startsWith(u"Der Zielordner ist nicht erreichbar"_s));
    QVERIFY(!QFile::exists(ziel));
    Profil ohne = bank.profil();
    ohne.zielWurzel.clear();
    Ablagewerk werk(bank.db(), ohne);
    QCOMPARE(fehlerBei([&] { werk.aussortieren(id); }), u"Es ist noch kein Zielordner gewählt"_s);
}

void TestBewegungen::zielVonHandVeraendert()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    bank.uebernehmen(id);
    dateiSchreiben(bank.ziel(abschlag), "von Hand ergänzt");
    bank.rueckgaengig();
    QCOMPARE(inhaltVon(bank.quelle(u"1.pdf"_s)), QByteArray("von Hand ergänzt"));
    bank.uebernehmen(id);
    QVERIFY(QFile::rename(bank.ziel(abschlag), bank.ziel(u"anders.pdf"_s)));
    QCOMPARE(fehlerBei([&] { bank.rueckgaengig(); }), u"Die Datei liegt nicht mehr am Zielort"_s);
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
}

void TestBewegungen::alterPlatzBesetzt()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    bank.uebernehmen(id);
    dateiSchreiben(bank.quelle(u"1.pdf"_s), "neuer Scan");
    QVERIFY(!fehlerBei([&] { bank.rueckgaengig(); }).isEmpty());
    QCOMPARE(inhaltVon(bank.quelle(u"1.pdf"_s)), QByteArray("neuer Scan"));
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("eins"));
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
}

void TestBewegungen::nfdAufDerPlatte()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"x.pdf"_s, "x");
    QVERIFY(QFile::rename(bank.quelle(u"x.pdf"_s), bank.quelle(u"Ku\u0308ndigung.pdf"_s)));
    bank.db()->ausfuehren(u"UPDATE dokumente SET pfad=?"_s, {bank.quelle(u"Kündigung.pdf"_s)});
    bank.uebernehmen(id);
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("x"));
    QVERIFY(!QFile::exists(bank.quelle(u"Ku\u0308ndigung.pdf"_s)));
}

/** The record fails while the target has room: the file goes back, nothing is learned. */
void TestBewegungen::katalogVoll()
{
    for (const bool kopieren : {false, true}) {
        QTemporaryDir ordner;
        Werkbank bank(ordner.path(), kopieren);
        const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
        const auto vorher = bank.bestand();
        bank.db()->ausfuehren(u"CREATE TEMP TRIGGER voll BEFORE INSERT ON main.protokoll\n"
                              "BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
        QVERIFY(!fehlerBei([&] { bank.uebernehmen(id, u"Neu AG"_s); }).isEmpty());
        QCOMPARE(bank.bestand(), vorher);
        QVERIFY(QFile::exists(bank.quelle(u"1.pdf"_s)));
        QCOMPARE(bank.lesen(id).angaben.gegenueber, u"Stadtwerke"_s);
        QVERIFY(Lernspeicher(*bank.db()).alle().isEmpty());
        bank.db()->ausfuehren(u"DROP TRIGGER temp.voll"_s);
        bank.uebernehmen(id);
        QCOMPARE(bank.widersprueche(), QStringList());
    }
}

/** A failed undo leaves the document filed, so that the next one does not take back another movement. */
void TestBewegungen::katalogVollBeimRueckgaengig()
{
    for (const bool kopieren : {false, true}) {
        QTemporaryDir ordner;
        Werkbank bank(ordner.path(), kopieren);
        const qint64 eins = bank.dokument(u"1.pdf"_s, "eins");
        const qint64 zwei = bank.dokument(u"2.pdf"_s, "zwei", u"Zwei"_s);
        bank.uebernehmen(eins);
        bank.uebernehmen(zwei);
        const auto vorher = bank.bestand();
        bank.db()->ausfuehren(u"CREATE TEMP TRIGGER voll BEFORE UPDATE ON main.protokoll\n"
                              "BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
        QVERIFY(!fehlerBei([&] { bank.rueckgaengig(); }).isEmpty());
        QCOMPARE(bank.bestand(), vorher);
        QCOMPARE(bank.widersprueche(), QStringList());
        bank.db()->ausfuehren(u"DROP TRIGGER temp.voll"_s);
        QCOMPARE(bank.rueckgaengig(), zwei);
        QCOMPARE(bank.lesen(eins).status, Status::Erledigt);
        QCOMPARE(bank.widersprueche(), QStringList());
    }
}

/** The record fails and the original has changed meanwhile: the copy may be all there is of it, and is recorded later.
 */
void TestBewegungen::kopieWirdZumEinzigen()
{
    Werkbank bank(m_ordner->path(), true);
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    bank.db()->ausfuehren(u"CREATE TEMP TRIGGER voll BEFORE INSERT ON main.protokoll\n"
                          "BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
    Datenbank anderes(m_ordner->filePath(u"katalog.db"_s));
    anderes.ausfuehren(u"BEGIN IMMEDIATE"_s);
    std::jthread veraenderer([&] {
        while (!QFile::exists(bank.ziel(abschlag)))
            std::this_thread::sleep_for(5ms);
        dateiSchreiben(bank.quelle(u"1.pdf"_s), "neu gescannt");
        anderes.ausfuehren(u"COMMIT"_s);
    });
    QVERIFY(!fehlerBei([&] { bank.uebernehmen(id); }).isEmpty());
    veraenderer.join();
    QCOMPARE(inhaltVon(bank.ziel(abschlag)), QByteArray("eins"));
    QCOMPARE(inhaltVon(bank.quelle(u"1.pdf"_s)), QByteArray("neu gescannt"));
    bank.db()->ausfuehren(u"DROP TRIGGER temp.voll"_s);
    bank.oeffnen();
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
    QCOMPARE(bank.widersprueche(), QStringList());
}

void TestBewegungen::protokollNichtSchreibbar()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    QVERIFY(QDir(bank.profil().protokollOrdner).removeRecursively());
    dateiSchreiben(bank.profil().protokollOrdner, "a file in the folder's place");
    QVERIFY(bank.uebernehmen(id).ohneProtokoll);
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
}

/** Between announcement and settling someone has put the same bytes at the target: both stay, nothing has happened. */
void TestBewegungen::gleicheDateiAmZiel()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    const QString von = bank.quelle(u"1.pdf"_s);
    const QString nach = bank.profil().zielWurzel + u"/1.pdf"_s;
    {
        auto datei = Absichtsdatei::oeffnen(absichtsdatei(*bank.db()), 0s);
        QVERIFY(datei);
        datei->schreiben({absichtFuer(id, von, nach).json()});
    }
    QCOMPARE(QProcess::execute(u"cp"_s, {u"-p"_s, von, nach}), 0);
    bank.oeffnen();
    QCOMPARE(inhaltVon(von), QByteArray("eins"));
    QCOMPARE(inhaltVon(nach), QByteArray("eins"));
    QCOMPARE(bank.lesen(id).status, Status::Bereit);
    QVERIFY(inhaltVon(absichtsdatei(*bank.db())).isEmpty());
}

/** While another program moves, opening settles nothing; its temporary file stays. */
void TestBewegungen::zweitesProgrammWaehrendDerKopie()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    const QString temporaer = bank.profil().zielWurzel + u"/.quillmar-6f1c0d2a-93b4-4e1f-8c55-1a2b3c4d5e6f"_s;
    dateiSchreiben(temporaer, "halb");
    Absicht absicht = absichtFuer(id, bank.quelle(u"1.pdf"_s), bank.profil().zielWurzel + u"/1.pdf"_s);
    absicht.temporaer = temporaer;
    auto anderes = Absichtsdatei::oeffnen(absichtsdatei(*bank.db()), 0s);
    QVERIFY(anderes);
    anderes->schreiben({absicht.json(), "damaged line"});
    bank.oeffnen();
    QVERIFY(QFile::exists(temporaer));
    anderes.reset();
    bank.oeffnen();
    QVERIFY(!QFile::exists(temporaer));
    QCOMPARE(bank.lesen(id).status, Status::Bereit);
    bank.uebernehmen(id);
    QCOMPARE(bank.widersprueche(), QStringList());
}

void TestBewegungen::katalogGesperrt()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    Datenbank anderes(m_ordner->filePath(u"katalog.db"_s));
    anderes.ausfuehren(u"BEGIN IMMEDIATE"_s);
    std::jthread freigeber([&] {
        while (!QFile::exists(bank.ziel(abschlag))) // the file has moved, its record waits
            std::this_thread::sleep_for(5ms);
        anderes.ausfuehren(u"COMMIT"_s);
    });
    bank.uebernehmen(id);
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
    QCOMPARE(bank.widersprueche(), QStringList());
}

/** A filed document was deleted by hand and its place is taken again: its row must not stand in the way. */
/** Nothing of what was filed lies in the target any more: it may be the empty folder below a drive. */
void TestBewegungen::verlassenerPlatzImKatalog()
{
    Werkbank bank(m_ordner->path());
    const qint64 alt = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 neu = bank.dokument(u"2.pdf"_s, "zwei");
    bank.uebernehmen(alt);
    const auto vorher = bank.lesen(alt);
    QFile::remove(bank.ziel(abschlag));
    QVERIFY(fehlerBei([&] { bank.uebernehmen(neu); }).contains(u"Datenträger eingehängt"_s));
    QVERIFY(fehlerBei([&] { bank.aussortieren(neu); }).contains(u"Datenträger eingehängt"_s));
    QCOMPARE(bank.lesen(neu).status, Status::Bereit);
    QCOMPARE(bank.lesen(alt), vorher);
    QVERIFY(QFile::exists(bank.quelle(u"2.pdf"_s)));

    Zielwurzel::bestaetigen(*bank.db(), bank.profil());
    bank.uebernehmen(neu);
    QCOMPARE(bank.lesen(neu).pfad, bank.ziel(abschlag));
    QCOMPARE(bank.lesen(alt).status, Status::Erledigt);
    QCOMPARE(bank.lesen(alt).pfad, QString());
    QCOMPARE(bank.db()->abfragen(u"SELECT pfad FROM fruehere_pfade"_s).first().text(u"pfad"), vorher.pfad);
    QCOMPARE(bank.rueckgaengig(), neu);
    // The first movement must not take the other document's file.
    QVERIFY(!fehlerBei([&] { bank.rueckgaengig(); }).isEmpty());
}

QTEST_GUILESS_MAIN(TestBewegungen)
#include "test_bewegungen.moc"
