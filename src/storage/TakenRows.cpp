#include "storage/TakenRows.h"

#include <algorithm>
#include <utility>

void TakenRows::take(CellRows& from, Blocks const& blocks) {
    release();
    comeFrom(from);
    int const stored = static_cast<int>(from.rows.size());
    auto const at = [&](int row) { return from.rows.begin() + std::min(row, stored); };
    auto kept = blocks.empty() ? from.rows.end() : at(blocks.front().first);
    for (auto block = blocks.begin(); block != blocks.end(); ++block) {
        auto const behind = at(block->second + 1);
        rows.insert(rows.end(), at(block->first), behind);
        kept = std::move(behind, block + 1 == blocks.end() ? from.rows.end() : at((block + 1)->first), kept);
    }
    from.rows.erase(kept, from.rows.end());
}

void TakenRows::putBack(CellRows& to, Blocks const& blocks) {
    std::size_t total = to.rows.size();
    for (auto const& [first, last] : blocks)
        total += static_cast<std::size_t>(last - first + 1);
    decltype(to.rows) merged;
    merged.reserve(total);
    auto present = to.rows.begin();
    auto returning = rows.begin();
    for (auto const& [first, last] : blocks) {
        auto const missing = first - static_cast<std::ptrdiff_t>(merged.size());
        auto const next = present + std::min(missing, to.rows.end() - present);
        merged.insert(merged.end(), present, next);
        present = next;
        // Behind the stored rows, rows without content are not stored either.
        if (present == to.rows.end() && returning == rows.end())
            break;
        merged.resize(static_cast<std::size_t>(first));
        auto const count = std::min<std::ptrdiff_t>(last - first + 1, rows.end() - returning);
        merged.insert(merged.end(), returning, returning + count);
        returning += count;
        if (present != to.rows.end())
            merged.resize(static_cast<std::size_t>(last) + 1);
    }
    merged.insert(merged.end(), present, to.rows.end());
    to.rows.swap(merged);
    rows.clear();
    leaveHome();
}

void TakenRows::takeOut(CellRows& from, std::size_t row) {
    if (!home)
        comeFrom(from);
    rows.push_back(std::exchange(from.rows[row], CellRows::Row()));
}

void TakenRows::putInPlace(CellRows& to, Blocks const& places) {
    auto returning = rows.begin();
    for (auto const& [first, last] : places) {
        for (int row = first; row <= last && returning != rows.end(); ++row) {
            CellRows::Row& place = to.rows[static_cast<std::size_t>(row)];
            to.release(place);
            place = *returning++;
        }
    }
    rows.clear();
    leaveHome();
}

void TakenRows::release() {
    for (CellRows::Row& row : rows)
        home->release(row);
    rows.clear();
    leaveHome();
}

void TakenRows::comeFrom(CellRows& from) {
    home = &from;
    from.taken.push_back(this);
}

void TakenRows::leaveHome() {
    if (home)
        std::erase(home->taken, this);
    home = nullptr;
}
