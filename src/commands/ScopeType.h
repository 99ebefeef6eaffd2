#pragma once

#include <QString>

/// What a setting acts on. The values are stored in records: never renumber.
enum class ScopeType {
    Command = 0, ///< no setting: a plain command
    Global = 1,  ///< the whole program, at once
    Table = 2,   ///< one table; the default for tables opened later
};

namespace Utilities {

/// The name of a scope as in the settings file, "Invalid" for an unknown one.
QString convertScopeToString(ScopeType scope);

} // namespace Utilities
