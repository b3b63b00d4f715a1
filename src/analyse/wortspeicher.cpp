#include "wortspeicher.h"

#include "ganzedatei.h"
#include "platte.h"

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <cmath>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
const QString endung = u".worte"_s;
constexpr double teile = 100'000; // of a page's width or height, in which places are kept
constexpr qsizetype jeWort = 5;   // text, left, top, width, height

QCborArray verpackt(const Seitenworte &worte)
{
    QCborArray liste;
    for (const Seitenwort &wort : worte) {
        liste << wort.text;
        for (const double anteil : {wort.ort.x(), wort.ort.y(), wort.ort.width(), wort.ort.height()})
            liste << qint64(std::llround(anteil * teile));
    }
    return liste;
}

Seitenworte ausgepackt(const QCborArray &liste)
{
    Seitenworte worte;
    for (qsizetype i = 0; i + jeWort <= liste.size(); i += jeWort) {
        const auto anteil = [&](qsizetype n) { return double(liste.at(i + n).toInteger()) / teile; };
        worte << Seitenwort{.text = liste.at(i).toString(), .ort = {anteil(1), anteil(2), anteil(3), anteil(4)}};
    }
    return worte;
}
} // namespace

QString Wortspeicher::ueblicherOrdner()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/Quillmar"_s;
}

QString Wortspeicher::pfad(const QString &digest) const { return m_ordner + u'/' + digest + endung; }

std::optional<QList<Seitenworte>> Wortspeicher::lesen(const QString &digest, const QString &art) const
{
    QFile datei(pfad(digest));
    if (digest.isEmpty() || !datei.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QCborMap inhalt = QCborValue::fromCbor(datei.readAll()).toMap();
    if (inhalt.value(u"art"_s).toString() != art || !inhalt.value(u"seiten"_s).isArray())
        return std::nullopt;
    QList<Seitenworte> seiten;
    for (const QCborValue &seite : inhalt.value(u"seiten"_s).toArray())
        seiten << ausgepackt(seite.toArray());
    // The time of its last use; where it cannot be set, it goes sooner.
    datei.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
    return seiten;
}

void Wortspeicher::ablegen(const QString &digest, const QString &art, const QList<Seitenworte> &seiten) const
{
    if (digest.isEmpty() || !QDir().mkpath(QFileInfo(m_ordner).path()))
        return;
    ::mkdir(QFile::encodeName(m_ordner).constData(), S_IRWXU);
    Platte::anderenVerschliessen(QFile::encodeName(m_ordner)); // somebody may have made it before
    QCborArray liste;
    for (const Seitenworte &seite : seiten)
        liste << verpackt(seite);
    const QCborMap inhalt{{u"art"_s, art}, {u"seiten"_s, liste}};
    const QByteArray bytes = inhalt.toCborValue().toCbor();
    if (bytes.size() <= m_groesse && ganzSchreiben(pfad(digest), bytes))
        ausduennen();
}

void Wortspeicher::ausduennen() const
{
    qint64 belegt = 0;
    for (const QFileInfo &datei :
         QDir(m_ordner).entryInfoList({u'*' + endung + u'*'}, QDir::Files, QDir::Time)) { // with what was not finished
        belegt += datei.size();                                                           // those used last come first
        if (belegt > m_groesse)
            QFile::remove(datei.filePath());
    }
}
} // namespace quillmar::analyse
