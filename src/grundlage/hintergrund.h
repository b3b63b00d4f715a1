#pragma once

#include "briefkasten.h"
#include "namensraeume.h"

#include <chrono>
#include <exception>
#include <type_traits>

namespace quillmar::grundlage
{
/** Work off the main thread. */
namespace Hintergrund
{
/** Has @p arbeit done on another thread; what it throws is lost. Never waits for one to be free. */
void starten(std::function<void()> arbeit);

/**
 * Does @p arbeit on a thread that stands back behind whatever else wants the processor, and waits for it; throws what
 * it throws. For what reads or writes much and nobody waits for.
 */
void hintanstellen(const std::function<void()> &arbeit);

/** Waits until no work is under way, at most @p laengstens. False when some still is. */
bool warten(std::chrono::milliseconds laengstens);
} // namespace Hintergrund

/** What blocking work came to: its value, or what it has thrown. */
template <typename T>
struct Ausgang {
    std::optional<T> wert;
    std::exception_ptr fehler;
};

/**
 * Runs @p arbeit (values in, value out) on another thread and hands its Ausgang to @p liefern on the thread of
 * @p empfaenger; nothing is delivered once the receiver is gone.
 */
template <typename Arbeit, typename Lieferung>
void imHintergrund(QObject *empfaenger, Arbeit arbeit, Lieferung liefern)
{
    using Wert = std::invoke_result_t<Arbeit>;
    Hintergrund::starten([briefe = Briefkasten::fuer(empfaenger), arbeit = std::move(arbeit), liefern]() mutable {
        Ausgang<Wert> ausgang;
        try {
            ausgang.wert = arbeit();
        } catch (...) {
            ausgang.fehler = std::current_exception();
        }
        briefe->einwerfen([ausgang = std::move(ausgang), liefern] { liefern(ausgang); });
    });
}
} // namespace quillmar::grundlage
