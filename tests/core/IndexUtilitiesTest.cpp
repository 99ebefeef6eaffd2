#include "core/IndexUtilities.h"

#include <climits>

using namespace Utilities;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(IndexUtilities, SetsRunsAndPermutations) {
    std::vector<int> list = {3, -1, 3, 0, 2};
    getOrderedSet(list, list);
    EXPECT_THAT(list, ElementsAre(-1, 0, 2, 3));

    EXPECT_THAT(getBlockPairs({}), IsEmpty());
    EXPECT_THAT(getBlockPairs({-1, 0, 1, 4, 6, 7}), ElementsAre(Pair(-1, 1), Pair(4, 4), Pair(6, 7)));
    EXPECT_THAT(getBlockPairs({2, 2, 3}), ElementsAre(Pair(2, 3)));

    EXPECT_THAT(invertSortIndexesVector({2, 0, 3, 1}), ElementsAre(1, 3, 0, 2));
}

TEST(IndexUtilities, ColumnLetters) {
    std::vector<std::pair<int, QString>> const cases = {
        {0, "A"},    {25, "Z"},    {26, "AA"},     {51, "AZ"},      {52, "BA"},
        {701, "ZZ"}, {702, "AAA"}, {18277, "ZZZ"}, {18278, "AAAA"}, {INT_MAX - 1, "FXSHRXW"}};
    for (auto const& [number, letters] : cases) {
        EXPECT_EQ(convertNumberToLetters(number), letters);
        EXPECT_EQ(convertLettersToNumber(letters), number);
        EXPECT_EQ(convertLettersToNumber(letters.toLower()), number);
    }
    EXPECT_EQ(convertNumberToLetters(-1), "");
    for (QString const noColumn : {"", "A1", "a b", "\u00C4", "ZZZZZZZ", "AAAAAAAAAAAAAAAAAAAAAAAAA"})
        EXPECT_EQ(convertLettersToNumber(noColumn), INT_MIN) << noColumn.toStdString();
}
