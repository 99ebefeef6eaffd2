#pragma once

#include "storage/CellEnds.h"
#include "storage/CellMemory.h"

#include <cstddef>
#include <cstdint>

/// A stretch of memory that holds the bytes of many loaded rows and, behind them, the ends of their cells. Blocks are
/// aligned to their nominal size, so the block of a row is found from the row's address alone; that is why every row of
/// a block starts within the nominal size, also in a block that was made bigger for one long row.
class CellBlock {
public:
    static constexpr std::size_t nominalBytes = CellMemory::alignment;

    /// Makes a block with room for `dataBytes`; it costs no more memory than is written.
    static CellBlock* create(std::size_t dataBytes);
    static void destroy(CellBlock* block);

    /// The block in which a row starts at `rowData`.
    static CellBlock* of(char const* rowData) {
        return reinterpret_cast<CellBlock*>(reinterpret_cast<std::uintptr_t>(rowData) & ~(nominalBytes - 1));
    }

    char* data() { return reinterpret_cast<char*>(this) + sizeof(CellBlock); }
    /// The most bytes that a block of nominal size holds.
    static constexpr std::size_t nominalCapacity() { return nominalBytes - sizeof(CellBlock); }
    /// Closes the block behind its first `dataBytes`: copies the ends of all cells, `count` in number and relative to
    /// their rows, to where there is room, and gives the rest of the memory back. `longestRow` bounds the ends.
    void close(std::size_t dataBytes, std::uint64_t const* cellEnds, std::size_t count, std::uint64_t longestRow);
    void close(std::size_t dataBytes, std::uint32_t const* cellEnds, std::size_t count, std::uint64_t longestRow);

    CellEnds ends;
    std::size_t gap = 1;       ///< spare bytes between two cells
    std::size_t aliveRows = 0; ///< rows that still lie here
    std::size_t index = 0;     ///< place in the owner's list of blocks

private:
    explicit CellBlock(std::size_t bytes) : mappedBytes(bytes) {}
    ~CellBlock();

    char* begin() { return reinterpret_cast<char*>(this); }
    bool endsLieWithin() { return ends.memory() >= begin() && ends.memory() < begin() + mappedBytes; }
    template <typename End>
    void closeWith(std::size_t dataBytes, End const* cellEnds, std::size_t count, std::uint64_t longestRow);

    std::size_t mappedBytes;
};
