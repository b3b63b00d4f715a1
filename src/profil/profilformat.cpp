#include "profilformat.h"

#include "nachschlagen.h"
#include "text.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace quillmar::profil
{
namespace
{
struct Unlesbar {
};

void pruefen(bool bedingung)
{
    if (!bedingung)
        throw Unlesbar();
}

// --- from JSON -------------------------------------------------------------------------------------------------------

void lesen(const QJsonValue &wert, QString &ziel)
{
    pruefen(wert.isString());
    ziel = wert.toString();
}

void lesen(const QJsonValue &wert, bool &ziel)
{
    pruefen(wert.isBool());
    ziel = wert.toBool();
}

void lesen(const QJsonValue &wert, int &ziel)
{
    const double zahl = wert.toDouble(0.5);
    pruefen(wert.isDouble() && zahl == std::floor(zahl));
    constexpr int groesste = std::numeric_limits<int>::max();
    ziel = int(std::clamp(zahl, double(-groesste), double(groesste)));
}

void lesen(const QJsonValue &wert, QUuid &ziel)
{
    pruefen(wert.isString());
    ziel = QUuid::fromString(wert.toString());
    pruefen(!ziel.isNull());
}

QJsonValue verlangt(const QJsonObject &objekt, QStringView schluessel)
{
    pruefen(objekt.contains(schluessel));
    return objekt.value(schluessel);
}

QJsonObject ohne(QJsonObject objekt, const QStringList &bekannte)
{
    for (const QString &schluessel : bekannte)
        objekt.remove(schluessel);
    return objekt;
}

QJsonObject vereint(QJsonObject weiteres, const QJsonObject &eigenes)
{
    for (auto i = eigenes.begin(); i != eigenes.end(); ++i)
        weiteres.insert(i.key(), i.value());
    return weiteres;
}

template <typename T>
void lesen(const QJsonValue &wert, QList<T> &ziel);

void lesen(const QJsonValue &wert, Ablageart &ziel)
{
    pruefen(wert.isObject());
    const QJsonObject objekt = wert.toObject();
    lesen(verlangt(objekt, u"name"), ziel.name);
    lesen(verlangt(objekt, u"mitJahr"), ziel.mitJahr);
    lesen(verlangt(objekt, u"rubriken"), ziel.rubriken);
    ziel.weiteres = ohne(objekt, {u"name"_s, u"mitJahr"_s, u"rubriken"_s});
}

void lesen(const QJsonValue &wert, Zweig &ziel)
{
    pruefen(wert.isObject());
    const QJsonObject objekt = wert.toObject();
    lesen(verlangt(objekt, u"name"), ziel.name);
    lesen(verlangt(objekt, u"ablagen"), ziel.ablagen);
    ziel.weiteres = ohne(objekt, {u"name"_s, u"ablagen"_s});
}

template <typename T>
void lesen(const QJsonValue &wert, QList<T> &ziel)
{
    pruefen(wert.isArray());
    ziel.clear();
    for (const auto &element : wert.toArray()) {
        T eintrag = {};
        lesen(element, eintrag);
        ziel << eintrag;
    }
}

// --- to JSON ---------------------------------------------------------------------------------------------------------

QJsonValue json(const QString &wert) { return wert; }
QJsonValue json(bool wert) { return wert; }
QJsonValue json(int wert) { return wert; }
QJsonValue json(const QUuid &wert) { return wert.toString(QUuid::WithoutBraces).toUpper(); }
QJsonValue json(const QStringList &wert) { return QJsonArray::fromStringList(wert); }

QJsonValue json(const Ablageart &wert)
{
    return vereint(wert.weiteres,
                   {{u"name"_s, wert.name}, {u"mitJahr"_s, wert.mitJahr}, {u"rubriken"_s, json(wert.rubriken)}});
}

QJsonValue json(const Zweig &wert);

template <typename T>
QJsonValue json(const QList<T> &wert)
{
    QJsonArray liste;
    for (const T &element : wert)
        liste << json(element);
    return liste;
}

QJsonValue json(const Zweig &wert)
{
    return vereint(wert.weiteres, {{u"name"_s, wert.name}, {u"ablagen"_s, json(wert.ablagen)}});
}

// --- the one table of keys -------------------------------------------------------------------------------------------

template <typename P, typename F>
void felder(P &p, F feld)
{
    feld(u"id"_s, p.id);
    feld(u"name"_s, p.name);
    feld(u"quelle"_s, p.quelle);
    feld(u"mitUnterordnern"_s, p.mitUnterordnern);
    feld(u"ausnahmen"_s, p.ausnahmen);
    feld(u"zielWurzel"_s, p.zielWurzel);
    feld(u"kopieren"_s, p.kopieren);
    feld(u"protokollOrdner"_s, p.protokollOrdner);
    feld(u"namensVorlage"_s, p.namensVorlage);
    feld(u"pfadVorlage"_s, p.pfadVorlage);
    feld(u"auffangOrdner"_s, p.auffangOrdner);
    feld(u"dublettenOrdner"_s, p.dublettenOrdner);
    feld(u"zweige"_s, p.zweige);
    feld(u"eigentuemer"_s, p.eigentuemer);
    feld(u"modell"_s, p.modell);
    feld(u"modellGross"_s, p.modellGross);
    feld(u"ocrSprache"_s, p.ocrSprache);
    feld(u"seiten"_s, p.seiten);
    feld(u"maxZeichen"_s, p.maxZeichen);
    feld(u"zweitmeinung"_s, p.zweitmeinung);
    feld(u"eigeneAnschriften"_s, p.eigeneAnschriften);
    feld(u"eigeneNamen"_s, p.eigeneNamen);
    feld(u"rubrikAusgang"_s, p.rubrikAusgang);
    feld(u"rubrikEingang"_s, p.rubrikEingang);
}

/** A tool takes page 0 for all pages, and without a character no document could be classified. */
void mindestensEins(Profil &profil, const QJsonObject &objekt, QStringList &anmerkungen)
{
    const auto begrenzen = [&](const QString &schluessel, int &zahl) {
        zahl = std::max(zahl, 1);
        const double stand = objekt.value(schluessel).toDouble(zahl);
        if (stand != zahl)
            anmerkungen << gefuellt(nachgeschlagen(QUILLMAR_TEXT(u"Profil %@: %@ ist %@, es gilt %@"_s)),
                                    {profil.name, schluessel, QString::number(stand, 'g', 15), QString::number(zahl)});
    };
    begrenzen(u"seiten"_s, profil.seiten);
    begrenzen(u"maxZeichen"_s, profil.maxZeichen);
}

/** Two profiles must not share a catalogue, and the later one keeps the same one until it is stored with its own id. */
void eigeneKennungen(QList<Profil> &profile, QStringList &anmerkungen)
{
    QSet<QUuid> vergeben;
    for (Profil &profil : profile) {
        const QUuid alte = profil.id;
        for (int n = 2; vergeben.contains(profil.id); ++n)
            profil.id = QUuid::createUuidV5(alte, QByteArray::number(n));
        if (profil.id != alte)
            anmerkungen << gefuellt(
                nachgeschlagen(QUILLMAR_TEXT(u"Profil %@ hatte die Kennung eines anderen und bekommt eine eigene"_s)),
                {profil.name});
        vergeben << profil.id;
    }
}

Profil profilAus(const QJsonValue &wert, QStringList &anmerkungen)
{
    pruefen(wert.isObject());
    const QJsonObject objekt = wert.toObject();
    Profil profil;
    profil.weiteres = objekt;
    felder(profil, [&](const QString &schluessel, auto &ziel) {
        profil.weiteres.remove(schluessel);
        if (objekt.contains(schluessel))
            lesen(objekt.value(schluessel), ziel);
    });
    mindestensEins(profil, objekt, anmerkungen);
    return profil;
}
} // namespace

QByteArray Profilformat::schreiben(const QList<Profil> &profile)
{
    QJsonArray liste;
    for (const Profil &profil : profile) {
        QJsonObject objekt = profil.weiteres;
        felder(profil, [&](const QString &schluessel, const auto &wert) { objekt.insert(schluessel, json(wert)); });
        liste << objekt;
    }
    return QJsonDocument(liste).toJson(QJsonDocument::Indented);
}

std::optional<QList<Profil>> Profilformat::lesen(const QByteArray &text)
{
    const auto gelesen = auswerten(text);
    return gelesen ? std::optional(gelesen->profile) : std::nullopt;
}

std::optional<Profilformat::Gelesen> Profilformat::auswerten(const QByteArray &text)
{
    const QJsonDocument dokument = QJsonDocument::fromJson(text);
    if (!dokument.isArray())
        return std::nullopt;
    try {
        Gelesen gelesen;
        for (const auto &wert : dokument.array())
            gelesen.profile << profilAus(wert, gelesen.anmerkungen);
        eigeneKennungen(gelesen.profile, gelesen.anmerkungen);
        return gelesen;
    } catch (const Unlesbar &) {
        return std::nullopt; // the whole file counts as unreadable, by rule
    }
}
} // namespace quillmar::profil
