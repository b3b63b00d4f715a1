#include "aufrichter.h"

#include <cstdio>
#include <cstdlib>
#include <leptonica/allheaders.h>

/**
 * quillmar-aufrichten IMAGE DEGREES: turns it clockwise by a multiple of 90 degrees, straightens it, and prints what
 * was done: skew, and whether its lines run up or down. Status 1 if the image cannot be read.
 */
int main(int anzahl, char **argumente)
{
    if (anzahl != 3)
        return 2;
    setMsgSeverity(L_SEVERITY_NONE);
    const auto lage = quillmar::aufrichter::aufrichten(argumente[1], std::atoi(argumente[2]));
    if (!lage)
        return 1;
    std::printf("%.2f %d\n", lage->neigung, lage->hochkant ? 1 : 0);
    return 0;
}
