#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QVariantMap>
#include <chrono>

class QWidget;

namespace quillmar::zustand
{
class Durchgang;
} // namespace quillmar::zustand

namespace quillmar::ui
{
/**
 * Tells on the desktop that a long run has ended while the user is at something else: counts only, no word of a
 * document. Without a notification service only the window's entry in the task bar asks for attention. Never blocks.
 */
class Laufnachricht : public QObject
{
    Q_OBJECT

public:
    static constexpr std::chrono::milliseconds ueblich = std::chrono::minutes(1);

    /** Runs shorter than @p ab are not worth a message. Both others outlive it. */
    Laufnachricht(Durchgang *durchgang, QWidget *fenster, std::chrono::milliseconds ab = ueblich);

Q_SIGNALS:
    void angeklickt();

private Q_SLOTS:
    void marke(uint nummer, const QString &marke);
    void aktion(uint nummer, const QString &name);

private:
    void melden();
    void senden(const QString &titel, const QString &text);
    void zuruecknehmen();

    Durchgang *m_durchgang;
    QWidget *m_fenster;
    std::chrono::milliseconds m_ab;
    uint m_nummer = 0; ///< of the message on show; 0 if none
};
} // namespace quillmar::ui
