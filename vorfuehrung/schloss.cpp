#include "schloss.h"

#include <QCryptographicHash>
#include <array>
#include <numeric>

namespace vorfuehrung
{

namespace
{

constexpr int schluessellaenge = 5;
constexpr qsizetype kennwortlaenge = 32;

QByteArray fuellung()
{
    return QByteArray::fromHex("28BF4E5E4E758A4164004E56FFFA01082E2E00B6D0683E802F0CA9FE6453697A");
}

QByteArray kennwort(const QByteArray &wort) { return (wort + fuellung()).left(kennwortlaenge); }

QByteArray md5(const QByteArray &bytes) { return QCryptographicHash::hash(bytes, QCryptographicHash::Md5); }

QByteArray rc4(const QByteArray &schluessel, QByteArray bytes)
{
    std::array<quint8, 256> feld{};
    std::iota(feld.begin(), feld.end(), quint8(0));
    quint8 j = 0;
    for (int i = 0; i < 256; ++i) {
        j = static_cast<quint8>(j + feld[i] + static_cast<quint8>(schluessel.at(i % schluessel.size())));
        std::swap(feld[i], feld[j]);
    }
    quint8 i = 0;
    j = 0;
    for (char &byte : bytes) {
        j = static_cast<quint8>(j + feld[++i]);
        std::swap(feld[i], feld[j]);
        byte = static_cast<char>(static_cast<quint8>(byte) ^ feld[static_cast<quint8>(feld[i] + feld[j])]);
    }
    return bytes;
}

} // namespace

Schloss::Schloss(const QByteArray &kennung)
{
    const QByteArray benutzer = kennwort("Lichtbild");
    m_besitzer = rc4(md5(kennwort("Dunkelkammer")).left(schluessellaenge), benutzer);
    const QByteArray rechte = QByteArray::fromHex("FCFFFFFF"); // -4, low byte first: everything allowed
    m_schluessel = md5(benutzer + m_besitzer + rechte + kennung).left(schluessellaenge);
}

QByteArray Schloss::verschluesselt(const QByteArray &inhalt, int objektnummer) const
{
    QByteArray anhang(5, '\0'); // number of the object, low byte first, and generation 0
    anhang[0] = static_cast<char>(objektnummer & 0xff);
    anhang[1] = static_cast<char>((objektnummer >> 8) & 0xff);
    return rc4(md5(m_schluessel + anhang).left(schluessellaenge + 5), inhalt);
}

QByteArray Schloss::eintrag() const
{
    return " /Encrypt << /Filter /Standard /V 1 /R 2 /P -4 /O <" + m_besitzer.toHex() + "> /U <" +
           rc4(m_schluessel, fuellung()).toHex() + "> >>";
}

} // namespace vorfuehrung
