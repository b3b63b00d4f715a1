// Written by scripts/texte. Do not edit.
#include "textkatalog.h"

#include <initializer_list>

namespace
{
// clang-format off
constexpr std::initializer_list<QStringView> texte = {
};
// clang-format on
} // namespace

QStringList Textkatalog::alle()
{
    QStringList liste;
    liste.reserve(qsizetype(texte.size()));
    for (const QStringView text : texte)
        liste << text.toString();
    return liste;
}
