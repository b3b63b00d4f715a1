#include "protokollbuch.h"
#include "pruefziel.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

/** A session log of any bytes: whole movements come out as they would be written again. */
void pruefen(const QByteArray &eingabe)
{
    static const QTemporaryDir ordner;
    const QString pfad = ordner.filePath(u"Protokoll 2025-01-01 000000.jsonl"_s);
    QFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return;
    datei.write(eingabe);
    datei.close();
    static_cast<void>(Protokollbuch::kopf(pfad));
    for (const Protokollzeile &zeile : Protokollbuch::lesen(pfad)) {
        const auto noch = Protokollzeile::aus(zeile.json());
        verlangen(noch && *noch == zeile);
    }
}
