#pragma once

#include "namensraeume.h"
#include "seitenwort.h"

#include <QList>
#include <QPointF>
#include <optional>
#include <utility>

namespace quillmar::seiten
{
/** The words of one page as it is seen: which of them is where, and on which line. */
class Wortkarte
{
public:
    /** @p breiteZuHoehe of the page, so that a way to the side counts as much as one upwards. */
    explicit Wortkarte(Seitenworte worte = {}, double breiteZuHoehe = 1);

    [[nodiscard]] const Seitenworte &worte() const { return m_worte; }
    [[nodiscard]] qsizetype anzahl() const { return m_worte.size(); }

    /** The word at @p ort (a share of the page), a hair's breadth beside it included; none on empty ground. */
    [[nodiscard]] std::optional<qsizetype> wortBei(const QPointF &ort) const;
    /** The word that is next to @p ort, on the line whose height is nearest; none on a page without words. */
    [[nodiscard]] std::optional<qsizetype> naechstes(const QPointF &ort) const;

    /** The words from @p von to @p bis: those of a line with blanks between them, lines with @p umbruch. */
    [[nodiscard]] QString text(qsizetype von, qsizetype bis, QChar umbruch) const;
    /** What they take up on the page, one rectangle for each line. */
    [[nodiscard]] QList<QRectF> orte(qsizetype von, qsizetype bis) const;
    /** The first of @p plaetze on the page that lies over no word. */
    [[nodiscard]] std::optional<QRectF> freier(const QList<QRectF> &plaetze) const;

private:
    [[nodiscard]] QPointF abstand(const QPointF &ort, qsizetype wort) const;

    Seitenworte m_worte;
    QList<int> m_zeilen;        ///< of the words, numbered from 0
    QList<QRectF> m_zeilenorte; ///< what encloses the words of each
    double m_breiteZuHoehe;
};
} // namespace quillmar::seiten
