#pragma once

#include "namensraeume.h"

#include <QAbstractTableModel>
#include <functional>

namespace quillmar::einrichtung
{
/** Rows of texts that a view asks for one by one, so that long lists cost nothing until they are seen. */
class Lerntabelle : public QAbstractTableModel
{
    Q_OBJECT

public:
    using Inhalt = std::function<QString(int zeile, int spalte)>;

    Lerntabelle(const QStringList &titel, Inhalt inhalt, QObject *vater)
        : QAbstractTableModel(vater), m_titel(titel), m_inhalt(std::move(inhalt))
    {
    }

    /** The list behind it is another one now. */
    void setzeAnzahl(int anzahl)
    {
        beginResetModel();
        m_anzahl = anzahl;
        endResetModel();
    }

    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override
    {
        return eltern.isValid() ? 0 : m_anzahl;
    }
    [[nodiscard]] int columnCount(const QModelIndex &eltern = {}) const override
    {
        return eltern.isValid() ? 0 : int(m_titel.size());
    }
    [[nodiscard]] QVariant data(const QModelIndex &stelle, int rolle) const override
    {
        return rolle == Qt::DisplayRole ? QVariant(m_inhalt(stelle.row(), stelle.column())) : QVariant();
    }
    [[nodiscard]] QVariant headerData(int spalte, Qt::Orientation richtung, int rolle) const override
    {
        return richtung == Qt::Horizontal && rolle == Qt::DisplayRole ? QVariant(m_titel.at(spalte)) : QVariant();
    }

private:
    QStringList m_titel;
    Inhalt m_inhalt;
    int m_anzahl = 0;
};
} // namespace quillmar::einrichtung
