#include "abschnittsseite.h"

#include "bau.h"
#include "einrichtung.h"
#include "flachknopf.h"
#include "knopf.h"
#include "marktext.h"
#include "ordnerwahl.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"
#include "zeichen.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int groessterRand = 30; // where the font is large, the room is needed for text

/** What the user's own folder is called in every shell. */
QString ausgeschrieben(const QString &pfad)
{
    const QString sauber = pfad.trimmed();
    return sauber == "~"_L1 || sauber.startsWith("~/"_L1) ? QDir::homePath() + sauber.mid(1) : sauber;
}

QString bereinigt(const QString &text, Abschnittsseite::Rand rand)
{
    switch (rand) {
    case Abschnittsseite::Rand::Weg:
        return text.trimmed();
    case Abschnittsseite::Rand::Pfad:
        return ausgeschrieben(text);
    case Abschnittsseite::Rand::Bleibt:
        break;
    }
    return text;
}

QWidget *nebeneinander(QWidget *eltern, QWidget *links, QWidget *rechts, int streckungLinks)
{
    auto *traeger = new QWidget(eltern);
    auto *reihe = new QHBoxLayout(traeger);
    reihe->setContentsMargins(0, 0, 0, 0);
    reihe->addWidget(links, streckungLinks, streckungLinks > 0 ? Qt::Alignment() : Qt::AlignLeft);
    reihe->addWidget(rechts, streckungLinks > 0 ? 0 : 1);
    Stil::folgen(traeger, [reihe] { reihe->setSpacing(abstand(8)); });
    return traeger;
}
} // namespace

QString alsBeschriftung(const QString &text) { return text.left(1).toUpper() + text.mid(1); }

Symbol symbol(Befund::Marke marke)
{
    switch (marke) {
    case Befund::Marke::Gut:
        return Symbol::Gut;
    case Befund::Marke::Warnung:
        return Symbol::Warnung;
    case Befund::Marke::Laeuft:
        return Symbol::Laeuft;
    case Befund::Marke::Hinweis:
        return Symbol::Info;
    case Befund::Marke::Offen:
        return Symbol::Offen;
    case Befund::Marke::Keine:
        break;
    }
    return Symbol::Keines;
}

void zeigen(Marktext &text, const Befund &befund, const QString &hilfe)
{
    text.setzen(symbol(befund.marke), befund.satz.isEmpty() ? hilfe : befund.satz);
}

int abschnittsrand() { return std::min(abstand(24), groessterRand); }

void feldmass(QWidget *feld)
{
    Stil::folgen(feld, [feld] {
        feld->setMinimumHeight(abstand(30));
        if (auto *eingabe = qobject_cast<QLineEdit *>(feld))
            eingabe->setTextMargins(abstand(2), 0, 0, 0);
    });
}

Abschnittsseite::Abschnittsseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Abschnitt abschnitt,
                                 const QString &erklaerung, QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl), m_einrichtung(einrichtung), m_raster(new QGridLayout(this))
{
    setObjectName(u"abschnitt-"_s + rohwert(abschnitt));
    m_raster->setColumnStretch(1, 1);
    auto *text = marktext();
    text->erklaeren(erklaerung);
    titel(abschnittTitel(abschnitt), text);
    Stil::folgen(this, [this] {
        m_raster->setHorizontalSpacing(abstand(12));
        m_raster->setVerticalSpacing(abstand(8));
        m_raster->setContentsMargins(abschnittsrand(), abstand(14), abschnittsrand(), abstand(12));
    });
}

const Profil &Abschnittsseite::profil() const
{
    static const Profil keines;
    return m_profilwahl->aktiv() ? *m_profilwahl->aktiv() : keines;
}

void Abschnittsseite::aendern(const std::function<void(Profil &)> &aenderung) const
{
    if (!m_profilwahl->aktiv())
        return;
    Profil neu = *m_profilwahl->aktiv();
    aenderung(neu);
    m_profilwahl->setzeProfil(neu);
}

void Abschnittsseite::folgen(const std::function<void()> &zeigen)
{
    for (const auto signal :
         {&Profilwahl::aktivGeaendert, &Profilwahl::profileGeaendert, &Profilwahl::bereitschaftGeaendert})
        connect(m_profilwahl, signal, this, zeigen);
    connect(m_einrichtung, &Einrichtung::einrichtungGeaendert, this, zeigen);
    zeigen();
}

Marktext *Abschnittsseite::marktext() { return new Marktext(this); }

void Abschnittsseite::titel(const QString &text, Marktext *erklaerung, QWidget *rechts)
{
    auto *kopf = new QWidget(this);
    auto *raster = new QGridLayout(kopf);
    raster->setVerticalSpacing(2);
    raster->setColumnStretch(1, 1);
    auto *schild = new QLabel(text, kopf);
    schild->setTextFormat(Qt::PlainText);
    Stil::schriftFolgt(schild, Schrift::Abschnitt);
    raster->addWidget(schild, 0, 0);
    if (erklaerung)
        raster->addWidget(erklaerung, 1, 0, 1, 2);
    if (rechts)
        raster->addWidget(rechts, 0, 2, 2, 1, Qt::AlignBottom);
    const bool erster = m_zeile == 0;
    Stil::folgen(kopf, [raster, erster] {
        raster->setContentsMargins(0, erster ? 0 : abstand(14), 0, abstand(4));
        raster->setHorizontalSpacing(abstand(12));
    });
    m_raster->addWidget(kopf, m_zeile++, 0, 1, 2);
}

void Abschnittsseite::reihe(const QString &beschriftung, const QString &hilfe, QWidget *eingabe, QWidget *teil)
{
    auto *schild = new QLabel(beschriftung, this);
    schild->setTextFormat(Qt::PlainText);
    schild->setBuddy(eingabe);
    schild->setToolTip(hilfe);
    eingabe->setAccessibleName(beschriftung);
    eingabe->setAccessibleDescription(hilfe);
    eingabe->setToolTip(hilfe);
    radsperre(eingabe);
    const bool istText = !teil && qobject_cast<QLabel *>(eingabe);
    const Reihe neue{
        .schild = schild, .teil = teil ? teil : eingabe, .text = istText ? eingabe : nullptr, .zeile = m_zeile};
    m_reihen << neue;
    m_zeile += 2;
    legen(neue);
    Stil::folgen(schild, [this, neue] { ausrichten(neue); });
}

/** The label on the line of what stands beside it. */
void Abschnittsseite::ausrichten(const Reihe &reihe) const
{
    const QFontMetrics mass = reihe.schild->fontMetrics();
    const int versatz =
        reihe.text ? reihe.text->fontMetrics().ascent() - mass.ascent() : (abstand(30) - mass.height()) / 2;
    Stil::setzeTextfarbe(reihe.schild, Stil::nebenfarbe(palette()));
    reihe.schild->setContentsMargins(0, m_eng ? 0 : std::max(0, versatz), 0, 0);
}

void Abschnittsseite::darunter(QWidget *teil)
{
    m_reihen << Reihe{.schild = nullptr, .teil = teil, .text = nullptr, .zeile = m_zeile};
    m_zeile += 2;
    legen(m_reihen.last());
}

void Abschnittsseite::legen(const Reihe &reihe)
{
    m_raster->removeWidget(reihe.teil);
    m_raster->addWidget(reihe.teil, reihe.zeile + 1, m_eng ? 0 : 1, 1, m_eng ? 2 : 1);
    if (!reihe.schild)
        return;
    m_raster->removeWidget(reihe.schild);
    reihe.schild->setAlignment((m_eng ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignTop);
    m_raster->addWidget(reihe.schild, reihe.zeile + (m_eng ? 0 : 1), 0, 1, m_eng ? 2 : 1, Qt::AlignTop);
}

void Abschnittsseite::setzeEng(bool eng)
{
    if (eng == m_eng)
        return;
    m_eng = eng;
    for (const Reihe &reihe : std::as_const(m_reihen)) {
        legen(reihe);
        if (reihe.schild)
            ausrichten(reihe);
    }
    for (QBoxLayout *reihe : std::as_const(m_kippende))
        reihe->setDirection(eng ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    setzeBeschriftungsbreite(m_breite);
}

void Abschnittsseite::ueberAlles(QWidget *teil, int streckung)
{
    m_raster->setRowStretch(m_zeile, streckung);
    m_raster->addWidget(teil, m_zeile++, 0, 1, 2);
}

void Abschnittsseite::strecken(QWidget *teil, int streckung)
{
    int zeile = 0;
    int spalte = 0;
    int hoehe = 0;
    int breite = 0;
    m_raster->getItemPosition(m_raster->indexOf(teil), &zeile, &spalte, &hoehe, &breite);
    m_raster->setRowStretch(zeile, streckung);
}

void Abschnittsseite::abschliessen() { m_raster->setRowStretch(m_zeile, 1); }

int Abschnittsseite::beschriftungsbreite() const
{
    int breite = 0;
    for (const Reihe &reihe : m_reihen) {
        if (reihe.schild)
            breite = std::max(breite, reihe.schild->fontMetrics().horizontalAdvance(reihe.schild->text()) + 2);
    }
    return breite;
}

void Abschnittsseite::setzeBeschriftungsbreite(int breite)
{
    m_breite = breite;
    m_raster->setColumnMinimumWidth(0, m_eng ? 0 : breite);
}

QLineEdit *Abschnittsseite::textfeld(const QString &name, QString Profil::*feld,
                                     const std::function<QString(const QString &)> &mangel, Marktext *beschwerde,
                                     const QString &hilfe, Rand rand)
{
    auto *eingabe = new QLineEdit(this);
    eingabe->setObjectName(name);
    feldmass(eingabe);
    const auto pruefen = [mangel, beschwerde, hilfe](const QString &text) {
        const QString satz = mangel ? mangel(text) : QString();
        if (beschwerde)
            beschwerde->setzen(satz.isEmpty() ? Symbol::Keines : Symbol::Warnung, satz.isEmpty() ? hilfe : satz);
        return satz.isEmpty();
    };
    connect(eingabe, &QLineEdit::textEdited, this, [this, feld, pruefen, rand](const QString &text) {
        if (pruefen(text))
            aendern([&](Profil &p) { p.*feld = bereinigt(text, rand); });
    });
    folgen([this, eingabe, feld, pruefen] {
        const QString wert = profil().*feld;
        // What is being typed stays as it is typed.
        if (!eingabe->hasFocus() && eingabe->text() != wert)
            eingabe->setText(wert);
        if (!eingabe->hasFocus())
            pruefen(wert);
    });
    // What could not be stored gives way to what holds, and what was typed for one profile to another's.
    const auto zuruecksetzen = [this, eingabe, feld, pruefen] {
        if (eingabe->text() != profil().*feld)
            eingabe->setText(profil().*feld);
        pruefen(profil().*feld);
    };
    connect(eingabe, &QLineEdit::editingFinished, this, zuruecksetzen);
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, zuruecksetzen);
    return eingabe;
}

QLineEdit *Abschnittsseite::ordnerfeld(const QString &name, QString Profil::*feld, const QString &frage, QWidget **teil)
{
    QLineEdit *eingabe = textfeld(name, feld, {}, nullptr, {}, Rand::Pfad);
    QPushButton *waehlen = knopf(name + u"-waehlen"_s, Sprache::text(u"Wählen …"_s), frage);
    connect(waehlen, &QPushButton::clicked, this, [this, eingabe, feld, frage] {
        const QString zweck = eingabe->objectName() + u'-' + profil().id.toString(QUuid::WithoutBraces);
        if (const auto ordner = Ordnerwahl::ordnerWaehlen(frage, zweck, profil().*feld)) {
            aendern([&](Profil &p) { p.*feld = *ordner; });
            eingabe->setText(*ordner);
        }
    });
    // The folder may have been made meanwhile.
    connect(eingabe, &QLineEdit::editingFinished, m_einrichtung, &Einrichtung::einrichtungPruefen);
    *teil = nebeneinander(this, eingabe, waehlen, 1);
    return eingabe;
}

QPushButton *Abschnittsseite::knopf(const QString &name, const QString &text, const QString &hilfe, Symbol symbol)
{
    auto *k = new Knopf(name, text, this);
    k->setToolTip(hilfe);
    k->setAccessibleDescription(hilfe);
    if (symbol != Symbol::Keines)
        k->setIcon(Zeichen::icon(symbol));
    return k;
}

Flachknopf *Abschnittsseite::flachknopf(const QString &name, const QString &text, const QString &hilfe, Symbol symbol)
{
    auto *k = new Flachknopf(name, symbol, text, hilfe, this);
    k->setzeMitText(true);
    return k;
}

void Abschnittsseite::luecke()
{
    auto *leer = new QWidget(this);
    Stil::folgen(leer, [leer] { leer->setFixedHeight(abstand(2)); });
    darunter(leer);
}

QWidget *Abschnittsseite::daneben(QWidget *feld, int zeichen, QWidget *text)
{
    Stil::folgen(feld, [feld, zeichen] {
        feld->setMinimumHeight(abstand(30));
        feld->setFixedWidth(feld->fontMetrics().averageCharWidth() * zeichen + abstand(24));
    });
    QWidget *zeile = nebeneinander(this, feld, text, 0);
    kippen(static_cast<QBoxLayout *>(zeile->layout()));
    return zeile;
}
} // namespace quillmar::einrichtung
