#include "originale.h"

#include "dateibewegung.h"
#include "dateien.h"
#include "pfade.h"
#include "skizze.h"
#include "text.h"
#include "texte.h"
#include "wiedererkennung.h"

#include <QSet>
#include <algorithm>

namespace quillmar::analyse
{
namespace
{
QSet<quint64> skizze(Datenbank &db, qint64 id)
{
    const auto werte = Skizze::ausJson(Texte(db).skizze(id));
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
    QStringList alle = Dateien(db).orte(id);
    alle.removeIf([](const QString &pfad) { return !istVorhanden(pfad); });
    return alle;
}

bool Originale::habenGleicheWorte(Datenbank &db, qint64 a, qint64 b, qsizetype textgrenze)
{
    const auto textA = Texte(db).text(a);
    const auto textB = Texte(db).text(b);
    if (!textA || !textB || *textA == *textB)
        return true;
    const QStringList worteA = Skizze::normalisiert(*textA);
    const QStringList worteB = Skizze::normalisiert(*textB);
    const bool abgeschnitten = zeichenAnzahl(*textA) >= textgrenze && zeichenAnzahl(*textB) >= textgrenze;
    return worteA == worteB || (abgeschnitten && beginntMit(worteA, worteB));
}

bool Originale::istNochDublette(Datenbank &db, qint64 id, qsizetype textgrenze)
{
    const auto d = Dateien(db).dublette(id);
    if (!d || !d->bekannt)
        return false;
    if (!istVorhanden(d->pfad))
        return true; // what is not there cannot be compared; whoever sets it aside finds out
    const QStringList dort = orte(db, d->original);
    if (d->bytegleich)
        return hatDieselbenBytes(dort, d->pfad);
    // The texts were read from files that may have been replaced since.
    return !dort.isEmpty() && habenGleicheWorte(db, id, d->original, textgrenze) &&
           Wiedererkennung::istDieselbe(db, id, d->pfad) &&
           std::any_of(dort.begin(), dort.end(),
                       [&](const QString &ort) { return Wiedererkennung::istDieselbe(db, d->original, ort); });
}

double Originale::aehnlichkeit(Datenbank &db, qint64 a, qint64 b)
{
    const QSet<quint64> links = skizze(db, a);
    const QSet<quint64> rechts = skizze(db, b);
    const qsizetype gemeinsam = (QSet<quint64>(links) &= rechts).size();
    const qsizetype alle = links.size() + rechts.size() - gemeinsam;
    return alle == 0 ? 0 : double(gemeinsam) / double(alle);
}
} // namespace quillmar::analyse
