#include "sitzungsseite.h"

#include "ausfuehrung.h"
#include "bau.h"
#include "elidiertext.h"
#include "flachknopf.h"
#include "profilwahl.h"
#include "protokollordner.h"
#include "sitzungen.h"
#include "sitzungszeile.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "umbruchtext.h"
#include "zeichenschild.h"
#include "zeile.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int schub = 30; // rows at the beginning, and that one press adds

QLabel *abschnitt(const QString &text, QWidget *eltern)
{
    auto *schild = new QLabel(text, eltern);
    Stil::schriftFolgt(schild, Schrift::Abschnitt);
    return schild;
}

QWidget *nochNichts(QWidget *eltern)
{
    auto *text = new Elidiertext(Qt::ElideRight, eltern);
    text->setzeText(Sprache::text(u"Noch nichts bewegt, daher noch kein Protokoll"_s));
    auto *traeger = zeile(eltern, {zeichenschild(Symbol::Info, eltern), text});
    traeger->setToolTip(Sprache::text(u"Die Datei entsteht erst mit der ersten Umbenennung, damit keine leeren "
                                      "Protokolle herumliegen."_s) +
                        u' ' + Sprache::text(u"Wird angelegt, sobald die erste Datei bewegt wird."_s));
    text->setAccessibleDescription(traeger->toolTip());
    return traeger;
}

QString anzahlsatz(qsizetype alle, bool nurLaufende)
{
    if (alle == 0)
        return Sprache::text(u"Im Protokollordner liegt noch nichts."_s);
    if (nurLaufende)
        return Sprache::text(u"Im Protokollordner liegt nur die laufende Sitzung."_s);
    return gefuellt(Sprache::text(alle, u"%@ Protokoll gefunden."_s, u"%@ Protokolle gefunden, neueste zuerst."_s),
                    {QString::number(alle)});
}
} // namespace

Sitzungsseite::Sitzungsseite(Profilwahl *profilwahl, Sitzungen *sitzungen, Ausfuehrung *ausfuehrung, QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl), m_sitzungen(sitzungen), m_ausfuehrung(ausfuehrung), m_gezeigte(schub)
{
    auto *aussen = new QVBoxLayout(this);
    aussen->setContentsMargins(0, 0, 0, 0);
    aussen->setSpacing(0);
    aussen->addWidget(rollbereich(inhalt(), this), 1);
    aussen->addWidget(fuss());
    connect(&m_bilder, &Sitzungsbilder::gelesen, this, &Sitzungsseite::bildZeigen);
    connect(m_sitzungen, &Sitzungen::protokollDateienGeaendert, this, &Sitzungsseite::zeigen);
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Sitzungsseite::zeigen);
    connect(m_sitzungen, &Sitzungen::protokollGeaendert, this, &Sitzungsseite::auswahlZeigen);
    connect(m_ausfuehrung, &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (!m_ausfuehrung->beschaeftigt() && isVisible())
            zeigen();
    });
    zeigen();
}

QWidget *Sitzungsseite::inhalt()
{
    auto *traeger = new QWidget(this);
    auto *spalte = new QVBoxLayout(traeger);
    m_ordner = new Protokollordner(m_profilwahl, traeger);
    spalte->addWidget(m_ordner);
    laufendeBauen(spalte);
    fruehereBauen(spalte);
    spalte->addStretch(1);
    Stil::folgen(traeger, [spalte] { spalte->setSpacing(abstand(16)); });
    return traeger;
}

void Sitzungsseite::laufendeBauen(QVBoxLayout *spalte)
{
    auto *teil = new QVBoxLayout;
    auto *erklaerung = new Umbruchtext(this);
    erklaerung->setzeText(Sprache::text(u"Jede Sitzung schreibt eine eigene Protokolldatei. Sie hält jede Bewegung "
                                        "fest und dient als Sicherung für das Rückgängigmachen."_s));
    m_nochNichts = nochNichts(this);
    m_nochNichts->setObjectName(u"nochNichtsBewegt"_s);
    teil->addWidget(abschnitt(Sprache::text(u"Laufende Sitzung"_s), this));
    teil->addWidget(erklaerung);
    teil->addWidget(m_nochNichts);
    m_mangel = new Umbruchtext(this);
    m_mangel->setObjectName(u"protokollmangel"_s);
    m_mangelZeile = zeile(this, {zeichenschild(Symbol::Warnung, this), m_mangel});
    static_cast<QHBoxLayout *>(m_mangelZeile->layout())->setStretch(1, 1);
    teil->addWidget(m_mangelZeile);
    m_laufende = neueZeile(teil);
    spalte->addLayout(teil);
    Stil::nebentext(erklaerung);
    Stil::folgen(this, [teil] { teil->setSpacing(abstand(4)); });
}

void Sitzungsseite::fruehereBauen(QVBoxLayout *spalte)
{
    m_liste = new QVBoxLayout;
    m_anzahl = new QLabel(this);
    m_anzahl->setObjectName(u"protokollAnzahl"_s);
    m_anzahl->setTextFormat(Qt::PlainText);
    m_mehr = new Flachknopf(u"sitzungen-mehr"_s, Symbol::Plus, {}, Sprache::text(u"Zeigt weitere Zeilen"_s), this);
    m_mehr->setzeMitText(true);
    m_liste->addWidget(abschnitt(Sprache::text(u"Frühere Sitzungen"_s), this));
    m_liste->addWidget(m_anzahl);
    m_liste->addWidget(m_mehr, 0, Qt::AlignLeft);
    spalte->addLayout(m_liste);
    connect(m_mehr, &QToolButton::clicked, this, [this] {
        m_gezeigte += schub;
        zeigen();
    });
    Stil::nebentext(m_anzahl);
    Stil::folgen(m_anzahl, [this] { m_liste->setSpacing(abstand(2)); });
}

QWidget *Sitzungsseite::fuss()
{
    auto *oeffnen = new Flachknopf(
        u"protokollOeffnen"_s, Symbol::OrdnerAuf, Sprache::text(u"Andere Datei öffnen …"_s),
        Sprache::text(
            u"Eine Protokolldatei von irgendwo öffnen, auch von einem anderen Rechner oder aus einer Sicherung"_s),
        this);
    auto *auffrischen =
        new Flachknopf(u"protokolleAuffrischen"_s, Symbol::NeuLaden, Sprache::text(u"Liste auffrischen"_s),
                       Sprache::text(u"Liest den Protokollordner noch einmal ein"_s), this);
    m_fussknoepfe = {oeffnen, auffrischen};
    m_fuss = new QWidget(this);
    m_fussreihe = new QBoxLayout(QBoxLayout::LeftToRight, m_fuss);
    for (Flachknopf *knopf : std::as_const(m_fussknoepfe)) {
        knopf->setzeHoch();
        m_fussreihe->addWidget(knopf, 0, Qt::AlignLeft | Qt::AlignTop);
    }
    m_fussreihe->addStretch(1);
    connect(oeffnen, &QToolButton::clicked, m_sitzungen, &Sitzungen::protokollDateiWaehlen);
    connect(auffrischen, &QToolButton::clicked, this, &Sitzungsseite::auffrischen);
    return m_fuss;
}

Sitzungszeile *Sitzungsseite::neueZeile(QVBoxLayout *spalte)
{
    auto *neu = new Sitzungszeile(this);
    connect(neu, &Sitzungszeile::gewaehlt, this, [this](const QString &datei) {
        if (m_sitzungen->protokollDatei() != datei)
            m_sitzungen->protokollWaehlen(datei);
    });
    spalte->addWidget(neu);
    return neu;
}

void Sitzungsseite::auffrischen()
{
    m_sitzungen->protokolleListen();
    m_sitzungen->protokollAuffrischen();
    m_ordner->pruefen();
}

QStringList Sitzungsseite::fruehere() const
{
    QStringList dateien = m_sitzungen->protokollDateien();
    dateien.removeAll(m_sitzungen->laufendeDatei());
    return dateien;
}

void Sitzungsseite::zeigen()
{
    laufendeZeigen();
    fruehereZeigen();
    auswahlZeigen();
    bilderLesen();
}

void Sitzungsseite::laufendeZeigen()
{
    const QString datei = m_sitzungen->laufendeDatei();
    const QString mangel = m_sitzungen->protokollmangel();
    m_mangel->setzeText(mangel);
    m_mangelZeile->setVisible(!mangel.isEmpty());
    m_nochNichts->setVisible(datei.isEmpty() && mangel.isEmpty());
    m_laufende->setVisible(!datei.isEmpty());
    if (m_laufende->datei() != datei)
        m_laufende->setzen(datei, 0);
}

void Sitzungsseite::fruehereZeigen()
{
    const QStringList dateien = fruehere();
    const int anzahl = std::min<int>(m_gezeigte, int(dateien.size()));
    zeilenZeigen(dateien, anzahl);
    m_anzahl->setText(anzahlsatz(m_sitzungen->protokollDateien().size(), dateien.isEmpty()));
    const qsizetype rest = dateien.size() - anzahl;
    m_mehr->setzeHilfe(gefuellt(Sprache::text(u"%@ weitere zeigen"_s), {QString::number(rest)}),
                       Sprache::text(u"Zeigt weitere Zeilen"_s));
    m_mehr->setVisible(rest > 0);
    m_mehr->updateGeometry();
}

/** A row for each of the first @p anzahl of @p dateien. */
void Sitzungsseite::zeilenZeigen(const QStringList &dateien, int anzahl)
{
    while (m_zeilen.size() < anzahl) {
        m_liste->removeWidget(m_mehr);
        m_zeilen << neueZeile(m_liste);
        m_liste->addWidget(m_mehr, 0, Qt::AlignLeft);
    }
    for (int n = 0; n < m_zeilen.size(); ++n) {
        m_zeilen.at(n)->setVisible(n < anzahl);
        if (n < anzahl && m_zeilen.at(n)->datei() != dateien.at(n)) {
            m_zeilen.at(n)->setzen(dateien.at(n), n + 1);
            bildZeigen(dateien.at(n));
        }
    }
}

QList<Sitzungszeile *> Sitzungsseite::alleZeilen() const { return QList{m_laufende} + m_zeilen; }

/** Nobody sees them in another card, and a log may be long. */
void Sitzungsseite::bilderLesen()
{
    if (!isVisible())
        return;
    QStringList dateien;
    for (const Sitzungszeile *zeile : alleZeilen()) {
        if (!zeile->isHidden())
            dateien << zeile->datei();
    }
    m_bilder.lesen(dateien);
}

void Sitzungsseite::bildZeigen(const QString &datei)
{
    // What is found out about one may tell another one apart from it.
    const auto minute = [](const Sitzungsbild &bild) { return bild.beginn.toSecsSinceEpoch() / 60; };
    QHash<qint64, int> inMinute;
    for (const Sitzungszeile *zeile : alleZeilen()) {
        if (const auto bild = m_bilder.bild(zeile->datei()))
            ++inMinute[minute(*bild)];
    }
    const auto neues = m_bilder.bild(datei);
    for (Sitzungszeile *zeile : alleZeilen()) {
        const auto bild = m_bilder.bild(zeile->datei());
        if (neues && bild && (zeile->datei() == datei || minute(*bild) == minute(*neues)))
            zeile->bildZeigen(*bild, zeile == m_laufende, inMinute.value(minute(*bild)) > 1);
    }
}

void Sitzungsseite::auswahlZeigen()
{
    for (Sitzungszeile *zeile : alleZeilen())
        zeile->setzeGewaehlt(m_sitzungen->protokollDatei() == zeile->datei());
}

void Sitzungsseite::zurAuswahl()
{
    Sitzungszeile *ziel = nullptr;
    for (Sitzungszeile *zeile : alleZeilen()) {
        if (!zeile->isHidden() && (!ziel || m_sitzungen->protokollDatei() == zeile->datei()))
            ziel = zeile;
    }
    if (ziel)
        ziel->fokusNehmen();
}

void Sitzungsseite::setzeFuss(int hoehe, int oben, bool gestapelt)
{
    m_fuss->setFixedHeight(hoehe);
    m_fussoben = oben;
    m_fussGestapelt = gestapelt;
    fussEinpassen();
    update();
}

/** Narrower than their row, the buttons stand below each other as those beside do, else they drop their words. */
void Sitzungsseite::fussEinpassen()
{
    const int rand = Stil::seitenrand(width());
    m_fussreihe->setContentsMargins(rand - abstand(9), m_fussoben, rand, 0);
    int breite = 2 * rand;
    for (Flachknopf *knopf : std::as_const(m_fussknoepfe)) {
        knopf->setzeMitText(true);
        breite += knopf->sizeHint().width() + abstand(10);
    }
    for (Flachknopf *knopf : std::as_const(m_fussknoepfe))
        knopf->setzeMitText(breite <= width() || m_fussGestapelt);
    const bool stapeln = breite > width() && m_fussGestapelt;
    m_fussreihe->setDirection(stapeln ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    m_fussreihe->setSpacing(stapeln ? abstand(4) : abstand(10));
}

void Sitzungsseite::resizeEvent(QResizeEvent *)
{
    const int rand = Stil::seitenrand(width());
    auto *rollen = findChild<QScrollArea *>();
    rollen->widget()->layout()->setContentsMargins(rand, abstand(12), rand, abstand(12));
    fussEinpassen();
}

void Sitzungsseite::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(0, m_fuss->y(), width(), 1, Stil::linie(palette()));
}
} // namespace quillmar::protokoll
