#pragma once

/** Rows that need the window; each runs in a process with a display. */
namespace Fensterreihen
{
void eingabe();
void marken();
void taste();
void schleife();
void protokollkarte();
void einrichtungskarte();
void fensterstart();
/** The child processes of fensterstart(): end as soon as the window can be used. */
int startVoll();
int startLeer();
} // namespace Fensterreihen
