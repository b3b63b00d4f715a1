#include "nacharbeitsliste.h"

#include "elidiertext.h"
#include "flachknopf.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QGridLayout>
#include <QLabel>

using namespace Qt::StringLiterals;

namespace quillmar::ablauf
{
using Stil::abstand;
using Stil::Schrift;

namespace
{
constexpr int anfangs = 3;
constexpr int schub = 100; // rows that one press adds
} // namespace

Nacharbeitsliste::Nacharbeitsliste(const QString &name, QWidget *knopf, const QString &zeilenknopf, QWidget *eltern)
    : QWidget(eltern), m_titel(new QLabel(this)), m_knopf(knopf), m_zeilenknopf(zeilenknopf), m_gezeigte(anfangs)
{
    setObjectName(name);
    knopf->setParent(this);
    m_titel->setTextFormat(Qt::PlainText);
    m_mehr = new Flachknopf(name + u"-mehr"_s, Symbol::Plus, {}, Sprache::text(u"Zeigt weitere Zeilen"_s), this);
    m_mehr->setzeMitText(true);
    auto *kopf = new QHBoxLayout;
    kopf->addWidget(m_titel);
    kopf->addStretch(1);
    kopf->addWidget(m_knopf);
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addLayout(kopf);
    m_traeger = new QWidget(this);
    m_raster = new QGridLayout(m_traeger);
    m_raster->setContentsMargins(0, 0, 0, 0);
    m_raster->setColumnStretch(0, 3);
    m_raster->setColumnStretch(1, 4);
    spalte->addWidget(m_traeger);
    spalte->addWidget(m_mehr, 0, Qt::AlignLeft);
    connect(m_mehr, &QToolButton::clicked, this, [this] {
        m_gezeigte += schub;
        fuellen();
    });
    Stil::schriftFolgt(m_titel, Schrift::Abschnitt);
    Stil::folgen(this, [this, spalte] {
        spalte->setSpacing(abstand(4));
        m_raster->setHorizontalSpacing(abstand(16));
        m_raster->setVerticalSpacing(abstand(6));
    });
}

void Nacharbeitsliste::zeigen(const QString &titel, const QList<Zeile> &zeilen)
{
    m_titel->setText(titel);
    setVisible(!zeilen.isEmpty());
    if (zeilen == m_zeilen)
        return;
    m_zeilen = zeilen;
    fuellen();
}

void Nacharbeitsliste::setzeBedienbar(bool bedienbar)
{
    m_bedienbar = bedienbar;
    for (Flachknopf *knopf : m_traeger->findChildren<Flachknopf *>())
        knopf->setEnabled(bedienbar);
}

void Nacharbeitsliste::fuellen()
{
    while (QLayoutItem *teil = m_raster->takeAt(0)) {
        teil->widget()->hide();
        teil->widget()->deleteLater();
        delete teil;
    }
    const int anzahl = std::min<int>(m_gezeigte, int(m_zeilen.size()));
    for (int n = 0; n < anzahl; ++n)
        zeileBauen(n);
    const qsizetype rest = m_zeilen.size() - anzahl;
    m_mehr->setzeHilfe(gefuellt(Sprache::text(u"%@ weitere zeigen"_s), {QString::number(rest)}),
                       Sprache::text(u"Zeigt weitere Zeilen"_s));
    m_mehr->setVisible(rest > 0);
    m_mehr->updateGeometry();
}

void Nacharbeitsliste::zeileBauen(int stelle)
{
    const Zeile &zeile = m_zeilen.at(stelle);
    auto *name = new Elidiertext(Qt::ElideMiddle, m_traeger);
    name->setzeText(zeile.name);
    auto *bemerkung = new Elidiertext(Qt::ElideRight, m_traeger);
    bemerkung->setzeText(zeile.bemerkung);
    Stil::nebentext(bemerkung);
    m_raster->addWidget(name, stelle, 0);
    m_raster->addWidget(bemerkung, stelle, 1);
    if (m_zeilenknopf.isEmpty())
        return;
    auto *knopf = new Flachknopf(u"erneut-"_s + QString::number(zeile.id), Symbol::NeuLaden, m_zeilenknopf,
                                 m_zeilenknopf + u": "_s + zeile.name, m_traeger);
    knopf->setzeMitText(true);
    knopf->setEnabled(m_bedienbar);
    connect(knopf, &QToolButton::clicked, this, [this, id = zeile.id] { Q_EMIT gedrueckt(id); });
    m_raster->addWidget(knopf, stelle, 2, Qt::AlignRight);
}
} // namespace quillmar::ablauf
