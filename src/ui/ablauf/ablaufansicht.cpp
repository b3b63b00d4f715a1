#include "ablaufansicht.h"

#include "analyse.h"
#include "anordnung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "hinweisfeld.h"
#include "katalogpflege.h"
#include "laufteile.h"
#include "leeransicht.h"
#include "liste.h"
#include "modelldienst.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"
#include "zustand.h"

#include <QPushButton>
#include <QScrollArea>
#include <QStackedLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
namespace
{
constexpr int spaltenbreite = 920;
constexpr int sichtbareZeilen = 5;
constexpr int stufenzahl = 4;

/** What each figure counts, in their order. */
QStringList gezaehltes()
{
    return {Sprache::text(u"bereit zur Prüfung"_s), Sprache::text(u"in Analyse"_s), Sprache::text(u"einsortiert"_s),
            Sprache::text(u"zurückgestellt"_s),     Sprache::text(u"Dubletten"_s),  Sprache::text(u"ohne Vorschlag"_s),
            Sprache::text(u"aussortiert"_s),        Sprache::text(u"ausgenommen"_s)};
}
} // namespace

AblaufAnsicht::AblaufAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this)), m_leere(new Leeransicht),
      m_titel(schild({}, Schrift::Seitentitel, u"lauftitel"_s)),
      m_unterzeile(new Textschild(Textschild::Art::Umbruch, Schrift::Neben, u"laufzeile"_s)),
      m_starten(hauptknopf(u"durchgangStarten"_s)), m_pruefen(hauptknopf(u"vorschlaegePruefen"_s)),
      m_anhalten(knopf(u"durchgangAnhalten"_s, {}, {}, Knopfart::Hoch)),
      m_frage(new Rueckfrage({{.name = u"modellPruefen"_s, .text = Sprache::text(u"Erneut prüfen"_s)},
                              {.name = u"nurLesen"_s, .text = Sprache::text(u"Nur Texte lesen"_s)}},
                             {.name = u"startAbbrechen"_s, .text = Sprache::text(u"Abbrechen"_s)})),
      m_hindernisse(
          new Hinweisfeld(Symbol::Warnung, {},
                          {{.name = u"nochEinmalVersuchen"_s, .text = Sprache::text(u"Noch einmal versuchen"_s)}})),
      m_gesamtstand(new Gesamtstand),
      m_erneut(knopf(u"erneut"_s, Sprache::text(u"Erneut versuchen"_s), {}, Knopfart::Feld, Symbol::NeuLaden)),
      m_alleErneut(
          knopf(u"alleErneut"_s, Sprache::text(u"Alle erneut versuchen"_s), {}, Knopfart::Feld, Symbol::NeuLaden)),
      m_ausraeumen(knopf(u"dublettenAusraeumen"_s, {}))
{
    setObjectName(u"ablauf"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_hindernisse->setObjectName(u"laufhinweis"_s);
    m_gescheiterte = teilBauen(u"gescheiterte"_s, Sprache::text(u"ohne Vorschlag"_s), {m_erneut, m_alleErneut});
    m_dubletten = teilBauen(u"dubletten"_s, Sprache::text(u"Dubletten"_s), {m_ausraeumen});
    m_stapel->addWidget(rollbereich(spalteBauen()));
    m_stapel->addWidget(m_leere);
    verbinden();
    folgen();
    zeigen();
}

QWidget *AblaufAnsicht::kopf()
{
    return traeger(spalte({reihe({{m_titel, 1}, m_anhalten, m_pruefen, m_starten}), m_unterzeile}, Abstand::Eng));
}

QWidget *AblaufAnsicht::zahlen()
{
    auto *fluss = new Flussreihe(Abstand::Rand);
    for (const QString &was : gezaehltes()) {
        m_zahlen << new Zahl(int(m_zahlen.size()) + 1, m_zahlen.isEmpty() ? Schrift::Hauptzahl : Schrift::Zahl, was);
        fluss->addWidget(m_zahlen.last());
    }
    return traeger(fluss);
}

QWidget *AblaufAnsicht::stufen()
{
    Kette *folge = spalte({}, Abstand::Eng);
    for (int n = 1; n <= stufenzahl; ++n) {
        m_stufen << new Stufe(n, n == stufenzahl);
        folge->addWidget(m_stufen.last());
    }
    return traeger(folge);
}

/** One column in the middle of the card. */
QWidget *AblaufAnsicht::spalteBauen()
{
    auto *mitte = fuellen(new QWidget,
                          spalte({kopf(), m_frage, m_hindernisse, zahlen(), m_gesamtstand, stufen(),
                                  m_gescheiterte.traeger, m_dubletten.traeger, Teil::rest()},
                                 Abstand::Gruppe),
                          Abstand::Rand, Abstand::Rand);
    Stil::folgen(mitte, [mitte] { mitte->setMaximumWidth(Stil::mass(spaltenbreite)); });
    return traeger(reihe({Teil::rest(), {mitte, 1000}, Teil::rest()}, Abstand::Keiner));
}

AblaufAnsicht::Nacharbeitsteil AblaufAnsicht::teilBauen(const QString &name, const QString &ansage,
                                                        const QList<QPushButton *> &knoepfe)
{
    Nacharbeitsteil teil;
    teil.titel = schild({}, Schrift::Abschnitt);
    teil.liste = new Liste(name + u"-liste"_s, ansage);
    teil.liste->setzeHoechstens(sichtbareZeilen);
    teil.modell = new Listenmodell(teil.liste);
    teil.liste->setModel(teil.modell);
    Kette *kopf = reihe({{teil.titel, 1}});
    for (QPushButton *knopf : knoepfe)
        kopf->addWidget(knopf);
    teil.traeger = traeger(spalte({kopf, teil.liste}, Abstand::Eng));
    teil.traeger->setObjectName(name);
    return teil;
}

void AblaufAnsicht::verbinden()
{
    connect(m_leere, &Leeransicht::gedrueckt, m_zustand,
            [this] { weiter(*m_zustand, ohneKatalog(*m_zustand->profilwahl()).tat); });
    connect(m_starten, &QPushButton::clicked, this, [this] { eingerichtet() ? starten() : zurEinrichtung(); });
    connect(m_pruefen, &QPushButton::clicked, m_zustand, [this] { m_zustand->setzeReiter(Reiter::Pruefen); });
    connect(m_anhalten, &QPushButton::clicked, this,
            [this] { laeuft() ? m_zustand->durchgang()->durchgangAnhalten() : starten(); });
    connect(m_frage, &Rueckfrage::bestaetigt, this, [this](int welche) { antworten(welche == 1); });
    connect(m_hindernisse, &Hinweisfeld::gedrueckt, this, [this] {
        setFocus();
        starten(Durchgang::Art::Erneut);
    });
    connect(m_alleErneut, &QPushButton::clicked, this, [this] { starten(Durchgang::Art::Erneut); });
    connect(m_erneut, &QPushButton::clicked, m_zustand,
            [this] { m_zustand->durchgang()->erneutVersuchen(m_gescheiterte.liste->kennung().toLongLong()); });
    connect(m_gescheiterte.liste->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &AblaufAnsicht::knoepfeZeigen);
    connect(m_ausraeumen, &QPushButton::clicked, m_zustand, [this] {
        Ausfuehrung *ausfuehrung = m_zustand->ausfuehrung();
        ausfuehrung->raeumtAus() ? ausfuehrung->anhalten() : ausfuehrung->dublettenAusraeumen();
    });
}

void AblaufAnsicht::folgen()
{
    Durchgang *durchgang = m_zustand->durchgang();
    Profilwahl *wahl = m_zustand->profilwahl();
    connect(durchgang, &Durchgang::startFraglich, this, &AblaufAnsicht::fragen);
    connect(wahl, &Profilwahl::aktivGeaendert, m_frage, &QWidget::hide); // it was about the other profile
    for (const auto signal : {&Durchgang::laufGeaendert, &Durchgang::nacharbeitGeaendert})
        connect(durchgang, signal, this, &AblaufAnsicht::zeigen);
    for (const auto signal : {&Profilwahl::profileGeaendert, &Profilwahl::aktivGeaendert,
                              &Profilwahl::bereitschaftGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(wahl, signal, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->katalogpflege(), &Katalogpflege::geaendert, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, [this] {
        zeigen();
        if (isVisible())
            m_zustand->durchgang()->nacharbeitLesen();
    });
}

void AblaufAnsicht::showEvent(QShowEvent *ereignis)
{
    QWidget::showEvent(ereignis);
    m_zustand->durchgang()->nacharbeitLesen();
    m_zustand->profilwahl()->bereitschaftPruefen();
}

void AblaufAnsicht::focusInEvent(QFocusEvent *ereignis)
{
    QWidget::focusInEvent(ereignis);
    fokusWeitergeben();
}

bool AblaufAnsicht::laeuft() const { return m_zustand->durchgang()->laeuft(); }

/** Known to be; while that is being looked at, nothing is offered yet. */
bool AblaufAnsicht::eingerichtet() const
{
    return lage().startbereit() || (!m_zustand->profilwahl()->bereitschaft() && !lage().beschaedigt);
}

/** To the first section without which no run begins. */
void AblaufAnsicht::zurEinrichtung()
{
    if (const auto erster = m_zustand->einrichtung()->naechsterAbschnitt(alleAbschnitte().last()))
        m_zustand->einrichtung()->setzeAbschnitt(*erster);
    m_zustand->setzeReiter(Reiter::Einrichtung);
}

/** What the card is there for at the moment; it waits here itself while there is nothing. */
void AblaufAnsicht::fokusWeitergeben()
{
    const QList<QPushButton *> knoepfe = {m_starten, m_pruefen, m_anhalten};
    const auto ziel = std::find_if(knoepfe.begin(), knoepfe.end(), [this](const QPushButton *knopf) {
        return knopf->isVisible() && knopf->isEnabled() && !(knopf == m_anhalten && laeuft()); // no key stops unasked
    });
    if (ziel != knoepfe.end())
        (*ziel)->setFocus();
}

void AblaufAnsicht::zeigen()
{
    m_stapel->setCurrentIndex(m_zustand->profilwahl()->offen() ? 0 : 1);
    if (!m_zustand->profilwahl()->offen())
        return m_leere->setzen(Symbol::GrossStart, ohneKatalog(*m_zustand->profilwahl()));
    m_titel->setText(lage().titel());
    m_unterzeile->setzeText(lage().zeile());
    hindernisseZeigen();
    zahlenZeigen();
    stufenZeigen();
    listenZeigen();
    knoepfeZeigen(); // which depend on the row that is chosen now
    if (hasFocus())
        fokusWeitergeben();
}

/** One filled button: before the run the start, while it runs and after it the review of what is there. */
void AblaufAnsicht::knoepfeZeigen()
{
    const Durchgang *durchgang = m_zustand->durchgang();
    const qint64 wartend = m_zustand->pruefung()->zaehlwerk().bereit;
    const bool pruefbar = wartend > 0 && (laeuft() || durchgang->laufbild().gelaufen());
    const bool startbar = lage().startbereit() && !durchgang->startErbeten();
    benennen(m_pruefen,
             gefuellt(Sprache::text(wartend, u"%@ Vorschlag prüfen"_s, u"%@ Vorschläge prüfen"_s),
                      {QString::number(wartend)}),
             {});
    m_pruefen->setVisible(pruefbar);
    benennen(m_starten, eingerichtet() ? Sprache::text(u"Durchgang starten"_s) : Sprache::text(u"Zur Einrichtung"_s),
             lage().fehlendes());
    m_starten->setVisible(!laeuft() && !pruefbar);
    m_starten->setEnabled(m_zustand->profilwahl()->bereitschaft() && !durchgang->startErbeten());
    benennen(m_anhalten, laeuft() ? Sprache::text(u"Anhalten"_s) : Sprache::text(u"Erneut starten"_s), {});
    m_anhalten->setIcon(Zeichen::icon(laeuft() ? Symbol::Halt : Symbol::Start));
    m_anhalten->setVisible(laeuft() || pruefbar);
    m_anhalten->setEnabled(laeuft() ? !durchgang->analyse()->abbrechenGewuenscht() : startbar);
    m_alleErneut->setEnabled(!laeuft() && !durchgang->startErbeten() && !lage().beschaedigt);
    m_erneut->setEnabled(m_alleErneut->isEnabled() && m_gescheiterte.liste->currentIndex().isValid());
    if (laeuft())
        m_frage->hide();
}

void AblaufAnsicht::stufenZeigen()
{
    const Analyse *analyse = m_zustand->durchgang()->analyse();
    const Laufganzes &ganzes = analyse->ganzes();
    m_gesamtstand->setVisible(ganzes.inPortionen());
    m_gesamtstand->zeigen(ganzes);
    const QList<Stufenbild> bilder = m_zustand->durchgang()->laufbild().stufen();
    for (int n = 0; n < m_stufen.size(); ++n) {
        Stufenbild bild = bilder.value(n);
        bild.name = Sprache::text(/* QUILLMAR_TEXT */ bild.name);
        bild.meldung = stufenzeile(bild, lage().vorschau(n), analyse->dauersatz());
        m_stufen.at(n)->zeigen(bild, stufenzeit(bild, ganzes, analyse->restzeit()), analyse->anteil());
    }
}

void AblaufAnsicht::hindernisseZeigen()
{
    const QString satz = hindernissatz(*m_zustand->durchgang());
    m_hindernisse->setzeText(satz);
    m_hindernisse->setVisible(!satz.isEmpty());
    m_hindernisse->knopf()->setEnabled(lage().startbereit() && !m_zustand->durchgang()->startErbeten());
}

void AblaufAnsicht::zahlenZeigen()
{
    constexpr int immerGezeigte = 6;
    const Zaehlwerk &z = m_zustand->pruefung()->zaehlwerk();
    const qint64 gescheitert = m_zustand->durchgang()->nacharbeit().gescheiterte.size();
    const QList<qint64> werte = {z.bereit,    z.neu,       z.erledigt,    z.zurueckgestellt,
                                 z.dubletten, gescheitert, z.aussortiert, m_zustand->pruefung()->ausgenommen()};
    for (int n = 0; n < m_zahlen.size(); ++n) {
        m_zahlen.at(n)->zeigen(werte.at(n), n == immerGezeigte - 1 && gescheitert > 0);
        m_zahlen.at(n)->setVisible(n < immerGezeigte || werte.at(n) > 0);
    }
}

void AblaufAnsicht::listenZeigen()
{
    const Nacharbeit &n = m_zustand->durchgang()->nacharbeit();
    ausraeumenZeigen();
    if (std::exchange(m_gezeigte, n) == n)
        return; // a run tells of its progress many times a second
    QList<Listenzeile> gescheiterte;
    for (const auto &g : n.gescheiterte)
        gescheiterte << Listenzeile{.kennung = g.id, .erste = g.name, .zweite = g.grund, .wort = g.ordner};
    QList<Listenzeile> dubletten;
    for (const auto &d : n.dubletten)
        dubletten << Listenzeile{.kennung = d.id, .erste = d.name, .zweite = dublettensatz(d)};
    m_gescheiterte.modell->setzen(gescheiterte);
    m_gescheiterte.titel->setText(
        gefuellt(Sprache::text(u"%@ ohne Vorschlag"_s), {QString::number(gescheiterte.size())}));
    m_gescheiterte.traeger->setVisible(!gescheiterte.isEmpty());
    m_dubletten.modell->setzen(dubletten);
    m_dubletten.titel->setText(gefuellt(Sprache::text(dubletten.size(), u"%@ Dublette"_s, u"%@ Dubletten"_s),
                                        {QString::number(dubletten.size())}));
    m_dubletten.traeger->setVisible(!dubletten.isEmpty());
}

void AblaufAnsicht::ausraeumenZeigen()
{
    const Ausfuehrung *ausfuehrung = m_zustand->ausfuehrung();
    const auto [text, hilfe] = ausraeumtext(*m_zustand->profilwahl()->aktiv(), ausfuehrung->raeumtAus());
    benennen(m_ausraeumen, text, hilfe);
    m_ausraeumen->setIcon(Zeichen::icon(ausfuehrung->raeumtAus() ? Symbol::Halt : Symbol::Keines));
    m_ausraeumen->setEnabled(ausfuehrung->anhaltbar() || !ausfuehrung->beschaeftigt());
}

void AblaufAnsicht::starten(Durchgang::Art art)
{
    m_frage->hide();
    m_zustand->durchgang()->durchgangErbitten(art);
}

/** Wherever the run was asked for: here stands what can be done. */
void AblaufAnsicht::fragen(Durchgang::Art art)
{
    const Modelldienst *dienst = m_zustand->modelldienst();
    m_fraglich = art;
    m_zustand->setzeReiter(Reiter::Ablauf);
    m_frage->fragen(startfrage(dienst->modellstand().art, dienst->modellMeldung()), 0);
}

void AblaufAnsicht::antworten(bool nurLesen)
{
    setFocus();
    Durchgang *durchgang = m_zustand->durchgang();
    if (!nurLesen)
        durchgang->durchgangErbitten(m_fraglich, durchgang->erbetenesDokument());
    else
        durchgang->durchgangStarten(m_fraglich == Durchgang::Art::Erneut ? Durchgang::Art::ErneutLesen
                                                                         : Durchgang::Art::NurLesen);
}
} // namespace quillmar::ablauf
