#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;

/** One movement of a file as the catalogue has recorded it. */
struct Bewegung {
    qint64 id = 0;
    qint64 dokument = 0;
    QString zeit; ///< ISO 8601
    QString aktion;
    QString von;
    QString nach;
    QString altStatus; ///< word of the status before
    bool kopiert = false;
    bool zurueck = false; ///< it was turned back
    QByteArray vonName{}; ///< bytes of the name at "von" on disk where they are not those of "von"; else empty
};

/** The table protokoll, and the spellings in schreibweisen that belong to it. Throws Katalogfehler. */
class Bewegungen
{
public:
    explicit Bewegungen(Datenbank &db) : m_db(db) {}

    [[nodiscard]] std::optional<Bewegung> eine(qint64 id) const;
    /** The newest row, 0 if there is none. */
    [[nodiscard]] qint64 neueste() const;
    /** The newest movement that lasts, before that with @p vor; none if there is none. */
    [[nodiscard]] std::optional<qint64> letzte(std::optional<qint64> vor = {}) const;
    /** The same without those that are part of a deed of many. */
    [[nodiscard]] std::optional<qint64> letzteEinzelne(std::optional<qint64> vor) const;

    /**
     * Records it; its id and whether it was turned back are not looked at. Returns its row. To be part
     * of a transaction. */
    qint64 eintragen(const Bewegung &bewegung);
    void alsZurueckVermerken(qint64 id);
    [[nodiscard]] bool istZurueck(qint64 id) const;
    /** A movement of the document between these places stands behind the row @p hinter. */
    [[nodiscard]] bool istEingetragen(qint64 hinter, qint64 dokument, const QString &von, const QString &nach) const;

    /** Those of the document from there, which it has left once more. Returns their rows. */
    QList<qint64> fruehereAlsZurueckVermerken(qint64 dokument, const QString &von);

    /** One of that time between these places lasts. Looks through all. */
    [[nodiscard]] bool besteht(const QString &zeit, const QString &von, const QString &nach) const;

    /** All, newest first. */
    void jede(const std::function<void(const Bewegung &)> &besuch) const;

    /** A movement beside what has become of its document. */
    struct Stand {
        qint64 id = 0;
        bool zurueck = false;
        QString zeit;
        QString pfad;               ///< where its document is today; empty if it has no place
        bool platzVergeben = false; ///< another document has its old place, and is not known to be gone from there
        QByteArray vonName;
    };
    [[nodiscard]] std::optional<Stand> stand(qint64 id) const;
    /** Of all movements of the document between these places. */
    [[nodiscard]] QList<Stand> staende(qint64 dokument, const QString &von, const QString &nach) const;

    /** Paths of the copies that were made and not taken back. */
    [[nodiscard]] QSet<QString> kopien() const;
    /** Where the last twenty documents were filed below @p wurzel since umzugVermerken(), newest first. */
    [[nodiscard]] QStringList letzteZiele(const QString &wurzel) const;
    /** What was filed below @p wurzel until now is elsewhere, and the user knows. */
    void umzugVermerken(const QString &wurzel);

    // What the source folder is: the folder below a drive that is not mounted is another one.
    [[nodiscard]] std::optional<qint64> herkunft(const QString &pfad) const;
    void herkunftMerken(const QString &pfad, qint64 nummer);

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
