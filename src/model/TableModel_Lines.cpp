// Rows and columns: inserting, removing and moving them, concealing, and the size of the grid.

#include "model/DataAxis.h"
#include "model/TableModel.h"

#include <QScopedValueRollback>

#include <algorithm>

bool TableModel::insertRows(int row, int count, QModelIndex const& parent) {
    return insertLines(Axis::Rows, row, count, parent, [=, this] { return tableData.insertRowsModel(row, count); });
}

bool TableModel::insertColumns(int col, int count, QModelIndex const& parent) {
    return insertLines(Axis::Columns, col, count, parent, [=, this] { return tableData.insertColsModel(col, count); });
}

bool TableModel::insertRowsRaw(int row, int count, QModelIndex const& parent) {
    return insertLinesRaw(Axis::Rows, row, count, parent);
}

bool TableModel::insertColumnsRaw(int col, int count, QModelIndex const& parent) {
    return insertLinesRaw(Axis::Columns, col, count, parent);
}

bool TableModel::insertLinesRaw(Axis axis, int rawLine, int count, QModelIndex const& parent) {
    DataAxis data(tableData, axis);
    DataAxis::Indexes const& concealed = data.concealed();
    auto const concealedBefore = std::lower_bound(concealed.begin(), concealed.end(), rawLine) - concealed.begin();
    return insertLines(axis, rawLine - int(concealedBefore), count, parent,
                       [&] { return data.insertRaw(rawLine, count); });
}

/// Whether inserting and removing lines may go on: they leave the data alone, or it takes changes.
bool TableModel::mayChangeData() const {
    bool const readOnlyData = tableData.getDataContainerType() == TableData::DataContainerType::ReadOnly;
    return dataAlreadyChanged || !(readOnlyData || isLoading());
}

bool TableModel::insertLines(Axis axis, int line, int count, QModelIndex const& parent,
                             ChangeData const& insertInData) {
    if (count < 1)
        return true;
    if (!mayChangeData() || line < 0 || line > viewCount(axis))
        return false;
    if (!skipLayoutSignals)
        emit layoutAboutToBeChanged();
    // The data changes between the two announcements, so that whoever listens sees old content at the first and new
    // content at the second.
    if (axis == Axis::Rows)
        beginInsertRows(parent, line, line + count - 1);
    else
        beginInsertColumns(parent, line, line + count - 1);
    bool const inserted = dataAlreadyChanged || insertInData();
    viewCount(axis) += count;
    if (axis == Axis::Rows)
        endInsertRows();
    else
        endInsertColumns();
    if (!skipLayoutSignals)
        emit layoutChanged();
    return inserted;
}

bool TableModel::removeRows(int row, int count, QModelIndex const& parent) {
    return removeLines(Axis::Rows, row, count, parent);
}

bool TableModel::removeColumns(int col, int count, QModelIndex const& parent) {
    return removeLines(Axis::Columns, col, count, parent);
}

bool TableModel::removeLines(Axis axis, int line, int count, QModelIndex const& parent) {
    count = std::min(count, viewCount(axis) - line);
    if (count < 1 || line < 0)
        return true;
    if (!mayChangeData())
        return false;
    if (axis == Axis::Rows)
        beginRemoveRows(parent, line, line + count - 1);
    else
        beginRemoveColumns(parent, line, line + count - 1);
    bool const removed = dataAlreadyChanged || DataAxis(tableData, axis).removeModel(line, count);
    viewCount(axis) -= count;
    if (axis == Axis::Rows)
        endRemoveRows();
    else
        endRemoveColumns();
    return removed;
}

void TableModel::insertRows(Indexes const& rows) {
    for (int const row : rows)
        insertRows(row, 1);
}

void TableModel::insertCols(Indexes const& cols) {
    for (int const col : cols)
        insertColumns(col, 1);
}

void TableModel::removeRows(Indexes const& rows) {
    for (auto row = rows.rbegin(); row != rows.rend(); ++row)
        removeRows(*row, 1);
}

void TableModel::removeCols(Indexes const& cols) {
    for (auto col = cols.rbegin(); col != cols.rend(); ++col)
        removeColumns(*col, 1);
}

// These forms of the data do not signal, so the highlight has to be told here.

bool TableModel::insertRowsInDataRaw(int row, Rows const& rows) {
    highlighted.invalidate();
    return tableData.insertRowsRaw(row, rows);
}

bool TableModel::insertColumnsInDataRaw(int col, Rows const& cols) {
    highlighted.invalidate();
    return tableData.insertColsRaw(col, cols);
}

bool TableModel::removeRowsFromDataRaw(int row, int count) {
    highlighted.invalidate();
    return tableData.removeRowsRaw(row, count);
}

bool TableModel::removeColumnsFromDataRaw(int col, int count) {
    highlighted.invalidate();
    return tableData.removeColsRaw(col, count);
}

bool TableModel::moveRowAbsolute(int from, int to) {
    return moveLineAbsolute(Axis::Rows, from, to);
}

bool TableModel::moveColumnAbsolute(int from, int to) {
    return moveLineAbsolute(Axis::Columns, from, to);
}

// The data takes the lowered target as the distance of the move, and callers count on that.
bool TableModel::moveLineAbsolute(Axis axis, int from, int to) {
    if (from < 0 || to < 0)
        return false;
    return DataAxis(tableData, axis).moveRelative(from, to >= 1 ? to - 1 : to);
}

void TableModel::toggleTranspose() {
    if (isLoading())
        return;
    tableData.toggleTranspose();
    highlighted.invalidate();
    refreshVisibleHeaderRows();
    int const rows = viewColCount;
    int const cols = viewRowCount;
    {
        QScopedValueRollback<bool> const onlyView(dataAlreadyChanged, true);
        setViewCount(Axis::Rows, rows);
        setViewCount(Axis::Columns, cols);
    }
    emit toggleTransposeSignal();
}

void TableModel::concealRawRows(Indexes const& rows) {
    tableData.concealRawRows(rows);
    refreshVisibleHeaderRows();
    emit refreshHeadersSignal();
}

void TableModel::setSizeOption(int& option, int value) {
    option = value;
    enforceTableSize();
}

TableShape TableModel::shape(Axis axis) {
    DataAxis const data(tableData, axis);
    bool const isRows = axis == Axis::Rows;
    return {data.modelCount(),
            data.concealedCount(),
            isRows ? numBufferRows : numBufferCols,
            isRows ? minNumTableRows : minNumTableCols,
            readOnly,
            isRows ? gridLimits.rows : gridLimits.columns};
}

void TableModel::setLoadLimits(LoadLimits limits) {
    tableData.setLoadLimits(limits);
    gridLimits = limits;
    enforceTableSize();
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        bool mainCellChanged = false;
        if (!selection.set().isEmpty() && selection.set().lastStart(axis) >= viewCount(axis))
            removeExtraneousLines(axis, mainCellChanged);
    }
}

/// Grows or shrinks the grid at its end. To be called with dataAlreadyChanged set.
void TableModel::setViewCount(Axis axis, int count) {
    int const present = viewCount(axis);
    bool const isRows = axis == Axis::Rows;
    if (count > present)
        isRows ? insertRows(present, count - present) : insertColumns(present, count - present);
    else if (count < present)
        isRows ? removeRows(count, present - count) : removeColumns(count, present - count);
}

void TableModel::enforceTableSize() {
    bool const anySelected = !selection.set().isEmpty();
    auto const lastSelected = [&](int last) { return anySelected ? std::optional(last) : std::nullopt; };
    selection.sortByColumns();
    int const rows = shape(Axis::Rows).viewCount(lastSelected(selection.set().lastStart(Axis::Rows)));
    int const cols = shape(Axis::Columns).viewCount(lastSelected(selection.set().lastStart(Axis::Columns)));
    if (rows == viewRowCount && cols == viewColCount)
        return;
    emit layoutAboutToBeChanged();
    {
        QScopedValueRollback<bool> const onlyView(dataAlreadyChanged, true);
        setViewCount(Axis::Rows, rows);
        setViewCount(Axis::Columns, cols);
    }
    emit layoutChanged();
    keepMainCellInGrid();
}

/// A main cell exactly one line behind the grid is left for the caller to move.
void TableModel::keepMainCellInGrid() {
    Range mainCell = selection.mainCell();
    bool const rowOutside = mainCell.row > viewRowCount;
    bool const colOutside = mainCell.col > viewColCount;
    if (rowOutside)
        mainCell.row = std::max(viewRowCount - 1, 0);
    if (colOutside)
        mainCell.col = std::max(viewColCount - 1, 0);
    if (rowOutside || colOutside)
        setSelection(mainCell);
}

void TableModel::removeExtraneousLines(Axis axis, bool& mainCellChanged) {
    Range const oldMainCell = selection.mainCell();
    selection.pullBackLines(axis, shape(axis).lastSelectable());
    enforceTableSize();
    if (selection.dropLinesFrom(axis, viewCount(axis))) {
        mainCellChanged = selection.mainCell() != oldMainCell;
    } else {
        int const last = std::max(viewCount(axis) - 1, 0);
        bool const isRows = axis == Axis::Rows;
        setSelection(Range(isRows ? last : oldMainCell.row, isRows ? oldMainCell.col : last, RangeIndexType::Model));
        mainCellChanged = true;
    }
    if (mainCellChanged)
        onMainCellChanged();
    emit selectionChangedSignal();
}
