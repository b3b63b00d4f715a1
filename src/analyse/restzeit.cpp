#include "restzeit.h"

#include "sprache.h"
#include "text.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
QString restzeitText(std::chrono::duration<double> vergangen, qsizetype fertig, qsizetype gesamt)
{
    if (fertig < 1 || gesamt <= fertig)
        return {};
    return restzeitText(vergangen / double(fertig) * double(gesamt - fertig));
}

QString restzeitText(std::chrono::duration<double> dauer)
{
    const double rest = dauer.count();
    if (rest < 90)
        return gefuellt(Sprache::text(qint64(rest), u"noch rund %@ Sekunde"_s, u"noch rund %@ Sekunden"_s),
                        {QString::number(qint64(rest))});
    if (rest < 5400)
        return gefuellt(Sprache::text(qint64(rest / 60), u"noch rund %@ Minute"_s, u"noch rund %@ Minuten"_s),
                        {QString::number(qint64(rest / 60))});
    QLocale gebiet;
    gebiet.setNumberOptions(QLocale::OmitGroupSeparator);
    return Sprache::text(u"noch rund %.1f Stunden"_s).replace("%.1f"_L1, gebiet.toString(rest / 3600, 'f', 1));
}

std::optional<std::chrono::duration<double>> restdauer(const QList<Stufenmass> &stufen)
{
    std::chrono::duration<double> rest{};
    bool offen = false;
    for (const Stufenmass &s : stufen) {
        if (s.offen < 1)
            continue;
        if (s.fertig < 1)
            return std::nullopt;
        rest += s.dauer / double(s.fertig) * double(s.offen);
        offen = true;
    }
    return offen ? std::optional(rest) : std::nullopt;
}
} // namespace quillmar::analyse
