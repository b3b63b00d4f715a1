#pragma once

#include "namensraeume.h"
#include "profil.h"

#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::analyse
{
/** What keeps a run from having its questions answered, whatever the document; the user is told once. */
struct Laufhindernis {
    enum class Art {
        ServerWeg,         ///< nobody listens at the model server's address
        ErstesModellFehlt, ///< the server does not have the model that classifies
        ModellFehlt,       ///< the server does not have the larger model
        ModellAnderswo,    ///< the model would be computed on another computer
    };
    Art art = Art::ServerWeg;
    QString modell;
    bool operator==(const Laufhindernis &) const = default;

    /** For the user. */
    [[nodiscard]] QString satz() const;
};

/** What a run has to say when it is over. */
struct Lauffazit {
    QStringList hinweise;                        ///< what was left out, why it ended early
    QList<Laufhindernis> hindernisse;            ///< each once
    QStringList behinderte;                      ///< German names of the stages that met one
    QList<std::pair<QString, int>> gescheiterte; ///< documents without a proposal by reason, in the order met
};

/** What a run publishes about itself. */
struct Laufstand {
    QString stufe; ///< its German name: a run may outlast the choice of a language
    QString meldung;
    QString restzeit;
    double anteil = 0; ///< of the current stage, 0 to 1
    QString dokument;  ///< file name of the one in hand; empty between two
    int dokumente = 0; ///< how many have been in hand: tells it from another one of the same name
    bool operator==(const Laufstand &) const = default;
};

/**
 * What the stages of one run share: catalogue, profile as it stood at the start, the two ways to end, and the channel
 * to whoever watches. Belongs to the run's own thread.
 */
class Lauf
{
public:
    using Melden = std::function<void(const Laufstand &)>;

    Lauf(std::shared_ptr<Datenbank> db, Profil profil, std::function<bool()> halt, std::stop_token ende, Melden melden);

    [[nodiscard]] Datenbank &db() const { return *m_db; }
    [[nodiscard]] const std::shared_ptr<Datenbank> &katalog() const { return m_db; }
    [[nodiscard]] const Profil &profil() const { return m_profil; }

    /** Asked between two documents: the user wishes to stop, or the program ends. */
    [[nodiscard]] bool sollHalten() const { return m_ende.stop_requested() || m_halt(); }
    /** The program ends: also the document in hand is given up, and stays open for the next run. */
    [[nodiscard]] const std::stop_token &ende() const { return m_ende; }

    /** @p name in German. */
    void stufe(const QString &name);
    void meldung(const QString &text);
    /** The document with this file name is in hand until fortschritt(). */
    void dokument(const QString &name);
    /** Publishes @p text and how far the stage is; no document is in hand any more. */
    void fortschritt(const QString &text, qsizetype fertig, qsizetype gesamt);
    /** Something that the user should know when the run is over, such as entries that were left out. */
    void hinweis(const QString &text) { m_fazit.hinweise << text; }
    /** The stage has met @p art, perhaps not for the first time. */
    void hindernis(Laufhindernis::Art art, const QString &modell = {});
    /** A document has got no proposal for @p grund. */
    void gescheitert(const QString &grund);
    [[nodiscard]] const QStringList &hinweise() const { return m_fazit.hinweise; }
    [[nodiscard]] const Lauffazit &fazit() const { return m_fazit; }

private:
    std::shared_ptr<Datenbank> m_db;
    Profil m_profil;
    std::function<bool()> m_halt;
    std::stop_token m_ende;
    Melden m_melden;
    Laufstand m_stand;
    Lauffazit m_fazit;
    std::chrono::steady_clock::time_point m_beginn;
};
} // namespace quillmar::analyse
