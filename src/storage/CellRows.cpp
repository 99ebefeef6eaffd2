#include "storage/CellRows.h"

#include "storage/TakenRows.h"

#include <algorithm>
#include <stdexcept>
#include <string>

CellRows::~CellRows() {
    clear();
}

void CellRows::resize(std::size_t count) {
    if (count < rows.size())
        removeRows(count, rows.size() - count);
    else
        rows.resize(count);
}

void CellRows::insertRows(std::size_t at, std::size_t count) {
    rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(at), count, Row());
}

void CellRows::removeRows(std::size_t at, std::size_t count) {
    if (at >= rows.size())
        return;
    count = std::min(count, rows.size() - at);
    auto const first = rows.begin() + static_cast<std::ptrdiff_t>(at);
    auto const last = first + static_cast<std::ptrdiff_t>(count);
    std::for_each(first, last, [this](Row& row) { release(row); });
    rows.erase(first, last);
}

void CellRows::setRow(std::size_t row, std::span<std::string_view const> cells) {
    splice(row, 0, rows[row].cells, cells);
}

void CellRows::setCell(std::size_t row, std::size_t col, std::string_view bytes) {
    Row const& target = rows[row];
    if (col >= target.cells) {
        std::vector<std::string_view> added(col - target.cells + 1);
        added.back() = bytes;
        return splice(row, target.cells, 0, added);
    }
    std::string_view const old = target.cell(col);
    if (old.size() == bytes.size()) {
        if (!bytes.empty())
            std::memmove(const_cast<char*>(old.data()), bytes.data(), bytes.size());
        return;
    }
    splice(row, col, 1, {&bytes, 1});
}

void CellRows::insertCells(std::size_t row, std::size_t at, std::size_t count) {
    splice(row, at, 0, std::vector<std::string_view>(count));
}

void CellRows::removeCells(std::size_t row, std::size_t at, std::size_t count) {
    Row& target = rows[row];
    if (at >= target.cells || count == 0)
        return;
    count = std::min<std::size_t>(count, target.cells - at);
    if (at + count == target.cells && at > 0)
        target.cells = static_cast<std::uint32_t>(at);
    else
        splice(row, at, count, {});
}

void CellRows::setBlankRow(std::size_t row, std::size_t cells) {
    release(rows[row]);
    rows[row].cells = static_cast<std::uint32_t>(cells);
}

void CellRows::copyRow(std::size_t from, std::size_t to) {
    if (from == to)
        return;
    std::vector<std::string_view> cells(rows[from].cells);
    for (std::size_t col = 0; col < cells.size(); ++col)
        cells[col] = rows[from].cell(col);
    setRow(to, cells);
}

void CellRows::permute(std::span<int const> order, std::size_t first) {
    Rows ordered(order.size());
    for (std::size_t i = 0; i < ordered.size(); ++i)
        ordered[i] = rows[static_cast<std::size_t>(order[i])];
    std::copy(ordered.begin(), ordered.end(), rows.begin() + static_cast<std::ptrdiff_t>(first));
}

void CellRows::clear() {
    while (!taken.empty())
        taken.back()->release();
    if (editedRows)
        for (Row const& row : rows)
            if (row.isEdited())
                EditedRow::destroy(row.editedRow());
    editedRows = 0;
    for (CellBlock* block : blocks)
        CellBlock::destroy(block);
    blocks.clear();
    Rows().swap(rows);
}

void CellRows::adoptBlock(CellBlock* block) {
    block->index = blocks.size();
    blocks.push_back(block);
}

void CellRows::release(Row& row) {
    if (row.isEdited()) {
        EditedRow::destroy(row.editedRow());
        --editedRows;
    } else if (row.data) {
        CellBlock* const block = CellBlock::of(row.data);
        if (--block->aliveRows == 0) {
            blocks[block->index] = blocks.back();
            blocks[block->index]->index = block->index;
            blocks.pop_back();
            CellBlock::destroy(block);
        }
    }
    row = Row();
}

/// Replaces cells `at` to `at + removed` of a row by `added`, which may point anywhere.
void CellRows::splice(std::size_t row, std::size_t at, std::size_t removed, std::span<std::string_view const> added) {
    Row& target = rows[row];
    std::size_t const cells = target.cells - removed + added.size();
    if (cells > INT32_MAX)
        throw std::length_error("too many cells in a row.");
    if (cells == 0)
        return release(target);
    bool const aliased = std::any_of(added.begin(), added.end(), [&](auto bytes) { return pointsInto(target, bytes); });
    if (target.isEdited() && !aliased && target.editedRow()->splice(target.cells, at, removed, added)) {
        target.cells = static_cast<std::uint32_t>(cells);
        return;
    }
    std::vector<std::string_view> kept;
    kept.reserve(target.cells - removed);
    for (std::size_t col = 0; col < target.cells; ++col)
        if (col < at || col >= at + removed)
            kept.push_back(target.cell(col));
    std::span<std::string_view const> const all(kept);
    EditedRow* const content = EditedRow::create(all.first(at), added, all.subspan(at));
    replaceByEdited(target, content, cells);
}

void CellRows::replaceByEdited(Row& row, EditedRow* content, std::size_t cells) {
    release(row);
    row = {reinterpret_cast<char*>(content), Row::edited, static_cast<std::uint32_t>(cells)};
    ++editedRows;
}

bool CellRows::pointsInto(Row const& row, std::string_view bytes) const {
    return row.isEdited() && !bytes.empty() && row.editedRow()->contains(bytes.data());
}
