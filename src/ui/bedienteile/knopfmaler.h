#pragma once

#include "namensraeume.h"
#include "quillmarstil.h"

#include <QStyleOptionToolButton>

namespace quillmar::bedienteile
{
/** A surface with rounded corners; the frame around what has the focus. */
void abgerundet(QPainter &maler, const QRectF &flaeche, const QColor &grund, double radius = 3);
void fokusrahmen(QPainter &maler, const QPalette &palette, const QRectF &rahmen);

/** Draws and measures the buttons of the window, for its style. */
namespace Knopfmaler
{
[[nodiscard]] Knopfart artVon(const QWidget *knopf);
[[nodiscard]] QSize groesse(const QStyleOptionButton &option, const QWidget *knopf);
[[nodiscard]] QSize groesse(const QStyleOptionToolButton &option, const QWidget *knopf);

/** Icon and text side by side, in the middle of a push button. */
void beschriften(QPainter &maler, const QStyleOptionButton &option);
/** Icon, or icon and text beside it, of a flat button. */
void beschriften(QPainter &maler, const QStyleOptionToolButton &option);
void hauptknopf(QPainter &maler, const QStyleOptionButton &option);
void reiter(QPainter &maler, const QStyleOptionToolButton &option, const QWidget *knopf);
void haelfte(QPainter &maler, const QStyleOptionToolButton &option);
} // namespace Knopfmaler
} // namespace quillmar::bedienteile
