#pragma once

#include "anfrage.h"
#include "lesung.h"

#include <QTimer>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/**
 * Reads the documents that wait behind the one under review, one by one, so that they are ready when these come. What
 * cannot be read shows when it is looked at.
 */
class Vorauslesung : public QObject
{
    Q_OBJECT

public:
    explicit Vorauslesung(QObject *eltern);

    /** For the next documents behind the one with @p id, as @p wie says; @p nurTextebenen: recognises none. */
    void beginnen(const std::shared_ptr<Datenbank> &db, qint64 id, const Leseauftrag &wie, bool nurTextebenen);
    void abbrechen();
    /** Is at @p auftrag just now: who needs it waits for fertig() rather than to begin anew. */
    [[nodiscard]] bool liest(const Leseauftrag &auftrag) const { return m_jetziger == auftrag; }
    /** What was read so; null unless it is one of the last few. */
    [[nodiscard]] Lesungszeiger bereit(const Leseauftrag &auftrag) const;

Q_SIGNALS:
    void fertig(const Leseauftrag &auftrag); ///< ready, or not to be read

private:
    void fragen();
    void naechster();

    struct Frage {
        std::shared_ptr<Datenbank> db;
        qint64 id = 0;
        Leseauftrag wie;
        bool nurTextebenen = false;
    };
    Frage m_wunsch;
    QTimer m_ruhe; ///< runs while the page under review still has to be shown
    Wortspeicher m_speicher;
    QList<Leseauftrag> m_wartende;
    std::optional<Leseauftrag> m_jetziger;
    QList<Lesungszeiger> m_bereite; ///< the last one read last
    Anfrage m_frage;
};
} // namespace quillmar::zustand
