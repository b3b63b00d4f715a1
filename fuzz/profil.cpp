#include "profilformat.h"
#include "pruefziel.h"

using namespace quillmar::analyse;

/** A profile list of any bytes: what is read is read the same after saving. */
void pruefen(const QByteArray &eingabe)
{
    const auto gelesen = Profilformat::lesen(eingabe);
    if (!gelesen)
        return;
    const auto noch = Profilformat::lesen(Profilformat::schreiben(*gelesen));
    verlangen(noch && *noch == *gelesen);
    for (const Profil &profil : *gelesen)
        static_cast<void>(profil.zerlegen(profil.zielWurzel));
}
