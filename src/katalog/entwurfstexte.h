#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QHash>

namespace quillmar::katalog
{
class Datenbank;

/** The table entwuerfe: what the reviewer has typed and not filed yet, as text. Throws Katalogfehler. */
class Entwurfstexte
{
public:
    explicit Entwurfstexte(Datenbank &db) : m_db(db) {}

    /** Of all documents that are not filed, by their numbers. */
    [[nodiscard]] QHash<qint64, QByteArray> alle() const;
    /** In place of the one before; an empty one removes it. */
    void speichern(qint64 dokument, const QByteArray &text);

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
