#pragma once

#include "bilanz.h"
#include "namensraeume.h"
#include "protokollzeile.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::ablage
{
/**
 * The log of one session: a file in JSON Lines form, a header and a line for each movement. It is the record from which
 * a session can be turned back, on another computer or without the catalogue too. Never rewritten, never deleted.
 */
class Protokollbuch
{
public:
    /**
     * A book in @p ordner, which is made if need be (not the target root it may lie in: a drive may not be mounted).
     * Null when that fails. The file itself appears with the first line.
     */
    [[nodiscard]] static std::shared_ptr<Protokollbuch> anlegen(const QString &ordner, const Profil &profil);

    /** Appends a movement, after ending a line that an earlier crash has torn. False when it could not be written. */
    bool anhaengen(const Protokollzeile &zeile);

    /** The file, or the name it is to have. With the first line it may move on to the next second that is free. */
    [[nodiscard]] QString datei() const;
    [[nodiscard]] QString ordner() const;
    [[nodiscard]] const Protokollkopf &kopf() const { return m_kopf; }

    /** Log files in @p ordner, newest first. */
    [[nodiscard]] static QStringList dateien(const QString &ordner);
    [[nodiscard]] static std::optional<Protokollkopf> kopf(const QString &datei);
    /** Movements in the order of the file. Lines that are damaged or something else are passed over. */
    [[nodiscard]] static QList<Protokollzeile> lesen(const QString &datei);

    /**
     * Appends to the book @p datei what a crash kept out of it. If that book is not there or is another session's,
     * begins one. False when it could not be written; a folder that is gone counts as done.
     */
    static bool nachtragen(const QString &datei, const Protokollkopf &kopf, const Protokollzeile &zeile);

    using Fortschritt = std::function<void(qint64 fertig, qint64 gesamt)>;
    /**
     * Turns all movements of a session back, newest first. @p db (may be null: only files are moved then) is changed
     * where it knows the movement. What lies at neither or both ends, and what is turned back already, is passed over;
     * a failure does not stop the rest, and what failed lies where it was. @p fortschritt is called after each
     * movement. Once @p ende wants it, the movements in hand are finished and the rest is passed over.
     *
     * Lines that the catalogue does not know move only documents (".pdf"), and only between the source and the target
     * that the header names; where there is no header, between the folders @p grenzen. What the movements have taught
     * is taken back with them, by the structure and the addresses of @p profil.
     */
    [[nodiscard]] static Bilanz zurueckdrehen(const QString &datei, const std::shared_ptr<Datenbank> &db,
                                              const Fortschritt &fortschritt, const std::stop_token &ende = {},
                                              const QStringList &grenzen = {}, const Profil &profil = {});

private:
    Protokollbuch(QString datei, Protokollkopf kopf) : m_datei(std::move(datei)), m_kopf(std::move(kopf)) {}

    QString m_datei;
    Protokollkopf m_kopf;
    bool m_begonnen = false;
    mutable std::mutex m_schloss;
};
} // namespace quillmar::ablage
