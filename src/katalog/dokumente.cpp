#include "dokumente.h"

#include "dateien.h"
#include "datenbank.h"
#include "pfade.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
const QString wartet = u"status='bereit' AND ausgenommen=0"_s;
} // namespace

std::optional<Dokument> Dokumente::eines(qint64 id) const
{
    return m_db.eine(u"SELECT * FROM dokumente WHERE id=?"_s, {id}, Dokument::aus);
}

std::optional<Dokument> Dokumente::wartendes(std::optional<qint64> id) const
{
    return id ? m_db.eine(u"SELECT * FROM dokumente WHERE id=? AND "_s + wartet, {*id}, Dokument::aus) : std::nullopt;
}

QList<Dokument> Dokumente::wartende() const
{
    QList<Dokument> liste;
    m_db.besuchen(u"SELECT * FROM dokumente WHERE "_s + wartet, {}, [&](const Zeile &z) { liste << Dokument::aus(z); });
    return liste;
}

std::optional<Dokument> Dokumente::naechstes(std::optional<qint64> nach, Richtung richtung) const
{
    const QString wartende = u"SELECT * FROM dokumente WHERE "_s + wartet;
    std::optional<Dokument> gefunden;
    if (nach && richtung == Richtung::Weiter)
        gefunden = m_db.eine(wartende + u" AND id>? ORDER BY id LIMIT 1"_s, {*nach}, Dokument::aus);
    else if (nach && richtung == Richtung::Zurueck)
        gefunden = m_db.eine(wartende + u" AND id<? ORDER BY id DESC LIMIT 1"_s, {*nach}, Dokument::aus);
    return gefunden ? gefunden : m_db.eine(wartende + u" ORDER BY id LIMIT 1"_s, {}, Dokument::aus);
}

std::optional<Dokument> Dokumente::naechstesVollstaendige(qint64 id) const
{
    const QString vollstaendige =
        u"SELECT * FROM dokumente WHERE "_s + wartet + u" AND id>? AND titel<>'' AND rubrik<>'' ORDER BY id LIMIT 1"_s;
    auto gefunden = m_db.eine(vollstaendige, {id}, Dokument::aus);
    return gefunden ? gefunden : m_db.eine(vollstaendige, {0}, Dokument::aus);
}

void Dokumente::jedesBereite(const std::function<void(const Dokument &)> &besuch) const
{
    m_db.besuchen(u"SELECT * FROM dokumente WHERE status='bereit'"_s, {},
                  [&](const Zeile &z) { besuch(Dokument::aus(z)); });
}

qint64 Dokumente::anzahl() const { return m_db.zahl(u"SELECT COUNT(*) n FROM dokumente"_s); }

qint64 Dokumente::ausgenommene() const { return m_db.zahl(u"SELECT COUNT(*) n FROM dokumente WHERE ausgenommen=1"_s); }

bool Dokumente::statusWechseln(qint64 id, Status von, Status nach)
{
    return m_db.schreiben(u"UPDATE dokumente SET status=? WHERE id=? AND status=?"_s,
                          {statuswort(nach), id, statuswort(von)}) > 0;
}

void Dokumente::setzeStatus(qint64 id, Status status)
{
    m_db.schreiben(u"UPDATE dokumente SET status=? WHERE id=?"_s, {statuswort(status), id});
}

void Dokumente::angabenSchreiben(qint64 id, const Angaben &a)
{
    m_db.schreiben(
        u"UPDATE dokumente SET datum=?, gegenueber=?, titel=?, zweig=?, ablage=?, rubrik=?, jahr=?\nWHERE id=?"_s,
        {a.datum, a.gegenueber, a.titel, a.ort.zweig, a.ort.ablage, a.ort.rubrik, a.jahr, id});
}

void Dokumente::ortSchreiben(qint64 id, Status status, const QString &pfad)
{
    const QString sql = u"UPDATE dokumente SET status=?, pfad=?, dateiname=? WHERE id=?"_s;
    const QVariantList werte = {statuswort(status), pfad, nameVon(pfad), id};
    if (m_db.ausfuehren(sql, werte) == 0)
        return;
    // Paths are unique, so another document's claim is what can stand in the way.
    Dateien(m_db).platzFreimachen(pfad, id);
    m_db.schreiben(sql, werte);
}

void Dokumente::setzePfad(qint64 id, const QString &pfad)
{
    m_db.schreiben(u"UPDATE dokumente SET pfad=? WHERE id=?"_s, {pfad, id});
}

void Dokumente::jederFundort(const std::function<void(const Fundort &)> &besuch) const
{
    m_db.besuchen(u"SELECT id, alt_ordner, dateiname, ausgenommen FROM dokumente"_s, {}, [&](const Zeile &z) {
        besuch({.id = z.ganz(u"id"),
                .altOrdner = z.text(u"alt_ordner"),
                .dateiname = z.text(u"dateiname"),
                .ausgenommen = z.ganz(u"ausgenommen") == 1});
    });
}

void Dokumente::setzeAusgenommen(qint64 id, bool ausgenommen)
{
    m_db.schreiben(u"UPDATE dokumente SET ausgenommen=? WHERE id=?"_s, {ausgenommen, id});
}
} // namespace quillmar::katalog
