#include "katalogstand.h"

#include "sprache.h"
#include "text.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
Katalograt katalograt(const QString &katalogfehler, const Katalogstand &stand)
{
    Katalograt rat;
    if (!katalogfehler.isEmpty())
        rat = {.satz = gefuellt(Sprache::text(u"Der Katalog lässt sich nicht öffnen: %@"_s), {katalogfehler}),
               .knopf = {},
               .nochmals = true};
    else if (stand.zugang == Zugang::Beschaedigt)
        rat.satz = Sprache::text(u"Der Katalog ist beschädigt und wird nur noch gelesen: Bis eine Sicherung eingesetzt "
                                 "ist, lässt sich nichts einsortieren. Deine Dokumente sind nicht davon betroffen. Was "
                                 "seit der Sicherung einsortiert wurde, wird aus den Protokollen nachgetragen."_s);
    if (!rat.satz.isEmpty() && !stand.sicherungen.isEmpty())
        rat.knopf = einsetzensatz(stand.sicherungen.first());
    return rat;
}

QString einsetzensatz(const Sicherung &sicherung)
{
    return gefuellt(Sprache::text(u"Sicherung vom %@ einsetzen"_s), {zeitpunkt(sicherung)});
}

QString zeitpunkt(const Sicherung &sicherung)
{
    return QLocale().toString(sicherung.zeit.toLocalTime(), Sprache::text(u"d. MMMM yyyy, HH:mm"_s));
}
} // namespace quillmar::zustand
