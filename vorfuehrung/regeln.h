#pragma once

#include <QJsonObject>
#include <QString>

namespace vorfuehrung
{

/**
 * The answer to a prompt of the program, found by plain rules: layout for date, parties and title, keywords for the
 * place. Names only places that the prompt offers. Which way an invoice goes is not judged here: every one counts as
 * incoming.
 */
[[nodiscard]] QJsonObject antwortAuf(const QString &prompt);

} // namespace vorfuehrung
