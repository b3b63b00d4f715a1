#include "aktionsfeld.h"

#include "ausfuehrung.h"
#include "elidiertext.h"
#include "flachknopf.h"
#include "hauptknopf.h"
#include "meldungszeile.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"

#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::pruefung
{
using Stil::abstand;

namespace
{
constexpr auto zeichendauer = 2s;
}

Aktionsfeld::Aktionsfeld(Profilwahl *profilwahl, Pruefung *pruefung, Ausfuehrung *ausfuehrung, Meldestelle *meldestelle,
                         QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl), m_ausfuehrung(ausfuehrung), m_uebernehmen(new Hauptknopf({}, this)),
      m_zuruecklegen(new Flachknopf(u"zuruecklegen"_s, Symbol::Spaeter, Sprache::text(u"Zurückstellen"_s),
                                    Sprache::text(u"Überspringt dieses Dokument, ohne etwas zu verändern. Es kommt am "
                                                  "Ende wieder. Taste: Z"_s),
                                    this)),
      m_aussortieren(new Flachknopf(u"aussortieren"_s, Symbol::Dublette, Sprache::text(u"Dublette"_s), {}, this)),
      m_vorheriges(new Flachknopf(u"vorheriges"_s, Symbol::PfeilLinks, Sprache::text(u"Vorheriges"_s),
                                  Sprache::text(u"Ein Dokument zurück, ohne etwas zu verändern. Taste: Pfeil links"_s),
                                  this)),
      m_naechstes(new Flachknopf(u"naechstes"_s, Symbol::PfeilRechts, Sprache::text(u"Nächstes"_s),
                                 Sprache::text(u"Ein Dokument weiter, ohne etwas zu verändern. Taste: Pfeil rechts"_s),
                                 this)),
      m_tasten(new Elidiertext(Qt::ElideRight, this)),
      m_meldung(new Meldungszeile(meldestelle, pruefung, ausfuehrung, this))
{
    m_uebernehmen->setObjectName(u"uebernehmen"_s);
    m_tasten->setObjectName(u"tasten"_s);
    Stil::nebentext(m_tasten);
    auto *reihe = new QHBoxLayout;
    for (QWidget *knopf : QList<QWidget *>{m_uebernehmen, m_zuruecklegen, m_aussortieren})
        reihe->addWidget(knopf);
    reihe->addStretch(1);
    reihe->addWidget(m_vorheriges);
    reihe->addWidget(m_naechstes);
    for (Flachknopf *knopf : {m_zuruecklegen, m_aussortieren, m_vorheriges, m_naechstes})
        knopf->setzeHoch();
    auto *spalte = new QVBoxLayout(this);
    spalte->addLayout(reihe);
    spalte->addWidget(m_tasten);
    spalte->addWidget(m_meldung);
    m_reihe = reihe;
    Stil::folgen(this, [this, spalte] {
        spalte->setSpacing(abstand(5));
        einpassen();
    });
    verbinden();
    zeigen();
    setzeTasten(false, {});
}

void Aktionsfeld::verbinden()
{
    connect(m_uebernehmen, &QPushButton::clicked, m_ausfuehrung, &Ausfuehrung::uebernehmen);
    connect(m_zuruecklegen, &QToolButton::clicked, m_ausfuehrung, &Ausfuehrung::zuruecklegen);
    connect(m_aussortieren, &QToolButton::clicked, m_ausfuehrung, &Ausfuehrung::aussortieren);
    connect(m_vorheriges, &QToolButton::clicked, this, [this] { m_ausfuehrung->weiter(Richtung::Zurueck); });
    connect(m_naechstes, &QToolButton::clicked, this, [this] { m_ausfuehrung->weiter(Richtung::Weiter); });
    connect(m_ausfuehrung, &Ausfuehrung::zuFruehGedrueckt, this, &Aktionsfeld::zuFruehZeigen);
    connect(&m_zuFrueh, &QTimer::timeout, this, &Aktionsfeld::tastenZeigen);
    m_zuFrueh.setSingleShot(true);
    m_zuFrueh.setInterval(zeichendauer);
    connect(m_profilwahl, &Profilwahl::profileGeaendert, this, &Aktionsfeld::zeigen);
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Aktionsfeld::zeigen);
}

void Aktionsfeld::zeigen()
{
    const bool kopieren = m_profilwahl->aktiv() && m_profilwahl->aktiv()->kopieren;
    m_uebernehmen->setText(kopieren ? Sprache::text(u"Übernehmen und kopieren"_s)
                                    : Sprache::text(u"Übernehmen und weiter"_s));
    m_uebernehmen->setAccessibleName(m_uebernehmen->text());
    m_uebernehmen->setToolTip(
        kopieren ? Sprache::text(u"Legt eine Kopie am Zielort an. Das Original bleibt liegen. Taste: Eingabe"_s)
                 : Sprache::text(u"Benennt um und verschiebt an den Zielort. Taste: Eingabe"_s));
    m_uebernehmen->setAccessibleDescription(m_uebernehmen->toolTip());
    m_aussortieren->setzeHilfe(
        Sprache::text(u"Dublette"_s),
        kopieren ? Sprache::text(u"Behandelt das Dokument als Doppelstück und kopiert es nicht mit. Taste: D"_s)
                 : Sprache::text(u"Verschiebt das Dokument in den Dublettenordner. Gelöscht wird nichts. Taste: D"_s));
    einpassen();
}

void Aktionsfeld::setzeTasten(bool imFeld, const QString &hilfe)
{
    const QString imText = Sprache::text(u"Eingabe übernehmen · Esc verlässt das Feld"_s);
    if (imFeld)
        m_tastentext = hilfe.isEmpty() ? imText : hilfe + u" · "_s + imText;
    else
        m_tastentext =
            Sprache::text(u"Eingabe übernehmen · Z zurückstellen · D Dublette · U rückgängig · Pfeile blättern"_s);
    tastenZeigen();
}

/** The keys, or for a moment that one of them was pressed too early. */
void Aktionsfeld::tastenZeigen()
{
    m_tasten->setzeText(m_zuFrueh.isActive()
                            ? Sprache::text(u"Zu früh: Das nächste Dokument war noch nicht zu sehen."_s)
                            : m_tastentext);
}

void Aktionsfeld::zuFruehZeigen()
{
    m_zuFrueh.start();
    tastenZeigen();
}

void Aktionsfeld::setzeDicht(bool dicht) { m_meldung->setzeZweizeilig(!dicht); }

int Aktionsfeld::volleHoehe() const
{
    return abstand(16) + knopfhoehe() + 2 * abstand(5) + m_tasten->sizeHint().height() + knopfhoehe() +
           m_tasten->sizeHint().height();
}

/** Narrower than its row, the flat buttons drop their words. */
void Aktionsfeld::einpassen()
{
    for (Flachknopf *knopf : {m_zuruecklegen, m_aussortieren})
        knopf->setzeMitText(true);
    const int rand = Stil::seitenrand(width());
    layout()->setContentsMargins(rand, abstand(10), rand, abstand(6));
    int breite = 2 * rand + abstand(6) * 5;
    for (const QWidget *knopf :
         QList<const QWidget *>{m_uebernehmen, m_zuruecklegen, m_aussortieren, m_vorheriges, m_naechstes})
        breite += knopf->sizeHint().width();
    const bool mitText = breite <= width();
    m_reihe->setSpacing(mitText ? abstand(6) : 2);
    for (Flachknopf *knopf : {m_zuruecklegen, m_aussortieren})
        knopf->setzeMitText(mitText);
    m_meldung->setzeMitText(mitText);
}

void Aktionsfeld::resizeEvent(QResizeEvent *) { einpassen(); }

void Aktionsfeld::paintEvent(QPaintEvent *) { QPainter(this).fillRect(0, 0, width(), 1, Stil::linie(palette())); }
} // namespace quillmar::pruefung
