#pragma once

#include "namensraeume.h"
#include "stil.h"

#include <QLayout>

namespace quillmar::bedienteile
{
/** Puts its widgets side by side and goes on in the next line where there is no more room. */
class Flussreihe : public QLayout
{
    Q_OBJECT

public:
    explicit Flussreihe(Stil::Abstand abstand) : m_abstand(abstand) {}
    ~Flussreihe() override;

    [[nodiscard]] int spacing() const override { return Stil::abstand(m_abstand); }
    void addItem(QLayoutItem *teil) override { m_teile << teil; }
    [[nodiscard]] int count() const override { return int(m_teile.size()); }
    [[nodiscard]] QLayoutItem *itemAt(int stelle) const override { return m_teile.value(stelle); }
    QLayoutItem *takeAt(int stelle) override;
    [[nodiscard]] Qt::Orientations expandingDirections() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return true; }
    [[nodiscard]] int heightForWidth(int breite) const override { return legen({0, 0, breite, 0}, false); }
    void setGeometry(const QRect &flaeche) override;
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSize() const override;

private:
    int legen(const QRect &flaeche, bool setzen) const;

    Stil::Abstand m_abstand;
    QList<QLayoutItem *> m_teile;
};
} // namespace quillmar::bedienteile
