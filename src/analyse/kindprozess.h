#pragma once

#include "fehler.h"
#include "grenzen.h"
#include "namensraeume.h"

#include <QByteArray>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <stop_token>

namespace quillmar::analyse
{
/** A tool that ended with a failure; its complaint decides what the user is told. */
class Fehlschlag : public Fehler
{
public:
    Fehlschlag(const QString &text, QByteArray beschwerde) : Fehler(text), m_beschwerde(std::move(beschwerde)) {}
    [[nodiscard]] const QByteArray &beschwerde() const { return m_beschwerde; }

private:
    QByteArray m_beschwerde;
};

/** The one place that starts another program and waits for it. Everything blocks. */
namespace Kindprozess
{
struct Auftrag {
    QString pfad;
    QString name; ///< by which messages call it
    QStringList argumente;
    QProcessEnvironment umgebung = QProcessEnvironment::systemEnvironment();
};

/**
 * Runs a program and returns its standard output. It and all it started are killed at a limit, when more than 64 MiB
 * come, when @p ende asks for it, and when this program dies. Throws Fehler when it does not start or runs into a
 * limit, with which one; Fehlschlag when it ends by itself with a status other than 0; and Abbruch when it was to end.
 */
QByteArray ausfuehren(const Auftrag &auftrag, const Grenzen &grenzen, const std::stop_token &ende = {});

/** Says that @p name has run into its limit of memory. */
[[nodiscard]] QString speichersatz(const QString &name, qint64 grenze);
} // namespace Kindprozess
} // namespace quillmar::analyse
