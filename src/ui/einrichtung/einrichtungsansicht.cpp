#include "einrichtungsansicht.h"

#include "abschnitte.h"
#include "abschnittsliste.h"
#include "abschnittsseite.h"
#include "bau.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "erststart.h"
#include "hauptknopf.h"
#include "hinweisfeld.h"
#include "leeransicht.h"
#include "marktext.h"
#include "modelldienst.h"
#include "profilleiste.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zustand.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;

namespace
{
constexpr int listenbreite = 300;
constexpr int wenigeZeichen = 84;        // in a line of a section: fewer, and nothing stands beside a field
constexpr double hoechstenAnteil = 0.32; // of the list where the font is large
} // namespace

EinrichtungsAnsicht::EinrichtungsAnsicht(Zustand *zustand, Fenstersprache *sprache, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this))
{
    setObjectName(u"einrichtung"_s);
    setFocusPolicy(Qt::ClickFocus);
    auto *erststart = new Erststart(Profilwahl::datenordner(), m_zustand->profilwahl()->unlesbareProfile(), this);
    connect(erststart, &Erststart::anlegen, m_zustand->profilwahl(), &Profilwahl::neuesProfil);
    auto *inhalt = new QWidget(this);
    auto *waagrecht = new QHBoxLayout(inhalt);
    waagrecht->setContentsMargins(0, 0, 0, 0);
    waagrecht->setSpacing(1);
    waagrecht->addWidget(linkeSeite());
    waagrecht->addWidget(rechteSeite(sprache), 1);
    m_stapel->addWidget(erststart);
    m_stapel->addWidget(inhalt);
    for (const auto signal : {&Einrichtung::abschnittGeaendert, &Einrichtung::staendeGeaendert})
        connect(m_zustand->einrichtung(), signal, this, &EinrichtungsAnsicht::zeigen);
    connect(m_zustand->profilwahl(), &Profilwahl::oeffnetGeaendert, this, &EinrichtungsAnsicht::zeigen);
    connect(m_zustand->durchgang(), &Durchgang::laufGeaendert, this, &EinrichtungsAnsicht::zeigen);
    Stil::folgen(this, [this] { beschriftungenAusrichten(); });
    zeigen();
}

QWidget *EinrichtungsAnsicht::linkeSeite()
{
    m_links = new QWidget(this);
    m_liste = new Abschnittsliste(m_zustand->einrichtung(), m_links);
    auto *profil = new Profilleiste(m_zustand->profilwahl(), m_links);
    auto *spalte = new QVBoxLayout(m_links);
    spalte->addWidget(m_liste, 1);
    spalte->addWidget(profil);
    Stil::folgen(m_links, [spalte] {
        spalte->setContentsMargins(abstand(12), abstand(14), abstand(12), abstand(8));
        spalte->setSpacing(abstand(8));
    });
    return m_links;
}

QWidget *EinrichtungsAnsicht::rechteSeite(Fenstersprache *sprache)
{
    auto *seite = new QWidget(this);
    m_seiten = new QStackedWidget(seite);
    seitenBauen(sprache); // before the button below: Tab goes through them in the order of their making
    m_fuss = new QWidget(seite);
    m_weiter = new Hauptknopf({}, m_fuss);
    m_weiter->setObjectName(u"weiter"_s);
    m_grund = new Marktext(m_fuss);
    m_grund->setObjectName(u"weiter-grund"_s);
    auto *reihe = new QHBoxLayout(m_fuss);
    reihe->addWidget(m_weiter);
    reihe->addWidget(m_grund, 1);
    auto *spalte = new QVBoxLayout(seite);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->setSpacing(0);
    m_katalogfehler = new Hinweisfeld(
        Symbol::Warnung, {}, {{.name = u"katalogErneutOeffnen"_s, .text = Sprache::text(u"Noch einmal versuchen"_s)}},
        seite);
    m_katalogfehler->setObjectName(u"katalogfehler"_s);
    connect(m_katalogfehler, &Hinweisfeld::gedrueckt, m_zustand->profilwahl(), &Profilwahl::erneutOeffnen);
    spalte->addWidget(m_katalogfehler);
    spalte->addWidget(m_seiten, 1);
    spalte->addWidget(m_fuss);
    connect(m_weiter, &QPushButton::clicked, this, &EinrichtungsAnsicht::weiter);
    Stil::folgen(m_fuss, [reihe] {
        reihe->setContentsMargins(abschnittsrand(), abstand(10), abschnittsrand(), abstand(10));
        reihe->setSpacing(abstand(16));
    });
    return seite;
}

void EinrichtungsAnsicht::seitenBauen(Fenstersprache *sprache)
{
    Profilwahl *wahl = m_zustand->profilwahl();
    Einrichtung *einrichtung = m_zustand->einrichtung();
    const QList<Abschnittsseite *> seiten = {
        programmseite(wahl, einrichtung, m_zustand->modelldienst(), this),
        herkunftseite(wahl, einrichtung, m_zustand->pruefung(), this),
        zielseite(wahl, einrichtung, this),
        namenseite(wahl, einrichtung, this),
        eigentuemerseite(wahl, einrichtung, this),
        modellseite(wahl, einrichtung, m_zustand->modelldienst(), this),
        gelerntseite(wahl, einrichtung, this),
        oberflaechenseite(wahl, einrichtung, sprache, this),
    };
    for (const Abschnitt abschnitt : alleAbschnitte()) {
        Abschnittsseite *seite = seiten.at(int(abschnitt));
        m_abschnitte[abschnitt] = seite;
        m_seiten->addWidget(rollbereich(seite, m_seiten));
    }
}

/** One column of labels in all sections, so that nothing jumps from one to the next. */
void EinrichtungsAnsicht::beschriftungenAusrichten()
{
    int breite = 0;
    for (const Abschnittsseite *seite : std::as_const(m_abschnitte))
        breite = std::max(breite, seite->beschriftungsbreite());
    for (Abschnittsseite *seite : std::as_const(m_abschnitte))
        seite->setzeBeschriftungsbreite(breite);
    resizeEvent(nullptr);
}

void EinrichtungsAnsicht::resizeEvent(QResizeEvent *)
{
    const int links = std::min(abstand(listenbreite), int(width() * hoechstenAnteil));
    m_links->setFixedWidth(links);
    const int breite = width() - links;
    const bool eng = breite < wenigeZeichen * fontMetrics().averageCharWidth();
    setzeEng(eng);
    // In some languages words are longer.
    const auto zuBreit = [breite](const QWidget *seite) { return seite->minimumSizeHint().width() > breite; };
    if (!eng && std::any_of(m_abschnitte.begin(), m_abschnitte.end(), zuBreit))
        setzeEng(true);
}

void EinrichtungsAnsicht::setzeEng(bool eng)
{
    for (Abschnittsseite *seite : std::as_const(m_abschnitte))
        seite->setzeEng(eng);
}

void EinrichtungsAnsicht::zeigen()
{
    const bool da = m_zustand->profilwahl()->aktiv() != nullptr;
    const bool gewechselt = m_stapel->currentIndex() != (da ? 1 : 0);
    m_stapel->setCurrentIndex(da ? 1 : 0);
    setFocusProxy(da ? static_cast<QWidget *>(m_liste) : m_stapel->widget(0));
    if (gewechselt && isVisible())
        setFocus();
    m_katalogfehler->setVisible(!m_zustand->profilwahl()->katalogfehler().isEmpty());
    if (!m_zustand->profilwahl()->katalogfehler().isEmpty())
        m_katalogfehler->setzeText(gefuellt(Sprache::text(u"Der Katalog lässt sich nicht öffnen: %@"_s),
                                            {katalogfehlersatz(*m_zustand->profilwahl())}));
    m_seiten->setCurrentIndex(int(m_zustand->einrichtung()->abschnitt()));
    if (da)
        weiterZeigen();
    update();
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
    if (m_zustand->profilwahl()->aktiv())
        weiterZeigen();
}

void EinrichtungsAnsicht::weiterZeigen()
{
    if (!isVisible())
        return; // a run tells of its progress many times a second
    const auto naechster = m_zustand->einrichtung()->naechsterAbschnitt(m_zustand->einrichtung()->abschnitt());
    const QString hindernis = naechster ? QString() : m_zustand->einrichtung()->starthindernis();
    const QString fussnote = zustand::fussnote(m_zustand->einrichtung()->abschnitt(), m_zustand->einrichtung()->lage());
    m_weiter->setText(naechster ? gefuellt(Sprache::text(u"Weiter zu %@"_s), {abschnittTitel(*naechster)})
                                : Sprache::text(u"Durchgang starten"_s));
    m_weiter->setAccessibleName(m_weiter->text());
    m_weiter->setEnabled(hindernis.isEmpty());
    m_weiter->updateGeometry();
    m_grund->erklaeren(hindernis.isEmpty() ? fussnote : hindernis);
    m_weiter->setAccessibleDescription(m_grund->text());
}

void EinrichtungsAnsicht::weiter()
{
    if (const auto naechster = m_zustand->einrichtung()->naechsterAbschnitt(m_zustand->einrichtung()->abschnitt())) {
        m_zustand->einrichtung()->setzeAbschnitt(*naechster);
        return;
    }
    if (!m_zustand->einrichtung()->starthindernis().isEmpty())
        return;
    m_zustand->setzeReiter(Reiter::Ablauf);
    m_zustand->durchgang()->durchgangErbitten();
}

void EinrichtungsAnsicht::paintEvent(QPaintEvent *)
{
    if (!m_zustand->profilwahl()->aktiv())
        return;
    QPainter maler(this);
    maler.fillRect(m_links->width(), 0, 1, height(), Stil::linie(palette()));
    maler.fillRect(m_links->width(), height() - m_fuss->height(), width(), 1, Stil::linie(palette()));
}
} // namespace quillmar::einrichtung
