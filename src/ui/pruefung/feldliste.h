#pragma once

#include "teile.h"

class QCompleter;
class QLineEdit;

namespace quillmar::pruefung
{
/**
 * A list that opens below @p feld, which keeps the focus and its keys; @p zeilen are its rows, all of them shown. It is
 * nobody's completer: none of them writes into the field. @p name is for tests, @p titel for assistive technologies.
 */
[[nodiscard]] QCompleter *feldliste(QLineEdit *feld, Listenmodell *zeilen, const QString &name, const QString &titel);
} // namespace quillmar::pruefung
