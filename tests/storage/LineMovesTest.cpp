#include "tests/storage/TableDataFixture.h"

#include <algorithm>
#include <random>

namespace {

/// Moves lines of one table in one pass, and of an equal one line after line.
class LineMoves : public TableDataFixture, public testing::WithParamInterface<unsigned> {
protected:
    int below(int limit) { return std::uniform_int_distribution<>(0, limit - 1)(random); }
    bool rows() const { return axis == Axis::Rows; }

    QByteArray someText() {
        QByteArray text;
        int number = 0;
        for (int row = 5 + below(10); row > 0; --row) {
            for (int col = below(12); col > 0; --col)
                text += (below(3) ? QByteArray::number(number++) : QByteArray()) + ",";
            text += QByteArray::number(number++) + "\n";
        }
        return text;
    }

    void prepare() {
        QString const file = write("table.csv", someText());
        for (TableData* table : {&data, &slow})
            ASSERT_TRUE(table->loadCSV(file, false, TableData::DataContainerType::Editable, ",", ",",
                                       EncodingType::Utf8, ParsingStandard::Rfc4180));
        bool const turned = below(2);
        std::vector<std::pair<int, int>> sizes;
        for (int count = below(4); count > 0; --count)
            sizes.emplace_back(below(12), 20 + below(90));
        TableData::Indexes concealed;
        for (int count = below(4); count > 0; --count)
            concealed.push_back(below(4) * 2);
        for (TableData* table : {&data, &slow}) {
            if (turned)
                table->toggleTranspose();
            for (auto const& [line, size] : sizes)
                table->lineSizes(axis).setByHand(line, size);
            rows() ? table->concealModelRows(concealed) : table->concealModelCols(concealed);
        }
    }

    int shownLines() const { return rows() ? data.numModelRows() : data.numModelCols(); }

    /// Lines by a number of places, or together in front of another one, in an order in which none disturbs another.
    TableData::LineMoves someMoves() {
        std::vector<int> lines;
        for (int line = 0; line < shownLines(); ++line)
            if (below(3) == 0)
                lines.push_back(line);
        if (lines.empty())
            lines.push_back(shownLines() - 1);
        TableData::LineMoves moves;
        if (below(2)) {
            int const by = std::max(below(9) - 4, -lines.front());
            if (by > 0)
                std::reverse(lines.begin(), lines.end());
            for (int const line : lines)
                moves.emplace_back(line, line + by);
            return moves;
        }
        int const to = below(shownLines() + 3);
        auto const behind = std::lower_bound(lines.begin(), lines.end(), to);
        int target = to;
        for (auto line = behind; line != lines.begin();)
            moves.emplace_back(*--line, --target);
        target = to;
        for (auto line = behind; line != lines.end(); ++line)
            moves.emplace_back(*line, target++);
        return moves;
    }

    void moveSlowly(int from, int to) {
        rows() ? slow.moveRowRelative(from, to - from) : slow.moveColRelative(from, to - from);
    }

    void expectSame() {
        ASSERT_EQ(data.numRawRows(), slow.numRawRows());
        ASSERT_EQ(data.numRawCols(), slow.numRawCols());
        ASSERT_EQ(data.getConcealedRowsRaw(), slow.getConcealedRowsRaw());
        ASSERT_EQ(data.getConcealedColsRaw(), slow.getConcealedColsRaw());
        for (int row = 0; row < data.numRawRows(); ++row)
            for (int col = 0; col < data.numRawCols(); ++col)
                ASSERT_EQ(data.getValueRaw(row, col), slow.getValueRaw(row, col)) << row << "," << col;
        for (Axis const shown : {Axis::Rows, Axis::Columns})
            for (int line = 0; line < 40; ++line)
                ASSERT_EQ(data.lineSizes(shown).size(line), slow.lineSizes(shown).size(line)) << line;
    }

    std::mt19937 random{GetParam()};
    Axis axis = GetParam() % 2 ? Axis::Rows : Axis::Columns;
    TableData slow;
};

TEST_P(LineMoves, OnePassDoesWhatOneMoveAfterTheOtherDoes) {
    for (int round = 0; round < 20 && !HasFatalFailure(); ++round) {
        SCOPED_TRACE(round);
        prepare();
        for (int step = 0; step < 4 && shownLines() > 0 && !HasFatalFailure(); ++step) {
            TableData::LineMoves moves = someMoves();
            EXPECT_TRUE(data.moveLines(axis, moves));
            for (auto const& [from, to] : moves)
                moveSlowly(from, to);
            expectSame();
            if (below(2))
                continue;
            std::reverse(moves.begin(), moves.end());
            for (auto& [from, to] : moves) {
                std::swap(from, to);
                moveSlowly(from, to);
            }
            EXPECT_TRUE(data.moveLines(axis, moves));
            expectSame();
        }
        data.clear();
        slow.clear();
    }
}

INSTANTIATE_TEST_SUITE_P(TableData, LineMoves, testing::Range(1U, 31U));

} // namespace
