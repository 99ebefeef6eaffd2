#pragma once

#include <QChar>

/// What stands behind the label of the line by which a table is sorted.
namespace SortMarks {

constexpr QChar ascending(0x2191);
constexpr QChar descending(0x2193);

} // namespace SortMarks
