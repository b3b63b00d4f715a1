#include "rueckbau.h"

#include "bewegungsgang.h"
#include "bewegungspruefung.h"
#include "pfade.h"
#include "ruecknahme.h"
#include "text.h"

#include <QDir>
#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype hoechstensGruppe = 100;

bool istPdf(const QString &pfad) { return pfad.endsWith(".pdf"_L1, Qt::CaseInsensitive); }
} // namespace

Rueckbau::Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
                   std::stop_token ende, const QStringList &grenzen)
    : m_zeilen(Protokollbuch::lesen(datei)), m_db(std::move(db)), m_fortschritt(std::move(fortschritt)),
      m_ende(std::move(ende))
{
    const auto kopf = Protokollbuch::kopf(datei);
    m_herkunft = kopf ? kopf->quelle : QString();
    m_grenzen = kopf ? QStringList{kopf->quelle, kopf->ziel} : grenzen;
    // Newest first, so that a document moved twice ends at its first place.
    std::reverse(m_zeilen.begin(), m_zeilen.end());
    for (Protokollzeile &zeile : m_zeilen) {
        zeile.von = nfc(zeile.von);
        zeile.nach = nfc(zeile.nach);
    }
}

Rueckbau::~Rueckbau() = default;

Bilanz Rueckbau::ausfuehren()
{
    if (m_zeilen.isEmpty())
        return {};
    try {
        if (m_db)
            m_gang = std::make_unique<Bewegungsgang>(m_db);
        QList<Protokollzeile> offene;
        QSet<QString> orte;
        for (const Protokollzeile &zeile : std::as_const(m_zeilen)) {
            // Whether a movement can be taken back shows only when those after it at the same places are back.
            const bool beruehrt = orte.contains(zeile.von) || orte.contains(zeile.nach);
            if (offene.size() >= hoechstensGruppe || beruehrt) {
                gruppe(std::exchange(offene, {}));
                orte.clear();
            }
            offene << zeile;
            orte << zeile.von << zeile.nach;
        }
        gruppe(offene);
    } catch (const Fehler &f) {
        m_bilanz.fehler << inSprache(f);
    }
    return m_bilanz;
}

void Rueckbau::gruppe(const QList<Protokollzeile> &zeilen)
{
    if (m_ende.stop_requested()) {
        m_bilanz.uebersprungen += zeilen.size();
        return;
    }
    QList<Absicht> absichten;
    for (const Protokollzeile &zeile : zeilen) {
        if (auto absicht = pruefen(zeile)) {
            absichten << std::move(*absicht);
        } else {
            ++m_bilanz.uebersprungen;
            weiter();
        }
    }
    const QStringList fehler = absichten.isEmpty() ? QStringList() : zuruecknehmen(absichten);
    for (qsizetype i = 0; i < fehler.size(); ++i) {
        if (fehler.at(i).isEmpty())
            ++m_bilanz.zurueckgedreht;
        else
            m_bilanz.fehler << nameVon(absichten.at(i).zeile.nach) + u": "_s + fehler.at(i);
    }
}

void Rueckbau::weiter() { m_fortschritt(++m_fertig, m_zeilen.size()); }

/** The intent to take @p zeile back; none when it is passed over. */
std::optional<Absicht> Rueckbau::pruefen(const Protokollzeile &zeile) const
{
    const auto stand =
        m_db && zeile.dokument > 0 ? Bewegungspruefung::verzeichnet(*m_db, zeile) : Bewegungspruefung::Verzeichnet();
    if (stand.zurueck || (stand.protokollId == 0 && !istErlaubt(zeile)) ||
        !Bewegungspruefung::hindernis(zeile, stand).isEmpty())
        return std::nullopt;
    Absicht absicht;
    absicht.art = Absicht::Art::Ruecknahme;
    absicht.zeile = zeile;
    if (absicht.zeile.vonName.isEmpty())
        absicht.zeile.vonName = stand.vonName;
    absicht.protokollId = stand.protokollId;
    absicht.status = zeile.altStatus.isEmpty() ? u"bereit"_s : zeile.altStatus;
    if (const auto angaben = Dateibewegung::angabenVon(zeile.nach))
        absicht.uebernehmen(*angaben);
    return absicht;
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
            zuruecklegen(
                absicht.zeile, m_herkunft, [](const Dateibewegung::Schritt &) {}, nullptr);
            fehler << QString();
        } catch (const Fehler &f) {
            fehler << inSprache(f);
        }
        weiter();
    }
    return fehler;
}
