#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

/// The ends of cells as an array of 2, 4 or 8 bytes each: as narrow as the longest row of the array allows. Does not
/// own the memory.
class CellEnds {
public:
    CellEnds() = default;
    CellEnds(void* memory, int bytesPerEnd) : base(static_cast<char*>(memory)), width(bytesPerEnd) {}

    /// The narrowest width that can tell the ends of a row of `rowBytes`.
    static int widthFor(std::uint64_t rowBytes) { return rowBytes <= UINT16_MAX ? 2 : rowBytes <= UINT32_MAX ? 4 : 8; }

    std::uint64_t get(std::size_t i) const {
        if (width == 2)
            return read<std::uint16_t>(i);
        if (width == 4)
            return read<std::uint32_t>(i);
        return read<std::uint64_t>(i);
    }

    void set(std::size_t i, std::uint64_t end) {
        if (width == 2)
            write(i, static_cast<std::uint16_t>(end));
        else if (width == 4)
            write(i, static_cast<std::uint32_t>(end));
        else
            write(i, end);
    }

    void* memory() const { return base; }
    int bytesPerEnd() const { return width; }

private:
    template <typename End>
    End read(std::size_t i) const {
        End end;
        std::memcpy(&end, base + i * sizeof(End), sizeof(End));
        return end;
    }
    template <typename End>
    void write(std::size_t i, End end) {
        std::memcpy(base + i * sizeof(End), &end, sizeof(End));
    }

    char* base = nullptr;
    int width = 2;
};
