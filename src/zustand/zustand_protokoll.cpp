#include "einstellungen.h"
#include "fehlersatz.h"
#include "hintergrund.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto schluesselOrdner = "ordner/protokolldatei"_L1;

struct Sitzung {
    std::optional<Protokollkopf> kopf;
    QList<Protokollzeile> zeilen;

    static Sitzung von(const QString &datei)
    {
        return {.kopf = Protokollbuch::kopf(datei), .zeilen = Protokollbuch::lesen(datei)};
    }
};

/** To free a hundred thousand lines takes a while, so it is done elsewhere. */
void fortgeben(QList<Protokollzeile> zeilen)
{
    Hintergrund::starten([zeilen = std::move(zeilen)]() mutable { zeilen.clear(); });
}
} // namespace

void Zustand::protokolleListen()
{
    const auto ordner = m_aktiv ? m_aktiv->protokollURL() : std::nullopt;
    if (!ordner) {
        m_protokollDateien.clear(); // those of the folder that was chosen before
        return Q_EMIT protokollDateienGeaendert();
    }
    imHintergrund(
        this, [ordner = *ordner] { return Protokollbuch::dateien(ordner); },
        [this, ordner](const Ausgang<QStringList> &ausgang) {
            if (!m_aktiv || m_aktiv->protokollURL() != ordner)
                return; // another folder was chosen meanwhile
            m_protokollDateien = ausgang.wert.value_or(QStringList());
            Q_EMIT protokollDateienGeaendert();
        });
}

void Zustand::protokollWaehlen(const std::optional<QString> &datei)
{
    const quint64 nummer = ++m_protokollfrage;
    m_protokollDatei = datei;
    m_protokollKopf.reset();
    QList<Protokollzeile> alte = std::exchange(m_protokollZeilen, {});
    m_protokollLaedt = datei.has_value();
    m_rueckbauMeldung.clear();
    m_rueckbauBilanz = {};
    Q_EMIT protokollGeaendert();
    Q_EMIT rueckbauGeaendert();
    fortgeben(std::move(alte));
    if (!datei)
        return;
    imHintergrund(
        this, [datei = *datei] { return Sitzung::von(datei); },
        [this, nummer](const Ausgang<Sitzung> &ausgang) {
            if (nummer != m_protokollfrage)
                return;
            const Sitzung sitzung = ausgang.wert.value_or(Sitzung{});
            m_protokollKopf = sitzung.kopf;
            m_protokollZeilen = sitzung.zeilen;
            m_protokollLaedt = false;
            Q_EMIT protokollGeaendert();
        });
}

void Zustand::protokollAuffrischen()
{
    if (!m_protokollDatei || m_protokollLaedt)
        return;
    imHintergrund(
        this,
        [datei = *m_protokollDatei, bisher = m_protokollZeilen.size()] {
            Sitzung sitzung = Sitzung::von(datei);
            return sitzung.zeilen.size() > bisher ? sitzung : Sitzung{}; // lines are only ever added
        },
        [this, nummer = m_protokollfrage](const Ausgang<Sitzung> &ausgang) {
            if (nummer != m_protokollfrage || !ausgang.wert || ausgang.wert->zeilen.size() <= m_protokollZeilen.size())
                return;
            m_protokollKopf = ausgang.wert->kopf;
            QList<Protokollzeile> alte = std::exchange(m_protokollZeilen, ausgang.wert->zeilen);
            Q_EMIT protokollGeaendert();
            fortgeben(std::move(alte));
        });
}

void Zustand::protokollDateiWaehlen()
{
    if (!protokollwaehler)
        return;
    QString beginn = Einstellungen::wert(schluesselOrdner).toString();
    if (beginn.isEmpty() && m_aktiv)
        beginn = m_aktiv->protokollURL().value_or(QString());
    const auto datei = protokollwaehler(Sprache::text(u"Protokolldatei einer früheren Sitzung wählen"_s), beginn);
    if (!datei)
        return;
    Einstellungen::setzen(schluesselOrdner, QFileInfo(*datei).path());
    protokollWaehlen(datei);
}

void Zustand::protokollZurueckdrehen()
{
    if (!kannHandeln() || beschaeftigt() || !m_protokollDatei)
        return;
    m_rueckbauLaeuft = true;
    m_rueckbauAnteil = 0;
    m_halt = std::stop_source();
    m_rueckbauBilanz = {};
    m_rueckbauDatei = *m_protokollDatei;
    m_rueckbauMeldung = Sprache::text(u"Wird zurückgedreht"_s);
    ++m_blickfrage;
    Q_EMIT rueckbauGeaendert();
    Q_EMIT beschaeftigtGeaendert();
    const auto fortschritt = [this, briefe = m_briefe](qint64 fertig, qint64 gesamt) {
        briefe->fortschreiben([this, fertig, gesamt] {
            m_rueckbauAnteil = gesamt > 0 ? double(fertig) / double(gesamt) : 0;
            Q_EMIT rueckbauGeaendert();
        });
    };
    imHintergrund(
        this,
        [datei = *m_protokollDatei, db = m_db, fortschritt, ende = m_halt.get_token(),
         grenzen = QStringList{m_aktiv->quelle, m_aktiv->zielWurzel}] {
            return Protokollbuch::zurueckdrehen(datei, db, fortschritt, ende, grenzen);
        },
        [this](const Ausgang<Bilanz> &ausgang) {
            Bilanz bilanz = ausgang.wert.value_or(Bilanz{});
            if (!ausgang.wert)
                bilanz.fehler << Rueckbaubefund{.stelle = -1, .grund = fehlersatz(ausgang.fehler)};
            rueckbauFertig(bilanz);
        });
}

void Zustand::rueckbauFertig(const Bilanz &bilanz)
{
    const qint64 fehler = bilanz.fehler.size();
    QStringList teile = {gefuellt(Sprache::text(u"%@ zurückgeholt"_s), {QString::number(bilanz.zurueckgedreht)})};
    if (!bilanz.uebersprungen.isEmpty())
        teile << gefuellt(Sprache::text(u"%@ übersprungen"_s), {QString::number(bilanz.uebersprungen.size())});
    if (fehler >= 1)
        teile << gefuellt(Sprache::text(fehler, u"1 Fehler"_s, u"%@ Fehler"_s), {QString::number(fehler)});
    m_rueckbauMeldung = teile.join(u", "_s);
    m_rueckbauTon = fehler >= 1 || !bilanz.uebersprungen.isEmpty() ? Ton::warnung : Ton::gut;
    // Its entries are numbers of lines: another log that was chosen meanwhile has other lines.
    if (m_protokollDatei == m_rueckbauDatei)
        m_rueckbauBilanz = bilanz;
    m_rueckbauLaeuft = false;
    m_rueckweg.reset();
    m_geschehen.clear();
    Q_EMIT rueckbauGeaendert();
    Q_EMIT beschaeftigtGeaendert();
    Q_EMIT hinweisGeaendert();
    aktualisieren();
}
