#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace quillmar::fundstellen
{
/** What can be shown on a page. */
enum class Wert { Datum, Gegenueber, Titel };

/** Where a value, or a part of one, stands. */
struct Beleg {
    Wert wert = Wert::Datum;
    Fundstelle stelle;
    bool operator==(const Beleg &) const = default;
};

/** Where the values of a document stand on its pages. */
struct Belege {
    QList<Beleg> stellen; ///< by value, of one value the most telling first; neighbours of one title are one
    bool datumFehlt = false;
    bool gegenueberFehlt = false;
    QStringList fehlendeZahlen; ///< of the title, as they are written there
    bool operator==(const Belege &) const = default;
};

/** Empty values are not looked for and do not lack. Without any word on any page nothing is said. */
[[nodiscard]] Belege belege(const QList<Wortfolge> &seiten, const QString &datum, const QString &gegenueber,
                            const QString &titel);
} // namespace quillmar::fundstellen
