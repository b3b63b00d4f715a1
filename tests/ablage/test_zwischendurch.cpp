#include "absichtsdatei.h"
#include "bewegungsgang.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"
#include "werkbank.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::ablage;

namespace
{
const QString abschlag = u"2024-03-05 Stadtwerke - Abschlag.pdf"_s;
const auto nichts = [](qint64, qint64) {};

QString summe(const QString &pfad) { return sha256Datei(aufDerPlatte(pfad)); }
} // namespace

/** What happens to files between reading, filing and taking back, by the user's hand and by other programs. */
class TestZwischendurch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_ordner = std::make_unique<QTemporaryDir>();
        m_bank.reset();
    }
    void andereDateiWirdNichtEinsortiert();
    void andereGroesseOhnePruefsumme();
    void unverifiziertWirdVerglichen();
    void schonVonAnderenBearbeitet();
    void herkunftInAndererSchreibweise();
    void blockierteBewegungWirdUebergangen();
    void kopieOhneOriginalBleibt();
    void alterPlatzEinesAnderenDokuments();
    void nameByteFuerByte_data();
    void nameByteFuerByte();
    void ohneWegIstNichtsZuTun_data();
    void ohneWegIstNichtsZuTun();
    void beruehrtNachDemAbsturz_data();
    void beruehrtNachDemAbsturz();
    void nachDemAbsturzGiltDieRechnungsregel_data();
    void nachDemAbsturzGiltDieRechnungsregel();
    void protokollVonAnderswo_data();
    void protokollVonAnderswo();

private:
    Werkbank &bank(bool kopieren = false)
    {
        if (!m_bank)
            m_bank = std::make_unique<Werkbank>(m_ordner->path(), kopieren);
        return *m_bank;
    }
    /** A document whose digest was taken when it was read. */
    qint64 gelesenes(const QString &name, const QByteArray &inhalt, const QString &titel = u"Abschlag"_s)
    {
        const qint64 id = m_bank->dokument(name, inhalt, titel);
        m_bank->db()->ausfuehren(u"UPDATE dokumente SET sha256=? WHERE id=?"_s, {summe(m_bank->quelle(name)), id});
        return id;
    }

    std::unique_ptr<QTemporaryDir> m_ordner;
    std::unique_ptr<Werkbank> m_bank;
};

void TestZwischendurch::andereDateiWirdNichtEinsortiert()
{
    const qint64 id = (bank(), gelesenes(u"1.pdf"_s, "gelesen"));
    dateiSchreiben(bank().quelle(u"1.pdf"_s), "etwas anderes");
    QVERIFY(fehlerBei([&] { bank().uebernehmen(id); }).startsWith(u"Unter diesem Namen liegt inzwischen"_s));
    QCOMPARE(inhaltVon(bank().quelle(u"1.pdf"_s)), QByteArray("etwas anderes"));
    QVERIFY(!QFile::exists(bank().ziel(abschlag)));
    QCOMPARE(bank().lesen(id).status, Status::Fehlt);
    const auto neue =
        bank().db()->abfragen(u"SELECT id, status FROM dokumente WHERE pfad=?"_s, {bank().quelle(u"1.pdf"_s)});
    QCOMPARE(neue.size(), 1);
    QVERIFY(neue.first().ganz(u"id") != id);
    QCOMPARE(neue.first().text(u"status"), u"neu"_s);
}

// A row that tells of no digest tells of a size.
void TestZwischendurch::andereGroesseOhnePruefsumme()
{
    const qint64 id = bank().dokument(u"scan.pdf"_s, "%PDF-1.4 zweiter Brief");
    bank().db()->ausfuehren(u"UPDATE dokumente SET groesse=5 WHERE id=?"_s, {id});
    QVERIFY(!fehlerBei([&] { bank().uebernehmen(id); }).isEmpty());
    QCOMPARE(inhaltVon(bank().quelle(u"scan.pdf"_s)), QByteArray("%PDF-1.4 zweiter Brief"));
}

/** A catalogue of an earlier version says nothing of size and time: the bytes are compared once. */
void TestZwischendurch::unverifiziertWirdVerglichen()
{
    const qint64 id = (bank(), gelesenes(u"1.pdf"_s, "gleich"));
    bank().uebernehmen(id);
    QCOMPARE(inhaltVon(bank().ziel(abschlag)), QByteArray("gleich"));
    QCOMPARE(bank().db()->abfragen(u"SELECT geprueft FROM dateistand"_s).first().ganz(u"geprueft"), 1);
}

void TestZwischendurch::schonVonAnderenBearbeitet()
{
    for (const bool kopieren : {false, true}) {
        QTemporaryDir ordner;
        Werkbank b(ordner.path(), kopieren);
        const qint64 id = b.dokument(u"1.pdf"_s, "eins");
        Ablagewerk werk(b.db(), b.profil());
        const Dokument gesehen = *werk.dokument(id);
        b.uebernehmen(id);
        const auto vorher = b.bestand();
        QVERIFY(!fehlerBei([&] { werk.uebernehmen(gesehen); }).isEmpty());
        QVERIFY(!fehlerBei([&] { werk.aussortieren(id, Status::Bereit); }).isEmpty());
        QCOMPARE(b.bestand(), vorher);
        QCOMPARE(b.lesen(id).status, Status::Erledigt);
    }
}

/** The profile spells its source folder with letter and mark apart; the drive is away. */
void TestZwischendurch::herkunftInAndererSchreibweise()
{
    const qint64 id = bank().dokument(u"1.pdf"_s, "eins");
    const QString ordner = m_ordner->filePath(u"Büro"_s);
    bank().db()->ausfuehren(u"UPDATE dokumente SET pfad=? WHERE id=?"_s, {ordner + u"/1.pdf"_s, id});
    Profil profil = bank().profil();
    profil.quelle = ordner.normalized(QString::NormalizationForm_D);
    Ablagewerk werk(bank().db(), profil);
    QVERIFY(fehlerBei([&] {
                werk.uebernehmen(*werk.dokument(id));
            }).startsWith(u"Der Herkunftsordner ist nicht erreichbar"_s));
    QCOMPARE(bank().lesen(id).status, Status::Bereit);
}

/** One file that was moved by hand: told once, then the older movements have their turn. */
void TestZwischendurch::blockierteBewegungWirdUebergangen()
{
    const qint64 eins = bank().dokument(u"1.pdf"_s, "eins");
    const qint64 zwei = bank().dokument(u"2.pdf"_s, "zwei", u"Zwei"_s);
    bank().uebernehmen(eins);
    bank().uebernehmen(zwei);
    const QString ort = bank().lesen(zwei).pfad;
    QVERIFY(QFile::rename(ort, ort + u".weg"_s));
    QCOMPARE(fehlerBei([&] { bank().rueckgaengig(); }), u"Die Datei liegt nicht mehr am Zielort"_s);
    QCOMPARE(bank().lesen(eins).status, Status::Erledigt);
    QCOMPARE(bank().rueckgaengig(), eins);
    QCOMPARE(bank().db()->abfragen(u"SELECT 1 FROM protokoll WHERE rueckgaengig=0"_s).size(), 1);
    QVERIFY(!Tatruecknahme::istMoeglich(*bank().db()));
    // Once it is back, it has its turn again.
    QVERIFY(QFile::rename(ort + u".weg"_s, ort));
    QCOMPARE(bank().rueckgaengig(), zwei);
}

void TestZwischendurch::kopieOhneOriginalBleibt()
{
    const qint64 id = bank(true).dokument(u"1.pdf"_s, "eins");
    bank().uebernehmen(id);
    QVERIFY(QFile::remove(bank().quelle(u"1.pdf"_s)));
    QCOMPARE(fehlerBei([&] { bank().rueckgaengig(); }), u"Das Original fehlt oder ist nicht mehr wie die Kopie"_s);
    QCOMPARE(inhaltVon(bank().ziel(abschlag)), QByteArray("eins"));
    QCOMPARE(bank().lesen(id).status, Status::Erledigt);
}

/** A new scan has taken the path of a copied document: the undo must not take the path from it. */
void TestZwischendurch::alterPlatzEinesAnderenDokuments()
{
    const qint64 id = bank(true).dokument(u"1.pdf"_s, "eins");
    bank().uebernehmen(id);
    const QString pfad = bank().quelle(u"1.pdf"_s);
    bank().db()->ausfuehren(u"UPDATE dokumente SET pfad=NULL WHERE id=?"_s, {id});
    bank().db()->ausfuehren(u"INSERT INTO dokumente (pfad, dateiname) VALUES (?, '1.pdf')"_s, {pfad});
    const auto vorher = bank().bestand();
    QVERIFY(fehlerBei([&] { bank().rueckgaengig(); }).contains(u"ein anderes Dokument"_s));
    QCOMPARE(bank().bestand(), vorher);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank().buchDatei(), bank().db(), nichts);
    QCOMPARE(bilanz.zurueckgedreht, 0);
    QCOMPARE(bilanz.uebersprungen.size(), 1);
    QCOMPARE(bank().bestand(), vorher);
}

void TestZwischendurch::nameByteFuerByte_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("zerlegt") << u"Ku\u0308ndigung.pdf"_s;
    // In form C this letter takes six bytes instead of three: the name no longer fits into a file system.
    QTest::newRow("zu lang in Form C") << QString(QChar(0x0958)).repeated(50) + u".pdf"_s;
}

void TestZwischendurch::nameByteFuerByte()
{
    QFETCH(QString, name);
    const QString pfad = bank().quelle(name.normalized(QString::NormalizationForm_C));
    const qint64 id = bank().dokument(u"x.pdf"_s, "x");
    QCOMPARE(::rename(bank().quelle(u"x.pdf"_s).toUtf8().constData(), bank().quelle(name).toUtf8().constData()), 0);
    bank().db()->ausfuehren(u"UPDATE dokumente SET pfad=?, dateiname=?"_s, {pfad, nameVon(pfad)});
    const auto aufPlatte = [&] { return QDir(bank().profil().quelle).entryList(QDir::Files); };
    const QStringList vorher = aufPlatte();
    bank().uebernehmen(id);
    QVERIFY(aufPlatte().isEmpty());
    bank().rueckgaengig();
    QCOMPARE(aufPlatte(), vorher);
    bank().uebernehmen(id);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(bank().buchDatei(), nullptr, nichts);
    QCOMPARE(bilanz.zurueckgedreht, 1);
    QCOMPARE(aufPlatte(), vorher);
}

void TestZwischendurch::ohneWegIstNichtsZuTun_data()
{
    QTest::addColumn<QString>("weise");
    for (const QString &weise : {u"rueckgaengig"_s, u"sitzung"_s, u"ohne Katalog"_s})
        QTest::newRow(qPrintable(weise)) << weise;
}

/** Earlier versions wrote a copy whose both ends are one and the same path. */
void TestZwischendurch::ohneWegIstNichtsZuTun()
{
    QFETCH(QString, weise);
    const qint64 id = bank().dokument(u"1.pdf"_s, "eins");
    const QString pfad = bank().quelle(u"1.pdf"_s);
    bank().db()->ausfuehren(
        u"INSERT INTO protokoll (dokument_id, zeit, aktion, von_pfad, nach_pfad, alt_status, kopiert)\n"
        "VALUES (?,'z','einsortiert',?,?,'bereit',1)"_s,
        {id, pfad, pfad});
    bank().db()->ausfuehren(u"UPDATE dokumente SET status='erledigt'"_s);
    const auto buch = Protokollbuch::anlegen(bank().profil().protokollOrdner, bank().profil());
    QVERIFY(buch->anhaengen({.zeit = u"z"_s,
                             .aktion = u"einsortiert"_s,
                             .dokument = id,
                             .von = pfad,
                             .nach = pfad,
                             .altStatus = u"bereit"_s,
                             .kopiert = true}));
    if (weise == u"rueckgaengig"_s)
        bank().rueckgaengig();
    else
        QCOMPARE(Protokollbuch::zurueckdrehen(buch->datei(), weise == u"sitzung"_s ? bank().db() : nullptr, nichts)
                     .fehler.size(),
                 0);
    QCOMPARE(inhaltVon(pfad), QByteArray("eins"));
    if (weise != u"ohne Katalog"_s)
        QCOMPARE(bank().lesen(id).status, Status::Bereit);
}

void TestZwischendurch::beruehrtNachDemAbsturz_data()
{
    QTest::addColumn<bool>("geschehen");
    QTest::addColumn<bool>("nocheinsAmAnfang");
    QTest::addColumn<Status>("status");
    QTest::addColumn<bool>("offen");
    QTest::newRow("umbenannt, dann berührt") << true << false << Status::Erledigt << false;
    QTest::newRow("nicht umbenannt, dann berührt") << false << false << Status::Bereit << false;
    QTest::newRow("an beiden Enden etwas anderes") << true << true << Status::Bereit << true;
}

/** The crash came between the renaming and its record, and somebody has written to the file since. */
void TestZwischendurch::beruehrtNachDemAbsturz()
{
    QFETCH(bool, geschehen);
    QFETCH(bool, nocheinsAmAnfang);
    const qint64 id = bank().dokument(u"1.pdf"_s, "eins");
    const QString von = bank().quelle(u"1.pdf"_s);
    const QString nach = bank().ziel(u"Brief.pdf"_s);
    Absicht absicht = absichtFuer(id, von, nach);
    absicht.status = Status::Erledigt;
    Absichtsdatei::oeffnen(absichtsdatei(*bank().db()), std::chrono::seconds(0))->schreiben({absicht.json()});
    QVERIFY(QDir().mkpath(ordnerVon(nach)));
    if (geschehen)
        QVERIFY(QFile::rename(von, nach));
    dateiSchreiben(geschehen ? nach : von, "eins und mehr");
    if (nocheinsAmAnfang)
        dateiSchreiben(von, "ein neuer Scan");
    const auto vorher = bank().bestand();
    QFETCH(bool, offen);
    QCOMPARE(Bewegungsgang::klaeren(bank().db()), offen ? QStringList{u"1.pdf"_s} : QStringList());
    QTEST(bank().lesen(id).status, "status");
    QCOMPARE(bank().bestand(), vorher);
    if (geschehen && !offen) {
        QCOMPARE(bank().lesen(id).pfad, nach);
        QCOMPARE(bank().rueckgaengig(), id);
        QCOMPARE(inhaltVon(von), QByteArray("eins und mehr"));
    }
}

void TestZwischendurch::nachDemAbsturzGiltDieRechnungsregel_data()
{
    QTest::addColumn<bool>("mitRegel");
    QTest::addColumn<QString>("rubrik");
    QTest::newRow("mit Anschrift") << true << u"Eingang"_s;
    QTest::newRow("Zeile einer früheren Fassung") << false << u"Ausgang"_s;
}

/** What is taught while an interrupted accept is settled reaches the waiting documents as it would have then. */
void TestZwischendurch::nachDemAbsturzGiltDieRechnungsregel()
{
    QFETCH(bool, mitRegel);
    const qint64 id = bank().dokument(u"1.pdf"_s, "eins");
    const qint64 wartend = bank().dokument(u"2.pdf"_s, "zwei");
    bank().db()->ausfuehren(u"UPDATE dokumente SET gegenueber='Werk' WHERE id=?"_s, {wartend});
    bank().db()->ausfuehren(u"INSERT INTO texte VALUES (?,?)"_s, {wartend, u"An\nWeg 100\n12345 Ort\nRechnung"_s});
    Absicht absicht;
    absicht.vorgang = u"v"_s;
    absicht.status = Status::Erledigt;
    absicht.zeile.zeit = u"z"_s;
    absicht.zeile.aktion = u"einsortiert"_s;
    absicht.zeile.dokument = id;
    absicht.zeile.von = bank().quelle(u"1.pdf"_s);
    absicht.zeile.nach = bank().ziel(u"Brief.pdf"_s);
    absicht.zeile.altStatus = u"bereit"_s;
    absicht.werte = bank().lesen(id).angaben;
    absicht.werte->gegenueber = u"Werk"_s;
    absicht.werte->ort.zweig = u"Privat"_s;
    absicht.werte->ort.rubrik = u"Ausgang"_s;
    absicht.profil.eigeneAnschriften = QStringList{u"Weg 100, 12345 Ort"_s};
    absicht.profil.rubrikAusgang = u"Ausgang"_s;
    absicht.profil.rubrikEingang = u"Eingang"_s;
    const auto angaben = Dateibewegung::angabenVon(absicht.zeile.von);
    absicht.groesse = angaben->groesse;
    absicht.dateizeit = angaben->zeit;
    QByteArray zeile = absicht.json();
    if (!mitRegel)
        zeile.replace("\"rechnung\"", "\"unbekannt\"");
    Absichtsdatei::oeffnen(absichtsdatei(*bank().db()), std::chrono::seconds(0))->schreiben({zeile});
    QVERIFY(QDir().mkpath(ordnerVon(absicht.zeile.nach)) && QFile::rename(absicht.zeile.von, absicht.zeile.nach));
    QCOMPARE(Bewegungsgang::klaeren(bank().db()), QStringList());
    QCOMPARE(bank().lesen(id).status, Status::Erledigt);
    QTEST(bank().lesen(wartend).angaben.ort.rubrik, "rubrik");
}

void TestZwischendurch::protokollVonAnderswo_data()
{
    QTest::addColumn<QString>("von"); // relative to the bench
    QTest::addColumn<QString>("nach");
    QTest::addColumn<bool>("mitKopf");
    QTest::addColumn<bool>("bewegt");
    QTest::newRow("Dokument im Ziel") << u"quelle/a.pdf"_s << u"ziel/b.PDF"_s << true << true;
    QTest::newRow("kein Dokument") << u"quelle/a.desktop"_s << u"ziel/b.desktop"_s << true << false;
    QTest::newRow("wird keines") << u"quelle/a.desktop"_s << u"ziel/b.pdf"_s << true << false;
    QTest::newRow("woandershin") << u"autostart/a.pdf"_s << u"ziel/b.pdf"_s << true << false;
    QTest::newRow("auf Umwegen") << u"quelle/../autostart/a.pdf"_s << u"ziel/b.pdf"_s << true << false;
    QTest::newRow("ohne Kopf, im Profil") << u"quelle/a.pdf"_s << u"ziel/b.pdf"_s << false << true;
    QTest::newRow("ohne Kopf, woandershin") << u"anderswo/a.pdf"_s << u"ziel/b.pdf"_s << false << false;
}

void TestZwischendurch::protokollVonAnderswo()
{
    QFETCH(QString, von);
    QFETCH(QString, nach);
    QFETCH(bool, mitKopf);
    QFETCH(bool, bewegt);
    const QString dort = m_ordner->filePath(nach);
    bank();
    dateiSchreiben(dort, "Inhalt");
    Protokollzeile zeile;
    zeile.zeit = u"z"_s;
    zeile.aktion = u"einsortiert"_s;
    zeile.dokument = 77;
    zeile.von = m_ordner->filePath(von);
    zeile.nach = dort;
    QByteArray text = zeile.json() + '\n';
    if (mitKopf)
        text.prepend(Protokollkopf::fuer(bank().profil()).json() + '\n');
    const QString datei = m_ordner->filePath(u"fremd.jsonl"_s);
    dateiSchreiben(datei, text);
    const Bilanz bilanz = Protokollbuch::zurueckdrehen(datei, bank().db(), nichts, {},
                                                       {bank().profil().quelle, bank().profil().zielWurzel});
    QCOMPARE(bilanz.zurueckgedreht, bewegt ? 1 : 0);
    QCOMPARE(bilanz.uebersprungen.size(), bewegt ? 0 : 1);
    QCOMPARE(QFile::exists(dort), !bewegt);
}

QTEST_GUILESS_MAIN(TestZwischendurch)
#include "test_zwischendurch.moc"
