#include "zielwurzel.h"

#include "bewegungen.h"
#include "pfade.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
QString wurzelVon(const Profil &profil) { return QDir::cleanPath(nfc(profil.zielWurzel)); }
} // namespace

void Zielwurzel::pruefen(Datenbank &db, const Profil &profil)
{
    if (profil.zielWurzel.isEmpty())
        throw Fehler(Sprache::text(u"Es ist noch kein Zielordner gewählt"_s));
    if (!istOrdner(wurzelVon(profil)))
        throw Fehler(gefuellt(Sprache::text(u"Der Zielordner ist nicht erreichbar: %@"_s), {profil.zielWurzel}));
    if (istAndere(db, profil))
        throw AndererZielordner(gefuellt(
            Sprache::text(u"Im Zielordner %@ liegt nichts von dem, was zuletzt dort einsortiert wurde. Ist der "
                          "Datenträger eingehängt?"_s),
            {profil.zielWurzel}));
}

bool Zielwurzel::istAndere(Datenbank &db, const Profil &profil)
{
    const QStringList letzte = Bewegungen(db).letzteZiele(wurzelVon(profil));
    return !letzte.isEmpty() && std::none_of(letzte.begin(), letzte.end(), istVorhanden);
}

void Zielwurzel::bestaetigen(Datenbank &db, const Profil &profil) { Bewegungen(db).umzugVermerken(wurzelVon(profil)); }
} // namespace quillmar::ablage
