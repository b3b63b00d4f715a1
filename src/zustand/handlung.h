#pragma once

#include "blick.h"
#include "namensraeume.h"
#include "profil.h"
#include "taten.h"

#include <functional>

namespace quillmar::ablage
{
class Protokollbuch;
} // namespace quillmar::ablage

namespace quillmar::zustand
{
/** What a deed of the reviewer works with; values and shared owners, so that it can run on any thread. */
struct Arbeitsplatz {
    std::shared_ptr<Datenbank> db;
    Profil profil;
    std::shared_ptr<Protokollbuch> buch; ///< the session's log so far; null before the first movement
};

/** How exactly one deed is taken back. */
struct Rueckweg {
    Taten::Tat tat;
    bool operator==(const Rueckweg &) const = default;
};

/** What a deed came to. */
struct Geschehen {
    bool gelungen = false;
    QString text;                        ///< what happened to which document; empty when nothing did
    QStringList hinweise;                ///< what else is to be said, or why it failed
    QStringList warnungen;               ///< what went wrong beside a deed that was done; said first
    std::shared_ptr<Protokollbuch> buch; ///< the session's log from now on
    std::optional<Rueckweg> rueckweg;
    std::optional<qint64> wieder;      ///< the document that came back
    std::optional<qint64> uebernommen; ///< was filed with the reviewer's changes
    bool zielFraglich = false;         ///< refused since nothing of what was filed lies in the target folder

    /** What happened and what else is to be said, as one line. */
    [[nodiscard]] QString allesGesagte() const;
};

/** How far a long deed is; returns false to stop it after the document in hand. */
using Handlungsfortschritt = std::function<bool(qint64 fertig, qint64 gesamt)>;

/**
 * The deeds of the review, each a blocking function for a worker thread. Failures come back in the notices; nothing has
 * changed then.
 */
namespace Handlung
{
[[nodiscard]] Geschehen uebernehmen(const Arbeitsplatz &platz, Dokument dokument);
[[nodiscard]] Geschehen zuruecklegen(const Arbeitsplatz &platz, const Dokument &dokument);
[[nodiscard]] Geschehen aussortieren(const Arbeitsplatz &platz, const Dokument &dokument);
/** Takes the newest deed back, whatever kind it was; all of it, what fails apart. */
[[nodiscard]] Geschehen rueckgaengig(const Arbeitsplatz &platz, const Handlungsfortschritt &fortschritt = {});
/** Takes exactly the deed back that gave @p weg; refuses when another one came after it. */
[[nodiscard]] Geschehen tatZuruecknehmen(const Arbeitsplatz &platz, const Rueckweg &weg,
                                         const Handlungsfortschritt &fortschritt = {});
/** Takes the newest movement back. */
[[nodiscard]] Geschehen letzteBewegungZuruecknehmen(const Arbeitsplatz &platz);
/** Sets all waiting duplicates aside; what fails is passed over. */
[[nodiscard]] Geschehen dublettenAusraeumen(const Arbeitsplatz &platz, const Handlungsfortschritt &fortschritt);
/** The user says that the target folder is right although nothing of what was filed lies there; see Zielwurzel. */
[[nodiscard]] Geschehen zielBestaetigen(const Arbeitsplatz &platz);
/** Skipped documents wait again. */
[[nodiscard]] Geschehen wiederVorlegen(const Arbeitsplatz &platz);

/** The log of the running session: @p platz's own while it fits the profile, else a new one; null if it cannot be. */
[[nodiscard]] std::shared_ptr<Protokollbuch> buchBereitstellen(const Arbeitsplatz &platz);
} // namespace Handlung
} // namespace quillmar::zustand
