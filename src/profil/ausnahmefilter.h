#pragma once

#include "namensraeume.h"

#include <QHashFunctions>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace quillmar::profil
{
/** Rules for folders and files of the source folder that are not to be read or filed. */
class Ausnahmefilter
{
public:
    struct Regel {
        QString roh;          ///< as written, trimmed, NFC; this is shown
        QString kern;         ///< lower case, without "/" at its ends; this is matched
        bool istPfad = false; ///< names a run of folders, not a bare name
        bool operator==(const Regel &) const = default;
        friend size_t qHash(const Regel &r, size_t saat = 0) { return qHashMulti(saat, r.roh, r.kern, r.istPfad); }
    };

    explicit Ausnahmefilter(const QStringList &ausnahmen);

    [[nodiscard]] const QList<Regel> &regeln() const { return m_regeln; }

    /**
     * The first rule that covers a document in @p ordner (relative to the source folder) with file name @p dateiname.
     * Upper and lower case, composed and decomposed umlauts are alike; there are no wildcards. A rule that begins with
     * "./" means a folder in the source folder itself.
     */
    [[nodiscard]] std::optional<Regel> erste(const QString &ordner, const QString &dateiname) const;

private:
    QList<Regel> m_regeln;
};
} // namespace quillmar::profil
