#pragma once

/// How large a table is: stored lines, and those of them that are not concealed.
struct TableSize {
    int rawRows = 0;
    int rawCols = 0;
    int modelRows = 0;
    int modelCols = 0;

    bool operator==(TableSize const&) const = default;

    /// Lets the table reach as far as the (Model) cell.
    void growTo(int row, int col) {
        grow(rawRows, modelRows, row);
        grow(rawCols, modelCols, col);
    }

private:
    static void grow(int& raw, int& model, int line) {
        int const missing = line + 1 - model;
        if (missing > 0) {
            raw += missing;
            model += missing;
        }
    }
};
