#include "fusszeile.h"

#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "durchgang.h"
#include "meldestelle.h"
#include "meldungszeile.h"
#include "modelldienst.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"
#include "zustand.h"

#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
namespace
{
constexpr int balkenlaenge = 120;
constexpr int hoehe = 27;
} // namespace

Fusszeile::Fusszeile(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_zaehler(schild({}, Schrift::Neben, u"zaehlwerk"_s)),
      m_text(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"lage"_s)), m_balken(balken({}, balkenlaenge))
{
    m_zaehler->setToolTip(Sprache::text(u"Einsortiert: fertig bearbeitet. Offen: wartet auf deine Prüfung. "
                                        "Zurückgestellt: von dir übersprungen. In Analyse: noch nicht gelesen."_s));
    auto *zeile = fuellen(new QWidget, reihe({m_zaehler, Teil::rest(), m_text, m_balken}), Abstand::Feld);
    fuellen(this, spalte({linie(), zeile}, Abstand::Keiner));
    Stil::folgen(zeile, [zeile] { zeile->setFixedHeight(Stil::mass(hoehe)); });
    m_platz = new Nachgeben(zeile, 3, [this](int stufe) { setzeStufe(stufe); });
    verbinden();
    zaehlenZeigen();
    lageZeigen();
}

void Fusszeile::verbinden()
{
    Durchgang *durchgang = m_zustand->durchgang();
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &Fusszeile::zaehlenZeigen);
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, this, &Fusszeile::zaehlenZeigen);
    connect(durchgang, &Durchgang::laufGeaendert, this, [this, durchgang] {
        if (durchgang->laeuft())
            m_notiz.clear();
        lageZeigen();
    });
    connect(m_zustand->modelldienst(), &Modelldienst::modellGeaendert, this, &Fusszeile::lageZeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::vorgangGeaendert, this, &Fusszeile::lageZeigen);
    for (const auto signal : {&Profilwahl::oeffnetGeaendert, &Profilwahl::aktivGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &Fusszeile::lageZeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::rueckbauGeaendert, this, &Fusszeile::lageZeigen);
    connect(m_zustand->meldestelle(), &Meldestelle::hinweisGeaendert, this, &Fusszeile::notieren);
    connect(m_zustand, &Zustand::reiterGeaendert, this, [this] {
        m_notiz.clear();
        lageZeigen();
    });
}

void Fusszeile::zaehlenZeigen()
{
    m_zaehler->setVisible(m_zustand->profilwahl()->aktiv() != nullptr);
    const Zaehlwerk &z = m_zustand->pruefung()->zaehlwerk();
    m_zaehler->setText(gefuellt(Sprache::text(u"%@ einsortiert · %@ offen · %@ zurückgestellt · %@ in Analyse"_s),
                                {QString::number(z.erledigt), QString::number(z.bereit),
                                 QString::number(z.zurueckgestellt), QString::number(z.neu)}));
}

void Fusszeile::lageZeigen()
{
    m_lage = lage(*m_zustand, m_notiz);
    m_balken->setVisible(m_lage.anteil >= 0);
    setzeAnteil(m_balken, m_lage.anteil);
    m_platz->pruefen();
}

/** When it gets narrow, the bar goes first, then the stage's name, then the right side; only a notice is cut off. */
void Fusszeile::setzeStufe(int stufe)
{
    const QString ganz = m_lage.rest.isEmpty() ? m_lage.stufe : m_lage.stufe + u"   "_s + m_lage.rest;
    QString text = ganz;
    if (stufe == 2 && !m_lage.rest.isEmpty())
        text = m_lage.rest;
    if (stufe == 3 && m_lage.stufe != m_notiz)
        text.clear();
    m_text->setzen(m_lage.ton ? tonzeichen(*m_lage.ton) : Symbol::Keines, text);
    m_text->setzeHilfe(ganz);
    m_balken->setVisible(m_lage.anteil >= 0 && stufe == 0);
}

/** Review and log say it themselves. */
void Fusszeile::notieren()
{
    const Reiter reiter = m_zustand->reiter();
    if (reiter != Reiter::Einrichtung && reiter != Reiter::Ablauf)
        return;
    m_notiz = m_zustand->meldestelle()->meldungen().value(0);
    lageZeigen();
}
} // namespace quillmar::ui
