#include "fenstersprache.h"

#include "sprache.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto schreibdauer = 200ms; // of an editor, which may put the file together in steps

/** German is what a code that names no language falls back to, as the texts do. */
QLocale gebietVon(const QString &kennung)
{
    const QLocale system = QLocale::system();
    const QLocale eigenes(kennung);
    const QLocale gebiet = eigenes.language() == QLocale::C ? QLocale(QLocale::German) : eigenes;
    // The system's own locale knows the country as well.
    return system.language() == gebiet.language() ? system : gebiet;
}
} // namespace

Fenstersprache::Fenstersprache(QObject *vater) : QObject(vater)
{
    m_takt.setSingleShot(true);
    m_takt.setInterval(schreibdauer);
    connect(&m_takt, &QTimer::timeout, this, &Fenstersprache::auffrischen);
    for (const auto signal : {&QFileSystemWatcher::fileChanged, &QFileSystemWatcher::directoryChanged})
        connect(&m_waechter, signal, this, [this] { m_takt.start(); });
    laden();
}

QList<Sprachsatz> Fenstersprache::angebot()
{
    QList<Sprachsatz> liste = Sprache::verfuegbare();
    const auto deutsch =
        std::find_if(liste.begin(), liste.end(), [](const Sprachsatz &satz) { return satz.kennung == u"de"_s; });
    Sprachsatz erste{.kennung = u"de"_s, .name = u"Deutsch"_s, .eigen = false, .ort = {}, .mangel = {}};
    if (deutsch != liste.end()) {
        erste = *deutsch;
        liste.erase(deutsch);
    }
    liste.prepend(erste);
    return liste;
}

void Fenstersprache::beobachten()
{
    const QStringList bisher = m_waechter.files() + m_waechter.directories();
    if (!bisher.isEmpty())
        m_waechter.removePaths(bisher);
    const QString datei = Sprache::wirksameDatei();
    if (!datei.isEmpty())
        m_waechter.addPaths({datei, QFileInfo(datei).path()});
}

/** An editor replaces the file, and a new one is not watched yet. */
void Fenstersprache::auffrischen()
{
    beobachten();
    if (Sprache::auffrischen())
        Q_EMIT gewechselt();
}

QString Fenstersprache::kennung() const { return Sprache::gewaehlteKennung(); }

void Fenstersprache::waehlen(const QString &kennung)
{
    if (kennung == this->kennung())
        return auffrischen();
    Sprache::setzeGewaehlteKennung(kennung);
    laden();
    Q_EMIT gewechselt();
}

void Fenstersprache::laden()
{
    const QLocale gebiet = gebietVon(Sprache::wirksameKennung());
    QLocale::setDefault(gebiet);
    QCoreApplication::removeTranslator(&m_qt);
    const QString ordner = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    const QString sprache = gebiet.name().section(u'_', 0, 0);
    if (m_qt.load(u"qtbase_"_s + sprache, ordner) ||
        (gebiet.language() != QLocale::English && m_qt.load(u"qtbase_de"_s, ordner)))
        QCoreApplication::installTranslator(&m_qt);
    beobachten();
}
} // namespace quillmar::zustand
