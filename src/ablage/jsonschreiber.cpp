#include "jsonschreiber.h"

namespace quillmar::ablage
{
namespace
{
constexpr qsizetype ueblicheLaenge = 512;

bool istAuszuzeichnen(char c) { return c == '"' || c == '\\' || uchar(c) < 0x20; }

void zeichen(QByteArray &bytes, char c)
{
    if (c == '"' || c == '\\')
        bytes.append('\\').append(c);
    else if (c == '\n')
        bytes.append("\\n");
    else if (istAuszuzeichnen(c))
        bytes.append("\\u00").append(QByteArray::number(int(uchar(c)), 16).rightJustified(2, '0'));
    else
        bytes.append(c);
}
} // namespace

void Jsonschreiber::beginnen(QByteArrayView name)
{
    if (m_bytes.isEmpty())
        m_bytes.reserve(ueblicheLaenge);
    m_bytes.append(m_bytes.isEmpty() ? '{' : ',').append('"').append(name).append("\":");
}

void Jsonschreiber::text(QByteArrayView name, const QString &wert)
{
    beginnen(name);
    m_bytes.append('"');
    const QByteArray utf8 = wert.toUtf8();
    if (std::none_of(utf8.begin(), utf8.end(), istAuszuzeichnen)) {
        m_bytes.append(utf8);
    } else {
        for (const char c : utf8)
            zeichen(m_bytes, c);
    }
    m_bytes.append('"');
}

void Jsonschreiber::zahl(QByteArrayView name, qint64 wert)
{
    beginnen(name);
    m_bytes.append(QByteArray::number(wert));
}

void Jsonschreiber::wahr(QByteArrayView name, bool wert)
{
    beginnen(name);
    m_bytes.append(wert ? "true" : "false");
}

void Jsonschreiber::roh(QByteArrayView name, const QByteArray &json)
{
    beginnen(name);
    m_bytes.append(json);
}

QByteArray Jsonschreiber::ende() { return m_bytes.isEmpty() ? "{}" : m_bytes.append('}'); }
} // namespace quillmar::ablage
