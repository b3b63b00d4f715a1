#include "quillmarstil.h"
#include "textschild.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace quillmar::bedienteile
{
namespace
{
constexpr auto zuletzt = "hilfetext"; // the help text that stands as description

void beschreiben(QWidget *teil)
{
    const QString hilfe = teil->toolTip();
    const QString bisher = teil->accessibleDescription();
    const bool folgt = bisher.isEmpty() || bisher == teil->property(zuletzt).toString();
    // The tool tip of a text that was cut off is the text.
    const auto *text = qobject_cast<Textschild *>(teil);
    if ((text && !text->wordWrap()) || !folgt)
        return;
    teil->setProperty(zuletzt, hilfe);
    teil->setAccessibleDescription(hilfe);
}

bool zeigen(QWidget *teil, const QHelpEvent &ereignis)
{
    if (teil->toolTip().isEmpty())
        return false;
    const QString zeilen = teil->toolTip().toHtmlEscaped().replace(u'\n', u"<br>"_s);
    QToolTip::showText(ereignis.globalPos(), u"<qt>"_s + zeilen + u"</qt>"_s, teil, {}, teil->toolTipDuration());
    return true;
}
class Hilfetexte : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *empfaenger, QEvent *ereignis) override;
};

bool Hilfetexte::eventFilter(QObject *empfaenger, QEvent *ereignis)
{
    switch (ereignis->type()) {
    case QEvent::Polish:
        // The tool tip's own label shows what was escaped above.
        if (auto *schild = qobject_cast<QLabel *>(empfaenger);
            schild && schild->textFormat() == Qt::AutoText && !schild->inherits("QTipLabel"))
            schild->setTextFormat(Qt::PlainText);
        return false;
    case QEvent::ToolTipChange:
        if (empfaenger->isWidgetType())
            beschreiben(static_cast<QWidget *>(empfaenger));
        return false;
    case QEvent::ToolTip:
        return empfaenger->isWidgetType() &&
               zeigen(static_cast<QWidget *>(empfaenger), *static_cast<QHelpEvent *>(ereignis));
    default:
        return false;
    }
}
} // namespace

void hilfetexteAnwenden()
{
    constexpr auto name = "hilfetexte"_L1;
    if (qApp->findChild<QObject *>(name, Qt::FindDirectChildrenOnly))
        return;
    auto *neue = new Hilfetexte(qApp);
    neue->setObjectName(name);
    qApp->installEventFilter(neue);
}
} // namespace quillmar::bedienteile
