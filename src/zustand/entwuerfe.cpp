#include "entwuerfe.h"

#include "entwurfstexte.h"
#include "hintergrund.h"
#include "katalog.h"
#include "stapel.h"

#include <mutex>
#include <utility>

using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto schreibpause = 400ms; // of the keys, before what was typed is stored

void schreiben(Datenbank &db, const QHash<qint64, QByteArray> &aenderungen)
{
    Stapel stapel(db);
    for (auto it = aenderungen.begin(); it != aenderungen.end(); ++it) {
        stapel.naechstes();
        Entwurfstexte(db).speichern(it.key(), it.value());
    }
    stapel.abschliessen();
}
} // namespace

/** Where drafts wait to be written; whoever writes takes all of them, so that none overtakes a later one. */
struct Entwuerfe::Schreibstube {
    explicit Schreibstube(std::shared_ptr<Datenbank> katalog) : db(std::move(katalog)) {}

    void leeren()
    {
        const std::lock_guard nacheinander(amSchreiben);
        std::unique_lock sperre(schloss);
        const QHash<qint64, QByteArray> aenderungen = std::exchange(offene, {});
        sperre.unlock();
        try {
            zustand::schreiben(*db, aenderungen);
        } catch (...) { // they stay in memory, and are tried again with the next one
            sperre.lock();
            for (auto it = aenderungen.begin(); it != aenderungen.end(); ++it) {
                if (!offene.contains(it.key()))
                    offene.insert(it.key(), it.value());
            }
        }
    }

    std::shared_ptr<Datenbank> db;
    std::mutex amSchreiben;
    std::mutex schloss;
    QHash<qint64, QByteArray> offene; ///< an empty one is to be deleted
};

Entwurfsliste entwuerfeLesen(Datenbank &db)
{
    Entwurfsliste liste;
    const QHash<qint64, QByteArray> texte = Entwurfstexte(db).alle();
    for (auto it = texte.begin(); it != texte.end(); ++it) {
        const Entwurf entwurf = Entwurf::aus(it.value());
        if (!entwurf.leer())
            liste.insert(it.key(), entwurf);
    }
    return liste;
}

Entwuerfe::Entwuerfe(QObject *vater) : QObject(vater)
{
    m_takt.setSingleShot(true);
    m_takt.setInterval(schreibpause);
    connect(&m_takt, &QTimer::timeout, this, &Entwuerfe::sichern);
}

void Entwuerfe::wechseln(const QUuid &id, const std::shared_ptr<Datenbank> &db, const Entwurfsliste &gelesene)
{
    sichern();
    m_id = id;
    m_stube = db && !Katalog::nurLesen(*db) ? std::make_shared<Schreibstube>(db) : nullptr;
    Entwurfsliste &liste = m_listen[id];
    for (auto it = gelesene.begin(); it != gelesene.end(); ++it) {
        if (!liste.contains(it.key()))
            liste.insert(it.key(), it.value());
    }
}

const Entwurf *Entwuerfe::suchen(qint64 dokument) const
{
    const auto liste = m_listen.constFind(m_id);
    if (liste == m_listen.cend())
        return nullptr;
    const auto stelle = liste->constFind(dokument);
    return stelle == liste->cend() ? nullptr : &*stelle;
}

Entwurf &Entwuerfe::aendern(qint64 dokument)
{
    vormerken(dokument);
    return m_listen[m_id][dokument];
}

void Entwuerfe::verwerfen(qint64 dokument)
{
    if (m_listen[m_id].remove(dokument))
        vormerken(dokument);
}

void Entwuerfe::vormerken(qint64 dokument)
{
    m_offene << dokument;
    m_takt.start();
}

void Entwuerfe::sichern()
{
    m_takt.stop();
    const QSet<qint64> offene = std::exchange(m_offene, {});
    if (offene.isEmpty() || !m_stube)
        return;
    const std::lock_guard sperre(m_stube->schloss);
    for (const qint64 dokument : offene) {
        const Entwurf *entwurf = suchen(dokument);
        m_stube->offene.insert(dokument, entwurf ? entwurf->json() : QByteArray());
    }
    Hintergrund::starten([stube = m_stube] { stube->leeren(); });
}
} // namespace quillmar::zustand
