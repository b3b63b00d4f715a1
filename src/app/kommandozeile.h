#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QStringList>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
class Ablagewerk;
} // namespace quillmar::ablage

namespace quillmar::app
{
/** The console mode: works on one profile's catalogue without a window and prints German text. */
namespace Kommandozeile
{
/** One of @p argumente is a console command. */
[[nodiscard]] bool istGemeint(const QStringList &argumente);

/** The argument behind @p name, whatever it is; none when @p name is missing or the last one. */
[[nodiscard]] std::optional<QString> wert(const QStringList &argumente, const QString &name);

/** Runs the command that @p argumente (the program's path first) name. Failures are printed; nothing is thrown. */
void laufen(const QStringList &argumente);

/** Figures of the catalogue by status. */
void bestandDrucken(const Ablagewerk &werk);
/** Quality of the waiting proposals; prints nothing when none waits. */
void bericht(Datenbank &db, const Ablagewerk &werk);
/** Learned places, and with @p anwenden their application to the waiting documents. */
void gelernt(Datenbank &db, const Profil &profil, bool anwenden);
/** What the filing tree would teach; with @p anwenden it is learned. No waiting document is touched. Throws Fehler. */
void ausAblage(Datenbank &db, const Profil &profil, bool anwenden);

/** The profile's model is on the server; says why no run takes place where it is not. */
[[nodiscard]] bool modellDa(const Profil &profil);
/** Runs the analysis to its end or to the second Ctrl+C; @p erneut first reopens what failed. */
void analysieren(const std::shared_ptr<Datenbank> &db, const Profil &profil, bool erneut);

/** Has the model name the other party where the counterpart is the owner; @p nurZeigen only counts. */
void gegenueberBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen);
/** Applies the invoice rule to the waiting documents; @p nurZeigen only lists. */
void rechnungenBerichtigen(Datenbank &db, const Profil &profil, bool nurZeigen);

/** The built-in self-test; leaves the catalogue as it was. Refuses catalogues of more than 50 documents. */
void selbsttest(const std::shared_ptr<Datenbank> &db, const Profil &profil);
} // namespace Kommandozeile
} // namespace quillmar::app
