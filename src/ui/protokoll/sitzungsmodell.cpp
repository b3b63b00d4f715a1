#include "sitzungsmodell.h"

#include "liste.h"
#include "pfade.h"
#include "protokollkarte.h"
#include "sitzungen.h"
#include "sprache.h"
#include "text.h"

using namespace Qt::StringLiterals;

namespace quillmar::protokoll
{
Sitzungsmodell::Sitzungsmodell(Sitzungen *sitzungen, Sitzungsbilder *bilder, bool laufend, QObject *vater)
    : QAbstractListModel(vater), m_sitzungen(sitzungen), m_bilder(bilder), m_laufend(laufend)
{
    // What is found out about one may tell another one apart from it.
    const auto neuZeigen = [this] {
        if (!m_dateien.isEmpty())
            Q_EMIT dataChanged(index(0), index(int(m_dateien.size()) - 1));
    };
    connect(m_bilder, &Sitzungsbilder::gelesen, this, neuZeigen);
    connect(m_sitzungen, &Sitzungen::protokollGeaendert, this, neuZeigen);
}

void Sitzungsmodell::setzen(const QStringList &dateien)
{
    if (dateien == m_dateien)
        return;
    beginResetModel();
    m_dateien = dateien;
    endResetModel();
}

int Sitzungsmodell::rowCount(const QModelIndex &eltern) const { return eltern.isValid() ? 0 : int(m_dateien.size()); }

QString Sitzungsmodell::titel(const QString &datei) const
{
    const auto bild = m_bilder->bild(datei);
    return sitzungszeit(datei, bild, bild && m_bilder->teiltMinute(*bild));
}

QVariant Sitzungsmodell::data(const QModelIndex &index, int rolle) const
{
    if (!index.isValid())
        return {};
    const QString &datei = m_dateien.at(index.row());
    const bool gewaehlt = m_sitzungen->protokollDatei() == datei;
    switch (rolle) {
    case Qt::DisplayRole:
        return titel(datei);
    case ZweiteZeile:
        return sitzungsinhalt(m_bilder->bild(datei), m_laufend);
    case Wort:
        return Sprache::text(u"Ansehen"_s);
    case Marke:
        return int(gewaehlt ? Symbol::Gewaehlt : Symbol::Offen);
    case Gewaehlt:
        return gewaehlt;
    case bedienteile::Kennung:
        return datei;
    case Zeilentat:
        return int(Symbol::Aufschlagen);
    case Tathilfe:
        return Sprache::text(u"Diese Protokolldatei in der Dateiverwaltung zeigen"_s);
    case Qt::ToolTipRole:
        return QVariant(nameVon(datei) + u'\n' + Sprache::text(u"Zeigt den Inhalt dieser Datei rechts an"_s));
    case Qt::AccessibleTextRole:
        return QVariant(gefuellt(Sprache::text(u"Sitzung: %@"_s), {titel(datei)}) + u", "_s +
                        index.data(ZweiteZeile).toString());
    case Qt::AccessibleDescriptionRole:
        return Sprache::text(u"Zeigt diese Sitzung rechts an, damit du vor dem Zurückdrehen siehst, was darin steht"_s);
    default:
        return {};
    }
}
} // namespace quillmar::protokoll
