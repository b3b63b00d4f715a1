#include "absicht.h"

#include "jsonschreiber.h"
#include "katalog.h"
#include "sprache.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
QByteArray kompakt(const QJsonObject &objekt) { return QJsonDocument(objekt).toJson(QJsonDocument::Compact); }

QJsonObject werteJson(const Angaben &a)
{
    return {{u"datum"_s, a.datum},     {u"gegenueber"_s, a.gegenueber}, {u"titel"_s, a.titel},
            {u"zweig"_s, a.ort.zweig}, {u"ablage"_s, a.ort.ablage},     {u"rubrik"_s, a.ort.rubrik},
            {u"jahr"_s, a.jahr}};
}

Angaben werteAus(const QJsonObject &o)
{
    const auto text = [&o](QLatin1StringView feld) { return o.value(feld).toString(); };
    return {.datum = text("datum"_L1),
            .gegenueber = text("gegenueber"_L1),
            .titel = text("titel"_L1),
            .ort = {.zweig = text("zweig"_L1), .ablage = text("ablage"_L1), .rubrik = text("rubrik"_L1)},
            .jahr = text("jahr"_L1)};
}

/** As much of the profile as the learning memory asks for: which invoices the owner wrote, and where they belong. */
QJsonObject rechnungJson(const Profil &p)
{
    return {{u"anschriften"_s, QJsonArray::fromStringList(p.eigeneAnschriften)},
            {u"ausgang"_s, p.rubrikAusgang},
            {u"eingang"_s, p.rubrikEingang}};
}

/** A line of an earlier version lacks it: then no own address is known, and the rule stays silent. */
Profil rechnungAus(const QJsonObject &o)
{
    Profil p;
    for (const QJsonValue anschrift : o.value("anschriften"_L1).toArray())
        p.eigeneAnschriften << anschrift.toString();
    p.rubrikAusgang = o.value("ausgang"_L1).toString();
    p.rubrikEingang = o.value("eingang"_L1).toString();
    return p;
}

/** What not every intent has. */
void beigabenSchreiben(Jsonschreiber &o, const Absicht &a)
{
    if (!a.temporaer.isEmpty())
        o.text("temporaer", a.temporaer);
    if (!a.imKorb.isEmpty())
        o.text("imKorb", a.imKorb);
    if (a.werte)
        o.roh("werte", kompakt(werteJson(*a.werte)));
    if (a.werte || a.art == Absicht::Art::Ruecknahme)
        o.roh("rechnung", kompakt(rechnungJson(a.profil)));
    if (!a.vorher.isEmpty())
        o.text("vorher", a.vorher);
    if (!a.buch.isEmpty())
        o.text("buch", a.buch);
    if (a.kopf)
        o.roh("kopf", a.kopf->json());
}

void beigabenLesen(const QJsonObject &o, Absicht &a)
{
    a.temporaer = o.value("temporaer"_L1).toString();
    a.imKorb = o.value("imKorb"_L1).toString();
    if (o.contains("werte"_L1))
        a.werte = werteAus(o.value("werte"_L1).toObject());
    a.profil = rechnungAus(o.value("rechnung"_L1).toObject());
    a.vorher = o.value("vorher"_L1).toString();
    a.buch = o.value("buch"_L1).toString();
    a.kopf = Protokollkopf::aus(kompakt(o.value("kopf"_L1).toObject()));
}
} // namespace

QByteArray Absicht::json() const
{
    Jsonschreiber o;
    o.wahr("ruecknahme", art == Art::Ruecknahme);
    o.text("vorgang", vorgang);
    o.roh("zeile", zeile.json());
    o.text("status", statuswort(status));
    o.zahl("protokoll", protokollId);
    if (tat != 0)
        o.zahl("tat", tat);
    o.zahl("groesse", groesse);
    o.text("dateizeit", QString::number(dateizeit)); // too large for the numbers of some readers
    beigabenSchreiben(o, *this);
    return o.ende();
}

std::optional<Absicht> Absicht::aus(const QByteArray &text)
{
    const QJsonObject o = QJsonDocument::fromJson(text).object();
    auto zeile = Protokollzeile::aus(kompakt(o.value("zeile"_L1).toObject()));
    if (!zeile || o.value("vorgang"_L1).toString().isEmpty())
        return std::nullopt;
    const QString status = o.value("status"_L1).toString();
    if (!status.isEmpty() && statusAus(status) == Status::Unbekannt)
        return std::nullopt; // of a later version
    Absicht a;
    a.art = o.value("ruecknahme"_L1).toBool() ? Art::Ruecknahme : Art::Bewegung;
    a.vorgang = o.value("vorgang"_L1).toString();
    a.status = statusAus(status);
    a.protokollId = o.value("protokoll"_L1).toInteger();
    a.tat = o.value("tat"_L1).toInteger();
    a.groesse = o.value("groesse"_L1).toInteger();
    a.dateizeit = o.value("dateizeit"_L1).toString().toLongLong();
    beigabenLesen(o, a);
    a.zeile = std::move(*zeile);
    return a;
}

QString Absicht::ende() const
{
    if (art == Art::Bewegung)
        return zeile.nach;
    return zeile.kopiert && zeile.von != zeile.nach ? QString() : zeile.von;
}

void Absicht::uebernehmen(const Dateibewegung::Schritt &schritt)
{
    // A movement turned back has a fixed target, which its line names already.
    if (art == Art::Bewegung)
        zeile.nach = schritt.nach;
    else if (ende().isEmpty() && schritt.nach != schritt.temporaer)
        imKorb = schritt.nach; // a copy that is not complete has its temporary name alone
    temporaer = schritt.temporaer;
    groesse = schritt.groesse;
    dateizeit = schritt.zeit;
}

Status statusZurueck(const Protokollzeile &zeile)
{
    const Status vorher = statusAus(zeile.altStatus);
    return vorher == Status::Unbekannt ? Status::Bereit : vorher;
}

QString absichtsdatei(const Datenbank &db) { return Katalog::absichtsdatei(Katalog::pfad(db)); }

Absichtsdatei absichtenNehmen(const QString &katalog, std::chrono::milliseconds geduld)
{
    auto datei = Absichtsdatei::oeffnen(Katalog::absichtsdatei(katalog), geduld);
    if (!datei)
        throw Fehler(
            Sprache::text(u"Ein anderes Programm bewegt gerade Dateien. Bitte gleich noch einmal versuchen."_s));
    return std::move(*datei);
}

QList<Absicht> letzteAbsichten(const QList<QByteArray> &zeilen, QList<QByteArray> &fremde)
{
    QHash<QString, qsizetype> stellen;
    QList<Absicht> absichten;
    for (const QByteArray &zeile : zeilen) {
        const auto absicht = Absicht::aus(zeile);
        if (!absicht) {
            fremde << zeile;
        } else if (const auto stelle = stellen.constFind(absicht->vorgang); stelle != stellen.cend()) {
            absichten[*stelle] = *absicht;
        } else {
            stellen.insert(absicht->vorgang, absichten.size());
            absichten << *absicht;
        }
    }
    return absichten;
}
} // namespace quillmar::ablage
