#include "protokollordner.h"

#include "elidiertext.h"
#include "flachknopf.h"
#include "hinweisfeld.h"
#include "knopf.h"
#include "ordnerwahl.h"
#include "pfade.h"
#include "profilwahl.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QHBoxLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;
using Stil::Schrift;

Protokollordner::Protokollordner(Profilwahl *profilwahl, QWidget *eltern)
    : QWidget(eltern), m_profilwahl(profilwahl), m_ort(new Elidiertext(Qt::ElideMiddle, this)),
      m_pfad(new Elidiertext(Qt::ElideMiddle, this)),
      m_warnung(new Hinweisfeld(true, Symbol::Warnung,
                                Sprache::text(u"In diesen Ordner lässt sich nicht schreiben, oder er ist nicht da. "
                                              "Wähle einen anderen, oder schließe das Laufwerk an."_s),
                                {}, this)),
      m_frage(this)
{
    const QString hilfe =
        Sprache::text(u"Leer bedeutet: ein Unterordner _Protokolle direkt neben der Ablage. Dann bleiben Protokoll und "
                      "Dateien zusammen, auch an einem anderen Rechner."_s);
    m_ort->setObjectName(u"protokollOrdner"_s);
    m_ort->setAccessibleDescription(hilfe);
    auto *waehlen = new Knopf(u"protokollOrdnerWaehlen"_s, Sprache::text(u"Wählen …"_s), this);
    waehlen->setAccessibleName(Sprache::text(u"Ordner für die Sitzungsprotokolle wählen"_s));
    waehlen->setAccessibleDescription(hilfe);
    waehlen->setToolTip(hilfe);
    m_standard = new Flachknopf(u"protokollOrdnerStandard"_s, Symbol::Ruecknehmen, Sprache::text(u"Standardort"_s),
                                Sprache::text(u"Stellt den Standardort neben der Ablage wieder her"_s), this);
    m_warnung->setObjectName(u"protokollOrtWarnung"_s);
    m_warnung->hide();
    connect(waehlen, &QPushButton::clicked, this, &Protokollordner::waehlen);
    connect(m_standard, &QToolButton::clicked, this, [this] { setzen({}); });
    connect(m_profilwahl, &Profilwahl::profileGeaendert, this, &Protokollordner::zeigen);
    connect(m_profilwahl, &Profilwahl::aktivGeaendert, this, &Protokollordner::zeigen);
    anordnen(waehlen);
    zeigen();
}

void Protokollordner::anordnen(QWidget *waehlen)
{
    auto *titel = new QLabel(Sprache::text(u"Ordner für die Protokolle"_s), this);
    titel->setToolTip(m_ort->accessibleDescription());
    auto *worte = new QVBoxLayout;
    worte->setSpacing(0);
    worte->addStretch(1);
    worte->addWidget(m_ort);
    worte->addWidget(m_pfad);
    worte->addStretch(1);
    auto *reihe = new QHBoxLayout;
    reihe->addLayout(worte, 1);
    reihe->addWidget(waehlen);
    reihe->addWidget(m_standard);
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addWidget(titel);
    spalte->addLayout(reihe);
    spalte->addWidget(m_warnung);
    Stil::schriftFolgt(titel, Schrift::Abschnitt);
    Stil::nebentext(m_pfad);
    Stil::folgen(this, [reihe, spalte] {
        reihe->setSpacing(abstand(8));
        spalte->setSpacing(abstand(6));
    });
}

void Protokollordner::zeigen()
{
    if (!m_profilwahl->aktiv())
        return;
    const Profil &profil = *m_profilwahl->aktiv();
    const auto ort = profil.protokollURL();
    const bool eigener = !profil.protokollOrdner.isEmpty();
    QString text = Sprache::text(u"noch kein Zielordner"_s);
    if (eigener)
        text = Sprache::text(u"Eigener Ort gewählt"_s);
    else if (ort)
        text = gefuellt(Sprache::text(u"Standard: %@"_s), {kurzpfad(*ort)});
    m_ort->setzeText(text);
    m_pfad->setzeText(eigener ? kurzpfad(*ort) : QString());
    m_pfad->setVisible(eigener);
    m_standard->setEnabled(eigener);
    pruefen();
}

void Protokollordner::pruefen()
{
    if (!m_profilwahl->aktiv())
        return;
    m_frage.stellen([profil = *m_profilwahl->aktiv()] { return protokollort(profil); },
                    [this](const Ausgang<Protokollort> &ausgang) {
                        m_warnung->setVisible(ausgang.wert == Protokollort::Unbrauchbar);
                    });
}

void Protokollordner::waehlen()
{
    if (!m_profilwahl->aktiv())
        return;
    const Profil &profil = *m_profilwahl->aktiv();
    const auto ordner = Ordnerwahl::ordnerWaehlen(Sprache::text(u"Ordner für die Sitzungsprotokolle wählen"_s),
                                                  u"protokolle-"_s + profil.id.toString(QUuid::WithoutBraces),
                                                  profil.protokollURL().value_or(QString()));
    if (ordner)
        setzen(*ordner);
}

/** Saved at once; the state object reads the list of another folder by itself. */
void Protokollordner::setzen(const QString &ordner)
{
    if (!m_profilwahl->aktiv())
        return;
    Profil profil = *m_profilwahl->aktiv();
    profil.protokollOrdner = ordner;
    m_profilwahl->setzeProfil(profil);
}
} // namespace quillmar::protokoll
