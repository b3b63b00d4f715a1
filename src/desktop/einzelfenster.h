#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QVariantMap>

namespace quillmar::desktop
{
/**
 * One window per user: the first one takes a name on the session bus, a second start wakes it and ends. Without a
 * session bus every start has its window.
 */
class Einzelfenster : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit Einzelfenster(QObject *vater = nullptr);

    /** Takes the name. False when another window of the user has it; it has been asked to come to the front then. */
    [[nodiscard]] bool anmelden(const QString &profil);

public Q_SLOTS:
    // The names that the desktop's interface prescribes; not for callers inside the program.
    void Activate(const QVariantMap &angaben);                                       // NOLINT
    void Open(const QStringList &orte, const QVariantMap &angaben);                  // NOLINT
    void ActivateAction(const QString &, const QVariantList &, const QVariantMap &); // NOLINT

Q_SIGNALS:
    /** Somebody has started the program again, perhaps for a profile. */
    void geweckt(const QString &profil);
};
} // namespace quillmar::desktop
