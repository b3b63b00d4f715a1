#include "protokollbuch.h"

#include "dateibewegung.h"
#include "dateigriff.h"
#include "fehler.h"
#include "pfade.h"
#include "platte.h"
#include "rueckbau.h"
#include "text.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::ablage
{
namespace
{
struct Log {
    QString pfad;
    qint64 zeit = 0; ///< of the last change, in nanoseconds
};

QList<Log> logsIn(const QString &ordner)
{
    QList<Log> logs;
    ordnerLesen(plattenPfad(ordner), [&](int griff, const Ordnereintrag &e) {
        const QString name = nameVonPlatte(e.name);
        struct stat s = {};
        if (name.endsWith(".jsonl"_L1) && ::fstatat(griff, e.name.constData(), &s, 0) == 0 && S_ISREG(s.st_mode))
            logs << Log{.pfad = ordner + u'/' + name, .zeit = Platte::zeitVon(s)};
    });
    return logs;
}

/** First name of the form "Protokoll 2025-01-31 140509.jsonl" from now on that is not taken. */
QString freierName(const QString &ordner)
{
    QDateTime zeit = QDateTime::currentDateTime();
    QString datei;
    do {
        datei = ordner + u"/Protokoll "_s + zeit.toString(u"yyyy-MM-dd HHmmss"_s) + u".jsonl"_s;
        zeit = zeit.addSecs(1);
    } while (istVorhanden(datei));
    return datei;
}

/** The last byte of an open file; a line feed for an empty one. */
char letztesByte(int griff)
{
    char zeichen = '\n';
    struct stat s = {};
    if (::fstat(griff, &s) == 0 && s.st_size > 0 && ::pread(griff, &zeichen, 1, s.st_size - 1) != 1)
        return 0;
    return zeichen;
}

/** Writes at the end of an open file of @p groesse bytes and flushes. Nothing torn stays behind on failure. */
bool anfuegen(const Dateigriff &griff, off_t groesse, const QByteArray &bytes)
{
    if (::write(griff.nummer(), bytes.constData(), size_t(bytes.size())) == bytes.size())
        return ::fdatasync(griff.nummer()) == 0;
    [[maybe_unused]] const int egal = ::ftruncate(griff.nummer(), groesse);
    return false;
}

/** Appends a line to the file; begins it with @p kopf when it has vanished meanwhile. */
bool zeileAnhaengen(const QString &datei, const Protokollkopf &kopf, const QByteArray &zeile)
{
    const QByteArray pfad = plattenPfad(datei);
    const Dateigriff griff(::open(pfad.constData(), O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC, 0600));
    struct stat s = {};
    if (!griff.offen() || ::fstat(griff.nummer(), &s) != 0)
        return false;
    QByteArray bytes = zeile + '\n';
    if (s.st_size == 0)
        bytes.prepend(kopf.json() + '\n');
    else if (letztesByte(griff.nummer()) != '\n')
        bytes.prepend('\n');
    return anfuegen(griff, s.st_size, bytes);
}

/** The line is written; that the folder cannot be flushed does not make it unwritten. */
void ordnerSichern(const QByteArray &pfad)
{
    try {
        Platte::ordnerSichern(pfad);
    } catch (const Fehler &) {
        // The catalogue's own row is the record that counts.
    }
}

/** Begins a book with its first line, in @p datei or the next second that no other program has; none on failure. */
std::optional<QString> beginnen(QString datei, const Protokollkopf &kopf, const QByteArray &zeile)
{
    for (;;) {
        const QByteArray pfad = plattenPfad(datei);
        const Dateigriff griff(::open(pfad.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (griff.offen()) {
            if (anfuegen(griff, 0, kopf.json() + '\n' + zeile + '\n')) {
                ordnerSichern(pfad);
                return datei;
            }
            ::unlink(pfad.constData()); // made here just now, and no one has read of it
            return std::nullopt;
        }
        if (errno != EEXIST)
            return std::nullopt;
        datei = freierName(ordnerVon(datei));
    }
}

/** Calls @p nehmen with each line; stops when it returns false. Lines are read one by one: a log may be large. */
void zeilenLesen(const QString &datei, const std::function<bool(const QByteArray &)> &nehmen)
{
    QFile eingabe(QString::fromUtf8(plattenPfad(datei)));
    if (!eingabe.open(QIODevice::ReadOnly))
        return;
    while (!eingabe.atEnd()) {
        const QByteArray zeile = eingabe.readLine();
        if (zeile.size() > 1 && !nehmen(zeile))
            return;
    }
}
} // namespace

std::shared_ptr<Protokollbuch> Protokollbuch::anlegen(const QString &ordner, const Profil &profil)
{
    const QString ort = QDir::cleanPath(ordner);
    const QString ziel = QDir::cleanPath(profil.zielWurzel);
    const bool imZiel = !profil.zielWurzel.isEmpty() && (nfc(ort) == nfc(ziel) || liegtUnter(ort, ziel));
    try {
        Dateibewegung::ordnerAnlegen(ort, imZiel ? ziel : u"/"_s);
    } catch (const Fehler &) {
        return {}; // the caller tells the user that there is no log
    }
    if (::access(plattenPfad(ort).constData(), W_OK) != 0)
        return {};
    return std::shared_ptr<Protokollbuch>(new Protokollbuch(freierName(ort), Protokollkopf::fuer(profil)));
}

QString Protokollbuch::datei() const
{
    const std::lock_guard sperre(m_schloss);
    return m_datei;
}

QString Protokollbuch::ordner() const { return ordnerVon(datei()); }

bool Protokollbuch::anhaengen(const Protokollzeile &zeile)
{
    const std::lock_guard sperre(m_schloss);
    if (m_begonnen)
        return zeileAnhaengen(m_datei, m_kopf, zeile.json());
    const auto datei = beginnen(m_datei, m_kopf, zeile.json());
    if (datei)
        m_datei = *datei;
    m_begonnen = datei.has_value();
    return m_begonnen;
}

bool Protokollbuch::nachtragen(const QString &datei, const Protokollkopf &kopf, const Protokollzeile &zeile)
{
    if (!istOrdner(ordnerVon(datei)))
        return true;
    if (Protokollbuch::kopf(datei) != kopf)
        return beginnen(datei, kopf, zeile.json()).has_value();
    return lesen(datei).contains(zeile) || zeileAnhaengen(datei, kopf, zeile.json());
}

QStringList Protokollbuch::dateien(const QString &ordner)
{
    QList<Log> logs = logsIn(ordner);
    std::sort(logs.begin(), logs.end(), [](const Log &a, const Log &b) {
        return a.zeit != b.zeit ? a.zeit > b.zeit : a.pfad > b.pfad; // equal times: the later name first
    });
    QStringList pfade;
    for (const Log &log : std::as_const(logs))
        pfade << log.pfad;
    return pfade;
}

std::optional<Protokollkopf> Protokollbuch::kopf(const QString &datei)
{
    std::optional<Protokollkopf> kopf;
    zeilenLesen(datei, [&kopf](const QByteArray &zeile) {
        kopf = Protokollkopf::aus(zeile);
        return false;
    });
    return kopf;
}

QList<Protokollzeile> Protokollbuch::lesen(const QString &datei)
{
    QList<Protokollzeile> zeilen;
    zeilenLesen(datei, [&zeilen](const QByteArray &zeile) {
        if (auto gelesen = Protokollzeile::aus(zeile))
            zeilen << std::move(*gelesen);
        return true;
    });
    return zeilen;
}

Bilanz Protokollbuch::zurueckdrehen(const QString &datei, const std::shared_ptr<Datenbank> &db,
                                    const Fortschritt &fortschritt, const std::stop_token &ende,
                                    const QStringList &grenzen, const Profil &profil)
{
    return Rueckbau(datei, db, fortschritt, ende, grenzen, profil).ausfuehren();
}
} // namespace quillmar::ablage
