#pragma once

#include "fehler.h"
#include "namensraeume.h"

#include <QString>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;

/** What the catalogue could not do, for the user; what it was about, for whoever looks for the fault. */
class Katalogfehler : public Fehler
{
public:
    Katalogfehler(const QString &text, QString ursache) : Fehler(text), m_ursache(std::move(ursache)) {}
    [[nodiscard]] const QString &ursache() const { return m_ursache; }

private:
    QString m_ursache;
};

/**
 * A profile's catalogue as a whole. What is in it is asked and changed through the classes of its tables; none of them
 * has a state of its own, so they are made where they are needed. All of them may be used from any thread; they throw
 * Katalogfehler when the catalogue cannot be asked or written.
 */
namespace Katalog
{
/** Opens the catalogue, or makes it; see Datenbank. Throws Fehler. */
[[nodiscard]] std::shared_ptr<Datenbank> oeffnen(const QString &pfad);
[[nodiscard]] const QString &pfad(const Datenbank &db);
/** It could not be opened for writing, or its disk is full. */
[[nodiscard]] bool nurLesen(const Datenbank &db);
/** The sentence for the user: it could not be written, whatever the reason. */
[[nodiscard]] QString nichtBeschreibbar();
/** Writes a copy to the new file @p ziel. Throws Fehler. */
void kopieren(Datenbank &db, const QString &ziel);
/** The version of SQLite in use. */
[[nodiscard]] QString sqliteFassung();
} // namespace Katalog
} // namespace quillmar::katalog
