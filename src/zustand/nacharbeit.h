#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/** What a run left for the user to look after. */
struct Nacharbeit {
    /** A document that could not be read or classified. */
    struct Gescheitertes {
        qint64 id = 0;
        QString name;
        QString ordner; ///< name of the one that it lies in
        QString grund;  ///< in the user's language
        bool operator==(const Gescheitertes &) const = default;
    };
    /** A duplicate that waits to be set aside. */
    struct Dublette {
        qint64 id = 0;
        QString name;
        QString original;       ///< name of the document it repeats
        bool bytegleich = true; ///< else only its text is the same
        bool operator==(const Dublette &) const = default;
    };
    QList<Gescheitertes> gescheiterte;
    QList<Dublette> dubletten;
    qint64 unbeantwortet = 0; ///< waiting documents whose second opinion was asked for in vain
    bool operator==(const Nacharbeit &) const = default;

    /** Reads it from the catalogue. Blocks. */
    [[nodiscard]] static Nacharbeit lesen(Datenbank &db);
};
} // namespace quillmar::zustand
