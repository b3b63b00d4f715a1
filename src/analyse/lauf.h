#pragma once

#include "gesamtmass.h"
#include "namensraeume.h"
#include "profil.h"

#include <QSet>
#include <QString>
#include <QStringList>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
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
    QList<std::pair<QString, QString>>
        ergebnisse; ///< of a run in portions: what stages (German name) did in all of them
};

/** What a run publishes about itself. */
struct Laufstand {
    QString stufe; ///< its German name: a run may outlast the choice of a language
    QString meldung;
    QString restzeit;
    double anteil = 0; ///< of the current stage, 0 to 1
    QString dokument;  ///< file name of the one in hand; empty between two
    int dokumente = 0; ///< how many have been in hand: tells it from another one of the same name
    Laufganzes ganzes; ///< the fields above are about the portion in hand
    bool operator==(const Laufstand &) const = default;
};

/** Documents that go through the stages together. */
struct Portion {
    QList<qint64> dokumente; ///< ascending
    qsizetype offene = 0;    ///< these and all that come behind them
    qsizetype zuLesende = 0; ///< of the open ones
    bool istTeil = false;    ///< the run takes several portions
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

    /** From now on the stages are about the documents of @p portion. */
    void portionBeginnen(const Portion &portion);
    /** Those of @p offene that are in the portion; all of them where a run has none. */
    [[nodiscard]] QList<qint64> inPortion(QList<qint64> offene) const;

    /** @p name in German. */
    void stufe(const QString &name, Stufenart art = Stufenart::Sonstige);
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
    /** What @p stufe (its German name) has done in all portions. */
    void ergebnis(const QString &stufe, const QString &satz) { m_fazit.ergebnisse << std::pair(stufe, satz); }
    /** What was measured of a stage in all portions. */
    [[nodiscard]] Stufenmass mass(Stufenart art) const { return m_mass.stufe(art); }
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
    Gesamtmass m_mass;
    Stufenart m_art = Stufenart::Sonstige; ///< of the stage under way
    std::optional<QSet<qint64>> m_portion;
    std::chrono::steady_clock::time_point m_beginn;
};
} // namespace quillmar::analyse
