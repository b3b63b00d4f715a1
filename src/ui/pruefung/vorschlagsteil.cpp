#include "vorschlagsteil.h"

#include "balken.h"
#include "elidiertext.h"
#include "pfade.h"
#include "pruefung.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "umbruchtext.h"
#include "zeile.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
QString hilfeSicherheit()
{
    return Sprache::text(u"Wie sicher sich das Modell bei diesem Vorschlag ist. Ein niedriger Wert heißt nicht falsch, "
                         "nur genauer hinsehen."_s);
}

} // namespace

Vorschlagsteil::Vorschlagsteil(Pruefung *pruefung, QWidget *eltern)
    : Pruefabschnitt(Sprache::text(u"Vorschlag"_s),
                     Sprache::text(u"Woher das Dokument kommt und wie es künftig heißen soll."_s), eltern),
      m_pruefung(pruefung), m_bisher(new Elidiertext(Qt::ElideMiddle)),
      m_bisherOrdner(new Elidiertext(Qt::ElideMiddle)), m_neu(new QWidget(this)), m_name(new Umbruchtext(m_neu)),
      m_pfad(new Umbruchtext(m_neu)), m_balken(new Balken(96)), m_prozent(new QLabel)
{
    m_bisherSchild = beschriftung(Sprache::text(u"Bisher"_s),
                                  Sprache::text(u"So heißt die Datei heute und dort liegt sie. Solange du nicht "
                                                "übernimmst, bleibt das auch so."_s),
                                  Qt::AlignTop);
    m_neuSchild = beschriftung(Sprache::text(u"Neuer Name"_s),
                               Sprache::text(u"So wird die Datei heißen und dorthin wandert sie, sobald du übernimmst. "
                                             "Beides rechnet sich aus den Feldern darunter."_s),
                               Qt::AlignTop);
    m_sicherheitSchild = beschriftung(Sprache::text(u"Sicherheit"_s), hilfeSicherheit(), Qt::AlignTop);
    teileBauen();
    anordnen();
    Stil::folgen(this, [this] { masse(); });
    for (const auto signal : {&Pruefung::aktuellesGeaendert, &Pruefung::angabenGeaendert})
        connect(m_pruefung, signal, this, &Vorschlagsteil::zeigen);
    zeigen();
}

void Vorschlagsteil::teileBauen()
{
    m_bisherZeile = zeile(this, {m_bisher, m_bisherOrdner});
    m_sicherheit = zeile(this, {m_balken, m_prozent});
    m_bisher->setObjectName(u"dateiname"_s);
    m_bisherOrdner->setObjectName(u"altOrdner"_s);
    m_name->setObjectName(u"neuerName"_s);
    m_pfad->setObjectName(u"zielpfad"_s);
    m_prozent->setObjectName(u"konfidenz"_s);
    m_bisher->setzeHilfe(m_bisherSchild->toolTip());
    m_bisherOrdner->setzeHilfe(m_bisherSchild->toolTip());
    m_name->setToolTip(m_neuSchild->toolTip());
    m_pfad->setToolTip(m_neuSchild->toolTip());
    m_prozent->setTextFormat(Qt::PlainText);
    auto *spalte = new QVBoxLayout(m_neu);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->setSpacing(0);
    spalte->addWidget(m_name);
    spalte->addWidget(m_pfad);
    spalte->addStretch(1);
    Stil::schriftFolgt(m_name, Schrift::Abschnitt);
    Stil::nebentext(m_bisherOrdner);
}

QStringList Vorschlagsteil::beschriftungen()
{
    return {Sprache::text(u"Bisher"_s), Sprache::text(u"Neuer Name"_s), Sprache::text(u"Sicherheit"_s)};
}

void Vorschlagsteil::anordnen()
{
    kopfAnordnen(m_dicht ? 2 : 4);
    m_raster->addWidget(m_bisherSchild, 2, 0);
    m_raster->addWidget(m_bisherZeile, 2, 1, 1, 3);
    m_raster->addWidget(m_neuSchild, 3, 0, Qt::AlignRight | Qt::AlignTop);
    m_raster->addWidget(m_neu, 3, 1, 1, 3);
    if (m_dicht) {
        m_raster->addWidget(m_sicherheitSchild, 0, 2, Qt::AlignRight | Qt::AlignVCenter);
        m_raster->addWidget(m_sicherheit, 0, 3);
    } else {
        m_raster->addWidget(m_sicherheitSchild, 4, 0);
        m_raster->addWidget(m_sicherheit, 4, 1, 1, 3);
    }
    m_balken->setVisible(!m_schmal);
    m_raster->setColumnStretch(1, 1);
    masse();
}

void Vorschlagsteil::masse()
{
    m_raster->setHorizontalSpacing(abstand(12));
    m_raster->setVerticalSpacing(abstand(m_dicht ? 4 : 8));
    const int zeilenhoehe = QFontMetrics(Stil::schrift(Schrift::Abschnitt)).lineSpacing();
    m_neu->setMinimumHeight(2 * zeilenhoehe + fontMetrics().lineSpacing() + 2);
    // The first line of the larger name and its label stand on one line.
    const int versatz = QFontMetrics(Stil::schrift(Schrift::Abschnitt)).ascent() - fontMetrics().ascent();
    m_neuSchild->setContentsMargins(0, std::max(0, versatz), 0, 0);
    Stil::setzeTextfarbe(m_pfad, Stil::verweis(palette()));
}

int Vorschlagsteil::volleHoehe() const
{
    return m_titel->sizeHint().height() + m_erklaerung->sizeHint().height() + 2 * fontMetrics().height() +
           m_neu->minimumHeight() + 4 * abstand(8);
}

void Vorschlagsteil::zeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    m_bisher->setzeText(d ? nameVon(d->pfad) : QString());
    const QString ordner = d ? d->altOrdner : QString();
    m_bisherOrdner->setzeText(ordner.isEmpty() && d ? Sprache::text(u"im Herkunftsordner"_s) : ordner);
    m_name->setzeText(m_pruefung->neuerName());
    m_pfad->setzeText(m_pruefung->zielpfad().join(u" › "_s));
    sicherheitZeigen();
}

void Vorschlagsteil::sicherheitZeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    const double anteil = d ? d->konfidenz : 0;
    const QString zahl = QString::number(qRound(anteil * 100));
    m_balken->setzeAnteil(anteil);
    m_prozent->setText(gefuellt(Sprache::text(u"%@ Prozent"_s), {zahl}));
    m_prozent->setAccessibleName(gefuellt(Sprache::text(u"Sicherheit %@ Prozent"_s), {zahl}));
    m_prozent->setToolTip(hilfeSicherheit());
    m_sicherheit->setToolTip(hilfeSicherheit());
}
} // namespace quillmar::pruefung
