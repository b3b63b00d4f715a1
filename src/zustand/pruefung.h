#pragma once

#include "anfrage.h"
#include "bekannte.h"
#include "blick.h"
#include "entwuerfe.h"
#include "namensraeume.h"
#include "pruefhinweis.h"

namespace quillmar::zustand
{
class Meldestelle;
struct Oeffnung;
class Profilwahl;

/** The document under review with what the reviewer types, and the counts beside it. */
class Pruefung : public QObject
{
    Q_OBJECT

public:
    Pruefung(Profilwahl *profilwahl, Meldestelle *meldestelle);
    /** Stores what was typed last. */
    ~Pruefung() override;

    [[nodiscard]] const Zaehlwerk &zaehlwerk() const { return m_blick.zaehlwerk; }
    [[nodiscard]] qint64 ausgenommen() const { return m_blick.ausgenommen; }
    /** The document under review with the reviewer's changes; null if there is none. */
    [[nodiscard]] const Dokument *aktuelles() const { return m_stueck ? &m_stueck->dokument : nullptr; }
    [[nodiscard]] QList<Pruefhinweis> pruefhinweise() const;
    [[nodiscard]] const Dokument *aehnliches() const;
    /** The preview shows the similar document instead of the one under review. */
    [[nodiscard]] bool partnerZeigen() const { return m_partnerZeigen; }
    void setzePartnerZeigen(bool zeigen);
    /** Paths of the documents that are likely to be shown next. */
    [[nodiscard]] const QStringList &voraus() const { return m_blick.voraus; }
    /** Of the documents that are or will be shown. */
    [[nodiscard]] const Drehungen &drehungen() const { return m_blick.drehungen; }
    /** The reviewer has turned a page (from 1) of the document under review; that is kept with it. */
    void seiteDrehen(int seite, int drehung);
    void setzeFeld(Feld feld, const QString &wert);
    void altenOrtBehalten();
    /** Counterparts that are known, for the field to complete; brought up to date by bekannteLesen(). */
    [[nodiscard]] const QList<Bekannter> &bekannte() const { return m_bekannte; }
    void bekannteLesen();
    /** A known counterpart was chosen: its usual place comes along where the reviewer has not set one himself. */
    void bekanntenWaehlen(const Bekannter &bekannter);
    /** Why the date cannot be filed, for the user; empty for a day and for none. */
    /** New file name and the levels of the target folder below the target root, from the fields as they stand. */
    [[nodiscard]] QString neuerName() const;
    [[nodiscard]] QStringList zielpfad() const;
    /** Some deed of the review can be taken back. */
    [[nodiscard]] bool ruecknehmbar() const { return m_blick.ruecknehmbar; }
    /** Some movement can be taken back. */
    [[nodiscard]] bool hatBewegung() const { return m_blick.bewegt; }

    /** The document under review has not been on the screen yet. Told by whoever shows it; false without a window. */
    [[nodiscard]] bool ungesehen() const { return m_ungesehen; }
    void setzeUngesehen(bool ungesehen);
    /** It is being filed, skipped or set aside: changes to its fields would come too late. */
    [[nodiscard]] bool angabenFest() const { return m_arbeit == Arbeit::AnDiesem; }

    /** Looks into the catalogue and for settings that other programs have changed. */
    void aktualisieren();

    // For who carries out the deeds
    enum class Arbeit { Keine, AnAnderem, AnDiesem };
    /** A deed is under way: no look is taken meanwhile, since it brings its own. */
    void setzeArbeit(Arbeit arbeit);
    void zeigen(const Blick &blick);
    /** What is being looked at is out of date. */
    void blickVerwerfen() { m_blickfrage.verwerfen(); }
    /** The document was filed with what was typed: its draft is done with. */
    /** Stores what was typed at once; for the end of the program. */
    void entwuerfeSichern() { m_entwuerfe.sichern(); }
    void entwurfVerwerfen(qint64 dokument) { m_entwuerfe.verwerfen(dokument); }

Q_SIGNALS:
    void zaehlwerkGeaendert();
    void aktuellesGeaendert();
    void ungesehenGeaendert(); ///< another document, or none
    void angabenGeaendert();   ///< values of the same document, by the reviewer or from outside
    void angabenFestGeaendert();
    void partnerZeigenGeaendert();
    void vorausGeaendert(); ///< also how the pages of the documents lie
    void ruecknehmbarGeaendert();
    void bekannteGelesen();

private:
    void eintreten(const Oeffnung &gefunden);
    void auffrischen(const Blick &blick);
    void setzeStueck(std::optional<Pruefstueck> stueck);

    Profilwahl *m_profilwahl;
    Meldestelle *m_meldestelle;
    Blick m_blick;
    std::optional<Pruefstueck> m_stueck; ///< m_blick's document with the reviewer's changes
    Entwuerfe m_entwuerfe;
    QList<Bekannter> m_bekannte;
    std::optional<Ort> m_mitgebracht; ///< the place that came along with a chosen counterpart
    Anfrage m_blickfrage;
    Anfrage m_bekanntenfrage;
    Arbeit m_arbeit = Arbeit::Keine;
    bool m_partnerZeigen = false;
    bool m_ungesehen = false;
};
} // namespace quillmar::zustand
