#include "meldungszeile.h"

#include "ausfuehrung.h"
#include "elidiertext.h"
#include "flachknopf.h"
#include "meldestelle.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"
#include "zeichen.h"

#include <QGridLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
using Stil::abstand;

Symbol tonzeichen(Meldestelle::Ton ton)
{
    switch (ton) {
    case Meldestelle::Ton::Gut:
        return Symbol::Gut;
    case Meldestelle::Ton::Warnung:
        return Symbol::Warnung;
    case Meldestelle::Ton::Ruhig:
        break;
    }
    return Symbol::Keines;
}

Meldungszeile::Meldungszeile(Meldestelle *meldestelle, Pruefung *pruefung, Ausfuehrung *ausfuehrung, QWidget *eltern)
    : QWidget(eltern), m_meldestelle(meldestelle), m_pruefung(pruefung), m_ausfuehrung(ausfuehrung),
      m_text(new Elidiertext(Qt::ElideRight, this)), m_zweite(new Elidiertext(Qt::ElideRight, this)),
      m_zurueck(new Flachknopf(u"rueckgaengig"_s, Symbol::Ruecknehmen, Sprache::text(u"Rückgängig"_s),
                               Sprache::text(u"Dreht die letzte Bewegung zurück. Taste: U"_s), this))
{
    m_text->setObjectName(u"hinweis"_s);
    m_zweite->setObjectName(u"hinweis-zusatz"_s);
    Stil::nebentext(m_zweite);
    auto *raster = new QGridLayout(this);
    raster->addWidget(m_text, 0, 0);
    raster->addWidget(m_zurueck, 0, 1);
    raster->addWidget(m_zweite, 1, 0, 1, 2);
    raster->setColumnStretch(0, 1);
    m_zurueck->setzeMitText(true);
    connect(m_zurueck, &QToolButton::clicked, this, [this] {
        m_ausfuehrung->tatRuecknehmbar() ? m_ausfuehrung->tatZuruecknehmen() : m_ausfuehrung->rueckgaengig();
    });
    connect(m_meldestelle, &Meldestelle::hinweisGeaendert, this, &Meldungszeile::zeigen);
    connect(m_pruefung, &Pruefung::ruecknehmbarGeaendert, this, &Meldungszeile::zeigen);
    for (const auto signal : {&Ausfuehrung::vorgangGeaendert, &Ausfuehrung::tatRuecknehmbarGeaendert})
        connect(m_ausfuehrung, signal, this, &Meldungszeile::zeigen);
    Stil::folgen(this, [raster] {
        raster->setContentsMargins(Stil::zeichengroesse() + abstand(6), 0, 0, 0);
        raster->setHorizontalSpacing(abstand(8));
        raster->setVerticalSpacing(0);
    });
    setzeZweizeilig(true);
}

void Meldungszeile::setzeMitText(bool mit) { m_zurueck->setzeMitText(mit); }

void Meldungszeile::setzeZweizeilig(bool zweizeilig)
{
    m_zweizeilig = zweizeilig;
    m_zweite->setVisible(zweizeilig);
    zeigen();
}

void Meldungszeile::zeigen()
{
    QStringList teile = m_meldestelle->meldungen();
    // What is going on goes before what is done.
    if (!m_ausfuehrung->vorgang().isEmpty())
        teile = {m_ausfuehrung->vorgang() + u" …"_s};
    const QString text = m_zweizeilig ? teile.value(0) : teile.join(u" · "_s);
    m_text->setzeText(text);
    m_zweite->setzeText(m_zweizeilig ? teile.value(1) : QString());
    m_zurueck->setEnabled(m_ausfuehrung->tatRuecknehmbar() || m_pruefung->ruecknehmbar());
    m_zurueck->setzeHilfe(Sprache::text(u"Rückgängig"_s),
                          m_ausfuehrung->tatRuecknehmbar()
                              ? Sprache::text(u"Macht genau das ungeschehen, was hier steht"_s)
                              : Sprache::text(u"Dreht die letzte Bewegung zurück. Taste: U"_s));
    update();
}

void Meldungszeile::paintEvent(QPaintEvent *)
{
    if (m_text->ganzerText().isEmpty() || !m_ausfuehrung->vorgang().isEmpty())
        return;
    QPainter maler(this);
    const int kante = Stil::zeichengroesse();
    Zeichen::malen(maler, QRect(0, m_text->geometry().center().y() - kante / 2, kante, kante),
                   tonzeichen(m_meldestelle->ton()), palette());
}
} // namespace quillmar::bedienteile
