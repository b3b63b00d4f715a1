#include "modellstand.h"

#include "ollama.h"
#include "sprache.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

std::optional<QString> Modellstand::treffer(const QStringList &vorhandene, const QString &gesucht)
{
    const auto gefunden = std::find_if(vorhandene.begin(), vorhandene.end(), [&](const QString &name) {
        return name == gesucht || name.startsWith(gesucht + u':');
    });
    return gefunden == vorhandene.end() ? std::nullopt : std::optional(*gefunden);
}

Modellstand Modellstand::pruefen(const QString &gesucht)
{
    const Ollama server;
    Modellstand stand;
    if (!server.erreichbar()) {
        stand.art = Art::serverFehlt;
        stand.meldung = Sprache::text(u"Der Modellserver ollama läuft nicht"_s);
        return stand;
    }
    stand.vorhandene = server.modelle();
    const auto gefunden = treffer(stand.vorhandene, gesucht);
    stand.art = gefunden ? Art::bereit : Art::modellFehlt;
    stand.meldung = gefunden ? gefuellt(Sprache::text(u"Sprachmodell %@ einsatzbereit"_s), {*gefunden})
                             : gefuellt(Sprache::text(u"Das Modell %@ fehlt noch"_s), {gesucht});
    return stand;
}
