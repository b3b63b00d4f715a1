#pragma once

#include "fenstersprache.h"
#include "hauptfenster.h"
#include "profil.h"
#include "zustand.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>

using namespace quillmar::ui;

namespace quillmar::vorschau
{
class Vorschau;
} // namespace quillmar::vorschau

/** What the rows with a window have in common: a home with a profile, the window in it, a watch on its event loop. */
namespace Fensterbuehne
{
constexpr int alle = 100'000;
constexpr int wartende = 20'000;
constexpr int blick = 700; // ms that somebody who is quick looks at a page

[[nodiscard]] double millisekunden(const QElapsedTimer &uhr);
/** Lets the event loop run until @p fertig; throws when that takes too long. */
void bis(const std::function<bool()> &fertig);
void warten(int dauer);

/** The application, for rows that are no whole process of their own. */
struct Anwendung {
    int anzahl = 1;
    char name[9] = "quillmar";
    char *argumente[2] = {name, nullptr};
    QApplication programm{anzahl, argumente};
};

/** A home of its own with one profile; the catalogue is filled before the window opens it. */
class Heim
{
public:
    Heim();
    void sichern() const;
    /**
     * Fills the catalogue; @p ersteWartende are the files of the first documents that wait, @p titel has a place for
     * the document's number.
     */
    void belegen(const QStringList &ersteWartende, const QString &titel = QStringLiteral("Brief %1")) const;

    Profil profil;

private:
    QTemporaryDir m_ordner;
};

/** The window as the program opens it. */
struct Fenster {
    Zustand zustand;
    Fenstersprache sprache;
    Hauptfenster fenster{&zustand, &sprache};

    Fenster();
    [[nodiscard]] Vorschau *vorschau() const;
    static void druecken(Qt::Key taste);
};

/** Measures the longest time between two turns of the event loop since it was made or asked. */
class Schleifenwache
{
public:
    Schleifenwache();
    /** In milliseconds; begins anew. */
    double laengste();

private:
    QTimer m_takt;
    QElapsedTimer m_uhr;
    double m_laengste = 0;
};
} // namespace Fensterbuehne
