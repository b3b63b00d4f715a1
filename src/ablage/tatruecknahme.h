#pragma once

#include "namensraeume.h"
#include "profil.h"
#include "taten.h"

#include <QStringList>
#include <functional>
#include <memory>

namespace quillmar::ablage
{
/** What taking a deed back came to. */
struct Zurueckgenommen {
    QList<qint64> dokumente; ///< what waits, or is a duplicate, again; first the one to be shown
    bool bewegt = false;     ///< files went back
    QStringList fehler;      ///< a text for each item that stays as it is
};

/** Taking back of the deeds of the review, newest first. */
namespace Tatruecknahme
{
using Fortschritt = std::function<bool(qint64 fertig, qint64 gesamt)>;

/**
 * Takes the newest deed back, or only @p diese if it is the newest. What cannot be taken back is told by a Fehler once
 * and passed over the next time. Throws Fehler; nothing has changed then.
 */
[[nodiscard]] Zurueckgenommen letzte(const std::shared_ptr<Datenbank> &db, const Profil &profil,
                                     const std::optional<Taten::Tat> &diese = {}, const Fortschritt &fortschritt = {});

/** Some deed can be taken back. Looks at the disk only for what could not be once. */
[[nodiscard]] bool istMoeglich(Datenbank &db);

/** The same for movements alone, whatever deed they are part of. Returns the document. */
[[nodiscard]] qint64 letzteBewegung(const std::shared_ptr<Datenbank> &db, const Profil &profil);
} // namespace Tatruecknahme
} // namespace quillmar::ablage
