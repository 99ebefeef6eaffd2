// Moves from block to block: Ctrl with the arrow keys.

#include "model/RangeAxis.h"
#include "tests/model/SelectionText.h"
#include "tests/view/TableFixture.h"

#include <string>
#include <vector>

namespace {

class BlockMoves : public TableFixture, public testing::WithParamInterface<Axis> {
protected:
    bool alongRows() const { return GetParam() == Axis::Rows; }
    Direction forward() const { return alongRows() ? Direction::Down : Direction::Right; }
    Direction back() const { return alongRows() ? Direction::Up : Direction::Left; }

    /// A table in which line 1 across the moves has texts at each "x" and nothing at each ".", with other texts beside.
    void loadLine(std::string const& line) {
        int const length = static_cast<int>(line.size());
        model().setMinNumTableRows(20);
        model().setMinNumTableCols(20);
        load(alongRows() ? length : 3, alongRows() ? 3 : length);
        for (int at = 0; at < length; ++at) {
            if (line.at(static_cast<std::size_t>(at)) == '.')
                model().setData(indexAt(at), QString());
        }
    }
    QModelIndex indexAt(int line) { return alongRows() ? model().index(line, 1) : model().index(1, line); }
    void hide(std::vector<int> const& lines) {
        alongRows() ? model().setAndApplyHiddenRowsList(lines) : model().setAndApplyHiddenColsList(lines);
    }
    void go(int line) { alongRows() ? select(line, 1) : select(1, line); }
    int at() { return model().getMainCell().*rangeAxis(GetParam()).line; }
    bool isInSight(int line) {
        QRect const cell = view.visualRect(indexAt(line));
        return !cell.isEmpty() && view.viewport()->rect().contains(cell);
    }
};

TEST_P(BlockMoves, GoByWhatIsInSightAndNeverAgainstTheirDirection) {
    struct Case {
        std::string line;
        std::vector<int> hidden;
        int from, afterForward, afterBack; // all counted among the lines in sight
    };
    for (Case const& c : std::vector<Case>{{"xx..xx", {}, 1, 4, 0},
                                           {"xx..xx", {}, 4, 5, 1},
                                           {"xx..x.", {}, 4, 5, 1},
                                           {".x..xx", {}, 1, 4, 0},
                                           {"xx..xx", {}, 8, 8, 5},         // behind the data
                                           {"xx....", {}, 9, 9, 1},         //
                                           {"xx..xx", {}, 6, 6, 5},         // just behind it
                                           {"x.x.x.x", {2}, 0, 3, 0},       // a block that is hidden
                                           {"x.xx.xx", {2}, 2, 4, 0},       // the rest of one
                                           {"xxxx.xx", {1, 2, 3}, 0, 2, 0}, // a block's end
                                           {"xxxxxx", {5}, 0, 4, 0},        // the last line
                                           {"xxxxxx", {0, 1}, 3, 3, 0},     // the first ones
                                           {"x..xxx", {1, 2}, 0, 3, 0},     // the gap
                                           {"xx..xx", {4, 5}, 7, 7, 1},     // from behind the data with its end hidden
                                           {"xxx", {0, 1, 2}, 2, 2, 0}}) {
        SCOPED_TRACE(c.line + " with " + std::to_string(c.hidden.size()) + " hidden, from " + std::to_string(c.from));
        file.close();
        file.resize(0);
        loadLine(c.line);
        hide(c.hidden);
        go(c.from);
        view.moveSelectionByBlock(forward());
        EXPECT_EQ(at(), c.afterForward);
        go(c.from);
        view.moveSelectionByBlock(back());
        EXPECT_EQ(at(), c.afterBack);
        EXPECT_EQ(model().getSelection().size(), 1u);
    }
}

TEST_P(BlockMoves, BringTheMainCellIntoSight) {
    std::string line(200, 'x');
    line[150] = '.';
    loadLine(line);
    for (bool const frozen : {false, true}) {
        view.setFreezeHeaderRows(frozen, false);
        view.setFreezeHeaderColumns(frozen, false);
        go(0); // in the band, if there is one
        for (int const expected : {149, 151, 199}) {
            view.moveSelectionByBlock(forward());
            EXPECT_EQ(at(), expected);
            EXPECT_TRUE(isInSight(expected)) << expected << " forward";
        }
        for (int const expected : {151, 149, 0}) {
            view.moveSelectionByBlock(back());
            EXPECT_EQ(at(), expected);
            EXPECT_TRUE(isInSight(expected)) << expected << " back";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Both, BlockMoves, testing::Values(Axis::Rows, Axis::Columns),
                         [](auto const& info) { return info.param == Axis::Rows ? "Rows" : "Columns"; });

} // namespace
