#include "model/IndexSpaces.h"

#include "tests/storage/TableDataFixture.h"

#include <climits>
#include <stdexcept>
#include <vector>

namespace {

constexpr auto Raw = RangeIndexType::Raw;
constexpr auto Model = RangeIndexType::Model;
constexpr auto User = RangeIndexType::User;

/// Six rows by three columns with raw rows 2 and 3 and column 0 concealed; the user counts rows from 1, columns
/// from 10.
class IndexSpacesTest : public TableDataFixture {
protected:
    IndexSpacesTest() {
        load("a,b,c\na,b,c\na,b,c\na,b,c\na,b,c\na,b,c\n");
        data.concealRawRows({2, 3});
        data.concealRawCol(0);
    }

    IndexSpaces spaces{data, 1, 10};
};

TEST_F(IndexSpacesTest, ConvertsEveryPairOfSpaces) {
    struct Case {
        Axis axis;
        RangeIndexType from, to;
        std::vector<int> in, out;
    };
    Case const cases[] = {
        {Axis::Rows, Model, Raw, {-1, 0, 2, 3, 9}, {-1, 0, 4, 5, 11}},
        {Axis::Rows, Raw, Model, {-1, 1, 2, 4, 11}, {-1, 1, -1, 2, 9}},
        {Axis::Rows, Raw, User, {-1, 0, 3}, {INT_MIN, 1, 4}},
        {Axis::Rows, User, Raw, {INT_MIN, 1, 4}, {0, 0, 3}},
        {Axis::Rows, Model, User, {-1, 1, 2}, {INT_MIN, 2, 5}},
        {Axis::Rows, User, Model, {INT_MIN, 1, 3, 5}, {0, 0, -1, 2}},
        {Axis::Columns, Model, User, {0, 1}, {11, 12}},
        {Axis::Columns, User, Model, {10, 11}, {-1, 0}},
        {Axis::Columns, User, User, {10, -1}, {10, -1}},
    };
    for (Case const& each : cases)
        EXPECT_EQ(spaces.convert(each.axis, each.in, each.from, each.to), each.out)
            << int(each.axis) << ": " << int(each.from) << " to " << int(each.to);

    // Rows and columns change their parts with the table.
    data.toggleTranspose();
    EXPECT_EQ(spaces.convert(Axis::Rows, 0, Model, Raw), 1);
    EXPECT_EQ(spaces.convert(Axis::Columns, 2, Model, User), 14);
    EXPECT_EQ(spaces.convert(Axis::Columns, 3, Raw, Model), -1);
}

TEST_F(IndexSpacesTest, ListsKeepTheirOwnRuleFromUserToModel) {
    std::vector<int> const rows = {1, 4};
    EXPECT_EQ(spaces.convertList(Axis::Rows, rows, Model, User), (std::vector<int>{2, 5}));
    EXPECT_EQ(spaces.convertList(Axis::Rows, rows, Raw, User), (std::vector<int>{0, 3}));
    EXPECT_EQ(spaces.convertList(Axis::Rows, rows, User, Model), (std::vector<int>{2, 7}));
    EXPECT_EQ(spaces.convertList(Axis::Rows, rows, Model, Raw), (std::vector<int>{1, 2}));
    EXPECT_EQ(spaces.convertList(Axis::Rows, rows, Raw, Raw), rows);
}

TEST_F(IndexSpacesTest, RangesTakeEverythingElseAlong) {
    Range range(2, RangeType::Row, Model);
    range.setValue(7);
    range.setExcludedCols({1});
    range.mainIndex = 2;
    Range const raw = spaces.rawRange(range);
    EXPECT_EQ(raw.indexType, Raw);
    EXPECT_EQ(raw.row, 4);
    EXPECT_EQ(raw.col, 1);
    EXPECT_EQ(raw.value(), 7);
    EXPECT_EQ(raw.excludedCols(), std::vector<int>{1});
    EXPECT_EQ(raw.mainIndex, 2);

    Range const concealed(3, 1, Raw);
    EXPECT_EQ(spaces.modelRange(concealed).row, -1);
    EXPECT_EQ(spaces.convert(concealed, Raw, Model, true).row, 1);

    RangeVector ranges{Range(0, 1, Raw), Range(5, 2, Raw)};
    ranges.tableRows = 6;
    RangeVector const user = spaces.userRange(ranges);
    EXPECT_EQ(user, (RangeVector{Range(1, 11, User), Range(6, 12, User)}));
    EXPECT_EQ(user.tableRows, 6);
}

TEST_F(IndexSpacesTest, RangesWithoutASpaceAreAFault) {
    EXPECT_EQ(spaces.modelRange(Range()).row, -1);
    EXPECT_EQ(spaces.rawRange(Range()).row, 0);
    EXPECT_THROW(spaces.userRange(Range()), std::runtime_error);
}

TEST_F(IndexSpacesTest, ConvertRangeLooksAtTheSourceFirst) {
    struct Case {
        RangeIndexType source, target, result;
        int row;
    };
    Case const cases[] = {
        {Model, Model, Model, 4}, {Model, Raw, Raw, 6}, {Model, User, Model, 4}, {Raw, Model, User, 5},
        {Raw, User, User, 5},     {User, Raw, Raw, 3},  {User, Model, User, 4},
    };
    for (Case const& each : cases) {
        Range const result = spaces.convertRange(Range(4, 1, each.source), each.target);
        EXPECT_EQ(result.indexType, each.result) << int(each.source) << " to " << int(each.target);
        EXPECT_EQ(result.row, each.row) << int(each.source) << " to " << int(each.target);
    }
}

} // namespace
