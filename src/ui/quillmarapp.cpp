#include "quillmarapp.h"

#include "einzelfenster.h"
#include "fenstersprache.h"
#include "hauptfenster.h"
#include "kleiderordnung.h"
#include "meldestelle.h"
#include "ordnerwahl.h"
#include "pfade.h"
#include "profilwahl.h"
#include "quillmarstil.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QFileDialog>
#include <QIcon>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace quillmar::ui
{
namespace
{
/** The desktop's own dialog speaks the desktop's language; in another one ours is used. */
QFileDialog::Options dialogart()
{
    const bool wieDasSystem = QLocale::system().name().startsWith(Sprache::wirksameKennung());
    return wieDasSystem ? QFileDialog::Options() : QFileDialog::DontUseNativeDialog;
}

std::optional<QString> ordnerFragen(const QString &titel, const QString &beginn)
{
    const QString ordner = QFileDialog::getExistingDirectory(
        QApplication::activeWindow(), titel, vorhandenerOrdner(beginn), dialogart() | QFileDialog::ShowDirsOnly);
    return ordner.isEmpty() ? std::nullopt : std::optional(ordner);
}

std::optional<QString> protokollFragen(const QString &titel, const QString &beginn)
{
    const QString datei =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), titel, vorhandenerOrdner(beginn),
                                     Sprache::text(u"Sitzungsprotokolle (*.jsonl)"_s), nullptr, dialogart());
    return datei.isEmpty() ? std::nullopt : std::optional(datei);
}
} // namespace

QuillmarApp::QuillmarApp(int &anzahl, char **argumente) : QApplication(anzahl, argumente)
{
    setApplicationName(u"quillmar"_s);
    setApplicationDisplayName(u"Quillmar"_s);
    setDesktopFileName(u"quillmar"_s);
    setApplicationVersion(QStringLiteral(QUILLMAR_FASSUNG));
    Quillmarstil::anwenden();
    QIcon::setFallbackThemeName(u"breeze"_s);
    setWindowIcon(QIcon::fromTheme(u"quillmar"_s, QIcon(u":/quillmar.svg"_s)));
    Ordnerwahl::ordnerwaehler = ordnerFragen;
    Ordnerwahl::protokollwaehler = protokollFragen;
}

QuillmarApp::~QuillmarApp() = default;

int QuillmarApp::laufen(const QString &profil)
{
    m_einzeln = std::make_unique<Einzelfenster>();
    if (!m_einzeln->anmelden(profil))
        return 0;
    connect(m_einzeln.get(), &Einzelfenster::geweckt, this, &QuillmarApp::nachVorn);
    m_sprache = std::make_unique<Fenstersprache>();
    schriftgroesseAnwenden();
    m_zustand = std::make_unique<Zustand>();
    m_fenster = std::make_unique<Hauptfenster>(m_zustand.get(), m_sprache.get(), profil);
    m_fenster->show();
    const int ende = exec();
    m_fenster.reset();
    m_zustand.reset();
    return ende;
}

void QuillmarApp::nachVorn(const QString &profil)
{
    if (!m_fenster)
        return;
    const auto &liste = m_zustand->profilwahl()->profile();
    const auto p = std::find_if(liste.begin(), liste.end(), [&](const Profil &eines) { return eines.name == profil; });
    if (p != liste.end())
        m_zustand->profilwahl()->aktivieren(p->id);
    else if (!profil.isEmpty())
        m_zustand->meldestelle()->melden(gefuellt(Sprache::text(u"Profil nicht gefunden: %@"_s), {profil}));
    m_fenster->nachVorn();
}
} // namespace quillmar::ui
