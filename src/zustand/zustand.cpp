#include "zustand.h"

#include "ausfuehrung.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "einstellungen.h"
#include "hintergrund.h"
#include "katalogpflege.h"
#include "modelldienst.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "scanwache.h"
#include "seitenbelege.h"
#include "sitzungen.h"
#include "sprache.h"

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto schluesselTeilung = "teilung"_L1;
constexpr double halbe = 0.5;
constexpr double kleinsteTeilung = 0.25;
constexpr double groessteTeilung = 0.75;
constexpr auto geduldAmEnde = 1s;

double gespeicherteTeilung()
{
    bool zahl = false;
    const double wert = Einstellungen::wert(schluesselTeilung).toDouble(&zahl);
    return zahl && std::isfinite(wert) ? std::clamp(wert, kleinsteTeilung, groessteTeilung) : halbe;
}
} // namespace

// Each model follows those before it; what one profile leaves and the next one brings reaches them in this order.
Zustand::Zustand(QObject *vater)
    : QObject(vater), m_meldestelle(std::make_unique<Meldestelle>()),
      m_profilwahl(std::make_unique<Profilwahl>(m_meldestelle.get())),
      m_katalogpflege(std::make_unique<Katalogpflege>(m_profilwahl.get(), m_meldestelle.get())),
      m_modelldienst(std::make_unique<Modelldienst>(m_profilwahl.get())),
      m_pruefung(std::make_unique<Pruefung>(m_profilwahl.get(), m_meldestelle.get())),
      m_ausfuehrung(std::make_unique<Ausfuehrung>(m_profilwahl.get(), m_pruefung.get(), m_meldestelle.get())),
      m_durchgang(
          std::make_unique<Durchgang>(m_profilwahl.get(), m_modelldienst.get(), m_pruefung.get(), m_meldestelle.get())),
      m_seitenbelege(std::make_unique<Seitenbelege>(m_pruefung.get(), m_profilwahl.get(), m_durchgang.get())),
      m_sitzungen(std::make_unique<Sitzungen>(m_profilwahl.get(), m_pruefung.get(), m_ausfuehrung.get())),
      m_scanwache(std::make_unique<Scanwache>(Scanwache::Nachbarn{.meldestelle = m_meldestelle.get(),
                                                                  .profilwahl = m_profilwahl.get(),
                                                                  .modelldienst = m_modelldienst.get(),
                                                                  .ausfuehrung = m_ausfuehrung.get(),
                                                                  .durchgang = m_durchgang.get(),
                                                                  .sitzungen = m_sitzungen.get()})),
      m_einrichtung(std::make_unique<Einrichtung>(Einrichtung::Nachbarn{.meldestelle = m_meldestelle.get(),
                                                                        .profilwahl = m_profilwahl.get(),
                                                                        .katalogpflege = m_katalogpflege.get(),
                                                                        .modelldienst = m_modelldienst.get(),
                                                                        .pruefung = m_pruefung.get(),
                                                                        .durchgang = m_durchgang.get()})),
      m_teilung(gespeicherteTeilung())
{
    connect(m_profilwahl.get(), &Profilwahl::angelegt, this, [this] { setzeReiter(Reiter::Einrichtung); });
    connect(m_profilwahl.get(), &Profilwahl::bereitschaftGeaendert, this, &Zustand::ersteKarteWaehlen);
    Einstellungen::setzeBeschwerde([briefe = Briefkasten::fuer(this), this] {
        briefe->einwerfen([this] {
            m_meldestelle->melden(
                Sprache::text(u"Die Einstellungen ließen sich nicht speichern. Ist die Platte voll?"_s));
        });
    });
}

Zustand::~Zustand()
{
    Einstellungen::setzeBeschwerde({});
    m_einrichtung.reset();
    m_scanwache.reset();
    m_sitzungen.reset();
    m_seitenbelege.reset();
    m_ausfuehrung.reset();
    m_modelldienst.reset();
    m_katalogpflege.reset();
    m_pruefung->entwuerfeSichern();
    m_durchgang.reset(); // waits for a run: what was to be stopped or stored has been told before
    m_pruefung.reset();
    Hintergrund::warten(geduldAmEnde); // before the catalogue goes
}

void Zustand::ersteKarteWaehlen()
{
    if (!m_profilwahl->bereitschaft())
        return; // not known yet
    if (std::exchange(m_ersteWahl, false) && m_profilwahl->bereitZumStart())
        setzeReiter(Reiter::Pruefen);
}

void Zustand::setzeReiter(Reiter reiter)
{
    m_ersteWahl = false;
    if (m_reiter == reiter)
        return;
    m_reiter = reiter;
    m_einrichtung->setzeGewaehlt(reiter == Reiter::Einrichtung);
    Q_EMIT reiterGeaendert();
}

void Zustand::setzeTeilung(double teilung)
{
    const double neu = std::clamp(teilung, kleinsteTeilung, groessteTeilung);
    if (neu == m_teilung)
        return;
    m_teilung = neu;
    Einstellungen::setzen(schluesselTeilung, neu);
    Q_EMIT teilungGeaendert();
}

void Zustand::nachsprechen()
{
    m_profilwahl->nachsprechen();
    m_ausfuehrung->nachsprechen();
    m_einrichtung->nachsprechen();
    m_meldestelle->nachsprechen();
    m_sitzungen->nachsprechen();
}
} // namespace quillmar::zustand
