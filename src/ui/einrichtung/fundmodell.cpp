#include "fundmodell.h"

#include "bau.h"
#include "liste.h"
#include "sprache.h"

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
namespace
{
QString vorgelesenAls(const Fundzeile &zeile)
{
    return vorgelesen({zeile.gegenueber, zeile.wort, zeile.orte.join(u", "_s),
                       zeile.zeugen.isEmpty() ? QString() : Sprache::text(u"etwa"_s) + u' ' + zeile.zeugen.first()});
}

QString hilfe(const Fundzeile &zeile)
{
    const QString ganz = (QStringList{zeile.gegenueber} + zeile.orte + zeile.zeugen).join(u'\n');
    return u"<qt>"_s + ganz.toHtmlEscaped().replace(u'\n', u"<br>"_s) + u"</qt>"_s;
}
} // namespace

Fundmodell::Fundmodell(Ablagelernen *ablage, QObject *vater) : QAbstractListModel(vater), m_ablage(ablage)
{
    connect(m_ablage, &Ablagelernen::gefunden, this, &Fundmodell::auswaehlen);
    connect(m_ablage, &Ablagelernen::angekreuztGeaendert, this, [this] {
        if (!m_stellen.isEmpty() && m_stellen.last() < m_ablage->anzahl())
            Q_EMIT dataChanged(index(0), index(int(m_stellen.size()) - 1), {Qt::CheckStateRole});
    });
    auswaehlen();
}

void Fundmodell::suchen(const QString &wort)
{
    if (std::exchange(m_suche, wort) != wort)
        auswaehlen();
}

void Fundmodell::auswaehlen()
{
    beginResetModel();
    m_stellen.clear();
    for (qsizetype stelle = 0; stelle < m_ablage->anzahl(); ++stelle) {
        if (m_suche.isEmpty() || m_ablage->trifft(stelle, m_suche))
            m_stellen << stelle;
    }
    endResetModel();
}

int Fundmodell::rowCount(const QModelIndex &eltern) const { return eltern.isValid() ? 0 : int(m_stellen.size()); }

QVariant Fundmodell::data(const QModelIndex &index, int rolle) const
{
    if (!index.isValid())
        return {};
    const qsizetype stelle = m_stellen.at(index.row());
    if (rolle == bedienteile::Kennung)
        return stelle;
    if (stelle >= m_ablage->anzahl())
        return {}; // gone; the rows follow with the same event
    const Fundzeile zeile = m_ablage->zeile(stelle);
    switch (rolle) {
    case Qt::DisplayRole:
        return zeile.gegenueber;
    case ZweiteZeile:
        return zeile.orte;
    case DritteZeile:
        return zeile.zeugen;
    case Wort:
        return zeile.wort;
    case Qt::CheckStateRole:
        return int(zeile.angekreuzt ? Qt::Checked : Qt::Unchecked);
    case Qt::ToolTipRole:
        return hilfe(zeile);
    case Qt::AccessibleTextRole:
        return vorgelesenAls(zeile);
    default:
        return {};
    }
}

bool Fundmodell::setData(const QModelIndex &index, const QVariant &wert, int rolle)
{
    if (!index.isValid() || rolle != Qt::CheckStateRole)
        return false;
    m_ablage->setzeAngekreuzt({m_stellen.at(index.row())}, wert.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags Fundmodell::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags uebliche = QAbstractListModel::flags(index);
    const qsizetype stelle = index.isValid() ? m_stellen.at(index.row()) : m_ablage->anzahl();
    const bool waehlbar = stelle < m_ablage->anzahl() && m_ablage->zeile(stelle).waehlbar;
    return waehlbar ? uebliche | Qt::ItemIsUserCheckable : uebliche;
}
} // namespace quillmar::einrichtung
