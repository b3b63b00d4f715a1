#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>

namespace vorfuehrung
{

constexpr double seitenbreite = 595; ///< A4 in points
constexpr double seitenhoehe = 842;

/**
 * One A4 page: drawing commands (WinAnsi, fonts F1 regular and F2 bold), or a JPEG in three colours that fills it, with
 * the commands as a text layer that is not seen.
 */
struct Seite {
    QByteArray inhalt;
    QByteArray jpeg;
    QSize bildgroesse;
    int drehung = 0; ///< degrees clockwise by which the picture was laid on the scanner: 0, 90, 180 or 270
};

/** How the bytes are laid out; the pages look the same. */
enum class Schreibweise {
    gepackt,
    ungepackt,
    verschluesselt, ///< 40-bit RC4 with a user password
};

/** A PDF file of the pages. The same pages always give the same bytes. */
[[nodiscard]] QByteArray pdf(const QList<Seite> &seiten, Schreibweise weise = Schreibweise::gepackt);

} // namespace vorfuehrung
