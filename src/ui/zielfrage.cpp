#include "zielfrage.h"

#include "rueckfrage.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zustand.h"

#include <QApplication>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using Stil::abstand;

Zielfrage::Zielfrage(Zustand *zustand, QWidget *eltern)
    : QFrame(eltern), m_zustand(zustand),
      m_frage(new Rueckfrage(u"zielStimmt"_s, Sprache::text(u"Der Zielordner stimmt"_s), this))
{
    setObjectName(u"zielfrage"_s);
    auto *spalte = new QVBoxLayout(this);
    spalte->addWidget(m_frage);
    Stil::folgen(this, [spalte] { spalte->setContentsMargins(abstand(16), abstand(12), abstand(16), abstand(12)); });
    connect(m_zustand, &Zustand::zielFraglich, this, &Zielfrage::fragen);
    connect(m_zustand, &Zustand::aktivGeaendert, this, &Zielfrage::schliessen);
    connect(m_frage, &Rueckfrage::abgebrochen, this, &Zielfrage::schliessen);
    connect(m_frage, &Rueckfrage::bestaetigt, this, [this] {
        schliessen();
        m_zustand->zielBestaetigen();
    });
    hide();
}

void Zielfrage::fragen()
{
    if (!m_zustand->aktiv())
        return;
    m_fokusVorher = QApplication::focusWidget();
    show();
    m_frage->fragen(
        gefuellt(Sprache::text(u"Im Zielordner %@ liegt nichts von dem, was zuletzt dort einsortiert wurde. Ist sein "
                               "Datenträger nicht eingehängt, hänge ihn ein und versuche es noch einmal. Hast du deine "
                               "Ablage selbst verlegt, sage hier, dass der Ordner stimmt."_s),
                 {m_zustand->aktiv()->zielWurzel}));
}

void Zielfrage::schliessen()
{
    if (isHidden())
        return;
    hide();
    if (m_fokusVorher && m_fokusVorher->isVisible())
        m_fokusVorher->setFocus();
}
