// The part of Vorschlaege by which rules and the learning memory change what waits.
#include "vorschlaege.h"

#include "datenbank.h"
#include "modellantworten.h"
#include "transaktion.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
bool Vorschlaege::istOffenMit(qint64 id, const QString &gegenueber) const
{
    return m_db.gibtEs(u"SELECT 1 FROM dokumente WHERE id=? AND gegenueber=? AND ausgenommen=0\n"
                       "AND status IN ('bereit','zurueckgestellt')"_s,
                       {id, gegenueber});
}

void Vorschlaege::setzeGegenueber(qint64 id, const QString &gegenueber, const std::optional<double> &konfidenz)
{
    Transaktion t(m_db);
    m_db.schreiben(u"UPDATE dokumente SET gegenueber=? WHERE id=?"_s, {gegenueber, id});
    Modellantworten(m_db).setzeGegenueber(id, gegenueber);
    if (konfidenz)
        m_db.schreiben(u"UPDATE dokumente SET konfidenz=? WHERE id=?"_s, {*konfidenz, id});
    t.abschliessen();
}

void Vorschlaege::rubrikBerichtigen(qint64 id, const QString &alt, const QString &neu, double konfidenz)
{
    Transaktion t(m_db);
    const int berichtigt =
        m_db.schreiben(u"UPDATE dokumente SET rubrik=?, konfidenz=? WHERE id=? AND rubrik=? AND ausgenommen=0\n"
                       "AND status IN ('bereit','zurueckgestellt')"_s,
                       {neu, konfidenz, id, alt});
    if (berichtigt > 0) // so that it lasts when the memory changes
        m_db.schreiben(u"UPDATE modellantworten SET rubrik=?, konfidenz=? WHERE dokument_id=? AND rubrik=?"_s,
                       {neu, konfidenz, id, alt});
    t.abschliessen();
}

QStringList Vorschlaege::wartendeGegenueber() const
{
    QStringList namen;
    m_db.besuchen(u"SELECT DISTINCT gegenueber FROM dokumente\n"
                  "WHERE status='bereit' AND ausgenommen=0 AND gegenueber <> ''"_s,
                  {}, [&](const Zeile &z) { namen << z.text(u"gegenueber"); });
    return namen;
}

void Vorschlaege::umschluesseln(const QString &alt, const QString &neu)
{
    m_db.schreiben(u"UPDATE dokumente SET gelernt_von=? WHERE gelernt_von=?"_s, {neu, alt});
}
} // namespace quillmar::katalog
