#pragma once

#include <QStringList>

namespace vorfuehrung
{

/** A place that the prompt offers. */
struct Ort {
    QString zweig;
    QString ablage;
    QString rubrik;
};

/** What a prompt of the program asks, taken apart. */
struct Anfrage {
    bool nachfrage = false; ///< asks for the other party only
    QStringList eigene;     ///< names of the owner
    QList<Ort> orte;
    QStringList zeilen; ///< text of the document, trimmed lines, empty ones included
};

[[nodiscard]] Anfrage anfrageLesen(const QString &prompt);

} // namespace vorfuehrung
