#include "sha256.h"

#include "dateigriff.h"

#include <fcntl.h>
#include <new>
#include <openssl/crypto.h>
#include <openssl/evp.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace quillmar::grundlage
{
namespace
{
// Fetched once: the look-up costs more than the digest of a short text.
const EVP_MD *verfahren()
{
    static const EVP_MD *const md = EVP_MD_fetch(nullptr, "SHA256", nullptr);
    return md;
}

constexpr size_t stueck = size_t{256} * 1024;

/** The digest of what can be read of @p griff; null when that fails or is stopped. */
QString inhaltssumme(int griff, const std::function<bool()> &abbruch)
{
    Sha256 digest;
    std::vector<char> puffer(stueck);
    for (;;) {
        if (abbruch && abbruch())
            return {};
        const ssize_t n = ::read(griff, puffer.data(), puffer.size());
        if (n == 0)
            return Sha256::hex(digest.ende());
        if (n < 0 && errno != EINTR)
            return {};
        if (n > 0)
            digest.dazu(QByteArrayView(puffer.data(), n));
    }
}
} // namespace

void Sha256::Freigeber::operator()(EVP_MD_CTX *c) const noexcept { EVP_MD_CTX_free(c); }

Sha256::Sha256() : m_lauf(EVP_MD_CTX_new())
{
    if (!m_lauf || EVP_DigestInit_ex2(m_lauf.get(), verfahren(), nullptr) != 1)
        throw std::bad_alloc();
}

void Sha256::dazu(QByteArrayView bytes) { EVP_DigestUpdate(m_lauf.get(), bytes.data(), size_t(bytes.size())); }

Sha256::Wert Sha256::ende()
{
    Wert wert = {};
    EVP_DigestFinal_ex(m_lauf.get(), wert.data(), nullptr);
    EVP_DigestInit_ex2(m_lauf.get(), nullptr, nullptr);
    return wert;
}

Sha256::Wert Sha256::von(QByteArrayView bytes)
{
    dazu(bytes);
    return ende();
}

QString Sha256::hex(const Wert &wert)
{
    return QString::fromLatin1(QByteArray::fromRawData(reinterpret_cast<const char *>(wert.data()), 32).toHex());
}

QString Sha256::opensslFassung() { return QString::fromLatin1(OpenSSL_version(OPENSSL_VERSION_STRING)); }

QString sha256Datei(const QByteArray &pfad, const std::function<bool()> &abbruch)
{
    // Without blocking, since a pipe may have taken the file's place.
    const Dateigriff datei(::open(pfad.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat s = {};
    if (datei.nummer() < 0 || ::fstat(datei.nummer(), &s) != 0 || !S_ISREG(s.st_mode))
        return {};
    ::posix_fadvise(datei.nummer(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return inhaltssumme(datei.nummer(), abbruch);
}
} // namespace quillmar::grundlage
