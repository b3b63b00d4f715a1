#pragma once

#include <QString>
#include <QStringList>
#include <optional>

/** What is known about the model server and the model of a profile. */
struct Modellstand {
    enum class Art { unbekannt, serverFehlt, modellFehlt, laedt, bereit };
    Art art = Art::unbekannt;
    QString meldung;        ///< for the user
    QStringList vorhandene; ///< the installed models, in the server's order
    bool operator==(const Modellstand &) const = default;

    /** The first of @p vorhandene that @p gesucht means: the same name, or the name without a tag under any tag. */
    [[nodiscard]] static std::optional<QString> treffer(const QStringList &vorhandene, const QString &gesucht);
    /** Asks the server. Blocks. */
    [[nodiscard]] static Modellstand pruefen(const QString &gesucht);
};
