#include "befunde.h"

#include "ocrsprachen.h"
#include "sprache.h"
#include "text.h"
#include "vorlagenmangel.h"

#include <QLocale>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
using Marke = Befund::Marke;

namespace
{
constexpr double knapp = 0.9; // of the model's context

QString zahl(qint64 wert) { return QString::number(wert); }

Befund erklaerung(const QString &satz) { return {.marke = Marke::Keine, .satz = satz}; }
Befund gut(const QString &satz) { return {.marke = Marke::Gut, .satz = satz}; }
Befund warnung(const QString &satz) { return {.marke = Marke::Warnung, .satz = satz}; }
Befund laeuft(const QString &satz) { return {.marke = Marke::Laeuft, .satz = satz}; }

Befund wirdGesucht() { return laeuft(Sprache::text(u"Wird gesucht …"_s)); }

Befund ordnerFehlt()
{
    return warnung(Sprache::text(u"Diesen Ordner gibt es nicht, oder er ist gerade nicht erreichbar."_s));
}

QString fundsatz(const Quellstand &quelle)
{
    QString satz =
        gefuellt(Sprache::text(quelle.anzahl, u"1 PDF gefunden."_s, u"%@ PDF gefunden."_s), {zahl(quelle.anzahl)});
    if (quelle.ausgenommen > 0)
        satz += u' ' + gefuellt(Sprache::text(u"%@ durch Ausnahmen ausgelassen."_s), {zahl(quelle.ausgenommen)});
    if (quelle.ausgelassen > 0)
        satz += u' ' + gefuellt(Sprache::text(u"%@ ausgelassen: Verweise oder Namen, die sich nicht lesen lassen."_s),
                                {zahl(quelle.ausgelassen)});
    return satz;
}

QString zahlensatz(const Strukturzahlen &z, bool geradeGelesen)
{
    QString satz = gefuellt(Sprache::text(u"Zweige: %@, Ablagen: %@, Rubriken: %@."_s),
                            {zahl(z.zweige), zahl(z.ablagen), zahl(z.rubriken)});
    if (z.neu > 0 || z.entfallen > 0)
        satz += u' ' + gefuellt(Sprache::text(u"Neu: %@, entfallen: %@."_s), {zahl(z.neu), zahl(z.entfallen)});
    else if (geradeGelesen)
        satz += u' ' + Sprache::text(u"Eben eingelesen, nichts hat sich geändert."_s);
    return satz;
}

Befund fehlendes(const Modellstand &stand, const QString &gewaehlt)
{
    if (stand.art == Modellstand::Art::ServerFehlt || stand.art == Modellstand::Art::Unbekannt)
        return erklaerung(Sprache::text(u"Ob es da ist, weiß nur der Modellserver."_s));
    const QString satz = gefuellt(Sprache::text(u"Das Modell %@ fehlt noch"_s), {gewaehlt});
    const bool gescheitert = stand.fehlermodell == gewaehlt && !stand.ladefehler.isEmpty();
    return warnung(gescheitert ? satz + u": "_s + stand.ladefehler : satz);
}

QString ladewort(const Modellstand &stand)
{
    if (stand.ladegroesse <= 0)
        return Sprache::text(u"wird geladen"_s);
    return gefuellt(Sprache::text(u"wird geladen, %@ %"_s), {zahl(stand.geladen * 100 / stand.ladegroesse)});
}

Befund modellbefund(const Modellstand &stand, const QString &gewaehlt, const QString &eingabe)
{
    if (stand.rechnetAnderswo(eingabe))
        return warnung(Modellstand::anderswoSatz(eingabe));
    if (gewaehlt.isEmpty())
        return erklaerung(Sprache::text(u"Keines gewählt."_s));
    if (stand.laedtModell == gewaehlt)
        return laeuft(ladewort(stand));
    if (Modellstand::treffer(stand.vorhandene, gewaehlt))
        return gut(Sprache::text(u"einsatzbereit"_s));
    return fehlendes(stand, gewaehlt);
}

QString ladehoehe(const Modellstand &stand)
{
    if (stand.ladegroesse <= 0)
        return stand.ladetext;
    const QLocale gebiet;
    return gefuellt(Sprache::text(u"%@ von %@"_s),
                    {gebiet.formattedDataSize(stand.geladen, 1), gebiet.formattedDataSize(stand.ladegroesse, 1)});
}

Befund gemerkt(qsizetype anzahl, const QString &leer)
{
    return erklaerung(anzahl == 0 ? leer : gefuellt(Sprache::text(u"%@ gemerkt"_s), {zahl(anzahl)}));
}
} // namespace

Befund Befunde::werkzeug(const Einrichtungslage &lage, const QString &name)
{
    if (!lage.stand.programme)
        return wirdGesucht();
    const auto &alle = lage.stand.programme->werkzeuge;
    const auto w = std::find_if(alle.begin(), alle.end(), [&](const auto &eines) { return eines.name == name; });
    if (w == alle.end() || w->pfad.isEmpty())
        return warnung(gefuellt(Sprache::text(u"Nicht gefunden. Installiere das Paket %@."_s),
                                {w == alle.end() ? name : w->paket}));
    return gut(w->pfad);
}

Befund Befunde::ocrSprache(const Einrichtungslage &lage)
{
    const auto &programme = lage.stand.programme;
    if (!programme || programme->sprachen.isEmpty())
        return erklaerung(Sprache::text(u"Noch keine Sprachen gefunden."_s));
    const QString &sprache = lage.profil.ocrSprache;
    if (programme->kann(sprache))
        return erklaerung(
            gefuellt(Sprache::text(u"Installiert: %@."_s), {Ocrsprachen::namen(programme->sprachen).join(u", "_s)}));
    return warnung(
        gefuellt(Sprache::text(u"%@ ist nicht installiert, Scans bleiben ungelesen. Installiere das Paket %@."_s),
                 {Ocrsprachen::name(sprache), Ocrsprachen::paket(sprache)}));
}

Befund Befunde::modellserver(const Einrichtungslage &lage)
{
    switch (lage.modell.art) {
    case Modellstand::Art::Unbekannt:
        return wirdGesucht();
    case Modellstand::Art::ServerFehlt:
        return warnung(lage.modell.meldung);
    default:
        return gut(Sprache::text(u"Der Modellserver läuft."_s));
    }
}

Befund Befunde::serverrat(const Einrichtungslage &lage)
{
    switch (lage.modell.art) {
    case Modellstand::Art::Unbekannt:
        return {};
    case Modellstand::Art::ServerFehlt:
        return erklaerung(
            Sprache::text(u"Starte ihn mit „ollama serve“. Fehlt er ganz, installiere das Programm ollama und "
                          "prüfe dann erneut."_s));
    default:
        return erklaerung(lage.modell.meldung);
    }
}

Befund Befunde::quelle(const Einrichtungslage &lage)
{
    if (lage.profil.quelle.isEmpty())
        return erklaerung(Sprache::text(u"Noch nicht gewählt. Hier liegen die Scans, die einen Namen brauchen."_s));
    if (lage.bereitschaft && !lage.bereitschaft->quelle)
        return ordnerFehlt();
    const auto &quelle = lage.stand.quelle;
    if (!quelle)
        return laeuft(Sprache::text(u"PDF werden gezählt …"_s));
    return quelle->anzahl > 0 ? gut(fundsatz(*quelle)) : warnung(fundsatz(*quelle));
}

Befund Befunde::ruhende(const Einrichtungslage &lage)
{
    if (lage.ruhende == 0)
        return erklaerung(Sprache::text(u"Derzeit ruht kein Dokument wegen einer Ausnahme."_s));
    return erklaerung(gefuellt(Sprache::text(lage.ruhende, u"%@ Dokument ruht wegen einer Ausnahme."_s,
                                             u"%@ Dokumente ruhen wegen einer Ausnahme."_s),
                               {zahl(lage.ruhende)}));
}

Befund Befunde::neueScans(const Scanstand &stand)
{
    if (!stand.an)
        return {};
    if (stand.wartende == 0)
        return gut(Sprache::text(u"Wartet auf neue Scans."_s));
    const QString anzahl = zahl(stand.wartende);
    if (stand.ohneModell)
        return warnung(gefuellt(Sprache::text(stand.wartende, u"%@ neuer Scan wartet auf das Sprachmodell."_s,
                                              u"%@ neue Scans warten auf das Sprachmodell."_s),
                                {anzahl}));
    return laeuft(gefuellt(
        Sprache::text(stand.wartende, u"%@ neuer Scan ist gekommen."_s, u"%@ neue Scans sind gekommen."_s), {anzahl}));
}

Befund Befunde::zielWurzel(const Einrichtungslage &lage)
{
    if (lage.profil.zielWurzel.isEmpty())
        return erklaerung(Sprache::text(u"Noch nicht gewählt. Hierhin wandern die Dokumente, die du übernimmst."_s));
    if (!lage.bereitschaft)
        return wirdGesucht();
    return lage.bereitschaft->ziel ? gut(Sprache::text(u"Ordner gefunden."_s)) : ordnerFehlt();
}

Befund Befunde::struktur(const Einrichtungslage &lage)
{
    const Einrichtungsstand &stand = lage.stand;
    if (stand.liestStruktur)
        return laeuft(Sprache::text(u"Ordner werden gelesen …"_s));
    if (!stand.strukturmangel.isEmpty())
        return warnung(stand.strukturmangel);
    if (stand.strukturAlt)
        return warnung(Sprache::text(u"Die Struktur stammt aus dem bisherigen Zielordner. Lies sie neu ein."_s));
    if (stand.zahlen.rubriken == 0 && stand.zahlen.ablagen == 0)
        return erklaerung(Sprache::text(u"Noch nicht eingelesen. Ohne Struktur weiß das Modell nicht, wohin."_s));
    return erklaerung(zahlensatz(stand.zahlen, stand.geradeGelesen));
}

Befund Befunde::rubrik(const Einrichtungslage &lage, const QString &rubrik)
{
    if (lage.profil.zweige.isEmpty() || kenntRubrik(lage.stand.struktur, rubrik))
        return {};
    return {.marke = Marke::Hinweis,
            .satz = Sprache::text(u"Gibt es in deiner Struktur nicht. Dann wird nicht unterschieden."_s)};
}

Befund Befunde::vorlage(const QString &vorlage, bool istPfad)
{
    const QList<Vorlagenmangel> maengel = vorlagenmaengel(vorlage, istPfad);
    return maengel.isEmpty() ? Befund() : warnung(maengel.first().satz);
}

Befund Befunde::beispiel(const Beispiel &beispiel)
{
    if (beispiel.echt)
        return erklaerung(Sprache::text(u"An einem Dokument, das auf deine Prüfung wartet. Rechnet sich mit jedem "
                                        "Tastendruck neu."_s));
    return erklaerung(Sprache::text(u"Noch wartet kein Dokument, deshalb an einem erfundenen. Rechnet sich mit jedem "
                                    "Tastendruck neu."_s));
}

QString Befunde::ort(const QStringList &ebenen)
{
    return ebenen.isEmpty() ? Sprache::text(u"Noch kein Zielordner gewählt"_s) : ebenen.join(u" › "_s);
}

/** The environment may name a server which is not asked. */
Befund Befunde::server(const Einrichtungslage &lage)
{
    if (lage.modell.art == Modellstand::Art::Unbekannt)
        return wirdGesucht();
    const auto mitUmgebung = [&lage](const QString &satz, const QString &davor) {
        return lage.umgebung.isEmpty() ? satz : satz + davor + lage.umgebung;
    };
    if (lage.modell.art == Modellstand::Art::ServerFehlt)
        return warnung(
            mitUmgebung(Sprache::text(u"ollama läuft nicht. Was zu tun ist, steht unter Programme."_s), u" "_s));
    const QString satz = mitUmgebung(Sprache::text(u"ollama läuft"_s), u". "_s);
    return lage.umgebung.isEmpty() ? gut(satz) : warnung(satz);
}

Befund Befunde::modell(const Einrichtungslage &lage, const QString &eingabe)
{
    return modellbefund(lage.modell, lage.profil.modell, eingabe);
}

Befund Befunde::modellGross(const Einrichtungslage &lage, const QString &eingabe)
{
    return lage.profil.zweitmeinung ? modellbefund(lage.modell, lage.profil.modellGross, eingabe)
                                    : erklaerung(Sprache::text(u"Wird nicht gefragt."_s));
}

bool Befunde::fehlt(const Modellstand &stand, const QString &gewaehlt, const QString &eingabe)
{
    return !gewaehlt.isEmpty() && stand.laedtModell != gewaehlt && !stand.rechnetAnderswo(eingabe) &&
           !Modellstand::treffer(stand.vorhandene, gewaehlt);
}

Befund Befunde::ladestand(const Einrichtungslage &lage)
{
    if (lage.modell.laedtModell.isEmpty())
        return {};
    QStringList teile = {ladehoehe(lage.modell)};
    if (!lage.modell.restzeit.isEmpty())
        teile << lage.modell.restzeit;
    return erklaerung(teile.join(u" · "_s) + u". "_s + Sprache::text(u"Du kannst inzwischen weiter einrichten."_s));
}

Befund Befunde::platz(const Einrichtungslage &lage)
{
    const double anteil = platzImModell(lage.profil);
    const QString prozent = zahl(qRound(anteil * 100));
    if (anteil > 1)
        return warnung(gefuellt(Sprache::text(u"Braucht mit Rubriken: %@ etwa %@ Prozent dessen, was das Modell fasst. "
                                              "Lass weniger Zeichen lesen oder fasse Rubriken zusammen."_s),
                                {zahl(lage.stand.zahlen.rubriken), prozent}));
    if (anteil > knapp)
        return {.marke = Marke::Hinweis,
                .satz =
                    gefuellt(Sprache::text(u"Belegt etwa %@ Prozent dessen, was das Modell fasst. Das ist knapp."_s),
                             {prozent})};
    return gut(gefuellt(Sprache::text(u"Belegt etwa %@ Prozent dessen, was das Modell fasst."_s), {prozent}));
}

Befund Befunde::zuordnungen(const Einrichtungslage &lage)
{
    return gemerkt(lage.stand.gelerntes.zuordnungen.size(),
                   Sprache::text(u"Noch keine. Übernimmst du ein Dokument, merkt sich das Programm den Ort für sein "
                                 "Gegenüber."_s));
}

Befund Befunde::gleichungen(const Einrichtungslage &lage)
{
    return gemerkt(lage.stand.gelerntes.gleichungen.size(),
                   Sprache::text(u"Noch keine. Änderst du beim Prüfen den Namen des Gegenübers, merkt sich das "
                                 "Programm die Gleichung und trägt sie in alle wartenden Dokumente mit dem alten "
                                 "Namen ein."_s));
}

Befund Befunde::sicherung(const Einrichtungslage &lage)
{
    const Katalogstand &stand = lage.stand.katalog;
    if (!stand.mangel.isEmpty())
        return warnung(stand.mangel);
    if (stand.sicherungen.isEmpty())
        return erklaerung(
            Sprache::text(u"Noch keine. Die erste entsteht nebenher, sobald der Katalog Dokumente kennt."_s));
    return gut(gefuellt(Sprache::text(stand.sicherungen.size(), u"%@ Sicherung, die letzte vom %@."_s,
                                      u"%@ Sicherungen, die letzte vom %@."_s),
                        {zahl(stand.sicherungen.size()), zeitpunkt(stand.sicherungen.first())}));
}

QString fussnote(Abschnitt abschnitt, const Einrichtungslage &lage)
{
    const Strukturzahlen &z = lage.stand.zahlen;
    if (abschnitt == Abschnitt::Namen)
        return Sprache::text(u"Gilt ab dem nächsten Übernehmen. Schon Abgelegtes behält seinen Namen."_s);
    if (abschnitt == Abschnitt::Ziel && (z.neu > 0 || z.entfallen > 0))
        return Sprache::text(u"Die Änderungen der Struktur gelten ab dem nächsten Durchgang."_s);
    return {};
}
} // namespace quillmar::zustand
