#include "einzelfenster.h"

#include <QDBusConnection>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace quillmar::desktop
{
namespace
{
constexpr auto dienst = "example.quillmar.Quillmar"_L1;
constexpr auto ort = "/example/quillmar/Quillmar"_L1;
constexpr auto schnittstelle = "org.freedesktop.Application"_L1;
constexpr int geduld = 2000; // ms for a window that is busy

/** What lets the window manager bring the other window to the front: this start's right to do so. */
QVariantMap startangaben(const QString &profil)
{
    QVariantMap angaben;
    const QString marke = qEnvironmentVariable("XDG_ACTIVATION_TOKEN");
    if (!marke.isEmpty())
        angaben.insert(u"activation-token"_s, marke);
    if (!profil.isEmpty())
        angaben.insert(u"profil"_s, profil);
    return angaben;
}
} // namespace

Einzelfenster::Einzelfenster(QObject *vater) : QObject(vater) {}

bool Einzelfenster::anmelden(const QString &profil)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return true;
    bus.registerObject(ort, this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(dienst))
        return true;
    QDBusMessage ruf = QDBusMessage::createMethodCall(dienst, ort, schnittstelle, u"Activate"_s);
    ruf << startangaben(profil);
    // A window that does not answer must not keep the user from his documents.
    return bus.call(ruf, QDBus::Block, geduld).type() != QDBusMessage::ReplyMessage;
}

void Einzelfenster::Activate(const QVariantMap &angaben)
{
    const QString marke = angaben.value(u"activation-token"_s).toString();
    if (!marke.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", marke.toUtf8());
    Q_EMIT geweckt(angaben.value(u"profil"_s).toString());
}

void Einzelfenster::Open(const QStringList &, const QVariantMap &angaben) { Activate(angaben); }

void Einzelfenster::ActivateAction(const QString &, const QVariantList &, const QVariantMap &angaben)
{
    Activate(angaben);
}
} // namespace quillmar::desktop
