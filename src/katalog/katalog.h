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

/** What may be done with an open catalogue. */
enum class Zugang {
    Schreiben,
    Unbeschreibbar, ///< it cannot be written, or its disk is full
    Ungesichert,    ///< its form would have to be changed, and there is no room for a copy of it as it is
    Beschaedigt,    ///< what stands in it can no longer be trusted
};

/**
 * A profile's catalogue as a whole. What is in it is asked and changed through the classes of its tables; none of them
 * has a state of its own, so they are made where they are needed. All of them may be used from any thread; they throw
 * Katalogfehler when the catalogue cannot be asked or written.
 */
namespace Katalog
{
/** When it is looked at whether the file is whole, before anything is done with it. */
enum class Vorpruefung { NachAbsturz, Immer };
/** Opens the catalogue, or makes it; see Datenbank. A damaged one is opened for reading. Throws Fehler. */
[[nodiscard]] std::shared_ptr<Datenbank> oeffnen(const QString &pfad, Vorpruefung pruefung = Vorpruefung::NachAbsturz);
/** The same for a file that is not in use yet: nothing is looked at, and no copy is made whatever its form. */
[[nodiscard]] std::shared_ptr<Datenbank> ungesichertOeffnen(const QString &pfad);
[[nodiscard]] const QString &pfad(const Datenbank &db);
/** The file beside the catalogue @p pfad in which movements are announced. */
[[nodiscard]] QString absichtsdatei(const QString &pfad);
[[nodiscard]] Zugang zugang(const Datenbank &db);
[[nodiscard]] bool nurLesen(const Datenbank &db);
/** It was seen to be damaged: from now on it is only read, by other programs too. */
void sperren(Datenbank &db);
/** Why it is open for reading only; empty where it is not. */
[[nodiscard]] QString nurLesenSatz(const Datenbank &db);
/** It was made just now though there are copies of one; empty otherwise. */
[[nodiscard]] QString neuanfangSatz(const Datenbank &db);
/** The sentence for the user: it could not be written. */
[[nodiscard]] QString schreibmangel(const Datenbank &db);
/** Writes a copy to the new file @p ziel. Throws Fehler. */
void kopieren(Datenbank &db, const QString &ziel);
/** The version of SQLite in use. */
[[nodiscard]] QString sqliteFassung();
} // namespace Katalog
} // namespace quillmar::katalog
