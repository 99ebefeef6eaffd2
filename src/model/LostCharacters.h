#pragma once

#include "core/CellRegion.h"
#include "storage/TableData.h"

#include <utility>

/// The cells to which the last edit has given texts with characters that the table's encoding lacks, so that the user
/// sees where they are. They are forgotten when lines come, go, move or are concealed.
class LostCharacters {
public:
    explicit LostCharacters(TableData const& tableData) : data(tableData) {}

    /// The cells are Raw.
    void set(CellRegion cells) {
        raw = std::move(cells);
        revisions = presentRevisions();
    }
    bool isEmpty() const { return raw.isEmpty(); }
    /// Whether a Model cell is one of them.
    bool covers(int row, int col) const {
        return !raw.isEmpty() && revisions == presentRevisions() &&
               raw.contains(data.getRawFromModelRow(row), data.getRawFromModelCol(col));
    }

private:
    std::pair<quint64, quint64> presentRevisions() const {
        return {data.linesRevision(Axis::Rows), data.linesRevision(Axis::Columns)};
    }

    TableData const& data;
    CellRegion raw;
    std::pair<quint64, quint64> revisions;
};
