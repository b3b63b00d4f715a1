#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace quillmar::analyse
{
/** The words of a text and what is computed from them to find documents that say the same. */
class Skizze
{
public:
    static constexpr qsizetype umfang = 64; ///< values of a full sketch

    explicit Skizze(const QString &text);

    /** Lower case, NFC, everything but letters and numbers taken as a gap; in text order. */
    [[nodiscard]] static QStringList normalisiert(const QString &text);

    /**
     * Hexadecimal SHA-256 of the first 1500 characters of the words joined without gaps; empty when they have fewer
     * than 80, since so little says nothing about being the same.
     */
    [[nodiscard]] QString textHash() const;

    /**
     * The smallest @p k of the distinct hash values of all runs of five words (bottom-k MinHash), ascending as unsigned
     * numbers. Empty for fewer than five words.
     */
    [[nodiscard]] QList<quint64> werte(qsizetype k = umfang) const;

    /** As a JSON array of signed 64-bit numbers, and back; none for a text that is no such array. */
    [[nodiscard]] static QString json(const QList<quint64> &werte);
    [[nodiscard]] static std::optional<QList<quint64>> ausJson(const QString &json);

private:
    QString m_worte; ///< joined with single blanks
};
} // namespace quillmar::analyse
