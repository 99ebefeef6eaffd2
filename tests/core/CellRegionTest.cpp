#include "core/CellRegion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <random>
#include <set>

namespace {

CellRegion randomRegion(std::mt19937& random) {
    std::vector<CellRect> rects;
    for (int i = int(random() % 4); i > 0; --i) {
        int const top = int(random() % 9);
        int const left = int(random() % 9);
        rects.push_back({top, left, top + int(random() % 4), left + int(random() % 4)});
    }
    return CellRegion::ofRects(rects);
}

using Cells = std::set<std::pair<int, int>>;

Cells cellsOf(CellRegion const& region) {
    Cells cells;
    for (CellRect const& rect : region.rects()) {
        for (int row = rect.top; row <= rect.bottom; ++row) {
            for (int col = rect.left; col <= rect.right; ++col)
                EXPECT_TRUE(cells.emplace(row, col).second);
        }
    }
    return cells;
}

TEST(CellRegion, IsMadeOfRectanglesInWhateverOrder) {
    std::mt19937 random(7);
    auto const number = [&](int below) { return int(random() % unsigned(below)); };
    for (int round = 0; round < 3000; ++round) {
        std::vector<CellRect> rects;
        bool const oneColumn = round % 3 == 0;
        for (int i = number(6); i > 0; --i) {
            int const top = number(9);
            int const left = oneColumn ? 3 : number(9);
            rects.push_back({top, left, top + number(4) - (number(9) == 0), left + (oneColumn ? 1 : number(4))});
        }
        if (round % 2 == 0)
            std::sort(rects.begin(), rects.end(), [](CellRect const& a, CellRect const& b) {
                return std::pair(a.top, a.left) < std::pair(b.top, b.left);
            });
        Cells cells;
        for (CellRect const& rect : rects) {
            for (int row = rect.top; row <= rect.bottom; ++row) {
                for (int col = rect.left; col <= rect.right; ++col)
                    cells.emplace(row, col);
            }
        }
        CellRegion const region = CellRegion::ofRects(rects);
        EXPECT_EQ(cellsOf(region), cells);
        EXPECT_EQ(region, CellRegion::ofCells({cells.begin(), cells.end()})); // the one form of the set
    }
}

TEST(CellRegion, IsASetOfCells) {
    std::mt19937 random(5);
    for (int round = 0; round < 500; ++round) {
        CellRegion const a = randomRegion(random);
        CellRegion const b = randomRegion(random);
        Cells both;
        Cells common;
        Cells rest;
        for (auto const& cell : cellsOf(a)) {
            both.insert(cell);
            (b.contains(cell.first, cell.second) ? common : rest).insert(cell);
        }
        both.merge(cellsOf(b));
        EXPECT_EQ(cellsOf(a | b), both);
        EXPECT_EQ(cellsOf(a & b), common);
        EXPECT_EQ(cellsOf(a - b), rest);
        EXPECT_EQ((a | b).count(), std::int64_t(both.size()));
        EXPECT_EQ(CellRegion::ofCells({both.rbegin(), both.rend()}), a | b);
        EXPECT_EQ(((a - b) | (a & b)), a);
        for (CellRect const& bounds : {CellRect{INT_MIN, 3, 4, INT_MAX}, CellRect{INT_MIN, 3, 4, 6},
                                       CellRect{2, INT_MIN, INT_MAX, 4}, CellRect{2, 3, 4, 6}}) {
            Cells clamped;
            for (auto const& [row, col] : cellsOf(a))
                clamped.emplace(std::clamp(row, bounds.top, bounds.bottom), std::clamp(col, bounds.left, bounds.right));
            EXPECT_EQ(cellsOf(a.clampedTo(bounds)), clamped);
        }
    }
}

} // namespace
