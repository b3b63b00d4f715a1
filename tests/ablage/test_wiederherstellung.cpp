#include "bewegungsgang.h"
#include "katalog.h"
#include "katalogpruefung.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sha256.h"
#include "sicherungen.h"
#include "werkbank.h"
#include "wiederherstellung.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <random>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype seite = 4096;

QByteArray brief(int nummer) { return "%PDF-1.4 Brief " + QByteArray::number(nummer) + QByteArray(nummer * 37, 'b'); }

/** What SQLite itself says of the file, all of it. */
bool istHeil(const QString &pfad)
{
    sqlite3 *griff = nullptr;
    sqlite3_stmt *anweisung = nullptr;
    sqlite3_open_v2(pfad.toUtf8().constData(), &griff, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_prepare_v2(griff, "PRAGMA integrity_check", -1, &anweisung, nullptr);
    const bool heil = sqlite3_step(anweisung) == SQLITE_ROW &&
                      QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(anweisung, 0))) == "ok";
    sqlite3_finalize(anweisung);
    sqlite3_close(griff);
    return heil;
}

/**
 * A user's way: some letters are filed, a copy is made, others are filed, come in and go back; then the catalogue is
 * closed.
 */
class Lebenslauf
{
public:
    Lebenslauf(const QString &ordner, bool kopieren, unsigned saat)
        : m_katalog(ordner + u"/katalog.db"_s), m_bank(ordner, kopieren), m_zufall(saat)
    {
        for (int i = 0; i < 25; ++i)
            brieflegen();
        for (int i = 0; i < 8; ++i)
            eineTat();
        m_bank.aussortieren(m_wartende.takeFirst());
        schliessen();
        Sicherungen::anlegen(m_katalog);
        oeffnen();
        for (int i = 0; i < 6; ++i)
            brieflegen();
        for (int i = 0; i < 12; ++i)
            eineTat();
        schliessen();
    }

    [[nodiscard]] const QString &katalog() const { return m_katalog; }
    [[nodiscard]] Werkbank &bank() { return m_bank; }
    [[nodiscard]] QString sicherung() const { return Sicherungen::alle(m_katalog).first().datei; }
    void schliessen() { m_bank.schliessen(); }
    void oeffnen() { m_bank.oeffnen(); }

    Wiederherstellung::Ergebnis einsetzen()
    {
        auto ergebnis = Wiederherstellung::einsetzen(m_katalog, sicherung(), m_bank.profil(), {u"Nachbar"_s});
        oeffnen();
        return ergebnis;
    }

    /** What does not agree between the open catalogue and the disk. */
    [[nodiscard]] QStringList widersprueche() const
    {
        QStringList liste = m_bank.widerspruecheOhneProtokoll();
        QSet<QString> bekannte;
        for (const Zeile &z :
             m_bank.db()->abfragen(u"SELECT pfad FROM dokumente UNION SELECT nach_pfad FROM protokoll\n"
                                   "WHERE rueckgaengig=0"_s))
            bekannte.insert(z.text(u"pfad"));
        for (const QString &datei : m_bank.abgelegte()) {
            if (!bekannte.contains(datei))
                liste << datei + u" ist im Katalog vergessen"_s;
        }
        return liste;
    }

private:
    void brieflegen()
    {
        const int nummer = ++m_letzter;
        const qint64 id =
            m_bank.dokument(u"Scan %1.pdf"_s.arg(nummer, 3, 10, QChar(u'0')), brief(nummer), u"Brief %1"_s.arg(nummer));
        m_bank.db()->ausfuehren(u"UPDATE dokumente SET sha256=?, groesse=? WHERE id=?"_s,
                                {summe(brief(nummer)), brief(nummer).size(), id});
        m_bank.db()->ausfuehren(u"INSERT INTO texte VALUES (?,?)"_s, {id, QString(900, u't')});
        m_wartende << id;
    }

    static QString summe(const QByteArray &bytes) { return Sha256::hex(Sha256().von(bytes)); }

    void eineTat()
    {
        const unsigned art = unsigned(m_zufall() % 5);
        if (art == 0 && !m_abgelegte.isEmpty()) {
            m_wartende << m_bank.rueckgaengig();
            m_abgelegte.removeLast();
            return;
        }
        const qint64 id = m_wartende.takeAt(qsizetype(m_zufall() % size_t(m_wartende.size())));
        m_bank.uebernehmen(id);
        m_abgelegte << id;
    }

    QString m_katalog;
    Werkbank m_bank;
    std::mt19937 m_zufall;
    QList<qint64> m_wartende;
    QList<qint64> m_abgelegte;
    int m_letzter = 0;
};

/** Damages the file in the way that the number tells. */
void beschaedigen(const QString &pfad, unsigned saat)
{
    std::mt19937 zufall(saat * 7919U + 1);
    QByteArray bytes = inhaltVon(pfad);
    const qsizetype seiten = bytes.size() / seite;
    const auto irgendeine = [&] { return qsizetype(zufall() % size_t(seiten)) * seite; };
    switch (saat % 5) {
    case 0: // single bits
        for (unsigned i = 0; i < 1 + zufall() % 4; ++i) {
            const auto stelle = qsizetype(zufall() % size_t(bytes.size()));
            bytes[stelle] = char(bytes.at(stelle) ^ (1 << zufall() % 8));
        }
        break;
    case 1:
        bytes.replace(irgendeine(), seite, QByteArray(seite, 0));
        break;
    case 2:
        bytes.truncate(qsizetype(zufall() % size_t(bytes.size())));
        break;
    case 3: // a page of another file
        for (qsizetype i = irgendeine(), ende = i + seite; i < ende; ++i)
            bytes[i] = char(zufall());
        break;
    default: // a page in another one's place
        bytes.replace(irgendeine(), seite, bytes.sliced(irgendeine(), seite));
    }
    dateiSchreiben(pfad, bytes);
}
} // namespace

class TestWiederherstellung : public QObject
{
    Q_OBJECT

    static std::shared_ptr<Datenbank> oeffnen(const QString &katalog)
    {
        try {
            return Katalog::oeffnen(katalog, Katalog::Vorpruefung::Immer);
        } catch (const Fehler &) {
            return nullptr;
        }
    }

    /** Files whatever the catalogue says that it waits; each file that moves must be the one that its row tells of. */
    static void allesUebernehmen(Werkbank &bank)
    {
        for (const Zeile &z : bank.db()->abfragen(u"SELECT id FROM dokumente WHERE status='bereit'"_s)) {
            const Dokument d = bank.lesen(z.ganz(u"id"));
            const QByteArray vorher = inhaltVon(d.pfad);
            QString nach;
            try {
                nach = bank.uebernehmen(d.id).nach;
            } catch (const Fehler &) {
                QCOMPARE(inhaltVon(d.pfad), vorher); // refused, and nothing touched
                continue;
            }
            const auto zeile = bank.db()->abfragen(u"SELECT sha256 FROM dokumente WHERE id=?"_s, {d.id});
            QCOMPARE(Sha256::hex(Sha256().von(vorher)), zeile.first().text(u"sha256"));
            QCOMPARE(inhaltVon(nach), vorher);
        }
    }

    /** Of the making of the new catalogue. */
    static QStringList ueberbleibsel(const QString &katalog)
    {
        return QFileInfo(katalog).dir().entryList({u"*.entsteht*"_s, u"*.neu*"_s});
    }

private Q_SLOTS:
    // QUILLMAR_SCHAEDEN=200 tries as many.
    void beschaedigteKataloge()
    {
        bool zahl = false;
        const int gewuenscht = qEnvironmentVariableIntValue("QUILLMAR_SCHAEDEN", &zahl);
        int kaputte = 0;
        for (unsigned saat = 1; saat <= unsigned(zahl ? gewuenscht : 20); ++saat) {
            const QTemporaryDir ordner;
            Lebenslauf leben(ordner.path(), saat % 3 == 0, saat);
            const auto dateien = leben.bank().bestand();
            beschaedigen(leben.katalog(), saat);
            const bool heil = istHeil(leben.katalog());
            kaputte += heil ? 0 : 1;
            {
                const auto db = oeffnen(leben.katalog());
                QVERIFY2(heil || !db || Katalog::zugang(*db) == Zugang::Beschaedigt, qPrintable(QString::number(saat)));
            }
            if (heil) { // what no check can find out must not move a wrong file either
                leben.oeffnen();
                allesUebernehmen(leben.bank());
                leben.schliessen();
            }
            const auto danach = leben.bank().bestand();
            leben.einsetzen();
            const QStringList offen = leben.widersprueche();
            QVERIFY2(offen.isEmpty(), qPrintable(QString::number(saat) + u": "_s + offen.join(u'\n')));
            QCOMPARE(leben.bank().bestand(), danach);
            QVERIFY(heil || danach == dateien);
        }
        QVERIFY(kaputte > 5);
        if (zahl)
            qInfo("%d damaged of %d", kaputte, gewuenscht);
    }

    void derAlteBleibtDaneben()
    {
        const QTemporaryDir ordner;
        Lebenslauf leben(ordner.path(), false, 3);
        const QByteArray vorher = inhaltVon(leben.katalog());
        const auto ergebnis = leben.einsetzen();
        QCOMPARE(inhaltVon(ergebnis.beiseite), vorher);
        QVERIFY(ergebnis.bilanz.eingetragen > 0);
        QVERIFY(ergebnis.satz().contains(u"nachgetragen"_s));
        QCOMPARE(ueberbleibsel(leben.katalog()), QStringList());
        // A second time the logs tell nothing new.
        leben.schliessen();
        Sicherungen::anlegen(leben.katalog());
        QCOMPARE(leben.einsetzen().bilanz.eingetragen, 0);
    }

    // A number that a log names must never come to mean another document.
    void nummernWerdenNichtWiederVergeben()
    {
        const QTemporaryDir ordner;
        Lebenslauf leben(ordner.path(), false, 5);
        const QString logs = leben.bank().profil().protokollOrdner;
        dateiSchreiben(logs + u"/Protokoll 2024-01-01 000000.jsonl"_s,
                       Protokollkopf::fuer(leben.bank().profil()).json() + '\n' +
                           Protokollzeile{.zeit = u"2024-01-01T00:00:00Z"_s,
                                          .aktion = u"einsortiert"_s,
                                          .dokument = 4711,
                                          .von = u"/weg/a.pdf"_s,
                                          .nach = u"/weg/b.pdf"_s,
                                          .altStatus = u"bereit"_s}
                               .json() +
                           '\n');
        leben.einsetzen();
        const Dateien::Fund fund{.pfad = u"/neu.pdf"_s, .name = u"neu.pdf"_s, .ordner = {}, .groesse = 1};
        QVERIFY(Dateien(*leben.bank().db()).aufnehmen(fund, 0));
        QCOMPARE(Dateien(*leben.bank().db()).anPfad(u"/neu.pdf"_s)->id, 4712);
    }

    // Lines of another profile's sessions are not ours, though they lie in the same folder.
    void fremdeProtokolle_data()
    {
        QTest::addColumn<QString>("profil");
        QTest::addColumn<QString>("quelle");
        QTest::addColumn<bool>("zaehlt");
        QTest::newRow("ours") << QString() << QString() << true;
        QTest::newRow("renamed since") << u"früher so genannt"_s << QString() << true;
        QTest::newRow("another profile") << u"Nachbar"_s << QString() << false;
        QTest::newRow("another source then") << QString() << u"/anderswo"_s << true;
        QTest::newRow("renamed, and another source then") << u"früher so genannt"_s << u"/anderswo"_s << false;
    }
    void fremdeProtokolle()
    {
        QFETCH(QString, profil);
        QFETCH(QString, quelle);
        QFETCH(bool, zaehlt);
        const QTemporaryDir ordner;
        Lebenslauf leben(ordner.path(), false, 7);
        const QString nach = leben.bank().ziel(u"von Hand.pdf"_s);
        dateiSchreiben(nach, "%PDF von Hand");
        Protokollkopf kopf = Protokollkopf::fuer(leben.bank().profil());
        if (!profil.isEmpty())
            kopf.profil = profil;
        if (!quelle.isEmpty())
            kopf.quelle = quelle;
        dateiSchreiben(leben.bank().profil().protokollOrdner + u"/Protokoll 2099-01-01 000000.jsonl"_s,
                       kopf.json() + '\n' +
                           Protokollzeile{.zeit = u"2099-01-01T00:00:00Z"_s,
                                          .aktion = u"einsortiert"_s,
                                          .dokument = 1,
                                          .von = leben.bank().quelle(u"gab es.pdf"_s),
                                          .nach = nach,
                                          .altStatus = u"bereit"_s}
                               .json() +
                           '\n');
        leben.einsetzen();
        const auto zeile = Dateien(*leben.bank().db()).anPfad(nach);
        QCOMPARE(zeile.has_value(), zaehlt);
        QVERIFY(!zeile || zeile->id != 1); // number 1 is another document
    }

    // What a crash had announced counts as what the logs tell.
    void unterbrochenes()
    {
        const QTemporaryDir ordner;
        Lebenslauf leben(ordner.path(), false, 9);
        const QString von = leben.bank().quelle(u"unterwegs.pdf"_s);
        const QString nach = leben.bank().ziel(u"unterwegs.pdf"_s);
        dateiSchreiben(von, "%PDF unterwegs");
        Absicht absicht = absichtFuer(999, von, nach);
        absicht.zeile.aktion = u"einsortiert"_s;
        absicht.status = Status::Erledigt;
        dateiSchreiben(Katalog::absichtsdatei(leben.katalog()), absicht.json() + '\n');
        QVERIFY(QFile::rename(von, nach));
        leben.einsetzen();
        const auto zeile = Dateien(*leben.bank().db()).anPfad(nach);
        QVERIFY(zeile);
        QVERIFY(leben.bank().lesen(zeile->id).status == Status::Erledigt);
        QCOMPARE(inhaltVon(Katalog::absichtsdatei(leben.katalog())), QByteArray());
    }

    void kaputteSicherungAendertNichts()
    {
        const QTemporaryDir ordner;
        Lebenslauf leben(ordner.path(), false, 11);
        dateiSchreiben(leben.sicherung(), inhaltVon(leben.sicherung()).first(3 * seite));
        const QByteArray vorher = inhaltVon(leben.katalog());
        const QString fehler = fehlerBei([&] { leben.einsetzen(); });
        QVERIFY(!fehler.isEmpty());
        QCOMPARE(inhaltVon(leben.katalog()), vorher);
        QCOMPARE(QDir(ordner.path()).entryList({u"katalog*entsteht*"_s, u"katalog*neu*"_s}).join(u' '), QString());
    }
};

QTEST_GUILESS_MAIN(TestWiederherstellung)
#include "test_wiederherstellung.moc"
