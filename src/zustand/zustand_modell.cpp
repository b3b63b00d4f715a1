#include "fehlersatz.h"
#include "hintergrund.h"
#include "lernspeicher.h"
#include "ollama.h"
#include "restzeit.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

using namespace Qt::StringLiterals;

/** What the fetching of a model came to. */
struct Zustand::Ladeausgang {
    Modellstand stand;
    QString gesucht; ///< the model that @c stand tells of
    QString fehler;
    bool gescheitert = false; ///< the transfer itself, not the server's doing
};

void Zustand::modellSetzen(const Modellstand &stand)
{
    if (stand == m_modell)
        return;
    m_modell = stand;
    Q_EMIT modellGeaendert();
}

void Zustand::modellPruefen()
{
    if (!m_aktiv)
        return Q_EMIT modellGeprueft();
    imHintergrund(
        this, [modell = m_aktiv->modell] { return Modellstand::pruefen(modell); },
        [this, nummer = ++m_modellfrage](const Ausgang<Modellstand> &ausgang) {
            if (nummer != m_modellfrage)
                return;
            if (ausgang.wert)
                modellSetzen(mitLadestand(*ausgang.wert));
            Q_EMIT modellGeprueft();
        });
}

/** What was found out just now, while a fetching goes on or after one that failed. */
Modellstand Zustand::mitLadestand(const Modellstand &gefunden) const
{
    Modellstand stand = m_modell;
    stand.art = gefunden.art;
    stand.meldung = gefunden.meldung;
    stand.vorhandene = gefunden.vorhandene;
    stand.verzeichnis = gefunden.verzeichnis;
    const bool kommt = m_aktiv && !stand.laedtModell.isEmpty() && stand.laedtModell == m_aktiv->modell;
    if (kommt && stand.art != Modellstand::Art::bereit) {
        stand.art = Modellstand::Art::laedt;
        stand.meldung = stand.ladetext;
    }
    return stand;
}

void Zustand::modellLaden()
{
    if (m_aktiv)
        ladenBeginnen(m_aktiv->modell);
}

void Zustand::modellGrossLaden()
{
    if (m_aktiv)
        ladenBeginnen(m_aktiv->modellGross);
}

void Zustand::ladenBeginnen(const QString &modell)
{
    if (modell.isEmpty() || !m_modell.laedtModell.isEmpty())
        return;
    m_ladeende = {};
    Modellstand stand = m_modell;
    stand.laedtModell = modell;
    stand.ladetext = Sprache::text(u"Modell wird geladen"_s);
    stand.ladefehler.clear();
    if (modell == m_aktiv->modell) {
        stand.art = Modellstand::Art::laedt;
        stand.meldung = stand.ladetext;
    }
    modellSetzen(stand);
    const auto menge = std::make_shared<std::pair<qint64, qint64>>();
    const auto melder = [this, briefe = m_ladebriefe, menge](const QString &text) {
        // Each part has its line, however fast it went; of one part the newest is enough.
        briefe->fortschreiben([this, text, m = *menge] { ladenMelden(text, m.first, m.second); },
                              text.section(u' ', 0, 1));
    };
    imHintergrund(
        this,
        [modell, gesucht = m_aktiv->modell, melder, menge, ende = m_ladeende.get_token()] {
            Ladeausgang ausgang{.stand = {}, .gesucht = gesucht, .fehler = {}, .gescheitert = false};
            try {
                ausgang.fehler = Ollama().laden(modell, melder, ende, [menge](qint64 fertig, qint64 gesamt) {
                    *menge = {fertig, gesamt};
                });
            } catch (const Fehler &) {
                // Whether the model is there is looked at all the same, and the cause is told with it.
                ausgang.gescheitert = true;
                ausgang.fehler =
                    gefuellt(Sprache::text(u"Laden fehlgeschlagen: %@"_s), {fehlersatz(std::current_exception())});
            }
            ausgang.stand = Modellstand::pruefen(gesucht);
            return ausgang;
        },
        [this](const Ausgang<Ladeausgang> &ausgang) {
            if (ausgang.wert)
                geladen(*ausgang.wert);
        });
}

void Zustand::ladenMelden(const QString &text, qint64 fertig, qint64 gesamt)
{
    if (m_modell.laedtModell.isEmpty())
        return;
    Modellstand stand = m_modell;
    stand.ladetext = text;
    if (stand.art == Modellstand::Art::laedt)
        stand.meldung = text;
    if (gesamt != stand.ladegroesse) {
        m_ladebeginn.start();
        m_ladeanfang = fertig;
    }
    stand.geladen = fertig;
    stand.ladegroesse = gesamt;
    stand.restzeit = restzeitText(std::chrono::milliseconds(m_ladebeginn.isValid() ? m_ladebeginn.elapsed() : 0),
                                  fertig - m_ladeanfang, gesamt - m_ladeanfang);
    modellSetzen(stand);
}

void Zustand::geladen(const Ladeausgang &ausgang)
{
    ++m_modellfrage; // an answer from before the model was there
    Modellstand stand = ausgang.stand;
    const QString modell = m_modell.laedtModell;
    const bool abgebrochen = m_ladeende.stop_requested();
    QString fehler = ausgang.fehler;
    if (fehler.isEmpty() && stand.art != Modellstand::Art::serverFehlt)
        fehler = Sprache::text(u"Der Modellserver hat aufgehört, bevor es da war"_s);
    if (!abgebrochen && !fehler.isEmpty() && !Modellstand::treffer(stand.vorhandene, modell)) {
        stand.ladefehler = fehler;
        stand.fehlermodell = modell;
        if (m_aktiv && modell == m_aktiv->modell)
            stand.meldung = ausgang.gescheitert ? fehler : stand.meldung + u": "_s + fehler;
    }
    modellSetzen(stand);
    // Another profile or model may have been chosen meanwhile: say what is there now.
    if (abgebrochen || (m_aktiv && ausgang.gesucht != m_aktiv->modell))
        modellPruefen();
    else
        Q_EMIT modellGeprueft();
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
            melden(ausgang.wert ? erfolg : fehlersatz(ausgang.fehler), ausgang.wert ? Ton::gut : Ton::warnung);
            Q_EMIT gelerntGeaendert();
        });
}
