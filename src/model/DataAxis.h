#pragma once

#include "storage/TableData.h"

/// The row side or the column side of a table's storage, so that what holds for both is written once. "Line" stands
/// for a row or a column. Copied freely; refers to the data.
class DataAxis {
public:
    using Indexes = TableData::Indexes;

    DataAxis(TableData& data, Axis axis) : data(&data), rows(axis == Axis::Rows) {}

    int rawCount() const { return rows ? data->numRawRows() : data->numRawCols(); }
    int modelCount() const { return rows ? data->numModelRows() : data->numModelCols(); }
    int concealedCount() const { return rows ? data->numConcealedRows() : data->numConcealedCols(); }
    /// Sorted raw indexes.
    Indexes const& concealed() const { return rows ? data->getConcealedRowsRaw() : data->getConcealedColsRaw(); }

    int rawFromModel(int line) const { return rows ? data->getRawFromModelRow(line) : data->getRawFromModelCol(line); }

    bool insertRaw(int line, int count) {
        return rows ? data->insertRowsRaw(line, count) : data->insertColsRaw(line, count);
    }
    bool removeModel(int line, int count) {
        return rows ? data->removeRowsModel(line, count) : data->removeColsModel(line, count);
    }
    /// Moves a model line by `offset`.
    bool moveRelative(int line, int offset) {
        return rows ? data->moveRowRelative(line, offset) : data->moveColRelative(line, offset);
    }
    Indexes emptyLines(int start, RangeIndexType type, GetRowColMaskType maskType, Indexes const& mask) const {
        return rows ? data->getEmptyRows(start, type, maskType, mask) : data->getEmptyCols(start, type, maskType, mask);
    }

private:
    TableData* data;
    bool rows;
};
