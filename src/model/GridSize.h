#pragma once

/// Rows and columns of a view or a table.
struct GridSize {
    int rows = 0;
    int cols = 0;
};
