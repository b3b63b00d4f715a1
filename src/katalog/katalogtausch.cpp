#include "katalogtausch.h"

#include "katalogpruefung.h"
#include "pfade.h"
#include "platte.h"
#include "sperrdatei.h"
#include "sprache.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::katalog
{
namespace
{
constexpr auto geduld = 10s;

/** Whole and on the disk: from now on it is the catalogue. */
QString fertiger(const QString &katalog) { return katalog + u".neu"_s; }

QStringList nebendateien() { return {u"-wal"_s, u"-shm"_s, u"-journal"_s}; }

[[noreturn]] void scheitern(int fehler)
{
    Platte::scheitern(QUILLMAR_TEXT(u"Die Sicherung ließ sich nicht einsetzen"_s), fehler);
}

/** Named by the time of its successor, so that an exchange that was interrupted goes on under the same name. */
QString beiseite(const QString &katalog)
{
    const QFileInfo datei(katalog);
    const QString zeit = QFileInfo(fertiger(katalog)).lastModified().toString(u"yyyy-MM-dd HHmmss"_s);
    QString ziel;
    for (int n = 1; n == 1 || istVorhanden(ziel); ++n)
        ziel = datei.absolutePath() + u'/' + datei.completeBaseName() + u" beiseite "_s + zeit +
               (n > 1 ? u" (%1)"_s.arg(n) : QString()) + u'.' + datei.suffix();
    return ziel;
}

void umbenennen(const QString &von, const QString &nach)
{
    if (::rename(QFile::encodeName(von).constData(), QFile::encodeName(nach).constData()) != 0 && errno != ENOENT)
        scheitern(errno);
}

void durchschreiben(const QString &pfad)
{
    const Dateigriff griff(::open(QFile::encodeName(pfad).constData(), O_RDONLY | O_CLOEXEC));
    if (!griff.offen() || ::fsync(griff.nummer()) != 0)
        scheitern(errno);
}

QString beenden(const QString &katalog)
{
    const bool vorhanden = istVorhanden(katalog);
    const QString ziel = beiseite(katalog);
    // A journal belongs to its file: the new one must not find that of the former one, be it the last that is left.
    for (const QString &zusatz : nebendateien())
        umbenennen(katalog + zusatz, ziel + zusatz);
    umbenennen(katalog, ziel);
    umbenennen(fertiger(katalog), katalog);
    Katalogtausch::verwerfen(katalog); // who has looked at it last may have left an empty journal behind
    Katalogpruefung::vermerkStreichen(katalog);
    Platte::ordnerSichern(QFile::encodeName(katalog));
    return vorhanden ? ziel : QString();
}

/** Only what stands in the file itself takes the place: a journal that holds something could not be written into it. */
void nebendateienEntfernen(const QString &katalog)
{
    const QString neuer = Katalogtausch::entstehender(katalog);
    if (QFileInfo(neuer + u"-wal"_s).size() > 0)
        scheitern(ENOSPC);
    for (const QString &zusatz : nebendateien())
        QFile::remove(neuer + zusatz);
}

/** Whoever finds an exchange half done must know that nobody is at it any more. */
Sperrdatei alleinigkeit(const QString &katalog)
{
    auto sperre = Sperrdatei::nehmen(katalog + u".tausch"_s, geduld);
    if (!sperre)
        scheitern(EBUSY);
    return std::move(*sperre);
}
} // namespace

QString Katalogtausch::entstehender(const QString &katalog) { return katalog + u".entsteht"_s; }

void Katalogtausch::verwerfen(const QString &katalog)
{
    for (const QString &zusatz : nebendateien() + QStringList{QString()})
        QFile::remove(entstehender(katalog) + zusatz);
}

QString Katalogtausch::vollziehen(const QString &katalog)
{
    const Sperrdatei sperre = alleinigkeit(katalog);
    nebendateienEntfernen(katalog);
    durchschreiben(entstehender(katalog));
    umbenennen(entstehender(katalog), fertiger(katalog));
    // Whoever opens it from now on sees istImGange(); who was before shows here.
    if (Katalogpruefung::istAnderswoOffen(katalog)) {
        umbenennen(fertiger(katalog), entstehender(katalog));
        wirdBenutzt();
    }
    Platte::ordnerSichern(QFile::encodeName(katalog));
    return beenden(katalog);
}

bool Katalogtausch::istImGange(const QString &katalog) { return istVorhanden(fertiger(katalog)); }

void Katalogtausch::wirdBenutzt()
{
    throw Fehler(Sprache::text(u"Ein anderes Programm benutzt den Katalog gerade. Beende es dort zuerst."_s));
}

void Katalogtausch::klaeren(const QString &katalog)
{
    if (!QFileInfo::exists(fertiger(katalog)))
        return;
    const Sperrdatei sperre = alleinigkeit(katalog);
    if (QFileInfo::exists(fertiger(katalog)))
        beenden(katalog);
}
} // namespace quillmar::katalog
