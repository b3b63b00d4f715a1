#pragma once

#include "namensraeume.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <optional>

namespace quillmar::zustand
{
/** What a list of sessions says of one log. */
struct Sitzungsbild {
    QDateTime beginn;  ///< invalid when the file has no readable header
    QDateTime zuletzt; ///< of the last movement; invalid without one
    qint64 bewegungen = 0;
    bool zurueckgedreht = false; ///< no file is at its new place any more, all are at their old one
    bool operator==(const Sitzungsbild &) const = default;

    /** Reads the whole log; blocks. */
    [[nodiscard]] static Sitzungsbild von(const QString &datei);
};

/** Pictures of the logs that a list shows, read one after the other away from the main thread, of those in view. */
class Sitzungsbilder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** There are @p dateien, which may hold more by now: what is known is told until it has been read again. */
    void veralten(const QStringList &dateien);
    /** @p dateien are in view, to be read in this order; only the last call counts. */
    void ansehen(const QStringList &dateien);
    /** None before it has been read. */
    [[nodiscard]] std::optional<Sitzungsbild> bild(const QString &datei) const;
    /** Another one is known that began in the same minute. */
    [[nodiscard]] bool teiltMinute(const Sitzungsbild &bild) const;

Q_SIGNALS:
    void gelesen(const QString &datei);

private:
    void weiter();

    struct Eintrag {
        Sitzungsbild bild;
        int fassung = 0;
    };
    QStringList m_offene;
    QHash<QString, Eintrag> m_bilder;
    QHash<qint64, int> m_beginne; ///< how many began in a minute
    std::optional<QString> m_unterwegs;
    int m_fassung = 1; ///< what was read under a lower one may be out of date
};
} // namespace quillmar::zustand
