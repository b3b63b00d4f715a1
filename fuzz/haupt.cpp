#include "pruefziel.h"

#include <cstdint>
#include <cstdlib>

void verlangen(bool gilt)
{
    if (!gilt)
        std::abort();
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t anzahl)
{
    pruefen(QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(anzahl)));
    return 0;
}
