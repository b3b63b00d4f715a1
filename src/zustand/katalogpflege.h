#pragma once

#include "anfrage.h"
#include "katalogstand.h"
#include "namensraeume.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <stop_token>

namespace quillmar::zustand
{
class Meldestelle;
class Profilwahl;

/**
 * Looks after the catalogue of the active profile: whether its file is whole, and that there is a copy of each day. All
 * of it happens beside the work; only a catalogue that was left by a crash is looked at before it opens.
 */
class Katalogpflege : public QObject
{
    Q_OBJECT

public:
    Katalogpflege(Profilwahl *profilwahl, Meldestelle *meldestelle);

    [[nodiscard]] const Katalogstand &stand() const { return m_stand; }

Q_SIGNALS:
    void geaendert();

private:
    void beginnen();
    void pflegen();
    void nachsehen();
    void stellen(const std::function<Katalogstand(const std::stop_token &)> &arbeit);
    void auflisten();
    void setzeStand(const Katalogstand &stand);
    void aufnehmen(const Katalogstand &stand);

    Profilwahl *m_profilwahl;
    Meldestelle *m_meldestelle;
    Katalogstand m_stand;
    Anfrage m_pflege;
    Anfrage m_liste;
    QTimer m_takt;
};
} // namespace quillmar::zustand
