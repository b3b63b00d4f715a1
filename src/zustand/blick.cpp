#include "blick.h"

#include "bewegungen.h"
#include "dokumente.h"
#include "seitenlagen.h"
#include "tatruecknahme.h"
#include "texte.h"
#include "vorschlaege.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
std::optional<Dokument> gewaehltes(const Dokumente &dokumente, const Wunsch &wunsch)
{
    if (wunsch.art == Wunsch::Art::Weiter)
        return dokumente.naechstes(wunsch.id, wunsch.richtung);
    if (auto dieses = dokumente.wartendes(wunsch.id))
        return dieses;
    if (auto sonst = dokumente.wartendes(wunsch.sonst))
        return sonst;
    return dokumente.naechstes(wunsch.id, Richtung::Weiter);
}

Pruefstueck vollstaendig(Datenbank &db, const Dokument &dokument)
{
    Pruefstueck stueck{
        .dokument = dokument, .ohneGegenueber = dokument.angaben.gegenueber.isEmpty(), .aehnlich = std::nullopt};
    stueck.hatText = Texte(db).hatText(dokument.id);
    stueck.ebeneVerworfen = Texte(db).istEbeneVerworfen(dokument.id);
    if (dokument.ortQuelle == u"gelernt"_s)
        stueck.gelernt = Lernspeicher(db).herkunft(dokument);
    stueck.nachgeprueft = Vorschlaege(db).istNachgeprueft(dokument.id);
    if (dokument.aehnlichZu)
        stueck.aehnlich = Dokumente(db).eines(*dokument.aehnlichZu);
    return stueck;
}
void drehungenDazu(Datenbank &db, const Dokument &dokument, Drehungen &drehungen)
{
    if (const auto seiten = Seitenlagen(db).drehungen(dokument.id); !seiten.isEmpty())
        drehungen.insert(dokument.pfad, seiten);
}
} // namespace

Blick Blick::auf(const std::shared_ptr<Datenbank> &db, const Wunsch &wunsch)
{
    const Dokumente dokumente(*db);
    Blick blick;
    if (const auto dokument = gewaehltes(dokumente, wunsch)) {
        blick.aktuelles = vollstaendig(*db, *dokument);
        // What an accept and the right arrow show next.
        const auto naechstes = dokumente.naechstes(dokument->id, Richtung::Weiter);
        if (naechstes && naechstes->id != dokument->id) {
            blick.voraus = {naechstes->pfad};
            drehungenDazu(*db, *naechstes, blick.drehungen);
        }
        drehungenDazu(*db, *dokument, blick.drehungen);
        if (blick.aktuelles->aehnlich)
            drehungenDazu(*db, *blick.aktuelles->aehnlich, blick.drehungen);
    }
    blick.zaehlwerk = Zaehlwerk::zaehlen(*db);
    blick.ausgenommen = dokumente.ausgenommene();
    blick.ruecknehmbar = Tatruecknahme::istMoeglich(*db);
    blick.bewegt = Bewegungen(*db).letzte().has_value();
    return blick;
}
} // namespace quillmar::zustand
