#include "papierkorb.h"

#include "dateigriff.h"
#include "pfade.h"
#include "platte.h"
#include "plattenfehler.h"
#include "text.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
const QString endung = u".trashinfo"_s;
constexpr qint64 hoechsterVermerk = 65536;

QString gescheitert() { return QUILLMAR_TEXT(u"Die Kopie ließ sich nicht in den Papierkorb legen"_s); }

/** The trash folder with both its parts, for the user alone. */
QString korb()
{
    const QString daten = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    Dateibewegung::ordnerAnlegen(daten, u"/"_s);
    const QString ort = daten + u"/Trash"_s;
    for (const QString &ordner : {ort, ort + u"/files"_s, ort + u"/info"_s}) {
        if (::mkdir(plattenPfad(ordner).constData(), 0700) != 0 && errno != EEXIST)
            Platte::scheitern(gescheitert(), errno);
    }
    return ort;
}

/** What is written about a file: where it was and when it went. */
QByteArray vermerk(const QByteArray &platte)
{
    return "[Trash Info]\nPath=" + platte.toPercentEncoding("/") +
           "\nDeletionDate=" + QDateTime::currentDateTime().toString(u"yyyy-MM-ddTHH:mm:ss"_s).toLatin1() + '\n';
}

/** Path of the note about a file in the trash. */
QString vermerkVon(const QString &imKorb)
{
    return ordnerVon(ordnerVon(imKorb)) + u"/info/"_s + nameVon(imKorb) + endung;
}

/** A note about the file that was at @p pfad. It is written at one stroke: what is empty never came to that. */
bool sprichtVon(const QByteArray &text, const QString &pfad)
{
    const QByteArray anfang = "[Trash Info]\nPath=";
    const QByteArray wo = text.startsWith(anfang) ? text.mid(anfang.size()).split('\n').first() : QByteArray();
    return text.isEmpty() || nfc(QString::fromUtf8(QByteArray::fromPercentEncoding(wo))) == nfc(pfad);
}

/** Takes a name in the trash by writing its note, which must be new. False when the name is taken. */
bool vermerken(const QString &datei, const QByteArray &text)
{
    const QByteArray platte = plattenPfad(datei);
    const Dateigriff griff(::open(platte.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    if (!griff.offen() && errno == EEXIST)
        return false;
    if (!griff.offen())
        Platte::scheitern(gescheitert(), errno);
    if (::write(griff.nummer(), text.constData(), size_t(text.size())) == text.size() && ::fsync(griff.nummer()) == 0)
        return true;
    const int fehler = errno;
    ::unlink(platte.constData());
    Platte::scheitern(gescheitert(), fehler);
}

/** Moves the file to the name that its note @p info has taken; the note goes when that fails. */
QString nachVermerkBewegen(const Dateibewegung::Auftrag &auftrag, const QString &info,
                           const Dateibewegung::Ankuendigung &ankuendigung)
{
    try {
        return Dateibewegung::ausfuehren(auftrag, ankuendigung);
    } catch (const Fehler &) {
        ::unlink(plattenPfad(info).constData());
        throw;
    }
}
} // namespace

QString Papierkorb::hineinlegen(const QString &pfad, const Dateibewegung::Ankuendigung &ankuendigung)
{
    const QByteArray platte = aufDerPlatte(pfad);
    if (platte.isEmpty())
        Platte::scheitern(gescheitert(), ENOENT);
    const auto angaben = Dateibewegung::angabenVon(pfad);
    if (!angaben)
        Platte::scheitern(gescheitert(), ENOENT);
    const QString ort = korb() + u"/files"_s;
    for (int n = 1;; ++n) {
        // Shortened, since the note's name is longer by its ending.
        const QString name = Dateibewegung::nummeriert(nameVon(pfad), n, endung.size());
        const QString imKorb = ort + u'/' + name;
        const QString info = vermerkVon(imKorb);
        if (istVorhanden(imKorb) || istVorhanden(info))
            continue;
        ankuendigung({.nach = imKorb, .temporaer = {}, .groesse = angaben->groesse, .zeit = angaben->zeit});
        if (!vermerken(info, vermerk(platte)))
            continue; // taken at this moment
        return nachVermerkBewegen({.von = pfad, .ordner = ort, .name = name, .nameArt = Dateibewegung::Name::Genau},
                                  info, ankuendigung);
    }
}

void Papierkorb::zurueckholen(const QString &imKorb, const QString &pfad,
                              const Dateibewegung::Ankuendigung &ankuendigung)
{
    Dateibewegung::ausfuehren(
        {.von = imKorb, .ordner = ordnerVon(pfad), .name = nameVon(pfad), .nameArt = Dateibewegung::Name::Genau},
        ankuendigung);
    ::unlink(plattenPfad(vermerkVon(imKorb)).constData());
}

void Papierkorb::verwaistenVermerkEntfernen(const QString &imKorb, const QString &pfad)
{
    if (istVorhanden(imKorb) || !istOrdner(ordnerVon(imKorb)))
        return;
    const QByteArray platte = aufDerPlatte(vermerkVon(imKorb));
    QFile vermerk(QFile::decodeName(platte));
    if (platte.isEmpty() || !vermerk.open(QIODevice::ReadOnly) || !sprichtVon(vermerk.read(hoechsterVermerk), pfad))
        return;
    if (::unlink(platte.constData()) != 0 && errno != ENOENT)
        Platte::scheitern(gescheitert(), errno);
}

QSet<QString> Papierkorb::herkuenfte()
{
    const QString infos = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Trash/info"_s;
    QSet<QString> pfade;
    for (const QFileInfo &vermerk : QDir(infos).entryInfoList({u"*"_s + endung}, QDir::Files)) {
        QFile datei(vermerk.filePath());
        if (!datei.open(QIODevice::ReadOnly))
            continue;
        for (const QByteArray &zeile : datei.read(hoechsterVermerk).split('\n')) {
            if (zeile.startsWith("Path="))
                pfade.insert(nfc(QString::fromUtf8(QByteArray::fromPercentEncoding(zeile.mid(5)))));
        }
    }
    return pfade;
}
} // namespace quillmar::grundlage
