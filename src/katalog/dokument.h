#pragma once

#include "angaben.h"
#include "namensraeume.h"
#include "status.h"

#include <optional>

namespace quillmar::katalog
{
class Zeile;

/** One row of the table dokumente as the program works with it. */
struct Dokument {
    qint64 id = 0;
    QString pfad;
    QString dateiname;
    QString altOrdner; ///< folder relative to the source folder, without "/" at its ends; empty directly in it
    Status status = Status::Unbekannt;
    bool hatTextebene = false;
    Angaben angaben;
    double konfidenz = 0; ///< 0 to 1
    QString vorschlag;
    QString ortQuelle;
    bool zweitmeinung = false; ///< the larger model was asked
    QString gelerntVon;
    std::optional<qint64> aehnlichZu;
    double aehnlichkeit = 0; ///< 0 to 1
    std::optional<QString> fehler;

    /** From a row of any query that selects at least id; what it lacks reads as empty. */
    [[nodiscard]] static Dokument aus(const Zeile &zeile);

    bool operator==(const Dokument &) const = default;
};
} // namespace quillmar::katalog
