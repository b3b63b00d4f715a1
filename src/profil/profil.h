#pragma once

#include "namensraeume.h"
#include "ort.h"

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <QUuid>
#include <optional>

namespace quillmar::profil
{
/** Filing kind, the second level of the target tree. */
struct Ablageart {
    QString name;
    bool mitJahr = false;      ///< year folders stand between the kind and its rubrics
    QStringList rubriken;      ///< folder names, possibly two levels joined by "/"
    QJsonObject weiteres = {}; ///< what a later version has stored with it
    bool operator==(const Ablageart &) const = default;
};

/** Branch, the first level of the target tree. */
struct Zweig {
    QString name;
    QList<Ablageart> ablagen;
    QJsonObject weiteres = {}; ///< as above
    bool operator==(const Zweig &) const = default;
};

/** One complete set of settings for one filing job. */
struct Profil {
    QUuid id = QUuid::createUuid();
    QString name = QStringLiteral("Neues Profil");
    QString quelle;
    bool mitUnterordnern = true;
    QStringList ausnahmen;
    QString zielWurzel;
    bool kopieren = false;
    QString protokollOrdner; ///< empty: "_Protokolle" below the target root
    QString namensVorlage = QStringLiteral("{datum} {gegenueber} - {titel}");
    QString pfadVorlage = QStringLiteral("{zweig}/{ablage}/{jahr}/{rubrik}");
    QString auffangOrdner = QStringLiteral("prüfen");
    QString dublettenOrdner = QStringLiteral("_Dubletten");
    QList<Zweig> zweige;
    QString eigentuemer;
    QString modell = QStringLiteral("qwen3:4b");
    QString modellGross = QStringLiteral("qwen3.6:27b");
    QString ocrSprache = QStringLiteral("deu");
    int seiten = 2;
    int maxZeichen = 1400;
    bool zweitmeinung = true;
    QStringList eigeneAnschriften;
    QStringList eigeneNamen;
    QString rubrikAusgang = QStringLiteral("Ausgangsrechnungen");
    QString rubrikEingang = QStringLiteral("Eingangsrechnungen");
    QJsonObject weiteres = {}; ///< as above

    bool operator==(const Profil &) const = default;

    /** Folder for the session logs; none while neither it nor a target root is chosen. */
    [[nodiscard]] std::optional<QString> protokollURL() const;

    /** The owner's own names, trimmed, without empty ones and repeats. */
    [[nodiscard]] QStringList eigenkennungen() const;

    /** The branch of that exact name, and the filing kind in it; null if the structure lacks it. */
    [[nodiscard]] const Zweig *zweig(const QString &gesucht) const;
    [[nodiscard]] const Ablageart *ablageart(const QString &zweigName, const QString &ablageName) const;
    /** All three levels are known to the structure. */
    [[nodiscard]] bool kennt(const Ort &ort) const;

    /** Splits a folder below the root of the tree into its levels; the year folder of a kind with years is left out. */
    [[nodiscard]] Ort zerlegen(const QString &ordner) const;
    /** The year folder that zerlegen() leaves out; empty if there is none. */
    [[nodiscard]] QString jahrIn(const QString &ordner) const;

    /**
     * Folders below the target root that the program files into by itself and that are no part of the structure: paths
     * below the root with "/" before them, and the bare name of the catch folder, which is one in every branch.
     */
    [[nodiscard]] QStringList eigeneOrdner() const;

    /**
     * Reads the structure of the tree below @p ziel without the folders @p eigene (see eigeneOrdner()). @p tiefe 2 also
     * takes rubrics on the second level below a filing kind. What cannot be read counts as empty.
     */
    [[nodiscard]] static QList<Zweig> struktureinlesen(const QString &ziel, int tiefe, const QStringList &eigene = {});

    /** Merges spellings of one rubric (umlauts win over transliterations) and sorts. */
    [[nodiscard]] static QStringList vereinheitlichen(const QStringList &namen);

    /**
     * Exclusion rule for a folder that the user picked; none for the source folder itself and for "/". One directly in
     * the source folder is written with "./", since its bare name would mean files too.
     */
    [[nodiscard]] std::optional<QString> regelFuer(const QString &ordner) const;
};
} // namespace quillmar::profil
