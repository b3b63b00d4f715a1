#include "analyse.h"
#include "ausgabe.h"
#include "kommandozeile.h"
#include "ollama.h"
#include "sprache.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{
constexpr int blickabstand = 2000;    // ms between two looks at whether the run has ended
constexpr int laengstesWarten = 1000; // ms for a run that is to end at once

int meldeleitung[2] = {-1, -1};

void signalMelden(int nummer)
{
    const char zeichen = char(nummer);
    [[maybe_unused]] const ssize_t egal = ::write(meldeleitung[1], &zeichen, 1);
}

/** Brings Ctrl+C, the closing of the terminal and the wish of the system to end into the event loop. */
class Signale
{
public:
    explicit Signale(const std::function<void(int)> &bei)
    {
        if (::pipe2(meldeleitung, O_CLOEXEC | O_NONBLOCK) != 0)
            return;
        m_melder = std::make_unique<QSocketNotifier>(meldeleitung[0], QSocketNotifier::Read);
        QObject::connect(m_melder.get(), &QSocketNotifier::activated, m_melder.get(), [bei] {
            char nummer = 0;
            while (::read(meldeleitung[0], &nummer, 1) == 1)
                bei(nummer);
        });
        std::signal(SIGINT, signalMelden);
        std::signal(SIGTERM, signalMelden);
        m_alterHup = std::signal(SIGHUP, signalMelden);
        if (m_alterHup == SIG_IGN) // started to go on when the terminal closes
            std::signal(SIGHUP, SIG_IGN);
    }
    ~Signale()
    {
        std::signal(SIGINT, SIG_DFL);
        std::signal(SIGTERM, SIG_DFL);
        std::signal(SIGHUP, m_alterHup);
        m_melder.reset();
        ::close(meldeleitung[0]);
        ::close(meldeleitung[1]);
    }
    Signale(const Signale &) = delete;
    Signale &operator=(const Signale &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_melder;
    void (*m_alterHup)(int) = SIG_DFL;
};
} // namespace

void Kommandozeile::analysieren(const std::shared_ptr<Datenbank> &db, const Profil &profil, bool erneut)
{
    if (Ollama::umgebungNenntFremdenRechner())
        Ausgabe::melden(
            Sprache::text(u"OLLAMA_HOST nennt einen anderen Rechner und wird nicht beachtet: Texte bleiben hier"_s));
    Analyse analyse(db, profil);
    Ausgabe::Statuszeile status;
    QObject::connect(&analyse, &Analyse::geaendert, &analyse,
                     [&] { status.zeigen(analyse.stufe(), analyse.anteil(), analyse.meldung(), analyse.restzeit()); });
    QEventLoop schleife;
    bool gewarnt = false;
    const Signale signale([&](int nummer) {
        if (gewarnt || nummer != SIGINT) {
            analyse.sofortBeenden();
            // Whatever the run waits for, a locked catalogue say.
            return QTimer::singleShot(laengstesWarten, &schleife, &QEventLoop::quit);
        }
        gewarnt = true;
        analyse.abbrechen();
        status.loeschen();
        Ausgabe::melden(Sprache::text(u"Hält nach dem laufenden Dokument an. Das bereits Erkannte bleibt erhalten, ein "
                                      "späterer Start setzt dort fort."_s));
    });
    QTimer blick;
    QObject::connect(&blick, &QTimer::timeout, &schleife, [&] {
        if (!analyse.laeuft())
            schleife.quit();
    });
    analyse.allesStarten(erneut);
    blick.start(blickabstand);
    schleife.exec();
    status.loeschen();
    for (const QString &hinweis : analyse.hinweise())
        Ausgabe::melden(hinweis);
}
