#include "bildspeicher.h"

#include "speicherdatei.h"

#include <memory>
#include <sys/mman.h>

namespace quillmar::seiten
{
namespace
{
constexpr int bytesJePixel = 4;

struct Abbild {
    Abbild(int griff, size_t laenge) : ort(::mmap(nullptr, laenge, PROT_READ, MAP_SHARED, griff, 0)), laenge(laenge) {}
    ~Abbild()
    {
        if (da())
            ::munmap(ort, laenge);
    }
    Abbild(const Abbild &) = delete;
    Abbild &operator=(const Abbild &) = delete;

    [[nodiscard]] bool da() const { return ort != MAP_FAILED; }

    void *ort;
    size_t laenge;
};
} // namespace

Bildspeicher::Bildspeicher(const QSize &pixel)
    : m_pixel(pixel), m_griff(Speicherdatei::neue(qint64(pixel.width()) * pixel.height() * bytesJePixel))
{
    // Were it cut off, looking at the picture would end this process.
    if (m_griff.offen() && !Speicherdatei::versiegeln(m_griff, false))
        m_griff = Dateigriff();
}

QImage Bildspeicher::bild() const
{
    const qsizetype zeile = qsizetype(m_pixel.width()) * bytesJePixel;
    auto abbild = std::make_unique<Abbild>(m_griff.nummer(), size_t(zeile * m_pixel.height()));
    if (!abbild->da())
        return {};
    const auto *bytes = static_cast<const uchar *>(abbild->ort);
    return {bytes,           m_pixel.width(),      m_pixel.height(),
            zeile,           QImage::Format_RGB32, [](void *alt) { delete static_cast<Abbild *>(alt); },
            abbild.release()};
}
} // namespace quillmar::seiten
