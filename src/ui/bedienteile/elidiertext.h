#pragma once

#include "namensraeume.h"

#include <QLabel>

namespace quillmar::bedienteile
{
/** One line of plain text that never widens the window: what does not fit is left out, and stands in the tool tip. */
class Elidiertext : public QLabel
{
    Q_OBJECT

public:
    /** @p wo: in the middle for names and paths, at the end for sentences. */
    explicit Elidiertext(Qt::TextElideMode wo, QWidget *eltern = nullptr);

    /** The whole text. */
    void setzeText(const QString &text);
    /** What the text means: its tool tip, below the whole text where that is cut off, and its description. */
    void setzeHilfe(const QString &hilfe);
    [[nodiscard]] const QString &ganzerText() const { return m_text; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *ereignis) override;
    void changeEvent(QEvent *ereignis) override;

private:
    void einpassen();

    Qt::TextElideMode m_wo;
    QString m_text;
    QString m_hilfe;
};
} // namespace quillmar::bedienteile
