#include "aufrichtung.h"

#include "abbruch.h"
#include "kindprozess.h"
#include "werkzeuge.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
namespace
{
const QString programm = u"quillmar-aufrichten"_s;

/** "skew up-or-down". */
std::optional<Aufrichtung::Lage> lageAus(const QByteArray &ausgabe)
{
    const QList<QByteArray> felder = ausgabe.simplified().split(' ');
    if (felder.size() != 2)
        return std::nullopt;
    return Aufrichtung::Lage{.neigung = felder.at(0).toDouble(), .hochkant = felder.at(1) == "1"};
}
} // namespace

std::optional<Aufrichtung::Lage> Aufrichtung::aufrichten(const QString &bild, int drehung, const Grenzen &grenzen,
                                                         const std::stop_token &ende)
{
    const auto pfad = Werkzeuge::eigenesProgramm(programm);
    if (!pfad)
        return std::nullopt;
    try {
        return lageAus(Kindprozess::ausfuehren({.pfad = *pfad,
                                                .name = programm,
                                                .argumente = {bild, QString::number(drehung)},
                                                .umgebung = Werkzeuge::umgebung()},
                                               grenzen, ende));
    } catch (const Abbruch &) {
        return std::nullopt; // whoever wished it asks himself
    } catch (const Fehler &) {
        return std::nullopt;
    }
}

Vorrichtung::Vorrichtung(const QString &bild, const Grenzen &grenzen)
    : m_lage(std::async(std::launch::async, [bild, grenzen, ende = m_ende.get_token()] {
          return Aufrichtung::aufrichten(bild, 0, grenzen, ende);
      }))
{
}

Vorrichtung::~Vorrichtung() { m_ende.request_stop(); }

Aufrichtung::Lage Vorrichtung::lage(const std::stop_token &ende)
{
    const std::stop_callback mit(ende, [this] { m_ende.request_stop(); });
    return m_lage.get().value_or(Aufrichtung::Lage());
}
} // namespace quillmar::analyse
