#include "zeichen.h"

#include "farben.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace quillmar::gestalt
{
namespace
{
/** One line of the table of symbols. */
struct Zeile {
    enum class Farbe { Schrift, Warnung, Gut, Fehler, Akzent };
    const char *name;   ///< as published
    const char *thema;  ///< name in the desktop's icon theme; empty: ours alone
    const char *eigene; ///< our drawing, without folder and ending
    Farbe farbe = Farbe::Schrift;
};
using Farbe = Zeile::Farbe;

// In the order of Symbol. Where the common themes show all but the same picture for two of our operations, only our own
// drawing is used.
constexpr Zeile zeilen[] = {
    {"", "", ""},
    // Cards
    {"slider.horizontal.3", "settings-configure", "regler"},
    {"play.circle", "media-playback-start", "start"},
    {"doc.text.magnifyingglass", "document-preview", "vorschau"},
    {"clock.arrow.circlepath", "clock", "uhr"},
    // Top bar
    {"plus", "list-add", "plus"},
    {"minus", "list-remove", "minus"},
    {"arrow.right.doc.on.clipboard", "document-export", "verschieben"},
    {"doc.on.doc.copy", "edit-copy", "kopieren"},
    {"menu", "application-menu", "menue"},
    // Preview
    {"minus.magnifyingglass", "", "lupe-minus"},
    {"plus.magnifyingglass", "", "lupe-plus"},
    {"arrow.left.and.right", "", "breite"},
    {"rectangle.arrowtriangle.2.inward", "", "ganze-seite"},
    {"rotate.left", "", "drehen-links"},
    {"rotate.right", "", "drehen-rechts"},
    {"highlighter", "", "marken"},
    {"chevron.up", "", "pfeil-oben"},
    {"chevron.down", "", "pfeil-unten"},
    {"xmark", "", "schliessen"},
    {"doc.on.doc", "", "dublette"},
    // Actions
    {"skip", "mail-download-later", "spaeter"},
    {"undo", "edit-undo", "rueckgaengig"},
    {"arrow.left", "go-previous", "pfeil-links"},
    {"arrow.right", "go-next", "pfeil-rechts"},
    {"stop", "media-playback-stop", "halt"},
    {"reload", "view-refresh", "neu-laden"},
    {"folder", "folder", "ordner"},
    {"folder.open", "document-open", "ordner-auf"},
    {"arrow.up.forward.app", "document-open-folder", "aufschlagen"},
    {"pencil", "edit-rename", "umbenennen"},
    // Marks
    {"checkmark.circle", "", "gut", Farbe::Gut},
    {"exclamationmark.triangle", "", "warnung", Farbe::Warnung},
    {"xmark.circle", "", "fehler", Farbe::Fehler},
    {"questionmark.circle", "", "frage"},
    {"info.circle", "", "info"},
    {"circle", "", "offen"},
    {"circle.running", "", "laeuft", Farbe::Akzent},
    {"largecircle.fill.circle", "", "gewaehlt", Farbe::Akzent},
    {"arrow.uturn.backward", "", "rueckgaengig"},
    // Line signs of the empty states
    {"large.checkmark.circle", "", "gross-gut"},
    {"large.doc.text.magnifyingglass", "", "gross-vorschau"},
    {"large.lock", "", "gross-schloss"},
    {"large.damaged", "", "gross-beschaedigt"},
    {"large.missing", "", "gross-verschwunden"},
    {"large.clock", "", "gross-uhr"},
    {"large.folder", "", "gross-ordner"},
    {"large.play", "", "gross-start"},
};

const Zeile &zeile(Symbol symbol) { return zeilen[int(symbol)]; }

QColor bedeutungsfarbe(const Zeile &zeile, const QPalette &palette)
{
    switch (zeile.farbe) {
    case Farbe::Warnung:
        return Farben::farbe(Farben::Bedeutung::Warnung, palette);
    case Farbe::Gut:
        return Farben::farbe(Farben::Bedeutung::Gut, palette);
    case Farbe::Fehler:
        return Farben::farbe(Farben::Bedeutung::Fehler, palette);
    case Farbe::Akzent:
        return Farben::akzentmarke(palette);
    case Farbe::Schrift:
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

QImage eigenesBild(const Zeile &zeile, int kante, const QColor &farbe)
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
QImage bildDesThemas(const Zeile &zeile, int kante, const QColor &farbe)
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
bool hatThema(const Zeile &zeile, int kante)
{
    if (!*zeile.thema || !QIcon::hasThemeIcon(QString::fromLatin1(zeile.thema)))
        return false;
    const QSize groesse = QIcon::fromTheme(QString::fromLatin1(zeile.thema)).actualSize(QSize(kante, kante));
    return std::max(groesse.width(), groesse.height()) >= kante * 9 / 10;
}

QPixmap gemalt(const Zeile &zeile, int kante, const QColor &farbe)
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
    Zeichenmaschine(const Zeile &zeile, const QColor &farbe) : m_zeile(zeile), m_farbe(farbe) {}

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

    const Zeile &m_zeile;
    const QColor m_farbe;
};
} // namespace

QIcon Zeichen::icon(Symbol symbol, const QColor &farbe)
{
    return symbol == Symbol::Keines ? QIcon() : QIcon(new Zeichenmaschine(zeile(symbol), farbe));
}

void Zeichen::malen(QPainter &maler, const QRect &flaeche, Symbol symbol, const QPalette &palette, const QColor &farbe)
{
    if (symbol == Symbol::Keines)
        return;
    const int kante = std::min(flaeche.width(), flaeche.height());
    const int pixel = qRound(kante * maler.device()->devicePixelRatioF());
    const Zeile &z = zeile(symbol);
    QRect ziel(0, 0, kante, kante);
    ziel.moveCenter(flaeche.center());
    maler.drawPixmap(ziel, gemalt(z, pixel, farbe.isValid() ? farbe : bedeutungsfarbe(z, palette)));
}

Symbol Zeichen::symbol(const QString &name)
{
    const auto *gefunden = std::find_if(std::begin(zeilen), std::end(zeilen),
                                        [&name](const Zeile &zeile) { return name == QLatin1String(zeile.name); });
    return gefunden == std::end(zeilen) ? Symbol::Keines : Symbol(gefunden - std::begin(zeilen));
}

QList<Symbol> Zeichen::alle()
{
    QList<Symbol> symbole;
    for (int n = 1; n < int(std::size(zeilen)); ++n)
        symbole << Symbol(n);
    return symbole;
}
} // namespace quillmar::gestalt
