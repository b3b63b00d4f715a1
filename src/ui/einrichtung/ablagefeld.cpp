#include "ablagefeld.h"

#include "abschnittsseite.h"
#include "anordnung.h"
#include "bau.h"
#include "einrichtung.h"
#include "fundmodell.h"
#include "liste.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"
#include "zustand.h"

#include <QApplication>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Lage = Ablagelernen::Lage;

namespace
{
constexpr int sichtbareZeilen = 6;
constexpr int suchbreite = 240;

QWidget *fliessend(std::initializer_list<QWidget *> teile)
{
    auto *fluss = new Flussreihe(Abstand::Nah);
    for (QWidget *teil : teile)
        fluss->addWidget(teil);
    return traeger(fluss);
}
} // namespace

Ablagefeld::Ablagefeld(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_ablage(zustand->einrichtung()->ablagelernen()),
      m_fund(new Fundmodell(m_ablage, this)),
      m_befund(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"ausAblage-stand"_s)),
      m_balken(balken(u"ausAblageBalken"_s)),
      m_lernen(knopf(u"ausAblageLernen"_s, Sprache::text(u"Aus der Ablage lernen"_s),
                     Sprache::text(u"Liest Namen und Ordner und zeigt zuerst, was zu lernen wäre"_s))),
      m_anhalten(knopf(u"ausAblageAnhalten"_s, Sprache::text(u"Anhalten"_s),
                       Sprache::text(u"Hört auf zu lesen. Gelernt wird nichts."_s))),
      m_zurueck(knopf(u"ausAblageZuruecknehmen"_s, Sprache::text(u"Aus der Ablage Gelerntes zurücknehmen"_s),
                      Sprache::text(u"Vergisst alles, was aus der Ablage gelernt wurde. Was du selbst bestätigt hast, "
                                    "bleibt."_s))),
      m_suche(new QLineEdit), m_liste(new Liste(u"fund"_s, Sprache::text(u"Aus der Ablage zu lernen"_s))),
      m_leer(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"fund-leer"_s)),
      m_rest(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"fund-rest"_s)),
      m_uebernehmen(knopf(u"fundUebernehmen"_s, Sprache::text(u"Übernehmen"_s))),
      m_abbrechen(
          knopf(u"fundAbbrechen"_s, Sprache::text(u"Abbrechen"_s), Sprache::text(u"Lernt nichts davon. Taste: Esc"_s))),
      m_anzahl(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"fund-anzahl"_s))
{
    setObjectName(u"ausAblage"_s);
    m_auswahl = auswahl();
    fuellen(this, spalte({kopf(), m_balken, m_auswahl, fliessend({m_lernen, m_anhalten, m_zurueck})}));
    setzeRaender(this, {Abstand::Keiner, Abstand::Feld, Abstand::Keiner, Abstand::Keiner});
    tastenBauen();
    verbinden();
    bestaendeZeigen();
    lageZeigen();
}

QLayout *Ablagefeld::kopf()
{
    return spalte({schild(Sprache::text(u"Aus der Ablage"_s), Schrift::Abschnitt), m_befund}, Abstand::Keiner);
}

QWidget *Ablagefeld::auswahl()
{
    bezeichnen(m_suche, u"fundSuche"_s, Sprache::text(u"Gegenüber oder Ort suchen"_s));
    m_suche->setPlaceholderText(Sprache::text(u"Gegenüber oder Ort suchen"_s));
    m_suche->setClearButtonEnabled(true);
    m_liste->setModel(m_fund);
    m_liste->setzeHoechstens(sichtbareZeilen);
    m_leer->setzeText(Sprache::text(u"Dazu passt nichts."_s));
    return traeger(spalte({suchreihe(), m_liste, m_leer, m_rest, reihe({m_uebernehmen, m_abbrechen, {m_anzahl, 1}})}),
                   this);
}

/** The buttons go below the field where there is little room for both. */
QWidget *Ablagefeld::suchreihe()
{
    Stil::folgen(m_suche, [this] { m_suche->setMinimumWidth(Stil::mass(suchbreite)); });
    Kette *beide = reihe({{m_suche, 1}, ankreuzreihe()});
    QWidget *zeile = traeger(beide);
    zeile->setMinimumWidth(1); // gives way rather than widening the section
    new Nachgeben(zeile, 1, [beide](int stufe) {
        beide->setDirection(stufe == 0 ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    });
    return zeile;
}

/** What is for all rows that are shown. */
QLayout *Ablagefeld::ankreuzreihe()
{
    auto *alle = flachknopf(u"fundAlle"_s, Symbol::Keines, Sprache::text(u"Alle"_s),
                            Sprache::text(u"Kreuzt alle gezeigten Zeilen an"_s));
    auto *keine = flachknopf(u"fundKeine"_s, Symbol::Keines, Sprache::text(u"Keine"_s),
                             Sprache::text(u"Nimmt alle gezeigten Kreuze weg"_s));
    auto *vorschlag = flachknopf(u"fundVorschlag"_s, Symbol::Keines, Sprache::text(u"Wie vorgeschlagen"_s),
                                 Sprache::text(u"Kreuzt an, wogegen nichts spricht: mindestens zwei Dokumente, kein "
                                               "eigener Name, mehr als Ziffern"_s));
    connect(alle, &QToolButton::clicked, this, [this] { m_ablage->setzeAngekreuzt(m_fund->stellen(), true); });
    connect(keine, &QToolButton::clicked, this, [this] { m_ablage->setzeAngekreuzt(m_fund->stellen(), false); });
    connect(vorschlag, &QToolButton::clicked, this, [this] { m_ablage->vorschlagen(m_fund->stellen()); });
    return reihe({alle, keine, vorschlag, Teil::rest(0)}, Abstand::Eng);
}

/** Return takes over from the list alone: in the search it leads there. */
void Ablagefeld::tastenBauen()
{
    for (const Qt::Key taste : {Qt::Key_Return, Qt::Key_Enter})
        connect(new QShortcut(taste, m_liste, nullptr, nullptr, Qt::WidgetShortcut), &QShortcut::activated,
                m_uebernehmen, &QPushButton::click);
    connect(m_suche, &QLineEdit::returnPressed, this, [this] { m_liste->setFocus(Qt::TabFocusReason); });
    connect(new QShortcut(Qt::Key_Escape, m_auswahl, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [this] {
                if (m_suche->hasFocus() && !m_suche->text().isEmpty())
                    m_suche->clear();
                else
                    m_abbrechen->click();
            });
}

void Ablagefeld::verbinden()
{
    connect(m_ablage, &Ablagelernen::geaendert, this, &Ablagefeld::lageZeigen);
    connect(m_ablage, &Ablagelernen::angekreuztGeaendert, this, &Ablagefeld::angekreuzteZeigen);
    connect(m_ablage, &Ablagelernen::gefunden, m_suche, &QLineEdit::clear);
    connect(m_fund, &QAbstractItemModel::modelReset, this, &Ablagefeld::bestaendeZeigen);
    connect(m_suche, &QLineEdit::textChanged, m_fund, &Fundmodell::suchen);
    connect(m_lernen, &QPushButton::clicked, m_ablage, &Ablagelernen::lesen);
    connect(m_anhalten, &QPushButton::clicked, m_ablage, &Ablagelernen::abbrechen);
    connect(m_zurueck, &QPushButton::clicked, m_ablage, &Ablagelernen::zuruecknehmen);
    connect(m_uebernehmen, &QPushButton::clicked, m_ablage, &Ablagelernen::uebernehmen);
    connect(m_abbrechen, &QPushButton::clicked, m_ablage, &Ablagelernen::abbrechen);
}

/** The section it stands in does not hear by itself that a sentence takes more lines now. */
bool Ablagefeld::event(QEvent *ereignis)
{
    const bool getan = QWidget::event(ereignis);
    if (ereignis->type() == QEvent::LayoutRequest || ereignis->type() == QEvent::Resize)
        setMinimumHeight(heightForWidth(width()));
    return getan;
}

/** What depends on the profile and the memory too. */
void Ablagefeld::zeigen()
{
    const bool geht = m_zustand->profilwahl()->kannHandeln();
    m_lernen->setEnabled(geht && m_ablage->lage() == Lage::Ruht);
    m_zurueck->setEnabled(geht);
    const bool gelernt = m_zustand->einrichtung()->stand().gelerntes.ausAblage;
    m_zurueck->setVisible(m_ablage->lage() == Lage::NimmtZurueck || (m_ablage->lage() == Lage::Ruht && gelernt));
}

/** What can be used next is there, and has the focus, before what had it goes. */
void Ablagefeld::lageZeigen()
{
    const Lage lage = m_ablage->lage();
    const Lage vorher = std::exchange(m_gezeigt, lage);
    const bool waehlt = lage == Lage::Auswahl || lage == Lage::Schreibt;
    befundZeigen();
    for (const auto &[teil, da] : teile(lage, waehlt)) {
        if (da)
            teil->show();
    }
    zeigen();
    if (vorher != lage && isVisible())
        fokusFuehren(vorher);
    for (const auto &[teil, da] : teile(lage, waehlt))
        teil->setVisible(da);
    angekreuzteZeigen();
}

QList<std::pair<QWidget *, bool>> Ablagefeld::teile(Lage lage, bool waehlt) const
{
    return {{m_auswahl, waehlt},
            {m_balken, lage == Lage::Schreibt || lage == Lage::NimmtZurueck},
            {m_lernen, lage == Lage::Ruht || lage == Lage::NimmtZurueck},
            {m_anhalten, lage == Lage::Liest}};
}

void Ablagefeld::befundZeigen()
{
    const Befund &befund = m_ablage->befund();
    const QString erklaerung = Sprache::text(
        u"Wie deine abgelegten Dokumente heißen und wo sie liegen, sagt, wohin die nächsten gehören. Gelesen werden "
        "nur Namen und Ordner, geöffnet wird nichts."_s);
    m_befund->befund(symbol(befund.marke), befund.satz.isEmpty() ? erklaerung : befund.satz);
    setzeAnteil(m_balken, m_ablage->anteil());
}

/** A reading is begun from elsewhere too, where the button goes with it. */
void Ablagefeld::fokusFuehren(Lage vorher)
{
    const Lage lage = m_ablage->lage();
    const QWidget *fokus = QApplication::focusWidget();
    if (lage == Lage::Liest && vorher == Lage::Ruht)
        return m_anhalten->setFocus(Qt::OtherFocusReason);
    if (!fokus || !isAncestorOf(fokus) || lage == Lage::NimmtZurueck)
        return;
    if (lage == Lage::Auswahl && vorher == Lage::Liest)
        m_liste->setCurrentIndex(m_fund->index(0));
    if (lage == Lage::Auswahl || lage == Lage::Schreibt)
        m_liste->setFocus(Qt::TabFocusReason);
    else
        m_lernen->setFocus(Qt::OtherFocusReason);
}

void Ablagefeld::bestaendeZeigen()
{
    m_liste->setVisible(m_fund->rowCount() > 0);
    m_leer->setVisible(m_fund->rowCount() == 0);
    const QString rest = m_ablage->uebrige().join(u'\n');
    m_rest->setzeText(rest);
    m_rest->setVisible(!rest.isEmpty());
}

void Ablagefeld::angekreuzteZeigen()
{
    const qsizetype viele = m_ablage->angekreuzte();
    const QString satz = viele == 0 ? Sprache::text(u"Nichts ist angekreuzt."_s)
                                    : gefuellt(Sprache::text(u"Angekreuzt: %@ von %@"_s),
                                               {QString::number(viele), QString::number(m_ablage->anzahl())});
    m_anzahl->setzeText(satz);
    m_uebernehmen->setToolTip(satz + u' ' + Sprache::text(u"Taste in der Liste: Eingabe"_s));
    m_uebernehmen->setEnabled(m_ablage->lage() == Lage::Auswahl && viele > 0);
    m_abbrechen->setEnabled(m_ablage->lage() == Lage::Auswahl);
}
} // namespace quillmar::einrichtung
