#include "vorschau.h"

#include "anordnung.h"
#include "bau.h"
#include "farben.h"
#include "fokushalter.h"
#include "leeransicht.h"
#include "pdfansicht.h"
#include "sprache.h"
#include "suchleiste.h"
#include "text.h"
#include "textschild.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStackedLayout>
#include <QToolButton>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
/** What stands in place of pages. */
std::pair<Symbol, Leerlage> satzFuer(Vorschaubefund befund)
{
    const QHash<Vorschaubefund, std::pair<Symbol, Leerlage>> saetze{
        {Vorschaubefund::Keines,
         {Symbol::GrossVorschau,
          {Sprache::text(u"Keine Vorschau"_s),
           Sprache::text(u"Sobald ein Dokument zur Prüfung ansteht, erscheint es hier."_s)}}},
        {Vorschaubefund::Gesichert,
         {Symbol::GrossSchloss,
          {Sprache::text(u"Mit Kennwort geschützt"_s),
           Sprache::text(u"Das Dokument lässt sich erst nach Eingabe eines Kennworts lesen. Ablegen kannst du es "
                         u"trotzdem."_s)}}},
        {Vorschaubefund::Beschaedigt,
         {Symbol::GrossBeschaedigt,
          {Sprache::text(u"Datei beschädigt"_s),
           Sprache::text(u"Der Inhalt lässt sich nicht darstellen. Die Datei bleibt, wie sie ist."_s)}}},
        {Vorschaubefund::Verschwunden,
         {Symbol::GrossVerschwunden,
          {Sprache::text(u"Datei nicht gefunden"_s),
           Sprache::text(u"Sie wurde verschoben, umbenannt oder gelöscht, oder ihr Laufwerk ist nicht verbunden."_s)}}},
        {Vorschaubefund::Unlesbar,
         {Symbol::GrossSchloss,
          {Sprache::text(u"Datei nicht lesbar"_s),
           Sprache::text(u"Dir fehlt das Recht, sie zu öffnen, oder das Laufwerk meldet einen Fehler."_s)}}},
        {Vorschaubefund::ZuGross,
         {Symbol::GrossVorschau,
          {Sprache::text(u"Zu groß für die Vorschau"_s),
           Sprache::text(u"Dateien ab 256 MB zeigt die Vorschau nicht. Ablegen kannst du sie trotzdem."_s)}}},
        {Vorschaubefund::ZuLange,
         {Symbol::GrossBeschaedigt,
          {Sprache::text(u"Das Öffnen dauert zu lange"_s),
           Sprache::text(u"Die Vorschau hat es abgebrochen. Die Datei bleibt, wie sie ist; ablegen kannst du sie "
                         u"trotzdem."_s)}}},
        {Vorschaubefund::ZuVielSpeicher,
         {Symbol::GrossBeschaedigt,
          {Sprache::text(u"Das Öffnen braucht zu viel Speicher"_s),
           Sprache::text(u"Die Vorschau hat es abgebrochen. Die Datei bleibt, wie sie ist; ablegen kannst du sie "
                         u"trotzdem."_s)}}},
        {Vorschaubefund::Abgestuerzt,
         {Symbol::GrossBeschaedigt,
          {Sprache::text(u"Beim Öffnen abgestürzt"_s),
           Sprache::text(u"Dieses Dokument bringt die Vorschau zum Absturz. Die Datei bleibt, wie sie ist; ablegen "
                         u"kannst du sie trotzdem."_s)}}},
        {Vorschaubefund::NichtGestartet,
         {Symbol::GrossVorschau,
          {Sprache::text(u"Vorschau nicht verfügbar"_s),
           Sprache::text(u"Das Programm quillmar-seiten, das die Seiten zeichnet, lässt sich nicht starten. Ist die "
                         u"Installation vollständig? Ablegen kannst du das Dokument trotzdem."_s)}}},
    };
    return saetze.value(befund);
}

QString seitenanzeige(int seite, int seiten, bool weitere)
{
    if (weitere)
        return gefuellt(Sprache::text(u"Seite %@ von mehr als %@"_s),
                        {QString::number(seite), QString::number(seiten)});
    if (seiten <= 1)
        return seiten == 1 ? Sprache::text(u"1 Seite"_s) : QString();
    return gefuellt(Sprache::text(u"Seite %@ von %@"_s), {QString::number(seite), QString::number(seiten)});
}
} // namespace

Vorschau::Vorschau(QWidget *eltern, const Malgrenzen &grenzen)
    : QWidget(eltern), m_ansicht(new PDFAnsicht(grenzen)), m_leer(new Leeransicht),
      m_zoom{flachknopf(u"kleiner"_s, Symbol::LupeMinus, Sprache::text(u"Kleiner"_s),
                        Sprache::text(u"Kleiner darstellen"_s), false),
             flachknopf(u"groesser"_s, Symbol::LupePlus, Sprache::text(u"Größer"_s),
                        Sprache::text(u"Größer darstellen. Danach lässt sich der Ausschnitt frei scrollen."_s), false),
             flachknopf(u"breiteSetzen"_s, Symbol::Breite, Sprache::text(u"Breite"_s),
                        Sprache::text(u"Auf die Breite passen. Bleibt beim Verschieben der Trennlinie erhalten."_s),
                        false),
             flachknopf(u"ganzeSeite"_s, Symbol::GanzeSeite, Sprache::text(u"Ganze Seite"_s),
                        Sprache::text(u"Ganze Seite zeigen"_s), false),
             flachknopf(u"linksDrehen"_s, Symbol::DrehenLinks, Sprache::text(u"Links drehen"_s),
                        Sprache::text(u"Seite nach links drehen (Umschalt+R). Die Datei bleibt, wie sie ist."_s),
                        false),
             flachknopf(u"rechtsDrehen"_s, Symbol::DrehenRechts, Sprache::text(u"Rechts drehen"_s),
                        Sprache::text(u"Seite nach rechts drehen (R). Die Datei bleibt, wie sie ist."_s), false),
             flachknopf(u"marken"_s, Symbol::Marken, Sprache::text(u"Marken"_s),
                        Sprache::text(u"Fundstellen auf der Seite zeigen (M)"_s), false)},
      m_zurueck(flachknopf(u"zurueckZumDokument"_s, Symbol::PfeilLinks, Sprache::text(u"Zurück zum Dokument"_s),
                           Sprache::text(u"Zeigt wieder das Dokument, das gerade zur Prüfung ansteht"_s))),
      m_partnerName(new Textschild(Textschild::Art::KurzMitte, Schrift::Halbfett, u"partnerName"_s)),
      m_seiten(schild({}, Schrift::Neben, u"seite"_s)), m_zeile(zeile()), m_suche(new Suchleiste),
      m_fokus(new Fokushalter(m_ansicht, m_ansicht->viewport(),
                              {m_zeile, m_suche, m_ansicht->verticalScrollBar(), m_ansicht->horizontalScrollBar()})),
      m_stapel(new QStackedLayout)
{
    m_stapel->addWidget(m_ansicht);
    m_stapel->addWidget(m_leer);
    fuellen(this, spalte({m_zeile, m_suche, {m_stapel, 1}}, Abstand::Keiner));
    m_fokus->setParent(this);
    bezeichnen(m_ansicht, u"vorschau"_s, Sprache::text(u"Vorschau des Dokuments"_s));
    m_seiten->setToolTip(Sprache::text(u"Blättern durch Scrollen, mit den Bildtasten oder am Rand"_s));
    // The row stands above the page: from the page Tab goes on to the next pane.
    tabReihe({m_zoom[0], m_zoom[1], m_zoom[2], m_zoom[3], m_zoom[4], m_zoom[5], m_zoom[6], m_zurueck});
    m_suche->einreihen(m_zurueck, m_ansicht);
    new Nachgeben(
        m_zeile, 3, [this](int stufe) { nachgeben(stufe); },
        [this] { return m_zeile->layout()->minimumSize().width() <= m_zeile->width(); });
    verbinden();
    textVerbinden();
    Stil::folgen(m_zeile, [this] { zeileFaerben(); });
    partnerZeigen({}, {});
    befundZeigen();
}

QWidget *Vorschau::zeile()
{
    m_zoom[2]->setCheckable(true);
    m_zoom[3]->setCheckable(true);
    m_zoom[6]->setCheckable(true);
    m_zoom[6]->setChecked(true);
    m_zurueck->setAutoRaise(false);
    auto *teile = reihe({m_zoom[0],
                         m_zoom[1],
                         m_zoom[2],
                         m_zoom[3],
                         m_zoom[4],
                         m_zoom[5],
                         m_zoom[6],
                         {m_partnerName, 1},
                         m_zurueck,
                         m_seiten});
    auto *zeile = fuellen(new QWidget, teile, Abstand::Nah, Abstand::Eng);
    zeile->setAutoFillBackground(true);
    return zeile;
}

void Vorschau::verbinden()
{
    connect(m_zoom[0], &QToolButton::clicked, m_ansicht, &PDFAnsicht::kleiner);
    connect(m_zoom[1], &QToolButton::clicked, m_ansicht, &PDFAnsicht::groesser);
    connect(m_zoom[2], &QToolButton::clicked, m_ansicht, &PDFAnsicht::breiteSetzen);
    connect(m_zoom[3], &QToolButton::clicked, m_ansicht, &PDFAnsicht::ganzeSeiteSetzen);
    connect(m_zoom[4], &QToolButton::clicked, this, [this] { drehen(-90); });
    connect(m_zoom[5], &QToolButton::clicked, this, [this] { drehen(90); });
    connect(m_ansicht, &PDFAnsicht::gedreht, this, &Vorschau::gedreht);
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

void Vorschau::textVerbinden()
{
    connect(m_zoom[6], &QToolButton::clicked, this, &Vorschau::setzeMarkenSichtbar);
    connect(m_suche, &Suchleiste::anfrageGeaendert, this, [this] { m_ansicht->suchen(m_suche->anfrage()); });
    connect(m_suche, &Suchleiste::geschlossen, this, [this] { m_ansicht->suchen({}); });
    connect(m_suche, &Suchleiste::weiter, m_ansicht, &PDFAnsicht::weitersuchen);
    connect(m_ansicht, &PDFAnsicht::genommen, this, &Vorschau::genommen);
}

void Vorschau::zeigen(const QString &pfad)
{
    if (pfad == m_pfad)
        return;
    m_pfad = pfad;
    m_gemeldet = {};
    partnerZeigen({}, {});
}

void Vorschau::setzeDrehungen(const QHash<QString, QMap<int, int>> &drehungen) { m_ansicht->setzeDrehungen(drehungen); }

void Vorschau::drehen(int grad) { m_ansicht->drehen(grad); }

void Vorschau::vorausladen(const QString &pfad) { m_ansicht->vorausladen(pfad); }

bool Vorschau::istBereit(const QString &pfad) const { return m_ansicht->istBereit(pfad); }

void Vorschau::partnerBeenden()
{
    if (!m_partnerPfad.isEmpty())
        partnerZeigen({}, {});
}

void Vorschau::partnerZeigen(const QString &pfad, const QString &name)
{
    m_partnerPfad = pfad;
    m_partnerName->setzen(pfad.isEmpty() ? Symbol::Keines : Symbol::Dublette, name);
    m_zurueck->setVisible(!pfad.isEmpty());
    zeileFaerben();
    m_satzGemeldet = false;
    if (pfad.isEmpty())
        m_gesehen.clear();
    const QString gezeigt = pfad.isEmpty() ? m_pfad : pfad;
    m_ansicht->setzeUrl(gezeigt.isEmpty() ? QUrl() : QUrl::fromLocalFile(gezeigt));
}

/** The row above another document has a ground of its own. */
void Vorschau::zeileFaerben()
{
    QPalette farben;
    if (!m_partnerPfad.isEmpty())
        farben.setColor(QPalette::Window, Farben::auswahlgrund(palette()));
    m_zeile->setPalette(farben);
}

void Vorschau::setzeWorte(const QString &pfad, const QList<Seitenworte> &worte)
{
    m_ansicht->text().setzeWorte(pfad, worte);
}

void Vorschau::setzeMarken(const QString &pfad, const QList<Marke> &marken)
{
    m_ansicht->text().setzeMarken(pfad, marken);
}

void Vorschau::setzeMarkenSichtbar(bool sichtbar)
{
    m_zoom[6]->setChecked(sichtbar);
    if (sichtbar == markenSichtbar())
        return;
    m_ansicht->text().setzeMarkenSichtbar(sichtbar);
    Q_EMIT markenSichtbarGeaendert(sichtbar);
}

bool Vorschau::markenSichtbar() const { return m_ansicht->text().markenSichtbar(); }

void Vorschau::hinsehen(const Marke &marke) { m_ansicht->hinsehen(marke); }

void Vorschau::setzeNehmen(bool nehmen)
{
    m_ansicht->setzeNehmen(nehmen);
    m_fokus->setzeAn(nehmen);
}

bool Vorschau::sucheOffen() const { return m_suche->offen(); }

void Vorschau::sucheZeigen()
{
    const auto auswahl = m_ansicht->text().auswahl();
    const QString text = auswahl ? m_ansicht->text().karte().text(*auswahl) : QString();
    m_suche->oeffnen(text.contains(u'\n') ? QString() : text);
}

bool Vorschau::taste(QKeyEvent *ereignis)
{
    return m_stapel->currentWidget() == m_ansicht && (suchtaste(ereignis) || m_ansicht->taste(ereignis));
}

bool Vorschau::suchtaste(const QKeyEvent *ereignis)
{
    const bool offen = m_suche->offen();
    if (ereignis->matches(QKeySequence::Find) || (ereignis->key() == Qt::Key_F3 && !offen))
        sucheZeigen();
    else if (ereignis->key() == Qt::Key_F3)
        m_ansicht->weitersuchen(ereignis->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else if (ereignis->key() == Qt::Key_Escape && offen)
        m_suche->schliessen();
    else
        return false;
    return true;
}

// Esc first ends what it can end here; only the next one means the card.
bool Vorschau::event(QEvent *ereignis)
{
    if (ereignis->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(ereignis)->key() == Qt::Key_Escape &&
        (sucheOffen() || m_ansicht->text().auswahl())) {
        ereignis->accept();
        return true;
    }
    return QWidget::event(ereignis);
}

void Vorschau::keyPressEvent(QKeyEvent *ereignis)
{
    if (!taste(ereignis))
        QWidget::keyPressEvent(ereignis);
}

void Vorschau::befundZeigen()
{
    const QString pfad = m_ansicht->url().toLocalFile();
    const Vorschaubefund befund = m_ansicht->befund();
    const bool seiten = befund == Vorschaubefund::Offen || befund == Vorschaubefund::Laedt;
    if (!seiten) {
        const auto [zeichen, satz] = satzFuer(befund);
        m_leer->setzen(zeichen, satz);
        if (!pfad.isEmpty() && !std::exchange(m_satzGemeldet, true))
            QMetaObject::invokeMethod(
                this, [this, pfad] { Q_EMIT seiteSichtbar(pfad); }, Qt::QueuedConnection);
    }
    m_stapel->setCurrentWidget(seiten ? static_cast<QWidget *>(m_ansicht) : m_leer);
    for (QToolButton *knopf : std::as_const(m_zoom))
        knopf->setEnabled(seiten);
    standZeigen();
}

void Vorschau::standZeigen()
{
    m_zoom[2]->setChecked(m_ansicht->passtBreite());
    m_zoom[3]->setChecked(m_ansicht->zeigtGanzeSeite());
    m_seiten->setText(seitenanzeige(m_ansicht->seite(), m_ansicht->seiten(), m_ansicht->hatWeitere()));
    const QString satz = m_ansicht->seitensatz();
    m_ansicht->setAccessibleDescription(satz.isEmpty() ? m_seiten->toolTip() : satz);
    suchstandZeigen();
    seitenMelden();
}

void Vorschau::seitenMelden()
{
    const auto [erste, letzte] = m_ansicht->sichtbare();
    const std::array stand{erste + 1, letzte + 1, m_ansicht->seiten()};
    if (!m_partnerPfad.isEmpty() || m_pfad.isEmpty() || m_ansicht->seiten() == 0)
        return;
    if (stand != std::exchange(m_gemeldet, stand))
        Q_EMIT seitenImBlick(m_pfad, stand[0], stand[1], stand[2]);
}

bool Vorschau::alleSeitenBekannt() const
{
    const Textkarte &karte = m_ansicht->text().karte();
    for (int seite = 0; seite < m_ansicht->seiten(); ++seite)
        if (karte.seite(seite).anzahl() == 0)
            return false;
    return true;
}

void Vorschau::suchstandZeigen()
{
    const Textebene &text = m_ansicht->text();
    const Treffer &treffer = text.treffer();
    const bool gefunden = treffer.nummer() > 0;
    QString satz;
    if (gefunden)
        satz = gefuellt(Sprache::text(u"%@ von %@"_s),
                        {QString::number(treffer.nummer()), QString::number(treffer.alle().size())});
    else if (text.karte().seite(m_ansicht->seite() - 1).anzahl() == 0)
        satz = Sprache::text(u"Auf dieser Seite ist kein Text bekannt"_s);
    else if (!m_suche->anfrage().isEmpty())
        satz = alleSeitenBekannt() ? Sprache::text(u"Nicht gefunden"_s)
                                   : Sprache::text(u"Nicht auf den gelesenen Seiten"_s);
    m_suche->setzeStand(satz, gefunden);
}

// What is less needed gives way: first the words of the button back, then the page display, at last the zoom, which the
// wheel has as well, and the marks, which have a key. The way back is always there.
void Vorschau::nachgeben(int stufe)
{
    const bool partner = !m_partnerPfad.isEmpty();
    m_partnerName->setMinimumWidth(partner ? Stil::mass(stufe < 3 ? 90 : 40) : 0);
    setzeMitText(m_zurueck, stufe < 1);
    m_seiten->setVisible(stufe < 2);
    for (QToolButton *knopf : std::as_const(m_zoom))
        knopf->setVisible(!partner || stufe < 3);
    m_zoom[6]->setVisible(stufe < 3);
}
} // namespace quillmar::vorschau
