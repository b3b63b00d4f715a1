#include "modellverzeichnis.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
/** Says anything at all; a server that computes the model itself leaves the member out or empty. */
bool besagt(const QJsonValue &wert) { return !wert.isUndefined() && !wert.isNull() && wert != QJsonValue(QString()); }

/** As the server completes a name: without the host and owner that it takes for granted, always with a tag. */
QString vollerName(const QString &modell)
{
    QString name = modell.trimmed().toCaseFolded();
    if (const qsizetype schema = name.indexOf("://"_L1); schema >= 0)
        name = name.mid(schema + 3);
    for (const QString &ueblich : {u"registry.ollama.ai/"_s, u"library/"_s}) {
        if (name.startsWith(ueblich))
            name = name.mid(ueblich.size());
    }
    return name.lastIndexOf(u':') > name.lastIndexOf(u'/') ? name : name + u":latest"_s;
}
} // namespace

Modellverzeichnis Modellverzeichnis::aus(const QByteArray &antwort)
{
    Modellverzeichnis liste;
    for (const QJsonValue eintrag : QJsonDocument::fromJson(antwort).object().value("models"_L1).toArray()) {
        const QJsonObject modell = eintrag.toObject();
        liste.m_vollstaendig = liste.m_vollstaendig && modell.value("name"_L1).isString();
        liste.m_modelle << Modell{.name = modell.value("name"_L1).toString(modell.value("model"_L1).toString()),
                                  .anderswo = besagt(modell.value("remote_host"_L1)) ||
                                              besagt(modell.value("remote_model"_L1))};
    }
    return liste;
}

QStringList Modellverzeichnis::namen() const
{
    QStringList liste;
    for (const Modell &modell : m_modelle)
        liste << modell.name;
    return liste;
}

std::optional<QString> Modellverzeichnis::treffer(const QString &gesucht) const
{
    const QStringList alle = namen();
    for (const QString &genau : {gesucht, QString(gesucht + u":latest"_s)}) {
        if (alle.contains(genau))
            return genau;
    }
    const QStringList gemeinte = alle.filter(QRegularExpression(u'^' + QRegularExpression::escape(gesucht) + u':'));
    const auto hiesiges =
        std::find_if(gemeinte.begin(), gemeinte.end(), [this](const QString &name) { return !rechnetAnderswo(name); });
    if (hiesiges != gemeinte.end())
        return *hiesiges;
    return gemeinte.isEmpty() ? std::nullopt : std::optional(gemeinte.first());
}

std::optional<QString> Modellverzeichnis::treffer(const QStringList &namen, const QString &gesucht)
{
    Modellverzeichnis liste;
    for (const QString &name : namen)
        liste.m_modelle << Modell{.name = name};
    return liste.treffer(gesucht);
}

bool Modellverzeichnis::rechnetAnderswo(const QString &modell) const
{
    const QString voll = vollerName(modell);
    return heisstAnderswo(modell) || std::any_of(m_modelle.begin(), m_modelle.end(), [&](const Modell &m) {
               return m.anderswo && vollerName(m.name) == voll;
           });
}

bool Modellverzeichnis::heisstAnderswo(const QString &modell)
{
    return modell.trimmed().endsWith("cloud"_L1, Qt::CaseInsensitive);
}
} // namespace quillmar::analyse
