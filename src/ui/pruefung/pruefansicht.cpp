#include "pruefansicht.h"

#include "aktionsfeld.h"
#include "angabenfeld.h"
#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "durchgang.h"
#include "fundzeiger.h"
#include "hinweisfach.h"
#include "leeransicht.h"
#include "meldungszeile.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "stil.h"
#include "tastentakt.h"
#include "teiler.h"
#include "vorschau.h"
#include "vorschlagsteil.h"
#include "zustand.h"

#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::pruefung
{
namespace
{
constexpr auto wortpause = 700ms; // longer than between two letters of a word
} // namespace

PruefAnsicht::PruefAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this)), m_vorschau(new Vorschau(this)),
      m_teiler(new Teiler(m_vorschau, vorschlagsseite(), this)), m_leere(new Leeransicht)
{
    setObjectName(u"pruefen"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_teiler->setzeAnteil(m_zustand->teilung());
    auto *meldung = new Meldungszeile(m_zustand->meldestelle(), m_zustand->pruefung(), m_zustand->ausfuehrung());
    auto *leerseite = fuellen(new QWidget, spalte({{m_leere, 1}, meldung}), Abstand::Rand, Abstand::Nah);
    m_zeiger = new Fundzeiger(m_zustand->pruefung(), m_zustand->seitenbelege(), m_angaben, m_vorschau, this);
    m_stapel->addWidget(m_teiler);
    m_stapel->addWidget(leerseite);
    tastenBauen();
    verbinden();
    dokumentZeigen();
}

void PruefAnsicht::verbinden()
{
    connect(m_teiler, &Teiler::anteilGewaehlt, m_zustand, &Zustand::setzeTeilung);
    connect(m_zustand, &Zustand::teilungGeaendert, this, [this] { m_teiler->setzeAnteil(m_zustand->teilung()); });
    connect(m_leere, &Leeransicht::gedrueckt, m_zustand,
            [this] { weiter(*m_zustand, nichtsZuPruefen(*m_zustand).tat); });
    connect(m_vorschau, &Vorschau::zurueckZumDokument, m_zustand,
            [this] { m_zustand->pruefung()->setzePartnerZeigen(false); });
    connect(m_vorschau, &Vorschau::gedreht, this, [this](const QString &pfad, int seite, int drehung) {
        const Dokument *d = m_zustand->pruefung()->aktuelles();
        if (d && d->pfad == pfad)
            m_zustand->pruefung()->seiteDrehen(seite, drehung);
    });
    connect(m_angaben, &Angabenfeld::fokusGewechselt, this, &PruefAnsicht::tastenZeigen);
    connect(m_vorschau, &Vorschau::seiteSichtbar, this, &PruefAnsicht::gesehen);
    connect(m_zustand->pruefung(), &Pruefung::aktuellesGeaendert, this, &PruefAnsicht::dokumentZeigen);
    connect(m_zustand->pruefung(), &Pruefung::angabenGeaendert, this, &PruefAnsicht::vorschauZeigen);
    connect(m_zustand->pruefung(), &Pruefung::partnerZeigenGeaendert, this, &PruefAnsicht::vorschauZeigen);
    connect(m_zustand->pruefung(), &Pruefung::vorausGeaendert, this, &PruefAnsicht::vorausladen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &PruefAnsicht::leereZeigen);
    connect(m_zustand->durchgang(), &Durchgang::laufGeaendert, this, &PruefAnsicht::leereZeigen);
    for (const auto signal :
         {&Profilwahl::oeffnetGeaendert, &Profilwahl::aktivGeaendert, &Profilwahl::bereitschaftGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &PruefAnsicht::leereZeigen);
}

QWidget *PruefAnsicht::vorschlagsseite()
{
    auto *inhalt = new QWidget(this);
    m_raster = new QGridLayout;
    fuellen(inhalt, m_raster, Abstand::Rand, Abstand::Feld);
    m_vorschlag = new Vorschlagsteil(m_zustand->pruefung(), inhalt);
    m_hinweise = new Hinweisfach(m_zustand->pruefung(), inhalt);
    m_angaben = new Angabenfeld(m_zustand->profilwahl(), m_zustand->pruefung(), m_zustand->seitenbelege(), inhalt);
    m_aktionen = new Aktionsfeld(m_zustand->profilwahl(), m_zustand->pruefung(), m_zustand->ausfuehrung(),
                                 m_zustand->meldestelle());
    m_rollen = rollbereich(inhalt);
    auto *seite = traeger(spalte({{m_rollen, 1}, linie(), m_aktionen}, Abstand::Keiner), this);
    m_platz = new Nachgeben(
        seite, 3, [this](int stufe) { legen({.dicht = stufe % 2 == 1, .schmal = stufe > 1}); },
        [this, seite] { return passt(*seite); }, Nachgeben::Anlass::Groesse);
    return seite;
}

/** Proposal and fields stand in one grid, so that there is one column of labels; the notes have a slot between them. */
void PruefAnsicht::legen(const Platz &platz)
{
    if (platz == m_lage && m_raster->count() > 0)
        return;
    m_lage = platz;
    while (const QLayoutItem *teil = m_raster->takeAt(0))
        delete teil;
    setzeLuecken(m_rollen->widget(), Abstand::Feld, platz.dicht ? Abstand::Eng : Abstand::Nah);
    m_vorschlag->legen(m_raster, 0, platz);
    m_raster->addWidget(m_hinweise, Vorschlagsteil::zeilen, 0, 1, 4);
    m_raster->setRowStretch(Vorschlagsteil::zeilen + 1, 1);
    m_angaben->legen(m_raster, Vorschlagsteil::zeilen + 2, platz);
    m_aktionen->setzeDicht(platz.dicht);
    tastenZeigen();
}

/** One note must fit beside the fields; more of them scroll. */
bool PruefAnsicht::passt(const QWidget &seite) const
{
    const int einHinweis = fontMetrics().lineSpacing() + 2 * Stil::abstand(Abstand::Nah);
    const QSize bedarf = m_raster->totalMinimumSize() - QSize(0, m_hinweise->minimumSizeHint().height());
    const int hoehe = bedarf.height() + einHinweis + m_aktionen->sizeHint().height();
    const int breite = bedarf.width() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const bool schmalGenug = m_lage.schmal || (breite <= seite.width() && !Stil::istSchmal(seite.width()));
    return schmalGenug && (m_lage.dicht || hoehe <= seite.height());
}

bool PruefAnsicht::imFeld() const { return m_angaben->hatFokus(); }

void PruefAnsicht::taste(const QKeySequence &tasten, const std::function<void()> &tat, bool auchImFeld)
{
    kurztaste(tasten, this, [this, tat, auchImFeld] {
        if ((auchImFeld || !imFeld()) && !ruht())
            tat();
    });
}

/** Letters act while no field has the focus: in a text they are text, in a choice they choose. */
void PruefAnsicht::tastenBauen()
{
    Ausfuehrung *tun = m_zustand->ausfuehrung();
    for (const auto taste : {Qt::Key_Return, Qt::Key_Enter})
        this->taste(
            taste, [this] { eingabe(); }, true);
    taste(
        Qt::Key_Escape, [this] { feldVerlassen(); }, true);
    taste(Qt::Key_Z, [tun] { tun->zuruecklegen(); });
    taste(Qt::Key_D, [tun] { tun->aussortieren(); });
    taste(Qt::Key_R, [this] { m_vorschau->drehen(90); });
    taste(Qt::SHIFT | Qt::Key_R, [this] { m_vorschau->drehen(-90); });
    taste(Qt::Key_M, [this] { m_zeiger->umschalten(); });
    taste(
        Qt::CTRL | Qt::Key_F, [this] { m_vorschau->sucheZeigen(); }, true);
    taste(Qt::Key_U, [tun] { tun->rueckgaengig(); });
    taste(Qt::CTRL | Qt::Key_Z, [tun] { tun->rueckgaengig(); });
    taste(Qt::Key_Left, [tun] { tun->weiter(Richtung::Zurueck); });
    taste(Qt::Key_Right, [tun] { tun->weiter(Richtung::Weiter); });
}

/** The document was taken away in the middle of a word: what is still typed of it is not meant for the next one. */
bool PruefAnsicht::ruht()
{
    if (m_ruhe.hasExpired())
        return false;
    m_ruhe.setRemainingTime(wortpause);
    return true;
}

/** Presses the button that has the focus, else accepts. */
void PruefAnsicht::eingabe()
{
    if (auto *knopf = knopfImFokus(this))
        knopf->click();
    else
        m_zustand->ausfuehrung()->uebernehmen();
}

void PruefAnsicht::feldVerlassen()
{
    if (m_zustand->pruefung()->partnerZeigen() && !imFeld())
        m_zustand->pruefung()->setzePartnerZeigen(false);
    setFocus();
}

void PruefAnsicht::focusInEvent(QFocusEvent *ereignis)
{
    QWidget::focusInEvent(ereignis);
    // The page is what the keys move when nothing else has the focus.
    if (m_zustand->pruefung()->aktuelles())
        m_vorschau->setFocus(ereignis->reason());
}

void PruefAnsicht::keyPressEvent(QKeyEvent *ereignis)
{
    if (!m_vorschau->taste(ereignis))
        QWidget::keyPressEvent(ereignis);
}

void PruefAnsicht::dokumentZeigen()
{
    const bool da = m_zustand->pruefung()->aktuelles() != nullptr;
    if (imFeld() && !m_zustand->ausfuehrung()->beschaeftigt())
        m_ruhe.setRemainingTime(wortpause);
    const bool fokusHier = isVisible() && focusWidget() && focusWidget()->hasFocus();
    m_stapel->setCurrentIndex(da ? 0 : 1);
    m_rollen->verticalScrollBar()->setValue(0);
    leereZeigen();
    // The same file as another document is on the screen already.
    m_zustand->pruefung()->setzeUngesehen(da && m_zustand->pruefung()->aktuelles()->pfad != m_vorschau->gesehen());
    vorschauZeigen();
    vorausladen();
    // The single keys work at once: the focus starts outside the fields.
    if (fokusHier || (isVisible() && !window()->focusWidget()))
        da ? m_vorschau->setFocus() : setFocus();
}

void PruefAnsicht::vorschauZeigen()
{
    const Dokument *d = m_zustand->pruefung()->aktuelles();
    const Dokument *aehnliches = m_zustand->pruefung()->aehnliches();
    m_vorschau->setzeDrehungen(m_zustand->pruefung()->drehungen());
    if (m_zustand->pruefung()->partnerZeigen() && aehnliches) {
        m_vorschau->partnerZeigen(aehnliches->pfad, nameVon(aehnliches->pfad));
    } else {
        m_vorschau->zeigen(d ? d->pfad : QString());
        m_vorschau->partnerBeenden();
    }
}

/** The page of @p pfad, or the reason why there is none, has been painted, and with it the proposal beside it. */
void PruefAnsicht::gesehen(const QString &pfad)
{
    if (m_zustand->pruefung()->aktuelles() && m_zustand->pruefung()->aktuelles()->pfad == pfad)
        m_zustand->pruefung()->setzeUngesehen(false);
}

void PruefAnsicht::vorausladen()
{
    m_vorschau->setzeDrehungen(m_zustand->pruefung()->drehungen());
    // The likeliest last: its first page is the one that is ready.
    const QStringList voraus = m_zustand->pruefung()->voraus();
    for (auto pfad = voraus.crbegin(); pfad != voraus.crend(); ++pfad)
        m_vorschau->vorausladen(*pfad);
}

void PruefAnsicht::leereZeigen()
{
    if (m_zustand->pruefung()->aktuelles())
        return;
    const Profilwahl *wahl = m_zustand->profilwahl();
    const Symbol ohne = wahl->oeffnet() ? Symbol::GrossUhr : Symbol::GrossOrdner;
    m_leere->setzen(wahl->offen() && !wahl->oeffnet() ? Symbol::GrossGut : ohne, nichtsZuPruefen(*m_zustand));
}

void PruefAnsicht::tastenZeigen()
{
    m_aktionen->setzeTasten(imFeld(), m_lage.dicht ? m_angaben->hilfeImFokus() : QString());
}
} // namespace quillmar::pruefung
