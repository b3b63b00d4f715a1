#include "fokushalter.h"

#include <QApplication>

namespace quillmar::vorschau
{
namespace
{
/** A click on @p flaeche gives the focus to @p ziel, which it does not lose if it has it; null: as without all this. */
void leiten(QWidget *flaeche, QWidget *ziel, Qt::FocusPolicy wie)
{
    // With a proxy in place the policy would become that of the proxy.
    flaeche->setFocusProxy(nullptr);
    flaeche->setFocusPolicy(wie);
    flaeche->setFocusProxy(ziel);
}
} // namespace

Fokushalter::Fokushalter(QWidget *ansicht, QWidget *sichtfeld, QList<QWidget *> flaechen)
    : m_ansicht(ansicht), m_sichtfeld(sichtfeld), m_flaechen(std::move(flaechen)), m_gewohnt(ansicht->focusPolicy())
{
    connect(qApp, &QApplication::focusChanged, this, [this] {
        if (m_an)
            halten();
    });
}

void Fokushalter::setzeAn(bool an)
{
    if (an == m_an)
        return;
    m_an = an;
    if (an) {
        m_ansicht->setFocusPolicy(Qt::TabFocus);
        halten();
        return;
    }
    for (QWidget *flaeche : std::as_const(m_flaechen))
        leiten(flaeche, nullptr, Qt::NoFocus);
    leiten(m_sichtfeld, m_ansicht, Qt::NoFocus);
    m_ansicht->setFocusPolicy(m_gewohnt);
}

void Fokushalter::halten()
{
    QWidget *feld = QApplication::focusWidget();
    // What is shown here itself has nothing to be taken for; while another window is active, the field stays it.
    if (!feld || m_ansicht->parentWidget()->isAncestorOf(feld))
        return;
    for (QWidget *flaeche : std::as_const(m_flaechen))
        leiten(flaeche, feld, Qt::ClickFocus);
    leiten(m_sichtfeld, feld, Qt::ClickFocus);
}
} // namespace quillmar::vorschau
