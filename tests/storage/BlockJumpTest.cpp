#include "storage/BlockJump.h"

namespace {

TEST(BlockJump, LandsOnTheEdgesOfBlocks) {
    struct Case {
        std::string line; ///< x is a populated cell
        int from, step, expected;
    };
    for (Case const& c : std::vector<Case>{{"xx..xx", 5, +1, 5},  // no neighbour
                                           {"xx..xx", 0, -1, 0},  //
                                           {"...x..", 2, +1, 3},  // onto a populated neighbour
                                           {"x...x.", 0, +1, 4},  // over a gap to the next block
                                           {"x...x.", 4, -1, 0},  //
                                           {"x.....", 0, +1, 5},  // nothing behind the gap
                                           {".....x", 5, -1, -1}, // and upward past the start
                                           {"....x.", 4, +1, 6},  // the gap is the last cell
                                           {".x....", 1, -1, -1}, //
                                           {"xxxx..", 0, +1, 3},  // to the end of the own block
                                           {"..xxxx", 5, -1, 2},  //
                                           {"xxxxxx", 1, +1, 5},  // which is the end of the line
                                           {"xxxxxx", 4, -1, 0},  //
                                           {"xxxxxx", 4, +1, 5},  //
                                           {"....x.", 0, +1, 4},  // from an empty run onto a block
                                           {".x....", 5, -1, 1},  //
                                           {"......", 1, +1, 5},  // nothing at all
                                           {"......", 4, -1, 0},  //
                                           {"......", 1, -1, 0}}) {
        auto const populated = [&](int index) {
            return index < static_cast<int>(c.line.size()) && c.line.at(static_cast<std::size_t>(index)) == 'x';
        };
        EXPECT_EQ(blockJump(c.from, c.step, static_cast<int>(c.line.size()), skipByCell(populated)), c.expected)
            << c.line << " from " << c.from << " by " << c.step;
    }
}

} // namespace
