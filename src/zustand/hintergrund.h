#pragma once

#include "fehler.h"

#include <QFutureWatcher>
#include <QPointer>
#include <QThreadPool>
#include <QtConcurrent>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>

/** Work off the main thread whose result is delivered on it. */
namespace Hintergrund
{
/** Threads of the state object; more than there are processors, since most of them wait for a disk or a server. */
[[nodiscard]] QThreadPool &faeden();

/** Waits until no work is under way, at most @p laengstens. False when some still is. */
bool warten(std::chrono::milliseconds laengstens);

/** The sentence for the user of a failure that is being handled; to be called in a catch block only. */
[[nodiscard]] QString fehlersatz();
} // namespace Hintergrund

/** What blocking work came to: its value, or the sentence that says why there is none. */
template <typename T>
struct Ausgang {
    std::optional<T> wert;
    QString fehler;
};

/**
 * Runs @p arbeit (values in, value out) on a thread of its own and hands its Ausgang to @p liefern on the thread of
 * @p empfaenger; nothing is delivered once the receiver is gone.
 */
template <typename Arbeit, typename Lieferung>
void imHintergrund(QObject *empfaenger, Arbeit arbeit, Lieferung liefern)
{
    using Wert = std::invoke_result_t<Arbeit>;
    auto *waechter = new QFutureWatcher<Ausgang<Wert>>(empfaenger);
    QObject::connect(waechter, &QFutureWatcherBase::finished, empfaenger, [waechter, liefern] {
        waechter->deleteLater();
        liefern(waechter->result());
    });
    waechter->setFuture(QtConcurrent::run(&Hintergrund::faeden(), [arbeit = std::move(arbeit)]() mutable {
        Ausgang<Wert> ausgang;
        try {
            ausgang.wert = arbeit();
        } catch (...) {
            ausgang.fehler = Hintergrund::fehlersatz();
        }
        return ausgang;
    }));
}

/**
 * Carries progress from a worker to an object on the main thread, in order. What comes faster than it is taken is
 * skipped, but for the newest of each matter in a row. May outlive its receiver, who calls schliessen() first.
 */
class Briefkasten : public std::enable_shared_from_this<Briefkasten>
{
public:
    explicit Briefkasten(QObject *empfaenger) : m_empfaenger(empfaenger) {}

    /** From any thread: has @p brief called on the receiver's thread; @p sache is what it is about. */
    void einwerfen(std::function<void()> brief, const QString &sache = {});
    /** Nothing is delivered from now on. */
    void schliessen();

private:
    void leeren();

    std::mutex m_schloss;
    QObject *m_empfaenger;
    QList<std::pair<QString, std::function<void()>>> m_briefe;
    bool m_unterwegs = false;
};
