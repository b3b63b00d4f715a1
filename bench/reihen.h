#pragma once

/** The rows of the table; each prints its own. What they compare stands in docs/messungen.md. */
namespace Reihen
{
void lesen();
void portionen();
void portionenBekannte();
void erkennung();
void lagen();
void pruefsummen();
void bestand();
void skizzen();
void paare();
void paareSpeicher();
void namen();
void gedaechtnis();
void bericht();
void start();
void uebernehmen();
void datentraeger();
void rueckbau();
void protokolle();
void ablagelesung();
void fundstellen();
void nebenher();
} // namespace Reihen
