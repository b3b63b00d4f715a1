#include "ablaufansicht.h"

#include "analyse.h"
#include "ausfuehrung.h"
#include "durchgang.h"
#include "einrichtung.h"
#include "hauptknopf.h"
#include "knopf.h"
#include "laufhinweis.h"
#include "leeransicht.h"
#include "nacharbeitsliste.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "rollbereich.h"
#include "sprache.h"
#include "startfrage.h"
#include "stil.h"
#include "stufenliste.h"
#include "text.h"
#include "umbruchtext.h"
#include "zahlenreihe.h"
#include "zeichen.h"
#include "zustand.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStackedLayout>
#include <QVBoxLayout>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int spaltenbreite = 880;

QString stufenvorschau(int stufe, const Profil &profil)
{
    switch (stufe) {
    case 0:
        if (profil.quelle.isEmpty())
            return Sprache::text(u"Sucht die PDF-Dateien im Herkunftsordner."_s);
        return profil.mitUnterordnern
                   ? gefuellt(Sprache::text(u"Sucht die PDF-Dateien in %@ und den Ordnern darunter."_s),
                              {kurzpfad(profil.quelle)})
                   : gefuellt(Sprache::text(u"Sucht die PDF-Dateien in %@."_s), {kurzpfad(profil.quelle)});
    case 1:
        return gefuellt(Sprache::text(profil.seiten, u"Die erste Seite, wo nötig per Texterkennung."_s,
                                      u"Die ersten %@ Seiten, wo nötig per Texterkennung."_s),
                        {QString::number(profil.seiten)});
    case 2:
        return gefuellt(Sprache::text(u"%@ schlägt Datum, Gegenüber, Titel und Ort vor."_s), {profil.modell});
    default:
        return profil.zweitmeinung && !profil.modellGross.isEmpty()
                   ? gefuellt(Sprache::text(u"%@ sieht sich an, was unsicher ist."_s), {profil.modellGross})
                   : Sprache::text(u"Ist in diesem Profil ausgeschaltet."_s);
    }
}
} // namespace

AblaufAnsicht::AblaufAnsicht(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_stapel(new QStackedLayout(this)), m_leere(new Leeransicht(this))
{
    setObjectName(u"ablauf"_s);
    setFocusPolicy(Qt::ClickFocus);
    m_stapel->addWidget(rollbereich(spalteBauen(), this));
    m_stapel->addWidget(m_leere);
    connect(m_leere, &Leeransicht::gedrueckt, m_zustand, [this] { Leeransicht::ohneKatalogWeiter(*m_zustand); });
    knoepfeVerbinden();
    verbinden();
    zeigen();
}

QWidget *AblaufAnsicht::kopf()
{
    auto *traeger = new QWidget(this);
    m_titel = new QLabel(traeger);
    m_titel->setObjectName(u"lauftitel"_s);
    m_titel->setTextFormat(Qt::PlainText);
    m_unterzeile = new Umbruchtext(traeger);
    m_unterzeile->setObjectName(u"laufzeile"_s);
    // In the order in which they stand: Tab goes through them in the order of their making.
    m_anhalten = new Knopf(u"durchgangAnhalten"_s, {}, traeger, Knopf::Hoehe::Haupt);
    m_anhalten->setText(Sprache::text(u"Anhalten"_s));
    m_anhalten->setIcon(Zeichen::icon(Symbol::Halt));
    m_pruefen = new Hauptknopf({}, traeger);
    m_pruefen->setObjectName(u"vorschlaegePruefen"_s);
    m_starten = new Hauptknopf(Sprache::text(u"Durchgang starten"_s), traeger);
    m_starten->setObjectName(u"durchgangStarten"_s);
    auto *reihe = new QHBoxLayout;
    reihe->addWidget(m_titel, 1);
    for (QWidget *teil : QList<QWidget *>{m_anhalten, m_pruefen, m_starten})
        reihe->addWidget(teil);
    auto *spalte = new QVBoxLayout(traeger);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addLayout(reihe);
    spalte->addWidget(m_unterzeile);
    Stil::schriftFolgt(m_titel, Schrift::Seitentitel);
    Stil::nebentext(m_unterzeile);
    Stil::folgen(traeger, [reihe, spalte] {
        reihe->setSpacing(abstand(8));
        spalte->setSpacing(abstand(4));
    });
    return traeger;
}

QWidget *AblaufAnsicht::spalteBauen()
{
    auto *inhalt = new QWidget(this);
    auto *mitte = new QWidget(inhalt);
    auto *spalte = new QVBoxLayout(mitte);
    m_frage = new Startfrage(m_zustand->modelldienst(), mitte);
    m_hindernisse = new Laufhinweis(mitte);
    m_zahlen = new Zahlenreihe(mitte);
    m_stufen = new Stufenliste(mitte);
    for (QWidget *teil : QList<QWidget *>{kopf(), m_frage, m_hindernisse, m_zahlen, m_stufen})
        spalte->addWidget(teil);
    listenBauen(spalte);
    spalte->addStretch(1);
    auto *aussen = new QHBoxLayout(inhalt);
    aussen->setContentsMargins(0, 0, 0, 0);
    aussen->addStretch(1);
    aussen->addWidget(mitte, 1000);
    aussen->addStretch(1);
    Stil::folgen(mitte, [mitte, spalte] {
        mitte->setMaximumWidth(abstand(spaltenbreite) + 2 * abstand(24));
        spalte->setContentsMargins(abstand(24), abstand(28), abstand(24), abstand(24));
        spalte->setSpacing(abstand(16));
    });
    return inhalt;
}

void AblaufAnsicht::listenBauen(QVBoxLayout *spalte)
{
    m_alleErneut = new Knopf(u"alleErneut"_s, Sprache::text(u"Alle erneut versuchen"_s), this);
    m_alleErneut->setIcon(Zeichen::icon(Symbol::NeuLaden));
    m_gescheiterte = new Nacharbeitsliste(u"gescheiterte"_s, m_alleErneut, Sprache::text(u"Erneut versuchen"_s), this);
    m_ausraeumen = new Knopf(u"dublettenAusraeumen"_s, {}, this);
    m_dubletten = new Nacharbeitsliste(u"dubletten"_s, m_ausraeumen, {}, this);
    spalte->addWidget(m_gescheiterte);
    spalte->addWidget(m_dubletten);
    connect(m_alleErneut, &QPushButton::clicked, m_zustand, [this] { starten(Durchgang::Art::Erneut); });
    connect(m_gescheiterte, &Nacharbeitsliste::gedrueckt, m_zustand->durchgang(), &Durchgang::erneutVersuchen);
    connect(m_ausraeumen, &QPushButton::clicked, m_zustand, [this] {
        m_zustand->ausfuehrung()->raeumtAus() ? m_zustand->ausfuehrung()->anhalten()
                                              : m_zustand->ausfuehrung()->dublettenAusraeumen();
    });
}

void AblaufAnsicht::knoepfeVerbinden()
{
    connect(m_starten, &QPushButton::clicked, this, [this] { eingerichtet() ? starten() : zurEinrichtung(); });
    connect(m_pruefen, &QPushButton::clicked, m_zustand, [this] { m_zustand->setzeReiter(Reiter::Pruefen); });
    connect(m_anhalten, &QPushButton::clicked, this,
            [this] { laeuft() ? m_zustand->durchgang()->durchgangAnhalten() : starten(); });
    connect(m_frage, &Startfrage::erneutPruefen, this, [this] {
        setFocus();
        m_zustand->durchgang()->durchgangErbitten(m_fraglich, m_zustand->durchgang()->erbetenesDokument());
    });
    connect(m_frage, &Startfrage::nurLesen, this, [this] {
        setFocus();
        m_zustand->durchgang()->durchgangStarten(m_fraglich == Durchgang::Art::Erneut ? Durchgang::Art::ErneutLesen
                                                                                      : Durchgang::Art::NurLesen);
    });
    connect(m_hindernisse, &Laufhinweis::gedrueckt, this, [this] {
        setFocus();
        starten(Durchgang::Art::Erneut);
    });
}

void AblaufAnsicht::verbinden()
{
    connect(m_zustand->durchgang(), &Durchgang::startFraglich, this, &AblaufAnsicht::fragen);
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, m_frage,
            &QWidget::hide); // it was about the other profile
    for (const auto signal : {&Durchgang::laufGeaendert, &Durchgang::nacharbeitGeaendert})
        connect(m_zustand->durchgang(), signal, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, &AblaufAnsicht::zeigen);
    for (const auto signal : {&Profilwahl::profileGeaendert, &Profilwahl::aktivGeaendert,
                              &Profilwahl::bereitschaftGeaendert, &Profilwahl::oeffnetGeaendert})
        connect(m_zustand->profilwahl(), signal, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, &AblaufAnsicht::zeigen);
    connect(m_zustand->pruefung(), &Pruefung::zaehlwerkGeaendert, this, [this] {
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
    if (m_starten->isVisible() && m_starten->isEnabled())
        m_starten->setFocus();
    else if (m_pruefen->isVisible())
        m_pruefen->setFocus();
}

bool AblaufAnsicht::laeuft() const { return m_zustand->durchgang()->laeuft(); }

/** Known to be; while that is being looked at, nothing is offered yet. */
bool AblaufAnsicht::eingerichtet() const
{
    return !m_zustand->profilwahl()->bereitschaft() || m_zustand->profilwahl()->bereitZumStart();
}

/** To the first section without which no run begins. */
void AblaufAnsicht::zurEinrichtung()
{
    if (const auto erster = m_zustand->einrichtung()->naechsterAbschnitt(alleAbschnitte().last()))
        m_zustand->einrichtung()->setzeAbschnitt(*erster);
    m_zustand->setzeReiter(Reiter::Einrichtung);
}

/**
 * A button that gives way to another hands it the focus too. Left to itself that would wander, to the choice of the
 * profile for one, where the next key would end the run.
 */
void AblaufAnsicht::fokusHalten()
{
    const QList<QPushButton *> reihe = {m_starten, m_anhalten, m_pruefen};
    if (std::any_of(reihe.begin(), reihe.end(), [](const QPushButton *knopf) { return knopf->hasFocus(); }))
        return;
    const auto ziel = std::find_if(reihe.begin(), reihe.end(), [this](const QPushButton *knopf) {
        return knopf->isVisible() && knopf->isEnabled() && !(knopf == m_anhalten && laeuft()); // no key stops unasked
    });
    ziel != reihe.end() ? (*ziel)->setFocus() : setFocus();
}

void AblaufAnsicht::zeigen()
{
    m_stapel->setCurrentIndex(m_zustand->profilwahl()->offen() ? 0 : 1);
    if (!m_zustand->profilwahl()->offen())
        return m_leere->setzeOhneKatalog(Symbol::GrossStart, *m_zustand->profilwahl());
    const bool fokus = hasFocus() || m_starten->hasFocus() || m_anhalten->hasFocus() || m_pruefen->hasFocus();
    kopfZeigen();
    knoepfeZeigen();
    hindernisseZeigen();
    zahlenZeigen();
    stufenZeigen();
    listenZeigen();
    if (fokus)
        fokusHalten();
}

QString AblaufAnsicht::fehlendes() const
{
    const auto &b = m_zustand->profilwahl()->bereitschaft();
    if (!b || b->vollstaendig())
        return {};
    QStringList teile;
    if (!b->fehlendeWerkzeuge.isEmpty())
        teile << b->fehlendeWerkzeuge.join(u", "_s);
    if (!b->quelle)
        teile << Sprache::text(u"Herkunftsordner"_s);
    if (!b->ziel)
        teile << Sprache::text(u"Zielordner"_s);
    if (!b->struktur)
        teile << Sprache::text(u"Struktur der Ablage"_s);
    if (!b->namen)
        teile << Sprache::text(u"Namensmuster"_s);
    return gefuellt(Sprache::text(u"Es fehlt noch: %@. Das geht auf der Karte Einrichtung."_s), {teile.join(u", "_s)});
}

QString AblaufAnsicht::unterzeile() const
{
    const Profil &profil = *m_zustand->profilwahl()->aktiv();
    if (m_zustand->durchgang()->startWartet())
        return Sprache::text(u"Wartet auf die Antwort des Modellservers …"_s);
    if (!laeuft() && !m_zustand->profilwahl()->bereitZumStart())
        return fehlendes();
    if (laeuft() && m_zustand->durchgang()->analyse()->abbrechenGewuenscht())
        return Sprache::text(u"Hält nach dem laufenden Dokument an. Das bereits Erkannte bleibt erhalten, ein späterer "
                             "Start setzt dort fort."_s);
    const QString weg =
        gefuellt(Sprache::text(u"Von %@ nach %@."_s), {kurzpfad(profil.quelle), kurzpfad(profil.zielWurzel)});
    if (laeuft())
        return weg + u' ' + Sprache::text(u"Du kannst nebenher prüfen."_s);
    return weg + u' ' +
           (profil.kopieren ? Sprache::text(u"Kopiert wird erst, was du beim Prüfen übernimmst."_s)
                            : Sprache::text(u"Verschoben wird erst, was du beim Prüfen übernimmst."_s));
}

void AblaufAnsicht::kopfZeigen()
{
    QString titel = Sprache::text(u"Bereit für den Durchgang"_s);
    if (laeuft())
        titel = Sprache::text(u"Der Durchgang läuft"_s);
    else if (!m_zustand->profilwahl()->bereitZumStart())
        titel = Sprache::text(u"Noch nicht eingerichtet"_s);
    else if (m_zustand->durchgang()->laufbild().gelaufen())
        titel = m_zustand->durchgang()->analyse()->stufe();
    m_titel->setText(titel);
    m_unterzeile->setzeText(unterzeile());
}

/** One filled button: before the run the start, while it runs and after it the review of what is there. */
void AblaufAnsicht::knoepfeZeigen()
{
    const qint64 wartend = m_zustand->pruefung()->zaehlwerk().bereit;
    const bool pruefbar = wartend > 0 && (laeuft() || m_zustand->durchgang()->laufbild().gelaufen());
    m_pruefen->setText(gefuellt(Sprache::text(wartend, u"%@ Vorschlag prüfen"_s, u"%@ Vorschläge prüfen"_s),
                                {QString::number(wartend)}));
    m_pruefen->setVisible(pruefbar);
    m_pruefen->updateGeometry();
    m_starten->setVisible(!laeuft() && !pruefbar);
    m_starten->setText(eingerichtet() ? Sprache::text(u"Durchgang starten"_s) : Sprache::text(u"Zur Einrichtung"_s));
    m_starten->setAccessibleName(m_starten->text());
    m_starten->updateGeometry();
    m_starten->setEnabled(m_zustand->profilwahl()->bereitschaft() && !m_zustand->durchgang()->startErbeten());
    m_starten->setToolTip(fehlendes());
    m_anhalten->setVisible(laeuft() || pruefbar);
    m_anhalten->setText(laeuft() ? Sprache::text(u"Anhalten"_s) : Sprache::text(u"Erneut starten"_s));
    m_anhalten->setIcon(Zeichen::icon(laeuft() ? Symbol::Halt : Symbol::Start));
    m_anhalten->updateGeometry();
    m_anhalten->setEnabled(laeuft()
                               ? !m_zustand->durchgang()->analyse()->abbrechenGewuenscht()
                               : m_zustand->profilwahl()->bereitZumStart() && !m_zustand->durchgang()->startErbeten());
    m_alleErneut->setEnabled(!laeuft() && !m_zustand->durchgang()->startErbeten());
    m_gescheiterte->setzeBedienbar(!laeuft());
    if (laeuft())
        m_frage->hide();
}

void AblaufAnsicht::stufenZeigen()
{
    QList<Stufenbild> stufen = m_zustand->durchgang()->laufbild().stufen();
    for (int n = 0; n < stufen.size(); ++n) {
        stufen[n].name = Sprache::text(/* QUILLMAR_TEXT */ stufen.at(n).name);
        if (stufen.at(n).meldung.isEmpty())
            stufen[n].meldung = stufenvorschau(n, *m_zustand->profilwahl()->aktiv());
    }
    m_stufen->zeigen(stufen, m_zustand->durchgang()->analyse()->restzeit(),
                     m_zustand->durchgang()->analyse()->anteil());
}

/** What stood in the way of the last run, and what of its questions is still open. */
void AblaufAnsicht::hindernisseZeigen()
{
    QStringList saetze;
    if (!laeuft()) {
        for (const Laufhindernis &h : m_zustand->durchgang()->analyse()->fazit().hindernisse)
            saetze << h.satz();
        if (const qint64 offen = m_zustand->durchgang()->nacharbeit().unbeantwortet; offen > 0)
            saetze << gefuellt(Sprache::text(u"Nachgefragt und ohne Antwort geblieben: %@."_s),
                               {QString::number(offen)});
    }
    m_hindernisse->zeigen(saetze);
    m_hindernisse->setzeBedienbar(m_zustand->profilwahl()->bereitZumStart() && !m_zustand->durchgang()->startErbeten());
}

void AblaufAnsicht::zahlenZeigen()
{
    const Zaehlwerk &z = m_zustand->pruefung()->zaehlwerk();
    const qint64 gescheitert = m_zustand->durchgang()->nacharbeit().gescheiterte.size();
    QList<Zahlenreihe::Zahl> zahlen = {
        {.wert = z.bereit, .was = Sprache::text(u"bereit zur Prüfung"_s), .betont = true},
        {.wert = z.neu, .was = Sprache::text(u"in Analyse"_s)},
        {.wert = z.erledigt, .was = Sprache::text(u"einsortiert"_s)},
        {.wert = z.zurueckgestellt, .was = Sprache::text(u"zurückgestellt"_s)},
        {.wert = z.dubletten, .was = Sprache::text(u"Dubletten"_s)},
        {.wert = gescheitert, .was = Sprache::text(u"ohne Vorschlag"_s), .betont = false, .warnung = gescheitert > 0},
    };
    if (z.aussortiert > 0)
        zahlen << Zahlenreihe::Zahl{.wert = z.aussortiert, .was = Sprache::text(u"aussortiert"_s)};
    if (m_zustand->pruefung()->ausgenommen() > 0)
        zahlen << Zahlenreihe::Zahl{.wert = m_zustand->pruefung()->ausgenommen(),
                                    .was = Sprache::text(u"ausgenommen"_s)};
    m_zahlen->zeigen(zahlen);
}

void AblaufAnsicht::listenZeigen()
{
    const Nacharbeit &n = m_zustand->durchgang()->nacharbeit();
    QList<Nacharbeitsliste::Zeile> gescheiterte;
    for (const auto &g : n.gescheiterte)
        gescheiterte << Nacharbeitsliste::Zeile{.id = g.id, .name = g.name, .bemerkung = g.grund};
    QList<Nacharbeitsliste::Zeile> dubletten;
    for (const auto &d : n.dubletten)
        dubletten << Nacharbeitsliste::Zeile{
            .id = d.id,
            .name = d.name,
            .bemerkung = d.bytegleich ? gefuellt(Sprache::text(u"gleich wie %@"_s), {d.original})
                                      : gefuellt(Sprache::text(u"gleicher Text wie %@"_s), {d.original})};
    m_gescheiterte->zeigen(gefuellt(Sprache::text(u"%@ ohne Vorschlag"_s), {QString::number(gescheiterte.size())}),
                           gescheiterte);
    m_dubletten->zeigen(gefuellt(Sprache::text(dubletten.size(), u"%@ Dublette"_s, u"%@ Dubletten"_s),
                                 {QString::number(dubletten.size())}),
                        dubletten);
    ausraeumenZeigen();
}

/** While it sets aside, the button stops it. */
void AblaufAnsicht::ausraeumenZeigen()
{
    QString text =
        gefuellt(Sprache::text(u"In den Ordner %@ verschieben"_s), {m_zustand->profilwahl()->aktiv()->dublettenOrdner});
    if (m_zustand->ausfuehrung()->raeumtAus())
        text = Sprache::text(u"Anhalten"_s);
    else if (m_zustand->profilwahl()->aktiv()->kopieren)
        text = Sprache::text(u"Nicht mitkopieren"_s);
    m_ausraeumen->setText(text);
    m_ausraeumen->setAccessibleName(text);
    m_ausraeumen->setToolTip(m_zustand->ausfuehrung()->raeumtAus()
                                 ? Sprache::text(u"Hört nach dem Dokument auf, das gerade an der Reihe ist. Der Rest "
                                                 "bleibt, wie er ist."_s)
                                 : QString());
    m_ausraeumen->setIcon(m_zustand->ausfuehrung()->raeumtAus() ? Zeichen::icon(Symbol::Halt) : QIcon());
    m_ausraeumen->updateGeometry();
    m_ausraeumen->setEnabled(m_zustand->ausfuehrung()->anhaltbar() || !m_zustand->ausfuehrung()->beschaeftigt());
}

void AblaufAnsicht::starten(Durchgang::Art art)
{
    m_frage->hide();
    m_zustand->durchgang()->durchgangErbitten(art);
}

/** Wherever the run was asked for: here stands what can be done. */
void AblaufAnsicht::fragen(Durchgang::Art art)
{
    m_fraglich = art;
    m_zustand->setzeReiter(Reiter::Ablauf);
    m_frage->fragen();
}
} // namespace quillmar::ablauf
