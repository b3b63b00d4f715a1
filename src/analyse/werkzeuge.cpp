#include "werkzeuge.h"

#include "bilderordner.h"
#include "kindprozess.h"
#include "pfade.h"
#include "sprache.h"
#include "sprachprobe.h"
#include "text.h"
#include "texterkennung.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringDecoder>
#include <functional>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
constexpr qsizetype mindestZeichen = 120;

Werkzeuge::Text ausBildern(const Texterkennung::Ergebnis &e)
{
    return {.text = e.text, .textebene = false, .ebeneVerworfen = false, .lagen = e.lagen};
}

/** What the images say of a text layer that does not look like language; the layer itself where they say no better. */
Werkzeuge::Text ebeneOderBild(const QString &ebene, const Sprachprobe &probe, const QString &sprache,
                              const std::function<Texterkennung::Ergebnis()> &erkennen)
{
    const Werkzeuge::Text ausEbene{.text = ebene, .textebene = true, .ebeneVerworfen = false, .lagen = {}};
    try {
        Werkzeuge::Text ausBild = ausBildern(erkennen());
        const Sprachprobe erkannt(ausBild.text, sprache);
        ausBild.ebeneVerworfen = !erkannt.istLeer() && erkannt.istSprache() && erkannt.guete() > probe.guete();
        return ausBild.ebeneVerworfen ? ausBild : ausEbene;
    } catch (const Platzmangel &) {
        throw;
    } catch (const Fehler &) {
        return ausEbene;
    }
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
    if (beschwerde.contains("Image too large"))
        return Sprache::text(u"eine Seite ist zu groß für die Texterkennung"_s);
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

std::optional<QString> Werkzeuge::eigenesProgramm(const QString &name)
{
    if (!QCoreApplication::instance())
        return std::nullopt;
    // The console's program lies where all programs do, those that nobody calls beside the windowed one.
    const QString hier = QCoreApplication::applicationDirPath();
    return pfadIn({hier, hier + u"/../lib/quillmar"_s}, name);
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

QProcessEnvironment Werkzeuge::umgebung()
{
    QProcessEnvironment u = QProcessEnvironment::systemEnvironment();
    // Only beside tools of the program's own: without them the folder would be looked for in the root of all.
    const QString eigene = eigenerBinOrdner();
    const QString daten = eigene + u"/tessdata"_s;
    if (!eigene.isEmpty() && QFileInfo(daten).isDir())
        u.insert(u"TESSDATA_PREFIX"_s, daten);
    u.insert(u"OMP_THREAD_LIMIT"_s, u"1"_s);
    u.insert(u"LC_ALL"_s, u"C"_s); // complaints are read, so they must be in one language
    return u;
}

QByteArray Werkzeuge::starten(const QString &name, const QStringList &argumente, const Grenzen &grenzen,
                              const std::stop_token &ende)
{
    const auto programm = pfad(name);
    if (!programm)
        throw Fehler(gefuellt(Sprache::text(u"Hilfsprogramm %@ nicht gefunden"_s), {name}));
    return Kindprozess::ausfuehren({.pfad = *programm, .name = name, .argumente = argumente, .umgebung = umgebung()},
                                   grenzen, ende);
}

Werkzeuge::Text Werkzeuge::text(const QString &pdf, int seiten, const QString &sprache, const std::stop_token &ende,
                                const Lesegrenzen &grenzen)
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
            starten(u"pdftotext"_s, {u"-l"_s, QString::number(seiten), u"-enc"_s, u"UTF-8"_s, ort, u"-"_s},
                    grenzen.fuerText(), ende);
        const QString ebene = QString::fromUtf8(ausgabe).trimmed();
        const auto erkennen = [&] { return Texterkennung::erkennen(ort, seiten, sprache, grenzen, ende); };
        if (sichtbareZeichen(ebene) < mindestZeichen)
            return ausBildern(erkennen());
        if (const Sprachprobe probe(ebene, sprache); !probe.istSprache())
            return ebeneOderBild(ebene, probe, sprache, erkennen);
        return {.text = ebene, .textebene = true, .ebeneVerworfen = false, .lagen = {}};
    } catch (const Fehlschlag &f) {
        throw Fehler(ursache(f.beschwerde(), f.text()));
    }
}
} // namespace quillmar::analyse
