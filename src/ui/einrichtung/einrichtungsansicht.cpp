#include "einrichtungsansicht.h"

#include "abschnitte.h"
#include "abschnittsseite.h"
#include "anordnung.h"
#include "bau.h"
#include "dateiverwaltung.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "hinweisfeld.h"
#include "katalogpflege.h"
#include "kleiderordnung.h"
#include "leeransicht.h"
#include "liste.h"
#include "profilleiste.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"
#include "zustand.h"

#include <QDesktopServices>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedLayout>
#include <QStackedWidget>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
constexpr int listenbreite = 300;
constexpr int listenanteil = 32;  // of 100, where the font is large
constexpr int wenigeZeichen = 84; // in a line of a section: fewer, and nothing stands beside a field
} // namespace

EinrichtungsAnsicht::EinrichtungsAnsicht(Zustand *zustand, Fenstersprache *sprache, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this)),
      m_liste(new Liste(u"abschnitte"_s, Sprache::text(u"Abschnitte der Einrichtung"_s))),
      m_zeilen(new Listenmodell(this)), m_seiten(new QStackedWidget),
      m_katalogfehler(
          new Hinweisfeld(Symbol::Warnung, {},
                          {{.name = u"katalogErneutOeffnen"_s, .text = Sprache::text(u"Noch einmal versuchen"_s)},
                           {.name = u"letzteSicherungEinsetzen"_s,
                            .text = {},
                            .hilfe = Sprache::text(u"Der jetzige Katalog bleibt daneben liegen"_s)}})),
      m_angebot(
          new Hinweisfeld(Symbol::Info, {},
                          {{.name = u"angebotLernen"_s,
                            .text = Sprache::text(u"Aus der Ablage lernen"_s),
                            .hilfe = Sprache::text(u"Liest Namen und Ordner und zeigt zuerst, was zu lernen wäre"_s)},
                           {.name = u"angebotAblehnen"_s,
                            .text = Sprache::text(u"Nicht jetzt"_s),
                            .hilfe = Sprache::text(u"Später geht es jederzeit unter „Gelernt“"_s)}})),
      m_weiter(hauptknopf(u"weiter"_s)),
      m_grund(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"weiter-grund"_s))
{
    setObjectName(u"einrichtung"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_stapel->addWidget(erststart());
    m_stapel->addWidget(
        traeger(reihe({{linkeSeite(), listenanteil}, linie(Qt::Vertical), {rechteSeite(sprache), 100 - listenanteil}},
                      Abstand::Keiner)));
    for (const auto signal : {&Einrichtung::abschnittGeaendert, &Einrichtung::staendeGeaendert})
        connect(m_zustand->einrichtung(), signal, this, &EinrichtungsAnsicht::zeigen);
    connect(m_zustand->profilwahl(), &Profilwahl::oeffnetGeaendert, this, &EinrichtungsAnsicht::zeigen);
    connect(m_zustand->durchgang(), &Durchgang::laufGeaendert, this, &EinrichtungsAnsicht::weiterZeigen);
    connect(m_weiter, &QPushButton::clicked, this, &EinrichtungsAnsicht::weiter);
    connect(m_zustand->einrichtung()->ablagelernen(), &Ablagelernen::geaendert, this,
            &EinrichtungsAnsicht::angebotZeigen);
    connect(m_angebot, &Hinweisfeld::gedrueckt, this, &EinrichtungsAnsicht::angebotBeantworten);
    connect(m_katalogfehler, &Hinweisfeld::gedrueckt, this, &EinrichtungsAnsicht::katalogRetten);
    connect(m_zustand->einrichtung(), &Einrichtung::spracheVorbereitet, this,
            [](const QString &ordner) { QDesktopServices::openUrl(QUrl::fromLocalFile(ordner)); });
    Stil::folgen(this, [this] {
        m_fenster = spracheUndSchrift();
        zeigen();
    });
}

/** What the program does and the one next step; before all else, when this is no first start. */
QWidget *EinrichtungsAnsicht::erststart()
{
    auto *ansicht = new Leeransicht(nullptr, u"erstesProfil"_s, Knopfart::Haupt);
    ansicht->setzen(Symbol::GrossOrdner, ohneProfil());
    connect(ansicht, &Leeransicht::gedrueckt, m_zustand->profilwahl(), &Profilwahl::neuesProfil);
    Kette *inhalt = spalte({{ansicht, 1}});
    if (const QString verlust = profilverlust(*m_zustand->profilwahl()); !verlust.isEmpty()) {
        auto *hinweis = new Hinweisfeld(Symbol::Warnung, verlust,
                                        {{.name = u"unlesbareProfileZeigen"_s,
                                          .text = Sprache::text(u"Ordner öffnen"_s),
                                          .hilfe = Sprache::text(u"Öffnet den Ordner in der Dateiverwaltung"_s)}});
        hinweis->setObjectName(u"unlesbareProfile"_s);
        connect(hinweis, &Hinweisfeld::gedrueckt, this,
                [this] { Dateiverwaltung::zeigen(m_zustand->profilwahl()->unlesbareProfile()); });
        inhalt->insertWidget(0, hinweis);
    }
    auto *seite = fuellen(new QWidget, inhalt, Abstand::Rand, Abstand::Rand);
    seite->setObjectName(u"erststart"_s);
    seite->setFocusProxy(ansicht->knopf());
    return seite;
}

QWidget *EinrichtungsAnsicht::linkeSeite()
{
    m_liste->setModel(m_zeilen);
    abschnitteZeigen();
    connect(m_liste->selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex &jetzt) {
        if (jetzt.isValid())
            m_zustand->einrichtung()->setzeAbschnitt(Abschnitt(jetzt.row()));
    });
    auto *links = fuellen(new QWidget, spalte({{m_liste, 1}, profilleiste(m_zustand->profilwahl())}), Abstand::Feld,
                          Abstand::Feld);
    Stil::folgen(links, [links] { links->setMaximumWidth(Stil::mass(listenbreite)); });
    return links;
}

QWidget *EinrichtungsAnsicht::rechteSeite(Fenstersprache *sprache)
{
    m_katalogfehler->setObjectName(u"katalogfehler"_s);
    m_angebot->setObjectName(u"angebot"_s);
    m_angebotsrahmen = fuellen(new QWidget, spalte({m_angebot}), Abstand::Rand, Abstand::Eng);
    m_angebot->setzeText(Sprache::text(u"Im Zielordner liegen schon Dokumente. Sie können lehren, wohin die nächsten "
                                       "gehören."_s));
    seitenBauen(sprache);
    auto *fuss = fuellen(new QWidget, reihe({m_weiter, {m_grund, 1}}, Abstand::Gruppe), Abstand::Rand, Abstand::Nah);
    return traeger(spalte({m_katalogfehler, {m_seiten, 1}, m_angebotsrahmen, linie(), fuss}, Abstand::Keiner));
}

void EinrichtungsAnsicht::seitenBauen(Fenstersprache *sprache)
{
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        m_abschnitte << new Abschnittsseite(m_zustand, abschnitt, abschnittszeilen(abschnitt, m_zustand, sprache),
                                            m_seiten);
        m_seiten->addWidget(rollbereich(m_abschnitte.last()));
    }
    new Nachgeben(
        m_seiten, 1, [this](int stufe) { anordnen(stufe > 0); }, [this] { return passt(); },
        Nachgeben::Anlass::Groesse);
}

/** One column of labels in all sections, so that nothing jumps from one to the next. */
void EinrichtungsAnsicht::anordnen(bool eng)
{
    int beschriftungen = 0;
    for (const Abschnittsseite *seite : std::as_const(m_abschnitte))
        beschriftungen = std::max(beschriftungen, seite->beschriftungsbreite());
    for (Abschnittsseite *seite : std::as_const(m_abschnitte))
        seite->anordnen(eng, beschriftungen);
}

/** In some languages words are longer. */
bool EinrichtungsAnsicht::passt() const
{
    const int breite = m_seiten->width();
    return breite >= wenigeZeichen * fontMetrics().averageCharWidth() &&
           std::none_of(m_abschnitte.begin(), m_abschnitte.end(),
                        [breite](const QWidget *seite) { return seite->minimumSizeHint().width() > breite; });
}

void EinrichtungsAnsicht::zeigen()
{
    const bool da = m_zustand->profilwahl()->aktiv() != nullptr;
    const bool gewechselt = m_stapel->currentIndex() != (da ? 1 : 0);
    m_stapel->setCurrentIndex(da ? 1 : 0);
    setFocusProxy(da ? static_cast<QWidget *>(m_liste) : m_stapel->widget(0));
    if (gewechselt && isVisible())
        setFocus();
    katalogratZeigen();
    angebotZeigen();
    m_seiten->setCurrentIndex(int(m_zustand->einrichtung()->abschnitt()));
    abschnitteZeigen();
    weiterZeigen();
}

void EinrichtungsAnsicht::angebotZeigen()
{
    Ablagelernen *ablage = m_zustand->einrichtung()->ablagelernen();
    m_angebotsrahmen->setVisible(ablage->angebot());
    if (m_angebot->isVisible())
        ablage->angebotGesehen();
}

void EinrichtungsAnsicht::angebotBeantworten(int antwort)
{
    Einrichtung *einrichtung = m_zustand->einrichtung();
    if (antwort != 0)
        return einrichtung->ablagelernen()->ablehnen();
    einrichtung->setzeAbschnitt(Abschnitt::Gelernt);
    einrichtung->ablagelernen()->lesen();
}

/** What is wrong with the catalogue, and the ways on. */
void EinrichtungsAnsicht::katalogratZeigen()
{
    const Profilwahl &wahl = *m_zustand->profilwahl();
    const bool zu = !wahl.oeffnet() && !wahl.katalogfehler().isEmpty();
    const Katalograt rat = katalograt(zu ? katalogfehlersatz(wahl) : QString(), m_zustand->katalogpflege()->stand());
    m_katalogfehler->setVisible(!rat.satz.isEmpty());
    m_katalogfehler->setzeText(rat.satz);
    m_katalogfehler->knopf(0)->setVisible(rat.nochmals);
    m_katalogfehler->knopf(1)->setVisible(!rat.knopf.isEmpty());
    m_katalogfehler->knopf(1)->setText(rat.knopf);
}

void EinrichtungsAnsicht::katalogRetten(int antwort)
{
    Profilwahl *wahl = m_zustand->profilwahl();
    const QList<Sicherung> &sicherungen = m_zustand->katalogpflege()->stand().sicherungen;
    if (antwort == 0)
        wahl->erneutOeffnen();
    else if (!sicherungen.isEmpty())
        wahl->sicherungEinsetzen(sicherungen.first().datei);
}

/** A mark for the state of each section, its title and one line of what is set. */
void EinrichtungsAnsicht::abschnitteZeigen()
{
    QList<Listenzeile> zeilen;
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        Abschnittsstand stand = m_zustand->einrichtung()->abschnittsstand(abschnitt);
        if (abschnitt == Abschnitt::Oberflaeche)
            stand.zeile = m_fenster;
        zeilen << Listenzeile{.kennung = int(abschnitt),
                              .erste = abschnittTitel(abschnitt),
                              .zweite = stand.zeile.isNull() ? u""_s : stand.zeile,
                              .marke = symbol(stand.marke()),
                              .ansage = vorgelesen({abschnittTitel(abschnitt), stand.markenwort(), stand.zeile})};
    }
    m_zeilen->setzen(zeilen);
    m_liste->setCurrentIndex(m_zeilen->index(int(m_zustand->einrichtung()->abschnitt())));
}

/** Whoever comes back from another program may have made a folder there, or installed what was missing. */
void EinrichtungsAnsicht::changeEvent(QEvent *ereignis)
{
    QWidget::changeEvent(ereignis);
    if (ereignis->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        m_zustand->einrichtung()->einrichtungPruefen();
}

void EinrichtungsAnsicht::showEvent(QShowEvent *ereignis)
{
    QWidget::showEvent(ereignis);
    angebotZeigen();
    weiterZeigen();
}

void EinrichtungsAnsicht::weiterZeigen()
{
    if (!isVisible() || !m_zustand->profilwahl()->aktiv())
        return; // a run tells of its progress many times a second
    const auto [titel, grund, geht] = m_zustand->einrichtung()->fortsetzung();
    benennen(m_weiter, titel, grund);
    m_weiter->setEnabled(geht);
    m_grund->setzeText(grund);
}

void EinrichtungsAnsicht::weiter()
{
    Einrichtung *einrichtung = m_zustand->einrichtung();
    if (const auto naechster = einrichtung->naechsterAbschnitt(einrichtung->abschnitt()))
        return einrichtung->setzeAbschnitt(*naechster);
    if (!einrichtung->starthindernis().isEmpty())
        return;
    m_zustand->setzeReiter(Reiter::Ablauf);
    m_zustand->durchgang()->durchgangErbitten();
}
} // namespace quillmar::einrichtung
