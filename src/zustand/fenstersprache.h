#pragma once

#include "namensraeume.h"
#include "wahleintrag.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <QTranslator>

namespace quillmar::zustand
{
/** The language of the window: the program's own texts, Qt's own (standard buttons, dialogs) and number formats. */
class Fenstersprache : public QObject
{
    Q_OBJECT

public:
    /** Puts the language in effect; needs an application object. */
    explicit Fenstersprache(QObject *vater = nullptr);

    /** The stored choice; empty: follow the system. */
    [[nodiscard]] QString kennung() const;
    void waehlen(const QString &kennung);
    /** What lies in the folders now, the system's language first. German is always among them. */
    [[nodiscard]] static QList<Wahleintrag> auswahl();

Q_SIGNALS:
    /** Every text is to be looked up anew. */
    void gewechselt();

private:
    void laden();
    void beobachten();
    void auffrischen();

    QTranslator m_qt;
    QFileSystemWatcher m_waechter; ///< of the file in use and its folder
    QTimer m_takt;
};
} // namespace quillmar::zustand
