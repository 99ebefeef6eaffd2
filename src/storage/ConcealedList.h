#pragma once

#include <utility>
#include <vector>

/// The rows or columns that the model does not show, as sorted raw indexes, and with them the mapping between raw
/// indexes (positions in the stored table) and model indexes (positions among what is shown). There is no stored map:
/// both directions are binary searches that allocate nothing, and a table that shows everything costs nothing.
/// Knows no length: a model index past the end maps to a raw index past the end.
class ConcealedList {
public:
    using Indexes = std::vector<int>;
    using Blocks = std::vector<std::pair<int, int>>; ///< first and last line each, ascending

    Indexes const& indexes() const { return raws; }
    int size() const { return static_cast<int>(raws.size()); }
    bool contains(int raw) const;
    /// The raw index of the `model`-th shown line; -1 for a negative one.
    int toRaw(int model) const;
    /// The raw indexes of the shown lines from the `first`-th to the `last`-th, which are not negative.
    Indexes toRaw(int first, int last) const;
    /// How many lines from a shown one on stand together without a concealed one between, upwards with a `step` of -1.
    /// INT_MAX for all the rest.
    int shownRun(int raw, int step) const;
    /// The model index of a line; -1 for a concealed or negative one.
    int toModel(int raw) const;
    /// As toModel, but a concealed line answers for the nearest shown one above it (0 if there is none), and a line
    /// past the last concealed one for no more than the last of `shown` lines. 0 also where no line is shown: a line
    /// that is not negative always has an answer that can be selected.
    int toNearestModel(int raw, int shown) const;

    void conceal(Indexes added);
    void show(Indexes const& removed);
    void showAll() { raws.clear(); }

    /// Follows `count` lines inserted at `raw`: entries from there on go up.
    void shiftForInsertion(int raw, int count);
    /// Follows `count` lines removed at `raw`: entries from there on go down. Entries inside the removed stretch are
    /// not dropped; whoever removes concealed lines shows them first.
    void shiftForRemoval(int raw, int count);
    /// Follows the removal of shown lines that can lie scattered: every entry goes down by the number of lines
    /// removed below it. `removed` is sorted.
    void shiftForRemoval(Indexes const& removed);
    /// Follows the removal of whole blocks of lines and returns the entries that lay inside of them.
    Indexes removeBlocks(Blocks const& blocks);
    /// Follows the return of the blocks, `inside` being what removeBlocks gave.
    void insertBlocks(Blocks const& blocks, Indexes const& inside);

private:
    /// The number of entries below `raw`.
    int countBelow(int raw) const;

    Indexes raws;
};
