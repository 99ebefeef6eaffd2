#include "storage/LineSizeStore.h"

#include <algorithm>
#include <cstdlib>

namespace {

int packFitted(int size) {
    return std::max(size, 0) + 1;
}

int packByHand(int size) {
    return -packFitted(size);
}

int unpack(int value) {
    return std::abs(value) - 1;
}

/// What a line adds to the total of those with a size of their own.
std::int64_t sizeOf(int value) {
    return value == 0 ? 0 : unpack(value);
}

} // namespace

int LineSizeStore::at(int raw) const {
    return raw >= 0 && raw < end() ? packed[std::size_t(raw)] : 0;
}

void LineSizeStore::set(int raw, int value) {
    if (raw < 0 || (value == 0 && raw >= end()))
        return;
    if (raw >= end())
        packed.resize(std::size_t(raw) + 1, 0);
    int& line = packed[std::size_t(raw)];
    sized += (value != 0) - (line != 0);
    total += sizeOf(value) - sizeOf(line);
    line = value;
    trim();
}

void LineSizeStore::recount() {
    sized = 0;
    total = 0;
    for (int const value : packed) {
        sized += value != 0;
        total += sizeOf(value);
    }
}

void LineSizeStore::trim() {
    while (!packed.empty() && packed.back() == 0)
        packed.pop_back();
    if (packed.empty())
        packed.shrink_to_fit();
}

int LineSizeStore::nextSized(int raw) const {
    auto const from = packed.begin() + std::clamp(raw, 0, end());
    return int(std::find_if(from, packed.end(), [](int value) { return value != 0; }) - packed.begin());
}

std::optional<int> LineSizeStore::size(int raw) const {
    int const value = at(raw);
    return value == 0 ? std::nullopt : std::optional(unpack(value));
}

bool LineSizeStore::isByHand(int raw) const {
    return at(raw) < 0;
}

void LineSizeStore::fit(int raw, int size) {
    set(raw, packFitted(size));
}

void LineSizeStore::setByHand(int raw, int size) {
    set(raw, packByHand(size));
}

void LineSizeStore::reset(int raw) {
    set(raw, 0);
}

void LineSizeStore::resetFrom(int raw) {
    if (raw < end()) {
        packed.resize(std::size_t(std::max(raw, 0)));
        trim();
        recount();
    }
}

template <typename Change>
bool LineSizeStore::changeAll(Change change) {
    bool changed = false;
    for (int& value : packed) {
        int const wanted = value == 0 ? 0 : change(value);
        changed = changed || wanted != value;
        value = wanted;
    }
    trim();
    recount();
    return changed;
}

bool LineSizeStore::dropBelow(int leastByHand, int leastFitted) {
    return changeAll([=](int value) { return unpack(value) < (value < 0 ? leastByHand : leastFitted) ? 0 : value; });
}

bool LineSizeStore::cutAll(int most) {
    return changeAll([most](int value) {
        if (unpack(value) <= most)
            return value;
        return value < 0 ? packByHand(most) : packFitted(most);
    });
}

void LineSizeStore::insert(int raw, int count) {
    if (count > 0 && raw < end())
        packed.insert(packed.begin() + std::max(raw, 0), std::size_t(count), 0);
}

void LineSizeStore::remove(int raw, int count) {
    if (count > 0 && raw >= 0)
        take({{raw, raw + count - 1}});
}

void LineSizeStore::remove(std::vector<int> const& raws) {
    Blocks blocks;
    for (int const raw : raws) {
        if (!blocks.empty() && blocks.back().second + 1 == raw)
            ++blocks.back().second;
        else
            blocks.emplace_back(raw, raw);
    }
    take(blocks);
}

LineSizeStore LineSizeStore::take(Blocks const& blocks) {
    LineSizeStore taken;
    int numbered = 0; // of the taken lines
    int kept = blocks.empty() ? end() : std::min(blocks.front().first, end());
    for (std::size_t block = 0; block < blocks.size() && blocks[block].first < end(); ++block) {
        auto const [first, last] = blocks[block];
        for (int raw = first; raw <= std::min(last, end() - 1); ++raw)
            taken.set(numbered + raw - first, at(raw));
        numbered += last - first + 1;
        int const next = block + 1 < blocks.size() ? std::min(blocks[block + 1].first, end()) : end();
        if (last + 1 < next) {
            std::copy(packed.begin() + last + 1, packed.begin() + next, packed.begin() + kept);
            kept += next - last - 1;
        }
    }
    if (!blocks.empty())
        packed.resize(std::size_t(kept));
    trim();
    total -= taken.total;
    sized -= taken.sized;
    return taken;
}

void LineSizeStore::putBack(Blocks const& blocks, LineSizeStore const& taken) {
    if (areDefault() && taken.areDefault())
        return;
    std::vector<int> all;
    int source = 0; // of the lines that were here
    int numbered = 0;
    auto const appendOwn = [&](int until) {
        for (; int(all.size()) < until; ++source)
            all.push_back(at(source));
    };
    for (auto const& [first, last] : blocks) {
        if (source >= end() && numbered >= taken.end())
            break;
        appendOwn(first);
        for (int raw = first; raw <= last; ++raw, ++numbered)
            all.push_back(taken.at(numbered));
    }
    if (source < end())
        appendOwn(int(all.size()) + end() - source);
    packed = std::move(all);
    trim();
    recount();
}

void LineSizeStore::move(int from, int to) {
    if (from < 0 || to < 0 || std::min(from, to) >= end())
        return;
    int const last = std::max(from, to);
    packed.resize(std::max(packed.size(), std::size_t(last) + 1), 0);
    auto const line = packed.begin() + from;
    if (from < to)
        std::rotate(line, line + 1, packed.begin() + to + 1);
    else
        std::rotate(packed.begin() + to, line, line + 1);
    trim();
}

void LineSizeStore::moveOver(std::vector<int> const& raws) {
    if (raws.empty() || areDefault())
        return;
    int const moved = at(raws.front());
    for (std::size_t step = 1; step < raws.size(); ++step)
        set(raws[step - 1], at(raws[step]));
    set(raws.back(), moved);
}

void LineSizeStore::reorder(std::vector<int> const& order, int first) {
    if (first >= end())
        return;
    std::vector<int> ordered = packed;
    ordered.resize(std::max(packed.size(), std::size_t(first) + order.size()), 0);
    for (std::size_t line = 0; line < order.size(); ++line)
        ordered[std::size_t(first) + line] = at(order[line]);
    packed = std::move(ordered);
    trim();
    recount();
}
