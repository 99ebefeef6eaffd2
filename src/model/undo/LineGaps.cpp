#include "model/undo/LineGaps.h"

#include <algorithm>

LineGaps::LineGaps(Runs lineRuns) : runs(std::move(lineRuns)), inFront{0} {
    for (auto const& [first, last] : runs)
        inFront.push_back(inFront.back() + last - first + 1);
}

int LineGaps::without(int line) const {
    auto const next = std::upper_bound(runs.begin(), runs.end(), line,
                                       [](int at, std::pair<int, int> const& run) { return at < run.first; });
    if (next != runs.begin() && line <= std::prev(next)->second)
        return -1;
    return line - inFront[std::size_t(next - runs.begin())];
}

int LineGaps::with(int line) const {
    // A run stands in front of the line if the lines in front of the run that are not in runs are no more than `line`.
    std::size_t low = 0;
    std::size_t high = runs.size();
    while (low < high) {
        std::size_t const middle = (low + high) / 2;
        if (runs[middle].first - inFront[middle] <= line)
            low = middle + 1;
        else
            high = middle;
    }
    return line + inFront[low];
}
