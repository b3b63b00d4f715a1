#pragma once

#include <QByteArray>
#include <QList>

/** PDF files made by hand, so that anything can be wrong in them. */
namespace Rohpdf
{
/** The objects numbered from 1, the first being the catalogue; @p imTrailer goes into the trailer as it is. */
[[nodiscard]] QByteArray datei(const QList<QByteArray> &objekte, const QByteArray &imTrailer = {});
/** The same with all objects, which must not be streams, deflated in one: for thousands of them. */
[[nodiscard]] QByteArray gepackteDatei(const QList<QByteArray> &objekte);

/** A stream object with @p eintraege besides its length. */
[[nodiscard]] QByteArray strom(const QByteArray &inhalt, const QByteArray &eintraege = {});
/** The same, deflated @p mal times. */
[[nodiscard]] QByteArray gepackterStrom(QByteArray inhalt, int mal = 1);

/** What one page is made of; empty parts are the usual ones. */
struct Seite {
    QByteArray inhalt = "BT /F 20 Tf 20 100 Td (Guten Tag) Tj ET"; ///< what it draws
    QByteArray kasten = "0 0 200 200";
    QByteArray eintraege = {};      ///< further ones of the page
    QByteArray mittel = {};         ///< further resources, beside the font "F"
    QList<QByteArray> weitere = {}; ///< objects from number 6 on
    QByteArray inhaltsobjekt = {};  ///< instead of the plain stream of what it draws
    QByteArray seitenbaum = {};     ///< instead of object 2, the parent of the page
    QByteArray imTrailer = {};
};
/** One page: 1 is the catalogue, 2 the page tree, 3 the page, 4 what it draws, 5 the font. */
[[nodiscard]] QByteArray seite(const Seite &seite);
/** One after the other, without more than what they draw and their boxes. */
[[nodiscard]] QByteArray seiten(const QList<Seite> &seiten);
} // namespace Rohpdf
