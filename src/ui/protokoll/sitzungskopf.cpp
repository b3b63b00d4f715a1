#include "sitzungskopf.h"

#include "elidiertext.h"
#include "pfade.h"
#include "sprache.h"
#include "stil.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
using Stil::abstand;

namespace
{
QStringList namen()
{
    return {Sprache::text(u"Profil"_s),    Sprache::text(u"Rechner"_s),     Sprache::text(u"Herkunft"_s),
            Sprache::text(u"Ziel"_s),      Sprache::text(u"Betriebsart"_s), Sprache::text(u"Namensmuster"_s),
            Sprache::text(u"Pfadmuster"_s)};
}

QStringList werte(const Protokollkopf &k)
{
    return {k.profil,
            k.rechner,
            kurzpfad(k.quelle),
            kurzpfad(k.ziel),
            k.kopieren ? Sprache::text(u"Kopieren"_s) : Sprache::text(u"Verschieben"_s),
            k.namensVorlage,
            k.pfadVorlage};
}
} // namespace

Sitzungskopf::Sitzungskopf(QWidget *eltern)
    : QWidget(eltern), m_tafel(new QWidget(this)), m_kurz(new Elidiertext(Qt::ElideRight, this))
{
    setObjectName(u"sitzungskopf"_s);
    auto *raster = new QGridLayout(m_tafel);
    raster->setContentsMargins(0, 0, 0, 0);
    raster->setColumnStretch(1, 1);
    const QStringList beschriftungen = namen();
    for (int n = 0; n < beschriftungen.size(); ++n) {
        // In a sentence some languages write them small.
        auto *schild = new QLabel(beschriftungen.at(n).left(1).toUpper() + beschriftungen.at(n).mid(1), m_tafel);
        Stil::folgen(schild, [schild, this] { Stil::setzeTextfarbe(schild, Stil::nebenfarbe(palette())); });
        m_werte << new Elidiertext(Qt::ElideMiddle, m_tafel);
        raster->addWidget(schild, n, 0, Qt::AlignRight);
        raster->addWidget(m_werte.last(), n, 1);
    }
    auto *spalte = new QVBoxLayout(this);
    spalte->setContentsMargins(0, 0, 0, 0);
    spalte->addWidget(m_tafel);
    spalte->addWidget(m_kurz);
    m_kurz->hide();
    Stil::nebentext(m_kurz);
    Stil::folgen(m_tafel, [raster] {
        raster->setHorizontalSpacing(abstand(12));
        raster->setVerticalSpacing(abstand(3));
    });
}

void Sitzungskopf::zeigen(const std::optional<Protokollkopf> &kopf)
{
    const QStringList beschriftungen = namen();
    const QStringList neue = kopf ? werte(*kopf) : QStringList(beschriftungen.size());
    QStringList teile;
    for (int n = 0; n < neue.size(); ++n) {
        m_werte.at(n)->setzeText(neue.at(n).isEmpty() ? u"–"_s : neue.at(n));
        if (!neue.at(n).isEmpty())
            teile << beschriftungen.at(n) + u": "_s + neue.at(n);
    }
    m_kurz->setzeText(teile.join(u" · "_s));
}

void Sitzungskopf::setzeDicht(bool dicht)
{
    m_tafel->setVisible(!dicht);
    m_kurz->setVisible(dicht);
}

int Sitzungskopf::volleHoehe() const { return m_tafel->sizeHint().height(); }
} // namespace quillmar::protokoll
