#include "storage/Scanner.h"

#include "storage/SequenceScanner.h"
#include "storage/UnitScanner.h"

namespace {

template <typename Kind>
ScannerResult scan(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect) {
    Kind scanner(rows, job, dialect);
    bool const finished = scanner.run();
    return {finished, scanner.columns(), scanner.isBeyondLimits()};
}

} // namespace

ScannerResult scanUnits(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect) {
    if (dialect.shifts)
        return scan<UnitScanner<std::uint8_t, Iso2022JpShifts>>(rows, job, dialect);
    if (dialect.unitBytes == 1)
        return scan<UnitScanner<std::uint8_t>>(rows, job, dialect);
    if (dialect.unitBytes == 2)
        return scan<UnitScanner<std::uint16_t>>(rows, job, dialect);
    return scan<UnitScanner<std::uint32_t>>(rows, job, dialect);
}

ScannerResult scanSequence(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect) {
    return scan<SequenceScanner>(rows, job, dialect);
}
