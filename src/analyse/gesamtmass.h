#pragma once

#include "namensraeume.h"
#include "restzeit.h"

#include <QMap>
#include <QString>

namespace quillmar::analyse
{
/** What a stage does with its documents, as far as the whole run is reckoned from it. */
enum class Stufenart { Sonstige, Lesen, Einordnen, Nachpruefen };

/** How far a run is as a whole that takes its documents in several portions. */
struct Laufganzes {
    qsizetype fertig = 0; ///< documents that the run is done with
    qsizetype gesamt = 0; ///< of so many; 0: one portion is the whole, and its stages tell it all
    qsizetype von = 0;    ///< the documents of the portion in hand, counted from 1; 0: behind the last one
    qsizetype bis = 0;
    QString restzeit; ///< of the whole run; empty while it cannot be told
    bool operator==(const Laufganzes &) const = default;

    [[nodiscard]] bool inPortionen() const { return gesamt > 0; }
    [[nodiscard]] double anteil() const { return gesamt > 0 ? double(fertig) / double(gesamt) : 0; }
    /** "120 von 500 Dokumenten fertig", for the user. */
    [[nodiscard]] QString satz() const;
    /** Which documents are in hand, for the user; empty behind the last portion. */
    [[nodiscard]] QString portionssatz() const;
};

/** Counts and measures the stages of a run over all its portions. Knows no clock. */
class Gesamtmass
{
public:
    /** A portion of @p umfang documents begins; with it @p offene are open, of which @p zuLesende are to be read. */
    void portion(qsizetype umfang, qsizetype offene, qsizetype zuLesende);
    /** A stage has taken @p dauer for @p fertig of the @p gesamt documents that the portion has for it. */
    void messen(Stufenart art, std::chrono::duration<double> dauer, qsizetype fertig, qsizetype gesamt);
    /** The stage over all portions so far. */
    [[nodiscard]] Stufenmass stufe(Stufenart art) const;
    [[nodiscard]] Laufganzes ganzes() const;

private:
    QMap<Stufenart, Stufenmass> m_fruehere; ///< time and documents of the portions before
    QMap<Stufenart, Stufenmass> m_jetzige;  ///< of this one, and what is open in all
    qsizetype m_gesamt = 0;
    qsizetype m_von = 0;
    qsizetype m_bis = 0;
    qsizetype m_dahinter = 0; ///< open documents behind this portion
};
} // namespace quillmar::analyse
