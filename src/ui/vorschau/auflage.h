#pragma once

#include "farben.h"
#include "namensraeume.h"
#include "wortkarte.h"

#include <QList>
#include <QRectF>

class QPainter;

namespace quillmar::vorschau
{
/** A passage of a page that something is laid over: a mark, a find, a selection. */
struct Auflage {
    QList<QRectF> orte; ///< one for each line, in shares of the page as it is seen
    Farben::Seitenton ton = Farben::Seitenton::Auswahl;
    bool stark = false;
};

/** Tells what the passage is for without its colour; empty where there is nothing to be told. */
[[nodiscard]] QString buchstabe(Farben::Seitenton ton);

/** Lays them over the page at @p seite like ink on paper: what is written below stays black. */
void auflagenMalen(QPainter &maler, const QRect &seite, const QList<Auflage> &auflagen, const Wortkarte &worte,
                   const QPalette &palette);
} // namespace quillmar::vorschau
