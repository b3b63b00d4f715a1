#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace quillmar::analyse
{
/** The models that the server lists, and which of them it only passes on to another computer. */
class Modellverzeichnis
{
public:
    struct Modell {
        QString name;
        bool anderswo = false; ///< computed on another computer
        bool operator==(const Modell &) const = default;
    };

    Modellverzeichnis() = default;
    /** From the server's answer; one that is no list of models gives none. */
    [[nodiscard]] static Modellverzeichnis aus(const QByteArray &antwort);

    [[nodiscard]] const QList<Modell> &modelle() const { return m_modelle; }
    [[nodiscard]] QStringList namen() const;
    /** Every model was listed with its name. */
    [[nodiscard]] bool vollstaendig() const { return m_vollstaendig; }

    /**
     * The installed name that @p gesucht means: the same, else with the tag "latest", else the first under any tag that
     * this computer computes, else the first under any tag.
     */
    [[nodiscard]] std::optional<QString> treffer(const QString &gesucht) const;
    /** As above, where nothing but the names is known. */
    [[nodiscard]] static std::optional<QString> treffer(const QStringList &namen, const QString &gesucht);

    /** By its name or by what the server lists; names are compared as the server does, without regard to case. */
    [[nodiscard]] bool rechnetAnderswo(const QString &modell) const;
    /** The name alone says so: it ends in "cloud" in any spelling. */
    [[nodiscard]] static bool heisstAnderswo(const QString &modell);

    bool operator==(const Modellverzeichnis &) const = default;

private:
    QList<Modell> m_modelle;
    bool m_vollstaendig = true;
};
} // namespace quillmar::analyse
