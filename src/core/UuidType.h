#pragma once

#include <QString>

/// How a UUID is made. The values are stored in records: never renumber.
enum class UuidType {
    Random = 0,      ///< version 4
    TimeOrdered = 1, ///< version 7
    Invalid = 2,
};

namespace Utilities {

/// "v4" or "v7", empty for the invalid one.
QString convertUuidTypeToString(UuidType type);
/// Reads free text such as "V7" or "Random (v4)"; Invalid if it names neither version.
UuidType convertUuidStringToType(QString const& text);

} // namespace Utilities
