#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

/** What a source passes to the lookup, and the places where that is neither a literal nor marked. */
struct Fund {
    QSet<QString> texte;
    QStringList verstoesse;
};

/** Adds what @p quelltext, the text of @p datei, holds. */
void ausQuelle(const QString &quelltext, const QString &datei, Fund &fund);

/** What all sources below @p ordner hold, the lookup itself left out. */
[[nodiscard]] Fund ausAllenQuellen(const QString &ordner);
