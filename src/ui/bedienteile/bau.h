#pragma once

#include "anordnung.h"
#include "quillmarstil.h"
#include "zeichen.h"

#include <QGridLayout>
#include <initializer_list>

class QLabel;
class QProgressBar;
class QPushButton;
class QScrollArea;
class QToolButton;

/** The parts that every card is put together from, and how they stand. */
namespace quillmar::bedienteile
{
[[nodiscard]] Kette *reihe(std::initializer_list<Teil> teile, Abstand abstand = Abstand::Nah);
[[nodiscard]] Kette *spalte(std::initializer_list<Teil> teile, Abstand abstand = Abstand::Nah);

/** A widget that holds @p inhalt, without distances from its edges. */
[[nodiscard]] QWidget *traeger(QLayout *inhalt, QWidget *eltern = nullptr);
/** @p inhalt fills @p teil, with these distances from its edges; returns @p teil. */
template <class Widget>
Widget *fuellen(Widget *teil, QLayout *inhalt, Abstand waagrecht = Abstand::Keiner, Abstand senkrecht = Abstand::Keiner)
{
    setzeRaender(teil, waagrecht, senkrecht);
    teil->setLayout(inhalt);
    return teil;
}

/** Plain text in the looks of @p art; @p name of the object. */
[[nodiscard]] QLabel *schild(const QString &text, Schrift art = Schrift::Grund, const QString &name = {});

/** A push button. @p hilfe is its tool tip and description. */
[[nodiscard]] QPushButton *knopf(const QString &name, const QString &text, const QString &hilfe = {},
                                 Knopfart art = Knopfart::Feld, Symbol symbol = Symbol::Keines);
/** The one filled button of a card. */
[[nodiscard]] QPushButton *hauptknopf(const QString &name, const QString &text = {});

/** A flat button, with its words or with the icon alone; then they are what is read aloud. */
[[nodiscard]] QToolButton *flachknopf(const QString &name, Symbol symbol, const QString &titel, const QString &hilfe,
                                      bool mitText = true);
void setzeMitText(QToolButton *knopf, bool mit);

/** A sentence beside what it explains. */
[[nodiscard]] Textschild *erklaerung(const QString &text);

/** Name of @p teil, what it is called when read aloud, and its help: tool tip and, with that, description. */
void bezeichnen(QWidget *teil, const QString &name, const QString &ansage, const QString &hilfe = {});

/** @p feld is as wide as it takes for so many characters, as high as it takes for so many lines. */
void breiteFuer(QWidget *feld, int zeichen);
void hoeheFuer(QWidget *feld, int zeilen);

/** One of several of which one holds: Tab reaches the chosen one, the arrows lead from it to the others. */
void setzeWaehlbar(QToolButton *knopf);

/** Words and help of a button whose meaning changes. */
void benennen(QAbstractButton *knopf, const QString &titel, const QString &hilfe);

/** As a screen reader reads it: what is not empty, divided by commas. */
[[nodiscard]] QString vorgelesen(QStringList teile);

/** A thin bar that shows a share; @p breite in pixels at 10 pt, 0: as wide as there is room. */
[[nodiscard]] QProgressBar *balken(const QString &name, double breite = 0);
/** @p anteil from 0 to 1. */
void setzeAnteil(QProgressBar *balken, double anteil);

/** The symbol as a picture of the size that stands beside text. */
[[nodiscard]] QPixmap zeichenbild(Symbol symbol);

/** A line between two areas. */
[[nodiscard]] QWidget *linie(Qt::Orientation richtung = Qt::Horizontal);

/** @p inhalt without a frame or a ground of its own; where it is too high it scrolls, also to what gets the focus. */
[[nodiscard]] QScrollArea *rollbereich(QWidget *inhalt, QWidget *eltern = nullptr);

/** Scrolling past a choice or a number must not change it unnoticed: over @p feld the wheel goes on to what scrolls. */
void radsperre(QWidget *feld);

/** Tab goes from each to the next. */
void tabReihe(std::initializer_list<QWidget *> teile);
} // namespace quillmar::bedienteile
