#pragma once

#include "namensraeume.h"

#include <QString>
#include <QStringList>

namespace quillmar::profil
{
/** The program's own folders below the target root, compared without regard to case; see Profil::eigeneOrdner(). */
class EigeneOrdner
{
public:
    explicit EigeneOrdner(const QStringList &ordner);

    /** @p pfad lies below the root, without "/" at its ends. */
    [[nodiscard]] bool enthaelt(const QString &pfad) const;

private:
    QStringList m_pfade;
    QStringList m_namen;
};
} // namespace quillmar::profil
