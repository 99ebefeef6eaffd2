#include "storage/CellBlock.h"

#include <cstdlib>
#include <new>

namespace {

/// To give back less would break up a huge page for little.
constexpr std::size_t worthUnmapping = 128 << 10;

template <typename To, typename From>
void copyEnds(void* to, From const* from, std::size_t count) {
    auto* const ends = static_cast<To*>(to);
    for (std::size_t i = 0; i < count; ++i)
        ends[i] = static_cast<To>(from[i]);
}

} // namespace

CellBlock* CellBlock::create(std::size_t dataBytes) {
    std::size_t const bytes = CellMemory::roundedToPages(dataBytes + sizeof(CellBlock));
    return new (CellMemory::map(bytes)) CellBlock(bytes);
}

void CellBlock::destroy(CellBlock* block) {
    std::size_t const bytes = block->mappedBytes;
    block->~CellBlock();
    CellMemory::unmap(block, bytes);
}

CellBlock::~CellBlock() {
    if (!endsLieWithin())
        std::free(ends.memory());
}

void CellBlock::close(std::size_t dataBytes, std::uint64_t const* cellEnds, std::size_t count,
                      std::uint64_t longestRow) {
    closeWith(dataBytes, cellEnds, count, longestRow);
}

void CellBlock::close(std::size_t dataBytes, std::uint32_t const* cellEnds, std::size_t count,
                      std::uint64_t longestRow) {
    closeWith(dataBytes, cellEnds, count, longestRow);
}

template <typename End>
void CellBlock::closeWith(std::size_t dataBytes, End const* cellEnds, std::size_t count, std::uint64_t longestRow) {
    constexpr std::size_t aligned = sizeof(std::uint64_t);
    int const width = CellEnds::widthFor(longestRow);
    std::size_t const endBytes = count * static_cast<std::size_t>(width);
    std::size_t const endsAt = (sizeof(CellBlock) + dataBytes + aligned - 1) / aligned * aligned;
    bool const fits = endsAt + endBytes <= mappedBytes;
    void* const memory = fits ? begin() + endsAt : std::malloc(endBytes);
    if (!memory)
        throw std::bad_alloc();
    if (width == 2)
        copyEnds<std::uint16_t>(memory, cellEnds, count);
    else if (width == 4)
        copyEnds<std::uint32_t>(memory, cellEnds, count);
    else
        copyEnds<std::uint64_t>(memory, cellEnds, count);
    ends = CellEnds(memory, width);
    std::size_t const used = CellMemory::roundedToPages(fits ? endsAt + endBytes : endsAt);
    if (used + worthUnmapping <= mappedBytes) {
        CellMemory::unmap(begin() + used, mappedBytes - used);
        mappedBytes = used;
    }
}
