#pragma once

#include "namensraeume.h"

#include <QPushButton>

namespace quillmar::bedienteile
{
/** The one filled button of a card, the one that goes on: drawn in the accent, with text that reads upon it. */
class Hauptknopf : public QPushButton
{
    Q_OBJECT

public:
    explicit Hauptknopf(const QString &text = {}, QWidget *eltern = nullptr);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    [[nodiscard]] QColor grundfarbe() const;
};

/** Height of the buttons in the row of a filled one. */
[[nodiscard]] int knopfhoehe();
} // namespace quillmar::bedienteile
