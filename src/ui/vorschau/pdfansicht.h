#pragma once

#include "dokumentlager.h"
#include "namensraeume.h"
#include "seitenordnung.h"
#include "textebene.h"
#include "textgriff.h"

#include <QAbstractScrollArea>
#include <QTimer>
#include <QUrl>
#include <array>

namespace quillmar::vorschau
{
/**
 * Shows the pages of one PDF file below each other. Files are read, opened and drawn in the background; until a page is
 * drawn in the right size, its picture in another size stands in for it, or the empty sheet. Each document begins in
 * the fit that was chosen last, which stays over restarts of the program too; a step of the zoom is for the document on
 * show.
 */
class PDFAnsicht : public QAbstractScrollArea
{
    Q_OBJECT

public:
    static constexpr auto stufen = Zoom::stufen;

    explicit PDFAnsicht(const Malgrenzen &grenzen = {}, QWidget *eltern = nullptr);

    /** The file on show; empty: none. Setting another one shows its beginning. */
    [[nodiscard]] QUrl url() const;
    void setzeUrl(const QUrl &url);

    /**
     * Degrees clockwise, a multiple of 90, by which pages (from 1) are turned to be upright, by the path of their file;
     * for all files that are not told they are shown as they lie.
     */
    void setzeDrehungen(const QHash<QString, QMap<int, int>> &drehungen);
    /** Turns the page on show by @p grad to the right, and says so. */
    void drehen(int grad);

    /** Has the first page of the file @p pfad drawn, so that setzeUrl() shows it at once. */
    void vorausladen(const QString &pfad);

    /** The first page of @p pfad is drawn, or it is known why it cannot be. */
    [[nodiscard]] bool istBereit(const QString &pfad) const { return m_lager.istBereit(pfad); }

    [[nodiscard]] Vorschaubefund befund() const; ///< of the file on show
    [[nodiscard]] int seiten() const;            ///< 0 unless a document is open
    [[nodiscard]] bool hatWeitere() const;       ///< pages that cannot be shown
    /** The first and the last page in sight, from 0. */
    [[nodiscard]] std::pair<int, int> sichtbare() const;
    [[nodiscard]] int seite() const; ///< from 1: the one in the middle of the view
    /** What stands in place of the page on show, which cannot be drawn; empty: nothing. */
    [[nodiscard]] QString seitensatz() const;
    [[nodiscard]] double massstab() const; ///< of the page on show; 1: as large as on paper
    [[nodiscard]] bool passtBreite() const { return m_zoom.art == Zoom::Art::Breite; }
    [[nodiscard]] bool zeigtGanzeSeite() const { return m_zoom.art == Zoom::Art::Seite; }

    /** One step up or down from the present scale, leaving fit-width mode. */
    void groesser() { setzeZoom(Zoom::ueber(massstab())); }
    void kleiner() { setzeZoom(Zoom::unter(massstab())); }

    /** Fits the width, or shows the whole page, and goes on doing so when the view's size changes. */
    void breiteSetzen() { setzeZoom({Zoom::Art::Breite}); }
    void ganzeSeiteSetzen() { setzeZoom({Zoom::Art::Seite}); }

    /** What is known of the text on the pages; for the file on show it is laid over them. */
    [[nodiscard]] Textebene &text() { return m_text; }
    [[nodiscard]] const Textebene &text() const { return m_text; }
    /** A click on a word takes it, dragging over words takes them; else words are selected. */
    void setzeNehmen(bool nehmen) { m_griff.setzeNehmen(nehmen); }
    /** Scrolls to @p marke unless it is wholly in sight; once its page is there, while the document is being opened. */
    void hinsehen(const Marke &marke);
    /** Looks for @p anfrage from the page in sight on, and scrolls to the find; empty: the search is over. */
    void suchen(const QString &anfrage);
    void weitersuchen(int schritt);

    /** The page at @p punkt of the viewport, or next below it, and the place in shares of it; beyond 0 to 1 outside. */
    [[nodiscard]] std::pair<int, QPointF> seitenpunkt(const QPoint &punkt) const;
    /** Of the viewport's top left from that of the whole. */
    [[nodiscard]] QPoint versatz() const;

    /** Tells when page or page count are no longer what was told last. */
    void standZeigen();

    /**
     * Scrolls by PageUp, PageDown, Home, End, Space, Up and Down; copies, selects all, ends the selection. False for
     * any other key.
     */
    bool taste(const QKeyEvent *ereignis);

Q_SIGNALS:
    void
    geaendert(); ///< page, page count, a sentence in place of a page; the fit, also when it was chosen a second time
    void befundGeaendert();
    /** The page @p seite (from 1) of @p pfad was turned by hand, to @p drehung degrees clockwise. */
    void gedreht(const QString &pfad, int seite, int drehung);

    /** A word was clicked on, or words were dragged over, to be taken. */
    void genommen(const Wortgriff &griff);

    /** The first page of @p pfad has been painted, once per showing. */
    void seiteSichtbar(const QString &pfad);

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *) override { ordnen(); }
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *ereignis) override;
    void wheelEvent(QWheelEvent *ereignis) override;
    void focusInEvent(QFocusEvent *) override { viewport()->update(); }
    void focusOutEvent(QFocusEvent *) override { viewport()->update(); }

private:
    void setzeZoom(const Zoom &zoom);
    void geoeffnet(const QString &pfad);
    void ordnen();
    void setzeLeisten();
    void bestellen();
    void ersteSeiteBestellen(const QString &pfad);
    void groessenUebernehmen();
    [[nodiscard]] int drehung(const QString &pfad, int seite) const;
    [[nodiscard]] QSize zeichengroesse(const QString &pfad, int seite, const QSize &flaeche) const;
    void seiteMalen(QPainter &maler, int seite, const QRect &flaeche);
    void sichtbarkeitMelden();
    [[nodiscard]] Seitenraum raum() const;
    bool texttaste(const QKeyEvent *ereignis);
    void hinrollen(int seite, const QList<QRectF> &orte);
    void zumTreffer();

    Dokumentlager m_lager;
    QString m_pfad;
    QString m_voraus;
    Zoom m_passung; ///< fit in which the next document begins
    Zoom m_zoom;
    QHash<QString, QMap<int, int>> m_drehungen; ///< by path and page from 1
    QList<QSizeF> m_groessen{a4};               ///< of the pages as they are shown
    Seitenordnung m_ordnung;
    std::array<int, 4> m_stand{}; ///< page, page count and pages in sight as told last
    QTimer m_geduld;              ///< runs while nothing is said yet about a page that is not there
    int m_rad = 0;                ///< turned with Ctrl, in eighths of a degree, as far as it made no step yet
    bool m_gemeldet = true;
    Textebene m_text;
    std::optional<Marke> m_hinzusehen; ///< as soon as its page is there
    Textgriff m_griff{this, &m_text};
};
} // namespace quillmar::vorschau
