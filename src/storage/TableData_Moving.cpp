// Moving many rows or columns at once.

#include "storage/EditableDataContainer.h"
#include "storage/TableData.h"

#include <algorithm>
#include <climits>

namespace {

/// Which of the (Model) lines from `first` to `last` stands at each of these places after the moves, counted from
/// `first`.
std::vector<int> sourcesOf(TableData::LineMoves const& moves, int first, int last) {
    auto const count = static_cast<std::size_t>(last - first + 1);
    std::vector<int> sources(count, -1);
    std::vector<bool> moved(count, false);
    for (auto const& [from, to] : moves) {
        sources[static_cast<std::size_t>(to - first)] = from - first;
        moved[static_cast<std::size_t>(from - first)] = true;
    }
    std::size_t next = 0;
    for (int& source : sources) {
        if (source >= 0)
            continue;
        while (moved[next])
            ++next;
        source = static_cast<int>(next++);
    }
    return sources;
}

/// The order of the raw lines from the first to the last of them in which the shown ones, which stand at `places`, are
/// ordered by `sources` and the concealed ones between them stay.
std::vector<int> rawOrder(std::vector<int> const& sources, std::vector<int> const& places) {
    int const first = places.front();
    std::vector<int> order(static_cast<std::size_t>(places.back() - first + 1));
    for (std::size_t line = 0; line < order.size(); ++line)
        order[line] = first + static_cast<int>(line);
    for (std::size_t shown = 0; shown < places.size(); ++shown)
        order[static_cast<std::size_t>(places[shown] - first)] = places[static_cast<std::size_t>(sources[shown])];
    return order;
}

} // namespace

bool TableData::moveLines(Axis shown, LineMoves const& moves) {
    int first = INT_MAX;
    int last = -1;
    for (auto const& [from, to] : moves) {
        first = std::min({first, from, to});
        last = std::max({last, from, to});
    }
    if (moves.empty() || first < 0 || editableContainer == nullptr || refusesChanges())
        return false;
    Axis const axis = storedAxis(shown, false);
    Indexes const places = along(axis).concealed.toRaw(first, last);
    growTo(axis, places.back() + 1);

    Indexes const order = rawOrder(sourcesOf(moves, first, last), places);
    if (axis == Axis::Rows)
        editableContainer->permuteRows(order, places.front());
    else
        editableContainer->permuteCols(order, places.front(), true);
    noteOrder(axis, order, places.front());
    return true;
}
