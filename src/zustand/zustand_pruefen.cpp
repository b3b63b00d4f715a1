#include "einordnung.h"
#include "fehlersatz.h"
#include "hintergrund.h"
#include "profilsicherung.h"
#include "sprache.h"
#include "text.h"
#include "ziel.h"
#include "zustand.h"

#include <QDir>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr auto merklich = 200ms; // what takes longer is named
}

/** One deed with all that belongs to it, as it comes back from the worker. */
struct Zustand::Tatfolge {
    Geschehen geschehen;
    Blick blick;
};

QList<Pruefhinweis> Zustand::pruefhinweise() const
{
    return m_stueck && m_aktiv ? ::pruefhinweise(*m_stueck, *m_aktiv) : QList<Pruefhinweis>();
}

const Dokument *Zustand::aehnliches() const { return m_stueck && m_stueck->aehnlich ? &*m_stueck->aehnlich : nullptr; }

void Zustand::setzePartnerZeigen(bool zeigen)
{
    const bool neu = zeigen && aehnliches();
    if (neu == m_partnerZeigen)
        return;
    m_partnerZeigen = neu;
    Q_EMIT partnerZeigenGeaendert();
}

void Zustand::feldSetzen(Feld feld, const QString &wert)
{
    if (!m_stueck || !m_aktiv || feldwert(m_stueck->dokument, feld) == wert)
        return;
    if (!m_angabenFest)
        m_entwuerfe.aendern(m_stueck->dokument.id).setzen(m_stueck->dokument, feld, wert, *m_aktiv);
    Q_EMIT angabenGeaendert();
}

void Zustand::altenOrtBehalten()
{
    if (!m_stueck || !m_aktiv || m_angabenFest)
        return;
    if (const auto ort = heutigerOrt(m_stueck->dokument, *m_aktiv)) {
        Dokument &dokument = m_stueck->dokument;
        m_entwuerfe.aendern(dokument.id).ortSetzen(dokument, *ort, m_aktiv->jahrIn(dokument.altOrdner));
        Q_EMIT angabenGeaendert();
    }
}

QString Zustand::datumsmangel() const
{
    return m_stueck ? Einordnung::datumsmangel(m_stueck->dokument.datum.trimmed()) : QString();
}

QString Zustand::neuerName() const
{
    return m_stueck && m_aktiv ? Ziel::dateiname(m_stueck->dokument, *m_aktiv) : QString();
}

QStringList Zustand::zielpfad() const
{
    if (!m_stueck || !m_aktiv || m_aktiv->zielWurzel.isEmpty())
        return {};
    const Dokument &d = m_stueck->dokument;
    const QString ordner =
        Ziel::ordner({.zweig = d.zweig, .ablage = d.ablage, .rubrik = d.rubrik}, d.jahr.trimmed(), *m_aktiv);
    return ordner.mid(QDir::cleanPath(m_aktiv->zielWurzel).size()).split(u'/', Qt::SkipEmptyParts);
}

void Zustand::aktualisieren()
{
    m_sicherung->nachlesen();
    if (!kannHandeln() || m_beschaeftigt || m_blickt)
        return;
    m_blickt = true;
    const Wunsch wunsch = Wunsch::behalten(dokumentId());
    imHintergrund(
        this, [db = m_db, profil = *m_aktiv, wunsch] { return Blick::auf(db, profil, wunsch); },
        [this, nummer = m_blickfrage](const Ausgang<Blick> &ausgang) {
            m_blickt = false;
            if (nummer == m_blickfrage && ausgang.wert)
                auffrischen(*ausgang.wert);
        });
}

/** Nobody here did anything: when the document under review is gone all the same, that is said. */
void Zustand::auffrischen(const Blick &blick)
{
    const auto vorher = m_stueck;
    const bool durchRegel = blick.ausgenommen > m_blick.ausgenommen; // has its own notice
    zeigen(blick);
    if (vorher && dokumentId() != vorher->dokument.id && !durchRegel)
        melden(gefuellt(Sprache::text(u"%@ wartet nicht mehr auf Prüfung"_s), {vorher->dokument.dateiname}),
               Ton::ruhig);
}

void Zustand::zeigen(const Blick &blick)
{
    const Blick vorher = std::exchange(m_blick, blick);
    stueckSetzen(blick.aktuelles);
    if (!(vorher.zaehlwerk == blick.zaehlwerk) || vorher.ausgenommen != blick.ausgenommen)
        Q_EMIT zaehlwerkGeaendert();
    if (vorher.voraus != blick.voraus)
        Q_EMIT vorausGeaendert();
    if (vorher.umkehrbar != blick.umkehrbar)
        Q_EMIT hinweisGeaendert();
}

void Zustand::stueckSetzen(std::optional<Pruefstueck> stueck)
{
    if (const Entwurf *entwurf = stueck ? m_entwuerfe.suchen(stueck->dokument.id) : nullptr)
        entwurf->anwenden(stueck->dokument);
    if (stueck == m_stueck)
        return;
    const bool dasselbe = stueck && m_stueck && stueck->dokument.id == m_stueck->dokument.id;
    m_stueck = std::move(stueck);
    if (dasselbe)
        return Q_EMIT angabenGeaendert();
    m_partnerZeigen = false;
    Q_EMIT aktuellesGeaendert();
}

void Zustand::setzeUngesehen(bool ungesehen)
{
    if (ungesehen == m_ungesehen)
        return;
    m_ungesehen = ungesehen;
    Q_EMIT ungesehenGeaendert();
}

/** A deed on a document that nobody can have looked at is a key that was pressed once too often: it is not kept. */
bool Zustand::zuFrueh()
{
    if (m_rueckbauLaeuft)
        warten({});
    else if (m_beschaeftigt || m_ungesehen)
        Q_EMIT zuFruehGedrueckt();
    return beschaeftigt() || m_ungesehen || !m_stueck;
}

void Zustand::uebernehmen()
{
    if (zuFrueh())
        return;
    const Dokument dokument = m_stueck->dokument;
    const QString vorgang = m_aktiv && m_aktiv->kopieren ? Sprache::text(u"Datei wird kopiert"_s)
                                                         : Sprache::text(u"Datei wird verschoben"_s);
    handeln([dokument](const Arbeitsplatz &platz) { return Handlung::uebernehmen(platz, dokument); },
            Wunsch::weiter(dokument.id, u"weiter"_s), vorgang);
}

void Zustand::zuruecklegen()
{
    if (zuFrueh())
        return;
    handeln([d = m_stueck->dokument](const Arbeitsplatz &platz) { return Handlung::zuruecklegen(platz, d); },
            Wunsch::weiter(m_stueck->dokument.id, u"weiter"_s), {});
}

void Zustand::aussortieren()
{
    if (zuFrueh())
        return;
    handeln([d = m_stueck->dokument](const Arbeitsplatz &platz) { return Handlung::aussortieren(platz, d); },
            Wunsch::weiter(m_stueck->dokument.id, u"weiter"_s), Sprache::text(u"Datei wird verschoben"_s));
}

void Zustand::rueckgaengig()
{
    if (beschaeftigt())
        return warten([this] { rueckgaengig(); });
    const QString vorgang = Sprache::text(u"Datei wird zurückgeholt"_s);
    handeln(
        [melder = vorgangMelder(vorgang)](const Arbeitsplatz &platz) { return Handlung::rueckgaengig(platz, melder); },
        {}, vorgang);
}

void Zustand::letztenSchrittZurueck()
{
    if (beschaeftigt())
        return warten([this] { letztenSchrittZurueck(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::letzterSchrittZurueck(platz); }, {},
            Sprache::text(u"Datei wird zurückgeholt"_s));
}

void Zustand::zurueck()
{
    if (beschaeftigt())
        return warten([this] { zurueck(); });
    if (!m_rueckweg)
        return;
    const QString vorgang = Sprache::text(u"Datei wird zurückgeholt"_s);
    handeln([weg = *m_rueckweg, melder = vorgangMelder(vorgang)](
                const Arbeitsplatz &platz) { return Handlung::zurueck(platz, weg, melder); },
            {}, vorgang);
}

void Zustand::weiter(const QString &richtung)
{
    if (beschaeftigt())
        return warten([this, richtung] { weiter(richtung); });
    if (!kannHandeln())
        return;
    m_beschaeftigt = true;
    Q_EMIT beschaeftigtGeaendert();
    const Wunsch wunsch = Wunsch::weiter(dokumentId(), richtung);
    imHintergrund(
        this, [db = m_db, profil = *m_aktiv, wunsch] { return Blick::auf(db, profil, wunsch); },
        [this, nummer = ++m_blickfrage](const Ausgang<Blick> &ausgang) {
            if (nummer == m_blickfrage && ausgang.wert)
                zeigen(*ausgang.wert);
            freigeben();
        });
}

void Zustand::zurueckgestellteVorlegen()
{
    if (beschaeftigt())
        return warten([this] { zurueckgestellteVorlegen(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::wiederVorlegen(platz); }, {}, {});
}

void Zustand::dublettenAusraeumen()
{
    if (beschaeftigt())
        return warten([this] { dublettenAusraeumen(); });
    const QString vorgang = Sprache::text(u"Dubletten werden beiseitegelegt"_s);
    m_anhaltbar = kannHandeln();
    handeln([melder = vorgangMelder(vorgang)](
                const Arbeitsplatz &platz) { return Handlung::dublettenAusraeumen(platz, melder); },
            {}, vorgang);
}

void Zustand::zielBestaetigen()
{
    if (beschaeftigt())
        return warten([this] { zielBestaetigen(); });
    handeln([](const Arbeitsplatz &platz) { return Handlung::zielBestaetigen(platz); }, {}, {});
}

/** Tells how far a deed of many movements is, and stops it once that is wanted. */
std::function<bool(qint64, qint64)> Zustand::vorgangMelder(const QString &vorgang)
{
    m_halt = {};
    return [this, vorgang, briefe = m_briefe, halt = m_halt.get_token()](qint64 fertig, qint64 gesamt) {
        if (gesamt > 1)
            briefe->fortschreiben([this, vorgang, fertig, gesamt] {
                if (m_beschaeftigt)
                    vorgangSetzen(vorgang, double(fertig) / double(gesamt));
            });
        return !halt.stop_requested();
    };
}

void Zustand::anhalten(const QString &vorgang)
{
    m_spaeter = {}; // nothing new begins
    m_halt.request_stop();
    if (m_anhaltbar)
        Q_EMIT beschaeftigtGeaendert();
    if (m_beschaeftigt && !vorgang.isEmpty())
        vorgangSetzen(vorgang, 0);
}

void Zustand::handeln(const Tat &tat, const Wunsch &danach, const QString &vorgang)
{
    if (!kannHandeln())
        return;
    m_beschaeftigt = true;
    m_angabenFest = danach.art == Wunsch::Art::Weiter;
    Q_EMIT beschaeftigtGeaendert();
    const auto hier = dokumentId();
    const auto arbeit = [platz = Arbeitsplatz{.db = m_db, .profil = *m_aktiv, .buch = m_buch}, tat, danach, hier] {
        Tatfolge folge{.geschehen = tat(platz), .blick = {}};
        const Geschehen &g = folge.geschehen;
        Wunsch wunsch = Wunsch::behalten(hier);
        if (g.wieder)
            wunsch = Wunsch::dieses(*g.wieder, hier);
        else if (g.gelungen && danach.art == Wunsch::Art::Weiter)
            wunsch = danach;
        folge.blick = Blick::auf(platz.db, platz.profil, wunsch);
        return folge;
    };
    imHintergrund(this, arbeit, [this, nummer = ++m_blickfrage](const Ausgang<Tatfolge> &ausgang) {
        if (!ausgang.wert || !ausgang.wert->geschehen.gelungen)
            m_spaeter = {}; // why comes first; the next key may meet another document than it was meant for
        if (nummer == m_blickfrage && ausgang.wert)
            tatFertig(*ausgang.wert);
        else if (ausgang.wert) // of the profile that was left meanwhile
            melden(ausgang.wert->geschehen.allesGesagte(), ausgang.wert->geschehen.gelungen ? Ton::gut : Ton::warnung);
        else if (ausgang.fehler)
            melden(fehlersatz(ausgang.fehler));
        freigeben();
    });
    if (!vorgang.isEmpty())
        QTimer::singleShot(merklich, this, [this, vorgang, nummer = m_blickfrage] {
            if (m_beschaeftigt && nummer == m_blickfrage && m_vorgang.isEmpty())
                vorgangSetzen(vorgang, 0);
        });
}

void Zustand::tatFertig(const Tatfolge &folge)
{
    const Geschehen &g = folge.geschehen;
    const bool neuesBuch = g.buch != m_buch;
    m_buch = g.buch;
    if (g.gelungen)
        m_protokollmangel = g.warnungen.join(u' ');
    if (g.uebernommen)
        m_entwuerfe.verwerfen(*g.uebernommen); // whatever else is done with a document, what was typed stays
    m_geschehen = g.text;
    m_rueckweg = g.rueckweg;
    // Another document stands there now: it is not the one that this is about.
    const bool verlassen = m_angabenFest && m_stueck && folge.blick.id() != dokumentId();
    const QString woran = !g.gelungen && verlassen ? m_stueck->dokument.dateiname + u": "_s : QString();
    const bool gut = g.gelungen && g.warnungen.isEmpty();
    melden(woran + (g.warnungen + g.hinweise).join(u", "_s), gut ? Ton::gut : Ton::warnung);
    m_hinweisIstNeuer = !g.warnungen.isEmpty();
    if (gut && !g.text.isEmpty())
        m_ton = Ton::gut;
    zeigen(folge.blick);
    Q_EMIT hinweisGeaendert();
    if (g.zielFraglich)
        Q_EMIT zielFraglich();
    if (neuesBuch)
        protokolleListen();
}

void Zustand::warten(std::function<void()> spaeter)
{
    if (m_rueckbauLaeuft) // takes too long for a key to be remembered
        return melden(Sprache::text(u"Erst wird noch eine Sitzung zurückgedreht"_s));
    // The first one: what is pressed after it was meant for a document that nobody has seen yet.
    if (!m_spaeter)
        m_spaeter = std::move(spaeter);
}

void Zustand::freigeben()
{
    m_beschaeftigt = false;
    m_angabenFest = false;
    m_anhaltbar = false;
    vorgangSetzen({}, 0);
    Q_EMIT beschaeftigtGeaendert();
    if (const auto spaeter = std::exchange(m_spaeter, {}))
        spaeter();
}

void Zustand::vorgangSetzen(const QString &text, double anteil)
{
    if (text == m_vorgang && anteil == m_vorgangsanteil)
        return;
    m_vorgang = text;
    m_vorgangsanteil = anteil;
    Q_EMIT vorgangGeaendert();
}
