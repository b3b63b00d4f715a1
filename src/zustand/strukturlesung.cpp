#include "strukturlesung.h"

#include "pfade.h"
#include "profilwahl.h"
#include "sprache.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
Strukturlesung::Strukturlesung(Profilwahl *profilwahl, Einrichtungsstand *stand)
    : m_profilwahl(profilwahl), m_stand(stand), m_frage(this)
{
}

void Strukturlesung::wechseln()
{
    m_frage.verwerfen();
    m_bekanntes = {};
    if (const Profil *profil = m_profilwahl->aktiv())
        m_bekanntes.wurzel = QDir::cleanPath(profil->zielWurzel);
    ordnen();
}

void Strukturlesung::einlesen()
{
    if (!m_profilwahl->aktiv() || m_stand->liestStruktur)
        return;
    m_stand->liestStruktur = true;
    m_stand->strukturmangel.clear();
    const QString wurzel = m_profilwahl->aktiv()->zielWurzel;
    m_frage.stellen(
        [wurzel, eigene = m_profilwahl->aktiv()->eigeneOrdner()]() -> std::optional<QList<Zweig>> {
            if (wurzel.isEmpty() || !istOrdner(QDir::cleanPath(wurzel)))
                return std::nullopt;
            return Profil::struktureinlesen(wurzel, 2, eigene);
        },
        [this, wurzel](const Ausgang<std::optional<QList<Zweig>>> &ausgang) {
            m_stand->liestStruktur = false;
            if (m_profilwahl->aktiv() && m_profilwahl->aktiv()->zielWurzel == wurzel)
                fertig(ausgang.wert.value_or(std::nullopt));
            Q_EMIT gelesen();
        });
    Q_EMIT gelesen();
}

/** What is not there or holds nothing does not take the place of a structure that is known. */
void Strukturlesung::fertig(const std::optional<QList<Zweig>> &zweige)
{
    if (!zweige) {
        m_stand->strukturmangel = Sprache::text(u"Der Zielordner ist nicht erreichbar."_s);
        return m_profilwahl->bereitschaftPruefen();
    }
    if (!zweige->isEmpty())
        return uebernehmen(*zweige);
    m_stand->strukturmangel =
        m_profilwahl->aktiv()->zweige.isEmpty()
            ? Sprache::text(u"Hier liegt noch keine Struktur. Lege im Zielordner Zweige, darin Ablagen und darin "
                            "Rubriken an, etwa Haushalt/Jahresablage/2024/Rechnungen, und lies dann ein."_s)
            : Sprache::text(u"Hier liegt keine Struktur. Die bisherige gilt weiter."_s);
}

void Strukturlesung::uebernehmen(const QList<Zweig> &zweige)
{
    m_bekanntes.wurzel = QDir::cleanPath(m_profilwahl->aktiv()->zielWurzel);
    m_stand->strukturAlt = false;
    m_bekanntes.vorher = m_profilwahl->aktiv()->zweige;
    m_bekanntes.gezeigt.reset();
    m_stand->geradeGelesen = !m_bekanntes.vorher.isEmpty();
    Profil neu = *m_profilwahl->aktiv();
    neu.zweige = zweige;
    if (neu == *m_profilwahl->aktiv())
        ordnen();
    else
        m_profilwahl->setzeProfil(neu);
}

void Strukturlesung::vergleichen()
{
    const Profil *profil = m_profilwahl->aktiv();
    m_stand->strukturAlt = profil && !profil->zweige.isEmpty() && !profil->zielWurzel.isEmpty() &&
                           QDir::cleanPath(profil->zielWurzel) != m_bekanntes.wurzel;
    ordnen();
}

void Strukturlesung::ordnen()
{
    const QList<Zweig> jetzt = m_profilwahl->aktiv() ? m_profilwahl->aktiv()->zweige : QList<Zweig>();
    if (m_bekanntes.gezeigt == jetzt)
        return;
    m_bekanntes.gezeigt = jetzt;
    m_stand->struktur = strukturzeilen(m_bekanntes.vorher, jetzt);
    m_stand->zahlen = strukturzahlen(m_stand->struktur);
    Q_EMIT geordnet();
}
} // namespace quillmar::zustand
