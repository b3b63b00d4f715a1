#pragma once

#include "katalog.h"
#include "namensraeume.h"
#include "warteschlange.h"
#include "wert.h"

#include <QVariant>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <unordered_map>

struct sqlite3;
struct sqlite3_stmt;

namespace quillmar::katalog
{
/**
 * A profile's catalogue: one SQLite file, its schema, a query and a statement. All SQL is literal text with "?"
 * placeholders and stands in the classes of the tables; nobody else sees this class from inside.
 *
 * Calls from any thread are served one after the other. Parameters are text, whole numbers, truth values (1 and 0) and
 * floating-point numbers; an absent value and every other type bind NULL.
 */
class Datenbank
{
public:
    using Fehler = grundlage::Fehler;
    using Wert = katalog::Wert;
    using Zeile = katalog::Zeile;

    /**
     * Opens the catalogue at @p pfad, or makes it with its folder when there is no file or an empty one. What cannot be
     * written, or is known to be damaged, is opened for reading. One of an earlier form is copied before it gets the
     * present one, unless @p sichern says otherwise. Throws Fehler when the file is no catalogue or cannot be opened;
     * it is left as it is then.
     */
    explicit Datenbank(const QString &pfad, bool sichern = true);
    ~Datenbank();
    Datenbank(const Datenbank &) = delete;
    Datenbank &operator=(const Datenbank &) = delete;

    /** All rows; none when the statement is faulty. An error in the middle ends the list there. */
    [[nodiscard]] QList<Zeile> abfragen(const QString &sql, const QVariantList &parameter = {});
    /**
     * Without parameters: runs all statements of the text. With parameters: the first one only. Returns SQLite's result
     * code, 0 for success, 1 for a faulty statement. A file locked by another program is waited for, up to a minute.
     */
    int ausfuehren(const QString &sql, const QVariantList &parameter = {});
    /** As abfragen(), but what cannot be asked throws Katalogfehler. */
    [[nodiscard]] QList<Zeile> lesen(const QString &sql, const QVariantList &parameter = {});
    /**
     * The same row by row, for results that should not stand in memory at once; the queue is held meanwhile. Throws
     * when rows are missing, after those that came were visited.
     */
    void besuchen(const QString &sql, const QVariantList &parameter, const std::function<void(const Zeile &)> &besuch);
    /** Runs one statement; returns how many rows it has changed. Throws Katalogfehler when it could not. */
    int schreiben(const QString &sql, const QVariantList &parameter = {});

    // What lesen() has found, for questions of one row or column.
    /** What @p aus makes of the first row; none if there is none. */
    template <typename Aus>
    [[nodiscard]] auto eine(const QString &sql, const QVariantList &parameter, Aus aus)
        -> std::optional<std::invoke_result_t<Aus, const Zeile &>>
    {
        const QList<Zeile> zeilen = lesen(sql, parameter);
        if (zeilen.isEmpty())
            return std::nullopt;
        return aus(zeilen.first());
    }
    [[nodiscard]] bool gibtEs(const QString &sql, const QVariantList &parameter);
    /** Column n of the only row. */
    [[nodiscard]] qint64 zahl(const QString &sql, const QVariantList &parameter = {});
    /** Column id of the first row, and of all rows. */
    [[nodiscard]] std::optional<qint64> nummer(const QString &sql, const QVariantList &parameter);
    [[nodiscard]] QList<qint64> nummern(const QString &sql, const QVariantList &parameter = {});

    [[nodiscard]] const QString &pfad() const { return m_pfad; }
    [[nodiscard]] Zugang zugang() const { return m_zugang; }
    /** There was none, or an empty one. */
    [[nodiscard]] bool istNeu() const { return m_neu; }
    [[nodiscard]] bool nurLesen() const { return m_zugang != Zugang::Schreiben; }
    /** From now on it is only read, since it was seen to be damaged. */
    void sperren();
    [[nodiscard]] Warteschlange &schlange() { return m_schlange; }

private:
    struct Schliesser {
        void operator()(sqlite3 *griff) const noexcept;
    };
    struct Finalisierer {
        void operator()(sqlite3_stmt *anweisung) const noexcept;
    };
    using Anweisung = std::unique_ptr<sqlite3_stmt, Finalisierer>;

    bool griffOeffnen(const QString &zusatz);
    bool zumLesenOeffnen();
    bool beschaedigtOeffnen();
    void einrichten(bool sichern);
    [[nodiscard]] Zugang umformen(bool sichern);
    [[nodiscard]] bool hatForm();
    void nichtsMehrSchreiben();
    void anlegen();
    void nachgeprueftAnlegen();
    [[nodiscard]] bool istBeschreibbar();
    [[nodiscard]] Anweisung vorbereiten(const QString &sql, const QVariantList &parameter);
    void zurueckgeben(const QString &sql, Anweisung anweisung);
    /** Steps through; result code, SQLITE_OK when there were no more rows. */
    [[nodiscard]] int schritte(const QString &sql, const QVariantList &parameter,
                               const std::function<void(const Zeile &)> &besuch);
    void fehlendesErsetzen();
    [[noreturn]] void scheitern(int code, const QString &satz);
    [[nodiscard]] int einmal(const QString &sql, const QVariantList &parameter);
    /** Begins a transaction and keeps the queue; @p innere tells that one was already open. */
    [[nodiscard]] int beginnen(bool &innere);
    [[nodiscard]] int mitGeduld(const std::function<int()> &arbeit, bool platzBehalten = false);

    friend class Transaktion;

    QString m_pfad;
    Warteschlange m_schlange;
    std::unique_ptr<sqlite3, Schliesser> m_griff;
    std::unordered_map<QString, Anweisung> m_bereit; ///< prepared statements that nobody uses at the moment
    std::atomic<Zugang> m_zugang = Zugang::Schreiben;
    bool m_neu = false; ///< there was no table in it
};
} // namespace quillmar::katalog
