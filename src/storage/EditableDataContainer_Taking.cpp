// Taking many rows or columns out at once, and putting them back.

#include "storage/EditableDataContainer.h"

#include <algorithm>

namespace {

using Blocks = TakenRows::Blocks;

int countWithout(Blocks const& blocks, int count) {
    int remaining = count;
    for (auto const& [first, last] : blocks)
        remaining -= std::max(std::min(last + 1, count) - first, 0);
    return remaining;
}

int countWith(Blocks const& blocks, int count) {
    for (auto const& [first, last] : blocks)
        count = std::max(count, first) + last - first + 1;
    return count;
}

} // namespace

void EditableDataContainer::takeRows(TakenRows& taken, Blocks const& blocks) {
    taken.take(rows, blocks);
    numRowsStored = countWithout(blocks, numRowsStored);
}

void EditableDataContainer::takeCols(TakenCols& taken, Blocks const& blocks) {
    taken.take(rows, blocks);
    numColsStored = countWithout(blocks, numColsStored);
}

void EditableDataContainer::putBackRows(TakenRows& taken, Blocks const& blocks) {
    taken.putBack(rows, blocks);
    numRowsStored = countWith(blocks, numRowsStored);
}

void EditableDataContainer::putBackCols(TakenCols& taken, Blocks const& blocks) {
    taken.putBack(rows, blocks);
    numColsStored = countWith(blocks, numColsStored);
}
