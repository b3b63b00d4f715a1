#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>

namespace quillmar::ablage
{
/** Why a movement of a session was not turned back. */
struct Rueckbaubefund {
    qsizetype stelle = -1; ///< of its line among Protokollbuch::lesen(); -1: of the session as a whole
    QString grund;         ///< in the user's language
    bool operator==(const Rueckbaubefund &) const = default;
};

/** What turning a session back came to. */
struct Bilanz {
    qint64 zurueckgedreht = 0;
    QList<Rueckbaubefund> fehler;        ///< movements that failed, in order
    QList<Rueckbaubefund> uebersprungen; ///< passed over: turned back already, vanished, or its old place is taken
    QString verweigert = {};             ///< why it was not begun at all, in the user's language; empty if it was
    bool operator==(const Bilanz &) const = default;
};
} // namespace quillmar::ablage
