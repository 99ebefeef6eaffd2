#pragma once

#include "storage/Iso2022Jp.h"
#include "storage/ScannerBuffer.h"
#include "storage/ScannerDialect.h"
#include "storage/ScannerMasks.h"

#include <bit>
#include <string>

/// Scans a file whose delimiter is one code unit or none, by masks of 64 units: where no quote stands at the start of a
/// cell, every delimiter and line end of a mask is the end of a cell. A cell that breaks out of its quotes is kept as
/// it stands in the file, and so is one whose quote is never closed. `Shifts` says which units count as structure.
template <typename Unit, typename Shifts = NoShifts>
class UnitScanner {
public:
    UnitScanner(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect);

    /// Returns whether the file was read to its end.
    bool run();
    std::size_t columns() const { return buffer.columns(); }
    bool isBeyondLimits() const { return beyondLimits; }

private:
    enum class State { CellStart, Unquoted, Quoted, QuoteInQuoted };
    struct Masks {
        std::uint64_t separators, lineEnds, quotes;
    };
    static constexpr std::ptrdiff_t width = sizeof(Unit);

    static Unit key(std::string const& bytes) { return bytes.size() == sizeof(Unit) ? unitAt<Unit>(bytes.data()) : 0; }
    static std::uint64_t from(std::ptrdiff_t bit) { return bit < 64 ? ~std::uint64_t(0) << bit : 0; }
    bool isDelimiter(Unit unit) const { return hasDelimiter && unit == delimiter; }
    bool isSeparator(Unit unit) const { return isDelimiter(unit) || unit == cr || unit == lf || unit == rs; }
    Masks masksAt(char const* window, std::ptrdiff_t units);

    // Each of these moves buffer.in and returns false if scanning has to stop there.
    template <typename End>
    bool scan();
    template <typename End>
    bool scanWindow(std::ptrdiff_t units);
    template <typename End>
    bool takeWindow(char* window, std::ptrdiff_t units);
    template <typename End>
    bool endCells(std::uint64_t cells, std::uint64_t lineEnds, char* window);
    template <typename End>
    bool endRow(char* lineEnd);
    template <typename End>
    bool passQuote(char* at);
    bool startRow();

    template <typename End>
    void closeQuoted(char* closing);
    template <typename End>
    void noteEnd(char* at);
    template <typename End>
    void endFile();

    ScannerBuffer buffer;
    ScannerJob const& job;
    Unit const cr, lf, rs, quote, delimiter;
    bool const hasDelimiter;
    bool const quotes;
    std::string const doubledQuote;

    [[no_unique_address]] Shifts shifts;
    State state = State::CellStart;
    char* end = nullptr;     ///< behind the last whole unit at hand
    bool rowStarted = false; ///< whether the row at hand has asked startRow()
    bool afterCr = false;    ///< the last unit seen was the CR that ended a row
    bool doubled = false;    ///< the quoted cell at hand has doubled quotes
    bool stopped = false;
    bool beyondLimits = false;
};

template <typename Unit, typename Shifts>
UnitScanner<Unit, Shifts>::UnitScanner(CellRows& rows, ScannerJob const& scannerJob, ScannerDialect const& dialect)
    : buffer(rows, scannerJob, sizeof(Unit), sizeof(Unit)), job(scannerJob), cr(key(dialect.cr)), lf(key(dialect.lf)),
      rs(key(dialect.rs)), quote(key(dialect.quote)), delimiter(key(dialect.delimiter)),
      hasDelimiter(dialect.delimiter.size() == sizeof(Unit)), quotes(dialect.quotes),
      doubledQuote(dialect.quote + dialect.quote) {}

template <typename Unit, typename Shifts>
bool UnitScanner<Unit, Shifts>::run() {
    buffer.start();
    for (;;) {
        buffer.isWide() ? scan<std::uint64_t>() : scan<std::uint32_t>();
        beyondLimits = buffer.isBeyondLimits();
        if (stopped || beyondLimits || buffer.exhausted())
            break;
        buffer.refill();
    }
    if (beyondLimits)
        buffer.finishCells();
    else if (!stopped)
        buffer.isWide() ? endFile<std::uint64_t>() : endFile<std::uint32_t>();
    beyondLimits = buffer.isBeyondLimits(); // the last row counts too
    buffer.finish();
    return !stopped;
}

template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::scan() {
    end = buffer.in + (buffer.filled - buffer.in) / width * width;
    if (buffer.in == end)
        return true;
    if (afterCr) {
        afterCr = false;
        if (unitAt<Unit>(buffer.in) == lf)
            buffer.beginRow(buffer.in += width);
    }
    if (buffer.in < end && !rowStarted && !startRow())
        return false;
    if (state == State::QuoteInQuoted && !passQuote<End>(buffer.in - width))
        return false;
    while (buffer.in < end)
        if (!scanWindow<End>(std::min<std::ptrdiff_t>(64, (end - buffer.in) / width)))
            return false;
    return true;
}

template <typename Unit, typename Shifts>
typename UnitScanner<Unit, Shifts>::Masks UnitScanner<Unit, Shifts>::masksAt(char const* window, std::ptrdiff_t units) {
    ScannerWindow<Unit> const found(window);
    std::uint64_t const valid = ~from(units) & shifts.structure(window, units);
    std::uint64_t const delimiters = hasDelimiter ? found.find(delimiter) & valid : 0;
    std::uint64_t const lineEnds = found.find(cr, lf, rs) & valid & ~delimiters;
    std::uint64_t const quoteMask = quotes ? found.find(quote) & valid & ~delimiters : 0;
    return {delimiters | lineEnds, lineEnds, quoteMask};
}

template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::scanWindow(std::ptrdiff_t units) {
    char* const window = buffer.in;
    bool const goesOn = takeWindow<End>(window, units);
    shifts.moveOn(buffer.in - window);
    return goesOn;
}

template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::takeWindow(char* window, std::ptrdiff_t units) {
    Masks const masks = masksAt(window, units);
    for (;;) {
        std::ptrdiff_t const bit = (buffer.in - window) / width;
        if (bit >= units)
            return true;
        if (state == State::Quoted) {
            std::uint64_t const closing = masks.quotes & from(bit);
            buffer.in = window + (closing ? std::countr_zero(closing) + 1 : units) * width;
            if (closing && !passQuote<End>(buffer.in - width))
                return false;
            continue;
        }
        std::uint64_t const separators = masks.separators & from(bit);
        std::uint64_t const starts = separators << 1 | std::uint64_t(state == State::CellStart) << bit;
        std::uint64_t const opening = masks.quotes & starts;
        std::ptrdiff_t const stop = opening ? std::countr_zero(opening) : units;
        if (!endCells<End>(separators & ~from(stop), masks.lineEnds, window))
            return false;
        if (opening) {
            state = State::Quoted;
            doubled = false;
            buffer.mark = window + stop * width;
            buffer.in = buffer.mark + width;
        } else {
            state = separators >> (units - 1) & 1 ? State::CellStart : State::Unquoted;
            buffer.in = std::max(buffer.in, window + units * width);
        }
    }
}

/// Ends a cell at each unit of `cells`, and a row where it is a line end too.
template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::endCells(std::uint64_t cells, std::uint64_t lineEnds, char* window) {
    End* next = buffer.nextEnd<End>();
    std::ptrdiff_t offset = window - buffer.origin();
    while (cells) {
        std::uint64_t const lowest = cells & (0 - cells);
        std::ptrdiff_t const bit = std::countr_zero(cells);
        cells ^= lowest;
        *next++ = static_cast<End>(offset + bit * width);
        if (lineEnds & lowest) {
            buffer.setNextEnd(next);
            if (!endRow<End>(window + bit * width))
                return false;
            cells &= from((buffer.in - window) / width);
            next = buffer.nextEnd<End>();
            offset = window - buffer.origin();
        }
    }
    buffer.setNextEnd(next);
    return true;
}

template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::endRow(char* lineEnd) {
    char* next = lineEnd + width;
    if (unitAt<Unit>(lineEnd) == cr) {
        if (next == end)
            afterCr = true;
        else if (unitAt<Unit>(next) == lf)
            next += width;
    }
    buffer.finishRow<End>(lineEnd, next);
    buffer.in = next;
    state = State::CellStart;
    rowStarted = false;
    return next == end || startRow();
}

template <typename Unit, typename Shifts>
bool UnitScanner<Unit, Shifts>::startRow() {
    if (buffer.in >= buffer.attention() && !buffer.mayStartRow(buffer.in))
        return false;
    if (job.stopped()) {
        stopped = true;
        return false;
    }
    if (buffer.in >= buffer.attention())
        buffer.report(buffer.in);
    rowStarted = true;
    return true;
}

/// Decides on the quote at `at` within a quoted cell by the unit behind it.
template <typename Unit, typename Shifts>
template <typename End>
bool UnitScanner<Unit, Shifts>::passQuote(char* at) {
    char* const behind = at + width;
    if (behind == end) {
        state = State::QuoteInQuoted;
        return true;
    }
    Unit const unit = unitAt<Unit>(behind);
    if (isSeparator(unit)) {
        closeQuoted<End>(at);
        if (!isDelimiter(unit))
            return endRow<End>(behind);
        state = State::CellStart;
        buffer.in = behind + width;
    } else if (unit == quote) {
        doubled = true;
        state = State::Quoted;
        buffer.in = behind + width;
    } else {
        state = State::Unquoted;
    }
    return true;
}

template <typename Unit, typename Shifts>
template <typename End>
void UnitScanner<Unit, Shifts>::closeQuoted(char* closing) {
    buffer.unquote(buffer.mark, closing, doubledQuote, doubled, Shifts::areThere);
    noteEnd<End>(closing);
    buffer.drop(closing, closing + width);
}

template <typename Unit, typename Shifts>
template <typename End>
void UnitScanner<Unit, Shifts>::noteEnd(char* at) {
    End* const next = buffer.nextEnd<End>();
    *next = static_cast<End>(at - buffer.origin());
    buffer.setNextEnd(next + 1);
}

template <typename Unit, typename Shifts>
template <typename End>
void UnitScanner<Unit, Shifts>::endFile() {
    char* const at = buffer.in;
    if (at == buffer.rowBegin)
        return;
    if (state == State::Unquoted)
        noteEnd<End>(at);
    else if (state == State::Quoted) // a separator as the last unit of an open quote gets lost
        noteEnd<End>(shifts.endsPlain() && isSeparator(unitAt<Unit>(at - width)) ? at - width : at);
    else if (state == State::QuoteInQuoted)
        closeQuoted<End>(at - width);
    buffer.finishRow<End>(at, at);
}
