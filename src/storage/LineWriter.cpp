#include "storage/LineWriter.h"

#include "storage/Iso2022Jp.h"
#include "storage/ProbedCopy.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

/// A byte that tells a sequence of a wide encoding apart: the first that is not zero.
char probeOf(std::string const& sequence) {
    auto const found = sequence.find_first_not_of('\0');
    return found == std::string::npos ? '\0' : sequence[found];
}

} // namespace

LineWriter::LineWriter(LineDialect dialectOfFile, Sink sinkOfLines, std::size_t bufferSize)
    : dialect(std::move(dialectOfFile)), quoting(quotingOf(dialect)), sink(std::move(sinkOfLines)),
      capacity(bufferSize), buffer(std::make_unique_for_overwrite<char[]>(bufferSize)) {
    bool const quoteIsSpecial = dialect.standard == ParsingStandard::Rfc4180;
    probes[0] = probeOf(dialect.delimiter);
    probes[1] = probeOf(dialect.carriageReturn);
    probes[2] = probeOf(dialect.lineFeed);
    probes[3] = quoteIsSpecial ? probeOf(dialect.quote) : probes[2];
    probesAreExact = dialect.delimiter.size() == 1 && dialect.quote.size() == 1 && !dialect.shifts;
}

LineWriter::Quoting LineWriter::quotingOf(LineDialect const& dialect) {
    if (dialect.delimiter.empty())
        return Quoting::Never;
    switch (dialect.standard) {
    case ParsingStandard::AllQuotes: return Quoting::Always;
    case ParsingStandard::Rfc4180:
    case ParsingStandard::SparseQuotes: return Quoting::WhenSpecial;
    default: return Quoting::Never;
    }
}

void LineWriter::cell(std::string_view bytes) {
    if (std::exchange(delimiterDue, hasDelimiter()))
        append(dialect.delimiter);
    if (dialect.shifts)
        shiftedCell(bytes);
    else
        bytesOfCell(bytes);
}

/// A cell that the file had left open would take what stands behind it along.
void LineWriter::shiftedCell(std::string_view bytes) {
    std::string closed(bytes);
    closed += Iso2022Jp::closing(bytes);
    bytesOfCell(closed);
}

void LineWriter::bytesOfCell(std::string_view bytes) {
    switch (quoting) {
    case Quoting::Never: append(bytes); break;
    case Quoting::Always: appendQuoted(bytes); break;
    case Quoting::WhenSpecial: appendUnlessQuoted(bytes); break;
    }
}

void LineWriter::endLine() {
    append(dialect.lineEnd);
    delimiterDue = false;
}

bool LineWriter::flush() {
    if (used > 0 && !refused)
        refused = !sink({buffer.get(), used});
    used = 0;
    return !refused;
}

std::size_t LineWriter::find(std::string_view bytes, std::string const& sequence) const {
    return dialect.shifts ? Iso2022Jp::findStructure(bytes, sequence) : bytes.find(sequence);
}

bool LineWriter::needsQuotes(std::string_view bytes) const {
    auto const contains = [&](std::string const& sequence) {
        return !sequence.empty() && find(bytes, sequence) != std::string_view::npos;
    };
    return contains(dialect.delimiter) || contains(dialect.carriageReturn) || contains(dialect.lineFeed) ||
           (dialect.standard == ParsingStandard::Rfc4180 && contains(dialect.quote));
}

void LineWriter::append(std::string_view bytes) {
    if (bytes.size() > capacity - used) {
        flush();
        if (bytes.size() > capacity) {
            refused = refused || !sink(bytes);
            return;
        }
    }
    if (bytes.size() == 1)
        buffer[used] = bytes.front();
    else
        std::copy(bytes.begin(), bytes.end(), buffer.get() + used);
    used += bytes.size();
}

void LineWriter::appendUnlessQuoted(std::string_view bytes) {
    if (bytes.size() > capacity - used)
        flush();
    if (bytes.size() <= capacity && copyUnlessProbed(buffer.get() + used, bytes.data(), bytes.size(), probes))
        used += bytes.size();
    else if ((probesAreExact && bytes.size() <= capacity) || needsQuotes(bytes))
        appendQuoted(bytes);
    else
        append(bytes);
}

void LineWriter::appendQuoted(std::string_view bytes) {
    append(dialect.quote);
    if (!dialect.quote.empty()) {
        for (auto hit = find(bytes, dialect.quote); hit != std::string_view::npos; hit = find(bytes, dialect.quote)) {
            append(bytes.substr(0, hit + dialect.quote.size()));
            append(dialect.quote);
            bytes.remove_prefix(hit + dialect.quote.size());
        }
    }
    append(bytes);
    append(dialect.quote);
}
