#include "core/UuidType.h"

#include "core/KeywordMatch.h"

namespace {

constexpr Utilities::Keyword<UuidType> versions[] = {
    {"v4", UuidType::Random},
    {"v7", UuidType::TimeOrdered},
};

} // namespace

QString Utilities::convertUuidTypeToString(UuidType type) {
    for (auto const& [key, value] : versions) {
        if (value == type)
            return QLatin1String(key);
    }
    return QString();
}

UuidType Utilities::convertUuidStringToType(QString const& text) {
    return matchKeyword<UuidType>(text, versions, UuidType::Invalid);
}
