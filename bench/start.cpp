#include "kommando.h"
#include "messung.h"
#include "profilspeicher.h"
#include "reihen.h"

#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using namespace quillmar::ui;

namespace
{
constexpr int runden = 101;

Messung::Lauf kommando(const QList<QByteArray> &argumente)
{
    return [argumente] { return Messung::dauer([&] { Kommando::laufen(argumente); }); };
}
} // namespace

void Reihen::start()
{
    const QTemporaryDir ordner;
    qputenv("XDG_DATA_HOME", ordner.path().toUtf8());
    qputenv("XDG_CONFIG_HOME", ordner.path().toUtf8());
    Profilspeicher::sichern({Profil()}, {});
    const auto leer = kommando({QUILLMAR_LEER});
    const auto bericht = Messung::paarweise(runden, kommando({QUILLMAR_PROGRAMM, "--bericht"}), leer);
    Messung::drucken("quillmar --bericht, empty catalogue", bericht, 1.5);
    const auto fenster = Messung::paarweise(runden, kommando({QUILLMAR_LEER_FENSTER}), leer);
    Messung::mitteilen("  the window's libraries would add", (fenster.unser - fenster.blank) * 1000, "ms");
}
