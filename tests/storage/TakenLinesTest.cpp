#include "storage/TakenLines.h"

#include "tests/storage/TableDataFixture.h"

#include <algorithm>
#include <random>

namespace {

using TakenLinesTest = TableDataFixture;
using Table = std::vector<std::vector<std::string>>;

QByteArray raggedTable(std::mt19937& random, int rows) {
    QByteArray text;
    for (int row = 0; row < rows; ++row) {
        int const cells = static_cast<int>(random() % 8);
        for (int col = 0; col < cells; ++col)
            text += QByteArray::number(row) + (random() % 3 ? QByteArray(":") + QByteArray::number(col) : "") + ",";
        text += "\n";
    }
    return text;
}

TakenLines::Blocks randomBlocks(std::mt19937& random, int count) {
    TakenLines::Blocks blocks;
    for (int line = static_cast<int>(random() % 3); line < count; line += 2 + static_cast<int>(random() % 4)) {
        blocks.emplace_back(line, std::min(line + static_cast<int>(random() % 3), count - 1));
        line = blocks.back().second;
    }
    return blocks;
}

Table rawTable(TableData const& data) {
    Table table(data.numRawRows());
    for (int row = 0; row < data.numRawRows(); ++row)
        for (int col = 0; col < data.numRawCols(); ++col)
            table[row].push_back(data.getValueRaw(row, col).toString().toStdString());
    return table;
}

void eraseLines(Table& table, Axis axis, TakenLines::Blocks const& blocks) {
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
        auto const erase = [&](auto& lines) {
            lines.erase(lines.begin() + block->first, lines.begin() + block->second + 1);
        };
        if (axis == Axis::Rows)
            erase(table);
        else
            std::for_each(table.begin(), table.end(), erase);
    }
}

TEST_F(TakenLinesTest, LinesComeBackWithTheirBytesAndWhatWasConcealed) {
    for (unsigned seed = 0; seed < 80; ++seed) {
        std::mt19937 random(seed);
        data.showAllRows();
        data.showAllCols();
        load(raggedTable(random, 30));
        for (int edit = 0; edit < 10; ++edit)
            data.setValueRaw(static_cast<int>(random() % 34), static_cast<int>(random() % 10), "edited");
        if (seed % 2)
            data.toggleTranspose();
        data.concealRawRows({2, 3, 7});
        data.concealRawCols({1, 4});
        Axis const axis = seed / 2 % 2 ? Axis::Rows : Axis::Columns;
        int const count = axis == Axis::Rows ? data.numRawRows() : data.numRawCols();
        Table const before = rawTable(data);
        std::string const shownBefore = shown();

        TakenLines lines(axis, randomBlocks(random, count));
        data.take(lines);
        Table without = before;
        eraseLines(without, axis, lines.getBlocks());
        ASSERT_EQ(rawTable(data), without) << "seed " << seed;
        EXPECT_EQ(data.getDataContainer()->numRows() + data.getDataContainer()->numCols(),
                  data.numRawRows() + data.numRawCols());
        data.putBack(lines);
        ASSERT_EQ(rawTable(data), before) << "seed " << seed;
        ASSERT_EQ(shown(), shownBefore) << "seed " << seed;

        // Lines that were never taken are inserted empty.
        TakenLines empty(axis, lines.getBlocks());
        data.putBack(empty);
        Table inserted = rawTable(data);
        for (auto const& [first, last] : empty.getBlocks())
            EXPECT_EQ(axis == Axis::Rows ? inserted[first][0] : inserted[0][first], "");
        eraseLines(inserted, axis, empty.getBlocks());
        ASSERT_EQ(inserted, before) << "seed " << seed;
        data.take(empty);
        ASSERT_EQ(shown(), shownBefore) << "seed " << seed;
    }
}

// The undo stack of a table can outlive the container that its rows were taken from.
TEST_F(TakenLinesTest, TakenRowsOutliveTheirTable) {
    load("a\nb\nc\nd\n");
    data.setValueRaw(1, 0, "a longer text in a row of its own");
    TakenLines lines(Axis::Rows, {{0, 2}});
    TakenLines dropped(Axis::Rows, {{0, 0}});
    data.take(lines);
    data.take(dropped);
    load("x\n");
    data.putBack(lines);
    EXPECT_EQ(shown(), "-|-|-|x");
}

} // namespace
