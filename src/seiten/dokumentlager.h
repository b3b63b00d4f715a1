#pragma once

#include "namensraeume.h"
#include "seitenwerk.h"

#include <QHash>
#include <QImage>
#include <QObject>
#include <QStringList>

namespace quillmar::seiten
{
/** A document of the preview as far as it is known by now. */
struct Vorschaudokument : Dokumentstand {
    quint64 kennung = 0;
    QHash<int, QImage> bilder;              ///< what is drawn, in the size that was last asked for
    QHash<int, QSize> bestellt;             ///< sizes that were asked for; a page whose picture is null cannot be drawn
    QHash<int, Vorschaubefund> gescheitert; ///< pages that the process has failed at; not asked for again

    [[nodiscard]] bool istUndarstellbar(int seite) const
    {
        const auto bild = bilder.constFind(seite);
        return bild != bilder.constEnd() && bild->isNull();
    }
};

/**
 * The few documents that the preview has open: the one on show, the next one and those just left, so that going back
 * and forth needs no reading. Whether a file is still what was read is looked up each time it comes on show again.
 */
class Dokumentlager : public QObject
{
    Q_OBJECT

public:
    explicit Dokumentlager(const Malgrenzen &grenzen = {}, QObject *eltern = nullptr);

    /**
     * Has @p pfad read and opened, unless it is here, or once more where the process had failed at it; frees the one
     * that was not asked for longest.
     */
    void holen(const QString &pfad, Vorrang vorrang = Vorrang::Sofort);

    /** Counts as the last that was asked for. */
    void vorziehen(const QString &pfad);

    /** The document, or nullptr when it was not asked for. Valid until the next holen() or signal. */
    [[nodiscard]] const Vorschaudokument *dokument(const QString &pfad) const;

    /** The first page of @p pfad is drawn, or it is known why it cannot be. */
    [[nodiscard]] bool istBereit(const QString &pfad) const;

    /**
     * Asks for a page of an open document in the size @p pixel, unless it is drawn or the process has failed at it; a
     * large one is not drawn as a neighbour. True when there is no picture of it at all and it had not been asked for.
     */
    bool bestellen(const QString &pfad, int seite, const QSize &pixel, Vorrang vorrang);

    /**
     * @p pfad is no longer on show: forgets what is not drawn yet, what failed, and all pictures but that of the first
     * page, unless it is large.
     */
    void verlassen(const QString &pfad);

    /** Frees the pictures of pages of @p pfad that are not near those from @p von to @p bis, which are seen. */
    void ausduennen(const QString &pfad, int von, int bis);

Q_SIGNALS:
    void geoeffnet(const QString &pfad);
    void gemalt(const QString &pfad, int seite);

private:
    void aufraeumen();
    void vergessen(const QString &pfad, quint64 ausser = 0);
    void aufnehmen(quint64 kennung, const Dokumentstand &stand);
    void bildAufnehmen(quint64 kennung, int seite, const QImage &bild, Vorschaubefund befund);

    Seitenwerk m_werk;
    QHash<QString, Vorschaudokument> m_dokumente;
    QHash<quint64, QString> m_pfade; ///< of all numbers that may still be told of
    QStringList m_reihenfolge;       ///< last asked for first
};
} // namespace quillmar::seiten
