#include "protokollbuch.h"
#include "werkbank.h"

#include <QDateTime>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
void nichts(qint64, qint64) {}

/** Passed over for nothing but @p grund, and nothing else done. */
bool nurUebersprungen(const Bilanz &bilanz, qsizetype anzahl, const QString &grund)
{
    const auto &u = bilanz.uebersprungen;
    return bilanz.zurueckgedreht == 0 && bilanz.fehler.isEmpty() && u.size() == anzahl &&
           std::all_of(u.begin(), u.end(), [&](const Rueckbaubefund &b) { return b.grund == grund; });
}

Protokollzeile zeile(int nummer)
{
    return {.zeit = u"2025-01-31T14:05:09Z"_s,
            .aktion = u"einsortiert"_s,
            .dokument = nummer,
            .von = u"/a/ä \"%1\"\n.pdf"_s.arg(nummer),
            .nach = u"/b/%1.pdf"_s.arg(nummer),
            .altStatus = u"bereit"_s,
            .kopiert = nummer % 2 == 1};
}

void anhaengen(const QString &datei, const QByteArray &bytes)
{
    QFile ausgabe(datei);
    QVERIFY(ausgabe.open(QIODevice::Append));
    ausgabe.write(bytes);
}
} // namespace

class TestProtokollbuch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { m_ordner = std::make_unique<QTemporaryDir>(); }
    void schreibenUndLesen();
    void zweiInEinerSekunde();
    void beschaedigt_data();
    void beschaedigt();
    void neuesteZuerst();
    void keinOrdner();
    void zeitKurz();
    void nebenlaeufig();
    void sitzungZurueck_data();
    void sitzungZurueck();
    void einTeilScheitert_data();
    void einTeilScheitert();
    void angehalten();
    void mehrereBewegungenEinesDokuments();
    void spaetereSitzungBleibt();
    void kopieNurMitOriginal();
    void ausgelassenesUndFehler();
    void fremdesProfil();
    void ohneKatalog();

private:
    std::unique_ptr<QTemporaryDir> m_ordner;
};

void TestProtokollbuch::schreibenUndLesen()
{
    Profil profil;
    profil.name = u"Büro"_s;
    profil.zielWurzel = m_ordner->path();
    const auto buch = Protokollbuch::anlegen(*profil.protokollURL(), profil);
    QVERIFY(buch);
    QVERIFY(QRegularExpression(u"^Protokoll \\d{4}-\\d\\d-\\d\\d \\d{6}\\.jsonl$"_s)
                .match(QFileInfo(buch->datei()).fileName())
                .hasMatch());
    QVERIFY(!QFile::exists(buch->datei()));
    QVERIFY(buch->anhaengen(zeile(1)) && buch->anhaengen(zeile(2)));
    QCOMPARE(Protokollbuch::lesen(buch->datei()), (QList<Protokollzeile>{zeile(1), zeile(2)}));
    QCOMPARE(Protokollbuch::kopf(buch->datei()), buch->kopf());
    const QByteArray inhalt = inhaltVon(buch->datei());
    QCOMPARE(inhalt.count('\n'), 3);
    QVERIFY(inhalt.endsWith('\n'));
    // A second book in the same second gets a file of its own.
    QVERIFY(Protokollbuch::anlegen(*profil.protokollURL(), profil)->datei() != buch->datei());
}

/** Two programs begin in the same second; and what a crash kept out of a log never gets into another session's. */
void TestProtokollbuch::zweiInEinerSekunde()
{
    Profil eins;
    eins.name = u"Eins"_s;
    Profil zwei;
    zwei.name = u"Zwei"_s;
    QList<std::shared_ptr<Protokollbuch>> buecher;
    do { // once more if the second has just changed
        buecher = {Protokollbuch::anlegen(m_ordner->path(), eins), Protokollbuch::anlegen(m_ordner->path(), zwei)};
    } while (buecher.first()->datei() != buecher.last()->datei());
    const QString gemeinsam = buecher.first()->datei();
    QVERIFY(buecher.first()->anhaengen(zeile(1)));
    QVERIFY(buecher.last()->anhaengen(zeile(2)) && buecher.last()->anhaengen(zeile(3)));
    QCOMPARE(buecher.first()->datei(), gemeinsam);
    QCOMPARE(Protokollbuch::kopf(gemeinsam)->profil, u"Eins"_s);
    QCOMPARE(Protokollbuch::lesen(gemeinsam), QList<Protokollzeile>{zeile(1)});
    QVERIFY(buecher.last()->datei() != gemeinsam);
    QCOMPARE(Protokollbuch::kopf(buecher.last()->datei())->profil, u"Zwei"_s);
    QCOMPARE(Protokollbuch::lesen(buecher.last()->datei()), (QList<Protokollzeile>{zeile(2), zeile(3)}));

    Protokollkopf fremd = buecher.first()->kopf();
    fremd.profil = u"Drei"_s;
    QVERIFY(Protokollbuch::nachtragen(gemeinsam, buecher.first()->kopf(), zeile(4)));
    QVERIFY(Protokollbuch::nachtragen(gemeinsam, buecher.first()->kopf(), zeile(4)));
    QVERIFY(Protokollbuch::nachtragen(gemeinsam, fremd, zeile(5)));
    QCOMPARE(Protokollbuch::lesen(gemeinsam), (QList<Protokollzeile>{zeile(1), zeile(4)}));
    QCOMPARE(Protokollbuch::dateien(m_ordner->path()).size(), 3);
}

void TestProtokollbuch::beschaedigt_data()
{
    QTest::addColumn<QByteArray>("dazwischen");
    QTest::newRow("abgerissene Zeile") << zeile(7).json().left(60);
    QTest::newRow("in einem Zeichen abgerissen") << QByteArray("{\"art\":\"bewegung\",\"von\":\"/\xc3");
    QTest::newRow("Müll mit Zeilenende") << QByteArray("\xff\xfe\0\x01 nonsense\n", 14);
    QTest::newRow("leere Zeilen") << QByteArray("\n\n\n");
    QTest::newRow("fehlendes Feld") << QByteArray("{\"art\":\"bewegung\",\"zeit\":\"x\"}\n");
}

/** Damage in the middle never takes a later line along. */
void TestProtokollbuch::beschaedigt()
{
    QFETCH(QByteArray, dazwischen);
    const auto buch = Protokollbuch::anlegen(m_ordner->path(), Profil());
    QVERIFY(buch->anhaengen(zeile(1)));
    anhaengen(buch->datei(), dazwischen);
    QVERIFY(buch->anhaengen(zeile(2)));
    QCOMPARE(Protokollbuch::lesen(buch->datei()), (QList<Protokollzeile>{zeile(1), zeile(2)}));
    QVERIFY(Protokollbuch::kopf(buch->datei()));
}

void TestProtokollbuch::neuesteZuerst()
{
    const auto datei = [&](const QString &name, int stunde) {
        dateiSchreiben(m_ordner->filePath(name), "x");
        QFile f(m_ordner->filePath(name));
        QVERIFY(f.open(QIODevice::ReadWrite));
        f.setFileTime(QDateTime(QDate(2025, 1, 1), QTime(stunde, 0)), QFileDevice::FileModificationTime);
    };
    datei(u"alt.jsonl"_s, 1);
    datei(u"neu.jsonl"_s, 3);
    datei(u"mitte.jsonl"_s, 2);
    datei(u"GROSS.JSONL"_s, 4);
    datei(u"text.txt"_s, 5);
    QDir().mkpath(m_ordner->filePath(u"ordner.jsonl"_s));
    QStringList namen;
    for (const QString &pfad : Protokollbuch::dateien(m_ordner->path()))
        namen << QFileInfo(pfad).fileName();
    QCOMPARE(namen, (QStringList{u"neu.jsonl"_s, u"mitte.jsonl"_s, u"alt.jsonl"_s}));
    QCOMPARE(Protokollbuch::dateien(m_ordner->filePath(u"gibtsnicht"_s)), QStringList());
    QVERIFY(!Protokollbuch::kopf(m_ordner->filePath(u"alt.jsonl"_s)));
    QVERIFY(Protokollbuch::lesen(m_ordner->filePath(u"gibtsnicht"_s)).isEmpty());
}

void TestProtokollbuch::keinOrdner()
{
    dateiSchreiben(m_ordner->filePath(u"datei"_s), "x");
    QVERIFY(!Protokollbuch::anlegen(m_ordner->filePath(u"datei/unten"_s), Profil()));
    Profil profil;
    profil.zielWurzel = m_ordner->filePath(u"nicht-eingehaengt"_s);
    QVERIFY(!Protokollbuch::anlegen(*profil.protokollURL(), profil));
    QVERIFY(!QFile::exists(profil.zielWurzel));
}

void TestProtokollbuch::zeitKurz()
{
    Protokollzeile z = zeile(1);
    QCOMPARE(z.zeitKurz(),
             QDateTime(QDate(2025, 1, 31), QTime(14, 5, 9), Qt::UTC).toLocalTime().toString(u"HH:mm:ss"_s));
    z.zeit = u"gestern"_s;
    QCOMPARE(z.zeitKurz(), u"gestern"_s);
    z.zeit = u"2025-01-31"_s; // no time of day
    QCOMPARE(z.zeitKurz(), u"2025-01-31"_s);
}

void TestProtokollbuch::nebenlaeufig()
{
    const auto buch = Protokollbuch::anlegen(m_ordner->path(), Profil());
    {
        std::vector<std::jthread> faeden;
        for (int i = 0; i < 4; ++i)
            faeden.emplace_back([&, i] {
                for (int n = 0; n < 50; ++n)
                    buch->anhaengen(zeile(i * 50 + n));
            });
    }
    QCOMPARE(Protokollbuch::lesen(buch->datei()).size(), 200);
    QVERIFY(Protokollbuch::kopf(buch->datei()));
}

void TestProtokollbuch::sitzungZurueck_data()
{
    QTest::addColumn<bool>("kopieren");
    QTest::newRow("Verschieben") << false;
    QTest::newRow("Kopieren") << true;
}

/** More movements than one group, turned back twice. */
void TestProtokollbuch::sitzungZurueck()
{
    QFETCH(bool, kopieren);
    Werkbank bank(m_ordner->path(), kopieren);
    constexpr int anzahl = 130;
    QList<Dokument> vorher;
    for (int i = 0; i < anzahl; ++i)
        vorher << bank.lesen(bank.dokument(u"%1.pdf"_s.arg(i), QByteArray::number(i)));
    for (const Dokument &d : std::as_const(vorher))
        bank.uebernehmen(d.id);
    QList<qint64> gemeldet;
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), [&](qint64 fertig, qint64 gesamt) {
        QCOMPARE(gesamt, anzahl);
        // Told after each movement, not after a group.
        QCOMPARE(QDir(bank.ziel(QString())).entryList(QDir::Files).size(), anzahl - fertig);
        gemeldet << fertig;
    });
    QVERIFY(bilanz.fehler.isEmpty());
    QCOMPARE(bilanz.zurueckgedreht, anzahl);
    QCOMPARE(gemeldet.size(), anzahl);
    for (const Dokument &d : std::as_const(vorher)) {
        QCOMPARE(bank.lesen(d.id), d);
        QVERIFY(QFile::exists(d.pfad));
    }
    QVERIFY(QDir(bank.ziel(QString())).entryList(QDir::Files).isEmpty());
    QVERIFY(nurUebersprungen(Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts), anzahl,
                             u"Diese Bewegung ist schon zurückgedreht"_s));
    QCOMPARE(bank.widersprueche(), QStringList());
}

void TestProtokollbuch::einTeilScheitert_data() { sitzungZurueck_data(); }

/** The record of one group fails: its files are where the catalogue has them, the rest goes on. */
void TestProtokollbuch::einTeilScheitert()
{
    QFETCH(bool, kopieren);
    Werkbank bank(m_ordner->path(), kopieren);
    constexpr int anzahl = 110;
    for (int i = 0; i < anzahl; ++i)
        bank.uebernehmen(bank.dokument(u"%1.pdf"_s.arg(i), QByteArray::number(i)));
    const auto vorher = bank.bestand();
    bank.db()->ausfuehren(u"CREATE TEMP TRIGGER voll BEFORE UPDATE ON main.protokoll WHEN NEW.id=50\n"
                          "BEGIN SELECT RAISE(ABORT, 'full'); END"_s);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts);
    QCOMPARE(bilanz.zurueckgedreht, 10);
    QCOMPARE(bilanz.fehler.size(), 100);
    QCOMPARE(bilanz.fehler.first().stelle, 109); // the newest one
    QCOMPARE(QDir(bank.ziel(QString())).entryList(QDir::Files).size(), 100);
    QCOMPARE(bank.widersprueche(), QStringList());
    bank.db()->ausfuehren(u"DROP TRIGGER temp.voll"_s);
    bank.oeffnen();
    QCOMPARE(bank.bestand(), vorher);
    const QString buch = Protokollbuch::dateien(bank.profil().protokollOrdner).first();
    QCOMPARE(Protokollbuch::zurueckdrehen(buch, bank.db(), nichts).zurueckgedreht, 100);
    QCOMPARE(bank.bestand(), vorher);
    QCOMPARE(bank.widersprueche(), QStringList());
}

/** What is in hand is finished; the next turning back takes the rest. */
void TestProtokollbuch::angehalten()
{
    Werkbank bank(m_ordner->path(), false);
    constexpr int anzahl = 110;
    for (int i = 0; i < anzahl; ++i)
        bank.uebernehmen(bank.dokument(u"%1.pdf"_s.arg(i), QByteArray::number(i)));
    std::stop_source halt;
    const auto anhalten = [&halt](qint64, qint64) { halt.request_stop(); };
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), anhalten, halt.get_token());
    QCOMPARE(bilanz.zurueckgedreht, 100);
    QCOMPARE(bilanz.uebersprungen.size(), 10);
    QCOMPARE(bilanz.uebersprungen.first(),
             (Rueckbaubefund{.stelle = 9, .grund = u"Angehalten, bevor diese Bewegung an der Reihe war"_s}));
    QCOMPARE(bank.widersprueche(), QStringList());
    QCOMPARE(Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts).zurueckgedreht, 10);
}

void TestProtokollbuch::mehrereBewegungenEinesDokuments()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    bank.uebernehmen(id);
    bank.rueckgaengig();
    bank.uebernehmen(id);
    Ablagewerk werk(bank.db(), bank.profil());
    bank.aussortieren(id);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts);
    QCOMPARE(bilanz.zurueckgedreht, 2); // the movement undone before is passed over
    QCOMPARE(inhaltVon(bank.quelle(u"1.pdf"_s)), QByteArray("eins"));
    QCOMPARE(bank.lesen(id).status, Status::Bereit);
}

/** Turning an old session back once more leaves alone what a later session has filed at the same place. */
void TestProtokollbuch::spaetereSitzungBleibt()
{
    Werkbank bank(m_ordner->path());
    const qint64 id = bank.dokument(u"1.pdf"_s, "eins");
    bank.uebernehmen(id);
    const QString erste = bank.buchDatei();
    QCOMPARE(Protokollbuch::zurueckdrehen(erste, bank.db(), nichts).zurueckgedreht, 1);
    bank.db()->ausfuehren(u"UPDATE protokoll SET zeit='2020-01-01T00:00:00Z'"_s);
    QFile log(erste);
    QVERIFY(log.open(QIODevice::ReadWrite));
    Protokollzeile alt = Protokollbuch::lesen(erste).first();
    alt.zeit = u"2020-01-01T00:00:00Z"_s;
    log.resize(0);
    log.write(alt.json() + '\n');
    log.close();
    bank.oeffnen();
    bank.uebernehmen(id);
    QVERIFY(nurUebersprungen(Protokollbuch::zurueckdrehen(erste, bank.db(), nichts), 1,
                             u"Diese Bewegung ist schon zurückgedreht"_s));
    QCOMPARE(bank.lesen(id).status, Status::Erledigt);
}

/** A copy goes to the trash only while its original is where it was, unchanged. */
void TestProtokollbuch::kopieNurMitOriginal()
{
    Werkbank bank(m_ordner->path(), true);
    const qint64 weg = bank.dokument(u"1.pdf"_s, "eins");
    const qint64 anders = bank.dokument(u"2.pdf"_s, "zwei", u"Zwei"_s);
    bank.uebernehmen(weg);
    bank.uebernehmen(anders);
    // A later session has put the original itself at the place of the copy.
    const QString ziel = bank.ziel(u"2024-03-05 Stadtwerke - Abschlag.pdf"_s);
    QFile::remove(ziel);
    QVERIFY(QFile::rename(bank.quelle(u"1.pdf"_s), ziel));
    dateiSchreiben(bank.quelle(u"2.pdf"_s), "neu gescannt");
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts);
    QVERIFY(nurUebersprungen(bilanz, 2, u"Das Original fehlt oder ist nicht mehr wie die Kopie"_s));
    QCOMPARE(inhaltVon(ziel), QByteArray("eins"));
    QCOMPARE(inhaltVon(bank.ziel(u"2024-03-05 Stadtwerke - Zwei.pdf"_s)), QByteArray("zwei"));
}

void TestProtokollbuch::ausgelassenesUndFehler()
{
    Werkbank bank(m_ordner->path());
    for (const QString &name : {u"a/1.pdf"_s, u"2.pdf"_s, u"3.pdf"_s, u"4.pdf"_s})
        bank.uebernehmen(bank.dokument(name, name.toUtf8(), name.left(1)));
    dateiSchreiben(bank.quelle(u"2.pdf"_s), "besetzt");
    QFile::remove(bank.ziel(u"2024-03-05 Stadtwerke - 3.pdf"_s));
    // The old folder cannot be made again: a file has its name.
    QVERIFY(QDir(bank.quelle(u"a"_s)).removeRecursively());
    dateiSchreiben(bank.quelle(u"a"_s), "keine Mappe");
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank.buchDatei(), bank.db(), nichts);
    QCOMPARE(bilanz.zurueckgedreht, 1);
    QCOMPARE(bilanz.fehler.size(), 1);
    QCOMPARE(bilanz.fehler.first().stelle, 0);
    QCOMPARE(bilanz.uebersprungen, (QList<Rueckbaubefund>{{2, u"Die Datei liegt nicht mehr am Zielort"_s},
                                                          {1, u"Am alten Platz liegt schon eine andere Datei"_s}}));
    QCOMPARE(inhaltVon(bank.quelle(u"2.pdf"_s)), QByteArray("besetzt"));
    QCOMPARE(inhaltVon(bank.quelle(u"4.pdf"_s)), QByteArray("4.pdf"));
}

/** A log whose documents this catalogue does not know moves files and touches no row. */
void TestProtokollbuch::fremdesProfil()
{
    Werkbank bank(m_ordner->filePath(u"eigen"_s));
    const qint64 eigenes = bank.dokument(u"1.pdf"_s, "eins");
    const Dokument vorher = bank.lesen(eigenes);
    Werkbank andere(m_ordner->filePath(u"fremd"_s));
    andere.uebernehmen(andere.dokument(u"x.pdf"_s, "fremd"));
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(andere.buchDatei(), bank.db(), nichts);
    QCOMPARE(bilanz.zurueckgedreht, 1);
    QCOMPARE(inhaltVon(andere.quelle(u"x.pdf"_s)), QByteArray("fremd"));
    QCOMPARE(bank.lesen(eigenes), vorher);
}

void TestProtokollbuch::ohneKatalog()
{
    Werkbank bank(m_ordner->path());
    bank.uebernehmen(bank.dokument(u"1.pdf"_s, "eins"));
    QCOMPARE(Protokollbuch::zurueckdrehen(bank.buchDatei(), nullptr, nichts).zurueckgedreht, 1);
    QVERIFY(QFile::exists(bank.quelle(u"1.pdf"_s)));
    dateiSchreiben(m_ordner->filePath(u"fern.jsonl"_s), zeile(1).json() + '\n' + zeile(2).json() + '\n');
    QCOMPARE(Protokollbuch::zurueckdrehen(m_ordner->filePath(u"fern.jsonl"_s), nullptr, nichts).uebersprungen.size(),
             2);
}

QTEST_GUILESS_MAIN(TestProtokollbuch)
#include "test_protokollbuch.moc"
