#include "fehlersatz.h"

namespace quillmar::zustand
{
QString fehlersatz(const std::exception_ptr &fehler)
{
    if (!fehler)
        return {};
    try {
        std::rethrow_exception(fehler);
    } catch (const std::exception &f) {
        return QString::fromUtf8(f.what()); // a Fehler's sentence, or out of memory, say: the program goes on
    }
}
} // namespace quillmar::zustand
