#include "hinweisfach.h"

#include "hinweisfeld.h"
#include "sprache.h"
#include "stil.h"
#include "zustand.h"

#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using Art = Pruefhinweis::Art;

Hinweisfach::Hinweisfach(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_spalte(new QVBoxLayout(this))
{
    setObjectName(u"hinweise"_s);
    m_spalte->setContentsMargins(0, 0, 0, 0);
    for (const auto signal : {&Zustand::aktuellesGeaendert, &Zustand::angabenGeaendert, &Zustand::profileGeaendert})
        connect(m_zustand, signal, this, &Hinweisfach::zeigen);
    Stil::folgen(this, [this] { m_spalte->setSpacing(Stil::abstand(4)); });
    zeigen();
}

void Hinweisfach::zeigen()
{
    const QList<Pruefhinweis> hinweise = m_zustand->pruefhinweise();
    if (hinweise == m_gezeigte)
        return;
    m_gezeigte = hinweise;
    while (QLayoutItem *teil = m_spalte->takeAt(0)) {
        teil->widget()->hide();
        teil->widget()->deleteLater();
        delete teil;
    }
    for (const Pruefhinweis &hinweis : hinweise)
        dazu(hinweis);
    updateGeometry();
}

void Hinweisfach::dazu(const Pruefhinweis &hinweis)
{
    QString symbol = hinweis.istWarnung() ? u"exclamationmark.triangle"_s : u"info.circle"_s;
    QString knopf;
    if (hinweis.art == Art::AndererOrt) {
        knopf = Sprache::text(u"Alten Ort behalten"_s);
    } else if (hinweis.art == Art::Aehnlich) {
        symbol = u"doc.on.doc"_s;
        knopf = Sprache::text(u"Ansehen"_s);
    }
    auto *feld = new Hinweisfeld(hinweis.istWarnung(), symbol, hinweis.text, knopf, this);
    m_spalte->addWidget(feld);
    feld->show();
    if (hinweis.art == Art::AndererOrt) {
        feld->knopf()->setObjectName(u"altenOrtBehalten"_s);
        connect(feld, &Hinweisfeld::gedrueckt, m_zustand, &Zustand::altenOrtBehalten);
    } else if (hinweis.art == Art::Aehnlich) {
        feld->knopf()->setObjectName(u"partnerZeigen"_s);
        feld->knopf()->setToolTip(Sprache::text(u"Zeigt das ähnliche Dokument in der Vorschau"_s));
        connect(feld, &Hinweisfeld::gedrueckt, m_zustand, [this] { m_zustand->setzePartnerZeigen(true); });
    }
}
