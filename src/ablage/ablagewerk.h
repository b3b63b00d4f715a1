#pragma once

#include "absicht.h"
#include "dateibewegung.h"
#include "dokument.h"
#include "namensraeume.h"
#include "profil.h"
#include "richtung.h"
#include "tatruecknahme.h"
#include "zaehlwerk.h"

#include <functional>
#include <memory>
#include <utility>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
class Bewegungsgang;
class Protokollbuch;

/** What an action of the filing engine has done. */
struct Vollzug {
    qint64 angepasst = 0;       ///< waiting documents that the learning memory adjusted
    bool ohneProtokoll = false; ///< the session log could not be written
    QString nach;               ///< where the document lies now; empty where only its status has changed
    Taten::Tat tat;             ///< to take back just this one
};

/** Carries out the user's decisions on reviewed documents; made anew for each action. */
class Ablagewerk
{
public:
    /** @p buch is the session's log, null for none. */
    Ablagewerk(std::shared_ptr<Datenbank> db, Profil profil, std::shared_ptr<Protokollbuch> buch = nullptr)
        : m_db(std::move(db)), m_profil(std::move(profil)), m_buch(std::move(buch))
    {
    }

    /**
     * Looks at the target root for the next movement, which does not ask again: for whoever makes something in it
     * before. Throws as Zielwurzel::pruefen().
     */
    void zielPruefen();
    /** From now on movements stand in @p buch; null for none. */
    void buchFuehren(std::shared_ptr<Protokollbuch> buch) { m_buch = std::move(buch); }

    /**
     * Files a reviewed document with the user's final values: moves or copies it under its new name, records it and
     * learns from it. Its status (unknown: any) is the one that the user saw; another program may have handled it
     * since.
     *
     * Throws Fehler; nothing has changed then, but that a vanished file is marked "fehlt", and that another file which
     * lies there by now is taken in as a document of its own.
     */
    Vollzug uebernehmen(const Dokument &dokument);
    /**
     * Sets a document aside: into the duplicates folder, or when copying only by its status. @p gesehen as above;
     * @p tat is the deed of many that it is part of. Throws Fehler as above.
     */
    Vollzug aussortieren(qint64 id, std::optional<Status> gesehen = {}, const std::optional<Taten::Tat> &tat = {});
    /** Takes the newest movement back; returns its document. What cannot be is told once, then passed over. */
    qint64 rueckgaengig();
    /** Takes the newest deed of the review back, a movement or not; see Tatruecknahme. Throws Fehler. */
    Zurueckgenommen tatZuruecknehmen(const std::optional<Taten::Tat> &diese = {},
                                     const Tatruecknahme::Fortschritt &fortschritt = {});

    [[nodiscard]] std::optional<Dokument> dokument(qint64 id) const;
    /** New file name of a document with its values as they stand; see Ziel::dateiname(). */
    [[nodiscard]] QString dateiname(const Dokument &dokument) const;
    /** Target folder; see Ziel::ordner(). */
    [[nodiscard]] QString zielordner(const Ort &ort, const QString &jahr) const;
    /**
     * The waiting document after or before the one with @p nach, round the end of the queue; see
     * Dokumente::naechstes().
     */
    [[nodiscard]] std::optional<Dokument> naechstes(std::optional<qint64> nach, Richtung richtung) const;
    [[nodiscard]] Zaehlwerk zaehlen() const;

    /** How many documents rest from now on and how many were brought back. */
    struct Ausnahmenwechsel {
        qint64 ruhen = 0;
        qint64 zurueckgeholt = 0;
    };
    /** Applies the profile's exclusion rules to the whole catalogue. Throws Fehler when it cannot be written. */
    static Ausnahmenwechsel ausnahmenAnwenden(Datenbank &db, const Profil &profil);

private:
    /** A movement that is wanted; where to is found out once the document is locked. */
    struct Vorhaben {
        qint64 id = 0;
        std::optional<Status> gesehen; ///< status that the user saw; none: any
        Status status = Status::Unbekannt;
        QString aktion;
        std::function<QString(const Dokument &gespeichert)> ordner;
        std::function<QString(const Dokument &gespeichert)> name;
        const Angaben *werte = nullptr;
        qint64 tat = 0;
    };
    [[nodiscard]] Dokument gespeichertes(qint64 id) const;
    [[nodiscard]] QString dublettenordner(const Dokument &dokument) const;
    void verschwundenVermerken(qint64 id) const;
    void quellePruefen(const Dokument &dokument) const;
    void inhaltPruefen(const Dokument &dokument) const;
    Vollzug nurVermerken(qint64 id, std::optional<Status> gesehen, const std::optional<Taten::Tat> &tat);
    Vollzug bewegen(const Vorhaben &vorhaben);
    [[nodiscard]] Absicht absichtFuer(const Vorhaben &vorhaben, const Dokument &gespeichert) const;
    Vollzug ausfuehren(const Vorhaben &vorhaben, const Dokument &gespeichert,
                       const std::optional<Dateibewegung::Schritt> &angesehen, Bewegungsgang &gang);

    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    std::shared_ptr<Protokollbuch> m_buch;
    bool m_zielGeprueft = false;
};
} // namespace quillmar::ablage
