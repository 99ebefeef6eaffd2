#pragma once

#include "model/RangeAxis.h"
#include "model/TableModel.h"

#include <algorithm>
#include <numeric>

/// The row side or the column side of a table model, so that commands on rows and on columns are written once. "Line"
/// stands for a row or a column; lines are Model.
class ModelAxis {
public:
    using Indexes = TableModel::Indexes;

    ModelAxis(TableModel& model, Axis axis) : model(model), axis(axis), rows(axis == Axis::Rows) {}

    /// The members of a Range along this axis.
    RangeAxis const& names() const { return rangeAxis(axis); }
    /// Whether moving or inserting lines moves a range: it is a Cell or a whole line.
    bool isLineOrCell(Range const& range) const {
        return range.type == RangeType::Cell || range.type == names().lineType;
    }

    int rawCount() const { return rows ? model.rowCountRaw() : model.columnCountRaw(); }
    int gridCount() const { return rows ? model.rowCount() : model.columnCount(); }
    int modelCount() const { return rows ? model.rowCountModel() : model.columnCountModel(); }

    /// The lines that ranges touch, ascending.
    Indexes touchedLines(RangeSet const& ranges) const { return ranges.touchedLines(axis, modelCount()); }
    /// The start lines of ranges, ascending. Ranges that cross all lines have none.
    Indexes startLines(RangeSet const& ranges) const {
        Indexes lines;
        for (auto const& [first, last] : ranges.startLines(axis)) {
            for (int line = std::max(first, 0); line <= last; ++line)
                lines.push_back(line);
        }
        return lines;
    }
    Indexes rawFromModel(Indexes const& lines) const {
        return rows ? model.getRawFromModelRows(lines) : model.getRawFromModelCols(lines);
    }
    int numEmptyRawAtEnd() const { return rows ? model.numEmptyRowsRawAtEnd() : model.numEmptyColumnsRawAtEnd(); }

    // Changes of the data and the grid.

    void insert(int line, int count) { rows ? model.insertRows(line, count) : model.insertColumns(line, count); }
    void remove(int line, int count) { rows ? model.removeRows(line, count) : model.removeColumns(line, count); }
    /// Makes the grid that long at its end and leaves the data alone.
    void setGridCount(int count) {
        int const present = gridCount();
        model.setDataAlreadyChanged(true);
        if (count > present)
            insert(present, count - present);
        else
            remove(count, present - count);
        model.setDataAlreadyChanged(false);
    }
    // Changes of the data alone.
    void move(TableData::LineMoves const& moves) { model.getTableData().moveLines(axis, moves); }
    void duplicate(int line, int offset) {
        TableData& data = model.getTableData();
        rows ? data.duplicateRow(line, offset) : data.duplicateCol(line, offset);
    }

    // The selection and the view.

    void pullBackSelection() {
        bool mainCellChanged = false;
        rows ? model.removeExtraneousRows(mainCellChanged) : model.removeExtraneousCols(mainCellChanged);
    }
    void scrollTo(int line) { rows ? model.scrollToRow(line, true, true) : model.scrollToCol(line, true, true); }
    void fitAll() {
        Indexes lines(static_cast<std::size_t>(modelCount()));
        std::iota(lines.begin(), lines.end(), 0);
        rows ? model.enforceAutoFitRowHeights(lines) : model.enforceAutoFitColWidths(lines);
    }

private:
    TableModel& model;
    Axis axis;
    bool rows;
};
