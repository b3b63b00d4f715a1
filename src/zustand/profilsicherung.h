#pragma once

#include "anfrage.h"
#include "namensraeume.h"
#include "profilspeicher.h"

#include <QDateTime>
#include <QObject>

namespace quillmar::zustand
{
/**
 * Saves the profile list off the main thread, one saving after the other, each with all changes made until then.
 * Nothing is lost at the end of the program: the destructor saves what is still open.
 */
class Profilsicherung : public QObject
{
    Q_OBJECT

public:
    explicit Profilsicherung(QObject *vater = nullptr);
    ~Profilsicherung() override;

    /** The list as it is stored now. */
    void setzeStand(const QList<Profil> &stand) { m_stand = stand; }
    /** Saves @p profile soon; several calls in a row become one saving. */
    void sichern(const QList<Profil> &profile);
    /** Looks for what other programs have stored meanwhile; gesichert() tells of it. Nothing while a saving is open. */
    void nachlesen();
    [[nodiscard]] bool offen() const { return m_laeuft || m_dazu; }

Q_SIGNALS:
    /** All is saved; @p profile is the stored list, with what other programs have changed meanwhile. */
    void gesichert(const QList<Profil> &profile);
    /** The list could not be written, or an unreadable one was kept aside; a sentence for the user. */
    void gemeldet(const QString &satz);

private:
    void starten();
    void ausliefern(const Profilspeicher::Gesichert &ergebnis);

    QList<Profil> m_stand;     ///< as stored, or as handed over by the saving before
    QList<Profil> m_wunsch;    ///< as it shall be
    QList<Profil> m_unterwegs; ///< as the running saving writes it
    QDateTime m_gelesenVon;    ///< when the file was written that nachlesen() has read last
    Anfrage m_lesung;
    bool m_laeuft = false;
    bool m_gescheitert = false; ///< the last saving
    bool m_dazu = false;        ///< something was changed since the running saving began
};
} // namespace quillmar::zustand
