#pragma once

#include "anfrage.h"
#include "belege.h"
#include "lesung.h"
#include "namensraeume.h"
#include "pruefung.h"
#include "unterschiede.h"
#include "vorauslesung.h"
#include "weitereworte.h"

namespace quillmar::zustand
{
class Durchgang;

/** What the pages of the document under review offer for a field. */
struct Feldangebot {
    QString wert;   ///< as it goes into the field
    QString umfeld; ///< as it stands on the page, with the words around it
    Seitenmarke marke;
    bool istZahl = false; ///< a part of a title, not all of it
};

/**
 * The words on the pages of the document under review, where its values stand among them, and what they offer instead.
 * Values are looked for on the pages that were read, as many as the profile says; words are known of others too, see
 * Weitereworte. Those of text layers are there within a blink; recognised ones are kept. The next documents are read
 * ahead, and recognised while no run is under way. Nothing here delays the page: it is painted first.
 */
class Seitenbelege : public QObject
{
    Q_OBJECT

public:
    Seitenbelege(Pruefung *pruefung, Profilwahl *profilwahl, const Durchgang *durchgang);

    /** Of what file the words are; empty while none are known. */
    [[nodiscard]] QString pfad() const;
    /** The pages are being read, or will be as soon as the first one is seen. */
    [[nodiscard]] bool liest() const { return m_ausstehend || m_lesefrage.laeuft(); }
    /** One looks at the pages from @p erste to @p letzte (from 1) of the file @p pfad, which has @p seiten. */
    void imBlick(const QString &pfad, int erste, int letzte, int seiten);
    /** As the pages lie. */
    [[nodiscard]] QList<Seitenworte> worte() const;
    /** Where the values stand as they are typed now; of a field the most telling passage first. */
    [[nodiscard]] QList<Seitenmarke> marken() const;
    /** Fields whose value stands on none of the pages. */
    [[nodiscard]] QList<Feld> fehlende() const;
    /** Likeliest first; empty for fields that pages offer nothing for. */
    [[nodiscard]] QList<Feldangebot> angebote(Feld feld) const;
    /** What becomes of the value of @p feld when @p griff is taken from the pages. */
    [[nodiscard]] QString uebernommen(Feld feld, const Wortgriff &griff) const;
    /** What the field is to say when @p angebot is chosen for it. */
    [[nodiscard]] QString gewaehlt(const Feldangebot &angebot) const;

    /** The similar document's words, once it was looked at; as pfad() and worte(). */
    [[nodiscard]] QString partnerPfad() const;
    [[nodiscard]] QList<Seitenworte> partnerWorte() const;
    /** Words that only one of the two has, for the document under review or the similar one. */
    [[nodiscard]] QList<Seitenmarke> unterschiede(bool partner) const;

Q_SIGNALS:
    void worteGeaendert();
    void belegeGeaendert();
    void partnerGeaendert();

private:
    void dokumentPruefen();
    void lesenWennGesehen();
    void lesen();
    [[nodiscard]] QString datumAus(const Wortgriff &griff) const;
    void uebernehmen(const Lesungszeiger &gelesen);
    void partnerUebernehmen(const Lesungszeiger &gelesen, const Unterschiede &unterschiede);
    void belegeRechnen();
    void neuLesen();
    void partnerPruefen();
    void vorauslesen();
    void vorausAbbrechen();
    [[nodiscard]] std::optional<Leseauftrag> auftragFuer(const Dokument *dokument) const;

    Pruefung *m_pruefung;
    Profilwahl *m_profilwahl;
    const Durchgang *m_durchgang;
    Wortspeicher m_speicher;
    std::optional<Leseauftrag> m_auftrag;
    bool m_ausstehend = false; ///< is to be read still
    Lesungszeiger m_gelesen;   ///< null while nothing is known
    Belege m_belege;
    Lesungszeiger m_partner; ///< the similar document, once it was looked at
    Unterschiede m_unterschiede;
    Anfrage m_lesefrage;
    Anfrage m_belegfrage;
    Anfrage m_partnerfrage;
    Vorauslesung m_voraus;
    Weitereworte m_weitere;
};
} // namespace quillmar::zustand
