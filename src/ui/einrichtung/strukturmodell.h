#pragma once

#include "namensraeume.h"
#include "struktur_vergleich.h"

#include <QAbstractItemModel>

namespace quillmar::einrichtung
{
/** The filing tree as a view shows it: name, year folders, what changed at the last reading. */
class Strukturmodell : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    void setzen(const QList<Strukturzeile> &zeilen);

    [[nodiscard]] QModelIndex index(int zeile, int spalte, const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QModelIndex parent(const QModelIndex &kind) const override;
    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &stelle, int rolle) const override;
    [[nodiscard]] QVariant headerData(int spalte, Qt::Orientation richtung, int rolle) const override;

private:
    struct Knoten {
        Strukturzeile zeile;
        int elter = -1;    ///< number of the node above, -1: none
        int platz = 0;     ///< among its kin
        QList<int> kinder; ///< numbers of the nodes below
    };
    [[nodiscard]] const QList<int> &kinder(const QModelIndex &eltern) const;

    QList<Knoten> m_knoten;
    QList<int> m_wurzeln;
};
} // namespace quillmar::einrichtung
