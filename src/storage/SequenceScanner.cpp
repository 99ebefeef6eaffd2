#include "storage/SequenceScanner.h"

#include "storage/ScannerMasks.h"

#include <algorithm>
#include <bit>

SequenceScanner::SequenceScanner(CellRows& rows, ScannerJob const& scannerJob, ScannerDialect const& dialect)
    : buffer(rows, scannerJob, 1, dialect.delimiter.size()), job(scannerJob), delimiter(dialect.delimiter),
      quotes(dialect.quotes) {
    if (dialect.shifts)
        shifts.emplace();
}

bool SequenceScanner::run() {
    buffer.start();
    bool stopped = job.stopped();
    while (!stopped) {
        buffer.isWide() ? scan<std::uint64_t>() : scan<std::uint32_t>();
        stopped = quitDue() && job.stopped();
        beyondLimits = buffer.isBeyondLimits();
        if (beyondLimits || buffer.exhausted())
            break;
        buffer.refill();
    }
    if (stopped || beyondLimits)
        buffer.finishCells();
    else
        buffer.isWide() ? endFile<std::uint64_t>() : endFile<std::uint32_t>();
    beyondLimits = buffer.isBeyondLimits(); // the last row counts too
    buffer.finish();
    return !stopped;
}

bool SequenceScanner::quitDue() const {
    return buffer.exhausted() || (buffer.bytesRead() && buffer.bytesRead() % ScannerJob::quitStep == 0);
}

/// Scans all tokens that are sure to be whole.
template <typename End>
void SequenceScanner::scan() {
    std::ptrdiff_t const carry =
        buffer.atEnd() ? 0 : static_cast<std::ptrdiff_t>(std::max<std::size_t>(delimiter.size(), 2)) - 1;
    stateFrom = buffer.in;
    while (buffer.filled - buffer.in > carry) {
        if (buffer.in >= buffer.reportAt())
            buffer.report(buffer.in);
        char* const next = std::max(buffer.reportAt(), buffer.in + 1);
        char* const stop = std::min(next, buffer.filled - carry);
        if (!scanUntil<End>(stop))
            break;
    }
    state = stateAt(buffer.in);
}

/// Takes the tokens that start before `stop`.
template <typename End>
bool SequenceScanner::scanUntil(char* stop) {
    while (buffer.in < stop) {
        char* const window = buffer.in;
        std::ptrdiff_t const bytes = std::min<std::ptrdiff_t>(64, stop - window);
        ScannerWindow<unsigned char> const found(window);
        std::uint64_t special = found.find(delimiter[0], '"', '\r', '\n', '\x1e');
        if (bytes < 64)
            special &= (std::uint64_t(1) << bytes) - 1;
        if (shifts)
            special &= shifts->structure(window, bytes);
        bool const goesOn = takeTokens<End>(window, special);
        if (goesOn)
            buffer.in = std::max(buffer.in, window + bytes);
        if (shifts)
            shifts->moveOn(buffer.in - window);
        if (!goesOn)
            return false;
    }
    return true;
}

template <typename End>
bool SequenceScanner::takeTokens(char* window, std::uint64_t special) {
    for (; special; special &= special - 1) {
        char* const at = window + std::countr_zero(special);
        if (at >= buffer.in && !takeToken<End>(at))
            return false;
    }
    return true;
}

SequenceScanner::State SequenceScanner::stateAt(char const* at) const {
    bool const passing = state == State::CellStart || state == State::QuoteInQuoted;
    return passing && at != stateFrom ? State::Unquoted : state;
}

/// Takes the token at `at`, one that is not sure to be an ordinary byte, and moves on behind it.
template <typename End>
bool SequenceScanner::takeToken(char* at) {
    std::size_t const left = static_cast<std::size_t>(buffer.filled - at);
    State const atState = stateAt(at);
    if (left >= delimiter.size() && std::memcmp(at, delimiter.data(), delimiter.size()) == 0) {
        buffer.in = at + delimiter.size();
        return endCell<End>(at, atState, false);
    }
    buffer.in = at + 1;
    switch (*at) {
    case '\r': buffer.in += left > 1 && at[1] == '\n'; [[fallthrough]];
    case '\n':
    case '\x1e': return endCell<End>(at, atState, true);
    case '"': takeQuote(at, atState); break;
    default: break;
    }
    return true;
}

/// Ends a cell at a separator unless it stands in a quoted one. False if no row may start behind it in this block.
template <typename End>
bool SequenceScanner::endCell(char* at, State atState, bool endsRow) {
    if (atState == State::Quoted)
        return true;
    if (atState == State::QuoteInQuoted)
        buffer.unquote(buffer.mark, at - 1, "\"\"", true, shifts.has_value());
    noteEnd<End>(atState == State::QuoteInQuoted ? at - 1 : at);
    if (atState == State::QuoteInQuoted)
        buffer.drop(at - 1, at);
    state = State::CellStart;
    stateFrom = buffer.in;
    if (!endsRow)
        return true;
    buffer.finishRow<End>(at, buffer.in);
    rowEnded = true;
    return buffer.in < buffer.attention() || buffer.mayStartRow(buffer.in);
}

void SequenceScanner::takeQuote(char* at, State atState) {
    if (atState == State::CellStart) {
        state = quotes ? State::Quoted : State::Unquoted;
        buffer.mark = at;
    } else if (atState == State::Quoted) {
        state = State::QuoteInQuoted;
        stateFrom = at + 1;
    } else if (atState == State::QuoteInQuoted) {
        state = State::Quoted;
    }
}

template <typename End>
void SequenceScanner::noteEnd(char* at) {
    End* const next = buffer.nextEnd<End>();
    *next = static_cast<End>(at - buffer.origin());
    buffer.setNextEnd(next + 1);
}

template <typename End>
void SequenceScanner::endFile() {
    if (buffer.in == buffer.rowBegin && rowEnded)
        return;
    stateFrom = buffer.in;
    // A quote that is still open is kept with all that follows it.
    endCell<End>(buffer.in, state == State::Quoted ? State::Unquoted : state, true);
}
