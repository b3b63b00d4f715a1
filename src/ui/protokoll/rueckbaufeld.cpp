#include "rueckbaufeld.h"

#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "hinweisfeld.h"
#include "meldestelle.h"
#include "meldungszeile.h"
#include "profilwahl.h"
#include "protokollkarte.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sprache.h"
#include "textschild.h"
#include "zustand.h"

#include <QApplication>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
namespace
{
constexpr int fehlerzeilen = 4;

QPlainTextEdit *fehlerfeld()
{
    auto *feld = new QPlainTextEdit;
    bezeichnen(feld, u"rueckbauFehler"_s, Sprache::text(u"Was sich nicht zurückdrehen ließ"_s));
    feld->setReadOnly(true);
    feld->setTabChangesFocus(true);
    feld->setFrameShape(QFrame::NoFrame);
    feld->setLineWrapMode(QPlainTextEdit::NoWrap);
    hoeheFuer(feld, fehlerzeilen);
    return feld;
}
} // namespace

Rueckbaufeld::Rueckbaufeld(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_erklaerung(erklaerung({})), m_fehler(fehlerfeld()),
      m_stapel(new QStackedWidget),
      m_zurueckdrehen(knopf(u"sitzungZurueckdrehen"_s, Sprache::text(u"Sitzung zurückdrehen"_s), {}, Knopfart::Hoch,
                            Symbol::Ruecknehmen)),
      m_letzten(knopf(u"letztenSchrittZurueck"_s, Sprache::text(u"Letzten Schritt zurück"_s),
                      Sprache::text(u"Dreht nur die allerletzte Bewegung um, unabhängig von der Auswahl"_s),
                      Knopfart::Hoch)),
      m_frage(new Rueckfrage({{.name = u"jaZurueckdrehen"_s,
                               .text = Sprache::text(u"Ja, zurückdrehen"_s),
                               .hilfe = Sprache::text(u"Führt die Rückabwicklung jetzt aus"_s)}},
                             {.name = u"rueckbauAbbrechen"_s,
                              .text = Sprache::text(u"Abbrechen"_s),
                              .hilfe = Sprache::text(u"Lässt alles, wie es ist"_s)})),
      m_lauf(schild({}, Schrift::Grund, u"rueckbauLauf"_s)), m_balken(balken(u"rueckbauBalken"_s)),
      m_anhalten(knopf(u"rueckbauAnhalten"_s, Sprache::text(u"Anhalten"_s),
                       Sprache::text(u"Hört nach den Bewegungen auf, die gerade im Gang sind. Der Rest bleibt, wie er "
                                     "ist."_s),
                       Knopfart::Hoch)),
      m_meldung(new Textschild(Textschild::Art::KurzEnde, Schrift::Grund, u"rueckbauMeldung"_s))
{
    setObjectName(u"rueckbau"_s);
    m_frage->setObjectName(u"rueckbauFrage"_s);
    m_stapel->addWidget(knopfseite());
    m_stapel->addWidget(traeger(spalte({Teil::rest(), m_frage})));
    m_stapel->addWidget(traeger(spalte({Teil::rest(), reihe({m_lauf, {m_balken, 1}, m_anhalten})})));
    anordnen();
    verbinden();
    zeigen();
    meldungZeigen();
}

/** One grid for both sides, so that their buttons stand at one height; the shares of the panes are its columns. */
void Rueckbaufeld::anordnen()
{
    auto *raster = new QGridLayout(this);
    setzeLuecken(this, Abstand::Keiner, Abstand::Keiner);
    raster->addWidget(linie(), 0, 0, 1, 3);
    raster->addWidget(linie(Qt::Vertical), 1, 1, 2, 1);
    const auto legen = [raster](QWidget *teil, int zeile, int spalte, Qt::Alignment wo = {}) {
        teil->setMinimumWidth(1); // the share counts, not what is in it
        setzeRaender(teil, spalte == 0 ? Abstand::Nah : Abstand::Rand, Abstand::Eng);
        raster->addWidget(teil, zeile, spalte, wo);
    };
    legen(linkeSeite(), 1, 0, Qt::AlignBottom);
    legen(traeger(spalte({m_stapel})), 1, 2);
    legen(traeger(spalte({m_meldung})), 2, 2);
}

QWidget *Rueckbaufeld::linkeSeite()
{
    auto *oeffnen = flachknopf(
        u"protokollOeffnen"_s, Symbol::OrdnerAuf, Sprache::text(u"Andere Datei öffnen …"_s),
        Sprache::text(
            u"Eine Protokolldatei von irgendwo öffnen, auch von einem anderen Rechner oder aus einer Sicherung"_s));
    auto *neuLesen = flachknopf(u"protokolleAuffrischen"_s, Symbol::NeuLaden, Sprache::text(u"Liste auffrischen"_s),
                                Sprache::text(u"Liest den Protokollordner noch einmal ein"_s));
    auto *fluss = new Flussreihe(Abstand::Nah);
    for (QToolButton *knopf : {oeffnen, neuLesen}) {
        setzeKnopfart(knopf, Knopfart::Hoch);
        fluss->addWidget(knopf);
    }
    connect(oeffnen, &QToolButton::clicked, m_zustand->sitzungen(), &Sitzungen::protokollDateiWaehlen);
    connect(neuLesen, &QToolButton::clicked, this, &Rueckbaufeld::auffrischen);
    return traeger(spalte({fluss}));
}

QWidget *Rueckbaufeld::knopfseite()
{
    auto *fluss = new Flussreihe(Abstand::Nah);
    fluss->addWidget(m_zurueckdrehen);
    fluss->addWidget(m_letzten);
    return traeger(spalte({Teil::rest(), m_erklaerung, m_fehler, fluss}));
}

void Rueckbaufeld::verbinden()
{
    Sitzungen *sitzungen = m_zustand->sitzungen();
    Ausfuehrung *ausfuehrung = m_zustand->ausfuehrung();
    connect(m_zurueckdrehen, &QPushButton::clicked, this, &Rueckbaufeld::fragen);
    connect(m_letzten, &QPushButton::clicked, ausfuehrung, &Ausfuehrung::letzteBewegungZuruecknehmen);
    connect(m_frage, &Rueckfrage::bestaetigt, this, &Rueckbaufeld::bestaetigen);
    connect(m_frage, &Rueckfrage::abgebrochen, this, &Rueckbaufeld::frageBeenden);
    connect(m_anhalten, &QPushButton::clicked, m_zustand, [this] {
        m_anhalten->setEnabled(false);
        m_zustand->ausfuehrung()->anhalten();
    });
    // Another session, or this one with more movements: what was asked is not what would be done.
    connect(sitzungen, &Sitzungen::protokollGeaendert, this, [this] {
        if (m_stapel->currentIndex() == Frage) {
            setzeSeite(Knoepfe);
            m_frage->schliessen();
        }
    });
    for (const auto signal : {&Sitzungen::protokollGeaendert, &Sitzungen::rueckbauGeaendert})
        connect(sitzungen, signal, this, &Rueckbaufeld::zeigen);
    connect(ausfuehrung, &Ausfuehrung::beschaeftigtGeaendert, this, &Rueckbaufeld::zeigen);
    for (const auto signal : {&Pruefung::zaehlwerkGeaendert, &Pruefung::ruecknehmbarGeaendert})
        connect(m_zustand->pruefung(), signal, this, &Rueckbaufeld::zeigen);
    connect(sitzungen, &Sitzungen::rueckbauGeaendert, this, &Rueckbaufeld::meldungZeigen);
    connect(m_zustand->meldestelle(), &Meldestelle::hinweisGeaendert, this, &Rueckbaufeld::meldungZeigen);
    connect(ausfuehrung, &Ausfuehrung::vorgangGeaendert, this, &Rueckbaufeld::meldungZeigen);
}

void Rueckbaufeld::setzeDicht(bool dicht)
{
    m_dicht = dicht;
    erklaeren();
}

void Rueckbaufeld::setzeAnteil(double anteil)
{
    constexpr int feinheit = 10'000;
    auto *raster = static_cast<QGridLayout *>(layout());
    raster->setColumnStretch(0, qRound(anteil * feinheit));
    raster->setColumnStretch(2, qRound((1 - anteil) * feinheit));
}

void Rueckbaufeld::fragen()
{
    const Sitzungen *sitzungen = m_zustand->sitzungen();
    setzeSeite(Frage);
    m_frage->fragen(rueckbaufrage(m_zustand->profilwahl()->aktiv(), sitzungen->protokollKopf(),
                                  sitzungen->protokollZeilen().size()));
}

void Rueckbaufeld::bestaetigen()
{
    frageBeenden();
    m_zustand->sitzungen()->protokollZurueckdrehen();
}

void Rueckbaufeld::frageBeenden()
{
    setzeSeite(Knoepfe);
    m_zurueckdrehen->setFocus();
}

/** The focus goes with the page, unless it is elsewhere. */
void Rueckbaufeld::setzeSeite(Seite seite)
{
    if (m_stapel->currentIndex() == seite)
        return;
    const bool fokus = m_stapel->isAncestorOf(QApplication::focusWidget());
    m_stapel->setCurrentIndex(seite);
    if (fokus)
        (seite == Lauf ? m_anhalten : m_zurueckdrehen)->setFocus();
}

void Rueckbaufeld::zeigen()
{
    const Sitzungen *sitzungen = m_zustand->sitzungen();
    const bool frei = m_zustand->profilwahl()->offen() && !m_zustand->ausfuehrung()->beschaeftigt();
    const QString fehler = rueckbaufehler(sitzungen->rueckbauBilanz(), sitzungen->protokollZeilen());
    if (m_fehler->toPlainText() != fehler)
        m_fehler->setPlainText(fehler);
    m_lauf->setText(sitzungen->rueckbauMeldung() + u" …"_s);
    bedienteile::setzeAnteil(m_balken, sitzungen->rueckbauAnteil());
    if (sitzungen->rueckbauLaeuft() && m_stapel->currentIndex() != Lauf) {
        m_anhalten->setEnabled(true);
        setzeSeite(Lauf);
    }
    m_zurueckdrehen->setEnabled(frei && !sitzungen->protokollLaedt() && !sitzungen->protokollZeilen().isEmpty());
    m_letzten->setEnabled(frei && m_zustand->pruefung()->hatBewegung());
    if (!sitzungen->rueckbauLaeuft() && m_stapel->currentIndex() == Lauf)
        setzeSeite(Knoepfe);
    erklaeren();
}

void Rueckbaufeld::erklaeren()
{
    const bool fehler = !m_fehler->document()->isEmpty();
    m_fehler->setVisible(fehler);
    const auto &kopf = m_zustand->sitzungen()->protokollKopf();
    m_erklaerung->setzeText(rueckbauerklaerung(kopf && kopf->kopieren));
    m_erklaerung->setVisible(!fehler && !m_dicht);
    benennen(m_zurueckdrehen, m_zurueckdrehen->text(),
             m_dicht ? m_erklaerung->ganzerText()
                     : Sprache::text(u"Fragt noch einmal nach, bevor irgendetwas geschieht"_s));
}

void Rueckbaufeld::meldungZeigen()
{
    const auto &[ton, text] = protokollmeldung(*m_zustand);
    m_meldung->setzen(tonzeichen(ton), text);
}
} // namespace quillmar::protokoll
