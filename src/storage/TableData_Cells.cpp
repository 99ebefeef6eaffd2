#include "core/CellRegion.h"
#include "storage/BlockJump.h"
#include "storage/CellConversion.h"
#include "storage/CellPatch.h"
#include "storage/EditableDataContainer.h"
#include "storage/ReplacedCells.h"
#include "storage/TableData.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

QString TableData::textAt(int row, int col) const {
    if (editableContainer)
        return codec.decode(editableContainer->cellView(row, col));
    auto const bytes = dataContainer->getValue(row, col);
    return codec.decode({bytes.data(), bytes.size()});
}

QVariant TableData::getValueRaw(int row, int col) const {
    if (!dataContainer)
        return {};
    return transposed ? textAt(col, row) : textAt(row, col);
}

QVariant TableData::getValueModel(int row, int col) const {
    return getValueRaw(getRawFromModelRow(row), getRawFromModelCol(col));
}

AbstractDataContainer::Bytes TableData::getValueRawCharVec(int row, int col, bool ignoreMaps) const {
    if (transposed)
        std::swap(row, col);
    return dataContainer->getValue(row, col, ignoreMaps);
}

bool TableData::setValueRaw(int row, int col, QString const& text, bool ignoreTranspose) {
    if (transposed && !ignoreTranspose)
        std::swap(row, col);
    if (refusesChanges() || !growToHold(row, col, !text.isEmpty()))
        return false;
    auto const written = codec.encode(text);
    bool const changed = dataContainer->getValue(row, col) != written;
    dataContainer->setValue(row, col, written);
    return changed;
}

/// Whether a cell can be written: inside the table, or outside with content, for which the table grows.
bool TableData::growToHold(int row, int col, bool filled) {
    if (row < 0 || col < 0)
        return false;
    if (row < countOf(Axis::Rows) && col < countOf(Axis::Columns))
        return true;
    if (!filled)
        return false;
    grow(Axis::Rows, row + 1);
    grow(Axis::Columns, col + 1);
    signalSize();
    return true;
}

bool TableData::setValueModel(int row, int col, QString const& text) {
    if (transposed)
        std::swap(row, col);
    return setValueRaw(getRawFromModelRow(row, true), getRawFromModelCol(col, true), text, true);
}

std::string_view TableData::cellBytesRaw(int row, int col) const {
    if (!editableContainer)
        return {};
    return transposed ? editableContainer->cellView(col, row) : editableContainer->cellView(row, col);
}

void TableData::exchange(CellPatch& patch) {
    if (!editableContainer || refusesChanges())
        return;
    growToHold(patch);
    editableContainer->exchange(patch, transposed);
}

namespace {

/// The raw lines that run from one shown line to another, without those that are concealed between them.
std::vector<std::pair<int, int>> shownRuns(ConcealedList const& concealed, int first, int last) {
    std::vector<std::pair<int, int>> runs;
    int next = concealed.toRaw(first);
    int const end = concealed.toRaw(last);
    auto const& hidden = concealed.indexes();
    for (auto at = std::lower_bound(hidden.begin(), hidden.end(), next); at != hidden.end() && *at < end; ++at) {
        if (next < *at)
            runs.emplace_back(next, *at - 1);
        next = *at + 1;
    }
    runs.emplace_back(next, end);
    return runs;
}

} // namespace

CellRegion TableData::rawCells(CellRegion const& model) const {
    ConcealedList const& rows = along(storedAxis(Axis::Rows, false)).concealed;
    ConcealedList const& cols = along(storedAxis(Axis::Columns, false)).concealed;
    if (rows.size() == 0 && cols.size() == 0)
        return model;
    std::vector<CellRect> raw;
    for (CellRect const& rect : model.rects()) {
        auto const colRuns = shownRuns(cols, rect.left, rect.right);
        for (auto const& [top, bottom] : shownRuns(rows, rect.top, rect.bottom)) {
            for (auto const& [left, right] : colRuns)
                raw.push_back({top, left, bottom, right});
        }
    }
    return CellRegion::ofRects(raw);
}

/// The cells of a Model region as the container counts them.
CellRegion TableData::storedCells(CellRegion const& model) const {
    CellRegion const raw = rawCells(model);
    if (!transposed)
        return raw;
    std::vector<CellRect> stored;
    for (CellRect const& rect : raw.rects())
        stored.push_back({rect.left, rect.top, rect.right, rect.bottom});
    return CellRegion::ofRects(stored);
}

void TableData::fill(CellRegion const& cells, QString const& text, ReplacedCells& old) {
    if (!editableContainer || refusesChanges())
        return;
    CellRegion const stored = storedCells(cells);
    auto const bytes = codec.encode(text);
    CellRect const bounds = stored.bounds();
    growToHold(bounds.bottom, bounds.right, !bytes.empty());
    editableContainer->fill(stored, {bytes.data(), bytes.size()}, old);
}

bool TableData::wouldFillChange(CellRegion const& cells, QString const& text) const {
    if (!editableContainer)
        return false;
    bool loses = false;
    auto const bytes = codec.encode(text, &loses);
    if (loses)
        return true;
    std::string_view const wanted(bytes.data(), bytes.size());
    for (CellRect const& rect : storedCells(cells).rects()) {
        // Cells outside of the data are empty.
        bool const outside = rect.bottom >= countOf(Axis::Rows) || rect.right >= countOf(Axis::Columns);
        if (outside && !wanted.empty())
            return true;
        for (int row = rect.top; row <= std::min(rect.bottom, countOf(Axis::Rows) - 1); ++row) {
            for (int col = rect.left; col <= std::min(rect.right, countOf(Axis::Columns) - 1); ++col) {
                // Bytes that mean nothing are the same text as those of the replacement character.
                std::string_view const present = editableContainer->cellView(row, col);
                if (present != wanted && codec.decode(present) != text)
                    return true;
            }
        }
    }
    return false;
}

void TableData::putBack(ReplacedCells& old) {
    if (editableContainer && !refusesChanges())
        editableContainer->putBack(old);
}

/// At once, for each growth is signalled.
void TableData::growToHold(CellPatch const& patch) {
    int lastRow = -1;
    int lastCol = -1;
    for (std::size_t i = 0; i < patch.size(); ++i) {
        if (!patch.newBytes(i).empty()) {
            lastRow = std::max(lastRow, patch.row(i));
            lastCol = std::max(lastCol, patch.col(i));
        }
    }
    if (transposed)
        std::swap(lastRow, lastCol);
    growToHold(lastRow, lastCol, true);
}

bool TableData::hasTextRaw(int row, int col) const {
    if (editableContainer)
        return codec.hasText(cellBytesRaw(row, col));
    return !getValueRaw(row, col).toString().isEmpty();
}

bool TableData::isCellPopulated(int modelRow, int modelCol) const {
    return hasTextRaw(getRawFromModelRow(modelRow), getRawFromModelCol(modelCol));
}

int TableData::nextBlockLine(int modelRow, int modelCol, Direction direction) const {
    int const step = direction == Direction::Up || direction == Direction::Left ? -1 : 1;
    if (direction == Direction::Up || direction == Direction::Down) {
        int const rawCol = getRawFromModelCol(modelCol);
        return blockJump(modelRow, step, numModelRows(),
                         [&](LineWalk const& walk, bool filled) { return skipShownRows(walk, rawCol, filled); });
    }
    int const rawRow = getRawFromModelRow(modelRow);
    return blockJump(modelCol, step, numModelCols(),
                     skipByCell([&](int col) { return hasTextRaw(rawRow, getRawFromModelCol(col)); }));
}

/// As the skip of blockJump, for Model rows of a raw column.
int TableData::skipShownRows(LineWalk walk, int rawCol, bool filled) const {
    ConcealedList const& concealed = along(Axis::Rows).concealed;
    if (transposed || !editableContainer)
        return skipByCell([&](int row) { return hasTextRaw(getRawFromModelRow(row), rawCol); })(walk, filled);
    while (walk.at != walk.end) {
        // Rows that follow one another here as they are stored.
        int const raw = concealed.toRaw(walk.at);
        int const count = std::min(concealed.shownRun(raw, walk.step), std::abs(walk.end - walk.at));
        LineWalk const stored{raw, walk.step, raw + count * walk.step};
        int const reached = skipRawRows(stored, rawCol, filled);
        walk.at += reached - raw;
        if (reached != stored.end)
            break;
    }
    return walk.at;
}

/// Where each byte is a text nothing but bytes is counted.
int TableData::skipRawRows(LineWalk const& walk, int col, bool filled) const {
    if (!transposed && editableContainer && codec.anyByteIsText())
        return editableContainer->skipInCol(walk, col, filled);
    return skipByCell([&](int row) { return hasTextRaw(row, col); })(walk, filled);
}

Range TableData::getNextBlockLocation(Range const& range, Direction direction) const {
    bool const vertical = direction == Direction::Up || direction == Direction::Down;
    int const step = direction == Direction::Up || direction == Direction::Left ? -1 : 1;
    Range target = range;
    int& moving = vertical ? target.row : target.col;
    if (range.indexType == RangeIndexType::Model)
        moving = nextBlockLine(range.row, range.col, direction);
    else if (vertical)
        moving = blockJump(moving, step, numRawRows(),
                           [&](LineWalk const& walk, bool filled) { return skipRawRows(walk, range.col, filled); });
    else
        moving = blockJump(moving, step, numRawCols(), skipByCell([&](int col) { return hasTextRaw(range.row, col); }));
    return target;
}

void TableData::setEncoding(EncodingType encoding, bool convertCells) {
    if (convertCells && encoding != this->encoding)
        convertTable(CellConversion(this->encoding, encoding));
    codec = CellCodec(encoding);
    this->encoding = encoding;
    dataContainer->setEncoding(encoding);
}

// Cells that stay as they are stay in the compact form in which a load stores them.
void TableData::convertTable(CellConversion const& conversion) {
    Cells cells;
    for (int row = 0; row < countOf(Axis::Rows); ++row) {
        cells.clear();
        dataContainer->getRow(cells, row, false, GetRowColMaskType::NoMask, {});
        bool changed = false;
        for (auto& cell : cells) {
            if (conversion.keeps({cell.data(), cell.size()}))
                continue;
            cell = conversion.convert({cell.data(), cell.size()});
            changed = true;
        }
        if (changed)
            dataContainer->setRow(row, cells);
    }
}
