#pragma once

#include <QList>
#include <QString>

/** One learned place: where the documents of a counterpart go. */
struct Eintrag {
    QString schluessel; ///< normalised counterpart
    QString anzeige;    ///< the counterpart as last written by the user
    QString zweig;
    QString ablage;
    QString rubrik;
    qint64 anzahl = 0; ///< how often it was confirmed
    bool operator==(const Eintrag &) const = default;

    /** The non-empty levels of the place, joined with "/". */
    [[nodiscard]] QString ziel() const;
};

/** One name equation: the old spelling leads to the new one. */
struct Gleichung {
    QString von; ///< key of the old name
    QString nach;
    qint64 anzahl = 0;
    bool operator==(const Gleichung &) const = default;
};

/** The rules of the learning memory that need no catalogue. */
namespace Lernregeln
{
/** A shorter key says too little to match anything but itself. */
constexpr qsizetype kuerzesterSchluessel = 4;

/** Key of a counterpart: normalised, without its legal form. */
[[nodiscard]] QString schluessel(const QString &name);

/** A short form meets its long form: one key contains the other. */
[[nodiscard]] bool passt(const QString &a, const QString &b);

/** The learned spelling may take the place of the existing one. */
[[nodiscard]] bool darfErsetzen(const QString &gelernt, const QString &vorhanden);

/**
 * The entry of @p alle (most confirmed first) for a counterpart: the most confirmed one, then the one with the longer
 * key, then the first. Null when none fits.
 */
[[nodiscard]] const Eintrag *vorschlag(const QList<Eintrag> &alle, const QString &schluessel);
/** The same for a waiting document, where also a key too short for that meets its equal. */
[[nodiscard]] const Eintrag *passender(const QList<Eintrag> &alle, const QString &schluessel);
} // namespace Lernregeln
