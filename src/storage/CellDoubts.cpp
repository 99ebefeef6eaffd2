#include "storage/CellDoubts.h"

#include "storage/ByteSearch.h"

#include <algorithm>

namespace {

/// What a load looks for in cells that a standard writes without quotes.
struct Unguarded {
    bool separators = false; ///< delimiters and ends of lines
    bool quotes = false;     ///< at the start of the cell
};

Unguarded unguardedBy(LineDialect const& dialect) {
    if (dialect.delimiter.empty())
        return {true, false};
    switch (dialect.standard) {
    case ParsingStandard::Rfc4180:
    case ParsingStandard::AllQuotes: return {false, false};
    case ParsingStandard::SparseQuotes: return {false, true};
    case ParsingStandard::DelimiterOnly: return {true, false};
    default: return {true, true};
    }
}

/// Whether a delimiter can begin within the end of a cell and end within the delimiter behind it.
bool overlapsItself(std::string const& delimiter) {
    for (std::size_t from = 1; from < delimiter.size(); ++from)
        if (delimiter.starts_with(std::string_view(delimiter).substr(from)))
            return true;
    return false;
}

/// Whether the delimiter of the file has another meaning for those who read it, or none.
bool confuses(LineDialect const& dialect) {
    auto const& delimiter = dialect.delimiter;
    if (dialect.shifts)
        return true; // a look at each shift would be no cheaper
    if (dialect.unitBytes > 1 && delimiter.size() != dialect.unitBytes)
        return true;
    auto const keys = {dialect.quote, dialect.carriageReturn, dialect.lineFeed, dialect.recordSeparator};
    return std::any_of(keys.begin(), keys.end(), [&](std::string const& key) {
        return !key.empty() && delimiter.find(key) != std::string::npos;
    });
}

} // namespace

CellDoubts::CellDoubts(LineDialect const& dialect) : unitBytes(dialect.unitBytes), allCells(confuses(dialect)) {
    auto const unguarded = unguardedBy(dialect);
    sequences = {dialect.recordSeparator};
    if (unguarded.separators)
        sequences.insert(sequences.end(), {dialect.carriageReturn, dialect.lineFeed, dialect.delimiter});
    if (overlapsItself(dialect.delimiter))
        sequences.push_back(dialect.delimiter.substr(0, unitBytes));
    std::erase(sequences, std::string());
    if (unguarded.quotes)
        opening = dialect.quote;
}

bool CellDoubts::withoutQuotes(std::string_view bytes) const {
    if (!opening.empty() && bytes.starts_with(opening))
        return true;
    return std::any_of(sequences.begin(), sequences.end(), [&](std::string const& sequence) {
        return findUnits(bytes, sequence, unitBytes) != std::string_view::npos;
    });
}

// The first bytes of the marks of UTF-8, UTF-16 and UTF-32. Behind an empty cell the delimiter might be one.
bool CellDoubts::asFirst(std::string_view bytes) {
    using namespace std::string_view_literals;
    return bytes.empty() || bytes.starts_with('\xEF') || bytes.starts_with('\xFE') || bytes.starts_with('\xFF') ||
           bytes.starts_with("\0\0"sv);
}
