#include "fenstersprache.h"

#include "sprache.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QLocale>

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

QList<Wahleintrag> Fenstersprache::auswahl()
{
    QList<Wahleintrag> liste = {{.wert = {}, .anzeige = Sprache::text(u"Wie das System"_s)},
                                {.wert = u"de"_s, .anzeige = u"Deutsch"_s}};
    for (const Sprachsatz &satz : Sprache::verfuegbare()) {
        const QString mangel = Sprache::text(/* QUILLMAR_TEXT */ satz.mangel);
        const Wahleintrag eintrag{.wert = satz.kennung,
                                  .anzeige = mangel.isEmpty() ? satz.name : satz.name + u" – "_s + mangel,
                                  .mangel = mangel};
        if (satz.kennung == "de"_L1)
            liste[1] = eintrag;
        else
            liste << eintrag;
    }
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
