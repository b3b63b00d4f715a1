#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QSizeF>
#include <optional>
#include <variant>

namespace quillmar::seiten
{
/**
 * What the window and the process that draws pages say to each other: one message a packet of a socket. Orders go there
 * one by one, each is answered once; with an order to open goes the descriptor of the file, with one to draw that of
 * the memory for the picture (rows of 32 bits a pixel, without gaps). Nothing that comes back is trusted: what is not
 * exactly of this form and within these bounds is no message.
 */
namespace Seitenprotokoll
{
inline constexpr int kanal = 3;         ///< the socket's descriptor in the process
inline constexpr int speicherVoll = 77; ///< its exit status when it has no memory left
inline constexpr int meisteSeiten = 20'000;
inline constexpr int meisteGemessene = 2'000;
inline constexpr double groessteSeite = 200'000; ///< points
inline constexpr int groessteKante = 1 << 20;    ///< pixels
inline constexpr qint64 meistePixel = 32'000'000;
inline constexpr qsizetype laengsteNachricht = 40'000; ///< bytes

struct Oeffnen {
    quint64 kennung = 0; ///< the window's number of the document, never 0
    bool operator==(const Oeffnen &) const = default;
};

struct Malen {
    quint64 kennung = 0;
    int seite = 0; ///< from 0
    QSize pixel;
    bool operator==(const Malen &) const = default;
};

/** Is not answered. */
struct Schliessen {
    quint64 kennung = 0;
    bool operator==(const Schliessen &) const = default;
};

using Auftrag = std::variant<Oeffnen, Malen, Schliessen>;

/** Comes once, before any order. */
struct Bereit {
    bool operator==(const Bereit &) const = default;
};

enum class Ergebnis : quint8 { Offen, Gesichert, Beschaedigt };

struct Geoeffnet {
    quint64 kennung = 0;
    Ergebnis ergebnis = Ergebnis::Offen;
    int seiten = 0;         ///< at least one if it is open, else none
    bool weitere = false;   ///< there are more than meisteSeiten, which are not to be had
    QList<QSizeF> groessen; ///< of the first pages in points, turned as they are seen; at least one if it is open
    bool operator==(const Geoeffnet &) const = default;
};

struct Gemalt {
    quint64 kennung = 0;
    int seite = 0;
    bool gelungen = false;
    bool operator==(const Gemalt &) const = default;
};

using Antwort = std::variant<Bereit, Geoeffnet, Gemalt>;

[[nodiscard]] QByteArray verpackt(const Auftrag &auftrag);
[[nodiscard]] QByteArray verpackt(const Antwort &antwort);

/** What @p bytes say; nothing if they are not what verpackt() makes of a message within the bounds. */
[[nodiscard]] std::optional<Auftrag> auftragAus(const QByteArray &bytes);
[[nodiscard]] std::optional<Antwort> antwortAus(const QByteArray &bytes);
} // namespace Seitenprotokoll
} // namespace quillmar::seiten
