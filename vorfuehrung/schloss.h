#pragma once

#include <QByteArray>

namespace vorfuehrung
{

/**
 * The standard security handler of PDF in its first revision (RC4, 40 bits) with a fixed user password. It protects
 * nothing; it makes a file that no tool reads without the password.
 */
class Schloss
{
public:
    /** @p kennung is the first half of the file's /ID. */
    explicit Schloss(const QByteArray &kennung);

    [[nodiscard]] QByteArray verschluesselt(const QByteArray &inhalt, int objektnummer) const;

    /** The /Encrypt entry of the trailer. */
    [[nodiscard]] QByteArray eintrag() const;

private:
    QByteArray m_besitzer;
    QByteArray m_schluessel;
};

} // namespace vorfuehrung
