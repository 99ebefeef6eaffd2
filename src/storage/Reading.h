#pragma once

#include "storage/Scanner.h"

/// How a file is loaded.
struct Reading {
    using Scan = ScannerResult (*)(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect);

    Scan scan = nullptr;
    ScannerDialect dialect;
};
