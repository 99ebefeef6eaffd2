#include "view/SelectionMoves.h"

#include "tests/model/SelectionText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace std::string_literals;

TEST(SelectionMoves, ToTheEdgeGrowsEveryRange) {
    struct Case {
        std::string from;
        Direction direction;
        std::string expected;
    };
    SelectionMoves::TableExtent const table{5, 6, 1, 2};
    for (Case const& test : std::vector<Case>{
             {"C3,4", Direction::Left, "C3,2 C3,3 C3,4"},
             {"C3,1", Direction::Left, ""}, // in the header columns
             {"C3,4", Direction::Right, "C3,4 C3,5"},
             {"C3,4", Direction::Up, "C1,4 C2,4 C3,4"},
             {"C3,4", Direction::Down, "C3,4 C4,4"},
             {"C3,2 C3,4", Direction::Right, "C3,2 C3,3 C3,4 C3,5"}, // each cell once
             {"C4,0 C3,0", Direction::Up, "C1,0 C2,0 C3,0 C4,0"},
             {"R3,0", Direction::Left, "R3,2"},
             {"R3,0", Direction::Right, "R3,0"},
             {"R3,2", Direction::Down, "R3,2 R4,2"},
             {"R1,0 R3,0", Direction::Down, "R1,0 R2,0 R3,0 R4,0"},
             {"K3,0 K5,0", Direction::Left, "K2,0 K3,0 K4,0 K5,0"},
             {"K4,0", Direction::Up, "K4,1"},
             {"K4,0", Direction::Left, "K2,0 K3,0 K4,0"},
             {"T0,0", Direction::Left, "T0,2"},
             {"T0,0", Direction::Down, "T0,0"},
         })
        EXPECT_EQ(textOf(SelectionMoves::toEdge(rangesFrom(test.from), test.direction, table)), test.expected)
            << test.from << " " << int(test.direction);
}

TEST(SelectionMoves, WholeLinesAreTakenOnce) {
    EXPECT_EQ(textOf(SelectionMoves::wholeLines(rangesFrom("C3,4 C1,0 C3,5"), Axis::Rows, 0)), "R1,0 R3,0");
    EXPECT_EQ(textOf(SelectionMoves::wholeLines(rangesFrom("C3,4 C1,0"), Axis::Columns, 2)), "K0,2 K4,2");
    EXPECT_EQ(textOf(SelectionMoves::wholeLines(rangesFrom("C3,4 K1,0"), Axis::Rows, 2)), "T0,2");
}

TEST(SelectionMoves, MovesEveryTypeAndStopsAtTheStart) {
    RangeVector ranges = rangesFrom("C3,4 R2,1 K1,5 T2,2");
    EXPECT_EQ(textOf(SelectionMoves::moved(ranges, Axis::Rows, -3)), "R0,1 T0,2 C0,4 K1,2");
    RangeSet const lines = RangeSet::ofLines(Axis::Rows, 2, 5);
    EXPECT_EQ(textOf(SelectionMoves::moved(lines, Axis::Rows, -4)), "R0,0 R1,0");
    EXPECT_EQ(textOf(SelectionMoves::moved(rangesFrom("R2,0 R3,0 R7,0 R9,0"), Axis::Rows, -1)), "R1,0 R2,0 R6,0 R8,0");
}

TEST(SelectionMoves, TheRectangleIsTheSameFromAllCorners) {
    std::string const expected = "C1,2 C1,3 C2,2 C2,3";
    EXPECT_EQ(textOf(SelectionMoves::rectangle(modelCell(1, 2), modelCell(2, 3))), expected);
    EXPECT_EQ(textOf(SelectionMoves::rectangle(modelCell(2, 2), modelCell(1, 3))), expected);
}

TEST(SelectionMoves, FarthestLineIsThatOfARangeInLineWithTheMainCell) {
    RangeVector const ranges = rangesFrom("C1,4 C9,4 C6,4 C3,0 C3,7 C0,5");
    Range const mainCell = modelCell(3, 4);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(ranges, mainCell, Direction::Up), 1);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(ranges, mainCell, Direction::Down), 9);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(ranges, mainCell, Direction::Left), 0);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(ranges, mainCell, Direction::Right), 7);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(rangesFrom("C1,4"), mainCell, Direction::Down), 3);
    RangeVector const lines = rangesFrom("R1,4 R5,4 R8,4 R9,2 K0,3 K6,3 K7,5");
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(lines, mainCell, Direction::Up), 1);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(lines, mainCell, Direction::Down), 8);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(lines, mainCell, Direction::Left), 0);
    EXPECT_EQ(SelectionMoves::farthestSelectedLine(lines, mainCell, Direction::Right), 6);

    Range whole(4, RangeType::Column, RangeIndexType::Model);
    whole.setExcludedRows({7, 2, 5});
    EXPECT_EQ(SelectionMoves::smallestAxisException(whole, Axis::Rows, 2), 5);
    EXPECT_EQ(SelectionMoves::smallestAxisException(whole, Axis::Rows, 7), -1);
    EXPECT_EQ(SelectionMoves::smallestAxisException(whole, Axis::Columns, -1), -1);
}
