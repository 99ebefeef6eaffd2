#include "tests/storage/TableDataFixture.h"

#include <QSignalSpy>

#include <random>
#include <set>

namespace {

using Indexes = TableData::Indexes;
using Text = std::vector<std::vector<std::string>>;

/// The table as plain lists. Every operation works on rows; for columns the lists are turned first.
struct PlainTable {
    Text cells;
    std::set<int> concealed[2]; ///< rows, columns

    int rows() const { return static_cast<int>(cells.size()); }
    int cols() const { return cells.empty() ? 0 : static_cast<int>(cells.front().size()); }

    void turn() {
        Text turned(static_cast<std::size_t>(cols()), std::vector<std::string>(cells.size()));
        for (std::size_t row = 0; row < cells.size(); ++row) {
            for (std::size_t col = 0; col < cells[row].size(); ++col)
                turned[col][row] = cells[row][col];
        }
        cells.swap(turned);
        concealed[0].swap(concealed[1]);
    }

    /// The raw index of each shown row, and past the end of those that growth would add.
    int raw(int model) const {
        for (int row = 0;; ++row) {
            if (!concealed[0].count(row) && model-- == 0)
                return row;
        }
    }

    void moveConcealed(auto const& newPlace) {
        std::set<int> moved;
        for (int row : concealed[0])
            moved.insert(newPlace(row));
        concealed[0].swap(moved);
    }

    void growTo(int count) {
        while (rows() < count)
            cells.emplace_back(static_cast<std::size_t>(cols()));
    }
    void insert(int at, int count) {
        cells.insert(cells.begin() + at, static_cast<std::size_t>(count),
                     std::vector<std::string>(static_cast<std::size_t>(cols())));
        moveConcealed([&](int row) { return row >= at ? row + count : row; });
    }
    void remove(int at) {
        cells.erase(cells.begin() + at);
        moveConcealed([&](int row) { return row > at ? row - 1 : row; });
    }
    void move(int model, int offset) {
        growTo(raw(model + offset) + 1);
        int const step = offset < 0 ? -1 : 1;
        for (int index = model; index != model + offset; index += step)
            cells[static_cast<std::size_t>(raw(index))].swap(cells[static_cast<std::size_t>(raw(index + step))]);
    }
};

/// One of a pair of operations, as the user names it: on the shown rows or columns of `data`.
template <class RowForm, class ColForm>
auto twin(bool cols, TableData& data, RowForm rowForm, ColForm colForm) {
    return [=, &data](auto... arguments) {
        return cols ? (data.*colForm)(arguments..., false) : (data.*rowForm)(arguments..., false);
    };
}

#define TWIN(rowName, colName) twin(cols, data, &TableData::rowName, &TableData::colName)

class RandomEdits : public TableDataFixture, public testing::WithParamInterface<unsigned> {
protected:
    int below(int limit) { return std::uniform_int_distribution<>(0, limit - 1)(random); }

    /// Does one random operation on both tables. `plain` stands so that its rows are the shown lines of the operation.
    void operate(PlainTable& plain, bool cols) {
        int const shownCount = plain.rows() - static_cast<int>(plain.concealed[0].size());
        int const model = below(shownCount);
        switch (below(9)) {
        case 0: {
            int const at = below(plain.rows() + 1);
            plain.insert(at, 2);
            using Insert = bool (TableData::*)(int, int, bool);
            twin(cols, data, static_cast<Insert>(&TableData::insertRowsRaw),
                 static_cast<Insert>(&TableData::insertColsRaw))(at, 2);
            break;
        }
        case 1:
            plain.insert(plain.raw(model), 1);
            TWIN(insertRowsModel, insertColsModel)(model, 1);
            break;
        case 2: {
            int const at = below(plain.rows());
            if (shownCount < 3 || plain.concealed[0].count(at))
                break;
            plain.remove(at);
            TWIN(removeRowsRaw, removeColsRaw)(at, 1);
            break;
        }
        case 3: {
            int const count = std::min(2, shownCount - model - 1);
            for (int left = 0; left < count; ++left)
                plain.remove(plain.raw(model));
            TWIN(removeRowsModel, removeColsModel)(model, count);
            break;
        }
        case 4:
            if (shownCount > 3) {
                plain.concealed[0].insert({plain.raw(model), plain.raw(0)});
                TWIN(concealModelRows, concealModelCols)(Indexes{model, 0, model});
            }
            break;
        case 5: {
            int const raw = below(plain.rows());
            plain.concealed[0].erase(raw);
            TWIN(showRawRow, showRawCol)(raw);
            break;
        }
        case 6: {
            int const offset = below(4) - 1;
            int const to = plain.raw(std::max(model + offset, 0));
            plain.growTo(to + 1);
            plain.cells[static_cast<std::size_t>(to)] = plain.cells[static_cast<std::size_t>(plain.raw(model))];
            TWIN(duplicateRow, duplicateCol)(model, offset);
            break;
        }
        default: {
            int const offset = std::max(below(7) - 3, -model);
            plain.move(model, offset);
            TWIN(moveRowRelative, moveColRelative)(model, offset);
        }
        }
    }

    void expectSame(PlainTable const& shownPlain) {
        ASSERT_EQ(data.numRawRows(), shownPlain.rows());
        ASSERT_EQ(data.numRawCols(), shownPlain.cols());
        auto const list = [](std::set<int> const& set) { return Indexes(set.begin(), set.end()); };
        ASSERT_EQ(data.getConcealedRowsRaw(), list(shownPlain.concealed[0]));
        ASSERT_EQ(data.getConcealedColsRaw(), list(shownPlain.concealed[1]));
        for (int row = 0; row < data.numModelRows(); ++row) {
            for (int col = 0; col < data.numModelCols(); ++col) {
                auto const& plainRow = shownPlain.cells[static_cast<std::size_t>(shownPlain.raw(row))];
                PlainTable turned = shownPlain;
                turned.concealed[0] = shownPlain.concealed[1];
                ASSERT_EQ(data.getValueModel(row, col).toString().toStdString(),
                          plainRow[static_cast<std::size_t>(turned.raw(col))]);
            }
        }
    }

    std::mt19937 random{GetParam()};
};

TEST_P(RandomEdits, KeepInStepWithPlainLists) {
    load("a,b,c,d\ne,f\n,,g\n\nh,,,i\nj,k,l,m\n");
    PlainTable plain{{{"a", "b", "c", "d"},
                      {"e", "f", "", ""},
                      {"", "", "g", ""},
                      {"", "", "", ""},
                      {"h", "", "", "i"},
                      {"j", "k", "l", "m"}},
                     {}};
    if (data.numRawRows() == 7)
        plain.growTo(7);
    for (int step = 0; step < 120 && !HasFatalFailure(); ++step) {
        SCOPED_TRACE(step);
        bool const cols = below(2);
        if (cols)
            plain.turn();
        operate(plain, cols);
        if (cols)
            plain.turn();
        if (below(8) == 0) {
            plain.turn();
            data.toggleTranspose();
        }
        std::string const text = below(3) ? "t" + std::to_string(step) : "";
        int const row = below(data.numModelRows());
        int const col = below(data.numModelCols());
        auto& cell = plain.cells[static_cast<std::size_t>(data.getRawFromModelRow(row))]
                                [static_cast<std::size_t>(data.getRawFromModelCol(col))];
        EXPECT_EQ(data.setValueModel(row, col, QString::fromStdString(text)), cell != text);
        cell = text;
        expectSame(plain);
    }
}

INSTANTIATE_TEST_SUITE_P(TableData, RandomEdits, testing::Range(1U, 41U));

class TableDataStructure : public TableDataFixture {};

TEST_F(TableDataStructure, RemovalOfShownRowsKeepsTheConcealedOnesBetween) {
    load("0\n1\n2\n3\n4\n5\n6");
    data.concealRawRows({4, 3});
    QSignalSpy sizes(&data, &TableData::tableSizeChangedSignal);
    EXPECT_TRUE(data.removeRowsModel(1, 3));
    EXPECT_EQ(sizes.takeLast(), (QVariantList{4, 1, 2, 1}));
    EXPECT_EQ(data.getConcealedRowsRaw(), (Indexes{1, 2}));
    EXPECT_EQ(shown(), "0|6");
    EXPECT_FALSE(data.removeRowsModel(2, 1));
    EXPECT_TRUE(data.removeRowsModel(1, 9));
    EXPECT_EQ(data.numRawRows(), 3);
}

TEST_F(TableDataStructure, InsertionOutsideTheTableMovesOnlyTheConcealedRows) {
    load("0\n1\n2");
    data.concealRawRow(2);
    QSignalSpy sizes(&data, &TableData::tableSizeChangedSignal);
    EXPECT_TRUE(data.insertRowsRaw(-1, 1));
    EXPECT_TRUE(data.insertRowsRaw(4, 1));
    EXPECT_TRUE(data.insertRowsRaw(1, 0));
    EXPECT_EQ(data.numRawRows(), 3);
    EXPECT_EQ(data.getConcealedRowsRaw(), Indexes{3});
    EXPECT_TRUE(data.insertRowsRaw(1, {{{'x'}}, {{'y'}}}));
    EXPECT_EQ(data.numRawRows(), 5);
    EXPECT_EQ(data.getConcealedRowsRaw(), Indexes{5});
    EXPECT_EQ(sizes.count(), 0);
    EXPECT_EQ(data.getValueRaw(2, 0).toString(), QStringLiteral("y"));
    EXPECT_FALSE(data.removeRowsRaw(-1, 1));
    EXPECT_FALSE(data.removeRowsRaw(9, 1));
    EXPECT_TRUE(data.removeRowsRaw(3, 99));
    EXPECT_EQ(data.numRawRows(), 3);
}

TEST_F(TableDataStructure, EmptyRowsAndRowStringsHonourMasksAndAxes) {
    load("a,b,c\n,,\nd,,\n,,\n,x,");
    using enum GetRowColMaskType;
    data.concealRawRow(1);
    data.concealRawCol(1);
    EXPECT_EQ(data.getEmptyRows(0, RangeIndexType::Raw, NoMask, {}), (Indexes{1, 3}));
    EXPECT_EQ(data.getEmptyRows(0, RangeIndexType::Model, NoMask, {}), Indexes{2});
    EXPECT_EQ(data.getEmptyRows(0, RangeIndexType::Raw, Concealed, {}), (Indexes{1, 3, 4}));
    EXPECT_EQ(data.getEmptyCols(2, RangeIndexType::Raw, NoMask, {}), Indexes{2});
    EXPECT_EQ(data.numEmptyRowsRawAtEnd(), 0);
    EXPECT_EQ(data.numEmptyColsRawAtEnd(), 0);
    auto const rowString = [&](int row, auto maskType, Indexes const& mask) {
        std::string text = "old";
        data.getRowString(text, row, maskType, mask);
        return text;
    };
    EXPECT_EQ(rowString(0, NoMask, {}), "abc");
    EXPECT_EQ(rowString(0, Concealed, {}), "ac");
    EXPECT_EQ(rowString(0, Include, {0, 1}), "ab");
    data.toggleTranspose();
    EXPECT_EQ(data.getEmptyCols(0, RangeIndexType::Model, NoMask, {}), Indexes{2});
    EXPECT_EQ(rowString(1, NoMask, {}), "bx");
    EXPECT_EQ(rowString(0, Concealed, {}), "ad");
    EXPECT_EQ(data.numModelRows(), 2);
    EXPECT_EQ(data.numModelCols(), 4);
    EXPECT_EQ(data.numRawRows(true), 5);
}

} // namespace
