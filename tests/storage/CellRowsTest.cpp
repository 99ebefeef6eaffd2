#include "storage/CellRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>

namespace {

using Model = std::vector<std::vector<std::string>>;

/// Appends rows as a load does, a few to a block, with `gap` spare bytes between cells.
void load(CellRows& rows, Model const& content, unsigned gap, std::size_t rowsPerBlock) {
    for (std::size_t first = 0; first < content.size(); first += rowsPerBlock) {
        CellBlock* const block = CellBlock::create(10000);
        char* out = block->data();
        std::vector<std::uint32_t> ends;
        for (std::size_t row = first; row < std::min(first + rowsPerBlock, content.size()); ++row) {
            char* const start = out;
            std::size_t const firstEnd = ends.size();
            for (std::string const& cell : content[row]) {
                out = std::copy(cell.begin(), cell.end(), out);
                ends.push_back(static_cast<std::uint32_t>(out - start));
                out += gap;
            }
            rows.appendLoadedRow(start, static_cast<std::uint32_t>(firstEnd),
                                 static_cast<std::uint32_t>(content[row].size()));
            block->aliveRows += !content[row].empty();
        }
        block->close(static_cast<std::size_t>(out - block->data()), ends.data(), ends.size(), 10000);
        block->gap = gap;
        if (block->aliveRows)
            rows.adoptBlock(block);
        else
            CellBlock::destroy(block);
    }
}

Model contentOf(CellRows const& rows) {
    Model content(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < rows.cellCount(row); ++col)
            content[row].emplace_back(rows.cell(row, col));
    return content;
}

Model someRows(std::mt19937& random, std::size_t count) {
    Model content(count);
    for (auto& row : content) {
        row.resize(random() % 6);
        for (std::string& cell : row)
            cell.assign(random() % 12, static_cast<char>('a' + random() % 26));
    }
    return content;
}

/// One random edit, done to the rows and to a plain model of them.
void edit(CellRows& rows, Model& model, std::mt19937& random) {
    std::size_t const row = random() % model.size();
    std::size_t const cells = model[row].size();
    std::size_t const other = random() % model.size();
    std::size_t const count = 1 + random() % 3;
    auto const at = static_cast<std::ptrdiff_t>(row);
    switch (random() % 9) {
    case 0: {
        std::size_t const col = random() % 8;
        std::string const text(random() % 300, 'x');
        rows.setCell(row, col, text);
        model[row].resize(std::max(cells, col + 1));
        model[row][col] = text;
        break;
    }
    case 1: { // a cell taken from the table itself
        std::size_t const col = random() % 8;
        std::size_t const from = random() % 4;
        std::string const text(rows.cell(other, from));
        rows.setCell(row, col, rows.cell(other, from));
        model[row].resize(std::max(cells, col + 1));
        model[row][col] = text;
        break;
    }
    case 2:
        if (cells) {
            std::size_t const col = random() % cells;
            rows.insertCells(row, col, count);
            model[row].insert(model[row].begin() + static_cast<std::ptrdiff_t>(col), count, "");
        }
        break;
    case 3: {
        std::size_t const col = random() % 6;
        rows.removeCells(row, col, count);
        auto const first = model[row].begin() + static_cast<std::ptrdiff_t>(std::min(col, cells));
        model[row].erase(first, model[row].begin() + static_cast<std::ptrdiff_t>(std::min(col + count, cells)));
        break;
    }
    case 4: { // the row's own cells, reversed
        std::vector<std::string_view> reversed;
        for (std::size_t col = cells; col-- > 0;)
            reversed.push_back(rows.cell(row, col));
        rows.setRow(row, reversed);
        std::reverse(model[row].begin(), model[row].end());
        break;
    }
    case 5:
        rows.copyRow(row, other);
        model[other] = Model::value_type(model[row]);
        break;
    case 6:
        rows.insertRows(row, count);
        model.insert(model.begin() + at, count, {});
        break;
    case 7:
        if (model.size() > 20) {
            rows.removeRows(row, count);
            model.erase(model.begin() + at, model.begin() + std::min(at + static_cast<std::ptrdiff_t>(count),
                                                                     static_cast<std::ptrdiff_t>(model.size())));
        }
        break;
    default: {
        std::vector<int> order(model.size());
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), random);
        rows.permute(order);
        Model ordered;
        for (int const i : order)
            ordered.push_back(model[static_cast<std::size_t>(i)]);
        model = ordered;
    }
    }
}

TEST(CellRows, EditsOfLoadedRowsEqualThoseOfPlainRows) {
    for (unsigned seed = 0; seed < 60; ++seed) {
        std::mt19937 random(seed);
        Model model = someRows(random, 30);
        CellRows rows;
        load(rows, model, 1 + seed % 3, 1 + seed % 7);
        ASSERT_EQ(contentOf(rows), model);
        for (int i = 0; i < 60; ++i) {
            edit(rows, model, random);
            ASSERT_EQ(contentOf(rows), model) << "seed " << seed << " edit " << i;
        }
    }
}

TEST(CellRows, OutsideReadsAsEmpty) {
    CellRows rows;
    load(rows, {{"a"}, {}}, 1, 2);
    EXPECT_EQ(rows.cell(0, 1), "");
    EXPECT_EQ(rows.cell(1, 0), "");
    EXPECT_EQ(rows.cell(2, 0), "");
    EXPECT_EQ(rows.cellCount(7), 0u);
}

TEST(CellRows, BlocksGoWithTheirLastRow) {
    CellRows rows;
    load(rows, Model(9, {"a", "b"}), 1, 3);
    ASSERT_EQ(rows.blockCount(), 3u);
    rows.removeRows(3, 3);
    EXPECT_EQ(rows.blockCount(), 2u);
    for (std::size_t row : {0u, 1u, 2u})
        rows.setCell(row, 0, "longer");
    EXPECT_EQ(rows.blockCount(), 1u);
    rows.resize(0);
    EXPECT_EQ(rows.blockCount(), 0u);
}

} // namespace
