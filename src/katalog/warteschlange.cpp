#include "warteschlange.h"

namespace quillmar::katalog
{
void Warteschlange::betreten()
{
    std::unique_lock sperre(m_schloss);
    if (m_inhaber == std::this_thread::get_id()) {
        ++m_tiefe;
        return;
    }
    const unsigned long nummer = m_naechste++;
    m_weiter.wait(sperre, [&] { return m_dran == nummer && m_tiefe == 0; });
    m_inhaber = std::this_thread::get_id();
    m_tiefe = 1;
}

void Warteschlange::verlassen()
{
    const std::lock_guard sperre(m_schloss);
    if (--m_tiefe > 0)
        return;
    m_inhaber = {};
    ++m_dran;
    m_weiter.notify_all();
}

bool Warteschlange::verschachtelt()
{
    const std::lock_guard sperre(m_schloss);
    return m_inhaber == std::this_thread::get_id() && m_tiefe > 1;
}
} // namespace quillmar::katalog
