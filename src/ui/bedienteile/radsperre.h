#pragma once

class QWidget;

/** Scrolling past a choice or a number must not change it unnoticed: over @p feld the wheel goes on to what scrolls. */
void radsperre(QWidget *feld);
