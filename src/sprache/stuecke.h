#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QString>

namespace quillmar::sprache
{
/**
 * Some sentences used to be put together from texts of their own. A language file that has these, but not yet the whole
 * sentence, keeps its translation: @p texte (German text to translation) gets the sentence made of what it has.
 */
void ausStueckenErgaenzen(QHash<QString, QString> &texte);
} // namespace quillmar::sprache
