#include "sicherungen.h"

#include "nurlesend.h"
#include "platte.h"
#include "sperrdatei.h"
#include "sprache.h"
#include "text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::katalog
{
namespace
{
constexpr int seitenJeSchritt = 256;
constexpr auto pause = 2ms;                       // between two steps: a run and the review need the disk as well
constexpr quint64 reserve = quint64(64) << 20;    // that stays free on the disk
constexpr quint64 reserveteil = 10;               // or, on a small one, this part of it
constexpr auto zeitformat = "yyyyMMddThhmmss"_L1; // in UTC

QString stamm(const QString &katalog) { return QFileInfo(katalog).completeBaseName(); }

std::optional<Sicherung> aus(const QFileInfo &datei, const QString &stamm)
{
    static const QRegularExpression muster(u"\\A(.+)-(\\d{6})-(\\d{8}T\\d{6})Z\\.db\\z"_s);
    const auto teile = muster.match(datei.fileName());
    if (!teile.hasMatch() || teile.captured(1) != stamm)
        return std::nullopt;
    QDateTime zeit = QDateTime::fromString(teile.captured(3), QString(zeitformat));
    zeit.setTimeSpec(Qt::UTC);
    return Sicherung{.datei = datei.filePath(), .nummer = teile.captured(2).toInt(), .zeit = zeit};
}

QString neuerName(const QString &katalog)
{
    const QList<Sicherung> bisher = Sicherungen::alle(katalog);
    const int nummer = bisher.isEmpty() ? 1 : bisher.first().nummer + 1;
    return Sicherungen::ordner(katalog) + u"/%1-%2-%3Z.db"_s.arg(stamm(katalog))
                                              .arg(nummer, 6, 10, QChar(u'0'))
                                              .arg(QDateTime::currentDateTimeUtc().toString(zeitformat));
}

[[noreturn]] void scheitern(int fehler)
{
    Platte::scheitern(QUILLMAR_TEXT(u"Der Katalog ließ sich nicht sichern"_s), fehler);
}

void ordnerBereiten(const QString &ordner)
{
    const QByteArray platte = QFile::encodeName(ordner);
    if (::mkdir(platte.constData(), 0700) != 0 && errno != EEXIST)
        scheitern(errno);
    if (!QFileInfo(ordner).isDir())
        scheitern(ENOTDIR);
    Platte::anderenVerschliessen(platte);
}

void platzPruefen(const QString &katalog)
{
    const QByteArray ordner = QFile::encodeName(Sicherungen::ordner(katalog));
    struct statvfs platte = {};
    if (::statvfs(ordner.constData(), &platte) != 0)
        scheitern(errno);
    const quint64 frei = quint64(platte.f_bavail) * platte.f_frsize;
    const quint64 bleibt = std::min(reserve, quint64(platte.f_blocks) * platte.f_frsize / reserveteil);
    const auto groesse = quint64(QFileInfo(katalog).size() + QFileInfo(katalog + u"-wal"_s).size());
    if (frei < groesse + bleibt)
        scheitern(ENOSPC);
}

/** A file that is being written; gone with its object unless it is published. */
class Entstehende
{
public:
    explicit Entstehende(const QString &ziel) : m_ziel(QFile::encodeName(ziel)), m_pfad(m_ziel + ".teil")
    {
        m_griff = Dateigriff(::open(m_pfad.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (!m_griff.offen())
            scheitern(errno);
    }
    ~Entstehende()
    {
        if (!m_fertig)
            ::unlink(m_pfad.constData());
    }
    Entstehende(const Entstehende &) = delete;
    Entstehende &operator=(const Entstehende &) = delete;

    [[nodiscard]] const QByteArray &pfad() const { return m_pfad; }

    void veroeffentlichen()
    {
        if (::fsync(m_griff.nummer()) != 0 || ::rename(m_pfad.constData(), m_ziel.constData()) != 0)
            scheitern(errno);
        m_fertig = true;
        Platte::ordnerSichern(m_ziel);
    }

private:
    QByteArray m_ziel;
    QByteArray m_pfad;
    Dateigriff m_griff;
    bool m_fertig = false;
};

/** The state of one moment stays in sight while it is copied: a step does not begin anew when somebody writes. */
void standHalten(sqlite3 *quelle)
{
    if (sqlite3_exec(quelle, "BEGIN; SELECT COUNT(*) FROM sqlite_master", nullptr, nullptr, nullptr) != SQLITE_OK)
        scheitern(EIO);
}

int fehlernummer(int code) { return (code & 0xff) == SQLITE_FULL ? ENOSPC : EIO; }

bool kopieren(sqlite3 *quelle, sqlite3 *ziel, const std::stop_token &ende)
{
    sqlite3_backup *kopie = sqlite3_backup_init(ziel, "main", quelle, "main");
    if (!kopie)
        scheitern(fehlernummer(sqlite3_errcode(ziel)));
    int code = SQLITE_OK;
    while (code == SQLITE_OK && !ende.stop_requested()) {
        code = sqlite3_backup_step(kopie, seitenJeSchritt);
        if (code == SQLITE_OK)
            std::this_thread::sleep_for(pause);
    }
    const int schluss = sqlite3_backup_finish(kopie);
    if (code != SQLITE_OK && code != SQLITE_DONE)
        scheitern(fehlernummer(schluss));
    return code == SQLITE_DONE;
}

bool kopieren(const QString &katalog, const QByteArray &ziel, const std::stop_token &ende)
{
    const Nurlesend quelle = nurLesendOeffnen(katalog);
    sqlite3 *griff = nullptr;
    const int code = sqlite3_open_v2(ziel.constData(), &griff, SQLITE_OPEN_READWRITE, nullptr);
    const Nurlesend zielgriff(griff);
    if (!quelle || code != SQLITE_OK)
        scheitern(EIO);
    // Flushed once, by who publishes it; until then it counts for nothing.
    sqlite3_exec(griff, "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    standHalten(quelle.get());
    return kopieren(quelle.get(), griff, ende);
}

/** What a program has left that died while it copied. */
void resteEntfernen(const QString &ordner)
{
    for (const QFileInfo &datei : QDir(ordner).entryInfoList({u"*.teil"_s, u"*.teil-journal"_s}, QDir::Files))
        QFile::remove(datei.filePath());
}

void ueberzaehligeEntfernen(const QString &katalog)
{
    const QList<Sicherung> alle = Sicherungen::alle(katalog);
    for (qsizetype i = Sicherungen::hoechstens; i < alle.size(); ++i)
        QFile::remove(alle.at(i).datei);
}
} // namespace

QString Sicherungen::ordner(const QString &katalog) { return QFileInfo(katalog).absolutePath() + u"/Sicherungen"_s; }

QList<Sicherung> Sicherungen::alle(const QString &katalog)
{
    QList<Sicherung> liste;
    for (const QFileInfo &datei : QDir(ordner(katalog)).entryInfoList({u"*.db"_s}, QDir::Files)) {
        if (const auto sicherung = aus(datei, stamm(katalog)))
            liste << *sicherung;
    }
    std::sort(liste.begin(), liste.end(), [](const Sicherung &a, const Sicherung &b) { return a.nummer > b.nummer; });
    return liste;
}

bool Sicherungen::istFaellig(const QString &katalog, const QDateTime &jetzt)
{
    const QList<Sicherung> bisher = alle(katalog);
    return std::none_of(bisher.begin(), bisher.end(), [tag = jetzt.toLocalTime().date()](const Sicherung &s) {
        return s.zeit.toLocalTime().date() == tag;
    });
}

bool Sicherungen::anlegen(const QString &katalog, const std::stop_token &ende, std::chrono::milliseconds geduld)
{
    const QString ort = ordner(katalog);
    ordnerBereiten(ort);
    const auto sperre = Sperrdatei::nehmen(ort + u"/.sperre"_s, geduld);
    if (!sperre)
        return false; // another program is at it
    resteEntfernen(ort);
    platzPruefen(katalog);
    Entstehende neue(neuerName(katalog));
    if (!kopieren(katalog, neue.pfad(), ende))
        return false;
    neue.veroeffentlichen();
    ueberzaehligeEntfernen(katalog);
    return true;
}
} // namespace quillmar::katalog
