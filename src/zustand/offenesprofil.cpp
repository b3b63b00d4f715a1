#include "offenesprofil.h"

#include "analyse.h"

namespace quillmar::zustand
{
OffenesProfil::OffenesProfil(const Profil &profil, std::shared_ptr<Datenbank> db)
    : m_profil(profil), m_db(std::move(db)), m_analyse(std::make_unique<Analyse>(m_db, m_profil))
{
}

OffenesProfil::~OffenesProfil() = default;

std::unique_ptr<Analyse> OffenesProfil::analyseAbgeben() { return std::move(m_analyse); }
} // namespace quillmar::zustand
