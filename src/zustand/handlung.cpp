#include "handlung.h"

#include "ablagewerk.h"
#include "dateien.h"
#include "einordnung.h"
#include "fehlersatz.h"
#include "lernspeicher.h"
#include "originale.h"
#include "pfade.h"
#include "protokollbuch.h"
#include "sprache.h"
#include "text.h"
#include "textleser.h"
#include "zielwurzel.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace quillmar::zustand
{
namespace
{
/** The engine with the session's log; a log that cannot be made is told and hinders nothing. */
Ablagewerk werkMitBuch(const Arbeitsplatz &platz, Geschehen &g)
{
    Ablagewerk werk(platz.db, platz.profil);
    werk.zielPruefen(); // before a log folder is made in it
    g.buch = Handlung::buchBereitstellen(platz);
    if (!g.buch)
        g.warnungen << Sprache::text(
            u"Das Protokoll konnte nicht angelegt werden. Prüfe den Ordner auf der Karte Protokoll."_s);
    werk.buchFuehren(g.buch);
    return werk;
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
    } catch (const AndererZielordner &f) {
        g = nichts(g.buch, f.text());
        g.zielFraglich = true;
    } catch (...) {
        g = nichts(g.buch, fehlersatz(std::current_exception()));
    }
    return g;
}

void protokollMelden(bool ohneProtokoll, Geschehen &g)
{
    if (ohneProtokoll && g.buch)
        g.warnungen << Sprache::text(u"Die Bewegung ließ sich nicht ins Protokoll schreiben"_s);
}

void vollzugMelden(const Vollzug &vollzug, const QString &gegenueber, Geschehen &g)
{
    if (vollzug.angepasst >= 1)
        g.hinweise.prepend(
            gefuellt(Sprache::text(vollzug.angepasst, u"Gemerkt. %@ wartendes Dokument von %@ wurde angepasst."_s,
                                   u"Gemerkt. %@ wartende Dokumente von %@ wurden angepasst."_s),
                     {QString::number(vollzug.angepasst), gegenueber}));
    protokollMelden(vollzug.ohneProtokoll, g);
}

/** As it is now; an unknown one when the catalogue cannot tell: what was done is told all the same. */
Dokument jetziges(const Arbeitsplatz &platz, qint64 id)
{
    try {
        return Ablagewerk(platz.db, platz.profil).dokument(id).value_or(Dokument());
    } catch (const Fehler &) {
        return {};
    }
}

/** Tells what was taken back; the name where it is one document. */
void ruecknahmeMelden(const Arbeitsplatz &platz, const Zurueckgenommen &z, Geschehen &g)
{
    if (z.dokumente.isEmpty())
        return; // stopped before the first one
    g.wieder = z.dokumente.first();
    const Dokument erstes = jetziges(platz, *g.wieder);
    const qsizetype anzahl = z.dokumente.size();
    const QString was =
        anzahl == 1 ? nameVon(erstes.pfad)
                    : gefuellt(Sprache::text(anzahl, u"%@ Dokument"_s, u"%@ Dokumente"_s), {QString::number(anzahl)});
    const bool wartet = erstes.status == Status::Bereit;
    g.text = gefuellt(z.bewegt ? Sprache::text(u"Zurückgeholt: %@"_s)
                      : wartet ? Sprache::text(u"Wieder zur Prüfung: %@"_s)
                               : Sprache::text(u"Zurückgenommen: %@"_s),
                      {was});
    if (!z.fehler.isEmpty())
        g.hinweise << gefuellt(Sprache::text(u"%@ nicht: %@"_s),
                               {QString::number(z.fehler.size()), z.fehler.constFirst()});
}

Geschehen zuruecknehmen(const Arbeitsplatz &platz, const std::optional<Taten::Tat> &diese,
                        const Handlungsfortschritt &fortschritt)
{
    return gefasst(platz, [&](Geschehen &g) {
        ruecknahmeMelden(platz, Ablagewerk(platz.db, platz.profil).tatZuruecknehmen(diese, fortschritt), g);
    });
}

/** Setting all duplicates aside, as far as it has come. */
struct Ausraeumung {
    qint64 anzahl = 0;
    qint64 wiederNeu = 0; ///< whose original is not what it was any more
    bool ohneProtokoll = false;
    QStringList fehler;

    void eines(Ablagewerk &werk, const Arbeitsplatz &platz, qint64 id, const Taten::Tat &tat)
    {
        try {
            if (!Originale::istNochDublette(*platz.db, id, Textleser::textgrenze(platz.profil))) {
                Dateien(*platz.db).dubletteFreigeben(id);
                ++wiederNeu;
                return;
            }
            ohneProtokoll = werk.aussortieren(id, Status::Dublette, tat).ohneProtokoll || ohneProtokoll;
            ++anzahl;
        } catch (const Fehler &f) {
            fehler << f.text(); // one that cannot be moved does not keep the others from it
        }
    }

    void melden(const Profil &profil, Geschehen &g) const
    {
        const QString zahl = QString::number(anzahl);
        g.hinweise.prepend(profil.kopieren ? gefuellt(Sprache::text(anzahl, u"%@ Dublette wird nicht mitkopiert"_s,
                                                                    u"%@ Dubletten werden nicht mitkopiert"_s),
                                                      {zahl})
                                           : gefuellt(Sprache::text(anzahl, u"%@ Dublette nach %@ verschoben"_s,
                                                                    u"%@ Dubletten nach %@ verschoben"_s),
                                                      {zahl, profil.dublettenOrdner}));
        if (wiederNeu > 0)
            g.hinweise << gefuellt(Sprache::text(wiederNeu,
                                                 u"%@ ist keine Dublette mehr: Das Original fehlt oder hat sich "
                                                 "geändert. Der nächste Durchgang liest sie neu"_s,
                                                 u"%@ sind keine Dubletten mehr: Das Original fehlt oder hat sich "
                                                 "geändert. Der nächste Durchgang liest sie neu"_s),
                                   {QString::number(wiederNeu)});
        if (!fehler.isEmpty())
            g.hinweise << gefuellt(Sprache::text(u"%@ nicht: %@"_s),
                                   {QString::number(fehler.size()), fehler.constFirst()});
    }
};
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
        Angaben &a = dokument.angaben;
        for (QString *feld : {&a.datum, &a.gegenueber, &a.titel, &a.jahr})
            *feld = nfc(feld->trimmed());
        if (const QString mangel = Einordnung::datumsmangel(a.datum); !mangel.isEmpty())
            throw Fehler(mangel);
        Ablagewerk werk = werkMitBuch(platz, g);
        const Vollzug vollzug = werk.uebernehmen(dokument);
        vollzugMelden(vollzug, a.gegenueber, g);
        const QString name = nameVon(vollzug.nach);
        g.text = platz.profil.kopieren ? gefuellt(Sprache::text(u"Kopiert: %@"_s), {name})
                                       : gefuellt(Sprache::text(u"Einsortiert: %@"_s), {name});
        g.rueckweg = Rueckweg{.tat = vollzug.tat};
        g.uebernommen = dokument.id;
    });
}

Geschehen Handlung::zuruecklegen(const Arbeitsplatz &platz, const Dokument &dokument)
{
    return gefasst(platz, [&](Geschehen &g) {
        const auto tat = Taten::statusWechseln(*platz.db, u"zurueckgestellt"_s, dokument.id, Status::Bereit,
                                               Status::Zurueckgestellt);
        if (!tat)
            throw Fehler(Sprache::text(u"Dieses Dokument wurde inzwischen schon bearbeitet"_s));
        g.text = gefuellt(Sprache::text(u"Zurückgestellt: %@"_s), {nameVon(dokument.pfad)});
        g.rueckweg = Rueckweg{.tat = *tat};
    });
}

Geschehen Handlung::aussortieren(const Arbeitsplatz &platz, const Dokument &dokument)
{
    return gefasst(platz, [&](Geschehen &g) {
        Ablagewerk werk = werkMitBuch(platz, g);
        const Vollzug vollzug = werk.aussortieren(dokument.id, Status::Bereit);
        vollzugMelden(vollzug, {}, g);
        const bool nurStatus = platz.profil.kopieren;
        g.text = nurStatus ? gefuellt(Sprache::text(u"Als Dublette vermerkt: %@"_s), {nameVon(dokument.pfad)})
                           : gefuellt(Sprache::text(u"Als Dublette beiseitegelegt: %@"_s), {nameVon(dokument.pfad)});
        g.rueckweg = Rueckweg{.tat = vollzug.tat};
    });
}

Geschehen Handlung::rueckgaengig(const Arbeitsplatz &platz, const Handlungsfortschritt &fortschritt)
{
    return zuruecknehmen(platz, std::nullopt, fortschritt);
}

Geschehen Handlung::tatZuruecknehmen(const Arbeitsplatz &platz, const Rueckweg &weg,
                                     const Handlungsfortschritt &fortschritt)
{
    return zuruecknehmen(platz, weg.tat, fortschritt);
}

Geschehen Handlung::letzteBewegungZuruecknehmen(const Arbeitsplatz &platz)
{
    return gefasst(platz, [&](Geschehen &g) {
        Ablagewerk werk(platz.db, platz.profil);
        const qint64 dokument = werk.rueckgaengig();
        ruecknahmeMelden(platz, {.dokumente = {dokument}, .bewegt = true, .fehler = {}}, g);
    });
}

Geschehen Handlung::dublettenAusraeumen(const Arbeitsplatz &platz, const Handlungsfortschritt &fortschritt)
{
    return gefasst(platz, [&](Geschehen &g) {
        Ablagewerk werk = werkMitBuch(platz, g);
        const QList<Dateien::Dublette> dubletten = Dateien(*platz.db).dubletten();
        const Taten::Tat tat = Taten::beginnen(*platz.db, u"dubletten"_s);
        Ausraeumung a;
        for (qsizetype i = 0; i < dubletten.size() && fortschritt(i, dubletten.size()); ++i)
            a.eines(werk, platz, dubletten.at(i).id, tat);
        a.melden(platz.profil, g);
        protokollMelden(a.ohneProtokoll, g);
        if (a.anzahl > 0)
            g.rueckweg = Rueckweg{.tat = tat};
    });
}

Geschehen Handlung::wiederVorlegen(const Arbeitsplatz &platz)
{
    return gefasst(platz, [&](Geschehen &g) {
        const auto tat = Taten::alleWechseln(*platz.db, u"vorgelegt"_s, Status::Zurueckgestellt, Status::Bereit);
        if (!tat)
            return;
        g.rueckweg = Rueckweg{.tat = *tat};
        QList<qint64> wieder;
        for (const Taten::Posten &posten : Taten::offene(*platz.db, *tat))
            wieder << posten.dokument;
        Lernspeicher(*platz.db, platz.profil).nachrechnen(wieder);
    });
}

Geschehen Handlung::zielBestaetigen(const Arbeitsplatz &platz)
{
    return gefasst(platz, [&](Geschehen &g) {
        Zielwurzel::bestaetigen(*platz.db, platz.profil);
        g.hinweise << Sprache::text(u"Der Zielordner gilt, jetzt kannst du weiter einsortieren"_s);
    });
}
} // namespace quillmar::zustand
