#include "lernspeicher.h"

#include "datenbank.h"
#include "stapel.h"
#include "transaktion.h"
#include "zeit.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{
/** A write whose failure must not go unnoticed. */
void schreiben(Datenbank &db, const QString &sql, const QVariantList &parameter)
{
    Stapel stapel(db);
    stapel.schreiben(sql, parameter);
    stapel.abschliessen();
}

/** "GmbH & Co. KG" used to leave its "gmbh" in the key. */
bool istFruehererSchluessel(const QString &alt, const QString &neu)
{
    return !neu.isEmpty() && alt == neu + u" gmbh"_s;
}

Eintrag eintragAus(const Zeile &zeile)
{
    return {.schluessel = zeile.text(u"schluessel"),
            .anzeige = zeile.text(u"anzeige"),
            .zweig = zeile.text(u"zweig"),
            .ablage = zeile.text(u"ablage"),
            .rubrik = zeile.text(u"rubrik"),
            .anzahl = zeile.ganz(u"anzahl")};
}

/** Counterparts of the waiting documents, each once: far fewer than documents, so keys are computed for these only. */
QStringList wartendeGegenueber(Datenbank &db)
{
    QStringList namen;
    db.durchlaufen(u"SELECT DISTINCT gegenueber FROM dokumente\n"
                   "WHERE status='bereit' AND ausgenommen=0 AND gegenueber <> ''"_s,
                   {}, [&](const Zeile &zeile) { namen << zeile.text(u"gegenueber"); });
    return namen;
}

QList<Zeile> wartendeVon(Datenbank &db, const QString &gegenueber)
{
    return db.abfragen(u"SELECT id, gegenueber, zweig, ablage, rubrik, text_hash FROM dokumente\n"
                       "WHERE status='bereit' AND ausgenommen=0 AND gegenueber=?"_s,
                       {gegenueber});
}
} // namespace

QList<Eintrag> Lernspeicher::alle() const
{
    QList<Eintrag> eintraege;
    for (const Zeile &zeile : m_db.abfragen(u"SELECT * FROM gelernt ORDER BY anzahl DESC, anzeige"_s))
        eintraege << eintragAus(zeile);
    return eintraege;
}

QList<Gleichung> Lernspeicher::gleichungen() const
{
    QList<Gleichung> liste;
    for (const Zeile &zeile : m_db.abfragen(u"SELECT * FROM namen ORDER BY anzahl DESC, nach"_s))
        liste << Gleichung{.von = zeile.text(u"von"), .nach = zeile.text(u"nach"), .anzahl = zeile.ganz(u"anzahl")};
    return liste;
}

std::optional<QString> Lernspeicher::gleichwertig(const QString &name) const
{
    const QString schluessel = Lernregeln::schluessel(name);
    if (schluessel.size() < Lernregeln::kuerzesterSchluessel)
        return std::nullopt;
    const QList<Zeile> zeilen = m_db.abfragen(u"SELECT nach FROM namen WHERE von=?"_s, {schluessel});
    if (zeilen.isEmpty() || zeilen.first().text(u"nach") == name)
        return std::nullopt;
    return zeilen.first().text(u"nach");
}

std::optional<Eintrag> Lernspeicher::vorschlag(const QString &gegenueber) const
{
    const QList<Eintrag> eintraege = alle();
    const Eintrag *bester = Lernregeln::vorschlag(eintraege, Lernregeln::schluessel(gegenueber));
    return bester ? std::optional(*bester) : std::nullopt;
}

qint64 Lernspeicher::merken(const Dokument &dokument, const QString &vorher)
{
    Transaktion transaktion(m_db);
    // The equation and the place may meet in one document.
    QSet<qint64> angepasst;
    const QString alt = Lernregeln::schluessel(vorher);
    const QString neu = Lernregeln::schluessel(dokument.gegenueber);
    if (!dokument.gegenueber.isEmpty() && alt.size() >= Lernregeln::kuerzesterSchluessel && alt != neu) {
        gleichungMerken(alt, dokument.gegenueber);
        angepasst += namenAngleichen(alt, dokument.gegenueber, dokument.id);
    }
    if (neu.size() >= Lernregeln::kuerzesterSchluessel && !dokument.zweig.isEmpty()) {
        zuordnungMerken(neu, dokument);
        angepasst +=
            anwenden(neu, dokument.gegenueber,
                     {.zweig = dokument.zweig, .ablage = dokument.ablage, .rubrik = dokument.rubrik}, dokument.id);
    }
    transaktion.abschliessen();
    return angepasst.size();
}

void Lernspeicher::gleichungMerken(const QString &von, const QString &nach)
{
    // The opposite would turn every name back again.
    const QString gegen = Lernregeln::schluessel(nach);
    for (const Zeile &zeile : m_db.abfragen(u"SELECT nach FROM namen WHERE von=?"_s, {gegen})) {
        if (Lernregeln::schluessel(zeile.text(u"nach")) == von)
            gleichungVergessen(gegen);
    }
    const QList<Zeile> bisher = m_db.abfragen(u"SELECT anzahl, nach FROM namen WHERE von=?"_s, {von});
    const bool gleich = !bisher.isEmpty() && bisher.first().text(u"nach") == nach;
    schreiben(m_db,
              u"INSERT INTO namen (von, nach, anzahl, zeit) VALUES (?,?,?,?)\n"
              "ON CONFLICT(von) DO UPDATE SET nach=excluded.nach,\n"
              "  anzahl=excluded.anzahl, zeit=excluded.zeit"_s,
              {von, nach, gleich ? bisher.first().ganz(u"anzahl") + 1 : 1, jetztIso()});
}

void Lernspeicher::zuordnungMerken(const QString &schluessel, const Dokument &dokument)
{
    const QList<Zeile> zeilen = m_db.abfragen(u"SELECT * FROM gelernt WHERE schluessel=?"_s, {schluessel});
    qint64 anzahl = 1;
    if (!zeilen.isEmpty()) {
        const Eintrag bisher = eintragAus(zeilen.first());
        if (bisher.zweig == dokument.zweig && bisher.ablage == dokument.ablage && bisher.rubrik == dokument.rubrik)
            anzahl = bisher.anzahl + 1;
    }
    schreiben(m_db,
              u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl, zeit)\n"
              "VALUES (?,?,?,?,?,?,?)\n"
              "ON CONFLICT(schluessel) DO UPDATE SET\n"
              "  anzeige=excluded.anzeige, zweig=excluded.zweig, ablage=excluded.ablage,\n"
              "  rubrik=excluded.rubrik, anzahl=excluded.anzahl, zeit=excluded.zeit"_s,
              {schluessel, dokument.gegenueber, dokument.zweig, dokument.ablage, dokument.rubrik, anzahl, jetztIso()});
}

QSet<qint64> Lernspeicher::anwenden(const QString &schluessel, const QString &name, const Ort &ort, qint64 ausser)
{
    QList<Eintrag> eintraege = alle();
    const auto eigener =
        std::find_if(eintraege.begin(), eintraege.end(), [&](const Eintrag &e) { return e.schluessel == schluessel; });
    const Eintrag eintrag{.schluessel = schluessel,
                          .anzeige = name,
                          .zweig = ort.zweig,
                          .ablage = ort.ablage,
                          .rubrik = ort.rubrik,
                          .anzahl = eigener == eintraege.end() ? 1 : eigener->anzahl};
    if (eigener == eintraege.end())
        eintraege << eintrag;
    else
        *eigener = eintrag;
    return aufWartende(eintraege, schluessel, ausser);
}

qint64 Lernspeicher::allesAnwenden()
{
    const QList<Eintrag> eintraege = alle();
    const auto istRechnung = [this](const Eintrag &e) {
        return Rechnungsrichtung::istRechnungsrubrik(e.rubrik, m_profil);
    };
    const bool noetig = !m_richtung.istLeer() && std::any_of(eintraege.begin(), eintraege.end(), istRechnung);
    for (const QString &gegenueber : noetig ? wartendeGegenueber(m_db) : QStringList()) {
        const Eintrag *bester = Lernregeln::passender(eintraege, Lernregeln::schluessel(gegenueber));
        if (bester && istRechnung(*bester))
            vorlesen(gegenueber);
    }
    return aufWartende(eintraege, {}, 0).size();
}

/** @p nurSchluessel restricts to the counterparts that this key meets; empty means all. */
QSet<qint64> Lernspeicher::aufWartende(const QList<Eintrag> &eintraege, const QString &nurSchluessel, qint64 ausser)
{
    if (eintraege.isEmpty())
        return {};
    Transaktion transaktion(m_db);
    QSet<qint64> geaenderte;
    for (const QString &gegenueber : wartendeGegenueber(m_db)) {
        const QString schluessel = Lernregeln::schluessel(gegenueber);
        if (!nurSchluessel.isEmpty() && !Lernregeln::passt(nurSchluessel, schluessel))
            continue;
        if (const Eintrag *bester = Lernregeln::passender(eintraege, schluessel))
            geaenderte += eintragen(gegenueber, *bester, ausser);
    }
    transaktion.abschliessen();
    return geaenderte;
}

Rechnungsrichtung::Richtung Lernspeicher::richtungVon(qint64 dokument) const
{
    for (const Zeile &zeile : m_db.abfragen(u"SELECT text FROM texte WHERE dokument_id=?"_s, {dokument}))
        return m_richtung.erkennen(zeile.text(u"text"));
    return Rechnungsrichtung::Richtung::Unbekannt;
}

void Lernspeicher::vorlesen(const Dokument &dokument, const QString &vorher)
{
    const auto ohneRegel = [this](const Eintrag &e) {
        return !Rechnungsrichtung::istRechnungsrubrik(e.rubrik, m_profil);
    };
    const QString alt = Lernregeln::schluessel(vorher);
    Eintrag neuer;
    neuer.schluessel = Lernregeln::schluessel(dokument.gegenueber);
    neuer.rubrik = dokument.rubrik;
    QList<Eintrag> rechnungen = m_richtung.istLeer() ? QList<Eintrag>() : alle() << neuer;
    rechnungen.removeIf(ohneRegel);
    for (const QString &gegenueber : rechnungen.isEmpty() ? QStringList() : wartendeGegenueber(m_db)) {
        QString schluessel = Lernregeln::schluessel(gegenueber);
        if (schluessel == alt)
            schluessel = neuer.schluessel; // which it will have by the time its place is looked for
        const auto gemeint = [&](const Eintrag &e) { return Lernregeln::passt(e.schluessel, schluessel); };
        if (Lernregeln::passt(neuer.schluessel, schluessel) &&
            std::any_of(rechnungen.begin(), rechnungen.end(), gemeint))
            vorlesen(gegenueber);
    }
}

/** The hash is read first: a text that changes afterwards does not have it. */
void Lernspeicher::vorlesen(const QString &gegenueber)
{
    for (const Zeile &zeile : wartendeVon(m_db, gegenueber)) {
        const qint64 id = zeile.ganz(u"id");
        m_erkannt.insert(id, {.textHash = zeile.text(u"text_hash"), .richtung = richtungVon(id)});
    }
}

/** The taught rubric, or the invoice rubric that the document's text proves in its stead. */
QString Lernspeicher::rubrikFuer(const Zeile &zeile, const QString &gelernte) const
{
    if (m_richtung.istLeer() || !Rechnungsrichtung::istRechnungsrubrik(gelernte, m_profil))
        return gelernte;
    const qint64 id = zeile.ganz(u"id");
    const auto bekannt = m_erkannt.constFind(id);
    const bool gilt = bekannt != m_erkannt.constEnd() && bekannt->textHash == zeile.text(u"text_hash");
    const auto richtung = gilt ? bekannt->richtung : richtungVon(id);
    return Rechnungsrichtung::berichtigt(gelernte, richtung, m_profil).value_or(gelernte);
}

/** Gives the waiting documents of @p gegenueber the place of @p eintrag; returns those that changed. */
QSet<qint64> Lernspeicher::eintragen(const QString &gegenueber, const Eintrag &eintrag, qint64 ausser)
{
    const QString name = Lernregeln::darfErsetzen(eintrag.anzeige, gegenueber) ? eintrag.anzeige : gegenueber;
    QSet<qint64> geaenderte;
    for (const Zeile &zeile : wartendeVon(m_db, gegenueber)) {
        const qint64 id = zeile.ganz(u"id");
        if (id == ausser)
            continue;
        const QString rubrik = rubrikFuer(zeile, eintrag.rubrik);
        if (name == gegenueber && zeile.text(u"zweig") == eintrag.zweig && zeile.text(u"ablage") == eintrag.ablage &&
            zeile.text(u"rubrik") == rubrik)
            continue;
        schreiben(m_db,
                  u"UPDATE dokumente SET gegenueber=?, zweig=?, ablage=?, rubrik=?,\n"
                  "ort_quelle='gelernt', gelernt_von=? WHERE id=?"_s,
                  {name, eintrag.zweig, eintrag.ablage, rubrik, eintrag.schluessel, id});
        geaenderte << id;
    }
    return geaenderte;
}

QSet<qint64> Lernspeicher::namenAngleichen(const QString &von, const QString &nach, qint64 ausser)
{
    Transaktion transaktion(m_db);
    QSet<qint64> geaenderte;
    for (const QString &gegenueber : wartendeGegenueber(m_db)) {
        if (gegenueber == nach || Lernregeln::schluessel(gegenueber) != von)
            continue;
        for (const Zeile &zeile : wartendeVon(m_db, gegenueber)) {
            if (zeile.ganz(u"id") == ausser)
                continue;
            schreiben(m_db, u"UPDATE dokumente SET gegenueber=?, ort_quelle='gelernt', gelernt_von=?\nWHERE id=?"_s,
                      {nach, von, zeile.ganz(u"id")});
            geaenderte << zeile.ganz(u"id");
        }
    }
    transaktion.abschliessen();
    return geaenderte;
}

void Lernspeicher::schluesselUebertragen()
{
    const QString name = u"rechtsform"_s;
    if (!m_db.abfragen(u"SELECT 1 FROM uebertragungen WHERE name=?"_s, {name}).isEmpty())
        return;
    Transaktion transaktion(m_db);
    for (const Zeile &zeile : m_db.abfragen(u"SELECT * FROM gelernt"_s)) {
        // The name it was made from tells for certain what the key is today.
        const QString neu = Lernregeln::schluessel(zeile.text(u"anzeige"));
        if (istFruehererSchluessel(zeile.text(u"schluessel"), neu))
            zuordnungUmschluesseln(zeile, neu);
    }
    for (const Zeile &zeile : m_db.abfragen(u"SELECT * FROM namen"_s)) {
        const QString neu = Lernregeln::schluessel(zeile.text(u"von"));
        if (istFruehererSchluessel(zeile.text(u"von"), neu))
            gleichungUmschluesseln(zeile, neu);
    }
    schreiben(m_db, u"INSERT OR REPLACE INTO uebertragungen (name, zeit) VALUES (?,?)"_s, {name, jetztIso()});
    transaktion.abschliessen();
}

void Lernspeicher::zuordnungUmschluesseln(const Zeile &zeile, const QString &neu)
{
    const QString alt = zeile.text(u"schluessel");
    schreiben(m_db,
              u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl, zeit)\n"
              "SELECT ?, anzeige, zweig, ablage, rubrik, anzahl, zeit FROM gelernt WHERE schluessel=?\n"
              "ON CONFLICT(schluessel) DO UPDATE SET anzahl=anzahl+excluded.anzahl,\n"
              "  anzeige=iif(excluded.zeit>zeit, excluded.anzeige, anzeige),\n"
              "  zweig=iif(excluded.zeit>zeit, excluded.zweig, zweig),\n"
              "  ablage=iif(excluded.zeit>zeit, excluded.ablage, ablage),\n"
              "  rubrik=iif(excluded.zeit>zeit, excluded.rubrik, rubrik), zeit=max(zeit, excluded.zeit)"_s,
              {neu, alt});
    schreiben(m_db, u"DELETE FROM gelernt WHERE schluessel=?"_s, {alt});
    schreiben(m_db, u"UPDATE dokumente SET gelernt_von=? WHERE gelernt_von=?"_s, {neu, alt});
}

void Lernspeicher::gleichungUmschluesseln(const Zeile &zeile, const QString &neu)
{
    const QString alt = zeile.text(u"von");
    schreiben(m_db,
              u"INSERT INTO namen (von, nach, anzahl, zeit) SELECT ?, nach, anzahl, zeit FROM namen WHERE von=?\n"
              "ON CONFLICT(von) DO UPDATE SET anzahl=anzahl+excluded.anzahl,\n"
              "  nach=iif(excluded.zeit>zeit, excluded.nach, nach), zeit=max(zeit, excluded.zeit)"_s,
              {neu, alt});
    schreiben(m_db, u"DELETE FROM namen WHERE von=?"_s, {alt});
    schreiben(m_db, u"UPDATE dokumente SET gelernt_von=? WHERE gelernt_von=?"_s, {neu, alt});
}

void Lernspeicher::leeren()
{
    Transaktion transaktion(m_db);
    schreiben(m_db, u"DELETE FROM gelernt"_s, {});
    schreiben(m_db, u"DELETE FROM namen"_s, {});
    transaktion.abschliessen();
}

void Lernspeicher::vergessen(const QString &schluessel)
{
    schreiben(m_db, u"DELETE FROM gelernt WHERE schluessel=?"_s, {schluessel});
}

void Lernspeicher::gleichungVergessen(const QString &von)
{
    schreiben(m_db, u"DELETE FROM namen WHERE von=?"_s, {von});
}
