#include "pruefsummen.h"

#include "dateibewegung.h"
#include "pfade.h"
#include "sha256.h"

#include <array>
#include <atomic>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

using namespace std::chrono_literals;

namespace quillmar::analyse
{
namespace
{
constexpr int faeden = 2;

/** Takes results from the workers and hands them to the caller. */
class Sammelstelle
{
public:
    void abgeben(Pruefsummen::Ergebnis ergebnis)
    {
        const std::lock_guard sperre(m_schloss);
        m_fertig << std::move(ergebnis);
        m_neu.notify_one();
    }

    void abmelden()
    {
        const std::lock_guard sperre(m_schloss);
        ++m_abgemeldet;
        m_neu.notify_one();
    }

    /** What has come meanwhile; empty when all workers are gone. Collects for a moment, so that writes can be grouped.
     */
    [[nodiscard]] QList<Pruefsummen::Ergebnis> abholen()
    {
        std::unique_lock sperre(m_schloss);
        m_neu.wait(sperre, [this] { return !m_fertig.isEmpty() || m_abgemeldet == faeden; });
        m_neu.wait_for(sperre, 50ms, [this] { return m_abgemeldet == faeden; });
        return std::exchange(m_fertig, {});
    }

private:
    std::mutex m_schloss;
    std::condition_variable m_neu;
    QList<Pruefsummen::Ergebnis> m_fertig;
    int m_abgemeldet = 0;
};

/** What changes while it is read has another state afterwards, and is read again next time. */
Pruefsummen::Ergebnis berechnet(const Pruefsummen::Datei &datei, const std::function<bool()> &sollHalten)
{
    const auto stand = Dateibewegung::angabenVon(datei.pfad).value_or(Dateibewegung::Schritt());
    return {.id = datei.id,
            .sha256 = sha256Datei(aufDerPlatte(datei.pfad), sollHalten),
            .groesse = stand.groesse,
            .geaendert = stand.zeit};
}

/** Lets the workers go when delivery throws. */
struct Ausschalter {
    std::atomic<bool> &aus;
    ~Ausschalter() { aus = true; }
};
} // namespace

void Pruefsummen::berechnen(const QList<Datei> &dateien, const std::function<bool()> &halt,
                            const std::function<void(const QList<Ergebnis> &)> &fertig)
{
    Sammelstelle stelle;
    std::atomic<qsizetype> naechste = 0;
    std::atomic<bool> aus = false;
    const auto sollHalten = [&] { return aus.load(std::memory_order_relaxed) || halt(); };
    const auto arbeiten = [&] {
        for (qsizetype i = naechste++; i < dateien.size() && !sollHalten(); i = naechste++) {
            Ergebnis ergebnis = berechnet(dateien.at(i), sollHalten);
            if (!sollHalten())
                stelle.abgeben(std::move(ergebnis));
        }
        stelle.abmelden();
    };
    std::array<std::jthread, faeden> arbeiter; // declared before the switch, so joined after it
    for (std::jthread &einer : arbeiter)
        einer = std::jthread(arbeiten);
    const Ausschalter ausschalter{aus};
    for (QList<Ergebnis> neue = stelle.abholen(); !neue.isEmpty(); neue = stelle.abholen())
        fertig(neue);
}
} // namespace quillmar::analyse
