#include "feldnotiz.h"

#include "stil.h"
#include "teile.h"
#include "zeichen.h"

#include <QEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace quillmar::pruefung
{
namespace
{
constexpr int felderJeNotiz = 3; // a note takes a third of the field at most
} // namespace

Feldnotiz::Feldnotiz(QLineEdit *feld) : QLabel(feld), m_feld(feld)
{
    setObjectName(feld->objectName() + u"Notiz"_s);
    setCursor(Qt::ArrowCursor);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setForegroundRole(QPalette::WindowText); // the field's own would be that of what is typed
    hide();
    feld->installEventFilter(this);
    Stil::kleiden(this, Schrift::Neben);
    Stil::folgen(this, [this] { ordnen(); });
}

void Feldnotiz::setzen(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    setToolTip(text);
    setAccessibleName(text);
    setVisible(!text.isEmpty());
    ordnen();
}

void Feldnotiz::ordnen()
{
    const int luft = Stil::abstand(Abstand::Nah);
    setPixmap({});
    setText(m_text);
    if (sizeHint().width() * felderJeNotiz > m_feld->width())
        setPixmap(Zeichen::icon(Symbol::Info).pixmap(Stil::mass(14)));
    const int breite = m_text.isEmpty() ? 0 : sizeHint().width() + 2 * luft;
    setGeometry(m_feld->width() - breite, 0, breite - luft, m_feld->height());
    m_feld->setTextMargins(0, 0, breite, 0);
}

bool Feldnotiz::eventFilter(QObject *ziel, QEvent *ereignis)
{
    if (ereignis->type() == QEvent::Resize)
        ordnen();
    return QLabel::eventFilter(ziel, ereignis);
}
} // namespace quillmar::pruefung
