#include "selbstpruefung.h"

#include "ausgabe.h"
#include "sprache.h"

using namespace Qt::StringLiterals;
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
        return drucken(Sprache::text(u"\nSelbsttest bestanden"_s));
    drucken(Sprache::text(u"\nSelbsttest mit "_s) + QString::number(m_gescheitert.size()) +
            Sprache::text(u" Fehlern: "_s) + m_gescheitert.join(u", "_s));
}
