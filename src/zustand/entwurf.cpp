#include "entwurf.h"

#include "einordnung.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
constexpr auto vonHand = "jahrVonHand"_L1;

template <typename A>
auto &stelle(A &angaben, Feld feld)
{
    switch (feld) {
    case Feld::Datum:
        return angaben.datum;
    case Feld::Gegenueber:
        return angaben.gegenueber;
    case Feld::Titel:
        return angaben.titel;
    case Feld::Zweig:
        return angaben.ort.zweig;
    case Feld::Ablage:
        return angaben.ort.ablage;
    case Feld::Jahr:
        return angaben.jahr;
    case Feld::Rubrik:
        break;
    }
    return angaben.ort.rubrik;
}

const QList<std::pair<Feld, QString>> &namen()
{
    static const QList<std::pair<Feld, QString>> liste = {
        {Feld::Datum, u"datum"_s},   {Feld::Gegenueber, u"gegenueber"_s}, {Feld::Titel, u"titel"_s},
        {Feld::Zweig, u"zweig"_s},   {Feld::Ablage, u"ablage"_s},         {Feld::Jahr, u"jahr"_s},
        {Feld::Rubrik, u"rubrik"_s},
    };
    return liste;
}
} // namespace

QString feldwert(const Angaben &angaben, Feld feld) { return stelle(angaben, feld); }

void Entwurf::schreiben(Angaben &angaben, Feld feld, const QString &wert)
{
    if (feldwert(angaben, feld) == wert)
        return;
    stelle(angaben, feld) = wert;
    m_werte[feld] = wert;
}

void Entwurf::setzen(Angaben &angaben, Feld feld, const QString &wert, const Profil &profil)
{
    if (feldwert(angaben, feld) == wert)
        return;
    schreiben(angaben, feld, wert);
    const QString tag = wert.trimmed();
    if (feld == Feld::Jahr)
        m_jahrVonHand = true;
    if (feld == Feld::Datum && !m_jahrVonHand && (tag.isEmpty() || Einordnung::istDatum(tag)))
        schreiben(angaben, Feld::Jahr, tag.left(4));
    if (feld != Feld::Zweig && feld != Feld::Ablage)
        return;
    const Ablageart *art = profil.ablageart(angaben.ort.zweig, angaben.ort.ablage);
    if (!art)
        schreiben(angaben, Feld::Ablage, {});
    if (!art || !art->rubriken.contains(angaben.ort.rubrik))
        schreiben(angaben, Feld::Rubrik, {});
}

void Entwurf::setzeOrt(Angaben &angaben, const Ort &ort, const QString &jahr)
{
    schreiben(angaben, Feld::Zweig, ort.zweig);
    schreiben(angaben, Feld::Ablage, ort.ablage);
    schreiben(angaben, Feld::Rubrik, ort.rubrik);
    if (jahr.isEmpty())
        return;
    schreiben(angaben, Feld::Jahr, jahr);
    m_jahrVonHand = true;
}

void Entwurf::anwenden(Angaben &angaben) const
{
    for (auto it = m_werte.begin(); it != m_werte.end(); ++it)
        stelle(angaben, it.key()) = it.value();
}

QByteArray Entwurf::json() const
{
    QJsonObject objekt;
    for (const auto &[feld, name] : namen()) {
        if (m_werte.contains(feld))
            objekt.insert(name, m_werte.value(feld));
    }
    if (m_jahrVonHand)
        objekt.insert(vonHand, true);
    return QJsonDocument(objekt).toJson(QJsonDocument::Compact);
}

Entwurf Entwurf::aus(const QByteArray &json)
{
    const QJsonObject objekt = QJsonDocument::fromJson(json).object();
    Entwurf entwurf;
    for (const auto &[feld, name] : namen()) {
        if (objekt.value(name).isString())
            entwurf.m_werte.insert(feld, objekt.value(name).toString());
    }
    entwurf.m_jahrVonHand = objekt.value(vonHand).toBool();
    return entwurf;
}
} // namespace quillmar::zustand
