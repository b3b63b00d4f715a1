#include "abgleich.h"

#include "dateibewegung.h"
#include "lauf.h"
#include "lernspeicher.h"
#include "pfade.h"
#include "pruefsummen.h"
#include "stapel.h"
#include "wiedererkennung.h"

#include <QSet>

namespace quillmar::analyse
{
namespace
{
using Abgleich::Bekanntes;
using Abgleich::Fall;
using Bestand::Fund;

bool istFehlend(const Bekanntes &b) { return b.status == Status::Fehlt || b.abwesend; }

/** Nobody has seen anything of it yet: what was read from the former file is simply dropped. */
bool istUngesehen(const Bekanntes &b) { return b.status == Status::Neu || b.status == Status::Laeuft; }

Dateien::Fund fuerKatalog(const Fund &f)
{
    return {.pfad = f.pfad, .name = nameVon(f.pfad), .ordner = f.ordner, .groesse = f.groesse};
}

/** The changes of one inventory, in transactions that stay short. */
class Eintragung
{
public:
    /** @p seit is the newest movement before the walk. */
    Eintragung(const Lauf &lauf, qint64 seit)
        : m_db(lauf.db()), m_profil(lauf.profil()), m_dateien(m_db), m_stapel(m_db), m_seit(seit)
    {
    }

    bool neu(const Fund &f)
    {
        m_stapel.naechstes();
        return m_dateien.aufnehmen(fuerKatalog(f), m_seit);
    }

    void vermerken(const Bekanntes &b, const Fund &f, bool geprueft)
    {
        m_stapel.naechstes();
        m_dateien.standNotieren(b.id, f.groesse, f.geaendert, geprueft);
    }

    /** A document that had vanished goes on where it was; one that could not be read for that is read now. */
    void zurueck(const Bekanntes &b)
    {
        m_stapel.naechstes();
        if (b.abwesend)
            m_dateien.wiederDa(b.id);
        else
            m_dateien.zurueckgekehrt(b.id);
        m_heimgekehrte << b.id;
    }

    /** Another file lies there now, with the digest @p summe. */
    void ersetzt(const Bekanntes &b, const Fund &f, const QString &summe)
    {
        m_stapel.naechstes();
        if (istUngesehen(b)) {
            if (m_dateien.neuFassen(b.id, fuerKatalog(f), summe)) // else handled meanwhile
                vermerken(b, f, true);
            return;
        }
        if (m_dateien.pfadFreigeben(b.id, f.pfad) && neu(f)) // else moved meanwhile
            m_dateien.gelesenVermerken(fuerKatalog(f), f.geaendert, summe);
    }

    /** Writes all; those that wait again get what was learned meanwhile. */
    void abschliessen()
    {
        m_stapel.abschliessen();
        Lernspeicher(m_db, m_profil).nachrechnen(std::exchange(m_heimgekehrte, {}));
    }

private:
    Datenbank &m_db;
    const Profil &m_profil;
    QList<qint64> m_heimgekehrte;
    Dateien m_dateien;
    Stapel m_stapel;
    qint64 m_seit;
};

/** A file whose bytes must tell. */
struct Offenes {
    Bekanntes bekannt;
    Fund fund;
    bool inDerHerkunft = true; ///< else another file there is no business of the inventory
};

void entscheiden(Eintragung &e, const Offenes &o, const QString &summe)
{
    if (summe.isNull())
        return; // unreadable now; the next inventory tries again
    if (summe != o.bekannt.stand.sha256) {
        if (o.inDerHerkunft)
            e.ersetzt(o.bekannt, o.fund, summe);
        return;
    }
    e.vermerken(o.bekannt, o.fund, true);
    if (istFehlend(o.bekannt))
        e.zurueck(o.bekannt);
}

void offeneEntscheiden(Lauf &lauf, const QList<Offenes> &offene, qint64 seit)
{
    QList<Pruefsummen::Datei> dateien;
    for (qsizetype i = 0; i < offene.size(); ++i)
        dateien << Pruefsummen::Datei{.id = i, .pfad = offene.at(i).fund.pfad};
    Pruefsummen::berechnen(
        dateien, [&lauf] { return lauf.sollHalten(); },
        [&](const QList<Pruefsummen::Ergebnis> &neue) {
            Eintragung e(lauf, seit);
            for (const Pruefsummen::Ergebnis &ergebnis : neue) {
                Offenes o = offene.at(qsizetype(ergebnis.id));
                o.fund.groesse = ergebnis.groesse;
                o.fund.geaendert = ergebnis.geaendert;
                entscheiden(e, o, ergebnis.sha256);
            }
            e.abschliessen();
        });
}

void eintragen(Eintragung &e, Fall fall, const Offenes &o, QList<Offenes> &offene)
{
    switch (fall) {
    case Fall::Neu:
        e.neu(o.fund);
        return;
    case Fall::Vermerken:
        return e.vermerken(o.bekannt, o.fund, false);
    case Fall::Zurueck:
        return e.zurueck(o.bekannt);
    case Fall::Offen:
        offene << o;
        return;
    case Fall::Bekannt:
        return;
    }
}

/** True if the catalogue knew the file. */
bool fundEintragen(Eintragung &e, const Dateien::Verzeichnis &bekannte, const Fund &fund, QList<Offenes> &offene)
{
    const auto b = bekannte.constFind(fund.pfad);
    const bool da = b != bekannte.cend();
    eintragen(e, Abgleich::fall(da ? &*b : nullptr, fund), {.bekannt = da ? *b : Bekanntes(), .fund = fund}, offene);
    return da;
}

/** New files that are no longer as they were found: filed or brought back by a deed of the review meanwhile, say. */
QSet<QString> verschwundenSeither(const Dateien::Verzeichnis &bekannte, const QList<Fund> &funde)
{
    QSet<QString> pfade;
    for (const Fund &f : funde) {
        if (!bekannte.contains(f.pfad) && !Dateibewegung::istDieselbe(f.pfad, f.groesse, f.geaendert))
            pfade.insert(f.pfad);
    }
    return pfade;
}

/** Documents that had vanished, do not lie in the source folder, and are there again. */
QList<Offenes> andernorts(const Dateien::Verzeichnis &verzeichnis, const QSet<QString> &gefunden)
{
    QList<Offenes> liste;
    for (auto b = verzeichnis.cbegin(); b != verzeichnis.cend(); ++b) {
        if (!istFehlend(*b) || gefunden.contains(b.key()))
            continue;
        const auto angaben = Dateibewegung::angabenVon(b.key());
        if (angaben)
            liste << Offenes{
                .bekannt = *b,
                .fund = {.pfad = b.key(), .ordner = {}, .groesse = angaben->groesse, .geaendert = angaben->zeit},
                .inDerHerkunft = false};
    }
    return liste;
}
} // namespace

Fall Abgleich::fall(const Bekanntes *bekannt, const Fund &fund)
{
    if (!bekannt)
        return Fall::Neu;
    const Dateinotiz &n = bekannt->stand;
    if (Wiedererkennung::vergleich(n, fund.groesse, fund.geaendert) == Wiedererkennung::Vergleich::Offen)
        return Fall::Offen;
    if (istFehlend(*bekannt)) // only the same content comes back
        return n.sha256.isEmpty() || n.geprueft ? Fall::Zurueck : Fall::Offen;
    return n.notiert || n.sha256.isEmpty() ? Fall::Bekannt : Fall::Vermerken;
}

void Abgleich::eintragen(Lauf &lauf, const QList<Fund> &funde, qint64 seit)
{
    const Dateien::Verzeichnis bekannte = Dateien(lauf.db()).verzeichnis();
    const QSet<QString> verschwundene = verschwundenSeither(bekannte, funde);
    QSet<QString> gefunden;
    QList<Offenes> offene;
    Eintragung e(lauf, seit);
    for (const Fund &f : funde) {
        if (!verschwundene.contains(f.pfad) && fundEintragen(e, bekannte, f, offene))
            gefunden.insert(f.pfad);
    }
    e.abschliessen();
    for (const Offenes &o : andernorts(bekannte, gefunden))
        analyse::eintragen(e, fall(&o.bekannt, o.fund), o, offene);
    e.abschliessen();
    offeneEntscheiden(lauf, offene, seit);
}
} // namespace quillmar::analyse
