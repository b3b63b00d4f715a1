#include "kopfleiste.h"

#include "bau.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "reiterknopf.h"
#include "sprache.h"
#include "stil.h"
#include "umschalter.h"
#include "zeichen.h"
#include "zustand.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QPainter>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::abstand;

namespace
{
// When it gets narrow: a short profile choice, tabs without icons, a switch without words, tabs closer together.
constexpr int schmalsteStufe = 4;
constexpr int profilzeichen = 13;

QToolButton *flacherKnopf(const QString &name, Symbol symbol, const QString &titel, const QString &hilfe,
                          QWidget *eltern)
{
    auto *knopf = new QToolButton(eltern);
    knopf->setObjectName(name);
    knopf->setAutoRaise(true);
    knopf->setFocusPolicy(Qt::TabFocus);
    knopf->setIcon(Zeichen::icon(symbol));
    knopf->setAccessibleName(titel);
    knopf->setAccessibleDescription(hilfe);
    knopf->setToolTip(hilfe);
    return knopf;
}
} // namespace

Kopfleiste::Kopfleiste(Zustand *zustand, QToolButton *menue, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_menue(menue)
{
    profilwahlBauen();
    reiterBauen();
    m_art = new Umschalter(
        {.name = u"verschieben"_s,
         .titel = Sprache::text(u"Verschieben"_s),
         .hilfe = Sprache::text(u"Die Dateien werden an den Zielort verschoben, am alten Platz bleibt nichts"_s),
         .symbol = Symbol::Verschieben},
        {.name = u"kopieren"_s,
         .titel = Sprache::text(u"Kopieren"_s),
         .hilfe = Sprache::text(u"Die Originale bleiben unberührt liegen, im Zielordner entstehen Kopien"_s),
         .symbol = Symbol::Kopieren},
        this);
    m_menue->setParent(this);
    verbinden();
    profileZeigen();
    reiterZeigen();
    Stil::folgen(this, [this] {
        const QSize kante(Stil::zeichengroesse(), Stil::zeichengroesse());
        for (QToolButton *knopf : {m_neu, m_menue})
            knopf->setIconSize(kante);
        updateGeometry();
        anordnen();
    });
}

void Kopfleiste::verbinden()
{
    connect(m_art, &Umschalter::gewaehlt, m_zustand->profilwahl(), &Profilwahl::setzeKopieren);
    connect(m_zustand->profilwahl(), &Profilwahl::profileGeaendert, this, &Kopfleiste::profileZeigen);
    for (const auto signal : {&Profilwahl::aktivGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &Kopfleiste::aktivZeigen);
    connect(m_zustand, &Zustand::reiterGeaendert, this, &Kopfleiste::reiterZeigen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &Kopfleiste::reiterZeigen);
}

void Kopfleiste::profilwahlBauen()
{
    const QString hilfe = Sprache::text(u"Ein Profil bündelt Herkunft, Ziel, Benennungsmuster und Struktur. So lässt "
                                        "sich dieselbe App für mehrere Ablagen verwenden."_s);
    m_profil = new QComboBox(this);
    radsperre(m_profil);
    m_profil->setFocusPolicy(Qt::TabFocus); // chosen by the mouse, the keys stay with the card
    m_profil->setObjectName(u"aktiv"_s);
    m_profil->setAccessibleName(Sprache::text(u"Profil"_s));
    m_profil->setAccessibleDescription(hilfe);
    m_profil->setToolTip(hilfe);
    m_profil->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(m_profil, &QComboBox::activated, this,
            [this](int stelle) { m_zustand->profilwahl()->aktivieren(m_profil->itemData(stelle).toUuid()); });
    m_neu = flacherKnopf(u"neuesProfil"_s, Symbol::Plus, Sprache::text(u"Neues Profil"_s),
                         Sprache::text(u"Neues Profil anlegen, etwa für eine zweite Ablage oder einen anderen "
                                       "Rechner"_s),
                         this);
    connect(m_neu, &QToolButton::clicked, m_zustand->profilwahl(), &Profilwahl::neuesProfil);
}

void Kopfleiste::reiterBauen()
{
    auto *gruppe = new QButtonGroup(this);
    for (const Reiter reiter : alleReiter()) {
        auto *knopf = new Reiterknopf(reiterTitel(reiter), Zeichen::symbol(reiterSymbol(reiter)), this);
        knopf->setObjectName(u"reiter-"_s + rohwert(reiter));
        knopf->setToolTip(reiterHilfe(reiter));
        knopf->setAccessibleDescription(reiterHilfe(reiter));
        gruppe->addButton(knopf);
        connect(knopf, &QAbstractButton::clicked, m_zustand, [this, reiter] { m_zustand->setzeReiter(reiter); });
        m_reiter[reiter] = knopf;
    }
}

void Kopfleiste::profileZeigen()
{
    m_profil->clear();
    for (const Profil &profil : m_zustand->profilwahl()->profile())
        m_profil->addItem(profil.name, profil.id);
    aktivZeigen();
}

void Kopfleiste::aktivZeigen()
{
    const Profil *aktiv = m_zustand->profilwahl()->aktiv();
    m_profil->setCurrentIndex(aktiv ? m_profil->findData(aktiv->id) : -1);
    // Where there is none, the setup card has the one button for the first profile.
    for (QWidget *teil : QList<QWidget *>{m_profil, m_neu})
        teil->setVisible(!m_zustand->profilwahl()->profile().isEmpty());
    m_art->setVisible(aktiv != nullptr);
    if (aktiv)
        m_art->setzeRechts(aktiv->kopieren);
    anordnen();
}

void Kopfleiste::reiterZeigen()
{
    m_reiter[m_zustand->reiter()]->setChecked(true);
    m_reiter[Reiter::Pruefen]->setzeZahl(m_zustand->pruefung()->zaehlwerk().bereit);
    anordnen();
}

void Kopfleiste::setzeStufe(int stufe)
{
    for (Reiterknopf *knopf : std::as_const(m_reiter)) {
        knopf->setzeMitZeichen(stufe < 2);
        knopf->setzeEng(stufe >= 4);
    }
    m_art->setzeMitText(stufe < 3);
}

int Kopfleiste::profilbreite(int stufe) const
{
    if (!m_profil->isVisibleTo(this))
        return 0;
    const int knapp = fontMetrics().averageCharWidth() * profilzeichen + abstand(34);
    return stufe == 0 ? std::max(knapp, abstand(180)) : knapp;
}

int Kopfleiste::reiterbreite() const
{
    int summe = 0;
    for (const Reiterknopf *knopf : m_reiter)
        summe += knopf->sizeHint().width();
    return summe;
}

/** Sets everything to @p stufe and tells how wide it is then. */
int Kopfleiste::breiteBei(int stufe)
{
    setzeStufe(stufe);
    const int rechts =
        (m_art->isVisibleTo(this) ? m_art->sizeHint().width() + abstand(4) : 0) + m_menue->sizeHint().width();
    const int neu = m_neu->isVisibleTo(this) ? m_neu->sizeHint().width() : 0;
    return profilbreite(stufe) + neu + reiterbreite() + rechts + abstand(12) * 2 + abstand(8) * 3;
}

void Kopfleiste::setzen(QWidget *teil, int x, int breite) const
{
    const int hoehe = std::min(height() - 1, qobject_cast<Reiterknopf *>(teil) ? height() : teil->sizeHint().height());
    teil->setGeometry(x, (height() - 1 - hoehe) / 2, breite, hoehe);
}

void Kopfleiste::anordnen()
{
    if (!m_art)
        return;
    int stufe = 0;
    while (breiteBei(stufe) > width() && stufe < schmalsteStufe)
        ++stufe;
    int links = abstand(12);
    if (m_profil->isVisibleTo(this)) {
        setzen(m_profil, links, profilbreite(stufe));
        links += profilbreite(stufe) + abstand(6);
    }
    setzen(m_neu, links, m_neu->sizeHint().width());
    links += m_neu->sizeHint().width() + abstand(8);
    int rechts = width() - abstand(8) - m_menue->sizeHint().width();
    setzen(m_menue, rechts, m_menue->sizeHint().width());
    if (m_art->isVisibleTo(this)) {
        rechts -= m_art->sizeHint().width() + abstand(4);
        setzen(m_art, rechts, m_art->sizeHint().width());
    }
    int x = std::max(links, std::min((width() - reiterbreite()) / 2, rechts - abstand(8) - reiterbreite()));
    for (const Reiter reiter : alleReiter()) {
        setzen(m_reiter[reiter], x, m_reiter[reiter]->sizeHint().width());
        x += m_reiter[reiter]->sizeHint().width();
    }
}

QSize Kopfleiste::sizeHint() const { return {abstand(1100), abstand(46) + 1}; }

QSize Kopfleiste::minimumSizeHint() const { return {0, abstand(46) + 1}; }

void Kopfleiste::resizeEvent(QResizeEvent *) { anordnen(); }

void Kopfleiste::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(0, height() - 1, width(), 1, Stil::linie(palette()));
}
} // namespace quillmar::ui
