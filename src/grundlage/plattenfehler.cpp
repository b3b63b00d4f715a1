#include "plattenfehler.h"

using namespace Qt::StringLiterals;

namespace quillmar::grundlage
{
namespace
{
QString zusammen(const QString &satz, const QString &ursache)
{
    return ursache.isEmpty() ? nachgeschlagen(satz) : nachgeschlagen(satz) + u": "_s + nachgeschlagen(ursache);
}
} // namespace

Plattenfehler::Plattenfehler(const QString &satz, const QString &ursache) : Fehler(zusammen(satz, ursache)) {}
} // namespace quillmar::grundlage
