#pragma once

#include "dateigriff.h"
#include "namensraeume.h"

#include <QImage>
#include <QSize>

namespace quillmar::seiten
{
/** Memory that another process draws a page into. */
class Bildspeicher
{
public:
    /** Rows of 32 bits a pixel, without gaps; of a size that stays. Not open when there is no memory for it. */
    explicit Bildspeicher(const QSize &pixel);

    [[nodiscard]] const Dateigriff &griff() const { return m_griff; }
    [[nodiscard]] bool offen() const { return m_griff.offen(); }

    /** What is in it, without a copy; may outlive this. Null when it cannot be had. */
    [[nodiscard]] QImage bild() const;

private:
    QSize m_pixel;
    Dateigriff m_griff;
};
} // namespace quillmar::seiten
