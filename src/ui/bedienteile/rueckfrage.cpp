#include "rueckfrage.h"

#include "sprache.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
Rueckfrage::Rueckfrage(const QList<Antwort> &antworten, QWidget *eltern)
    : Rueckfrage(antworten, {.name = antworten.first().name + u"-abbrechen"_s, .text = Sprache::text(u"Abbrechen"_s)},
                 eltern)
{
}

Rueckfrage::Rueckfrage(const QList<Antwort> &antworten, const Antwort &abbrechen, QWidget *eltern)
    : Hinweisfeld(Symbol::Warnung, {}, antworten + QList{abbrechen}, eltern), m_letzte(int(antworten.size()))
{
    connect(this, &Hinweisfeld::gedrueckt, this, [this](int welche) {
        schliessen();
        welche == m_letzte ? Q_EMIT abgebrochen() : Q_EMIT bestaetigt(welche);
    });
    hide();
}

void Rueckfrage::fragen(const QString &text, int fokus)
{
    setzeText(text);
    m_fokusVorher = QApplication::focusWidget();
    show();
    knopf(fokus < 0 ? m_letzte : fokus)->setFocus(Qt::ShortcutFocusReason); // a focus that is to be seen
}

void Rueckfrage::schliessen()
{
    const bool fokus = hatFokus();
    hide();
    if (fokus && m_fokusVorher && m_fokusVorher->isVisible())
        m_fokusVorher->setFocus();
}

void Rueckfrage::keyPressEvent(QKeyEvent *ereignis)
{
    if (ereignis->key() == Qt::Key_Escape)
        knopf(m_letzte)->click();
    else
        QWidget::keyPressEvent(ereignis);
}
} // namespace quillmar::bedienteile
