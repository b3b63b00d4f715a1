#include "dateiverwaltung.h"

#include "pfade.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace quillmar::desktop
{
void Dateiverwaltung::ordnerOeffnen(const QString &ordner) { QDesktopServices::openUrl(QUrl::fromLocalFile(ordner)); }

void Dateiverwaltung::zeigen(const QString &datei)
{
    constexpr int geduld = 5000; // ms, also for a file manager that has to start first
    const QString name = u"org.freedesktop.FileManager1"_s;
    QDBusMessage ruf = QDBusMessage::createMethodCall(name, u"/org/freedesktop/FileManager1"_s, name, u"ShowItems"_s);
    ruf << QStringList{QUrl::fromLocalFile(datei).toString(QUrl::FullyEncoded)} << QString();
    auto *antwort =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(ruf, geduld), QCoreApplication::instance());
    const auto fertig = [antwort, ordner = ordnerVon(datei)] {
        antwort->deleteLater();
        if (QDBusPendingReply<>(*antwort).isError())
            ordnerOeffnen(ordner);
    };
    if (antwort->isFinished())
        return fertig(); // without a session bus no signal comes
    QObject::connect(antwort, &QDBusPendingCallWatcher::finished, antwort, fertig);
}
} // namespace quillmar::desktop
