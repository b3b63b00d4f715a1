#pragma once

#include "angaben.h"
#include "modellantworten.h"
#include "namensraeume.h"
#include "profil.h"
#include "rechnungsrichtung.h"
#include "urteiler.h"

#include <QHash>
#include <QSet>

namespace quillmar::lernen
{
/**
 * Waiting documents after a change of the memory: each is reckoned anew from what the last model has answered, then by
 * the direction of invoices. What the reviewer has typed or decided is never touched.
 */
class Nachrechnung
{
public:
    Nachrechnung(Datenbank &db, const Profil &profil, const Regelwahl &regeln = {})
        : m_db(db), m_profil(profil), m_regeln(regeln), m_richtung(profil.eigeneAnschriften)
    {
    }

    /**
     * The documents whose counterpart one of the keys @p schluessel meets, all for an empty list; but not @p ausser.
     * Returns those whose name or place has changed. Throws Katalogfehler.
     */
    QSet<qint64> rechnen(const QStringList &schluessel, Urteiler::Anlass anlass, qint64 ausser = 0);

    /** What is proposed for a document as long as the reviewer has not decided on it. Throws Katalogfehler. */
    struct Vorschlag {
        QString gegenueber;
        Ort ort;
    };
    [[nodiscard]] Vorschlag vorschlag(const Modellantworten::Wartendes &wartendes) const;

    /**
     * Looks at the texts that rechnen() of the same needs for the direction of invoices, if a place with the rubric
     * @p rubrik is taught now. To be called before the transaction that rechnen() is to be part of: then that one reads
     * no texts but of documents that have come or were read again in between.
     */
    void vorlesen(const QStringList &schluessel, const QString &rubrik);

private:
    [[nodiscard]] bool eines(Urteiler &urteiler, const Modellantworten::Wartendes &wartendes, Urteiler::Anlass anlass);
    [[nodiscard]] Urteiler::Urteil urteil(Urteiler &urteiler, const Modellantworten::Wartendes &wartendes,
                                          const Modellantwort &antwort, Urteiler::Anlass anlass) const;
    [[nodiscard]] Modellantwort antwortVon(const Urteiler &urteiler, const Modellantworten::Wartendes &wartendes) const;
    void eintragen(const Modellantworten::Wartendes &wartendes, const Modellantwort &antwort,
                   const Modellantworten::Werte &werte, const Urteiler::Urteil &urteil);
    [[nodiscard]] QString rubrikFuer(const Modellantworten::Wartendes &wartendes, const QString &gelernte) const;
    [[nodiscard]] Rechnungsrichtung::Richtung richtungVon(qint64 dokument) const;
    [[nodiscard]] QStringList betroffene(const QStringList &schluessel) const;

    /** Which way an invoice goes, found out of the text with this hash. */
    struct Erkannt {
        QString textHash;
        Rechnungsrichtung::Richtung richtung = Rechnungsrichtung::Richtung::Unbekannt;
    };

    Datenbank &m_db;
    const Profil &m_profil;
    Regelwahl m_regeln;
    Rechnungsrichtung m_richtung;
    QHash<qint64, Erkannt> m_erkannt; ///< by document
};
} // namespace quillmar::lernen
