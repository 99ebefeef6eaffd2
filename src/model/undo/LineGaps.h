#pragma once

#include <utility>
#include <vector>

/// How lines are numbered with and without certain runs of them.
class LineGaps {
public:
    using Runs = std::vector<std::pair<int, int>>; ///< first and last line each, ascending and apart

    explicit LineGaps(Runs runs);

    /// The number of a line once the runs are gone; -1 for a line of a run.
    int without(int line) const;
    /// The number of a line once the runs are there.
    int with(int line) const;

private:
    Runs runs;
    std::vector<int> inFront; ///< lines in the runs in front of each run, and in all
};
