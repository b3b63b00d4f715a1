#pragma once

#include "namensraeume.h"
#include "textkarte.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

class QMouseEvent;

namespace quillmar::vorschau
{
class PDFAnsicht;
class Textebene;

/**
 * The mouse on the pages: over words it selects, or takes them for a field; on empty ground, and with its middle button
 * everywhere, it moves the page. A press that only gives the window the focus takes nothing. The pointer tells which.
 */
class Textgriff : public QObject
{
    Q_OBJECT

public:
    Textgriff(PDFAnsicht *ansicht, Textebene *text);

    /** Words are taken, not selected. */
    void setzeNehmen(bool nehmen);
    /** Forgets what a press has begun. */
    void abbrechen();
    void zeigerStellen();

    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;

Q_SIGNALS:
    void genommen(const Wortgriff &griff);

private:
    enum class Tat { Keine, Waehlen, Nehmen, Schieben };

    bool druecken(const QMouseEvent &ereignis);
    bool doppelt(const QMouseEvent &ereignis);
    bool bewegen(const QMouseEvent &ereignis);
    bool loslassen(const QMouseEvent &ereignis);
    void ziehen();
    void nachrollen();
    [[nodiscard]] std::optional<Wortort> wortBei(const QPoint &punkt) const;
    [[nodiscard]] Qt::CursorShape zeiger() const;

    PDFAnsicht *m_ansicht;
    Textebene *m_text;
    bool m_nehmen = false;
    Tat m_tat = Tat::Keine; ///< what the button that is held down does
    Qt::MouseButton m_taste = Qt::NoButton;
    std::optional<Wortort> m_anker; ///< the word that it was pressed on
    QPoint m_beginn;
    QPoint m_punkt;             ///< where the mouse is
    QPoint m_versatz;           ///< of the pages when it was pressed
    bool m_gezogen = false;     ///< moved far enough to be no click
    bool m_aktivierend = false; ///< the press has given the window the focus
    QTimer m_ebenAktiv;         ///< runs when the window has just got the focus
    QTimer m_nachrollen;        ///< runs while words are dragged over beyond the edge
};
} // namespace quillmar::vorschau
