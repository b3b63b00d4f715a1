#pragma once

#include "namensraeume.h"

#include <QList>
#include <QMap>

namespace quillmar::katalog
{
class Datenbank;

/** How a page lies in its file. */
struct Seitenlage {
    int seite = 0;      ///< from 1
    int drehung = 0;    ///< degrees clockwise that make it upright: 0, 90, 180 or 270
    double neigung = 0; ///< degrees clockwise that make it straight after that
    bool operator==(const Seitenlage &) const = default;
};

/**
 * How the pages lie, as reading has found out or the reviewer says: the table seitenlagen. A document without rows lies
 * right. Throws Katalogfehler.
 */
class Seitenlagen
{
public:
    explicit Seitenlagen(Datenbank &db) : m_db(db) {}

    /** What reading found; pages that lie upright and straight need not be told. What was turned by hand stays. */
    void speichern(qint64 dokument, const QList<Seitenlage> &lagen);
    /** The reviewer has turned a page. */
    void vonHand(qint64 dokument, int seite, int drehung);
    /** Another file lies there now. */
    void streichen(qint64 dokument);
    /** Turns that make pages upright, by page from 1; those that need none are left out. */
    [[nodiscard]] QMap<int, int> drehungen(qint64 dokument) const;

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
