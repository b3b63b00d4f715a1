#include "hinweisfeld.h"

#include "bau.h"
#include "farben.h"
#include "sprache.h"
#include "textschild.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPushButton>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
Hinweisfeld::Hinweisfeld(Symbol symbol, const QString &text, const QList<Antwort> &antworten, QWidget *eltern)
    : QWidget(eltern), m_symbol(symbol), m_text(new Textschild)
{
    m_text->setzen(symbol, text);
    Kette *knoepfe = reihe({});
    for (const Antwort &antwort : antworten) {
        m_knoepfe << bedienteile::knopf(antwort.name, antwort.text, antwort.hilfe);
        knoepfe->addWidget(m_knoepfe.last());
        connect(m_knoepfe.last(), &QPushButton::clicked, this,
                [this, stelle = int(m_knoepfe.size()) - 1] { Q_EMIT gedrueckt(stelle); });
    }
    Kette *alles = reihe({{m_text, 1}, {knoepfe, 0}});
    alles->setAlignment(m_text, Qt::Alignment());
    fuellen(this, alles, Abstand::Nah, Abstand::Eng);
    QSizePolicy regel(QSizePolicy::Expanding, QSizePolicy::Minimum);
    regel.setHeightForWidth(true);
    setSizePolicy(regel);
    if (m_knoepfe.size() < 2)
        return;
    // A question in one line where there is room for it beside its answers.
    new Nachgeben(this, 1, [alles, knoepfe](int stufe) {
        alles->setDirection(stufe == 0 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
        alles->setAlignment(knoepfe, stufe == 0 ? Qt::Alignment() : Qt::AlignLeft);
    });
}

void Hinweisfeld::setzeText(const QString &text)
{
    m_text->setzen(m_symbol, text);
    for (QPushButton *knopf : std::as_const(m_knoepfe))
        knopf->setAccessibleDescription(QString(text + u' ' + knopf->toolTip()).trimmed());
}

bool Hinweisfeld::hatFokus() const
{
    return std::any_of(m_knoepfe.begin(), m_knoepfe.end(), [](const QPushButton *knopf) { return knopf->hasFocus(); });
}

void Hinweisfeld::paintEvent(QPaintEvent *)
{
    constexpr int leiste = 3;
    QPainter maler(this);
    const bool warnung = m_symbol == Symbol::Warnung;
    const QColor farbe =
        warnung ? Farben::farbe(Farben::Bedeutung::Warnung, palette()) : Farben::akzentmarke(palette());
    if (warnung)
        maler.fillRect(rect(), Farben::toenung(farbe, palette()));
    maler.fillRect(QRect(0, 0, leiste, height()), farbe);
}

Rueckfrage::Rueckfrage(const QList<Antwort> &antworten)
    : Rueckfrage(antworten, {.name = antworten.first().name + u"-abbrechen"_s, .text = Sprache::text(u"Abbrechen"_s)})
{
}

Rueckfrage::Rueckfrage(const QList<Antwort> &antworten, const Antwort &abbrechen)
    : Hinweisfeld(Symbol::Warnung, {}, antworten + QList{abbrechen}), m_letzte(int(antworten.size()))
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
