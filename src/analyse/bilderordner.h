#pragma once

#include "dateigriff.h"
#include "fehler.h"
#include "namensraeume.h"

#include <QStringList>

namespace quillmar::analyse
{
/** There is no room for page images: no fault of the document, and no other one would fare better. */
class Platzmangel : public Fehler
{
public:
    explicit Platzmangel(const QString &ordner);
};

/**
 * A fresh folder for page images in the system's temporary folder, for the user alone; gone with the object. Locked
 * while it lives, so that what a killed program has left behind can be told from what is in use.
 */
class Bilderordner
{
public:
    /** Throws Fehler when the folder cannot be made, Platzmangel where the disk is full. */
    Bilderordner();
    ~Bilderordner();
    Bilderordner(const Bilderordner &) = delete;
    Bilderordner &operator=(const Bilderordner &) = delete;

    /** Beginning of the images' paths. */
    [[nodiscard]] QString praefix() const { return m_ort + QStringLiteral("/s"); }
    /** The images, in the order of the pages. */
    [[nodiscard]] QStringList bilder() const;
    /** Removes the images. */
    void leeren() const;
    /** Throws Platzmangel if as good as nothing fits onto its disk any more. */
    void platzPruefen() const;

    /** Removes the folders of this user that a killed program has left: they show pages of his letters. */
    static void verwaisteEntfernen();

private:
    QString m_ort;
    Dateigriff m_sperre;
};
} // namespace quillmar::analyse
