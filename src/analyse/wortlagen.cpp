#include "wortlagen.h"

#include "aufrichtung.h"
#include "bilderordner.h"
#include "pfade.h"
#include "platte.h"
#include "seitenbilder.h"
#include "sha256.h"
#include "sprache.h"
#include "werkzeuge.h"
#include "wortspeicher.h"

#include <QRegularExpression>
#include <QXmlStreamReader>
#include <algorithm>
#include <cmath>
#include <future>
#include <numbers>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
using namespace Wortlagen;

namespace
{
constexpr double spiel = 1;       // point
constexpr double weitestes = 1e6; // points or pixels: no page is that large

double zahl(const QXmlStreamReader &xml, const QString &name) { return xml.attributes().value(name).toDouble(); }

/** A file may say anything, also what is no number. */
bool istDenkbar(const QRectF &ort)
{
    const auto nah = [](double wert) { return std::abs(wert) < weitestes; };
    return nah(ort.left()) && nah(ort.top()) && nah(ort.right()) && nah(ort.bottom());
}

bool passtIn(const QRectF &ort, const QSizeF &groesse)
{
    return ort.right() <= groesse.width() + spiel && ort.bottom() <= groesse.height() + spiel;
}

/** The file as its disk spells it. */
QString ortVon(const QString &pdf)
{
    const QByteArray platte = aufDerPlatte(pdf);
    if (platte.isEmpty())
        throw Fehler(Sprache::text(u"Datei nicht gefunden"_s));
    return QString::fromUtf8(platte);
}

/** Of the pages, whether they are turned by a quarter. */
QList<bool> quereSeiten(const QString &pdf, const Seitenspanne &seiten, const Lesegrenzen &grenzen,
                        const std::stop_token &ende)
{
    static const QRegularExpression zeile(u"^Page +\\d+ rot: +(\\d+)$"_s, QRegularExpression::MultilineOption);
    const QByteArray auskunft =
        Werkzeuge::starten(u"pdfinfo"_s, seiten.argumente() + QStringList{pdf}, grenzen.fuerText(), ende);
    QList<bool> quere;
    for (auto treffer = zeile.globalMatch(QString::fromUtf8(auskunft)); treffer.hasNext();)
        quere << (treffer.next().captured(1).toInt() % 180 != 0);
    return quere;
}

Seitenworte anteile(const Ebenenseite &seite, bool quer)
{
    const QSizeF groesse = quer ? seite.groesse.transposed() : seite.groesse;
    if (groesse.isEmpty())
        return {};
    Seitenworte worte = seite.worte;
    for (Seitenwort &wort : worte)
        wort.ort = {wort.ort.x() / groesse.width(), wort.ort.y() / groesse.height(), wort.ort.width() / groesse.width(),
                    wort.ort.height() / groesse.height()};
    return worte;
}

/** Whatever else than the content decides what is recognised. */
QString artVon(const Erkennung &wie)
{
    QStringList drehungen;
    for (auto d = wie.drehungen.begin(); d != wie.drehungen.end(); ++d)
        drehungen << u"%1:%2"_s.arg(d.key()).arg(d.value());
    return u"%1 %2 %3"_s.arg(wie.sprache).arg(wie.seiten.letzte).arg(drehungen.join(u','));
}

/** Under which name the pages of a content are kept: those further behind have files of their own. */
QString kennungVon(const QString &digest, const Seitenspanne &seiten)
{
    return digest.isEmpty() || seiten.erste == 1 ? digest : u"%1-%2"_s.arg(digest).arg(seiten.erste);
}

/** What tesseract says of one page, as it lies. */
Seitenworte eineErkennen(const QString &bild, int drehung, const Erkennung &wie, const Grenzen &grenzen,
                         const std::stop_token &ende)
{
    QSize groesse = Seitenbilder::bildgroesse(bild);
    const auto lage = Aufrichtung::aufrichten(bild, drehung, grenzen, ende);
    if (lage && drehung % 180 != 0)
        groesse.transpose();
    const QByteArray tsv =
        Werkzeuge::starten(u"tesseract"_s, {bild, u"stdout"_s, u"-l"_s, wie.sprache, u"tsv"_s}, grenzen, ende);
    return gedreht(ausTsv(tsv, {.bild = groesse, .neigung = lage ? lage->neigung : 0}), lage ? -drehung : 0);
}

/** The corners of a box in an image that was turned about its middle, before it was. */
QRectF zurueckgedreht(const QRectF &kasten, const QSizeF &bild, const Bildlage &lage)
{
    const double winkel = lage.neigung * std::numbers::pi / 180;
    const QPointF mitte(bild.width() / 2, bild.height() / 2);
    const QPointF alteMitte(lage.bild.width() / 2.0, lage.bild.height() / 2.0);
    const auto zurueck = [&](const QPointF &ecke) {
        const QPointF von = ecke - mitte;
        return alteMitte + QPointF(von.x() * std::cos(winkel) + von.y() * std::sin(winkel),
                                   von.y() * std::cos(winkel) - von.x() * std::sin(winkel));
    };
    // The middles of the sides, not the corners: a box that slants a little stays as high as its line.
    const QPointF links = zurueck({kasten.left(), kasten.center().y()});
    const QPointF rechts = zurueck({kasten.right(), kasten.center().y()});
    const double hoehe = std::abs(rechts.y() - links.y()) + kasten.height() * std::cos(winkel);
    return {links.x(), (links.y() + rechts.y() - hoehe) / 2, rechts.x() - links.x(), hoehe};
}
} // namespace

Ebenenseite::Lage Ebenenseite::lage() const
{
    const auto alle = [this](const QSizeF &g) {
        return std::all_of(worte.begin(), worte.end(), [&](const Seitenwort &w) { return passtIn(w.ort, g); });
    };
    const bool aufrecht = alle(groesse);
    if (groesse.width() == groesse.height() || aufrecht != alle(groesse.transposed()))
        return aufrecht ? Lage::Aufrecht : Lage::Quer;
    return Lage::Unklar;
}

QList<Ebenenseite> Wortlagen::ebenenseiten(const QByteArray &bbox)
{
    QByteArray lesbar = bbox;
    lesbar.removeIf([](char c) { return uchar(c) < ' ' && c != '\n' && c != '\t'; }); // no XML has them
    QList<Ebenenseite> seiten;
    QXmlStreamReader xml(lesbar);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == "page"_L1)
            seiten << Ebenenseite{.groesse = {zahl(xml, u"width"_s), zahl(xml, u"height"_s)}};
        if (xml.name() != "word"_L1 || seiten.isEmpty())
            continue;
        const QPointF ecke(zahl(xml, u"xMin"_s), zahl(xml, u"yMin"_s));
        const QRectF ort(ecke, QPointF(zahl(xml, u"xMax"_s), zahl(xml, u"yMax"_s)));
        if (istDenkbar(ort))
            seiten.last().worte << Seitenwort{.text = xml.readElementText(), .ort = ort};
    }
    if (xml.hasError())
        throw Fehler(Sprache::text(u"Die Wörter der Seite lassen sich nicht lesen"_s));
    return seiten;
}

QList<Seitenworte> Wortlagen::ausTextebene(const QString &pdf, const Seitenspanne &seiten, const Lesegrenzen &grenzen,
                                           const std::stop_token &ende)
{
    const QString ort = ortVon(pdf);
    // Beside the other one: mostly needless, but to wait for it afterwards would take as long again.
    auto drehungen = std::async(std::launch::async, [&] { return quereSeiten(ort, seiten, grenzen, ende); });
    const QByteArray bbox = Werkzeuge::starten(
        u"pdftotext"_s, seiten.argumente() + QStringList{u"-cropbox"_s, u"-bbox"_s, u"-enc"_s, u"UTF-8"_s, ort, u"-"_s},
        grenzen.fuerText(), ende);
    const QList<Ebenenseite> gelesene = ebenenseiten(bbox);
    // Words may reach beyond the edge of a page: only that all of them lie on it tells something.
    const bool unklar = std::any_of(gelesene.begin(), gelesene.end(),
                                    [](const auto &s) { return s.lage() != Ebenenseite::Lage::Aufrecht; });
    const QList<bool> quere = unklar ? drehungen.get() : QList<bool>();
    QList<Seitenworte> worte;
    for (qsizetype i = 0; i < gelesene.size(); ++i) {
        const bool aufrecht = gelesene.at(i).lage() == Ebenenseite::Lage::Aufrecht;
        worte << anteile(gelesene.at(i), !aufrecht && quere.value(i));
    }
    return worte;
}

QList<Seitenworte> Wortlagen::lesen(const QString &pdf, bool textebene, const Erkennung &wie,
                                    const Wortspeicher &speicher, const Lesegrenzen &grenzen,
                                    const std::stop_token &ende)
{
    if (textebene)
        return ausTextebene(pdf, wie.seiten, grenzen, ende);
    struct stat vorher {
    };
    struct stat nachher {
    };
    const bool da = Platte::angaben(aufDerPlatte(pdf), vorher);
    const QString digest = sha256Datei(aufDerPlatte(pdf), [&] { return ende.stop_requested(); });
    const QString kennung = kennungVon(digest, wie.seiten);
    if (auto bekannte = speicher.lesen(kennung, artVon(wie)))
        return *bekannte;
    const QList<Seitenworte> seiten = erkannte(pdf, wie, grenzen, ende);
    // What was changed meanwhile is not what the digest is of.
    if (da && Platte::angaben(aufDerPlatte(pdf), nachher) && Platte::unveraendert(vorher, nachher))
        speicher.ablegen(kennung, artVon(wie), seiten);
    return seiten;
}

QList<Seitenworte> Wortlagen::erkannte(const QString &pdf, const Erkennung &wie, const Lesegrenzen &grenzen,
                                       const std::stop_token &ende)
{
    const Bilderordner ordner;
    Seitenbilder::zeichnen(ortVon(pdf), wie.seiten, grenzen, ordner, ende, Seitenbilder::Umfang::Sichtbares);
    QList<Seitenworte> seiten;
    for (const QString &bild : ordner.bilder()) {
        // A page that cannot be drawn has no image.
        const int seite = std::max(wie.seiten.erste, Seitenbilder::seiteVon(bild));
        seiten.resize(std::max<qsizetype>(seiten.size(), seite - wie.seiten.erste + 1));
        seiten[seite - wie.seiten.erste] =
            eineErkennen(bild, wie.drehungen.value(seite), wie, grenzen.fuerSeiten(1), ende);
    }
    return seiten;
}

Seitenworte Wortlagen::ausTsv(const QByteArray &tsv, const Bildlage &lage)
{
    constexpr qsizetype spalten = 12; // level page block par line word left top width height conf text
    constexpr int seitenebene = 1;
    constexpr int wortebene = 5;
    QSizeF bild = lage.bild;
    Seitenworte worte;
    for (const QString &zeile : QString::fromUtf8(tsv).split(u'\n')) {
        const QStringList felder = zeile.split(u'\t');
        if (felder.size() != spalten)
            continue;
        const QRectF kasten(felder.at(6).toDouble(), felder.at(7).toDouble(), felder.at(8).toDouble(),
                            felder.at(9).toDouble());
        if (felder.first().toInt() == seitenebene)
            bild = kasten.size(); // larger than it was where it is straightened
        const QString text = felder.last().trimmed();
        if (felder.first().toInt() != wortebene || text.isEmpty() || lage.bild.isEmpty() || !istDenkbar(kasten))
            continue;
        const QRectF ort = zurueckgedreht(kasten, bild, lage);
        worte << Seitenwort{.text = text,
                            .ort = {ort.x() / lage.bild.width(), ort.y() / lage.bild.height(),
                                    ort.width() / lage.bild.width(), ort.height() / lage.bild.height()}};
    }
    return worte;
}
} // namespace quillmar::analyse
