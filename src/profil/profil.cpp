#include "profil.h"

#include "text.h"

#include <QDir>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::profil
{
namespace
{
bool istJahr(const QString &text)
{
    return text.size() == 4 && std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

template <typename Liste>
auto nachName(const Liste &liste, const QString &name) -> decltype(&liste.first())
{
    const auto treffer = std::find_if(liste.begin(), liste.end(), [&](const auto &e) { return e.name == name; });
    return treffer == liste.end() ? nullptr : &*treffer;
}
} // namespace

std::optional<QString> Profil::protokollURL() const
{
    if (!protokollOrdner.isEmpty())
        return protokollOrdner;
    if (zielWurzel.isEmpty())
        return std::nullopt;
    return QDir(zielWurzel).filePath(u"_Protokolle"_s);
}

QStringList Profil::eigenkennungen() const
{
    QStringList namen;
    for (const QString &name : eigeneNamen) {
        if (const QString n = name.trimmed(); !n.isEmpty())
            namen << n;
    }
    namen.removeDuplicates();
    return namen;
}

const Zweig *Profil::zweig(const QString &gesucht) const { return nachName(zweige, gesucht); }

const Ablageart *Profil::ablageart(const QString &zweigName, const QString &ablageName) const
{
    const Zweig *z = zweig(zweigName);
    return z ? nachName(z->ablagen, ablageName) : nullptr;
}

bool Profil::kennt(const Ort &ort) const
{
    const Ablageart *art = ablageart(ort.zweig, ort.ablage);
    return art && art->rubriken.contains(ort.rubrik);
}

Ort Profil::zerlegen(const QString &ordner) const
{
    QStringList teile = nfc(ordner).split(u'/', Qt::SkipEmptyParts);
    Ort ort;
    if (!teile.isEmpty())
        ort.zweig = teile.takeFirst();
    if (!teile.isEmpty())
        ort.ablage = teile.takeFirst();
    const Ablageart *art = ablageart(ort.zweig, ort.ablage);
    if (art && art->mitJahr && !teile.isEmpty() && istJahr(teile.first()))
        teile.removeFirst();
    ort.rubrik = teile.join(u'/');
    return ort;
}

QString Profil::jahrIn(const QString &ordner) const
{
    const QStringList teile = nfc(ordner).split(u'/', Qt::SkipEmptyParts);
    const Ablageart *art = ablageart(teile.value(0), teile.value(1));
    return art && art->mitJahr && istJahr(teile.value(2)) ? teile.value(2) : QString();
}

QStringList Profil::eigeneOrdner() const
{
    QStringList ordner = {auffangOrdner, u'/' + dublettenOrdner};
    const QString davor = QDir::cleanPath(nfc(zielWurzel)) + u'/';
    if (const auto protokoll = protokollURL(); protokoll && nfc(*protokoll).startsWith(davor))
        ordner << QDir::cleanPath(nfc(*protokoll)).mid(davor.size() - 1);
    ordner.removeAll(QString());
    return ordner;
}

std::optional<QString> Profil::regelFuer(const QString &ordner) const
{
    const QString gewaehlt = QDir::cleanPath(nfc(ordner));
    if (!quelle.isEmpty()) {
        const QString herkunft = QDir::cleanPath(nfc(quelle));
        if (gewaehlt == herkunft)
            return std::nullopt;
        const QString davor = herkunft.endsWith(u'/') ? herkunft : herkunft + u'/';
        if (gewaehlt.startsWith(davor)) {
            const QString rest = gewaehlt.mid(davor.size());
            return rest.contains(u'/') ? rest : u"./"_s + rest;
        }
    }
    const QString name = gewaehlt.mid(gewaehlt.lastIndexOf(u'/') + 1);
    return name.isEmpty() ? std::nullopt : std::optional(name); // the root of all folders has no name
}
} // namespace quillmar::profil
