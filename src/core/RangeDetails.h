#pragma once

#include <QSharedData>
#include <QVariant>

#include <utility>
#include <vector>

/// What most ranges have none of: contents and exclusions. It lies beside the range, shared by its copies until one of
/// them is written to; the members are told of at the accessors of Range.
struct RangeDetails : public QSharedData {
    QVariant value;
    QVariant oldValue;
    std::vector<QVariant> lineValues;
    std::vector<QVariant> lineOldValues;
    std::vector<std::vector<QVariant>> tableValues;
    std::vector<std::vector<QVariant>> tableOldValues;
    std::vector<int> excludedRows;
    std::vector<int> excludedCols;
    std::vector<std::pair<int, int>> excludedCells;
};
