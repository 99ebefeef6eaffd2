#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// Ragged rows of byte cells, stored close to the size of the file. A row that came from a load lies in a block of
/// the file's bytes, cells in place behind one another with exactly one spare byte between two of them, and the block
/// holds the ends of its cells; a row that was edited has a buffer of its own with room to grow. Blocks whose last row
/// has gone are freed. Not a QObject and without knowledge of dialects; indexes are raw.
class CellRows {
public:
    CellRows();
    ~CellRows();
    CellRows(CellRows const&) = delete;
    CellRows& operator=(CellRows const&) = delete;

    /// Number of stored rows.
    std::size_t size() const;
    /// Number of stored cells of a row; 0 outside.
    std::size_t cellCount(std::size_t row) const;
    /// The bytes of a cell; empty outside. Valid until the row is changed or removed.
    std::string_view cell(std::size_t row, std::size_t col) const;

    /// Shrinks by destroying rows at the end, grows by rows without cells.
    void resize(std::size_t rows);
    void insertRows(std::size_t at, std::size_t count);
    void removeRows(std::size_t at, std::size_t count);
    /// Replaces a stored row. `cells` may point into this object, also into the same row.
    void setRow(std::size_t row, std::span<std::string_view const> cells);
    /// Writes a cell of a stored row, which grows by empty cells if it is too short. `bytes` may point into this
    /// object.
    void setCell(std::size_t row, std::size_t col, std::string_view bytes);
    /// Makes cells `at` and up of a row stand `count` further right; needs at < cellCount(row).
    void insertCells(std::size_t row, std::size_t at, std::size_t count);
    /// Removes cells; both indexes are limited to the stored ones.
    void removeCells(std::size_t row, std::size_t at, std::size_t count);
    /// Copies the content of one stored row over another.
    void copyRow(std::size_t from, std::size_t to);
    /// Orders the rows so that row i is what was row order[i]; needs a permutation. Moves no bytes.
    void permute(std::span<int const> order);
    void clear();
};
