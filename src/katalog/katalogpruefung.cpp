#include "katalogpruefung.h"

#include "dateigriff.h"
#include "ganzedatei.h"
#include "katalog.h"
#include "nurlesend.h"

#include <QFile>
#include <QFileInfo>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
constexpr int schritteBisZurFrage = 20'000; // of SQLite's machine: some milliseconds

QString vermerk(const QString &pfad) { return pfad + u".beschaedigt"_s; }

/** What tells one state of a file from another. */
QByteArray stand(const QString &pfad)
{
    struct stat s = {};
    if (::stat(QFile::encodeName(pfad).constData(), &s) != 0)
        return {};
    return QByteArray::number(qint64(s.st_size)) + ' ' + QByteArray::number(qint64(s.st_mtim.tv_sec)) + ' ' +
           QByteArray::number(qint64(s.st_mtim.tv_nsec)) + '\n';
}

/** The first finding is enough. */
Katalogpruefung::Befund befund(sqlite3 *griff)
{
    using Katalogpruefung::Befund;
    sqlite3_stmt *anweisung = nullptr;
    int code = sqlite3_prepare_v2(griff, "PRAGMA integrity_check(1)", -1, &anweisung, nullptr);
    if (code == SQLITE_OK)
        code = sqlite3_step(anweisung);
    Befund ergebnis = istSchaden(code) ? Befund::Beschaedigt : Befund::Offen;
    if (code == SQLITE_ROW) {
        const QByteArray wort(reinterpret_cast<const char *>(sqlite3_column_text(anweisung, 0)));
        ergebnis = wort == "ok" ? Befund::Heil : Befund::Beschaedigt;
    }
    sqlite3_finalize(anweisung);
    return ergebnis;
}
} // namespace

Katalogpruefung::Befund Katalogpruefung::pruefen(const QString &pfad, const std::stop_token &ende)
{
    const Nurlesend griff = nurLesendOeffnen(pfad);
    if (!griff)
        return Befund::Offen;
    sqlite3_progress_handler(
        griff.get(), schritteBisZurFrage,
        [](void *token) { return static_cast<const std::stop_token *>(token)->stop_requested() ? 1 : 0; },
        const_cast<std::stop_token *>(&ende));
    const Befund ergebnis = befund(griff.get());
    return ende.stop_requested() ? Befund::Offen : ergebnis;
}

void Katalogpruefung::vermerken(const QString &pfad)
{
    // Where it cannot be kept, the next program finds the damage itself.
    Q_UNUSED(ganzSchreiben(vermerk(pfad), stand(pfad)));
}

void Katalogpruefung::vermerkStreichen(const QString &pfad) { QFile::remove(vermerk(pfad)); }

bool Katalogpruefung::istVermerkt(const QString &pfad)
{
    QFile datei(vermerk(pfad));
    return datei.open(QIODevice::ReadOnly) && datei.readAll() == stand(pfad);
}

bool Katalogpruefung::istNachAbsturz(const QString &pfad)
{
    // A journal, or movements that were announced and not finished.
    return QFileInfo(pfad + u"-wal"_s).size() > 0 || QFileInfo(Katalog::absichtsdatei(pfad)).size() > 0;
}

bool Katalogpruefung::istAnderswoOffen(const QString &pfad)
{
    const Dateigriff griff(::open(QFile::encodeName(pfad).constData(), O_RDWR | O_CLOEXEC));
    // Whoever has it open holds a shared lock on these bytes (https://www.sqlite.org/fileformat.html, lock-byte page).
    struct flock sperre = {};
    sperre.l_type = F_WRLCK;
    sperre.l_whence = SEEK_SET;
    sperre.l_start = 0x40000000;
    sperre.l_len = 512;
    return griff.offen() && ::fcntl(griff.nummer(), F_GETLK, &sperre) == 0 && sperre.l_type != F_UNLCK;
}
} // namespace quillmar::katalog
