#include "fundzeiger.h"

#include "angabenfeld.h"
#include "einstellungen.h"
#include "pruefung.h"
#include "vorschau.h"

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
namespace
{
constexpr auto schluesselMarken = "vorschauMarken"_L1;

Markenton tonFuer(Feld feld)
{
    switch (feld) {
    case Feld::Datum:
        return Markenton::Datum;
    case Feld::Gegenueber:
        return Markenton::Gegenueber;
    default:
        return Markenton::Titel;
    }
}

Marke markeAus(const Seitenmarke &marke, Markenton ton, bool stark = false)
{
    return {.seite = marke.seite, .orte = marke.orte, .ton = ton, .stark = stark};
}

QList<Marke> unterschiede(const QList<Seitenmarke> &stellen)
{
    QList<Marke> marken;
    for (const Seitenmarke &stelle : stellen)
        marken << markeAus(stelle, Markenton::Unterschied, true); // often a single digit
    return marken;
}
} // namespace

Fundzeiger::Fundzeiger(Pruefung *pruefung, Seitenbelege *belege, Angabenfeld *angaben, Vorschau *vorschau,
                       QObject *eltern)
    : QObject(eltern), m_pruefung(pruefung), m_belege(belege), m_angaben(angaben), m_vorschau(vorschau)
{
    m_vorschau->setzeMarkenSichtbar(Einstellungen::wert(schluesselMarken, true).toBool());
    connect(m_vorschau, &Vorschau::markenSichtbarGeaendert, this,
            [](bool sichtbar) { Einstellungen::setzen(schluesselMarken, sichtbar); });
    connect(m_belege, &Seitenbelege::worteGeaendert, this, &Fundzeiger::worteZeigen);
    connect(m_belege, &Seitenbelege::partnerGeaendert, this, &Fundzeiger::worteZeigen);
    connect(m_belege, &Seitenbelege::belegeGeaendert, this, [this] {
        markenZeigen();
        hinsehen(); // the words may come later than the focus
    });
    connect(m_pruefung, &Pruefung::partnerZeigenGeaendert, this, &Fundzeiger::worteZeigen);
    connect(m_pruefung, &Pruefung::partnerZeigenGeaendert, this, &Fundzeiger::nehmenLassen);
    connect(m_pruefung, &Pruefung::angabenFestGeaendert, this, &Fundzeiger::nehmenLassen);
    connect(m_angaben, &Angabenfeld::vorgemerkt, this, &Fundzeiger::vormerken);
    connect(m_angaben, &Angabenfeld::fokusGewechselt, this, [this] {
        nehmenLassen();
        if (std::exchange(m_imFokus, m_angaben->nehmendes()) == m_imFokus)
            return;
        m_hingesehen = false;
        markenZeigen();
        hinsehen();
    });
    connect(m_vorschau, &Vorschau::seitenImBlick, m_belege, &Seitenbelege::imBlick);
    connect(m_vorschau, &Vorschau::genommen, m_angaben, &Angabenfeld::nehmen);
    worteZeigen(); // what is known already
}

void Fundzeiger::umschalten() { m_vorschau->setzeMarkenSichtbar(!m_vorschau->markenSichtbar()); }

void Fundzeiger::worteZeigen()
{
    if (m_pruefung->partnerZeigen())
        m_vorschau->setzeWorte(m_belege->partnerPfad(), m_belege->partnerWorte());
    else
        m_vorschau->setzeWorte(pfad(), m_belege->worte());
    markenZeigen();
}

void Fundzeiger::markenZeigen()
{
    if (m_pruefung->partnerZeigen())
        return m_vorschau->setzeMarken(m_belege->partnerPfad(), unterschiede(m_belege->unterschiede(true)));
    QList<Marke> marken = unterschiede(m_belege->unterschiede(false));
    for (const Seitenmarke &marke : m_belege->marken())
        marken << markeAus(marke, tonFuer(marke.feld), marke.feld == m_imFokus && !m_vorgemerkt);
    if (m_vorgemerkt)
        marken << markeAus(*m_vorgemerkt, Markenton::Angebot, true);
    m_vorschau->setzeMarken(pfad(), marken);
}

/** While no words are known, the document's own: those of the file that lay there before are nobody's. */
QString Fundzeiger::pfad() const
{
    const Dokument *dokument = m_pruefung->aktuelles();
    return m_belege->pfad().isEmpty() && dokument ? dokument->pfad : m_belege->pfad();
}

/** The words of a similar document are not those of this one. */
void Fundzeiger::nehmenLassen()
{
    m_vorschau->setzeNehmen(m_angaben->nehmendes().has_value() && !m_pruefung->partnerZeigen());
}

/** The passage of the field that has got the focus: once, what is typed moves nothing. */
void Fundzeiger::hinsehen()
{
    if (m_hingesehen || !m_imFokus || m_pruefung->partnerZeigen())
        return;
    for (const Seitenmarke &marke : m_belege->marken()) {
        if (marke.feld != m_imFokus)
            continue;
        m_hingesehen = true;
        return m_vorschau->hinsehen(markeAus(marke, tonFuer(marke.feld)));
    }
}

void Fundzeiger::vormerken(const std::optional<Seitenmarke> &marke)
{
    m_vorgemerkt = marke;
    markenZeigen();
    if (marke && !m_pruefung->partnerZeigen())
        m_vorschau->hinsehen(markeAus(*marke, Markenton::Angebot));
}
} // namespace quillmar::pruefung
