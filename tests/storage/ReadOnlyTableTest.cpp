#include "tests/storage/TableDataFixture.h"

namespace {

class ReadOnlyTable : public TableDataFixture {};

} // namespace

TEST_F(ReadOnlyTable, WhoeverAsksItsCellsStayWhileItsOrderAndItsViewCanChange) {
    load("a,b\nc,d\ne,f\n");
    data.setReadOnly(true);
    EXPECT_FALSE(data.setValueRaw(0, 0, QStringLiteral("x")));
    EXPECT_FALSE(data.setValueModel(5, 5, QStringLiteral("x")));
    EXPECT_FALSE(data.insertRowsRaw(0, 1));
    EXPECT_FALSE(data.insertColsModel(0, 1));
    EXPECT_FALSE(data.insertRowsRaw(0, {{{'x'}}}));
    EXPECT_FALSE(data.removeRowsRaw(0, 1));
    EXPECT_FALSE(data.removeColsModel(0, 1));
    EXPECT_FALSE(data.duplicateRow(0, 1));
    EXPECT_FALSE(data.moveColRelative(0, 1));
    EXPECT_EQ(shown(), "a b|c d|e f");
    data.sortLines(Axis::Rows, {2, 0, 1});
    data.concealRawRows({2});
    data.toggleTranspose();
    EXPECT_EQ(shown(), "e a|f b");
    data.setReadOnly(false);
    EXPECT_TRUE(data.setValueModel(0, 0, QStringLiteral("x")));
}
