#include "rueckfrage.h"

#include "sprache.h"
#include "stil.h"
#include "umbruchtext.h"
#include "zeile.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;

Rueckfrage::Rueckfrage(const QString &name, const QString &knopf, QWidget *eltern)
    : QWidget(eltern), m_text(new Umbruchtext(this)), m_tun(new QPushButton(knopf)),
      m_lassen(new QPushButton(Sprache::text(u"Abbrechen"_s)))
{
    m_tun->setObjectName(name);
    m_lassen->setObjectName(name + u"-abbrechen"_s);
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addWidget(m_text);
    spalte->addWidget(zeile(this, {m_tun, m_lassen}));
    connect(m_tun, &QPushButton::clicked, this, &Rueckfrage::bestaetigt);
    connect(m_lassen, &QPushButton::clicked, this, &Rueckfrage::abgebrochen);
    Stil::folgen(this, [this, spalte] {
        spalte->setSpacing(abstand(8));
        for (QPushButton *k : {m_tun, m_lassen})
            k->setMinimumHeight(abstand(30));
    });
}

void Rueckfrage::fragen(const QString &text)
{
    m_text->setzeText(text);
    m_tun->setAccessibleDescription(text);
    show();
    m_lassen->setFocus(Qt::ShortcutFocusReason); // a focus that is to be seen
}

void Rueckfrage::keyPressEvent(QKeyEvent *ereignis)
{
    if (ereignis->key() == Qt::Key_Escape)
        Q_EMIT abgebrochen();
    else
        QWidget::keyPressEvent(ereignis);
}
} // namespace quillmar::bedienteile
