#pragma once

#include "dokument.h"
#include "profil.h"
#include "zaehlwerk.h"

#include <memory>
#include <utility>

class Datenbank;
class Protokollbuch;

/** What an action of the filing engine has to say beyond its success; shared, since the engine itself is a value. */
struct Zaehler {
    qint64 anzahl = 0;          ///< waiting documents that the learning memory adjusted; a 0 leaves it as it was
    bool ohneProtokoll = false; ///< the session log could not be written
    QString nach;               ///< where the document lies now
};

/** Carries out the user's decisions on reviewed documents; made anew for each action. */
class Ablagewerk
{
public:
    /** @p buch is the session's log, null for none. */
    Ablagewerk(std::shared_ptr<Datenbank> db, Profil profil, std::shared_ptr<Protokollbuch> buch = nullptr)
        : mitgezogen(std::make_shared<Zaehler>()), m_db(std::move(db)), m_profil(std::move(profil)),
          m_buch(std::move(buch))
    {
    }

    std::shared_ptr<Zaehler> mitgezogen;

    /** The wanted path, or the first numbered one that does not exist; there is no race: see Dateibewegung. */
    [[nodiscard]] static QString eindeutig(const QString &pfad);

    /**
     * Files a reviewed document with the user's final values: moves or copies it under its new name, records it and
     * learns from it. Throws Fehler; nothing has changed then, but that a vanished file is marked "fehlt".
     */
    void uebernehmen(const Dokument &dokument);
    /** Sets a duplicate aside: into the duplicates folder, or when copying only by its status. Throws Fehler. */
    void aussortieren(qint64 id);
    /** Takes the newest movement back; returns its document. Throws Fehler. */
    qint64 rueckgaengig();
    /** Moves or copies a document as it is to @p ordner / @p name. Throws Fehler. */
    void verschieben(qint64 id, const QString &ordner, const QString &name, const QString &status,
                     const QString &aktion);

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
    [[nodiscard]] Dokument gespeichertes(qint64 id) const;
    void zielPruefen() const;
    void quellePruefen(const Dokument &dokument) const;
    void bewegen(const Dokument &gespeichert, const QString &ordner, const QString &name, const QString &status,
                 const QString &aktion, const Dokument *werte);

    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    std::shared_ptr<Protokollbuch> m_buch;
};
