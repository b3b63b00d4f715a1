#include "stapel.h"

#include "transaktion.h"

using namespace std::chrono_literals;

namespace quillmar::katalog
{
namespace
{
constexpr int hoechstensSchreiben = 1000;
constexpr auto hoechstdauer = 40ms;
} // namespace

Stapel::Stapel(Datenbank &db) : m_db(db) {}

Stapel::~Stapel() = default;

void Stapel::naechstes()
{
    const bool voll = m_anzahl >= hoechstensSchreiben || std::chrono::steady_clock::now() - m_beginn > hoechstdauer;
    if (m_offen && voll)
        abschliessen();
    if (!m_offen) {
        m_offen = std::make_unique<Transaktion>(m_db);
        m_beginn = std::chrono::steady_clock::now();
        m_anzahl = 0;
    }
    ++m_anzahl;
}

void Stapel::abschliessen()
{
    if (m_offen)
        m_offen->abschliessen();
    m_offen.reset();
}
} // namespace quillmar::katalog
