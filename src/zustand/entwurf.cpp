#include "entwurf.h"

#include "einordnung.h"
#include "sprache.h"

#include <QDate>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>

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

struct Feldtext {
    QString name;
    QString titel;
    QString hilfe;
};

/** In the order of Feld, which is that of reading. */
const QList<Feldtext> &feldtexte()
{
    static const QList<Feldtext> texte = {
        {u"datum"_s, QUILLMAR_TEXT(u"Datum"_s),
         QUILLMAR_TEXT(u"Das Datum des Schreibens, nicht das des Scans. Vier Ziffern Jahr, dann Monat, dann Tag."_s)},
        {u"gegenueber"_s, QUILLMAR_TEXT(u"Gegenüber"_s),
         QUILLMAR_TEXT(u"Die andere Seite, also wer schreibt oder an wen es geht. Niemals du selbst. Etwa Finanzamt "
                       "Meißen oder Sparkasse."_s)},
        {u"titel"_s, QUILLMAR_TEXT(u"Titel"_s),
         QUILLMAR_TEXT(u"Worum es geht, in wenigen Worten. Etwa Steuerbescheid EkSt 2023."_s)},
        {u"zweig"_s, QUILLMAR_TEXT(u"Zweig"_s),
         QUILLMAR_TEXT(u"Oberste Ebene der Ablage. Bestimmt, welche Rubriken zur Wahl stehen."_s)},
        {u"ablage"_s, QUILLMAR_TEXT(u"Ablage"_s),
         QUILLMAR_TEXT(u"Jahresablage für laufende Vorgänge, Stammdaten für Dauerhaftes wie Verträge und Urkunden."_s)},
        {u"jahr"_s, QUILLMAR_TEXT(u"Jahr"_s),
         QUILLMAR_TEXT(u"Zieht sich selbst aus dem Datum, lässt sich aber überschreiben."_s)},
        {u"rubrik"_s, QUILLMAR_TEXT(u"Rubrik"_s),
         QUILLMAR_TEXT(u"Der eigentliche Zielordner. Es stehen nur Rubriken zur Wahl, die es in deiner Ablage schon "
                       "gibt."_s)},
    };
    return texte;
}
} // namespace

QString feldname(Feld feld) { return feldtexte().at(int(feld)).name; }
QString feldtitel(Feld feld) { return Sprache::text(/* QUILLMAR_TEXT */ feldtexte().at(int(feld)).titel); }
QString feldhilfe(Feld feld) { return Sprache::text(/* QUILLMAR_TEXT */ feldtexte().at(int(feld)).hilfe); }
QStringList feldauswahl(const Profil &profil, const Ort &ort, Feld feld)
{
    const auto namen = [](const auto &dinge) {
        QStringList liste;
        for (const auto &ding : dinge)
            liste << ding.name;
        return liste;
    };
    const Zweig *zweig = profil.zweig(ort.zweig);
    const Ablageart *art = profil.ablageart(ort.zweig, ort.ablage);
    if (feld == Feld::Zweig)
        return namen(profil.zweige);
    if (feld == Feld::Ablage)
        return zweig ? namen(zweig->ablagen) : QStringList();
    return feld == Feld::Rubrik && art ? art->rubriken : QStringList();
}

std::pair<QString, bool> datumswort(const QString &datum)
{
    const QString mangel = Einordnung::datumsmangel(datum);
    if (mangel.isEmpty())
        return {QLocale().toString(QDate::fromString(datum, Qt::ISODate), u"dddd"_s), false};
    return {Einordnung::istDatum(datum) ? mangel : Sprache::text(u"Bitte als JJJJ-MM-TT"_s), true};
}

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
    for (auto it = m_werte.begin(); it != m_werte.end(); ++it)
        objekt.insert(feldname(it.key()), it.value());
    if (m_jahrVonHand)
        objekt.insert(vonHand, true);
    return QJsonDocument(objekt).toJson(QJsonDocument::Compact);
}

Entwurf Entwurf::aus(const QByteArray &json)
{
    const QJsonObject objekt = QJsonDocument::fromJson(json).object();
    Entwurf entwurf;
    for (int n = 0; n < feldzahl; ++n) {
        if (const QJsonValue wert = objekt.value(feldname(Feld(n))); wert.isString())
            entwurf.m_werte.insert(Feld(n), wert.toString());
    }
    entwurf.m_jahrVonHand = objekt.value(vonHand).toBool();
    return entwurf;
}
} // namespace quillmar::zustand
