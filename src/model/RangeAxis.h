#pragma once

#include "core/Enumerations.h"
#include "core/RangeVector.h"
#include "model/GridSize.h"

#include <utility>
#include <vector>

/// The members of a Range as one axis names them, so that what holds for rows and columns alike is written once. Along
/// Axis::Rows a line is a row and a position in it a column; along Axis::Columns the other way round.
struct RangeAxis {
    int Range::*line;
    int Range::*position;
    RangeType lineType;  ///< a whole line
    RangeType crossType; ///< one position in every line
    std::vector<int> const& (Range::*excludedLines)() const;
    std::vector<int> const& (Range::*excludedPositions)() const;
    void (Range::*setExcludedPositions)(std::vector<int>);
    int std::pair<int, int>::*cellLine; ///< of an excluded cell
    int std::pair<int, int>::*cellPosition;
    int GridSize::*lineCount;
    int GridSize::*positionCount;

    /// A Model cell.
    Range cell(int atLine, int atPosition) const {
        Range made(0, 0, RangeIndexType::Model);
        made.*line = atLine;
        made.*position = atPosition;
        return made;
    }
};

inline constexpr RangeAxis rowsAxis{&Range::row,
                                    &Range::col,
                                    RangeType::Row,
                                    RangeType::Column,
                                    &Range::excludedRows,
                                    &Range::excludedCols,
                                    &Range::setExcludedCols,
                                    &std::pair<int, int>::first,
                                    &std::pair<int, int>::second,
                                    &GridSize::rows,
                                    &GridSize::cols};

inline constexpr RangeAxis colsAxis{&Range::col,
                                    &Range::row,
                                    RangeType::Column,
                                    RangeType::Row,
                                    &Range::excludedCols,
                                    &Range::excludedRows,
                                    &Range::setExcludedRows,
                                    &std::pair<int, int>::second,
                                    &std::pair<int, int>::first,
                                    &GridSize::cols,
                                    &GridSize::rows};

/// The names along Axis::Rows, or for any other value along Axis::Columns.
constexpr RangeAxis const& rangeAxis(Axis axis) {
    return axis == Axis::Rows ? rowsAxis : colsAxis;
}
