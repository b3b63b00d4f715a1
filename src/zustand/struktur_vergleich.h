#pragma once

#include "namensraeume.h"
#include "profil.h"

namespace quillmar::zustand
{
/** One line of the filing tree as it is shown: a branch, a filing kind or a rubric, with what changed at the last
 * reading. */
struct Strukturzeile {
    enum class Wechsel { Gleich, Neu, Entfallen };
    int ebene = 0; ///< 0 branch, 1 filing kind, 2 rubric
    QString name;
    bool mitJahr = false; ///< of a filing kind
    Wechsel wechsel = Wechsel::Gleich;
    bool operator==(const Strukturzeile &) const = default;
};

/** What a structure holds, and how many of its rubrics are new or gone. */
struct Strukturzahlen {
    qsizetype zweige = 0;
    qsizetype ablagen = 0;
    qsizetype rubriken = 0;
    qsizetype neu = 0;
    qsizetype entfallen = 0;
    bool operator==(const Strukturzahlen &) const = default;
};

/**
 * The lines of @p jetzt from the top down, each level sorted as it is stored; what only @p vorher has is listed behind
 * its kin as gone. Without an earlier structure nothing counts as new.
 */
[[nodiscard]] QList<Strukturzeile> strukturzeilen(const QList<Zweig> &vorher, const QList<Zweig> &jetzt);

/** Counts the lines; what is gone counts only there. */
[[nodiscard]] Strukturzahlen strukturzahlen(const QList<Strukturzeile> &zeilen);

/** Some filing kind has a rubric of that name, and has it still. */
[[nodiscard]] bool kenntRubrik(const QList<Strukturzeile> &zeilen, const QString &rubrik);
} // namespace quillmar::zustand
