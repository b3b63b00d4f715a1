#include "abschnittsseite.h"

#include "flachknopf.h"
#include "marktext.h"
#include "radsperre.h"
#include "sprache.h"
#include "stil.h"
#include "zeichen.h"
#include "zustand.h"

#include <QComboBox>
#include <QDir>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;
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

QWidget *nebeneinander(QWidget *eltern, QWidget *links, QWidget *rechts, int streckungLinks)
{
    auto *traeger = new QWidget(eltern);
    auto *reihe = new QHBoxLayout(traeger);
    reihe->setContentsMargins(0, 0, 0, 0);
    reihe->addWidget(links, streckungLinks);
    reihe->addWidget(rechts, streckungLinks > 0 ? 0 : 1);
    Stil::folgen(traeger, [reihe] { reihe->setSpacing(abstand(8)); });
    return traeger;
}
} // namespace

int abschnittsrand() { return std::min(abstand(24), groessterRand); }

void feldmass(QWidget *feld)
{
    Stil::folgen(feld, [feld] {
        feld->setMinimumHeight(abstand(30));
        if (auto *eingabe = qobject_cast<QLineEdit *>(feld))
            eingabe->setTextMargins(abstand(2), 0, 0, 0);
    });
}

Abschnittsseite::Abschnittsseite(Zustand *zustand, Abschnitt abschnitt, const QString &erklaerung, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_raster(new QGridLayout(this))
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
    return m_zustand->aktiv() ? *m_zustand->aktiv() : keines;
}

void Abschnittsseite::aendern(const std::function<void(Profil &)> &aenderung) const
{
    if (!m_zustand->aktiv())
        return;
    Profil neu = *m_zustand->aktiv();
    aenderung(neu);
    m_zustand->profilAendern(neu);
}

void Abschnittsseite::folgen(const std::function<void()> &zeigen)
{
    for (const auto signal : {&Zustand::aktivGeaendert, &Zustand::profileGeaendert, &Zustand::bereitschaftGeaendert,
                              &Zustand::einrichtungGeaendert})
        connect(m_zustand, signal, this, zeigen);
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
    schild->setAlignment(Qt::AlignRight | Qt::AlignTop);
    const bool istText = qobject_cast<QLabel *>(eingabe) || qobject_cast<Marktext *>(eingabe);
    const auto ausrichten = [schild, eingabe, istText = istText && !teil, this] {
        Stil::setzeTextfarbe(schild, Stil::nebenfarbe(palette()));
        // On the line of the text beside it.
        const int hoehe = schild->fontMetrics().height();
        const int versatz =
            istText ? eingabe->fontMetrics().ascent() - schild->fontMetrics().ascent() : (abstand(30) - hoehe) / 2;
        schild->setContentsMargins(0, std::max(0, versatz), 0, 0);
    };
    Stil::folgen(schild, ausrichten);
    eingabe->setAccessibleName(beschriftung);
    eingabe->setAccessibleDescription(hilfe);
    eingabe->setToolTip(hilfe);
    radsperre(eingabe);
    m_schilder << schild;
    m_raster->addWidget(schild, m_zeile, 0, Qt::AlignTop);
    m_raster->addWidget(teil ? teil : eingabe, m_zeile++, 1);
}

void Abschnittsseite::darunter(QWidget *teil) { m_raster->addWidget(teil, m_zeile++, 1); }

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
    for (const QLabel *schild : m_schilder)
        breite = std::max(breite, schild->fontMetrics().horizontalAdvance(schild->text()) + 2);
    return breite;
}

void Abschnittsseite::setzeBeschriftungsbreite(int breite) { m_raster->setColumnMinimumWidth(0, breite); }

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
            beschwerde->setzen(satz.isEmpty() ? QString() : u"exclamationmark.triangle"_s,
                               satz.isEmpty() ? hilfe : satz);
        return satz.isEmpty();
    };
    connect(eingabe, &QLineEdit::textEdited, this, [this, feld, pruefen, rand](const QString &text) {
        if (pruefen(text))
            aendern([&](Profil &p) { p.*feld = rand == Rand::weg ? ausgeschrieben(text) : text; });
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
    connect(m_zustand, &Zustand::aktivGeaendert, this, zuruecksetzen);
    return eingabe;
}

QLineEdit *Abschnittsseite::ordnerfeld(const QString &name, QString Profil::*feld, const QString &frage, QWidget **teil)
{
    QLineEdit *eingabe = textfeld(name, feld);
    QPushButton *waehlen = knopf(name + u"-waehlen"_s, Sprache::text(u"Wählen …"_s), frage);
    connect(waehlen, &QPushButton::clicked, this, [this, eingabe, feld, frage] {
        if (const auto ordner = Zustand::ordnerWaehlen(frage)) {
            aendern([&](Profil &p) { p.*feld = *ordner; });
            eingabe->setText(*ordner);
        }
    });
    *teil = nebeneinander(this, eingabe, waehlen, 1);
    return eingabe;
}

QPushButton *Abschnittsseite::knopf(const QString &name, const QString &text, const QString &hilfe,
                                    const QString &symbol)
{
    auto *k = new QPushButton(text, this);
    k->setObjectName(name);
    k->setToolTip(hilfe);
    k->setAccessibleDescription(hilfe);
    if (!symbol.isEmpty())
        k->setIcon(Zeichen::icon(symbol));
    Stil::folgen(k, [k] {
        k->setIconSize({Stil::zeichengroesse(), Stil::zeichengroesse()});
        k->setMinimumHeight(abstand(30));
        const int zeichen = k->icon().isNull() ? 0 : Stil::zeichengroesse() + abstand(4);
        k->setMinimumWidth(k->fontMetrics().horizontalAdvance(k->text()) + zeichen + abstand(26));
    });
    return k;
}

Flachknopf *Abschnittsseite::flachknopf(const QString &name, const QString &text, const QString &hilfe,
                                        const QString &symbol)
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
    return nebeneinander(this, feld, text, 0);
}
