#pragma once

#include "dokumentlager.h"
#include "namensraeume.h"
#include "seitenordnung.h"

#include <QAbstractScrollArea>
#include <QTimer>
#include <QUrl>

namespace quillmar::vorschau
{
class PDFSteuerung;

/**
 * Shows the pages of one PDF file below each other. Files are read, opened and drawn in the background; until a page is
 * drawn in the right size, its picture in another size stands in for it, or the empty sheet.
 */
class PDFAnsicht : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PDFAnsicht(PDFSteuerung *steuerung, QWidget *eltern = nullptr);

    /** The file on show; empty: none. Setting another one shows its beginning. */
    [[nodiscard]] QUrl url() const;
    void setzeUrl(const QUrl &url);

    /** Has the first page of the file @p pfad drawn, so that setzeUrl() shows it at once. */
    void vorausladen(const QString &pfad);

    /** The first page of @p pfad is drawn, or it is known why it cannot be. */
    [[nodiscard]] bool istBereit(const QString &pfad) const;

    /** How the file on show is; "Laedt" without one. */
    [[nodiscard]] Vorschaubefund befund() const;

    [[nodiscard]] int seiten() const; ///< 0 unless a document is open
    [[nodiscard]] int seite() const;  ///< from 1: the one in the middle of the view

    /** Scale of the page on show; 1: as large as on paper. */
    [[nodiscard]] double massstab() const;
    void setzeZoom(const Zoom &zoom);

    /** Scrolls by PageUp, PageDown, Home, End, Space, Up and Down. False for any other key. */
    bool taste(const QKeyEvent *ereignis);

Q_SIGNALS:
    void befundGeaendert();

    /** The first page of @p pfad has been painted, once per showing. */
    void seiteSichtbar(const QString &pfad);

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *ereignis) override;
    void wheelEvent(QWheelEvent *ereignis) override;
    void focusInEvent(QFocusEvent *ereignis) override;
    void focusOutEvent(QFocusEvent *ereignis) override;

private:
    void geoeffnet(const QString &pfad);
    void gemalt(const QString &pfad, int seite);
    void ordnen();
    void nachOben();
    void setzeLeisten();
    void bestellen();
    void ersteSeiteBestellen(const QString &pfad);
    void seiteMalen(QPainter &maler, int seite, const QRect &flaeche);
    void wartetext(QPainter &maler, const QRect &flaeche, const QString &text);
    void fokusMalen(QPainter &maler);
    void sichtbarkeitMelden();
    [[nodiscard]] Seitenraum raum() const;
    [[nodiscard]] QPoint versatz() const;
    [[nodiscard]] QSize bildgroesse(const QRect &seite) const;
    [[nodiscard]] std::pair<int, int> sichtbare() const;

    PDFSteuerung *m_steuerung;
    Dokumentlager m_lager;
    QString m_pfad;
    QString m_voraus;
    Zoom m_zoom;
    QList<QSizeF> m_groessen;
    Seitenordnung m_ordnung;
    QTimer m_geduld; ///< runs while nothing is said yet about a page that is not there
    int m_rad = 0;   ///< turned with Ctrl, in eighths of a degree, as far as it made no step yet
    bool m_gemeldet = true;
};
} // namespace quillmar::vorschau
