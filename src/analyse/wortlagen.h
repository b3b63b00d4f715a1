#pragma once

#include "grenzen.h"
#include "namensraeume.h"
#include "seitenbilder.h"
#include "seitenwort.h"

#include <QByteArray>
#include <QMap>
#include <QSize>
#include <QString>
#include <stop_token>

namespace quillmar::analyse
{
class Wortspeicher;

/**
 * Where the words of a PDF's pages stand. Places are those of the page as it lies, as programs show it (crop box,
 * turned as the file says). Everything blocks.
 */
namespace Wortlagen
{
/**
 * Of the text layer of the pages @p seiten as far as there are such, by pdftotext: its words are those of the text that
 * the proposal was made of, and a document made to do harm meets a process of its own with limits. Throws Fehler and
 * Abbruch.
 */
[[nodiscard]] QList<Seitenworte> ausTextebene(const QString &pdf, const Seitenspanne &seiten,
                                              const Lesegrenzen &grenzen, const std::stop_token &ende);

/** How pages are recognised. */
struct Erkennung {
    Seitenspanne seiten;
    QString sprache;
    QMap<int, int> drehungen; ///< degrees clockwise that make pages upright, by page from 1
    bool operator==(const Erkennung &) const = default;
};
/** Of the images of the pages, by tesseract. Throws Fehler, Platzmangel and Abbruch. */
[[nodiscard]] QList<Seitenworte> erkannte(const QString &pdf, const Erkennung &wie, const Lesegrenzen &grenzen,
                                          const std::stop_token &ende);

/**
 * As the document's text was read: of its text layer, else recognised, unless @p speicher has that of the file's
 * content as it is now; what is recognised is kept there. Throws as these do.
 */
[[nodiscard]] QList<Seitenworte> lesen(const QString &pdf, bool textebene, const Erkennung &wie,
                                       const Wortspeicher &speicher, const Lesegrenzen &grenzen,
                                       const std::stop_token &ende);

/** A page of "pdftotext -bbox". */
struct Ebenenseite {
    QSizeF groesse;      ///< in points, before it is turned
    Seitenworte worte{}; ///< in points, as they are seen

    /** Turned by a quarter or not, as far as the words tell. */
    enum class Lage { Aufrecht, Quer, Unklar };
    [[nodiscard]] Lage lage() const;
};
/** What "pdftotext -bbox" says. Throws Fehler when it is not to be understood. */
[[nodiscard]] QList<Ebenenseite> ebenenseiten(const QByteArray &bbox);

/** How a page lay that is recognised: as large as @p bild once turned, then straightened by @p neigung clockwise. */
struct Bildlage {
    QSize bild;
    double neigung = 0;
};
/** The words in what "tesseract … tsv" says, in shares of the image before it was straightened. */
[[nodiscard]] Seitenworte ausTsv(const QByteArray &tsv, const Bildlage &lage);
} // namespace Wortlagen
} // namespace quillmar::analyse
