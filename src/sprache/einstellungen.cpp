#include "einstellungen.h"

#include <QSettings>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
QSettings ablage() { return QSettings(QSettings::NativeFormat, QSettings::UserScope, u"Quillmar"_s, u"Quillmar"_s); }
} // namespace

QVariant Einstellungen::wert(const QString &schluessel, const QVariant &vorgabe)
{
    return ablage().value(schluessel, vorgabe);
}

void Einstellungen::setzen(const QString &schluessel, const QVariant &wert)
{
    if (wert.isValid())
        ablage().setValue(schluessel, wert);
    else
        entfernen(schluessel);
}

void Einstellungen::entfernen(const QString &schluessel) { ablage().remove(schluessel); }
} // namespace quillmar::sprache
