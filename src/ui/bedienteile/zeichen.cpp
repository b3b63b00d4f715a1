#include "zeichen.h"

#include "stil.h"
#include "zeichentafel.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
QColor bedeutungsfarbe(const Zeichenzeile &zeile, const QPalette &palette)
{
    switch (zeile.farbe) {
    case Zeichenzeile::Farbe::Warnung:
        return Stil::farbe(Stil::Bedeutung::Warnung, palette);
    case Zeichenzeile::Farbe::Gut:
        return Stil::farbe(Stil::Bedeutung::Gut, palette);
    case Zeichenzeile::Farbe::Fehler:
        return Stil::farbe(Stil::Bedeutung::Fehler, palette);
    case Zeichenzeile::Farbe::Akzent:
        return Stil::akzentmarke(palette);
    case Zeichenzeile::Farbe::Schrift:
        break;
    }
    return palette.color(QPalette::Active, QPalette::WindowText);
}

QImage leeresBild(int kante)
{
    QImage bild(kante, kante, QImage::Format_ARGB32_Premultiplied);
    bild.fill(Qt::transparent);
    return bild;
}

QImage eigenesBild(const Zeichenzeile &zeile, int kante, const QColor &farbe)
{
    QFile datei(u":/zeichen/%1.svg"_s.arg(QLatin1String(zeile.eigene)));
    QImage bild = leeresBild(kante);
    if (!datei.open(QIODevice::ReadOnly))
        return bild;
    QSvgRenderer zeichnung(datei.readAll().replace("currentColor", farbe.name().toLatin1()));
    QPainter maler(&bild);
    zeichnung.render(&maler, QRectF(bild.rect()));
    return bild;
}

bool istGrau(const QImage &bild)
{
    constexpr int spielraum = 24;
    for (int y = 0; y < bild.height(); ++y) {
        const auto *zeile = reinterpret_cast<const QRgb *>(bild.constScanLine(y));
        const bool bunt = std::any_of(zeile, zeile + bild.width(), [](QRgb punkt) {
            const auto [kleinster, groesster] = std::minmax({qRed(punkt), qGreen(punkt), qBlue(punkt)});
            return groesster - kleinster > spielraum;
        });
        if (bunt)
            return false;
    }
    return true;
}

// A theme without colours of its own is coloured by us: its drawing may have been made for the other ground.
QImage bildDesThemas(const Zeichenzeile &zeile, int kante, const QColor &farbe)
{
    QImage bild = leeresBild(kante);
    QPainter maler(&bild);
    QIcon::fromTheme(QString::fromLatin1(zeile.thema)).paint(&maler, bild.rect());
    if (istGrau(bild)) {
        maler.setCompositionMode(QPainter::CompositionMode_SourceIn);
        maler.fillRect(bild.rect(), farbe);
    }
    return bild;
}

// A theme drawn for small sizes only would stand lost in a large font: then our own drawing is taken.
bool hatThema(const Zeichenzeile &zeile, int kante)
{
    if (!*zeile.thema || !QIcon::hasThemeIcon(QString::fromLatin1(zeile.thema)))
        return false;
    const QSize groesse = QIcon::fromTheme(QString::fromLatin1(zeile.thema)).actualSize(QSize(kante, kante));
    return std::max(groesse.width(), groesse.height()) >= kante * 9 / 10;
}

QPixmap gemalt(const Zeichenzeile &zeile, int kante, const QColor &farbe)
{
    const QString schluessel =
        u"zeichen/%1/%2/%3/%4"_s.arg(QIcon::themeName(), QLatin1String(zeile.name), farbe.name()).arg(kante);
    QPixmap fertig;
    if (QPixmapCache::find(schluessel, &fertig))
        return fertig;
    fertig = QPixmap::fromImage(hatThema(zeile, kante) ? bildDesThemas(zeile, kante, farbe)
                                                       : eigenesBild(zeile, kante, farbe));
    QPixmapCache::insert(schluessel, fertig);
    return fertig;
}

class Zeichenmaschine : public QIconEngine
{
public:
    Zeichenmaschine(const Zeichenzeile &zeile, const QColor &farbe) : m_zeile(zeile), m_farbe(farbe) {}

    QIconEngine *clone() const override { return new Zeichenmaschine(m_zeile, m_farbe); }
    QString key() const override { return u"quillmar"_s; }
    bool isNull() override { return false; }

    void paint(QPainter *maler, const QRect &flaeche, QIcon::Mode art, QIcon::State zustand) override
    {
        const QSize groesse = flaeche.size() * maler->device()->devicePixelRatioF();
        maler->drawPixmap(flaeche, pixmap(groesse, art, zustand));
    }

    QPixmap pixmap(const QSize &groesse, QIcon::Mode art, QIcon::State) override
    {
        return gemalt(m_zeile, std::min(groesse.width(), groesse.height()), farbe(art));
    }

private:
    [[nodiscard]] QColor farbe(QIcon::Mode art) const
    {
        const QPalette palette = QGuiApplication::palette();
        if (art == QIcon::Disabled)
            return palette.color(QPalette::Disabled, QPalette::WindowText);
        if (m_farbe.isValid())
            return m_farbe;
        if (art == QIcon::Selected)
            return palette.color(QPalette::HighlightedText);
        return bedeutungsfarbe(m_zeile, palette);
    }

    const Zeichenzeile &m_zeile;
    const QColor m_farbe;
};
} // namespace

QIcon Zeichen::icon(const QString &name) { return icon(name, {}); }

QIcon Zeichen::icon(const QString &name, const QColor &farbe)
{
    const Zeichenzeile *zeile = Zeichentafel::zeile(name);
    return zeile ? QIcon(new Zeichenmaschine(*zeile, farbe)) : QIcon();
}

void Zeichen::malen(QPainter &maler, const QRect &flaeche, const QString &name, const QPalette &palette,
                    const QColor &farbe)
{
    const Zeichenzeile *zeile = Zeichentafel::zeile(name);
    if (!zeile)
        return;
    const int kante = std::min(flaeche.width(), flaeche.height());
    const int pixel = qRound(kante * maler.device()->devicePixelRatioF());
    const QPixmap bild = gemalt(*zeile, pixel, farbe.isValid() ? farbe : bedeutungsfarbe(*zeile, palette));
    QRect ziel(0, 0, kante, kante);
    ziel.moveCenter(flaeche.center());
    maler.drawPixmap(ziel, bild);
}

QStringList Zeichen::namen() { return Zeichentafel::namen(); }
} // namespace quillmar::bedienteile
