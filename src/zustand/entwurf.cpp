#include "entwurf.h"

#include "einordnung.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace
{
constexpr auto vonHand = "jahrVonHand"_L1;

QString Dokument::*stelle(Feld feld)
{
    switch (feld) {
    case Feld::Datum:
        return &Dokument::datum;
    case Feld::Gegenueber:
        return &Dokument::gegenueber;
    case Feld::Titel:
        return &Dokument::titel;
    case Feld::Zweig:
        return &Dokument::zweig;
    case Feld::Ablage:
        return &Dokument::ablage;
    case Feld::Jahr:
        return &Dokument::jahr;
    case Feld::Rubrik:
        break;
    }
    return &Dokument::rubrik;
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

QString feldwert(const Dokument &dokument, Feld feld) { return dokument.*stelle(feld); }

void Entwurf::schreiben(Dokument &dokument, Feld feld, const QString &wert)
{
    if (feldwert(dokument, feld) == wert)
        return;
    dokument.*stelle(feld) = wert;
    m_werte[feld] = wert;
}

void Entwurf::setzen(Dokument &dokument, Feld feld, const QString &wert, const Profil &profil)
{
    if (feldwert(dokument, feld) == wert)
        return;
    schreiben(dokument, feld, wert);
    const QString tag = wert.trimmed();
    if (feld == Feld::Jahr)
        m_jahrVonHand = true;
    if (feld == Feld::Datum && !m_jahrVonHand && (tag.isEmpty() || Einordnung::istDatum(tag)))
        schreiben(dokument, Feld::Jahr, tag.left(4));
    if (feld != Feld::Zweig && feld != Feld::Ablage)
        return;
    const Ablageart *art = profil.ablageart(dokument.zweig, dokument.ablage);
    if (!art)
        schreiben(dokument, Feld::Ablage, {});
    if (!art || !art->rubriken.contains(dokument.rubrik))
        schreiben(dokument, Feld::Rubrik, {});
}

void Entwurf::ortSetzen(Dokument &dokument, const Ort &ort, const QString &jahr)
{
    schreiben(dokument, Feld::Zweig, ort.zweig);
    schreiben(dokument, Feld::Ablage, ort.ablage);
    schreiben(dokument, Feld::Rubrik, ort.rubrik);
    if (jahr.isEmpty())
        return;
    schreiben(dokument, Feld::Jahr, jahr);
    m_jahrVonHand = true;
}

void Entwurf::anwenden(Dokument &dokument) const
{
    for (auto it = m_werte.begin(); it != m_werte.end(); ++it)
        dokument.*stelle(it.key()) = it.value();
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
