#include "lauf.h"

#include "restzeit.h"

Lauf::Lauf(std::shared_ptr<Datenbank> db, Profil profil, std::function<bool()> halt, std::stop_token ende,
           Melden melden)
    : m_db(std::move(db)), m_profil(std::move(profil)), m_halt(std::move(halt)), m_ende(std::move(ende)),
      m_melden(std::move(melden)), m_beginn(std::chrono::steady_clock::now())
{
}

void Lauf::stufe(const QString &name)
{
    m_beginn = std::chrono::steady_clock::now();
    m_stand = {.stufe = name, .meldung = {}, .restzeit = {}, .anteil = 0};
    m_melden(m_stand);
}

void Lauf::meldung(const QString &text)
{
    m_stand.meldung = text;
    m_melden(m_stand);
}

void Lauf::fortschritt(const QString &text, qsizetype fertig, qsizetype gesamt)
{
    m_stand.meldung = text;
    m_stand.anteil = gesamt > 0 ? double(fertig) / double(gesamt) : 1;
    m_stand.restzeit = restzeitText(std::chrono::steady_clock::now() - m_beginn, fertig, gesamt);
    m_melden(m_stand);
}
