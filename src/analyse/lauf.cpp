#include "lauf.h"

#include "ollama.h"
#include "restzeit.h"
#include "sprache.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
QString Laufhindernis::satz() const
{
    switch (art) {
    case Art::ErstesModellFehlt:
        return gefuellt(Sprache::text(u"Das Modell %@ fehlt. Was noch nicht eingeordnet ist, wartet auf den nächsten "
                                      "Durchgang."_s),
                        {modell});
    case Art::ModellFehlt:
        return gefuellt(Sprache::text(u"Das Modell %@ fehlt. Damit wurde nichts nachgeprüft."_s), {modell});
    case Art::ModellAnderswo:
        return ModellAnderswo::satz(modell) + u'.';
    case Art::ServerWeg:
        break;
    }
    return Sprache::text(u"Der Modellserver ollama läuft nicht mehr. Was danach kam, blieb unbeantwortet."_s);
}

Lauf::Lauf(std::shared_ptr<Datenbank> db, Profil profil, std::function<bool()> halt, std::stop_token ende,
           Melden melden)
    : m_db(std::move(db)), m_profil(std::move(profil)), m_halt(std::move(halt)), m_ende(std::move(ende)),
      m_melden(std::move(melden)), m_beginn(std::chrono::steady_clock::now())
{
}

void Lauf::portionBeginnen(const Portion &portion)
{
    m_portion = QSet<qint64>(portion.dokumente.begin(), portion.dokumente.end());
    m_mass.portion(portion.dokumente.size(), portion.offene, portion.zuLesende);
    m_stand.ganzes = portion.istTeil ? m_mass.ganzes() : Laufganzes();
}

QList<qint64> Lauf::inPortion(QList<qint64> offene) const
{
    if (m_portion)
        offene.removeIf([this](qint64 id) { return !m_portion->contains(id); });
    return offene;
}

void Lauf::stufe(const QString &name, Stufenart art)
{
    m_beginn = std::chrono::steady_clock::now();
    m_art = art;
    m_stand = {.stufe = name,
               .meldung = {},
               .restzeit = {},
               .anteil = 0,
               .dokument = {},
               .dokumente = m_stand.dokumente,
               .ganzes = m_stand.ganzes};
    m_melden(m_stand);
}

void Lauf::meldung(const QString &text)
{
    m_stand.meldung = text;
    m_melden(m_stand);
}

void Lauf::dokument(const QString &name)
{
    m_stand.dokument = name;
    ++m_stand.dokumente;
    m_melden(m_stand);
}

void Lauf::fortschritt(const QString &text, qsizetype fertig, qsizetype gesamt)
{
    m_stand.meldung = text;
    m_stand.dokument.clear();
    m_stand.anteil = gesamt > 0 ? double(fertig) / double(gesamt) : 1;
    const std::chrono::duration<double> vergangen = std::chrono::steady_clock::now() - m_beginn;
    m_stand.restzeit = restzeitText(vergangen, fertig, gesamt);
    m_mass.messen(m_art, vergangen, fertig, gesamt);
    if (m_stand.ganzes.inPortionen())
        m_stand.ganzes = m_mass.ganzes();
    m_melden(m_stand);
}

void Lauf::hindernis(Laufhindernis::Art art, const QString &modell)
{
    const Laufhindernis neu{.art = art, .modell = modell};
    if (!m_fazit.hindernisse.contains(neu))
        m_fazit.hindernisse << neu;
    if (!m_fazit.behinderte.contains(m_stand.stufe))
        m_fazit.behinderte << m_stand.stufe;
}

void Lauf::gescheitert(const QString &grund)
{
    auto &liste = m_fazit.gescheiterte;
    const auto bekannt = std::find_if(liste.begin(), liste.end(), [&](const auto &g) { return g.first == grund; });
    if (bekannt == liste.end())
        liste << std::pair(grund, 1);
    else
        ++bekannt->second;
}
} // namespace quillmar::analyse
