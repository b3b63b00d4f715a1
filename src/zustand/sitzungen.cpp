#include "sitzungen.h"

#include "ausfuehrung.h"
#include "fehlersatz.h"
#include "offenesprofil.h"
#include "ordnerwahl.h"
#include "profilwahl.h"
#include "protokollbuch.h"
#include "pruefung.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
/** To free a hundred thousand lines takes a while, so it is done elsewhere. */
void fortgeben(QList<Protokollzeile> zeilen)
{
    if (!zeilen.isEmpty())
        Hintergrund::starten([zeilen = std::move(zeilen)]() mutable { zeilen.clear(); });
}

/** What @p bilanz comes to, in one line. */
QString zusammenfassung(const Bilanz &bilanz)
{
    const qint64 fehler = bilanz.fehler.size();
    QStringList teile = {gefuellt(Sprache::text(u"%@ zurückgeholt"_s), {QString::number(bilanz.zurueckgedreht)})};
    if (!bilanz.uebersprungen.isEmpty())
        teile << gefuellt(Sprache::text(u"%@ übersprungen"_s), {QString::number(bilanz.uebersprungen.size())});
    if (fehler >= 1)
        teile << gefuellt(Sprache::text(fehler, u"1 Fehler"_s, u"%@ Fehler"_s), {QString::number(fehler)});
    return teile.join(u", "_s);
}
} // namespace

Sitzungen::Inhalt Sitzungen::Inhalt::von(const QString &datei)
{
    return {.kopf = Protokollbuch::kopf(datei), .zeilen = Protokollbuch::lesen(datei)};
}

Sitzungen::Sitzungen(Profilwahl *profilwahl, Pruefung *pruefung, Ausfuehrung *ausfuehrung)
    : m_profilwahl(profilwahl), m_pruefung(pruefung), m_ausfuehrung(ausfuehrung), m_liste(this), m_lesung(this),
      m_nachlesung(this)
{
    connect(m_profilwahl, &Profilwahl::eingetreten, this, &Sitzungen::eintreten);
    connect(m_profilwahl, &Profilwahl::einstellungenGeaendert, this, [this](const Profil &vorher) {
        if (vorher.protokollURL() != m_profilwahl->aktiv()->protokollURL())
            protokolleListen();
    });
    connect(m_ausfuehrung, &Ausfuehrung::buchBegonnen, this, &Sitzungen::protokolleListen);
}

void Sitzungen::eintreten()
{
    protokollWaehlen(std::nullopt);
    m_dateien.clear();
    protokolleListen();
}

const Protokollbuch *Sitzungen::laufendesBuch() const
{
    return m_profilwahl->offenes() ? m_profilwahl->offenes()->buch().get() : nullptr;
}

QString Sitzungen::laufendeDatei() const { return laufendesBuch() ? laufendesBuch()->datei() : QString(); }

QString Sitzungen::protokollmangel() const
{
    return m_profilwahl->offenes() ? m_profilwahl->offenes()->protokollmangel() : QString();
}

void Sitzungen::protokolleListen()
{
    const auto ordner = m_profilwahl->aktiv() ? m_profilwahl->aktiv()->protokollURL() : std::nullopt;
    m_liste.verwerfen(); // of the folder that was chosen before
    if (!ordner)
        return setzeDateien({});
    m_liste.stellen(
        [ordner = *ordner] { return Protokollbuch::dateien(ordner); },
        [this](const Ausgang<QStringList> &ausgang) { setzeDateien(ausgang.wert.value_or(QStringList())); });
}

void Sitzungen::setzeDateien(const QStringList &dateien)
{
    m_dateien = dateien;
    Q_EMIT protokollDateienGeaendert();
}

void Sitzungen::protokollWaehlen(const std::optional<QString> &datei)
{
    m_lesung.verwerfen();
    m_nachlesung.verwerfen();
    m_datei = datei;
    m_rueckbau.meldung.clear();
    m_rueckbau.bilanz = {};
    if (datei)
        m_lesung.stellen([datei = *datei] { return Inhalt::von(datei); },
                         [this](const Ausgang<Inhalt> &ausgang) { setzeInhalt(ausgang.wert.value_or(Inhalt{})); });
    setzeInhalt({});
    Q_EMIT rueckbauGeaendert();
}

void Sitzungen::setzeInhalt(const Inhalt &inhalt)
{
    m_kopf = inhalt.kopf;
    QList<Protokollzeile> alte = std::exchange(m_zeilen, inhalt.zeilen);
    Q_EMIT protokollGeaendert();
    fortgeben(std::move(alte));
}

void Sitzungen::protokollAuffrischen()
{
    if (!m_datei || protokollLaedt())
        return;
    if (m_nachlesung.laeuft()) { // deeds may come faster than a large log is read: it is shown all the same
        m_nochmal = true;
        return;
    }
    m_nochmal = false;
    m_nachlesung.stellen(
        [datei = *m_datei, bisher = m_zeilen.size()] {
            Inhalt inhalt = Inhalt::von(datei);
            return inhalt.zeilen.size() > bisher ? inhalt : Inhalt{}; // lines are only ever added
        },
        [this](const Ausgang<Inhalt> &ausgang) {
            if (ausgang.wert && ausgang.wert->zeilen.size() > m_zeilen.size())
                setzeInhalt(*ausgang.wert);
            if (m_nochmal)
                protokollAuffrischen();
        });
}

void Sitzungen::protokollDateiWaehlen()
{
    const auto ordner = m_profilwahl->aktiv() ? m_profilwahl->aktiv()->protokollURL() : std::nullopt;
    const auto datei = Ordnerwahl::protokollWaehlen(Sprache::text(u"Protokolldatei einer früheren Sitzung wählen"_s),
                                                    ordner.value_or(QString()));
    if (datei)
        protokollWaehlen(datei);
}

void Sitzungen::protokollZurueckdrehen()
{
    if (!m_profilwahl->kannHandeln() || m_ausfuehrung->beschaeftigt() || !m_datei)
        return;
    m_rueckbau = {.laeuft = true, .datei = *m_datei, .meldung = Sprache::text(u"Wird zurückgedreht"_s)};
    for (const Protokollzeile &zeile : std::as_const(m_zeilen))
        m_rueckbau.orte << nfc(zeile.von);
    const std::stop_token ende = m_ausfuehrung->rueckbauBeginnen();
    Q_EMIT rueckbauGeaendert();
    const Profil &profil = *m_profilwahl->aktiv();
    imHintergrund(
        this,
        [datei = *m_datei, db = m_profilwahl->offenes()->db(), melder = fortschritt(), ende, profil] {
            return Protokollbuch::zurueckdrehen(datei, db, melder, ende, {profil.quelle, profil.zielWurzel}, profil);
        },
        [this](const Ausgang<Bilanz> &ausgang) {
            Bilanz bilanz = ausgang.wert.value_or(Bilanz{});
            if (!ausgang.wert)
                bilanz.fehler << Rueckbaubefund{.stelle = -1, .grund = fehlersatz(ausgang.fehler)};
            zurueckgedreht(bilanz);
        });
}

std::function<void(qint64, qint64)> Sitzungen::fortschritt()
{
    return [this, briefe = Briefkasten::fuer(this)](qint64 fertig, qint64 gesamt) {
        briefe->fortschreiben([this, fertig, gesamt] {
            m_rueckbau.anteil = gesamt > 0 ? double(fertig) / double(gesamt) : 0;
            Q_EMIT rueckbauGeaendert();
        });
    };
}

void Sitzungen::zurueckgedreht(const Bilanz &bilanz)
{
    m_rueckbau.laeuft = false;
    const bool glatt = bilanz.verweigert.isEmpty() && bilanz.fehler.isEmpty() && bilanz.uebersprungen.isEmpty();
    m_rueckbau.meldung = bilanz.verweigert.isEmpty() ? zusammenfassung(bilanz) : bilanz.verweigert;
    m_rueckbau.ton = glatt ? Ton::Gut : Ton::Warnung;
    // Its entries are numbers of lines: another log that was chosen meanwhile has other lines.
    if (m_datei == m_rueckbau.datei)
        m_rueckbau.bilanz = bilanz;
    Q_EMIT zurueckgeholt(std::exchange(m_rueckbau.orte, {}));
    m_ausfuehrung->rueckbauBeenden();
    Q_EMIT rueckbauGeaendert();
    m_pruefung->aktualisieren();
}

void Sitzungen::nachsprechen()
{
    m_rueckbau.meldung = Sprache::nachgesprochen(m_rueckbau.meldung);
    for (QList<Rueckbaubefund> *befunde : {&m_rueckbau.bilanz.fehler, &m_rueckbau.bilanz.uebersprungen}) {
        for (Rueckbaubefund &befund : *befunde)
            befund.grund = Sprache::nachgesprochen(befund.grund);
    }
    Q_EMIT rueckbauGeaendert();
}
} // namespace quillmar::zustand
