#include "fensterbuehne.h"

#include "datenbank.h"
#include "pfade.h"
#include "probe.h"
#include "profilspeicher.h"
#include "profilwahl.h"
#include "pruefansicht.h"
#include "pruefung.h"
#include "stapel.h"

#include <QApplication>
#include <QDir>
#include <QTest>
#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace Fensterbuehne
{
namespace
{
constexpr int laengstens = 60'000;
} // namespace

double millisekunden(const QElapsedTimer &uhr) { return double(uhr.nsecsElapsed()) / 1e6; }

void bis(const std::function<bool()> &fertig)
{
    QElapsedTimer uhr;
    uhr.start();
    while (!fertig()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 5);
        if (uhr.elapsed() > laengstens)
            throw std::runtime_error("the window does not answer");
    }
}

void warten(int dauer)
{
    bool vorbei = false;
    QTimer::singleShot(dauer, [&] { vorbei = true; });
    bis([&] { return vorbei; });
}

Heim::Heim()
{
    qputenv("XDG_DATA_HOME", m_ordner.filePath(u"daten"_s).toUtf8());
    qputenv("XDG_CONFIG_HOME", m_ordner.filePath(u"einstellungen"_s).toUtf8());
    qputenv("OLLAMA_HOST", "127.0.0.1:9");
    profil.quelle = m_ordner.filePath(u"Scans"_s);
    profil.zielWurzel = m_ordner.filePath(u"Ablage"_s);
    profil.zweige = {
        {.name = u"Privat"_s, .ablagen = {{.name = u"Post"_s, .mitJahr = false, .rubriken = {u"Briefe"_s}}}}};
    QDir().mkpath(profil.quelle);
    QDir().mkpath(profil.zielWurzel);
}

void Heim::sichern() const { Profilspeicher::sichern({profil}, Profilspeicher::laden()); }

void Heim::belegen(const QStringList &ersteWartende, const QString &titel) const
{
    Datenbank db(Profilspeicher::katalogDatei(profil));
    const QStringList namen = Probe::namen(2000);
    Stapel stapel(db);
    for (int i = 1; i <= alle; ++i) {
        const int stelle = i - (alle - wartende) - 1;
        const QString pfad = ersteWartende.value(stelle, profil.quelle + u"/%1.pdf"_s.arg(i));
        stapel.naechstes();
        db.schreiben(
            u"INSERT INTO dokumente (id, pfad, dateiname, alt_ordner, status, hat_textebene, datum, gegenueber,\n"
            "titel, zweig, ablage, rubrik, jahr, konfidenz)\n"
            "VALUES (?,?,?,'',?,1,'2024-05-17',?,?,'Privat','Post','Briefe','2024',0.9)"_s,
            {i, pfad, nameVon(pfad), stelle >= 0 ? u"bereit"_s : u"erledigt"_s, namen.at(i % namen.size()),
             titel.arg(i)});
    }
    stapel.abschliessen();
}

Fenster::Fenster()
{
    fenster.resize(1280, 860);
    fenster.show();
    bis([&] { return zustand.profilwahl()->offen() && zustand.profilwahl()->bereitschaft(); });
    if (zustand.pruefung()->aktuelles())
        bis([] { return QApplication::focusWidget() != nullptr; });
}

Vorschau *Fenster::vorschau() const { return fenster.findChild<PruefAnsicht *>()->vorschau(); }

void Fenster::druecken(Qt::Key taste) { QTest::keyClick(QApplication::focusWidget(), taste); }

Schleifenwache::Schleifenwache()
{
    QObject::connect(&m_takt, &QTimer::timeout, &m_takt, [this] {
        m_laengste = std::max(m_laengste, millisekunden(m_uhr));
        m_uhr.restart();
    });
    m_takt.setTimerType(Qt::PreciseTimer);
    m_takt.start(1);
    m_uhr.start();
}

double Schleifenwache::laengste()
{
    m_laengste = std::max(m_laengste, millisekunden(m_uhr)); // a block that has not ended with a turn
    m_uhr.restart();
    return std::exchange(m_laengste, 0);
}
} // namespace Fensterbuehne
