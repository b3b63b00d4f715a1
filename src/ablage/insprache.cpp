#include "insprache.h"

#include "plattenfehler.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

QString inSprache(const Fehler &fehler)
{
    const auto *platte = dynamic_cast<const Plattenfehler *>(&fehler);
    if (!platte)
        return fehler.text();
    const QString satz = Sprache::text(/* QUILLMAR_TEXT */ platte->satz());
    return platte->ursache().isEmpty() ? satz : satz + u": "_s + Sprache::text(/* QUILLMAR_TEXT */ platte->ursache());
}
