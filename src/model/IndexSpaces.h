#pragma once

#include "core/RangeVector.h"
#include "storage/TableData.h"

#include <vector>

/// Converts between the index spaces of a table: Raw, the position in storage; Model, the position among what is not
/// concealed; and User, the number in the header, which is Raw plus the first index of the axis. A raw -1, which is
/// what a concealed line has for a model index, is INT_MIN for the user, and INT_MIN is raw 0. A view on the data that
/// is made for one conversion and thrown away.
class IndexSpaces {
public:
    using Indexes = std::vector<int>;

    IndexSpaces(TableData const& data, int firstRowIndex, int firstColIndex)
        : data(data), firstRowIndex(firstRowIndex), firstColIndex(firstColIndex) {}

    static int userFromRaw(int raw, int firstIndex);
    static int rawFromUser(int user, int firstIndex);

    int convert(Axis axis, int index, RangeIndexType from, RangeIndexType to) const;
    Indexes convert(Axis axis, Indexes indexes, RangeIndexType from, RangeIndexType to) const;
    /// Converts the start of a range and states the new index space; all other members stay. `nearest` gives a
    /// concealed line that becomes a model index the closest visible one above instead of -1.
    Range convert(Range range, RangeIndexType from, RangeIndexType to, bool nearest = false) const;

    // By the index space that the range states itself. One that states none stays as it is in Raw, becomes a None
    // range in Model and is a fault of the program in User: std::runtime_error.

    Range rawRange(Range const& range) const;
    Range modelRange(Range const& range) const;
    Range userRange(Range const& range) const;
    RangeVector rawRange(RangeVector ranges) const;
    RangeVector modelRange(RangeVector ranges) const;
    RangeVector userRange(RangeVector ranges) const;
    /// As callers have come to rely on it: target Raw gives Raw, any other target gives Model for a Model range and
    /// User for the rest.
    Range convertRange(Range const& range, RangeIndexType target) const;
    RangeVector convertRange(RangeVector ranges, RangeIndexType target) const;
    /// The general conversion of a list, with one exception: from User to Model the first index is added, as from
    /// Raw to User.
    Indexes convertList(Axis axis, Indexes indexes, RangeIndexType target, RangeIndexType source) const;

private:
    TableData const& data;
    int firstRowIndex;
    int firstColIndex;
};
