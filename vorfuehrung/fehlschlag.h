#pragma once

#include <QString>
#include <stdexcept>

namespace vorfuehrung
{

/** Why the sample archive could not be written; what() is the German sentence as UTF-8. */
class Fehlschlag : public std::runtime_error
{
public:
    explicit Fehlschlag(const QString &satz);
};

/** Writes @p inhalt to @p pfad and makes missing folders. Throws Fehlschlag. */
void dateiSchreiben(const QString &pfad, const QByteArray &inhalt);

/** Makes @p pfad with its parents. Throws Fehlschlag. */
void ordnerAnlegen(const QString &pfad);

} // namespace vorfuehrung
