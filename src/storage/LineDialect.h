#pragma once

#include "core/Enumerations.h"

#include <cstddef>
#include <string>

/// What a dialect puts around the bytes of cells, all in the encoding of the file.
struct LineDialect {
    ParsingStandard standard = ParsingStandard::Rfc4180;
    std::string delimiter; ///< empty: cells stand side by side and nothing is quoted
    std::string quote;
    std::string carriageReturn;
    std::string lineFeed;
    std::string lineEnd;
    std::string recordSeparator; ///< also an end of line for those who read the file; empty where it is none
    std::size_t unitBytes = 1;   ///< 1, 2 or 4; characters are found at whole units of a cell
    bool shifts = false;         ///< whether the file is ISO 2022-JP, as for the scanners
};
