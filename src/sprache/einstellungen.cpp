#include "einstellungen.h"

#include <QHash>
#include <QSettings>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

namespace quillmar::sprache
{
namespace
{
/** What could not be written yet: it holds all the same, and is written with the next one. */
struct Rueckstand {
    std::mutex sperre;
    QHash<QString, QVariant> werte;
    bool gesagt = false;
    std::function<void()> beschwerde;
};

Rueckstand &rueckstand()
{
    static Rueckstand r;
    return r;
}

QSettings ablage() { return QSettings(QSettings::NativeFormat, QSettings::UserScope, u"Quillmar"_s, u"Quillmar"_s); }

bool geschrieben(const QHash<QString, QVariant> &werte)
{
    QSettings datei = ablage();
    for (auto w = werte.begin(); w != werte.end(); ++w) {
        if (w.value().isValid())
            datei.setValue(w.key(), w.value());
        else
            datei.remove(w.key());
    }
    datei.sync();
    return datei.status() == QSettings::NoError;
}
} // namespace

QVariant Einstellungen::wert(const QString &schluessel, const QVariant &vorgabe)
{
    {
        const std::lock_guard halter(rueckstand().sperre);
        if (const auto offen = rueckstand().werte.constFind(schluessel); offen != rueckstand().werte.constEnd())
            return offen->isValid() ? *offen : vorgabe;
    }
    return ablage().value(schluessel, vorgabe);
}

void Einstellungen::setzen(const QString &schluessel, const QVariant &wert)
{
    Rueckstand &r = rueckstand();
    std::function<void()> beschwerde;
    {
        const std::lock_guard halter(r.sperre);
        r.werte.insert(schluessel, wert);
        if (geschrieben(r.werte)) {
            r.werte.clear();
            r.gesagt = false;
        } else if (!std::exchange(r.gesagt, true)) {
            beschwerde = r.beschwerde;
        }
    }
    if (beschwerde)
        beschwerde();
}

void Einstellungen::entfernen(const QString &schluessel) { setzen(schluessel, {}); }

void Einstellungen::setzeBeschwerde(const std::function<void()> &beschwerde)
{
    const std::lock_guard halter(rueckstand().sperre);
    rueckstand().beschwerde = beschwerde;
}
} // namespace quillmar::sprache
