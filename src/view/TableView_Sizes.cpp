// The sizes of rows and columns: defaults, bounds and what is set by hand.

#include "model/TableModel.h"
#include "view/FrozenTableView.h"
#include "view/GridLimits.h"
#include "view/PausedUpdates.h"
#include "view/TableView.h"

#include <QHeaderView>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

/// What a model asks along one axis.
struct SizeSignals {
    using OfLines = void (TableModel::*)(std::vector<int>);
    using OfRun = void (TableModel::*)(int, int);

    OfLines insertLines;
    OfRun insertRun;
    OfLines removeLines;
    OfRun removeRun;
    OfRun resizeLine;
    void (TableModel::*resizeLines)(std::vector<int>, int);
    void (TableModel::*fitLine)(int);
    OfLines fitLines;
};

SizeSignals const& signalsOf(Axis axis) {
    static SizeSignals const rows{&TableModel::insertRowsGuiSignal,
                                  &TableModel::insertRowsGuiSignal,
                                  &TableModel::removeRowsGuiSignal,
                                  &TableModel::removeRowsGuiSignal,
                                  &TableModel::resizeRowSignal,
                                  &TableModel::resizeRowsSignal,
                                  &TableModel::enforceAutoFitRowHeightSignal,
                                  &TableModel::enforceAutoFitRowHeightsSignal};
    static SizeSignals const cols{&TableModel::insertColsGuiSignal,
                                  &TableModel::insertColsGuiSignal,
                                  &TableModel::removeColsGuiSignal,
                                  &TableModel::removeColsGuiSignal,
                                  &TableModel::resizeColSignal,
                                  &TableModel::resizeColsSignal,
                                  &TableModel::enforceAutoFitColWidthSignal,
                                  &TableModel::enforceAutoFitColWidthsSignal};
    return axis == Axis::Rows ? rows : cols;
}

std::vector<int> convertRowAndCountToVector(int line, int count) {
    std::vector<int> lines(std::size_t(std::max(count, 0)));
    std::iota(lines.begin(), lines.end(), line);
    return lines;
}

} // namespace

void TableView::connectSizesAlong(Axis axis) {
    TableModel const* const model = tableModel();
    SizeSignals const& asked = signalsOf(axis);
    bool const rows = axis == Axis::Rows;
    auto const insert = [this, rows](std::vector<int> const& lines) {
        rows ? insertRowsSlot(lines) : insertColsSlot(lines);
    };
    auto const remove = [this, rows](std::vector<int> const& lines) {
        rows ? removeRowsSlot(lines) : removeColsSlot(lines);
    };
    auto const fit = [this, rows](std::vector<int> const& lines) {
        rows ? enforceAutoFitRowHeights(lines) : enforceAutoFitColWidths(lines);
    };
    connect(model, asked.insertLines, this, insert);
    connect(model, asked.insertRun, this,
            [insert](int line, int count) { insert(convertRowAndCountToVector(line, count)); });
    connect(model, asked.removeLines, this, remove);
    connect(model, asked.removeRun, this,
            [remove](int line, int count) { remove(convertRowAndCountToVector(line, count)); });
    connect(model, asked.resizeLine, this, [this, axis](int line, int size) { resizeLines(axis, {line}, {size}); });
    connect(model, asked.resizeLines, this, [this, axis](std::vector<int> const& lines, int size) {
        resizeLines(axis, lines, std::vector<int>(lines.size(), size));
    });
    connect(model, asked.fitLine, this, [fit](int line) { fit({line}); });
    connect(model, asked.fitLines, this, fit);
}

/// Each line that changes its size would otherwise have the table laid out and painted anew.
void TableView::resizeTogether(std::function<void()> const& resize) {
    {
        PausedUpdates const paused(*this);
        resize();
    }
    updateGeometries();
}

// What is shown. The sizes are kept by line in the table; headers and bands take them from there after anything that
// can have changed them, before it is painted or reckoned with.

void TableView::setTableOfSizes() {
    for (LineSizes* const sizes : {rowSizes, colSizes})
        sizes->setTable(tableModel());
}

bool TableView::takeSizes() {
    bool const rowsChanged = rowSizes->show();
    bool const colsChanged = colSizes->show();
    if (!rowsChanged && !colsChanged)
        return false;
    for (AbstractTableView const* const view : allViews()) {
        for (QWidget* const part :
             {view->viewport(), view->horizontalHeader()->viewport(), view->verticalHeader()->viewport()})
            part->update();
    }
    return true;
}

void TableView::showSizes() {
    if (takeSizes())
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
    sizesOf(axis).forgetAll();
    updateShownSize(axis);
    updateGeometries();
    axis == Axis::Rows ? enforceAutoFitRowHeight(true) : enforceAutoFitColWidth(true);
    refreshView();
}

/// Of rows without a height of their own: the default, or as much as a line of text needs.
int TableView::shownRowHeight() const {
    QFont bold = tableFont;
    bold.setWeight(QFont::Bold);
    int const lineOfText =
        std::max(QFontMetrics(tableFont).height(), QFontMetrics(bold).height()) + (showGrid() ? 1 : 0);
    return std::min(std::max(defaultRowHeight, lineOfText), maximumRowHeight);
}

/// A grid never has the larger lines while it still has the larger number of them.
void TableView::updateShownSize(Axis axis) {
    LineSizes& sizes = sizesOf(axis);
    int const size = axis == Axis::Rows ? shownRowHeight() : defaultColumnWidth;
    if (size > sizes.defaultSize())
        updateLoadLimits();
    sizes.changeDefault(size);
    updateLoadLimits();
}

void TableView::updateLoadLimits() {
    tableModel()->setLoadLimits(GridLimits::of(shownRowHeight(), defaultColumnWidth));
}

void TableView::setMaximumRowHeight(int height, bool emitChange) {
    maximumRowHeight = height;
    updateShownSize(Axis::Rows);
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
    rowSizes->keepAllAbove(defaultRowHeight);
    showSizes();
}

void TableView::enforceMinimumRowHeight(int row) {
    rowSizes->keepAbove(row, defaultRowHeight);
}

void TableView::enforceMaximumRowHeight() {
    rowSizes->cutAll(maximumRowHeight);
    showSizes();
}

void TableView::enforceMaximumRowHeight(int row) {
    rowSizes->cut(row, maximumRowHeight);
}

void TableView::enforceMaximumColumnWidth() {
    colSizes->cutAll(maximumColumnWidth);
    showSizes();
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
    LineSizes& sizes = sizesOf(axis);
    if (sizes.areDefault())
        return;
    int const dataCount = axis == Axis::Rows ? tableModel()->rowCountModel() : tableModel()->columnCountModel();
    for (int line = 0; line < std::min({dataCount, sizes.header().count(), sizes.end()}); ++line)
        enforceEmptySize(axis, line);
    sizes.resetBehindData();
    showSizes();
}

void TableView::enforceEmptySize(Axis axis, int line) {
    LineSizes& sizes = sizesOf(axis);
    int const dataCount = axis == Axis::Rows ? tableModel()->rowCountModel() : tableModel()->columnCountModel();
    int const size = sizes.size(line);
    bool const vanished =
        line < dataCount && size <= sizes.header().minimumSectionSize() && size != sizes.defaultSize();
    if (vanished && isEmptyLine(axis, line))
        sizes.reset(line);
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
            sizesOf(axis).setByHand(line, size);
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
            sizesOf(axis).setByHand(lines[at], std::min(sizes[at], maximumSize(axis)));
    });
}
