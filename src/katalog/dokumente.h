#pragma once

#include "dokument.h"
#include "namensraeume.h"
#include "richtung.h"

#include <QList>
#include <functional>

namespace quillmar::katalog
{
class Datenbank;

/** The table dokumente as the review sees it: what waits, what it says, and what becomes of it. Throws Katalogfehler.
 */
class Dokumente
{
public:
    explicit Dokumente(Datenbank &db) : m_db(db) {}

    [[nodiscard]] std::optional<Dokument> eines(qint64 id) const;

    // The queue: documents with the status "bereit" that no exclusion covers, in the order of their numbers.
    /** The one with @p id, if it waits. */
    [[nodiscard]] std::optional<Dokument> wartendes(std::optional<qint64> id) const;
    [[nodiscard]] QList<Dokument> wartende() const;
    /** The one after or before @p nach; the first one where there is none, or no @p nach. */
    [[nodiscard]] std::optional<Dokument> naechstes(std::optional<qint64> nach, Richtung richtung) const;
    /** The next one behind @p id that has title and category, from the start again behind the last. */
    [[nodiscard]] std::optional<Dokument> naechstesVollstaendige(qint64 id) const;
    /** All with the status "bereit", also excluded ones. */
    void jedesBereite(const std::function<void(const Dokument &)> &besuch) const;

    /** All there are. */
    [[nodiscard]] qint64 anzahl() const;
    [[nodiscard]] qint64 ausgenommene() const;

    /** Changes the status if it is @p von. Returns whether it was. */
    bool statusWechseln(qint64 id, Status von, Status nach);
    void setzeStatus(qint64 id, Status status);
    void angabenSchreiben(qint64 id, const Angaben &angaben);
    /** It lies at @p pfad now. Whatever other document claims that place gives it up. To be part of a transaction. */
    void ortSchreiben(qint64 id, Status status, const QString &pfad);
    /** Only where its file is; for a copy of the catalogue. */
    void setzePfad(qint64 id, const QString &pfad);

    /** What exclusion rules are compared with. */
    struct Fundort {
        qint64 id = 0;
        QString altOrdner;
        QString dateiname;
        bool ausgenommen = false;
    };
    void jederFundort(const std::function<void(const Fundort &)> &besuch) const;
    void setzeAusgenommen(qint64 id, bool ausgenommen);

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
