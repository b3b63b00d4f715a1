#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace quillmar::fundstellen
{
/** Something on a page that a field may want. */
struct Angebot {
    QString wert;   ///< as it goes into the field
    QString umfeld; ///< with the words around it, as they are written
    Fundstelle stelle;
    int rang = 0;         ///< the higher, the likelier
    bool istZahl = false; ///< a part of a title, not all of it
};

/** What pages offer for a field, likeliest first, each value once. */
namespace Angebote
{
/** All dates as JJJJ-MM-TT; those without a day, as the first of their month, last. */
[[nodiscard]] QList<Angebot> daten(const QList<Wortfolge> &seiten);
/**
 * Names of the head and of the address block, and of companies wherever their legal form shows them; without legal
 * form. Those of @p eigene, and parts of them, are left out.
 */
[[nodiscard]] QList<Angebot> namen(const QList<Wortfolge> &seiten, const QStringList &eigene);
/** The subject of the first page, then numbers behind or below "Nr.", "Nummer", "Az." and the like. */
[[nodiscard]] QList<Angebot> titel(const QList<Wortfolge> &seiten);
} // namespace Angebote

/** How text that was taken from a page goes into a field. */
namespace Uebernahme
{
/** The likeliest date in @p text as JJJJ-MM-TT; @p text as it is if there is none. */
[[nodiscard]] QString alsDatum(const QString &text);
/** The likeliest date that the words from @p wort on are or touch, all of it; without one, they themselves. */
[[nodiscard]] QString alsDatum(const Wortfolge &seite, qsizetype wort, qsizetype worte);
/** Without what stands around a name (colons, dots, bars) and without its legal form. */
[[nodiscard]] QString alsGegenueber(const QString &text);
/**
 * @p titel with the number @p zahl: in place of its first number that is in @p fehlende, else of its last number, else
 * behind it.
 */
[[nodiscard]] QString zahlImTitel(const QString &titel, const QString &zahl, const QStringList &fehlende);
} // namespace Uebernahme
} // namespace quillmar::fundstellen
