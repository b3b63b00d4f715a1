#include "namenskette.h"

#include "gelerntes.h"
#include "lernregeln.h"

#include <QSet>

namespace quillmar::lernen
{
Namenskette::Gleichung Namenskette::gelernte(Datenbank &db)
{
    return [&db](const QString &schluessel) -> std::optional<QString> {
        const auto gleichung = Gelerntes(db).gleichung(schluessel);
        return gleichung ? std::optional(gleichung->nach) : std::nullopt;
    };
}

std::optional<QString> Namenskette::ende(const QString &name, const Gleichung &gleichung)
{
    QString schluessel = Lernregeln::schluessel(name);
    QString jetzt = name;
    QSet<QString> gesehen;
    while (schluessel.size() >= Lernregeln::kuerzesterSchluessel && !gesehen.contains(schluessel)) {
        gesehen.insert(schluessel);
        const auto naechster = gleichung(schluessel);
        if (!naechster)
            break;
        const QString weiter = Lernregeln::schluessel(*naechster);
        if (weiter != schluessel && gesehen.contains(weiter))
            return std::nullopt;
        jetzt = *naechster;
        schluessel = weiter;
    }
    return jetzt == name ? std::nullopt : std::optional(jetzt);
}

bool Namenskette::fuehrtZu(const QString &name, const QString &schluessel, const Gleichung &gleichung)
{
    QString jetzt = Lernregeln::schluessel(name);
    QSet<QString> gesehen;
    while (jetzt != schluessel && !gesehen.contains(jetzt)) {
        gesehen.insert(jetzt);
        const auto naechster = gleichung(jetzt);
        if (!naechster)
            return false;
        jetzt = Lernregeln::schluessel(*naechster);
    }
    return jetzt == schluessel;
}
} // namespace quillmar::lernen
