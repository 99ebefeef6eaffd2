#pragma once

#include "storage/CellRows.h"
#include "storage/ScannerJob.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

/// The bytes of a file on their way into rows: reads them into the block where they will stay, lets a scanner note the
/// ends of cells and rows in place, and carries an unfinished row over to the next block. Where bytes fall away (the
/// quotes of a quoted cell) what follows in the row moves left; the moves are put off and done a stretch at a time.
class ScannerBuffer {
public:
    /// `unitBytes` is the width of a code unit, `gap` the number of bytes that a delimiter leaves between two cells.
    ScannerBuffer(CellRows& rows, ScannerJob const& job, std::size_t unitBytes, std::size_t gap);
    ~ScannerBuffer();
    ScannerBuffer(ScannerBuffer const&) = delete;
    ScannerBuffer& operator=(ScannerBuffer const&) = delete;

    // Reading.

    /// Reads the start of the file and steps over its mark.
    void start();
    /// Reads more bytes behind those not yet scanned, making room first if there is none. False at the end of the file.
    bool refill();
    bool atEnd() const { return ended; }
    std::uint64_t bytesRead() const { return readBytes; }
    /// Whether there is nothing more to scan behind the bytes at hand.
    bool exhausted() const { return ended && !leaving; }

    // Scanning. Everything from `in` to `filled` is still to be scanned.

    char* in = nullptr;
    char* filled = nullptr;
    /// Where the bytes of the current row began in the file's order.
    char* rowBegin = nullptr;

    /// An address within the current row that the scanner has to find again after a refill.
    char* mark = nullptr;

    /// No row that starts before this address need ask mayStartRow() or report().
    char const* attention() const { return attentionAt; }
    /// Whether the row at `at` may start in this block. If not, scanning has to stop there until the next refill.
    bool mayStartRow(char const* at);
    /// What starts at or behind this address must call report().
    char* reportAt() const { return reportFrom; }
    void report(char const* at);

    /// Whether the ends have 64 bits instead of 32.
    bool isWide() const { return wide; }
    /// The place for the next end; room for one end per unscanned unit and one more is ensured by refill().
    template <typename End>
    End* nextEnd() {
        return reinterpret_cast<End*>(ends.get()) + endCount;
    }
    template <typename End>
    void setNextEnd(End* next) {
        endCount = static_cast<std::size_t>(next - reinterpret_cast<End*>(ends.get()));
    }
    /// What to take from an address to get the end of a cell there, relative to its row.
    char const* origin() const { return rowBegin + shift; }
    std::size_t cellsInRow() const { return endCount - rowFirstEnd; }
    /// Whether more rows, or more cells in a row, have been found than the job wants.
    bool isBeyondLimits() const {
        return rows.size() > job.limits.rows || mostCells > job.limits.columns || cellsInRow() > job.limits.columns;
    }

    /// Lets the bytes from `from` to `to` fall away.
    void drop(char* from, char* to) {
        settle(from);
        shift += to - from;
        settled = to;
    }
    /// Lets the opening quote at `first` fall away and, if `collapse` is set, halves every doubled quote between it and
    /// the closing quote at `last`; with `shifts` not in shifted characters of ISO 2022-JP. The closing quote is to be
    /// dropped when the end of the cell has been noted.
    void unquote(char* first, char* last, std::string_view doubledQuote, bool collapse, bool shifts = false);
    /// Stores the row, whose bytes end at `end`; the next begins at `next`.
    template <typename End>
    void finishRow(char* end, char* next);
    /// Stores the cells whose ends are noted as a row, in a scan that ends within it.
    void finishCells() {
        if (cellsInRow())
            wide ? finishRow<std::uint64_t>(in, in) : finishRow<std::uint32_t>(in, in);
    }
    void beginRow(char* at) {
        rowBegin = settled = at;
        mark = nullptr;
        shift = 0;
    }
    /// Stores the last rows; no call but columns() may follow.
    void finish();

    /// The greatest number of cells in a row, trailing empty ones included.
    std::size_t columns() const { return mostCells; }

private:
    void settle(char* upTo) {
        if (shift && upTo > settled)
            std::memmove(settled - shift, settled, static_cast<std::size_t>(upTo - settled));
    }
    std::size_t room() const;
    void read(std::size_t bytes);
    void makeRoom();
    void openBlock(std::size_t kept);
    void storeBlock(CellBlock* stored, std::size_t dataBytes);
    void reserveRows();
    /// Where the block's first nominal size ends, and with it the places at which a row may start.
    char const* rowsEnd() const { return reinterpret_cast<char const*>(block) + CellBlock::nominalBytes; }
    void setAttention();
    void ensureEnds();
    void widen();

    CellRows& rows;
    ScannerJob const& job;
    std::size_t const unitBytes;
    std::size_t const gap;

    CellBlock* block = nullptr;
    char* limit = nullptr; ///< end of the room for the file's bytes in the block
    bool ended = false;
    bool leaving = false;
    std::uint64_t readBytes = 0;
    std::uint64_t reportPosition = UINT64_MAX;
    char const* attentionAt = nullptr;
    char* reportFrom = nullptr;

    std::ptrdiff_t shift = 0; ///< how far bytes of the current row have to move left
    char* settled = nullptr;  ///< bytes of the row from here on have not been moved yet

    std::unique_ptr<char[]> ends;
    std::size_t endRoom = 0; ///< in bytes
    std::size_t endCount = 0;
    std::size_t rowFirstEnd = 0;
    bool wide = false;
    std::uint64_t longestRow = 0;
    std::size_t aliveRows = 0;
    std::size_t mostCells = 0;
};

template <typename End>
inline void ScannerBuffer::finishRow(char* end, char* next) {
    settle(end);
    End const* const first = reinterpret_cast<End const*>(ends.get()) + rowFirstEnd;
    std::size_t cells = cellsInRow();
    mostCells = cells > mostCells ? cells : mostCells;
    while (cells > 1 && first[cells - 1] == first[cells - 2] + gap)
        --cells;
    if (cells == 1 && first[0] == 0)
        cells = 0;
    if (cells) {
        longestRow = first[cells - 1] > longestRow ? first[cells - 1] : longestRow;
        ++aliveRows;
    }
    rows.appendLoadedRow(rowBegin, static_cast<std::uint32_t>(rowFirstEnd), static_cast<std::uint32_t>(cells));
    rowFirstEnd += cells;
    endCount = rowFirstEnd;
    beginRow(next);
}
