#pragma once

#include "namensraeume.h"

#include <chrono>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
class Transaktion;

/**
 * Many small writes of one step, put together into transactions that stay short, so that other threads get their turn.
 * For tight loops: between two writes the queue of the catalogue may be held.
 */
class Stapel
{
public:
    explicit Stapel(Datenbank &db);
    /** What was not closed by abschliessen() is rolled back. */
    ~Stapel();
    Stapel(const Stapel &) = delete;
    Stapel &operator=(const Stapel &) = delete;

    /** To be called before each write. Throws Katalogfehler when the catalogue cannot be written. */
    void naechstes();
    void abschliessen();

private:
    Datenbank &m_db;
    std::unique_ptr<Transaktion> m_offen;
    std::chrono::steady_clock::time_point m_beginn;
    int m_anzahl = 0;
};
} // namespace quillmar::katalog
