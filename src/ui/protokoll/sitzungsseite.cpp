#include "sitzungsseite.h"

#include "ausfuehrung.h"
#include "bau.h"
#include "dateiverwaltung.h"
#include "hinweisfeld.h"
#include "liste.h"
#include "ordnerwahl.h"
#include "pfade.h"
#include "profilwahl.h"
#include "protokollkarte.h"
#include "protokollort.h"
#include "sitzungen.h"
#include "sitzungsmodell.h"
#include "sprache.h"
#include "textschild.h"
#include "zustand.h"

#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
namespace
{
QString ordnerhilfe()
{
    return Sprache::text(u"Leer bedeutet: ein Unterordner _Protokolle direkt neben der Ablage. Dann bleiben Protokoll "
                         "und Dateien zusammen, auch an einem anderen Rechner."_s);
}
} // namespace

Sitzungsseite::Sitzungsseite(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand),
      m_ort(new Textschild(Textschild::Art::KurzMitte, Schrift::Grund, u"protokollOrdner"_s)),
      m_pfad(new Textschild(Textschild::Art::KurzMitte, Schrift::Neben)),
      m_warnung(new Hinweisfeld(Symbol::Warnung,
                                Sprache::text(u"In diesen Ordner lässt sich nicht schreiben, oder er ist nicht da. "
                                              "Wähle einen anderen, oder schließe das Laufwerk an."_s))),
      m_standard(flachknopf(u"protokollOrdnerStandard"_s, Symbol::Ruecknehmen, Sprache::text(u"Standardort"_s),
                            Sprache::text(u"Stellt den Standardort neben der Ablage wieder her"_s), false)),
      m_nochNichts(new Textschild(Textschild::Art::KurzEnde, Schrift::Grund, u"nochNichtsBewegt"_s)),
      m_mangel(new Textschild(Textschild::Art::Umbruch, Schrift::Grund, u"protokollmangel"_s)),
      m_anzahl(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"protokollAnzahl"_s)),
      m_laufende(new Sitzungsmodell(zustand->sitzungen(), &m_bilder, true, this)),
      m_fruehere(new Sitzungsmodell(zustand->sitzungen(), &m_bilder, false, this)), m_frage(this)
{
    const QString fruehere = Sprache::text(u"Frühere Sitzungen"_s);
    m_laufendeListe = listeBauen(u"laufendeSitzung"_s, Sprache::text(u"Laufende Sitzung"_s), m_laufende);
    m_laufendeListe->setzeHoechstens(1);
    m_fruehereListe = listeBauen(u"sitzungen"_s, fruehere, m_fruehere);
    auto *liste = spalte({schild(fruehere, Schrift::Abschnitt), m_anzahl, {m_fruehereListe, 1}}, Abstand::Eng);
    auto *teile = spalte({ordnerteil(), laufenderTeil(), {liste, 1}}, Abstand::Gruppe);
    fuellen(this, spalte({rollbereich(fuellen(new QWidget, teile, Abstand::Rand, Abstand::Feld))}));
    verbinden();
    ordnerZeigen();
    zeigen();
}

QLayout *Sitzungsseite::ordnerteil()
{
    auto *waehlen = knopf(u"protokollOrdnerWaehlen"_s, Sprache::text(u"Wählen …"_s), ordnerhilfe());
    waehlen->setAccessibleName(Sprache::text(u"Ordner für die Sitzungsprotokolle wählen"_s));
    connect(waehlen, &QPushButton::clicked, this, &Sitzungsseite::ordnerWaehlen);
    connect(m_standard, &QToolButton::clicked, this, [this] { setzeOrdner({}); });
    m_ort->setAccessibleDescription(ordnerhilfe());
    m_warnung->setObjectName(u"protokollOrtWarnung"_s);
    m_warnung->hide();
    auto *titel = schild(Sprache::text(u"Ordner für die Protokolle"_s), Schrift::Abschnitt);
    titel->setToolTip(ordnerhilfe());
    auto *worte = spalte({Teil::rest(), m_ort, m_pfad, Teil::rest()}, Abstand::Keiner);
    return spalte({titel, reihe({{worte, 1}, waehlen, m_standard}), m_warnung}, Abstand::Eng);
}

QLayout *Sitzungsseite::laufenderTeil()
{
    m_nochNichts->setzen(Symbol::Info, Sprache::text(u"Noch nichts bewegt, daher noch kein Protokoll"_s));
    m_nochNichts->setzeHilfe(Sprache::text(u"Die Datei entsteht erst mit der ersten Umbenennung, damit keine leeren "
                                           "Protokolle herumliegen."_s) +
                             u' ' + Sprache::text(u"Wird angelegt, sobald die erste Datei bewegt wird."_s));
    return spalte({schild(Sprache::text(u"Laufende Sitzung"_s), Schrift::Abschnitt),
                   erklaerung(Sprache::text(u"Jede Sitzung schreibt eine eigene Protokolldatei. Sie hält jede Bewegung "
                                            "fest und dient als Sicherung für das Rückgängigmachen."_s)),
                   m_nochNichts, m_mangel, m_laufendeListe},
                  Abstand::Eng);
}

Liste *Sitzungsseite::listeBauen(const QString &name, const QString &ansage, Sitzungsmodell *modell)
{
    auto *liste = new Liste(name, ansage);
    liste->setModel(modell);
    const auto waehlen = [this](const QModelIndex &zeile) {
        const QString datei = zeile.data(bedienteile::Kennung).toString();
        if (m_zustand->sitzungen()->protokollDatei() != datei)
            m_zustand->sitzungen()->protokollWaehlen(datei);
    };
    for (const auto signal : {&Liste::clicked, &Liste::activated})
        connect(liste, signal, this, waehlen);
    connect(liste, &Liste::tatGewuenscht, this,
            [](const QModelIndex &zeile) { Dateiverwaltung::zeigen(zeile.data(bedienteile::Kennung).toString()); });
    connect(liste, &Liste::gesehen, this, &Sitzungsseite::bilderAnsehen);
    return liste;
}

void Sitzungsseite::verbinden()
{
    for (const auto signal : {&Profilwahl::profileGeaendert, &Profilwahl::aktivGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &Sitzungsseite::ordnerZeigen);
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, this, &Sitzungsseite::zeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::protokollDateienGeaendert, this, &Sitzungsseite::zeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (!m_zustand->ausfuehrung()->beschaeftigt() && isVisible())
            zeigen();
    });
}

void Sitzungsseite::auffrischen()
{
    m_zustand->sitzungen()->protokolleListen();
    m_zustand->sitzungen()->protokollAuffrischen();
    ordnerPruefen();
}

/** Whatever came of it, logs may hold other things now. */
void Sitzungsseite::zeigen()
{
    const Sitzungen *sitzungen = m_zustand->sitzungen();
    const QString laufende = sitzungen->laufendeDatei();
    const QString mangel = sitzungen->protokollmangel();
    QStringList fruehere = sitzungen->protokollDateien();
    fruehere.removeAll(laufende);
    m_mangel->setzen(Symbol::Warnung, mangel);
    m_mangel->setVisible(!mangel.isEmpty());
    m_nochNichts->setVisible(laufende.isEmpty() && mangel.isEmpty());
    m_laufendeListe->setVisible(!laufende.isEmpty());
    m_anzahl->setzeText(protokollanzahl(sitzungen->protokollDateien().size(), fruehere.isEmpty()));
    m_laufende->setzen(laufende.isEmpty() ? QStringList() : QStringList{laufende});
    m_fruehere->setzen(fruehere);
    m_bilder.veralten(m_laufende->dateien() + fruehere);
    m_laufendeListe->viewport()->update();
    m_fruehereListe->viewport()->update();
}

/** Nobody sees the others, and a log may be long. */
void Sitzungsseite::bilderAnsehen()
{
    const auto [von, bis] = m_fruehereListe->sichtbare();
    m_bilder.ansehen(m_laufende->dateien() + m_fruehere->dateien().mid(std::max(0, von), bis - von + 1));
}

void Sitzungsseite::zurAuswahl()
{
    const QString gezeigte = m_zustand->sitzungen()->protokollDatei().value_or(QString());
    const int zeile = int(m_fruehere->dateien().indexOf(gezeigte));
    const bool laufende = !m_laufende->dateien().isEmpty() && zeile < 0;
    Liste *liste = laufende ? m_laufendeListe : m_fruehereListe;
    if (liste->model()->rowCount() == 0)
        return;
    liste->setCurrentIndex(liste->model()->index(laufende ? 0 : std::max(0, zeile), 0));
    liste->setFocus();
}

void Sitzungsseite::ordnerZeigen()
{
    if (!m_zustand->profilwahl()->aktiv())
        return;
    const Profil &profil = *m_zustand->profilwahl()->aktiv();
    const bool eigener = !profil.protokollOrdner.isEmpty();
    m_ort->setzeText(ordnersatz(profil));
    m_pfad->setzeText(kurzpfad(profil.protokollURL().value_or(QString())));
    m_pfad->setVisible(eigener);
    m_standard->setEnabled(eigener);
    ordnerPruefen();
}

void Sitzungsseite::ordnerPruefen()
{
    if (!m_zustand->profilwahl()->aktiv())
        return;
    m_frage.stellen([profil = *m_zustand->profilwahl()->aktiv()] { return protokollort(profil); },
                    [this](const Ausgang<Protokollort> &ausgang) {
                        m_warnung->setVisible(ausgang.wert == Protokollort::Unbrauchbar);
                    });
}

void Sitzungsseite::ordnerWaehlen()
{
    if (!m_zustand->profilwahl()->aktiv())
        return;
    const Profil &profil = *m_zustand->profilwahl()->aktiv();
    const auto ordner = Ordnerwahl::ordnerWaehlen(Sprache::text(u"Ordner für die Sitzungsprotokolle wählen"_s),
                                                  u"protokolle-"_s + profil.id.toString(QUuid::WithoutBraces),
                                                  profil.protokollURL().value_or(QString()));
    if (ordner)
        setzeOrdner(*ordner);
}

/** Saved at once; the state object reads the list of another folder by itself. */
void Sitzungsseite::setzeOrdner(const QString &ordner)
{
    m_zustand->profilwahl()->aendern([&](Profil &p) { p.protokollOrdner = ordner; });
}
} // namespace quillmar::protokoll
