#include "status.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
constexpr std::array<QStringView, 9> woerter = {
    u"", u"neu", u"laeuft", u"bereit", u"zurueckgestellt", u"dublette", u"aussortiert", u"erledigt", u"fehlt",
};
} // namespace

QString statuswort(Status status) { return woerter.at(size_t(status)).toString(); }

Status statusAus(QStringView wort)
{
    const auto stelle = std::find(woerter.begin(), woerter.end(), wort);
    return stelle == woerter.end() ? Status::Unbekannt : Status(stelle - woerter.begin());
}
} // namespace quillmar::katalog
