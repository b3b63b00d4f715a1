#include "pruefabschnitt.h"

#include "stil.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quillmar::pruefung
{
Pruefabschnitt::Pruefabschnitt(const QString &titel, const QString &erklaerung, QWidget *eltern)
    : QWidget(eltern), m_raster(new QGridLayout(this)), m_kopf(new QWidget(this)), m_titel(new QLabel(titel, m_kopf)),
      m_erklaerung(new QLabel(erklaerung, m_kopf)), m_hilfe(erklaerung)
{
    m_raster->setContentsMargins(0, 0, 0, 0);
    m_erklaerung->setWordWrap(true);
    m_erklaerung->setTextFormat(Qt::PlainText);
    auto *kopf = new QVBoxLayout(m_kopf);
    kopf->setContentsMargins(0, 0, 0, 0);
    kopf->setSpacing(2);
    kopf->addWidget(m_titel);
    kopf->addWidget(m_erklaerung);
    Stil::schriftFolgt(m_titel, Stil::Schrift::Abschnitt);
    Stil::nebentext(m_erklaerung);
}

void Pruefabschnitt::setzeDicht(bool dicht, bool schmal)
{
    if (dicht == m_dicht && schmal == m_schmal)
        return;
    m_dicht = dicht;
    m_schmal = schmal;
    anordnen();
}

void Pruefabschnitt::setzeBeschriftungsbreite(int breite) { m_raster->setColumnMinimumWidth(0, breite); }

void Pruefabschnitt::kopfAnordnen(int spalten)
{
    while (QLayoutItem *teil = m_raster->takeAt(0))
        delete teil;
    m_erklaerung->setVisible(!m_dicht);
    m_titel->setToolTip(m_dicht ? m_hilfe : QString());
    m_raster->addWidget(m_kopf, 0, 0, 1, spalten);
}

QLabel *Pruefabschnitt::beschriftung(const QString &text, const QString &hilfe, Qt::Alignment senkrecht)
{
    auto *schild = new QLabel(text, this);
    schild->setAlignment(Qt::AlignRight | senkrecht);
    schild->setToolTip(hilfe);
    Stil::folgen(schild, [schild, this] { Stil::setzeTextfarbe(schild, Stil::nebenfarbe(palette())); });
    return schild;
}
} // namespace quillmar::pruefung
