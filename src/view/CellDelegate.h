#pragma once

#include <QStyledItemDelegate>

/// Paints cells without Qt's focus rectangle: the main cell has a colour of its own. A cell of one line of plain text
/// is painted directly, since a screen holds a thousand of them; all others go the way of the style.
class CellDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, QStyleOptionViewItem const& option, QModelIndex const& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const override;
};
