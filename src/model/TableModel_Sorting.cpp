// Sorting.

#include "core/IndexUtilities.h"
#include "model/TableModel.h"

#include <algorithm>
#include <utility>

void TableModel::setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex) {
    tableData.setCancelPointers(std::move(flag), std::move(mutex));
}

TableModel::Indexes TableModel::getSortIndexes(SortData const& sort) {
    constexpr int sortedAtOnce = 50000;
    bool const rows = sort.axis == Axis::Rows;
    int const count = rows ? rowCountRaw() : columnCountRaw();
    int const start = std::min(rows ? getNumHeaderRows() : getNumHeaderCols(), count);
    Indexes order;
    tableData.getSortIndexes(order, sort.index, sort.axis, sort.sortType, start, count - start > sortedAtOnce);
    return order;
}

// A sort of the rows carries the row along by which the columns are sorted, and the other way round.
void TableModel::sortLines(Indexes const& order, SortData const& sort) {
    bool const rows = sort.axis == Axis::Rows;
    tableData.sortLines(sort.axis, order);
    SortData other = rows ? colSortData : rowSortData;
    if (other.index >= 0 && other.index < int(order.size()))
        other.index = Utilities::invertSortIndexesVector(order)[static_cast<std::size_t>(other.index)];
    setRowSortData(rows ? sort : other);
    setColSortData(rows ? other : sort);
    emit updateStatusBarSignal();
}

void TableModel::unsortLines(Indexes const& order, Axis axis) {
    bool const rows = axis == Axis::Rows;
    tableData.unsortLines(axis, order);
    SortData other = rows ? colSortData : rowSortData;
    if (other.index >= 0 && other.index < int(order.size()))
        other.index = order[static_cast<std::size_t>(other.index)];
    SortData const none{SortType::None, axis, -1};
    setRowSortData(rows ? none : other);
    setColSortData(rows ? other : none);
    emit updateStatusBarSignal();
}
