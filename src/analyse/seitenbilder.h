#pragma once

#include "grenzen.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QString>
#include <QStringList>
#include <stop_token>

namespace quillmar::analyse
{
class Bilderordner;

/** Pages of a PDF, both ends included, from 1. */
struct Seitenspanne {
    int erste = 1;
    int letzte = 1;
    [[nodiscard]] int anzahl() const { return letzte - erste + 1; }
    /** As the tools of poppler take them. */
    [[nodiscard]] QStringList argumente() const;
    bool operator==(const Seitenspanne &) const = default;
};

/** The images of a PDF's pages that its text is recognised from. */
namespace Seitenbilder
{
constexpr double aufloesung = 200;          ///< dots per inch
constexpr double hoechstensPunkte = 100e6;  ///< of a page at that resolution; a larger one is drawn more coarsely
constexpr double groberePunkte = 50e6;      ///< of a page that is drawn more coarsely
constexpr double hoechstensKante = 32000.0; ///< in pixels, with which text recognition copes

struct Seitenmass {
    int seite = 0;     ///< from 1
    double breite = 0; ///< in points, as hoehe
    double hoehe = 0;
    bool operator==(const Seitenmass &) const = default;

    [[nodiscard]] double punkte() const; ///< pixels at the usual resolution
    [[nodiscard]] bool zuGross() const { return punkte() > hoechstensPunkte; }
};

/** What is drawn of a page. */
enum class Umfang {
    Blatt,     ///< the whole sheet, as text is recognised
    Sichtbares ///< what programs show of it
};

/**
 * Draws the pages @p seiten of @p pdf into the empty folder @p ordner, at 200 dpi in one call. Only when that
 * fails or has not given what it should (a page that does not fit into memory comes out as a single pixel) are the
 * sizes of the pages asked for; where one has more than 100 megapixels, all are drawn one by one, the large ones at
 * a lower resolution. Ordinary documents thus pay nothing for the others. Throws Fehler and Abbruch.
 */
void zeichnen(const QString &pdf, const Seitenspanne &seiten, const Lesegrenzen &grenzen, const Bilderordner &ordner,
              const std::stop_token &ende, Umfang umfang = Umfang::Blatt);

/** The page (from 1) that an image of Bilderordner shows: its number stands at the end of the name. */
[[nodiscard]] int seiteVon(const QString &bild);

/** Width and height stand in the first bytes of every PNG; zero if it is none. */
[[nodiscard]] QSize bildgroesse(const QString &pfad);

/** The media boxes in what pdfinfo says about pages with "-box". */
[[nodiscard]] QList<Seitenmass> seitenmasse(const QByteArray &pdfinfo);
/** The resolution at which a page of that size is drawn. */
[[nodiscard]] double aufloesungFuer(const Seitenmass &mass);
} // namespace Seitenbilder
} // namespace quillmar::analyse
