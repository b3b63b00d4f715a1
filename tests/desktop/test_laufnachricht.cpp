#include "buehne.h"
#include "durchgang.h"
#include "laufnachricht.h"
#include "meldestelle.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "sprache.h"
#include "zustand.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMessage>
#include <QGuiApplication>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace quillmar::desktop;

/** Stands for the desktop's notifications. */
class Dienst : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    QList<QVariantList> gezeigt;
    QList<uint> geschlossen;
    bool stumm = false; ///< never answers

public Q_SLOTS:
    uint Notify(const QString &, uint ersetzt, const QString &, const QString &titel, const QString &text,
                const QStringList &aktionen, const QVariantMap &, int)
    {
        gezeigt << QVariantList{titel, text, aktionen.value(0), ersetzt};
        setDelayedReply(stumm);
        return ersetzt ? ersetzt : uint(40 + gezeigt.size());
    }
    void CloseNotification(uint nummer) { geschlossen << nummer; }

Q_SIGNALS:
    void ActionInvoked(uint nummer, const QString &aktion);
};

/** The message at the end of a run, with a session bus of the test's own. */
class TestLaufnachricht : public QObject
{
    Q_OBJECT

private:
    QProcess m_bus;
    Dienst m_dienst;
    std::unique_ptr<Buehne> m_b;
    std::unique_ptr<Zustand> m_z;
    std::unique_ptr<QWindow> m_fenster;

    static QDBusConnection drueben() { return QDBusConnection(u"drueben"_s); }
    void durchgang()
    {
        QSignalSpy ende(m_z->durchgang(), &Durchgang::laufBeendet);
        m_z->durchgang()->durchgangStarten(Durchgang::Art::NurLesen);
        QTRY_COMPARE(ende.size(), 1);
    }

    /** All that was sent so far: the bus keeps the order, so it is here once something behind it is. */
    void angekommen()
    {
        constexpr uint letzte = 99;
        QDBusMessage danach =
            QDBusMessage::createMethodCall(u"org.freedesktop.Notifications"_s, u"/org/freedesktop/Notifications"_s,
                                           u"org.freedesktop.Notifications"_s, u"CloseNotification"_s);
        danach << letzte;
        QVERIFY(QDBusConnection::sessionBus().send(danach));
        QTRY_VERIFY(m_dienst.geschlossen.contains(letzte));
    }

private Q_SLOTS:
    void initTestCase()
    {
        m_bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
        QVERIFY(m_bus.waitForStarted() && m_bus.waitForReadyRead());
        const QString adresse = QString::fromUtf8(m_bus.readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", adresse.toUtf8());
        QVERIFY(QDBusConnection::connectToBus(adresse, u"drueben"_s).isConnected());
        QVERIFY(drueben().registerObject(u"/org/freedesktop/Notifications"_s, &m_dienst,
                                         QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
    }
    void init()
    {
        QFile::remove(Profilspeicher::datei());
        qputenv("OLLAMA_HOST", "127.0.0.1:9"); // nothing listens there
        Sprache::setzeGewaehlteKennung(u"de"_s);
        QVERIFY(drueben().registerService(u"org.freedesktop.Notifications"_s));
        m_dienst.gezeigt.clear();
        m_dienst.geschlossen.clear();
        m_dienst.stumm = false;
        m_b = std::make_unique<Buehne>();
        m_b->dokument(u"a & b.pdf"_s);
        m_b->dokument(u"c.pdf"_s);
        m_b->profilSichern();
        m_z = std::make_unique<Zustand>();
        m_fenster = std::make_unique<QWindow>();
        m_z->profilwahl()->beginnen();
        QTRY_VERIFY(m_z->profilwahl()->offen() && m_z->profilwahl()->bereitschaft());
        QVERIFY(QGuiApplication::applicationState() != Qt::ApplicationActive);
    }
    void cleanup()
    {
        m_fenster.reset();
        m_z.reset();
        m_b.reset();
    }
    void cleanupTestCase()
    {
        QDBusConnection::disconnectFromBus(u"drueben"_s);
        m_bus.terminate();
        m_bus.waitForFinished();
    }

    void kurzeDurchgaengeSindKeineNachrichtWert()
    {
        const Laufnachricht nachricht(m_z->durchgang(), m_fenster.get());
        durchgang();
        QVERIFY(m_z->durchgang()->laufende().dauer > 0ms &&
                m_z->durchgang()->laufende().dauer < Laufnachricht::ueblich);
        angekommen();
        QVERIFY(m_dienst.gezeigt.isEmpty());
    }

    /** A service that says nothing, and none at all: nobody waits for it. */
    void niemandWartet()
    {
        const Laufnachricht nachricht(m_z->durchgang(), m_fenster.get(), 0ms);
        m_dienst.stumm = true;
        durchgang();
        QTRY_COMPARE(m_dienst.gezeigt.size(), 1);
        QVERIFY(drueben().unregisterService(u"org.freedesktop.Notifications"_s));
        durchgang();
        QVERIFY(m_z->meldestelle()->hinweis().isEmpty());
        QCOMPARE(m_dienst.gezeigt.size(), 1);
    }

    /** The last one: without a desktop, a window that was shown once stays in front. */
    void einKlickHoltDasFenster()
    {
        const Laufnachricht nachricht(m_z->durchgang(), m_fenster.get(), 0ms);
        QSignalSpy klicks(&nachricht, &Laufnachricht::angeklickt);
        durchgang();
        QTRY_COMPARE(m_dienst.gezeigt.size(), 1);
        // Neither of the two holds a page, so both wait without a proposal.
        QCOMPARE(m_dienst.gezeigt.first(),
                 (QVariantList{u"Der Durchgang ist fertig"_s, u"Vorschläge zu prüfen: 2 · Ohne Vorschlag: 2"_s,
                               u"default"_s, 0U}));
        // Its number is known when the next message replaces it.
        durchgang();
        QTRY_COMPARE(m_dienst.gezeigt.size(), 2);
        QCOMPARE(m_dienst.gezeigt.last().last().toUInt(), 41U);
        Q_EMIT m_dienst.ActionInvoked(7, u"default"_s); // somebody else's
        Q_EMIT m_dienst.ActionInvoked(41, u"default"_s);
        QTRY_COMPARE(klicks.size(), 1);
        // Who comes back finds it gone.
        m_fenster->show();
        QTRY_COMPARE(m_dienst.geschlossen, QList{41U});
        durchgang();
        angekommen();
        QCOMPARE(m_dienst.gezeigt.size(), 2);
    }
};

QTEST_MAIN(TestLaufnachricht)
#include "test_laufnachricht.moc"
