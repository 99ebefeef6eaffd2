#include "storage/ByteSearch.h"

using namespace std::string_literals;

namespace {

std::vector<char> bytes(std::string const& text) {
    return stdStringToCharVec(text);
}

TEST(ByteSearch, FindsTheFirstPlaceAtOrAfterTheStart) {
    struct Case {
        std::string haystack, needle;
        int start, expected;
    };
    for (auto const& c : std::vector<Case>{{"abcabc", "c", 0, 2},
                                           {"abcabc", "c", 3, 5},
                                           {"abcabc", "bca", 1, 1},
                                           {"aab", "ab", 0, 1},
                                           {"abc", "", 0, -1},
                                           {"", "a", 0, -1},
                                           {"abc", "c", 3, -1},
                                           {"abc", "c", 99, -1},
                                           {"abc", "c", -1, -1},
                                           {"a\0b"s, "\0b"s, 0, 1}}) {
        EXPECT_EQ(findChars(bytes(c.haystack), bytes(c.needle), c.start), c.expected) << c.haystack << ' ' << c.needle;
        EXPECT_EQ(findChars(bytes(c.haystack), c.needle, c.start), c.expected) << c.haystack << ' ' << c.needle;
    }
}

TEST(ByteSearch, ReplacesWithoutOverlapFromLeftToRight) {
    struct Case {
        std::string text, from, to, expected;
    };
    for (auto const& c :
         std::vector<Case>{{"a\"b\"", "\"", "\"\"", "a\"\"b\"\""},
                           {"\"\"\"\"\"", "\"\"", "\"", "\"\"\""},
                           {"aaa", "aa", "b", "ba"},
                           {"abc", "", "x", "abc"},
                           {"abc", "b", "", "ac"},
                           // Not aligned to code units: 41 00 22 41 holds 00 22 all the same.
                           {"\x41\x00\x22\x41"s, "\x00\x22"s, "\x00\x22\x00\x22"s, "\x41\x00\x22\x00\x22\x41"s}}) {
        auto text = bytes(c.text);
        stringReplace(text, bytes(c.from), bytes(c.to));
        EXPECT_EQ(charVecToStdString(text), c.expected);
        auto again = bytes(c.text);
        stringReplace(again, c.from, c.to);
        EXPECT_EQ(again, text);
    }
}

TEST(ByteSearch, AllFormsOfReplacementAgree) {
    std::vector<std::vector<char>> results(5, bytes("axbx"));
    stringReplace(results[0], 'x', bytes("y"));
    stringReplace(results[1], bytes("x"), 'y');
    stringReplace(results[2], 'x', 'y');
    stringReplace(results[3], 'x', "y"s);
    stringReplace(results[4], "x"s, 'y');
    EXPECT_THAT(results, testing::Each(bytes("ayby")));
}

TEST(ByteSearch, ReplacesAStretchByAShorterOrLongerOne) {
    for (auto const* replacement : {"", "1", "12", "12345"}) {
        auto text = bytes("abcd"), same = text;
        replaceChars(text, 1, 2, bytes(replacement));
        replaceChars(same, 1, 2, std::string(replacement));
        EXPECT_EQ(charVecToStdString(text), "a"s + replacement + "d");
        EXPECT_TRUE(areCharVecsEqual(text, same));
    }
}

} // namespace
