#include "storage/EditableDataContainer.h"

namespace {

using Bytes = AbstractDataContainer::Bytes;
using Cells = AbstractDataContainer::Cells;
using enum GetRowColMaskType;
using testing::ElementsAre;
using Text = std::vector<std::string>; ///< cells of a row joined by '|', one string a stored row

Bytes bytes(std::string const& text) {
    return {text.begin(), text.end()};
}

Cells cells(std::string const& joined) {
    Cells result(1);
    for (char const c : joined)
        c == '|' ? result.push_back({}) : result.back().push_back(c);
    return joined.empty() ? Cells() : result;
}

std::string joined(Cells const& cells) {
    std::string result;
    for (std::size_t i = 0; i < cells.size(); ++i)
        result.append(i ? "|" : "").append(cells[i].begin(), cells[i].end());
    return result;
}

class EditableContainer : public testing::Test {
protected:
    void fill(Text const& rows) {
        for (int row = 0; row < std::ssize(rows); ++row) {
            auto const values = cells(rows[row]);
            if (values.empty())
                table.setValue(row, 0, {});
            for (int col = 0; col < std::ssize(values); ++col)
                table.setValue(row, col, values[col]);
        }
    }
    Text content() const {
        Text result;
        for (int row = 0; row < table.numRows(); ++row) {
            Cells values;
            EXPECT_TRUE(table.getRow(values, row, false, NoMask, {}));
            EXPECT_LE(std::ssize(values), table.numCols());
            result.push_back(joined(values));
        }
        return result;
    }
    void expectSize(int rows, int cols) const {
        EXPECT_EQ(table.numRows(), rows);
        EXPECT_EQ(table.numCols(), cols);
    }

    EditableDataContainer table;
};

TEST_F(EditableContainer, EmptyCellsAtTheEndOfARowAreNotStored) {
    fill({"a||", "", "|b"});
    EXPECT_EQ(content(), (Text{"a", "", "|b"}));
    expectSize(3, 3);
    EXPECT_EQ(table.numColsInRow(0), 1);
    EXPECT_EQ(table.numColsInRow(1), 0);
    EXPECT_EQ(table.numColsInRow(-1) + table.numColsInRow(9), 0);
    EXPECT_TRUE(table.getValue(0, 9).empty() && table.getValue(-1, 0).empty() && table.getValue(9, 0).empty());
    table.setValue(0, 0, {});
    EXPECT_EQ(table.numColsInRow(0), 0);
    EXPECT_FALSE(table.setValue(-1, 0, bytes("x")) || table.setValue(0, -1, bytes("x")));
}

TEST_F(EditableContainer, ResizingCutsButStoresNothing) {
    fill({"a|b|c", "d", "e|f"});
    EXPECT_TRUE(table.resizeCols(2) && table.resizeRows(2));
    EXPECT_EQ(content(), (Text{"a|b", "d"}));
    EXPECT_TRUE(table.resizeRows(4) && table.resizeCols(5));
    EXPECT_EQ(content(), (Text{"a|b", "d", "", ""}));
    expectSize(4, 5);
    EXPECT_FALSE(table.resizeRows(-1) || table.resizeCols(-1));
    table.clear();
    expectSize(4, 5);
    EXPECT_TRUE(table.getValue(0, 0).empty());
}

TEST_F(EditableContainer, InsertsRowsAndColumns) {
    fill({"a|b", "c"});
    EXPECT_TRUE(table.insertEmptyRows(1, 2));
    EXPECT_EQ(content(), (Text{"a|b", "", "", "c"}));
    EXPECT_TRUE(table.insertEmptyCols(1, 1));
    EXPECT_EQ(content(), (Text{"a||b", "", "", "c"}));
    expectSize(4, 3);
    EXPECT_TRUE(table.insertEmptyRows(6, 1) && table.insertEmptyCols(5, 2));
    expectSize(7, 7);
    EXPECT_TRUE(table.insertRow(0, cells("x|y")) && table.insertCol(1, cells("1||3")));
    EXPECT_EQ(content(), (Text{"x|1|y", "a|||b", "|3", "", "c", "", "", ""}));
    EXPECT_TRUE(table.insertCols(0, {cells("p|q"), cells("r")}) && table.insertRows(1, {cells("m"), cells("n")}));
    EXPECT_EQ(content(), (Text{"p|r|x|1|y", "m", "n", "q||a|||b", "|||3", "", "||c", "", "", ""}));
    expectSize(10, 10);
    EXPECT_FALSE(table.insertEmptyRows(-1, 1) || table.insertEmptyRows(0, 0) || table.insertEmptyCols(-1, 1) ||
                 table.insertEmptyCols(0, 0) || table.insertRows(0, {}) || table.insertCols(0, {}));
    expectSize(10, 10);
}

TEST_F(EditableContainer, RemovesWhatExists) {
    fill({"a|b|c", "d", "e|f"});
    EXPECT_TRUE(table.removeCols(1, 9));
    EXPECT_EQ(content(), (Text{"a", "d", "e"}));
    EXPECT_TRUE(table.resizeRows(5) && table.removeRows(2, 2));
    EXPECT_EQ(content(), (Text{"a", "d", ""}));
    EXPECT_TRUE(table.removeRows(3, 1) && table.removeCols(1, 1) && table.removeRows(0, 1));
    EXPECT_EQ(content(), (Text{"d", ""}));
    expectSize(2, 1);
    EXPECT_FALSE(table.removeRows(-1, 1) || table.removeRows(0, 0) || table.removeCols(-1, 1) ||
                 table.removeCols(0, -3));
}

TEST_F(EditableContainer, SetsAndCopiesWholeRowsAndColumns) {
    fill({"a|b", "c", ""});
    EXPECT_TRUE(table.setRow(1, cells("x|")) && table.setCol(1, cells("|2")));
    EXPECT_EQ(content(), (Text{"a|", "x|2", ""}));
    EXPECT_TRUE(table.copyRowContentsToAnotherRow(1, 4) && table.copyColContentsToAnotherCol(1, 2));
    EXPECT_EQ(content(), (Text{"a|", "x|2|2", "", "", "x|2|2"}));
    expectSize(5, 3);
    table.resizeRows(9);
    EXPECT_TRUE(table.copyRowContentsToAnotherRow(7, 0) && table.copyRowContentsToAnotherRow(1, 1));
    EXPECT_EQ(content().front() + content().at(1), "x|2|2");
    EXPECT_TRUE(table.copyColContentsToAnotherCol(9, 0));
    EXPECT_EQ(content().at(1), "|2|2");
    EXPECT_FALSE(table.copyRowContentsToAnotherRow(-1, 0) || table.copyColContentsToAnotherCol(0, -1) ||
                 table.setRow(-1, {}) || table.setCol(-1, {}));
}

TEST_F(EditableContainer, ReadsRowsAndColumnsThroughMasks) {
    fill({"a|b|c|d", "e", ""});
    Cells out;
    auto const row = [&](int index, GetRowColMaskType type, std::vector<int> const& mask) {
        return table.getRow(out, index, false, type, mask) ? joined(out) : "none";
    };
    EXPECT_EQ(row(0, Exclude, {0, 2}), "b|d");
    EXPECT_EQ(row(0, Include, {1, 3}), "b|d");
    EXPECT_EQ(row(0, NoMask, {1}), "a|b|c|d");
    EXPECT_EQ(row(0, Include, {}), "a|b|c|d");
    EXPECT_EQ(row(1, Include, {0, 3}), "e|");
    EXPECT_EQ(row(1, Exclude, {3}), "e");
    EXPECT_EQ(row(3, NoMask, {}), "none");
    auto const col = [&](int index, GetRowColMaskType type, std::vector<int> const& mask) {
        return table.getCol(out, index, false, type, mask) ? joined(out) : "none";
    };
    EXPECT_EQ(col(0, NoMask, {}), "a|e|");
    EXPECT_EQ(col(3, Exclude, {1}), "d|");
    EXPECT_EQ(col(0, Include, {1}), "e");
    EXPECT_EQ(col(4, NoMask, {}) + col(-1, NoMask, {}), "nonenone");
}

TEST_F(EditableContainer, FindsEmptyRowsAndColumns) {
    fill({"h||x||", "", "||y", ""});
    table.resizeRows(5);
    EXPECT_THAT(table.emptyRows(0, NoMask, {}), ElementsAre(1, 3, 4));
    EXPECT_THAT(table.emptyRows(0, Exclude, {0, 2}), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_THAT(table.emptyRows(2, Include, {0}), ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(table.emptyRows(2, Include, {}), ElementsAre(1, 3, 4));
    EXPECT_THAT(table.emptyCols(0, NoMask, {}), ElementsAre(1, 3, 4));
    EXPECT_THAT(table.emptyCols(1, NoMask, {}), ElementsAre(0, 1, 3, 4));
    EXPECT_THAT(table.emptyCols(0, Include, {1, 2}), ElementsAre(0, 1, 3, 4));
    EXPECT_THAT(table.emptyCols(0, Exclude, {0, 2}), ElementsAre(0, 1, 2, 3, 4));
    EXPECT_EQ(table.numEmptyRowsAtEnd(), 2);
    EXPECT_EQ(table.numEmptyColsAtEnd(), 2);
    table.clear();
    EXPECT_EQ(table.numEmptyRowsAtEnd(), 5);
    EXPECT_EQ(table.numEmptyColsAtEnd(), 5);
}

} // namespace
