#include "radsperre.h"

#include <QEvent>
#include <QWidget>

namespace quillmar::bedienteile
{
namespace
{
class Sperre : public QObject
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
} // namespace

void radsperre(QWidget *feld) { feld->installEventFilter(new Sperre(feld)); }
} // namespace quillmar::bedienteile
