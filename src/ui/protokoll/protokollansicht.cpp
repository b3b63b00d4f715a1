#include "protokollansicht.h"

#include "ausfuehrung.h"
#include "bewegungsliste.h"
#include "bewegungsmodell.h"
#include "elidiertext.h"
#include "leeransicht.h"
#include "pfade.h"
#include "profilwahl.h"
#include "rueckbaufeld.h"
#include "sitzungen.h"
#include "sitzungskopf.h"
#include "sitzungsseite.h"
#include "sprache.h"
#include "stil.h"
#include "tastentakt.h"
#include "teiler.h"
#include "text.h"
#include "zustand.h"

#include <QLabel>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;
using Stil::Schrift;

ProtokollAnsicht::ProtokollAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this))
{
    setObjectName(u"protokoll"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_sitzungen = new Sitzungsseite(m_zustand->profilwahl(), m_zustand->sitzungen(), m_zustand->ausfuehrung(), this);
    m_teiler = new Teiler(m_sitzungen, sitzungsteil(), this);
    m_teiler->setzeAnteil(m_zustand->teilung());
    m_leere = new Leeransicht(this);
    connect(m_leere, &Leeransicht::gedrueckt, m_zustand,
            [this] { weiter(*m_zustand, ohneKatalog(*m_zustand->profilwahl()).tat); });
    m_stapel->addWidget(m_teiler);
    m_stapel->addWidget(m_leere);
    tastenBauen();
    verbinden();
    zeigen();
    sitzungZeigen();
}

/** The right side; its action area is there without a session too, for the last step. */
QWidget *ProtokollAnsicht::sitzungsteil()
{
    auto *seite = new QWidget(this);
    m_rechts = new QStackedWidget(seite);
    auto *leere = new Leeransicht(m_rechts);
    leere->setzen(Symbol::GrossUhr, Sprache::text(u"Keine Sitzung gewählt"_s),
                  Sprache::text(u"Wähle links ein Protokoll aus. Hier steht dann jede einzelne Bewegung dieser "
                                "Sitzung, bevor du entscheidest."_s));
    m_rechts->addWidget(leere);
    m_rechts->addWidget(bewegungsteil());
    m_rueckbau = new Rueckbaufeld(m_zustand, seite);
    m_rueckbau->installEventFilter(this);
    m_sitzung->installEventFilter(this);
    auto *spalte = new QVBoxLayout(seite);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->setSpacing(0);
    spalte->addWidget(m_rechts, 1);
    spalte->addWidget(m_rueckbau);
    return seite;
}

QWidget *ProtokollAnsicht::bewegungsteil()
{
    m_sitzung = new QWidget(m_rechts);
    m_titel = new Elidiertext(Qt::ElideMiddle, m_sitzung);
    m_titel->setObjectName(u"sitzungstitel"_s);
    m_erklaerung = new QLabel(Sprache::text(u"Unter diesen Bedingungen wurde gearbeitet."_s), m_sitzung);
    m_erklaerung->setWordWrap(true);
    m_kopf = new Sitzungskopf(m_sitzung);
    auto *bewegungen = new QLabel(Sprache::text(u"Bewegungen"_s), m_sitzung);
    m_anzahl = new QLabel(m_sitzung);
    m_anzahl->setObjectName(u"bewegungsAnzahl"_s);
    m_anzahl->setTextFormat(Qt::PlainText);
    m_liste = new Bewegungsliste(m_sitzung);
    auto *reihe = new QHBoxLayout;
    reihe->addWidget(bewegungen, 0, Qt::AlignBaseline);
    reihe->addWidget(m_anzahl, 1, Qt::AlignBaseline);
    auto *spalte = new QVBoxLayout(m_sitzung);
    spalte->addWidget(m_titel);
    spalte->addWidget(m_erklaerung);
    spalte->addWidget(m_kopf);
    spalte->addLayout(reihe);
    spalte->addWidget(m_liste, 1);
    for (QLabel *schild : QList<QLabel *>{m_titel, bewegungen})
        Stil::schriftFolgt(schild, Schrift::Abschnitt);
    Stil::nebentext(m_erklaerung);
    Stil::nebentext(m_anzahl);
    Stil::folgen(m_sitzung, [reihe, spalte] {
        reihe->setContentsMargins(0, abstand(10), 0, abstand(4));
        reihe->setSpacing(abstand(12));
        spalte->setSpacing(abstand(3));
    });
    return m_sitzung;
}

void ProtokollAnsicht::tastenBauen()
{
    kurztaste(QKeySequence(Qt::CTRL | Qt::Key_Z), this,
              [this] { m_zustand->ausfuehrung()->letzteBewegungZuruecknehmen(); });
}

void ProtokollAnsicht::verbinden()
{
    connect(m_teiler, &Teiler::anteilGewaehlt, m_zustand, &Zustand::setzeTeilung);
    connect(m_zustand, &Zustand::teilungGeaendert, this, [this] { m_teiler->setzeAnteil(m_zustand->teilung()); });
    for (const auto signal : {&Profilwahl::aktivGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &ProtokollAnsicht::zeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::protokollGeaendert, this, &ProtokollAnsicht::sitzungZeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::rueckbauGeaendert, this, [this] {
        if (!m_zustand->sitzungen()->rueckbauLaeuft())
            m_liste->modell()->setzeBilanz(m_zustand->sitzungen()->rueckbauBilanz());
    });
    connect(m_zustand->sitzungen(), &Sitzungen::protokollDateienGeaendert, this,
            [this] { m_titel->setzeText(titel()); });
    connect(m_zustand->sitzungen(), &Sitzungen::protokollDateienGeaendert, m_liste->modell(),
            &Bewegungsmodell::veralten);
    // Whatever was done, files may lie elsewhere now.
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (m_zustand->ausfuehrung()->beschaeftigt() || !isVisible())
            return;
        m_liste->modell()->veralten();
        m_zustand->sitzungen()->protokollAuffrischen();
    });
}

void ProtokollAnsicht::showEvent(QShowEvent *ereignis)
{
    QWidget::showEvent(ereignis);
    m_sitzungen->auffrischen();
}

void ProtokollAnsicht::focusInEvent(QFocusEvent *ereignis)
{
    QWidget::focusInEvent(ereignis);
    if (m_zustand->profilwahl()->offen())
        m_sitzungen->zurAuswahl();
}

void ProtokollAnsicht::zeigen()
{
    const bool da = m_zustand->profilwahl()->aktiv() && m_zustand->profilwahl()->katalogfehler().isEmpty();
    m_stapel->setCurrentIndex(da ? 0 : 1);
    if (!da)
        m_leere->setzen(Symbol::GrossUhr, ohneKatalog(*m_zustand->profilwahl()));
}

/** A log that does not lie in the folder of this profile is called by its file. */
QString ProtokollAnsicht::titel() const
{
    const QString datei = m_zustand->sitzungen()->protokollDatei().value_or(QString());
    const bool laufend = m_zustand->sitzungen()->laufendeDatei() == datei;
    if (datei.isEmpty() || laufend || m_zustand->sitzungen()->protokollDateien().contains(datei))
        return Sprache::text(u"Sitzung"_s);
    return gefuellt(Sprache::text(u"Sitzung aus %@"_s), {nameVon(datei)});
}

QString ProtokollAnsicht::anzahl() const
{
    const qsizetype zeilen = m_zustand->sitzungen()->protokollZeilen().size();
    if (m_zustand->sitzungen()->protokollLaedt())
        return Sprache::text(u"Wird gelesen …"_s);
    if (zeilen == 0)
        return Sprache::text(u"In dieser Datei steht keine lesbare Bewegung."_s);
    return gefuellt(Sprache::text(zeilen, u"%@ Eintrag."_s, u"%@ Einträge, älteste zuerst."_s),
                    {QString::number(zeilen)});
}

void ProtokollAnsicht::sitzungZeigen()
{
    const Protokollkopf kopf = m_zustand->sitzungen()->protokollKopf().value_or(Protokollkopf{});
    m_rechts->setCurrentIndex(m_zustand->sitzungen()->protokollDatei() ? 1 : 0);
    m_kopf->zeigen(m_zustand->sitzungen()->protokollKopf());
    m_titel->setzeText(titel());
    m_titel->setzeHilfe(m_zustand->sitzungen()->protokollDatei().value_or(QString()));
    m_anzahl->setText(anzahl());
    m_liste->modell()->setzen(m_zustand->sitzungen()->protokollZeilen(), kopf.quelle, kopf.ziel);
    anordnen();
}

/** Both action areas begin at one height; where few movements would fit, the header takes less. */
void ProtokollAnsicht::anordnen()
{
    if (!m_rueckbau || !m_liste)
        return;
    constexpr int bewegungen = 4; // rows that are to be seen beside the whole header
    const int zeilenhoehe = fontMetrics().height();
    // Of the room of both areas, lest one made smaller would make the other larger again.
    const int raum = m_teiler->height() - m_kopf->volleHoehe() - 13 * zeilenhoehe;
    const bool dicht = raum < bewegungen * 2 * zeilenhoehe;
    m_kopf->setzeDicht(dicht);
    m_rueckbau->setzeDicht(dicht);
    m_erklaerung->setVisible(!dicht);
    const int rand = Stil::seitenrand(m_sitzung->width());
    m_sitzung->layout()->setContentsMargins(rand, abstand(12), rand / 2, 0);
    m_sitzungen->setzeFuss(m_rueckbau->height(), m_rueckbau->knopfoben(), m_rueckbau->gestapelt());
}

bool ProtokollAnsicht::eventFilter(QObject *objekt, QEvent *ereignis)
{
    const bool gelegt = ereignis->type() == QEvent::Resize || ereignis->type() == QEvent::LayoutRequest;
    if (gelegt && (objekt == m_rueckbau || objekt == m_sitzung))
        anordnen();
    return QWidget::eventFilter(objekt, ereignis);
}
} // namespace quillmar::protokoll
