#pragma once

#include "storage/CellBlock.h"
#include "storage/EditedRow.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

class TakenRows;

/// Ragged rows of byte cells, stored close to the size of the file. A row that came from a load lies in a block of
/// the file's bytes, cells in place behind one another, and the block holds the ends of its cells; a row that was
/// edited has a buffer of its own with room to grow. Blocks whose last row has gone are freed. Not a QObject and
/// without knowledge of dialects; indexes are raw.
class CellRows {
public:
    CellRows() = default;
    ~CellRows();
    CellRows(CellRows const&) = delete;
    CellRows& operator=(CellRows const&) = delete;

    /// Number of stored rows.
    std::size_t size() const { return rows.size(); }
    /// Number of stored cells of a row; 0 outside.
    std::size_t cellCount(std::size_t row) const { return row < rows.size() ? rows[row].cells : 0; }
    /// The bytes of a cell; empty outside. Valid until the row is changed or removed.
    std::string_view cell(std::size_t row, std::size_t col) const {
        return row < rows.size() && col < rows[row].cells ? rows[row].cell(col) : std::string_view();
    }

    /// Whether a cell is not empty, without a look at its bytes.
    bool holdsBytes(std::size_t row, std::size_t col) const {
        return row < rows.size() && col < rows[row].cells && !rows[row].cell(col).empty();
    }

    /// Shrinks by destroying rows at the end, grows by rows without cells.
    void resize(std::size_t count);
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
    /// Makes a stored row one of so many empty cells, which take no memory.
    void setBlankRow(std::size_t row, std::size_t cells);
    /// Copies the content of one stored row over another.
    void copyRow(std::size_t from, std::size_t to);
    /// Orders rows so that row first + i is what was row order[i]; needs a permutation of stored rows that follow one
    /// another from `first` on. Moves no bytes.
    void permute(std::span<int const> order, std::size_t first = 0);
    void clear();

    // Loading: whole blocks of rows are appended at the end.

    /// A hint that about `count` rows will be stored in all.
    void reserve(std::size_t count) { rows.reserve(count); }
    std::size_t reserved() const { return rows.capacity(); }
    /// Appends a row whose bytes start at `data` in a block, its ends at `firstEnd` of the block's ends.
    void appendLoadedRow(char* data, std::uint32_t firstEnd, std::uint32_t cells) {
        rows.push_back(cells ? Row{data, firstEnd, cells} : Row{});
    }
    /// Takes over a block of which all rows have been appended and counted; no other call may come between.
    void adoptBlock(CellBlock* block);
    /// Number of blocks held.
    std::size_t blockCount() const { return blocks.size(); }

private:
    friend class TakenRows;
    struct Row {
        char* data = nullptr; ///< first byte in a block, or the edited row; null for a row of empty cells
        std::uint32_t firstEnd = 0;
        std::uint32_t cells = 0;

        static constexpr std::uint32_t edited = UINT32_MAX; ///< as firstEnd: the row has a buffer of its own
        bool isEdited() const { return firstEnd == edited; }
        EditedRow* editedRow() const { return reinterpret_cast<EditedRow*>(data); }
        std::string_view cell(std::size_t col) const;
    };

    void release(Row& row);
    void splice(std::size_t row, std::size_t at, std::size_t removed, std::span<std::string_view const> added);
    void replaceByEdited(Row& row, EditedRow* content, std::size_t cells);
    bool pointsInto(Row const& row, std::string_view bytes) const;

    using Rows = std::vector<Row, CellMemory::Allocator<Row>>;

    Rows rows;
    std::vector<CellBlock*> blocks;
    std::vector<TakenRows*> taken; ///< whose rows still have their bytes here
    std::size_t editedRows = 0;    ///< also among the taken rows
};

inline std::string_view CellRows::Row::cell(std::size_t col) const {
    if (isEdited())
        return editedRow()->cell(col);
    if (!data)
        return {};
    CellBlock const* const block = CellBlock::of(data);
    std::uint64_t const from = col ? block->ends.get(firstEnd + col - 1) + block->gap : 0;
    return {data + from, static_cast<std::size_t>(block->ends.get(firstEnd + col) - from)};
}
