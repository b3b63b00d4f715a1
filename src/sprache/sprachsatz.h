#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace quillmar::sprache
{
/** One language file that can be chosen. */
struct Sprachsatz {
    QString kennung;    ///< file name without extension, lower case: "en"
    QString name;       ///< the file's own name for the language, else the code in capitals
    bool eigen = false; ///< from the user's own folder
    QString ort;        ///< path of the file
    QString mangel;     ///< why it cannot be chosen, a key of the text lookup; empty if it can
    bool operator==(const Sprachsatz &) const = default;
};

/** The texts of a language file's bytes, German text to translation. None if they are no JSON object of texts alone. */
[[nodiscard]] std::optional<QHash<QString, QString>> spracheAus(const QByteArray &bytes);
/** The same of the file at @p ort; none if it cannot be read either. */
[[nodiscard]] std::optional<QHash<QString, QString>> spracheLesen(const QString &ort);

/**
 * The language files of two folders, one per code, sorted by name: an own file replaces a shipped one. Names that begin
 * with "_" are left out, and so are folders that cannot be read.
 */
[[nodiscard]] QList<Sprachsatz> sprachsaetze(const QString &mitgeliefert, const QString &eigen);

/** @p gewaehlt unless empty, else the first of @p bevorzugte ("en-GB" counts as "en") among @p vorhandene, else "de".
 */
[[nodiscard]] QString kennungFuer(const QString &gewaehlt, const QStringList &vorhandene,
                                  const QStringList &bevorzugte);
} // namespace quillmar::sprache
