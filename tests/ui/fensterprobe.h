#pragma once

#include "fenstersprache.h"
#include "hauptfenster.h"
#include "zustandsprobe.h"

#include <QApplication>

using namespace quillmar::ui;

/** A test of the window on a stage of real files, in German. */
class Fensterprobe : public Zustandsprobe
{
    Q_OBJECT

protected:
    /** The window is there and active; with the stage's profile unless @p mitProfil is false. */
    void oeffnen(bool mitProfil = true);

    /** The visible part called @p name of any open window; null if there is none. */
    template <typename T>
    [[nodiscard]] static T *suchen(QAnyStringView name)
    {
        for (const QWidget *fenster : QApplication::topLevelWidgets()) {
            for (T *kandidat : fenster->findChildren<T *>(name.toString())) {
                if (kandidat->isVisible())
                    return kandidat;
            }
        }
        return nullptr;
    }
    /** The same; ends the test if there is none. */
    template <typename T>
    [[nodiscard]] static T *teil(QAnyStringView name)
    {
        auto *gefunden = suchen<T>(name);
        if (!gefunden)
            qFatal("%s is not there", qPrintable(name.toString()));
        return gefunden;
    }
    static void klicken(QAnyStringView name);
    static void druecken(Qt::Key taste, Qt::KeyboardModifiers dazu = Qt::NoModifier);
    /** A key as the platform delivers it: to the window in front, through the shortcuts, to what is open or focused. */
    void plattformtaste(Qt::Key taste, Qt::KeyboardModifiers dazu = Qt::NoModifier) const;
    /** Goes to the part called @p name by the Tab key alone. */
    static void mitTabZu(QAnyStringView name);
    /** Name of what has the focus. */
    [[nodiscard]] static QString fokus();

    std::unique_ptr<Fenstersprache> m_sprache;
    std::unique_ptr<Hauptfenster> m_fenster;

protected Q_SLOTS:
    void init();
    void cleanup();
};
