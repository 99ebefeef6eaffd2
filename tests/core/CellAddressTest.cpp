#include "core/CellAddress.h"

using namespace Utilities;

namespace {

constexpr int none = noLine;

struct Address {
    char const* text;
    int row;
    int col;
    char const* feedback;
};

} // namespace

TEST(CellAddress, ReadsRowsAndColumnsAsNumbers) {
    Address const cases[] = {{"25", 25, none, "Row 25"},
                             {"r25", 25, none, "Row 25"},
                             {"Row 25", 25, none, "Row 25"},
                             {"-3", -3, none, "Row -3"},
                             {"25,8", 25, none, "Row 25"},
                             {"c8", none, 8, "Column 8"},
                             {"col8", none, 8, "Column 8"},
                             {"COLUMN -8", none, -8, "Column -8"},
                             {"25 8", 25, 8, "Row 25, Column 8"},
                             {"r25, c8", 25, 8, "Row 25, Column 8"},
                             {"c8 25", 25, 8, "Row 25, Column 8"},
                             {"25 c8", 25, 8, "Row 25, Column 8"},
                             {"8 r25", 25, 8, "Row 25, Column 8"},
                             {"row25 8", 25, 8, "Row 25, Column 8"},
                             {"column8row25", 25, 8, "Row 25, Column 8"},
                             {"", none, none, "(No cell selected)"},
                             {"cell", none, none, "(No cell selected)"},
                             {"99999999999", none, none, "(No cell selected)"}};
    for (Address const& wanted : cases) {
        int row = 0, col = 0;
        bool const found = parseCellLocationString(row, col, wanted.text, false, false);
        EXPECT_EQ(found, row != none || col != none) << wanted.text;
        EXPECT_EQ(row, wanted.row) << wanted.text;
        EXPECT_EQ(col, wanted.col) << wanted.text;
        EXPECT_EQ(computeCellRangeFeedbackString(row, col, false), wanted.feedback) << wanted.text;
    }
}

TEST(CellAddress, ReadsColumnsAsLetters) {
    Address const cases[] = {{"25", 25, none, "Row 25"},
                             {"A8", 8, 0, "Cell A8"},
                             {"8a", 8, 0, "Cell A8"},
                             {"25 AB", 25, 27, "Cell AB25"},
                             {"ab25", 25, 27, "Cell AB25"},
                             {"ab, 25", 25, 27, "Cell AB25"},
                             {"a", none, 0, "Column A"},
                             {"!", none, none, "(No cell selected)"},
                             {"zzzzzzzzz", none, none, "(No cell selected)"}};
    for (Address const& wanted : cases) {
        int row = 0, col = 0;
        bool const found = parseCellLocationString(row, col, wanted.text, true, false);
        EXPECT_EQ(found, row != none || col != none) << wanted.text;
        EXPECT_EQ(row, wanted.row) << wanted.text;
        EXPECT_EQ(col, wanted.col) << wanted.text;
        EXPECT_EQ(computeCellRangeFeedbackString(row, col, true), wanted.feedback) << wanted.text;
    }
}

TEST(CellAddress, ALoneNumberIsAColumnWhereOneIsAskedFor) {
    int row = 0, col = 0;
    EXPECT_TRUE(parseCellLocationString(row, col, "12", false, true));
    EXPECT_EQ(row, none);
    EXPECT_EQ(col, 12);
    EXPECT_TRUE(parseCellLocationString(row, col, "25 8", false, true));
    EXPECT_EQ(row, 25);
    EXPECT_EQ(col, 8);
}
