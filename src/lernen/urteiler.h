#pragma once

#include "modellantworten.h"
#include "namensraeume.h"
#include "ortswahl.h"
#include "profil.h"
#include "regelwahl.h"

#include <QHash>
#include <QSet>
#include <functional>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::lernen
{
/**
 * What the memory makes of a model's answer: the name that equations lead to, the known spelling, and the place that is
 * confirmed for the counterpart. What it has looked up it keeps, so it is made for one deed or one document.
 */
class Urteiler
{
public:
    /** Places that @p profil 's structure does not know are passed over; without a structure all count. */
    Urteiler(Datenbank &db, const Profil &profil, const Regelwahl &regeln = {})
        : m_db(db), m_profil(profil), m_regeln(regeln)
    {
    }

    enum class Anlass {
        Einordnen,   ///< a new answer
        Nachrechnen, ///< the memory has changed: a complete and certain place of its own gives way to corrections only
        Anwenden,    ///< the user asks for it: all give way
    };
    struct Urteil {
        QString gegenueber;
        Ort ort;
        double konfidenz = 0;
        QString von;              ///< key of the place, else of the name equation; empty for neither
        bool nameGelernt = false; ///< by an equation
        bool ortGelernt = false;
        Wortstimmen::Ergebnis stimme = {}; ///< of the texts, where they decided
    };
    using Worte = std::function<QStringList()>;
    /** @p worte gives the document's telling words; asked for only where there are several places. */
    [[nodiscard]] Urteil urteilen(const Modellantwort &antwort, Anlass anlass, const Worte &worte);

    /** The complete places of a counterpart that the structure knows. */
    [[nodiscard]] const QList<Ortszahl> &orte(const Eintrag &eintrag);
    /** The entry for a counterpart; none when none fits. */
    [[nodiscard]] std::optional<Eintrag> eintrag(const QString &schluessel);
    [[nodiscard]] bool istBekannt(const Ort &ort) const;
    /** A place that the structure knows, and no doubt about it. */
    [[nodiscard]] bool istSicher(const Ort &ort, double konfidenz) const;

private:
    void ortUrteilen(Urteil &urteil, const Eintrag &eintrag, const Modellantwort &antwort, Anlass anlass,
                     const Worte &worte);
    [[nodiscard]] const QList<Wortstimmen::Platz> &plaetze(const Eintrag &eintrag, const QStringList &worte);

    Datenbank &m_db;
    const Profil &m_profil;
    Regelwahl m_regeln;
    [[nodiscard]] const QList<Eintrag> &moegliche(const QString &schluessel);
    [[nodiscard]] const Eintrag *naechster(const QList<Eintrag> &alle, const QString &schluessel) const;
    [[nodiscard]] bool istNurAusDemBaum(const Eintrag &eintrag) const;
    std::optional<QList<Eintrag>> m_alle;
    QList<Eintrag> m_verwandte; ///< of the name looked for last
    int m_gesucht = 0;
    QHash<QString, std::optional<Eintrag>> m_eintraege;
    QHash<QString, QList<Ortszahl>> m_orte;

    /** What the filed documents of a counterpart have in common with those that were judged. */
    struct Wortschatz {
        QList<Wortstimmen::Platz> plaetze;
        QSet<QString> gefragte; ///< words that were looked up
        bool ganz = false;      ///< all there are were read
    };
    void nachschlagen(Wortschatz &schatz, const QList<Ortszahl> &orte, const QStringList &worte);
    QHash<QString, Wortschatz> m_wortschaetze;
};
} // namespace quillmar::lernen
