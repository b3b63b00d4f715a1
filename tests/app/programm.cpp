#include "programm.h"

#include "datenbank.h"
#include "profilformat.h"

#include <QDir>
#include <QEventLoop>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace quillmar::app;

namespace
{
struct AlsText {
    QString operator()(std::monostate) const { return u"-"_s; }
    QString operator()(const QString &text) const { return u'"' + text + u'"'; }
    QString operator()(qint64 zahl) const { return QString::number(zahl); }
    QString operator()(double zahl) const { return QString::number(zahl, 'g', 15); }
};
} // namespace

Programm::Programm(const QString &daten, quint16 port) : m_daten(daten)
{
    QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
    umgebung.insert(u"XDG_DATA_HOME"_s, daten);
    umgebung.insert(u"OLLAMA_HOST"_s, u"127.0.0.1:%1"_s.arg(port));
    m_prozess.setProcessEnvironment(umgebung);
}

void Programm::starten(const QStringList &argumente)
{
    m_prozess.start(QStringLiteral(QUILLMAR_PROGRAMM), argumente);
    m_prozess.waitForStarted();
}

Programm::Ende Programm::laufen(const QStringList &argumente, int hoechstens)
{
    QEventLoop schleife;
    QObject::connect(&m_prozess, &QProcess::finished, &schleife, &QEventLoop::quit);
    starten(argumente);
    if (hoechstens > 0)
        QTimer::singleShot(hoechstens, &m_prozess, &QProcess::kill);
    if (m_prozess.state() != QProcess::NotRunning)
        schleife.exec();
    return {.status = m_prozess.exitStatus() == QProcess::NormalExit ? m_prozess.exitCode() : -1,
            .ausgabe = QString::fromUtf8(m_prozess.readAllStandardOutput()),
            .meldungen = QString::fromUtf8(m_prozess.readAllStandardError())};
}

void Programm::profileSchreiben(const QList<Profil> &profile) const
{
    QDir().mkpath(ordner());
    QFile datei(ordner() + u"/profile.json"_s);
    if (datei.open(QIODevice::WriteOnly))
        datei.write(Profilformat::schreiben(profile));
}

QString Programm::katalog(const Profil &profil) const
{
    return ordner() + u'/' + profil.id.toString(QUuid::WithoutBraces).toUpper() + u".db"_s;
}

QStringList auszug(const QString &katalog, const QStringList &ohne)
{
    QStringList zeilen;
    Datenbank db(katalog);
    for (const QString &tabelle : {u"dokumente"_s, u"texte"_s, u"protokoll"_s, u"namen"_s, u"gelernt"_s}) {
        QStringList spalten;
        for (const Zeile &zeile : db.abfragen(u"SELECT name FROM pragma_table_info('%1')"_s.arg(tabelle)))
            spalten << zeile.text(u"name");
        for (const Zeile &zeile : db.abfragen(u"SELECT * FROM %1 ORDER BY 1"_s.arg(tabelle))) {
            QStringList werte = {tabelle};
            for (const QString &spalte : spalten) {
                if (!ohne.contains(spalte))
                    werte << spalte + u'=' + std::visit(AlsText(), zeile.wert(spalte));
            }
            zeilen << werte.join(u' ');
        }
    }
    return zeilen;
}
