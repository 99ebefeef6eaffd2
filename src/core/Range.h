#pragma once

#include "core/RangeDetails.h"

#include <QMetaType>
#include <QSharedDataPointer>
#include <QVariant>

#include <climits>
#include <utility>
#include <vector>

/// What a Range covers: one cell, a row from its column on, a column from its row on, or all cells at or right of and
/// below its start.
enum class RangeType { Cell = 0, Row = 1, Column = 2, Table = 3, None = 4 };

/// The index space that the rows and columns of a Range are counted in: Raw is the position in storage, Model the
/// position among what is not concealed, User the number that the header shows.
enum class RangeIndexType { Raw = 0, Model = 1, User = 2, None = 4 };

/// The cells that an operation concerns and, when a command needs them, their contents. A whole row, column or table
/// is one value. Where it lies is public: commands and the model fill and read it freely. Contents and exclusions, of
/// which most ranges have none, take memory only where there are any, and copies share them until they are written.
struct Range {
    /// A range of no type and no index space.
    Range() = default;
    /// A cell.
    Range(int row, int col, RangeIndexType indexType);
    /// A whole row or column; any other type starts at `index` on both axes.
    Range(int index, RangeType type, RangeIndexType indexType);
    /// Starts at row and column 0.
    Range(RangeType type, RangeIndexType indexType);
    /// Without an index space. Starts at 0, or at -1 for the type None.
    explicit Range(RangeType type);

    /// Whether the range stands in a table: false for None and for a negative row or column that its type needs.
    bool isValid() const;
    /// Adds to row and column. A Cell that would become negative turns into None with `invalidate` and stops at 0
    /// without; the other types always stop at 0.
    void moveRelative(int rows, int cols, bool invalidate);
    /// Whether `other` lies in this range. Exclusions do not matter. A Table holds only those rows and columns that
    /// start on its own first row or column.
    bool containsRange(Range const& other) const;

    /// Same type and start; neither index space nor contents are compared. None equals None.
    bool operator==(Range const& other) const;

    RangeType type = RangeType::None;
    RangeIndexType indexType = RangeIndexType::None;
    int row = 0;
    int col = 0;
    int rowEnd = INT_MAX;     ///< last row; INT_MAX means to the end of the table
    int colEnd = INT_MAX;     ///< last column; INT_MAX means to the end of the table
    bool hasMainCell = false; ///< the main cell of the selection lies in this range
    int mainIndex = -1;       ///< the main cell's offset along a Row or Column
    int mainRow = -1;         ///< the main cell's offset in a Table
    int mainCol = -1;

    // Contents. References are valid until the range is written to.

    /// The new content of a cell, or of all cells without an element below, and the previous one.
    QVariant const& value() const { return shown().value; }
    QVariant const& oldValue() const { return shown().oldValue; }
    void setValue(QVariant content) { set(&RangeDetails::value, std::move(content)); }
    void setOldValue(QVariant content) { set(&RangeDetails::oldValue, std::move(content)); }
    /// Contents of a Row or Column from its start.
    std::vector<QVariant> const& lineValues() const { return shown().lineValues; }
    std::vector<QVariant> const& lineOldValues() const { return shown().lineOldValues; }
    void setLineValues(std::vector<QVariant> contents) { set(&RangeDetails::lineValues, std::move(contents)); }
    void setLineOldValues(std::vector<QVariant> contents) { set(&RangeDetails::lineOldValues, std::move(contents)); }
    /// Contents of a Table from its start, by row and then column.
    std::vector<std::vector<QVariant>> const& tableValues() const { return shown().tableValues; }
    std::vector<std::vector<QVariant>> const& tableOldValues() const { return shown().tableOldValues; }
    void setTableValues(std::vector<std::vector<QVariant>> contents) {
        set(&RangeDetails::tableValues, std::move(contents));
    }
    void setTableOldValues(std::vector<std::vector<QVariant>> contents) {
        set(&RangeDetails::tableOldValues, std::move(contents));
    }

    // Rows and columns taken out of the range, and (row, col) taken out of a Table.

    std::vector<int> const& excludedRows() const { return shown().excludedRows; }
    std::vector<int> const& excludedCols() const { return shown().excludedCols; }
    std::vector<std::pair<int, int>> const& excludedCells() const { return shown().excludedCells; }
    void setExcludedRows(std::vector<int> rows) { set(&RangeDetails::excludedRows, std::move(rows)); }
    void setExcludedCols(std::vector<int> cols) { set(&RangeDetails::excludedCols, std::move(cols)); }
    void setExcludedCells(std::vector<std::pair<int, int>> cells) {
        set(&RangeDetails::excludedCells, std::move(cells));
    }
    bool hasExclusions() const;

private:
    RangeDetails const& shown() const { return details ? *details : none; }
    template <class Content>
    void set(Content RangeDetails::*member, Content content) {
        if (!details && content == Content())
            return;
        if (!details)
            details = new RangeDetails;
        details.data()->*member = std::move(content);
    }

    static RangeDetails const none; ///< of a range that has no details
    QSharedDataPointer<RangeDetails> details;
};

// Lists hold a range for each of very many cells.
static_assert(sizeof(Range) <= 56);

/// The content, or with `old` the previous content, at a cell: the element if there is one, else the scalar. A Row is
/// indexed by rows and a Column by columns from the start; this seeds the main cell only, which is read afresh at once.
QVariant valueAt(Range const& range, int row, int col, bool old);

/// Copies type, index space, start, main cell and exclusions; contents and ends of `to` stay.
void copyWithoutValues(Range& to, Range const& from);

// Strict orders on the start of ranges and on (row, col) pairs.

bool sortRangeRowAscending(Range const& a, Range const& b);
bool sortRangeColAscending(Range const& a, Range const& b);
bool sortRangeRowDescending(Range const& a, Range const& b);
bool sortRangeColDescending(Range const& a, Range const& b);
bool sortIntPairsRowAscending(std::pair<int, int> const& a, std::pair<int, int> const& b);
bool sortIntPairsColAscending(std::pair<int, int> const& a, std::pair<int, int> const& b);

Q_DECLARE_METATYPE(Range)
Q_DECLARE_METATYPE(RangeType)
Q_DECLARE_METATYPE(RangeIndexType)
