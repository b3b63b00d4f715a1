#include "fehler.h"

namespace quillmar::grundlage
{
Fehler::Fehler(const QString &text) : m_text(text), m_utf8(text.toUtf8()) {}
} // namespace quillmar::grundlage
