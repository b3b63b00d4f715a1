#pragma once

#include "dokument.h"
#include "eintrag.h"
#include "katalogstand.h"
#include "namensraeume.h"
#include "struktur_vergleich.h"

#include <QStringList>
#include <functional>
#include <memory>

namespace quillmar::katalog
{
class Datenbank;
} // namespace quillmar::katalog

namespace quillmar::zustand
{
/** The programs that read PDF files, and the languages of the text recognition. */
struct Programmstand {
    struct Werkzeug {
        QString name;
        QString paket; ///< to install where it is missing
        QString pfad;  ///< empty: not found
        bool operator==(const Werkzeug &) const = default;
    };
    QList<Werkzeug> werkzeuge;
    QStringList sprachen; ///< codes of tesseract, ascending; empty when it cannot be asked
    bool operator==(const Programmstand &) const = default;

    /** All parts of "deu+eng" are installed. */
    [[nodiscard]] bool kann(const QString &sprache) const;
    /** Blocks: starts tesseract. */
    [[nodiscard]] static Programmstand pruefen();
    /** The codes in what `tesseract --list-langs` prints, without those of scripts and orientation. */
    [[nodiscard]] static QStringList sprachenAus(const QByteArray &ausgabe);
};

/** How many PDF files the source folder holds, without what an exclusion covers. */
struct Quellstand {
    qsizetype anzahl = 0;
    qsizetype ausgelassen = 0;     ///< links, and names that cannot be read
    qsizetype ausgenommen = 0;     ///< covered by an exclusion
    QStringList ausgenommene = {}; ///< the first of them with the rule, for the user
    bool operator==(const Quellstand &) const = default;

    /** Walks through the folder; blocks. Counts what a run takes in: @p db (may be null) knows the program's copies. */
    [[nodiscard]] static Quellstand zaehlen(const Profil &profil, const std::shared_ptr<Datenbank> &db,
                                            const std::function<bool()> &halt);
};

/** What a name and a path template make of one document. */
struct Beispiel {
    bool echt = false; ///< a document that waits for review; otherwise an invented one
    QString dokument;  ///< its present file name
    QString name;
    QStringList ort; ///< levels below the target root
    QString ohneTitel;
    QStringList ohneRubrik;

    /** Pure. Without @p dokument with an invented one. */
    [[nodiscard]] static Beispiel fuer(const Profil &profil, const std::optional<Dokument> &dokument);
    /** The next waiting document behind @p id that has all its fields, from the start again behind the last. Blocks. */
    [[nodiscard]] static std::optional<Dokument> naechstes(Datenbank &db, qint64 id);
};

/** One place of a counterpart as the learning memory knows it. */
struct Lernort {
    QString kennung; ///< to forget it by
    QString gegenueber;
    QString ziel;
    qint64 anzahl = 0; ///< how often it was confirmed
    qint64 baum = 0;   ///< documents in the filing tree
    bool operator==(const Lernort &) const = default;
};

/** What the learning memory holds, most confirmed first. */
struct Lernstand {
    QList<Eintrag> zuordnungen;
    QList<Lernort> orte; ///< of all of them, those of one counterpart together
    QList<Gleichung> gleichungen;
    bool ausAblage = false; ///< some of it comes from the filing tree
    bool operator==(const Lernstand &) const = default;

    /** Blocks. */
    [[nodiscard]] static Lernstand lesen(Datenbank &db);
    [[nodiscard]] static QString kennungFuer(const QString &schluessel, const Ort &ort);
    /** The counterpart's key and the place that @p kennung means. */
    [[nodiscard]] static std::pair<QString, Ort> gemeint(const QString &kennung);
};

/** The facts of the setup card that have to be looked up. */
struct Einrichtungsstand {
    std::optional<Programmstand> programme; ///< none until looked at
    std::optional<Quellstand> quelle;       ///< none while it is being counted or there is no folder
    bool zaehlt = false;
    bool liestStruktur = false;
    QString strukturmangel;        ///< why the last reading brought nothing; empty if it did
    bool strukturAlt = false;      ///< the structure was read below a target root that was chosen before
    bool geradeGelesen = false;    ///< the structure was read in this session
    QList<Strukturzeile> struktur; ///< with what is new or gone since the reading before
    Strukturzahlen zahlen;
    Lernstand gelerntes;
    std::optional<Dokument> beispiel;
    Katalogstand katalog;
};

/**
 * Which share of the model's context a question with this profile's structure fills, 1 being all of it. An estimate
 * on the safe side: the server tells nobody how it cuts text into tokens.
 */
[[nodiscard]] double platzImModell(const Profil &profil);

/** Why @p name cannot be the name of a folder, for the user; empty when it can. */
[[nodiscard]] QString ordnernamenmangel(const QString &name);
} // namespace quillmar::zustand
