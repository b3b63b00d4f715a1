#include "transaktion.h"

#include "datenbank.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
Transaktion::Transaktion(Datenbank &db) : m_db(db)
{
    if (db.beginnen(m_innere) != 0)
        throw Katalogfehler(Katalog::schreibmangel(m_db), u"transaction"_s);
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
        throw Katalogfehler(Katalog::schreibmangel(m_db), u"transaction"_s);
    m_offen = false;
    m_db.schlange().verlassen();
}

} // namespace quillmar::katalog
