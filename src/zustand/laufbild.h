#pragma once

#include "namensraeume.h"

#include <QList>
#include <QStringList>
#include <chrono>

namespace quillmar::zustand
{
/** One of the four stages of a run, as the run card shows it. */
struct Stufenbild {
    enum class Stand { Offen, Laeuft, Fertig };
    Stand stand = Stand::Offen;
    QString name;                      ///< in German; to be looked up
    QString meldung;                   ///< the last message of each of its steps
    std::chrono::milliseconds dauer{}; ///< of a stage that is done, in all portions of the run
    bool operator==(const Stufenbild &) const = default;
};

/** What a run came to. */
struct Laufende {
    std::chrono::milliseconds dauer{};
    bool abgeschlossen = false; ///< it was not stopped
    qint64 bereit = 0;          ///< documents that wait for review
    qint64 gescheitert = 0;     ///< documents without a proposal
};

/** Makes a picture of the whole run out of what the run publishes step by step. */
class Laufbild
{
public:
    using Zeitpunkt = std::chrono::steady_clock::time_point;

    Laufbild();
    void beginnen(Zeitpunkt jetzt);
    /**
     * A step (its German name) has published @p meldung. Names that are no step are passed over. One of an earlier
     * stage begins the next portion: the stages behind it lie ahead again.
     */
    void nehmen(const QString &schritt, const QString &meldung, Zeitpunkt jetzt);
    /** The run has ended; @p abgeschlossen: it was not stopped. */
    void enden(bool abgeschlossen, Zeitpunkt jetzt);

    /** These stages (by the German names of their steps) have come to their end without doing what they were for. */
    void offenLassen(const QStringList &schritte);

    /** What steps (by their German names) came to in all portions, instead of what they did in the last one. */
    void zusammenfassen(const QList<std::pair<QString, QString>> &ergebnisse);

    [[nodiscard]] const QList<Stufenbild> &stufen() const { return m_stufen; }
    /** A run has been seen. */
    [[nodiscard]] bool gelaufen() const { return m_gelaufen; }
    /** How long the last run took, or has taken until now. */
    [[nodiscard]] std::chrono::milliseconds dauer(Zeitpunkt jetzt) const;

private:
    void stufeBeginnen(int stufe, Zeitpunkt jetzt);

    QList<Stufenbild> m_stufen;
    int m_stufe = -1;
    QString m_schritt;
    QStringList m_fruehere; ///< last messages of earlier steps of the same stage
    Zeitpunkt m_beginn;
    Zeitpunkt m_stufenbeginn;
    Zeitpunkt m_ende;
    bool m_gelaufen = false;
    bool m_laeuft = false;
};
} // namespace quillmar::zustand
