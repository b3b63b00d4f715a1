#include "rueckbau.h"

#include "bewegungsgang.h"
#include "datenbank.h"
#include "pfade.h"
#include "ruecknahme.h"
#include "sprache.h"
#include "text.h"

#include <QSet>
#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace
{
constexpr qsizetype hoechstensGruppe = 100;

/** A copy goes only while its original is still there, and a moved file only to a free place. Why not, or nothing. */
QString endenhindernis(const Protokollzeile &z)
{
    if (z.von == z.nach)
        return {};
    if (z.kopiert)
        return Dateibewegung::istGleich(z.von, z.nach)
                   ? QString()
                   : Sprache::text(u"Das Original fehlt oder ist nicht mehr wie die Kopie"_s);
    return istVorhanden(z.von) ? Sprache::text(u"Am alten Platz liegt schon eine andere Datei"_s) : QString();
}
} // namespace

Rueckbau::Rueckbau(const QString &datei, std::shared_ptr<Datenbank> db, Protokollbuch::Fortschritt fortschritt,
                   std::stop_token ende)
    : m_db(std::move(db)), m_fortschritt(std::move(fortschritt)), m_ende(std::move(ende))
{
    const auto kopf = Protokollbuch::kopf(datei);
    m_herkunft = kopf ? kopf->quelle : QString();
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
    try {
        if (m_db)
            m_gang = std::make_unique<Bewegungsgang>(m_db);
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
    } catch (const Fehler &f) {
        m_bilanz.fehler << Rueckbaubefund{.stelle = -1, .grund = inSprache(f)};
    }
    return m_bilanz;
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
    const QStringList fehler = absichten.isEmpty() ? QStringList() : zuruecknehmen(absichten);
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
    absicht.art = Absicht::Art::Ruecknahme;
    absicht.zeile = zeile;
    absicht.status = zeile.altStatus.isEmpty() ? u"bereit"_s : zeile.altStatus;
    const auto angaben = Dateibewegung::angabenVon(zeile.nach);
    if (!angaben && !istVorhanden(zeile.nach))
        return Sprache::text(u"Die Datei liegt nicht mehr am Zielort"_s);
    if (QString grund = hindernis(zeile, absicht.protokollId); !grund.isEmpty())
        return grund;
    if (QString grund = endenhindernis(zeile); !grund.isEmpty())
        return grund;
    if (angaben)
        absicht.uebernehmen(*angaben);
    return {};
}

/** The catalogue knows the movement as turned back already, or the document has moved on since. */
QString Rueckbau::hindernis(const Protokollzeile &zeile, qint64 &protokollId) const
{
    if (!m_db || zeile.dokument <= 0)
        return {};
    const QList<Zeile> zeilen = m_db->abfragen(
        u"SELECT p.id, p.rueckgaengig, p.zeit, d.pfad FROM protokoll p LEFT JOIN dokumente d ON d.id=p.dokument_id\n"
        "WHERE p.dokument_id=? AND p.von_pfad=? AND p.nach_pfad=?"_s,
        {zeile.dokument, zeile.von, zeile.nach});
    if (zeilen.isEmpty())
        return {}; // a log of another profile or computer: only the file moves
    // A later session may have moved it there again: the row of the line's own time goes before.
    const auto rang = [&zeile](const Zeile &z) {
        return std::tuple(z.text(u"zeit") == zeile.zeit, z.ganz(u"rueckgaengig") == 0, z.ganz(u"id"));
    };
    const Zeile &eigene = *std::max_element(zeilen.begin(), zeilen.end(),
                                            [&rang](const Zeile &a, const Zeile &b) { return rang(a) < rang(b); });
    if (eigene.ganz(u"rueckgaengig") == 1)
        return Sprache::text(u"Diese Bewegung ist schon zurückgedreht"_s);
    protokollId = eigene.ganz(u"id");
    return eigene.text(u"pfad") == (zeile.kopiert ? zeile.von : zeile.nach)
               ? QString()
               : Sprache::text(u"Das Dokument wurde inzwischen weiterbewegt"_s);
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
