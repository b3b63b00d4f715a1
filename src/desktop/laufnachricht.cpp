#include "laufnachricht.h"

#include "durchgang.h"
#include "sprache.h"
#include "text.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

namespace quillmar::desktop
{
namespace
{
constexpr auto dienst = "org.freedesktop.Notifications"_L1;
constexpr auto ort = "/org/freedesktop/Notifications"_L1;
constexpr auto taetigkeit = "default"_L1; // what a click on the message itself is called
constexpr int nachDemDienst = -1;         // how long it is shown

QDBusMessage ruf(const QString &name) { return QDBusMessage::createMethodCall(dienst, ort, dienst, name); }

/** Some services read the text as markup, others show it as it is: it holds nothing that they would read unlike. */
QString ohneAuszeichnung(QString text) { return text.replace(u'&', u'+').replace(u'<', u'‹').replace(u'>', u'›'); }

QString zahlensatz(const Laufende &ende)
{
    QStringList teile;
    if (ende.bereit > 0)
        teile << gefuellt(Sprache::text(u"Vorschläge zu prüfen: %@"_s), {QString::number(ende.bereit)});
    if (ende.gescheitert > 0)
        teile << gefuellt(Sprache::text(u"Ohne Vorschlag: %@"_s), {QString::number(ende.gescheitert)});
    return teile.isEmpty() ? Sprache::text(u"Nichts zu prüfen"_s) : teile.join(u" · "_s);
}
} // namespace

Laufnachricht::Laufnachricht(Durchgang *durchgang, QObject *vater, std::chrono::milliseconds ab)
    : QObject(vater), m_durchgang(durchgang), m_ab(ab)
{
    connect(m_durchgang, &Durchgang::laufBeendet, this, &Laufnachricht::melden);
    connect(qApp, &QGuiApplication::applicationStateChanged, this, &Laufnachricht::zuruecknehmen);
    // Without the name of the service: to look after its owner the bus would have to be asked, and waited for.
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.connect({}, ort, dienst, u"ActivationToken"_s, this, SLOT(marke(uint, QString)));
    bus.connect({}, ort, dienst, u"ActionInvoked"_s, this, SLOT(aktion(uint, QString)));
}

void Laufnachricht::melden()
{
    const Laufende &ende = m_durchgang->laufende();
    if (ende.dauer < m_ab || QGuiApplication::applicationState() == Qt::ApplicationActive)
        return;
    Q_EMIT gemeldet();
    senden(ende.abgeschlossen ? Sprache::text(u"Der Durchgang ist fertig"_s)
                              : Sprache::text(u"Der Durchgang wurde angehalten"_s),
           zahlensatz(ende));
}

void Laufnachricht::senden(const QString &titel, const QString &text)
{
    QDBusMessage nachricht = ruf(u"Notify"_s);
    nachricht << u"Quillmar"_s << m_nummer << u"quillmar"_s << titel << ohneAuszeichnung(text)
              << QStringList{taetigkeit, Sprache::text(u"Fenster zeigen"_s)}
              << QVariantMap{{u"desktop-entry"_s, u"quillmar"_s}, {u"category"_s, u"transfer.complete"_s}}
              << nachDemDienst;
    auto *antwort = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(nachricht), this);
    const auto fertig = [this, antwort] {
        antwort->deleteLater();
        const QDBusPendingReply<uint> nummer = *antwort;
        m_nummer = nummer.isError() ? 0 : nummer.value();
    };
    if (antwort->isFinished())
        return fertig(); // without a session bus no signal comes
    connect(antwort, &QDBusPendingCallWatcher::finished, this, fertig);
}

/** Who has come back by himself needs no message any more. */
void Laufnachricht::zuruecknehmen()
{
    if (m_nummer == 0 || QGuiApplication::applicationState() != Qt::ApplicationActive)
        return;
    QDBusMessage nachricht = ruf(u"CloseNotification"_s);
    nachricht << std::exchange(m_nummer, 0);
    QDBusConnection::sessionBus().send(nachricht);
}

/** What lets the window manager bring the window to the front. */
void Laufnachricht::marke(uint nummer, const QString &marke)
{
    if (nummer == m_nummer && nummer != 0)
        qputenv("XDG_ACTIVATION_TOKEN", marke.toUtf8());
}

void Laufnachricht::aktion(uint nummer, const QString &name)
{
    if (nummer == m_nummer && nummer != 0 && name == taetigkeit)
        Q_EMIT angeklickt();
}
} // namespace quillmar::desktop
