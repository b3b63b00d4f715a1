#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QByteArray>
#include <optional>

namespace quillmar::ablage
{
/** Header of a session log. */
struct Protokollkopf {
    QString zeit; ///< start of the session, ISO 8601 in UTC
    QString profil;
    QString quelle;
    QString ziel;
    bool kopieren = false;
    QString namensVorlage;
    QString pfadVorlage;
    QString rechner; ///< empty if unknown
    bool operator==(const Protokollkopf &) const = default;

    /** For a session of @p profil that begins now on this computer. */
    [[nodiscard]] static Protokollkopf fuer(const Profil &profil);
    /** What ends a session when it changes: everything but the time. */
    [[nodiscard]] bool gleicheSitzung(const Protokollkopf &anderer) const;

    [[nodiscard]] QByteArray json() const;
    [[nodiscard]] static std::optional<Protokollkopf> aus(const QByteArray &zeile);
};

/** One movement of a session log. */
struct Protokollzeile {
    QString zeit; ///< ISO 8601
    QString aktion;
    qint64 dokument = 0; ///< catalogue id
    QString von;
    QString nach;
    QString altStatus;
    bool kopiert = false; ///< the source stayed at "von"
    QByteArray vonName{}; ///< bytes of the name at "von" on disk where they are not those of "von"; else empty
    bool operator==(const Protokollzeile &) const = default;

    /** The time of day in the local time zone, HH:mm:ss; the text itself when it is no time. */
    [[nodiscard]] QString zeitKurz() const;

    [[nodiscard]] QByteArray json() const;
    /** None for anything but a whole movement line. */
    [[nodiscard]] static std::optional<Protokollzeile> aus(const QByteArray &zeile);
};
} // namespace quillmar::ablage
