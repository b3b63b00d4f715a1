#include "kleiderordnung.h"

#include "einstellungen.h"
#include "farben.h"
#include "sprache.h"
#include "stil.h"
#include "text.h"

#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QLineEdit>
#include <QSet>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr auto eigenschaft = "textart"; // on every text that was dressed
constexpr auto schluesselSchrift = "schriftgroesse"_L1;

double begrenzt(double punkte) { return std::clamp(punkte, Stil::kleinsteSchrift, Stil::groessteSchrift); }

/** The palette that @p schild would have if none were set on it. */
QPalette vorgabe(const QWidget *schild)
{
    return schild->parentWidget() ? schild->parentWidget()->palette() : QApplication::palette();
}

QColor farbe(Schrift art, const QPalette &palette)
{
    switch (art) {
    case Schrift::Neben:
    case Schrift::Beschriftung:
        return Farben::nebenfarbe(palette);
    case Schrift::Verweis:
        return Farben::verweis(palette);
    case Schrift::Hauptzahl:
        return Farben::akzentmarke(palette);
    case Schrift::Warnung:
        return Farben::farbe(Farben::Bedeutung::Warnung, palette);
    default:
        return {};
    }
}

/** Nothing but this one role is set, so that all others go on following the desktop. */
QPalette gefaerbt(QPalette::ColorRole rolle, const QColor &farbe)
{
    QPalette palette;
    palette.setColor(QPalette::Active, rolle, farbe);
    palette.setColor(QPalette::Inactive, rolle, farbe);
    return palette;
}

void kleid(QWidget *teil)
{
    if (qobject_cast<QLineEdit *>(teil))
        return teil->setPalette(gefaerbt(QPalette::PlaceholderText, Farben::platzhalter(vorgabe(teil))));
    const auto art = Stil::Schrift(teil->property(eigenschaft).toInt());
    const QColor schriftfarbe = farbe(art, vorgabe(teil));
    teil->setFont(Stil::schrift(art));
    teil->setPalette(schriftfarbe.isValid() ? gefaerbt(QPalette::WindowText, schriftfarbe) : QPalette());
}
} // namespace

Kleiderordnung::Kleiderordnung(QObject *anwendung) : QObject(anwendung) { anwendung->installEventFilter(this); }

Kleiderordnung *Kleiderordnung::derAnwendung()
{
    auto *vorhanden = qApp->findChild<Kleiderordnung *>(QString(), Qt::FindDirectChildrenOnly);
    return vorhanden ? vorhanden : new Kleiderordnung(qApp);
}

bool Kleiderordnung::eventFilter(QObject *empfaenger, QEvent *ereignis)
{
    static const QSet<QEvent::Type> anlaesse = {QEvent::FontChange, QEvent::PaletteChange, QEvent::StyleChange,
                                                QEvent::ParentChange};
    const QEvent::Type art = ereignis->type();
    if (empfaenger == qApp && art == QEvent::ApplicationFontChange)
        alleKleiden();
    else if (empfaenger == qApp && art == QEvent::ApplicationPaletteChange) // by then all others have the new one
        QMetaObject::invokeMethod(this, &Kleiderordnung::alleKleiden, Qt::QueuedConnection);
    else if (!m_dabei && anlaesse.contains(art) && empfaenger->property(eigenschaft).isValid()) {
        m_dabei = true;
        kleid(static_cast<QWidget *>(empfaenger));
        m_dabei = false;
    }
    return false;
}

void Kleiderordnung::alleKleiden()
{
    m_dabei = true;
    for (QWidget *teil : QApplication::allWidgets()) {
        if (teil->property(eigenschaft).isValid())
            kleid(teil);
        if (qobject_cast<QComboBox *>(teil)) {
            // With the font alone it does not forget how small it may be.
            QEvent neu(QEvent::StyleChange);
            QCoreApplication::sendEvent(teil, &neu);
        }
    }
    m_dabei = false;
    Q_EMIT geaendert();
}

void Stil::folgen(QWidget *traeger, std::function<void()> anwenden)
{
    QObject::connect(Kleiderordnung::derAnwendung(), &Kleiderordnung::geaendert, traeger, anwenden);
    anwenden();
}

void Stil::ankleiden(QWidget *schild, Schrift art)
{
    Kleiderordnung *ordnung = Kleiderordnung::derAnwendung();
    if (schild->property(eigenschaft).isValid() && schild->property(eigenschaft).toInt() == int(art))
        return;
    schild->setProperty(eigenschaft, int(art));
    schild->installEventFilter(ordnung);
    kleid(schild);
}

void schriftgroesseAnwenden()
{
    const auto anwenden = [] {
        bool zahl = false;
        const double punkte = Einstellungen::wert(schluesselSchrift).toDouble(&zahl);
        if (zahl && std::isfinite(punkte) && begrenzt(punkte) != Stil::schriftgroesse())
            Stil::setzeSchriftgroesse(punkte);
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

QString naechsteSchriftgroesse() { return QString::number(qRound(begrenzt(Stil::schriftgroesse()))); }

void schriftgroesseWaehlen(double punkte)
{
    // Stored first: whoever hears of another font puts back what is stored.
    Einstellungen::setzen(schluesselSchrift, begrenzt(punkte));
    Stil::setzeSchriftgroesse(punkte);
}
} // namespace quillmar::bedienteile
