#pragma once

/*
 * Each library has a namespace named after its folder. Names of the libraries below it are used without qualification:
 * the order of the layers once more, this time for names; who may include whom stands in cmake/schichten.cmake.
 */
namespace quillmar
{
namespace grundlage
{
}

namespace sprache
{
using namespace grundlage;
}

namespace profil
{
using namespace grundlage;
}

namespace katalog
{
using namespace profil;
using namespace sprache;
} // namespace katalog

namespace regeln
{
using namespace profil;
}

namespace fundstellen
{
using namespace regeln;
}

namespace lernen
{
using namespace katalog;
using namespace regeln;
} // namespace lernen

namespace ablage
{
using namespace lernen;
}

namespace analyse
{
using namespace ablage;
}

namespace zustand
{
using namespace analyse;
using namespace fundstellen;
} // namespace zustand

namespace desktop
{
using namespace zustand;
}

namespace seiten
{
using namespace grundlage;
}

namespace seitenmaler
{
using namespace seiten;
}

namespace gestalt
{
using namespace grundlage;
}

namespace bedienteile
{
using namespace desktop;
using namespace gestalt;
} // namespace bedienteile

namespace vorschau
{
using namespace bedienteile;
using namespace seiten;
} // namespace vorschau

namespace einrichtung
{
using namespace bedienteile;
}

namespace ablauf
{
using namespace bedienteile;
}

namespace pruefung
{
using namespace vorschau;
}

namespace protokoll
{
using namespace bedienteile;
}

namespace ui
{
using namespace pruefung;
using namespace einrichtung;
using namespace ablauf;
using namespace protokoll;
} // namespace ui

namespace app
{
using namespace analyse;
}
} // namespace quillmar
