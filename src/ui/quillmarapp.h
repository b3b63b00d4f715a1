#pragma once

#include "teile.h"

#include <QApplication>
#include <memory>

namespace quillmar::desktop
{
class Einzelfenster;
} // namespace quillmar::desktop

namespace quillmar::ui
{
class Hauptfenster;

/** The windowed application: the one state object, the language, the main window. */
class QuillmarApp : public QApplication
{
    Q_OBJECT

public:
    QuillmarApp(int &anzahl, char **argumente);
    ~QuillmarApp() override;

    /**
     * Opens the window with the profile called @p profil, the first one when empty. Returns the exit status, at once
     * when the user has a window already, which then comes to the front.
     */
    int laufen(const QString &profil);

private:
    void nachVorn(const QString &profil);

    std::unique_ptr<Einzelfenster> m_einzeln;
    std::unique_ptr<Zustand> m_zustand;
    std::unique_ptr<Fenstersprache> m_sprache;
    std::unique_ptr<Hauptfenster> m_fenster;
};
} // namespace quillmar::ui
