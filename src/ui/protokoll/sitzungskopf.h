#pragma once

#include "namensraeume.h"
#include "protokollzeile.h"

#include <QList>
#include <QWidget>

namespace quillmar::bedienteile
{
class Elidiertext;
} // namespace quillmar::bedienteile

namespace quillmar::protokoll
{
/** Under which conditions the shown session was worked: a row each, or one line where there is little height. */
class Sitzungskopf : public QWidget
{
    Q_OBJECT

public:
    explicit Sitzungskopf(QWidget *eltern = nullptr);
    /** Without a header every condition is unknown. */
    void zeigen(const std::optional<Protokollkopf> &kopf);
    void setzeDicht(bool dicht);
    /** Height with a row for each condition. */
    [[nodiscard]] int volleHoehe() const;

private:
    QWidget *m_tafel;
    Elidiertext *m_kurz;
    QList<Elidiertext *> m_werte;
};
} // namespace quillmar::protokoll
