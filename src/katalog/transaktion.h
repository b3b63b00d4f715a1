#pragma once

#include "namensraeume.h"

namespace quillmar::katalog
{
class Datenbank;

/**
 * One transaction on the catalogue. Holds its queue, so that no other thread's statement slips in; keep it under 50 ms.
 * Rolls back unless abschliessen() was called.
 */
class Transaktion
{
public:
    /** Throws Katalogfehler when the catalogue cannot be written, or stays locked by another program for a minute. */
    explicit Transaktion(Datenbank &db);
    ~Transaktion();
    Transaktion(const Transaktion &) = delete;
    Transaktion &operator=(const Transaktion &) = delete;

    /** Writes what was done to the disk. Throws Katalogfehler when that fails; nothing of it is stored then. */
    void abschliessen();

private:
    Datenbank &m_db;
    bool m_innere = false; ///< inside another transaction of this thread: a savepoint of that one
    bool m_offen = true;
};
} // namespace quillmar::katalog
