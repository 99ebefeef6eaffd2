// What the model says about lists of lines, cells and ranges: of the right axis, in the right space, past hidden lines.

#include "model/CellTexts.h"
#include "model/SelectionMembership.h"
#include "tests/model/SelectionText.h"
#include "tests/model/TableModelFixture.h"

#include <algorithm>

namespace {

using Lines = std::vector<int>;

/// Row 1 and the columns 0 and 3 are hidden; labels begin at 10 and at 100.
class ModelLists : public TableModelFixture {
protected:
    void SetUp() override {
        load("p,q,r,s,t\nu,v,w,x,y\na,b,c,d,e\nf,g,h,i,j\n");
        model.setAndApplyHiddenRowsList({1});
        model.setAndApplyHiddenColsList({0, 3});
        model.setFirstRowIndex(10);
        model.setFirstColIndex(100);
    }
    static std::string place(Range const& range) { return std::to_string(range.row) + ',' + std::to_string(range.col); }
};

TEST_F(ModelLists, LinesAndRangesChangeTheirSpaceAlongTheirOwnAxis) {
    struct {
        Lines (TableModel::*convert)(Lines const&) const;
        Lines from, to;
    } const lists[] = {
        {&TableModel::getRawFromUserRows, {10, 12}, {0, 2}},   {&TableModel::getRawFromUserCols, {100, 104}, {0, 4}},
        {&TableModel::getUserFromRawRows, {1, 3}, {11, 13}},   {&TableModel::getUserFromRawCols, {1, 4}, {101, 104}},
        {&TableModel::getUserFromModelRows, {1, 2}, {12, 13}}, {&TableModel::getUserFromModelCols, {1, 2}, {102, 104}},
        {&TableModel::getRawFromModelRows, {0, 2}, {0, 3}},    {&TableModel::getRawFromModelCols, {0, 2}, {1, 4}},
    };
    for (auto const& each : lists)
        EXPECT_EQ((model.*each.convert)(each.from), each.to) << &each - lists;
    Range const shown(1, 2, RangeIndexType::Model);
    Range const stored(2, 4, RangeIndexType::Raw);
    Range const labelled(12, 104, RangeIndexType::User);
    EXPECT_EQ(place(model.getRawFromModelRange(shown)), "2,4");
    EXPECT_EQ(place(model.getRawFromUserRange(labelled)), "2,4");
    EXPECT_EQ(place(model.getUserFromRawRange(stored)), "12,104");
    EXPECT_EQ(place(model.getUserFromModelRange(shown)), "12,104");
    EXPECT_EQ(place(model.getModelFromUserRange(labelled)), "1,2");
    EXPECT_EQ(place(model.convertRangeIndex(shown, RangeIndexType::Raw)), "2,4");
    EXPECT_EQ(place(model.convertRangeIndex(RangeVector{shown, labelled}, RangeIndexType::Raw)[1]), "2,4");
}

TEST_F(ModelLists, CellsLinesAndLabelsOfRangesAreThoseInSight) {
    Lines lines;
    model.getOrderedSetOfRows(lines, rangesFrom("C2,1 C1,0 C2,2"), RangeIndexType::Raw);
    EXPECT_EQ(lines, (Lines{2, 3}));
    model.getOrderedSetOfCols(lines, rangesFrom("C2,2 C1,0 C2,2"), RangeIndexType::Raw);
    EXPECT_EQ(lines, (Lines{1, 4}));
    std::vector<RangeVector> cols;
    model.getCellArrayByCols(cols, rangesFrom("C2,2 R1,1"), true, false);
    QStringList texts;
    for (RangeVector const& col : cols) {
        texts << "|";
        for (Range const& cell : col)
            texts << cell.value().toString();
    }
    EXPECT_EQ(texts.join(' '), "| c | e j");
    model.setSelection(modelCell(1, 2), rangesFrom("C1,2 K0,0"));
    std::vector<QVariant> values;
    model.getListOfCellValues(values, {});
    EXPECT_EQ(values.size(), 4U);
    QList<QString> labels;
    model.getAllColumnLabels(labels);
    model.getSelectedColumnLabels(labels);
    EXPECT_EQ(labels, QList<QString>({"q", "r", "t", "q", "t"}));
}

TEST_F(ModelLists, RangesReachFromTheirFirstToTheirLastLine) {
    struct {
        char const* ranges;
        int top, bottom, bottomOfStarts, left, right, rightOfStarts;
    } const cases[] = {{"C2,0 C1,1", 1, 2, 2, 0, 1, 1}, {"K1,0", 0, 2, 0, 1, 1, 1}, {"R1,0", 1, 1, 1, 0, 2, 0}};
    for (auto const& each : cases) {
        SCOPED_TRACE(each.ranges);
        RangeVector ranges = rangesFrom(each.ranges);
        EXPECT_EQ(model.findTopOccupiedRow(ranges), each.top);
        EXPECT_EQ(model.findBottomOccupiedRow(ranges, false), each.bottom);
        EXPECT_EQ(model.findBottomOccupiedRow(ranges, true), each.bottomOfStarts);
        EXPECT_EQ(model.findLeftmostOccupiedCol(ranges), each.left);
        EXPECT_EQ(model.findRightmostOccupiedCol(ranges, false), each.right);
        EXPECT_EQ(model.findRightmostOccupiedCol(ranges, true), each.rightOfStarts);
        model.setSelection(modelCell(ranges.front().row, ranges.front().col), ranges);
        EXPECT_EQ(model.findBottomOccupiedRow(false), each.bottom);
        EXPECT_EQ(model.findBottomOccupiedRow(true), each.bottomOfStarts);
        EXPECT_EQ(model.findRightmostOccupiedCol(false), each.right);
        EXPECT_EQ(model.findRightmostOccupiedCol(true), each.rightOfStarts);
    }
}

TEST_F(ModelLists, WhatIsTakenOutOfATransposedLineFollowsIt) {
    Range row = rangesFrom("R1,2").front();
    row.setExcludedCols({4});
    Range const col = transposedRanges({row}).front();
    EXPECT_EQ(textOf(RangeVector{col}), "K2,1");
    EXPECT_EQ(col.excludedRows(), Lines{3});
    EXPECT_TRUE(col.excludedCols().empty());
    Range column = rangesFrom("K3,1").front();
    column.setExcludedRows({2});
    Range const back = transposedRanges({column}).front();
    EXPECT_EQ(textOf(RangeVector{back}), "R1,3");
    EXPECT_EQ(back.excludedCols(), Lines{4});
    Range table = rangesFrom("T1,3").front();
    table.setExcludedCells({{4, 5}});
    EXPECT_EQ(transposedRanges({table}).front().excludedCells(), (std::vector<std::pair<int, int>>{{3, 6}}));
}

TEST(SelectionMembership, ManyRangesAnswerAsEachOfThemDoes) {
    RangeVector ranges = rangesFrom("R3,2 R3,6 K4,5 K1,7 T8,9");
    ranges[0].setExcludedCols({4});
    ranges[2].setExcludedRows({6});
    ranges[4].setExcludedCells({{10, 10}});
    for (int i = 0; i < 15; ++i)
        ranges.push_back(modelCell(i, i * 7 % 5));
    SelectionMembership many;
    for (int round = 0; round < 2; ++round) {
        for (int row = 0; row < 16; ++row) {
            for (int col = 0; col < 16; ++col)
                EXPECT_EQ(many.coversCell(ranges, row, col),
                          std::any_of(ranges.begin(), ranges.end(),
                                      [=](Range const& range) { return rangeCoversCell(range, row, col); }))
                    << row << ',' << col;
        }
        for (Range& range : ranges)
            ++range.col;
        many.invalidate();
    }
}

} // namespace
