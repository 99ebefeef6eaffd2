#pragma once

#include "core/Enumerations.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

/// What a dialect puts around the bytes of cells, all in the encoding of the file.
struct LineDialect {
    ParsingStandard standard = ParsingStandard::Rfc4180;
    std::string delimiter; ///< empty: cells stand side by side and nothing is quoted
    std::string quote;
    std::string carriageReturn;
    std::string lineFeed;
    std::string lineEnd;
    bool shifts = false; ///< whether the file is ISO 2022-JP, as for the scanners
};

/// Turns cells into the lines of a file through one buffer, which goes to the sink when it is full. The cells are
/// bytes already; all searches in them are by bytes. A sink that refuses bytes once gets no more.
class LineWriter {
public:
    using Sink = std::function<bool(std::string_view)>;

    /// `bufferSize` in bytes; a longer stretch goes to the sink directly.
    LineWriter(LineDialect dialect, Sink sink, std::size_t bufferSize);

    bool hasDelimiter() const { return !dialect.delimiter.empty(); }
    /// Writes the next cell of the line, quoted where the standard asks for it.
    void cell(std::string_view bytes);
    void endLine();
    /// Hands over what is still held. False if the sink has refused anything so far.
    bool flush();

private:
    enum class Quoting { Never, Always, WhenSpecial };

    static Quoting quotingOf(LineDialect const& dialect);
    void shiftedCell(std::string_view bytes);
    void bytesOfCell(std::string_view bytes);
    std::size_t find(std::string_view bytes, std::string const& sequence) const;
    bool needsQuotes(std::string_view bytes) const;
    void append(std::string_view bytes);
    void appendUnlessQuoted(std::string_view bytes);
    void appendQuoted(std::string_view bytes);

    LineDialect dialect;
    Quoting quoting;
    /// Bytes of which one at least is in every sequence that asks for quotes: what has none needs no closer look.
    char probes[4];
    bool probesAreExact = false; ///< a probe found settles it
    bool delimiterDue = false;
    bool refused = false;
    Sink sink;
    std::size_t capacity;
    std::size_t used = 0;
    std::unique_ptr<char[]> buffer;
};
