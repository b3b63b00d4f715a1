#pragma once

#include "hintergrund.h"
#include "namensraeume.h"

#include <stop_token>

namespace quillmar::grundlage
{
/**
 * A question to a disk, a catalogue or a server of which only the newest counts: asked anew, it overtakes the former
 * one, whose answer is not delivered. It is told to stop when it is overtaken, dropped, or its owner is gone.
 */
class Anfrage
{
public:
    /** Answers are delivered on the thread of @p empfaenger, which owns the question. */
    explicit Anfrage(QObject *empfaenger) : m_empfaenger(empfaenger) {}
    ~Anfrage() { verwerfen(); }
    Anfrage(const Anfrage &) = delete;
    Anfrage &operator=(const Anfrage &) = delete;

    /** Runs @p arbeit on another thread, with a stop token if it takes one, and hands its Ausgang to @p liefern. */
    template <typename Arbeit, typename Lieferung>
    void stellen(Arbeit arbeit, Lieferung liefern)
    {
        verwerfen();
        m_laeuft = true;
        m_ende = std::stop_source();
        const std::stop_token ende = m_ende.get_token();
        imHintergrund(m_empfaenger, mitEnde(std::move(arbeit), ende), [this, ende, liefern](const auto &ausgang) {
            if (ende.stop_requested())
                return; // this may be gone
            m_laeuft = false;
            liefern(ausgang);
        });
    }
    /** Nobody waits for the answer any more. */
    void verwerfen()
    {
        m_laeuft = false;
        m_ende.request_stop();
    }
    [[nodiscard]] bool laeuft() const { return m_laeuft; }

private:
    template <typename Arbeit>
    [[nodiscard]] static auto mitEnde(Arbeit arbeit, const std::stop_token &ende)
    {
        if constexpr (std::is_invocable_v<Arbeit, const std::stop_token &>)
            return [arbeit = std::move(arbeit), ende]() mutable { return arbeit(ende); };
        else
            return arbeit;
    }

    QObject *m_empfaenger;
    std::stop_source m_ende;
    bool m_laeuft = false;
};
} // namespace quillmar::grundlage
