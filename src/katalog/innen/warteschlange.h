#pragma once

#include "namensraeume.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace quillmar::katalog
{
/**
 * The serial queue of a catalogue: a lock that lets callers in in the order in which they came, so that a busy worker
 * never starves the window. The thread that holds it may take it again.
 */
class Warteschlange
{
public:
    void betreten();
    void verlassen();
    /** The calling thread holds the queue more than once, so that leaving it once would not let others in. */
    [[nodiscard]] bool verschachtelt();

    class Platz
    {
    public:
        explicit Platz(Warteschlange &schlange) : m_schlange(schlange) { schlange.betreten(); }
        ~Platz()
        {
            if (!m_behalten)
                m_schlange.verlassen();
        }
        Platz(const Platz &) = delete;
        Platz &operator=(const Platz &) = delete;

        /** The place outlives this object; somebody else calls verlassen(). */
        void behalten() { m_behalten = true; }

    private:
        Warteschlange &m_schlange;
        bool m_behalten = false;
    };

private:
    std::mutex m_schloss;
    std::condition_variable m_weiter;
    unsigned long m_naechste = 0;
    unsigned long m_dran = 0;
    std::thread::id m_inhaber;
    int m_tiefe = 0;
};
} // namespace quillmar::katalog
