#pragma once

#include <cstddef>
#include <new>

/// Memory straight from the system for the great stretches of a table: in huge pages where there are any, which spares
/// most of the page faults of a load, and given back as soon as it is freed.
namespace CellMemory {

/// The size and alignment of a huge page.
constexpr std::size_t alignment = std::size_t(2) << 20;

/// `bytes` rounded up to whole pages.
std::size_t roundedToPages(std::size_t bytes);
/// Zeroed memory aligned to `alignment`; throws std::bad_alloc if there is none.
void* map(std::size_t bytes);
void unmap(void* memory, std::size_t bytes);

/// An allocator that takes large arrays from here and small ones from the heap.
template <typename T>
struct Allocator {
    using value_type = T;
    static constexpr std::size_t largeBytes = alignment / 2;

    Allocator() = default;
    template <typename U>
    Allocator(Allocator<U> const&) {}

    T* allocate(std::size_t count) {
        std::size_t const bytes = count * sizeof(T);
        return static_cast<T*>(bytes < largeBytes ? ::operator new(bytes) : map(bytes));
    }
    void deallocate(T* memory, std::size_t count) {
        std::size_t const bytes = count * sizeof(T);
        bytes < largeBytes ? ::operator delete(memory) : unmap(memory, bytes);
    }
    bool operator==(Allocator const&) const = default;
};

} // namespace CellMemory
