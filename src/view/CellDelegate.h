#pragma once

#include <QStyledItemDelegate>

/// Paints cells without Qt's focus rectangle: the main cell has a colour of its own.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override;
};
