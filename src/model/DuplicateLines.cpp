#include "model/DuplicateLines.h"

#include "model/TableModel.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string_view>

namespace {

using Indexes = std::vector<int>;

struct HashedLine {
    std::uint64_t hash;
    int line; ///< Model
    int raw;
};

class LineContents {
public:
    LineContents(TableModel const& model, Axis axis, Indexes const* mask)
        : data(model.getTableData()), rows(axis == Axis::Rows) {
        if (mask) {
            crossing = *mask;
        } else {
            crossing.resize(std::size_t(rows ? model.columnCountRaw() : model.rowCountRaw()));
            std::iota(crossing.begin(), crossing.end(), 0);
        }
    }

    /// Hashes in the order in which cells lie in memory, so that each byte is fetched once.
    void hash(std::vector<HashedLine>& lines) const {
        bool const linesAreStored = rows != data.isTransposed();
        if (linesAreStored) {
            for (HashedLine& line : lines) {
                for (int const cross : crossing)
                    line.hash = added(line.hash, bytes(line.raw, cross));
            }
        } else {
            for (int const cross : crossing) {
                for (HashedLine& line : lines)
                    line.hash = added(line.hash, bytes(line.raw, cross));
            }
        }
    }
    bool areEqual(int rawA, int rawB) const {
        return std::all_of(crossing.begin(), crossing.end(),
                           [=, this](int cross) { return bytes(rawA, cross) == bytes(rawB, cross); });
    }

private:
    std::string_view bytes(int raw, int cross) const {
        return rows ? data.cellBytesRaw(raw, cross) : data.cellBytesRaw(cross, raw);
    }
    static std::uint64_t added(std::uint64_t hash, std::string_view bytes) {
        constexpr std::uint64_t prime = 0x100000001b3U;
        constexpr std::uint64_t endOfCell = 0x100; // no byte
        for (char const byte : bytes)
            hash = (hash ^ static_cast<unsigned char>(byte)) * prime;
        return (hash ^ endOfCell) * prime;
    }

    TableData const& data;
    bool rows;
    Indexes crossing;
};

/// Appends the lines of a run of equal hashes that repeat an earlier one of the run.
void addRepeated(Indexes& repeated, LineContents const& contents, std::vector<HashedLine>::const_iterator first,
                 std::vector<HashedLine>::const_iterator last) {
    Indexes distinct{first->raw};
    for (++first; first != last; ++first) {
        bool const isNew = std::none_of(distinct.begin(), distinct.end(),
                                        [&](int earlier) { return contents.areEqual(earlier, first->raw); });
        if (isNew)
            distinct.push_back(first->raw);
        else
            repeated.push_back(first->line);
    }
}

} // namespace

std::vector<int> findDuplicateLines(TableModel const& model, Axis axis, std::vector<int> const* crossing) {
    bool const rows = axis == Axis::Rows;
    TableData const& data = model.getTableData();
    int const first = rows ? model.getNumVisibleHeaderRows() : model.getNumHeaderCols();
    int const count = rows ? model.rowCountModel() : model.columnCountModel();
    LineContents const contents(model, axis, crossing);
    std::vector<HashedLine> lines;
    for (int line = first; line < count; ++line)
        lines.push_back(
            {0xcbf29ce484222325U, line, rows ? data.getRawFromModelRow(line) : data.getRawFromModelCol(line)});
    contents.hash(lines);
    std::sort(lines.begin(), lines.end(), [](HashedLine const& a, HashedLine const& b) {
        return a.hash != b.hash ? a.hash < b.hash : a.line < b.line;
    });

    Indexes repeated;
    for (auto run = lines.cbegin(); run != lines.cend();) {
        auto const end =
            std::find_if(run, lines.cend(), [run](HashedLine const& line) { return line.hash != run->hash; });
        if (end - run > 1)
            addRepeated(repeated, contents, run, end);
        run = end;
    }
    std::sort(repeated.begin(), repeated.end());
    return repeated;
}
