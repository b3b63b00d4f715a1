#include "eigeneordner.h"

#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::profil
{
namespace
{
QString form(const QString &ordner) { return nfc(ordner).split(u'/', Qt::SkipEmptyParts).join(u'/').toLower(); }
} // namespace

EigeneOrdner::EigeneOrdner(const QStringList &ordner)
{
    for (const QString &einer : ordner)
        (einer.startsWith(u'/') ? m_pfade : m_namen) << form(einer);
}

bool EigeneOrdner::enthaelt(const QString &pfad) const
{
    const QString gesucht = form(pfad);
    return m_pfade.contains(gesucht) || m_namen.contains(gesucht.mid(gesucht.lastIndexOf(u'/') + 1));
}
} // namespace quillmar::profil
