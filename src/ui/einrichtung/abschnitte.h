#pragma once

#include "namensraeume.h"

class QWidget;

namespace quillmar::zustand
{
class Einrichtung;
class Fenstersprache;
class Modelldienst;
class Profilwahl;
class Pruefung;
} // namespace quillmar::zustand

namespace quillmar::einrichtung
{
class Abschnittsseite;

/** The sections of the setup card, one to a file. */
[[nodiscard]] Abschnittsseite *programmseite(Profilwahl *profilwahl, Einrichtung *einrichtung,
                                             Modelldienst *modelldienst, QWidget *eltern);
[[nodiscard]] Abschnittsseite *herkunftseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Pruefung *pruefung,
                                             QWidget *eltern);
[[nodiscard]] Abschnittsseite *zielseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern);
[[nodiscard]] Abschnittsseite *namenseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern);
[[nodiscard]] Abschnittsseite *eigentuemerseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern);
[[nodiscard]] Abschnittsseite *modellseite(Profilwahl *profilwahl, Einrichtung *einrichtung, Modelldienst *modelldienst,
                                           QWidget *eltern);
[[nodiscard]] Abschnittsseite *gelerntseite(Profilwahl *profilwahl, Einrichtung *einrichtung, QWidget *eltern);
[[nodiscard]] Abschnittsseite *oberflaechenseite(Profilwahl *profilwahl, Einrichtung *einrichtung,
                                                 Fenstersprache *sprache, QWidget *eltern);
} // namespace quillmar::einrichtung
