#include "fenster.h"

#include "analyse.h"
#include "ausfuehrung.h"
#include "beispielprofil.h"
#include "durchgang.h"
#include "fensterbuehne.h"
#include "kommando.h"
#include "messung.h"
#include "modellserver.h"
#include "probe.h"
#include "profilspeicher.h"
#include "protokollbuch.h"
#include "pruefansicht.h"
#include "pruefung.h"
#include "seitenbelege.h"
#include "sitzungen.h"
#include "textschild.h"
#include "vorschau.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLineEdit>
#include <QListView>
#include <QLoggingCategory>
#include <QScrollBar>
#include <QTest>
#include <algorithm>
#include <future>
#include <stdexcept>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;
using namespace Fensterbuehne;

namespace
{
constexpr int eingaben = 100;
constexpr int analysierte = 200;

struct Ziffern {
    double mitte = 0;
    double schlimmste = 0;
};

Ziffern ziffern(QList<double> werte)
{
    std::sort(werte.begin(), werte.end());
    return {.mitte = werte.at(werte.size() / 2), .schlimmste = werte.last()};
}

/** The demonstration server in a thread of its own: its work is not the window's. */
class Servierer
{
public:
    Servierer()
    {
        std::promise<quint16> port;
        m_faden = std::thread([this, &port] {
            vorfuehrung::Modellserver server(vorfuehrung::modellDerVorfuehrung());
            QEventLoop schleife;
            m_schleife = &schleife;
            const bool hoert = server.lauschen(0);
            port.set_value(hoert ? server.port() : 0);
            schleife.exec();
        });
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(port.get_future().get()));
    }
    ~Servierer()
    {
        QMetaObject::invokeMethod(m_schleife, &QEventLoop::quit, Qt::QueuedConnection);
        m_faden.join();
    }
    Servierer(const Servierer &) = delete;
    Servierer &operator=(const Servierer &) = delete;

private:
    std::thread m_faden;
    QEventLoop *m_schleife = nullptr;
};

/** Letters and colour scans in turn, as they come from a scanner. */
QStringList gemischt(const QString &ordner, int anzahl)
{
    const QStringList texte = Probe::textPdfs(ordner, anzahl / 2);
    QDir().mkpath(ordner + u"/s"_s);
    const QStringList bilder = Probe::scans(ordner + u"/s"_s, anzahl - anzahl / 2);
    QStringList liste;
    for (int i = 0; i < anzahl; ++i)
        liste << (i % 2 == 0 ? texte.value(i / 2) : bilder.value(i / 2));
    return liste;
}

/** A session that has moved a hundred thousand files, none of them there. */
QString langesProtokoll(const Profil &profil)
{
    const QString ordner = profil.protokollURL().value();
    QDir().mkpath(ordner);
    QFile datei(ordner + u"/Protokoll 2025-01-31 150509.jsonl"_s);
    if (!datei.open(QIODevice::WriteOnly))
        throw std::runtime_error("the log cannot be written");
    datei.write(Protokollkopf::fuer(profil).json() + '\n');
    for (int n = 0; n < alle; ++n)
        datei.write(Protokollzeile{.zeit = u"2025-01-31T14:05:09Z"_s,
                                   .aktion = u"einsortiert"_s,
                                   .dokument = n + 1,
                                   .von = profil.quelle + u"/Scan_%1.pdf"_s.arg(n),
                                   .nach = profil.zielWurzel + u"/Privat/Post/Briefe/Brief %1.pdf"_s.arg(n),
                                   .altStatus = u"bereit"_s,
                                   .kopiert = false}
                        .json() +
                    '\n');
    return datei.fileName();
}

/** Waits for the first page of what is under review; then presses Return @p anzahl times, a look apart. */
class Durchsicht
{
public:
    explicit Durchsicht(Fenster &fenster) : m_f(fenster)
    {
        QObject::connect(m_f.vorschau(), &Vorschau::seiteSichtbar, &m_bindung,
                         [this](const QString &pfad) { m_sichtbar = pfad; });
        bis([&] {
            return m_f.zustand.pruefung()->aktuelles() && m_sichtbar == m_f.zustand.pruefung()->aktuelles()->pfad;
        });
    }

    /** Milliseconds to the next page, of each; @p beimBlick runs while one looks at a page. */
    [[nodiscard]] QList<double> eingaben(
        int anzahl, const std::function<void()> &beimBlick = [] { warten(blick); })
    {
        QList<double> zeiten;
        for (int i = 0; i < anzahl; ++i) {
            beimBlick();
            const QString vorher = m_sichtbar;
            QElapsedTimer uhr;
            uhr.start();
            Fenster::druecken(Qt::Key_Return);
            bis([&] { return m_sichtbar != vorher; });
            zeiten << millisekunden(uhr);
            bis([&] { return !m_f.zustand.ausfuehrung()->beschaeftigt(); });
        }
        return zeiten;
    }

private:
    Fenster &m_f;
    QString m_sichtbar;
    QObject m_bindung;
};

/** Neither reads where words stand nor marks any. */
void ohneWorte(const Fenster &f)
{
    QObject::disconnect(f.zustand.pruefung(), nullptr, f.zustand.seitenbelege(), nullptr);
}

/** What the page offers for the title, gone through. */
void angeboteDurchgehen(const Fenster &f)
{
    auto *titel = f.fenster.findChild<QLineEdit *>(u"titel"_s);
    QWidget *vorher = QApplication::focusWidget();
    titel->setFocus();
    warten(blick / 10);
    QTest::keyClick(titel, Qt::Key_Down, Qt::ControlModifier);
    warten(blick / 10);
    for (const auto taste : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Escape}) // the list has the keys while it is open
        if (QWidget *liste = QApplication::activePopupWidget())
            QTest::keyClick(liste, taste);
    vorher->setFocus();
    warten(blick / 10);
}

int startMessen()
{
    const Anwendung anwendung;
    {
        const Fenster f;
        // Usable: the first page or the empty card has been drawn.
        f.fenster.findChild<PruefAnsicht *>()->repaint();
    }
    std::fflush(nullptr);
    ::_exit(0);
}
} // namespace

void Fensterreihen::eingabe()
{
    const Anwendung anwendung;
    const Heim heim;
    heim.sichern();
    const QStringList dateien = gemischt(heim.profil.quelle, eingaben + 2);
    heim.belegen(dateien);
    Fenster f;
    const Ziffern z = ziffern(Durchsicht(f).eingaben(eingaben));
    Messung::drucken("Return to the next page, median of 100", z.mitte, "ms", 100);
    Messung::drucken("Return to the next page, worst of 100", z.schlimmste, "ms", 200);
}

void Fensterreihen::marken()
{
    constexpr int runden = 8;
    constexpr int jeRunde = 10;
    QLoggingCategory::setFilterRules(u"default.warning=false"_s); // "does not support grabbing", for each list
    const Anwendung anwendung;
    const Heim heim;
    heim.sichern();
    heim.belegen(Probe::textPdfs(heim.profil.quelle, 2 * (runden + 1) * (jeRunde + 1)), u"Schreiben Nummer %1"_s);
    double laengster = 0;
    const auto mit = [&] {
        Fenster f;
        Durchsicht durchsicht(f);
        warten(blick);
        Schleifenwache wache;
        return ziffern(durchsicht.eingaben(jeRunde,
                                           [&] {
                                               warten(blick / 2); // the words come, and the marks are painted
                                               angeboteDurchgehen(f);
                                               laengster = std::max(laengster, wache.laengste());
                                               if (f.zustand.seitenbelege()->marken().isEmpty())
                                                   throw std::runtime_error("nothing is marked");
                                               warten(blick / 2);
                                               Q_UNUSED(wache.laengste());
                                           }))
                   .mitte /
               1000;
    };
    const auto ohne = [] {
        Fenster f;
        ohneWorte(f);
        Durchsicht durchsicht(f);
        warten(blick);
        return ziffern(durchsicht.eingaben(jeRunde,
                                           [&] {
                                               warten(blick / 2);
                                               angeboteDurchgehen(f); // the list says that nothing is read
                                               warten(blick / 2);
                                           }))
                   .mitte /
               1000;
    };
    Messung::drucken("Return to the next page, with marks", Messung::paarweise(runden, mit, ohne), 1.05);
    Messung::drucken("  longest block of words, marks and offers", laengster, "ms", 16);
}

void Fensterreihen::taste()
{
    const Anwendung anwendung;
    const Heim heim;
    heim.sichern();
    heim.belegen(Probe::textPdfs(heim.profil.quelle, 2));
    Fenster f;
    bis([&] { return f.zustand.pruefung()->aktuelles() != nullptr; });
    warten(blick);
    auto *titel = f.fenster.findChild<QLineEdit *>(u"titel"_s);
    auto *neuerName = f.fenster.findChild<Textschild *>(u"neuerName"_s);
    titel->setFocus();
    titel->clear();
    QList<double> zeiten;
    for (int i = 0; i < 60; ++i) {
        const QString vorher = neuerName->ganzerText();
        QElapsedTimer uhr;
        uhr.start();
        Fenster::druecken(Qt::Key_A);
        bis([&] { return neuerName->ganzerText() != vorher; });
        neuerName->window()->repaint();
        zeiten << millisekunden(uhr);
    }
    Messung::drucken("keystroke until name and path are drawn, worst", ziffern(zeiten).schlimmste, "ms", 16);
}

void Fensterreihen::schleife()
{
    const Anwendung anwendung;
    Heim heim;
    heim.profil.modell = vorfuehrung::modellDerVorfuehrung();
    heim.sichern();
    Probe::textPdfs(heim.profil.quelle, analysierte);
    const Servierer server;
    Fenster f;
    Schleifenwache wache;
    f.zustand.durchgang()->durchgangStarten();
    while (f.zustand.durchgang()->analyse()->laeuft())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    Messung::drucken("longest block of the loop, 200 documents", wache.laengste(), "ms", 50);
}

void Fensterreihen::protokollkarte()
{
    const Anwendung anwendung;
    const Heim heim;
    heim.sichern();
    const QString log = langesProtokoll(heim.profil);
    Fenster f;
    auto *liste = f.fenster.findChild<QListView *>(u"bewegungen"_s);
    Schleifenwache wache;
    f.zustand.setzeReiter(Reiter::Protokoll);
    bis([&] { return f.zustand.sitzungen()->protokollDateien().size() == 1; });
    warten(blick);
    Messung::drucken("log of 100,000: listing, longest block", wache.laengste(), "ms", 50);
    f.zustand.sitzungen()->protokollWaehlen(log);
    bis([&] { return liste->model()->rowCount() == alle; });
    warten(blick);
    Messung::drucken("log of 100,000: opening, longest block", wache.laengste(), "ms", 50);
    for (int n = 0; n <= 100; ++n) {
        liste->verticalScrollBar()->setValue(liste->verticalScrollBar()->maximum() / 100 * n);
        warten(16);
    }
    Messung::drucken("log of 100,000: scrolling, longest block", wache.laengste(), "ms", 50);
    f.zustand.sitzungen()->protokollWaehlen(std::nullopt);
    warten(blick);
    Messung::drucken("log of 100,000: closing, longest block", wache.laengste(), "ms", 50);
}

int Fensterreihen::startVoll() { return startMessen(); }

int Fensterreihen::startLeer() { return startMessen(); }

void Fensterreihen::fensterstart()
{
    constexpr int runden = 15;
    const Heim voll;
    voll.sichern();
    QFile::remove(Profilspeicher::datei());
    voll.sichern();
    voll.belegen(Probe::textPdfs(voll.profil.quelle, 2));
    const QByteArray daten = qgetenv("XDG_DATA_HOME");
    const Heim leer; // its home holds from now on
    leer.sichern();
    const QByteArray leereDaten = qgetenv("XDG_DATA_HOME");
    const auto lauf = [](const QByteArray &heim, const char *art) {
        return [heim, art] {
            qputenv("XDG_DATA_HOME", heim);
            return Messung::dauer([&] { Kommando::laufen({QUILLMAR_FENSTERBENCH, art}); });
        };
    };
    const auto paar = Messung::paarweise(runden, lauf(daten, "--voll"), lauf(leereDaten, "--leer"));
    Messung::drucken("start to usable window, 100,000 documents", paar, 1.5);
}
