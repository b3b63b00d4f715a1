#pragma once

#include "dokument.h"
#include "profil.h"
#include "zaehlwerk.h"

#include <memory>
#include <utility>

class Datenbank;

/** Carries out the user's decisions on reviewed documents; made anew for each action. */
class Ablagewerk
{
public:
    Ablagewerk(std::shared_ptr<Datenbank> db, Profil profil) : m_db(std::move(db)), m_profil(std::move(profil)) {}

    [[nodiscard]] std::optional<Dokument> dokument(qint64 id) const;
    /** New file name of a document with its values as they stand; see Ziel::dateiname(). */
    [[nodiscard]] QString dateiname(const Dokument &dokument) const;
    /** Target folder; see Ziel::ordner(). */
    [[nodiscard]] QString zielordner(const QString &zweig, const QString &ablage, const QString &rubrik,
                                     const QString &jahr) const;
    /**
     * The waiting document after ("weiter") or before ("zurueck") the one with @p nach, round the end of the queue; the
     * first one with any other direction or none given.
     */
    [[nodiscard]] std::optional<Dokument> naechstes(std::optional<qint64> nach, QStringView richtung) const;
    [[nodiscard]] Zaehlwerk zaehlen() const;

    /** How many documents rest from now on and how many were brought back. */
    struct Ausnahmenwechsel {
        qint64 ruhen = 0;
        qint64 zurueckgeholt = 0;
    };
    /** Applies the profile's exclusion rules to the whole catalogue. Throws Fehler when it cannot be written. */
    static Ausnahmenwechsel ausnahmenAnwenden(Datenbank &db, const Profil &profil);

private:
    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
};
