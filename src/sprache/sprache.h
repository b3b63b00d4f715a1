#pragma once

#include "nachschlagen.h"
#include "namensraeume.h"
#include "sprachsatz.h"

#include <QHash>
#include <QMutex>
#include <QString>
#include <atomic>

namespace quillmar::sprache
{
/**
 * Looks up what the user sees. The German text is the key, placeholders ("%@") included; they are filled afterwards.
 * The lookup takes literals, so that `scripts/texte` finds them; a variable is marked as
 * `Sprache::text(*QUILLMAR_TEXT* name)` with a comment in place of the stars. May be called from any thread.
 */
class Sprache
{
public:
    /** The text in the language in effect; @p deutsch itself where that has no translation. */
    [[nodiscard]] static QString text(const QString &deutsch);
    /** The text for a count: @p einzahl where @p zahl is 1, else @p mehrzahl. Both are looked up like any other. */
    [[nodiscard]] static QString text(qint64 zahl, const QString &einzahl, const QString &mehrzahl);

    /** All language files, read anew each time. */
    [[nodiscard]] static QList<Sprachsatz> verfuegbare();

    /** The chosen code; empty: follow the system. Setting it takes effect at the next lookup. */
    [[nodiscard]] static QString gewaehlteKennung();
    static void setzeGewaehlteKennung(const QString &kennung);
    /** Says a sentence again that was made before the language was changed last; see uebertragen(). */
    [[nodiscard]] static QString nachgesprochen(const QString &satz);
    /** Reads the file in use again. True when its texts are others now; one that does not decode changes nothing. */
    static bool auffrischen();
    /** The file of the language in effect; empty if there is none. */
    [[nodiscard]] static QString wirksameDatei();

    /** The code in effect. There need not be a file for it; every text is German then. */
    [[nodiscard]] static QString wirksameKennung();

    /** Makes the own folder, takes over an earlier version's translation and writes the template. Never fails. */
    static void vorbereiten();

    /** From now on every lookup gives the German text, whatever the settings and the user's own files say. */
    static void nurDeutsch();

    /** Folder of the shipped files; empty if there is none. */
    [[nodiscard]] static QString mitgelieferterOrdner();

    /** Folder of the user's own files, created if need be. */
    [[nodiscard]] static QString eigenerOrdner();

private:
    Sprache();
    [[nodiscard]] static Sprache &sitzung();
    [[nodiscard]] QString nachschlagen(const QString &schluessel);
    void laden();
    void verwerfen();

    QMutex m_sperre;
    QHash<QString, QString> m_eintraege;
    QHash<QString, QString> m_vorige; ///< of the language before
    bool m_geladen = false;
    std::atomic<bool> m_nurDeutsch = false;
};
} // namespace quillmar::sprache
