#include "ausfuehrung.h"
#include "bilderordner.h"
#include "einstellungen.h"
#include "katalogpflege.h"
#include "kleinespdf.h"
#include "meldestelle.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "sicherungen.h"
#include "werkzeuge.h"
#include "zustandsprobe.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quillmar::zustand;

namespace
{
/** Takes all room of the disk that @p ordner lies on, down to the last byte. */
class Fuellung
{
public:
    explicit Fuellung(const QString &ordner) : m_datei(ordner + u"/fuellung"_s)
    {
        if (!m_datei.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            qFatal("fuellung");
        for (qint64 stueck = 65536; stueck > 0; stueck /= 2) {
            while (m_datei.write(QByteArray(stueck, 'x')) == stueck) {}
        }
    }
    ~Fuellung() { m_datei.remove(); }
    Q_DISABLE_COPY_MOVE(Fuellung)

private:
    QFile m_datei;
};

/** The settings as they stand in their file by now. */
QByteArray einstellungen()
{
    QFile datei(qEnvironmentVariable("XDG_CONFIG_HOME") + u"/Quillmar/Quillmar.conf"_s);
    return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
}
} // namespace

/** Runs in a name space of its own, with the user's folders on a disk of eight megabytes. */
class TestVollePlatte : public Zustandsprobe
{
    Q_OBJECT

private:
    [[nodiscard]] QString gesagt() const { return m_z->meldestelle()->meldungen().join(u'\n'); }
    void uebernehmen()
    {
        m_z->ausfuehrung()->uebernehmen();
        QTRY_VERIFY(!m_z->ausfuehrung()->beschaeftigt());
    }

private Q_SLOTS:
    void nichtsGehtVerlorenUndEsGehtWeiter()
    {
        const QString daten = qEnvironmentVariable("XDG_DATA_HOME");
        m_b->dokument(u"a.pdf"_s);
        m_b->schliessen();
        beginnen();
        QTRY_COMPARE(m_z->katalogpflege()->stand().sicherungen.size(), 1);
        Einstellungen::setzen(u"beimStartPruefen"_s, true);
        const QByteArray liste = [] {
            QFile datei(Profilspeicher::datei());
            return datei.open(QIODevice::ReadOnly) ? datei.readAll() : QByteArray();
        }();
        {
            const Fuellung fuellung(daten);
            m_z->profilwahl()->aendern([](Profil &p) { p.eigentuemer = u"Anna"_s; });
            QTRY_VERIFY2(gesagt().contains(u"nicht speichern"_s), qPrintable(gesagt()));
            QFile datei(Profilspeicher::datei());
            QVERIFY(datei.open(QIODevice::ReadOnly));
            QCOMPARE(datei.readAll(), liste);
            m_z->meldestelle()->melden({});

            Einstellungen::setzen(u"vorschauZoom"_s, u"seite"_s);
            QTRY_VERIFY2(gesagt().contains(u"nicht speichern"_s), qPrintable(gesagt()));
            m_z->meldestelle()->melden({});
            Einstellungen::setzen(u"teilung"_s, 0.4);
            QTest::qWait(0);
            QCOMPARE(gesagt(), QString()); // said once
            QCOMPARE(Einstellungen::wert(u"vorschauZoom"_s).toString(), u"seite"_s);
            QVERIFY2(einstellungen().contains("beimStartPruefen=true"), einstellungen().constData());

            uebernehmen();
            QVERIFY2(gesagt().contains(u"vormerken"_s) || gesagt().contains(u"Platte voll"_s), qPrintable(gesagt()));
            QVERIFY(QFile::exists(m_b->quelle(u"a.pdf"_s)));
            // A document without a text layer, whose pages do not fit: it is no fault of the document.
            QFile bild(m_b->quelle(u"bild.pdf"_s));
            QVERIFY(bild.open(QIODevice::WriteOnly) && bild.write(Kleinespdf::gezeichnet("9 9 99 99 re f")) > 0);
            bild.close();
            const QByteArray ablage = qgetenv("TMPDIR");
            qputenv("TMPDIR", daten.toUtf8());
            QVERIFY_EXCEPTION_THROWN(Werkzeuge::text(bild.fileName(), 1, u"deu"_s), Platzmangel);
            qputenv("TMPDIR", ablage);
            QVERIFY_EXCEPTION_THROWN(Sicherungen::anlegen(Profilspeicher::katalogDatei(m_b->profil)), Fehler);
        }
        m_z->profilwahl()->aendern([](Profil &p) { p.eigeneNamen = {u"Muster"_s}; });
        QTRY_COMPARE(Profilspeicher::laden().value(0).eigeneNamen, QStringList{u"Muster"_s});
        QCOMPARE(Profilspeicher::laden().value(0).eigentuemer, u"Anna"_s);
        Einstellungen::setzen(u"sprache"_s, u"de"_s);
        for (const char *zeile : {"beimStartPruefen=true", "vorschauZoom=seite", "teilung=0.4", "sprache=de"})
            QVERIFY2(einstellungen().contains(zeile), einstellungen().constData());
        uebernehmen();
        QVERIFY2(!QFile::exists(m_b->quelle(u"a.pdf"_s)), qPrintable(gesagt()));
        QVERIFY(Sicherungen::anlegen(Profilspeicher::katalogDatei(m_b->profil)));
    }
};

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    if (qEnvironmentVariableIsSet("QUILLMAR_KLEINE_PLATTE")) {
        TestVollePlatte test;
        return QTest::qExec(&test, argc, argv);
    }
    const QTemporaryDir platte;
    QProcess kind;
    kind.setProcessChannelMode(QProcess::ForwardedChannels);
    const QString skript = u"mount -t tmpfs -o size=8m tmpfs \"$1\" || exit 77\n"
                           "export XDG_DATA_HOME=\"$1/daten\" XDG_CONFIG_HOME=\"$1/config\" QUILLMAR_KLEINE_PLATTE=1\n"
                           "mkdir \"$XDG_DATA_HOME\" \"$XDG_CONFIG_HOME\"; exec \"$2\""_s;
    kind.start(u"unshare"_s,
               {u"-Urm"_s, u"sh"_s, u"-c"_s, skript, u"sh"_s, platte.path(), QCoreApplication::applicationFilePath()});
    kind.waitForFinished(-1);
    if (kind.error() == QProcess::FailedToStart || kind.exitCode() == 77) {
        std::puts("SKIP: no small disk of one's own here: unshare -Urm or mount is not allowed");
        return 0;
    }
    return kind.exitStatus() == QProcess::NormalExit ? kind.exitCode() : 1;
}
#include "test_volleplatte.moc"
