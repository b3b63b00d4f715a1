#include "fehler.h"

Fehler::Fehler(const QString &text) : m_text(text), m_utf8(text.toUtf8()) {}
