#include "core/DialectUtilities.h"

#include "core/KeywordMatch.h"

#include <array>

namespace {

// Indexed by ParsingStandard.
constexpr std::array StandardNames = {"RFC 4180", "Delimiter Only", "All Quotes", "Sparse Quotes",
                                      "ASCII Separated Values"};

constexpr Utilities::Keyword<ParsingStandard> StandardKeys[] = {
    {"rfc4180", ParsingStandard::Rfc4180},
    {"delimiter", ParsingStandard::DelimiterOnly},
    {"allquotes", ParsingStandard::AllQuotes},
    {"sparsequotes", ParsingStandard::SparseQuotes},
    {"asciiseparated", ParsingStandard::AsciiSeparated},
};

struct LineEndingNames {
    char const* shortName;
    char const* longName;
};

// Indexed by LineEndingType.
constexpr std::array<LineEndingNames, 5> LineEndings = {{
    {"Windows", "Windows (CR LF)"},
    {"Unix", "Mac/Linux (LF)"},
    {"Unix", "Mac/Linux (LF)"},
    {"Unix", "Mac/Linux (LF)"},
    {"Record Separator", "Record Separator"},
}};

constexpr Utilities::Keyword<LineEndingType> LineEndingKeys[] = {
    {"windows", LineEndingType::Windows},
    {"unix", LineEndingType::Unix},
    {"mac", LineEndingType::Unix},
    {"linux", LineEndingType::Unix},
    {"record", LineEndingType::RecordSeparator},
    {"crlf", LineEndingType::Windows},
    {"lf", LineEndingType::Unix},
};

LineEndingNames lineEndingNames(LineEndingType type) {
    auto const index = static_cast<std::size_t>(type);
    return index < LineEndings.size() ? LineEndings[index] : LineEndingNames{"", ""};
}

} // namespace

QString Utilities::convertParsingStandardToString(ParsingStandard standard) {
    auto const index = static_cast<std::size_t>(standard);
    return QString::fromLatin1(index < StandardNames.size() ? StandardNames[index] : "Invalid standard");
}

ParsingStandard Utilities::convertParsingStringToStandard(QString const& text) {
    return matchKeyword<ParsingStandard>(text, StandardKeys, ParsingStandard::Invalid);
}

bool Utilities::parsingStandardValid(QString const& text) {
    return convertParsingStringToStandard(text) != ParsingStandard::Invalid;
}

QString Utilities::convertLineEndingTypeToShortString(LineEndingType type, bool technical) {
    if (technical)
        return type == LineEndingType::Windows ? "CRLF" : "LF";
    return QString::fromLatin1(lineEndingNames(type).shortName);
}

QString Utilities::convertLineEndingTypeToLongString(LineEndingType type) {
    return QString::fromLatin1(lineEndingNames(type).longName);
}

LineEndingType Utilities::convertLineEndingStringToType(QString const& text) {
    return matchKeyword<LineEndingType>(text, LineEndingKeys, LineEndingType::Invalid);
}

bool Utilities::lineEndingValid(QString const& text) {
    return convertLineEndingStringToType(text) != LineEndingType::Invalid;
}

LineEndingType Utilities::getLineEndingFromPlatform() {
    return LineEndingType::Unix;
}
