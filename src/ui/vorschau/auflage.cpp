#include "auflage.h"

#include "farbrechnung.h"
#include "sprache.h"
#include "stil.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
using Farben::Seitenton;

constexpr double rundung = 2;

QRectF aufFlaeche(const QRectF &ort, const QRectF &seite)
{
    return {seite.x() + ort.x() * seite.width(), seite.y() + ort.y() * seite.height(), ort.width() * seite.width(),
            ort.height() * seite.height()};
}

QRectF inAnteilen(const QRectF &flaeche, const QRectF &seite)
{
    return {(flaeche.x() - seite.x()) / seite.width(), (flaeche.y() - seite.y()) / seite.height(),
            flaeche.width() / seite.width(), flaeche.height() / seite.height()};
}

Qt::PenStyle strich(Seitenton ton)
{
    switch (ton) {
    case Seitenton::Auswahl:
        return Qt::NoPen;
    case Seitenton::Unterschied:
        return Qt::DashLine;
    default:
        return Qt::SolidLine;
    }
}

void stelleMalen(QPainter &maler, const QRectF &flaeche, const Auflage &auflage, const Farben::Seitenfarben &farben)
{
    const QRectF rahmen = auflage.ton == Seitenton::Auswahl ? flaeche : flaeche.adjusted(-1, -1, 1, 1);
    maler.setPen(Qt::NoPen);
    maler.setBrush(farben.grund);
    maler.setCompositionMode(QPainter::CompositionMode_Multiply);
    maler.drawRoundedRect(rahmen, rundung, rundung);
    maler.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const double breite = auflage.stark ? 2 : 1;
    maler.setPen(QPen(farben.kante, breite, strich(auflage.ton)));
    maler.setBrush(Qt::NoBrush);
    // The edge lies around what is marked.
    const double halb = breite / 2;
    maler.drawRoundedRect(rahmen.adjusted(-halb, -halb, halb, halb), rundung, rundung);
}

/** Around @p ort, the best place first: at its left edge, else at its right one. */
QList<QRectF> fahnenplaetze(const QRectF &ort, const QSizeF &groesse)
{
    const double daneben = ort.left() - groesse.width();
    const double darueber = ort.top() - groesse.height();
    return {{{daneben, ort.center().y() - groesse.height() / 2}, groesse},
            {{ort.left(), darueber}, groesse},
            {{daneben, darueber}, groesse},
            {ort.bottomLeft(), groesse},
            {{daneben, ort.bottom()}, groesse},
            {{ort.right(), ort.center().y() - groesse.height() / 2}, groesse},
            {{ort.right() - groesse.width(), darueber}, groesse},
            {{ort.right() - groesse.width(), ort.bottom()}, groesse}};
}

void fahneMalen(QPainter &maler, const QRectF &seite, const QRectF &ort, const Wortkarte &worte, const QString &zeichen,
                const QColor &farbe)
{
    QFont schrift = Stil::schrift(Schrift::Halbfett);
    schrift.setPixelSize(int(std::clamp(ort.height() * 0.65, 8.0, double(Stil::mass(12)))));
    const QFontMetricsF mass(schrift);
    const QSizeF groesse(mass.horizontalAdvance(zeichen) + 4, mass.capHeight() + 4);
    QList<QRectF> plaetze = fahnenplaetze(ort.adjusted(-2, -2, 2, 2), groesse);
    for (QRectF &platz : plaetze)
        platz = inAnteilen(platz, seite);
    const auto frei = worte.freier(plaetze);
    // In the thick of the text it lies on the corner, where it hides least, and lets through what is below.
    QRectF fahne(ort.topLeft() - QPointF(groesse.width(), groesse.height()) / 2, groesse);
    if (frei)
        fahne = aufFlaeche(*frei, seite);
    maler.setOpacity(frei ? 1 : 0.7);
    maler.setPen(Qt::NoPen);
    maler.setBrush(farbe);
    maler.drawRoundedRect(fahne, rundung, rundung);
    maler.setPen(Farbrechnung::textAuf(farbe, Qt::white));
    maler.setFont(schrift);
    maler.drawText(QPointF(fahne.left() + 2, fahne.bottom() - 2), zeichen);
    maler.setOpacity(1);
}
} // namespace

// The first letters of the fields' names, in whatever language they are shown.
QString buchstabe(Seitenton ton)
{
    switch (ton) {
    case Seitenton::Datum:
        return Sprache::text(u"Datum"_s).first(1);
    case Seitenton::Gegenueber:
        return Sprache::text(u"Gegenüber"_s).first(1);
    case Seitenton::Titel:
        return Sprache::text(u"Titel"_s).first(1);
    default:
        return {};
    }
}

void auflagenMalen(QPainter &maler, const QRect &seite, const QList<Auflage> &auflagen, const Wortkarte &worte,
                   const QPalette &palette)
{
    maler.save();
    maler.setRenderHint(QPainter::Antialiasing);
    for (const Auflage &auflage : auflagen) {
        const auto farben = Farben::aufSeite(auflage.ton, auflage.stark, palette);
        for (const QRectF &ort : auflage.orte)
            stelleMalen(maler, aufFlaeche(ort, seite), auflage, farben);
        const QString zeichen = buchstabe(auflage.ton);
        if (!zeichen.isEmpty() && !auflage.orte.isEmpty())
            fahneMalen(maler, seite, aufFlaeche(auflage.orte.first(), seite), worte, zeichen,
                       Farben::aufSeite(auflage.ton, true, palette).kante);
    }
    maler.restore();
}
} // namespace quillmar::vorschau
