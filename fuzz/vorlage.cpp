#include "pfade.h"
#include "pruefziel.h"
#include "text.h"
#include "ziel.h"

using namespace Qt::StringLiterals;
using namespace quillmar::analyse;

/** Values and templates of any text: a name that a file system takes, a folder below the target root. */
void pruefen(const QByteArray &eingabe)
{
    const QList<QByteArray> teile = eingabe.split('\n');
    const auto teil = [&](qsizetype n) { return nfc(QString::fromUtf8(teile.value(n))); };
    const Angaben a{.datum = teil(0),
                    .gegenueber = teil(1),
                    .titel = teil(2),
                    .ort = {.zweig = u"Privat"_s, .ablage = u"Post"_s, .rubrik = teil(3)},
                    .jahr = teil(4)};
    Profil p;
    p.zielWurzel = u"/ziel"_s;
    p.namensVorlage = teil(6);
    p.pfadVorlage = teil(7);
    p.zweige = {{.name = u"Privat"_s, .ablagen = {{.name = u"Post"_s, .mitJahr = false, .rubriken = {a.ort.rubrik}}}}};
    const QString name = Ziel::dateiname(a, teil(5), p);
    verlangen(name.endsWith(u".pdf"_s) && !name.contains(u'/') && !name.contains(QChar(u'\0')));
    verlangen(name.toUtf8().size() <= 255);
    const QString ordner = Ziel::ordner(a.ort, a.jahr, p);
    verlangen(ordner == u"/ziel"_s || ordner.startsWith(u"/ziel/"_s));
    verlangen(!ordner.contains(u"/../"_s) && !ordner.endsWith(u"/.."_s));
}
