#include "schriftgroesse.h"

#include "einstellungen.h"
#include "kleiderordnung.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QApplication>
#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr auto schluesselSchrift = "schriftgroesse"_L1;

std::optional<double> gespeicherte()
{
    bool zahl = false;
    const double punkte = Einstellungen::wert(schluesselSchrift).toDouble(&zahl);
    return zahl && std::isfinite(punkte) ? std::optional(punkte) : std::nullopt;
}

double begrenzt(double punkte) { return std::clamp(punkte, Stil::kleinsteSchrift, Stil::groessteSchrift); }
} // namespace

void schriftgroesseAnwenden()
{
    const auto anwenden = [] {
        if (const auto punkte = gespeicherte(); punkte && begrenzt(*punkte) != Stil::schriftgroesse())
            Stil::setzeSchriftgroesse(begrenzt(*punkte));
    };
    anwenden();
    QObject::connect(Kleiderordnung::derAnwendung(), &Kleiderordnung::geaendert, qApp, anwenden);
}

QList<Wahleintrag> schriftgroessen()
{
    QList<Wahleintrag> groessen;
    for (int punkte = int(Stil::kleinsteSchrift); punkte <= int(Stil::groessteSchrift); ++punkte) {
        const QString wert = QString::number(punkte);
        groessen << Wahleintrag{.wert = wert, .anzeige = gefuellt(Sprache::text(u"%@ Punkt"_s), {wert})};
    }
    return groessen;
}

QString spracheUndSchrift()
{
    const QString punkte = gefuellt(Sprache::text(u"%@ Punkt"_s), {naechsteSchriftgroesse()});
    for (const Sprachsatz &satz : Sprache::verfuegbare()) {
        if (satz.kennung == Sprache::wirksameKennung())
            return satz.name + u", "_s + punkte;
    }
    return u"Deutsch, "_s + punkte;
}

QString naechsteSchriftgroesse() { return QString::number(qRound(Stil::schriftgroesse())); }

void schriftgroesseWaehlen(double punkte)
{
    const double neu = begrenzt(punkte);
    Einstellungen::setzen(schluesselSchrift, neu);
    Stil::setzeSchriftgroesse(neu);
}
} // namespace quillmar::bedienteile
