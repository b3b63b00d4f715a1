#include "angabenfeld.h"

#include "angebotsliste.h"
#include "auswahl.h"
#include "bau.h"
#include "bekanntenliste.h"
#include "feldnotiz.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sprache.h"
#include "tastentakt.h"
#include "textschild.h"

#include <QComboBox>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
namespace
{
constexpr int datumszeichen = 12;
constexpr int jahreszeichen = 6;

bool istWahl(Feld feld) { return feld == Feld::Zweig || feld == Feld::Ablage || feld == Feld::Rubrik; }

QString erklaerung()
{
    return Sprache::text(u"Prüfen und bei Bedarf ändern. Eine Korrektur merkt sich das Programm für die nächsten "
                         "Dokumente desselben Gegenübers."_s);
}

QString stehtNicht() { return Sprache::text(u"Steht so nicht im Text."_s); }

/** Marks a chosen value that the structure does not know. */
void fremdesZeigen(QComboBox *wahl, Feld feld, bool fremd)
{
    wahl->setItemIcon(wahl->currentIndex(), Zeichen::icon(fremd ? Symbol::Warnung : Symbol::Keines));
    wahl->setToolTip(fremd ? Sprache::text(u"Das kennt deine Struktur nicht."_s) + u' ' + feldhilfe(feld)
                           : feldhilfe(feld));
}

QComboBox *wahlBauen()
{
    auto *wahl = new QComboBox;
    wahl->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    wahl->setMinimumContentsLength(4);
    wahl->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wahl->setMaxVisibleItems(20);
    radsperre(wahl);
    return wahl;
}

QLineEdit *textBauen(int zeichen)
{
    auto *text = new QLineEdit;
    if (zeichen > 0)
        breiteFuer(text, zeichen);
    return text;
}

/** A letter or number typed without a modifier. */
bool istZeichen(const QKeyEvent *ereignis)
{
    return ereignis->modifiers() == Qt::NoModifier && !ereignis->text().trimmed().isEmpty() &&
           ereignis->text().at(0).isLetterOrNumber();
}
} // namespace

QWidget *Angabenfeld::Eingabe::feld() const { return text ? static_cast<QWidget *>(text) : wahl; }

Angabenfeld::Angabenfeld(Profilwahl *profilwahl, Pruefung *pruefung, Seitenbelege *belege, QWidget *eltern)
    : QObject(eltern), m_profilwahl(profilwahl), m_pruefung(pruefung), m_belege(belege),
      m_kopf(Sprache::text(u"Angaben"_s), erklaerung(), eltern),
      m_tag(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"wochentag"_s))
{
    for (int n = 0; n < feldzahl; ++n)
        m_eingaben << eingabeBauen(Feld(n), eltern);
    Eingabe &datum = m_eingaben[int(Feld::Datum)];
    datum.text->setPlaceholderText(Sprache::text(u"JJJJ-MM-TT"_s));
    m_bekannte = new Bekanntenliste(pruefung, m_eingaben.at(int(Feld::Gegenueber)).text);
    angeboteBauen();
    datum.teil = traeger(reihe({datum.text, {m_tag, 1}}), eltern);
    Stil::folgen(m_kopf.erklaerung, [this] {
        m_kopf.erklaerung->setFixedHeight(2 * QFontMetrics(Stil::schrift(Schrift::Neben)).lineSpacing());
    });
    for (const auto signal : {&Pruefung::aktuellesGeaendert, &Pruefung::angabenGeaendert})
        connect(m_pruefung, signal, this, &Angabenfeld::zeigen);
    connect(m_pruefung, &Pruefung::angabenFestGeaendert, this, &Angabenfeld::festhalten);
    connect(m_pruefung, &Pruefung::aktuellesGeaendert, this, [this] {
        // An open list belongs to the document before.
        m_bekannte->schliessen();
        for (Angebotsliste *liste : std::as_const(m_angebote))
            liste->schliessen();
        for (const Eingabe &eingabe : std::as_const(m_eingaben))
            if (eingabe.wahl)
                eingabe.wahl->hidePopup();
    });
    zeigen();
    notizenZeigen();
}

void Angabenfeld::angeboteBauen()
{
    for (const Feld feld : {Feld::Datum, Feld::Gegenueber, Feld::Titel}) {
        QLineEdit *text = m_eingaben.at(int(feld)).text;
        auto *liste = new Angebotsliste(m_belege, feld, text);
        m_angebote.insert(feld, liste);
        kurztaste(Qt::CTRL | Qt::Key_Down, text, [liste] { liste->oeffnen(); });
        connect(liste, &Angebotsliste::gewaehlt, this, [this, feld](const QString &wert) { ersetzen(feld, wert); });
        connect(liste, &Angebotsliste::vorgemerkt, this, &Angabenfeld::vorgemerkt);
        connect(liste, &Angebotsliste::geschlossen, this, [this] { Q_EMIT vorgemerkt({}); });
    }
    for (const Feld feld : {Feld::Gegenueber, Feld::Titel})
        m_notizen.insert(feld, new Feldnotiz(m_eingaben.at(int(feld)).text));
    connect(m_belege, &Seitenbelege::belegeGeaendert, this, &Angabenfeld::notizenZeigen);
}

/** No warning: models shorten and translate. It tells where to look. */
void Angabenfeld::notizenZeigen()
{
    const QList<Feld> fehlende = m_belege->fehlende();
    for (auto notiz = m_notizen.begin(); notiz != m_notizen.end(); ++notiz)
        (*notiz)->setzen(fehlende.contains(notiz.key()) ? stehtNicht() : QString());
    tagZeigen();
}

std::optional<Feld> Angabenfeld::nehmendes() const
{
    for (const Feld feld : {Feld::Datum, Feld::Gegenueber, Feld::Titel, Feld::Jahr}) {
        const QLineEdit *text = m_eingaben.at(int(feld)).text;
        if (text->hasFocus() && !text->isReadOnly())
            return feld;
    }
    return std::nullopt;
}

void Angabenfeld::nehmen(const Wortgriff &griff)
{
    const auto feld = nehmendes();
    const QString wert = feld ? m_belege->uebernommen(*feld, griff) : QString();
    if (!wert.isEmpty()) // of a mere stroke or dot no name is left
        ersetzen(*feld, wert);
}

/** As if it was typed: one step of the field's own undo. */
void Angabenfeld::ersetzen(Feld feld, const QString &wert)
{
    QLineEdit *text = m_eingaben.at(int(feld)).text;
    if (text->isReadOnly() || text->text() == wert)
        return;
    text->selectAll();
    text->insert(wert);
    m_pruefung->setzeFeld(feld, text->text());
}

Angabenfeld::Eingabe Angabenfeld::eingabeBauen(Feld feld, QWidget *eltern)
{
    Eingabe neue;
    neue.schild = beschriftung(feldtitel(feld), feldhilfe(feld), eltern);
    if (istWahl(feld)) {
        neue.wahl = wahlBauen();
        connect(neue.wahl, &QComboBox::activated, this, [this, feld, wahl = neue.wahl](int stelle) {
            m_pruefung->setzeFeld(feld, wahl->itemData(stelle).toString());
        });
    } else {
        neue.text = textBauen(feld == Feld::Datum ? datumszeichen : feld == Feld::Jahr ? jahreszeichen : 0);
        connect(neue.text, &QLineEdit::textEdited, this,
                [this, feld](const QString &wert) { m_pruefung->setzeFeld(feld, wert); });
    }
    neue.teil = neue.feld();
    neue.teil->setParent(eltern);
    bezeichnen(neue.teil, feldname(feld), feldtitel(feld), feldhilfe(feld));
    neue.teil->installEventFilter(this);
    neue.schild->setBuddy(neue.teil);
    return neue;
}

void Angabenfeld::legen(QGridLayout *raster, int zeile, const Platz &platz)
{
    const bool paarweise = platz.dicht && !platz.schmal;
    m_kopf.setzeDicht(platz.dicht);
    raster->addWidget(m_kopf.traeger, zeile++, 0, 1, 4);
    int spalte = 0;
    for (int n = 0; n < m_eingaben.size(); ++n) {
        const auto feld = Feld(n);
        const bool vorn = paarweise && (feld == Feld::Zweig || feld == Feld::Jahr);
        const bool kurz = feld == Feld::Jahr;
        raster->addWidget(m_eingaben.at(n).schild, zeile, spalte, Qt::AlignRight | Qt::AlignVCenter);
        raster->addWidget(m_eingaben.at(n).teil, zeile, spalte + 1, 1, vorn || spalte > 0 ? 1 : 3,
                          kurz ? Qt::AlignLeft : Qt::Alignment());
        spalte = vorn ? 2 : 0;
        zeile += vorn ? 0 : 1;
    }
    raster->setColumnStretch(1, paarweise ? 2 : 0);
    raster->setColumnStretch(3, 3);
}

void Angabenfeld::zeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    for (int n = 0; n < m_eingaben.size(); ++n) {
        m_eingaben.at(n).feld()->setEnabled(d != nullptr);
        QLineEdit *text = m_eingaben.at(n).text;
        if (!text)
            continue;
        const QString wert = d ? feldwert(d->angaben, Feld(n)) : QString();
        // Setting it anew would move the cursor and forget what can be undone.
        if (text->text() != wert)
            text->setText(wert);
        if (!text->hasFocus())
            text->setCursorPosition(0);
    }
    wahlenZeigen();
    tagZeigen();
}

/** While the document is being filed nothing can be typed that would be dropped. */
void Angabenfeld::festhalten()
{
    for (const Eingabe &eingabe : std::as_const(m_eingaben))
        if (eingabe.text)
            eingabe.text->setReadOnly(m_pruefung->angabenFest());
}

void Angabenfeld::wahlenZeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    if (!d || !m_profilwahl->aktiv())
        return;
    for (const Feld feld : {Feld::Zweig, Feld::Ablage, Feld::Rubrik})
        wahlZeigen(feld, feldauswahl(*m_profilwahl->aktiv(), d->angaben.ort, feld), feldwert(d->angaben, feld));
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
    QComboBox *wahl = m_eingaben.at(int(feld)).wahl;
    wahlAuffrischen(wahl, eintraege, wert);
    fremdesZeigen(wahl, feld, !wert.isEmpty() && !auswahl.contains(wert));
}

void Angabenfeld::tagZeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    const auto [text, falsch] = datumswort(d ? d->angaben.datum.trimmed() : QString());
    const bool fehlt = m_belege->fehlende().contains(Feld::Datum);
    const QString satz = fehlt && !falsch ? u"%1 · %2"_s.arg(text, stehtNicht()) : text;
    Stil::kleiden(m_tag, falsch ? Schrift::Warnung : Schrift::Neben)
        ->setzen(fehlt && !falsch ? Symbol::Info : Symbol::Keines, satz); // the mark is seen where the words are not
    const QString vorab = falsch ? text + u". "_s : fehlt ? stehtNicht() + u' ' : QString();
    m_eingaben.at(int(Feld::Datum)).text->setAccessibleDescription(vorab + feldhilfe(Feld::Datum));
}

bool Angabenfeld::hatFokus() const
{
    return std::any_of(m_eingaben.begin(), m_eingaben.end(), [](const Eingabe &e) { return e.feld()->hasFocus(); });
}

QString Angabenfeld::hilfeImFokus() const
{
    for (int n = 0; n < m_eingaben.size(); ++n)
        if (m_eingaben.at(n).feld()->hasFocus())
            return feldtitel(Feld(n)) + u": "_s + feldhilfe(Feld(n));
    return {};
}

void Angabenfeld::erklaerungZeigen()
{
    const QString hilfe = hilfeImFokus();
    m_kopf.erklaerung->setzeText(hilfe.isEmpty() ? erklaerung() : hilfe);
}

bool Angabenfeld::eventFilter(QObject *objekt, QEvent *ereignis)
{
    const bool wahl = qobject_cast<QComboBox *>(objekt) != nullptr;
    // In a choice the letters choose, also those that are keys of the card.
    if (wahl && ereignis->type() == QEvent::ShortcutOverride && istZeichen(static_cast<QKeyEvent *>(ereignis))) {
        ereignis->accept();
        return true;
    }
    if (ereignis->type() == QEvent::FocusIn && objekt == m_eingaben.at(int(Feld::Gegenueber)).text)
        m_pruefung->bekannteLesen();
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
    return QObject::eventFilter(objekt, ereignis);
}
} // namespace quillmar::pruefung
