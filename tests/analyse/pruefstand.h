#pragma once

#include "datenbank.h"
#include "lauf.h"
#include "testserver.h"

#include <QJsonObject>
#include <QTemporaryDir>

using namespace quillmar::analyse;

/** A catalogue, a profile with a small structure, and a model server that says what a test scripts. */
class Pruefstand
{
public:
    Pruefstand();

    /** A document in the queue with its text; returns its id. */
    qint64 dokument(const QString &dateiname, const QString &text, const QString &altOrdner = {}) const;
    [[nodiscard]] Zeile zeile(qint64 id) const;
    /** The named columns of a document, joined with "|". */
    [[nodiscard]] QString werte(qint64 id, const QStringList &spalten) const;

    /** A whole answer of the model for @p objekt. */
    [[nodiscard]] static Testantwort antwort(const QJsonObject &objekt);
    /** The usual proposal, with @p anders instead of or besides it. */
    [[nodiscard]] static QJsonObject vorschlag(const QJsonObject &anders = {});
    void modellSagt(const QList<Testantwort> &folge) { m_server->antworten("/api/generate", folge); }
    /** Gives the answers that were held back. */
    void loslassen() { m_server->loslassen(); }
    /** What the server lists, one object per model; without this it lists nothing. */
    void serverListet(const QList<QJsonObject> &modelle);
    /** Nobody listens any more where the server was. */
    void serverStirbt();
    /** The requests that the model got so far. */
    [[nodiscard]] QList<QJsonObject> fragen() const;

    [[nodiscard]] Lauf lauf(
        std::function<bool()> halt = [] { return false; }, std::stop_token ende = {}) const;

    [[nodiscard]] Datenbank &db() const { return *m_db; }
    [[nodiscard]] const std::shared_ptr<Datenbank> &katalog() const { return m_db; }
    Profil profil;

private:
    QTemporaryDir m_ordner;
    std::shared_ptr<Datenbank> m_db;
    std::unique_ptr<Testserver> m_server = std::make_unique<Testserver>();
    QList<Testanfrage> m_fruehere; ///< that the dead server got
};
