#pragma once

#include "namensraeume.h"

#include <QStyledItemDelegate>

namespace quillmar::protokoll
{
/** Draws a movement: its mark, the old and the new path below each other, a word at the end where the mark needs one.
 */
class Bewegungszeichner : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter *maler, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
} // namespace quillmar::protokoll
