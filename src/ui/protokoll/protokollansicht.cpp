#include "protokollansicht.h"

#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "bewegungsmodell.h"
#include "dateiverwaltung.h"
#include "leeransicht.h"
#include "liste.h"
#include "profilwahl.h"
#include "protokollkarte.h"
#include "rueckbaufeld.h"
#include "sitzungen.h"
#include "sitzungsseite.h"
#include "sprache.h"
#include "tastentakt.h"
#include "teiler.h"
#include "textschild.h"
#include "zustand.h"

#include <QStackedLayout>
#include <QStackedWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
ProtokollAnsicht::ProtokollAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this)), m_sitzungen(new Sitzungsseite(zustand)),
      m_rechts(new QStackedWidget), m_leere(new Leeransicht),
      m_titel(new Textschild(Textschild::Art::KurzMitte, Schrift::Abschnitt, u"sitzungstitel"_s)),
      m_erklaerung(erklaerung(Sprache::text(u"Unter diesen Bedingungen wurde gearbeitet."_s))),
      m_kurzkopf(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben)),
      m_anzahl(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"bewegungsAnzahl"_s)),
      m_liste(new Liste(u"bewegungen"_s, Sprache::text(u"Bewegungen"_s))), m_modell(new Bewegungsmodell(this)),
      m_rueckbau(new Rueckbaufeld(zustand))
{
    setObjectName(u"protokoll"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_liste->setModel(m_modell);
    m_stapel->addWidget(karte());
    m_stapel->addWidget(m_leere);
    kurztaste(QKeySequence(Qt::CTRL | Qt::Key_Z), this,
              [this] { m_zustand->ausfuehrung()->letzteBewegungZuruecknehmen(); });
    verbinden();
    m_teiler->setzeAnteil(m_zustand->teilung());
    zeigen();
    sitzungZeigen();
}

/** Two panes, and below both the action area: it is there without a session too, for the last step. */
QWidget *ProtokollAnsicht::karte()
{
    auto *leere = new Leeransicht;
    leere->setzen(Symbol::GrossUhr,
                  {Sprache::text(u"Keine Sitzung gewählt"_s),
                   Sprache::text(u"Wähle links ein Protokoll aus. Hier steht dann jede einzelne Bewegung dieser "
                                 "Sitzung, bevor du entscheidest."_s)});
    m_rechts->addWidget(leere);
    m_rechts->addWidget(bewegungsteil());
    m_teiler = new Teiler(m_sitzungen, m_rechts);
    auto *karte = traeger(spalte({{m_teiler, 1}, m_rueckbau}, Abstand::Keiner));
    constexpr int textzeilen = 29; // that the whole header, four movements and the action area take
    new Nachgeben(
        karte, 1, [this](int stufe) { setzeDicht(stufe > 0); },
        [karte] { return karte->height() >= textzeilen * karte->fontMetrics().height(); }, Nachgeben::Anlass::Groesse);
    return karte;
}

QWidget *ProtokollAnsicht::bewegungsteil()
{
    auto *finden = flachknopf(u"finden"_s, Symbol::Aufschlagen,
                              Sprache::text(u"Diese Protokolldatei in der Dateiverwaltung zeigen"_s), {}, false);
    setzeKnopfart(finden, Knopfart::Klein);
    connect(finden, &QToolButton::clicked, this,
            [this] { Dateiverwaltung::zeigen(m_zustand->sitzungen()->protokollDatei().value_or(QString())); });
    m_tafel = kopftafel();
    auto *bewegungen = reihe({schild(Sprache::text(u"Bewegungen"_s), Schrift::Abschnitt), {m_anzahl, 1}});
    auto *kopf = spalte({reihe({{m_titel, 1}, finden}), m_erklaerung, m_tafel, m_kurzkopf}, Abstand::Eng);
    m_sitzung = traeger(spalte({kopf, spalte({bewegungen, {m_liste, 1}}, Abstand::Eng)}, Abstand::Feld));
    setzeRaender(m_sitzung, {Abstand::Rand, Abstand::Nah, Abstand::Nah, Abstand::Keiner});
    return m_sitzung;
}

QWidget *ProtokollAnsicht::kopftafel()
{
    auto *tafel = new QWidget;
    tafel->setObjectName(u"sitzungskopf"_s);
    auto *raster = new QGridLayout(tafel);
    raster->setColumnStretch(1, 1);
    setzeLuecken(tafel, Abstand::Feld, Abstand::Eng);
    for (const auto &[name, wert] : bedingungen({})) {
        const int zeile = int(m_kopfwerte.size());
        m_kopfwerte << new Textschild(Textschild::Art::KurzMitte);
        // In a sentence some languages write them small.
        raster->addWidget(schild(name.left(1).toUpper() + name.mid(1), Schrift::Beschriftung), zeile, 0,
                          Qt::AlignRight);
        raster->addWidget(m_kopfwerte.last(), zeile, 1);
    }
    return tafel;
}

void ProtokollAnsicht::verbinden()
{
    const Sitzungen *sitzungen = m_zustand->sitzungen();
    connect(m_leere, &Leeransicht::gedrueckt, m_zustand,
            [this] { weiter(*m_zustand, ohneKatalog(*m_zustand->profilwahl()).tat); });
    connect(m_teiler, &Teiler::anteilGewaehlt, m_zustand, &Zustand::setzeTeilung);
    connect(m_zustand, &Zustand::teilungGeaendert, m_teiler, [this] { m_teiler->setzeAnteil(m_zustand->teilung()); });
    connect(m_teiler, &Teiler::angeordnet, m_rueckbau, &Rueckbaufeld::setzeAnteil);
    connect(m_rueckbau, &Rueckbaufeld::auffrischen, m_sitzungen, &Sitzungsseite::auffrischen);
    connect(m_liste, &Liste::gesehen, m_modell, &Bewegungsmodell::ansehen);
    connect(m_liste, &Liste::activated, this,
            [this](const QModelIndex &zeile) { Dateiverwaltung::zeigen(m_modell->ort(zeile.row())); });
    for (const auto signal : {&Profilwahl::aktivGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &ProtokollAnsicht::zeigen);
    connect(sitzungen, &Sitzungen::protokollGeaendert, this, &ProtokollAnsicht::sitzungZeigen);
    connect(sitzungen, &Sitzungen::rueckbauGeaendert, this, [this] {
        if (!m_zustand->sitzungen()->rueckbauLaeuft())
            m_modell->setzeBilanz(m_zustand->sitzungen()->rueckbauBilanz());
    });
    connect(sitzungen, &Sitzungen::protokollDateienGeaendert, this, [this] {
        m_titel->setzeText(sitzungstitel(*m_zustand->sitzungen()));
        m_modell->veralten();
    });
    // Whatever was done, files may lie elsewhere now.
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (m_zustand->ausfuehrung()->beschaeftigt() || !isVisible())
            return;
        m_modell->veralten();
        m_zustand->sitzungen()->protokollAuffrischen();
    });
}

void ProtokollAnsicht::showEvent(QShowEvent *ereignis)
{
    QWidget::showEvent(ereignis);
    m_sitzungen->auffrischen();
}

void ProtokollAnsicht::focusInEvent(QFocusEvent *ereignis)
{
    QWidget::focusInEvent(ereignis);
    if (m_zustand->profilwahl()->offen())
        m_sitzungen->zurAuswahl();
}

void ProtokollAnsicht::zeigen()
{
    const bool da = m_zustand->profilwahl()->aktiv() && m_zustand->profilwahl()->katalogfehler().isEmpty();
    m_stapel->setCurrentIndex(da ? 0 : 1);
    if (!da)
        m_leere->setzen(Symbol::GrossUhr, ohneKatalog(*m_zustand->profilwahl()));
}

void ProtokollAnsicht::sitzungZeigen()
{
    const Sitzungen *sitzungen = m_zustand->sitzungen();
    const Protokollkopf kopf = sitzungen->protokollKopf().value_or(Protokollkopf{});
    m_rechts->setCurrentIndex(sitzungen->protokollDatei() ? 1 : 0);
    m_titel->setzeText(sitzungstitel(*m_zustand->sitzungen()));
    m_titel->setzeHilfe(sitzungen->protokollDatei().value_or(QString()));
    m_anzahl->setzeText(bewegungsanzahl(*sitzungen));
    kopfZeigen();
    m_modell->setzen(sitzungen->protokollZeilen(), kopf.quelle, kopf.ziel);
}

void ProtokollAnsicht::kopfZeigen()
{
    const auto zeilen = bedingungen(m_zustand->sitzungen()->protokollKopf());
    QStringList teile;
    for (int n = 0; n < zeilen.size(); ++n) {
        const auto &[name, wert] = zeilen.at(n);
        m_kopfwerte.at(n)->setzeText(wert.isEmpty() ? u"–"_s : wert);
        if (!wert.isEmpty())
            teile << name + u": "_s + wert;
    }
    m_kurzkopf->setzeText(teile.join(u" · "_s));
}

/** Where few movements would fit, the header takes less. */
void ProtokollAnsicht::setzeDicht(bool dicht)
{
    m_tafel->setVisible(!dicht);
    m_kurzkopf->setVisible(dicht);
    m_erklaerung->setVisible(!dicht);
    m_rueckbau->setzeDicht(dicht);
}
} // namespace quillmar::protokoll
