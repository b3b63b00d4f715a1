#pragma once

#include "baustein.h"
#include "namensraeume.h"

#include <QList>
#include <QString>
#include <QStringView>
#include <array>
#include <optional>

namespace quillmar::ablage
{
/**
 * The name template turned round: which values a file name was made of. It knows the names that Ziel::dateiname() makes
 * of the template, with any of the blocks left out. A name that could as well be made without a counterpart, or that
 * does not tell where the counterpart ends, tells nothing.
 */
class Namenslesung
{
public:
    explicit Namenslesung(const QString &namensVorlage);

    /** Names made of this template tell the counterpart. */
    [[nodiscard]] bool kenntGegenueber() const;

    /** What stands for each block, in the order of alleBausteine; empty for one that was left out. */
    using Stuecke = std::array<QStringView, alleBausteine.size()>;
    /** Views into @p name (NFC, with ".pdf" or without); none if it does not fit or can be read in several ways. */
    [[nodiscard]] std::optional<Stuecke> lesen(QStringView name) const;

    /** The counterpart in @p name (in any form of normalisation), as a name is written; empty if it tells none. */
    [[nodiscard]] QString gegenueber(const QString &name) const;
    /** What was found for a counterpart as a name is written: NFC, in one line. */
    [[nodiscard]] static QString alsName(QStringView stueck);

    /** A block, or the text between two of them. */
    struct Glied {
        std::optional<Baustein> baustein;
        QString text;
    };

private:
    struct Form {
        QList<Glied> glieder;
        bool eindeutig = true; ///< what fits tells the counterpart, or that there is none
    };
    QList<Form> m_formen; ///< those of most blocks first
};
} // namespace quillmar::ablage
