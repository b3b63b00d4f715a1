#include "sandkasten.h"
#include "seitenmaler.h"

#include <unistd.h>

using namespace quillmar::seitenmaler;

/** Started by the window alone, with a socket as its channel; ends with it. */
int main()
{
    constexpr quint64 adressraum = quint64(1) << 30;
    Sandkasten::binden();
    Sandkasten::dateienSchliessen(Seitenprotokoll::kanal);
    Sandkasten::begrenzen(adressraum, Seitenprotokoll::speicherVoll);
    if (!Sandkasten::schliessen(Seitenprotokoll::kanal))
        ::_exit(1);
    Seitenmaler maler(Seitenprotokoll::kanal);
    maler.laufen();
    // Whatever foreign bytes have left in memory, nothing of it is run through once more.
    ::_exit(0);
}
