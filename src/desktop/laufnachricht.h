#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QVariantMap>
#include <chrono>

namespace quillmar::zustand
{
class Durchgang;
} // namespace quillmar::zustand

namespace quillmar::desktop
{
/**
 * Tells on the desktop that a long run has ended while the user is at something else: counts only, no word of a
 * document. Never blocks, and needs no notification service: the window can ask for attention by itself.
 */
class Laufnachricht : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds ueblich = std::chrono::minutes(1);

    /** Runs shorter than @p ab are not worth a message. */
    Laufnachricht(Durchgang *durchgang, QObject *vater, std::chrono::milliseconds ab = ueblich);

Q_SIGNALS:
    void gemeldet(); ///< there is something to tell, whether or not anybody shows it
    void angeklickt();

private Q_SLOTS:
    void marke(uint nummer, const QString &marke);
    void aktion(uint nummer, const QString &name);

private:
    void melden();
    void senden(const QString &titel, const QString &text);
    void zuruecknehmen();

    Durchgang *m_durchgang;
    std::chrono::milliseconds m_ab;
    uint m_nummer = 0; ///< of the message on show; 0 if none
};
} // namespace quillmar::desktop
