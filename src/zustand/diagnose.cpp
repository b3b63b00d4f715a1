#include "diagnose.h"

#include "ollama.h"
#include "sprache.h"
#include "text.h"
#include "werkzeuge.h"

#include <QProcess>
#include <QSysInfo>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int geduld = 3000; // ms for a tool that is asked for its version

/** The first line that @p pfad says about itself; the tools write it to either channel. */
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
    return QString::fromUtf8(prozess.readAll()).section(u'\n', 0, 0).trimmed();
}

QString werkzeug(const QString &name, const QString &argument)
{
    const auto pfad = Werkzeuge::pfad(name);
    return name + u": "_s +
           (pfad ? fassung(*pfad, argument) + u" ("_s + *pfad + u')' : Sprache::text(u"nicht gefunden"_s));
}

QString modellserver()
{
    const Ollama server;
    if (!server.erreichbar())
        return Sprache::text(u"Der Modellserver ollama läuft nicht"_s);
    return gefuellt(Sprache::text(u"Modellserver: läuft, %@ Modelle"_s), {QString::number(server.modelle().size())});
}
} // namespace

QStringList Diagnose::zeilen()
{
    return {QStringLiteral("Quillmar ") + QStringLiteral(QUILLMAR_FASSUNG),
            u"Qt "_s + QString::fromLatin1(qVersion()),
            u"SQLite "_s + QString::fromLatin1(sqlite3_libversion()),
            QSysInfo::prettyProductName() + u", "_s + QSysInfo::currentCpuArchitecture(),
            werkzeug(u"pdftotext"_s, u"-v"_s),
            werkzeug(u"pdftoppm"_s, u"-v"_s),
            werkzeug(u"tesseract"_s, u"--version"_s),
            modellserver()};
}
