#pragma once

#include <QByteArray>
#include <QList>
#include <functional>
#include <sys/types.h>

/** Commands started as barely as the system allows. */
namespace Kommando
{
struct Ergebnis {
    QByteArray ausgabe;
    long hoechstKb = 0; ///< peak memory of the command
};

/**
 * Runs a command (full path first) and reads its standard output to the end; complaints are dropped. Locale C, one
 * thread per recognition, as the program sets them for its tools. Throws std::runtime_error when it fails.
 */
Ergebnis laufen(const QList<QByteArray> &argumente);

/** A command that stays and answers lines. Ends with the object. */
class Gespraech
{
public:
    explicit Gespraech(const QList<QByteArray> &argumente);
    ~Gespraech();
    Gespraech(const Gespraech &) = delete;
    Gespraech &operator=(const Gespraech &) = delete;

    /** Sends @p frage and reads until @p schluss has come. */
    QByteArray fragen(const QByteArray &frage, const QByteArray &schluss);

private:
    pid_t m_kind = -1;
    int m_hin = -1;
    int m_her = -1;
};
} // namespace Kommando
