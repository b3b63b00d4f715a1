#pragma once

#include "eintrag.h"
#include "namensraeume.h"

#include <QList>
#include <QString>
#include <functional>

namespace quillmar::lernen
{
/** The rules of the learning memory that need no catalogue. */
namespace Lernregeln
{
/** A shorter key says too little to match anything but itself. */
constexpr qsizetype kuerzesterSchluessel = 4;

/** Key of a counterpart: normalised, without its legal form. */
[[nodiscard]] QString schluessel(const QString &name);

/** A short form meets its long form: one key contains the other. */
[[nodiscard]] bool passt(const QString &a, const QString &b);

/** The learned spelling may take the place of the existing one. */
[[nodiscard]] bool darfErsetzen(const QString &gelernt, const QString &vorhanden);

/** One key is the other, or whole words of it. */
[[nodiscard]] bool istGanzesWort(const QString &a, const QString &b);

/**
 * @p gelesen is @p bekannt with letters that recognition took for digits: at most one in seven, each within a word of
 * at least three other letters. Which letter it was nobody can tell, so only one digit for one letter counts.
 */
[[nodiscard]] bool istVerlesen(const QString &gelesen, const QString &bekannt);
/** The only entry that @p schluessel is a misreading of; null if none is, or several are. */
[[nodiscard]] const Eintrag *verlesener(const QList<Eintrag> &alle, const QString &schluessel);

/**
 * The entry of @p alle (most confirmed first) for a counterpart: the one with the same key, else one of whole words,
 * else one of parts of them; of several the most confirmed one, then the one with the longer key, then the first. Null
 * when none fits.
 */
[[nodiscard]] const Eintrag *vorschlag(const QList<Eintrag> &alle, const QString &schluessel);
/**
 * The same for a waiting document, where also a key too short for that meets its equal. Of several that are as near,
 * those that are @p nachrangig, asked of entries that fit, go behind the others however often they are confirmed.
 */
[[nodiscard]] const Eintrag *passender(const QList<Eintrag> &alle, const QString &schluessel, bool naeheZaehlt = true,
                                       const std::function<bool(const Eintrag &)> &nachrangig = {});
} // namespace Lernregeln
} // namespace quillmar::lernen
