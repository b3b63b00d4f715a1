#pragma once

#include "eintrag.h"
#include "namensraeume.h"

#include <QList>
#include <QMap>
#include <QStringList>
#include <optional>

namespace quillmar::katalog
{
class Datenbank;

/** What the last model said of a document, before anything learned. */
struct Modellantwort {
    QString gegenueber;
    Ort ort;
    double konfidenz = 0;   ///< 0 to 1
    QString ortQuelle;      ///< where the place comes from as long as nothing is learned
    bool sicher = false;    ///< a complete and certain place of its own: only corrections are carried to it
    QStringList worte = {}; ///< that tell documents of one counterpart apart, as they are written
};

/**
 * Waiting documents as the learning memory sees them: the last model answers, in the table modellantworten, beside what
 * dokumente says now. Throws Katalogfehler.
 */
class Modellantworten
{
public:
    explicit Modellantworten(Datenbank &db) : m_db(db) {}

    void speichern(qint64 dokument, const Modellantwort &antwort);
    /** Another name than the model's was found by a rule. */
    void setzeGegenueber(qint64 dokument, const QString &gegenueber);
    /** The reviewer has decided: nothing learned changes it any more, also when it waits again. */
    void vonHand(qint64 dokument);
    /** An accept was taken back: the values are the reviewer's own from now on, and nothing of them is learned. */
    void zurueckgekehrt(qint64 dokument);
    void streichen(qint64 dokument);
    /** The counterpart that the last model named; none if no answer is kept. */
    [[nodiscard]] std::optional<QString> gegenueber(qint64 dokument) const;
    /** From now on what is learned goes before the document's own place, however certain. */
    void oeffnen(qint64 dokument);

    /** A waiting document that the reviewer has not decided on. */
    struct Wartendes {
        qint64 id = 0;
        QString gegenueber;
        Ort ort;
        double konfidenz = 0;
        QString ortQuelle;
        QString gelerntVon;
        QString textHash;
        Ort modellOrt;                        ///< the columns of the first model's answer
        std::optional<Modellantwort> antwort; ///< none for what an earlier version has classified
        QString entwurf;                      ///< what the reviewer has typed
        QString stimmwort;                    ///< by which the texts have decided
    };
    [[nodiscard]] QList<Wartendes> wartendeVon(const QString &gegenueber) const;
    /** One that the reviewer has decided on before, as what the model answered; none without an answer. */
    [[nodiscard]] std::optional<Wartendes> zurueckgekehrtes(qint64 dokument) const;

    /** What the memory makes of a waiting document. */
    struct Werte {
        QString gegenueber;
        Ort ort;
        double konfidenz = 0;
        QString ortQuelle;
        QString gelerntVon;
    };
    void schreiben(qint64 dokument, const Werte &werte);

    /** The texts have decided, by this word of so many documents; none for an empty one. */
    void setzeStimme(qint64 dokument, const QString &wort, qint64 stimmen);
    struct Stimme {
        QString wort;
        qint64 dokumente = 0;
    };
    [[nodiscard]] std::optional<Stimme> stimme(qint64 dokument) const;

    /** Filed documents of the counterparts @p namen at @p ort with their texts, the newest first. */
    [[nodiscard]] QStringList abgelegteTexte(const QStringList &namen, const Ort &ort, int hoechstens) const;
    /** All spellings of counterparts of filed documents. */
    [[nodiscard]] QStringList abgelegteGegenueber() const;
    /** The same with the place where most of each lie, by name. */
    [[nodiscard]] QMap<QString, Ort> abgelegteOrte() const;

private:
    Datenbank &m_db;
};
} // namespace quillmar::katalog
