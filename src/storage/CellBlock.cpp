#include "storage/CellBlock.h"

#include <cstdlib>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace {

std::size_t roundedToPages(std::size_t bytes) {
    static std::size_t const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

void unmap(char* from, char* to) {
    if (from < to)
        munmap(from, static_cast<std::size_t>(to - from));
}

template <typename End, typename Source>
void* narrowed(Source const* ends, std::size_t count) {
    auto* memory = static_cast<End*>(std::malloc(count * sizeof(End)));
    if (!memory && count)
        throw std::bad_alloc();
    for (std::size_t i = 0; i < count; ++i)
        memory[i] = static_cast<End>(ends[i]);
    return memory;
}

template <typename Source>
CellEnds compactEnds(Source const* ends, std::size_t count, std::uint64_t longestRow) {
    int const width = CellEnds::widthFor(longestRow);
    if (width == 2)
        return {narrowed<std::uint16_t>(ends, count), width};
    if (width == 4)
        return {narrowed<std::uint32_t>(ends, count), width};
    return {narrowed<std::uint64_t>(ends, count), width};
}

} // namespace

CellBlock* CellBlock::create(std::size_t dataBytes) {
    std::size_t const bytes = roundedToPages(dataBytes + sizeof(CellBlock));
    // The kernel aligns to pages only: take enough to find an aligned stretch in it and give the rest back.
    std::size_t const reserved = bytes + nominalBytes;
    void* const memory = mmap(nullptr, reserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    char* const first = static_cast<char*>(memory);
    char* const aligned = reinterpret_cast<char*>(of(first + nominalBytes - 1));
    unmap(first, aligned);
    unmap(aligned + bytes, first + reserved);
    // Huge pages spare most of the page faults of a load; where there are none the block works all the same.
    madvise(aligned, bytes, MADV_HUGEPAGE);
    return new (aligned) CellBlock(bytes);
}

void CellBlock::destroy(CellBlock* block) {
    std::size_t const bytes = block->mappedBytes;
    block->~CellBlock();
    munmap(block, bytes);
}

CellBlock::~CellBlock() {
    std::free(ends.memory());
}

void CellBlock::trim(std::size_t dataBytes) {
    std::size_t const bytes = roundedToPages(dataBytes + sizeof(CellBlock));
    char* const start = reinterpret_cast<char*>(this);
    unmap(start + bytes, start + mappedBytes);
    mappedBytes = bytes;
}

void CellBlock::setEnds(std::uint64_t const* source, std::size_t count, std::uint64_t longestRow) {
    ends = compactEnds(source, count, longestRow);
}

void CellBlock::setEnds(std::uint32_t const* source, std::size_t count, std::uint64_t longestRow) {
    ends = compactEnds(source, count, longestRow);
}
