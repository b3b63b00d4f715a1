#include "kommandozeile.h"

#include "ablagewerk.h"
#include "ausgabe.h"
#include "bewegungsgang.h"
#include "katalog.h"
#include "lernspeicher.h"
#include "profilspeicher.h"
#include "text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quillmar::app
{
using Ausgabe::drucken;

namespace
{
constexpr int strukturTiefe = 2;

std::optional<Profil> profilWaehlen(const QList<Profil> &profile, const QStringList &argumente)
{
    const auto name = Kommandozeile::wert(argumente, u"--profil"_s);
    if (!name)
        return profile.first();
    const auto treffer = std::find_if(profile.begin(), profile.end(), [&](const Profil &p) { return p.name == *name; });
    return treffer == profile.end() ? std::nullopt : std::optional(*treffer);
}

/** Finishes or takes back what a crash interrupted; what cannot be settled now stays noted for the next time. */
void absturzKlaeren(const std::shared_ptr<Datenbank> &db)
{
    try {
        for (const QString &name : Bewegungsgang::klaeren(db))
            Ausgabe::melden(gefuellt(u"Nach einem Absturz noch ungeklärt, wo diese Datei liegt: %@"_s, {name}));
        Lernspeicher(*db).schluesselUebertragen();
    } catch (const Fehler &f) {
        Ausgabe::melden(f.text());
    }
}

/** The command is there to change something. */
bool schreibt(const QStringList &argumente)
{
    const auto eines = [&](const QStringList &befehle) {
        return std::any_of(befehle.begin(), befehle.end(), [&](const QString &b) { return argumente.contains(b); });
    };
    return eines({u"--analyse"_s, u"--selbsttest"_s}) ||
           (eines({u"--anwenden"_s}) && eines({u"--gelernt"_s, u"--gegenueber"_s, u"--rechnungen"_s}));
}

/** Null when it does not open, or when it is damaged and the command would write. */
std::shared_ptr<Datenbank> katalogOeffnen(const Profil &profil, bool zumSchreiben)
{
    try {
        auto db = Katalog::oeffnen(Profilspeicher::katalogDatei(profil),
                                   zumSchreiben ? Katalog::Vorpruefung::Immer : Katalog::Vorpruefung::NachAbsturz);
        if (Katalog::nurLesen(*db))
            Ausgabe::melden(Katalog::nurLesenSatz(*db));
        if (const QString satz = Katalog::neuanfangSatz(*db); !satz.isEmpty())
            Ausgabe::melden(satz);
        if (Katalog::zugang(*db) == Zugang::Beschaedigt)
            return zumSchreiben ? nullptr : db;
        absturzKlaeren(db);
        return db;
    } catch (const Fehler &f) {
        drucken(u"Datenbank nicht erreichbar"_s);
        Ausgabe::melden(f.text());
        return {};
    }
}

void ausnahmenAnwenden(Datenbank &db, const Profil &profil)
{
    try {
        const auto wechsel = Ablagewerk::ausnahmenAnwenden(db, profil);
        if (wechsel.ruhen > 0 || wechsel.zurueckgeholt > 0)
            drucken(gefuellt(u"Ausnahmen: %@ ruhen jetzt, %@ zurückgeholt"_s,
                             {QString::number(wechsel.ruhen), QString::number(wechsel.zurueckgeholt)}));
    } catch (const Fehler &f) {
        Ausgabe::melden(f.text()); // the report can still be given
    }
}

/** Reads the filing tree once, when the profile has none yet, and keeps it in the profile. */
void strukturErgaenzen(Profil &profil, const QList<Profil> &liste)
{
    if (!profil.zweige.isEmpty() || profil.zielWurzel.isEmpty())
        return;
    profil.zweige = Profil::struktureinlesen(profil.zielWurzel, strukturTiefe, profil.eigeneOrdner());
    QList<Profil> neu = liste;
    std::replace_if(
        neu.begin(), neu.end(), [&](const Profil &p) { return p.id == profil.id; }, profil);
    Profilspeicher::sichern(neu, liste); // a failure only means that the tree is read again next time
    qsizetype rubriken = 0;
    for (const Zweig &zweig : std::as_const(profil.zweige)) {
        for (const Ablageart &art : zweig.ablagen)
            rubriken += art.rubriken.size();
    }
    drucken(gefuellt(u"Struktur eingelesen: %@ Zweige, %@ Rubriken"_s,
                     {QString::number(profil.zweige.size()), QString::number(rubriken)}));
}

void oderMelden(const std::function<void()> &arbeit)
{
    try {
        arbeit();
    } catch (const Fehler &f) {
        Ausgabe::melden(f.text());
    }
}

void ausfuehren(const QStringList &argumente, const std::shared_ptr<Datenbank> &db, const Profil &profil)
{
    const bool anwenden = argumente.contains("--anwenden"_L1);
    if (argumente.contains("--gelernt"_L1))
        return argumente.contains("--aus-ablage"_L1) ? Kommandozeile::ausAblage(*db, profil, anwenden)
                                                     : Kommandozeile::gelernt(*db, profil, anwenden);
    if (argumente.contains("--gegenueber"_L1))
        return Kommandozeile::gegenueberBerichtigen(*db, profil, !anwenden);
    if (argumente.contains("--rechnungen"_L1))
        return Kommandozeile::rechnungenBerichtigen(*db, profil, !anwenden);
    if (argumente.contains("--selbsttest"_L1))
        return Kommandozeile::selbsttest(db, profil);
    // Unasked, every hour say, a run without a model would leave documents without proposals.
    const bool verzichten = argumente.contains("--mit-modell"_L1) && !Kommandozeile::modellDa(profil);
    if (argumente.contains("--analyse"_L1) && !verzichten)
        Kommandozeile::analysieren(db, profil, argumente.contains("--erneut"_L1));
    const Ablagewerk werk(db, profil);
    oderMelden([&] { Kommandozeile::bestandDrucken(werk); }); // each part for itself: one may be read, the other not
    oderMelden([&] { Kommandozeile::bericht(*db, werk); });
}
} // namespace

bool Kommandozeile::istGemeint(const QStringList &argumente)
{
    static const QStringList befehle = {u"--analyse"_s,    u"--bericht"_s,    u"--selbsttest"_s,
                                        u"--rechnungen"_s, u"--gegenueber"_s, u"--gelernt"_s};
    return std::any_of(befehle.begin(), befehle.end(), [&](const QString &b) { return argumente.contains(b); });
}

std::optional<QString> Kommandozeile::wert(const QStringList &argumente, const QString &name)
{
    const qsizetype stelle = argumente.indexOf(name);
    return stelle < 0 || stelle + 1 >= argumente.size() ? std::nullopt : std::optional(argumente.at(stelle + 1));
}

void Kommandozeile::laufen(const QStringList &argumente)
{
    const auto [liste, unlesbar, anmerkungen] = Profilspeicher::lesen();
    for (const QString &anmerkung : anmerkungen)
        Ausgabe::melden(anmerkung);
    if (liste.isEmpty())
        return drucken(u"Kein Profil vorhanden"_s);
    auto profil = profilWaehlen(liste, argumente);
    if (!profil)
        return drucken(u"Profil nicht gefunden"_s);
    drucken(gefuellt(u"Profil: %@"_s, {profil->name}));
    const auto db = katalogOeffnen(*profil, schreibt(argumente));
    if (!db)
        return;
    if (Katalog::zugang(*db) != Zugang::Beschaedigt)
        ausnahmenAnwenden(*db, *profil);
    strukturErgaenzen(*profil, liste);
    oderMelden([&] { ausfuehren(argumente, db, *profil); });
}
} // namespace quillmar::app
