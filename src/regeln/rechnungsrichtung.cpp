#include "rechnungsrichtung.h"

#include "text.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::regeln
{
namespace
{
constexpr qsizetype kuerzesterTeil = 3;

QStringList teileVon(const QString &anschrift)
{
    static const QRegularExpression grenze(u"[,\\n\\r\u2028\u2029]"_s);
    QStringList teile;
    for (const QString &teil : anschrift.split(grenze)) {
        if (const QString t = Rechnungsrichtung::vereinheitlichen(teil); t.size() >= kuerzesterTeil)
            teile << t;
    }
    return teile;
}

QStringList zeilenVon(const QString &text)
{
    static const QRegularExpression ende(u"\\r\\n|[\\n\\r\\f\\v\u0085\u2028\u2029]"_s);
    QStringList zeilen;
    for (const QString &zeile : text.split(ende))
        zeilen << Rechnungsrichtung::vereinheitlichen(zeile);
    return zeilen;
}

/** All @p teile stand in the @p anzahl lines from @p von on. */
bool imBlock(const QStringList &zeilen, qsizetype von, qsizetype anzahl, const QStringList &teile)
{
    const auto anfang = zeilen.begin() + von;
    const auto ende = zeilen.begin() + std::min(von + anzahl, zeilen.size());
    return std::all_of(teile.begin(), teile.end(), [&](const QString &teil) {
        return std::any_of(anfang, ende, [&](const QString &zeile) { return zeile.contains(teil); });
    });
}

bool kommtVor(const QStringList &zeilen, qsizetype anzahl, const QStringList &teile)
{
    for (qsizetype von = 0; von < zeilen.size(); ++von) {
        if (imBlock(zeilen, von, anzahl, teile))
            return true;
    }
    return false;
}
} // namespace

Rechnungsrichtung::Rechnungsrichtung(const QStringList &eigeneAnschriften)
{
    for (const QString &anschrift : eigeneAnschriften) {
        if (const QStringList teile = teileVon(anschrift); teile.size() >= 2)
            m_anschriften << teile;
    }
}

QString Rechnungsrichtung::vereinheitlichen(const QString &text) { return gefaltet(text, Faltung::Namen); }

Rechnungsrichtung::Richtung Rechnungsrichtung::erkennen(const QString &text) const
{
    if (m_anschriften.isEmpty() || text.isEmpty())
        return Richtung::Unbekannt;
    const QStringList zeilen = zeilenVon(text);
    const auto einzeilig = [&](const QStringList &teile) { return kommtVor(zeilen, 1, teile); };
    if (std::any_of(m_anschriften.begin(), m_anschriften.end(), einzeilig))
        return Richtung::Ausgang;
    // Two lines more than the address has parts: room for a name or a blank line in between.
    const auto imAdressfeld = [&](const QStringList &teile) { return kommtVor(zeilen, teile.size() + 2, teile); };
    if (std::any_of(m_anschriften.begin(), m_anschriften.end(), imAdressfeld))
        return Richtung::Eingang;
    return Richtung::Unbekannt;
}

bool Rechnungsrichtung::istRechnungsrubrik(const QString &rubrik, const Profil &profil)
{
    if (profil.rubrikAusgang.isEmpty() || profil.rubrikEingang.isEmpty())
        return false;
    const QString gleich = vereinheitlichen(rubrik);
    return gleich == vereinheitlichen(profil.rubrikAusgang) || gleich == vereinheitlichen(profil.rubrikEingang);
}

std::optional<QString> Rechnungsrichtung::berichtigt(const QString &rubrik, const QString &text,
                                                     const Profil &profil) const
{
    return istRechnungsrubrik(rubrik, profil) ? berichtigt(rubrik, erkennen(text), profil) : std::nullopt;
}

std::optional<QString> Rechnungsrichtung::berichtigt(const QString &rubrik, Richtung richtung, const Profil &profil)
{
    if (richtung == Richtung::Unbekannt || !istRechnungsrubrik(rubrik, profil))
        return std::nullopt;
    const QString &neu = richtung == Richtung::Ausgang ? profil.rubrikAusgang : profil.rubrikEingang;
    return neu == rubrik ? std::nullopt : std::optional(neu);
}

std::optional<QString> Rechnungsrichtung::berichtigen(const QString &rubrik, const QString &text, const Profil &profil)
{
    return Rechnungsrichtung(profil.eigeneAnschriften).berichtigt(rubrik, text, profil);
}
} // namespace quillmar::regeln
