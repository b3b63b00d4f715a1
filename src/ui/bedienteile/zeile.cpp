#include "zeile.h"

#include "stil.h"

#include <QHBoxLayout>
#include <QWidget>

namespace quillmar::bedienteile
{
namespace
{
constexpr int zwischenraum = 10;
}

QWidget *zeile(QWidget *eltern, const QList<QWidget *> &teile)
{
    auto *traeger = new QWidget(eltern);
    auto *reihe = new QHBoxLayout(traeger);
    reihe->setContentsMargins(0, 0, 0, 0);
    for (QWidget *teil : teile)
        reihe->addWidget(teil);
    reihe->addStretch(1);
    Stil::folgen(traeger, [reihe] { reihe->setSpacing(Stil::abstand(zwischenraum)); });
    return traeger;
}
} // namespace quillmar::bedienteile
