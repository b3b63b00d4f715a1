#pragma once

class QLabel;
class QString;
class QWidget;

/** A mark of the size of an icon beside text; it follows the font. */
[[nodiscard]] QLabel *zeichenschild(const QString &symbol, QWidget *eltern);
