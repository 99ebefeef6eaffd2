#include "tests/storage/OracleComparison.h"

#include <algorithm>
#include <cstring>
#include <sstream>

namespace {

std::string unitOf(char byte, int unitBytes, bool bigEndian) {
    std::string unit(static_cast<std::size_t>(unitBytes), '\0');
    (bigEndian ? unit.back() : unit.front()) = byte;
    return unit;
}

std::string describe(OracleTable const& table) {
    std::ostringstream text;
    text << table.numRows << " x " << table.numCols;
    for (auto const& row : table.rows) {
        text << "\n ";
        for (std::string const& cell : row) {
            text << " [";
            for (unsigned char const byte : cell)
                byte > 32 && byte < 127 ? text << byte : text << '\\' << int(byte);
            text << "]";
        }
    }
    return text.str();
}

} // namespace

ScannerDialect oracleDialect(OracleKind kind, int unitBytes, bool bigEndian, std::string const& delimiter,
                             bool quotes) {
    ScannerDialect dialect;
    dialect.unitBytes = unitBytes;
    dialect.delimiter = delimiter;
    dialect.quotes = quotes;
    dialect.cr = unitOf('\r', unitBytes, bigEndian);
    dialect.lf = unitOf('\n', unitBytes, bigEndian);
    dialect.rs = unitOf('\x1e', unitBytes, bigEndian);
    dialect.quote = unitOf('"', unitBytes, bigEndian);
    if (kind == OracleKind::NoDelimiter || kind == OracleKind::NoDelimiterMultiByte)
        dialect.delimiter.clear();
    return dialect;
}

OracleTable scanInMemory(OracleKind kind, std::string_view file, std::size_t mark, ScannerDialect const& dialect,
                         ScannerLimits const& limits) {
    ScannerDialect adapted = dialect;
    if (kind == OracleKind::NoDelimiter || kind == OracleKind::NoDelimiterMultiByte)
        adapted.quotes = false;
    if (kind == OracleKind::MultiByte)
        adapted.rs = adapted.lf;
    if (kind == OracleKind::NoDelimiterMultiByte)
        adapted.lf = adapted.rs;
    CellRows rows;
    std::size_t position = 0;
    ScannerJob job;
    job.bytes = file.size();
    job.read = [&](char* to, std::size_t bytes) {
        bytes = std::min(bytes, file.size() - position);
        std::memcpy(to, file.data() + position, bytes);
        position += bytes;
        return bytes;
    };
    job.markLength = [&](std::string_view) { return mark; };
    job.limits = limits;
    ScannerResult const result =
        kind == OracleKind::ByteSequence ? scanSequence(rows, job, adapted) : scanUnits(rows, job, adapted);
    OracleTable table;
    table.numRows = static_cast<int>(rows.size());
    table.numCols = static_cast<int>(result.columns);
    table.rows.resize(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < rows.cellCount(row); ++col)
            table.rows[row].emplace_back(rows.cell(row, col));
    return table;
}

std::string compareFuzzCase(OracleKind kind, std::string_view input) {
    constexpr std::size_t head = 5;
    if (input.size() < head)
        return {};
    auto const byte = [&](std::size_t i) { return static_cast<unsigned char>(input[i]); };
    bool const wideUnits = kind == OracleKind::MultiByte || kind == OracleKind::NoDelimiterMultiByte;
    int const unitBytes = wideUnits ? (byte(0) & 1 ? 2 : 4) : 1;
    bool const bigEndian = byte(0) & 2;
    ScannerLimits limits;
    if (byte(0) & 4)
        limits = {std::size_t(8) + byte(1) % 64, std::size_t(1) + byte(2) % 96, byte(0) & 8 ? UINT32_MAX : 10};
    std::size_t const delimiterBytes = kind == OracleKind::ByteSequence ? 2 + byte(3) % 3 : 1;
    std::string_view const file = input.substr(std::min(input.size(), head + delimiterBytes - 1));
    std::string delimiter(input.substr(head - 1, delimiterBytes));
    if (kind == OracleKind::ByteSequence && delimiter.size() < 2)
        return {};
    if (wideUnits)
        delimiter = unitOf(delimiter[0], unitBytes, bigEndian) + std::string(byte(0) & 64 ? 2 : 0, 'x');
    ScannerDialect const dialect = oracleDialect(kind, unitBytes, bigEndian, delimiter, !(byte(0) & 16));
    std::size_t const mark = byte(0) & 32 ? std::min<std::size_t>(file.size(), static_cast<std::size_t>(unitBytes)) : 0;
    OracleTable const expected = oracleScan(kind, std::string(file), mark, dialect);
    OracleTable const found = scanInMemory(kind, file, mark, dialect, limits);
    return expected == found ? std::string() : "expected " + describe(expected) + "\nfound " + describe(found);
}
