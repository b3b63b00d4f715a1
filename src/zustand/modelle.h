#pragma once

#include "namensraeume.h"

/** The models by name alone, for headers that only point to them. */
namespace quillmar::zustand
{
class Aktualisierung;
class Ausfuehrung;
class Durchgang;
class Einrichtung;
class Fenstersprache;
class Meldestelle;
class Modelldienst;
class Profilwahl;
class Pruefung;
class Sitzungen;
class Zustand;
} // namespace quillmar::zustand
