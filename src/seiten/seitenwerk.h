#pragma once

#include "dateiinhalt.h"
#include "malreihe.h"
#include "namensraeume.h"

#include <QImage>
#include <QObject>
#include <QSet>
#include <QSizeF>

namespace quillmar::grundlage
{
class Briefkasten;
} // namespace quillmar::grundlage

namespace quillmar::seiten
{
/** What has become of opening a document for the preview. */
enum class Vorschaubefund { Keines, Laedt, Offen, Gesichert, Beschaedigt, Verschwunden, Unlesbar, ZuGross };

/** A document as it was found. */
struct Dokumentstand {
    Vorschaubefund befund = Vorschaubefund::Laedt;
    Dateistand datei;
    QList<QSizeF> groessen; ///< of the pages in points, as they are seen (turned); empty unless the document is open
};

/**
 * Reads, opens and draws PDF files away from the main thread. Nothing here blocks: a drive that hangs and a document
 * that keeps PDFium busy hold up no more than the pictures.
 */
class Seitenwerk : public QObject
{
    Q_OBJECT

public:
    enum Vorrang { Sofort, Voraus, Nachbar };

    explicit Seitenwerk(QObject *eltern = nullptr);
    ~Seitenwerk() override;

    /**
     * Reads and opens the file @p pfad; geoeffnet() tells the outcome under the returned number. When the file is still
     * in the state @p bekannt, nothing is told.
     */
    quint64 oeffnen(const QString &pfad, const Dateistand &bekannt = {});

    /** Draws a page (from 0) on white; gemalt() brings it. An earlier wish for the same page is forgotten. */
    void malen(quint64 kennung, int seite, const QSize &pixel, Vorrang vorrang);

    /** Forgets the pages of the document that are not begun. */
    void abbestellen(quint64 kennung);

    /** Frees the document; nothing is told of it any more. */
    void schliessen(quint64 kennung);

Q_SIGNALS:
    void geoeffnet(quint64 kennung, const Dokumentstand &stand);

    /** @p bild has the size that was asked for; it is null when the page cannot be drawn. */
    void gemalt(quint64 kennung, int seite, const QImage &bild);

private:
    using Meldung = std::function<void()>;

    void gelesen(quint64 kennung, const Dateiinhalt &inhalt);

    /** Done away from here; what @p arbeit returns is called here, if the document is still wanted. */
    void auftragen(Vorrang vorrang, quint64 kennung, int seite, std::function<Meldung(OffeneDokumente &)> arbeit);

    std::shared_ptr<Briefkasten> m_briefe;
    std::shared_ptr<Malreihe> m_reihe;
    QSet<quint64> m_gewollte;
    quint64 m_letzte = 0;
};
} // namespace quillmar::seiten
