#pragma once

#include <QString>

#include <utility>
#include <vector>

namespace Utilities {

/// Writes the elements of `in`, sorted and each once, to `out`; both may be the same vector.
void getOrderedSet(std::vector<int>& out, std::vector<int> const& in);

/// The first and last number of each run of consecutive numbers in a sorted list. Repeated numbers count once.
std::vector<std::pair<int, int>> getBlockPairs(std::vector<int> const& sorted);

/// The inverse of a permutation of 0 to size - 1: where entry i of `indexes` says which old line stands at i, entry k
/// of the result says where old line k stands now.
std::vector<int> invertSortIndexesVector(std::vector<int> const& indexes);

/// The letters of a column, counted from 0: "A", ..., "Z", "AA". Empty for a negative number.
QString convertNumberToLetters(int number);

/// The column, counted from 0, that the letters name in either case. INT_MIN, which stands for no number, if the text
/// is empty, holds anything else than A to Z or names a column too large.
int convertLettersToNumber(QString const& letters);

} // namespace Utilities
