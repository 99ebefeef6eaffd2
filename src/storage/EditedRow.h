#pragma once

#include "storage/CellEnds.h"

#include <cstddef>
#include <span>
#include <string_view>

/// The buffer of a row that was edited: one piece of heap memory with the ends of the cells and then their bytes, and
/// room for both to grow. The number of cells is kept by the owner.
class EditedRow {
public:
    /// Makes a row of `head`, `middle` and `tail`, one behind the other.
    static EditedRow* create(std::span<std::string_view const> head, std::span<std::string_view const> middle,
                             std::span<std::string_view const> tail);
    static void destroy(EditedRow* row);

    std::string_view cell(std::size_t col) const {
        std::size_t const from = start(col);
        return {bytes + from, static_cast<std::size_t>(ends.get(col)) - from};
    }
    /// Replaces cells `at` to `at + removed` by `added` if the room suffices, else does nothing and returns false.
    /// `cells` is the number of cells before; `added` must not point into this row.
    bool splice(std::size_t cells, std::size_t at, std::size_t removed, std::span<std::string_view const> added);
    bool contains(char const* address) const;

private:
    EditedRow() = default;

    std::size_t start(std::size_t col) const { return col ? static_cast<std::size_t>(ends.get(col - 1)) : 0; }

    CellEnds ends;
    std::size_t cellRoom = 0;
    char* bytes = nullptr;
    std::size_t byteRoom = 0;
};
