#include "model/IndexSpaces.h"

#include <climits>
#include <stdexcept>
#include <utility>

namespace {

constexpr int noUserIndex = INT_MIN;

template <class Convert>
RangeVector convertEach(RangeVector ranges, Convert convert) {
    for (Range& range : ranges)
        range = convert(range);
    return ranges;
}

} // namespace

int IndexSpaces::userFromRaw(int raw, int firstIndex) {
    return raw == -1 ? noUserIndex : raw + firstIndex;
}

int IndexSpaces::rawFromUser(int user, int firstIndex) {
    return user == noUserIndex ? 0 : user - firstIndex;
}

int IndexSpaces::convert(Axis axis, int index, RangeIndexType from, RangeIndexType to) const {
    bool const rows = axis == Axis::Rows;
    int const firstIndex = rows ? firstRowIndex : firstColIndex;
    if (from == to)
        return index;
    int raw = index;
    if (from == RangeIndexType::Model)
        raw = rows ? data.getRawFromModelRow(index) : data.getRawFromModelCol(index);
    else if (from == RangeIndexType::User)
        raw = rawFromUser(index, firstIndex);
    if (to == RangeIndexType::Model)
        return rows ? data.getModelFromRawRow(raw) : data.getModelFromRawCol(raw);
    return to == RangeIndexType::User ? userFromRaw(raw, firstIndex) : raw;
}

IndexSpaces::Indexes IndexSpaces::convert(Axis axis, Indexes indexes, RangeIndexType from, RangeIndexType to) const {
    for (int& index : indexes)
        index = convert(axis, index, from, to);
    return indexes;
}

Range IndexSpaces::convert(Range range, RangeIndexType from, RangeIndexType to, bool nearest) const {
    if (nearest && to == RangeIndexType::Model && from != to) {
        range.row = data.getModelFromRawRow(convert(Axis::Rows, range.row, from, RangeIndexType::Raw), true);
        range.col = data.getModelFromRawCol(convert(Axis::Columns, range.col, from, RangeIndexType::Raw), true);
    } else {
        range.row = convert(Axis::Rows, range.row, from, to);
        range.col = convert(Axis::Columns, range.col, from, to);
    }
    range.indexType = to;
    return range;
}

Range IndexSpaces::rawRange(Range const& range) const {
    if (range.indexType == RangeIndexType::None)
        return range;
    return convert(range, range.indexType, RangeIndexType::Raw);
}

Range IndexSpaces::modelRange(Range const& range) const {
    if (range.indexType == RangeIndexType::None)
        return Range(RangeType::None);
    return convert(range, range.indexType, RangeIndexType::Model);
}

Range IndexSpaces::userRange(Range const& range) const {
    if (range.indexType == RangeIndexType::None)
        throw std::runtime_error("range needs an index type.");
    return convert(range, range.indexType, RangeIndexType::User);
}

RangeVector IndexSpaces::rawRange(RangeVector ranges) const {
    return convertEach(std::move(ranges), [this](Range const& range) { return rawRange(range); });
}

RangeVector IndexSpaces::modelRange(RangeVector ranges) const {
    return convertEach(std::move(ranges), [this](Range const& range) { return modelRange(range); });
}

RangeVector IndexSpaces::userRange(RangeVector ranges) const {
    return convertEach(std::move(ranges), [this](Range const& range) { return userRange(range); });
}

Range IndexSpaces::convertRange(Range const& range, RangeIndexType target) const {
    if (target == range.indexType)
        return range;
    if (target == RangeIndexType::Raw)
        return rawRange(range);
    return range.indexType == RangeIndexType::Model ? modelRange(range) : userRange(range);
}

RangeVector IndexSpaces::convertRange(RangeVector ranges, RangeIndexType target) const {
    return convertEach(std::move(ranges), [=, this](Range const& range) { return convertRange(range, target); });
}

IndexSpaces::Indexes IndexSpaces::convertList(Axis axis, Indexes indexes, RangeIndexType target,
                                              RangeIndexType source) const {
    if (target == RangeIndexType::Model && source == RangeIndexType::User)
        return convert(axis, std::move(indexes), RangeIndexType::Raw, RangeIndexType::User);
    return convert(axis, std::move(indexes), source, target);
}
