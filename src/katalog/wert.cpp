#include "wert.h"

#include <cmath>
#include <limits>

namespace quillmar::katalog
{
namespace
{
struct AlsGanz {
    qint64 operator()(std::monostate) const { return 0; }
    qint64 operator()(const QString &text) const { return text.toLongLong(); }
    qint64 operator()(qint64 zahl) const { return zahl; }
    qint64 operator()(double zahl) const
    {
        constexpr double grenze = 9223372036854775808.0;
        if (std::isnan(zahl))
            return 0;
        if (zahl >= grenze)
            return std::numeric_limits<qint64>::max();
        return zahl <= -grenze ? std::numeric_limits<qint64>::min() : qint64(zahl);
    }
};

struct AlsKomma {
    double operator()(std::monostate) const { return 0; }
    double operator()(const QString &text) const { return text.toDouble(); }
    double operator()(qint64 zahl) const { return double(zahl); }
    double operator()(double zahl) const { return zahl; }
};
} // namespace

const Wert &Zeile::wert(QStringView name) const
{
    static const Wert leer;
    const qsizetype stelle = m_spalten->indexOf(name);
    return stelle < 0 ? leer : m_werte.at(stelle);
}

qint64 Zeile::ganz(QStringView name) const { return std::visit(AlsGanz(), wert(name)); }

double Zeile::komma(QStringView name) const { return std::visit(AlsKomma(), wert(name)); }

QString Zeile::text(QStringView name) const
{
    const QString *text = std::get_if<QString>(&wert(name));
    return text ? *text : QString();
}

std::optional<QString> Zeile::textOderNil(QStringView name) const
{
    const QString t = text(name);
    return t.isEmpty() ? std::nullopt : std::optional(t);
}
} // namespace quillmar::katalog
