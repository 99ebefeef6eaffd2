#include "tests/model/TableModelFixture.h"

#include <QSignalSpy>

namespace {

constexpr auto Raw = RangeIndexType::Raw;
constexpr auto Model = RangeIndexType::Model;
constexpr auto User = RangeIndexType::User;

class RangeContentsTest : public TableModelFixture {
protected:
    RangeContentsTest() { load("a,b,c\nd,e,f\ng,h,i\n"); }

    void write(Range range, bool useOldValues = false, Range const& skip = Range(RangeType::None), bool emits = false) {
        model.populateModel(range, useOldValues, skip, emits);
    }

    static Range line(RangeType type, int index, int start, std::vector<QVariant> values) {
        Range range(index, type, Model);
        (type == RangeType::Row ? range.col : range.row) = start;
        range.setLineValues(values);
        range.setLineOldValues(std::move(values));
        return range;
    }
};

TEST_F(RangeContentsTest, CellsGrowTheGrid) {
    Range cell(4, 3, Model);
    cell.setValue("new");
    write(cell, false, cell);
    EXPECT_EQ(model.rowCount(), 3);
    write(cell);
    EXPECT_EQ(shown(), "a b c -|d e f -|g h i -|- - - -|- - - new");
    cell.setOldValue("old");
    write(cell, true);
    EXPECT_EQ(text(4, 3), "old");
}

TEST_F(RangeContentsTest, LinesFillUpWithTheScalar) {
    struct Case {
        RangeType type;
        char const* result;
    };
    for (Case const& each : {Case{RangeType::Row, "a b c|X 1 s|g h i"}, Case{RangeType::Column, "a X c|d 1 f|g s i"}}) {
        load("a,b,c\nd,e,f\ng,h,i\n");
        Range range = line(each.type, 1, 0, {"X", "1"});
        range.setValue("s");
        write(range);
        EXPECT_EQ(shown(), each.result);
    }
    // The scalar is the new value even of an undo, and fills excluded cells behind the elements.
    Range range = line(RangeType::Row, 0, 0, {"x", "y"});
    range.setValue("s");
    range.setOldValue("o");
    range.setExcludedCols({1, 2});
    write(range, true);
    EXPECT_EQ(text(0, 0) + text(0, 1) + text(0, 2), "xXs");
    write(line(RangeType::Row, 3, 1, {"z"}));
    EXPECT_EQ(model.rowCount(), 4);
    EXPECT_EQ(text(3, 1), "z");
}

TEST_F(RangeContentsTest, SkippedCellsStay) {
    Range row = line(RangeType::Row, 1, 0, {"X", "Y"});
    row.setValue("s");
    write(row, false, Range(1, 0, Model));
    EXPECT_EQ(shown(), "a b c|d Y s|g h i");
    row.setValue("t");
    write(row, false, Range(1, 2, Model));
    EXPECT_EQ(shown(), "a b c|X Y s|g h i");
    RangeVector ranges{Range(0, 0, Model), Range(0, 1, Model)};
    ranges[0].setValue("0");
    ranges[1].setValue("1");
    model.populateModel(ranges, false, Range(0, 1, Model), false);
    EXPECT_EQ(text(0, 0) + text(0, 1), "0b");
}

TEST_F(RangeContentsTest, TablesIgnoreExclusions) {
    Range table(RangeType::Table, Model);
    table.row = 1;
    table.col = 1;
    table.setTableValues({{"X"}});
    table.setValue("s");
    table.setExcludedRows({1, 2});
    table.setExcludedCells({{1, 1}});
    write(table, false, Range(2, 1, Model));
    EXPECT_EQ(shown(), "a b c|d X s|g h s");
}

TEST_F(RangeContentsTest, WritesThroughEveryIndexSpace) {
    model.setFirstRowIndex(1);
    model.setFirstColIndex(1);
    model.concealRawRows({1});
    model.enforceTableSize();
    QSignalSpy const changed(&model, &QAbstractItemModel::dataChanged);
    Range user(3, 2, User);
    user.setValue("user");
    model.populateModel(user, false, Range(RangeType::None), true);
    EXPECT_EQ(user, Range(3, 2, User));
    EXPECT_EQ(user.indexType, User);
    EXPECT_EQ(changed.size(), 1);
    Range raw(2, 2, Raw);
    raw.setValue("raw");
    write(raw, false, Range(RangeType::None), true);
    EXPECT_EQ(changed.size(), 2);
    write(raw);
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(shown(), "a b c|g user raw");
}

TEST_F(RangeContentsTest, ExistingCellsAloneAreSignalledAndNothingGrows) {
    model.concealRawRows({1});
    model.enforceTableSize();
    RangeVector ranges{Range(0, 0, Model),
                       Range(1, 1, Raw),
                       line(RangeType::Row, 1, 0, {"no"}),
                       Range(2, 2, Raw),
                       Range(1, model.columnCount(), Model),
                       Range(9, 0, Model)};
    for (Range& range : ranges)
        range.setValue("new");
    ranges[0].setOldValue("old");
    ranges[4].setValue(QString());
    ranges[5].setValue(QString());
    QSignalSpy const changed(&model, &QAbstractItemModel::dataChanged);
    model.populateExistingCells(ranges, false);
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(shown(), "new b c|g h new");
    EXPECT_EQ(model.dataRaw(model.index(1, 1)), "new");
    model.populateExistingCells({ranges[0]}, true);
    EXPECT_EQ(text(0, 0), "old");
}

TEST_F(RangeContentsTest, ReadsTheTableIntoRanges) {
    model.concealRawRows({1});
    model.setMinNumTableCols(4);
    RangeVector ranges{Range(1, 1, Model), line(RangeType::Row, 1, 1, {}), line(RangeType::Column, 2, 0, {}),
                       Range(RangeType::Table, Raw), Range(1, 0, User)};
    ranges[3].row = 1;
    ranges[3].col = 2;
    model.populateCellDataValues(ranges, false, false);
    EXPECT_TRUE(ranges[1].lineOldValues().empty());
    model.populateCellDataValues(ranges, true, false);
    EXPECT_EQ(ranges[0].value(), "h");
    EXPECT_FALSE(ranges[0].oldValue().isValid());
    EXPECT_EQ(ranges[1].lineValues(), (std::vector<QVariant>{"h", "i", QString()}));
    EXPECT_EQ(ranges[2].lineValues(), (std::vector<QVariant>{"c", "i"}));
    EXPECT_EQ(ranges[3].tableValues(), (std::vector<std::vector<QVariant>>{{"f"}, {"i"}}));
    model.populateCellDataValues(ranges, false, true);
    EXPECT_EQ(ranges[2].lineOldValues(), ranges[2].lineValues());
}

TEST_F(RangeContentsTest, SetsOfRowsAndColumnsOfTheSelection) {
    model.concealRawRows({0});
    model.enforceTableSize();
    model.setSelection(Range(1, 1, Model), {Range(1, 1, Model), Range(0, RangeType::Column, Model)});
    std::vector<int> lines;
    model.getOrderedSetOfSelectedRows(lines, Raw, false);
    EXPECT_EQ(lines, (std::vector<int>{1, 2}));
    model.getOrderedSetOfSelectedRows(lines, User, false);
    EXPECT_EQ(lines, (std::vector<int>{1, 2}));
    model.getOrderedSetOfSelectedCols(lines, Model, true);
    EXPECT_EQ(lines, (std::vector<int>{0, 1}));
    model.setPendingCorners(Range(0, 2, Model), Range(1, 1, Model));
    model.getOrderedSetOfSelectedCols(lines, Model, true);
    EXPECT_EQ(lines, (std::vector<int>{0, 1, 2}));
    std::vector<RangeVector> rows;
    model.getCellArrayByRows(rows, true, false);
    RangeVector cells;
    model.convertCellArrayToCells(rows, cells);
    ASSERT_EQ(cells.size(), 3u);
    EXPECT_EQ(cells[2].value(), "h");
    QSignalSpy const fitted(&model, &TableModel::enforceAutoFitRowHeightsSignal);
    model.enforceAutoFitOnModel({Range(2, 2, Raw)});
    EXPECT_EQ(fitted[0][0].value<std::vector<int>>(), std::vector<int>{1});
}

} // namespace
