#pragma once

#include "namensraeume.h"

#include <QList>
#include <QStringList>

namespace quillmar::katalog
{
/**
 * The statements that make or bring up to date the tables of a catalogue, to be run in this order at every opening.
 * There is no schema version: a column that is already there makes its statement fail, and that is meant.
 */
[[nodiscard]] const QList<QString> &schemaAnweisungen();

/**
 * Makes the table of the documents to whose second question the larger model has answered. Version 0.1.0 kept that in a
 * column of dokumente, which is read once, when this table is made.
 */
[[nodiscard]] const QString &schemaNachgeprueft();

/** Names of the tables and indexes that these statements make. */
[[nodiscard]] QStringList schemaNamen();
} // namespace quillmar::katalog
