#pragma once

#include "angaben.h"
#include "namensraeume.h"
#include "profil.h"

#include <QMap>

namespace quillmar::zustand
{
/** What the reviewer can change in a proposal, in the order of the review card. */
enum class Feld { Datum, Gegenueber, Titel, Zweig, Ablage, Jahr, Rubrik };

constexpr int feldzahl = 7;
/** What it is called in files, on the card, and what it is for. */
[[nodiscard]] QString feldname(Feld feld);
[[nodiscard]] QString feldtitel(Feld feld);
[[nodiscard]] QString feldhilfe(Feld feld);
/** What can be chosen for @p feld of a document at @p ort; empty for a field that is typed. */
[[nodiscard]] QStringList feldauswahl(const Profil &profil, const Ort &ort, Feld feld);
/** The weekday of a date as it was typed, or what is wrong with it (the second value is true then). */
[[nodiscard]] std::pair<QString, bool> datumswort(const QString &datum);
[[nodiscard]] QString feldwert(const Angaben &angaben, Feld feld);

/** The reviewer's changes to one document that are not filed yet. They go before whatever is stored meanwhile. */
class Entwurf
{
public:
    /**
     * Changes @p feld of @p angaben and what follows from it: the year follows the date until it is edited itself, and
     * kind and category stay only where the new branch or kind has them. A value that is there already changes nothing.
     */
    void setzen(Angaben &angaben, Feld feld, const QString &wert, const Profil &profil);
    /** All three levels at once, and the year unless @p jahr is empty. */
    void setzeOrt(Angaben &angaben, const Ort &ort, const QString &jahr);

    /** Puts the changes over freshly read @p angaben. */
    void anwenden(Angaben &angaben) const;
    [[nodiscard]] bool leer() const { return m_werte.isEmpty(); }
    /** Some level of the place was set. */
    [[nodiscard]] bool hatOrt() const
    {
        return m_werte.contains(Feld::Zweig) || m_werte.contains(Feld::Ablage) || m_werte.contains(Feld::Rubrik);
    }

    /** As it is kept in the catalogue: an object of the fields by their names. */
    [[nodiscard]] QByteArray json() const;
    [[nodiscard]] static Entwurf aus(const QByteArray &json);
    bool operator==(const Entwurf &) const = default;

private:
    void schreiben(Angaben &angaben, Feld feld, const QString &wert);

    QMap<Feld, QString> m_werte;
    bool m_jahrVonHand = false;
};
} // namespace quillmar::zustand
