#pragma once

#include "namensraeume.h"
#include "stil.h"
#include "zeichen.h"

#include <QLabel>

class QTextLayout;

namespace quillmar::bedienteile
{
/**
 * Plain text that never widens the window, perhaps behind a mark. It wraps wherever it must, in the middle of long
 * words too, or stays one line whose middle (names, paths) or end (sentences) is left out and stands in the tool tip.
 */
class Textschild : public QLabel
{
    Q_OBJECT

public:
    enum class Art { Umbruch, KurzMitte, KurzEnde };
    explicit Textschild(Art art = Art::Umbruch, Schrift schrift = Schrift::Grund, const QString &name = {});

    /** The whole text. */
    void setzeText(const QString &text) { setzen(m_symbol, text); }
    void setzen(Symbol symbol, const QString &text);
    /** With a mark as it is, without one as secondary text: what was found out, or else an explanation. */
    void befund(Symbol symbol, const QString &text);
    /** What the text means: its tool tip, below the whole text where that is cut off, and its description. */
    void setzeHilfe(const QString &hilfe);
    [[nodiscard]] const QString &ganzerText() const { return m_text; }

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int breite) const override;

protected:
    void paintEvent(QPaintEvent *ereignis) override;
    void resizeEvent(QResizeEvent *ereignis) override;
    void changeEvent(QEvent *ereignis) override;

private:
    [[nodiscard]] int einzug() const;
    [[nodiscard]] int zeilenLegen(QTextLayout &satz, int breite) const;
    void einpassen();

    Art m_art;
    Symbol m_symbol = Symbol::Keines;
    QString m_text;
    QString m_hilfe;
};
} // namespace quillmar::bedienteile
