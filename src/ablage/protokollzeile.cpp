#include "protokollzeile.h"

#include "jsonschreiber.h"
#include "pfade.h"
#include "text.h"
#include "zeit.h"

#include <QDateTime>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <charconv>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
/** Reads required members; remembers whether one was missing or of another type. */
class Leser
{
public:
    explicit Leser(const QByteArray &zeile) : m_objekt(QJsonDocument::fromJson(zeile).object()) {}
    [[nodiscard]] QString text(QLatin1StringView name)
    {
        const QJsonValue wert = m_objekt.value(name);
        m_ganz = m_ganz && wert.isString();
        return wert.toString();
    }
    [[nodiscard]] bool wahr(QLatin1StringView name)
    {
        const QJsonValue wert = m_objekt.value(name);
        m_ganz = m_ganz && wert.isBool();
        return wert.toBool();
    }
    [[nodiscard]] qint64 zahl(QLatin1StringView name)
    {
        const QJsonValue wert = m_objekt.value(name);
        m_ganz = m_ganz && wert.isDouble() && std::floor(wert.toDouble()) == wert.toDouble();
        return wert.toInteger();
    }
    /** An optional member, percent-encoded. */
    [[nodiscard]] QByteArray bytes(QLatin1StringView name) const
    {
        return QByteArray::fromPercentEncoding(m_objekt.value(name).toString().toLatin1());
    }
    [[nodiscard]] bool ganz() const { return m_ganz; }

private:
    QJsonObject m_objekt;
    bool m_ganz = true;
};

/**
 * Reads a line in the form in which it is written here: no gaps, no escapes. Three times as fast as the general reader,
 * which takes every other line.
 */
class Schnellleser
{
public:
    explicit Schnellleser(QByteArrayView zeile) : m_rest(zeile) {}

    [[nodiscard]] std::optional<Protokollzeile> lesen()
    {
        Protokollzeile z;
        QByteArrayView art;
        for (char davor = '{'; nehmen(davor); davor = ',') {
            QByteArrayView name;
            if (!zeichenkette(name) || !nehmen(':') || !feld(name, z, art))
                return std::nullopt;
        }
        const bool ganz = nehmen('}') && m_rest.trimmed().isEmpty() && m_felder == alleFelder && art == "bewegung";
        return ganz ? std::optional(std::move(z)) : std::nullopt;
    }

private:
    static constexpr unsigned alleFelder = 0xff;

    bool feld(QByteArrayView name, Protokollzeile &z, QByteArrayView &art)
    {
        if (name == "art")
            return vermerkt(0) && zeichenkette(art);
        if (name == "zeit")
            return vermerkt(1) && text(z.zeit);
        if (name == "aktion")
            return vermerkt(2) && text(z.aktion);
        if (name == "dokument")
            return vermerkt(3) && zahl(z.dokument);
        if (name == "von")
            return vermerkt(4) && text(z.von);
        if (name == "nach")
            return vermerkt(5) && text(z.nach);
        if (name == "altStatus")
            return vermerkt(6) && text(z.altStatus);
        return name == "kopiert" && vermerkt(7) && wahrheit(z.kopiert);
    }

    bool vermerkt(unsigned nummer)
    {
        m_felder |= 1U << nummer;
        return true;
    }

    bool nehmen(char zeichen)
    {
        if (!m_rest.startsWith(zeichen))
            return false;
        m_rest = m_rest.sliced(1);
        return true;
    }

    bool zeichenkette(QByteArrayView &ziel)
    {
        if (!nehmen('"'))
            return false;
        const qsizetype ende = m_rest.indexOf('"');
        if (ende < 0)
            return false;
        ziel = m_rest.first(ende);
        m_rest = m_rest.sliced(ende + 1);
        return !ziel.contains('\\');
    }

    bool text(QString &ziel)
    {
        QByteArrayView bytes;
        if (!zeichenkette(bytes))
            return false;
        ziel = QString::fromUtf8(bytes);
        return true;
    }

    bool zahl(qint64 &ziel)
    {
        const auto [danach, fehler] = std::from_chars(m_rest.begin(), m_rest.end(), ziel);
        m_rest = m_rest.sliced(danach - m_rest.begin());
        return fehler == std::errc();
    }

    bool wahrheit(bool &ziel)
    {
        ziel = m_rest.startsWith("true");
        if (!ziel && !m_rest.startsWith("false"))
            return false;
        m_rest = m_rest.sliced(ziel ? 4 : 5);
        return true;
    }

    QByteArrayView m_rest;
    unsigned m_felder = 0;
};
} // namespace

Protokollkopf Protokollkopf::fuer(const Profil &profil)
{
    return {.zeit = jetztIso(),
            .profil = profil.name,
            .quelle = profil.quelle,
            .ziel = profil.zielWurzel,
            .kopieren = profil.kopieren,
            .namensVorlage = profil.namensVorlage,
            .pfadVorlage = profil.pfadVorlage,
            .rechner = QSysInfo::machineHostName()};
}

bool Protokollkopf::gleicheSitzung(const Protokollkopf &anderer) const
{
    Protokollkopf verglichen = anderer;
    verglichen.zeit = zeit;
    return verglichen == *this;
}

QByteArray Protokollkopf::json() const
{
    Jsonschreiber o;
    o.text("art", u"kopf"_s);
    o.text("zeit", zeit);
    o.text("profil", profil);
    o.text("quelle", quelle);
    o.text("ziel", ziel);
    o.wahr("kopieren", kopieren);
    o.text("namensVorlage", namensVorlage);
    o.text("pfadVorlage", pfadVorlage);
    o.text("rechner", rechner);
    return o.ende();
}

std::optional<Protokollkopf> Protokollkopf::aus(const QByteArray &zeile)
{
    Leser leser(zeile);
    const bool istKopf = leser.text("art"_L1) == u"kopf"_s;
    const Protokollkopf kopf{.zeit = leser.text("zeit"_L1),
                             .profil = leser.text("profil"_L1),
                             .quelle = leser.text("quelle"_L1),
                             .ziel = leser.text("ziel"_L1),
                             .kopieren = leser.wahr("kopieren"_L1),
                             .namensVorlage = leser.text("namensVorlage"_L1),
                             .pfadVorlage = leser.text("pfadVorlage"_L1),
                             .rechner = leser.text("rechner"_L1)};
    return istKopf && leser.ganz() ? std::optional(kopf) : std::nullopt;
}

QString Protokollzeile::zeitKurz() const
{
    // A day alone would be read as its midnight.
    const bool mitUhrzeit = zeit.contains(u':');
    const QDateTime gelesen = mitUhrzeit ? QDateTime::fromString(zeit, Qt::ISODate) : QDateTime();
    return gelesen.isValid() ? gelesen.toLocalTime().toString(u"HH:mm:ss"_s) : zeit;
}

QByteArray Protokollzeile::json() const
{
    Jsonschreiber o;
    o.text("art", u"bewegung"_s);
    o.text("zeit", zeit);
    o.text("aktion", aktion);
    o.zahl("dokument", dokument);
    o.text("von", von);
    o.text("nach", nach);
    o.text("altStatus", altStatus);
    o.wahr("kopiert", kopiert);
    if (!vonName.isEmpty())
        o.text("vonName", QString::fromLatin1(vonName.toPercentEncoding()));
    return o.ende();
}

std::optional<Protokollzeile> Protokollzeile::aus(const QByteArray &zeile)
{
    if (zeile.isValidUtf8()) {
        if (auto schnell = Schnellleser(zeile).lesen())
            return schnell;
    }
    Leser leser(zeile);
    const bool istBewegung = leser.text("art"_L1) == u"bewegung"_s;
    Protokollzeile gelesen{.zeit = leser.text("zeit"_L1),
                           .aktion = leser.text("aktion"_L1),
                           .dokument = leser.zahl("dokument"_L1),
                           .von = leser.text("von"_L1),
                           .nach = leser.text("nach"_L1),
                           .altStatus = leser.text("altStatus"_L1),
                           .kopiert = leser.wahr("kopiert"_L1),
                           .vonName = leser.bytes("vonName"_L1)};
    // A name of its own is only another spelling of the one that the line has anyhow.
    if (gelesen.vonName.contains('/') || nameVonPlatte(gelesen.vonName) != nfc(nameVon(gelesen.von)))
        gelesen.vonName.clear();
    return istBewegung && leser.ganz() ? std::optional(std::move(gelesen)) : std::nullopt;
}
} // namespace quillmar::ablage
