#include "selbstpruefung.h"

#include "ausgabe.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::app
{
using Ausgabe::drucken;

void Selbstpruefung::block(const QString &name) { drucken(u"\n=== "_s + name); }

void Selbstpruefung::pruefe(bool erfuellt, const QString &name)
{
    drucken((erfuellt ? u"  ok      "_s : u"  FEHLER  "_s) + name);
    if (!erfuellt)
        m_gescheitert << name;
}

void Selbstpruefung::ergebnis() const
{
    if (m_gescheitert.isEmpty())
        return drucken(u"\nSelbsttest bestanden"_s);
    drucken(gefuellt(u"\nSelbsttest mit %@ Fehlern: %@"_s,
                     {QString::number(m_gescheitert.size()), m_gescheitert.join(u", "_s)}));
}
} // namespace quillmar::app
