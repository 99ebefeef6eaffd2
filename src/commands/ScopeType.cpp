#include "commands/ScopeType.h"

#include <array>

QString Utilities::convertScopeToString(ScopeType scope) {
    // Indexed by ScopeType.
    constexpr std::array names = {"Command", "Global", "Table"};
    auto const index = static_cast<std::size_t>(scope);
    return QLatin1String(index < names.size() ? names[index] : "Invalid");
}
