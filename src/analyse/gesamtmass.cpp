#include "gesamtmass.h"

#include "sprache.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
QString Laufganzes::satz() const
{
    return gefuellt(Sprache::text(u"%@ von %@ Dokumenten fertig"_s),
                    {QString::number(fertig), QString::number(gesamt)});
}

QString Laufganzes::portionssatz() const
{
    if (von < 1)
        return {};
    return von == bis
               ? gefuellt(Sprache::text(u"Jetzt: Dokument %@"_s), {QString::number(von)})
               : gefuellt(Sprache::text(u"Jetzt: Dokumente %@ bis %@"_s), {QString::number(von), QString::number(bis)});
}

void Gesamtmass::portion(qsizetype umfang, qsizetype offene, qsizetype zuLesende)
{
    for (auto jetzt = m_jetzige.cbegin(); jetzt != m_jetzige.cend(); ++jetzt) {
        m_fruehere[jetzt.key()].dauer += jetzt->dauer;
        m_fruehere[jetzt.key()].fertig += jetzt->fertig;
    }
    m_jetzige = {{Stufenart::Lesen, {.dauer = {}, .fertig = 0, .offen = zuLesende}},
                 {Stufenart::Einordnen, {.dauer = {}, .fertig = 0, .offen = offene}}};
    m_gesamt = m_bis + offene;
    m_von = m_bis + 1;
    m_bis += umfang;
    m_dahinter = offene - umfang;
}

void Gesamtmass::messen(Stufenart art, std::chrono::duration<double> dauer, qsizetype fertig, qsizetype gesamt)
{
    Stufenmass &mass = m_jetzige[art];
    switch (art) {
    case Stufenart::Lesen:
        mass.offen = std::max<qsizetype>(0, mass.offen - (fertig - mass.fertig));
        break;
    case Stufenart::Einordnen:
        mass.offen = m_dahinter + gesamt - fertig; // the others of the portion turned out to be duplicates
        break;
    case Stufenart::Nachpruefen:
        mass.offen = gesamt - fertig;
        m_jetzige[Stufenart::Einordnen].offen = 0;
        m_von = m_bis = 0;
        break;
    case Stufenart::Sonstige:
        return;
    }
    mass.dauer = dauer;
    mass.fertig = fertig;
}

Stufenmass Gesamtmass::stufe(Stufenart art) const
{
    Stufenmass mass = m_jetzige.value(art);
    mass.dauer += m_fruehere.value(art).dauer;
    mass.fertig += m_fruehere.value(art).fertig;
    return mass;
}

Laufganzes Gesamtmass::ganzes() const
{
    const auto rest = restdauer({stufe(Stufenart::Lesen), stufe(Stufenart::Einordnen), stufe(Stufenart::Nachpruefen)});
    return {.fertig = m_gesamt - m_jetzige.value(Stufenart::Einordnen).offen,
            .gesamt = m_gesamt,
            .von = m_von,
            .bis = m_bis,
            .restzeit = rest ? restzeitText(*rest) : QString()};
}
} // namespace quillmar::analyse
