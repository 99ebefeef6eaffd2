#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

/// How high the rows or how wide the columns of a table are, in pixels, by their raw index: the one owner of these
/// sizes, which go where their lines go. A line without a size of its own has the default, which is not kept here;
/// a table in which all have it costs nothing, whatever its length. Knows no length: a line behind the last sized one
/// has the default.
class LineSizeStore {
public:
    using Blocks = std::vector<std::pair<int, int>>; ///< first and last line each, ascending and apart

    bool areDefault() const { return packed.empty(); }
    /// The line behind the last one with a size of its own.
    int end() const { return int(packed.size()); }
    /// How many lines have a size of their own, and what these make together.
    int sizedCount() const { return sized; }
    std::int64_t sizedTotal() const { return total; }
    /// The first line from `raw` on with a size of its own; end() if there is none.
    int nextSized(int raw) const;
    /// No value for the default.
    std::optional<int> size(int raw) const;
    /// Whether the user has given the line its size.
    bool isByHand(int raw) const;

    /// A size by the contents of the line.
    void fit(int raw, int size);
    void setByHand(int raw, int size);
    void reset(int raw);
    /// From the line on all have the default.
    void resetFrom(int raw);
    void clear() { *this = LineSizeStore(); }
    /// Lines smaller than that fall back to the default; other bounds hold for those that the user has sized. True if
    /// any has.
    bool dropBelow(int leastByHand, int leastFitted);
    /// Lines larger than `most` get it. True if any has.
    bool cutAll(int most);

    // The lines of the table change.

    void insert(int raw, int count);
    void remove(int raw, int count);
    /// The lines that are removed can lie scattered, and are ascending.
    void remove(std::vector<int> const& raws);
    /// Takes the lines of the blocks out. The answer numbers them through, from 0 on.
    LineSizeStore take(Blocks const& blocks);
    /// Puts lines back to where they were taken.
    void putBack(Blocks const& blocks, LineSizeStore const& taken);
    void move(int from, int to);
    /// Moves the first of the lines to where the last is, and each of the others to where the one before it was.
    void moveOver(std::vector<int> const& raws);
    /// Line first + i is what was line order[i].
    void reorder(std::vector<int> const& order, int first = 0);

private:
    int at(int raw) const;
    void set(int raw, int value);
    void trim();
    void recount();
    template <typename Change>
    bool changeAll(Change change);

    // The size plus one, negative if it was set by hand; 0 for the default. Four bytes a line: a fit sizes millions.
    std::vector<int> packed;
    int sized = 0;
    std::int64_t total = 0;
};
