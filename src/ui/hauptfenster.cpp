#include "hauptfenster.h"

using namespace Qt::StringLiterals;

namespace
{
constexpr QSize kleinste(1100, 700);
}

Hauptfenster::Hauptfenster(QWidget *eltern) : QMainWindow(eltern)
{
    setWindowTitle(u"Quillmar"_s);
    setMinimumSize(kleinste);
}
