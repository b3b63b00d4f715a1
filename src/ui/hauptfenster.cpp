#include "hauptfenster.h"

#include "ablaufansicht.h"
#include "aktualisierung.h"
#include "ausfuehrung.h"
#include "bau.h"
#include "einrichtungsansicht.h"
#include "einstellungen.h"
#include "fenstermenue.h"
#include "fenstersprache.h"
#include "fusszeile.h"
#include "hinweisfeld.h"
#include "infofenster.h"
#include "kopfleiste.h"
#include "laufnachricht.h"
#include "meldestelle.h"
#include "modelldienst.h"
#include "profilwahl.h"
#include "protokollansicht.h"
#include "pruefansicht.h"
#include "pruefung.h"
#include "quillmarstil.h"
#include "reiter.h"
#include "sprache.h"
#include "tastentakt.h"
#include "text.h"
#include "zustand.h"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QShortcut>
#include <QStackedWidget>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::ui
{
namespace
{
constexpr QSize kleinste(1100, 600);
constexpr QSize erste(1280, 860);
constexpr auto auffrischung = 3s;
constexpr auto laengstesWarten = 300ms; // for a catalogue that is slow to open
constexpr auto schluesselOrt = "fenster"_L1;

/** Nobody asks the cards how much room they want: the line below would do so at every change of its own. */
class Kartenstapel : public QStackedWidget
{
public:
    [[nodiscard]] QSize sizeHint() const override { return erste; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {}; }
    [[nodiscard]] bool hasHeightForWidth() const override { return false; }
};

QToolButton *menueknopf(Fenstersprache *sprache, QWidget *fenster, const std::function<void()> &info)
{
    QToolButton *knopf = flachknopf(u"menueknopf"_s, Symbol::Menue, Sprache::text(u"Menü"_s),
                                    Sprache::text(u"Schriftgröße, Sprache, Info, Beenden"_s), false);
    knopf->setParent(fenster);
    knopf->setPopupMode(QToolButton::InstantPopup);
    auto *menue = new Fenstermenue(sprache, knopf);
    knopf->setMenu(menue);
    QObject::connect(menue, &Fenstermenue::infoGewuenscht, fenster, info);
    // Otherwise its shortcuts would only work while it is open.
    fenster->addActions(menue->actions());
    return knopf;
}

/** Asks, on whatever card a deed was refused for it, whether a target folder without what was filed last is right. */
Rueckfrage *zielfrage(Profilwahl *wahl, Ausfuehrung *ausfuehrung)
{
    auto *frage = new Rueckfrage({{.name = u"zielStimmt"_s, .text = Sprache::text(u"Der Zielordner stimmt"_s)}});
    frage->setObjectName(u"zielfrage"_s);
    QObject::connect(ausfuehrung, &Ausfuehrung::zielFraglich, frage, [frage, wahl] {
        if (wahl->aktiv())
            frage->fragen(gefuellt(
                Sprache::text(u"Im Zielordner %@ liegt nichts von dem, was zuletzt dort einsortiert wurde. Ist sein "
                              "Datenträger nicht eingehängt, hänge ihn ein und versuche es noch einmal. Hast du die "
                              "Ablage selbst verlegt, bestätige den Ordner."_s),
                {wahl->aktiv()->zielWurzel}));
    });
    QObject::connect(wahl, &Profilwahl::aktivGeaendert, frage, &Rueckfrage::schliessen);
    QObject::connect(frage, &Rueckfrage::bestaetigt, ausfuehrung, &Ausfuehrung::zielBestaetigen);
    return frage;
}
} // namespace

Hauptfenster::Hauptfenster(Zustand *zustand, Fenstersprache *sprache, const QString &profil, QWidget *eltern)
    : QMainWindow(eltern), m_zustand(zustand), m_sprache(sprache), m_profil(profil),
      m_aktualisierung(new Aktualisierung(this))
{
    Quillmarstil::anwenden();
    hilfetexteAnwenden();
    setObjectName(u"hauptfenster"_s);
    setMinimumSize(kleinste);
    resize(erste);
    restoreGeometry(Einstellungen::wert(schluesselOrt).toByteArray());
    aufbauen();
    connect(m_sprache, &Fenstersprache::gewechselt, m_zustand, &Zustand::nachsprechen);
    connect(m_sprache, &Fenstersprache::gewechselt, this, &Hauptfenster::aufbauen);
    connect(m_sprache, &Fenstersprache::gewechselt, m_zustand->modelldienst(),
            &Modelldienst::modellPruefen); // says it in the new one
    connect(m_zustand->profilwahl(), &Profilwahl::aktivGeaendert, this, &Hauptfenster::setzeTitel);
    connect(m_zustand->profilwahl(), &Profilwahl::profileGeaendert, this, &Hauptfenster::setzeTitel);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, [this] {
        if (m_schliesst && !m_zustand->ausfuehrung()->beschaeftigt()) {
            m_zustand->ausfuehrung()->anhalten(); // what was asked for meanwhile
            close();
        }
    });
    connect(&m_takt, &QTimer::timeout, m_zustand->pruefung(), &Pruefung::aktualisieren);
    m_takt.start(auffrischung);
    connect(m_aktualisierung, &Aktualisierung::geaendert, this, &Hauptfenster::updateMelden);
    const auto *nachricht = new Laufnachricht(m_zustand->durchgang(), this);
    connect(nachricht, &Laufnachricht::gemeldet, this, [this] { QApplication::alert(this); });
    connect(nachricht, &Laufnachricht::angeklickt, this, &Hauptfenster::nachVorn);
    setzeTitel();
}

Hauptfenster::~Hauptfenster() = default;

/** The whole content, anew in every language: the state is elsewhere. */
void Hauptfenster::aufbauen()
{
    const QList<QAction *> alte = actions();
    for (QAction *aktion : alte)
        removeAction(aktion);
    auto *karten = new Kartenstapel;
    const auto info = [this] { Infofenster::oeffnen(m_zustand->profilwahl(), m_aktualisierung, m_sprache, this); };
    auto *inhalt = traeger(spalte({new Kopfleiste(m_zustand, menueknopf(m_sprache, this, info)),
                                   {karten, 1},
                                   zielfrage(m_zustand->profilwahl(), m_zustand->ausfuehrung()),
                                   new Fusszeile(m_zustand)},
                                  Abstand::Keiner));
    kartenBauen(karten);
    setCentralWidget(inhalt);
    kartenWechseln();
}

void Hauptfenster::kartenBauen(QStackedWidget *karten)
{
    karten->setObjectName(u"karten"_s);
    karten->addWidget(new EinrichtungsAnsicht(m_zustand, m_sprache, karten));
    karten->addWidget(new AblaufAnsicht(m_zustand, karten));
    karten->addWidget(new PruefAnsicht(m_zustand, karten));
    karten->addWidget(new ProtokollAnsicht(m_zustand, karten));
    // Which card is the first one shows only when the profile has been looked at: until then none flashes up.
    karten->setVisible(m_gewaehlt);
    m_karten = karten;
}

/** Each card has its key. */
void Hauptfenster::kartenWechseln()
{
    connect(m_zustand, &Zustand::reiterGeaendert, m_karten, [this] { karteZeigen(); });
    karteZeigen();
    for (const Reiter reiter : alleReiter()) {
        auto *taste = new QShortcut(QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + int(reiter))), centralWidget());
        connect(taste, &QShortcut::activated, m_zustand, [this, reiter] { m_zustand->setzeReiter(reiter); });
    }
}

void Hauptfenster::nachVorn()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void Hauptfenster::setzeTitel()
{
    const auto &aktiv = m_zustand->profilwahl()->aktiv();
    setWindowTitle(aktiv ? aktiv->name + u" – Quillmar"_s : u"Quillmar"_s);
}

void Hauptfenster::showEvent(QShowEvent *ereignis)
{
    QMainWindow::showEvent(ereignis);
    if (std::exchange(m_begonnen, true))
        return;
    m_zustand->profilwahl()->beginnen(m_profil);
    m_aktualisierung->beimStart();
    if (!m_zustand->profilwahl()->oeffnet())
        return ersteKarteZeigen();
    connect(m_zustand->profilwahl(), &Profilwahl::bereitschaftGeaendert, this, &Hauptfenster::ersteKarteZeigen);
    connect(m_zustand, &Zustand::reiterGeaendert, this, &Hauptfenster::ersteKarteZeigen);
    QTimer::singleShot(laengstesWarten, this, &Hauptfenster::ersteKarteZeigen);
}

void Hauptfenster::ersteKarteZeigen()
{
    if (std::exchange(m_gewaehlt, true))
        return;
    m_karten->show();
    karteZeigen();
}

/** The chosen card is in front and has the focus. */
void Hauptfenster::karteZeigen()
{
    m_karten->setCurrentIndex(int(m_zustand->reiter()));
    m_karten->currentWidget()->setFocus();
}

/** What nobody else takes comes here: Return presses the button that has the focus, whatever the platform thinks. */
void Hauptfenster::keyPressEvent(QKeyEvent *ereignis)
{
    const bool eingabe = ereignis->key() == Qt::Key_Return || ereignis->key() == Qt::Key_Enter;
    auto *knopf = knopfImFokus(this);
    if (eingabe && !Tastentakt::derAnwendung()->gehalten() && knopf && !qobject_cast<QCheckBox *>(knopf))
        knopf->click();
    else
        QMainWindow::keyPressEvent(ereignis);
}

/**
 * Qt asks for the next one too when what has the focus is hidden or switched off. That would be any button, and the
 * next key would press it; it goes to the card instead, which knows where its keys belong.
 */
bool Hauptfenster::focusNextPrevChild(bool vor)
{
    const QWidget *bisher = focusWidget();
    if (!bisher || (bisher->isVisible() && bisher->isEnabled()) || !m_karten)
        return QMainWindow::focusNextPrevChild(vor);
    m_karten->currentWidget()->setFocus();
    return true;
}

/** A newer version is told of, everything else in the info window only. */
void Hauptfenster::updateMelden()
{
    const auto &ergebnis = m_aktualisierung->ergebnis();
    if (m_aktualisierung->laeuft() || !ergebnis || ergebnis->art != Aktualisierung::Ergebnis::Art::NeuereDa)
        return;
    m_zustand->meldestelle()->anhaengen(Aktualisierung::satz(*ergebnis));
}

/** A file that is being moved reaches its place first; asked twice, it is left to the settling at the next start. */
void Hauptfenster::closeEvent(QCloseEvent *ereignis)
{
    Einstellungen::setzen(schluesselOrt, saveGeometry());
    if (m_zustand->ausfuehrung()->beschaeftigt() && !m_schliesst) {
        m_schliesst = true;
        const QString grund = Sprache::text(u"Schließt, sobald die laufende Bewegung fertig ist"_s);
        m_zustand->ausfuehrung()->anhalten(grund);
        m_zustand->meldestelle()->melden(grund, Meldestelle::Ton::Ruhig);
        ereignis->ignore();
        return;
    }
    m_takt.stop();
    QMainWindow::closeEvent(ereignis);
    // The program ends with this window, whatever other one is open.
    QMetaObject::invokeMethod(
        qApp, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
}
} // namespace quillmar::ui
