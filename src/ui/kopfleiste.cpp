#include "kopfleiste.h"

#include "anordnung.h"
#include "auswahl.h"
#include "bau.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "text.h"
#include "umschalter.h"
#include "zustand.h"

#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
namespace
{
constexpr int profilzeichen = 13;
constexpr int profilbreite = 180;

Umschalter *artBauen()
{
    return new Umschalter(
        {.name = u"verschieben"_s,
         .titel = Sprache::text(u"Verschieben"_s),
         .hilfe = Sprache::text(u"Die Dateien werden an den Zielort verschoben, am alten Platz bleibt nichts"_s),
         .symbol = Symbol::Verschieben},
        {.name = u"kopieren"_s,
         .titel = Sprache::text(u"Kopieren"_s),
         .hilfe = Sprache::text(u"Die Originale bleiben unberührt liegen, im Zielordner entstehen Kopien"_s),
         .symbol = Symbol::Kopieren});
}
} // namespace

Kopfleiste::Kopfleiste(Zustand *zustand, QToolButton *menue, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_profil(profilwahlBauen()),
      m_neu(flachknopf(u"neuesProfil"_s, Symbol::Plus, Sprache::text(u"Neues Profil"_s),
                       Sprache::text(u"Neues Profil anlegen, etwa für eine zweite Ablage oder einen anderen Rechner"_s),
                       false)),
      m_art(artBauen())
{
    Kette *reiter = reihe({}, Abstand::Keiner);
    for (const Reiter einer : alleReiter())
        reiter->addWidget(m_reiter[einer] = reiterBauen(einer));
    // Both sides are as wide as each other where there is room for that, so that the tabs are in the middle.
    auto *leiste = fuellen(new QWidget,
                           reihe({{reihe({m_profil, m_neu, Teil::rest()}, Abstand::Eng), 1},
                                  reiter,
                                  {reihe({Teil::rest(), m_art, menue}, Abstand::Eng), 1}}),
                           Abstand::Nah);
    fuellen(this, spalte({leiste, linie()}, Abstand::Keiner));
    verbinden();
    profileZeigen();
    reiterZeigen();
    new Nachgeben(leiste, 4, [this](int stufe) { setzeStufe(stufe); });
}

void Kopfleiste::verbinden()
{
    Profilwahl *wahl = m_zustand->profilwahl();
    connect(m_neu, &QToolButton::clicked, wahl, &Profilwahl::neuesProfil);
    connect(m_art, &Umschalter::gewaehlt, wahl, &Profilwahl::setzeKopieren);
    connect(wahl, &Profilwahl::profileGeaendert, this, &Kopfleiste::profileZeigen);
    for (const auto signal : {&Profilwahl::aktivGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(wahl, signal, this, &Kopfleiste::aktivZeigen);
    connect(m_zustand, &Zustand::reiterGeaendert, this, &Kopfleiste::reiterZeigen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &Kopfleiste::reiterZeigen);
}

QComboBox *Kopfleiste::profilwahlBauen()
{
    auto *wahl = new QComboBox;
    radsperre(wahl);
    wahl->setFocusPolicy(Qt::TabFocus); // chosen by the mouse, the keys stay with the card
    bezeichnen(wahl, u"aktiv"_s, Sprache::text(u"Profil"_s),
               Sprache::text(u"Ein Profil bündelt Herkunft, Ziel, Benennungsmuster und Struktur. So lässt sich "
                             "dieselbe App für mehrere Ablagen verwenden."_s));
    wahl->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    wahl->setMinimumContentsLength(profilzeichen);
    connect(wahl, &QComboBox::activated, this,
            [this](int stelle) { m_zustand->profilwahl()->aktivieren(m_profil->itemData(stelle).toUuid()); });
    return wahl;
}

QToolButton *Kopfleiste::reiterBauen(Reiter reiter)
{
    QToolButton *knopf = flachknopf(u"reiter-"_s + rohwert(reiter), Zeichen::symbol(reiterSymbol(reiter)),
                                    reiterTitel(reiter), reiterHilfe(reiter));
    setzeKnopfart(knopf, Knopfart::Reiter);
    setzeWaehlbar(knopf);
    knopf->setAutoExclusive(true);
    connect(knopf, &QToolButton::clicked, m_zustand, [this, reiter] { m_zustand->setzeReiter(reiter); });
    return knopf;
}

void Kopfleiste::profileZeigen()
{
    QList<Wahleintrag> eintraege;
    for (const Profil &profil : m_zustand->profilwahl()->profile())
        eintraege << Wahleintrag{.wert = profil.id.toString(), .anzeige = profil.name};
    const auto &aktiv = m_zustand->profilwahl()->aktiv();
    wahlAuffrischen(m_profil, eintraege, aktiv ? aktiv->id.toString() : QString());
    aktivZeigen();
}

void Kopfleiste::aktivZeigen()
{
    const Profil *aktiv = m_zustand->profilwahl()->aktiv();
    m_profil->setCurrentIndex(aktiv ? m_profil->findData(aktiv->id.toString()) : -1);
    // Where there is none, the setup card has the one button for the first profile.
    m_profil->setVisible(!m_zustand->profilwahl()->profile().isEmpty());
    m_neu->setVisible(!m_zustand->profilwahl()->profile().isEmpty());
    m_art->setVisible(aktiv != nullptr);
    if (aktiv)
        m_art->setzeRechts(aktiv->kopieren);
}

void Kopfleiste::reiterZeigen()
{
    m_reiter[m_zustand->reiter()]->setChecked(true);
    const qint64 offene = m_zustand->pruefung()->zaehlwerk().bereit;
    QToolButton *pruefen = m_reiter[Reiter::Pruefen];
    setzeReiterzahl(pruefen, offene);
    pruefen->setAccessibleName(
        offene > 0 ? gefuellt(Sprache::text(u"%@, %@ offen"_s), {pruefen->text(), QString::number(offene)})
                   : pruefen->text());
}

/** When it gets narrow: a short profile choice, tabs without icons, a switch without words, tabs closer together. */
void Kopfleiste::setzeStufe(int stufe)
{
    m_profil->setMinimumWidth(stufe == 0 ? Stil::mass(profilbreite) : 0);
    for (QToolButton *knopf : std::as_const(m_reiter)) {
        knopf->setToolButtonStyle(stufe < 2 ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonTextOnly);
        setzeEng(knopf, stufe >= 4);
    }
    m_art->setzeMitText(stufe < 3);
}
} // namespace quillmar::ui
