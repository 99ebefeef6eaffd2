#include "model/RangeContents.h"

#include "model/TableModel.h"

#include <algorithm>
#include <utility>

namespace {

bool isCell(Range const& cell, int row, int col) {
    return cell.type == RangeType::Cell && cell.row == row && cell.col == col;
}

/// Lets a User range be worked on as a Model range for as long as this lives.
class AsStored {
public:
    AsStored(TableModel const& model, Range& range)
        : model(model), range(range), isUser(range.indexType == RangeIndexType::User) {
        if (isUser)
            range = model.getModelFromUserRange(range);
    }
    ~AsStored() {
        if (isUser)
            range = model.getUserFromModelRange(range);
    }
    AsStored(AsStored const&) = delete;
    AsStored& operator=(AsStored const&) = delete;

private:
    TableModel const& model;
    Range& range;
    bool isUser;
};

} // namespace

void RangeContents::write(Range& range, Writing const& writing) {
    AsStored const asStored(model, range);
    switch (range.type) {
    case RangeType::Cell: writeCell(range, writing); break;
    case RangeType::Row:
    case RangeType::Column: writeLine(range, writing); break;
    case RangeType::Table: writeTable(range, writing); break;
    case RangeType::None: break;
    }
}

void RangeContents::write(RangeVector& ranges, Writing const& writing) {
    bool const skips = writing.skipCell.row != -1 && writing.skipCell.col != -1;
    for (Range& range : ranges) {
        if (!skips || range != writing.skipCell)
            write(range, writing);
    }
}

void RangeContents::writeCell(Range const& range, Writing const& writing) {
    if (range == writing.skipCell)
        return;
    growTo(range.indexType, range.row, range.col);
    put(range.indexType, range.row, range.col, writing.useOldValues ? range.oldValue() : range.value(),
        writing.emitChanges);
}

void RangeContents::writeLine(Range const& range, Writing const& writing) {
    bool const isRow = range.type == RangeType::Row;
    growTo(range.indexType, isRow ? range.row : -1, isRow ? -1 : range.col);
    auto const& values = writing.useOldValues ? range.lineOldValues() : range.lineValues();
    std::vector<int> excluded = isRow ? range.excludedCols() : range.excludedRows();
    std::sort(excluded.begin(), excluded.end());

    int const start = isRow ? range.col : range.row;
    auto const putAt = [&](int position, QVariant const& value) {
        int const row = isRow ? range.row : position;
        int const col = isRow ? position : range.col;
        if (!isCell(writing.skipCell, row, col))
            put(range.indexType, row, col, value, writing.emitChanges);
    };
    int position = start;
    for (QVariant const& value : values) {
        if (!std::binary_search(excluded.begin(), excluded.end(), position))
            putAt(position, value);
        ++position;
    }
    int const end = isRow ? model.columnCount() : model.rowCount();
    for (; position < end; ++position)
        putAt(position, range.value());
}

void RangeContents::writeTable(Range const& range, Writing const& writing) {
    auto const& values = writing.useOldValues ? range.tableOldValues() : range.tableValues();
    auto const putAt = [&](int row, int col, QVariant const& value) {
        if (!isCell(writing.skipCell, row, col))
            put(range.indexType, row, col, value, writing.emitChanges);
    };
    int const endRow = std::max(model.rowCount(), range.row + int(values.size()));
    int const endCol = model.columnCount();
    for (int row = range.row; row < endRow; ++row) {
        int col = range.col;
        if (auto const offset = std::size_t(row - range.row); offset < values.size()) {
            for (QVariant const& value : values[offset])
                putAt(row, col++, value);
        }
        for (; col < endCol && row < model.rowCount(); ++col)
            putAt(row, col, range.value());
    }
}

void RangeContents::writeExisting(RangeVector const& ranges, bool useOldValues) {
    for (Range const& range : ranges) {
        if (range.type == RangeType::Cell) {
            put(range.indexType, range.row, range.col, useOldValues ? range.oldValue() : range.value(), false);
            model.emitCellChanged(range);
        }
    }
}

void RangeContents::read(TableModel const& model, Range& range, bool fillValue, bool fillOld) {
    if ((!fillValue && !fillOld) || range.type == RangeType::None)
        return;
    AsStored const asStored(model, range);
    bool const isRaw = range.indexType == RangeIndexType::Raw;
    int const endRow = isRaw ? model.rowCountRaw() : model.rowCount();
    int const endCol = isRaw ? model.columnCountRaw() : model.columnCount();
    auto const fill = [&](auto setValue, auto setOldValue, auto content) {
        if (fillOld)
            (range.*setOldValue)(content);
        if (fillValue)
            (range.*setValue)(std::move(content));
    };
    auto const get = [&, isRaw](int row, int col) {
        TableData const& data = model.getTableData();
        return isRaw ? data.getValueRaw(row, col) : data.getValueModel(row, col);
    };
    auto const rowFrom = [&](int row) {
        std::vector<QVariant> values;
        for (int col = range.col; col < endCol; ++col)
            values.push_back(get(row, col));
        return values;
    };

    if (range.type == RangeType::Cell) {
        fill(&Range::setValue, &Range::setOldValue, get(range.row, range.col));
    } else if (range.type == RangeType::Row) {
        fill(&Range::setLineValues, &Range::setLineOldValues, rowFrom(range.row));
    } else if (range.type == RangeType::Column) {
        std::vector<QVariant> values;
        for (int row = range.row; row < endRow; ++row)
            values.push_back(get(row, range.col));
        fill(&Range::setLineValues, &Range::setLineOldValues, std::move(values));
    } else {
        std::vector<std::vector<QVariant>> rows;
        for (int row = range.row; row < endRow; ++row)
            rows.push_back(rowFrom(row));
        fill(&Range::setTableValues, &Range::setTableOldValues, std::move(rows));
    }
}

void RangeContents::growTo(RangeIndexType type, int row, int col) {
    // The grid holds the concealed lines too for one who counts stored lines.
    bool const isRaw = type == RangeIndexType::Raw;
    TableData const& data = model.getTableData();
    int const missingRows = row + 1 - model.rowCount() - (isRaw ? data.numConcealedRows() : 0);
    int const missingCols = col + 1 - model.columnCount() - (isRaw ? data.numConcealedCols() : 0);
    if (missingRows > 0)
        model.insertRows(model.rowCount(), missingRows);
    if (missingCols > 0)
        model.insertColumns(model.columnCount(), missingCols);
}

void RangeContents::put(RangeIndexType type, int row, int col, QVariant const& value, bool emitChanges) {
    QModelIndex const index = model.index(row, col);
    if (type == RangeIndexType::Raw) {
        if (emitChanges)
            model.setDataRaw(index, value);
        else
            model.getTableData().setValueRaw(row, col, value.toString());
    } else if (emitChanges) {
        model.setData(index, value, Qt::EditRole);
    } else {
        model.setDataDirectly(index, value);
    }
}
