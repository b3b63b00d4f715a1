#pragma once

#include "namensraeume.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <variant>

namespace quillmar::katalog
{
/** A column value: nothing (SQL NULL), text, whole number or floating-point number. */
using Wert = std::variant<std::monostate, QString, qint64, double>;

/**
 * One result row. All rows of a query share one table of column names. The readers tolerate any type and a column that
 * the query did not select.
 */
class Zeile
{
public:
    using Spalten = std::shared_ptr<const QStringList>;

    Zeile(Spalten spalten, QList<Wert> werte) : m_spalten(std::move(spalten)), m_werte(std::move(werte)) {}

    /** A number, truncated toward zero; a text if it is a decimal integer; else 0. */
    [[nodiscard]] qint64 ganz(QStringView name) const;
    /** A number; a text if it is a decimal number; else 0. */
    [[nodiscard]] double komma(QStringView name) const;
    /** A text that is not empty; else none. */
    [[nodiscard]] std::optional<QString> textOderNil(QStringView name) const;
    /** The text; empty for any other value. */
    [[nodiscard]] QString text(QStringView name) const;
    /** The value as it is; nothing for a missing column. */
    [[nodiscard]] const Wert &wert(QStringView name) const;

private:
    Spalten m_spalten;
    QList<Wert> m_werte;
};
} // namespace quillmar::katalog
