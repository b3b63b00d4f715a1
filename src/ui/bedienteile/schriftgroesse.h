#pragma once

/** Sets and stores the font size, within its bounds. */
void schriftgroesseWaehlen(double punkte);

/** Takes the stored font size over into the running program; without one the desktop's. */
void schriftgroesseAnwenden();
