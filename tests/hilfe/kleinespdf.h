#pragma once

#include <QByteArray>
#include <QList>

/** PDF files made by hand, a few hundred bytes each: one that is as it should be and some that are made to do harm. */
namespace Kleinespdf
{
/** So many pages of A4 with a word on each. */
[[nodiscard]] QByteArray brav(int seiten = 1);

/** As brav(), but its trailer has @p eintrag as well. */
[[nodiscard]] QByteArray mitTrailer(const QByteArray &eintrag);

/** One page that is drawn by these operators. */
[[nodiscard]] QByteArray gezeichnet(const QByteArray &anweisungen);

/** Lines of dashes a thousandth of a point long, which take minutes to draw. */
[[nodiscard]] QByteArray endloseStriche();

/** Groups within groups, each of which takes the memory of a page of its own. */
[[nodiscard]] QByteArray geschachtelteFormen();
} // namespace Kleinespdf
