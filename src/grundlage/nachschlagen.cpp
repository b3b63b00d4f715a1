#include "nachschlagen.h"

#include <atomic>

namespace
{
std::atomic<Nachschlagewerk> nachschlagewerk = nullptr;
}

void nachschlagewerkSetzen(Nachschlagewerk werk) { nachschlagewerk = werk; }

QString nachgeschlagen(const QString &deutsch)
{
    const Nachschlagewerk werk = nachschlagewerk;
    return werk ? werk(deutsch) : deutsch;
}
