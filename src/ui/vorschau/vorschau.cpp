#include "vorschau.h"

#include "elidiertext.h"
#include "flachknopf.h"
#include "leeransicht.h"
#include "pdfansicht.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "zeichen.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedLayout>
#include <QUrl>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
constexpr int zeilenhoehe = 40;
constexpr int knopfkante = 28;
constexpr int lesbarerName = 90; ///< as drawn for 10 pt
constexpr int kuerzesterName = 40;

struct Satz {
    Symbol zeichen = Symbol::Keines;
    QString titel;
    QString zeile;
};

/** What stands in place of pages. */
Satz satzFuer(Vorschaubefund befund)
{
    const QHash<Vorschaubefund, Satz> saetze{
        {Vorschaubefund::Keines,
         {Symbol::GrossVorschau, Sprache::text(u"Keine Vorschau"_s),
          Sprache::text(u"Sobald ein Dokument zur Prüfung ansteht, erscheint es hier."_s)}},
        {Vorschaubefund::Gesichert,
         {Symbol::GrossSchloss, Sprache::text(u"Mit Kennwort geschützt"_s),
          Sprache::text(u"Das Dokument lässt sich erst nach Eingabe eines Kennworts lesen. Ablegen kannst du es "
                        u"trotzdem."_s)}},
        {Vorschaubefund::Beschaedigt,
         {Symbol::GrossBeschaedigt, Sprache::text(u"Datei beschädigt"_s),
          Sprache::text(u"Der Inhalt lässt sich nicht darstellen. Die Datei bleibt, wie sie ist."_s)}},
        {Vorschaubefund::Verschwunden,
         {Symbol::GrossVerschwunden, Sprache::text(u"Datei nicht gefunden"_s),
          Sprache::text(u"Sie wurde verschoben, umbenannt oder gelöscht, oder ihr Laufwerk ist nicht verbunden."_s)}},
        {Vorschaubefund::Unlesbar,
         {Symbol::GrossSchloss, Sprache::text(u"Datei nicht lesbar"_s),
          Sprache::text(u"Dir fehlt das Recht, sie zu öffnen, oder das Laufwerk meldet einen Fehler."_s)}},
        {Vorschaubefund::ZuGross,
         {Symbol::GrossVorschau, Sprache::text(u"Zu groß für die Vorschau"_s),
          Sprache::text(u"Dateien ab 256 MB zeigt die Vorschau nicht. Ablegen kannst du sie trotzdem."_s)}},
    };
    return saetze.value(befund);
}

QString seitenanzeige(int seite, int seiten)
{
    if (seiten <= 1)
        return seiten == 1 ? Sprache::text(u"1 Seite"_s) : QString();
    return gefuellt(Sprache::text(u"Seite %@ von %@"_s), {QString::number(seite), QString::number(seiten)});
}

// Sign of the similar document beside its name.
QLabel *partnerzeichen()
{
    auto *schild = new QLabel;
    Stil::folgen(schild, [schild] {
        const QSize groesse(Stil::zeichengroesse(), Stil::zeichengroesse());
        schild->setPixmap(Zeichen::icon(Symbol::Dublette).pixmap(groesse, schild->devicePixelRatioF()));
    });
    return schild;
}
} // namespace

Vorschau::Vorschau(QWidget *eltern)
    : QWidget(eltern), m_ansicht(new PDFAnsicht), m_leer(new Leeransicht), m_zeile(new QWidget),
      m_kleiner(new Flachknopf(u"kleiner"_s, Symbol::LupeMinus, {}, {})),
      m_groesser(new Flachknopf(u"groesser"_s, Symbol::LupePlus, {}, {})),
      m_breite(new Flachknopf(u"breiteSetzen"_s, Symbol::Breite, {}, {})),
      m_ganzeSeite(new Flachknopf(u"ganzeSeite"_s, Symbol::GanzeSeite, {}, {})), m_partner(new QWidget),
      m_partnerName(new Elidiertext(Qt::ElideMiddle)),
      m_zurueck(new Flachknopf(u"zurueckZumDokument"_s, Symbol::PfeilLinks, {}, {})), m_seiten(new QLabel),
      m_stapel(new QStackedLayout)
{
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->setSpacing(0);
    partnerAufbauen();
    zeileAufbauen();
    spalte->addWidget(m_zeile);
    spalte->addLayout(m_stapel, 1);
    m_stapel->addWidget(m_ansicht);
    m_stapel->addWidget(m_leer);
    m_ansicht->setObjectName(u"vorschau"_s);
    // The row stands above the page: from the page Tab goes on to the next pane.
    const QList<QWidget *> folge = {m_kleiner, m_groesser, m_breite, m_ganzeSeite, m_zurueck, m_ansicht};
    for (qsizetype n = 1; n < folge.size(); ++n)
        setTabOrder(folge.at(n - 1), folge.at(n));
    verbinden();
    beschriften();
    befundZeigen();
}

void Vorschau::partnerAufbauen()
{
    auto *reihe = new QHBoxLayout(m_partner);
    m_partnerName->setObjectName(u"partnerName"_s);
    m_zurueck->setAutoRaise(false);
    m_zurueck->setzeMitText(true);
    reihe->setContentsMargins(0, 0, 0, 0);
    reihe->addWidget(partnerzeichen());
    reihe->addWidget(m_partnerName, 1);
    reihe->addWidget(m_zurueck);
    m_partner->hide();
    Stil::schriftFolgt(m_partnerName, Stil::Schrift::Halbfett);
    Stil::folgen(m_partner, [reihe] { reihe->setSpacing(Stil::abstand(6)); });
}

void Vorschau::zeileAufbauen()
{
    m_zeile->setAutoFillBackground(true);
    auto *reihe = new QHBoxLayout(m_zeile);
    for (Flachknopf *knopf : zoomknoepfe())
        reihe->addWidget(knopf);
    m_breite->setCheckable(true);
    m_ganzeSeite->setCheckable(true);
    reihe->addWidget(m_partner, 1);
    reihe->addStretch();
    reihe->addWidget(m_seiten);
    m_seiten->setObjectName(u"seite"_s);
    m_seiten->setTextFormat(Qt::PlainText);
    m_seiten->setMinimumWidth(1);
    Stil::nebentext(m_seiten);
    Stil::folgen(this, [this, reihe] {
        m_zeile->setFixedHeight(Stil::abstand(zeilenhoehe));
        for (Flachknopf *knopf : zoomknoepfe())
            knopf->setFixedSize(Stil::abstand(knopfkante), Stil::abstand(knopfkante));
        m_zurueck->setFixedHeight(Stil::abstand(knopfkante));
        reihe->setContentsMargins(Stil::abstand(8), 0, Stil::abstand(12), 0);
        reihe->setSpacing(Stil::abstand(2));
        m_partner->setContentsMargins(Stil::abstand(8), 0, Stil::abstand(8), 0);
        setzeReihenfarbe();
        platzVerteilen();
    });
}

void Vorschau::verbinden()
{
    connect(m_kleiner, &QToolButton::clicked, m_ansicht, &PDFAnsicht::kleiner);
    connect(m_groesser, &QToolButton::clicked, m_ansicht, &PDFAnsicht::groesser);
    connect(m_breite, &QToolButton::clicked, m_ansicht, &PDFAnsicht::breiteSetzen);
    connect(m_ganzeSeite, &QToolButton::clicked, m_ansicht, &PDFAnsicht::ganzeSeiteSetzen);
    connect(m_ansicht, &PDFAnsicht::geaendert, this, &Vorschau::standZeigen);
    connect(m_ansicht, &PDFAnsicht::befundGeaendert, this, &Vorschau::befundZeigen);
    connect(m_ansicht, &PDFAnsicht::seiteSichtbar, this, &Vorschau::seiteSichtbar);
    connect(this, &Vorschau::seiteSichtbar, this, [this](const QString &pfad) {
        if (pfad == m_pfad)
            m_gesehen = pfad;
    });
    connect(m_zurueck, &QToolButton::clicked, this, [this] {
        partnerBeenden();
        Q_EMIT zurueckZumDokument();
    });
}

void Vorschau::beschriften()
{
    m_kleiner->setzeHilfe(Sprache::text(u"Kleiner"_s), Sprache::text(u"Kleiner darstellen"_s));
    m_groesser->setzeHilfe(Sprache::text(u"Größer"_s),
                           Sprache::text(u"Größer darstellen. Danach lässt sich der Ausschnitt frei scrollen."_s));
    m_breite->setzeHilfe(Sprache::text(u"Breite"_s),
                         Sprache::text(u"Auf die Breite passen. Bleibt beim Verschieben der Trennlinie erhalten."_s));
    m_ganzeSeite->setzeHilfe(Sprache::text(u"Ganze Seite"_s), Sprache::text(u"Ganze Seite zeigen"_s));
    m_zurueck->setzeHilfe(Sprache::text(u"Zurück zum Dokument"_s),
                          Sprache::text(u"Zeigt wieder das Dokument, das gerade zur Prüfung ansteht"_s));
    const QString hilfe = Sprache::text(u"Blättern durch Scrollen, mit den Bildtasten oder am Rand"_s);
    m_seiten->setToolTip(hilfe);
    m_seiten->setAccessibleDescription(hilfe);
    m_ansicht->setAccessibleName(Sprache::text(u"Vorschau des Dokuments"_s));
    m_ansicht->setAccessibleDescription(hilfe);
    standZeigen();
}

QList<Flachknopf *> Vorschau::zoomknoepfe() const { return {m_kleiner, m_groesser, m_breite, m_ganzeSeite}; }

void Vorschau::zeigen(const QString &pfad)
{
    if (pfad == m_pfad)
        return;
    m_pfad = pfad;
    partnerBeenden();
    anzeigen(pfad);
}

void Vorschau::vorausladen(const QString &pfad) { m_ansicht->vorausladen(pfad); }

bool Vorschau::istBereit(const QString &pfad) const { return m_ansicht->istBereit(pfad); }

void Vorschau::partnerZeigen(const QString &pfad, const QString &name)
{
    m_partnerPfad = pfad;
    m_partnerName->setzeText(name);
    m_partner->show();
    setzeReihenfarbe();
    platzVerteilen();
    anzeigen(pfad);
}

void Vorschau::partnerBeenden()
{
    if (m_partnerPfad.isEmpty())
        return;
    m_partnerPfad.clear();
    // The focus goes where the eye goes, and not to the next best button.
    if (m_zurueck->hasFocus())
        m_ansicht->setFocus();
    m_partner->hide();
    setzeReihenfarbe();
    platzVerteilen();
    anzeigen(m_pfad);
}

bool Vorschau::taste(QKeyEvent *ereignis)
{
    return m_stapel->currentWidget() == m_ansicht && m_ansicht->taste(ereignis);
}

void Vorschau::anzeigen(const QString &pfad)
{
    m_satzGemeldet = false;
    if (pfad != m_partnerPfad)
        m_gesehen.clear();
    m_ansicht->setzeUrl(pfad.isEmpty() ? QUrl() : QUrl::fromLocalFile(pfad));
}

void Vorschau::befundZeigen()
{
    const QString pfad = m_ansicht->url().toLocalFile();
    const Vorschaubefund befund = m_ansicht->befund();
    const bool seiten = befund == Vorschaubefund::Offen || befund == Vorschaubefund::Laedt;
    if (!seiten) {
        const Satz satz = satzFuer(befund);
        m_leer->setzen(satz.zeichen, satz.titel, satz.zeile);
        if (!pfad.isEmpty() && !std::exchange(m_satzGemeldet, true))
            QMetaObject::invokeMethod(
                this, [this, pfad] { Q_EMIT seiteSichtbar(pfad); }, Qt::QueuedConnection);
    }
    m_stapel->setCurrentWidget(seiten ? static_cast<QWidget *>(m_ansicht) : m_leer);
    for (Flachknopf *knopf : zoomknoepfe()) {
        // A button that is switched off hands the focus to the next best widget, and be it a text field.
        if (!seiten && knopf->hasFocus())
            m_leer->setFocus();
        knopf->setEnabled(seiten);
    }
    standZeigen();
}

void Vorschau::standZeigen()
{
    m_breite->setChecked(m_ansicht->passtBreite());
    m_ganzeSeite->setChecked(m_ansicht->zeigtGanzeSeite());
    const QString stand = seitenanzeige(m_ansicht->seite(), m_ansicht->seiten());
    if (stand == m_seiten->text())
        return;
    m_seiten->setText(stand);
    platzVerteilen();
}

void Vorschau::setzeReihenfarbe()
{
    QPalette farben;
    if (!m_partnerPfad.isEmpty()) {
        farben.setColor(QPalette::Window, Stil::auswahlgrund(palette()));
        farben.setColor(QPalette::Disabled, QPalette::Window, Stil::auswahlgrund(palette()));
    }
    m_zeile->setPalette(farben);
}

// What is less needed gives way: first the words of the button back, then the page display, at last the zoom, which the
// wheel has as well. The way back is always there.
void Vorschau::platzVerteilen()
{
    const bool partner = !m_partnerPfad.isEmpty();
    int platz = width() - 4 * Stil::abstand(knopfkante + 2) - Stil::abstand(8 + 12);
    const int seiten = m_seiten->sizeHint().width() + Stil::abstand(4);
    if (partner) {
        platz -= Stil::abstand(16 + 6 + 6 + 8 + 8);
        m_zurueck->setzeMitText(true);
        m_zurueck->setzeMitText(platz >= m_zurueck->sizeHint().width() + Stil::abstand(lesbarerName) + seiten);
        platz -= m_zurueck->sizeHint().width();
    }
    for (Flachknopf *knopf : zoomknoepfe())
        knopf->setVisible(!partner || platz >= Stil::abstand(kuerzesterName));
    m_seiten->setVisible(platz >= seiten + (partner ? Stil::abstand(lesbarerName) : 0));
}

void Vorschau::resizeEvent(QResizeEvent *) { platzVerteilen(); }

void Vorschau::changeEvent(QEvent *ereignis)
{
    if (ereignis->type() == QEvent::LanguageChange) {
        beschriften();
        befundZeigen();
    }
    QWidget::changeEvent(ereignis);
}
} // namespace quillmar::vorschau
