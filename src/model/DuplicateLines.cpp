#include "model/DuplicateLines.h"

#include "model/TableModel.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>

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

    /// Hashes in the order in which cells lie in memory, so that each byte is fetched once. Cells are joined by a
    /// hash that does not depend on where they are cut.
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
    std::string const& join(std::string& out, int raw) const {
        out.clear();
        for (int const cross : crossing)
            out.append(bytes(raw, cross));
        return out;
    }

private:
    std::string_view bytes(int raw, int cross) const {
        return rows ? data.cellBytesRaw(raw, cross) : data.cellBytesRaw(cross, raw);
    }
    static std::uint64_t added(std::uint64_t hash, std::string_view bytes) {
        for (char const byte : bytes)
            hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
        return hash;
    }

    TableData const& data;
    bool rows;
    Indexes crossing;
};

/// Appends the lines of a run of equal hashes that repeat an earlier one of the run.
void addRepeated(Indexes& repeated, LineContents const& contents, std::vector<HashedLine>::const_iterator first,
                 std::vector<HashedLine>::const_iterator last) {
    std::vector<std::string> distinct(1);
    contents.join(distinct.front(), first->raw);
    std::string joined;
    for (++first; first != last; ++first) {
        contents.join(joined, first->raw);
        if (std::find(distinct.begin(), distinct.end(), joined) == distinct.end())
            distinct.push_back(joined);
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
