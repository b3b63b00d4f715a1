#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QString>
#include <exception>

namespace quillmar::grundlage
{
/** A failure that the user is told about: @c text is the whole sentence, in the user's language. */
class Fehler : public std::exception
{
public:
    explicit Fehler(const QString &text);
    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_text;
    QByteArray m_utf8;
};
} // namespace quillmar::grundlage
