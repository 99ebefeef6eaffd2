#include "model/RangeOrder.h"

#include <QtGlobal>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

template <typename KeyOf>
void sortByKey(RangeVector& ranges, KeyOf keyOf) {
    const auto before = [&](Range const& a, Range const& b) { return keyOf(a) < keyOf(b); };
    if (std::is_sorted(ranges.begin(), ranges.end(), before))
        return;
    std::vector<std::pair<qint64, std::size_t>> keys;
    keys.reserve(ranges.size());
    for (std::size_t i = 0; i < ranges.size(); ++i)
        keys.emplace_back(keyOf(ranges[i]), i);
    // The index as second key makes the order stable.
    std::sort(keys.begin(), keys.end());
    std::vector<Range> sorted;
    sorted.reserve(ranges.size());
    for (auto const& key : keys)
        sorted.push_back(std::move(ranges[key.second]));
    ranges.swap(sorted);
}

} // namespace

void sortByRowThenColumn(RangeVector& ranges) {
    sortByKey(ranges, [](Range const& range) { return (qint64(range.row) * (qint64(1) << 32)) + range.col; });
}

void sortByColumn(RangeVector& ranges) {
    sortByKey(ranges, [](Range const& range) { return qint64(range.col); });
}
