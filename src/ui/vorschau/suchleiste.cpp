#include "suchleiste.h"

#include "bau.h"
#include "sprache.h"
#include "textschild.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace quillmar::vorschau
{
namespace
{
bool istEingabe(const QKeyEvent *ereignis)
{
    return ereignis->key() == Qt::Key_Return || ereignis->key() == Qt::Key_Enter;
}
} // namespace

Suchleiste::Suchleiste(QWidget *eltern)
    : QWidget(eltern), m_feld(new QLineEdit),
      m_stand(new Textschild(Textschild::Art::KurzEnde, Schrift::Neben, u"suchstand"_s)),
      m_zurueck(flachknopf(u"vorigerTreffer"_s, Symbol::PfeilOben, Sprache::text(u"Voriger Treffer"_s),
                           Sprache::text(u"Voriger Treffer (Umschalt+F3)"_s), false)),
      m_vor(flachknopf(u"naechsterTreffer"_s, Symbol::PfeilUnten, Sprache::text(u"Nächster Treffer"_s),
                       Sprache::text(u"Nächster Treffer (F3)"_s), false)),
      m_schliessen(flachknopf(u"sucheSchliessen"_s, Symbol::Schliessen, Sprache::text(u"Suche schließen"_s),
                              Sprache::text(u"Suche schließen (Esc)"_s), false))
{
    setObjectName(u"suche"_s);
    bezeichnen(m_feld, u"suchfeld"_s, Sprache::text(u"Im Dokument suchen"_s));
    m_feld->setPlaceholderText(Sprache::text(u"Im Dokument suchen"_s));
    m_feld->setMinimumWidth(m_feld->fontMetrics().averageCharWidth() * 6);
    fuellen(this, reihe({{m_feld, 1}, m_stand, m_zurueck, m_vor, m_schliessen}), Abstand::Nah, Abstand::Eng);
    // The keys do the same where there is no room for the buttons.
    new Nachgeben(this, 1, [this](int stufe) {
        m_zurueck->setVisible(stufe < 1);
        m_vor->setVisible(stufe < 1);
    });
    connect(m_feld, &QLineEdit::textChanged, this, &Suchleiste::anfrageGeaendert);
    connect(m_zurueck, &QToolButton::clicked, this, [this] { Q_EMIT weiter(-1); });
    connect(m_vor, &QToolButton::clicked, this, [this] { Q_EMIT weiter(1); });
    connect(m_schliessen, &QToolButton::clicked, this, &Suchleiste::schliessen);
    hide();
}

QString Suchleiste::anfrage() const { return m_feld->text().trimmed(); }

void Suchleiste::einreihen(QWidget *davor, QWidget *danach)
{
    tabReihe({davor, m_feld, m_zurueck, m_vor, m_schliessen, danach});
}

void Suchleiste::oeffnen(const QString &vorgabe)
{
    if (QWidget *jetzt = QApplication::focusWidget(); !isAncestorOf(jetzt))
        m_vorher = jetzt;
    show();
    if (!vorgabe.isEmpty())
        m_feld->setText(vorgabe);
    m_feld->setFocus(Qt::ShortcutFocusReason);
    m_feld->selectAll();
    Q_EMIT anfrageGeaendert();
}

void Suchleiste::schliessen()
{
    if (!offen())
        return;
    // Hidden first, the row would hand the focus on to whatever comes next.
    if (isAncestorOf(QApplication::focusWidget()) && m_vorher)
        m_vorher->setFocus(Qt::OtherFocusReason);
    hide();
    Q_EMIT geschlossen();
}

void Suchleiste::setzeStand(const QString &satz, bool blaettern)
{
    m_stand->setzeText(satz);
    m_feld->setAccessibleDescription(satz);
    m_zurueck->setEnabled(blaettern);
    m_vor->setEnabled(blaettern);
}

/** Return looks for more here, whatever it does in the window around. */
bool Suchleiste::event(QEvent *ereignis)
{
    if (ereignis->type() == QEvent::ShortcutOverride && istEingabe(static_cast<QKeyEvent *>(ereignis))) {
        ereignis->accept();
        return true;
    }
    return QWidget::event(ereignis);
}

void Suchleiste::keyPressEvent(QKeyEvent *ereignis)
{
    if (!istEingabe(ereignis)) {
        QWidget::keyPressEvent(ereignis);
        return;
    }
    if (auto *knopf = qobject_cast<QToolButton *>(QApplication::focusWidget()))
        knopf->click();
    else
        Q_EMIT weiter(ereignis->modifiers() & Qt::ShiftModifier ? -1 : 1);
}
} // namespace quillmar::vorschau
