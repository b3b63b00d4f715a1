#pragma once

#include "ablagelesung.h"
#include "befund.h"
#include "namensraeume.h"

#include <QStringList>

namespace quillmar::zustand
{
/** A counterpart that was found in the filing tree, as the setup card shows it. */
struct Fundzeile {
    QString gegenueber;
    QStringList orte;   ///< most frequent first, each with its count where there are several
    QStringList zeugen; ///< file names of some of its documents
    QString wort;       ///< how many documents there are, and what speaks against learning it
    bool waehlbar = true;
    bool angekreuzt = false;
    bool operator==(const Fundzeile &) const = default;
};
[[nodiscard]] Fundzeile fundzeile(const Ablagelesung::Zeile &zeile);

/** Counterpart or a place of @p zeile contains what was typed; everything does when that is empty. */
[[nodiscard]] bool trifftSuche(const Ablagelesung::Zeile &zeile, const QString &suche);

// What is said of a reading: while it goes on, when there is something to choose from or nothing to learn.
[[nodiscard]] Befund lesebefund(qint64 dateien);
[[nodiscard]] Befund fundbefund(const Ablagelesung::Ergebnis &fund, const QString &namensVorlage);
/** What tells nothing, with examples: names, places, folders that could not be read. */
[[nodiscard]] QStringList restsaetze(const Ablagelesung::Ergebnis &fund);

// What is said of taking over so many counterparts, or taking back (0): while it goes on, and what came of it.
[[nodiscard]] Befund schreibbefund(qint64 gegenueber, qint64 erledigt, qint64 gesamt);
[[nodiscard]] Befund gelungen(qint64 gegenueber, qint64 angepasste);
[[nodiscard]] Befund gescheitert(qint64 gegenueber, const QString &fehler);
} // namespace quillmar::zustand
