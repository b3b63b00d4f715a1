#include "ocrsprachen.h"

#include "sprache.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
QString einzelname(const QString &code)
{
    if (code == "deu"_L1)
        return Sprache::text(u"Deutsch"_s);
    if (code == "eng"_L1)
        return Sprache::text(u"Englisch"_s);
    const QLocale::Language sprache = QLocale::codeToLanguage(code);
    const QString eigener = sprache == QLocale::C ? QString() : QLocale(sprache).nativeLanguageName();
    return eigener.isEmpty() ? code : eigener;
}
} // namespace

QString Ocrsprachen::name(const QString &code)
{
    return namen(code.split(u'+', Qt::SkipEmptyParts)).join(u" + "_s) + u" ("_s + code + u')';
}

QStringList Ocrsprachen::namen(const QStringList &codes)
{
    QStringList liste;
    for (const QString &code : codes)
        liste << einzelname(code);
    return liste;
}

QStringList Ocrsprachen::auswahl(const QStringList &installierte, const QString &jetzige)
{
    QStringList liste = installierte;
    if (liste.contains(u"deu"_s) && liste.contains(u"eng"_s))
        liste << u"deu+eng"_s;
    if (!liste.contains(jetzige))
        liste.prepend(jetzige);
    return liste;
}

QString Ocrsprachen::paket(const QString &code)
{
    // Packages are named with a hyphen where the codes have an underscore.
    return u"tesseract-ocr-"_s + code.section(u'+', 0, 0).replace(u'_', u'-');
}
} // namespace quillmar::zustand
