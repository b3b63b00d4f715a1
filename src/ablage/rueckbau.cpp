#include "rueckbau.h"

#include "bewegungsgang.h"
#include "bewegungspruefung.h"
#include "pfade.h"
#include "ruecknahme.h"
#include "sprache.h"
#include "text.h"
#include "vorrang.h"

#include <QDir>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
constexpr qsizetype hoechstensGruppe = 100;

bool istPdf(const QString &pfad) { return pfad.endsWith(".pdf"_L1, Qt::CaseInsensitive); }
} // namespace

Rueckbau::Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
                   std::stop_token ende, const QStringList &grenzen, Profil profil)
    : m_profil(std::move(profil)), m_db(std::move(db)), m_fortschritt(std::move(fortschritt)), m_ende(std::move(ende))
{
    const auto kopf = Protokollbuch::kopf(datei);
    m_herkunft = kopf ? kopf->quelle : QString();
    m_grenzen = kopf ? QStringList{kopf->quelle, kopf->ziel} : grenzen;
    for (Protokollzeile &zeile : Protokollbuch::lesen(datei)) {
        zeile.von = nfc(zeile.von);
        zeile.nach = nfc(zeile.nach);
        m_eintraege << Eintrag{.stelle = m_eintraege.size(), .zeile = std::move(zeile)};
    }
    // Newest first, so that a document moved twice ends at its first place.
    std::reverse(m_eintraege.begin(), m_eintraege.end());
}

Rueckbau::~Rueckbau() = default;

Bilanz Rueckbau::ausfuehren()
{
    if (m_eintraege.isEmpty())
        return {};
    std::shared_ptr<Vorrang> vorrang; // a run would take in what comes back, and read it while it moves
    try {
        if (m_db)
            vorrang = Vorrang::nehmen(*m_db, Vorrang::Art::Rueckbau);
    } catch (const Fehler &f) {
        m_bilanz.verweigert = f.text();
        return m_bilanz;
    }
    try {
        if (m_db)
            m_gang = std::make_unique<Bewegungsgang>(m_db);
        inGruppen();
    } catch (const Fehler &f) {
        m_bilanz.fehler << Rueckbaubefund{.stelle = -1, .grund = f.text()};
    }
    return m_bilanz;
}

void Rueckbau::inGruppen()
{
    QList<Eintrag> offene;
    QSet<QString> orte;
    for (const Eintrag &eintrag : std::as_const(m_eintraege)) {
        const Protokollzeile &zeile = eintrag.zeile;
        // Whether a movement can be taken back shows only when those after it at the same places are back.
        const bool beruehrt = orte.contains(zeile.von) || orte.contains(zeile.nach);
        if (offene.size() >= hoechstensGruppe || beruehrt) {
            gruppe(std::exchange(offene, {}));
            orte.clear();
        }
        offene << eintrag;
        orte << zeile.von << zeile.nach;
    }
    gruppe(offene);
}

void Rueckbau::gruppe(const QList<Eintrag> &eintraege)
{
    const bool angehalten = m_ende.stop_requested();
    QList<Absicht> absichten;
    QList<qsizetype> stellen;
    for (const Eintrag &eintrag : eintraege) {
        Absicht absicht;
        const QString grund = angehalten ? Sprache::text(u"Angehalten, bevor diese Bewegung an der Reihe war"_s)
                                         : pruefen(eintrag.zeile, absicht);
        if (!grund.isEmpty()) {
            m_bilanz.uebersprungen << Rueckbaubefund{.stelle = eintrag.stelle, .grund = grund};
            weiter();
            continue;
        }
        absichten << std::move(absicht);
        stellen << eintrag.stelle;
    }
    if (!absichten.isEmpty())
        verbuchen(stellen, zuruecknehmen(absichten));
}

/** What became of the movements at @p stellen; an empty text stands for success. */
void Rueckbau::verbuchen(const QList<qsizetype> &stellen, const QStringList &fehler)
{
    for (qsizetype i = 0; i < fehler.size(); ++i) {
        if (fehler.at(i).isEmpty())
            ++m_bilanz.zurueckgedreht;
        else
            m_bilanz.fehler << Rueckbaubefund{.stelle = stellen.at(i), .grund = fehler.at(i)};
    }
}

void Rueckbau::weiter() { m_fortschritt(++m_fertig, m_eintraege.size()); }

/** Makes the intent to take @p zeile back. Returns why it is passed over, or nothing. */
QString Rueckbau::pruefen(const Protokollzeile &zeile, Absicht &absicht) const
{
    const auto stand =
        m_db && zeile.dokument > 0 ? Bewegungspruefung::verzeichnet(*m_db, zeile) : Bewegungspruefung::Verzeichnet();
    if (stand.zurueck)
        return Sprache::text(u"Diese Bewegung ist schon zurückgedreht"_s);
    if (stand.protokollId == 0 && !istErlaubt(zeile))
        return Sprache::text(u"Nur PDF-Dateien zwischen Herkunfts- und Zielordner werden zurückbewegt"_s);
    if (QString grund = Bewegungspruefung::hindernis(zeile, stand); !grund.isEmpty())
        return grund;
    absicht.art = Absicht::Art::Ruecknahme;
    absicht.zeile = zeile;
    if (absicht.zeile.vonName.isEmpty())
        absicht.zeile.vonName = stand.vonName;
    absicht.protokollId = stand.protokollId;
    absicht.profil = m_profil;
    absicht.status = statusZurueck(zeile);
    if (const auto angaben = Dateibewegung::angabenVon(zeile.nach))
        absicht.uebernehmen(*angaben);
    return {};
}

/**
 * What the catalogue does not know comes from elsewhere, and could name any file: only documents are moved, and only
 * between the two folders that the log's header names, or without one those of the active profile.
 */
bool Rueckbau::istErlaubt(const Protokollzeile &zeile) const
{
    const auto darin = [this](const QString &pfad) {
        return std::any_of(m_grenzen.cbegin(), m_grenzen.cend(),
                           [&](const QString &ordner) { return liegtUnter(QDir::cleanPath(pfad), ordner); });
    };
    return istPdf(zeile.von) && istPdf(zeile.nach) && darin(zeile.von) && darin(zeile.nach);
}

QStringList Rueckbau::zuruecknehmen(const QList<Absicht> &absichten)
{
    if (m_gang)
        return m_gang->zuruecknehmen(absichten, m_herkunft, [this] { weiter(); });
    QStringList fehler;
    for (const Absicht &absicht : absichten) {
        try {
            bewegungZuruecknehmen(
                absicht.zeile, m_herkunft, [](const Dateibewegung::Schritt &) {}, nullptr);
            fehler << QString();
        } catch (const Fehler &f) {
            fehler << f.text();
        }
        weiter();
    }
    return fehler;
}
} // namespace quillmar::ablage
