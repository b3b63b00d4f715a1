#include "eigeneordner.h"
#include "pfade.h"
#include "profil.h"
#include "text.h"

#include <QDir>
#include <QMap>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::profil
{
namespace
{
bool istJahresordner(const QString &name)
{
    return name.size() == 4 && std::all_of(name.begin(), name.end(), [](QChar c) { return c.isDigit(); });
}

bool istAuffangordner(const QString &name)
{
    const QString klein = name.toLower();
    return klein == u"prüfen"_s || klein == "prufen"_L1;
}

bool hatUmlaut(const QString &name)
{
    return std::any_of(name.begin(), name.end(), [](QChar c) { return u"äöüÄÖÜß"_s.contains(c); });
}

QStringList rubrikenDirekt(const QString &art, const QStringList &ordner, int tiefe)
{
    QStringList rubriken = ordner;
    if (tiefe < 2)
        return rubriken;
    for (const QString &rubrik : ordner) {
        for (const QString &unter : unterordner(art + u'/' + rubrik)) {
            if (unter != "Fotos"_L1)
                rubriken << rubrik + u'/' + unter;
        }
    }
    return rubriken;
}

Ablageart ablageartLesen(const QString &zweig, const QString &name, int tiefe)
{
    const QString ort = zweig + u'/' + name;
    const QStringList ordner = unterordner(ort);
    QStringList jahre;
    std::copy_if(ordner.begin(), ordner.end(), std::back_inserter(jahre), istJahresordner);
    Ablageart art{.name = name, .mitJahr = !jahre.isEmpty(), .rubriken = {}};
    QStringList rubriken;
    if (art.mitJahr) {
        for (const QString &jahr : jahre)
            rubriken << unterordner(ort + u'/' + jahr);
    } else {
        rubriken = rubrikenDirekt(ort, ordner, tiefe);
    }
    rubriken.removeDuplicates();
    art.rubriken = Profil::vereinheitlichen(rubriken);
    return art;
}

Zweig zweigLesen(const QString &ziel, const QString &name, int tiefe, const EigeneOrdner &eigene)
{
    const QString ort = ziel + u'/' + name;
    Zweig zweig{.name = name, .ablagen = {}};
    for (const QString &art : unterordner(ort)) {
        if (!istAuffangordner(art) && !eigene.enthaelt(name + u'/' + art))
            zweig.ablagen << ablageartLesen(ort, art, tiefe);
    }
    return zweig;
}
} // namespace

QList<Zweig> Profil::struktureinlesen(const QString &ziel, int tiefe, const QStringList &eigene)
{
    const EigeneOrdner ohne(eigene);
    const QString wurzel = QDir::cleanPath(nfc(ziel));
    QList<Zweig> zweige;
    for (const QString &name : unterordner(wurzel)) {
        if (name.startsWith(u'_') || name == "Inbox"_L1 || ohne.enthaelt(name))
            continue;
        if (Zweig zweig = zweigLesen(wurzel, name, tiefe, ohne); !zweig.ablagen.isEmpty())
            zweige << std::move(zweig);
    }
    return zweige;
}

QStringList Profil::vereinheitlichen(const QStringList &namen)
{
    QStringList sortiert = namen;
    sortiert.sort();
    QMap<QString, QString> nachSchluessel;
    for (const QString &name : sortiert) {
        QString &behalten = nachSchluessel[gefaltet(name, Faltung::Rubriken)];
        if (behalten.isNull() || (hatUmlaut(name) && !hatUmlaut(behalten)))
            behalten = name;
    }
    QStringList ergebnis = nachSchluessel.values();
    ergebnis.sort();
    return ergebnis;
}
} // namespace quillmar::profil
