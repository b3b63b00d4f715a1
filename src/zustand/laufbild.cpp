#include "laufbild.h"

#include "sprache.h"

#include <QMap>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
using std::chrono::duration_cast;
using std::chrono::milliseconds;

namespace
{
struct Schritt {
    int stufe;
    QString name;
};

/** The steps that a run publishes and the stage each belongs to; the first of a stage gives it its name. */
const QList<Schritt> &schritte()
{
    static const QList<Schritt> alle = {
        {0, QUILLMAR_TEXT(u"Bestand aufnehmen"_s)},   {0, QUILLMAR_TEXT(u"Gleiche Dateien suchen"_s)},
        {1, QUILLMAR_TEXT(u"Text lesen"_s)},          {1, QUILLMAR_TEXT(u"Ähnliche Dokumente suchen"_s)},
        {2, QUILLMAR_TEXT(u"Dokumente einordnen"_s)}, {3, QUILLMAR_TEXT(u"Strittige Fälle nachprüfen"_s)},
    };
    return alle;
}

int stufeVon(const QString &schritt)
{
    for (const Schritt &s : schritte()) {
        if (s.name == schritt)
            return s.stufe;
    }
    return -1;
}
} // namespace

Laufbild::Laufbild()
{
    for (const Schritt &s : schritte()) {
        if (s.stufe == m_stufen.size())
            m_stufen << Stufenbild{.stand = {}, .name = s.name, .meldung = {}, .dauer = {}};
    }
}

void Laufbild::beginnen(Zeitpunkt jetzt)
{
    *this = Laufbild();
    m_gelaufen = true;
    m_laeuft = true;
    m_beginn = jetzt;
}

void Laufbild::stufeBeginnen(int stufe, Zeitpunkt jetzt)
{
    if (m_stufe >= 0)
        m_stufen[m_stufe].dauer += duration_cast<milliseconds>(jetzt - m_stufenbeginn);
    for (int n = std::max(0, m_stufe); n < stufe; ++n)
        m_stufen[n].stand = Stufenbild::Stand::Fertig; // one that went by too fast to be seen as well
    for (int n = stufe; n <= m_stufe; ++n) {
        m_stufen[n].stand = Stufenbild::Stand::Offen;
        m_stufen[n].meldung.clear();
    }
    m_stufe = stufe;
    m_stufenbeginn = jetzt;
    m_fruehere.clear();
    m_stufen[stufe].stand = Stufenbild::Stand::Laeuft;
}

void Laufbild::nehmen(const QString &schritt, const QString &meldung, Zeitpunkt jetzt)
{
    const int stufe = stufeVon(schritt);
    if (stufe < 0 || !m_laeuft)
        return;
    if (stufe != m_stufe)
        stufeBeginnen(stufe, jetzt);
    else if (schritt != m_schritt && !m_stufen.at(stufe).meldung.isEmpty())
        m_fruehere = {m_stufen.at(stufe).meldung};
    m_schritt = schritt;
    QStringList teile = m_fruehere;
    if (!meldung.isEmpty())
        teile << meldung;
    m_stufen[stufe].meldung = teile.join(u" · "_s);
}

void Laufbild::enden(bool abgeschlossen, Zeitpunkt jetzt)
{
    m_laeuft = false;
    m_ende = jetzt;
    if (m_stufe < 0)
        return;
    Stufenbild &letzte = m_stufen[m_stufe];
    letzte.dauer += duration_cast<milliseconds>(jetzt - m_stufenbeginn);
    letzte.stand = abgeschlossen ? Stufenbild::Stand::Fertig : Stufenbild::Stand::Offen;
}

void Laufbild::offenLassen(const QStringList &schritte)
{
    for (const QString &schritt : schritte) {
        if (const int stufe = stufeVon(schritt); stufe >= 0)
            m_stufen[stufe].stand = Stufenbild::Stand::Offen;
    }
}

void Laufbild::zusammenfassen(const QList<std::pair<QString, QString>> &ergebnisse)
{
    QMap<int, QStringList> saetze;
    for (const auto &[schritt, satz] : ergebnisse) {
        if (const int stufe = stufeVon(schritt); stufe >= 0)
            saetze[stufe] << satz;
    }
    for (auto s = saetze.cbegin(); s != saetze.cend(); ++s)
        m_stufen[s.key()].meldung = s->join(u" · "_s);
}

std::chrono::milliseconds Laufbild::dauer(Zeitpunkt jetzt) const
{
    return m_gelaufen ? duration_cast<milliseconds>((m_laeuft ? jetzt : m_ende) - m_beginn) : milliseconds();
}
} // namespace quillmar::zustand
