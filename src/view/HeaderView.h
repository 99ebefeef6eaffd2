#pragma once

#include "core/Enumerations.h"
#include "view/ContextMenuEntries.h"
#include "view/TableType.h"

#include <QHeaderView>

/// The labels of the rows or columns of a table.
class HeaderView : public QHeaderView {
    Q_OBJECT

public:
    explicit HeaderView(Qt::Orientation orientation, QWidget* parent = nullptr);

    /// Axis::Columns for a horizontal header.
    Axis getAxis() const { return orientation() == Qt::Horizontal ? Axis::Columns : Axis::Rows; }
    /// As of the view that the header belongs to.
    TableType getTableType() const { return tableType; }
    void setTableType(TableType type) { tableType = type; }
    /// The context menu offers the commands among `actions`.
    void setupContextMenus(CommandActions const& actions);
    /// A header of rows is wide enough for the label of the last row.
    QSize sizeHint() const override;

private:
    void onCustomContextMenu(QPoint const& point);

    TableType tableType = TableType::Unset;
    CommandActions commands;
};
