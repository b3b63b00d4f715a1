#pragma once

#include "namensraeume.h"
#include "ort.h"

#include <QList>
#include <QString>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/** A counterpart that is known, with the place where its documents usually go. */
struct Bekannter {
    QString name;
    Ort ort;         ///< empty levels where none is known
    QString gesucht; ///< the name as it is searched
    bool operator==(const Bekannter &) const = default;

    /** The non-empty levels of the place, joined with "/". */
    [[nodiscard]] QString ziel() const;
};

/** What the memory knows, most confirmed first, then what else was filed, by name. Each counterpart once. Blocks. */
[[nodiscard]] QList<Bekannter> bekannteGegenueber(Datenbank &db);
/** Those of @p alle whose name has @p getippt in it, in any spelling of umlauts: first where a word begins with it. */
[[nodiscard]] QList<Bekannter> passende(const QList<Bekannter> &alle, const QString &getippt, qsizetype hoechstens);
} // namespace quillmar::zustand
