#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QStringList>

namespace quillmar::fundstellen
{
/** A page typed with a typewriter: a hundred columns, seventy lines; blanks keep their width. */
inline Seitenworte getippt(const QStringList &zeilen)
{
    Seitenworte worte;
    for (qsizetype z = 0; z < zeilen.size(); ++z) {
        const QString &zeile = zeilen.at(z);
        for (qsizetype i = 0; i < zeile.size();) {
            qsizetype ende = zeile.indexOf(QChar(u' '), i);
            ende = ende < 0 ? zeile.size() : ende;
            if (ende > i)
                worte << Seitenwort{.text = zeile.sliced(i, ende - i),
                                    .ort = {double(i) / 100, double(z) / 70, double(ende - i) / 100, 0.8 / 70}};
            i = ende + 1;
        }
    }
    return worte;
}

inline QList<Wortfolge> brief(const QStringList &zeilen) { return wortfolgen({getippt(zeilen)}); }

/** The words there; nothing for no place. */
inline QString wortlaut(const QList<Wortfolge> &seiten, const std::optional<Fundstelle> &stelle)
{
    return stelle ? seiten.at(stelle->seite).wortlaut(*stelle) : QString();
}
} // namespace quillmar::fundstellen
