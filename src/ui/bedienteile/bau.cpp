#include "bau.h"
#include "farben.h"
#include "sprache.h"
#include "textschild.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr int feinheit = 1000; // steps of a bar

class Radsperre : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *ereignis) override
    {
        if (ereignis->type() != QEvent::Wheel)
            return false;
        ereignis->ignore();
        return true;
    }
};

/** Keeps what has the focus in sight when what stands above it grows. */
class Sichthalter : public QObject
{
public:
    explicit Sichthalter(QScrollArea *rollen) : QObject(rollen), m_rollen(rollen) {}
    bool eventFilter(QObject *, QEvent *ereignis) override
    {
        QWidget *jetzt = QApplication::focusWidget();
        if (ereignis->type() == QEvent::Resize && jetzt && m_rollen->isAncestorOf(jetzt) &&
            !qobject_cast<QAbstractItemView *>(jetzt))
            QTimer::singleShot(0, jetzt, [rollen = m_rollen, jetzt] {
                if (jetzt->hasFocus())
                    rollen->ensureWidgetVisible(jetzt);
            });
        return false;
    }

private:
    QScrollArea *m_rollen;
};

class Linie : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), Farben::linie(palette())); }
};

Kette *kette(QBoxLayout::Direction richtung, std::initializer_list<Teil> teile, Abstand abstand)
{
    auto *neue = new Kette(richtung, abstand);
    for (const Teil &teil : teile)
        neue->anfuegen(teil);
    return neue;
}
} // namespace

Kette *reihe(std::initializer_list<Teil> teile, Abstand abstand)
{
    return kette(QBoxLayout::LeftToRight, teile, abstand);
}

Kette *spalte(std::initializer_list<Teil> teile, Abstand abstand)
{
    return kette(QBoxLayout::TopToBottom, teile, abstand);
}

QWidget *traeger(QLayout *inhalt, QWidget *eltern) { return fuellen(new QWidget(eltern), inhalt); }

QLabel *schild(const QString &text, Schrift art, const QString &name)
{
    auto *neues = new QLabel(text);
    neues->setObjectName(name);
    neues->setTextFormat(Qt::PlainText);
    return Stil::kleiden(neues, art);
}

Textschild *erklaerung(const QString &text)
{
    auto *neue = new Textschild(Textschild::Art::Umbruch, Schrift::Neben);
    neue->setzeText(text);
    return neue;
}

void bezeichnen(QWidget *teil, const QString &name, const QString &ansage, const QString &hilfe)
{
    teil->setObjectName(name);
    teil->setAccessibleName(ansage);
    teil->setToolTip(hilfe);
}

void breiteFuer(QWidget *feld, int zeichen)
{
    Stil::folgen(feld, [=] {
        feld->setFixedWidth(zeichen * QFontMetrics(Stil::schrift(Schrift::Grund)).averageCharWidth() +
                            2 * Stil::abstand(Abstand::Feld));
    });
}

void hoeheFuer(QWidget *feld, int zeilen)
{
    Stil::folgen(feld, [=] {
        feld->setFixedHeight(zeilen * QFontMetrics(Stil::schrift(Schrift::Grund)).lineSpacing() +
                             Stil::abstand(Abstand::Feld));
    });
}

QPushButton *knopf(const QString &name, const QString &text, const QString &hilfe, Knopfart art, Symbol symbol)
{
    auto *neuer = new QPushButton(text);
    neuer->setObjectName(name);
    neuer->setFocusPolicy(Qt::TabFocus);
    neuer->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    neuer->setIcon(Zeichen::icon(symbol));
    setzeKnopfart(neuer, art);
    benennen(neuer, text, hilfe);
    return neuer;
}

QPushButton *hauptknopf(const QString &name, const QString &text) { return knopf(name, text, {}, Knopfart::Haupt); }

QToolButton *flachknopf(const QString &name, Symbol symbol, const QString &titel, const QString &hilfe, bool mitText)
{
    auto *neuer = new QToolButton;
    neuer->setObjectName(name);
    neuer->setAutoRaise(true);
    neuer->setFocusPolicy(Qt::TabFocus);
    neuer->setIcon(Zeichen::icon(symbol));
    benennen(neuer, titel, hilfe);
    setzeMitText(neuer, mitText);
    return neuer;
}

void setzeMitText(QToolButton *knopf, bool mit)
{
    knopf->setToolButtonStyle(mit ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
}

void setzeWaehlbar(QToolButton *knopf)
{
    knopf->setCheckable(true);
    knopf->setFocusPolicy(Qt::NoFocus);
    QObject::connect(knopf, &QToolButton::toggled, knopf,
                     [knopf](bool an) { knopf->setFocusPolicy(an ? Qt::TabFocus : Qt::NoFocus); });
}

void benennen(QAbstractButton *knopf, const QString &titel, const QString &hilfe)
{
    knopf->setText(titel);
    knopf->setAccessibleName(titel);
    knopf->setToolTip(hilfe);
}

QString vorgelesen(QStringList teile)
{
    teile.removeAll(QString());
    return teile.join(u", "_s);
}

QProgressBar *balken(const QString &name, double breite)
{
    auto *neuer = new QProgressBar;
    bezeichnen(neuer, name, Sprache::text(u"Fortschritt"_s));
    neuer->setTextVisible(false);
    neuer->setRange(0, feinheit);
    neuer->setProperty("laenge", breite);
    neuer->setSizePolicy(breite > 0 ? QSizePolicy::Fixed : QSizePolicy::Expanding, QSizePolicy::Fixed);
    return neuer;
}

void setzeAnteil(QProgressBar *balken, double anteil)
{
    balken->setValue(qRound(std::clamp(anteil, 0.0, 1.0) * feinheit));
}

QPixmap zeichenbild(Symbol symbol)
{
    return Zeichen::icon(symbol).pixmap(Stil::zeichengroesse(), Stil::zeichengroesse());
}

QWidget *linie(Qt::Orientation richtung)
{
    auto *neue = new Linie;
    richtung == Qt::Horizontal ? neue->setFixedHeight(1) : neue->setFixedWidth(1);
    return neue;
}

QScrollArea *rollbereich(QWidget *inhalt, QWidget *eltern)
{
    auto *rollen = new QScrollArea(eltern);
    rollen->setFrameShape(QFrame::NoFrame);
    rollen->setWidgetResizable(true);
    rollen->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rollen->setFocusPolicy(Qt::NoFocus);
    rollen->setWidget(inhalt);
    rollen->viewport()->setAutoFillBackground(false);
    inhalt->setAutoFillBackground(false);
    inhalt->installEventFilter(new Sichthalter(rollen));
    // The scroll area itself follows the Tab key within it only; lists see to their rows.
    QObject::connect(qApp, &QApplication::focusChanged, rollen, [rollen](QWidget *, QWidget *jetzt) {
        if (!rollen->isAncestorOf(jetzt) || qobject_cast<QAbstractItemView *>(jetzt))
            return;
        rollen->ensureWidgetVisible(jetzt);
        // What has just been shown gets its place with the next layout.
        QTimer::singleShot(0, jetzt, [rollen, jetzt] {
            if (jetzt->hasFocus() && rollen->isAncestorOf(jetzt))
                rollen->ensureWidgetVisible(jetzt);
        });
    });
    return rollen;
}

void radsperre(QWidget *feld) { feld->installEventFilter(new Radsperre(feld)); }

void tabReihe(std::initializer_list<QWidget *> teile)
{
    for (const auto *teil = teile.begin(); teil + 1 < teile.end(); ++teil)
        QWidget::setTabOrder(teil[0], teil[1]);
}
} // namespace quillmar::bedienteile
