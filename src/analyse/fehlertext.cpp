#include "fehlertext.h"

#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
constexpr QStringView nichtGelesen = u"Lesen nicht möglich";
constexpr QStringView nichtEingeordnet = u"Einordnung nicht möglich";

/** A reason that a run in German has stored; one in another language, or with a name in it, stays as it is. */
QString uebersetzt(const QString &rest)
{
    const QString strich = u": "_s;
    return rest.startsWith(strich) ? strich + Sprache::text(/* QUILLMAR_TEXT */ rest.mid(strich.size())) : rest;
}

QString mitGrund(QStringView anfang, const QString &grund) { return anfang.toString() + u": "_s + grund; }
} // namespace

QString Fehlertext::lesen(const QString &grund) { return mitGrund(nichtGelesen, grund); }

QString Fehlertext::einordnen(const QString &grund) { return mitGrund(nichtEingeordnet, grund); }

QString Fehlertext::grundDesLesens(const QString &fehler)
{
    const QString anfang = mitGrund(nichtGelesen, {});
    return fehler.startsWith(anfang) ? fehler.mid(anfang.size()) : QString();
}

QString Fehlertext::anzeige(const QString &fehler)
{
    if (fehler.startsWith(nichtGelesen))
        return Sprache::text(u"Lesen nicht möglich"_s) + uebersetzt(fehler.mid(nichtGelesen.size()));
    if (fehler.startsWith(nichtEingeordnet))
        return Sprache::text(u"Einordnung nicht möglich"_s) + uebersetzt(fehler.mid(nichtEingeordnet.size()));
    return fehler;
}
} // namespace quillmar::analyse
