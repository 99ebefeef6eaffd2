#pragma once

#include "storage/CellDoubts.h"
#include "storage/LineDialect.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

/// Turns cells into the lines of a file through one buffer, which goes to the sink when it is full. The cells are
/// bytes already. A sink that refuses bytes once gets no more.
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
    /// Whether a load might make something else of a cell that was written since the last call.
    bool takeDoubts() { return std::exchange(doubtful, doubts.all()); }

private:
    enum class Quoting { Never, Always, WhenSpecial };

    static Quoting quotingOf(LineDialect const& dialect);
    void shiftedCell(std::string_view bytes);
    void bytesOfCell(std::string_view bytes);
    std::size_t find(std::string_view bytes, std::string const& sequence, std::size_t start = 0) const;
    bool needsQuotes(std::string_view bytes) const;
    bool holds(std::string_view bytes, std::string const& sequence) const;
    void append(std::string_view bytes);
    void appendProbed(std::string_view bytes);
    void appendQuoted(std::string_view bytes);

    LineDialect dialect;
    CellDoubts doubts;
    Quoting quoting;
    /// Bytes of which one at least is in all that asks for quotes or is doubtful without: what has none needs no closer
    /// look.
    char probes[5];
    bool begun = false;
    bool lineBegun = false;
    bool doubtful;
    bool refused = false;
    Sink sink;
    std::size_t capacity;
    std::size_t used = 0;
    std::unique_ptr<char[]> buffer;
};
