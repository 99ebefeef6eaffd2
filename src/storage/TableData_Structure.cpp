#include "core/IndexUtilities.h"
#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"
#include "storage/TakenLines.h"

#include <algorithm>
#include <cstdlib>

namespace {

using Container = AbstractDataContainer;

/// The calls of a container along one axis.
struct AxisCalls {
    bool (Container::*resize)(int);
    bool (Container::*get)(Container::Cells&, int, bool, GetRowColMaskType, Container::Mask const&) const;
    bool (Container::*set)(int, Container::Cells const&);
    bool (Container::*insertOne)(int, Container::Cells const&);
    bool (Container::*insertFilled)(int, std::vector<Container::Cells> const&);
    bool (Container::*insertEmpty)(int, int);
    bool (Container::*remove)(int, int);
    bool (Container::*copyContents)(int, int);
    std::vector<int> (Container::*empty)(int, GetRowColMaskType, Container::Mask const&) const;
    int (Container::*emptyAtEnd)() const;
};

AxisCalls const& callsAlong(Axis axis) {
    static constexpr AxisCalls rows = {&Container::resizeRows, &Container::getRow,
                                       &Container::setRow,     &Container::insertRow,
                                       &Container::insertRows, &Container::insertEmptyRows,
                                       &Container::removeRows, &Container::copyRowContentsToAnotherRow,
                                       &Container::emptyRows,  &Container::numEmptyRowsAtEnd};
    static constexpr AxisCalls columns = {&Container::resizeCols, &Container::getCol,
                                          &Container::setCol,     &Container::insertCol,
                                          &Container::insertCols, &Container::insertEmptyCols,
                                          &Container::removeCols, &Container::copyColContentsToAnotherCol,
                                          &Container::emptyCols,  &Container::numEmptyColsAtEnd};
    return axis == Axis::Rows ? rows : columns;
}

Axis across(Axis axis) {
    return axis == Axis::Rows ? Axis::Columns : Axis::Rows;
}

} // namespace

// Whatever changes the lines along an axis says here how their sizes follow.

template <typename Follow>
void TableData::noteLines(Axis axis, Follow follow) {
    for (LineSizeStore& sizes : along(axis).sizes)
        follow(sizes);
    along(axis).revision = ++lastRevision;
}

void TableData::noteOrder(Axis axis, Indexes const& order, int first) {
    noteLines(axis, [&](LineSizeStore& sizes) { sizes.reorder(order, first); });
}

void TableData::noteMapping(Axis axis) {
    noteLines(axis, [](LineSizeStore const&) {});
}

void TableData::resetSizes() {
    for (Axis const axis : {Axis::Rows, Axis::Columns})
        noteLines(axis, [](LineSizeStore& sizes) { sizes.clear(); });
}

LineSizeStore& TableData::lineSizes(Axis shown) {
    return along(storedAxis(shown, false)).sizes[static_cast<std::size_t>(shown)];
}

LineSizeStore const& TableData::lineSizes(Axis shown) const {
    return along(storedAxis(shown, false)).sizes[static_cast<std::size_t>(shown)];
}

// Insertion.

bool TableData::makeRoom(Axis axis, int at, int count) {
    AxisState& state = along(axis);
    state.concealed.shiftForInsertion(at, count);
    noteLines(axis, [=](LineSizeStore& sizes) { sizes.insert(at, count); });
    return count >= 1 && at >= 0 && at <= countOf(axis);
}

bool TableData::insertEmpty(Axis axis, int at, int count) {
    if (refusesChanges())
        return false;
    if (!makeRoom(axis, at, count))
        return true;
    bool const inserted = (*dataContainer.*callsAlong(axis).insertEmpty)(at, count);
    signalSize();
    return inserted;
}

bool TableData::insertFilled(Axis axis, int at, std::vector<Cells> const& filled) {
    if (refusesChanges())
        return false;
    int const count = static_cast<int>(filled.size());
    if (!makeRoom(axis, at, count))
        return true;
    return (*dataContainer.*callsAlong(axis).insertFilled)(at, filled);
}

// Removal.

bool TableData::removeRaw(Axis axis, int at, int count) {
    AxisState& state = along(axis);
    count = std::min(count, countOf(axis) - at);
    if (count < 1 || at < 0 || refusesChanges())
        return false;
    bool const removed = (*dataContainer.*callsAlong(axis).remove)(at, count);
    state.concealed.shiftForRemoval(at, count);
    noteLines(axis, [=](LineSizeStore& sizes) { sizes.remove(at, count); });
    return removed;
}

bool TableData::removeModel(Axis axis, int model, int count) {
    AxisState& state = along(axis);
    Indexes raws;
    for (int index = std::max(model, 0); index < model + count; ++index) {
        int const raw = state.concealed.toRaw(index);
        if (raw >= countOf(axis))
            break;
        raws.push_back(raw);
    }
    if (raws.empty() || refusesChanges())
        return false;

    // From the last run to the first, so that the indexes of the runs before stay right.
    auto const runs = Utilities::getBlockPairs(raws);
    for (auto run = runs.rbegin(); run != runs.rend(); ++run)
        (*dataContainer.*callsAlong(axis).remove)(run->first, run->second - run->first + 1);
    state.concealed.shiftForRemoval(raws);
    noteLines(axis, [&](LineSizeStore& sizes) { sizes.remove(raws); });
    signalSize();
    return true;
}

// Many lines at once.

void TableData::take(TakenLines& lines) {
    if (!editableContainer || refusesChanges() || lines.count() == 0)
        return;
    Axis const axis = storedAxis(lines.axis, false);
    if (axis == Axis::Rows)
        editableContainer->takeRows(lines.rows, lines.blocks);
    else
        editableContainer->takeCols(lines.cols, lines.blocks);
    lines.concealed = along(axis).concealed.removeBlocks(lines.blocks);
    auto taken = lines.sizes.begin();
    noteLines(axis, [&](LineSizeStore& sizes) { *taken++ = sizes.take(lines.blocks); });
    signalSize();
}

void TableData::putBack(TakenLines& lines) {
    if (!editableContainer || refusesChanges() || lines.count() == 0)
        return;
    Axis const axis = storedAxis(lines.axis, false);
    if (axis == Axis::Rows)
        editableContainer->putBackRows(lines.rows, lines.blocks);
    else
        editableContainer->putBackCols(lines.cols, lines.blocks);
    along(axis).concealed.insertBlocks(lines.blocks, lines.concealed);
    auto taken = lines.sizes.cbegin();
    noteLines(axis, [&](LineSizeStore& sizes) { sizes.putBack(lines.blocks, *taken++); });
    signalSize();
}

// Contents of whole lines.

bool TableData::grow(Axis axis, int count) {
    return count > countOf(axis) && (*dataContainer.*callsAlong(axis).resize)(count);
}

void TableData::growTo(Axis axis, int count) {
    if (grow(axis, count))
        signalSize();
}

bool TableData::duplicate(Axis axis, int model, int offset) {
    if (refusesChanges())
        return false;
    ConcealedList const& concealed = along(axis).concealed;
    int const from = concealed.toRaw(model);
    int const to = std::max(concealed.toRaw(model + offset), concealed.toRaw(0));
    growTo(axis, std::max(from, to) + 1);
    return (*dataContainer.*callsAlong(axis).copyContents)(from, to);
}

bool TableData::move(Axis axis, int model, int offset) {
    ConcealedList const& concealed = along(axis).concealed;
    int const from = concealed.toRaw(model);
    int const to = concealed.toRaw(model + offset);
    if (from < 0 || to < 0 || refusesChanges())
        return false;
    growTo(axis, to + 1);

    Cells cells;
    AxisCalls const& calls = callsAlong(axis);
    (*dataContainer.*calls.get)(cells, from, false, GetRowColMaskType::NoMask, {});
    if (std::abs(to - from) > std::abs(offset))
        return moveAroundConcealed(axis, model, offset, cells);
    bool const inserted = (*dataContainer.*calls.insertOne)(offset > 0 ? to + 1 : to, cells);
    bool const removed = (*dataContainer.*calls.remove)(offset < 0 ? from + 1 : from, 1);
    noteLines(axis, [=](LineSizeStore& sizes) { sizes.move(from, to); });
    return inserted && removed;
}

bool TableData::moveAroundConcealed(Axis axis, int model, int offset, Cells const& cells) {
    ConcealedList const& concealed = along(axis).concealed;
    AxisCalls const& calls = callsAlong(axis);
    int const step = offset < 0 ? -1 : 1;
    int hole = concealed.toRaw(model);
    Indexes places{hole};
    for (int index = model; index != model + offset; index += step) {
        int const neighbour = concealed.toRaw(index + step);
        (*dataContainer.*calls.copyContents)(neighbour, hole);
        hole = neighbour;
        places.push_back(hole);
    }
    noteLines(axis, [&](LineSizeStore& sizes) { sizes.moveOver(places); });
    return (*dataContainer.*calls.set)(hole, cells);
}

bool TableData::readCells(Axis axis, Cells& out, int at, bool ignoreMaps, GetRowColMaskType maskType,
                          Indexes const& mask) const {
    bool const concealed = maskType == GetRowColMaskType::Concealed;
    return (*dataContainer.*callsAlong(axis).get)(out, at, ignoreMaps,
                                                  concealed ? GetRowColMaskType::Exclude : maskType,
                                                  concealed ? along(across(axis)).concealed.indexes() : mask);
}

void TableData::joinCells(Axis axis, std::string& out, int at, GetRowColMaskType maskType, Indexes const& mask) const {
    Cells cells;
    readCells(axis, cells, at, false, maskType, mask);
    out.clear();
    for (auto const& cell : cells)
        out.append(cell.data(), cell.size());
}

TableData::Indexes TableData::empty(Axis axis, int start, RangeIndexType indexType, GetRowColMaskType maskType,
                                    Indexes const& mask) const {
    bool const concealed = maskType == GetRowColMaskType::Concealed;
    Indexes found =
        (*dataContainer.*callsAlong(axis).empty)(start, concealed ? GetRowColMaskType::Exclude : maskType,
                                                 concealed ? along(across(axis)).concealed.indexes() : mask);
    if (indexType != RangeIndexType::Model)
        return found;
    ConcealedList const& list = along(axis).concealed;
    std::transform(found.begin(), found.end(), found.begin(), [&](int raw) { return list.toModel(raw); });
    std::erase(found, -1);
    return found;
}

// The faces.

bool TableData::insertRowsRaw(int row, int count, bool ignoreTranspose) {
    return insertEmpty(storedAxis(Axis::Rows, ignoreTranspose), row, count);
}

bool TableData::insertColsRaw(int col, int count, bool ignoreTranspose) {
    return insertEmpty(storedAxis(Axis::Columns, ignoreTranspose), col, count);
}

bool TableData::insertRowsRaw(int row, std::vector<Cells> const& rows, bool ignoreTranspose) {
    return insertFilled(storedAxis(Axis::Rows, ignoreTranspose), row, rows);
}

bool TableData::insertColsRaw(int col, std::vector<Cells> const& cols, bool ignoreTranspose) {
    return insertFilled(storedAxis(Axis::Columns, ignoreTranspose), col, cols);
}

bool TableData::insertRowsModel(int row, int count, bool ignoreTranspose) {
    return insertRowsRaw(getRawFromModelRow(row, ignoreTranspose), count, ignoreTranspose);
}

bool TableData::insertColsModel(int col, int count, bool ignoreTranspose) {
    return insertColsRaw(getRawFromModelCol(col, ignoreTranspose), count, ignoreTranspose);
}

bool TableData::removeRowsRaw(int row, int count, bool ignoreTranspose) {
    return removeRaw(storedAxis(Axis::Rows, ignoreTranspose), row, count);
}

bool TableData::removeColsRaw(int col, int count, bool ignoreTranspose) {
    return removeRaw(storedAxis(Axis::Columns, ignoreTranspose), col, count);
}

bool TableData::removeRowsModel(int row, int count, bool ignoreTranspose) {
    return removeModel(storedAxis(Axis::Rows, ignoreTranspose), row, count);
}

bool TableData::removeColsModel(int col, int count, bool ignoreTranspose) {
    return removeModel(storedAxis(Axis::Columns, ignoreTranspose), col, count);
}

bool TableData::duplicateRow(int row, int offset, bool ignoreTranspose) {
    return duplicate(storedAxis(Axis::Rows, ignoreTranspose), row, offset);
}

bool TableData::duplicateCol(int col, int offset, bool ignoreTranspose) {
    return duplicate(storedAxis(Axis::Columns, ignoreTranspose), col, offset);
}

bool TableData::moveRowRelative(int row, int offset, bool ignoreTranspose) {
    return move(storedAxis(Axis::Rows, ignoreTranspose), row, offset);
}

bool TableData::moveColRelative(int col, int offset, bool ignoreTranspose) {
    return move(storedAxis(Axis::Columns, ignoreTranspose), col, offset);
}

TableData::Indexes TableData::getEmptyRows(int startCol, RangeIndexType indexType, GetRowColMaskType maskType,
                                           Indexes const& mask, bool ignoreTranspose) const {
    return empty(storedAxis(Axis::Rows, ignoreTranspose), startCol, indexType, maskType, mask);
}

TableData::Indexes TableData::getEmptyCols(int startRow, RangeIndexType indexType, GetRowColMaskType maskType,
                                           Indexes const& mask, bool ignoreTranspose) const {
    return empty(storedAxis(Axis::Columns, ignoreTranspose), startRow, indexType, maskType, mask);
}

int TableData::numEmptyRowsRawAtEnd(bool ignoreTranspose) const {
    return (*dataContainer.*callsAlong(storedAxis(Axis::Rows, ignoreTranspose)).emptyAtEnd)();
}

int TableData::numEmptyColsRawAtEnd(bool ignoreTranspose) const {
    return (*dataContainer.*callsAlong(storedAxis(Axis::Columns, ignoreTranspose)).emptyAtEnd)();
}

void TableData::getRowString(std::string& out, int row, GetRowColMaskType maskType, Indexes const& mask,
                             bool ignoreTranspose) const {
    joinCells(storedAxis(Axis::Rows, ignoreTranspose), out, row, maskType, mask);
}

void TableData::getColString(std::string& out, int col, GetRowColMaskType maskType, Indexes const& mask,
                             bool ignoreTranspose) const {
    joinCells(storedAxis(Axis::Columns, ignoreTranspose), out, col, maskType, mask);
}

bool TableData::getRow(Cells& out, int row, bool ignoreMaps, GetRowColMaskType maskType, Indexes const& mask) const {
    return readCells(Axis::Rows, out, row, ignoreMaps, maskType, mask);
}

bool TableData::getCol(Cells& out, int col, bool ignoreMaps, GetRowColMaskType maskType, Indexes const& mask) const {
    return readCells(Axis::Columns, out, col, ignoreMaps, maskType, mask);
}
