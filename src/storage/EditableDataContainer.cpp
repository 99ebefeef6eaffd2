#include "storage/EditableDataContainer.h"

#include "storage/BlockJump.h"
#include "storage/MaskCursor.h"
#include "storage/ScannerFile.h"

#include <algorithm>
#include <numeric>

namespace {

using Bytes = AbstractDataContainer::Bytes;
using Mask = AbstractDataContainer::Mask;

std::string_view view(Bytes const& bytes) {
    return {bytes.data(), bytes.size()};
}

Bytes toBytes(std::string_view bytes) {
    return {bytes.begin(), bytes.end()};
}

bool isRange(int first, int count) {
    return first >= 0 && count >= 1;
}

/// The indexes from `start` up to `count` that a search for empty rows or columns looks at.
std::vector<int> searchedIndexes(int start, int count, GetRowColMaskType maskType, Mask const& mask) {
    std::vector<int> result;
    if (maskType == GetRowColMaskType::Include && !mask.empty()) {
        std::copy_if(mask.begin(), mask.end(), std::back_inserter(result), [](int index) { return index >= 0; });
        return result;
    }
    MaskCursor excluded(maskType == GetRowColMaskType::Exclude ? &mask : nullptr);
    for (int index = std::max(start, 0); index < count; ++index)
        if (!excluded.contains(index))
            result.push_back(index);
    return result;
}

/// Collects the cells of a row or column of `count` cells that the mask lets through.
template <typename CellAt>
void collectCells(AbstractDataContainer::Cells& out, int count, GetRowColMaskType maskType, Mask const& mask,
                  CellAt const& cellAt) {
    if (maskType == GetRowColMaskType::Include && !mask.empty()) {
        for (int const index : mask)
            out.push_back(toBytes(cellAt(index)));
        return;
    }
    MaskCursor excluded(maskType == GetRowColMaskType::Exclude ? &mask : nullptr);
    for (int index = 0; index < count; ++index)
        if (!excluded.contains(index))
            out.push_back(toBytes(cellAt(index)));
}

} // namespace

EditableDataContainer::EditableDataContainer(QObject* parent) : AbstractDataContainer(parent) {}

EditableDataContainer::~EditableDataContainer() = default;

// Cells

std::string_view EditableDataContainer::cellView(int row, int col) const {
    return row < 0 || col < 0 ? std::string_view() : rows.cell(row, col);
}

int EditableDataContainer::skipInCol(LineWalk const& walk, int col, bool filled) const {
    auto const holdsBytes = [&](int row) {
        return row >= 0 && col >= 0 && rows.holdsBytes(static_cast<std::size_t>(row), static_cast<std::size_t>(col));
    };
    return skipByCell(holdsBytes)(walk, filled);
}

AbstractDataContainer::Bytes EditableDataContainer::getValue(int row, int col, bool) const {
    return toBytes(cellView(row, col));
}

int EditableDataContainer::cellsInRow(int row) const {
    return row < 0 ? 0 : static_cast<int>(rows.cellCount(row));
}

int EditableDataContainer::numColsInRow(int row) const {
    auto count = cellsInRow(row);
    while (count > 0 && rows.cell(row, count - 1).empty())
        --count;
    return count;
}

bool EditableDataContainer::setValue(int const& row, int const& col, Bytes const& value) {
    if (row < 0 || col < 0)
        return false;
    growStoredRows(row + 1);
    if (col >= numColsStored)
        resizeCols(col + 1);
    storeCell(row, col, view(value));
    return true;
}

// An empty cell at the end of a row is not stored, so that short rows stay short.
void EditableDataContainer::storeCell(int row, int col, std::string_view bytes) {
    if (col < cellsInRow(row) || !bytes.empty())
        rows.setCell(row, col, bytes);
}

/// The table never counts fewer rows than it stores.
void EditableDataContainer::growStoredRows(int count) {
    if (storedRows() < count)
        rows.resize(count);
    numRowsStored = std::max(numRowsStored, count);
}

void EditableDataContainer::clear() {
    rows.clear();
}

// Empty rows and columns

std::vector<int> EditableDataContainer::emptyRows(int startCol, GetRowColMaskType maskType, Mask const& mask) const {
    auto const cols = searchedIndexes(startCol, numColsStored, maskType, mask);
    std::vector<int> result;
    for (int row = 0; row < numRowsStored; ++row) {
        auto const count = cellsInRow(row);
        bool const filled = std::any_of(cols.begin(), std::lower_bound(cols.begin(), cols.end(), count),
                                        [&](int col) { return !rows.cell(row, col).empty(); });
        if (!filled)
            result.push_back(row);
    }
    return result;
}

// Goes row by row, as the cells lie in memory, with the columns that are still empty so far: few after a few rows.
std::vector<int> EditableDataContainer::emptyCols(int startRow, GetRowColMaskType maskType, Mask const& mask) const {
    auto const searched = searchedIndexes(startRow, numRowsStored, maskType, mask);
    std::vector<int> result(numColsStored);
    std::iota(result.begin(), result.end(), 0);
    for (int const row : searched) {
        if (row >= storedRows() || result.empty())
            break;
        auto const reached = std::lower_bound(result.begin(), result.end(), cellsInRow(row));
        result.erase(std::remove_if(result.begin(), reached, [&](int col) { return !rows.cell(row, col).empty(); }),
                     reached);
    }
    return result;
}

int EditableDataContainer::numEmptyRowsAtEnd() const {
    auto filled = storedRows();
    while (filled > 0 && numColsInRow(filled - 1) == 0)
        --filled;
    return numRowsStored - filled;
}

int EditableDataContainer::numEmptyColsAtEnd() const {
    int filled = 0;
    for (int row = 0; row < storedRows(); ++row) {
        auto count = cellsInRow(row);
        while (count > filled && rows.cell(row, count - 1).empty())
            --count;
        filled = std::max(filled, count);
    }
    return numColsStored - filled;
}

// Size

bool EditableDataContainer::resizeRows(int count) {
    if (count < 0)
        return false;
    if (count < storedRows())
        rows.resize(count);
    numRowsStored = count;
    return true;
}

bool EditableDataContainer::resizeCols(int count) {
    if (count < 0)
        return false;
    if (count < numColsStored)
        for (int row = 0; row < storedRows(); ++row)
            if (auto const stored = cellsInRow(row); stored > count)
                rows.removeCells(row, count, stored - count);
    numColsStored = count;
    return true;
}

bool EditableDataContainer::insertEmptyRows(int row, int count) {
    if (!isRange(row, count))
        return false;
    if (row < storedRows()) {
        rows.insertRows(row, count);
        numRowsStored += count;
    } else {
        numRowsStored = std::max(numRowsStored, row) + count;
    }
    return true;
}

bool EditableDataContainer::insertEmptyCols(int col, int count) {
    if (!isRange(col, count))
        return false;
    if (col >= numColsStored) {
        numColsStored = col + count;
        return true;
    }
    for (int row = 0; row < storedRows(); ++row)
        if (col < cellsInRow(row))
            rows.insertCells(row, col, count);
    numColsStored += count;
    return true;
}

bool EditableDataContainer::removeRows(int row, int count) {
    if (!isRange(row, count))
        return false;
    if (row >= numRowsStored)
        return true;
    count = std::min(count, numRowsStored - row);
    if (row < storedRows())
        rows.removeRows(row, std::min(count, storedRows() - row));
    numRowsStored -= count;
    return true;
}

bool EditableDataContainer::removeCols(int col, int count) {
    if (!isRange(col, count))
        return false;
    if (col >= numColsStored)
        return true;
    count = std::min(count, numColsStored - col);
    for (int row = 0; row < storedRows(); ++row)
        if (auto const stored = cellsInRow(row); col < stored)
            rows.removeCells(row, col, std::min(count, stored - col));
    numColsStored -= count;
    return true;
}

// Whole rows and columns

bool EditableDataContainer::getRow(Cells& out, int row, bool, GetRowColMaskType maskType, Mask const& mask) const {
    out.clear();
    if (row < 0 || row >= numRowsStored)
        return false;
    collectCells(out, cellsInRow(row), maskType, mask, [&](int col) { return cellView(row, col); });
    return true;
}

bool EditableDataContainer::getCol(Cells& out, int col, bool, GetRowColMaskType maskType, Mask const& mask) const {
    out.clear();
    if (col < 0 || col >= numColsStored)
        return false;
    collectCells(out, numRowsStored, maskType, mask, [&](int row) { return cellView(row, col); });
    return true;
}

bool EditableDataContainer::setRow(int row, Cells const& cells) {
    if (row < 0)
        return false;
    growStoredRows(row + 1);
    std::vector<std::string_view> views(cells.size());
    std::transform(cells.begin(), cells.end(), views.begin(), view);
    rows.setRow(row, views);
    return true;
}

bool EditableDataContainer::setCol(int col, Cells const& cells) {
    std::vector<Cells const*> const single{&cells};
    return storeCols(col, single);
}

void EditableDataContainer::permuteRows(std::vector<int> const& order, int first) {
    int const stored = storedRows();
    int const end = first + static_cast<int>(order.size());
    if (first >= stored)
        return;
    // Rows behind the stored ones make no lines in a file, and those that are last again still make none.
    auto const isStored = [stored](int row) { return row < stored; };
    auto const unstored = std::find_if(order.rbegin(), order.rend(), isStored) - order.rbegin();
    growStoredRows(end);
    rows.permute(order, static_cast<std::size_t>(first));
    if (end > stored)
        rows.resize(static_cast<std::size_t>(end - unstored));
}

void EditableDataContainer::permuteCols(std::vector<int> const& order, int first, bool keepLengths) {
    int const end = first + static_cast<int>(order.size());
    std::vector<std::string_view> cells;
    for (int row = 0; row < storedRows(); ++row) {
        int const count = cellsInRow(row);
        if (count <= first)
            continue;
        cells.clear();
        for (int col = 0; col < std::max(count, end); ++col)
            cells.push_back(
                cellView(row, col < first || col >= end ? col : order[static_cast<std::size_t>(col - first)]));
        // What a row does not store reads as empty.
        std::size_t const least = keepLengths ? static_cast<std::size_t>(count) : 0;
        while (cells.size() > least && cells.back().empty())
            cells.pop_back();
        rows.setRow(row, cells);
    }
}

bool EditableDataContainer::insertRow(int row, Cells const& cells) {
    return insertEmptyRows(row, 1) && setRow(row, cells);
}

bool EditableDataContainer::insertCol(int col, Cells const& cells) {
    return insertEmptyCols(col, 1) && setCol(col, cells);
}

bool EditableDataContainer::insertRows(int row, std::vector<Cells> const& newRows) {
    if (!insertEmptyRows(row, static_cast<int>(newRows.size())))
        return false;
    for (auto const& cells : newRows)
        setRow(row++, cells);
    return true;
}

bool EditableDataContainer::insertCols(int col, std::vector<Cells> const& cols) {
    if (!insertEmptyCols(col, static_cast<int>(cols.size())))
        return false;
    std::vector<Cells const*> columns(cols.size());
    std::transform(cols.begin(), cols.end(), columns.begin(), [](Cells const& cells) { return &cells; });
    return storeCols(col, columns);
}

// A row is taken up once for all its new cells. Rows that the columns do not reach become empty there.
bool EditableDataContainer::storeCols(int firstCol, std::span<Cells const* const> cols) {
    if (firstCol < 0)
        return false;
    for (auto const* cells : cols)
        for (auto filled = std::min<int>(std::ssize(*cells), numRowsStored); filled > storedRows(); --filled)
            if (!(*cells)[filled - 1].empty())
                growStoredRows(filled);
    for (int row = 0; row < storedRows(); ++row) {
        auto col = firstCol;
        for (auto const* cells : cols)
            storeCell(row, col++, row < std::ssize(*cells) ? view((*cells)[row]) : std::string_view());
    }
    return true;
}

bool EditableDataContainer::copyRowContentsToAnotherRow(int from, int to) {
    if (from < 0 || to < 0)
        return false;
    growStoredRows(to + 1);
    if (from < storedRows())
        rows.copyRow(from, to);
    else
        rows.setRow(to, {});
    return true;
}

bool EditableDataContainer::copyColContentsToAnotherCol(int from, int to) {
    if (from < 0 || to < 0)
        return false;
    numColsStored = std::max(numColsStored, to + 1);
    for (int row = 0; row < storedRows(); ++row)
        storeCell(row, to, rows.cell(row, from));
    return true;
}
