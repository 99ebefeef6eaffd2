#include "core/FuzzySearch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using Positions = std::vector<int>;

namespace {

struct Case {
    char const* query;
    char const* text;
    int score;
    Positions positions;
};

} // namespace

TEST(FuzzySearch, ScoresRunsAboveGapsAndGivesPlacesInTheTextWithItsSpaces) {
    Case const cases[] = {
        {"", "anything", -1, {}},
        {"  ", "anything", -1, {}},
        {"abc", "abc", 180, {0, 1, 2}},
        {"ABC", "xaBc", 180, {1, 2, 3}},
        {"abc", "a----b----c", 110, {0, 5, 10}},                      // two gaps of 5
        {"cba", "abc", -1, {}},                                       // the wrong order
        {"abd", "abc", -1, {}},                                       // a character that is not there
        {"ab", "a--ab", 120, {3, 4}},                                 // a later start may be better
        {"ab", "ab-ab", 120, {0, 1}},                                 // the first of two equals
        {"aab", "aab", 180, {0, 1, 2}},                               // a place serves one character
        {"ins row", "Insert Row(s) Before", 305, {0, 1, 2, 4, 8, 9}}, // each takes the next place, not the best
        {"rb", "row  bar", 91, {0, 5}},                               // gaps are counted without spaces
        {"ab", "a-------------------------------b", 4, {0, 32}},      // the last score that counts
        {"ab", "a---------------------------------b", -1, {}},        // a score below 0 is no match
        {"\u00e9t", "L'\u00c9T\u00c9", 120, {2, 3}},
    };
    for (Case const& each : cases) {
        int score = 7;
        Positions positions{9};
        Utilities::fuzzySearchScoreAndMatch(score, positions, QString::fromUtf8(each.query),
                                            QString::fromUtf8(each.text));
        EXPECT_EQ(score, each.score) << each.query << " in " << each.text;
        EXPECT_EQ(positions, each.positions) << each.query << " in " << each.text;
    }
}

TEST(FuzzySearch, LongTextsOfOneLetterStayFast) {
    int score = 0;
    Positions positions;
    Utilities::fuzzySearchScoreAndMatch(score, positions, QString(20, u'a'), QString(20000, u'a'));
    EXPECT_EQ(score, 20 * 60);
    EXPECT_THAT(positions, testing::SizeIs(20));
}
