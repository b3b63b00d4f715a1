#include "ordnerwahl.h"

#include "einstellungen.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
constexpr auto schluesselOrdner = "ordner"_L1;
constexpr auto schluesselProtokoll = "ordner/protokolldatei"_L1;
} // namespace

Ordnerwahl::Waehler Ordnerwahl::ordnerwaehler;
Ordnerwahl::Waehler Ordnerwahl::protokollwaehler;

std::optional<QString> Ordnerwahl::ordnerWaehlen(const QString &titel, const QString &zweck, const QString &sonst)
{
    if (!ordnerwaehler)
        return std::nullopt;
    const QString eigener = schluesselOrdner + u'/' + zweck;
    QString beginn = zweck.isEmpty() ? QString() : Einstellungen::wert(eigener).toString();
    for (const QString &ordner : {sonst, Einstellungen::wert(schluesselOrdner).toString()}) {
        if (beginn.isEmpty())
            beginn = ordner;
    }
    auto gewaehlt = ordnerwaehler(titel, beginn);
    if (gewaehlt) {
        Einstellungen::setzen(schluesselOrdner, *gewaehlt);
        if (!zweck.isEmpty())
            Einstellungen::setzen(eigener, *gewaehlt);
    }
    return gewaehlt;
}

std::optional<QString> Ordnerwahl::protokollWaehlen(const QString &titel, const QString &sonst)
{
    if (!protokollwaehler)
        return std::nullopt;
    const QString beginn = Einstellungen::wert(schluesselProtokoll).toString();
    auto datei = protokollwaehler(titel, beginn.isEmpty() ? sonst : beginn);
    if (datei)
        Einstellungen::setzen(schluesselProtokoll, QFileInfo(*datei).path());
    return datei;
}
} // namespace quillmar::zustand
