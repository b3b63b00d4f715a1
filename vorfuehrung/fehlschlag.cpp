#include "fehlschlag.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

Fehlschlag::Fehlschlag(const QString &satz) : std::runtime_error(satz.toStdString()) {}

void ordnerAnlegen(const QString &pfad)
{
    if (!QDir().mkpath(pfad))
        throw Fehlschlag(u"Ordner lässt sich nicht anlegen: "_s + pfad);
}

void dateiSchreiben(const QString &pfad, const QByteArray &inhalt)
{
    ordnerAnlegen(QFileInfo(pfad).path());
    QSaveFile datei(pfad);
    if (!datei.open(QIODevice::WriteOnly) || datei.write(inhalt) != inhalt.size() || !datei.commit())
        throw Fehlschlag(u"Datei lässt sich nicht schreiben: "_s + pfad);
}

} // namespace vorfuehrung
