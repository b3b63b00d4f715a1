#include "umschalter.h"

#include "stil.h"
#include "zeichen.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QPainter>

namespace quillmar::bedienteile
{
using Stil::abstand;
using Stil::Schrift;

class Umschalter::Haelfte : public QAbstractButton
{
public:
    Haelfte(const Wahl &wahl, QWidget *eltern) : QAbstractButton(eltern), m_symbol(wahl.symbol)
    {
        setObjectName(wahl.name);
        setText(wahl.titel);
        setToolTip(wahl.titel + QStringLiteral(". ") + wahl.hilfe);
        setAccessibleName(wahl.titel);
        setAccessibleDescription(toolTip());
        setCheckable(true);
        setFocusPolicy(Qt::TabFocus);
    }

    void setzeMitText(bool mit)
    {
        m_mitText = mit;
        updateGeometry();
        update();
    }

    [[nodiscard]] QSize sizeHint() const override
    {
        const QFontMetrics halbfett(Stil::schrift(Schrift::Halbfett));
        const int wort = m_mitText ? abstand(6) + halbfett.horizontalAdvance(text()) : 0;
        return {2 * abstand(12) + Stil::zeichengroesse() + wort, abstand(28)};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter maler(this);
        maler.setRenderHint(QPainter::Antialiasing);
        if (isChecked())
            griffMalen(maler);
        const int kante = Stil::zeichengroesse();
        Zeichen::malen(maler, QRect(abstand(12), (height() - kante) / 2, kante, kante), m_symbol, palette());
        if (m_mitText) {
            maler.setFont(Stil::schrift(isChecked() ? Schrift::Halbfett : Schrift::Grund));
            maler.setPen(palette().color(QPalette::WindowText));
            maler.drawText(rect().adjusted(abstand(18) + kante, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, text());
        }
        if (hasFocus()) {
            maler.setBrush(Qt::NoBrush);
            maler.setPen(QPen(Stil::akzentmarke(palette()), 2));
            maler.drawRoundedRect(rect().adjusted(1, 1, -1, -1), 3, 3);
        }
    }

private:
    /** The handle that lies on the chosen half. */
    void griffMalen(QPainter &maler) const
    {
        maler.setPen(Stil::griff(palette()));
        maler.setBrush(palette().color(Stil::istDunkel(palette()) ? QPalette::Button : QPalette::Base));
        maler.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
    }

    Symbol m_symbol = Symbol::Keines;
    bool m_mitText = true;
};

Umschalter::Umschalter(const Wahl &links, const Wahl &rechts, QWidget *eltern)
    : QWidget(eltern), m_links(new Haelfte(links, this)), m_rechts(new Haelfte(rechts, this))
{
    auto *zeile = new QHBoxLayout(this);
    zeile->setContentsMargins(2, 2, 2, 2);
    zeile->setSpacing(0);
    auto *gruppe = new QButtonGroup(this);
    for (Haelfte *haelfte : {m_links, m_rechts}) {
        zeile->addWidget(haelfte);
        gruppe->addButton(haelfte);
    }
    m_links->setChecked(true);
    connect(gruppe, &QButtonGroup::buttonClicked, this, [this] { Q_EMIT gewaehlt(this->rechts()); });
    Stil::folgen(this, [this] {
        m_links->updateGeometry();
        m_rechts->updateGeometry();
    });
}

bool Umschalter::rechts() const { return m_rechts->isChecked(); }

void Umschalter::setzeRechts(bool rechts) { (rechts ? m_rechts : m_links)->setChecked(true); }

void Umschalter::setzeMitText(bool mit)
{
    m_links->setzeMitText(mit);
    m_rechts->setzeMitText(mit);
}

void Umschalter::paintEvent(QPaintEvent *)
{
    QPainter maler(this);
    maler.setRenderHint(QPainter::Antialiasing);
    maler.setPen(Qt::NoPen);
    maler.setBrush(Stil::toenung(palette().color(QPalette::WindowText), palette()));
    maler.drawRoundedRect(rect(), 4, 4);
}
} // namespace quillmar::bedienteile
