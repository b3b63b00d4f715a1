#include "rueckbau.h"

#include "bewegungsgang.h"
#include "datenbank.h"
#include "pfade.h"
#include "ruecknahme.h"
#include "text.h"

#include <QSet>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype hoechstensGruppe = 100;

/** A copy goes only while its original is still there, and a moved file only to a free place. */
bool endenStimmen(const Protokollzeile &z)
{
    if (z.von == z.nach)
        return true;
    return z.kopiert ? Dateibewegung::istGleich(z.von, z.nach) : !istVorhanden(z.von);
}
} // namespace

Rueckbau::Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
                   std::stop_token ende)
    : m_zeilen(Protokollbuch::lesen(datei)), m_db(std::move(db)), m_fortschritt(std::move(fortschritt)),
      m_ende(std::move(ende))
{
    const auto kopf = Protokollbuch::kopf(datei);
    m_herkunft = kopf ? kopf->quelle : QString();
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
    Absicht absicht;
    absicht.art = Absicht::Art::Ruecknahme;
    absicht.zeile = zeile;
    absicht.status = zeile.altStatus.isEmpty() ? u"bereit"_s : zeile.altStatus;
    const auto angaben = Dateibewegung::angabenVon(zeile.nach);
    if (!angaben && !istVorhanden(zeile.nach))
        return std::nullopt;
    if (!istDran(zeile, absicht.protokollId) || !endenStimmen(zeile))
        return std::nullopt;
    if (angaben)
        absicht.uebernehmen(*angaben);
    return absicht;
}

/** False when the catalogue knows the movement as turned back already, or the document has moved on since. */
bool Rueckbau::istDran(const Protokollzeile &zeile, qint64 &protokollId) const
{
    if (!m_db || zeile.dokument <= 0)
        return true;
    const QList<Zeile> zeilen = m_db->abfragen(
        u"SELECT p.id, p.rueckgaengig, p.zeit, d.pfad FROM protokoll p LEFT JOIN dokumente d ON d.id=p.dokument_id\n"
        "WHERE p.dokument_id=? AND p.von_pfad=? AND p.nach_pfad=?"_s,
        {zeile.dokument, zeile.von, zeile.nach});
    if (zeilen.isEmpty())
        return true; // a log of another profile or computer: only the file moves
    // A later session may have moved it there again: the row of the line's own time goes before.
    const auto rang = [&zeile](const Zeile &z) {
        return std::tuple(z.text(u"zeit") == zeile.zeit, z.ganz(u"rueckgaengig") == 0, z.ganz(u"id"));
    };
    const Zeile &eigene = *std::max_element(zeilen.begin(), zeilen.end(),
                                            [&rang](const Zeile &a, const Zeile &b) { return rang(a) < rang(b); });
    if (eigene.ganz(u"rueckgaengig") == 1)
        return false;
    protokollId = eigene.ganz(u"id");
    return eigene.text(u"pfad") == (zeile.kopiert ? zeile.von : zeile.nach);
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
