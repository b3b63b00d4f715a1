#pragma once

#include "namensraeume.h"

#include <QLabel>

class QTextLayout;

namespace quillmar::bedienteile
{
/** Plain text that wraps wherever it must, in the middle of long words too; never left out, never wider than its room.
 */
class Umbruchtext : public QLabel
{
    Q_OBJECT

public:
    explicit Umbruchtext(QWidget *eltern = nullptr);

    void setzeText(const QString &text);
    [[nodiscard]] const QString &ganzerText() const { return m_text; }
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    [[nodiscard]] int heightForWidth(int breite) const override;

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    int zeilenLegen(QTextLayout &satz, int breite) const;

    QString m_text;
};
} // namespace quillmar::bedienteile
