#include "storage/BlockJump.h"
#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"

#include <algorithm>
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
    if (!growToHold(row, col, !text.isEmpty()))
        return false;
    auto const written = codec.encode(text);
    bool const changed = dataContainer->getValue(row, col) != written;
    dataContainer->setValue(row, col, written);
    return changed;
}

/// Whether a cell can be written: inside the table, or outside with content, for which the table grows.
bool TableData::growToHold(int row, int col, bool filled) {
    int& rows = along(Axis::Rows).count;
    int& cols = along(Axis::Columns).count;
    if (row < 0 || col < 0)
        return false;
    if (row < rows && col < cols)
        return true;
    if (!filled)
        return false;
    rows = std::max(rows, row + 1);
    cols = std::max(cols, col + 1);
    signalSize();
    return true;
}

bool TableData::setValueModel(int row, int col, QString const& text) {
    if (transposed)
        std::swap(row, col);
    return setValueRaw(getRawFromModelRow(row, true), getRawFromModelCol(col, true), text, true);
}

bool TableData::isCellPopulated(int modelRow, int modelCol) const {
    return !getValueModel(modelRow, modelCol).toString().isEmpty();
}

Range TableData::getNextBlockLocation(Range const& range, Direction direction) const {
    bool const model = range.indexType == RangeIndexType::Model;
    bool const vertical = direction == Direction::Up || direction == Direction::Down;
    int const step = direction == Direction::Up || direction == Direction::Left ? -1 : 1;
    int const rows = model ? numModelRows() : numRawRows();
    int const cols = model ? numModelCols() : numRawCols();

    Range target = range;
    int& moving = vertical ? target.row : target.col;
    auto const populated = [&](int index) {
        int const row = vertical ? index : range.row;
        int const col = vertical ? range.col : index;
        return model ? isCellPopulated(row, col) : !getValueRaw(row, col).toString().isEmpty();
    };
    moving = blockJump(moving, step, vertical ? rows : cols, populated);
    return target;
}

void TableData::setEncoding(EncodingType encoding, bool convertCells) {
    CellCodec const old = std::exchange(codec, CellCodec(encoding));
    this->encoding = encoding;
    if (convertCells) {
        for (int row = 0; row < along(Axis::Rows).count; ++row)
            convertRow(row, old, codec);
    }
    dataContainer->setEncoding(encoding);
}

void TableData::convertRow(int row, CellCodec const& from, CellCodec const& to) {
    Cells cells;
    dataContainer->getRow(cells, row, false, GetRowColMaskType::NoMask, {});
    for (auto& cell : cells) {
        if (!cell.empty())
            cell = to.encode(from.decode({cell.data(), cell.size()}));
    }
    // A row that is not stored stays so.
    if (!cells.empty())
        dataContainer->setRow(row, cells);
}
