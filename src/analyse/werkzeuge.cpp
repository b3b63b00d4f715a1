#include "werkzeuge.h"

#include "abbruch.h"
#include "bilderordner.h"
#include "pfade.h"
#include "sprache.h"
#include "text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStringDecoder>
#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::analyse
{
using std::chrono::steady_clock;

namespace
{
constexpr qsizetype mindestZeichen = 120;
constexpr qint64 hoechstensAusgabe = 64LL * 1024 * 1024;
constexpr qsizetype hoechstensBeschwerde = 65536;
constexpr rlim_t hoechstensSpeicher = 4ULL * 1024 * 1024 * 1024;
constexpr auto scheibe = 50ms;

QProcessEnvironment umgebung()
{
    QProcessEnvironment u = QProcessEnvironment::systemEnvironment();
    // Only beside tools of the program's own: without them the folder would be looked for in the root of all.
    const QString eigene = Werkzeuge::eigenerBinOrdner();
    const QString daten = eigene + u"/tessdata"_s;
    if (!eigene.isEmpty() && QFileInfo(daten).isDir())
        u.insert(u"TESSDATA_PREFIX"_s, daten);
    u.insert(u"OMP_THREAD_LIMIT"_s, u"1"_s);
    u.insert(u"LC_ALL"_s, u"C"_s); // complaints are read, so they must be in one language
    return u;
}

/** Runs in the child before the tool: own group to be killed whole, death with the program, bounded memory. */
void kindVorbereiten(pid_t eltern)
{
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != eltern)
        ::_exit(127);
    const struct rlimit grenze = {hoechstensSpeicher, hoechstensSpeicher};
    ::setrlimit(RLIMIT_AS, &grenze);
    const struct rlimit keinAbbild = {0, 0};
    ::setrlimit(RLIMIT_CORE, &keinAbbild);
}

void beenden(QProcess &prozess)
{
    if (const qint64 nummer = prozess.processId(); nummer > 0)
        ::kill(-pid_t(nummer), SIGKILL);
    prozess.kill();
    prozess.waitForFinished(1000);
}

/** Waits in slices for the end of the process, and ends it at a limit. Returns the beginning of its complaints. */
QByteArray abwarten(QProcess &prozess, const QString &name, std::chrono::milliseconds zeitgrenze,
                    const std::stop_token &ende)
{
    const auto schluss = steady_clock::now() + zeitgrenze;
    QByteArray beschwerde;
    while (prozess.state() != QProcess::NotRunning) {
        prozess.waitForFinished(int(scheibe.count()));
        // A broken file can make a tool complain without end.
        beschwerde = (beschwerde + prozess.readAllStandardError()).left(hoechstensBeschwerde);
        const bool zuViel = prozess.bytesAvailable() > hoechstensAusgabe;
        const bool zuSpaet = prozess.state() != QProcess::NotRunning && steady_clock::now() >= schluss;
        if (!ende.stop_requested() && !zuViel && !zuSpaet)
            continue;
        beenden(prozess);
        if (ende.stop_requested())
            throw Abbruch();
        throw Fehler(gefuellt(zuViel ? Sprache::text(u"%@ hat zu viel ausgegeben"_s)
                                     : Sprache::text(u"%@ hat zu lange gebraucht"_s),
                              {name}));
    }
    return beschwerde;
}

QString texterkennung(const QString &pdf, int seiten, const QString &sprache, const std::stop_token &ende)
{
    const Bilderordner ordner;
    Werkzeuge::starten(
        u"pdftoppm"_s,
        {u"-r"_s, u"200"_s, u"-f"_s, u"1"_s, u"-l"_s, QString::number(seiten), u"-png"_s, pdf, ordner.praefix()}, 900s,
        ende);
    QStringList texte;
    for (const QString &bild : ordner.bilder())
        texte << Werkzeuge::alsText(
            Werkzeuge::starten(u"tesseract"_s, {bild, u"stdout"_s, u"-l"_s, sprache}, 900s, ende));
    return texte.join(u'\n').trimmed();
}

/** What is wrong with a file that the tools refuse, in the user's words. */
QString ursache(const QByteArray &beschwerde, const QString &sonst)
{
    if (beschwerde.contains("Incorrect password") || beschwerde.contains("encrypt"))
        return Sprache::text(u"verschlüsselt"_s);
    if (beschwerde.contains("Failed loading language"))
        return Sprache::text(u"Sprachdaten der Texterkennung fehlen"_s);
    if (beschwerde.contains("stream is empty"))
        return Sprache::text(u"die Datei ist leer"_s);
    const QList<QByteArray> schaeden = {"xref", "trailer", "Syntax", "not a PDF", "damaged", "catalog", "page tree"};
    for (const QByteArray &schaden : schaeden) {
        if (beschwerde.contains(schaden))
            return Sprache::text(u"die Datei ist beschädigt"_s);
    }
    return sonst;
}
} // namespace

const QStringList &Werkzeuge::suchorte()
{
    static const QStringList orte = {u"/opt/homebrew/bin"_s, u"/usr/local/bin"_s, u"/usr/bin"_s, u"/bin"_s};
    return orte;
}

QString Werkzeuge::eigenerBinOrdner()
{
    if (!QCoreApplication::instance())
        return {};
    const QDir ort(QCoreApplication::applicationDirPath());
    // The windowed program lies in the library folder itself.
    for (const QString &relativ : {u"../lib/quillmar/bin"_s, u"../quillmar/bin"_s}) {
        if (ort.exists(relativ))
            return QDir::cleanPath(ort.filePath(relativ));
    }
    return {};
}

std::optional<QString> Werkzeuge::pfadIn(const QStringList &orte, const QString &name)
{
    for (const QString &ort : orte) {
        const QFileInfo datei(ort + u'/' + name);
        if (!ort.isEmpty() && datei.isFile() && datei.isExecutable())
            return datei.filePath();
    }
    return std::nullopt;
}

std::optional<QString> Werkzeuge::pfad(const QString &name)
{
    return pfadIn(QStringList(eigenerBinOrdner()) + suchorte(), name);
}

QStringList Werkzeuge::fehlende()
{
    QStringList namen;
    for (const QString &name : {u"pdftotext"_s, u"pdftoppm"_s, u"tesseract"_s}) {
        if (!pfad(name))
            namen << name;
    }
    return namen;
}

QString Werkzeuge::alsText(const QByteArray &ausgabe)
{
    // Stateless: a character that is cut off at the end is an error, too.
    QStringDecoder leser(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = leser(ausgabe);
    return leser.hasError() ? QString() : text;
}

bool Werkzeuge::vollstaendig() { return fehlende().isEmpty(); }

QByteArray Werkzeuge::starten(const QString &name, const QStringList &argumente, std::chrono::milliseconds zeitgrenze,
                              const std::stop_token &ende)
{
    const auto programm = pfad(name);
    if (!programm)
        throw Fehler(gefuellt(Sprache::text(u"Hilfsprogramm %@ nicht gefunden"_s), {name}));
    return programmStarten(*programm, name, argumente, zeitgrenze, ende);
}

QByteArray Werkzeuge::programmStarten(const QString &pfad, const QString &name, const QStringList &argumente,
                                      std::chrono::milliseconds zeitgrenze, const std::stop_token &ende)
{
    QProcess prozess;
    prozess.setProcessEnvironment(umgebung());
    prozess.setStandardInputFile(QProcess::nullDevice());
    prozess.setChildProcessModifier([eltern = ::getpid()] { kindVorbereiten(eltern); });
    prozess.start(pfad, argumente);
    if (!prozess.waitForStarted(int(zeitgrenze.count())))
        throw Fehler(gefuellt(Sprache::text(u"Hilfsprogramm %@ lässt sich nicht starten"_s), {name}));
    const QByteArray beschwerde = abwarten(prozess, name, zeitgrenze, ende);
    if (prozess.exitStatus() != QProcess::NormalExit || prozess.exitCode() != 0)
        throw Fehlschlag(gefuellt(Sprache::text(u"%@ ist gescheitert"_s), {name}), beschwerde);
    return prozess.readAllStandardOutput();
}

Werkzeuge::Text Werkzeuge::text(const QString &pdf, int seiten, const QString &sprache, const std::stop_token &ende)
{
    const QByteArray platte = aufDerPlatte(pdf);
    if (platte.isEmpty())
        throw Fehler(Sprache::text(u"Datei nicht gefunden"_s));
    const QString ort = QString::fromUtf8(platte);
    if (!QFileInfo(ort).isFile())
        throw Fehler(Sprache::text(u"keine Datei"_s));
    if (!QFileInfo(ort).isReadable())
        throw Fehler(Sprache::text(u"keine Leseberechtigung"_s));
    try {
        const QByteArray ausgabe =
            starten(u"pdftotext"_s, {u"-l"_s, QString::number(seiten), u"-enc"_s, u"UTF-8"_s, ort, u"-"_s}, 180s, ende);
        const QString ebene = QString::fromUtf8(ausgabe).trimmed();
        if (sichtbareZeichen(ebene) >= mindestZeichen)
            return {.text = ebene, .textebene = true};
        return {.text = texterkennung(ort, seiten, sprache, ende), .textebene = false};
    } catch (const Fehlschlag &f) {
        throw Fehler(ursache(f.beschwerde(), f.text()));
    }
}
} // namespace quillmar::analyse
