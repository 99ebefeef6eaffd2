#include "storage/ConcealedList.h"

#include <algorithm>
#include <climits>
#include <iterator>

int ConcealedList::countBelow(int raw) const {
    return static_cast<int>(std::lower_bound(raws.begin(), raws.end(), raw) - raws.begin());
}

bool ConcealedList::contains(int raw) const {
    return std::binary_search(raws.begin(), raws.end(), raw);
}

int ConcealedList::toRaw(int model) const {
    if (model < 0)
        return -1;
    // raws[i] - i is the model index that the first shown line behind entry i has, and never falls with i. The answer
    // lies behind as many entries as have it at or before `model`.
    int low = 0;
    int high = size();
    while (low < high) {
        int const middle = low + (high - low) / 2;
        if (raws[static_cast<std::size_t>(middle)] - middle <= model)
            low = middle + 1;
        else
            high = middle;
    }
    return model + low;
}

ConcealedList::Indexes ConcealedList::toRaw(int first, int last) const {
    Indexes lines;
    int raw = toRaw(first);
    auto concealed = std::upper_bound(raws.begin(), raws.end(), raw);
    for (int model = first; model <= last; ++model, ++raw) {
        for (; concealed != raws.end() && *concealed == raw; ++concealed)
            ++raw;
        lines.push_back(raw);
    }
    return lines;
}

int ConcealedList::shownRun(int raw, int step) const {
    auto const next = raws.begin() + countBelow(raw);
    if (step > 0)
        return next == raws.end() ? INT_MAX : *next - raw;
    return next == raws.begin() ? INT_MAX : raw - *(next - 1);
}

int ConcealedList::toModel(int raw) const {
    if (raw < 0)
        return -1;
    int const below = countBelow(raw);
    bool const concealed = below < size() && raws[static_cast<std::size_t>(below)] == raw;
    return concealed ? -1 : raw - below;
}

int ConcealedList::toNearestModel(int raw, int shown) const {
    if (raw < 0)
        return -1;
    int const below = countBelow(raw);
    if (below == size())
        return std::max(std::min(raw - below, shown - 1), 0);
    bool const concealed = raws[static_cast<std::size_t>(below)] == raw;
    return concealed ? std::max(raw - below - 1, 0) : raw - below;
}

void ConcealedList::conceal(Indexes added) {
    std::sort(added.begin(), added.end());
    auto const middle = raws.insert(raws.end(), added.begin(), added.end());
    std::inplace_merge(raws.begin(), middle, raws.end());
    raws.erase(std::unique(raws.begin(), raws.end()), raws.end());
}

void ConcealedList::show(Indexes const& removed) {
    Indexes sorted = removed;
    std::sort(sorted.begin(), sorted.end());
    std::erase_if(raws, [&](int raw) { return std::binary_search(sorted.begin(), sorted.end(), raw); });
}

void ConcealedList::shiftForInsertion(int raw, int count) {
    std::for_each(raws.begin() + countBelow(raw), raws.end(), [&](int& entry) { entry += count; });
}

void ConcealedList::shiftForRemoval(int raw, int count) {
    shiftForInsertion(raw, -count);
}

void ConcealedList::shiftForRemoval(Indexes const& removed) {
    auto next = removed.begin();
    for (int& entry : raws) {
        next = std::find_if(next, removed.end(), [&](int gone) { return gone > entry; });
        entry -= static_cast<int>(next - removed.begin());
    }
}

ConcealedList::Indexes ConcealedList::removeBlocks(Blocks const& blocks) {
    Indexes inside;
    Indexes outside;
    auto block = blocks.begin();
    int removed = 0;
    for (int const raw : raws) {
        for (; block != blocks.end() && block->second < raw; ++block)
            removed += block->second - block->first + 1;
        if (block != blocks.end() && block->first <= raw)
            inside.push_back(raw);
        else
            outside.push_back(raw - removed);
    }
    raws = std::move(outside);
    return inside;
}

void ConcealedList::insertBlocks(Blocks const& blocks, Indexes const& inside) {
    auto block = blocks.begin();
    int inserted = 0;
    for (int& raw : raws) {
        for (; block != blocks.end() && block->first <= raw + inserted; ++block)
            inserted += block->second - block->first + 1;
        raw += inserted;
    }
    conceal(inside);
}
