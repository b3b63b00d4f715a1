#include "nachschlagen.h"

#include <atomic>

namespace quillmar::grundlage
{
namespace
{
std::atomic<Nachschlagewerk> nachschlagewerk = nullptr;
}

void setzeNachschlagewerk(Nachschlagewerk werk) { nachschlagewerk = werk; }

QString nachgeschlagen(const QString &deutsch)
{
    const Nachschlagewerk werk = nachschlagewerk;
    return werk ? werk(deutsch) : deutsch;
}
} // namespace quillmar::grundlage
