#include "ablagewerk.h"

#include "ausnahmefilter.h"
#include "datenbank.h"
#include "stapel.h"
#include "ziel.h"

using namespace Qt::StringLiterals;

namespace
{
std::optional<Dokument> erstes(const QList<Zeile> &zeilen)
{
    return zeilen.isEmpty() ? std::nullopt : std::optional(Dokument::aus(zeilen.first()));
}

struct Aenderung {
    qint64 id = 0;
    bool ausgenommen = false;
};

QList<Aenderung> aenderungen(Datenbank &db, const Ausnahmefilter &filter)
{
    QList<Aenderung> liste;
    db.durchlaufen(u"SELECT id, alt_ordner, dateiname, ausgenommen FROM dokumente"_s, {}, [&](const Zeile &zeile) {
        const bool neu = filter.erste(zeile.text(u"alt_ordner"), zeile.text(u"dateiname")).has_value();
        if (neu != (zeile.ganz(u"ausgenommen") == 1))
            liste << Aenderung{.id = zeile.ganz(u"id"), .ausgenommen = neu};
    });
    return liste;
}
} // namespace

std::optional<Dokument> Ablagewerk::dokument(qint64 id) const
{
    return erstes(m_db->abfragen(u"SELECT * FROM dokumente WHERE id=?"_s, {id}));
}

QString Ablagewerk::dateiname(const Dokument &dokument) const { return Ziel::dateiname(dokument, m_profil); }

QString Ablagewerk::zielordner(const QString &zweig, const QString &ablage, const QString &rubrik,
                               const QString &jahr) const
{
    return Ziel::ordner({.zweig = zweig, .ablage = ablage, .rubrik = rubrik}, jahr, m_profil);
}

std::optional<Dokument> Ablagewerk::naechstes(std::optional<qint64> nach, QStringView richtung) const
{
    std::optional<Dokument> gefunden;
    if (nach && richtung == u"weiter")
        gefunden = erstes(m_db->abfragen(
            u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 AND id>? ORDER BY id LIMIT 1"_s,
            {*nach}));
    else if (nach && richtung == u"zurueck")
        gefunden = erstes(m_db->abfragen(
            u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 AND id<? ORDER BY id DESC LIMIT 1"_s,
            {*nach}));
    if (gefunden)
        return gefunden;
    return erstes(
        m_db->abfragen(u"SELECT * FROM dokumente WHERE status='bereit' AND ausgenommen=0 ORDER BY id LIMIT 1"_s));
}

Zaehlwerk Ablagewerk::zaehlen() const { return Zaehlwerk::zaehlen(*m_db); }

Ablagewerk::Ausnahmenwechsel Ablagewerk::ausnahmenAnwenden(Datenbank &db, const Profil &profil)
{
    const QList<Aenderung> liste = aenderungen(db, Ausnahmefilter(profil.ausnahmen));
    Ausnahmenwechsel wechsel;
    Stapel stapel(db);
    for (const Aenderung &a : liste) {
        stapel.schreiben(u"UPDATE dokumente SET ausgenommen=? WHERE id=?"_s, {a.ausgenommen, a.id});
        ++(a.ausgenommen ? wechsel.ruhen : wechsel.zurueckgeholt);
    }
    stapel.abschliessen();
    return wechsel;
}
