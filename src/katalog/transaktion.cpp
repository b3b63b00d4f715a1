#include "transaktion.h"

#include "datenbank.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
Transaktion::Transaktion(Datenbank &db) : m_db(db)
{
    if (db.beginnen(m_innere) != 0)
        scheitern();
}

Transaktion::~Transaktion()
{
    if (!m_offen)
        return;
    m_db.ausfuehren(m_innere ? u"ROLLBACK TO stufe; RELEASE stufe"_s : u"ROLLBACK"_s);
    m_db.schlange().verlassen();
}

void Transaktion::abschliessen()
{
    if (m_db.ausfuehren(m_innere ? u"RELEASE stufe"_s : u"COMMIT"_s) != 0)
        scheitern();
    m_offen = false;
    m_db.schlange().verlassen();
}

void Transaktion::scheitern() const
{
    throw Fehler(
        Sprache::text(u"Der Katalog lässt sich nicht beschreiben. Ist die Platte voll oder schreibgeschützt?"_s));
}
} // namespace quillmar::katalog
