#include "scan.h"

#include "fehlschlag.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <numbers>
#include <random>

using namespace Qt::StringLiterals;

namespace vorfuehrung
{

namespace
{

constexpr int zeitgrenze = 60'000;

QByteArray zahl(double wert) { return QByteArray::number(wert, 'f', 5); }

/** Numbers straight from the engine: the distributions of the standard library differ between its makers. */
QByteArray flecke(int anzahl, quint32 keim)
{
    std::mt19937 zufall(keim);
    const auto bis = [&zufall](double ende) { return static_cast<double>(zufall() % 10'000) / 10'000 * ende; };
    QByteArray inhalt;
    for (int i = 0; i < anzahl; ++i) {
        const QByteArray grau = zahl(0.45 + bis(0.4));
        const QByteArray ort = zahl(bis(seitenbreite)) + ' ' + zahl(bis(seitenhoehe));
        const QByteArray kante = zahl(0.3 + bis(0.5));
        inhalt += grau + " g " + ort + ' ' + kante + ' ' + kante + " re f\n";
    }
    return inhalt;
}

/** Turns the page about its middle. */
QByteArray drehung(double grad)
{
    const double winkel = grad * std::numbers::pi / 180;
    const double c = std::cos(winkel);
    const double s = std::sin(winkel);
    const double x = seitenbreite / 2;
    const double y = seitenhoehe / 2;
    return zahl(c) + ' ' + zahl(s) + ' ' + zahl(-s) + ' ' + zahl(c) + ' ' + zahl(x - c * x + s * y) + ' ' +
           zahl(y - s * x - c * y) + " cm\n";
}

/** In colour: together with -jpeg, pdftoppm 22 writes broken pictures when asked for grey ones. */
QByteArray gerastert(const QByteArray &vorlage)
{
    const QTemporaryDir ordner;
    dateiSchreiben(ordner.filePath(u"seite.pdf"_s), vorlage);
    QProcess prozess;
    prozess.start(u"pdftoppm"_s, {u"-r"_s, u"200"_s, u"-jpeg"_s, u"-jpegopt"_s, u"quality=60"_s, u"-singlefile"_s,
                                  ordner.filePath(u"seite.pdf"_s), ordner.filePath(u"bild"_s)});
    QFile bild(ordner.filePath(u"bild.jpg"_s));
    if (!prozess.waitForFinished(zeitgrenze) || prozess.exitCode() != 0 || !bild.open(QIODevice::ReadOnly))
        throw Fehlschlag(u"pdftoppm fehlt oder ist gescheitert (Paket poppler-utils)."_s);
    return bild.readAll();
}

/** Width and height stand in the first frame header of a JPEG file. */
QSize groesseVon(const QByteArray &jpeg)
{
    const auto wert = [&jpeg](qsizetype stelle) {
        return static_cast<quint8>(jpeg.at(stelle)) << 8 | static_cast<quint8>(jpeg.at(stelle + 1));
    };
    qsizetype stelle = 2;
    while (stelle + 9 < jpeg.size()) {
        const int marke = wert(stelle);
        if (marke == 0xFFC0 || marke == 0xFFC2)
            return {wert(stelle + 7), wert(stelle + 5)};
        stelle += 2 + wert(stelle + 2);
    }
    throw Fehlschlag(u"pdftoppm hat kein lesbares Bild geliefert."_s);
}

} // namespace

Seite gescannt(const QByteArray &inhalt, const Scanlage &lage, quint32 keim)
{
    const QByteArray papier =
        QByteArray::number(lage.papier, 'g', 4) + " g 0 0 595 842 re f\n" + flecke(lage.flecken, keim);
    const QByteArray gedreht = papier + "q 0.12 g " + drehung(lage.neigung) + inhalt + "Q\n";
    const QByteArray jpeg = gerastert(pdf({Seite{gedreht, {}, {}}}));
    return {{}, jpeg, groesseVon(jpeg), lage.drehung};
}

} // namespace vorfuehrung
