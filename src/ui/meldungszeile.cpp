#include "meldungszeile.h"

#include "elidiertext.h"
#include "flachknopf.h"
#include "sprache.h"
#include "stil.h"
#include "zeichen.h"
#include "zustand.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;
using Stil::abstand;

Meldungszeile::Meldungszeile(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_text(new Elidiertext(Qt::ElideRight, this)),
      m_zurueck(new Flachknopf(u"rueckgaengig"_s, u"undo"_s, Sprache::text(u"Rückgängig"_s),
                               Sprache::text(u"Dreht die letzte Bewegung zurück. Taste: U"_s), this))
{
    m_text->setObjectName(u"hinweis"_s);
    auto *reihe = new QHBoxLayout(this);
    reihe->addWidget(m_text, 1);
    reihe->addWidget(m_zurueck);
    m_zurueck->setzeMitText(true);
    connect(m_zurueck, &QToolButton::clicked, m_zustand,
            [this] { m_zustand->zurueckMoeglich() ? m_zustand->zurueck() : m_zustand->rueckgaengig(); });
    connect(m_zustand, &Zustand::hinweisGeaendert, this, &Meldungszeile::zeigen);
    connect(m_zustand, &Zustand::vorgangGeaendert, this, &Meldungszeile::zeigen);
    Stil::folgen(this, [this, reihe] {
        reihe->setContentsMargins(Stil::zeichengroesse() + abstand(6), 0, 0, 0);
        reihe->setSpacing(abstand(8));
    });
    zeigen();
}

void Meldungszeile::setzeMitText(bool mit) { m_zurueck->setzeMitText(mit); }

void Meldungszeile::zeigen()
{
    QStringList teile = {m_zustand->geschehen(), m_zustand->hinweis()};
    teile.removeAll(QString());
    // What is going on goes before what is done.
    const QString text = m_zustand->vorgang().isEmpty() ? teile.join(u" · "_s) : m_zustand->vorgang() + u" …"_s;
    const bool neu = text != m_text->ganzerText();
    m_text->setzeText(text);
    m_zurueck->setEnabled(m_zustand->zurueckMoeglich() || m_zustand->umkehrbar());
    m_zurueck->setToolTip(m_zustand->zurueckMoeglich()
                              ? Sprache::text(u"Macht genau das ungeschehen, was hier steht"_s)
                              : Sprache::text(u"Dreht die letzte Bewegung zurück. Taste: U"_s));
    update();
    if (neu && QAccessible::isActive()) {
        QAccessibleEvent ereignis(m_text, QAccessible::NameChanged);
        QAccessible::updateAccessibility(&ereignis);
    }
}

void Meldungszeile::paintEvent(QPaintEvent *)
{
    if (m_text->ganzerText().isEmpty() || m_zustand->ton() == Zustand::Ton::ruhig || !m_zustand->vorgang().isEmpty())
        return;
    QPainter maler(this);
    const int kante = Stil::zeichengroesse();
    const QString symbol =
        m_zustand->ton() == Zustand::Ton::gut ? u"checkmark.circle"_s : u"exclamationmark.triangle"_s;
    Zeichen::malen(maler, QRect(0, (height() - kante) / 2, kante, kante), symbol, palette());
}
