#include "sitzungszeile.h"

#include "dateiverwaltung.h"
#include "elidiertext.h"
#include "flachknopf.h"
#include "pfade.h"
#include "sitzungsbilder.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
QString zeitpunkt(const QDateTime &zeit, bool mitSekunden)
{
    return QLocale().toString(zeit, mitSekunden ? Sprache::text(u"d. MMMM yyyy, HH:mm:ss"_s)
                                                : Sprache::text(u"d. MMMM yyyy, HH:mm"_s));
}

QString unterzeile(const Sitzungsbild &bild, bool laufend)
{
    const QString anzahl = gefuellt(Sprache::text(bild.bewegungen, u"%@ Bewegung"_s, u"%@ Bewegungen"_s),
                                    {QLocale().toString(bild.bewegungen)});
    if (bild.bewegungen > 0 && bild.zurueckgedreht)
        return gefuellt(Sprache::text(u"%@, zurückgedreht"_s), {anzahl});
    if (laufend && bild.zuletzt.isValid())
        return gefuellt(Sprache::text(u"%@, zuletzt um %@"_s),
                        {anzahl, QLocale().toString(bild.zuletzt.time(), u"HH:mm"_s)});
    return anzahl;
}
} // namespace

Sitzungszeile::Sitzungszeile(QWidget *eltern)
    : QWidget(eltern), m_marke(new Flachknopf({}, Symbol::Offen, {}, {}, this)),
      m_titel(new Elidiertext(Qt::ElideRight, this)), m_unterzeile(new Elidiertext(Qt::ElideRight, this)),
      m_ansehen(new Flachknopf({}, Symbol::Keines, Sprache::text(u"Ansehen"_s), {}, this)),
      m_finden(new Flachknopf({}, Symbol::Aufschlagen, {}, {}, this))
{
    m_ansehen->setzeMitText(true);
    m_marke->setFocusPolicy(Qt::NoFocus); // the button beside it does the same
    for (Elidiertext *text : {m_titel, m_unterzeile})
        text->setTextInteractionFlags(Qt::NoTextInteraction); // a click anywhere chooses
    auto *worte = new QVBoxLayout;
    worte->addWidget(m_titel);
    worte->addWidget(m_unterzeile);
    worte->setSpacing(0);
    auto *reihe = new QHBoxLayout(this);
    reihe->addWidget(m_marke);
    reihe->addLayout(worte, 1);
    reihe->addWidget(m_ansehen);
    reihe->addWidget(m_finden);
    const auto waehlen = [this] { Q_EMIT gewaehlt(m_datei); };
    connect(m_marke, &QToolButton::clicked, this, waehlen);
    connect(m_ansehen, &QToolButton::clicked, this, waehlen);
    connect(m_finden, &QToolButton::clicked, this, [this] { Dateiverwaltung::zeigen(m_datei); });
    Stil::folgen(this, [this, reihe] {
        reihe->setContentsMargins(abstand(6), abstand(4), abstand(6), abstand(4));
        reihe->setSpacing(abstand(8));
        setzeGewaehlt(m_gewaehlt);
    });
}

void Sitzungszeile::setzen(const QString &datei, int nummer)
{
    m_datei = datei;
    m_titel->setzeText(nameVon(datei));
    m_titel->setzeHilfe(nameVon(datei));
    m_unterzeile->setzeText({});
    setToolTip(nameVon(datei));
    const QString ende = u'-' + QString::number(nummer);
    m_marke->setObjectName(u"sitzung"_s + ende);
    m_ansehen->setObjectName(u"ansehen"_s + ende);
    m_finden->setObjectName(u"finden"_s + ende);
    knoepfeBenennen();
}

void Sitzungszeile::bildZeigen(const Sitzungsbild &bild, bool laufend, bool mitSekunden)
{
    m_titel->setzeText(bild.beginn.isValid() ? zeitpunkt(bild.beginn, mitSekunden) : nameVon(m_datei));
    m_unterzeile->setzeText(unterzeile(bild, laufend));
    knoepfeBenennen();
    einpassen();
}

/** Read aloud, each of them says which session it means. */
void Sitzungszeile::knoepfeBenennen()
{
    const QString welche = m_titel->ganzerText();
    m_marke->setzeHilfe({}, Sprache::text(u"Zeigt den Inhalt dieser Datei rechts an"_s));
    m_marke->setAccessibleName(gefuellt(Sprache::text(u"Sitzung: %@"_s), {welche}));
    m_ansehen->setzeHilfe(Sprache::text(u"Ansehen"_s),
                          Sprache::text(u"Zeigt diese Sitzung rechts an, damit du vor dem Zurückdrehen siehst, was "
                                        "darin steht"_s));
    m_ansehen->setAccessibleName(gefuellt(Sprache::text(u"Ansehen: %@"_s), {welche}));
    m_finden->setzeHilfe({}, Sprache::text(u"Diese Protokolldatei in der Dateiverwaltung zeigen"_s));
    m_finden->setAccessibleName(m_finden->toolTip() + u": "_s + welche);
}

void Sitzungszeile::setzeGewaehlt(bool gewaehlt)
{
    m_gewaehlt = gewaehlt;
    m_marke->setIcon(Zeichen::icon(gewaehlt ? Symbol::Gewaehlt : Symbol::Offen, palette().color(QPalette::WindowText)));
    m_titel->setFont(Stil::schrift(gewaehlt ? Schrift::Halbfett : Schrift::Grund));
    m_unterzeile->setFont(Stil::schrift(Schrift::Neben));
    Stil::setzeTextfarbe(m_unterzeile, gewaehlt ? Stil::nebenfarbe(palette(), Stil::auswahlgrund(palette()))
                                                : Stil::nebenfarbe(palette()));
    update();
}

/** What a session is comes before the word on the button. */
void Sitzungszeile::einpassen()
{
    const int worte = std::max(m_titel->sizeHint().width(), m_unterzeile->sizeHint().width());
    m_ansehen->setIcon({});
    m_ansehen->setzeMitText(true);
    const int breite = m_marke->sizeHint().width() + worte + m_ansehen->sizeHint().width() +
                       m_finden->sizeHint().width() + 3 * abstand(8) + 2 * abstand(6);
    if (breite <= width())
        return;
    m_ansehen->setIcon(Zeichen::icon(Symbol::Vorschau));
    m_ansehen->setzeMitText(false);
}

void Sitzungszeile::resizeEvent(QResizeEvent *) { einpassen(); }

void Sitzungszeile::fokusNehmen() { m_ansehen->setFocus(); }

void Sitzungszeile::mouseReleaseEvent(QMouseEvent *ereignis)
{
    if (ereignis->button() == Qt::LeftButton && rect().contains(ereignis->position().toPoint()))
        Q_EMIT gewaehlt(m_datei);
}

void Sitzungszeile::paintEvent(QPaintEvent *)
{
    if (!m_gewaehlt)
        return;
    QPainter maler(this);
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setPen(Qt::NoPen);
    maler.setBrush(Stil::auswahlgrund(palette()));
    maler.drawRoundedRect(rect(), 3, 3);
}
} // namespace quillmar::protokoll
