#include "ziel.h"

#include "dateibewegung.h"
#include "fehler.h"
#include "sprache.h"
#include "text.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
constexpr qsizetype laengeDatum = 10;
constexpr qsizetype laengeGegenueber = 60;
constexpr qsizetype laengeTitel = 90;

QString ohneEndung(const QString &name)
{
    const qsizetype punkt = name.lastIndexOf(u'.');
    return punkt <= 0 ? name : name.first(punkt);
}

/** No level of a path is "." or "..": such a value would lead out of the target tree. */
QString ohneSpruenge(const QString &pfad)
{
    QStringList teile = pfad.split(u'/', Qt::SkipEmptyParts);
    teile.removeIf([](const QString &teil) { return teil == u"."_s || teil == u".."_s; });
    return teile.join(u'/');
}

QString unterZiel(const Profil &profil, const QString &relativ)
{
    return QDir::cleanPath(nfc(profil.zielWurzel) + u'/' + nfc(relativ));
}

/** A level that the structure knows is taken as it is on the disk, with whatever a new name would lose. */
QString ebeneFuellen(const QString &ebene, const Vorlage::Werte &werte, const Ablageart &art)
{
    for (const Baustein baustein : {Baustein::Zweig, Baustein::Ablage, Baustein::Rubrik}) {
        const QString wert = werte.value(baustein);
        const bool bekannt = baustein != Baustein::Rubrik || art.rubriken.contains(wert);
        if (bekannt && ebene == u'{' + bausteinWort(baustein) + u'}')
            return wert;
    }
    return Vorlage::fuellen(werte, ebene);
}

QString auffang(const Ort &ort, const Profil &profil)
{
    const QString ersteEbene = ort.zweig.isEmpty() ? profil.auffangOrdner : ort.zweig;
    return unterZiel(profil, ohneSpruenge(ersteEbene) + u'/' + ohneSpruenge(profil.auffangOrdner));
}
} // namespace

QString Ziel::stamm(const Vorlage::Werte &werte, const QString &namensVorlage)
{
    QString name = Vorlage::ohneUnsichtbares(nfc(Vorlage::fuellen(werte, namensVorlage)));
    // A rubric of two levels or a template brings separators and marks of its own.
    name.replace(u'/', u'-').removeIf([](QChar c) { return c.category() == QChar::Other_Control; });
    return name;
}

QString Ziel::dateiname(const Angaben &a, const QString &altName, const Profil &profil)
{
    const QString datum = Vorlage::saeubern(a.datum, laengeDatum);
    const Vorlage::Werte werte = {
        {Baustein::Datum, datum},
        {Baustein::Jahr, a.jahr},
        {Baustein::Monat, datum.size() >= 7 ? datum.mid(5, 2) : QString()},
        {Baustein::Gegenueber, Vorlage::saeubern(a.gegenueber, laengeGegenueber)},
        {Baustein::Titel, Vorlage::saeubern(a.titel, laengeTitel)},
        {Baustein::Zweig, a.ort.zweig},
        {Baustein::Ablage, a.ort.ablage},
        {Baustein::Rubrik, a.ort.rubrik},
        {Baustein::Altname, ohneEndung(altName)},
    };
    const QString name = stamm(werte, profil.namensVorlage);
    return Dateibewegung::nummeriert((name.isEmpty() ? u"unbenannt"_s : name) + u".pdf"_s, 1);
}

QString Ziel::dublettenordner(const Profil &profil)
{
    const QString wurzel = unterZiel(profil, {});
    const QString ordner = unterZiel(profil, profil.dublettenOrdner);
    if (!ordner.startsWith(wurzel.endsWith(u'/') ? wurzel : wurzel + u'/'))
        throw Fehler(
            gefuellt(Sprache::text(u"Der Dublettenordner liegt nicht im Zielordner: %@"_s), {profil.dublettenOrdner}));
    return ordner;
}

QString Ziel::ordner(const Ort &ort, const QString &jahr, const Profil &profil)
{
    if (profil.zielWurzel.isEmpty())
        return QDir::tempPath();
    const Ablageart *art = profil.ablageart(ort.zweig, ort.ablage);
    if (!art || ort.rubrik.isEmpty() || (art->mitJahr && jahr.size() != 4))
        return auffang(ort, profil);
    const Vorlage::Werte werte = {
        {Baustein::Zweig, ort.zweig},
        {Baustein::Ablage, ort.ablage},
        {Baustein::Rubrik, ort.rubrik},
        {Baustein::Jahr, art->mitJahr ? jahr : QString()},
    };
    QStringList ebenen;
    for (const QString &ebene : Vorlage::ebenen(profil.pfadVorlage))
        ebenen << ebeneFuellen(ebene, werte, *art);
    ebenen.removeAll(QString());
    return unterZiel(profil, ohneSpruenge(ebenen.join(u'/')));
}
} // namespace quillmar::ablage
