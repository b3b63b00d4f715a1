#include "seitenbilder.h"

#include "bilderordner.h"
#include "kindprozess.h"
#include "sprache.h"
#include "werkzeuge.h"

#include <QFile>
#include <QRegularExpression>
#include <QSize>
#include <QtEndian>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::analyse
{
using namespace Seitenbilder;

namespace
{
constexpr double punkteJeZoll = 72;
const QString werkzeug = u"pdftoppm"_s;

struct Auftrag {
    const QString &pdf;
    Seitenspanne seiten;
    const Lesegrenzen &grenzen;
    const Bilderordner &ordner;
    const std::stop_token &ende;
    Umfang umfang = Umfang::Blatt;

    [[nodiscard]] QStringList argumente(const QStringList &seiten) const
    {
        const QStringList art = umfang == Umfang::Sichtbares ? QStringList{u"-cropbox"_s} : QStringList();
        return seiten + art + QStringList{u"-png"_s, pdf, ordner.praefix()};
    }
};

/** What is drawn instead of a page that does not fit into memory. */
bool istErsatz(QSize bild) { return bild == QSize(1, 1); }

bool istFraglich(QSize bild) { return istErsatz(bild) || double(bild.width()) * bild.height() > hoechstensPunkte; }

void alleZeichnen(const Auftrag &a)
{
    Werkzeuge::starten(werkzeug, a.argumente(QStringList{u"-r"_s, u"200"_s} + a.seiten.argumente()),
                       a.grenzen.fuerSeiten(a.seiten.anzahl()), a.ende);
}

void eineZeichnen(const Auftrag &a, const Seitenmass &mass)
{
    const QString seite = QString::number(mass.seite);
    Werkzeuge::starten(
        werkzeug, a.argumente({u"-r"_s, QString::number(aufloesungFuer(mass), 'g', 6), u"-f"_s, seite, u"-l"_s, seite}),
        a.grenzen.fuerSeiten(1), a.ende);
}

/** Empty where nobody knows: the reason of the failed drawing stands then. */
QList<Seitenmass> masseVon(const Auftrag &a)
{
    try {
        return seitenmasse(Werkzeuge::starten(u"pdfinfo"_s,
                                              QStringList{u"-box"_s} + a.seiten.argumente() + QStringList{a.pdf},
                                              a.grenzen.fuerText(), a.ende));
    } catch (const Fehler &) {
        return {};
    }
}

bool istEineZuGross(const QList<Seitenmass> &masse)
{
    return std::any_of(masse.begin(), masse.end(), [](const Seitenmass &m) { return m.zuGross(); });
}

bool istEinesFraglich(const QStringList &bilder)
{
    return std::any_of(bilder.begin(), bilder.end(), [](const QString &b) { return istFraglich(bildgroesse(b)); });
}

void einzelnZeichnen(const Auftrag &a, const QList<Seitenmass> &masse)
{
    a.ordner.leeren();
    for (const Seitenmass &mass : masse)
        eineZeichnen(a, mass);
}

/** A page that came out as a pixel although it is larger is not blank. */
void ersatzAblehnen(const Auftrag &a, const QList<Seitenmass> &masse)
{
    const QStringList bilder = a.ordner.bilder();
    for (qsizetype i = 0; bilder.size() == masse.size() && i < bilder.size(); ++i) {
        if (masse.at(i).punkte() > 4 && istErsatz(bildgroesse(bilder.at(i))))
            throw Fehler(Kindprozess::speichersatz(werkzeug, a.grenzen.speicher));
    }
}
} // namespace

QStringList Seitenspanne::argumente() const
{
    return {u"-f"_s, QString::number(erste), u"-l"_s, QString::number(letzte)};
}

double Seitenmass::punkte() const
{
    constexpr double jePunkt = Seitenbilder::aufloesung / punkteJeZoll;
    return breite * jePunkt * hoehe * jePunkt;
}

int Seitenbilder::seiteVon(const QString &bild)
{
    static const QRegularExpression nummer(u"(\\d+)\\.png$"_s);
    return nummer.match(bild).captured(1).toInt();
}

QSize Seitenbilder::bildgroesse(const QString &pfad)
{
    constexpr qsizetype kopf = 24;
    constexpr qsizetype breite = 16;
    constexpr qsizetype hoehe = 20;
    QFile datei(pfad);
    const QByteArray bytes = datei.open(QIODevice::ReadOnly) ? datei.read(kopf) : QByteArray();
    if (bytes.size() < kopf)
        return {0, 0};
    return {qFromBigEndian<qint32>(bytes.constData() + breite), qFromBigEndian<qint32>(bytes.constData() + hoehe)};
}

QList<Seitenmass> Seitenbilder::seitenmasse(const QByteArray &pdfinfo)
{
    static const QRegularExpression zeile(u"^Page +(\\d+) MediaBox: +(\\S+) +(\\S+) +(\\S+) +(\\S+)$"_s,
                                          QRegularExpression::MultilineOption);
    QList<Seitenmass> masse;
    for (auto treffer = zeile.globalMatch(QString::fromUtf8(pdfinfo)); treffer.hasNext();) {
        const QStringList t = treffer.next().capturedTexts();
        const double breite = std::abs(t.at(4).toDouble() - t.at(2).toDouble());
        const double hoehe = std::abs(t.at(5).toDouble() - t.at(3).toDouble());
        if (std::isfinite(breite) && std::isfinite(hoehe))
            masse << Seitenmass{.seite = t.at(1).toInt(), .breite = breite, .hoehe = hoehe};
    }
    return masse;
}

double Seitenbilder::aufloesungFuer(const Seitenmass &mass)
{
    if (!mass.zuGross())
        return aufloesung;
    const double nachFlaeche = aufloesung * std::sqrt(groberePunkte / mass.punkte());
    const double nachKante = hoechstensKante * punkteJeZoll / std::max(mass.breite, mass.hoehe);
    return std::min(nachFlaeche, nachKante);
}

void Seitenbilder::zeichnen(const QString &pdf, const Seitenspanne &seiten, const Lesegrenzen &grenzen,
                            const Bilderordner &ordner, const std::stop_token &ende, Umfang umfang)
{
    const Auftrag a{.pdf = pdf, .seiten = seiten, .grenzen = grenzen, .ordner = ordner, .ende = ende, .umfang = umfang};
    QList<Seitenmass> masse;
    try {
        alleZeichnen(a);
        if (!istEinesFraglich(ordner.bilder()))
            return;
        masse = masseVon(a);
    } catch (const Fehler &) {
        masse = masseVon(a);
        if (!istEineZuGross(masse))
            throw;
    }
    if (istEineZuGross(masse))
        einzelnZeichnen(a, masse);
    ersatzAblehnen(a, masse);
}
} // namespace quillmar::analyse
