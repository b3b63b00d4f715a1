#include "auftragsreihe.h"

#include <algorithm>
#include <utility>

namespace quillmar::seiten
{
void Auftragsreihe::auftragen(const Malauftrag &auftrag)
{
    m_auftraege.removeIf([&auftrag](const Malauftrag &anderer) {
        return anderer.kennung == auftrag.kennung && anderer.seite == auftrag.seite;
    });
    const auto stelle =
        std::upper_bound(m_auftraege.begin(), m_auftraege.end(), auftrag.vorrang,
                         [](Vorrang vorrang, const Malauftrag &anderer) { return vorrang < anderer.vorrang; });
    m_auftraege.insert(stelle, auftrag);
}

bool Auftragsreihe::wartet(const Malauftrag &auftrag) const
{
    return std::any_of(m_auftraege.begin(), m_auftraege.end(), [&auftrag](const Malauftrag &anderer) {
        return anderer.kennung == auftrag.kennung && anderer.seite == auftrag.seite;
    });
}

void Auftragsreihe::nochmals(const Malauftrag &auftrag)
{
    if (wartet(auftrag))
        return;
    const auto stelle =
        std::lower_bound(m_auftraege.begin(), m_auftraege.end(), auftrag.vorrang,
                         [](const Malauftrag &anderer, Vorrang vorrang) { return anderer.vorrang < vorrang; });
    m_auftraege.insert(stelle, auftrag);
}

void Auftragsreihe::spaeter(Malauftrag auftrag)
{
    if (wartet(auftrag))
        return;
    auftrag.vorrang = std::exchange(auftrag.unterbrochen, true) ? Vorrang::Ruht : Vorrang::Nachbar;
    auftragen(auftrag);
}

void Auftragsreihe::vorziehen(quint64 kennung, int seite, Vorrang vorrang)
{
    const auto gefunden = std::find_if(m_auftraege.begin(), m_auftraege.end(), [kennung, seite](const Malauftrag &a) {
        return a.kennung == kennung && a.seite == seite;
    });
    if (gefunden == m_auftraege.end() || gefunden->vorrang <= vorrang)
        return;
    Malauftrag auftrag = *gefunden;
    auftrag.vorrang = vorrang;
    auftragen(auftrag);
}

void Auftragsreihe::zuruecksetzen(quint64 kennung)
{
    const auto gefunden = std::find_if(m_auftraege.begin(), m_auftraege.end(),
                                       [kennung](const Malauftrag &a) { return a.kennung == kennung && a.seite < 0; });
    if (gefunden == m_auftraege.end() || gefunden->vorrang >= Vorrang::Nachbar)
        return;
    Malauftrag auftrag = *gefunden;
    auftrag.vorrang = Vorrang::Nachbar;
    auftragen(auftrag);
}

void Auftragsreihe::verwerfen(quint64 kennung, int abSeite)
{
    m_auftraege.removeIf([kennung, abSeite](const Malauftrag &auftrag) {
        return auftrag.kennung == kennung && auftrag.seite >= abSeite;
    });
}

Vorrang Auftragsreihe::hoechster() const { return m_auftraege.isEmpty() ? Vorrang::Ruht : m_auftraege.first().vorrang; }

std::optional<Malauftrag> Auftragsreihe::naechster()
{
    return hoechster() == Vorrang::Ruht ? std::nullopt : std::optional(m_auftraege.takeFirst());
}

QList<Malauftrag> Auftragsreihe::alle() { return std::exchange(m_auftraege, {}); }
} // namespace quillmar::seiten
