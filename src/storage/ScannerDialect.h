#pragma once

#include <string>

/// What a scanner has to know of a file: the width of its code units and, as bytes of the file, the delimiter and the
/// key characters.
struct ScannerDialect {
    int unitBytes = 1;     ///< 1, 2 or 4
    std::string delimiter; ///< empty for none
    bool quotes = true;    ///< whether a quote at the start of a cell opens a quoted cell
    bool shifts = false; ///< whether the file is ISO 2022-JP, where structure counts outside of shifted characters only
    std::string cr = "\r";
    std::string lf = "\n";
    std::string rs = "\x1e";
    std::string quote = "\"";
};
