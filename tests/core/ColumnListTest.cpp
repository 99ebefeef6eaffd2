#include "core/ColumnList.h"

#include <gtest/gtest.h>

using Columns = std::vector<int>;

TEST(ColumnList, NamesColumnsInNumbersOrLetters) {
    struct Case {
        char const* text;
        Columns cols;
    };
    for (Case const& each :
         {Case{"3", {3}}, Case{"1, 4;2 9", {1, 4, 2, 9}}, Case{"2-5", {2, 3, 4, 5}}, Case{" 2 - 4, 3,7 ", {2, 3, 4, 7}},
          Case{"-2", {-2}}, Case{"-2--1, 0", {-2, -1, 0}}, Case{"5-2", {}}, Case{"", {}}, Case{"1,x", {}},
          Case{"1-", {}}, Case{"1-99999999", {}}, Case{"99999999999", {}}})
        EXPECT_EQ(Utilities::parseColsString(each.text), each.cols) << each.text;
    for (Case const& each : {Case{"a", {0}}, Case{"B, aa", {1, 26}}, Case{"b-d e", {1, 2, 3, 4}}, Case{"a1", {}}})
        EXPECT_EQ(Utilities::parseColsStringColLetters(each.text), each.cols) << each.text;
}

TEST(ColumnList, IsToldInShort) {
    EXPECT_EQ(Utilities::makeColsStringFromCols({1, 3, 4, 5, 2}, false), "1, 3-5, 2");
    EXPECT_EQ(Utilities::makeColsStringFromCols({0, 1, 26}, true), "A-B, AA");
    EXPECT_EQ(Utilities::computeColRangeFeedbackString({}, true), "(No column selected)");
    EXPECT_EQ(Utilities::computeColRangeFeedbackString({7}, false), "Column 7");
    EXPECT_EQ(Utilities::computeColRangeFeedbackString({1, 2, 3}, true), "Columns B-D");
    Columns const cols{5, 1, 2, 3, -4};
    EXPECT_EQ(Utilities::parseColsString(Utilities::makeColsStringFromCols(cols, false)), cols);
}
