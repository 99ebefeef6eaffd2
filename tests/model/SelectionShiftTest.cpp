#include "model/Selection.h"
#include "tests/model/SelectionText.h"

namespace {

constexpr int lineCount = 20;

/// A grid whose blocks end at every fifth line.
ShiftBounds bounds() {
    return {lineCount, [](int row, int col, Direction direction) {
                const auto next = [&](int line) {
                    const bool back = direction == Direction::Up || direction == Direction::Left;
                    return back ? (line - 1) / 5 * 5 : (line / 5 + 1) * 5;
                };
                const bool vertical = direction == Direction::Up || direction == Direction::Down;
                return next(vertical ? row : col);
            }};
}

struct ShiftCase {
    char const* what;
    char const* base;
    char const* keys; ///< u d l r single steps, capitals block steps
    char const* ranges;
};

void press(Selection& selection, char const* keys) {
    static const std::string letters = "udlrUDLR";
    for (; *keys; ++keys) {
        const std::size_t step = letters.find(*keys);
        const Direction direction = static_cast<Direction>(step % 4);
        if (step % 4 < 2)
            selection.selectUpOrDown(direction, step >= 4, false, nullptr, bounds());
        else
            selection.selectLeftOrRight(direction, step >= 4, false, nullptr, bounds());
    }
}

TEST(SelectionShift, GrowsFromItsBaseAndTakesBack) {
    const ShiftCase cases[] = {
        {"down twice and up once leaves one row more", "C4,4*", "ddu", "C4,4* C5,4"},
        {"back over the base and on", "C4,4*", "duu", "C3,4 C4,4*"},
        {"right is down's twin", "C4,4*", "rrl", "C4,4* C4,5"},
        {"a block down, taken back", "C4,4*", "dDU", "C4,4* C5,4"},
        {"a single step does not take a block back", "C4,4*", "Du", "C4,4*"},
        {"two directions make a rectangle", "C4,4*", "dr", "C4,4* C5,4 C4,5 C5,5"},
        {"the edge stops growth", "C0,0*", "uuU", "C0,0*"},
        {"whole rows stay rows", "R3,0*", "ddd", "R3,0* R4,0 R5,0 R6,0"},
        {"every range of the base grows", "C2,2* C9,7", "d", "C2,2* C3,2 C9,7 C10,7"},
    };
    for (ShiftCase const& c : cases) {
        Selection selection;
        RangeVector base = rangesFrom(c.base);
        base.front().mainIndex = 0;
        selection.setSelection(base, true);
        press(selection, c.keys);
        EXPECT_EQ(textOf(selection.ranges()), c.ranges) << c.what;
    }
}

TEST(SelectionShift, KeepsTheMainCellOfARowThatStartsInside) {
    Selection selection;
    Range row = rangesFrom("R3,4").front();
    row.mainIndex = 2;
    selection.setSelection(row);
    press(selection, "dd");
    EXPECT_EQ(textOf(selection.ranges()), "R3,4* R4,4 R5,4");
    EXPECT_EQ(selection.mainCell(), modelCell(3, 6));
}

TEST(SelectionShift, SaysWhetherAStepWasTakenBack) {
    Selection selection;
    Range cell = modelCell(5, 5);
    selection.setSelection(cell);
    bool changed = false;
    EXPECT_FALSE(selection.selectUpOrDown(Direction::Up, false, true, &changed, bounds()));
    EXPECT_FALSE(selection.selectLeftOrRight(Direction::Left, false, true, &changed, bounds()));
    EXPECT_FALSE(selection.selectUpOrDown(Direction::Left, false, false, &changed, bounds()));
    EXPECT_FALSE(changed);
    EXPECT_EQ(textOf(selection.ranges()), "C5,5*");

    EXPECT_TRUE(selection.selectUpOrDown(Direction::Down, false, true, &changed, bounds()));
    EXPECT_FALSE(changed);
    EXPECT_TRUE(selection.selectUpOrDown(Direction::Up, false, true, &changed, bounds()));
    EXPECT_TRUE(changed);
    EXPECT_EQ(textOf(selection.ranges()), "C5,5*");
}

TEST(SelectionShift, BeginsAnewAfterAnyOtherChange) {
    Selection selection;
    Range cell = modelCell(5, 5);
    selection.setSelection(cell);
    press(selection, "dd");
    selection.removeCellFromSelection(6, 5);
    press(selection, "u");
    EXPECT_EQ(textOf(selection.ranges()), "C4,5 C5,5* C6,5 C7,5") << "grows what is left of the selection";
    selection.addCellToSelection(modelCell(0, 0));
    EXPECT_TRUE(selection.shift().steps().empty());
    selection.setSelection(cell);
    press(selection, "d");
    selection.moveSelectionRelative(1, 0, {lineCount, lineCount});
    press(selection, "d");
    EXPECT_EQ(textOf(selection.ranges()), "C6,5* C7,5 C8,5");
}

} // namespace
