#include "gelerntes.h"

#include "datenbank.h"
#include "transaktion.h"
#include "zeit.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
namespace
{
Eintrag eintragAus(const Zeile &z)
{
    return {.schluessel = z.text(u"schluessel"),
            .anzeige = z.text(u"anzeige"),
            .ort = {.zweig = z.text(u"zweig"), .ablage = z.text(u"ablage"), .rubrik = z.text(u"rubrik")},
            .anzahl = z.ganz(u"anzahl")};
}

Gleichung gleichungAus(const Zeile &z)
{
    return {.von = z.text(u"von"), .nach = z.text(u"nach"), .anzahl = z.ganz(u"anzahl")};
}
} // namespace

QList<Eintrag> Gelerntes::zuordnungen() const
{
    QList<Eintrag> liste;
    for (const Zeile &z : m_db.lesen(u"SELECT * FROM gelernt ORDER BY anzahl DESC, anzeige"_s))
        liste << eintragAus(z);
    return liste;
}

std::optional<Eintrag> Gelerntes::zuordnung(const QString &schluessel) const
{
    return m_db.eine(u"SELECT * FROM gelernt WHERE schluessel=?"_s, {schluessel}, eintragAus);
}

QList<Eintrag> Gelerntes::verwandte(const QString &schluessel) const
{
    static const QRegularExpression ziffer(u"[0-9]"_s);
    const QString muster = schluessel.contains(ziffer) ? QString(schluessel).replace(ziffer, u"_"_s) : QString();
    QList<Eintrag> liste;
    for (const Zeile &z : m_db.lesen(u"SELECT * FROM gelernt WHERE instr(schluessel,?)>0 OR instr(?,schluessel)>0\n"
                                     "  OR schluessel LIKE ? ORDER BY anzahl DESC, anzeige"_s,
                                     {schluessel, schluessel, muster}))
        liste << eintragAus(z);
    return liste;
}

void Gelerntes::setzeZuordnung(const Eintrag &e)
{
    m_db.schreiben(u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl, zeit)\n"
                   "VALUES (?,?,?,?,?,?,?)\n"
                   "ON CONFLICT(schluessel) DO UPDATE SET\n"
                   "  anzeige=excluded.anzeige, zweig=excluded.zweig, ablage=excluded.ablage,\n"
                   "  rubrik=excluded.rubrik, anzahl=excluded.anzahl, zeit=excluded.zeit"_s,
                   {e.schluessel, e.anzeige, e.ort.zweig, e.ort.ablage, e.ort.rubrik, e.anzahl, jetztIso()});
}

void Gelerntes::zuordnungStreichen(const QString &schluessel)
{
    m_db.schreiben(u"DELETE FROM gelernt WHERE schluessel=?"_s, {schluessel});
}

QList<Gleichung> Gelerntes::gleichungen() const
{
    QList<Gleichung> liste;
    for (const Zeile &z : m_db.lesen(u"SELECT * FROM namen ORDER BY anzahl DESC, nach"_s))
        liste << gleichungAus(z);
    return liste;
}

std::optional<Gleichung> Gelerntes::gleichung(const QString &von) const
{
    return m_db.eine(u"SELECT * FROM namen WHERE von=?"_s, {von}, gleichungAus);
}

void Gelerntes::setzeGleichung(const Gleichung &g)
{
    m_db.schreiben(u"INSERT INTO namen (von, nach, anzahl, zeit) VALUES (?,?,?,?)\n"
                   "ON CONFLICT(von) DO UPDATE SET nach=excluded.nach,\n"
                   "  anzahl=excluded.anzahl, zeit=excluded.zeit"_s,
                   {g.von, g.nach, g.anzahl, jetztIso()});
}

void Gelerntes::gleichungStreichen(const QString &von) { m_db.schreiben(u"DELETE FROM namen WHERE von=?"_s, {von}); }

void Gelerntes::leeren()
{
    Transaktion t(m_db);
    m_db.schreiben(u"DELETE FROM gelernt"_s);
    m_db.schreiben(u"DELETE FROM namen"_s);
    m_db.schreiben(u"DELETE FROM lernschritte"_s); // an undo brings nothing of it back
    t.abschliessen();
}

void Gelerntes::schrittSchreiben(qint64 protokollId, const QByteArray &schritt)
{
    m_db.schreiben(u"INSERT OR REPLACE INTO lernschritte (protokoll_id, schritt) VALUES (?,?)"_s,
                   {protokollId, QString::fromUtf8(schritt)});
}

QByteArray Gelerntes::schritt(qint64 protokollId) const
{
    const auto zeilen = m_db.lesen(u"SELECT schritt FROM lernschritte WHERE protokoll_id=?"_s, {protokollId});
    return zeilen.isEmpty() ? QByteArray() : zeilen.first().text(u"schritt").toUtf8();
}

void Gelerntes::schrittStreichen(qint64 protokollId)
{
    m_db.schreiben(u"DELETE FROM lernschritte WHERE protokoll_id=?"_s, {protokollId});
}

void Gelerntes::zuordnungUmschluesseln(const QString &alt, const QString &neu)
{
    Transaktion t(m_db);
    m_db.schreiben(u"INSERT INTO gelernt (schluessel, anzeige, zweig, ablage, rubrik, anzahl, zeit)\n"
                   "SELECT ?, anzeige, zweig, ablage, rubrik, anzahl, zeit FROM gelernt WHERE schluessel=?\n"
                   "ON CONFLICT(schluessel) DO UPDATE SET anzahl=anzahl+excluded.anzahl,\n"
                   "  anzeige=iif(excluded.zeit>zeit, excluded.anzeige, anzeige),\n"
                   "  zweig=iif(excluded.zeit>zeit, excluded.zweig, zweig),\n"
                   "  ablage=iif(excluded.zeit>zeit, excluded.ablage, ablage),\n"
                   "  rubrik=iif(excluded.zeit>zeit, excluded.rubrik, rubrik), zeit=max(zeit, excluded.zeit)"_s,
                   {neu, alt});
    zuordnungStreichen(alt);
    t.abschliessen();
}

void Gelerntes::gleichungUmschluesseln(const QString &alt, const QString &neu)
{
    Transaktion t(m_db);
    m_db.schreiben(u"INSERT INTO namen (von, nach, anzahl, zeit) SELECT ?, nach, anzahl, zeit FROM namen WHERE von=?\n"
                   "ON CONFLICT(von) DO UPDATE SET anzahl=anzahl+excluded.anzahl,\n"
                   "  nach=iif(excluded.zeit>zeit, excluded.nach, nach), zeit=max(zeit, excluded.zeit)"_s,
                   {neu, alt});
    gleichungStreichen(alt);
    t.abschliessen();
}

bool Gelerntes::istUebertragen(const QString &was) const
{
    return m_db.gibtEs(u"SELECT 1 FROM uebertragungen WHERE name=?"_s, {was});
}

void Gelerntes::uebertragenVermerken(const QString &was)
{
    m_db.schreiben(u"INSERT OR REPLACE INTO uebertragungen (name, zeit) VALUES (?,?)"_s, {was, jetztIso()});
}
} // namespace quillmar::katalog
