#pragma once

#include "namensraeume.h"

#include <QPushButton>

namespace quillmar::bedienteile
{
/** A push button of the platform with even room around its text, as tall as a field or as a filled button. */
class Knopf : public QPushButton
{
    Q_OBJECT

public:
    enum class Hoehe { Feld, Haupt };
    explicit Knopf(const QString &name, const QString &text = {}, QWidget *eltern = nullptr, Hoehe hoehe = Hoehe::Feld);
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *ereignis) override;

private:
    Hoehe m_hoehe;
};
} // namespace quillmar::bedienteile
