#include "strukturmodell.h"

#include "sprache.h"
#include "zeichen.h"

using namespace Qt::StringLiterals;

namespace quillmar::einrichtung
{
using Wechsel = Strukturzeile::Wechsel;

namespace
{
enum Spalte { NameSpalte, JahreSpalte, WechselSpalte, Spaltenzahl };

QString jahresordner(const Strukturzeile &zeile)
{
    if (zeile.ebene != 1)
        return {};
    return zeile.mitJahr ? Sprache::text(u"mit Jahren"_s) : Sprache::text(u"ohne Jahre"_s);
}

QString wort(Wechsel w)
{
    switch (w) {
    case Wechsel::Neu:
        return Sprache::text(u"neu"_s);
    case Wechsel::Entfallen:
        return Sprache::text(u"entfallen"_s);
    case Wechsel::Gleich:
        break;
    }
    return {};
}

QVariant symbol(Wechsel w)
{
    if (w == Wechsel::Gleich)
        return {};
    return Zeichen::icon(w == Wechsel::Neu ? Symbol::Gut : Symbol::Warnung);
}
} // namespace

void Strukturmodell::setzen(const QList<Strukturzeile> &zeilen)
{
    beginResetModel();
    m_knoten.clear();
    m_wurzeln.clear();
    m_knoten.reserve(zeilen.size());
    QList<int> ueber; // the newest node of each level
    for (const Strukturzeile &zeile : zeilen) {
        const int nummer = int(m_knoten.size());
        ueber.resize(zeile.ebene);
        const int elter = ueber.isEmpty() ? -1 : ueber.last();
        QList<int> &kin = elter < 0 ? m_wurzeln : m_knoten[elter].kinder;
        const int platz = int(kin.size());
        kin << nummer;
        m_knoten << Knoten{.zeile = zeile, .elter = elter, .platz = platz, .kinder = {}};
        ueber << nummer;
    }
    endResetModel();
}

const QList<int> &Strukturmodell::kinder(const QModelIndex &eltern) const
{
    return eltern.isValid() ? m_knoten.at(int(eltern.internalId())).kinder : m_wurzeln;
}

QModelIndex Strukturmodell::index(int zeile, int spalte, const QModelIndex &eltern) const
{
    if (!hasIndex(zeile, spalte, eltern))
        return {};
    return createIndex(zeile, spalte, quintptr(kinder(eltern).at(zeile)));
}

QModelIndex Strukturmodell::parent(const QModelIndex &kind) const
{
    const int elter = kind.isValid() ? m_knoten.at(int(kind.internalId())).elter : -1;
    return elter < 0 ? QModelIndex() : createIndex(m_knoten.at(elter).platz, 0, quintptr(elter));
}

int Strukturmodell::rowCount(const QModelIndex &eltern) const
{
    return eltern.column() > 0 ? 0 : int(kinder(eltern).size());
}

int Strukturmodell::columnCount(const QModelIndex &) const { return Spaltenzahl; }

QVariant Strukturmodell::data(const QModelIndex &stelle, int rolle) const
{
    if (!stelle.isValid())
        return {};
    const Strukturzeile &zeile = m_knoten.at(int(stelle.internalId())).zeile;
    if (rolle == Qt::DecorationRole && stelle.column() == WechselSpalte)
        return symbol(zeile.wechsel);
    if (rolle != Qt::DisplayRole)
        return {};
    switch (stelle.column()) {
    case NameSpalte:
        return zeile.name;
    case JahreSpalte:
        return jahresordner(zeile);
    default:
        return wort(zeile.wechsel);
    }
}

QVariant Strukturmodell::headerData(int spalte, Qt::Orientation richtung, int rolle) const
{
    if (richtung != Qt::Horizontal || rolle != Qt::DisplayRole)
        return {};
    switch (spalte) {
    case NameSpalte:
        return Sprache::text(u"Zweig, Ablage, Rubrik"_s);
    case JahreSpalte:
        return Sprache::text(u"Jahresordner"_s);
    default:
        return Sprache::text(u"Seit dem letzten Einlesen"_s);
    }
}
} // namespace quillmar::einrichtung
