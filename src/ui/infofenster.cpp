#include "infofenster.h"

#include "aktualisierung.h"
#include "bau.h"
#include "bestandteile.h"
#include "dateiverwaltung.h"
#include "diagnose.h"
#include "fehlersatz.h"
#include "fenstersprache.h"
#include "hintergrund.h"
#include "pfade.h"
#include "profilwahl.h"
#include "programmordner.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"

#include <QCheckBox>
#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
namespace
{
constexpr int breite = 600;
constexpr int bildkante = 64;

/** Of the active profile; empty if there is none. */
QString protokollordner(const Profilwahl &profilwahl)
{
    return profilwahl.aktiv() ? profilwahl.aktiv()->protokollURL().value_or(QString()) : QString();
}

QLabel *angabe(const QString &text, Schrift art = Schrift::Grund, const QString &name = {})
{
    QLabel *neue = schild(text, art, name);
    neue->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return neue;
}

QLayout *kopf()
{
    auto *bild = new QLabel;
    Stil::folgen(bild, [bild] {
        bild->setPixmap(QIcon(u":/quillmar.svg"_s).pixmap(Stil::mass(bildkante), Stil::mass(bildkante)));
    });
    const QString fassung = gefuellt(Sprache::text(u"Version %@"_s), {Aktualisierung::eigeneFassung()});
    return reihe(
        {{bild, 0, Qt::AlignTop},
         {spalte({angabe(u"Quillmar"_s, Schrift::Seitentitel),
                  reihe({angabe(fassung, Schrift::Grund, u"fassung"_s), angabe(Sprache::text(u"© 2026, MIT-Lizenz"_s)),
                         Teil::rest()}),
                  erklaerung(Sprache::text(u"Liest gescannte Briefe, schlägt Namen und Ordner vor, legt ab."_s))},
                 Abstand::Eng),
          1}},
        Abstand::Gruppe);
}

/** Opens a folder that is there; whether it is, is found out elsewhere: a drive may be slow. */
QToolButton *ordnerknopf(const QString &name, const QString &was, const QString &pfad)
{
    QToolButton *knopf =
        flachknopf(name + u"Oeffnen"_s, Symbol::Aufschlagen, {}, Sprache::text(u"Öffnet diesen Ordner"_s), false);
    knopf->setAccessibleName(gefuellt(Sprache::text(u"Ordner öffnen: %@"_s), {was}));
    knopf->setEnabled(false);
    QObject::connect(knopf, &QToolButton::clicked, knopf, [pfad] { Dateiverwaltung::ordnerOeffnen(pfad); });
    imHintergrund(
        knopf, [pfad] { return !pfad.isEmpty() && istOrdner(pfad); },
        [knopf](const Ausgang<bool> &da) { knopf->setEnabled(da.wert.value_or(false)); });
    return knopf;
}

/** The programs are asked for their versions, which takes a moment. */
void angabenKopieren(QToolButton *knopf)
{
    knopf->setEnabled(false);
    imHintergrund(knopf, Diagnose::zeilen, [knopf](const Ausgang<QStringList> &zeilen) {
        QGuiApplication::clipboard()->setText(zeilen.wert.value_or(QStringList{fehlersatz(zeilen.fehler)}).join(u'\n') +
                                              u'\n');
        knopf->setEnabled(true);
        benennen(knopf, Sprache::text(u"Kopiert"_s), knopf->toolTip());
    });
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
    setLayout(new QVBoxLayout);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
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
    auto *inhalt = fuellen(new QWidget, spalte({kopf(), updateteil(), ordner(), teile(), fuss()}, Abstand::Rand),
                           Abstand::Rand, Abstand::Rand);
    Stil::folgen(inhalt, [inhalt] { inhalt->setFixedWidth(Stil::mass(breite)); });
    if (m_inhalt)
        m_inhalt->deleteLater();
    layout()->addWidget(inhalt);
    m_inhalt = inhalt;
    ergebnisZeigen();
    m_suchen->setFocus();
}

QLayout *Infofenster::updateteil()
{
    m_suchen = knopf(u"updateSuchen"_s, Sprache::text(u"Nach Update suchen"_s), {}, Knopfart::Feld, Symbol::NeuLaden);
    m_ergebnis = new Textschild(Textschild::Art::Umbruch, Schrift::Grund, u"updateErgebnis"_s);
    m_laden =
        flachknopf(u"updateLaden"_s, Symbol::Aufschlagen, Sprache::text(u"Zur Seite"_s),
                   gefuellt(Sprache::text(u"Öffnet %@ im Browser"_s), {Aktualisierung::ladeseite().toDisplayString()}));
    auto *beimStart = new QCheckBox(Sprache::text(u"Beim Start nach Updates suchen"_s));
    Textschild *abruf =
        erklaerung(Sprache::text(u"Abgerufen wird eine einzige öffentliche Datei. Über dich wird nichts gesendet."_s));
    beimStart->setObjectName(u"beimStartPruefen"_s);
    beimStart->setChecked(Aktualisierung::beimStartPruefen());
    beimStart->setAccessibleDescription(abruf->ganzerText());
    connect(m_suchen, &QPushButton::clicked, m_aktualisierung, &Aktualisierung::pruefen);
    connect(m_laden, &QToolButton::clicked, this, [] { QDesktopServices::openUrl(Aktualisierung::ladeseite()); });
    connect(beimStart, &QCheckBox::toggled, this, &Aktualisierung::setzeBeimStartPruefen);
    return spalte({reihe({m_suchen, {m_ergebnis, 1}, m_laden}), beimStart, abruf});
}

void Infofenster::ergebnisZeigen()
{
    using Art = Aktualisierung::Ergebnis::Art;
    const auto &ergebnis = m_aktualisierung->ergebnis();
    const bool laeuft = m_aktualisierung->laeuft();
    const bool neuere = !laeuft && ergebnis && ergebnis->art == Art::NeuereDa;
    m_suchen->setEnabled(!laeuft);
    m_laden->setVisible(neuere);
    if (laeuft)
        return m_ergebnis->setzen(Symbol::Keines, Sprache::text(u"Wird gesucht …"_s));
    if (!ergebnis)
        return m_ergebnis->setzen(Symbol::Keines, {});
    const Symbol symbol = ergebnis->art == Art::Fehlgeschlagen ? Symbol::Warnung : Symbol::Gut;
    m_ergebnis->setzen(neuere ? Symbol::Info : symbol, Aktualisierung::satz(*ergebnis));
}

QLayout *Infofenster::ordner()
{
    const QList<std::array<QString, 3>> zeilen = {
        {u"programmordner"_s, Sprache::text(u"Einstellungen und Katalog"_s), programmOrdner()},
        {u"sprachordner"_s, Sprache::text(u"Eigene Sprachen"_s), Sprache::eigenerOrdner()},
        {u"protokolle"_s, Sprache::text(u"Protokolle"_s), m_protokolle}};
    auto *raster = new QGridLayout;
    raster->setColumnStretch(1, 1);
    for (const auto &[name, was, pfad] : zeilen) {
        auto *text = new Textschild(Textschild::Art::KurzMitte);
        text->setzeText(pfad.isEmpty() ? Sprache::text(u"noch kein Zielordner"_s) : kurzpfad(pfad));
        const int n = raster->rowCount();
        raster->addWidget(angabe(was, Schrift::Beschriftung), n, 0, Qt::AlignRight | Qt::AlignVCenter);
        raster->addWidget(text, n, 1);
        raster->addWidget(ordnerknopf(name, was, pfad), n, 2);
    }
    auto *tafel = traeger(raster);
    setzeLuecken(tafel, Abstand::Feld, Abstand::Keiner);
    return spalte({angabe(Sprache::text(u"Ordner"_s), Schrift::Abschnitt), tafel}, Abstand::Eng);
}

QLayout *Infofenster::teile()
{
    auto *raster = new QGridLayout;
    raster->setColumnStretch(0, 1);
    QHash<QString, QLabel *> erfragte;
    for (const Bestandteil &teil : bestandteile()) {
        QLabel *fassung = angabe(teil.helfer.isEmpty() ? teil.fassung : u"…"_s, Schrift::Beschriftung,
                                 teil.helfer.isEmpty() ? QString() : u"fassung-"_s + teil.helfer);
        erfragte.insert(teil.helfer, fassung);
        const int n = raster->rowCount();
        raster->addWidget(angabe(teil.name), n, 0);
        raster->addWidget(fassung, n, 1);
        raster->addWidget(angabe(teil.lizenz, Schrift::Beschriftung), n, 2);
    }
    auto *tafel = traeger(raster, this);
    setzeLuecken(tafel, Abstand::Rand, Abstand::Eng);
    // The programs are started for it, so the window is there before them.
    imHintergrund(tafel, Diagnose::helfer, [erfragte](const Ausgang<QList<Diagnose::Helfer>> &ausgang) {
        for (const Diagnose::Helfer &einer : ausgang.wert.value_or(QList<Diagnose::Helfer>())) {
            if (QLabel *schild = erfragte.value(einer.name))
                schild->setText(einer.fassung);
        }
    });
    return spalte({angabe(Sprache::text(u"Bestandteile"_s), Schrift::Abschnitt), tafel}, Abstand::Eng);
}

QLayout *Infofenster::fuss()
{
    QToolButton *kopieren =
        flachknopf(u"angabenKopieren"_s, Symbol::Kopieren, Sprache::text(u"Angaben kopieren"_s),
                   Sprache::text(u"Fassungen des Programms und seiner Helfer als Text, etwa für eine Fehlermeldung"_s));
    QPushButton *schliessen = knopf(u"schliessen"_s, Sprache::text(u"Schließen"_s));
    connect(kopieren, &QToolButton::clicked, this, [kopieren] { angabenKopieren(kopieren); });
    connect(schliessen, &QPushButton::clicked, this, &QDialog::close);
    return reihe({kopieren, Teil::rest(), schliessen});
}
} // namespace quillmar::ui
