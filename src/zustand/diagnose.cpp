#include "diagnose.h"

#include "katalog.h"
#include "ollama.h"
#include "sprache.h"
#include "text.h"
#include "werkzeuge.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSysInfo>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
constexpr int geduld = 3000; // ms for a tool that is asked for its version

/** The version that the program at @p pfad tells in its first line; the tools write it to either channel. */
QString fassung(const QString &pfad, const QString &argument)
{
    QProcess prozess;
    prozess.setProcessChannelMode(QProcess::MergedChannels);
    prozess.start(pfad, {argument});
    if (!prozess.waitForFinished(geduld)) {
        prozess.kill();
        prozess.waitForFinished(geduld);
        return Sprache::text(u"antwortet nicht"_s);
    }
    static const QRegularExpression zahl(u"\\d+(\\.\\d+)+\\S*"_s);
    const QString zeile = QString::fromUtf8(prozess.readAll()).section(u'\n', 0, 0).trimmed();
    const auto treffer = zahl.match(zeile);
    return treffer.hasMatch() ? treffer.captured() : zeile;
}

Diagnose::Helfer werkzeug(const QString &name, const QString &argument)
{
    const auto pfad = Werkzeuge::pfad(name);
    if (!pfad)
        return {.name = name, .fassung = Sprache::text(u"nicht gefunden"_s)};
    return {.name = name, .fassung = fassung(*pfad, argument), .dazu = *pfad};
}

Diagnose::Helfer modellserver()
{
    const Ollama server;
    const auto fassung = server.fassung();
    if (!fassung)
        return {.name = u"ollama"_s, .fassung = Sprache::text(u"läuft nicht"_s)};
    return {.name = u"ollama"_s,
            .fassung = fassung->isEmpty() ? Sprache::text(u"läuft"_s) : *fassung,
            .dazu = gefuellt(Sprache::text(u"Modelle: %@"_s), {QString::number(server.modelle().size())})};
}
} // namespace

QList<Diagnose::Helfer> Diagnose::helfer()
{
    return {werkzeug(u"pdftotext"_s, u"-v"_s), werkzeug(u"pdftoppm"_s, u"-v"_s),
            werkzeug(u"tesseract"_s, u"--version"_s), modellserver()};
}

QStringList Diagnose::zeilen()
{
    QStringList zeilen = {QStringLiteral("Quillmar ") + QStringLiteral(QUILLMAR_FASSUNG),
                          u"Qt "_s + QString::fromLatin1(qVersion()), u"SQLite "_s + Katalog::sqliteFassung(),
                          QSysInfo::prettyProductName() + u", "_s + QSysInfo::currentCpuArchitecture()};
    for (const Helfer &einer : helfer())
        zeilen << einer.name + u' ' + einer.fassung + (einer.dazu.isEmpty() ? QString() : u" ("_s + einer.dazu + u')');
    return zeilen;
}
} // namespace quillmar::zustand
