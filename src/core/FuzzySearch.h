#pragma once

#include <QString>

#include <vector>

namespace Utilities {

/// Matches the characters of `query` in `text`, in order but not side by side, without regard to case and spaces.
/// `score` is -1 without a match, else the higher the closer the matched characters stand; `positions` are the places
/// of the best match in `text`, ascending, empty without one.
void fuzzySearchScoreAndMatch(int& score, std::vector<int>& positions, QString query, QString const& text);

} // namespace Utilities
