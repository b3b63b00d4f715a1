#include "fusszeile.h"

#include "analyse.h"
#include "ausfuehrung.h"
#include "balken.h"
#include "durchgang.h"
#include "meldestelle.h"
#include "meldungszeile.h"
#include "modelldienst.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"
#include "zustand.h"

#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::abstand;

namespace
{
constexpr int balkenlaenge = 120;

QLabel *schild(const QString &name, QWidget *eltern)
{
    auto *schild = new QLabel(eltern);
    schild->setObjectName(name);
    schild->setTextFormat(Qt::PlainText);
    Stil::nebentext(schild);
    return schild;
}
} // namespace

Fusszeile::Fusszeile(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_zaehler(schild(u"zaehlwerk"_s, this)), m_lage(schild(u"lage"_s, this))
{
    const QString hilfe = Sprache::text(u"Einsortiert: fertig bearbeitet. Offen: wartet auf deine Prüfung. "
                                        "Zurückgestellt: von dir übersprungen. In Analyse: noch nicht gelesen."_s);
    m_zaehler->setToolTip(hilfe);
    m_zaehler->setAccessibleDescription(hilfe);
    verbinden();
    zaehlenZeigen();
    lageZeigen();
    Stil::folgen(this, [this] {
        updateGeometry();
        anordnen();
    });
}

void Fusszeile::verbinden()
{
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &Fusszeile::zaehlenZeigen);
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, this, &Fusszeile::zaehlenZeigen);
    connect(m_zustand->durchgang(), &Durchgang::laufGeaendert, this, &Fusszeile::lageZeigen);
    connect(m_zustand->modelldienst(), &Modelldienst::modellGeaendert, this, &Fusszeile::lageZeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::vorgangGeaendert, this, &Fusszeile::lageZeigen);
    for (const auto signal : {&Profilwahl::oeffnetGeaendert, &Profilwahl::aktivGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &Fusszeile::lageZeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::rueckbauGeaendert, this, &Fusszeile::lageZeigen);
    connect(m_zustand->meldestelle(), &Meldestelle::hinweisGeaendert, this, &Fusszeile::notieren);
    connect(m_zustand, &Zustand::reiterGeaendert, this, &Fusszeile::notizVergessen);
    connect(m_zustand->durchgang(), &Durchgang::laufGeaendert, this, [this] {
        if (m_zustand->durchgang()->laeuft())
            m_notiz.clear();
    });
}

void Fusszeile::zaehlenZeigen()
{
    m_zaehler->setVisible(m_zustand->profilwahl()->aktiv() != nullptr);
    const Zaehlwerk &z = m_zustand->pruefung()->zaehlwerk();
    m_zaehler->setText(gefuellt(Sprache::text(u"%@ einsortiert · %@ offen · %@ zurückgestellt · %@ in Analyse"_s),
                                {QString::number(z.erledigt), QString::number(z.bereit),
                                 QString::number(z.zurueckgestellt), QString::number(z.neu)}));
    anordnen();
}

void Fusszeile::lageZeigen()
{
    m_stufe.clear();
    m_rest.clear();
    m_anteil = -1;
    m_symbol = Symbol::Keines;
    const Analyse *analyse = m_zustand->durchgang()->analyse();
    if (m_zustand->profilwahl()->oeffnet()) {
        m_stufe = Sprache::text(u"Der Katalog wird geöffnet"_s);
    } else if (m_zustand->sitzungen()->rueckbauLaeuft()) {
        m_stufe = m_zustand->sitzungen()->rueckbauMeldung();
        m_anteil = m_zustand->sitzungen()->rueckbauAnteil();
    } else if (!m_zustand->ausfuehrung()->vorgang().isEmpty()) {
        m_stufe = m_zustand->ausfuehrung()->vorgang();
        m_anteil = m_zustand->ausfuehrung()->vorgangsanteil() > 0 ? m_zustand->ausfuehrung()->vorgangsanteil() : -1;
    } else if (analyse && analyse->laeuft()) {
        m_stufe = analyse->stufe();
        QStringList rest = {analyse->meldung(), analyse->restzeit()};
        rest.removeAll(QString());
        m_rest = rest.join(u" · "_s);
        m_anteil = analyse->anteil();
    } else if (m_zustand->durchgang()->startWartet()) {
        m_stufe = Sprache::text(u"Wartet auf die Antwort des Modellservers …"_s);
    } else if (!m_notiz.isEmpty()) {
        m_stufe = m_notiz;
        m_symbol = tonzeichen(m_zustand->meldestelle()->ton());
    } else if (m_zustand->profilwahl()->aktiv() &&
               (m_zustand->modelldienst()->modellstand().art == Modellstand::Art::ServerFehlt ||
                m_zustand->modelldienst()->modellstand().art == Modellstand::Art::ModellAnderswo ||
                m_zustand->modelldienst()->modellstand().art == Modellstand::Art::ModellFehlt)) {
        m_stufe = m_zustand->modelldienst()->modellMeldung();
        m_symbol = tonzeichen(Meldestelle::Ton::Warnung);
    }
    anordnen();
    update();
}

/** Review and log say it themselves. */
void Fusszeile::notieren()
{
    const Reiter reiter = m_zustand->reiter();
    if (reiter != Reiter::Einrichtung && reiter != Reiter::Ablauf)
        return;
    m_notiz = m_zustand->meldestelle()->meldungen().value(0);
    lageZeigen();
}

void Fusszeile::notizVergessen()
{
    m_notiz.clear();
    lageZeigen();
}

/** When it gets narrow, the bar goes first, then the stage's name, then the right side. */
void Fusszeile::anordnen()
{
    const int rand = abstand(12);
    const int links = rand + m_zaehler->sizeHint().width();
    const int frei =
        width() - links - abstand(24) - rand - (m_symbol == Symbol::Keines ? 0 : Stil::zeichengroesse() + abstand(6));
    const QFontMetrics mass(m_lage->font());
    const QString ganz = m_rest.isEmpty() ? m_stufe : m_stufe + u"   "_s + m_rest;
    const int balken = abstand(balkenlaenge + 8);
    const bool mitBalken = m_anteil >= 0 && mass.horizontalAdvance(ganz) + balken <= frei;
    QString text = ganz;
    if (mass.horizontalAdvance(text) > frei && !m_rest.isEmpty())
        text = m_rest;
    if (mass.horizontalAdvance(text) > frei)
        text = m_stufe == m_notiz ? mass.elidedText(text, Qt::ElideRight, std::max(0, frei)) : QString();
    m_lage->setText(text);
    m_lage->setToolTip(ganz);
    const int breite = mass.horizontalAdvance(text) + 2;
    const int rechts = width() - rand - (mitBalken ? balken : 0);
    m_zaehler->setGeometry(rand, 1, links - rand, height() - 1);
    m_lage->setGeometry(rechts - breite, 1, breite, height() - 1);
    m_balkenX = mitBalken ? width() - rand - abstand(balkenlaenge) : 0;
    update();
}

QSize Fusszeile::sizeHint() const { return {0, abstand(28)}; }

void Fusszeile::resizeEvent(QResizeEvent *) { anordnen(); }

void Fusszeile::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.fillRect(0, 0, width(), 1, Stil::linie(palette()));
    maler.setRenderHint(QPainter::Antialiasing);
    if (m_symbol != Symbol::Keines && !m_lage->text().isEmpty()) {
        const int kante = Stil::zeichengroesse();
        Zeichen::malen(maler, QRect(m_lage->x() - kante - abstand(6), (height() - kante) / 2, kante, kante), m_symbol,
                       palette());
    }
    if (m_balkenX == 0)
        return;
    const int dicke = abstand(6);
    Balken::malen(maler, QRectF(m_balkenX, (height() - dicke) / 2.0, abstand(balkenlaenge), dicke), m_anteil,
                  palette());
}
} // namespace quillmar::ui
