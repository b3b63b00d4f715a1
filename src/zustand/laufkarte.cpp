#include "laufkarte.h"

#include "analyse.h"
#include "durchgang.h"
#include "katalogpflege.h"
#include "pfade.h"
#include "profilwahl.h"
#include "sprache.h"
#include "text.h"
#include "zustand.h"

#include <QLocale>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quillmar::zustand
{
Lauflage Lauflage::von(const Zustand &zustand)
{
    const Durchgang *durchgang = zustand.durchgang();
    return {.profil = *zustand.profilwahl()->aktiv(),
            .bereitschaft = zustand.profilwahl()->bereitschaft(),
            .laeuft = durchgang->laeuft(),
            .haeltAn = durchgang->analyse()->abbrechenGewuenscht(),
            .startWartet = durchgang->startWartet(),
            .gelaufen = durchgang->laufbild().gelaufen(),
            .beschaedigt = zustand.katalogpflege()->stand().zugang == Zugang::Beschaedigt,
            .stufe = durchgang->analyse()->stufe()};
}

QString Lauflage::titel() const
{
    if (laeuft)
        return Sprache::text(u"Der Durchgang läuft"_s);
    if (beschaedigt)
        return Sprache::text(u"Der Katalog ist beschädigt"_s);
    if (!startbereit())
        return Sprache::text(u"Noch nicht eingerichtet"_s);
    return gelaufen ? stufe : Sprache::text(u"Bereit für den Durchgang"_s);
}

QString Lauflage::zeile() const
{
    if (startWartet)
        return Sprache::text(u"Wartet auf die Antwort des Modellservers …"_s);
    if (!laeuft && !startbereit())
        return fehlendes();
    if (laeuft && haeltAn)
        return Sprache::text(u"Hält nach dem laufenden Dokument an. Das bereits Erkannte bleibt erhalten, ein späterer "
                             "Start setzt dort fort."_s);
    const QString weg =
        gefuellt(Sprache::text(u"Von %@ nach %@."_s), {kurzpfad(profil.quelle), kurzpfad(profil.zielWurzel)});
    if (laeuft)
        return weg + u' ' + Sprache::text(u"Du kannst nebenher prüfen."_s);
    return weg + u' ' +
           (profil.kopieren ? Sprache::text(u"Kopiert wird erst, was du beim Prüfen übernimmst."_s)
                            : Sprache::text(u"Verschoben wird erst, was du beim Prüfen übernimmst."_s));
}

QString Lauflage::fehlendes() const
{
    if (beschaedigt)
        return Sprache::text(
            u"Er wird nur noch gelesen. Auf der Karte Einrichtung lässt sich eine Sicherung einsetzen."_s);
    if (!bereitschaft || startbereit())
        return {};
    const Bereitschaft &b = *bereitschaft;
    QStringList teile = b.fehlendeWerkzeuge;
    if (!b.quelle)
        teile << Sprache::text(u"Herkunftsordner"_s);
    if (!b.ziel)
        teile << Sprache::text(u"Zielordner"_s);
    if (!b.struktur)
        teile << Sprache::text(u"Struktur der Ablage"_s);
    if (!b.namen)
        teile << Sprache::text(u"Namensmuster"_s);
    return gefuellt(Sprache::text(u"Es fehlt noch: %@. Das geht auf der Karte Einrichtung."_s), {teile.join(u", "_s)});
}

QString Lauflage::vorschau(int nummer) const
{
    switch (nummer) {
    case 0:
        if (profil.quelle.isEmpty())
            return Sprache::text(u"Sucht die PDF-Dateien im Herkunftsordner."_s);
        return gefuellt(profil.mitUnterordnern
                            ? Sprache::text(u"Sucht die PDF-Dateien in %@ und den Ordnern darunter."_s)
                            : Sprache::text(u"Sucht die PDF-Dateien in %@."_s),
                        {kurzpfad(profil.quelle)});
    case 1:
        return gefuellt(Sprache::text(profil.seiten, u"Die erste Seite, wo nötig per Texterkennung."_s,
                                      u"Die ersten %@ Seiten, wo nötig per Texterkennung."_s),
                        {QString::number(profil.seiten)});
    case 2:
        return gefuellt(Sprache::text(u"%@ schlägt Datum, Gegenüber, Titel und Ort vor."_s), {profil.modell});
    default:
        return profil.zweitmeinung && !profil.modellGross.isEmpty()
                   ? gefuellt(Sprache::text(u"%@ sieht sich an, was unsicher ist."_s), {profil.modellGross})
                   : Sprache::text(u"Ist in diesem Profil ausgeschaltet."_s);
    }
}

QString hindernissatz(const Durchgang &durchgang)
{
    QStringList saetze;
    if (durchgang.laeuft())
        return {};
    for (const Laufhindernis &h : durchgang.analyse()->fazit().hindernisse)
        saetze << h.satz();
    if (const qint64 offen = durchgang.nacharbeit().unbeantwortet; offen > 0)
        saetze << gefuellt(Sprache::text(u"Nachgefragt und ohne Antwort geblieben: %@."_s), {QString::number(offen)});
    return saetze.join(u' ');
}

std::pair<QString, QString> ausraeumtext(const Profil &profil, bool raeumt)
{
    if (raeumt)
        return {
            Sprache::text(u"Anhalten"_s),
            Sprache::text(u"Hört nach dem Dokument auf, das gerade an der Reihe ist. Der Rest bleibt, wie er ist."_s)};
    if (profil.kopieren)
        return {Sprache::text(u"Nicht mitkopieren"_s), {}};
    return {gefuellt(Sprache::text(u"In den Ordner %@ verschieben"_s), {profil.dublettenOrdner}), {}};
}

QString dauertext(std::chrono::milliseconds dauer)
{
    const auto sekunden = std::chrono::duration_cast<std::chrono::seconds>(dauer).count();
    if (sekunden < 2)
        return Sprache::text(u"fertig"_s);
    if (dauer < 90s)
        return gefuellt(Sprache::text(u"fertig nach %@ Sekunden"_s), {QString::number(sekunden)});
    if (dauer < 90min)
        return gefuellt(Sprache::text(sekunden / 60, u"fertig nach %@ Minute"_s, u"fertig nach %@ Minuten"_s),
                        {QString::number(sekunden / 60)});
    return gefuellt(Sprache::text(u"fertig nach %@ Stunden"_s), {QLocale().toString(double(sekunden) / 3600, 'f', 1)});
}

QString stufenzeile(const Stufenbild &stufe, const QString &vorschau, const QString &dauersatz)
{
    const bool dauert = stufe.stand == Stufenbild::Stand::Laeuft && !dauersatz.isEmpty();
    if (!dauert)
        return stufe.meldung.isEmpty() ? vorschau : stufe.meldung;
    return stufe.meldung.isEmpty() ? dauersatz : stufe.meldung + u" · "_s + dauersatz;
}

QString stufenzeit(const Stufenbild &stufe, const Laufganzes &ganzes, const QString &restzeit)
{
    if (ganzes.inPortionen() || stufe.stand == Stufenbild::Stand::Offen)
        return {};
    return stufe.stand == Stufenbild::Stand::Laeuft ? restzeit : dauertext(stufe.dauer);
}

QString standwort(Stufenbild::Stand stand)
{
    if (stand == Stufenbild::Stand::Fertig)
        return Sprache::text(u"fertig"_s);
    return stand == Stufenbild::Stand::Laeuft ? Sprache::text(u"läuft"_s) : Sprache::text(u"noch nicht begonnen"_s);
}

QString dublettensatz(const Nacharbeit::Dublette &dublette)
{
    return gefuellt(dublette.bytegleich ? Sprache::text(u"gleich wie %@"_s) : Sprache::text(u"gleicher Text wie %@"_s),
                    {dublette.original});
}

QString startfrage(Modellstand::Art art, const QString &meldung)
{
    const QString satz =
        meldung + u". "_s + Sprache::text(u"So werden die Texte gelesen, aber nichts wird eingeordnet."_s) + u' ';
    switch (art) {
    case Modellstand::Art::ServerFehlt:
        return satz + Sprache::text(u"Im Terminal startet ihn der Befehl „ollama serve“."_s);
    case Modellstand::Art::ModellAnderswo:
        return satz + Sprache::text(u"Wähle auf der Karte Einrichtung eines, das hier rechnet."_s);
    default:
        return satz + Sprache::text(u"Laden lässt es sich auf der Karte Einrichtung."_s);
    }
}
} // namespace quillmar::zustand
