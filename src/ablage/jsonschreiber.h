#pragma once

#include "namensraeume.h"

#include <QByteArray>
#include <QString>

namespace quillmar::ablage
{
/** Writes one flat object as a line of JSON; for lines by the thousand, where building a QJsonObject takes longest. */
class Jsonschreiber
{
public:
    /** Names of members are plain ASCII without quotes. */
    void text(QByteArrayView name, const QString &wert);
    void zahl(QByteArrayView name, qint64 wert);
    void wahr(QByteArrayView name, bool wert);
    /** @p json is a whole value already. */
    void roh(QByteArrayView name, const QByteArray &json);

    /** The object; nothing can be added afterwards. */
    [[nodiscard]] QByteArray ende();

private:
    void beginnen(QByteArrayView name);
    QByteArray m_bytes;
};
} // namespace quillmar::ablage
