#include "stufenliste.h"

#include "balken.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"
#include "vorlesbares.h"
#include "zeichen.h"

#include <QLocale>
#include <QPainter>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::ablauf
{
using Stil::abstand;
using Stil::Schrift;
using Stand = Stufenbild::Stand;

namespace
{
constexpr int textversatz = 32;
constexpr int stufenabstand = 12;

Symbol symbol(Stand stand)
{
    if (stand == Stand::Fertig)
        return Symbol::Gut;
    return stand == Stand::Laeuft ? Symbol::Laeuft : Symbol::Offen;
}
QString standwort(Stand stand)
{
    if (stand == Stand::Fertig)
        return Sprache::text(u"fertig"_s);
    return stand == Stand::Laeuft ? Sprache::text(u"läuft"_s) : Sprache::text(u"noch nicht begonnen"_s);
}
} // namespace

QString dauertext(std::chrono::milliseconds dauer)
{
    using namespace std::chrono;
    const auto sekunden = duration_cast<seconds>(dauer).count();
    if (sekunden < 2)
        return Sprache::text(u"fertig"_s);
    if (dauer < 90s)
        return gefuellt(Sprache::text(u"fertig nach %@ Sekunden"_s), {QString::number(sekunden)});
    if (dauer < 90min)
        return gefuellt(Sprache::text(sekunden / 60, u"fertig nach %@ Minute"_s, u"fertig nach %@ Minuten"_s),
                        {QString::number(sekunden / 60)});
    return gefuellt(Sprache::text(u"fertig nach %@ Stunden"_s), {QLocale().toString(double(sekunden) / 3600, 'f', 1)});
}

Stufenliste::Stufenliste(QWidget *eltern) : QWidget(eltern)
{
    setObjectName(u"stufen"_s);
    Stil::folgen(this, [this] { updateGeometry(); });
}

void Stufenliste::zeigen(const QList<Stufenbild> &stufen, const QString &rest, double anteil)
{
    m_stufen = stufen;
    m_rest = rest;
    m_anteil = anteil;
    while (m_teile.size() < stufen.size())
        m_teile << vorlesbares(u"stufe-"_s + QString::number(m_teile.size() + 1), this);
    for (qsizetype n = 0; n < m_teile.size(); ++n) {
        m_teile.at(n)->setVisible(n < stufen.size());
        if (n < stufen.size())
            ansagen(stufen.at(n), m_teile.at(n));
    }
    teileLegen();
    updateGeometry();
    update();
}

void Stufenliste::ansagen(const Stufenbild &stufe, QWidget *teil) const
{
    QStringList worte = {standwort(stufe.stand), stufe.meldung, zeittext(stufe)};
    worte.removeAll(QString());
    teil->setAccessibleName(stufe.name);
    teil->setAccessibleDescription(worte.join(u", "_s));
}

/** Each over what is painted of its stage. */
void Stufenliste::teileLegen()
{
    int oben = 0;
    for (qsizetype n = 0; n < std::min(m_stufen.size(), m_teile.size()); ++n) {
        m_teile.at(n)->setGeometry(0, oben, width(), zeilenhoehe(m_stufen.at(n)));
        oben += zeilenhoehe(m_stufen.at(n));
    }
}

void Stufenliste::resizeEvent(QResizeEvent *) { teileLegen(); }

QString Stufenliste::zeittext(const Stufenbild &stufe) const
{
    if (stufe.stand == Stand::Laeuft)
        return m_rest;
    return stufe.stand == Stand::Fertig ? dauertext(stufe.dauer) : QString();
}

int Stufenliste::zeilenhoehe(const Stufenbild &stufe) const
{
    const int text =
        fontMetrics().lineSpacing() + QFontMetrics(Stil::schrift(Schrift::Neben)).lineSpacing() + abstand(4);
    return text + abstand(stufenabstand) + (stufe.stand == Stand::Laeuft ? abstand(12) : 0);
}

QSize Stufenliste::sizeHint() const
{
    int hoehe = 0;
    for (const Stufenbild &stufe : m_stufen)
        hoehe += zeilenhoehe(stufe);
    return {abstand(300), hoehe};
}

void Stufenliste::stufeMalen(QPainter &maler, const Stufenbild &stufe, int oben, bool letzte) const
{
    const int kante = Stil::zeichengroesse();
    const int hoehe = fontMetrics().lineSpacing();
    const QRect zeichen(abstand(3), oben + (hoehe - kante) / 2, kante, kante);
    Zeichen::malen(maler, zeichen, symbol(stufe.stand), palette());
    if (!letzte) {
        const int unten = oben + zeilenhoehe(stufe) - abstand(4);
        maler.fillRect(zeichen.center().x(), zeichen.bottom() + abstand(6), 2, unten - zeichen.bottom() - abstand(8),
                       Stil::rille(palette()));
    }
    const QRect zeile(abstand(textversatz), oben, width() - abstand(textversatz), hoehe);
    maler.setFont(Stil::schrift(Schrift::Neben));
    maler.setPen(Stil::nebenfarbe(palette()));
    const QString zeit = zeittext(stufe);
    maler.drawText(zeile, Qt::AlignRight | Qt::AlignVCenter, zeit);
    const int platz = zeile.width() - maler.fontMetrics().horizontalAdvance(zeit) - abstand(12);
    const int neben = maler.fontMetrics().lineSpacing();
    maler.drawText(QRect(zeile.left(), oben + hoehe + abstand(4), zeile.width(), neben),
                   Qt::AlignLeft | Qt::AlignVCenter,
                   maler.fontMetrics().elidedText(stufe.meldung, Qt::ElideRight, zeile.width()));
    maler.setFont(Stil::schrift(stufe.stand == Stand::Laeuft ? Schrift::Halbfett : Schrift::Grund));
    maler.setPen(palette().color(QPalette::WindowText));
    maler.drawText(zeile, Qt::AlignLeft | Qt::AlignVCenter,
                   maler.fontMetrics().elidedText(stufe.name, Qt::ElideRight, platz));
    if (stufe.stand == Stand::Laeuft)
        Balken::malen(maler, QRectF(zeile.left(), oben + hoehe + neben + abstand(8), zeile.width(), abstand(6)),
                      m_anteil, palette());
}

void Stufenliste::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    int oben = 0;
    for (qsizetype n = 0; n < m_stufen.size(); ++n) {
        stufeMalen(maler, m_stufen.at(n), oben, n + 1 == m_stufen.size());
        oben += zeilenhoehe(m_stufen.at(n));
    }
}
} // namespace quillmar::ablauf
