#include "zielwurzel.h"

#include "datenbank.h"
#include "pfade.h"
#include "sprache.h"
#include "stapel.h"
#include "text.h"
#include "zeit.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
QString wurzelVon(const Profil &profil) { return QDir::cleanPath(nfc(profil.zielWurzel)); }

/** Where the last documents were filed below @p wurzel, newest first. */
QList<Zeile> letzte(Datenbank &db, const QString &wurzel)
{
    const QString davor = wurzel + u'/';
    return db.abfragen(u"SELECT nach_pfad FROM protokoll WHERE rueckgaengig=0\n"
                       "AND id>coalesce((SELECT bis_protokoll FROM umgezogen WHERE ziel=?),0)\n"
                       "AND substr(nach_pfad,1,length(?))=? ORDER BY id DESC LIMIT 20"_s,
                       {wurzel, davor, davor});
}
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
    const QList<Zeile> zeilen = letzte(db, wurzelVon(profil));
    return !zeilen.isEmpty() && std::none_of(zeilen.begin(), zeilen.end(),
                                             [](const Zeile &z) { return istVorhanden(z.text(u"nach_pfad")); });
}

void Zielwurzel::bestaetigen(Datenbank &db, const Profil &profil)
{
    Stapel stapel(db);
    stapel.schreiben(u"INSERT OR REPLACE INTO umgezogen (ziel, bis_protokoll, zeit)\n"
                     "SELECT ?, coalesce(MAX(id),0), ? FROM protokoll"_s,
                     {wurzelVon(profil), jetztIso()});
    stapel.abschliessen();
}
