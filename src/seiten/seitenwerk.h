#pragma once

#include "dateiinhalt.h"
#include "malbetrieb.h"
#include "namensraeume.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QSizeF>

namespace quillmar::seiten
{
/** What has become of opening a document for the preview; the last four: how the process that draws has failed. */
enum class Vorschaubefund {
    Keines,
    Laedt,
    Offen,
    Gesichert,
    Beschaedigt,
    Verschwunden,
    Unlesbar,
    ZuGross,
    ZuLange,
    ZuVielSpeicher,
    Abgestuerzt,
    NichtGestartet
};

/** The process has failed at it: another time it may do better. */
[[nodiscard]] constexpr bool istGescheitert(Vorschaubefund befund) { return befund >= Vorschaubefund::ZuLange; }

/** A document as it was found. */
struct Dokumentstand {
    Vorschaubefund befund = Vorschaubefund::Laedt;
    Dateistand datei;
    /**
     * Of the pages in points, as they are seen (turned); empty unless the document is open. Those behind the first
     * 2,000 count as large as the last of these; there are never more than 20,000.
     */
    QList<QSizeF> groessen;
    bool weitere = false; ///< it has more pages than can be shown
};

/**
 * Reads PDF files in the background and has them opened and drawn by another process. Nothing here blocks: a drive that
 * hangs holds up no more than the pictures, and neither does a document that is made to.
 */
class Seitenwerk : public QObject
{
    Q_OBJECT

public:
    explicit Seitenwerk(const Malgrenzen &grenzen = {}, QObject *eltern = nullptr);

    /**
     * Reads and opens the file @p pfad; geoeffnet() tells the outcome under the returned number. When the file is still
     * in the state @p bekannt, nothing is told.
     */
    quint64 oeffnen(const QString &pfad, const Dateistand &bekannt = {}, Vorrang vorrang = Vorrang::Sofort);

    /** Draws a page (from 0) on white; gemalt() brings it. An earlier wish for the same page is forgotten. */
    void malen(quint64 kennung, int seite, const QSize &pixel, Vorrang vorrang);

    /** What is asked for already (-1: to open the document) is wanted sooner. */
    void vorziehen(quint64 kennung, int seite, Vorrang vorrang);

    /** Forgets the pages of the document that are not begun; its opening no longer keeps anything waiting. */
    void abbestellen(quint64 kennung);

    /** Frees the document; nothing is told of it any more. */
    void schliessen(quint64 kennung);

Q_SIGNALS:
    void geoeffnet(quint64 kennung, const Dokumentstand &stand);

    /**
     * @p bild has the size that was asked for. It is null when the page cannot be drawn; @p befund is Offen all the
     * same, unless the process has failed.
     */
    void gemalt(quint64 kennung, int seite, const QImage &bild, Vorschaubefund befund);

private:
    struct Dokument {
        Dateistand stand;
        std::shared_ptr<const Dateigriff> inhalt;
        Vorrang vorrang = Vorrang::Sofort; ///< of the opening
    };

    void gelesen(quint64 kennung, const Dateiinhalt &inhalt);
    void oeffnenMelden(const Seitenprotokoll::Geoeffnet &ergebnis);
    void scheiternMelden(quint64 kennung, int seite, Malfehler grund);

    Malbetrieb m_betrieb;
    QHash<quint64, Dokument> m_dokumente;
    quint64 m_letzte = 0;
};
} // namespace quillmar::seiten
