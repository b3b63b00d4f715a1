#include "abgleich.h"

#include "dateibewegung.h"
#include "datenbank.h"
#include "lauf.h"
#include "pfade.h"
#include "pruefsummen.h"
#include "stapel.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace
{
using Abgleich::Bekanntes;
using Abgleich::Fall;
using Bestand::Fund;

/** Not what has been moved away from there since the walk began: the next inventory looks again. */
const QString einfuegen = u"INSERT OR IGNORE INTO dokumente (pfad, dateiname, alt_ordner, groesse)\n"
                          "SELECT ?,?,?,? WHERE NOT EXISTS (SELECT 1 FROM protokoll WHERE id>? AND von_pfad=?)"_s;

bool istFehlend(const Bekanntes &b) { return b.status == u"fehlt"_s || b.abwesend; }

/** Nobody has seen anything of it yet: what was read from the former file is simply dropped. */
bool istUngesehen(const Bekanntes &b) { return b.status == u"neu"_s || b.status == u"laeuft"_s; }

/** The changes of one inventory, in transactions that stay short. */
class Eintragung
{
public:
    /** @p seit is the newest movement before the walk. */
    Eintragung(Datenbank &db, qint64 seit) : m_stapel(db), m_seit(seit) {}

    int neu(const Fund &f)
    {
        return m_stapel.schreiben(einfuegen, {f.pfad, nameVon(f.pfad), f.ordner, f.groesse, m_seit, f.pfad});
    }

    void vermerken(const Bekanntes &b, const Fund &f, bool geprueft)
    {
        Wiedererkennung::notieren(m_stapel, b.id, f.groesse, f.geaendert, geprueft);
    }

    /** A document that had vanished goes on where it was; one that could not be read for that is read now. */
    void zurueck(const Bekanntes &b)
    {
        if (b.abwesend) {
            m_stapel.schreiben(
                u"UPDATE dokumente SET status='neu', fehler=NULL, vorschlag=NULL, zweitmeinung=NULL,\n"
                "text_hash=(SELECT d.text_hash FROM dokumente d JOIN texte t ON t.dokument_id=d.id\n"
                "WHERE d.id=? AND t.text<>'') WHERE id=? AND (status='fehlt' OR status IN ('neu','bereit')\n"
                "AND (fehler LIKE 'Lesen nicht möglich%' OR fehler LIKE 'Einordnung nicht möglich%'))"_s,
                {b.id, b.id});
            m_stapel.schreiben(u"DELETE FROM abwesend WHERE dokument_id=?"_s, {b.id});
            return;
        }
        m_stapel.schreiben(u"UPDATE dokumente SET status=CASE WHEN vorschlag IS NULL THEN 'neu' ELSE 'bereit' END\n"
                           "WHERE id=? AND status='fehlt'"_s,
                           {b.id});
    }

    /** Another file lies there now, with the digest @p summe. */
    void ersetzt(const Bekanntes &b, const Fund &f, const QString &summe)
    {
        if (istUngesehen(b)) {
            const int geaendert = m_stapel.schreiben(
                u"UPDATE dokumente SET groesse=?, sha256=?, text_hash=NULL, skizze=NULL, fehler=NULL,\n"
                "hat_textebene=0, aehnlich_zu=NULL, aehnlichkeit=NULL\n"
                "WHERE id=? AND pfad=? AND status IN ('neu','laeuft')"_s,
                {f.groesse, summe, b.id, f.pfad});
            if (geaendert == 0)
                return; // handled meanwhile
            m_stapel.schreiben(u"DELETE FROM texte WHERE dokument_id=?"_s, {b.id});
            return vermerken(b, f, true);
        }
        if (!Wiedererkennung::pfadFreigeben(m_stapel, b.id, f.pfad) || neu(f) == 0)
            return; // moved meanwhile
        m_stapel.schreiben(u"UPDATE dokumente SET sha256=? WHERE pfad=?"_s, {summe, f.pfad});
        m_stapel.schreiben(u"INSERT OR REPLACE INTO dateistand (dokument_id, groesse, geaendert, geprueft)\n"
                           "SELECT id, ?, ?, 1 FROM dokumente WHERE pfad=?"_s,
                           {f.groesse, f.geaendert, f.pfad});
    }

    void abschliessen() { m_stapel.abschliessen(); }

private:
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
    if (summe != o.bekannt.notiz.sha256) {
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
            Eintragung e(lauf.db(), seit);
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

/** New files that are no longer as they were found: filed or brought back by a deed of the review meanwhile, say. */
QSet<QString> verschwundenSeither(const Abgleich::Verzeichnis &bekannte, const QList<Fund> &funde)
{
    QSet<QString> pfade;
    for (const Fund &f : funde) {
        if (!bekannte.contains(f.pfad) && !Dateibewegung::istDieselbe(f.pfad, f.groesse, f.geaendert))
            pfade.insert(f.pfad);
    }
    return pfade;
}

/** Documents that had vanished, do not lie in the source folder, and are there again. */
QList<Offenes> andernorts(const Abgleich::Verzeichnis &verzeichnis, const QSet<QString> &gefunden)
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
    const Wiedererkennung::Notiz &n = bekannt->notiz;
    if (Wiedererkennung::vergleich(n, fund.groesse, fund.geaendert) == Wiedererkennung::Vergleich::Offen)
        return Fall::Offen;
    if (istFehlend(*bekannt)) // only the same content comes back
        return n.sha256.isEmpty() || n.geprueft ? Fall::Zurueck : Fall::Offen;
    return n.notiert || n.sha256.isEmpty() ? Fall::Bekannt : Fall::Vermerken;
}

Abgleich::Verzeichnis Abgleich::verzeichnis(Datenbank &db)
{
    Verzeichnis v;
    db.durchlaufen(
        u"SELECT d.id, d.pfad, d.status, d.sha256, coalesce(s.groesse, d.groesse, -1) AS bytes, s.geaendert,\n"
        "s.geprueft, s.dokument_id IS NOT NULL AS notiert, a.dokument_id IS NOT NULL AS abwesend\n"
        "FROM dokumente d LEFT JOIN dateistand s ON s.dokument_id=d.id\n"
        "LEFT JOIN abwesend a ON a.dokument_id=d.id WHERE d.pfad IS NOT NULL AND d.ausgenommen=0"_s,
        {}, [&v](const Zeile &z) {
            v.insert(z.text(u"pfad"), {.id = z.ganz(u"id"),
                                       .status = z.text(u"status"),
                                       .abwesend = z.ganz(u"abwesend") == 1,
                                       .notiz = {.sha256 = z.text(u"sha256"),
                                                 .groesse = z.ganz(u"bytes"),
                                                 .geaendert = z.ganz(u"geaendert"),
                                                 .notiert = z.ganz(u"notiert") == 1,
                                                 .geprueft = z.ganz(u"geprueft") == 1}});
        });
    return v;
}

void Abgleich::eintragen(Lauf &lauf, const QList<Fund> &funde, qint64 seit)
{
    const Verzeichnis bekannte = verzeichnis(lauf.db());
    const QSet<QString> verschwundene = verschwundenSeither(bekannte, funde);
    QSet<QString> gefunden;
    QList<Offenes> offene;
    Eintragung e(lauf.db(), seit);
    for (const Fund &f : funde) {
        if (verschwundene.contains(f.pfad))
            continue;
        const auto b = bekannte.constFind(f.pfad);
        const bool da = b != bekannte.cend();
        ::eintragen(e, fall(da ? &*b : nullptr, f), {.bekannt = da ? *b : Bekanntes(), .fund = f}, offene);
        if (da)
            gefunden.insert(f.pfad);
    }
    e.abschliessen();
    for (const Offenes &o : andernorts(bekannte, gefunden))
        ::eintragen(e, fall(&o.bekannt, o.fund), o, offene);
    e.abschliessen();
    offeneEntscheiden(lauf, offene, seit);
}
