#include "stapel.h"

#include "datenbank.h"
#include "transaktion.h"

using namespace std::chrono_literals;

namespace
{
constexpr int hoechstensSchreiben = 1000;
constexpr auto hoechstdauer = 40ms;
} // namespace

Stapel::Stapel(Datenbank &db) : m_db(db) {}

Stapel::~Stapel() = default;

int Stapel::schreiben(const QString &sql, const QVariantList &parameter)
{
    if (!m_offen) {
        m_offen = std::make_unique<Transaktion>(m_db);
        m_beginn = std::chrono::steady_clock::now();
        m_anzahl = 0;
    }
    if (m_db.ausfuehren(sql, parameter) != 0)
        m_offen->scheitern();
    const int geaendert = m_db.geaendert();
    if (++m_anzahl >= hoechstensSchreiben || std::chrono::steady_clock::now() - m_beginn > hoechstdauer)
        abschliessen();
    return geaendert;
}

void Stapel::abschliessen()
{
    if (m_offen)
        m_offen->abschliessen();
    m_offen.reset();
}
