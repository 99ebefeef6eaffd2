#pragma once

#include "storage/Iso2022Jp.h"
#include "storage/ScannerBuffer.h"
#include "storage/ScannerDialect.h"

#include <optional>
#include <string>

/// Scans a file of one-byte units whose delimiter is a sequence of bytes. Delimiters, line ends and single bytes are
/// tokens: a delimiter inside a quoted cell is one too, and hides a quote that it contains. Unlike in the other
/// scanners a delimiter at the end of the file is followed by one more cell.
class SequenceScanner {
public:
    SequenceScanner(CellRows& rows, ScannerJob const& job, ScannerDialect const& dialect);

    /// Returns whether the file was read to its end.
    bool run();
    std::size_t columns() const { return buffer.columns(); }
    bool isBeyondLimits() const { return beyondLimits; }

private:
    enum class State { CellStart, Unquoted, Quoted, QuoteInQuoted };

    template <typename End>
    void scan();
    template <typename End>
    bool scanUntil(char* stop);
    template <typename End>
    bool takeTokens(char* window, std::uint64_t special);
    template <typename End>
    bool takeToken(char* at);
    template <typename End>
    bool endCell(char* at, State atState, bool endsRow);
    void takeQuote(char* at, State atState);
    State stateAt(char const* at) const;
    template <typename End>
    void noteEnd(char* at);
    template <typename End>
    void endFile();
    bool quitDue() const;

    ScannerBuffer buffer;
    ScannerJob const& job;
    std::string const delimiter;
    bool const quotes;
    std::optional<Iso2022JpShifts> shifts;
    bool beyondLimits = false;
    bool rowEnded = false; ///< whether any row has ended yet

    // As of `stateFrom`: a cell start or a quote in a quoted cell is one only for what stands right there.
    State state = State::CellStart;
    char* stateFrom = nullptr;
};
