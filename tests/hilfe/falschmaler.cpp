// Programs that are not what the window expects of the one that draws: which of them this is, its file's name tells.
#include "seitenprotokoll.h"

#include <QByteArray>
#include <cstdlib>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

using namespace quillmar::seiten;
using namespace Seitenprotokoll;

namespace
{
void sagen(const QByteArray &bytes) { ::send(kanal, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL); }
void sagen(const Antwort &antwort) { sagen(verpackt(antwort)); }

QByteArray hoeren()
{
    QByteArray bytes(256, 0);
    const ssize_t laenge = ::recv(kanal, bytes.data(), size_t(bytes.size()), 0);
    if (laenge <= 0)
        std::_Exit(0);
    return bytes.first(laenge);
}

void oeffnen()
{
    hoeren();
    sagen(Geoeffnet{1, Ergebnis::Offen, 2, false, {{595, 842}}});
}
} // namespace

int main(int, char **argumente)
{
    const QByteArray art = QByteArray(argumente[0]).split('/').last();
    if (art == "endet")
        return 0;
    if (art == "stumm")
        hoeren(), ::pause();
    sagen(Bereit{});
    if (art == "unsinn")
        hoeren(), sagen(QByteArray("\1Unsinn"));
    else if (art == "riesig")
        hoeren(), sagen(QByteArray(80'000, 'x'));
    else if (art == "fremdes")
        hoeren(), sagen(Geoeffnet{2, Ergebnis::Beschaedigt, 0, false, {}});
    else if (art == "zweimal")
        hoeren(), sagen(Bereit{});
    else if (art == "andereSeite")
        oeffnen(), hoeren(), sagen(Gemalt{1, 1, true});
    else if (art == "malt") // without having been asked to open
        hoeren(), sagen(Gemalt{1, 0, true});
    for (;;)
        hoeren();
}
