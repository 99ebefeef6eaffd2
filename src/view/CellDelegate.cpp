#include "view/CellDelegate.h"

void CellDelegate::initStyleOption(QStyleOptionViewItem* option, QModelIndex const& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
}
