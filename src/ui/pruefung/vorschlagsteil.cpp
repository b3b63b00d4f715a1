#include "vorschlagsteil.h"

#include "bau.h"
#include "pfade.h"
#include "pruefung.h"
#include "sprache.h"
#include "text.h"
#include "textschild.h"

#include <QLabel>
#include <QProgressBar>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
Abschnittskopf::Abschnittskopf(const QString &titelwort, const QString &satz, QWidget *eltern)
    : titel(schild(titelwort, Schrift::Abschnitt)), erklaerung(bedienteile::erklaerung(satz))
{
    traeger = bedienteile::traeger(spalte({titel, erklaerung}, Abstand::Keiner), eltern);
}

void Abschnittskopf::setzeDicht(bool dicht) const
{
    erklaerung->setVisible(!dicht);
    titel->setToolTip(dicht ? erklaerung->ganzerText() : QString());
}

QLabel *beschriftung(const QString &text, const QString &hilfe, QWidget *eltern)
{
    QLabel *neue = schild(text, Schrift::Beschriftung);
    neue->setParent(eltern);
    neue->setToolTip(hilfe);
    return neue;
}

Vorschlagsteil::Vorschlagsteil(Pruefung *pruefung, QWidget *eltern)
    : QObject(eltern), m_pruefung(pruefung),
      m_kopf(Sprache::text(u"Vorschlag"_s),
             Sprache::text(u"Woher das Dokument kommt und wie es künftig heißen soll."_s), eltern),
      m_bisherSchild(beschriftung(Sprache::text(u"Bisher"_s),
                                  Sprache::text(u"So heißt die Datei heute und dort liegt sie. Solange du nicht "
                                                "übernimmst, bleibt das auch so."_s),
                                  eltern)),
      m_neuSchild(beschriftung(Sprache::text(u"Neuer Name"_s),
                               Sprache::text(u"So wird die Datei heißen und dorthin wandert sie, sobald du übernimmst. "
                                             "Beides rechnet sich aus den Feldern darunter."_s),
                               eltern)),
      m_sicherheitSchild(
          beschriftung(Sprache::text(u"Sicherheit"_s),
                       Sprache::text(u"Wie sicher sich das Modell bei diesem Vorschlag ist. Ein niedriger "
                                     "Wert heißt nicht falsch, nur genauer hinsehen."_s),
                       eltern)),
      m_bisher(new Textschild(Textschild::Art::KurzMitte, Schrift::Grund, u"dateiname"_s)),
      m_bisherOrdner(new Textschild(Textschild::Art::KurzMitte, Schrift::Neben, u"altOrdner"_s)),
      m_bisherZeile(traeger(reihe({m_bisher, m_bisherOrdner, Teil::rest()}), eltern)),
      m_name(new Textschild(Textschild::Art::Umbruch, Schrift::Abschnitt, u"neuerName"_s)),
      m_pfad(new Textschild(Textschild::Art::Umbruch, Schrift::Verweis, u"zielpfad"_s)),
      m_neu(traeger(spalte({m_name, m_pfad, Teil::rest()}, Abstand::Keiner), eltern)), m_balken(balken({}, 96)),
      m_prozent(schild({}, Schrift::Grund, u"konfidenz"_s)),
      m_sicherheit(traeger(reihe({m_balken, m_prozent, Teil::rest()}), eltern))
{
    for (Textschild *text : {m_bisher, m_bisherOrdner})
        text->setzeHilfe(m_bisherSchild->toolTip());
    for (Textschild *text : {m_name, m_pfad})
        text->setzeHilfe(m_neuSchild->toolTip());
    m_prozent->setToolTip(m_sicherheitSchild->toolTip());
    m_sicherheit->setToolTip(m_sicherheitSchild->toolTip());
    Stil::folgen(m_neu, [this] {
        const QFontMetrics gross(Stil::schrift(Schrift::Abschnitt));
        const QFontMetrics grund(Stil::schrift(Schrift::Grund));
        m_neu->setMinimumHeight(2 * gross.lineSpacing() + grund.lineSpacing() + 2);
        // The first line of the larger name and its label stand on one line.
        m_neuSchild->setContentsMargins(0, std::max(0, gross.ascent() - grund.ascent()), 0, 0);
    });
    for (const auto signal : {&Pruefung::aktuellesGeaendert, &Pruefung::angabenGeaendert})
        connect(m_pruefung, signal, this, &Vorschlagsteil::zeigen);
    zeigen();
}

/** Short of height, certainty stands beside the title. */
void Vorschlagsteil::legen(QGridLayout *raster, int zeile, const Platz &platz)
{
    m_kopf.setzeDicht(platz.dicht);
    m_balken->setVisible(!platz.schmal);
    raster->addWidget(m_kopf.traeger, zeile, 0, 1, platz.dicht ? 2 : 4);
    raster->addWidget(m_bisherSchild, zeile + 1, 0, Qt::AlignRight);
    raster->addWidget(m_bisherZeile, zeile + 1, 1, 1, 3);
    raster->addWidget(m_neuSchild, zeile + 2, 0, Qt::AlignRight | Qt::AlignTop);
    raster->addWidget(m_neu, zeile + 2, 1, 1, 3);
    raster->addWidget(m_sicherheitSchild, platz.dicht ? zeile : zeile + 3, platz.dicht ? 2 : 0, Qt::AlignRight);
    raster->addWidget(m_sicherheit, platz.dicht ? zeile : zeile + 3, platz.dicht ? 3 : 1, 1, platz.dicht ? 1 : 3);
}

void Vorschlagsteil::zeigen()
{
    const Dokument *d = m_pruefung->aktuelles();
    m_bisher->setzeText(d ? nameVon(d->pfad) : QString());
    const QString ordner = d ? d->altOrdner : QString();
    m_bisherOrdner->setzeText(ordner.isEmpty() && d ? Sprache::text(u"im Herkunftsordner"_s) : ordner);
    m_name->setzeText(m_pruefung->neuerName());
    m_pfad->setzeText(m_pruefung->zielpfad().join(u" › "_s));
    const double anteil = d ? d->konfidenz : 0;
    const QString zahl = QString::number(qRound(anteil * 100));
    setzeAnteil(m_balken, anteil);
    m_prozent->setText(gefuellt(Sprache::text(u"%@ Prozent"_s), {zahl}));
    m_prozent->setAccessibleName(gefuellt(Sprache::text(u"Sicherheit %@ Prozent"_s), {zahl}));
    m_balken->setAccessibleName(m_prozent->accessibleName());
}
} // namespace quillmar::pruefung
