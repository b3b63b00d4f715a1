#include "handlung.h"

#include "ablagewerk.h"
#include "datenbank.h"
#include "einordnung.h"
#include "hintergrund.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "text.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace
{
/** Folders are made below the target root, the root itself never; asked before a log folder is made in it. */
void zielPruefen(const Profil &profil)
{
    if (profil.zielWurzel.isEmpty())
        throw Fehler(Sprache::text(u"Es ist noch kein Zielordner gewählt"_s));
    if (!istOrdner(QDir::cleanPath(profil.zielWurzel)))
        throw Fehler(gefuellt(Sprache::text(u"Der Zielordner ist nicht erreichbar: %@"_s), {profil.zielWurzel}));
}

void schreiben(Datenbank &db, const QString &sql, const QVariantList &parameter)
{
    if (db.ausfuehren(sql, parameter) != 0)
        throw Fehler(
            Sprache::text(u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s));
}

/** The engine with the session's log; a log that cannot be made is told and hinders nothing. */
Ablagewerk werkMitBuch(const Arbeitsplatz &platz, Geschehen &g)
{
    zielPruefen(platz.profil);
    g.buch = Handlung::buchBereitstellen(platz);
    if (!g.buch)
        g.warnungen << Sprache::text(
            u"Das Protokoll konnte nicht angelegt werden. Prüfe den Ordner auf der Karte Protokoll."_s);
    return {platz.db, platz.profil, g.buch};
}

Geschehen nichts(const std::shared_ptr<Protokollbuch> &buch, const QString &grund = {})
{
    Geschehen g;
    g.buch = buch;
    if (!grund.isEmpty())
        g.hinweise << grund;
    return g;
}

/** Runs one deed; its failure becomes the notice, and what it was going to say is dropped. */
Geschehen gefasst(const Arbeitsplatz &platz, const std::function<void(Geschehen &)> &tat)
{
    Geschehen g = nichts(platz.buch);
    try {
        tat(g);
        g.gelungen = true;
    } catch (...) {
        g = nichts(g.buch, Hintergrund::fehlersatz());
    }
    return g;
}

void zaehlerMelden(const Zaehler &zaehler, const QString &gegenueber, Geschehen &g)
{
    if (zaehler.anzahl >= 1)
        g.hinweise.prepend(gefuellt(Sprache::text(u"Gemerkt. %@ wartende Dokumente von %@ wurden angepasst."_s),
                                    {QString::number(zaehler.anzahl), gegenueber}));
    if (zaehler.ohneProtokoll && g.buch)
        g.warnungen << Sprache::text(u"Die Bewegung ließ sich nicht ins Protokoll schreiben"_s);
}

QString aktuellerName(const Ablagewerk &werk, qint64 id)
{
    const auto dokument = werk.dokument(id);
    return dokument ? nameVon(dokument->pfad) : QString();
}

/** Another program may have handled the document since it was shown. */
void wartetNoch(const Arbeitsplatz &platz, qint64 id)
{
    const auto dokument = Ablagewerk(platz.db, platz.profil).dokument(id);
    if (dokument && dokument->status != u"bereit"_s)
        throw Fehler(Sprache::text(u"Dieses Dokument wurde inzwischen schon bearbeitet"_s));
}

void statusZurueck(const Arbeitsplatz &platz, const Rueckweg &weg, Geschehen &g)
{
    schreiben(*platz.db, u"UPDATE dokumente SET status='bereit' WHERE id=? AND status=?"_s, {weg.dokument, weg.status});
    g.wieder = weg.dokument;
    g.text = gefuellt(Sprache::text(u"Wieder zur Prüfung: %@"_s),
                      {aktuellerName(Ablagewerk(platz.db, platz.profil), weg.dokument)});
}

bool istNeueste(Datenbank &db, qint64 dokument)
{
    const QList<Zeile> zeilen =
        db.abfragen(u"SELECT dokument_id FROM protokoll WHERE rueckgaengig=0 ORDER BY id DESC LIMIT 1"_s);
    return !zeilen.isEmpty() && zeilen.first().ganz(u"dokument_id") == dokument;
}
} // namespace

QString Geschehen::allesGesagte() const
{
    QStringList saetze = warnungen + QStringList{text} + hinweise;
    saetze.removeAll(QString());
    return saetze.join(u", "_s);
}

std::shared_ptr<Protokollbuch> Handlung::buchBereitstellen(const Arbeitsplatz &platz)
{
    const auto ordner = platz.profil.protokollURL();
    if (!ordner)
        return nullptr;
    const auto &buch = platz.buch;
    if (buch && buch->ordner() == QDir::cleanPath(*ordner) &&
        buch->kopf().gleicheSitzung(Protokollkopf::fuer(platz.profil)))
        return buch;
    return Protokollbuch::anlegen(*ordner, platz.profil);
}

Geschehen Handlung::uebernehmen(const Arbeitsplatz &platz, Dokument dokument)
{
    return gefasst(platz, [&](Geschehen &g) {
        for (QString *feld : {&dokument.datum, &dokument.gegenueber, &dokument.titel, &dokument.jahr})
            *feld = nfc(feld->trimmed());
        if (const QString mangel = Einordnung::datumsmangel(dokument.datum); !mangel.isEmpty())
            throw Fehler(mangel);
        wartetNoch(platz, dokument.id);
        Ablagewerk werk = werkMitBuch(platz, g);
        werk.uebernehmen(dokument);
        zaehlerMelden(*werk.mitgezogen, dokument.gegenueber, g);
        const QString name = nameVon(werk.mitgezogen->nach);
        g.text = platz.profil.kopieren ? gefuellt(Sprache::text(u"Kopiert: %@"_s), {name})
                                       : gefuellt(Sprache::text(u"Einsortiert: %@"_s), {name});
        g.rueckweg = Rueckweg{.dokument = dokument.id, .status = {}};
        g.uebernommen = dokument.id;
    });
}

Geschehen Handlung::zuruecklegen(const Arbeitsplatz &platz, const Dokument &dokument)
{
    return gefasst(platz, [&](Geschehen &g) {
        wartetNoch(platz, dokument.id);
        schreiben(*platz.db, u"UPDATE dokumente SET status='zurueckgestellt' WHERE id=?"_s, {dokument.id});
        g.text = gefuellt(Sprache::text(u"Zurückgestellt: %@"_s), {nameVon(dokument.pfad)});
        g.rueckweg = Rueckweg{.dokument = dokument.id, .status = u"zurueckgestellt"_s};
    });
}

Geschehen Handlung::aussortieren(const Arbeitsplatz &platz, const Dokument &dokument)
{
    return gefasst(platz, [&](Geschehen &g) {
        wartetNoch(platz, dokument.id);
        Ablagewerk werk = werkMitBuch(platz, g);
        werk.aussortieren(dokument.id);
        zaehlerMelden(*werk.mitgezogen, {}, g);
        const bool nurStatus = platz.profil.kopieren;
        g.text = nurStatus ? gefuellt(Sprache::text(u"Als Dublette vermerkt: %@"_s), {nameVon(dokument.pfad)})
                           : gefuellt(Sprache::text(u"Als Dublette beiseitegelegt: %@"_s), {nameVon(dokument.pfad)});
        g.rueckweg = Rueckweg{.dokument = dokument.id, .status = nurStatus ? u"aussortiert"_s : QString()};
    });
}

Geschehen Handlung::rueckgaengig(const Arbeitsplatz &platz)
{
    return gefasst(platz, [&](Geschehen &g) {
        Ablagewerk werk(platz.db, platz.profil);
        g.wieder = werk.rueckgaengig();
        g.text = gefuellt(Sprache::text(u"Zurückgeholt: %@"_s), {aktuellerName(werk, *g.wieder)});
    });
}

Geschehen Handlung::zurueck(const Arbeitsplatz &platz, const Rueckweg &weg)
{
    if (!weg.status.isEmpty())
        return gefasst(platz, [&](Geschehen &g) { statusZurueck(platz, weg, g); });
    if (!istNeueste(*platz.db, weg.dokument))
        return nichts(platz.buch, Sprache::text(u"Inzwischen wurde schon etwas anderes bewegt"_s));
    return rueckgaengig(platz);
}

Geschehen Handlung::dublettenAusraeumen(const Arbeitsplatz &platz, const Handlungsfortschritt &fortschritt)
{
    return gefasst(platz, [&](Geschehen &g) {
        Ablagewerk werk = werkMitBuch(platz, g);
        const QList<Zeile> zeilen =
            platz.db->abfragen(u"SELECT id FROM dokumente WHERE status='dublette' AND ausgenommen=0"_s);
        qint64 anzahl = 0;
        QStringList fehler;
        for (qsizetype i = 0; i < zeilen.size() && fortschritt(i, zeilen.size()); ++i) {
            try {
                werk.aussortieren(zeilen.at(i).ganz(u"id"));
                ++anzahl;
            } catch (const Fehler &f) {
                fehler << f.text(); // one that cannot be moved does not keep the others from it
            }
        }
        const QString zahl = QString::number(anzahl);
        g.hinweise.prepend(
            platz.profil.kopieren
                ? gefuellt(Sprache::text(u"%@ Dubletten werden nicht mitkopiert"_s), {zahl})
                : gefuellt(Sprache::text(u"%@ Dubletten nach %@ verschoben"_s), {zahl, platz.profil.dublettenOrdner}));
        if (!fehler.isEmpty())
            g.hinweise << gefuellt(Sprache::text(u"%@ nicht: %@"_s),
                                   {QString::number(fehler.size()), fehler.constFirst()});
    });
}

Geschehen Handlung::wiederVorlegen(const Arbeitsplatz &platz)
{
    return gefasst(platz, [&](Geschehen &) {
        schreiben(*platz.db, u"UPDATE dokumente SET status='bereit' WHERE status=? AND ausgenommen=0"_s,
                  {u"zurueckgestellt"_s});
    });
}
