#pragma once

#include "namensraeume.h"
#include "zeichen.h"

#include <QToolButton>

namespace quillmar::bedienteile
{
/** A flat button with icon and text that can drop its text, which stays as tool tip. */
class Flachknopf : public QToolButton
{
    Q_OBJECT

public:
    /** @p symbol names the icon, see Zeichen; empty: none. @p titel may be shown beside it; @p hilfe says what it does.
     */
    Flachknopf(const QString &name, Symbol symbol, const QString &titel, const QString &hilfe,
               QWidget *eltern = nullptr);

    void setzeMitText(bool mit);
    void setzeHilfe(const QString &titel, const QString &hilfe);
    /** As tall as a filled button. */
    void setzeHoch();
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    bool m_hoch = false;
};
} // namespace quillmar::bedienteile
