#pragma once

#include <QStringList>

namespace vorfuehrung
{

/** Date of the document, JJJJ-MM-TT: a labelled one or one behind a place name, else the first. Empty when there is
 * none. */
[[nodiscard]] QString datumAus(const QStringList &zeilen);

/**
 * The other party by the layout of a German letter: the name in the sender line or letterhead, or, when that is the
 * owner, the first line of the address block. The owner's own name when no other is found, empty when there is none at
 * all.
 */
[[nodiscard]] QString gegenueberAus(const QStringList &zeilen, const QStringList &eigene);

/** As above, but looks at labelled parties ("Auftraggeber: ...") as well, and never gives the owner's own name. */
[[nodiscard]] QString anderePartei(const QStringList &zeilen, const QStringList &eigene);

/** Invoice number or tax year with its kind, else the subject line. */
[[nodiscard]] QString titelAus(const QStringList &zeilen);

} // namespace vorfuehrung
