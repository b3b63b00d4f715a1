#include "hintergrund.h"
#include "lernspeicher.h"
#include "ollama.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

using namespace Qt::StringLiterals;

void Zustand::modellSetzen(const Modellstand &stand)
{
    if (stand == m_modell)
        return;
    m_modell = stand;
    Q_EMIT modellGeaendert();
}

void Zustand::modellPruefen()
{
    // A model that is being fetched is looked at when it has come.
    if (!m_aktiv || m_modell.art == Modellstand::Art::laedt)
        return Q_EMIT modellGeprueft();
    imHintergrund(
        this, [modell = m_aktiv->modell] { return Modellstand::pruefen(modell); },
        [this, nummer = ++m_modellfrage](const Ausgang<Modellstand> &ausgang) {
            if (nummer != m_modellfrage)
                return;
            if (ausgang.wert)
                modellSetzen(*ausgang.wert);
            Q_EMIT modellGeprueft();
        });
}

void Zustand::modellLaden()
{
    if (!m_aktiv || m_modell.art == Modellstand::Art::laedt)
        return;
    m_ladeende = {};
    ++m_modellfrage;
    modellSetzen({.art = Modellstand::Art::laedt,
                  .meldung = Sprache::text(u"Modell wird geladen"_s),
                  .vorhandene = m_modell.vorhandene});
    const auto melder = [this, briefe = m_briefe](const QString &text) {
        briefe->einwerfen([this, text] {
            if (m_modell.art == Modellstand::Art::laedt)
                modellSetzen({.art = Modellstand::Art::laedt, .meldung = text, .vorhandene = m_modell.vorhandene});
        });
    };
    imHintergrund(
        this,
        [modell = m_aktiv->modell, melder, ende = m_ladeende.get_token()] {
            const QString serverfehler = Ollama().laden(modell, melder, ende);
            Modellstand stand = Modellstand::pruefen(modell);
            if (stand.art == Modellstand::Art::modellFehlt && !serverfehler.isEmpty())
                stand.meldung += u": "_s + serverfehler;
            return stand;
        },
        [this, ende = m_ladeende.get_token()](const Ausgang<Modellstand> &ausgang) {
            Modellstand stand = ausgang.wert.value_or(
                Modellstand{.art = Modellstand::Art::modellFehlt,
                            .meldung = gefuellt(Sprache::text(u"Laden fehlgeschlagen: %@"_s), {ausgang.fehler}),
                            .vorhandene = m_modell.vorhandene});
            modellSetzen(stand);
            // Stopped by the user, or another model was chosen meanwhile: say what is there now.
            if (ende.stop_requested())
                modellPruefen();
        });
}

void Zustand::modellLadenAbbrechen() { m_ladeende.request_stop(); }

void Zustand::gelerntVergessen(const QString &schluessel)
{
    lernenAendern([schluessel](Lernspeicher &speicher) { speicher.vergessen(schluessel); },
                  Sprache::text(u"Gelernte Zuordnung verworfen"_s));
}

void Zustand::gleichungVergessen(const QString &von)
{
    lernenAendern([von](Lernspeicher &speicher) { speicher.gleichungVergessen(von); },
                  Sprache::text(u"Namensgleichung verworfen"_s));
}

void Zustand::lernenAendern(const std::function<void(Lernspeicher &)> &aenderung, const QString &erfolg)
{
    if (!kannHandeln())
        return;
    imHintergrund(
        this,
        [db = m_db, aenderung] {
            Lernspeicher speicher(*db);
            aenderung(speicher);
            return true;
        },
        [this, erfolg](const Ausgang<bool> &ausgang) {
            melden(ausgang.wert ? erfolg : ausgang.fehler, ausgang.wert ? Ton::gut : Ton::warnung);
            Q_EMIT gelerntGeaendert();
        });
}
