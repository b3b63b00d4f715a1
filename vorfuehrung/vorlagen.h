#pragma once

#include "scan.h"

#include <QString>
#include <QStringList>

namespace vorfuehrung
{

/** How the file of a sample document is made. */
enum class Machart {
    text,           ///< pages with a text layer
    bild,           ///< pages as pictures only, skewed and speckled
    kopie,          ///< the bytes of another document
    neuGespeichert, ///< the pages of another document, written anew with other bytes
    leer,           ///< one blank page
    beschaedigt,    ///< cut off in the middle
    verschluesselt, ///< opens with a password only
};

/**
 * A sample document: where it lies, what stands on it, and what an analysis with the demonstration model must find.
 * Texts that do not apply are empty.
 */
struct Vorlage {
    QString pfad; ///< below the source folder, with "/" between folders
    Machart machart = Machart::text;
    bool zerlegt = false;         ///< umlauts of the file name as letter and mark (NFD), as some systems write them
    Scanlage lage;                ///< for pictures
    bool ebeneVerschoben = false; ///< pictures with a text layer each of whose letters is the next one
    QString von;                  ///< path of the document that is copied or written anew
    QList<QStringList> seiten;
    QString datum; ///< JJJJ-MM-TT
    QString gegenueber;
    QString titel;
    QString zweig;
    QString ablage;
    QString rubrik;
    QString ortQuelle;
    QString fehler;     ///< how the reason of the failure begins
    QString aehnlichZu; ///< path of the similar document
};

/** All sample documents in the order of their paths. */
[[nodiscard]] QList<Vorlage> vorlagen();

/** Reads the documents of one file; each begins with a line "=== PATH". Throws Fehlschlag at a key it does not know. */
[[nodiscard]] QList<Vorlage> vorlagenLesen(const QString &text);

} // namespace vorfuehrung
