#include "hinweisfach.h"

#include "bau.h"
#include "hinweisfeld.h"
#include "pruefung.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
using Art = Pruefhinweis::Art;

Hinweisfach::Hinweisfach(Pruefung *pruefung, QWidget *eltern)
    : QWidget(eltern), m_pruefung(pruefung), m_spalte(spalte({}, Abstand::Eng))
{
    setObjectName(u"hinweise"_s);
    setLayout(m_spalte);
    for (const auto signal : {&Pruefung::aktuellesGeaendert, &Pruefung::angabenGeaendert})
        connect(m_pruefung, signal, this, &Hinweisfach::zeigen);
    zeigen();
}

/** A note that stays keeps its field, and with it the focus of its button. */
void Hinweisfach::zeigen()
{
    const QList<Pruefhinweis> hinweise = m_pruefung->pruefhinweise();
    if (hinweise == m_gezeigte)
        return;
    QList<Hinweisfeld *> felder(hinweise.size(), nullptr);
    for (qsizetype n = 0; n < m_gezeigte.size(); ++n) {
        if (const qsizetype stelle = hinweise.indexOf(m_gezeigte.at(n)); stelle >= 0 && !felder.at(stelle))
            felder[stelle] = m_felder.at(n);
        else
            entfernen(m_felder.at(n));
    }
    for (qsizetype n = 0; n < hinweise.size(); ++n) {
        if (!felder.at(n))
            felder[n] = neues(hinweise.at(n));
        m_spalte->insertWidget(int(n), felder.at(n));
        felder.at(n)->show();
    }
    m_gezeigte = hinweise;
    m_felder = felder;
    tabReihe();
    updateGeometry();
}

void Hinweisfach::entfernen(Hinweisfeld *feld)
{
    m_spalte->removeWidget(feld);
    feld->hide();
    feld->deleteLater();
}

/** The row begins where this widget stands in it; Qt puts nothing behind one that takes no focus. */
void Hinweisfach::tabReihe()
{
    setFocusPolicy(Qt::TabFocus);
    QWidget *vorher = this;
    for (const Hinweisfeld *feld : std::as_const(m_felder)) {
        if (!feld->knopf())
            continue;
        setTabOrder(vorher, feld->knopf());
        vorher = feld->knopf();
    }
    setFocusPolicy(Qt::NoFocus);
}

Hinweisfeld *Hinweisfach::neues(const Pruefhinweis &hinweis)
{
    Symbol symbol = hinweis.istWarnung() ? Symbol::Warnung : Symbol::Info;
    QList<Hinweisfeld::Antwort> antworten;
    if (hinweis.art == Art::AndererOrt) {
        antworten << Hinweisfeld::Antwort{.name = u"altenOrtBehalten"_s,
                                          .text = Sprache::text(u"Alten Ort behalten"_s)};
    } else if (hinweis.art == Art::Aehnlich) {
        symbol = Symbol::Dublette;
        antworten << Hinweisfeld::Antwort{.name = u"partnerZeigen"_s,
                                          .text = Sprache::text(u"Ansehen"_s),
                                          .hilfe = Sprache::text(u"Zeigt das ähnliche Dokument in der Vorschau"_s)};
    }
    auto *feld = new Hinweisfeld(symbol, hinweis.text, antworten, this);
    connect(feld, &Hinweisfeld::gedrueckt, this, [this, art = hinweis.art] {
        art == Art::AndererOrt ? m_pruefung->altenOrtBehalten() : m_pruefung->setzePartnerZeigen(true);
    });
    return feld;
}
} // namespace quillmar::pruefung
