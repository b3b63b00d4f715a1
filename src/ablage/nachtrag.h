#pragma once

#include "dateien.h"
#include "namensraeume.h"
#include "profil.h"
#include "protokollzeile.h"

#include <QHash>
#include <QSet>

namespace quillmar::ablage
{
/**
 * Tells a catalogue that is older than the disk what happened since, from the session logs and from where the files
 * lie. What single undos have taken back stands in no log, so a line counts only if its file lies where it says.
 */
class Nachtrag
{
public:
    /** Logs of sessions of another profile than @p profil, one of @p andere by its name, are passed over. */
    Nachtrag(Datenbank &db, Profil profil, QStringList andere);

    struct Bilanz {
        qint64 eingetragen = 0;     ///< movements that the catalogue did not know
        qint64 zurueck = 0;         ///< movements that it knows and that were turned back since
        qint64 protokolle = 0;      ///< logs that were read
        QStringList gescheiterte{}; ///< names of files that could not be read
    };
    /**
     * @p vorab are movements that stand in no log yet, the newest first; numbers of documents up to @p vergeben are not
     * given out again, as those that the logs name. Throws Katalogfehler, and Fehler when the target root is not there.
     */
    [[nodiscard]] Bilanz spielen(const QList<Protokollzeile> &vorab, qint64 vergeben = 0);

private:
    struct Zeilen {
        QList<Protokollzeile> neuesteZuerst;
        qint64 hoechsteNummer = 0;
    };
    [[nodiscard]] Zeilen gelesen();
    [[nodiscard]] bool istEigenes(const Protokollkopf &kopf) const;
    void ordnerPruefen(const QList<Protokollzeile> &zeilen) const;
    [[nodiscard]] bool zaehlt(const Protokollzeile &zeile);
    [[nodiscard]] bool istNochmals(const Protokollzeile &zeile) const;
    [[nodiscard]] bool istZurueck(const Protokollzeile &zeile) const;
    void spielen(const Protokollzeile &zeile);
    [[nodiscard]] std::optional<Dateien::Verzeichnetes> dokument(const Protokollzeile &zeile,
                                                                 const QString &summe) const;
    [[nodiscard]] qint64 neuesDokument(const Protokollzeile &zeile, const QString &summe);
    void eintragen(const Protokollzeile &zeile, qint64 dokument);
    void ruecknahmenSuchen();

    Datenbank &m_db;
    Profil m_profil;
    QStringList m_andere;
    QHash<QString, bool> m_bekannte; ///< movements that the catalogue knows; false: turned back
    QSet<QString> m_orte;            ///< ends of newer movements: what lies there is theirs
    QSet<QString> m_imKorb;          ///< where the files in the trash were
    Bilanz m_bilanz;
};
} // namespace quillmar::ablage
