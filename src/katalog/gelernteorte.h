#pragma once

#include "eintrag.h"
#include "namensraeume.h"

#include <QHash>
#include <QList>
#include <QStringList>

namespace quillmar::katalog
{
class Datenbank;

/**
 * What is counted of each counterpart's places besides the one that gelernt names: the tables gelernte_orte and
 * gelernte_worte. Throws Katalogfehler.
 */
class GelernteOrte
{
public:
    explicit GelernteOrte(Datenbank &db) : m_db(db) {}

    /** Most confirmed first, then by the tree, then the one confirmed last. */
    [[nodiscard]] QList<Ortszahl> orte(const QString &schluessel) const;
    /** The same of all counterparts, by their keys. */
    [[nodiscard]] QHash<QString, QList<Ortszahl>> alle() const;

    /** Adds to the counts, which never fall below 0; a place for which nothing speaks is removed. Returns its number.
     */
    qint64 zaehlen(const QString &schluessel, const Ort &ort, qint64 anzahl, qint64 korrekturen);
    /** How many of the counterpart's documents lie there in the tree; a place for which nothing speaks is removed. */
    void setzeBaum(const QString &schluessel, const Ort &ort, qint64 anzahl);
    [[nodiscard]] bool kenntBaum() const;

    void streichen(const QString &schluessel);
    void streichen(const QString &schluessel, const Ort &ort);
    void leeren();

    // Words of the filed documents, folded
    /**
     * Adds to the counts of a place: so many documents, and in how many of them each word stands; less than none for
     * what is taken back. From now on the place counts as looked at, also with none.
     */
    void worteZaehlen(qint64 ort, const QHash<QString, qint64> &worte, qint64 dokumente);
    /** In how many of the documents there each of @p gefragte stands; those in none are left out. */
    [[nodiscard]] QHash<QString, qint64> worte(qint64 ort, const QStringList &gefragte) const;
    /** The same for all words there are. */
    [[nodiscard]] QHash<QString, qint64> alleWorte(qint64 ort) const;

private:
    void leereStreichen(const QString &schluessel);

    Datenbank &m_db;
};
} // namespace quillmar::katalog
