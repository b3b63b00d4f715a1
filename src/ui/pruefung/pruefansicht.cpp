#include "pruefansicht.h"

#include "aktionsfeld.h"
#include "angabenfeld.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "durchgang.h"
#include "hinweisfach.h"
#include "leeransicht.h"
#include "meldungszeile.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"
#include "tastentakt.h"
#include "teiler.h"
#include "text.h"
#include "vorschau.h"
#include "vorschlagsteil.h"
#include "zustand.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::pruefung
{
using Stil::abstand;

namespace
{
constexpr auto wortpause = 700ms; // longer than between two letters of a word

bool ohneDokumente(const Zustand &zustand)
{
    return zustand.pruefung()->zaehlwerk() == Zaehlwerk{} && zustand.pruefung()->ausgenommen() == 0;
}

QString leerzeile(const Zustand &zustand)
{
    const Zaehlwerk &z = zustand.pruefung()->zaehlwerk();
    if (zustand.durchgang()->laeuft())
        return gefuellt(Sprache::text(z.neu,
                                      u"Der Durchgang läuft noch. %@ Dokument wartet darauf, gelesen zu werden."_s,
                                      u"Der Durchgang läuft noch. %@ Dokumente warten darauf, gelesen zu werden."_s),
                        {QString::number(z.neu)});
    // As naechsterSchritt(): the line tells of what the button offers.
    if (z.zurueckgestellt > 0)
        return gefuellt(Sprache::text(z.zurueckgestellt, u"%@ Dokument ist noch zurückgestellt."_s,
                                      u"%@ Dokumente sind noch zurückgestellt."_s),
                        {QString::number(z.zurueckgestellt)});
    if (z.neu > 0)
        return gefuellt(Sprache::text(z.neu, u"%@ Dokument wartet darauf, gelesen zu werden."_s,
                                      u"%@ Dokumente warten darauf, gelesen zu werden."_s),
                        {QString::number(z.neu)});
    return ohneDokumente(zustand) ? Sprache::text(u"Hier gibt es noch keine Dokumente."_s)
                                  : Sprache::text(u"Alles einsortiert."_s);
}
} // namespace

PruefAnsicht::PruefAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this))
{
    setObjectName(u"pruefen"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_vorschau = new Vorschau(this);
    m_teiler = new Teiler(m_vorschau, vorschlagsseite(), this);
    m_teiler->setzeAnteil(m_zustand->teilung());
    m_stapel->addWidget(m_teiler);
    m_stapel->addWidget(leerseite());
    tastenBauen();
    verbinden();
    dokumentZeigen();
}

void PruefAnsicht::verbinden()
{
    connect(m_teiler, &Teiler::anteilGewaehlt, m_zustand, &Zustand::setzeTeilung);
    connect(m_zustand, &Zustand::teilungGeaendert, this, [this] {
        m_teiler->setzeAnteil(m_zustand->teilung());
        anordnen();
    });
    connect(m_vorschau, &Vorschau::zurueckZumDokument, m_zustand,
            [this] { m_zustand->pruefung()->setzePartnerZeigen(false); });
    connect(m_angaben, &Angabenfeld::fokusGewechselt, this, &PruefAnsicht::tastenZeigen);
    connect(m_hinweise, &Hinweisfach::fokusGehtVerloren, m_vorschau, [this] { m_vorschau->setFocus(); });
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
    auto *seite = new QWidget(this);
    auto *inhalt = new QWidget(seite);
    m_vorschlag = new Vorschlagsteil(m_zustand->pruefung(), inhalt);
    m_hinweise = new Hinweisfach(m_zustand->pruefung(), inhalt);
    m_angaben = new Angabenfeld(m_zustand->profilwahl(), m_zustand->pruefung(), inhalt);
    m_aktionen = new Aktionsfeld(m_zustand->profilwahl(), m_zustand->pruefung(), m_zustand->ausfuehrung(),
                                 m_zustand->meldestelle(), seite);
    m_rollen = rollbereich(inhalt, seite);
    m_rollen->installEventFilter(this);
    auto *spalte = new QVBoxLayout(inhalt);
    spalte->addWidget(m_vorschlag);
    spalte->addWidget(m_hinweise);
    spalte->addStretch(1);
    spalte->addWidget(m_angaben);
    auto *aussen = new QVBoxLayout(seite);
    aussen->setContentsMargins(0, 0, 0, 0);
    aussen->setSpacing(0);
    aussen->addWidget(m_rollen, 1);
    aussen->addWidget(m_aktionen);
    Stil::folgen(inhalt, [this, spalte] {
        spalte->setSpacing(abstand(10));
        int breite = 0;
        for (const QString &text : Vorschlagsteil::beschriftungen() + Angabenfeld::beschriftungen())
            breite = std::max(breite, fontMetrics().horizontalAdvance(text) + 2);
        m_vorschlag->setzeBeschriftungsbreite(breite);
        m_angaben->setzeBeschriftungsbreite(breite);
        anordnen();
    });
    return seite;
}

QWidget *PruefAnsicht::leerseite()
{
    auto *seite = new QWidget(this);
    m_leere = new Leeransicht(seite);
    auto *meldung = new Meldungszeile(m_zustand->meldestelle(), m_zustand->pruefung(), m_zustand->ausfuehrung(), seite);
    auto *spalte = new QVBoxLayout(seite);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addWidget(m_leere, 1);
    spalte->addWidget(meldung);
    Stil::folgen(seite, [spalte] { spalte->setContentsMargins(abstand(20), 0, abstand(20), abstand(8)); });
    connect(m_leere, &Leeransicht::gedrueckt, this, [this] {
        if (m_leereTat)
            m_leereTat();
    });
    return seite;
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
    taste(
        QKeySequence(Qt::Key_Return), [this] { eingabe(); }, true);
    taste(
        QKeySequence(Qt::Key_Enter), [this] { eingabe(); }, true);
    taste(
        QKeySequence(Qt::Key_Escape), [this] { feldVerlassen(); }, true);
    taste(
        QKeySequence(Qt::Key_Z), [this] { m_zustand->ausfuehrung()->zuruecklegen(); }, false);
    taste(
        QKeySequence(Qt::Key_D), [this] { m_zustand->ausfuehrung()->aussortieren(); }, false);
    taste(
        QKeySequence(Qt::Key_U), [this] { m_zustand->ausfuehrung()->rueckgaengig(); }, false);
    taste(
        QKeySequence(Qt::CTRL | Qt::Key_Z), [this] { m_zustand->ausfuehrung()->rueckgaengig(); }, false);
    taste(
        QKeySequence(Qt::Key_Left), [this] { m_zustand->ausfuehrung()->weiter(Richtung::Zurueck); }, false);
    taste(
        QKeySequence(Qt::Key_Right), [this] { m_zustand->ausfuehrung()->weiter(Richtung::Weiter); }, false);
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
    // The likeliest last: its first page is the one that is ready.
    const QStringList voraus = m_zustand->pruefung()->voraus();
    for (auto pfad = voraus.crbegin(); pfad != voraus.crend(); ++pfad)
        m_vorschau->vorausladen(*pfad);
}

void PruefAnsicht::leereZeigen()
{
    if (m_zustand->pruefung()->aktuelles())
        return;
    m_leereTat = [this] { Leeransicht::ohneKatalogWeiter(*m_zustand); };
    if (m_zustand->profilwahl()->oeffnet())
        return m_leere->setzen(Symbol::GrossUhr, Sprache::text(u"Der Katalog wird geöffnet"_s), {});
    if (!m_zustand->profilwahl()->offen())
        return m_leere->setzeOhneKatalog(Symbol::GrossOrdner, *m_zustand->profilwahl());
    m_leereTat = [this] { m_zustand->setzeReiter(Reiter::Einrichtung); };
    m_leere->setzen(Symbol::GrossGut, Sprache::text(u"Nichts zu prüfen"_s), leerzeile(*m_zustand), naechsterSchritt());
}

/** The one thing to go on with, as the words of the button; empty if there is none. */
QString PruefAnsicht::naechsterSchritt()
{
    const Zaehlwerk &z = m_zustand->pruefung()->zaehlwerk();
    if (z.zurueckgestellt > 0) {
        m_leereTat = [this] { m_zustand->ausfuehrung()->zurueckgestellteVorlegen(); };
        return gefuellt(Sprache::text(z.zurueckgestellt, u"%@ Zurückgestelltes wieder vorlegen"_s,
                                      u"%@ Zurückgestellte wieder vorlegen"_s),
                        {QString::number(z.zurueckgestellt)});
    }
    if (m_zustand->durchgang()->laeuft() || (z.neu == 0 && !ohneDokumente(*m_zustand)))
        return {};
    if (!m_zustand->profilwahl()->bereitZumStart())
        return Sprache::text(u"Zur Einrichtung"_s);
    m_leereTat = [this] { m_zustand->durchgang()->durchgangErbitten(); };
    return Sprache::text(u"Durchgang starten"_s);
}

/** Returns how wide the sections are at least then. */
int PruefAnsicht::setzeTeile(bool schmal)
{
    m_vorschlag->setzeDicht(m_dicht, schmal);
    m_angaben->setzeDicht(m_dicht, schmal);
    return std::max(m_vorschlag->minimumSizeHint().width(), m_angaben->minimumSizeHint().width());
}

/** Sections that do not fit in height with one note get by with less. */
void PruefAnsicht::anordnen()
{
    if (!m_aktionen || !m_teiler)
        return;
    const int einHinweis = fontMetrics().lineSpacing() + abstand(10);
    const int bedarf =
        m_vorschlag->volleHoehe() + m_angaben->volleHoehe() + einHinweis + abstand(12) * 2 + abstand(10) * 3;
    m_dicht = bedarf > height() - m_aktionen->volleHoehe();
    const int breite = m_rollen->width();
    const int rand = Stil::seitenrand(breite);
    const int platz = breite - 2 * rand - style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    if (Stil::istSchmal(breite) || setzeTeile(false) > platz)
        setzeTeile(true);
    m_aktionen->setzeDicht(m_dicht);
    m_rollen->widget()->layout()->setContentsMargins(rand, abstand(12), rand, abstand(12));
    tastenZeigen();
}

void PruefAnsicht::tastenZeigen()
{
    m_aktionen->setzeTasten(imFeld(), m_dicht ? m_angaben->hilfeImFokus() : QString());
}

/** The pane of the proposal has another size: the window's, or the divider was moved. */
bool PruefAnsicht::eventFilter(QObject *objekt, QEvent *ereignis)
{
    if (objekt == m_rollen && ereignis->type() == QEvent::Resize)
        anordnen();
    return QWidget::eventFilter(objekt, ereignis);
}
} // namespace quillmar::pruefung
