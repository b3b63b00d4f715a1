#include "bestand.h"

#include "abgleich.h"
#include "ausnahmefilter.h"
#include "bewegungen.h"
#include "bewegungsgang.h"
#include "dubletten.h"
#include "herkunft.h"
#include "lauf.h"
#include "originale.h"
#include "pfade.h"
#include "platte.h"
#include "pruefsummen.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "zielwurzel.h"

#include <QDir>
#include <QHash>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
constexpr qsizetype meisteAusgenommene = 500; // that are listed one by one

bool istPdf(const QString &name) { return name.endsWith(".pdf"_L1, Qt::CaseInsensitive); }

/** The folders in which something of the program's own lies, by what they are: a link or a bind mount may lead there.
 */
class Zweitwege
{
public:
    explicit Zweitwege(const Bestand::Eigenes &eigenes) : m_eigenes(eigenes)
    {
        QSet<QString> ordner;
        for (const QSet<QString> *pfade : {&eigenes.kopien, &eigenes.abgelegt}) {
            for (const QString &pfad : *pfade)
                ordner.insert(ordnerVon(pfad));
        }
        for (const QString &einer : std::as_const(ordner)) {
            if (const auto kennung = kennungVon(einer))
                m_ordner.insert(*kennung, einer);
        }
    }

    /** The name under which the catalogue knows the folder @p platte; empty if it knows nothing in it. */
    [[nodiscard]] QString bekannterName(const QByteArray &platte) const
    {
        struct stat s = {};
        if (m_ordner.isEmpty() || ::stat(platte.constData(), &s) != 0)
            return {};
        return m_ordner.value({.geraet = quint64(s.st_dev), .nummer = quint64(s.st_ino)});
    }

    /** The path by which the catalogue knows the file @p name with @p angaben in the folder known as @p ordner. */
    [[nodiscard]] std::optional<QString> bekannterPfad(const QString &ordner, const QString &name,
                                                       const struct stat &angaben) const
    {
        const QString pfad = ordner == u"/"_s ? ordner + name : ordner + u'/' + name;
        const bool bekannt =
            !ordner.isEmpty() && (m_eigenes.kopien.contains(pfad) || m_eigenes.abgelegt.contains(pfad)) &&
            kennungVon(pfad) == Kennung{.geraet = quint64(angaben.st_dev), .nummer = quint64(angaben.st_ino)};
        return bekannt ? std::optional(pfad) : std::nullopt;
    }

private:
    const Bestand::Eigenes &m_eigenes;
    QHash<Kennung, QString> m_ordner;
};

QByteArray darin(const QByteArray &ordner, const QByteArray &name)
{
    return (ordner.endsWith('/') ? ordner : ordner + '/') + name;
}

/** Walks through the source folder; see Bestand::suchen(). */
class Sucher
{
public:
    Sucher(const Profil &profil, const Bestand::Eigenes &eigenes, const std::function<bool()> &halt)
        : m_wurzel(QDir::cleanPath(nfc(profil.quelle))), m_mitUnterordnern(profil.mitUnterordnern),
          m_ausnahmen(profil.ausnahmen), m_kopien(eigenes.kopien), m_zweitwege(eigenes), m_halt(halt)
    {
        if (profil.zielWurzel.isEmpty() || profil.dublettenOrdner.isEmpty())
            return;
        m_dubletten = QDir::cleanPath(nfc(profil.zielWurzel + u'/' + profil.dublettenOrdner)) + u'/';
        m_dublettenkennung = kennungVon(m_dubletten.chopped(1));
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
        if (m_halt() || isDublettenordner(voll, platte))
            return;
        m_ergebnis.ordner << QFile::decodeName(platte);
        m_bekanntAls = m_zweitwege.bekannterName(platte);
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
        gefunden(griff, e, ordner, relativ, name);
    }

    /** Takes a document in, by the path that leads to it. */
    void gefunden(int griff, const Ordnereintrag &e, const QByteArray &ordner, const QString &relativ,
                  const QString &name)
    {
        const QString voll = vollerPfad(relativ);
        const QString pfad = voll == u"/"_s ? voll + name : voll + u'/' + name;
        struct stat s = {};
        if (!istErreichbar(pfad, darin(ordner, e.name)))
            ++m_ergebnis.doppelteNamen;
        else if (::fstatat(griff, e.name.constData(), &s, AT_SYMLINK_NOFOLLOW) == 0)
            fund(m_zweitwege.bekannterPfad(m_bekanntAls, name, s).value_or(pfad), relativ, s);
    }

    /** What the catalogue knows by another way is found there: it may have been replaced since. */
    void fund(const QString &pfad, const QString &relativ, const struct stat &s)
    {
        if (!m_kopien.contains(pfad))
            m_ergebnis.funde << Bestand::Fund{
                .pfad = pfad, .ordner = relativ, .groesse = qint64(s.st_size), .geaendert = Platte::zeitVon(s)};
    }

    void ausnehmen(const QString &pfad, const QString &regel)
    {
        ++m_ergebnis.ausgenommen;
        if (m_ergebnis.ausgenommene.size() < meisteAusgenommene)
            m_ergebnis.ausgenommene << Bestand::Ausgenommene{.pfad = pfad, .regel = regel};
    }

    [[nodiscard]] QString vollerPfad(const QString &relativ) const
    {
        return relativ.isEmpty() ? m_wurzel : (m_wurzel == u"/"_s ? QString() : m_wurzel) + u'/' + relativ;
    }

    /** Of two files or folders whose names have the same NFC form only one is what the path leads to later. */
    [[nodiscard]] static bool istErreichbar(const QString &pfad, const QByteArray &platte)
    {
        return platte == pfad.toUtf8() || aufDerPlatte(pfad) == platte;
    }

    [[nodiscard]] bool isDublettenordner(const QString &voll, const QByteArray &platte) const
    {
        const QString mitStrich = voll + u'/';
        if (mitStrich.contains("/_Dubletten/"_L1) || (!m_dubletten.isEmpty() && mitStrich.startsWith(m_dubletten)))
            return true;
        struct stat s = {};
        return m_dublettenkennung && ::stat(platte.constData(), &s) == 0 &&
               *m_dublettenkennung == Kennung{.geraet = quint64(s.st_dev), .nummer = quint64(s.st_ino)};
    }

    QString m_wurzel;
    bool m_mitUnterordnern;
    Ausnahmefilter m_ausnahmen;
    const QSet<QString> &m_kopien;
    Zweitwege m_zweitwege;
    const std::function<bool()> &m_halt;
    QString m_dubletten;
    std::optional<Kennung> m_dublettenkennung;
    QString m_bekanntAls; ///< the folder that is being read, as the catalogue knows it; empty if it does not
    Bestand::Ergebnis m_ergebnis;
};

/** A document that has given up its path to another file has none at all, unless it was copied. */
bool hatOrtAusserhalb(const Dateien &dateien, qint64 id, const QString &quelle)
{
    const QStringList orte = dateien.orte(id);
    return std::any_of(orte.begin(), orte.end(), [&](const QString &ort) { return !liegtUnter(ort, quelle); });
}

/**
 * Marked duplicates whose file is there while their original is not any more: documents of their own again. While the
 * target folder cannot be reached, the originals in it are taken to be there.
 */
void verwaisteDublettenFreigeben(Lauf &lauf)
{
    const Profil &profil = lauf.profil();
    const bool zielDa = istOrdner(QDir::cleanPath(profil.zielWurzel)) && !Zielwurzel::istAndere(lauf.db(), profil);
    Dateien dateien(lauf.db());
    for (const Dateien::Dublette &d : dateien.dubletten()) {
        if (lauf.sollHalten())
            return;
        const bool ungewiss = !zielDa && hatOrtAusserhalb(dateien, d.original, profil.quelle);
        const bool hatOriginal =
            d.bekannt && !d.anders && (ungewiss || !Originale::orte(lauf.db(), d.original).isEmpty());
        if (!hatOriginal && istVorhanden(d.pfad))
            dateien.dubletteFreigeben(d.id);
    }
}

void ausgelassenesMelden(Lauf &lauf, const Bestand::Ergebnis &e)
{
    const auto melden = [&](qsizetype anzahl, const QString &muster) {
        if (anzahl > 0)
            lauf.hinweis(gefuellt(muster, {QString::number(anzahl)}));
    };
    melden(e.unlesbareNamen,
           Sprache::text(e.unlesbareNamen, u"%@ Eintrag ausgelassen: Name nicht lesbar, bitte umbenennen"_s,
                         u"%@ Einträge ausgelassen: Name nicht lesbar, bitte umbenennen"_s));
    melden(e.verweise, Sprache::text(e.verweise, u"%@ Verweis auf eine PDF-Datei ausgelassen"_s,
                                     u"%@ Verweise auf PDF-Dateien ausgelassen"_s));
    melden(e.doppelteNamen,
           Sprache::text(e.doppelteNamen, u"%@ Datei ausgelassen: gleicher Name in anderer Schreibweise der Umlaute"_s,
                         u"%@ Dateien ausgelassen: gleicher Name in anderer Schreibweise der Umlaute"_s));
    melden(e.unlesbareOrdner, Sprache::text(e.unlesbareOrdner, u"%@ Ordner ließ sich nicht lesen"_s,
                                            u"%@ Ordner ließen sich nicht lesen"_s));
}

void pruefsummenSchreiben(Datenbank &db, const QList<Pruefsummen::Ergebnis> &neue)
{
    Stapel stapel(db);
    for (const Pruefsummen::Ergebnis &e : neue) {
        // Without a digest the next run tries again.
        if (e.sha256.isNull())
            continue;
        stapel.naechstes();
        if (Dateien(db).setzePruefsumme(e.id, e.sha256))
            Dateien(db).standNotieren(e.id, e.groesse, e.geaendert, true);
    }
    stapel.abschliessen();
}

void pruefsummenBilden(Lauf &lauf)
{
    QList<Pruefsummen::Datei> dateien;
    for (const Dateien::Ohnesumme &d : Dateien(lauf.db()).ohnePruefsumme())
        dateien << Pruefsummen::Datei{.id = d.id, .pfad = d.pfad};
    qsizetype fertig = 0;
    Pruefsummen::berechnen(
        dateien, [&lauf] { return lauf.sollHalten(); },
        [&](const QList<Pruefsummen::Ergebnis> &neue) {
            pruefsummenSchreiben(lauf.db(), neue);
            fertig += neue.size();
            lauf.fortschritt(gefuellt(Sprache::text(u"%@ von %@ verglichen"_s),
                                      {QString::number(fertig), QString::number(dateien.size())}),
                             fertig, dateien.size());
        });
}

/** The source folder is not there, or only the empty one that its drive is mounted on. */
[[noreturn]] void nichtErreichbar(const Lauf &lauf)
{
    throw Fehler(gefuellt(Sprache::text(u"Der Herkunftsordner ist nicht erreichbar: %@"_s), {lauf.profil().quelle}));
}

void herkunftVerlangen(const Lauf &lauf)
{
    if (lauf.profil().quelle.isEmpty())
        throw Fehler(Sprache::text(u"Es ist noch kein Herkunftsordner gewählt"_s));
    if (!istOrdner(QDir::cleanPath(lauf.profil().quelle)))
        nichtErreichbar(lauf);
}

void anzahlMelden(Lauf &lauf, qsizetype anzahl)
{
    lauf.fortschritt(gefuellt(Sprache::text(anzahl, u"%@ PDF-Datei gefunden"_s, u"%@ PDF-Dateien gefunden"_s),
                              {QString::number(anzahl)}),
                     0, 1);
}
} // namespace

Bestand::Ergebnis Bestand::suchen(const Profil &profil, const Eigenes &eigenes, const std::function<bool()> &halt)
{
    return Sucher(profil, eigenes, halt).suchen();
}

Bestand::Eigenes Bestand::eigenesVon(Datenbank &db, const QString &quelle)
{
    Eigenes eigenes;
    eigenes.kopien = Bewegungen(db).kopien();
    Dateien(db).jederPfad([&](const QString &pfad) {
        if (!liegtUnter(pfad, quelle))
            eigenes.abgelegt.insert(pfad);
    });
    return eigenes;
}

void Bestand::verzeichnen(Lauf &lauf)
{
    lauf.stufe(QUILLMAR_TEXT(u"Bestand aufnehmen"_s));
    herkunftVerlangen(lauf);
    const auto halt = [&lauf] { return lauf.sollHalten(); };
    Q_UNUSED(Bewegungsgang::klaeren(lauf.katalog())); // what a crash left open would look like new files
    const qint64 seit = Bewegungen(lauf.db()).neueste();
    const Eigenes eigenes = eigenesVon(lauf.db(), lauf.profil().quelle);
    const Ergebnis ergebnis = suchen(lauf.profil(), eigenes, halt);
    if (lauf.sollHalten())
        return;
    if (ergebnis.funde.isEmpty() && Herkunft::istLeererEinhaengepunkt(lauf.db(), lauf.profil()))
        nichtErreichbar(lauf);
    if (!ergebnis.funde.isEmpty())
        Herkunft::merken(lauf.db(), lauf.profil());
    anzahlMelden(lauf, ergebnis.funde.size());
    Abgleich::eintragen(lauf, ergebnis.funde, seit);
    verwaisteDublettenFreigeben(lauf);
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
    const qsizetype gleiche =
        Dubletten::dublettenMarkieren(lauf.db(), Dubletten::gruppen(lauf.db(), Dateien::Gleichheit::Bytes), 1.0);
    lauf.fortschritt(gefuellt(Sprache::text(u"%@ byte-identische Dubletten gefunden"_s), {QString::number(gleiche)}), 1,
                     1);
}
} // namespace quillmar::analyse
