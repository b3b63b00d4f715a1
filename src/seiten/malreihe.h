#pragma once

#include "namensraeume.h"

#include <QHash>
#include <QList>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace quillmar::seiten
{
/** A document that is open. Only the queue's own thread touches it. */
struct OffenesDokument;
using OffeneDokumente = QHash<quint64, std::shared_ptr<OffenesDokument>>;

/** A piece of work for the queue. */
struct Malauftrag {
    int vorrang = 0;     ///< the smallest is done first
    quint64 kennung = 0; ///< document
    int seite = -1;      ///< replaces what is asked for the same page and not yet begun; -1: replaces nothing
    std::function<void(OffeneDokumente &)> tun;
};

/**
 * The one thread that all work on PDF documents is done in. PDFium lets nobody in while it draws, and its lock is not
 * fair: a single question asked from the main thread can wait for many pages.
 */
class Malreihe
{
public:
    Malreihe() = default;
    Malreihe(const Malreihe &) = delete;
    Malreihe &operator=(const Malreihe &) = delete;

    /** Works off @p reihe in a thread of its own until beenden(); the thread holds the queue as long as it needs it. */
    static void starten(const std::shared_ptr<Malreihe> &reihe);

    void auftragen(Malauftrag auftrag);

    /** Drops what is asked for @p kennung and not yet begun; from @p abSeite 0 on: the pages alone. */
    void verwerfen(quint64 kennung, int abSeite = -1);

    /** Drops everything and waits at most @p geduld for the piece in hand. A thread that hangs is left to itself. */
    void beenden(std::chrono::milliseconds geduld);

private:
    void arbeiten();
    [[nodiscard]] bool naechster(Malauftrag &auftrag);

    std::mutex m_sperre;
    std::condition_variable m_neues;
    std::condition_variable m_ende;
    QList<Malauftrag> m_auftraege; ///< by priority, then as they came
    bool m_schluss = false;
    bool m_laeuft = false;
};
} // namespace quillmar::seiten
