#pragma once

#include "blick.h"
#include "namensraeume.h"
#include "profil.h"

namespace quillmar::zustand
{
/** Something that the reviewer should know about a proposal. */
struct Pruefhinweis {
    enum class Art {
        Fehler,
        KeinText,
        Texterkennung,
        KeinGegenueber,
        AndererOrt,
        Gelernt,
        Nachgeprueft,
        Aehnlich,
    };
    Art art = Art::Fehler;
    QString text; ///< the whole sentence, in the user's language
    bool operator==(const Pruefhinweis &) const = default;

    [[nodiscard]] bool istWarnung() const { return art <= Art::AndererOrt; }
};

/** The notes on @p stueck with its values as they stand in the fields, warnings first. */
[[nodiscard]] QList<Pruefhinweis> pruefhinweise(const Pruefstueck &stueck, const Profil &profil);

/** Where the document lies today in the filing tree; none when that is no place that the structure knows. */
[[nodiscard]] std::optional<Ort> heutigerOrt(const Dokument &dokument, const Profil &profil);
} // namespace quillmar::zustand
