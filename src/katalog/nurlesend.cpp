#include "nurlesend.h"

#include <sqlite3.h>

namespace quillmar::katalog
{
namespace
{
constexpr int geduld = 60'000; // milliseconds, for a file that another program has locked
}

void Verbindungsende::operator()(sqlite3 *griff) const noexcept { sqlite3_close_v2(griff); }

bool istSchaden(int code) { return (code & 0xff) == SQLITE_CORRUPT || (code & 0xff) == SQLITE_NOTADB; }

Nurlesend nurLesendOeffnen(const QString &pfad)
{
    sqlite3 *griff = nullptr;
    const int code = sqlite3_open_v2(pfad.toUtf8().constData(), &griff, SQLITE_OPEN_READONLY, nullptr);
    Nurlesend verbindung(griff);
    if (code != SQLITE_OK)
        return {};
    sqlite3_busy_timeout(griff, geduld);
    return verbindung;
}
} // namespace quillmar::katalog
