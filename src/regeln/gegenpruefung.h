#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QSet>

namespace quillmar::regeln
{
/** Catches a counterpart that is really the owner himself. */
class Gegenpruefung
{
public:
    explicit Gegenpruefung(const Profil &profil);

    /** A word of @p name is one of the words of the owner's names, whatever the spelling. */
    [[nodiscard]] bool istEigen(const QString &name) const;

    /** The question for the other party of a document, with the first @p profil.maxZeichen characters of @p text. */
    [[nodiscard]] static QString frage(const QString &text, const Profil &profil);

private:
    QSet<QString> m_namen;
};
} // namespace quillmar::regeln
