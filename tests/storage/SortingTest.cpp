#include "tests/storage/TableDataFixture.h"

namespace {

class SortingTest : public TableDataFixture {
protected:
    TableData::Indexes order(SortType type, int key = 0, Axis axis = Axis::Rows) const {
        TableData::Indexes indexes;
        data.getSortIndexes(indexes, key, axis, type, 0, false);
        return indexes;
    }

    QByteArray saved() {
        QString const target = path("saved.csv");
        EXPECT_TRUE(data.saveCSV(target, false, false));
        return read(target);
    }
};

} // namespace

TEST_F(SortingTest, RowsThatWereNeverStoredMakeNoLinesWhileTheyStayLast) {
    load("b\na\n");
    data.insertRowsRaw(2, 3);
    TableData::Indexes const sorted = order(SortType::Ascending);
    data.sortLines(Axis::Rows, sorted);
    EXPECT_EQ(shown(), "a|b|-|-|-");
    EXPECT_EQ(saved(), "a\nb\n");
    data.unsortLines(Axis::Rows, sorted);
    EXPECT_EQ(saved(), "b\na\n");
}

TEST_F(SortingTest, RowsThatWereNeverStoredAreSortedWithTheOthers) {
    load("b\na\n");
    data.insertRowsRaw(2, 500);
    data.setValueRaw(2, 0, QStringLiteral("c"), false); // stores three
    TableData::Indexes const sorted = order(SortType::Descending);
    data.sortLines(Axis::Rows, sorted);
    EXPECT_EQ(data.getValueRaw(499, 0).toString(), "c");
    EXPECT_EQ(saved(), QByteArray(499, '\n') + "c\nb\na\n");
    data.unsortLines(Axis::Rows, sorted);
    EXPECT_EQ(data.getValueRaw(2, 0).toString(), "c");
    EXPECT_EQ(data.numRawRows(), 502);
}

TEST_F(SortingTest, ASortTakenBackLeavesTheBytesOfRaggedRowsAsTheyWere) {
    for (bool const trailingDelimiters : {true, false}) {
        for (char const* content : {"h,i,j\nb,,\na\n\nc,2,1\n,,\n", "z,y,x\n1\n,,\n", "b,a\n\n"}) {
            load(content);
            data.setSaveWithTrailingDelimiters(trailingDelimiters);
            QByteArray const before = saved();
            for (Axis const axis : {Axis::Rows, Axis::Columns}) {
                TableData::Indexes const sorted = order(SortType::Descending, 0, axis);
                data.sortLines(axis, sorted);
                data.unsortLines(axis, sorted);
                EXPECT_EQ(saved(), before) << content;
            }
        }
    }
}

TEST_F(SortingTest, KeysAreTextInTheEncodingOfTheFileAndCellsKeepTheirCase) {
    load(QByteArray("b\0\n\0A\0\n\0a\0\n\0\x2d\x4e\n\0", 16), EncodingType::Utf16LE);
    EXPECT_EQ(order(SortType::Ascending), (TableData::Indexes{1, 2, 0, 3}));
    data.setCaseSensitiveSorting(false);
    EXPECT_EQ(order(SortType::Descending), (TableData::Indexes{3, 0, 1, 2})); // equal keys keep their order
    data.sortLines(Axis::Rows, order(SortType::Descending));
    EXPECT_EQ(data.getValueRaw(2, 0).toString(), "A");
}
