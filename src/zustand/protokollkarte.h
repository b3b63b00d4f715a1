#pragma once

#include "bilanz.h"
#include "meldestelle.h"
#include "namensraeume.h"
#include "profil.h"
#include "protokollzeile.h"
#include "sitzungsbilder.h"

/** What the log card says in each of its states. */
namespace quillmar::zustand
{
class Sitzungen;
class Zustand;

/** Where the logs of @p profil go. */
[[nodiscard]] QString ordnersatz(const Profil &profil);
/** How many logs lie there; @p nurLaufende: none but that of the running session. */
[[nodiscard]] QString protokollanzahl(qsizetype alle, bool nurLaufende);

/** When a session was; its file's name where that is not known. */
[[nodiscard]] QString sitzungszeit(const QString &datei, const std::optional<Sitzungsbild> &bild, bool mitSekunden);
/** What it holds; empty before it has been read. */
[[nodiscard]] QString sitzungsinhalt(const std::optional<Sitzungsbild> &bild, bool laufend);

/** Of the session that is shown: a log that does not lie in the folder of this profile is called by its file. */
[[nodiscard]] QString sitzungstitel(const Sitzungen &sitzungen);
[[nodiscard]] QString bewegungsanzahl(const Sitzungen &sitzungen);
/** Under which conditions it was worked: what each is called, and its value; empty where it is not known. */
[[nodiscard]] QList<std::pair<QString, QString>> bedingungen(const std::optional<Protokollkopf> &kopf);

/** What turning a session back does; @p kopien: it has made copies. */
[[nodiscard]] QString rueckbauerklaerung(bool kopien);
/** Asks whether to; says between which folders when the log is not one of the active profile. */
[[nodiscard]] QString rueckbaufrage(const Profil *aktiv, const std::optional<Protokollkopf> &kopf,
                                    qsizetype bewegungen);
/** A line for each movement that could not be turned back, in the order of the attempts. */
[[nodiscard]] QString rueckbaufehler(const Bilanz &bilanz, const QList<Protokollzeile> &zeilen);

/** What the turning back came to, else what was done or is to be said last. */
[[nodiscard]] std::pair<Meldestelle::Ton, QString> protokollmeldung(const Zustand &zustand);
} // namespace quillmar::zustand
