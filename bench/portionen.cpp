#include "portionen.h"
#include "bestand.h"
#include "datenbank.h"
#include "messung.h"
#include "modellserver.h"
#include "probe.h"
#include "reihen.h"
#include "skizze.h"
#include "textleser.h"

#include <QDir>
#include <QEventLoop>
#include <QTemporaryDir>
#include <future>
#include <optional>
#include <stdexcept>
#include <thread>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;
using namespace std::chrono_literals;

namespace
{
constexpr int scans = 500;
constexpr auto bedenkzeit = 50ms;
constexpr int bekannte = 20000;
constexpr int portion = 50;

/** The demonstration server on a thread of its own; takes its time for each answer. */
class Server
{
public:
    Server()
        : m_faden([this] {
              vorfuehrung::Modellserver server(u"klein"_s);
              server.setzeBedenkzeit(bedenkzeit);
              QEventLoop schleife;
              m_port.set_value(server.lauschen(0) ? server.port() : 0);
              m_schleife.set_value(&schleife);
              schleife.exec();
          })
    {
        qputenv("OLLAMA_HOST", "127.0.0.1:" + QByteArray::number(m_port.get_future().get()));
    }
    ~Server() { QMetaObject::invokeMethod(m_schleife.get_future().get(), &QEventLoop::quit, Qt::QueuedConnection); }
    Server(const Server &) = delete;
    Server &operator=(const Server &) = delete;

private:
    std::promise<quint16> m_port;
    std::promise<QEventLoop *> m_schleife;
    std::jthread m_faden;
};

struct Zeiten {
    double ganz = 0;
    double ersterVorschlag = 0;
};

Zeiten durchgang(const QTemporaryDir &ordner, const Portionsgroesse &groesse)
{
    const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
    Profil profil;
    profil.quelle = ordner.filePath(u"Scans"_s);
    profil.modell = u"klein"_s;
    const auto beginn = std::chrono::steady_clock::now();
    const auto bisher = [beginn] {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - beginn).count();
    };
    std::optional<double> erster;
    Lauf lauf(
        db, profil, [] { return false; }, {},
        [&](const Laufstand &stand) {
            if (!erster && stand.stufe == u"Dokumente einordnen" && stand.anteil > 0)
                erster = bisher();
        });
    Bestand::aufnehmen(lauf);
    Portionen::durchlaufen(lauf, {.nurDies = {}, .portionen = groesse});
    if (db->abfragen(u"SELECT 1 FROM dokumente WHERE status='bereit' AND coalesce(fehler,'')=''"_s).size() != scans)
        throw std::runtime_error("not every document has a proposal");
    return {.ganz = bisher(), .ersterVorschlag = erster.value_or(0)};
}

/** Documents with a sketch of their own and the state @p status. */
void skizzenAnlegen(Datenbank &db, int anzahl, const QString &status)
{
    Probe::Zufall zufall{quint64(status.size())};
    db.ausfuehren(u"BEGIN"_s);
    for (int i = 0; i < anzahl; ++i) {
        const Skizze skizze(Probe::worte(zufall, 200).join(u' '));
        db.ausfuehren(u"INSERT INTO dokumente (pfad, dateiname, status, text_hash, skizze) VALUES (?,?,?,?,?)"_s,
                      {u"/scans/%1 %2.pdf"_s.arg(status).arg(i), u"a.pdf"_s, status, skizze.textHash(),
                       Skizze::json(skizze.werte())});
    }
    db.ausfuehren(u"COMMIT"_s);
}
} // namespace

void Reihen::portionen()
{
    const QTemporaryDir ordner;
    QDir(ordner.path()).mkdir(u"Scans"_s);
    Probe::textPdfs(ordner.filePath(u"Scans"_s), scans);
    const Server server;
    const Zeiten unser = durchgang(ordner, {});
    const Zeiten ganz = durchgang(ordner, {.erste = scans, .weitere = scans});
    Messung::drucken("500 documents in portions, in one",
                     {.unser = unser.ganz, .blank = ganz.ganz, .verhaeltnis = unser.ganz / ganz.ganz}, 1.03);
    Messung::drucken("  first proposal, share of the run", 100 * unser.ersterVorschlag / unser.ganz, "%", 3);
}

void Reihen::portionenBekannte()
{
    const QTemporaryDir ordner;
    const auto db = Probe::katalog(ordner.filePath(u"katalog.db"_s));
    skizzenAnlegen(*db, bekannte, u"erledigt"_s);
    skizzenAnlegen(*db, portion, u"neu"_s);
    Lauf lauf = Probe::lauf(db, ordner.path());
    Textleser::textLesen(lauf);
    const double dauer = Messung::dauer([&] { Textleser::textLesen(lauf); });
    Messung::drucken("50 new against 20,000 known documents", 1000 * dauer, "ms", 500);
}
