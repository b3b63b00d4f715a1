#include "angabenfeld.h"

#include "auswahl.h"
#include "bau.h"
#include "einordnung.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"
#include "zeichen.h"
#include "zeile.h"

#include <QDate>
#include <QEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int datumszeichen = 12;
constexpr int jahreszeichen = 6;
constexpr int letzteSpalte = 3;

struct Feldtext {
    Feld feld;
    QString name;
    QString beschriftung;
    QString hilfe;
};

const QList<Feldtext> &feldtexte()
{
    static const QList<Feldtext> texte = {
        {Feld::Datum, u"datum"_s, QUILLMAR_TEXT(u"Datum"_s),
         QUILLMAR_TEXT(u"Das Datum des Schreibens, nicht das des Scans. Vier Ziffern Jahr, dann Monat, dann Tag."_s)},
        {Feld::Gegenueber, u"gegenueber"_s, QUILLMAR_TEXT(u"Gegenüber"_s),
         QUILLMAR_TEXT(u"Die andere Seite, also wer schreibt oder an wen es geht. Niemals du selbst. Etwa Finanzamt "
                       "Meißen oder Sparkasse."_s)},
        {Feld::Titel, u"titel"_s, QUILLMAR_TEXT(u"Titel"_s),
         QUILLMAR_TEXT(u"Worum es geht, in wenigen Worten. Etwa Steuerbescheid EkSt 2023."_s)},
        {Feld::Zweig, u"zweig"_s, QUILLMAR_TEXT(u"Zweig"_s),
         QUILLMAR_TEXT(u"Oberste Ebene der Ablage. Bestimmt, welche Rubriken zur Wahl stehen."_s)},
        {Feld::Ablage, u"ablage"_s, QUILLMAR_TEXT(u"Ablage"_s),
         QUILLMAR_TEXT(u"Jahresablage für laufende Vorgänge, Stammdaten für Dauerhaftes wie Verträge und Urkunden."_s)},
        {Feld::Jahr, u"jahr"_s, QUILLMAR_TEXT(u"Jahr"_s),
         QUILLMAR_TEXT(u"Zieht sich selbst aus dem Datum, lässt sich aber überschreiben."_s)},
        {Feld::Rubrik, u"rubrik"_s, QUILLMAR_TEXT(u"Rubrik"_s),
         QUILLMAR_TEXT(u"Der eigentliche Zielordner. Es stehen nur Rubriken zur Wahl, die es in deiner Ablage schon "
                       "gibt."_s)},
    };
    return texte;
}

const Feldtext &feldtext(Feld feld) { return feldtexte().at(int(feld)); }
QString beschriftung(Feld feld) { return Sprache::text(/* QUILLMAR_TEXT */ feldtext(feld).beschriftung); }
QString hilfe(Feld feld) { return Sprache::text(/* QUILLMAR_TEXT */ feldtext(feld).hilfe); }

QStringList namen(const QList<Zweig> &zweige)
{
    QStringList liste;
    for (const Zweig &zweig : zweige)
        liste << zweig.name;
    return liste;
}

QStringList namen(const QList<Ablageart> &arten)
{
    QStringList liste;
    for (const Ablageart &art : arten)
        liste << art.name;
    return liste;
}

QString erklaerung()
{
    return Sprache::text(u"Prüfen und bei Bedarf ändern. Eine Korrektur merkt sich das Programm für die nächsten "
                         "Dokumente desselben Gegenübers."_s);
}

/** Marks a chosen value that the structure does not know. */
void fremdesZeigen(QComboBox *wahl, Feld feld, bool fremd)
{
    wahl->setItemIcon(wahl->currentIndex(), fremd ? Zeichen::icon(Symbol::Warnung) : QIcon());
    const QString rat = fremd ? Sprache::text(u"Das kennt deine Struktur nicht."_s) + u' ' + hilfe(feld) : hilfe(feld);
    wahl->setToolTip(rat);
    wahl->setAccessibleDescription(rat);
}

/** A letter or number typed without a modifier. */
bool istZeichen(const QKeyEvent *ereignis)
{
    return ereignis->modifiers() == Qt::NoModifier && !ereignis->text().trimmed().isEmpty() &&
           ereignis->text().at(0).isLetterOrNumber();
}
} // namespace

Angabenfeld::Angabenfeld(Profilwahl *profilwahl, Pruefung *pruefung, QWidget *eltern)
    : Pruefabschnitt(Sprache::text(u"Angaben"_s), erklaerung(), eltern), m_profilwahl(profilwahl), m_pruefung(pruefung),
      m_tag(new QLabel(this))
{
    m_erklaerung->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_tag->setTextFormat(Qt::PlainText);
    m_tag->setObjectName(u"wochentag"_s);
    textfeldBauen(Feld::Datum, datumszeichen);
    textfeldBauen(Feld::Gegenueber, 0);
    textfeldBauen(Feld::Titel, 0);
    wahlBauen(Feld::Zweig);
    wahlBauen(Feld::Ablage);
    textfeldBauen(Feld::Jahr, jahreszeichen);
    wahlBauen(Feld::Rubrik);
    m_datumszeile = zeile(this, {m_texte[Feld::Datum], m_tag});
    m_texte[Feld::Datum]->setPlaceholderText(Sprache::text(u"JJJJ-MM-TT"_s));
    Stil::platzhalterFolgt(m_texte[Feld::Datum]);
    Stil::nebentext(m_tag);
    anordnen();
    Stil::folgen(this, [this] { masse(); });
    for (const auto signal : {&Pruefung::aktuellesGeaendert, &Pruefung::angabenGeaendert})
        connect(m_pruefung, signal, this, &Angabenfeld::zeigen);
    connect(m_pruefung, &Pruefung::angabenFestGeaendert, this, &Angabenfeld::festhalten);
    connect(m_pruefung, &Pruefung::aktuellesGeaendert, this, [this] {
        // An open list belongs to the document before.
        for (QComboBox *wahl : std::as_const(m_wahlen))
            wahl->hidePopup();
    });
    zeigen();
    erklaerungZeigen();
}

QStringList Angabenfeld::beschriftungen()
{
    QStringList liste;
    for (const Feldtext &text : feldtexte())
        liste << pruefung::beschriftung(text.feld);
    return liste;
}

void Angabenfeld::einrichten(Feld feld, QWidget *eingabe)
{
    eingabe->setObjectName(feldtext(feld).name);
    eingabe->setAccessibleName(pruefung::beschriftung(feld));
    eingabe->setAccessibleDescription(hilfe(feld));
    eingabe->setToolTip(hilfe(feld));
    eingabe->installEventFilter(this);
    QLabel *schild = Pruefabschnitt::beschriftung(pruefung::beschriftung(feld), hilfe(feld), Qt::AlignVCenter);
    schild->setBuddy(eingabe);
    m_schilder[feld] = schild;
}

void Angabenfeld::textfeldBauen(Feld feld, int zeichen)
{
    auto *eingabe = new QLineEdit(this);
    if (zeichen > 0)
        m_zeichen[feld] = zeichen;
    m_texte[feld] = eingabe;
    einrichten(feld, eingabe);
    connect(eingabe, &QLineEdit::textEdited, this,
            [this, feld](const QString &text) { m_pruefung->setzeFeld(feld, text); });
}

void Angabenfeld::wahlBauen(Feld feld)
{
    auto *wahl = new QComboBox(this);
    wahl->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    wahl->setMinimumContentsLength(4);
    wahl->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wahl->setMaxVisibleItems(20);
    m_wahlen[feld] = wahl;
    einrichten(feld, wahl);
    radsperre(wahl);
    connect(wahl, &QComboBox::activated, this,
            [this, feld, wahl](int stelle) { m_pruefung->setzeFeld(feld, wahl->itemData(stelle).toString()); });
}

void Angabenfeld::paarAnordnen(Feld feld, int zeile, int spalte, int breite, Qt::Alignment ausrichtung)
{
    m_raster->addWidget(m_schilder[feld], zeile, spalte);
    QWidget *eingabe = m_texte.contains(feld) ? static_cast<QWidget *>(m_texte[feld]) : m_wahlen[feld];
    m_raster->addWidget(eingabe, zeile, spalte + 1, 1, breite, ausrichtung);
}

void Angabenfeld::anordnen()
{
    kopfAnordnen(letzteSpalte + 1);
    m_raster->addWidget(m_schilder[Feld::Datum], 2, 0);
    m_raster->addWidget(m_datumszeile, 2, 1, 1, letzteSpalte);
    paarAnordnen(Feld::Gegenueber, 3, 0, letzteSpalte);
    paarAnordnen(Feld::Titel, 4, 0, letzteSpalte);
    const bool paarweise = m_dicht && !m_schmal;
    const int breite = paarweise ? 1 : letzteSpalte;
    paarAnordnen(Feld::Zweig, 5, 0, breite);
    paarAnordnen(Feld::Ablage, paarweise ? 5 : 6, paarweise ? 2 : 0, breite);
    paarAnordnen(Feld::Jahr, 7, 0, 1, Qt::AlignLeft);
    paarAnordnen(Feld::Rubrik, paarweise ? 7 : 8, paarweise ? 2 : 0, breite);
    m_raster->setColumnStretch(1, paarweise ? 2 : 0);
    m_raster->setColumnStretch(3, 3);
    masse();
}

void Angabenfeld::masse()
{
    m_raster->setHorizontalSpacing(abstand(12));
    m_raster->setVerticalSpacing(abstand(8));
    const QFontMetrics neben(Stil::schrift(Schrift::Neben));
    m_erklaerung->setFixedHeight(2 * neben.lineSpacing());
    for (QLineEdit *eingabe : std::as_const(m_texte)) {
        eingabe->setMinimumHeight(abstand(30));
        eingabe->setTextMargins(abstand(2), 0, 0, 0); // where a choice has its text
    }
    for (QComboBox *wahl : std::as_const(m_wahlen))
        wahl->setFixedHeight(abstand(30)); // by itself it does not shrink with the font
    for (auto it = m_zeichen.begin(); it != m_zeichen.end(); ++it)
        m_texte[it.key()]->setFixedWidth(fontMetrics().averageCharWidth() * it.value() + abstand(24));
}

int Angabenfeld::volleHoehe() const
{
    const int zeile = std::max(abstand(30), m_texte[Feld::Titel]->sizeHint().height()) + abstand(8);
    return m_titel->sizeHint().height() + m_erklaerung->height() + abstand(10) + int(feldtexte().size()) * zeile;
}

void Angabenfeld::zeigen()
{
    const bool da = m_pruefung->aktuelles() != nullptr;
    setEnabled(da);
    for (auto it = m_texte.begin(); it != m_texte.end(); ++it)
        textZeigen(it.key());
    wahlenZeigen();
    tagZeigen();
}

/** While the document is being filed nothing can be typed that would be dropped. */
void Angabenfeld::festhalten()
{
    for (QLineEdit *eingabe : std::as_const(m_texte))
        eingabe->setReadOnly(m_pruefung->angabenFest());
}

void Angabenfeld::textZeigen(Feld feld)
{
    const QString wert = m_pruefung->aktuelles() ? feldwert(m_pruefung->aktuelles()->angaben, feld) : QString();
    // Setting it anew would move the cursor and forget what can be undone.
    if (m_texte[feld]->text() != wert)
        m_texte[feld]->setText(wert);
    if (!m_texte[feld]->hasFocus())
        m_texte[feld]->setCursorPosition(0);
}

void Angabenfeld::wahlenZeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    const auto &profil = m_profilwahl->aktiv();
    if (!d || !profil)
        return;
    const Ort &ort = d->angaben.ort;
    const Zweig *zweig = profil->zweig(ort.zweig);
    const Ablageart *art = profil->ablageart(ort.zweig, ort.ablage);
    wahlZeigen(Feld::Zweig, namen(profil->zweige), ort.zweig);
    wahlZeigen(Feld::Ablage, zweig ? namen(zweig->ablagen) : QStringList(), ort.ablage);
    wahlZeigen(Feld::Rubrik, art ? art->rubriken : QStringList(), ort.rubrik);
}

/** A value that the structure does not know any more is shown all the same: it is what would be filed. */
void Angabenfeld::wahlZeigen(Feld feld, const QStringList &auswahl, const QString &wert)
{
    QStringList werte = auswahl;
    if (!wert.isEmpty() && !werte.contains(wert))
        werte << wert;
    QList<Wahleintrag> eintraege = wahleintraege(werte);
    if (feld == Feld::Rubrik)
        eintraege.prepend({.wert = {}, .anzeige = Sprache::text(u"ohne Rubrik"_s)});
    else if (wert.isEmpty())
        eintraege.prepend({.wert = {}, .anzeige = Sprache::text(u"bitte wählen"_s)});
    QComboBox *wahl = m_wahlen[feld];
    wahlAuffrischen(wahl, eintraege, wert);
    fremdesZeigen(wahl, feld, !wert.isEmpty() && !auswahl.contains(wert));
}

void Angabenfeld::tagZeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    const QString datum = d ? d->angaben.datum.trimmed() : QString();
    const QString mangel = m_pruefung->datumsmangel();
    const bool falsch = !mangel.isEmpty();
    QString text = falsch ? mangel : QLocale().toString(QDate::fromString(datum, Qt::ISODate), u"dddd"_s);
    if (falsch && !Einordnung::istDatum(datum))
        text = Sprache::text(u"Bitte als JJJJ-MM-TT"_s);
    m_tag->setText(text);
    Stil::setzeTextfarbe(m_tag,
                         falsch ? Stil::farbe(Stil::Bedeutung::Warnung, palette()) : Stil::nebenfarbe(palette()));
    m_texte[Feld::Datum]->setAccessibleDescription(falsch ? text + u". "_s + hilfe(Feld::Datum) : hilfe(Feld::Datum));
}

bool Angabenfeld::hatFokus() const
{
    const QWidget *fokus = focusWidget();
    return fokus && fokus->hasFocus();
}

QString Angabenfeld::hilfeImFokus() const
{
    for (const Feldtext &text : feldtexte()) {
        const QWidget *eingabe =
            m_texte.contains(text.feld) ? static_cast<QWidget *>(m_texte[text.feld]) : m_wahlen[text.feld];
        if (eingabe->hasFocus())
            return pruefung::beschriftung(text.feld) + u": "_s + hilfe(text.feld);
    }
    return {};
}

void Angabenfeld::erklaerungZeigen()
{
    const QString hilfe = hilfeImFokus();
    m_erklaerung->setText(hilfe.isEmpty() ? erklaerung() : hilfe);
}

bool Angabenfeld::eventFilter(QObject *objekt, QEvent *ereignis)
{
    const bool wahl = qobject_cast<QComboBox *>(objekt) != nullptr;
    // In a choice the letters choose, also those that are keys of the card.
    if (wahl && ereignis->type() == QEvent::ShortcutOverride && istZeichen(static_cast<QKeyEvent *>(ereignis))) {
        ereignis->accept();
        return true;
    }
    if (ereignis->type() == QEvent::FocusIn || ereignis->type() == QEvent::FocusOut) {
        // After the event: only then the focus is where it belongs.
        QMetaObject::invokeMethod(
            this,
            [this] {
                erklaerungZeigen();
                Q_EMIT fokusGewechselt();
            },
            Qt::QueuedConnection);
    }
    return QWidget::eventFilter(objekt, ereignis);
}
} // namespace quillmar::pruefung
