#include "zielfrage.h"

#include "ausfuehrung.h"
#include "profilwahl.h"
#include "rueckfrage.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QApplication>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::abstand;

Zielfrage::Zielfrage(Profilwahl *profilwahl, Ausfuehrung *ausfuehrung, QWidget *eltern)
    : QFrame(eltern), m_profilwahl(profilwahl), m_ausfuehrung(ausfuehrung),
      m_frage(new Rueckfrage({{.name = u"zielStimmt"_s, .text = Sprache::text(u"Der Zielordner stimmt"_s)}}, this))
{
    setObjectName(u"zielfrage"_s);
    auto *spalte = new QVBoxLayout(this);
    spalte->addWidget(m_frage);
    Stil::folgen(this, [spalte] {
        const int links = abstand(16) + Stil::zeichengroesse() + abstand(8);
        spalte->setContentsMargins(links, abstand(10), abstand(16), abstand(10));
    });
    connect(m_ausfuehrung, &Ausfuehrung::zielFraglich, this, &Zielfrage::fragen);
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Zielfrage::schliessen);
    connect(m_frage, &Rueckfrage::abgebrochen, this, &Zielfrage::schliessen);
    connect(m_frage, &Rueckfrage::bestaetigt, this, [this] {
        schliessen();
        m_ausfuehrung->zielBestaetigen();
    });
    hide();
}

void Zielfrage::fragen()
{
    if (!m_profilwahl->aktiv())
        return;
    m_fokusVorher = QApplication::focusWidget();
    show();
    m_frage->fragen(
        gefuellt(Sprache::text(u"Im Zielordner %@ liegt nichts von dem, was zuletzt dort einsortiert wurde. Ist sein "
                               "Datenträger nicht eingehängt, hänge ihn ein und versuche es noch einmal. Hast du die "
                               "Ablage selbst verlegt, bestätige den Ordner."_s),
                 {m_profilwahl->aktiv()->zielWurzel}));
}

/** A band of its own, as a warning among the notes: the page above it ends here. */
void Zielfrage::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    const QColor farbe = Stil::farbe(Stil::Bedeutung::Warnung, palette());
    maler.fillRect(rect(), Stil::toenung(farbe, palette()));
    maler.fillRect(0, 0, width(), 1, farbe);
    const int kante = Stil::zeichengroesse();
    const int oben = abstand(10) + (fontMetrics().lineSpacing() - kante) / 2;
    Zeichen::malen(maler, QRect(abstand(16), oben, kante, kante), Symbol::Warnung, palette());
}

void Zielfrage::schliessen()
{
    if (isHidden())
        return;
    hide();
    if (m_fokusVorher && m_fokusVorher->isVisible())
        m_fokusVorher->setFocus();
}
} // namespace quillmar::ui
