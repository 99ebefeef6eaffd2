#include "storage/LineWriter.h"

#include "storage/ByteSearch.h"
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
    : dialect(std::move(dialectOfFile)), doubts(dialect), quoting(quotingOf(dialect)), doubtful(doubts.all()),
      sink(std::move(sinkOfLines)), capacity(bufferSize), buffer(std::make_unique_for_overwrite<char[]>(bufferSize)) {
    probes[0] = probeOf(dialect.lineFeed);
    probes[1] = probeOf(dialect.carriageReturn);
    probes[2] = probeOf(dialect.quote);
    probes[3] = hasDelimiter() ? probeOf(dialect.delimiter) : probes[0];
    probes[4] = dialect.recordSeparator.empty() ? probes[0] : probeOf(dialect.recordSeparator);
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
    bool const behindAnother = std::exchange(lineBegun, true);
    if (behindAnother && hasDelimiter())
        append(dialect.delimiter);
    doubtful = doubtful || doubts.isTorn(bytes) || (behindAnother && !hasDelimiter() && !bytes.empty()) ||
               (!std::exchange(begun, true) && CellDoubts::asFirst(bytes));
    if (dialect.shifts)
        shiftedCell(bytes);
    else
        bytesOfCell(bytes);
}

// A cell that the file had left open would take what stands behind it along.
void LineWriter::shiftedCell(std::string_view bytes) {
    std::string closed(bytes);
    closed += Iso2022Jp::closing(bytes);
    bytesOfCell(closed);
}

void LineWriter::bytesOfCell(std::string_view bytes) {
    if (quoting == Quoting::Always)
        appendQuoted(bytes);
    else
        appendProbed(bytes);
}

void LineWriter::endLine() {
    append(dialect.lineEnd);
    lineBegun = false;
}

bool LineWriter::flush() {
    if (used > 0 && !refused)
        refused = !sink({buffer.get(), used});
    used = 0;
    return !refused;
}

std::size_t LineWriter::find(std::string_view bytes, std::string const& sequence, std::size_t start) const {
    if (!dialect.shifts)
        return findUnits(bytes, sequence, dialect.unitBytes, start);
    auto const found = Iso2022Jp::findStructure(bytes.substr(start), sequence); // what was found before ends in ASCII
    return found == std::string_view::npos ? found : found + start;
}

bool LineWriter::holds(std::string_view bytes, std::string const& sequence) const {
    return !sequence.empty() && find(bytes, sequence) != std::string_view::npos;
}

bool LineWriter::needsQuotes(std::string_view bytes) const {
    return quoting != Quoting::Never &&
           (holds(bytes, dialect.delimiter) || holds(bytes, dialect.carriageReturn) || holds(bytes, dialect.lineFeed) ||
            (dialect.standard == ParsingStandard::Rfc4180 && holds(bytes, dialect.quote)));
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

void LineWriter::appendProbed(std::string_view bytes) {
    if (bytes.size() > capacity - used)
        flush();
    if (bytes.size() <= capacity && copyUnlessProbed(buffer.get() + used, bytes.data(), bytes.size(), probes)) {
        used += bytes.size();
    } else if (needsQuotes(bytes)) {
        appendQuoted(bytes);
    } else {
        doubtful = doubtful || doubts.withoutQuotes(bytes);
        append(bytes);
    }
}

void LineWriter::appendQuoted(std::string_view bytes) {
    append(dialect.quote);
    std::size_t written = 0;
    for (auto hit = dialect.quote.empty() ? std::string_view::npos : find(bytes, dialect.quote);
         hit != std::string_view::npos; hit = find(bytes, dialect.quote, written)) {
        append(bytes.substr(written, hit + dialect.quote.size() - written));
        append(dialect.quote);
        written = hit + dialect.quote.size();
    }
    append(bytes.substr(written));
    append(dialect.quote);
}
