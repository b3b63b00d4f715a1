#pragma once

#include "dokument.h"
#include "lernspeicher.h"
#include "namensraeume.h"
#include "richtung.h"
#include "zaehlwerk.h"

#include <QHash>
#include <QMap>
#include <QStringList>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/** A document under review, with what the catalogue knows about it beside its row. */
struct Pruefstueck {
    Dokument dokument;
    bool hatText = false;                               ///< some text was read
    bool ebeneVerworfen = false;                        ///< its text layer is no text
    std::optional<Lernspeicher::Herkunft> gelernt = {}; ///< where a learned place comes from
    bool nachgeprueft = false;                          ///< the larger model was asked and has answered
    bool ohneGegenueber = false;                        ///< the proposal has none, whatever the reviewer has made of it
    std::optional<Dokument> aehnlich; ///< the similar document; none if there is none or it is unknown
    bool operator==(const Pruefstueck &) const = default;
};

/** Which document comes under review. */
struct Wunsch {
    enum class Art {
        Behalten, ///< the one with @c id while it waits, else the next one behind it, at the end the first
        Weiter,   ///< from @c id in @c richtung; see Dokumente::naechstes()
        Dieses,   ///< the one with @c id if it waits, else the one with @c sonst while it waits, else as above
    };
    Art art = Art::Behalten;
    std::optional<qint64> id;
    Richtung richtung = Richtung::Erstes;
    std::optional<qint64> sonst;

    [[nodiscard]] static Wunsch behalten(std::optional<qint64> id) { return {Art::Behalten, id, Richtung::Erstes, {}}; }
    [[nodiscard]] static Wunsch weiter(std::optional<qint64> id, Richtung richtung)
    {
        return {Art::Weiter, id, richtung, {}};
    }
    [[nodiscard]] static Wunsch dieses(qint64 id, std::optional<qint64> sonst)
    {
        return {Art::Dieses, id, Richtung::Erstes, sonst};
    }
};

/** Degrees clockwise that make pages (from 1) upright, by the path of their document. */
using Drehungen = QHash<QString, QMap<int, int>>;

/** What the interface shows of a catalogue at one moment. */
struct Blick {
    Zaehlwerk zaehlwerk;
    std::optional<Pruefstueck> aktuelles;
    QStringList voraus;        ///< paths of the documents that are likely to come next
    Drehungen drehungen;       ///< of pages of all documents told here that do not lie upright
    qint64 ausgenommen = 0;    ///< documents that the exclusion rules cover
    bool ruecknehmbar = false; ///< some deed of the review can be taken back
    bool bewegt = false;       ///< some movement can be taken back
    bool operator==(const Blick &) const = default;

    [[nodiscard]] std::optional<qint64> id() const
    {
        return aktuelles ? std::optional(aktuelles->dokument.id) : std::nullopt;
    }

    /** Looks into the catalogue. Blocks. */
    [[nodiscard]] static Blick auf(const std::shared_ptr<Datenbank> &db, const Wunsch &wunsch);
};
} // namespace quillmar::zustand
