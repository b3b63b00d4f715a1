#pragma once

#include "anfrage.h"
#include "einrichtungsstand.h"
#include "namensraeume.h"

#include <QObject>

namespace quillmar::zustand
{
class Profilwahl;

/** Reads the tree below the target root into the active profile, and compares it with what was read before. */
class Strukturlesung : public QObject
{
    Q_OBJECT

public:
    /** Keeps the structure's part of @p stand. Both outlive it. */
    Strukturlesung(Profilwahl *profilwahl, Einrichtungsstand *stand);

    /** Another profile: there is nothing to compare with yet. */
    void wechseln();
    /** Other settings: the target root may be another one, or the structure. */
    void vergleichen();
    void einlesen();

Q_SIGNALS:
    void gelesen();  ///< a reading has begun or ended
    void geordnet(); ///< there are other lines

private:
    /** Of the active profile's structure. */
    struct Bekanntes {
        QString wurzel;                      ///< below which it was read, as far as is known
        QList<Zweig> vorher;                 ///< before the last reading; empty: nothing to compare with
        std::optional<QList<Zweig>> gezeigt; ///< that the lines were made from
    };

    void fertig(const std::optional<QList<Zweig>> &zweige);
    void uebernehmen(const QList<Zweig> &zweige);
    void ordnen();

    Profilwahl *m_profilwahl;
    Einrichtungsstand *m_stand;
    Anfrage m_frage;
    Bekanntes m_bekanntes;
};
} // namespace quillmar::zustand
