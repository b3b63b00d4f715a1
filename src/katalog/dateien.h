#pragma once

#include "namensraeume.h"
#include "status.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QStringList>
#include <functional>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;

/** What the catalogue knows of a document's file. */
struct Dateinotiz {
    QString sha256;        ///< 64 hexadecimal characters; empty if it was never read
    qint64 groesse = -1;   ///< bytes; negative if not even that is known
    qint64 geaendert = 0;  ///< nanoseconds since 1970
    bool notiert = false;  ///< size and time stand in the catalogue; else only the size does
    bool geprueft = false; ///< the digest was formed from a file in this state
};

/**
 * The files of the documents: where they are, what they are, and which repeat others. Speaks for the columns of
 * dokumente that tell of the file, and for the tables dateistand, fruehere_pfade and abwesend. Throws Katalogfehler.
 */
class Dateien
{
public:
    explicit Dateien(Datenbank &db) : m_db(db) {}

    /** A document that claims a path. */
    struct Bekanntes {
        qint64 id = 0;
        Status status = Status::Unbekannt;
        bool abwesend = false; ///< a stage has found its file missing
        Dateinotiz stand;
    };
    using Verzeichnis = QHash<QString, Bekanntes>; ///< by path
    /** All documents with a path that no exclusion covers. */
    [[nodiscard]] Verzeichnis verzeichnis() const;
    [[nodiscard]] std::optional<Dateinotiz> stand(qint64 id) const;
    /** Paths of all documents. */
    void jederPfad(const std::function<void(const QString &)> &besuch) const;
    /** Paths of the documents below @p ordner (ends in "/") that are not filed or set aside yet. */
    [[nodiscard]] QStringList offeneUnter(const QString &ordner) const;

    /** A file that the inventory has found. */
    struct Fund {
        QString pfad;
        QString name;
        QString ordner; ///< relative to the source folder
        qint64 groesse = 0;
    };
    /** Takes it in, unless a movement after @p seit has taken it away from there. Returns whether it did. */
    bool aufnehmen(const Fund &fund, qint64 seit);
    /** A document as a log line finds it. */
    struct Verzeichnetes {
        qint64 id = 0;
        QString pfad; ///< empty if it has none
        QString sha256;
    };
    [[nodiscard]] std::optional<Verzeichnetes> anPfad(const QString &pfad) const;
    [[nodiscard]] std::optional<Verzeichnetes> mitNummer(qint64 id) const;
    /** A document that only a log tells of, with the number @p id where that is free; @p fund.pfad may be empty. */
    qint64 nachtragen(qint64 id, const Fund &fund, const QString &summe);
    /** Numbers up to @p bis are named elsewhere and are not given out any more. */
    void nummernVergeben(qint64 bis);

    /** The state in which the file was when its digest was formed (@p geprueft), or was merely seen. */
    void standNotieren(qint64 id, qint64 groesse, qint64 geaendert, bool geprueft);
    /** The document that lies at @p fund now is read already and has the digest @p summe. */
    void gelesenVermerken(const Fund &fund, qint64 geaendert, const QString &summe);
    /** A vanished document goes on where it was. */
    void zurueckgekehrt(qint64 id);
    /** The same for one that could not be read for that: it is read now. */
    void wiederDa(qint64 id);
    /** Nobody has seen it yet: it is the file that lies there now. False when it has been handled meanwhile. */
    bool neuFassen(qint64 id, const Fund &fund, const QString &summe);
    void abwesendVermerken(qint64 id);
    void abwesendStreichen(qint64 id);

    /**
     * Takes a document's path from it, since another file lies there: it keeps its history, where it was is remembered
     * apart, and if it waited it is "fehlt" from now on. False when it no longer has @p pfad: then nothing changes.
     */
    bool pfadFreigeben(qint64 id, const QString &pfad);
    /** The same for whatever document but @p ausser claims @p pfad. */
    void platzFreimachen(const QString &pfad, qint64 ausser);
    /** The file of @p groesse bytes that lies at the document's place becomes a document of its own. */
    void ersetzen(qint64 id, qint64 groesse);

    struct Ohnesumme {
        qint64 id = 0;
        QString pfad;
    };
    [[nodiscard]] QList<Ohnesumme> ohnePruefsumme() const;
    /** Returns whether it had none. */
    bool setzePruefsumme(qint64 id, const QString &summe);

    /** What two documents may share. */
    enum class Gleichheit { Bytes, Text };
    struct Gleiches {
        qint64 id = 0;
        QString pfad;
        bool neu = false;
    };
    /**
     * New documents with those that share their hash, whatever has become of these, by that hash. Files with the digest
     * @p ausser are left out.
     */
    [[nodiscard]] QMap<QString, QList<Gleiches>> gleiche(Gleichheit gleichheit, const QString &ausser) const;

    /** A document that repeats another one. */
    struct Dublette {
        qint64 id = 0;
        QString pfad;
        qint64 original = 0;
        QString originalPfad;
        bool bekannt = false;    ///< the original is there and no exclusion covers it
        bool anders = false;     ///< what they shared is not the same any more
        bool bytegleich = false; ///< else only the text is
        bool gleicheSumme = false;
    };
    /** Those that wait to be set aside. */
    [[nodiscard]] QList<Dublette> dubletten() const;
    [[nodiscard]] std::optional<Dublette> dublette(qint64 id) const;
    /** Marks a new document, with the similarity @p guete (0 to 1). */
    void alsDubletteMarkieren(qint64 id, qint64 original, double guete);
    /** It waits as a document of its own again. */
    void dubletteFreigeben(qint64 id);
    /** Its own path and those of copies that were filed and not taken back. */
    [[nodiscard]] QStringList orte(qint64 id) const;

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
