#include "modelldienst.h"

#include "abbruch.h"
#include "ollama.h"
#include "profilwahl.h"
#include "restzeit.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
/** What the fetching of a model came to. */
struct Modelldienst::Ladeausgang {
    Modellstand stand;
    QString gesucht; ///< the model that @c stand tells of
    QString fehler;
    bool gescheitert = false; ///< the transfer itself, not the server's doing

    /** Why the model is not there, should it not be. Empty when the server was not to be asked. */
    [[nodiscard]] QString ursache() const
    {
        if (fehler.isEmpty() && stand.art != Modellstand::Art::ServerFehlt)
            return Sprache::text(u"Der Modellserver hat aufgehört, bevor es da war"_s);
        return fehler;
    }

    using Melder = std::function<void(const QString &text, qint64 fertig, qint64 gesamt)>;
    [[nodiscard]] static Ladeausgang von(const QString &modell, const QString &gesucht, const Melder &melder,
                                         const std::stop_token &ende);
};

/** Fetches @p modell and looks how it stands with @p gesucht then. Blocks. */
Modelldienst::Ladeausgang Modelldienst::Ladeausgang::von(const QString &modell, const QString &gesucht,
                                                         const Melder &melder, const std::stop_token &ende)
{
    Ladeausgang ausgang{.stand = {}, .gesucht = gesucht, .fehler = {}, .gescheitert = false};
    std::pair<qint64, qint64> menge;
    const auto melden = [&](const QString &text) { melder(text, menge.first, menge.second); };
    try {
        ausgang.fehler = Ollama().laden(modell, melden, ende, [&](qint64 fertig, qint64 gesamt) {
            menge = {fertig, gesamt};
        });
    } catch (const Abbruch &) {
        ausgang.gescheitert = true; // what is there is looked at, and nothing more is said
    } catch (const Fehler &f) {
        // Whether the model is there is looked at all the same, and the cause is told with it.
        ausgang.gescheitert = true;
        ausgang.fehler = gefuellt(Sprache::text(u"Laden fehlgeschlagen: %@"_s), {f.text()});
    }
    ausgang.stand = Modellstand::pruefen(gesucht);
    return ausgang;
}

Modelldienst::Modelldienst(Profilwahl *profilwahl) : m_profilwahl(profilwahl), m_frage(this)
{
    connect(m_profilwahl, &Profilwahl::eingetreten, this, &Modelldienst::modellPruefen);
    connect(m_profilwahl, &Profilwahl::einstellungenGeaendert, this, [this](const Profil &vorher) {
        if (vorher.modell != modell())
            modellPruefen();
    });
}

Modelldienst::~Modelldienst() { m_ladeende.request_stop(); }

/** The active profile's; empty without one. */
QString Modelldienst::modell() const { return m_profilwahl->aktiv() ? m_profilwahl->aktiv()->modell : QString(); }

void Modelldienst::setzen(const Modellstand &stand)
{
    if (stand == m_modell)
        return;
    m_modell = stand;
    Q_EMIT modellGeaendert();
}

QString Modelldienst::umgebungshinweis() { return Ollama::umgebungshinweis(); }

void Modelldienst::modellPruefen()
{
    if (!m_profilwahl->aktiv())
        return Q_EMIT modellGeprueft();
    m_frage.stellen([modell = modell()] { return Modellstand::pruefen(modell); },
                    [this](const Ausgang<Modellstand> &ausgang) {
                        if (ausgang.wert)
                            setzen(mitLadestand(*ausgang.wert));
                        Q_EMIT modellGeprueft();
                    });
}

/** What was found out just now, while a fetching goes on or after one that failed. */
Modellstand Modelldienst::mitLadestand(const Modellstand &gefunden) const
{
    Modellstand stand = m_modell;
    stand.art = gefunden.art;
    stand.meldung = gefunden.meldung;
    stand.vorhandene = gefunden.vorhandene;
    stand.verzeichnis = gefunden.verzeichnis;
    const bool kommt = m_profilwahl->aktiv() && !stand.laedtModell.isEmpty() && stand.laedtModell == modell();
    if (kommt && stand.art != Modellstand::Art::Bereit) {
        stand.art = Modellstand::Art::Laedt;
        stand.meldung = stand.ladetext;
    }
    return stand;
}

void Modelldienst::modellLaden() { laden(modell()); }

void Modelldienst::modellGrossLaden()
{
    if (m_profilwahl->aktiv())
        laden(m_profilwahl->aktiv()->modellGross);
}

void Modelldienst::laden(const QString &modell)
{
    if (modell.isEmpty() || !m_modell.laedtModell.isEmpty())
        return;
    m_ladeende = {};
    ladenAnzeigen(modell);
    const auto melder = [this, briefe = Briefkasten::fuer(this)](const QString &text, qint64 fertig, qint64 gesamt) {
        // Each part has its line, however fast it went; of one part the newest is enough.
        briefe->fortschreiben([this, text, fertig, gesamt] { ladenMelden(text, fertig, gesamt); },
                              text.section(u' ', 0, 1));
    };
    imHintergrund(
        this,
        [modell, gesucht = this->modell(), melder, ende = m_ladeende.get_token()] {
            return Ladeausgang::von(modell, gesucht, melder, ende);
        },
        [this](const Ausgang<Ladeausgang> &ausgang) {
            if (ausgang.wert)
                geladen(*ausgang.wert);
        });
}

void Modelldienst::ladenAnzeigen(const QString &modell)
{
    Modellstand stand = m_modell;
    stand.laedtModell = modell;
    stand.ladetext = Sprache::text(u"Modell wird geladen"_s);
    stand.ladefehler.clear();
    if (modell == this->modell()) {
        stand.art = Modellstand::Art::Laedt;
        stand.meldung = stand.ladetext;
    }
    setzen(stand);
}

void Modelldienst::ladenMelden(const QString &text, qint64 fertig, qint64 gesamt)
{
    if (m_modell.laedtModell.isEmpty())
        return;
    Modellstand stand = m_modell;
    stand.ladetext = text;
    if (stand.art == Modellstand::Art::Laedt)
        stand.meldung = text;
    if (gesamt != stand.ladegroesse) {
        m_ladebeginn.start();
        m_ladeanfang = fertig;
    }
    stand.geladen = fertig;
    stand.ladegroesse = gesamt;
    stand.restzeit = restzeitText(std::chrono::milliseconds(m_ladebeginn.isValid() ? m_ladebeginn.elapsed() : 0),
                                  fertig - m_ladeanfang, gesamt - m_ladeanfang);
    setzen(stand);
}

void Modelldienst::geladen(const Ladeausgang &ausgang)
{
    m_frage.verwerfen(); // an answer from before the model was there
    Modellstand stand = ausgang.stand;
    const QString geladenes = m_modell.laedtModell;
    const bool abgebrochen = m_ladeende.stop_requested();
    const QString fehler = ausgang.ursache();
    if (!abgebrochen && !fehler.isEmpty() && !Modellstand::treffer(stand.vorhandene, geladenes)) {
        stand.ladefehler = fehler;
        stand.fehlermodell = geladenes;
        if (m_profilwahl->aktiv() && geladenes == modell())
            stand.meldung = ausgang.gescheitert ? fehler : stand.meldung + u": "_s + fehler;
    }
    setzen(stand);
    // Another profile or model may have been chosen meanwhile: say what is there now.
    if (abgebrochen || (m_profilwahl->aktiv() && ausgang.gesucht != modell()))
        modellPruefen();
    else
        Q_EMIT modellGeprueft();
}

void Modelldienst::modellLadenAbbrechen() { m_ladeende.request_stop(); }
} // namespace quillmar::zustand
