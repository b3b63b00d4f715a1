#include "malreihe.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace quillmar::seiten
{
void Malreihe::starten(const std::shared_ptr<Malreihe> &reihe)
{
    reihe->m_laeuft = true;
    std::thread([reihe] { reihe->arbeiten(); }).detach();
}

void Malreihe::auftragen(Malauftrag auftrag)
{
    const std::lock_guard halter(m_sperre);
    if (m_schluss)
        return;
    if (auftrag.seite >= 0) {
        m_auftraege.removeIf([&auftrag](const Malauftrag &anderer) {
            return anderer.kennung == auftrag.kennung && anderer.seite == auftrag.seite;
        });
    }
    const auto stelle =
        std::upper_bound(m_auftraege.begin(), m_auftraege.end(), auftrag.vorrang,
                         [](int vorrang, const Malauftrag &anderer) { return vorrang < anderer.vorrang; });
    m_auftraege.insert(stelle, std::move(auftrag));
    m_neues.notify_one();
}

void Malreihe::verwerfen(quint64 kennung, int abSeite)
{
    const std::lock_guard halter(m_sperre);
    m_auftraege.removeIf([kennung, abSeite](const Malauftrag &auftrag) {
        return auftrag.kennung == kennung && auftrag.seite >= abSeite;
    });
}

void Malreihe::beenden(std::chrono::milliseconds geduld)
{
    std::unique_lock halter(m_sperre);
    m_schluss = true;
    m_auftraege.clear();
    m_neues.notify_one();
    m_ende.wait_for(halter, geduld, [this] { return !m_laeuft; });
}

void Malreihe::arbeiten()
{
    {
        OffeneDokumente dokumente;
        for (Malauftrag auftrag; naechster(auftrag);)
            auftrag.tun(dokumente);
    }
    const std::lock_guard halter(m_sperre);
    m_laeuft = false;
    m_ende.notify_one();
}

bool Malreihe::naechster(Malauftrag &auftrag)
{
    std::unique_lock halter(m_sperre);
    m_neues.wait(halter, [this] { return m_schluss || !m_auftraege.isEmpty(); });
    if (m_schluss)
        return false;
    auftrag = m_auftraege.takeFirst();
    return true;
}
} // namespace quillmar::seiten
