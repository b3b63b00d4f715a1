#pragma once

#include "dokument.h"
#include "namensraeume.h"
#include "seitenlagen.h"

#include <QList>
#include <functional>

namespace quillmar::katalog
{
class Datenbank;

/**
 * What was read in the documents: the table texte, and the columns of dokumente that tell of the text. Throws
 * Katalogfehler.
 */
class Texte
{
public:
    explicit Texte(Datenbank &db) : m_db(db) {}

    /** The stored text; none if there is no row, empty if nothing was found. */
    [[nodiscard]] std::optional<QString> text(qint64 id) const;
    /** The document has a text layer, but it is no text: what is stored was recognised. */
    [[nodiscard]] bool istEbeneVerworfen(qint64 id) const;
    /** Some text is stored. */
    [[nodiscard]] bool hatText(qint64 id) const;

    // Reading
    [[nodiscard]] QList<qint64> zuLesende() const;
    /** Where the document lies; none if it is not to be read (any more). */
    [[nodiscard]] std::optional<QString> pfadZumLesen(qint64 id) const;
    /** What the reading of one document gave. */
    struct Gelesenes {
        QString text;
        bool textebene = false;
        QString textHash;
        QString skizze;
        bool ebeneVerworfen = false;  ///< there is a text layer, but it is no text
        QList<Seitenlage> lagen = {}; ///< of pages that do not lie upright and straight
    };
    /** Stores it while the document waits to be looked at. */
    void speichern(qint64 id, const Gelesenes &gelesenes);
    void scheitern(qint64 id, const QString &fehler);

    // Similar texts
    [[nodiscard]] QString skizze(qint64 id) const;
    /** The sketches of the new documents, or of those known before. */
    void jedeSkizze(bool neue, const std::function<void(qint64 id, const QString &skizze)> &besuch) const;
    /** Notes that a new document resembles another one, unless it resembles one already. Returns whether it did. */
    bool verbinden(qint64 id, qint64 partner, double aehnlichkeit);
    [[nodiscard]] bool istVerbunden(qint64 id, qint64 partner) const;

    /** Each waiting or skipped document with its text. */
    void jedesOffene(const std::function<void(const Dokument &, const QString &text)> &besuch) const;

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
