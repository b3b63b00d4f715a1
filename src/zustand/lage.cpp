#include "lage.h"

#include "analyse.h"
#include "ausfuehrung.h"
#include "durchgang.h"
#include "laufkarte.h"
#include "modelldienst.h"
#include "pfade.h"
#include "profilwahl.h"
#include "pruefung.h"
#include "sitzungen.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
bool istMangel(Modellstand::Art art)
{
    return art == Modellstand::Art::ServerFehlt || art == Modellstand::Art::ModellAnderswo ||
           art == Modellstand::Art::ModellFehlt;
}

/** While nothing is going on. */
Lage ruhelage(const Zustand &zustand, const QString &notiz)
{
    if (zustand.durchgang()->startWartet())
        return {.stufe = Sprache::text(u"Wartet auf die Antwort des Modellservers …"_s)};
    if (!notiz.isEmpty())
        return {.stufe = notiz, .ton = zustand.meldestelle()->ton()};
    if (zustand.profilwahl()->aktiv() && istMangel(zustand.modelldienst()->modellstand().art))
        return {.stufe = zustand.modelldienst()->modellMeldung(), .ton = Meldestelle::Ton::Warnung};
    return {.stufe = {}};
}

bool ohneDokumente(const Zustand &zustand)
{
    return zustand.pruefung()->zaehlwerk() == Zaehlwerk{} && zustand.pruefung()->ausgenommen() == 0;
}

/** As naechsterSchritt(): the line tells of what the button offers. */
QString leerzeile(const Zustand &zustand)
{
    const Zaehlwerk &z = zustand.pruefung()->zaehlwerk();
    if (zustand.durchgang()->laeuft())
        return gefuellt(Sprache::text(z.neu,
                                      u"Der Durchgang läuft noch. %@ Dokument wartet darauf, gelesen zu werden."_s,
                                      u"Der Durchgang läuft noch. %@ Dokumente warten darauf, gelesen zu werden."_s),
                        {QString::number(z.neu)});
    if (z.zurueckgestellt > 0)
        return gefuellt(Sprache::text(z.zurueckgestellt, u"%@ Dokument ist noch zurückgestellt."_s,
                                      u"%@ Dokumente sind noch zurückgestellt."_s),
                        {QString::number(z.zurueckgestellt)});
    if (z.neu > 0)
        return gefuellt(Sprache::text(z.neu, u"%@ Dokument wartet darauf, gelesen zu werden."_s,
                                      u"%@ Dokumente warten darauf, gelesen zu werden."_s),
                        {QString::number(z.neu)});
    return ohneDokumente(zustand) ? Sprache::text(u"Hier gibt es noch keine Dokumente."_s)
                                  : Sprache::text(u"Alles einsortiert."_s);
}

/** The one thing to go on with. */
void naechsterSchritt(const Zustand &zustand, Leerlage &leere)
{
    const Zaehlwerk &z = zustand.pruefung()->zaehlwerk();
    if (z.zurueckgestellt > 0) {
        leere.tat = Leerlage::Tat::Vorlegen;
        leere.knopf = gefuellt(Sprache::text(z.zurueckgestellt, u"%@ Zurückgestelltes wieder vorlegen"_s,
                                             u"%@ Zurückgestellte wieder vorlegen"_s),
                               {QString::number(z.zurueckgestellt)});
    } else if (zustand.durchgang()->laeuft() || (z.neu == 0 && !ohneDokumente(zustand))) {
        leere.tat = Leerlage::Tat::Keine;
    } else if (Lauflage::von(zustand).startbereit()) {
        leere.tat = Leerlage::Tat::Starten;
        leere.knopf = Sprache::text(u"Durchgang starten"_s);
    } else {
        leere.tat = Leerlage::Tat::Einrichten;
        leere.knopf = Sprache::text(u"Zur Einrichtung"_s);
    }
}
} // namespace

Lage lage(const Zustand &zustand, const QString &notiz)
{
    const Analyse *analyse = zustand.durchgang()->analyse();
    const Ausfuehrung *tun = zustand.ausfuehrung();
    const Sitzungen *sitzungen = zustand.sitzungen();
    if (zustand.profilwahl()->oeffnet())
        return {.stufe = zustand.profilwahl()->oeffnungssatz()};
    if (sitzungen->rueckbauLaeuft())
        return {.stufe = sitzungen->rueckbauMeldung(), .anteil = sitzungen->rueckbauAnteil()};
    if (!tun->vorgang().isEmpty())
        return {.stufe = tun->vorgang(), .anteil = tun->vorgangsanteil() > 0 ? tun->vorgangsanteil() : -1};
    if (!analyse || !analyse->laeuft())
        return ruhelage(zustand, notiz);
    const Laufganzes &ganzes = analyse->ganzes();
    QStringList rest = ganzes.inPortionen() ? QStringList{ganzes.satz(), ganzes.restzeit}
                                            : QStringList{analyse->meldung(), analyse->restzeit()};
    rest.removeAll(QString());
    return {.stufe = analyse->stufe(),
            .rest = rest.join(u" · "_s),
            .anteil = ganzes.inPortionen() ? ganzes.anteil() : analyse->anteil()};
}

QString katalogfehlersatz(const Profilwahl &profilwahl)
{
    return gefuellt(Sprache::text(u"%@\n%@\nSchließe andere Programme, die ihn benutzen, und versuche es noch einmal. "
                                  "Ist er beschädigt, setze auf der Karte Einrichtung eine Sicherung ein, oder lege "
                                  "die Datei beiseite: Dann beginnt ein neuer Katalog. Deine Dokumente bleiben, wo sie "
                                  "sind."_s),
                    {kurzpfad(profilwahl.katalogdatei()), profilwahl.katalogfehler()});
}

Leerlage ohneProfil()
{
    return {
        .titel = Sprache::text(u"Aus einem Stapel Scans wird eine geordnete Ablage"_s),
        .zeile = Sprache::text(u"Quillmar liest gescannte Briefe auf diesem Rechner, schlägt Name und Ordner vor "
                               "und legt ab, sobald du zustimmst."_s),
        .knopf = Sprache::text(u"Erstes Profil anlegen"_s),
        .zusatz = {gefuellt(Sprache::text(u"Einstellungen und Katalog liegen in %@."_s),
                            {kurzpfad(Profilwahl::datenordner())}),
                   Sprache::text(u"Deine Dokumente bleiben, wo sie sind, bis du den ersten Vorschlag übernimmst."_s)}};
}

QString profilverlust(const Profilwahl &profilwahl)
{
    if (profilwahl.unlesbareProfile().isEmpty())
        return {};
    return gefuellt(Sprache::text(u"Die bisherige Profilliste war nicht lesbar und liegt jetzt hier: %@"_s),
                    {kurzpfad(profilwahl.unlesbareProfile())}) +
           u". "_s + Sprache::text(u"Die Kataloge der Profile und deine Dokumente sind nicht davon betroffen."_s);
}

Leerlage ohneKatalog(const Profilwahl &profilwahl)
{
    if (profilwahl.katalogfehler().isEmpty())
        return {.titel = Sprache::text(u"Noch kein Profil"_s),
                .zeile = Sprache::text(u"Lege auf der Karte Einrichtung ein Profil an."_s),
                .knopf = Sprache::text(u"Zur Einrichtung"_s),
                .tat = Leerlage::Tat::Einrichten};
    return {.titel = Sprache::text(u"Der Katalog lässt sich nicht öffnen"_s),
            .zeile = katalogfehlersatz(profilwahl),
            .knopf = Sprache::text(u"Noch einmal versuchen"_s),
            .tat = Leerlage::Tat::ErneutOeffnen};
}

Leerlage nichtsZuPruefen(const Zustand &zustand)
{
    if (zustand.profilwahl()->oeffnet())
        return {.titel = zustand.profilwahl()->oeffnungssatz()};
    if (!zustand.profilwahl()->offen())
        return ohneKatalog(*zustand.profilwahl());
    Leerlage leere{.titel = Sprache::text(u"Nichts zu prüfen"_s), .zeile = leerzeile(zustand)};
    naechsterSchritt(zustand, leere);
    return leere;
}

void weiter(Zustand &zustand, Leerlage::Tat tat)
{
    switch (tat) {
    case Leerlage::Tat::Einrichten:
        return zustand.setzeReiter(Reiter::Einrichtung);
    case Leerlage::Tat::ErneutOeffnen:
        return zustand.profilwahl()->erneutOeffnen();
    case Leerlage::Tat::Starten:
        return zustand.durchgang()->durchgangErbitten();
    case Leerlage::Tat::Vorlegen:
        return zustand.ausfuehrung()->zurueckgestellteVorlegen();
    case Leerlage::Tat::Keine:
        break;
    }
}
} // namespace quillmar::zustand
