#include "bestandteile.h"

#include "katalog.h"
#include "sha256.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
QList<Bestandteil> bestandteile()
{
    return {
        {.name = u"Qt"_s, .fassung = QString::fromLatin1(qVersion()), .lizenz = u"LGPL 3"_s},
        {.name = Sprache::text(u"PDFium, in Qt PDF"_s), .fassung = {}, .lizenz = u"BSD, Apache 2.0"_s},
        {.name = u"SQLite"_s, .fassung = Katalog::sqliteFassung(), .lizenz = Sprache::text(u"gemeinfrei"_s)},
        {.name = u"OpenSSL"_s, .fassung = Sha256::opensslFassung(), .lizenz = u"Apache 2.0"_s},
        {.name = u"libcurl"_s, .fassung = {}, .lizenz = u"curl"_s},
        {.name = Sprache::text(u"Breeze, Symbole"_s), .fassung = {}, .lizenz = u"LGPL 3"_s},
        {.name = Sprache::text(u"poppler-utils, als Programm"_s),
         .fassung = {},
         .lizenz = u"GPL 2, GPL 3"_s,
         .helfer = u"pdftotext"_s},
        {.name = Sprache::text(u"tesseract, als Programm"_s),
         .fassung = {},
         .lizenz = u"Apache 2.0"_s,
         .helfer = u"tesseract"_s},
        {.name = Sprache::text(u"ollama, als Programm"_s), .fassung = {}, .lizenz = u"MIT"_s, .helfer = u"ollama"_s},
    };
}
} // namespace quillmar::zustand
