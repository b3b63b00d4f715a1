#include "infofenster.h"

#include "aktualisierung.h"
#include "bestandteile.h"
#include "dateiverwaltung.h"
#include "diagnose.h"
#include "elidiertext.h"
#include "fehlersatz.h"
#include "fenstersprache.h"
#include "flachknopf.h"
#include "hintergrund.h"
#include "knopf.h"
#include "pfade.h"
#include "profilwahl.h"
#include "programmordner.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "umbruchtext.h"
#include "zeichen.h"
#include "zeile.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QGridLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int breite = 600;
constexpr int bildkante = 64;

struct Ordnerzeile {
    QString name; ///< of the control
    QString was;
    QString pfad;
};

/** Of the active profile; empty if there is none. */
QString protokollordner(const Profilwahl &profilwahl)
{
    return profilwahl.aktiv() ? profilwahl.aktiv()->protokollURL().value_or(QString()) : QString();
}

QList<Ordnerzeile> ordnerzeilen(const Profilwahl &profilwahl)
{
    return {
        {.name = u"programmordner"_s, .was = Sprache::text(u"Einstellungen und Katalog"_s), .pfad = programmOrdner()},
        {.name = u"sprachordner"_s, .was = Sprache::text(u"Eigene Sprachen"_s), .pfad = Sprache::eigenerOrdner()},
        {.name = u"protokolle"_s, .was = Sprache::text(u"Protokolle"_s), .pfad = protokollordner(profilwahl)}};
}

QLabel *schild(const QString &text, QWidget *eltern, Schrift art = Schrift::Grund)
{
    auto *neu = new QLabel(text, eltern);
    neu->setTextFormat(Qt::PlainText);
    neu->setTextInteractionFlags(Qt::TextSelectableByMouse);
    Stil::schriftFolgt(neu, art);
    return neu;
}

QLabel *nebenschild(const QString &text, QWidget *eltern)
{
    auto *neu = schild(text, eltern);
    Stil::folgen(neu, [neu, eltern] { Stil::setzeTextfarbe(neu, Stil::nebenfarbe(eltern->palette())); });
    return neu;
}

QVBoxLayout *abschnitt(QWidget *traeger, const QString &titel)
{
    auto *spalte = new QVBoxLayout(traeger);
    spalte->setContentsMargins(0, 0, 0, 0);
    if (!titel.isEmpty())
        spalte->addWidget(schild(titel, traeger, Schrift::Abschnitt));
    Stil::folgen(traeger, [spalte] { spalte->setSpacing(abstand(6)); });
    return spalte;
}

/** Opens a folder that is there; whether it is, is found out elsewhere: a drive may be slow. */
Flachknopf *ordnerknopf(const Ordnerzeile &zeile, QWidget *eltern)
{
    auto *knopf = new Flachknopf(zeile.name + u"Oeffnen"_s, Symbol::Aufschlagen, {},
                                 Sprache::text(u"Öffnet diesen Ordner"_s), eltern);
    knopf->setAccessibleName(gefuellt(Sprache::text(u"Ordner öffnen: %@"_s), {zeile.was}));
    knopf->setEnabled(false);
    QObject::connect(knopf, &QToolButton::clicked, knopf,
                     [ordner = zeile.pfad] { Dateiverwaltung::ordnerOeffnen(ordner); });
    imHintergrund(
        knopf, [pfad = zeile.pfad] { return !pfad.isEmpty() && istOrdner(pfad); },
        [knopf](const Ausgang<bool> &da) { knopf->setEnabled(da.wert.value_or(false)); });
    return knopf;
}
} // namespace

void Infofenster::oeffnen(Profilwahl *profilwahl, Aktualisierung *aktualisierung, Fenstersprache *sprache,
                          QWidget *fenster)
{
    auto *info = fenster->findChild<Infofenster *>();
    if (!info || !info->isVisible()) {
        info = new Infofenster(profilwahl, aktualisierung, fenster);
        connect(sprache, &Fenstersprache::gewechselt, info, &Infofenster::aufbauen);
    }
    info->show();
    info->raise();
    info->activateWindow();
}

Infofenster::Infofenster(Profilwahl *profilwahl, Aktualisierung *aktualisierung, QWidget *fenster)
    : QDialog(fenster), m_profilwahl(profilwahl), m_aktualisierung(aktualisierung)
{
    setObjectName(u"info"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *rahmen = new QVBoxLayout(this);
    rahmen->setContentsMargins(0, 0, 0, 0);
    rahmen->setSizeConstraint(QLayout::SetFixedSize);
    connect(m_aktualisierung, &Aktualisierung::geaendert, this, &Infofenster::ergebnisZeigen);
    for (const auto signal : {&Profilwahl::aktivGeaendert, &Profilwahl::profileGeaendert})
        connect(m_profilwahl, signal, this, [this] {
            if (m_protokolle != protokollordner(*m_profilwahl))
                aufbauen();
        });
    aufbauen();
}

/** Everything anew: another language, another profile. */
void Infofenster::aufbauen()
{
    m_protokolle = protokollordner(*m_profilwahl);
    setWindowTitle(Sprache::text(u"Info zu Quillmar"_s));
    auto *inhalt = new QWidget(this);
    auto *aussen = new QVBoxLayout(inhalt);
    auto *spalte = new QVBoxLayout;
    for (QWidget *teil : QList<QWidget *>{kopf(inhalt), updateteil(inhalt), ordner(inhalt), teile(inhalt)})
        spalte->addWidget(teil);
    aussen->addLayout(spalte);
    aussen->addStretch(1);
    QWidget *unten = fuss(inhalt);
    aussen->addWidget(unten);
    Stil::folgen(inhalt, [inhalt, aussen, spalte, unten] {
        inhalt->setFixedWidth(abstand(breite));
        aussen->setContentsMargins(0, abstand(20), 0, abstand(16));
        spalte->setContentsMargins(abstand(24), 0, abstand(24), 0);
        // The words of the flat button begin where everything else does.
        unten->layout()->setContentsMargins(abstand(24) - abstand(9), 0, abstand(24), 0);
        for (QVBoxLayout *reihe : {aussen, spalte})
            reihe->setSpacing(abstand(20));
    });
    if (m_inhalt)
        m_inhalt->deleteLater();
    layout()->addWidget(inhalt);
    m_inhalt = inhalt;
    ergebnisZeigen();
    m_suchen->setFocus();
}

QWidget *Infofenster::kopf(QWidget *eltern)
{
    auto *traeger = new QWidget(eltern);
    auto *bild = new QLabel(traeger);
    auto *worte = new QVBoxLayout;
    auto *wofuer = new Umbruchtext(traeger);
    wofuer->setzeText(Sprache::text(u"Liest gescannte Briefe, schlägt Namen und Ordner vor, legt ab."_s));
    auto *fassung = schild(gefuellt(Sprache::text(u"Version %@"_s), {Aktualisierung::eigeneFassung()}), traeger);
    fassung->setObjectName(u"fassung"_s);
    worte->addWidget(schild(u"Quillmar"_s, traeger, Schrift::Seitentitel));
    worte->addWidget(zeile(traeger, {fassung, schild(Sprache::text(u"© 2026, MIT-Lizenz"_s), traeger)}));
    worte->addWidget(wofuer);
    auto *reihe = new QHBoxLayout(traeger);
    reihe->setContentsMargins(0, 0, 0, 0);
    reihe->addWidget(bild, 0, Qt::AlignTop);
    reihe->addLayout(worte, 1);
    Stil::nebentext(wofuer);
    Stil::folgen(traeger, [bild, reihe, worte] {
        bild->setPixmap(QIcon(u":/quillmar.svg"_s).pixmap(abstand(bildkante), abstand(bildkante)));
        reihe->setSpacing(abstand(16));
        worte->setSpacing(abstand(4));
    });
    return traeger;
}

QWidget *Infofenster::updateteil(QWidget *eltern)
{
    auto *traeger = new QWidget(eltern);
    auto *spalte = abschnitt(traeger, {});
    m_suchen = new Knopf(u"updateSuchen"_s, Sprache::text(u"Nach Update suchen"_s), traeger);
    m_suchen->setIcon(Zeichen::icon(Symbol::NeuLaden));
    m_marke = new QLabel(traeger);
    m_ergebnis = new Umbruchtext(traeger);
    m_ergebnis->setObjectName(u"updateErgebnis"_s);
    m_laden = new Flachknopf(
        u"updateLaden"_s, Symbol::Aufschlagen, Sprache::text(u"Zur Seite"_s),
        gefuellt(Sprache::text(u"Öffnet %@ im Browser"_s), {Aktualisierung::ladeseite().toDisplayString()}), traeger);
    m_laden->setzeMitText(true);
    auto *reihe = zeile(traeger, {m_suchen, m_marke, m_ergebnis, m_laden});
    static_cast<QHBoxLayout *>(reihe->layout())->setStretch(2, 1000);
    auto *beimStart = new QCheckBox(Sprache::text(u"Beim Start nach Updates suchen"_s), traeger);
    beimStart->setObjectName(u"beimStartPruefen"_s);
    beimStart->setChecked(Aktualisierung::beimStartPruefen());
    auto *erklaerung = new Umbruchtext(traeger);
    erklaerung->setzeText(
        Sprache::text(u"Abgerufen wird eine einzige öffentliche Datei. Über dich wird nichts gesendet."_s));
    beimStart->setAccessibleDescription(erklaerung->ganzerText());
    for (QWidget *teil : QList<QWidget *>{reihe, beimStart, erklaerung})
        spalte->addWidget(teil);
    Stil::nebentext(erklaerung);
    connect(m_suchen, &QPushButton::clicked, m_aktualisierung, &Aktualisierung::pruefen);
    connect(m_laden, &QToolButton::clicked, this, [] { QDesktopServices::openUrl(Aktualisierung::ladeseite()); });
    connect(beimStart, &QCheckBox::toggled, this, &Aktualisierung::setzeBeimStartPruefen);
    return traeger;
}

void Infofenster::ergebnisZeigen()
{
    const auto &ergebnis = m_aktualisierung->ergebnis();
    const bool laeuft = m_aktualisierung->laeuft();
    m_suchen->setEnabled(!laeuft);
    QString text;
    Symbol symbol = Symbol::Keines;
    if (laeuft) {
        text = Sprache::text(u"Wird gesucht …"_s);
    } else if (ergebnis) {
        text = Aktualisierung::satz(*ergebnis);
        symbol = ergebnis->art == Aktualisierung::Ergebnis::Art::Fehlgeschlagen ? Symbol::Warnung : Symbol::Gut;
    }
    const bool neuere = !laeuft && ergebnis && ergebnis->art == Aktualisierung::Ergebnis::Art::NeuereDa;
    if (neuere)
        symbol = Symbol::Info;
    m_marke->setPixmap(symbol == Symbol::Keines
                           ? QPixmap()
                           : Zeichen::icon(symbol).pixmap(Stil::zeichengroesse(), Stil::zeichengroesse()));
    m_ergebnis->setzeText(text);
    m_laden->setVisible(neuere);
}

QWidget *Infofenster::ordner(QWidget *eltern)
{
    auto *traeger = new QWidget(eltern);
    auto *spalte = abschnitt(traeger, Sprache::text(u"Ordner"_s));
    auto *raster = new QGridLayout;
    raster->setColumnStretch(1, 1);
    const QList<Ordnerzeile> zeilen = ordnerzeilen(*m_profilwahl);
    for (int n = 0; n < zeilen.size(); ++n) {
        auto *pfad = new Elidiertext(Qt::ElideMiddle, traeger);
        pfad->setzeText(zeilen.at(n).pfad.isEmpty() ? Sprache::text(u"noch kein Zielordner"_s)
                                                    : kurzpfad(zeilen.at(n).pfad));
        raster->addWidget(nebenschild(zeilen.at(n).was, traeger), n, 0, Qt::AlignRight | Qt::AlignVCenter);
        raster->addWidget(pfad, n, 1);
        raster->addWidget(ordnerknopf(zeilen.at(n), traeger), n, 2);
    }
    spalte->addLayout(raster);
    Stil::folgen(traeger, [raster] {
        raster->setHorizontalSpacing(abstand(12));
        raster->setVerticalSpacing(0);
    });
    return traeger;
}

QWidget *Infofenster::teile(QWidget *eltern)
{
    auto *traeger = new QWidget(eltern);
    auto *spalte = abschnitt(traeger, Sprache::text(u"Bestandteile"_s));
    auto *raster = new QGridLayout;
    raster->setColumnStretch(0, 1);
    int reihe = 0;
    QHash<QString, QLabel *> erfragte;
    for (const Bestandteil &teil : bestandteile()) {
        auto *fassung = nebenschild(teil.helfer.isEmpty() ? teil.fassung : u"…"_s, traeger);
        if (!teil.helfer.isEmpty()) {
            fassung->setObjectName(u"fassung-"_s + teil.helfer);
            erfragte.insert(teil.helfer, fassung);
        }
        raster->addWidget(schild(teil.name, traeger), reihe, 0);
        raster->addWidget(fassung, reihe, 1);
        raster->addWidget(nebenschild(teil.lizenz, traeger), reihe, 2);
        ++reihe;
    }
    spalte->addLayout(raster);
    fassungenLesen(traeger, erfragte);
    Stil::folgen(traeger, [raster] {
        raster->setHorizontalSpacing(abstand(20));
        raster->setVerticalSpacing(abstand(3));
    });
    return traeger;
}

/** The programs are started for it, so the window is there before them. */
void Infofenster::fassungenLesen(QWidget *traeger, const QHash<QString, QLabel *> &schilder)
{
    imHintergrund(traeger, Diagnose::helfer, [schilder](const Ausgang<QList<Diagnose::Helfer>> &ausgang) {
        for (const Diagnose::Helfer &einer : ausgang.wert.value_or(QList<Diagnose::Helfer>())) {
            if (QLabel *schild = schilder.value(einer.name))
                schild->setText(einer.fassung);
        }
    });
}

QWidget *Infofenster::fuss(QWidget *eltern)
{
    auto *kopieren = new Flachknopf(
        u"angabenKopieren"_s, Symbol::Kopieren, Sprache::text(u"Angaben kopieren"_s),
        Sprache::text(u"Fassungen des Programms und seiner Helfer als Text, etwa für eine Fehlermeldung"_s), eltern);
    kopieren->setzeMitText(true);
    auto *schliessen = new Knopf(u"schliessen"_s, Sprache::text(u"Schließen"_s), eltern);
    auto *traeger = zeile(eltern, {kopieren});
    static_cast<QHBoxLayout *>(traeger->layout())->addWidget(schliessen);
    connect(kopieren, &QToolButton::clicked, this, [kopieren] { angabenKopieren(kopieren); });
    connect(schliessen, &QPushButton::clicked, this, &QDialog::close);
    return traeger;
}

/** The programs are asked for their versions, which takes a moment. */
void Infofenster::angabenKopieren(Flachknopf *knopf)
{
    knopf->setEnabled(false);
    imHintergrund(knopf, Diagnose::zeilen, [knopf](const Ausgang<QStringList> &zeilen) {
        QGuiApplication::clipboard()->setText(zeilen.wert.value_or(QStringList{fehlersatz(zeilen.fehler)}).join(u'\n') +
                                              u'\n');
        knopf->setEnabled(true);
        knopf->setzeHilfe(Sprache::text(u"Kopiert"_s), knopf->toolTip());
        knopf->updateGeometry();
    });
}
} // namespace quillmar::ui
