#pragma once

#include "storage/CellRows.h"
#include "storage/ScannerDialect.h"
#include "storage/ScannerJob.h"

#include <cstddef>

/// What a scan found beside the rows.
struct ScannerResult {
    bool finished = false;   ///< false if it was stopped
    std::size_t columns = 0; ///< the greatest number of cells in a row, trailing empty ones included
    /// Whether it ended where the limits of the job were passed. Rows and cells beyond them may have been appended.
    bool beyondLimits = false;
};

/// Appends the rows of a file to `rows`, cells being ended by a delimiter of one code unit, or none. A delimiter of
/// more units than one never matches. Rows end at each of cr, lf, rs and at cr followed by lf; cr, lf or rs may be the
/// same.
ScannerResult scanUnits(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect);

/// The same for one-byte units and a delimiter of any number of bytes.
ScannerResult scanSequence(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect);
