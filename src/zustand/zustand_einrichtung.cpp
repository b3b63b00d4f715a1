#include "analyse.h"
#include "ausnahmefilter.h"
#include "hintergrund.h"
#include "katalog.h"
#include "lernspeicher.h"
#include "pfade.h"
#include "profilsicherung.h"
#include "programmordner.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{
constexpr auto bisZumZaehlen = 300ms; // a path that is being typed changes with every key

/** What the number of files found depends on. */
QStringList zaehlschluessel(const Profil &p)
{
    return QStringList{p.quelle, p.zielWurzel, p.dublettenOrdner, QString::number(int(p.mitUnterordnern))} +
           p.ausnahmen;
}

QList<Ausnahmefilter::Regel> regelnVon(const QString &regel) { return Ausnahmefilter({regel}).regeln(); }
} // namespace

/** The facts of the setup card keep up with the profile and the catalogue. */
void Zustand::einrichtungFolgen()
{
    m_zaehltakt.setSingleShot(true);
    m_zaehltakt.setInterval(bisZumZaehlen);
    connect(&m_zaehltakt, &QTimer::timeout, this, &Zustand::quelleZaehlen);
    connect(this, &Zustand::gelerntGeaendert, this, &Zustand::gelerntLesen);
    connect(this, &Zustand::modellGeprueft, this, &Zustand::erbetenesStarten);
    connect(this, &Zustand::profileGeaendert, this, [this] {
        quelleVerfolgen();
        m_einrichtung.strukturAlt = m_aktiv && !m_aktiv->zweige.isEmpty() && !m_aktiv->zielWurzel.isEmpty() &&
                                    QDir::cleanPath(m_aktiv->zielWurzel) != m_strukturwurzel;
        strukturOrdnen();
    });
    connect(this, &Zustand::reiterGeaendert, this, [this] {
        if (m_reiter == Reiter::einrichtung)
            einrichtungPruefen();
    });
    connect(this, &Zustand::zaehlwerkGeaendert, this, [this] {
        if (!m_einrichtung.beispiel && zaehlwerk().bereit > 0)
            anderesBeispiel();
    });
    connect(this, &Zustand::aktivGeaendert, this, [this] {
        auto programme = m_einrichtung.programme;
        m_einrichtung = {};
        m_einrichtung.programme = std::move(programme);
        m_strukturVorher.clear();
        m_strukturGezeigt.reset();
        m_strukturwurzel = m_aktiv ? QDir::cleanPath(m_aktiv->zielWurzel) : QString();
        m_zaehlschluessel.clear();
        strukturOrdnen();
        einrichtungPruefen();
    });
}

void Zustand::einrichtungPruefen()
{
    if (!m_aktiv)
        return;
    imHintergrund(
        this, [] { return Programmstand::pruefen(); },
        [this](const Ausgang<Programmstand> &ausgang) {
            if (!ausgang.wert || ausgang.wert == m_einrichtung.programme)
                return;
            m_einrichtung.programme = ausgang.wert;
            Q_EMIT einrichtungGeaendert();
        });
    m_zaehlschluessel.clear();
    quelleVerfolgen();
    bereitschaftPruefen();
    gelerntLesen();
    if (!m_einrichtung.beispiel)
        anderesBeispiel();
}

void Zustand::quelleVerfolgen()
{
    if (!m_aktiv || zaehlschluessel(*m_aktiv) == m_zaehlschluessel)
        return;
    m_zaehlschluessel = zaehlschluessel(*m_aktiv);
    m_zaehlende.request_stop();
    ++m_zaehlfrage;
    m_zaehltakt.start();
}

/** Only for who looks at it: a large folder is not walked through at every start. */
void Zustand::quelleZaehlen()
{
    if (!m_aktiv)
        return;
    if (m_reiter != Reiter::einrichtung)
        return m_zaehlschluessel.clear();
    m_zaehlende = {};
    m_einrichtung.zaehlt = true;
    imHintergrund(
        this,
        [profil = *m_aktiv, db = m_db, ende = m_zaehlende.get_token()]() -> std::optional<Quellstand> {
            if (profil.quelle.isEmpty() || !istOrdner(QDir::cleanPath(profil.quelle)))
                return std::nullopt;
            return Quellstand::zaehlen(profil, db, [ende] { return ende.stop_requested(); });
        },
        [this, nummer = m_zaehlfrage](const Ausgang<std::optional<Quellstand>> &ausgang) {
            if (nummer != m_zaehlfrage)
                return;
            m_einrichtung.zaehlt = false;
            m_einrichtung.quelle = ausgang.wert.value_or(std::nullopt);
            Q_EMIT einrichtungGeaendert();
        });
    Q_EMIT einrichtungGeaendert();
}

void Zustand::setzeAbschnitt(Abschnitt abschnitt)
{
    if (m_abschnitt == abschnitt)
        return;
    m_abschnitt = abschnitt;
    Q_EMIT abschnittGeaendert();
}

QString Zustand::datenordner() { return programmOrdner(); }

void Zustand::strukturEinlesen()
{
    if (!m_aktiv || m_einrichtung.liestStruktur)
        return;
    m_einrichtung.liestStruktur = true;
    m_einrichtung.strukturmeldung.clear();
    Q_EMIT einrichtungGeaendert();
    imHintergrund(
        this,
        [ziel = m_aktiv->zielWurzel, eigene = m_aktiv->eigeneOrdner()]() -> std::optional<QList<Zweig>> {
            if (ziel.isEmpty() || !istOrdner(QDir::cleanPath(ziel)))
                return std::nullopt;
            return Profil::struktureinlesen(ziel, 2, eigene);
        },
        [this, id = m_aktiv->id, ziel = m_aktiv->zielWurzel](const Ausgang<std::optional<QList<Zweig>>> &ausgang) {
            m_einrichtung.liestStruktur = false;
            if (m_aktiv && m_aktiv->id == id && m_aktiv->zielWurzel == ziel)
                strukturEingelesen(ausgang.wert.value_or(std::nullopt));
            Q_EMIT einrichtungGeaendert();
        });
}

/** What is not there or holds nothing does not take the place of a structure that is known. */
void Zustand::strukturEingelesen(const std::optional<QList<Zweig>> &zweige)
{
    if (!zweige) {
        m_einrichtung.strukturmeldung = Sprache::text(u"Der Zielordner ist nicht erreichbar."_s);
        return bereitschaftPruefen();
    }
    if (zweige->isEmpty()) {
        m_einrichtung.strukturmeldung =
            m_aktiv->zweige.isEmpty()
                ? Sprache::text(u"Hier liegt noch keine Struktur. Lege im Zielordner Zweige, darin Ablagen und darin "
                                "Rubriken an, etwa Haushalt/Jahresablage/2024/Rechnungen, und lies dann ein."_s)
                : Sprache::text(u"Hier liegt keine Struktur. Die bisherige gilt weiter."_s);
        return;
    }
    m_strukturwurzel = QDir::cleanPath(m_aktiv->zielWurzel);
    m_einrichtung.strukturAlt = false;
    m_strukturVorher = m_aktiv->zweige;
    m_strukturGezeigt.reset();
    m_einrichtung.geradeGelesen = !m_strukturVorher.isEmpty();
    Profil neu = *m_aktiv;
    neu.zweige = *zweige;
    if (neu == *m_aktiv)
        strukturOrdnen();
    else
        profilAendern(neu);
}

void Zustand::strukturOrdnen()
{
    const QList<Zweig> jetzt = m_aktiv ? m_aktiv->zweige : QList<Zweig>();
    if (m_strukturGezeigt == jetzt)
        return;
    m_strukturGezeigt = jetzt;
    m_einrichtung.struktur = strukturzeilen(m_strukturVorher, jetzt);
    m_einrichtung.zahlen = strukturzahlen(m_einrichtung.struktur);
    Q_EMIT strukturGeaendert();
}

QString Zustand::ausnahmeAufnehmen(const QString &regel)
{
    const QList<Ausnahmefilter::Regel> neue = regelnVon(regel);
    if (!m_aktiv || neue.isEmpty())
        return {};
    const QList<Ausnahmefilter::Regel> alte = Ausnahmefilter(m_aktiv->ausnahmen).regeln();
    if (std::any_of(alte.begin(), alte.end(), [&](const auto &r) { return r.kern == neue.first().kern; }))
        return gefuellt(Sprache::text(u"%@ steht schon in der Liste"_s), {neue.first().roh});
    Profil neu = *m_aktiv;
    neu.ausnahmen << neue.first().roh;
    profilAendern(neu);
    ausnahmenAnwenden();
    return {};
}

QString Zustand::ausnahmeWaehlen()
{
    if (!m_aktiv)
        return {};
    const auto ordner = ordnerWaehlen(Sprache::text(u"Ordner wählen, der in Ruhe gelassen wird"_s),
                                      u"ausnahme-"_s + m_aktiv->id.toString(QUuid::WithoutBraces), m_aktiv->quelle);
    if (!ordner || !m_aktiv)
        return {};
    const auto regel = m_aktiv->regelFuer(*ordner);
    return regel ? ausnahmeAufnehmen(*regel)
                 : Sprache::text(u"Das ist der Herkunftsordner selbst. Dann bliebe nichts zu lesen."_s);
}

void Zustand::ausnahmeEntfernen(const QString &regel)
{
    if (!m_aktiv)
        return;
    Profil neu = *m_aktiv;
    neu.ausnahmen.removeOne(regel);
    if (neu == *m_aktiv)
        return;
    profilAendern(neu);
    ausnahmenAnwenden();
}

void Zustand::gelerntLesen()
{
    if (!offen())
        return;
    imHintergrund(
        this, [db = m_db] { return Lernstand::lesen(*db); },
        [this, nummer = m_oeffnung](const Ausgang<Lernstand> &ausgang) {
            if (nummer != m_oeffnung || !ausgang.wert || *ausgang.wert == m_einrichtung.gelerntes)
                return;
            m_einrichtung.gelerntes = *ausgang.wert;
            Q_EMIT gelerntGelesen();
        });
}

void Zustand::allesVergessen()
{
    lernenAendern([](Lernspeicher &speicher) { speicher.leeren(); }, Sprache::text(u"Alles Gelernte verworfen"_s));
}

Beispiel Zustand::beispiel() const { return m_aktiv ? Beispiel::fuer(*m_aktiv, m_einrichtung.beispiel) : Beispiel(); }

void Zustand::anderesBeispiel()
{
    if (!offen())
        return;
    imHintergrund(
        this,
        [db = m_db, id = m_einrichtung.beispiel ? m_einrichtung.beispiel->id : 0] {
            return Beispiel::naechstes(*db, id);
        },
        [this, nummer = m_oeffnung](const Ausgang<std::optional<Dokument>> &ausgang) {
            if (nummer != m_oeffnung || !ausgang.wert || *ausgang.wert == m_einrichtung.beispiel)
                return;
            m_einrichtung.beispiel = *ausgang.wert;
            Q_EMIT einrichtungGeaendert();
        });
}

bool Zustand::kenntRubrik(const QString &rubrik) const
{
    const QList<Strukturzeile> &zeilen = m_einrichtung.struktur;
    return std::any_of(zeilen.begin(), zeilen.end(), [&](const Strukturzeile &z) {
        return z.ebene == 2 && z.name == rubrik && z.wechsel != Strukturzeile::Wechsel::entfallen;
    });
}

void Zustand::spracheVorbereiten()
{
    imHintergrund(
        this,
        [] {
            Sprache::vorbereiten();
            return Sprache::eigenerOrdner();
        },
        [this](const Ausgang<QString> &ausgang) {
            if (ausgang.wert)
                Q_EMIT spracheVorbereitet(*ausgang.wert);
        });
}

void Zustand::profilEntfernen(const QUuid &id)
{
    const auto stelle = std::find_if(m_profile.begin(), m_profile.end(), [&](const Profil &p) { return p.id == id; });
    if (stelle == m_profile.end())
        return;
    if (beschaeftigt() || m_oeffnet)
        return melden(Sprache::text(u"Das geht erst, wenn fertig ist, was gerade läuft"_s));
    m_profile.erase(stelle);
    const bool warAktiv = m_aktiv && m_aktiv->id == id;
    if (warAktiv)
        profilSchliessen();
    sichern();
    Q_EMIT profileGeaendert();
    if (warAktiv && !m_profile.isEmpty())
        aktivieren(m_profile.first().id);
}

/** As before the first profile was opened. */
void Zustand::profilSchliessen()
{
    ++m_oeffnung;
    ++m_blickfrage;
    ++m_bereitschaftsfrage;
    analyseAbloesen();
    m_spaeter = {};
    m_aktiv.reset();
    m_db.reset();
    m_katalogfehler.clear();
    m_entwuerfe.schliessen();
    m_buch.reset();
    m_protokollmangel.clear();
    m_rueckweg.reset();
    m_bereitschaft.reset();
    m_geschehen.clear();
    m_nacharbeit = {};
    Q_EMIT nacharbeitGeaendert();
    Q_EMIT aktivGeaendert();
    zeigen({});
    melden({});
    protokollWaehlen(std::nullopt);
    m_protokollDateien.clear();
    Q_EMIT protokollDateienGeaendert();
    Q_EMIT laufGeaendert();
    Q_EMIT bereitschaftGeaendert();
}
