#pragma once

#include "namensraeume.h"
#include "wortfolge.h"

#include <QList>
#include <QString>
#include <optional>

namespace quillmar::fundstellen
{
/** Names of people and companies on a page. */
namespace Namensfunde
{
/**
 * The likeliest place of @p name: its words without the legal form, in their order, over line ends and hyphens too,
 * each as recognition may have got it wrong; of two words also the other way round. In the head of the first page
 * sooner than elsewhere, in addresses of the net last.
 */
[[nodiscard]] std::optional<Fundstelle> zu(const QList<Wortfolge> &seiten, const QString &name);
/** As it is written, without what says how a company is constituted: "Meier Bau GmbH & Co. KG" is "Meier Bau". */
[[nodiscard]] QString ohneRechtsform(const QString &name);
} // namespace Namensfunde
} // namespace quillmar::fundstellen
