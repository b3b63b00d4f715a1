#include "meldungszeile.h"

#include "ausfuehrung.h"
#include "bau.h"
#include "meldestelle.h"
#include "pruefung.h"
#include "sprache.h"
#include "textschild.h"

#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
Symbol tonzeichen(Meldestelle::Ton ton)
{
    if (ton == Meldestelle::Ton::Ruhig)
        return Symbol::Keines;
    return ton == Meldestelle::Ton::Gut ? Symbol::Gut : Symbol::Warnung;
}

Meldungszeile::Meldungszeile(Meldestelle *meldestelle, Pruefung *pruefung, Ausfuehrung *ausfuehrung, QWidget *eltern)
    : QWidget(eltern), m_meldestelle(meldestelle), m_pruefung(pruefung), m_ausfuehrung(ausfuehrung),
      m_text(new Textschild(Textschild::Art::KurzEnde, Schrift::Grund, u"hinweis"_s)),
      m_zweite(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"hinweis-zusatz"_s)),
      m_zurueck(flachknopf(u"rueckgaengig"_s, Symbol::Ruecknehmen, {}, {}))
{
    fuellen(this, spalte({reihe({{m_text, 1}, m_zurueck}), m_zweite}, Abstand::Keiner));
    connect(m_zurueck, &QToolButton::clicked, this, [this] {
        m_ausfuehrung->tatRuecknehmbar() ? m_ausfuehrung->tatZuruecknehmen() : m_ausfuehrung->rueckgaengig();
    });
    connect(m_meldestelle, &Meldestelle::hinweisGeaendert, this, &Meldungszeile::zeigen);
    connect(m_pruefung, &Pruefung::ruecknehmbarGeaendert, this, &Meldungszeile::zeigen);
    for (const auto signal : {&Ausfuehrung::vorgangGeaendert, &Ausfuehrung::tatRuecknehmbarGeaendert})
        connect(m_ausfuehrung, signal, this, &Meldungszeile::zeigen);
    setzeZweizeilig(true);
}

void Meldungszeile::setzeMitText(bool mit) { bedienteile::setzeMitText(m_zurueck, mit); }

void Meldungszeile::setzeZweizeilig(bool zweizeilig)
{
    m_zweizeilig = zweizeilig;
    m_zweite->setVisible(zweizeilig);
    zeigen();
}

void Meldungszeile::zeigen()
{
    QStringList teile = m_meldestelle->meldungen();
    Symbol symbol = tonzeichen(m_meldestelle->ton());
    // What is going on goes before what is done.
    if (!m_ausfuehrung->vorgang().isEmpty()) {
        teile = {m_ausfuehrung->vorgang() + u" …"_s};
        symbol = Symbol::Keines;
    }
    m_text->setzen(symbol, m_zweizeilig ? teile.value(0) : teile.join(u" · "_s));
    m_zweite->setzeText(m_zweizeilig ? teile.value(1) : QString());
    m_zurueck->setEnabled(m_ausfuehrung->tatRuecknehmbar() || m_pruefung->ruecknehmbar());
    benennen(m_zurueck, Sprache::text(u"Rückgängig"_s),
             m_ausfuehrung->tatRuecknehmbar() ? Sprache::text(u"Macht genau das ungeschehen, was hier steht"_s)
                                              : Sprache::text(u"Dreht die letzte Bewegung zurück. Taste: U"_s));
}
} // namespace quillmar::bedienteile
