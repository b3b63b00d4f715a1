#pragma once

class Abschnittsseite;
class Fenstersprache;
class QWidget;
class Zustand;

/** The sections of the setup card, one to a file. */
[[nodiscard]] Abschnittsseite *programmseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *herkunftseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *zielseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *namenseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *eigentuemerseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *modellseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *gelerntseite(Zustand *zustand, QWidget *eltern);
[[nodiscard]] Abschnittsseite *oberflaechenseite(Zustand *zustand, Fenstersprache *sprache, QWidget *eltern);
