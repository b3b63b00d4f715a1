#pragma once

#include "modellverzeichnis.h"
#include "namensraeume.h"
#include "wahleintrag.h"

#include <QString>
#include <QStringList>
#include <optional>

namespace quillmar::zustand
{
/** What is known about the model server and the model of a profile. */
struct Modellstand {
    enum class Art { Unbekannt, ServerFehlt, ModellFehlt, ModellAnderswo, Laedt, Bereit };
    Art art = Art::Unbekannt;
    QString meldung;               ///< for the user
    QStringList vorhandene;        ///< the installed models, in the server's order
    Modellverzeichnis verzeichnis; ///< the same with what the server tells of each
    QString laedtModell;           ///< the model that is being fetched, empty if none
    QString ladetext;              ///< how far that is, in the server's words
    qint64 geladen = 0;            ///< bytes of the part under way
    qint64 ladegroesse = 0;        ///< all bytes of it; 0: not known
    QString restzeit;              ///< for the user; empty: not known
    QString ladefehler;            ///< why the last fetching failed; empty if it did not
    QString fehlermodell;          ///< which model that was
    bool operator==(const Modellstand &) const = default;

    /** @p modell, or the installed one that it means, would be computed on another computer: it is never used. */
    [[nodiscard]] bool rechnetAnderswo(const QString &modell) const;
    /** Says so of @p modell, for the user. */
    [[nodiscard]] static QString anderswoSatz(const QString &modell);
    /** The installed model that @p gesucht means; see Modellverzeichnis::treffer(). */
    [[nodiscard]] std::optional<QString> treffer(const QString &gesucht) const;
    /** As above, of @p vorhandene. */
    [[nodiscard]] static std::optional<QString> treffer(const QStringList &vorhandene, const QString &gesucht);
    /** What can be chosen: what the server has, and @p gewaehlt in any case. */
    [[nodiscard]] QList<Wahleintrag> auswahl(const QString &gewaehlt) const;
    /** Asks the server. Blocks. */
    [[nodiscard]] static Modellstand pruefen(const QString &gesucht);
};
} // namespace quillmar::zustand
