// Writing many cells at once. A row is taken up once for all its new cells, so that wide rows cost by cells and not by
// cells times their width.

#include "core/CellRegion.h"
#include "storage/CellPatch.h"
#include "storage/EditableDataContainer.h"
#include "storage/ReplacedCells.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

using Views = std::vector<std::string_view>;

/// Sets a cell in a row to be, which grows for content only.
void setView(Views& row, int col, std::string_view bytes) {
    auto const at = static_cast<std::size_t>(col);
    if (at >= row.size() && !bytes.empty())
        row.resize(at + 1);
    if (at < row.size())
        row[at] = bytes;
}

/// The cells of a patch in order of the rows that they are stored in.
std::vector<std::size_t> orderByRows(CellPatch const& patch, bool transposed) {
    std::vector<std::size_t> order(patch.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    auto const rowOf = [&](std::size_t i) { return transposed ? patch.col(i) : patch.row(i); };
    auto const before = [&](std::size_t a, std::size_t b) { return rowOf(a) < rowOf(b); };
    if (!std::is_sorted(order.begin(), order.end(), before))
        std::stable_sort(order.begin(), order.end(), before);
    return order;
}

} // namespace

/// With the counts of the table, which grow if they have to.
void EditableDataContainer::storeRow(int row, std::span<std::string_view const> cells) {
    growStoredRows(row + 1);
    numColsStored = std::max(numColsStored, static_cast<int>(cells.size()));
    bool const blank = std::all_of(cells.begin(), cells.end(), [](auto bytes) { return bytes.empty(); });
    if (blank)
        rows.setBlankRow(static_cast<std::size_t>(row), cells.size());
    else
        rows.setRow(static_cast<std::size_t>(row), cells);
}

void EditableDataContainer::exchange(CellPatch& patch, bool transposed) {
    CellPatch before;
    before.reserve(patch.size(), patch.byteCount());
    before.setLossyCells(patch.lossyCells());
    std::vector<std::size_t> const order = orderByRows(patch, transposed);
    Views cells;
    for (auto first = order.begin(); first != order.end();) {
        int const row = transposed ? patch.col(*first) : patch.row(*first);
        auto const colOf = [&](std::size_t i) { return transposed ? patch.row(i) : patch.col(i); };
        auto const last = std::find_if(
            first, order.end(), [&](std::size_t i) { return (transposed ? patch.col(i) : patch.row(i)) != row; });
        int changes = 0;
        auto changed = first;
        for (auto cell = first; cell != last; ++cell) {
            std::string_view const present = cellView(row, colOf(*cell));
            before.add(patch.row(*cell), patch.col(*cell), present);
            if (present != patch.newBytes(*cell)) {
                ++changes;
                changed = cell;
            }
        }
        if (changes == 1) {
            std::string_view const bytes = patch.newBytes(*changed);
            setValue(row, colOf(*changed), Bytes(bytes.begin(), bytes.end()));
        } else if (changes > 1) {
            cells.resize(static_cast<std::size_t>(cellsInRow(row)));
            for (std::size_t col = 0; col < cells.size(); ++col)
                cells[col] = rows.cell(static_cast<std::size_t>(row), col);
            for (auto cell = first; cell != last; ++cell)
                setView(cells, colOf(*cell), patch.newBytes(*cell));
            storeRow(row, cells);
        }
        first = last;
    }
    patch = std::move(before);
}

void EditableDataContainer::fill(CellRegion const& cells, std::string_view bytes, ReplacedCells& old) {
    old.storedRows = storedRows();
    std::vector<CellRect> const rects = cells.rects();
    RowScratch scratch;
    for (auto band = rects.begin(); band != rects.end();) {
        auto const behind =
            std::find_if(band, rects.end(), [band](CellRect const& rect) { return rect.top != band->top; });
        // What is not stored is empty already.
        int const last = bytes.empty() ? std::min(band->bottom, storedRows() - 1) : band->bottom;
        for (int row = std::max(band->top, 0); row <= last; ++row)
            fillRow(row, {band, behind}, bytes, old, scratch);
        band = behind;
    }
}

void EditableDataContainer::fillRow(int row, std::span<CellRect const> runs, std::string_view bytes, ReplacedCells& old,
                                    RowScratch& scratch) {
    auto& [before, after, changed] = scratch;
    auto const stored = static_cast<std::size_t>(row);
    before.resize(static_cast<std::size_t>(cellsInRow(row)));
    std::size_t held = 0; // bytes of the row
    for (std::size_t col = 0; col < before.size(); ++col) {
        before[col] = rows.cell(stored, col);
        held += before[col].size();
    }
    auto const cellBefore = [&before = before](int col) {
        auto const at = static_cast<std::size_t>(col);
        return at < before.size() ? before[at] : std::string_view();
    };
    after = before;
    changed.clear();
    std::size_t lost = 0;
    for (CellRect const& run : runs) {
        int const last = bytes.empty() ? std::min(run.right, static_cast<int>(before.size()) - 1) : run.right;
        for (int col = std::max(run.left, 0); col <= last; ++col) {
            if (cellBefore(col) == bytes)
                continue;
            lost += cellBefore(col).size();
            changed.push_back(col);
            setView(after, col, bytes);
        }
    }
    if (changed.empty())
        return;
    // A row that loses most of its bytes is kept as it is, which needs no more than copies of them would. Rows that
    // were not stored go again as a whole.
    bool const keepsRow = 2 * lost >= held && row < old.storedRows;
    if (!keepsRow && row < old.storedRows) {
        for (int const col : changed)
            old.cells.add(row, col, cellBefore(col));
    }
    if (keepsRow)
        old.keepRow(rows, row);
    else if (changed.size() == 1 && after.size() == before.size())
        return rows.setCell(stored, static_cast<std::size_t>(changed.front()), bytes);
    storeRow(row, after);
}

void EditableDataContainer::putBack(ReplacedCells& old) {
    exchange(old.cells, false);
    old.rows.putInPlace(rows, old.places);
    // Empty rows at the end make lines in a file only if they are stored.
    if (old.storedRows < storedRows())
        rows.resize(static_cast<std::size_t>(old.storedRows));
    old.cells = CellPatch();
    old.places.clear();
}
