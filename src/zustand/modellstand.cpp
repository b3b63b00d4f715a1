#include "modellstand.h"

#include "ollama.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
std::optional<QString> Modellstand::treffer(const QStringList &vorhandene, const QString &gesucht)
{
    return Modellverzeichnis::treffer(vorhandene, gesucht);
}

std::optional<QString> Modellstand::treffer(const QString &gesucht) const
{
    return verzeichnis.vollstaendig() ? verzeichnis.treffer(gesucht) : std::nullopt;
}

bool Modellstand::rechnetAnderswo(const QString &modell) const
{
    return verzeichnis.rechnetAnderswo(modell) || verzeichnis.rechnetAnderswo(treffer(modell).value_or(modell));
}

namespace
{
/** What @p server lists; a server that does not tell its models has none. */
Modellverzeichnis verzeichnisVon(const Ollama &server)
{
    try {
        return server.verzeichnis();
    } catch (const Fehler &) {
        return {};
    }
}
} // namespace

Modellstand Modellstand::pruefen(const QString &gesucht)
{
    const Ollama server;
    Modellstand stand;
    if (!server.erreichbar()) {
        stand.art = Art::ServerFehlt;
        stand.meldung = Sprache::text(u"Der Modellserver ollama läuft nicht"_s);
        return stand;
    }
    stand.verzeichnis = verzeichnisVon(server);
    stand.vorhandene = stand.verzeichnis.vollstaendig() ? stand.verzeichnis.namen() : QStringList();
    if (stand.rechnetAnderswo(gesucht)) {
        stand.art = Art::ModellAnderswo;
        stand.meldung = ModellAnderswo::satz(gesucht);
        return stand;
    }
    const auto gefunden = stand.treffer(gesucht);
    stand.art = gefunden ? Art::Bereit : Art::ModellFehlt;
    stand.meldung = gefunden ? gefuellt(Sprache::text(u"Sprachmodell %@ einsatzbereit"_s), {*gefunden})
                             : gefuellt(Sprache::text(u"Das Modell %@ fehlt noch"_s), {gesucht});
    return stand;
}

QList<Wahleintrag> Modellstand::auswahl(const QString &gewaehlt) const
{
    QStringList namen = vorhandene;
    if (!gewaehlt.isEmpty() && !namen.contains(gewaehlt))
        namen.prepend(gewaehlt);
    QList<Wahleintrag> eintraege;
    for (const QString &name : std::as_const(namen))
        eintraege << Wahleintrag{
            .wert = name, .anzeige = name, .mangel = rechnetAnderswo(name) ? anderswoSatz(name) : QString()};
    return eintraege;
}

QString Modellstand::anderswoSatz(const QString &modell) { return ModellAnderswo::satz(modell); }
} // namespace quillmar::zustand
