#include "bestand.h"

#include "ausnahmefilter.h"
#include "datenbank.h"
#include "dubletten.h"
#include "lauf.h"
#include "pfade.h"
#include "pruefsummen.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"

#include <QDir>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype meisteAusgenommene = 500; // that are listed one by one

bool istPdf(const QString &name) { return name.endsWith(".pdf"_L1, Qt::CaseInsensitive); }

qint64 groesseVon(int ordner, const QByteArray &name)
{
    struct stat s = {};
    return ::fstatat(ordner, name.constData(), &s, AT_SYMLINK_NOFOLLOW) == 0 ? qint64(s.st_size) : 0;
}

QByteArray darin(const QByteArray &ordner, const QByteArray &name)
{
    return (ordner.endsWith('/') ? ordner : ordner + '/') + name;
}

/** Walks through the source folder; see Bestand::suchen(). */
class Sucher
{
public:
    Sucher(const Profil &profil, const QSet<QString> &eigene, const std::function<bool()> &halt)
        : m_wurzel(QDir::cleanPath(nfc(profil.quelle))), m_mitUnterordnern(profil.mitUnterordnern),
          m_ausnahmen(profil.ausnahmen), m_eigene(eigene), m_halt(halt)
    {
        if (!profil.zielWurzel.isEmpty() && !profil.dublettenOrdner.isEmpty())
            m_dubletten = QDir::cleanPath(nfc(profil.zielWurzel + u'/' + profil.dublettenOrdner)) + u'/';
    }

    [[nodiscard]] Bestand::Ergebnis suchen()
    {
        ordner(plattenPfad(m_wurzel), {});
        auto &funde = m_ergebnis.funde;
        const auto nachPfad = [](const auto &a, const auto &b) { return a.pfad < b.pfad; };
        std::sort(funde.begin(), funde.end(), nachPfad);
        std::sort(m_ergebnis.ausgenommene.begin(), m_ergebnis.ausgenommene.end(), nachPfad);
        return std::move(m_ergebnis);
    }

private:
    void ordner(const QByteArray &platte, const QString &relativ)
    {
        const QString voll = vollerPfad(relativ);
        if (m_halt() || isDublettenordner(voll))
            return;
        QList<QByteArray> tiefer;
        const bool gelesen = ordnerLesen(platte, [&](int griff, const Ordnereintrag &e) {
            if (e.name.startsWith('.'))
                return;
            if (e.art == Eintragsart::Ordner && m_mitUnterordnern)
                tiefer << e.name;
            else if (e.art == Eintragsart::Datei || e.art == Eintragsart::Verweis)
                datei(griff, e, platte, relativ);
        });
        m_ergebnis.unlesbareOrdner += gelesen ? 0 : 1;
        for (const QByteArray &name : tiefer)
            unterordnerBetreten(platte, name, relativ);
    }

    void unterordnerBetreten(const QByteArray &platte, const QByteArray &name, const QString &relativ)
    {
        const QString text = nameVonPlatte(name);
        if (text.isNull())
            ++m_ergebnis.unlesbareNamen;
        else
            ordner(darin(platte, name), relativ.isEmpty() ? text : relativ + u'/' + text);
    }

    void datei(int griff, const Ordnereintrag &e, const QByteArray &ordner, const QString &relativ)
    {
        const QString name = nameVonPlatte(e.name);
        if (name.isNull()) {
            m_ergebnis.unlesbareNamen += e.name.toLower().endsWith(".pdf") ? 1 : 0;
            return;
        }
        if (!istPdf(name))
            return;
        if (const auto regel = m_ausnahmen.erste(relativ, name))
            return ausnehmen(relativ.isEmpty() ? name : relativ + u'/' + name, regel->roh);
        if (e.art == Eintragsart::Verweis) {
            ++m_ergebnis.verweise;
            return;
        }
        const QString voll = vollerPfad(relativ);
        const QString pfad = voll == u"/"_s ? voll + name : voll + u'/' + name;
        if (!istErreichbar(pfad, darin(ordner, e.name)))
            ++m_ergebnis.doppelteNamen;
        else if (!m_eigene.contains(pfad))
            m_ergebnis.funde << Bestand::Fund{.pfad = pfad, .ordner = relativ, .groesse = groesseVon(griff, e.name)};
    }

    void ausnehmen(const QString &pfad, const QString &regel)
    {
        ++m_ergebnis.ausgenommen;
        if (m_ergebnis.ausgenommene.size() < meisteAusgenommene)
            m_ergebnis.ausgenommene << Bestand::Ausgenommene{.pfad = pfad, .regel = regel};
    }

    [[nodiscard]] QString vollerPfad(const QString &relativ) const
    {
        return relativ.isEmpty() ? m_wurzel : m_wurzel + u'/' + relativ;
    }

    /** Of two files or folders whose names have the same NFC form only one is what the path leads to later. */
    [[nodiscard]] static bool istErreichbar(const QString &pfad, const QByteArray &platte)
    {
        return platte == pfad.toUtf8() || aufDerPlatte(pfad) == platte;
    }

    [[nodiscard]] bool isDublettenordner(const QString &voll) const
    {
        const QString mitStrich = voll + u'/';
        return mitStrich.contains("/_Dubletten/"_L1) || (!m_dubletten.isEmpty() && mitStrich.startsWith(m_dubletten));
    }

    QString m_wurzel;
    bool m_mitUnterordnern;
    Ausnahmefilter m_ausnahmen;
    const QSet<QString> &m_eigene;
    const std::function<bool()> &m_halt;
    QString m_dubletten;
    Bestand::Ergebnis m_ergebnis;
};

/** Copies that the program has made and not taken back: they may lie in the source folder if the target does. */
QSet<QString> eigeneKopien(Datenbank &db)
{
    QSet<QString> pfade;
    db.durchlaufen(u"SELECT nach_pfad FROM protokoll WHERE kopiert=1 AND rueckgaengig=0"_s, {},
                   [&](const Zeile &zeile) { pfade.insert(zeile.text(u"nach_pfad")); });
    return pfade;
}

/** Documents that had vanished and are back go on where they were. */
void zurueckholen(Datenbank &db)
{
    Stapel stapel(db);
    for (const Zeile &zeile : db.abfragen(u"SELECT id, pfad FROM dokumente WHERE status='fehlt' AND ausgenommen=0"_s)) {
        if (istVorhanden(zeile.text(u"pfad")))
            stapel.schreiben(u"UPDATE dokumente SET status=CASE WHEN vorschlag IS NULL THEN 'neu' ELSE 'bereit' END\n"
                             "WHERE id=? AND status='fehlt'"_s,
                             {zeile.ganz(u"id")});
    }
    stapel.abschliessen();
}

void eintragen(Lauf &lauf, const QList<Bestand::Fund> &funde)
{
    Stapel stapel(lauf.db());
    for (const Bestand::Fund &fund : funde) {
        stapel.schreiben(u"INSERT OR IGNORE INTO dokumente (pfad, dateiname, alt_ordner, groesse)\nVALUES (?,?,?,?)"_s,
                         {fund.pfad, nameVon(fund.pfad), fund.ordner, fund.groesse});
    }
    stapel.abschliessen();
}

void ausgelassenesMelden(Lauf &lauf, const Bestand::Ergebnis &e)
{
    const auto melden = [&](qsizetype anzahl, const QString &muster) {
        if (anzahl > 0)
            lauf.hinweis(gefuellt(muster, {QString::number(anzahl)}));
    };
    melden(e.unlesbareNamen, Sprache::text(u"%@ Einträge ausgelassen: Name nicht lesbar, bitte umbenennen"_s));
    melden(e.verweise, Sprache::text(u"%@ Verweise auf PDF-Dateien ausgelassen"_s));
    melden(e.doppelteNamen,
           Sprache::text(u"%@ Dateien ausgelassen: gleicher Name in anderer Schreibweise der Umlaute"_s));
    melden(e.unlesbareOrdner, Sprache::text(u"%@ Ordner ließen sich nicht lesen"_s));
}

void pruefsummenBilden(Lauf &lauf)
{
    QList<Pruefsummen::Datei> dateien;
    lauf.db().durchlaufen(
        u"SELECT id, pfad, groesse FROM dokumente WHERE sha256 IS NULL AND ausgenommen=0"_s, {},
        [&](const Zeile &z) { dateien << Pruefsummen::Datei{.id = z.ganz(u"id"), .pfad = z.text(u"pfad")}; });
    qsizetype fertig = 0;
    Pruefsummen::berechnen(
        dateien, [&lauf] { return lauf.sollHalten(); },
        [&](const QList<Pruefsummen::Ergebnis> &neue) {
            Stapel stapel(lauf.db());
            for (const Pruefsummen::Ergebnis &e : neue) {
                // Without a digest the next run tries again.
                if (!e.sha256.isNull())
                    stapel.schreiben(u"UPDATE dokumente SET sha256=? WHERE id=?"_s, {e.sha256, e.id});
            }
            stapel.abschliessen();
            fertig += neue.size();
            lauf.fortschritt(gefuellt(Sprache::text(u"%@ von %@ verglichen"_s),
                                      {QString::number(fertig), QString::number(dateien.size())}),
                             fertig, dateien.size());
        });
}

qsizetype gleicheMarkieren(Datenbank &db)
{
    Dubletten::Gruppen gruppen;
    db.durchlaufen(
        u"SELECT id, pfad, sha256 FROM dokumente WHERE sha256 IS NOT NULL AND status='neu' AND ausgenommen=0\n"
        "ORDER BY id"_s,
        {}, [&](const Zeile &z) {
            gruppen[z.text(u"sha256")] << Dubletten::Mitglied{.id = z.ganz(u"id"), .pfad = z.text(u"pfad")};
        });
    return Dubletten::dublettenMarkieren(db, gruppen, 1.0);
}
} // namespace

Bestand::Ergebnis Bestand::suchen(const Profil &profil, const QSet<QString> &eigene, const std::function<bool()> &halt)
{
    return Sucher(profil, eigene, halt).suchen();
}

void Bestand::verzeichnen(Lauf &lauf)
{
    lauf.stufe(QUILLMAR_TEXT(u"Bestand aufnehmen"_s));
    if (lauf.profil().quelle.isEmpty() || !istOrdner(QDir::cleanPath(lauf.profil().quelle)))
        throw Fehler(
            gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {lauf.profil().quelle}));
    const auto halt = [&lauf] { return lauf.sollHalten(); };
    const Ergebnis ergebnis = suchen(lauf.profil(), eigeneKopien(lauf.db()), halt);
    if (lauf.sollHalten())
        return;
    lauf.fortschritt(gefuellt(Sprache::text(u"%@ PDF-Dateien gefunden"_s), {QString::number(ergebnis.funde.size())}), 0,
                     1);
    eintragen(lauf, ergebnis.funde);
    zurueckholen(lauf.db());
    ausgelassenesMelden(lauf, ergebnis);
}

void Bestand::aufnehmen(Lauf &lauf)
{
    verzeichnen(lauf);
    if (lauf.sollHalten())
        return;
    lauf.stufe(QUILLMAR_TEXT(u"Gleiche Dateien suchen"_s));
    pruefsummenBilden(lauf);
    if (lauf.sollHalten())
        return;
    lauf.fortschritt(gefuellt(Sprache::text(u"%@ byte-identische Dubletten gefunden"_s),
                              {QString::number(gleicheMarkieren(lauf.db()))}),
                     1, 1);
}
