#pragma once

#include "namensraeume.h"

#include <QObject>
#include <QStringList>

class QThread;

namespace quillmar::zustand
{
/**
 * Tells that something happens in folders, as far as the system tells it: changes that another computer makes on a
 * network drive, and what is beyond the number of folders that may be watched, go unnoticed. To begin watching may take
 * long there, so all of it is done on a thread of its own.
 */
class Ordnerwache : public QObject
{
    Q_OBJECT

public:
    explicit Ordnerwache(QObject *vater);
    /** Waits for a moment only; a thread that a drive keeps waiting is left behind. */
    ~Ordnerwache() override;

    /** From now on these folders and no others; full paths. Returns at once. */
    void beobachten(const QStringList &ordner);

Q_SIGNALS:
    void geaendert(); ///< an entry has come, gone or been renamed

private:
    class Beobachter;

    QStringList m_ordner;
    QThread *m_faden = nullptr; ///< none before the first folder
    Beobachter *m_beobachter = nullptr;
};
} // namespace quillmar::zustand
