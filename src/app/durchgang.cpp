#include "analyse.h"
#include "ausgabe.h"
#include "kommandozeile.h"
#include "ollama.h"
#include "text.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <QTimer>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
namespace
{
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

/** The first Ctrl+C lets the document in hand be finished; everything else ends the run at once. */
class Haltewunsch
{
public:
    Haltewunsch(Analyse &analyse, Ausgabe::Statuszeile &status, QEventLoop &schleife)
        : m_analyse(analyse), m_status(status), m_schleife(schleife)
    {
    }

    void aufnehmen(int nummer)
    {
        if (m_gewarnt || nummer != SIGINT) {
            m_analyse.sofortBeenden();
            // Whatever the run waits for, a locked catalogue say.
            return QTimer::singleShot(laengstesWarten, &m_schleife, &QEventLoop::quit);
        }
        m_gewarnt = true;
        m_analyse.abbrechen();
        m_status.loeschen();
        Ausgabe::melden(u"Hält nach dem laufenden Dokument an. Das bereits Erkannte bleibt erhalten, ein "
                        "späterer Start setzt dort fort."_s);
    }

private:
    Analyse &m_analyse;
    Ausgabe::Statuszeile &m_status;
    QEventLoop &m_schleife;
    bool m_gewarnt = false;
};

void umgebungMelden()
{
    if (const QString satz = Ollama::umgebungshinweis(); !satz.isEmpty())
        Ausgabe::melden(satz);
}

void statusZeigen(Ausgabe::Statuszeile &status, const Analyse &analyse)
{
    const Laufganzes &ganzes = analyse.ganzes();
    QStringList teile = {analyse.meldung(), analyse.dauersatz()};
    if (ganzes.inPortionen())
        teile << ganzes.satz();
    teile.removeAll(QString());
    status.zeigen(analyse.stufe(), analyse.anteil(), teile.join(u"  "_s),
                  ganzes.inPortionen() ? ganzes.restzeit : analyse.restzeit());
}

/** What the run has to say: one line for each kind of failure, with what can be done. */
void fazitMelden(const Lauffazit &fazit)
{
    for (const QString &hinweis : fazit.hinweise)
        Ausgabe::melden(hinweis);
    for (const Laufhindernis &h : fazit.hindernisse) {
        const bool gesagt = h.art == Laufhindernis::Art::ServerWeg && !fazit.gescheiterte.isEmpty();
        if (!gesagt)
            Ausgabe::melden(h.satz());
    }
    for (const auto &[grund, anzahl] : fazit.gescheiterte)
        Ausgabe::melden(gefuellt(u"%@ ohne Vorschlag: %@. Noch einmal versuchen mit --analyse --erneut"_s,
                                 {QString::number(anzahl), grund}));
}
} // namespace

bool Kommandozeile::modellDa(const Profil &profil)
{
    QString grund = gefuellt(u"Das Modell %@ fehlt noch"_s, {profil.modell});
    try {
        const Ollama server;
        if (server.verzeichnis().treffer(server.hiesiges(profil.modell)))
            return true;
    } catch (const Fehler &f) {
        grund = f.text();
    }
    Ausgabe::melden(gefuellt(u"Kein Durchgang: %@"_s, {grund}));
    return false;
}

void Kommandozeile::analysieren(const std::shared_ptr<Datenbank> &db, const Profil &profil, bool erneut)
{
    umgebungMelden();
    Analyse analyse(db, profil);
    Ausgabe::Statuszeile status;
    QObject::connect(&analyse, &Analyse::geaendert, &analyse, [&] { statusZeigen(status, analyse); });
    QEventLoop schleife;
    Haltewunsch haltewunsch(analyse, status, schleife);
    const Signale signale([&](int nummer) { haltewunsch.aufnehmen(nummer); });
    QObject::connect(&analyse, &Analyse::beendet, &schleife, &QEventLoop::quit);
    analyse.allesStarten({.erneut = erneut, .nurDies = {}, .nurLesen = false});
    schleife.exec();
    status.loeschen();
    fazitMelden(analyse.fazit());
}
} // namespace quillmar::app
