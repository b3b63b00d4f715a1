#include "profilsicherung.h"

#include "sprache.h"
#include "text.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
namespace
{
constexpr auto geduldAmEnde = 1s;

/** What is stored, if it is something else than what is known. */
struct Gelesen {
    QDateTime von; // the file is never changed in place
    QList<Profil> profile;

    static Gelesen seit(const QDateTime &bekannt, const QList<Profil> &stand)
    {
        Gelesen gelesen{.von = QFileInfo(Profilspeicher::datei()).lastModified(), .profile = {}};
        if (gelesen.von != bekannt)
            gelesen.profile = Profilspeicher::laden();
        if (gelesen.profile == stand)
            gelesen.profile.clear();
        return gelesen;
    }
};
} // namespace

Profilsicherung::Profilsicherung(QObject *vater) : QObject(vater), m_lesung(this) {}

Profilsicherung::~Profilsicherung()
{
    if (m_laeuft)
        Hintergrund::warten(geduldAmEnde);
    // What failed is tried once more; to repeat what was saved but not reported yet does no harm.
    if (m_dazu || m_laeuft || m_gescheitert)
        Profilspeicher::sichern(m_wunsch, m_stand);
}

void Profilsicherung::sichern(const QList<Profil> &profile)
{
    m_wunsch = profile;
    m_dazu = true;
    m_lesung.verwerfen(); // what it finds is older than the wish
    // At the end of the event, so that a burst of changes is one saving.
    QMetaObject::invokeMethod(this, &Profilsicherung::starten, Qt::QueuedConnection);
}

void Profilsicherung::nachlesen()
{
    if (offen() || m_gescheitert || m_lesung.laeuft())
        return;
    m_lesung.stellen([stand = m_stand, bekannt = m_gelesenVon] { return Gelesen::seit(bekannt, stand); },
                     [this](const Ausgang<Gelesen> &ausgang) {
                         if (offen() || !ausgang.wert)
                             return;
                         m_gelesenVon = ausgang.wert->von;
                         // An empty list may be one that cannot be read.
                         if (ausgang.wert->profile.isEmpty())
                             return;
                         m_stand = ausgang.wert->profile;
                         Q_EMIT gesichert(m_stand);
                     });
}

void Profilsicherung::starten()
{
    if (m_laeuft || !m_dazu)
        return;
    m_laeuft = true;
    m_dazu = false;
    m_unterwegs = m_wunsch;
    imHintergrund(
        this, [neu = m_unterwegs, stand = m_stand] { return Profilspeicher::sichern(neu, stand); },
        [this](const Ausgang<Profilspeicher::Gesichert> &ausgang) {
            m_laeuft = false;
            ausliefern(ausgang.wert.value_or(Profilspeicher::Gesichert{}));
        });
}

void Profilsicherung::ausliefern(const Profilspeicher::Gesichert &ergebnis)
{
    if (!ergebnis.beiseite.isEmpty())
        Q_EMIT gemeldet(
            gefuellt(Sprache::text(u"Die bisherige Profilliste war nicht lesbar und liegt jetzt hier: %@"_s),
                     {ergebnis.beiseite}));
    m_gescheitert = !ergebnis.gelungen;
    if (!ergebnis.gelungen) {
        Q_EMIT gemeldet(Sprache::text(u"Die Einstellungen ließen sich nicht speichern. Ist die Platte voll?"_s));
        if (m_dazu)
            starten();
        return;
    }
    m_stand = m_dazu ? m_unterwegs : ergebnis.profile;
    if (m_dazu)
        return starten();
    Q_EMIT gesichert(ergebnis.profile);
}
} // namespace quillmar::zustand
