#include "storage/CellMemory.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>

namespace {

void giveBack(char* from, char* to) {
    if (from < to)
        munmap(from, static_cast<std::size_t>(to - from));
}

} // namespace

std::size_t CellMemory::roundedToPages(std::size_t bytes) {
    static std::size_t const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page * page;
}

void* CellMemory::map(std::size_t bytes) {
    bytes = roundedToPages(bytes);
    // The kernel aligns to small pages only: take enough to find an aligned stretch in it and give the rest back.
    std::size_t const reserved = bytes + alignment;
    void* const memory = mmap(nullptr, reserved, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED)
        throw std::bad_alloc();
    char* const first = static_cast<char*>(memory);
    char* const aligned = first + (alignment - reinterpret_cast<std::uintptr_t>(first) % alignment) % alignment;
    giveBack(first, aligned);
    giveBack(aligned + bytes, first + reserved);
    madvise(aligned, bytes, MADV_HUGEPAGE);
    return aligned;
}

void CellMemory::unmap(void* memory, std::size_t bytes) {
    munmap(memory, roundedToPages(bytes));
}
