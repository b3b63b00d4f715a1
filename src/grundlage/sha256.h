#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>
#include <array>
#include <functional>
#include <memory>
#include <openssl/types.h>

namespace quillmar::grundlage
{
/** SHA-256 through the processor's instructions; one object digests any number of messages after one another. */
class Sha256
{
public:
    using Wert = std::array<unsigned char, 32>;

    Sha256();
    void dazu(QByteArrayView bytes);
    /** Digest of what came since construction or the last call; begins a new message. */
    [[nodiscard]] Wert ende();

    [[nodiscard]] Wert von(QByteArrayView bytes);
    /** 64 lower-case hexadecimal characters. */
    [[nodiscard]] static QString hex(const Wert &wert);
    /** The version of OpenSSL in use. */
    [[nodiscard]] static QString opensslFassung();

private:
    struct Freigeber {
        void operator()(EVP_MD_CTX *c) const noexcept;
    };
    std::unique_ptr<EVP_MD_CTX, Freigeber> m_lauf;
};

/**
 * Hexadecimal SHA-256 of the regular file at @p pfad (bytes as on disk), read piece by piece. A null text if it cannot
 * be read, is no regular file, or @p abbruch turned true in between.
 */
[[nodiscard]] QString sha256Datei(const QByteArray &pfad, const std::function<bool()> &abbruch = {});
} // namespace quillmar::grundlage
