#include "storage/ScannerBuffer.h"

#include "storage/ByteSearch.h"
#include "storage/Iso2022Jp.h"
#include "storage/ScannerMasks.h"

#include <algorithm>
#include <climits>
#include <stdexcept>

namespace {

/// A window reads whole registers, so it may read this far behind the last byte.
constexpr std::size_t overreadBytes = ScannerWindow<std::uint32_t>::units * sizeof(std::uint32_t);
constexpr std::size_t longestMark = 4;
constexpr std::size_t leastBlockBytes = 8;
constexpr std::size_t sparedBytes = 4096; ///< room in a block for more ends than foretold
constexpr std::size_t spareEnds = 16;     ///< an end at the end of the file, and what a scanner writes in advance
constexpr std::size_t fullBlockBytes = CellBlock::nominalCapacity() - overreadBytes;

void refuseTooMany(std::size_t count) {
    if (count > INT_MAX)
        throw std::length_error("too many rows or columns.");
}

} // namespace

ScannerBuffer::ScannerBuffer(CellRows& target, ScannerJob const& scannerJob, std::size_t bytesPerUnit,
                             std::size_t gapBytes)
    : rows(target), job(scannerJob), unitBytes(bytesPerUnit), gap(std::max<std::size_t>(gapBytes, 1)) {
    if (job.progress)
        reportPosition = 0;
}

ScannerBuffer::~ScannerBuffer() {
    if (block)
        CellBlock::destroy(block);
}

void ScannerBuffer::start() {
    openBlock(0);
    in = rowBegin = settled = filled = block->data();
    while (!ended && filled < in + longestMark)
        read(std::min(room(), job.limits.readBytes));
    in += job.markLength({in, static_cast<std::size_t>(filled - in)});
    rowBegin = settled = in;
    setAttention();
    ensureEnds();
}

bool ScannerBuffer::refill() {
    if (leaving || room() == 0)
        makeRoom();
    if (!ended)
        read(std::min(room(), job.limits.readBytes));
    if (!wide && static_cast<std::uint64_t>(filled - rowBegin) > job.limits.wideRowBytes)
        widen();
    setAttention();
    ensureEnds();
    return !ended;
}

/// How many bytes may still be read into the block, so that the ends of its cells, as dense as they have been so far,
/// find room behind them.
std::size_t ScannerBuffer::room() const {
    std::size_t const left = static_cast<std::size_t>(limit - filled);
    std::size_t const scanned = static_cast<std::size_t>(in - block->data());
    if (rowFirstEnd == 0 || left > fullBlockBytes)
        return left;
    std::size_t const endBytes = static_cast<std::size_t>(CellEnds::widthFor(longestRow)) * endCount;
    std::size_t const spare = std::min(sparedBytes, job.limits.blockBytes / 512);
    if (left <= endBytes + spare)
        return 0;
    double const bytesPerByte = 1.0 + static_cast<double>(endBytes) / static_cast<double>(scanned);
    return static_cast<std::size_t>(static_cast<double>(left - endBytes - spare) / bytesPerByte);
}

void ScannerBuffer::read(std::size_t bytes) {
    std::uint64_t const untilQuitTest = ScannerJob::quitStep - readBytes % ScannerJob::quitStep;
    std::uint64_t const most = std::min(job.bytes - readBytes, untilQuitTest);
    std::size_t const asked = static_cast<std::size_t>(std::min<std::uint64_t>(bytes, most));
    std::size_t const came = asked ? job.read(filled, asked) : 0;
    filled += came;
    readBytes += came;
    ended = came == 0;
}

/// Carries what belongs to the unfinished row, and what is not scanned yet, over to a new block.
void ScannerBuffer::makeRoom() {
    refuseTooMany(cellsInRow());
    settle(in);
    std::size_t const scanned = static_cast<std::size_t>(in - rowBegin - shift);
    std::ptrdiff_t const marked = mark ? mark - rowBegin - shift : 0;
    std::size_t const unscanned = static_cast<std::size_t>(filled - in);
    CellBlock* const old = block;
    std::size_t const finished = static_cast<std::size_t>(rowBegin - old->data());
    openBlock(scanned + unscanned);
    std::memcpy(block->data(), rowBegin, scanned);
    std::memcpy(block->data() + scanned, in, unscanned);
    rowBegin = block->data();
    mark = rowBegin + marked;
    in = settled = rowBegin + scanned;
    filled = in + unscanned;
    shift = 0;
    leaving = false;
    storeBlock(old, finished);
}

/// A row that takes up much of a block gets one of twice its size, so that a row of any length is copied a bounded
/// number of times.
void ScannerBuffer::openBlock(std::size_t kept) {
    std::size_t const usual = std::clamp(job.limits.blockBytes, leastBlockBytes, fullBlockBytes);
    std::size_t const wanted = kept <= usual / 2 ? usual : 2 * kept;
    std::uint64_t const useful = kept + std::max<std::uint64_t>(job.bytes - readBytes, leastBlockBytes);
    std::size_t const bytes = static_cast<std::size_t>(std::min<std::uint64_t>(wanted, useful));
    block = CellBlock::create(bytes + overreadBytes);
    limit = block->data() + bytes;
}

/// Hands a block over to the rows that lie in it and keeps the ends of the unfinished row.
void ScannerBuffer::storeBlock(CellBlock* stored, std::size_t dataBytes) {
    if (aliveRows == 0) {
        CellBlock::destroy(stored);
    } else {
        stored->aliveRows = aliveRows;
        stored->gap = gap;
        if (wide)
            stored->close(dataBytes, reinterpret_cast<std::uint64_t const*>(ends.get()), rowFirstEnd, longestRow);
        else
            stored->close(dataBytes, reinterpret_cast<std::uint32_t const*>(ends.get()), rowFirstEnd, longestRow);
        rows.adoptBlock(stored);
    }
    std::size_t const endBytes = wide ? sizeof(std::uint64_t) : sizeof(std::uint32_t);
    endCount -= rowFirstEnd;
    std::memmove(ends.get(), ends.get() + rowFirstEnd * endBytes, endCount * endBytes);
    wide = wide && endCount;
    rowFirstEnd = aliveRows = 0;
    longestRow = 0;
    refuseTooMany(rows.size());
    refuseTooMany(mostCells);
    reserveRows();
}

/// Foretells the number of rows from those seen, to spare the copies of a growing list.
void ScannerBuffer::reserveRows() {
    double const perByte = static_cast<double>(rows.size()) / static_cast<double>(readBytes + 1);
    double const foretold = perByte * static_cast<double>(job.bytes) * 1.03;
    std::size_t const most = 8 * rows.size();
    if (rows.size() + rows.size() / 8 > rows.reserved())
        rows.reserve(std::min(most, static_cast<std::size_t>(foretold)));
}

void ScannerBuffer::finish() {
    CellBlock* const last = block;
    block = nullptr;
    storeBlock(last, static_cast<std::size_t>(rowBegin - last->data()));
}

bool ScannerBuffer::mayStartRow(char const* at) {
    leaving = at >= rowsEnd();
    return !leaving;
}

void ScannerBuffer::report(char const* at) {
    std::uint64_t const position = readBytes - static_cast<std::uint64_t>(filled - at);
    if (position < reportPosition)
        return;
    job.progress(position / ScannerJob::progressStep);
    reportPosition += ScannerJob::progressStep;
    setAttention();
}

void ScannerBuffer::setAttention() {
    std::uint64_t const scannedTo = readBytes - static_cast<std::uint64_t>(filled - in);
    if (reportPosition >= readBytes)
        reportFrom = limit + 1;
    else
        reportFrom = in + (std::max(reportPosition, scannedTo) - scannedTo);
    attentionAt = std::min<char const*>(reportFrom, rowsEnd());
}

void ScannerBuffer::unquote(char* first, char* last, std::string_view doubledQuote, bool collapse, bool shifts) {
    std::string_view const cell(first, static_cast<std::size_t>(last - first));
    auto const find = [&](std::size_t start) {
        if (!shifts)
            return findUnits(cell, doubledQuote, unitBytes, start);
        auto const found = Iso2022Jp::findStructure(cell.substr(start), doubledQuote);
        return found == std::string_view::npos ? found : found + start;
    };
    drop(first, first + unitBytes);
    if (!collapse)
        return;
    for (auto at = find(unitBytes); at != std::string_view::npos; at = find(at + doubledQuote.size()))
        drop(first + at + unitBytes, first + at + doubledQuote.size());
}

void ScannerBuffer::ensureEnds() {
    std::size_t const endBytes = wide ? sizeof(std::uint64_t) : sizeof(std::uint32_t);
    std::size_t const needed = (endCount + static_cast<std::size_t>(filled - in) / unitBytes + spareEnds) * endBytes;
    if (needed <= endRoom)
        return;
    std::size_t const bytes = std::max(needed, 2 * endRoom);
    auto grown = std::make_unique_for_overwrite<char[]>(bytes);
    if (endCount)
        std::memcpy(grown.get(), ends.get(), endCount * endBytes);
    ends = std::move(grown);
    endRoom = bytes;
}

void ScannerBuffer::widen() {
    std::size_t const bytes = (endCount + spareEnds) * sizeof(std::uint64_t);
    auto widened = std::make_unique_for_overwrite<char[]>(bytes);
    for (std::size_t i = 0; i < endCount; ++i)
        reinterpret_cast<std::uint64_t*>(widened.get())[i] = reinterpret_cast<std::uint32_t const*>(ends.get())[i];
    ends = std::move(widened);
    endRoom = bytes;
    wide = true;
}
