#include "ausfuehrung.h"

#include "fehler.h"
#include "fehlersatz.h"
#include "hintergrund.h"
#include "meldestelle.h"
#include "offenesprofil.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"

#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto merklich = 200ms; // what takes longer is named
}

/** One deed with all that belongs to it, as it comes back from the worker. */
struct Ausfuehrung::Tatfolge {
    Geschehen geschehen;
    std::optional<Blick> blick; ///< none when the catalogue cannot be read any more
};

Ausfuehrung::Ausfuehrung(Profilwahl *profilwahl, Pruefung *pruefung, Meldestelle *meldestelle)
    : m_profilwahl(profilwahl), m_pruefung(pruefung), m_meldestelle(meldestelle), m_briefe(Briefkasten::fuer(this))
{
    m_merklich.setSingleShot(true);
    m_merklich.setInterval(merklich);
    connect(&m_merklich, &QTimer::timeout, this, [this] {
        if (m_vorgang.isEmpty())
            setzeVorgang(m_vorgangsname, 0);
    });
    connect(m_profilwahl, &Profilwahl::gewechselt, this, &Ausfuehrung::wechseln);
    connect(m_profilwahl, &Profilwahl::oeffnetGeaendert, this, [this] {
        if (m_profilwahl->oeffnet())
            m_spaeter = {}; // meant a document of the catalogue that is about to be left
    });
}

Ausfuehrung::~Ausfuehrung() { m_halt.request_stop(); }

void Ausfuehrung::wechseln()
{
    m_spaeter = {};
    m_merklich.stop();
    Q_EMIT tatRuecknehmbarGeaendert();
}

std::optional<qint64> Ausfuehrung::dokumentId() const
{
    const Dokument *dokument = m_pruefung->aktuelles();
    return dokument ? std::optional(dokument->id) : std::nullopt;
}

/** A deed on a document that nobody can have looked at is a key that was pressed once too often: it is not kept. */
bool Ausfuehrung::zuFrueh()
{
    const bool ungesehen = m_pruefung->ungesehen();
    if (m_rueckbau)
        warten({});
    else if (m_taetig || ungesehen)
        Q_EMIT zuFruehGedrueckt();
    return beschaeftigt() || ungesehen || !m_pruefung->aktuelles();
}

void Ausfuehrung::uebernehmen()
{
    if (zuFrueh())
        return;
    const Profil *profil = m_profilwahl->aktiv();
    const QString vorgang =
        profil && profil->kopieren ? Sprache::text(u"Datei wird kopiert"_s) : Sprache::text(u"Datei wird verschoben"_s);
    handeln([d = *m_pruefung->aktuelles()](const Arbeitsplatz &platz) { return Handlung::uebernehmen(platz, d); },
            Wunsch::weiter(dokumentId(), Richtung::Weiter), vorgang);
}

void Ausfuehrung::zuruecklegen()
{
    if (zuFrueh())
        return;
    handeln([d = *m_pruefung->aktuelles()](const Arbeitsplatz &platz) { return Handlung::zuruecklegen(platz, d); },
            Wunsch::weiter(dokumentId(), Richtung::Weiter), {});
}

void Ausfuehrung::aussortieren()
{
    if (zuFrueh())
        return;
    handeln([d = *m_pruefung->aktuelles()](const Arbeitsplatz &platz) { return Handlung::aussortieren(platz, d); },
            Wunsch::weiter(dokumentId(), Richtung::Weiter), Sprache::text(u"Datei wird verschoben"_s));
}

void Ausfuehrung::rueckgaengig()
{
    if (beschaeftigt())
        return warten([this] { rueckgaengig(); });
    const QString vorgang = Sprache::text(u"Datei wird zurückgeholt"_s);
    handeln(
        [melder = vorgangMelder(vorgang)](const Arbeitsplatz &platz) { return Handlung::rueckgaengig(platz, melder); },
        {}, vorgang);
}

void Ausfuehrung::letzteBewegungZuruecknehmen()
{
    if (beschaeftigt())
        return warten([this] { letzteBewegungZuruecknehmen(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::letzteBewegungZuruecknehmen(platz); }, {},
            Sprache::text(u"Datei wird zurückgeholt"_s));
}

bool Ausfuehrung::tatRuecknehmbar() const { return m_profilwahl->offenes() && m_profilwahl->offenes()->rueckweg(); }

void Ausfuehrung::tatZuruecknehmen()
{
    if (beschaeftigt())
        return warten([this] { tatZuruecknehmen(); });
    if (!tatRuecknehmbar())
        return;
    const QString vorgang = Sprache::text(u"Datei wird zurückgeholt"_s);
    handeln([weg = *m_profilwahl->offenes()->rueckweg(), melder = vorgangMelder(vorgang)](
                const Arbeitsplatz &platz) { return Handlung::tatZuruecknehmen(platz, weg, melder); },
            {}, vorgang);
}

void Ausfuehrung::weiter(Richtung richtung)
{
    if (beschaeftigt())
        return warten([this, richtung] { weiter(richtung); });
    if (!m_profilwahl->kannHandeln())
        return;
    belegen(false);
    const auto platz = m_profilwahl->offenes()->arbeitsplatz();
    imHintergrund(
        this, [platz, wunsch = Wunsch::weiter(dokumentId(), richtung)] { return Blick::auf(platz.db, wunsch); },
        [this, hier = QPointer(m_profilwahl->offenes())](const Ausgang<Blick> &ausgang) {
            if (hier && ausgang.wert)
                m_pruefung->zeigen(*ausgang.wert);
            else if (hier)
                gescheitert(fehlersatz(ausgang.fehler));
            freigeben();
        });
}

void Ausfuehrung::zurueckgestellteVorlegen()
{
    if (beschaeftigt())
        return warten([this] { zurueckgestellteVorlegen(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::wiederVorlegen(platz); }, {}, {});
}

void Ausfuehrung::dublettenAusraeumen()
{
    if (beschaeftigt())
        return warten([this] { dublettenAusraeumen(); });
    const QString vorgang = Sprache::text(u"Dubletten werden beiseitegelegt"_s);
    m_anhaltbar = m_profilwahl->kannHandeln();
    handeln([melder = vorgangMelder(vorgang)](
                const Arbeitsplatz &platz) { return Handlung::dublettenAusraeumen(platz, melder); },
            {}, vorgang);
}

void Ausfuehrung::zielBestaetigen()
{
    if (beschaeftigt())
        return warten([this] { zielBestaetigen(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::zielBestaetigen(platz); }, {}, {});
}

/** Tells how far a deed of many movements is, and stops it once that is wanted. */
std::function<bool(qint64, qint64)> Ausfuehrung::vorgangMelder(const QString &vorgang)
{
    m_halt = {};
    return [this, vorgang, briefe = m_briefe, halt = m_halt.get_token()](qint64 fertig, qint64 gesamt) {
        if (gesamt > 1)
            briefe->fortschreiben([this, vorgang, fertig, gesamt] {
                if (m_taetig)
                    setzeVorgang(vorgang, double(fertig) / double(gesamt));
            });
        return !halt.stop_requested();
    };
}

void Ausfuehrung::anhalten(const QString &vorgang)
{
    m_spaeter = {}; // nothing new begins
    m_halt.request_stop();
    if (m_anhaltbar)
        Q_EMIT beschaeftigtGeaendert();
    if (m_taetig && !vorgang.isEmpty())
        setzeVorgang(vorgang, 0);
}

void Ausfuehrung::handeln(const Tat &tat, const Wunsch &danach, const QString &vorgang)
{
    if (!m_profilwahl->kannHandeln())
        return;
    belegen(danach.art == Wunsch::Art::Weiter);
    imHintergrund(
        this,
        [platz = m_profilwahl->offenes()->arbeitsplatz(), tat, danach, hier = dokumentId()] {
            return ausfuehren(platz, tat, danach, hier);
        },
        [this, offenes = QPointer(m_profilwahl->offenes())](const Ausgang<Tatfolge> &ausgang) {
            if (ausgang.wert)
                fertig(offenes, *ausgang.wert);
            else
                gescheitert(fehlersatz(ausgang.fehler));
            freigeben();
        });
    m_vorgangsname = vorgang;
    if (!vorgang.isEmpty())
        m_merklich.start();
}

Ausfuehrung::Tatfolge Ausfuehrung::ausfuehren(const Arbeitsplatz &platz, const Tat &tat, const Wunsch &danach,
                                              std::optional<qint64> hier)
{
    Tatfolge folge{.geschehen = tat(platz), .blick = {}};
    const Geschehen &g = folge.geschehen;
    Wunsch wunsch = Wunsch::behalten(hier);
    if (g.wieder)
        wunsch = Wunsch::dieses(*g.wieder, hier);
    else if (g.gelungen && danach.art == Wunsch::Art::Weiter)
        wunsch = danach;
    try {
        folge.blick = Blick::auf(platz.db, wunsch);
    } catch (const Fehler &f) {
        folge.geschehen.hinweise << f.text(); // the deed stands, and is told with its way back
    }
    return folge;
}

/** Why comes first; the next key may meet another document than it was meant for. */
void Ausfuehrung::gescheitert(const QString &satz)
{
    m_spaeter = {};
    m_meldestelle->melden(satz);
}

void Ausfuehrung::fertig(OffenesProfil *offenes, const Tatfolge &folge)
{
    const Geschehen &g = folge.geschehen;
    if (!g.gelungen)
        m_spaeter = {};
    if (offenes)
        eintragen(*offenes, folge);
    else // of the profile that was left meanwhile
        m_meldestelle->melden(g.allesGesagte(), g.gelungen ? Meldestelle::Ton::Gut : Meldestelle::Ton::Warnung);
}

void Ausfuehrung::eintragen(OffenesProfil &offenes, const Tatfolge &folge)
{
    const Geschehen &g = folge.geschehen;
    const bool neuesBuch = g.buch != offenes.buch();
    offenes.setzeBuch(g.buch);
    if (g.gelungen)
        offenes.setzeProtokollmangel(g.warnungen.join(u' '));
    if (g.uebernommen)
        m_pruefung->entwurfVerwerfen(*g.uebernommen); // whatever else is done with a document, what was typed stays
    offenes.setzeRueckweg(g.rueckweg);
    Q_EMIT tatRuecknehmbarGeaendert();
    berichten(folge);
    if (folge.blick)
        m_pruefung->zeigen(*folge.blick);
    if (g.zielFraglich)
        Q_EMIT zielFraglich();
    if (neuesBuch)
        Q_EMIT buchBegonnen();
}

void Ausfuehrung::berichten(const Tatfolge &folge)
{
    const Geschehen &g = folge.geschehen;
    // Another document stands there now: it is not the one that this is about.
    const Dokument *dieses = m_pruefung->angabenFest() ? m_pruefung->aktuelles() : nullptr;
    const bool verlassen = dieses && folge.blick && folge.blick->id() != dieses->id;
    const QString woran = !g.gelungen && verlassen ? dieses->dateiname + u": "_s : QString();
    const bool gut = g.gelungen && g.warnungen.isEmpty();
    m_meldestelle->berichten(g.text, woran + (g.warnungen + g.hinweise).join(u", "_s),
                             gut ? Meldestelle::Ton::Gut : Meldestelle::Ton::Warnung, !g.warnungen.isEmpty());
}

void Ausfuehrung::warten(std::function<void()> spaeter)
{
    if (m_rueckbau) // takes too long for a key to be remembered
        return m_meldestelle->melden(Sprache::text(u"Erst wird noch eine Sitzung zurückgedreht"_s));
    // The first one: what is pressed after it was meant for a document that nobody has seen yet.
    if (!m_spaeter)
        m_spaeter = std::move(spaeter);
}

void Ausfuehrung::belegen(bool anDiesem)
{
    m_taetig = true;
    m_profilwahl->setzeInArbeit(true);
    m_pruefung->setzeArbeit(anDiesem ? Pruefung::Arbeit::AnDiesem : Pruefung::Arbeit::AnAnderem);
    Q_EMIT beschaeftigtGeaendert();
}

void Ausfuehrung::freigeben()
{
    m_taetig = false;
    m_anhaltbar = false;
    m_merklich.stop();
    m_profilwahl->setzeInArbeit(false);
    m_pruefung->setzeArbeit(Pruefung::Arbeit::Keine);
    setzeVorgang({}, 0);
    Q_EMIT beschaeftigtGeaendert();
    if (const auto spaeter = std::exchange(m_spaeter, {}))
        spaeter();
}

std::stop_token Ausfuehrung::rueckbauBeginnen()
{
    m_rueckbau = true;
    m_halt = {};
    m_profilwahl->setzeInArbeit(true);
    m_pruefung->blickVerwerfen();
    Q_EMIT beschaeftigtGeaendert();
    return m_halt.get_token();
}

void Ausfuehrung::rueckbauBeenden()
{
    m_rueckbau = false;
    m_profilwahl->setzeInArbeit(false);
    if (OffenesProfil *offenes = m_profilwahl->offenes())
        offenes->setzeRueckweg(std::nullopt);
    Q_EMIT beschaeftigtGeaendert();
    Q_EMIT tatRuecknehmbarGeaendert();
    m_meldestelle->vergessen(); // the deed may be one of those that were turned back
}

void Ausfuehrung::setzeVorgang(const QString &text, double anteil)
{
    if (text == m_vorgang && anteil == m_vorgangsanteil)
        return;
    m_vorgang = text;
    m_vorgangsanteil = anteil;
    Q_EMIT vorgangGeaendert();
}

void Ausfuehrung::nachsprechen() { m_vorgang = Sprache::nachgesprochen(m_vorgang); }
} // namespace quillmar::zustand
