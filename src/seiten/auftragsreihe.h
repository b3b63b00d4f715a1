#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QList>
#include <QSize>
#include <memory>
#include <optional>

namespace quillmar::seiten
{
/** How soon something is wanted: on show, the next document, next to what is on show; the last: only when asked for. */
enum class Vorrang { Sofort, Voraus, Nachbar, Ruht };

/** A document to be opened, or one of its pages to be drawn. */
struct Malauftrag {
    quint64 kennung = 0; ///< of the document, never 0
    int seite = -1;      ///< from 0; -1: the document is to be opened
    QSize pixel{};
    Vorrang vorrang = Vorrang::Sofort;
    std::shared_ptr<const Dateigriff> inhalt{}; ///< of the document
    bool unterbrochen = false;                  ///< once given up for something more urgent
    bool wiederholt = false;                    ///< has ended a process that had other documents open, too
};

/** The orders that wait, by priority, then as they came. */
class Auftragsreihe
{
public:
    /** Takes the place of an order for the same page. */
    void auftragen(const Malauftrag &auftrag);

    /**
     * Before all others of its priority: what could not be finished through no fault of its own. Not if the page has
     * been ordered anew meanwhile; the same goes for spaeter().
     */
    void nochmals(const Malauftrag &auftrag);

    /** What was given up for something more urgent: behind all others; the second time it rests until it is raised. */
    void spaeter(Malauftrag auftrag);

    /** Raises what waits for the page (-1: the opening) to @p vorrang; nothing if it has that or a higher one. */
    void vorziehen(quint64 kennung, int seite, Vorrang vorrang);

    /** Nobody looks at the document any more: its opening waits behind what is on show or drawn ahead. */
    void zuruecksetzen(quint64 kennung);

    /** Drops the document's orders; from @p abSeite 0 on: the pages alone. */
    void verwerfen(quint64 kennung, int abSeite = -1);

    /** Of the order that is next; Ruht when there is none. */
    [[nodiscard]] Vorrang hoechster() const;

    /** Takes out the order that is next; none is while all rest. */
    [[nodiscard]] std::optional<Malauftrag> naechster();

    /** Takes out all, those that rest as well. */
    [[nodiscard]] QList<Malauftrag> alle();

private:
    [[nodiscard]] bool wartet(const Malauftrag &auftrag) const;

    QList<Malauftrag> m_auftraege;
};
} // namespace quillmar::seiten
