#pragma once

#include "storage/ScannerDialect.h"

#include <string>
#include <vector>

/// The five ways to read a table, one byte at a time and with no thought of speed: what the scanners are held against.
struct OracleTable {
    std::vector<std::vector<std::string>> rows; ///< without trailing empty cells
    int numRows = 0;
    int numCols = 0;

    void setValue(int row, int col, std::string const& value);
    bool operator==(OracleTable const&) const = default;
};

enum class OracleKind { OneByte, NoDelimiter, MultiByte, NoDelimiterMultiByte, ByteSequence };

/// Reads `file`, which has no mark or one of `mark` bytes.
OracleTable oracleScan(OracleKind kind, std::string const& file, std::size_t mark, ScannerDialect const& dialect);
