#include "view/FrozenTableView.h"

#include "appearance/Theme.h"
#include "model/TableModel.h"
#include "view/HeaderView.h"
#include "view/TableDelegate.h"

#include <QScrollBar>

#include <algorithm>

FrozenTableView::FrozenTableView(TableType type, QWidget* parent) : AbstractTableView(type, parent) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalScrollBar()->setEnabled(type == TableType::HorizontalFrozen);
    verticalScrollBar()->setEnabled(type == TableType::VerticalFrozen);
    setFrameShape(QFrame::NoFrame);
}

void FrozenTableView::setNumRows(int count) {
    numRows = count;
    if (showsRows())
        getVerticalHeaderView()->setSectionLimit(count);
}

void FrozenTableView::setNumCols(int count) {
    numCols = count;
    if (showsCols())
        getHorizontalHeaderView()->setSectionLimit(count);
}

void FrozenTableView::takeModelOf(AbstractTableView const& main) {
    // The labels of a band cover those beneath.
    getVerticalHeaderView()->setLeader(main.verticalHeader());
    getHorizontalHeaderView()->setLeader(main.horizontalHeader());
    setModel(main.tableModel());
    relayOut();
}

void FrozenTableView::relayOut() {
    updateGeometries();
    viewport()->update();
}

void FrozenTableView::follow(Axis axis, QScrollBar const& bar) {
    QScrollBar* const own = scrollBarOf(axis);
    own->setMaximum(std::max(own->maximum(), bar.maximum()));
    own->setValue(bar.value());
}

void FrozenTableView::setTheme(Theme const& theme) {
    QString sheet = QStringLiteral("QTableView {\n"
                                   "gridline-color: %1;\n"
                                   "border-style: none;\n");
    if (getTableType() == TableType::HorizontalFrozen)
        sheet += QStringLiteral("border-left: 1px solid %1;\n"
                                "border-right: 1px solid %1;\n");
    else if (getTableType() == TableType::VerticalFrozen)
        sheet += QStringLiteral("border-top: 1px solid %1;\n"
                                "border-bottom: 1px solid %1;\n");
    sheet += QStringLiteral("}\n");
    // A new sheet has all of the band's parts styled anew.
    if (QString const text = sheet.arg(theme.getBackground5Color().name()); text != styleSheet())
        setStyleSheet(text);
    tableDelegate()->setEditorBackgroundColor(theme.getCellColor());
    tableDelegate()->setTextColor(theme.getTextColor());
}

Range FrozenTableView::cellAtPos(int x, int y) const {
    Range cell = AbstractTableView::cellAtPos(x, y);
    if (showsRows() && numRows > 0)
        cell.row = std::min(cell.row, numRows - 1);
    if (showsCols() && numCols > 0)
        cell.col = std::min(cell.col, numCols - 1);
    return cell;
}

void FrozenTableView::moveSelectionRelative(int rows, int cols) {
    emit moveSelectionRelativeSignal(rows, cols);
}

void FrozenTableView::moveSelectionAbsolute(int, int) {}
