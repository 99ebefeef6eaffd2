#include "core/RangeVector.h"

#include "core/RangeShapes.h"
#include "tests/core/RangeMakers.h"

#include <algorithm>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(RangeVector, CountsWhatIsFilled) {
    Range line = row(1);
    EXPECT_EQ(RangeVector{line}.numCells(), 0);
    line.setLineOldValues({1, 2, 3});
    Range area = table();
    area.setTableOldValues({{1, 2}, {3, 4}});
    EXPECT_EQ((RangeVector{cell(0, 0), line, area, table(), Range()}.numCells()), 1 + 3 + 4);
}

TEST(RangeVector, Extremes) {
    RangeVector const ranges = {cell(3, 7), row(5), column(2)};
    EXPECT_EQ(ranges.minRow(), 0);
    EXPECT_EQ(ranges.maxRow(), 5);
    EXPECT_EQ((RangeVector{cell(3, 7), cell(4, 2)}.minCol()), 2);
    EXPECT_EQ(ranges.maxCol(), 7);
    EXPECT_EQ((RangeVector{cell(-4, -2)}.minRow()), 0);
    EXPECT_EQ((RangeVector{cell(-4, -2)}.maxCol()), 0);
    EXPECT_EQ(RangeVector().minRow(), INT_MAX);
    EXPECT_EQ(RangeVector().maxRow(), 0);
    EXPECT_TRUE(ranges.hasRowCell() && ranges.hasColCell());
    EXPECT_FALSE(ranges.hasTableCell());
    EXPECT_TRUE(ranges.containsRange(cell(9, 2)));
    EXPECT_FALSE(ranges.containsRange(cell(9, 3)));
}

TEST(RangeVector, MovingOffTheTableRemovesCells) {
    RangeVector ranges = {cell(1, 0), cell(4, 0), row(1)};
    ranges.tableCols = 8;
    RangeVector clamped = ranges;
    ranges.moveRelative(-2, 0, true);
    EXPECT_THAT(ranges, ElementsAre(cell(2, 0), row(0)));
    clamped.moveRelative(-2, 0, false);
    EXPECT_THAT(clamped, ElementsAre(cell(0, 0), cell(2, 0), row(0)));
    EXPECT_EQ(clamped.tableCols, 8);
}

TEST(RangeVector, SetsOfRowsAndColumnsAndOrder) {
    RangeVector ranges = {cell(3, 1), cell(1, 2), row(3), column(5)};
    std::vector<int> set = {99};
    ranges.getOrderedSetOfRowsRaw(set);
    EXPECT_THAT(set, ElementsAre(-1, 1, 3));
    ranges.getOrderedSetOfColsRaw(set);
    EXPECT_THAT(set, ElementsAre(-1, 1, 2, 5));
    RangeVector{table()}.getOrderedSetOfRowsRaw(set);
    EXPECT_THAT(set, ElementsAre(-1));

    ranges.sanitize();
    EXPECT_TRUE(std::is_sorted(ranges.begin(), ranges.end(), sortRangeColAscending));
}

TEST(RangeVector, LowestNegativeStart) {
    auto lowestRow = [](RangeVector ranges) { return ranges.findLowestRowStartIndex(); };
    EXPECT_EQ(lowestRow({}), -1);
    EXPECT_EQ(lowestRow({cell(2, -9), cell(0, 0)}), -1);
    EXPECT_EQ(lowestRow({cell(2, 0), cell(-2, 0), cell(-5, 0)}), -5);
    EXPECT_EQ(lowestRow({cell(-2, 0), cell(-5, 0)}), -1);
    EXPECT_EQ((RangeVector{cell(0, 3), cell(0, -4)}.findLowestColStartIndex()), -4);
}

TEST(RangeVector, ColumnsInARow) {
    Range const all = block(RangeType::Row, -1, 4);
    RangeVector ranges = {cell(3, 0), block(RangeType::Row, 2, 6, INT_MAX, 8), cell(2, 1), cell(1, 9), all};
    ranges.tableCols = 5;
    std::vector<int> cols;
    ranges.colsInRow(cols, 2, false);
    EXPECT_THAT(cols, IsEmpty()); // the walk ends at the first element below the row
    ranges.colsInRow(cols, 2, true);
    EXPECT_THAT(cols, ElementsAre(4, 5, 1, 6, 7, 8));

    cols.clear();
    RangeVector{row(0)}.colsInRow(cols, 0, false);
    EXPECT_EQ(cols.back(), 1000);
}

TEST(RangeVector, Transposes) {
    EXPECT_EQ(RangeVector::transposeRange(cell(1, 2)), cell(2, 1));
    Range line = block(RangeType::Row, 3, 4);
    line.hasMainCell = true;
    line.mainIndex = 6;
    line.setLineValues({1});
    Range const vertical = RangeVector::transposeRange(line);
    EXPECT_EQ(vertical, column(3));
    EXPECT_EQ(vertical.mainIndex, 6);
    EXPECT_TRUE(vertical.hasMainCell && vertical.lineValues().empty());
    EXPECT_EQ(RangeVector::transposeRange(vertical), row(3));

    Range area = table(1, 0);
    area.mainRow = 5;
    Range const turned = RangeVector::transposeRange(area);
    EXPECT_EQ(std::pair(turned.row, turned.col), std::pair(0, 1));
    EXPECT_EQ(std::pair(turned.mainRow, turned.mainCol), std::pair(5, -1));
}

TEST(RangeShapes, OccupiedEdges) {
    RangeVector ranges = {cell(3, 7), row(5), column(9)};
    EXPECT_EQ(findTopOccupiedRow(ranges), 0);
    EXPECT_EQ(ranges.front(), column(9));
    EXPECT_EQ(findLeftmostOccupiedCol(ranges), 0);
    EXPECT_EQ(ranges.front(), row(5));
    EXPECT_EQ(findBottomOccupiedRow(ranges, true, 100), 5);
    EXPECT_EQ(findBottomOccupiedRow(ranges, false, 100), 99);
    EXPECT_EQ(findRightmostOccupiedCol(ranges, true, 50), 9);
    EXPECT_EQ(findRightmostOccupiedCol(ranges, false, 50), 49);
    RangeVector empty;
    EXPECT_EQ(findTopOccupiedRow(empty), INT_MAX);
    EXPECT_EQ(findBottomOccupiedRow(empty, false, 100), 0);
}

TEST(RangeShapes, SameShapeWhereverItLies) {
    RangeVector const corner = {cell(0, 0), cell(0, 1), cell(1, 0)};
    RangeVector const moved = {cell(6, 4), cell(5, 5), cell(5, 4)};
    RangeVector const wide = {cell(0, 0), cell(0, 2), cell(1, 0)};
    EXPECT_TRUE(areRangeVectorsSameShape(corner, moved));
    EXPECT_FALSE(areRangeVectorsSameShape(corner, wide));
    EXPECT_TRUE(areRangeVectorsSameShapeRowWise(corner, wide));
    EXPECT_FALSE(areRangeVectorsSameShapeColWise(corner, wide));
    EXPECT_FALSE(areRangeVectorsSameShape(corner, {cell(0, 0), cell(0, 1)}));
    EXPECT_FALSE(areRangeVectorsSameShape({cell(2, 2)}, {row(2)}));
    EXPECT_TRUE(areRangeVectorsSameShape({}, {}));
}
