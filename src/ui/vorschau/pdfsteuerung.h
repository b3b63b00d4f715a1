#pragma once

#include "namensraeume.h"
#include "seitenordnung.h"

#include <QObject>
#include <QPointer>
#include <array>

namespace quillmar::vorschau
{
class PDFAnsicht;

/**
 * Controls the preview of documents: zoom and the page on show. Each document begins in the fit that was chosen last,
 * which stays over restarts of the program too; a step of the zoom is for the document on show.
 */
class PDFSteuerung : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int seiten READ seiten NOTIFY geaendert)
    Q_PROPERTY(int seite READ seite NOTIFY geaendert)
    Q_PROPERTY(bool passtBreite READ passtBreite NOTIFY geaendert)

public:
    static constexpr std::array stufen{0.25, 0.4, 0.5, 0.65, 0.8, 1.0, 1.25, 1.6, 2.0, 2.5, 3.0, 4.0};

    explicit PDFSteuerung(QObject *eltern = nullptr);

    /** The first step above and the last below @p massstab; the outermost step where there is none. */
    [[nodiscard]] static double stufeUeber(double massstab);
    [[nodiscard]] static double stufeUnter(double massstab);

    /** Takes control of @p ansicht, which may go at any time. */
    void setzeAnsicht(PDFAnsicht *ansicht);
    [[nodiscard]] PDFAnsicht *ansicht() const;

    [[nodiscard]] int seiten() const { return m_seiten; } ///< 0: no document is open
    [[nodiscard]] int seite() const { return m_seite; }   ///< from 1
    [[nodiscard]] bool passtBreite() const { return m_zoom.art == Zoom::Art::Breite; }
    [[nodiscard]] bool zeigtGanzeSeite() const { return m_zoom.art == Zoom::Art::Seite; }

    /** One step up or down from the present scale, leaving fit-width mode. */
    void groesser();
    void kleiner();

    /** Fits the width and goes on doing so when the view's size changes. */
    void breiteSetzen();

    /** Shows the whole page and goes on doing so when the view's size changes. */
    void ganzeSeiteSetzen();

    /** Another document: back to the chosen fit. */
    void anfangen();

    /** Reads page and page count from the view. */
    void standZeigen();

Q_SIGNALS:
    void geaendert();

private:
    void setzeZoom(const Zoom &zoom);

    QPointer<PDFAnsicht> m_ansicht;
    Zoom m_zoom;
    Zoom m_passung; ///< fit in which the next document begins
    int m_seiten = 0;
    int m_seite = 1;
};
} // namespace quillmar::vorschau
