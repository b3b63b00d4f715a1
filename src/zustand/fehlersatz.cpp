#include "fehlersatz.h"

#include "insprache.h"

QString fehlersatz(const std::exception_ptr &fehler)
{
    if (!fehler)
        return {};
    try {
        std::rethrow_exception(fehler);
    } catch (const Fehler &f) {
        return inSprache(f);
    } catch (const std::exception &f) {
        return QString::fromUtf8(f.what()); // out of memory, say: the program goes on
    }
}
