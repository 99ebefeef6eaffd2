#include "storage/EditedRow.h"

#include <cstdlib>
#include <functional>
#include <new>

namespace {

std::size_t totalBytes(std::span<std::string_view const> cells) {
    std::size_t total = 0;
    for (std::string_view const cell : cells)
        total += cell.size();
    return total;
}

/// Room for half as much again makes a series of growing edits linear; the first copy of a row gets a little only,
/// because edits of a whole column leave many such rows.
std::size_t withRoom(std::size_t size, std::size_t least) {
    return size + size / 8 + least;
}

void copyBytes(char* to, std::string_view from) {
    if (!from.empty())
        std::memcpy(to, from.data(), from.size());
}

} // namespace

EditedRow* EditedRow::create(std::span<std::string_view const> head, std::span<std::string_view const> middle,
                             std::span<std::string_view const> tail) {
    std::size_t const byteRoom = withRoom(totalBytes(head) + totalBytes(middle) + totalBytes(tail), 8);
    std::size_t const cellRoom = withRoom(head.size() + middle.size() + tail.size(), 1);
    int const width = CellEnds::widthFor(byteRoom);
    std::size_t const endBytes = cellRoom * static_cast<std::size_t>(width);
    void* const memory = std::malloc(sizeof(EditedRow) + endBytes + byteRoom);
    if (!memory)
        throw std::bad_alloc();
    auto* const row = new (memory) EditedRow;
    char* const behind = static_cast<char*>(memory) + sizeof(EditedRow);
    row->ends = CellEnds(behind, width);
    row->cellRoom = cellRoom;
    row->bytes = behind + endBytes;
    row->byteRoom = byteRoom;
    std::size_t count = 0;
    std::size_t used = 0;
    for (auto const& part : {head, middle, tail}) {
        for (std::string_view const cell : part) {
            copyBytes(row->bytes + used, cell);
            used += cell.size();
            row->ends.set(count++, used);
        }
    }
    return row;
}

void EditedRow::destroy(EditedRow* row) {
    std::free(row);
}

bool EditedRow::splice(std::size_t cells, std::size_t at, std::size_t removed,
                       std::span<std::string_view const> added) {
    std::size_t const used = start(cells);
    std::size_t const from = start(at);
    std::size_t const to = start(at + removed);
    std::size_t const addedBytes = totalBytes(added);
    if (cells - removed + added.size() > cellRoom || used - (to - from) + addedBytes > byteRoom)
        return false;
    std::memmove(bytes + from + addedBytes, bytes + to, used - to);
    auto moveEnd = [&](std::size_t i) { ends.set(i - removed + added.size(), ends.get(i) - to + from + addedBytes); };
    if (added.size() > removed)
        for (std::size_t i = cells; i-- > at + removed;)
            moveEnd(i);
    else
        for (std::size_t i = at + removed; i < cells; ++i)
            moveEnd(i);
    std::size_t position = from;
    for (std::size_t i = 0; i < added.size(); ++i) {
        copyBytes(bytes + position, added[i]);
        position += added[i].size();
        ends.set(at + i, position);
    }
    return true;
}

bool EditedRow::contains(char const* address) const {
    return !std::less<>()(address, bytes) && std::less<>()(address, bytes + byteRoom);
}
