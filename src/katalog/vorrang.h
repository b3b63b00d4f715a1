#pragma once

#include "namensraeume.h"
#include "sperrdatei.h"

#include <memory>

namespace quillmar::katalog
{
class Datenbank;

/**
 * The right to a work that goes through a whole catalogue, held while the object lives: one such work at a time, among
 * all programs. It is a lock on the file KATALOG.lauf, in which the holder notes what he is at.
 */
class Vorrang
{
public:
    enum class Art {
        Durchgang,
        Rueckbau, ///< a session is turned back
    };
    /** Null while another one has it. Throws Fehler when the catalogue can only be read. Does not wait. */
    [[nodiscard]] static std::shared_ptr<Vorrang> versuchen(const Datenbank &db, Art art);
    /** The same; throws Fehler that tells the user which work is under way. */
    [[nodiscard]] static std::shared_ptr<Vorrang> nehmen(const Datenbank &db, Art art);

    explicit Vorrang(Sperrdatei sperre) : m_sperre(std::move(sperre)) {}

private:
    Sperrdatei m_sperre;
};
} // namespace quillmar::katalog
