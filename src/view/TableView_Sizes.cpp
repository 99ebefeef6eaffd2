// The sizes of rows and columns: defaults, bounds and what is set by hand.

#include "model/TableModel.h"
#include "view/FrozenTableView.h"
#include "view/TableResizing.h"
#include "view/TableView.h"

#include <QHeaderView>

#include <algorithm>

/// Each line that changes its size would otherwise have the table laid out and painted anew.
void TableView::resizeTogether(std::function<void()> const& resize) {
    {
        TableResizing const resizing(*this);
        resize();
    }
    updateGeometries();
}

// Defaults and bounds.

void TableView::setDefaultRowHeight(int height) {
    setDefaultSize(Axis::Rows, height);
}

void TableView::setDefaultColumnWidth(int width) {
    setDefaultSize(Axis::Columns, width);
}

void TableView::setDefaultSize(Axis axis, int size) {
    (axis == Axis::Rows ? defaultRowHeight : defaultColumnWidth) = size;
    sizesOf(axis).setDefault(size);
    for (FrozenTableView const* const view : frozenViews()) {
        QHeaderView* const header = axis == Axis::Rows ? view->verticalHeader() : view->horizontalHeader();
        QSignalBlocker const blocker(header);
        header->setDefaultSectionSize(size);
    }
    updateGeometries();
    if (axis == Axis::Rows)
        enforceAutoFitRowHeight(true);
    else
        enforceAutoFitColWidth(true);
    refreshView();
}

void TableView::setMaximumRowHeight(int height, bool emitChange) {
    maximumRowHeight = height;
    enforceAutoFitRowHeight(true);
    if (emitChange)
        emit fileMetadataChangedSignal();
}

void TableView::setMaximumColumnWidth(int width, bool emitChange) {
    maximumColumnWidth = width;
    enforceAutoFitColWidth(true);
    if (emitChange)
        emit fileMetadataChangedSignal();
}

void TableView::enforceMinimumRowHeight() {
    rowSizes->raiseAll(defaultRowHeight);
}

void TableView::enforceMinimumRowHeight(int row) {
    rowSizes->raise(row, defaultRowHeight);
}

void TableView::enforceMaximumRowHeight() {
    rowSizes->cutAll(maximumRowHeight);
}

void TableView::enforceMaximumRowHeight(int row) {
    rowSizes->cut(row, maximumRowHeight);
}

void TableView::enforceMaximumColumnWidth() {
    colSizes->cutAll(maximumColumnWidth);
}

void TableView::enforceMaximumColumnWidth(int col) {
    colSizes->cut(col, maximumColumnWidth);
}

void TableView::enforceEmptyRowHeight() {
    enforceEmptySizes(Axis::Rows);
}

void TableView::enforceEmptyRowHeight(int row) {
    enforceEmptySize(Axis::Rows, row);
}

void TableView::enforceEmptyColumnWidth() {
    enforceEmptySizes(Axis::Columns);
}

void TableView::enforceEmptyColumnWidth(int col) {
    enforceEmptySize(Axis::Columns, col);
}

void TableView::enforceEmptySizes(Axis axis) {
    if (sizesOf(axis).areDefault())
        return;
    QHeaderView* const header = headerOf(axis);
    int const dataCount = axis == Axis::Rows ? tableModel()->rowCountModel() : tableModel()->columnCountModel();
    for (int line = 0; line < std::min(dataCount, header->count()); ++line)
        enforceEmptySize(axis, line);
    for (int line = dataCount; line < header->count(); ++line)
        header->resizeSection(line, defaultSize(axis));
}

void TableView::enforceEmptySize(Axis axis, int line) {
    QHeaderView* const header = headerOf(axis);
    int const dataCount = axis == Axis::Rows ? tableModel()->rowCountModel() : tableModel()->columnCountModel();
    bool const vanished = line < dataCount && header->sectionSize(line) <= header->minimumSectionSize() &&
                          header->sectionSize(line) != defaultSize(axis);
    if (vanished && isEmptyLine(axis, line))
        header->resizeSection(line, defaultSize(axis));
}

bool TableView::isEmptyLine(Axis axis, int line) const {
    TableModel const& model = *tableModel();
    int const length = axis == Axis::Rows ? model.columnCountModel() : model.rowCountModel();
    for (int at = 0; at < length; ++at) {
        QModelIndex const cell = axis == Axis::Rows ? model.index(line, at) : model.index(at, line);
        if (!cell.data().toString().isEmpty())
            return false;
    }
    return true;
}

// Sizes that are given.

void TableView::setRowHeights(int height) {
    resizeSelectedLines(Axis::Rows, height);
}

void TableView::setColWidths(int width) {
    resizeSelectedLines(Axis::Columns, width);
}

void TableView::resizeSelectedLines(Axis axis, int size) {
    std::vector<int> lines;
    if (axis == Axis::Rows)
        tableModel()->getOrderedSetOfSelectedRows(lines, RangeIndexType::Model, false);
    else
        tableModel()->getOrderedSetOfSelectedCols(lines, RangeIndexType::Model, false);
    resizeTogether([&] {
        for (int const line : lines)
            headerOf(axis)->resizeSection(line, size);
    });
}

void TableView::resizeRows(std::vector<int> const& rows, std::vector<int> const& heights) {
    resizeLines(Axis::Rows, rows, heights);
}

void TableView::resizeCols(std::vector<int> const& cols, std::vector<int> const& widths) {
    resizeLines(Axis::Columns, cols, widths);
}

void TableView::resizeLines(Axis axis, std::vector<int> const& lines, std::vector<int> const& sizes) {
    resizeTogether([&] {
        for (std::size_t at = 0; at < std::min(lines.size(), sizes.size()); ++at)
            headerOf(axis)->resizeSection(lines[at], std::min(sizes[at], maximumSize(axis)));
    });
}

// Sizes across an insertion that the headers do not see.

void TableView::resizeRowsBeforeInsert(std::vector<int> positions) {
    makeRoom(Axis::Rows, std::move(positions));
}

void TableView::resizeColsBeforeInsert(std::vector<int> positions) {
    makeRoom(Axis::Columns, std::move(positions));
}

void TableView::resizeColsAfterInsert(std::vector<int> positions) {
    std::sort(positions.begin(), positions.end());
    makeRoom(Axis::Columns, std::move(positions));
}

void TableView::makeRoom(Axis axis, std::vector<int> positions) {
    for (std::size_t inserted = 0; inserted < positions.size(); ++inserted)
        positions[inserted] += int(inserted);
    resizeTogether([&] { sizesOf(axis).makeRoom(positions); });
}
