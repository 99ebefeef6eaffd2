#pragma once

#include "core/RangeVector.h"

#include <QVariant>

class TableModel;

/// Moves contents between ranges and a table: writes what ranges hold into the cells, and reads cells into ranges. A
/// User range is worked on as a Model range and given back as a User range.
class RangeContents {
public:
    /// `useOldValues` writes the previous contents. `skipCell` is left alone; `emitChanges` signals each cell.
    struct Writing {
        bool useOldValues = false;
        Range skipCell{RangeType::None};
        bool emitChanges = false;
    };

    explicit RangeContents(TableModel& model) : model(model) {}

    /// Writes a range. A Cell, Row or Column beyond the grid makes it grow first. Cells that the range holds no
    /// element for get its scalar value, the new one in any case, and there exclusions do not count.
    void write(Range& range, Writing const& writing);
    void write(RangeVector& ranges, Writing const& writing);
    /// Writes the Cells of a list only, and lets nothing grow.
    void writeExisting(RangeVector const& ranges, bool useOldValues);
    /// Reads the whole texts of a range's cells into its new and its old contents.
    static void read(TableModel const& model, Range& range, bool fillValue, bool fillOld);

private:
    void writeCell(Range const& range, Writing const& writing);
    void writeLine(Range const& range, Writing const& writing);
    void writeTable(Range const& range, Writing const& writing);
    void growTo(RangeIndexType type, int row, int col);
    void put(RangeIndexType type, int row, int col, QVariant const& value, bool emitChanges);

    TableModel& model;
};
