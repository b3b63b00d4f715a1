#include "entwurfstexte.h"

#include "datenbank.h"

using namespace Qt::StringLiterals;

namespace quillmar::katalog
{
QHash<qint64, QByteArray> Entwurfstexte::alle() const
{
    QHash<qint64, QByteArray> texte;
    for (const Zeile &z : m_db.lesen(u"SELECT e.dokument_id, e.felder FROM entwuerfe e JOIN dokumente d\n"
                                     "ON d.id=e.dokument_id WHERE d.status<>'erledigt'"_s))
        texte.insert(z.ganz(u"dokument_id"), z.text(u"felder").toUtf8());
    return texte;
}

void Entwurfstexte::speichern(qint64 dokument, const QByteArray &text)
{
    if (text.isEmpty())
        m_db.schreiben(u"DELETE FROM entwuerfe WHERE dokument_id=?"_s, {dokument});
    else
        m_db.schreiben(u"INSERT OR REPLACE INTO entwuerfe (dokument_id, felder) VALUES (?,?)"_s,
                       {dokument, QString::fromUtf8(text)});
}
} // namespace quillmar::katalog
