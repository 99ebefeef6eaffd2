#include "model/RangeExpansion.h"

#include <string>

namespace {

constexpr auto Model = RangeIndexType::Model;

QVariant place(int row, int col) {
    return QStringLiteral("%1%2").arg(row).arg(col);
}

/// Lists by bars, cells as row and column, a star at the main cell.
std::string textOf(std::vector<RangeVector> const& lists) {
    std::string result;
    for (RangeVector const& cells : lists) {
        result += result.empty() ? "" : " | ";
        for (Range const& cell : cells)
            result += (&cell == &cells.front() ? "" : " ") + std::to_string(cell.row) + std::to_string(cell.col) +
                      (cell.hasMainCell ? "*" : "");
    }
    return result;
}

Range table(int row, int col) {
    Range range(RangeType::Table, Model);
    range.row = row;
    range.col = col;
    return range;
}

class RangeExpansionTest : public testing::Test {
protected:
    RangeExpansion const expansion{3, 4};
};

TEST_F(RangeExpansionTest, CellsByRowAndByColumn) {
    Range row(1, RangeType::Row, Model);
    row.col = 2;
    row.hasMainCell = true;
    row.mainIndex = 3;
    struct Case {
        RangeVector ranges;
        char const *byRows, *byCols, *blocks;
    };
    Case const cases[] = {
        {{}, "", "", ""},
        {{row}, "12 13*", "12 | 13*", "12 13*"},
        {{Range(2, RangeType::Column, Model)}, "02 | 12 | 22", "02 12 22", "02 | 12 | 22"},
        {{table(1, 2)}, "12 13 | 22 23", "12 22 | 13 23", "12 13 | 22 23"},
        {{Range(2, 3, Model), Range(2, 0, Model), Range(2, 1, Model)}, "20 21 23", "20 | 21 | 23", "20 21 | 23"},
        {{Range(7, 9, Model), row, table(1, 3)}, "12 13* | 23 | 79", "12 | 13* 23 | 79", "12 13* | 23 | 79"},
    };
    for (Case const& each : cases) {
        EXPECT_EQ(textOf(expansion.cellsByRows(each.ranges, nullptr, nullptr)), each.byRows);
        EXPECT_EQ(textOf(expansion.cellsByCols(each.ranges, nullptr, nullptr)), each.byCols);
        EXPECT_EQ(textOf(expansion.cellBlocksHorizontal(each.ranges, nullptr, nullptr)), each.blocks);
    }
}

TEST_F(RangeExpansionTest, ReadsOnlyWhatIsAskedFor) {
    Range cell(0, 1, Model);
    cell.setOldValue("kept");
    auto const rows = expansion.cellsByRows({cell, table(2, 3)}, place, nullptr);
    ASSERT_EQ(textOf(rows), "01 | 23");
    EXPECT_EQ(rows[0][0].value(), "01");
    EXPECT_EQ(rows[0][0].oldValue(), "kept");
    EXPECT_EQ(rows[1][0].value(), "23");
    EXPECT_FALSE(rows[1][0].oldValue().isValid());
    EXPECT_EQ(expansion.cellValues({cell, Range(3, RangeType::Column, Model)}, place),
              (std::vector<QVariant>{"01", "03", "13", "23"}));
}

TEST_F(RangeExpansionTest, CellsWithTheContentsThatRangesHold) {
    Range column(0, RangeType::Column, Model);
    column.row = 1;
    column.setLineValues({"a"});
    column.setLineOldValues({"b", "c"});
    Range block = table(1, 2);
    block.setTableValues({{"d", "e"}, {"f"}});
    block.hasMainCell = true;
    block.mainRow = 2;
    block.mainCol = 2;
    RangeVector const cells = expansion.cellsOnly({column, block});
    ASSERT_EQ(textOf({cells}), "10 20 12 13 22* 23");
    QStringList contents;
    for (Range const& cell : cells)
        contents << cell.value().toString() + '/' + cell.oldValue().toString();
    EXPECT_EQ(contents.join(' '), "a/b /c d/ e/ f/ /");
}

TEST_F(RangeExpansionTest, TouchedLines) {
    RangeVector const ranges{Range(1, 1, Model), Range(2, RangeType::Row, Model)};
    EXPECT_EQ(expansion.touchedRows(ranges), (std::vector<int>{1, 2}));
    EXPECT_EQ(expansion.touchedCols(ranges), (std::vector<int>{1, 0, 1, 2, 3}));
    EXPECT_EQ(expansion.touchedRows({table(1, 0)}), (std::vector<int>{1, 2}));
    EXPECT_TRUE(expansion.touchedRows({Range()}).empty());
}

} // namespace
