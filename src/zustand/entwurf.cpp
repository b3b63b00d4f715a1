#include "entwurf.h"

#include "einordnung.h"

namespace
{
QString Dokument::*stelle(Feld feld)
{
    switch (feld) {
    case Feld::Datum:
        return &Dokument::datum;
    case Feld::Gegenueber:
        return &Dokument::gegenueber;
    case Feld::Titel:
        return &Dokument::titel;
    case Feld::Zweig:
        return &Dokument::zweig;
    case Feld::Ablage:
        return &Dokument::ablage;
    case Feld::Jahr:
        return &Dokument::jahr;
    case Feld::Rubrik:
        break;
    }
    return &Dokument::rubrik;
}
} // namespace

QString feldwert(const Dokument &dokument, Feld feld) { return dokument.*stelle(feld); }

void Entwurf::schreiben(Dokument &dokument, Feld feld, const QString &wert)
{
    if (feldwert(dokument, feld) == wert)
        return;
    dokument.*stelle(feld) = wert;
    m_werte[feld] = wert;
}

void Entwurf::setzen(Dokument &dokument, Feld feld, const QString &wert, const Profil &profil)
{
    if (feldwert(dokument, feld) == wert)
        return;
    schreiben(dokument, feld, wert);
    const QString tag = wert.trimmed();
    if (feld == Feld::Jahr)
        m_jahrVonHand = true;
    if (feld == Feld::Datum && !m_jahrVonHand && (tag.isEmpty() || Einordnung::istDatum(tag)))
        schreiben(dokument, Feld::Jahr, tag.left(4));
    if (feld != Feld::Zweig && feld != Feld::Ablage)
        return;
    const Ablageart *art = profil.ablageart(dokument.zweig, dokument.ablage);
    if (!art)
        schreiben(dokument, Feld::Ablage, {});
    if (!art || !art->rubriken.contains(dokument.rubrik))
        schreiben(dokument, Feld::Rubrik, {});
}

void Entwurf::ortSetzen(Dokument &dokument, const Ort &ort, const QString &jahr)
{
    schreiben(dokument, Feld::Zweig, ort.zweig);
    schreiben(dokument, Feld::Ablage, ort.ablage);
    schreiben(dokument, Feld::Rubrik, ort.rubrik);
    if (jahr.isEmpty())
        return;
    schreiben(dokument, Feld::Jahr, jahr);
    m_jahrVonHand = true;
}

void Entwurf::anwenden(Dokument &dokument) const
{
    for (auto it = m_werte.begin(); it != m_werte.end(); ++it)
        dokument.*stelle(it.key()) = it.value();
}
