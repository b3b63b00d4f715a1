#pragma once

#include "profil.h"

#include <QProcess>
#include <QStringList>

using namespace quillmar::app;

/** The built program, run on a program folder of the test's own. */
class Programm
{
public:
    /** @p daten stands for the user's data folder, @p port for the model server's port (one that nobody listens on). */
    explicit Programm(const QString &daten, quint16 port = 9);

    struct Ende {
        int status = -1;
        QString ausgabe;
        QString meldungen;
    };
    /** Runs to the end while the event loop of the test goes on; killed after @p hoechstens ms (0: never). */
    [[nodiscard]] Ende laufen(const QStringList &argumente, int hoechstens = 0);
    /** Starts without waiting. */
    void starten(const QStringList &argumente);
    [[nodiscard]] QProcess &prozess() { return m_prozess; }

    void profileSchreiben(const QList<Profil> &profile) const;
    [[nodiscard]] QString katalog(const Profil &profil) const;
    [[nodiscard]] QString ordner() const { return m_daten + QStringLiteral("/Quillmar"); }

private:
    QString m_daten;
    QProcess m_prozess;
};

/** Every row of every table as text, the columns @p ohne left out. */
[[nodiscard]] QStringList auszug(const QString &katalog, const QStringList &ohne = {});
