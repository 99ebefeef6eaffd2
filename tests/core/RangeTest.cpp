#include "core/Range.h"

#include "tests/core/RangeMakers.h"

#include <tuple>

TEST(Range, ConstructorsPlaceTheStart) {
    std::vector<std::pair<Range, std::tuple<RangeType, RangeIndexType, int, int>>> const cases = {
        {Range(), {RangeType::None, RangeIndexType::None, 0, 0}},
        {Range(3, 4, Model), {RangeType::Cell, Model, 3, 4}},
        {Range(3, RangeType::Row, Model), {RangeType::Row, Model, 3, 0}},
        {Range(3, RangeType::Column, Model), {RangeType::Column, Model, 0, 3}},
        {Range(3, RangeType::Table, Model), {RangeType::Table, Model, 3, 3}},
        {Range(RangeType::Table, RangeIndexType::Raw), {RangeType::Table, RangeIndexType::Raw, 0, 0}},
        {Range(RangeType::Row), {RangeType::Row, RangeIndexType::None, 0, 0}},
        {Range(RangeType::None), {RangeType::None, RangeIndexType::None, -1, -1}}};
    for (auto const& [range, expected] : cases) {
        EXPECT_EQ(std::tuple(range.type, range.indexType, range.row, range.col), expected);
        EXPECT_EQ(std::tuple(range.rowEnd, range.colEnd, range.hasMainCell), std::tuple(INT_MAX, INT_MAX, false));
        EXPECT_EQ(std::tuple(range.mainIndex, range.mainRow, range.mainCol), std::tuple(-1, -1, -1));
        EXPECT_FALSE(range.value().isValid());
    }
}

TEST(Range, ValidityDependsOnTheType) {
    for (Range const& valid :
         {cell(0, 0), block(RangeType::Row, 0, -1, 9, 9), block(RangeType::Column, -1, 0, 9, 9), table(-1, -1)})
        EXPECT_TRUE(valid.isValid()) << int(valid.type);
    for (Range const& invalid : {cell(-1, 0), cell(0, -1), row(-1), column(-1), Range()})
        EXPECT_FALSE(invalid.isValid()) << int(invalid.type);
}

TEST(Range, MovesInvalidateOrStopAtZero) {
    struct Case {
        Range range;
        int rows, cols;
        bool invalidate;
        RangeType type;
        int row, col;
    };
    std::vector<Case> const cases = {
        {cell(1, 1), 2, -1, true, RangeType::Cell, 3, 0},   {cell(1, 2), -3, 0, true, RangeType::None, -2, 2},
        {cell(1, 2), -3, -9, false, RangeType::Cell, 0, 0}, {row(1), -3, 2, true, RangeType::Row, 0, 2},
        {column(4), 1, -5, true, RangeType::Column, 1, 0},  {table(2, 2), -3, -1, true, RangeType::Table, 0, 1}};
    for (auto const& [range, rows, cols, invalidate, type, toRow, toCol] : cases) {
        Range moved = range;
        moved.moveRelative(rows, cols, invalidate);
        EXPECT_EQ(std::tuple(moved.type, moved.row, moved.col), std::tuple(type, toRow, toCol));
    }
}

TEST(Range, EqualityComparesTypeAndStart) {
    Range other(1, 2, RangeIndexType::Raw);
    other.setValue("content");
    EXPECT_EQ(cell(1, 2), other);
    EXPECT_NE(cell(1, 2), cell(2, 1));
    EXPECT_NE(row(0), column(0));
    EXPECT_EQ(Range(), Range(RangeType::None));
}

TEST(Range, ContainsRange) {
    Range excluding = row(5);
    excluding.setExcludedCols({9});
    Range const shortRow = block(RangeType::Row, 5, 2, INT_MAX, 8);
    Range const shortColumn = block(RangeType::Column, 2, 5, 8, INT_MAX);
    Range const box = table(2, 2, 8, 8);
    struct Case {
        Range outer, inner;
        bool contains;
    };
    std::vector<Case> const cases = {
        {cell(1, 2), cell(1, 2), true},   {cell(1, 2), cell(1, 3), false},  {cell(5, 0), row(5), false},
        {row(5), cell(5, 9), true},       {excluding, cell(5, 9), true},    {row(5), cell(4, 9), false},
        {shortRow, cell(5, 2), true},     {shortRow, cell(5, 8), true},     {shortRow, cell(5, 1), false},
        {shortRow, cell(5, 9), false},    {shortColumn, cell(2, 5), true},  {shortColumn, cell(8, 5), true},
        {shortColumn, cell(1, 5), false}, {shortColumn, cell(9, 5), false}, {shortColumn, cell(3, 6), false},
        {box, cell(2, 8), true},          {box, cell(1, 5), false},         {box, cell(5, 9), false},
        {row(5), shortRow, true},         {shortRow, row(5), false},        {row(4), shortRow, false},
        {column(5), shortColumn, true},   {shortColumn, column(5), false},  {row(5), column(0), false},
        {column(0), row(0), false},       {table(2, 0), row(2), true},      {table(2, 0), row(3), false},
        {table(0, 2), column(2), true},   {table(0, 2), column(3), false},  {table(5, 3), shortRow, false},
        {table(0, 0), box, true},         {box, table(2, 2), false},        {box, table(2, 1, 8, 8), false},
        {row(0), table(0, 0), false},     {table(0, 0), Range(), false},    {Range(), cell(0, 0), false}};
    for (std::size_t i = 0; i < cases.size(); ++i)
        EXPECT_EQ(cases[i].outer.containsRange(cases[i].inner), cases[i].contains) << "case " << i;
}

TEST(Range, ContentsFallBackToTheScalar) {
    Range line = row(2);
    line.setValue("scalar");
    line.setOldValue("old scalar");
    line.setLineValues({"a", "b"});
    EXPECT_EQ(valueAt(line, 3, 0, false), "b"); // a Row is indexed by rows
    EXPECT_EQ(valueAt(line, 2, 1, false), "a");
    EXPECT_EQ(valueAt(line, 1, 0, false), "scalar");
    EXPECT_EQ(valueAt(line, 4, 0, false), "scalar");
    EXPECT_EQ(valueAt(line, 2, 0, true), "old scalar");

    Range vertical = column(2);
    vertical.setLineOldValues({"a", "b"});
    EXPECT_EQ(valueAt(vertical, 0, 3, true), "b");

    Range area = table(1, 1);
    area.setValue("scalar");
    area.setTableValues({{"a"}, {"b", "c"}});
    EXPECT_EQ(valueAt(area, 2, 2, false), "c");
    EXPECT_EQ(valueAt(area, 1, 2, false), "scalar");
    EXPECT_EQ(valueAt(area, INT_MIN, 1, false), "scalar");
}

TEST(Range, CopyWithoutValuesKeepsContentsAndEndsOfTheTarget) {
    Range from = table(1, 2, 3, 4);
    from.setValue("from");
    from.hasMainCell = true;
    from.mainRow = 7;
    from.setExcludedCells({{5, 6}});
    Range to(9, 9, RangeIndexType::Raw);
    to.setValue("to");
    copyWithoutValues(to, from);
    EXPECT_EQ(to, from);
    EXPECT_EQ(std::tuple(to.indexType, to.hasMainCell, to.mainRow), std::tuple(Model, true, 7));
    EXPECT_EQ(to.excludedCells(), from.excludedCells());
    EXPECT_EQ(std::tuple(to.value(), to.rowEnd), std::tuple(QVariant("to"), INT_MAX));
}

TEST(Range, CopiesShareContentsAndExclusionsUntilOneIsWritten) {
    Range range(1, RangeType::Row, Model);
    range.setLineValues({"a", "b"});
    range.setExcludedCols({4});
    Range copy = range;
    EXPECT_EQ(&copy.lineValues(), &range.lineValues());
    copy.setExcludedCols({});
    copy.setValue("new");
    EXPECT_EQ(std::tuple(range.hasExclusions(), range.value().isValid()), std::tuple(true, false));
    EXPECT_EQ(std::tuple(copy.hasExclusions(), copy.value()), std::tuple(false, QVariant("new")));
    EXPECT_EQ(copy.lineValues(), range.lineValues());
}
