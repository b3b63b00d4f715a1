#include "rueckbaufeld.h"

#include "ausfuehrung.h"
#include "balken.h"
#include "elidiertext.h"
#include "hauptknopf.h"
#include "knopf.h"
#include "meldestelle.h"
#include "meldungszeile.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "umbruchtext.h"
#include "zeichen.h"
#include "zeichenschild.h"
#include "zeile.h"
#include "zustand.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QShortcut>
#include <QStackedLayout>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int fehlerzeilen = 4;

Knopf *knopf(const QString &name, const QString &text, const QString &hilfe, QWidget *eltern)
{
    auto *neu = new Knopf(name, text, eltern, Knopf::Hoehe::Haupt);
    neu->setToolTip(hilfe);
    neu->setAccessibleDescription(hilfe);
    return neu;
}

/** A line for each movement that could not be turned back, in the order of the attempts. */
QString fehlerzeilenVon(const Zustand &zustand)
{
    QStringList zeilen;
    for (const Rueckbaubefund &befund : zustand.sitzungen()->rueckbauBilanz().fehler) {
        const QString name = nameVon(zustand.sitzungen()->protokollZeilen().value(befund.stelle).nach);
        zeilen << (name.isEmpty() ? befund.grund : name + u": "_s + befund.grund);
    }
    return zeilen.join(u'\n');
}

QString erklaerung(const std::optional<Protokollkopf> &kopf)
{
    const QString satz =
        Sprache::text(u"Dreht alle Bewegungen der gewählten Sitzung um, jüngste zuerst. Verschobene Dateien gehen an "
                      "ihren alten Platz zurück, Kopien wandern in den Papierkorb."_s);
    if (!kopf || !kopf->kopieren)
        return satz;
    return satz + u' ' +
           Sprache::text(u"Rückgängig machen legt in dieser Betriebsart die Kopie in den Papierkorb, das Original "
                         "bleibt ohnehin unangetastet."_s);
}
/** Between which folders a log moves files that is not one of the active profile. */
QString woher(const Zustand &zustand)
{
    const auto &aktiv = zustand.profilwahl()->aktiv();
    const auto &kopf = zustand.sitzungen()->protokollKopf();
    if (!aktiv || (kopf && kopf->quelle == aktiv->quelle && kopf->ziel == aktiv->zielWurzel))
        return {};
    return gefuellt(Sprache::text(u"Dieses Protokoll kommt von woanders. Es bewegt Dateien von %@ nach %@."_s),
                    {kopf ? kopf->ziel : aktiv->zielWurzel, kopf ? kopf->quelle : aktiv->quelle}) +
           u' ';
}
} // namespace

Rueckbaufeld::Rueckbaufeld(Zustand *zustand, QWidget *eltern)
    : QWidget(eltern), m_zustand(zustand), m_erklaerung(new Umbruchtext(this)), m_fehler(new QPlainTextEdit(this)),
      m_stapel(new QStackedLayout), m_marke(new QLabel(this)), m_meldung(new Elidiertext(Qt::ElideRight, this))
{
    setObjectName(u"rueckbau"_s);
    m_fehler->setObjectName(u"rueckbauFehler"_s);
    m_fehler->setAccessibleName(Sprache::text(u"Was sich nicht zurückdrehen ließ"_s));
    m_fehler->setReadOnly(true);
    m_fehler->setTabChangesFocus(true);
    m_fehler->setFrameShape(QFrame::NoFrame);
    m_fehler->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_meldung->setObjectName(u"rueckbauMeldung"_s);
    m_stapel->addWidget(knopfseite());
    m_stapel->addWidget(frageseite());
    m_stapel->addWidget(laufseite());
    auto *spalte = new QVBoxLayout(this);
    spalte->addWidget(m_erklaerung);
    spalte->addWidget(m_fehler);
    spalte->addLayout(m_stapel);
    auto *meldung = new QHBoxLayout;
    meldung->addWidget(m_marke);
    meldung->addWidget(m_meldung, 1);
    spalte->addLayout(meldung);
    Stil::nebentext(m_erklaerung);
    Stil::folgen(this, [this, spalte, meldung] {
        spalte->setSpacing(abstand(8));
        meldung->setSpacing(abstand(6));
        m_fehler->setFixedHeight(fehlerzeilen * QFontMetrics(Stil::schrift(Schrift::Grund)).lineSpacing() +
                                 abstand(10));
    });
    verbinden();
    zeigen();
    meldungZeigen();
}

QWidget *Rueckbaufeld::knopfseite()
{
    m_zurueckdrehen = knopf(u"sitzungZurueckdrehen"_s, Sprache::text(u"Sitzung zurückdrehen"_s),
                            Sprache::text(u"Fragt noch einmal nach, bevor irgendetwas geschieht"_s), this);
    m_zurueckdrehen->setIcon(Zeichen::icon(Symbol::Ruecknehmen));
    m_letzten = knopf(u"letztenSchrittZurueck"_s, Sprache::text(u"Letzten Schritt zurück"_s),
                      Sprache::text(u"Dreht nur die allerletzte Bewegung um, unabhängig von der Auswahl"_s), this);
    return reihe({m_zurueckdrehen, m_letzten});
}

/** Side by side, or below each other where there is no room for that; the rest of the room at the end. */
QWidget *Rueckbaufeld::reihe(const QList<QWidget *> &teile)
{
    auto *traeger = new QWidget(this);
    auto *reihe = new QBoxLayout(QBoxLayout::LeftToRight, traeger);
    reihe->setContentsMargins(0, 0, 0, 0);
    for (QWidget *teil : teile)
        reihe->addWidget(teil);
    reihe->addStretch(1);
    m_reihen << reihe;
    return traeger;
}

void Rueckbaufeld::einpassen()
{
    const int rand = Stil::seitenrand(width());
    layout()->setContentsMargins(rand, abstand(10), rand, abstand(6));
    // The question in one line where there is room for it beside its answers.
    const int worte = m_frage->fontMetrics().horizontalAdvance(m_frage->text()) + 4;
    const int daneben =
        2 * rand + Stil::zeichengroesse() + m_ja->sizeHint().width() + m_nein->sizeHint().width() + 4 * abstand(10);
    m_frage->setMinimumWidth(worte + daneben <= width() ? worte : 0);
    for (QBoxLayout *reihe : std::as_const(m_reihen)) {
        int breite = 2 * rand + abstand(10);
        for (int n = 0; n < reihe->count(); ++n)
            breite += reihe->itemAt(n)->sizeHint().width();
        reihe->setDirection(breite > width() ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
        reihe->setSpacing(breite > width() ? abstand(4) : abstand(10));
    }
}

void Rueckbaufeld::setzeDicht(bool dicht)
{
    m_dicht = dicht;
    zeigen();
}

bool Rueckbaufeld::gestapelt() const { return m_reihen.first()->direction() == QBoxLayout::TopToBottom; }

/** By reckoning from the page on show, since the others are not laid out. */
int Rueckbaufeld::knopfoben() const
{
    const QRect flaeche = m_stapel->currentWidget()->geometry();
    return flaeche.top() + (gestapelt() ? 0 : (flaeche.height() - knopfhoehe()) / 2);
}

QWidget *Rueckbaufeld::frageseite()
{
    m_frage = new QLabel(this);
    m_frage->setObjectName(u"rueckbauFrage"_s);
    m_frage->setTextFormat(Qt::PlainText);
    m_frage->setWordWrap(true);
    Stil::schriftFolgt(m_frage, Schrift::Halbfett);
    m_ja = knopf(u"jaZurueckdrehen"_s, Sprache::text(u"Ja, zurückdrehen"_s),
                 Sprache::text(u"Führt die Rückabwicklung jetzt aus"_s), this);
    m_nein =
        knopf(u"rueckbauAbbrechen"_s, Sprache::text(u"Abbrechen"_s), Sprache::text(u"Lässt alles, wie es ist"_s), this);
    auto *worte = zeile(this, {zeichenschild(Symbol::Warnung, this), m_frage});
    static_cast<QHBoxLayout *>(worte->layout())->setStretch(1, 1000); // it wraps before it pushes the buttons out
    auto *seite = reihe({worte, zeile(this, {m_ja, m_nein})});
    auto *esc = new QShortcut(Qt::Key_Escape, seite);
    esc->setContext(Qt::WidgetWithChildrenShortcut);
    connect(esc, &QShortcut::activated, this, &Rueckbaufeld::abbrechen);
    return seite;
}

QWidget *Rueckbaufeld::laufseite()
{
    m_lauf = new QLabel(this);
    m_lauf->setObjectName(u"rueckbauLauf"_s);
    m_lauf->setTextFormat(Qt::PlainText);
    m_balken = new Balken(0, this);
    m_balken->setAccessibleName(Sprache::text(u"Fortschritt"_s));
    m_anhalten = knopf(u"rueckbauAnhalten"_s, Sprache::text(u"Anhalten"_s),
                       Sprache::text(u"Hört nach den Bewegungen auf, die gerade im Gang sind. Der Rest bleibt, wie er "
                                     "ist."_s),
                       this);
    auto *seite = zeile(this, {m_lauf, m_balken, m_anhalten});
    static_cast<QHBoxLayout *>(seite->layout())->setStretch(1, 1000);
    return seite;
}

void Rueckbaufeld::verbinden()
{
    connect(m_zurueckdrehen, &QPushButton::clicked, this, &Rueckbaufeld::fragen);
    connect(m_letzten, &QPushButton::clicked, m_zustand->ausfuehrung(), &Ausfuehrung::letzteBewegungZuruecknehmen);
    connect(m_ja, &QPushButton::clicked, this, &Rueckbaufeld::bestaetigen);
    connect(m_nein, &QPushButton::clicked, this, &Rueckbaufeld::abbrechen);
    connect(m_anhalten, &QPushButton::clicked, m_zustand, [this] {
        m_anhalten->setEnabled(false);
        m_zustand->ausfuehrung()->anhalten();
    });
    // Another session, or this one with more movements: what was asked is not what would be done.
    connect(m_zustand->sitzungen(), &Sitzungen::protokollGeaendert, this, [this] {
        if (m_stapel->currentIndex() == Frage)
            abbrechen();
    });
    for (const auto signal : {&Sitzungen::protokollGeaendert, &Sitzungen::rueckbauGeaendert})
        connect(m_zustand->sitzungen(), signal, this, &Rueckbaufeld::zeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::beschaeftigtGeaendert, this, &Rueckbaufeld::zeigen);
    for (const auto signal : {&Pruefung::zaehlwerkGeaendert, &Pruefung::ruecknehmbarGeaendert})
        connect(m_zustand->pruefung(), signal, this, &Rueckbaufeld::zeigen);
    connect(m_zustand->sitzungen(), &Sitzungen::rueckbauGeaendert, this, &Rueckbaufeld::meldungZeigen);
    connect(m_zustand->meldestelle(), &Meldestelle::hinweisGeaendert, this, &Rueckbaufeld::meldungZeigen);
    connect(m_zustand->ausfuehrung(), &Ausfuehrung::vorgangGeaendert, this, &Rueckbaufeld::meldungZeigen);
}

void Rueckbaufeld::fragen()
{
    const qsizetype anzahl = m_zustand->sitzungen()->protokollZeilen().size();
    m_frage->setText(woher(*m_zustand) + gefuellt(Sprache::text(anzahl, u"%@ Bewegung wird zurückgedreht. Sicher?"_s,
                                                                u"%@ Bewegungen werden zurückgedreht. Sicher?"_s),
                                                  {QString::number(anzahl)}));
    m_ja->setAccessibleDescription(m_frage->text());
    m_nein->setAccessibleDescription(m_frage->text());
    setzeSeite(Frage);
    einpassen();
    m_nein->setFocus(Qt::ShortcutFocusReason); // a focus that is to be seen
}

void Rueckbaufeld::bestaetigen()
{
    const bool fokus = m_ja->hasFocus();
    m_zustand->sitzungen()->protokollZurueckdrehen();
    if (!m_zustand->sitzungen()->rueckbauLaeuft())
        setzeSeite(Knoepfe);
    else if (fokus)
        m_anhalten->setFocus();
}

void Rueckbaufeld::abbrechen()
{
    const bool fokus = m_ja->hasFocus() || m_nein->hasFocus();
    setzeSeite(Knoepfe);
    if (fokus)
        m_zurueckdrehen->setFocus();
}

void Rueckbaufeld::setzeSeite(Seite seite)
{
    if (m_stapel->currentIndex() != seite)
        m_stapel->setCurrentIndex(seite);
}

void Rueckbaufeld::zeigen()
{
    const bool laeuft = m_zustand->sitzungen()->rueckbauLaeuft();
    const bool frei = m_zustand->profilwahl()->offen() && !m_zustand->ausfuehrung()->beschaeftigt();
    m_zurueckdrehen->setEnabled(frei && !m_zustand->sitzungen()->protokollLaedt() &&
                                !m_zustand->sitzungen()->protokollZeilen().isEmpty());
    m_letzten->setEnabled(frei && m_zustand->pruefung()->hatBewegung());
    m_lauf->setText(m_zustand->sitzungen()->rueckbauMeldung() + u" …"_s);
    m_balken->setzeAnteil(m_zustand->sitzungen()->rueckbauAnteil());
    if (laeuft && m_stapel->currentIndex() != Lauf) {
        m_anhalten->setEnabled(true);
        setzeSeite(Lauf);
    }
    if (!laeuft && m_stapel->currentIndex() == Lauf) {
        const bool fokus = m_anhalten->hasFocus();
        setzeSeite(Knoepfe);
        if (fokus)
            m_zurueckdrehen->setFocus();
    }
    const QString fehler = fehlerzeilenVon(*m_zustand);
    if (m_fehler->toPlainText() != fehler)
        m_fehler->setPlainText(fehler);
    m_fehler->setVisible(!fehler.isEmpty());
    m_erklaerung->setzeText(erklaerung(m_zustand->sitzungen()->protokollKopf()));
    m_erklaerung->setVisible(fehler.isEmpty() && !m_dicht);
    m_zurueckdrehen->setToolTip(m_dicht ? m_erklaerung->ganzerText()
                                        : Sprache::text(u"Fragt noch einmal nach, bevor irgendetwas geschieht"_s));
}

Symbol Rueckbaufeld::meldungssymbol() const
{
    const bool gedreht =
        !m_zustand->sitzungen()->rueckbauMeldung().isEmpty() && !m_zustand->sitzungen()->rueckbauLaeuft();
    return tonzeichen(gedreht ? m_zustand->sitzungen()->rueckbauTon() : m_zustand->meldestelle()->ton());
}

/** What the turning back came to, else what was done or is to be said last. */
void Rueckbaufeld::meldungZeigen()
{
    QStringList teile = m_zustand->meldestelle()->meldungen();
    if (!m_zustand->ausfuehrung()->vorgang().isEmpty())
        teile = QStringList{m_zustand->ausfuehrung()->vorgang() + u" …"_s};
    if (!m_zustand->sitzungen()->rueckbauLaeuft())
        teile.prepend(m_zustand->sitzungen()->rueckbauMeldung());
    teile.removeAll(QString());
    const QString text = teile.join(u" · "_s);
    m_meldung->setzeText(text);
    const Symbol symbol =
        text.isEmpty() || !m_zustand->ausfuehrung()->vorgang().isEmpty() ? Symbol::Keines : meldungssymbol();
    m_marke->setPixmap(Zeichen::icon(symbol).pixmap(Stil::zeichengroesse(), Stil::zeichengroesse()));
    m_marke->setVisible(symbol != Symbol::Keines);
}

void Rueckbaufeld::resizeEvent(QResizeEvent *) { einpassen(); }

void Rueckbaufeld::paintEvent(QPaintEvent *) { QPainter(this).fillRect(0, 0, width(), 1, Stil::linie(palette())); }
} // namespace quillmar::protokoll
