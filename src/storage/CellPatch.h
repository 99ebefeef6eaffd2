#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// New bytes for single cells anywhere in a table, packed close to one another. TableData::exchange writes them, and
/// then the patch holds what the cells had before: a second exchange takes the first back.
class CellPatch {
public:
    /// Each cell may be added once. Rows and columns are raw. `loses` tells that the bytes are not all of the text that
    /// they stand for.
    void add(int row, int col, std::string_view newBytes, bool loses = false) {
        if (loses)
            lossy.emplace_back(row, col);
        places.push_back({row, col});
        bytes.append(newBytes);
        ends.push_back(bytes.size());
    }
    bool empty() const { return places.empty(); }
    std::size_t size() const { return places.size(); }
    std::size_t byteCount() const { return bytes.size(); }
    int row(std::size_t i) const { return places[i].row; }
    int col(std::size_t i) const { return places[i].col; }
    std::string_view newBytes(std::size_t i) const {
        std::size_t const start = i ? ends[i - 1] : 0;
        return std::string_view(bytes).substr(start, ends[i] - start);
    }
    /// The cells that were added with `loses`; an exchange keeps them.
    std::vector<std::pair<int, int>> const& lossyCells() const { return lossy; }
    void setLossyCells(std::vector<std::pair<int, int>> const& cells) { lossy = cells; }
    void reserve(std::size_t cells, std::size_t byteCount) {
        places.reserve(cells);
        ends.reserve(cells);
        bytes.reserve(byteCount);
    }

private:
    struct Place {
        int row;
        int col;
    };

    std::vector<Place> places;
    std::vector<std::pair<int, int>> lossy;
    std::vector<std::uint64_t> ends;
    std::string bytes;
};
