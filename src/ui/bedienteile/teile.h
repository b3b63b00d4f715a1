#pragma once

#include "modelle.h"

class QAbstractButton;
class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QScrollArea;
class QStackedLayout;
class QStackedWidget;
class QToolButton;

/** The parts by name alone, for headers that only point to them; the models too. */
namespace quillmar::bedienteile
{
class Flussreihe;
class Hinweisfeld;
class Kette;
class Leeransicht;
class Liste;
class Listenmodell;
class Meldungszeile;
class Nachgeben;
class Rueckfrage;
class Teiler;
class Textschild;
class Umschalter;
} // namespace quillmar::bedienteile
