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

/** Pictures of the logs that a list shows, read one after the other away from the main thread. */
class Sitzungsbilder : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /** Reads those of @p dateien anew, in this order; what is known is told until then. */
    void lesen(const QStringList &dateien);
    /** None before it has been read. */
    [[nodiscard]] std::optional<Sitzungsbild> bild(const QString &datei) const;

Q_SIGNALS:
    void gelesen(const QString &datei);

private:
    void weiter();

    QStringList m_offene;
    QHash<QString, Sitzungsbild> m_bilder;
    bool m_unterwegs = false;
};
} // namespace quillmar::zustand
