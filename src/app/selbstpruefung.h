#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QStringList>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::app
{
/** Prints each check of the self-test with its label and remembers what failed. */
class Selbstpruefung
{
public:
    void block(const QString &name);
    void pruefe(bool erfuellt, const QString &name);
    /** The closing line. */
    void ergebnis() const;

private:
    QStringList m_gescheitert;
};

/**
 * The block "Betriebsart": accepts all waiting documents in the profile's mode and turns the session back, with real
 * files. Works on copies: documents, catalogue and folders stay as they are.
 */
void betriebsartPruefen(Selbstpruefung &p, const std::shared_ptr<Datenbank> &db, const Profil &profil);
} // namespace quillmar::app
