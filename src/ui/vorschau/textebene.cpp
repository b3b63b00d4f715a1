#include "textebene.h"

#include "seitenordnung.h"

#include <utility>

namespace quillmar::vorschau
{
namespace
{
using Farben::Seitenton;

Seitenton seitenton(Markenton ton)
{
    switch (ton) {
    case Markenton::Datum:
        return Seitenton::Datum;
    case Markenton::Gegenueber:
        return Seitenton::Gegenueber;
    case Markenton::Titel:
        return Seitenton::Titel;
    case Markenton::Unterschied:
        return Seitenton::Unterschied;
    case Markenton::Angebot:
        break;
    }
    return Seitenton::Angebot;
}
} // namespace

Textebene::Datei &Textebene::datei(const QString &pfad)
{
    m_reihenfolge.removeAll(pfad);
    if (m_reihenfolge.size() > meisteDateien) {
        const auto aelteste = m_reihenfolge.first() == m_pfad ? m_reihenfolge.at(1) : m_reihenfolge.first();
        m_reihenfolge.removeAll(aelteste);
        m_dateien.remove(aelteste);
    }
    m_reihenfolge << pfad;
    return m_dateien[pfad];
}

void Textebene::setzeWorte(const QString &pfad, const QList<Seitenworte> &worte)
{
    if (m_dateien.value(pfad).worte == worte)
        return;
    datei(pfad).worte = worte;
    if (pfad != m_pfad)
        return;
    // What is selected stays where the words of further pages come.
    const QString bisher = m_auswahl ? m_karte.text(*m_auswahl) : QString();
    karteBauen();
    if (m_auswahl && m_karte.text(*m_auswahl) != bisher)
        m_auswahl.reset();
    Q_EMIT geaendert();
}

void Textebene::setzeMarken(const QString &pfad, const QList<Marke> &marken)
{
    if (m_dateien.value(pfad).marken == marken)
        return;
    datei(pfad).marken = marken;
    if (pfad != m_pfad)
        return;
    markenBauen();
    Q_EMIT geaendert();
}

void Textebene::setzeMarkenSichtbar(bool sichtbar)
{
    if (sichtbar != std::exchange(m_markenSichtbar, sichtbar))
        Q_EMIT geaendert();
}

void Textebene::zeigen(const QString &pfad, const QList<QSizeF> &groessen, const QMap<int, int> &drehungen)
{
    if (pfad == m_pfad && groessen == m_groessen && drehungen == m_drehungen)
        return;
    if (pfad != m_pfad) {
        m_auswahl.reset();
        m_treffer = {};
    }
    m_pfad = pfad;
    m_groessen = groessen;
    m_drehungen = drehungen;
    karteBauen();
    markenBauen();
    Q_EMIT geaendert();
}

QList<QRectF> Textebene::gesehen(int seite, const QList<QRectF> &orte) const
{
    QList<QRectF> gedrehte;
    for (const QRectF &ort : orte)
        gedrehte << gedreht(ort, m_drehungen.value(seite + 1));
    return gedrehte;
}

void Textebene::karteBauen()
{
    QList<Wortkarte> seiten;
    const QList<Seitenworte> worte = m_dateien.value(m_pfad).worte;
    for (int i = 0; i < worte.size(); ++i) {
        const QSizeF groesse = m_groessen.value(i, a4);
        seiten << Wortkarte(gedreht(worte.at(i), m_drehungen.value(i + 1)), groesse.width() / groesse.height());
    }
    m_karte = Textkarte(seiten);
    m_suche.reset();
    const auto bisher = m_treffer.jetziger();
    finden(bisher ? bisher->von : Wortort());
}

/** The strong ones lie above the others. */
void Textebene::markenBauen()
{
    m_marken.clear();
    const QList<Marke> marken = m_dateien.value(m_pfad).marken;
    for (const bool stark : {false, true}) {
        for (const Marke &marke : marken)
            if (marke.stark == stark)
                m_marken[marke.seite] << Auflage{gesehen(marke.seite, marke.orte), seitenton(marke.ton), stark};
    }
}

void Textebene::auswaehlen(const std::optional<Wortspanne> &auswahl, bool zumNehmen)
{
    m_zumNehmen = zumNehmen;
    if (auswahl != std::exchange(m_auswahl, auswahl))
        Q_EMIT geaendert();
}

void Textebene::suchen(const QString &anfrage, int abSeite)
{
    const auto bisher = m_treffer.jetziger();
    m_anfrage = anfrage;
    if (!m_suche)
        m_suche = Textsuche(m_karte); // ready for the first letter
    finden(bisher ? bisher->von : Wortort{abSeite, 0});
    Q_EMIT geaendert();
}

void Textebene::finden(const Wortort &ab)
{
    if (!m_anfrage.isEmpty() && !m_suche)
        m_suche = Textsuche(m_karte);
    m_treffer = m_anfrage.isEmpty() ? Treffer() : Treffer(m_suche->funde(m_anfrage), ab);
    Q_EMIT trefferGeaendert();
}

void Textebene::weitersuchen(int schritt)
{
    m_treffer.weiter(schritt);
    Q_EMIT trefferGeaendert();
    Q_EMIT geaendert();
}

QList<Auflage> Textebene::auflagen(int seite) const
{
    QList<Auflage> auflagen = m_markenSichtbar ? m_marken.value(seite) : QList<Auflage>();
    const auto jetziger = m_treffer.jetziger();
    for (const Wortspanne &fund : m_treffer.alle())
        if (fund.von.seite == seite)
            auflagen << Auflage{m_karte.orte(fund, seite), Seitenton::Treffer, fund == jetziger};
    if (m_auswahl)
        auflagen << Auflage{m_karte.orte(*m_auswahl, seite), m_zumNehmen ? Seitenton::Angebot : Seitenton::Auswahl,
                            true};
    return auflagen;
}
} // namespace quillmar::vorschau
