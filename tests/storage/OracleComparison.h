#pragma once

#include "storage/Scanner.h"
#include "tests/storage/OracleScanner.h"

#include <string_view>

/// The dialect that a scanner of the given kind and width gets. `delimiter` stands in the file's units.
ScannerDialect oracleDialect(OracleKind kind, int unitBytes, bool bigEndian, std::string const& delimiter, bool quotes);

/// Reads `file` with the program's scanner.
OracleTable scanInMemory(OracleKind kind, std::string_view file, std::size_t mark, ScannerDialect const& dialect,
                         ScannerLimits const& limits);

/// A case of a fuzzer: its first bytes choose dialect and limits, the rest is the file. Returns an empty text if
/// scanner and oracle agree, else a description.
std::string compareFuzzCase(OracleKind kind, std::string_view input);
