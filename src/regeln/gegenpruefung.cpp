#include "gegenpruefung.h"

#include "rechnungsrichtung.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::regeln
{
namespace
{
QStringList woerter(const QString &name)
{
    return Rechnungsrichtung::vereinheitlichen(name).split(u' ', Qt::SkipEmptyParts);
}

/** Words that say nothing about whose name it is. */
bool istBedeutungslos(const QString &wort)
{
    static const QSet<QString> rechtsformen = {u"gmbh"_s, u"mbh"_s, u"ohg"_s, u"gbr"_s,
                                               u"ltd"_s,  u"inc"_s, u"und"_s, u"aktiengesellschaft"_s};
    return wort.size() <= 2 || rechtsformen.contains(wort);
}
} // namespace

Gegenpruefung::Gegenpruefung(const Profil &profil)
{
    for (const QString &name : profil.eigenkennungen()) {
        for (const QString &wort : woerter(name)) {
            if (!istBedeutungslos(wort))
                m_namen.insert(wort);
        }
    }
}

bool Gegenpruefung::istEigen(const QString &name) const
{
    if (name.isEmpty())
        return false;
    const QStringList teile = woerter(name);
    return std::any_of(teile.begin(), teile.end(), [this](const QString &wort) { return m_namen.contains(wort); });
}

QString Gegenpruefung::frage(const QString &text, const Profil &profil)
{
    return u"Der Eigentuemer dieser Ablage ist: "_s + profil.eigenkennungen().join(u", "_s) +
           u".\n\nNenne aus dem folgenden Dokumenttext die ANDERE Partei, also Absender oder\n"
           "Empfaenger, der nicht der Eigentuemer ist. Ausgeschrieben, ohne Rechtsform.\n"
           "Ist keine andere Partei erkennbar, antworte mit leerem Wert.\n\n"
           "Antworte ausschliesslich mit einem JSON-Objekt in genau dieser Form:\n"
           "{\"gegenueber\": \"Finanzamt Meissen\"}\n"
           "Oder, wenn es keine andere Partei gibt:\n"
           "{\"gegenueber\": \"\"}\n\nDokumenttext:\n\"\"\"\n"_s +
           ersteZeichen(text, profil.maxZeichen) + u"\n\"\"\""_s;
}
} // namespace quillmar::regeln
