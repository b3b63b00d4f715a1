#pragma once

#include "namensraeume.h"
#include "seitenwort.h"

#include <QString>
#include <optional>

namespace quillmar::analyse
{
/**
 * Recognised words of documents, kept so that nobody waits for them twice: files of this user alone in
 * $XDG_CACHE_HOME/Quillmar, else ~/.cache/Quillmar, which may be thrown away at any time. Those not used longest go
 * when there are too many. Nothing here fails: what cannot be kept is recognised once more.
 */
class Wortspeicher
{
public:
    static constexpr qint64 ueblicheGroesse = 200LL * 1024 * 1024; ///< bytes

    explicit Wortspeicher(const QString &ordner = ueblicherOrdner(), qint64 groesse = ueblicheGroesse)
        : m_ordner(ordner), m_groesse(groesse)
    {
    }

    [[nodiscard]] static QString ueblicherOrdner();

    /** Of the pages of a document, by the digest of its content; none unless they were recognised in this very way. */
    [[nodiscard]] std::optional<QList<Seitenworte>> lesen(const QString &digest, const QString &art) const;
    void ablegen(const QString &digest, const QString &art, const QList<Seitenworte> &seiten) const;

private:
    [[nodiscard]] QString pfad(const QString &digest) const;
    void ausduennen() const;

    QString m_ordner;
    qint64 m_groesse;
};
} // namespace quillmar::analyse
