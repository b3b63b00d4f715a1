#pragma once

#include "ablagelernen.h"
#include "namensraeume.h"

#include <QAbstractListModel>

namespace quillmar::einrichtung
{
/** What was found in the filing tree as rows of a list, made when they are seen: there may be a hundred thousand. */
class Fundmodell : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit Fundmodell(Ablagelernen *ablage, QObject *vater);

    /** From now on only what @p wort meets is shown; everything for an empty one. */
    void suchen(const QString &wort);
    /** Which ones are shown. */
    [[nodiscard]] const QList<qsizetype> &stellen() const { return m_stellen; }

    [[nodiscard]] int rowCount(const QModelIndex &eltern = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int rolle) const override;
    bool setData(const QModelIndex &index, const QVariant &wert, int rolle) override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void auswaehlen();

    Ablagelernen *m_ablage;
    QString m_suche;
    QList<qsizetype> m_stellen;
};
} // namespace quillmar::einrichtung
