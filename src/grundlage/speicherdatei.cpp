#include "speicherdatei.h"

#include <fcntl.h>
#include <sys/mman.h>

namespace quillmar::grundlage
{
Dateigriff Speicherdatei::neue(qint64 groesse)
{
    Dateigriff datei(::memfd_create("quillmar", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (datei.offen() && groesse > 0 && ::ftruncate(datei.nummer(), groesse) != 0)
        return Dateigriff();
    return datei;
}

bool Speicherdatei::versiegeln(const Dateigriff &datei, bool inhalt)
{
    const int siegel = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_SEAL | (inhalt ? F_SEAL_WRITE : 0);
    return ::fcntl(datei.nummer(), F_ADD_SEALS, siegel) == 0;
}
} // namespace quillmar::grundlage
