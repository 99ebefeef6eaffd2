// Index conversion: each face is one case of IndexSpaces.

#include "model/TableModel.h"

namespace {

constexpr auto Raw = RangeIndexType::Raw;
constexpr auto Model = RangeIndexType::Model;
constexpr auto User = RangeIndexType::User;

} // namespace

TableModel::Indexes TableModel::getRawFromModelRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, Model, Raw);
}

TableModel::Indexes TableModel::getRawFromModelCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, Model, Raw);
}

TableModel::Indexes TableModel::getModelFromRawRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, Raw, Model);
}

TableModel::Indexes TableModel::getModelFromRawCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, Raw, Model);
}

TableModel::Indexes TableModel::getRawFromUserRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, User, Raw);
}

TableModel::Indexes TableModel::getRawFromUserCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, User, Raw);
}

TableModel::Indexes TableModel::getUserFromRawRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, Raw, User);
}

TableModel::Indexes TableModel::getUserFromRawCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, Raw, User);
}

TableModel::Indexes TableModel::getModelFromUserRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, User, Model);
}

TableModel::Indexes TableModel::getModelFromUserCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, User, Model);
}

TableModel::Indexes TableModel::getUserFromModelRows(Indexes const& rows) const {
    return spaces().convert(Axis::Rows, rows, Model, User);
}

TableModel::Indexes TableModel::getUserFromModelCols(Indexes const& cols) const {
    return spaces().convert(Axis::Columns, cols, Model, User);
}

Range TableModel::getRawFromModelRange(Range const& range) const {
    return spaces().convert(range, Model, Raw);
}

Range TableModel::getModelFromRawRange(Range const& range, bool nearest) const {
    return spaces().convert(range, Raw, Model, nearest);
}

Range TableModel::getRawFromUserRange(Range const& range) const {
    return spaces().convert(range, User, Raw);
}

Range TableModel::getUserFromRawRange(Range const& range) const {
    return spaces().convert(range, Raw, User);
}

Range TableModel::getModelFromUserRange(Range const& range) const {
    return spaces().convert(range, User, Model);
}

Range TableModel::getUserFromModelRange(Range const& range) const {
    return spaces().convert(range, Model, User);
}

Range TableModel::convertRangeIndex(Range const& range, RangeIndexType target) const {
    return spaces().convertRange(range, target);
}

RangeVector TableModel::convertRangeIndex(RangeVector const& ranges, RangeIndexType target) const {
    return spaces().convertRange(ranges, target);
}

TableModel::Indexes TableModel::convertRowIndexType(Indexes const& rows, RangeIndexType target,
                                                    RangeIndexType source) const {
    return spaces().convertList(Axis::Rows, rows, target, source);
}

TableModel::Indexes TableModel::convertColIndexType(Indexes const& cols, RangeIndexType target,
                                                    RangeIndexType source) const {
    return spaces().convertList(Axis::Columns, cols, target, source);
}
