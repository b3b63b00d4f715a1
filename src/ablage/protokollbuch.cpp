#include "protokollbuch.h"

#include "dateibewegung.h"
#include "dateigriff.h"
#include "fehler.h"
#include "pfade.h"
#include "rueckbau.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{
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

/** Appends a line to the file; begins it with @p kopf when it is empty or new. */
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
    if (::write(griff.nummer(), bytes.constData(), size_t(bytes.size())) == bytes.size())
        return ::fdatasync(griff.nummer()) == 0;
    // No torn line stays behind: a torn header would never be mended.
    [[maybe_unused]] const int egal = ::ftruncate(griff.nummer(), s.st_size);
    return false;
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
    const bool imZiel = !profil.zielWurzel.isEmpty() && (ort + u'/').startsWith(ziel + u'/');
    try {
        Dateibewegung::ordnerAnlegen(ort, imZiel ? ziel : u"/"_s);
    } catch (const Fehler &) {
        return {}; // the caller tells the user that there is no log
    }
    if (::access(plattenPfad(ort).constData(), W_OK) != 0)
        return {};
    return std::shared_ptr<Protokollbuch>(new Protokollbuch(freierName(ort), Protokollkopf::fuer(profil)));
}

QString Protokollbuch::ordner() const { return ordnerVon(m_datei); }

bool Protokollbuch::anhaengen(const Protokollzeile &zeile)
{
    const std::lock_guard sperre(m_schloss);
    return zeileAnhaengen(m_datei, m_kopf, zeile.json());
}

void Protokollbuch::nachtragen(const QString &datei, const Profil &profil, const Protokollzeile &zeile)
{
    const QList<Protokollzeile> zeilen = lesen(datei);
    if (!zeilen.contains(zeile) && istOrdner(ordnerVon(datei)))
        zeileAnhaengen(datei, Protokollkopf::fuer(profil), zeile.json());
}

QStringList Protokollbuch::dateien(const QString &ordner)
{
    struct Log {
        QString pfad;
        qint64 zeit = 0;
    };
    QList<Log> logs;
    const QByteArray platte = plattenPfad(ordner);
    ordnerLesen(platte, [&](int griff, const Ordnereintrag &e) {
        const QString name = nameVonPlatte(e.name);
        struct stat s = {};
        if (name.endsWith(".jsonl"_L1) && ::fstatat(griff, e.name.constData(), &s, 0) == 0 && S_ISREG(s.st_mode))
            logs << Log{.pfad = ordner + u'/' + name,
                        .zeit = qint64(s.st_mtim.tv_sec) * 1000000000 + s.st_mtim.tv_nsec};
    });
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
                                    const Fortschritt &fortschritt)
{
    return Rueckbau(datei, db, fortschritt).ausfuehren();
}
