#include "originale.h"

#include "dateibewegung.h"
#include "datenbank.h"
#include "pfade.h"
#include "skizze.h"
#include "stapel.h"
#include "text.h"
#include "wiedererkennung.h"

#include <QSet>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{
constexpr double bytegleich = 1.0;

std::optional<QString> text(Datenbank &db, qint64 id)
{
    const QList<Zeile> zeilen = db.abfragen(u"SELECT text FROM texte WHERE dokument_id=?"_s, {id});
    return zeilen.isEmpty() ? std::nullopt : std::optional(zeilen.first().text(u"text"));
}

QSet<quint64> skizze(Datenbank &db, qint64 id)
{
    const QList<Zeile> zeilen = db.abfragen(u"SELECT skizze FROM dokumente WHERE id=?"_s, {id});
    const auto werte = zeilen.isEmpty() ? std::nullopt : Skizze::ausJson(zeilen.first().text(u"skizze"));
    return werte ? QSet<quint64>(werte->begin(), werte->end()) : QSet<quint64>();
}

/** One list begins with all words of the other, whose last one may have been cut off. */
bool beginntMit(const QStringList &a, const QStringList &b)
{
    const QStringList &kurz = a.size() <= b.size() ? a : b;
    const QStringList &lang = a.size() <= b.size() ? b : a;
    if (kurz.isEmpty())
        return false;
    const qsizetype letztes = kurz.size() - 1;
    return kurz.first(letztes) == lang.first(letztes) &&
           (lang.at(letztes).startsWith(kurz.at(letztes)) || kurz.at(letztes).startsWith(lang.at(letztes)));
}

bool hatDieselbenBytes(const QStringList &orte, const QString &pfad)
{
    return std::any_of(orte.begin(), orte.end(), [&](const QString &ort) {
        return !Dateibewegung::istDerselbeEintrag(ort, pfad) && Dateibewegung::istGleich(ort, pfad);
    });
}
} // namespace

QStringList Originale::orte(Datenbank &db, qint64 id)
{
    QStringList alle;
    for (const Zeile &z : db.abfragen(u"SELECT pfad FROM dokumente WHERE id=? AND pfad IS NOT NULL\n"
                                      "UNION SELECT nach_pfad FROM protokoll\n"
                                      "WHERE dokument_id=? AND kopiert=1 AND rueckgaengig=0"_s,
                                      {id, id})) {
        if (istVorhanden(z.text(u"pfad")))
            alle << z.text(u"pfad");
    }
    return alle;
}

bool Originale::habenGleicheWorte(Datenbank &db, qint64 a, qint64 b, qsizetype textgrenze)
{
    const auto textA = text(db, a);
    const auto textB = text(db, b);
    if (!textA || !textB || *textA == *textB)
        return true;
    const QStringList worteA = Skizze::normalisiert(*textA);
    const QStringList worteB = Skizze::normalisiert(*textB);
    const bool abgeschnitten = zeichenAnzahl(*textA) >= textgrenze && zeichenAnzahl(*textB) >= textgrenze;
    return worteA == worteB || (abgeschnitten && beginntMit(worteA, worteB));
}

bool Originale::istNochDublette(Datenbank &db, qint64 id, qsizetype textgrenze)
{
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT d.pfad, d.aehnlichkeit, d.dublette_von FROM dokumente d\n"
                    "JOIN dokumente o ON o.id=d.dublette_von AND o.ausgenommen=0 WHERE d.id=?"_s,
                    {id});
    if (zeilen.isEmpty())
        return false;
    const Zeile &z = zeilen.first();
    if (!istVorhanden(z.text(u"pfad")))
        return true; // what is not there cannot be compared; whoever sets it aside finds out
    const qint64 original = z.ganz(u"dublette_von");
    const QStringList dort = orte(db, original);
    if (z.komma(u"aehnlichkeit") >= bytegleich)
        return hatDieselbenBytes(dort, z.text(u"pfad"));
    // The texts were read from files that may have been replaced since.
    return !dort.isEmpty() && habenGleicheWorte(db, id, original, textgrenze) &&
           Wiedererkennung::istDieselbe(db, id, z.text(u"pfad")) &&
           std::any_of(dort.begin(), dort.end(),
                       [&](const QString &ort) { return Wiedererkennung::istDieselbe(db, original, ort); });
}

void Originale::freigeben(Datenbank &db, qint64 id)
{
    Stapel stapel(db);
    stapel.schreiben(u"UPDATE dokumente SET status=CASE WHEN vorschlag IS NULL THEN 'neu' ELSE 'bereit' END,\n"
                     "dublette_von=NULL, aehnlichkeit=NULL WHERE id=? AND status='dublette'"_s,
                     {id});
    stapel.abschliessen();
}

double Originale::aehnlichkeit(Datenbank &db, qint64 a, qint64 b)
{
    const QSet<quint64> links = skizze(db, a);
    const QSet<quint64> rechts = skizze(db, b);
    const qsizetype gemeinsam = (QSet<quint64>(links) &= rechts).size();
    const qsizetype alle = links.size() + rechts.size() - gemeinsam;
    return alle == 0 ? 0 : double(gemeinsam) / double(alle);
}
