#include "model/undo/SortCommand.h"

#include "model/SelectionOrder.h"
#include "storage/Worker.h"
#include "tests/core/RangeMakers.h"
#include "tests/model/TableModelFixture.h"

#include <QSignalSpy>
#include <QTimer>
#include <QUndoStack>

namespace {

class SortCommandTest : public TableModelFixture {
protected:
    QStringList lines() const {
        QStringList all;
        for (int row = 0; row < model.rowCountModel(); ++row) {
            QStringList cells;
            for (int col = 0; col < model.columnCountModel(); ++col)
                cells << text(row, col);
            all << cells.join(',');
        }
        return all;
    }

    void sort(SortType type, Axis axis, int index) { stack.push(new SortCommand(&model, {type, axis, index})); }

    QUndoStack stack;
};

} // namespace

TEST_F(SortCommandTest, RowsFollowTheirKeysBelowTheHeaderAndComeBack) {
    load("name,n\nc,10\nb,9\n,\na\n");
    QStringList const before = lines();
    sort(SortType::Ascending, Axis::Rows, 1);
    EXPECT_EQ(lines(), QStringList({"name,n", "b,9", "c,10", ",", "a,"}));
    EXPECT_EQ(model.getRowSortData(), (SortData{SortType::Ascending, Axis::Rows, 1}));
    sort(SortType::Descending, Axis::Rows, 0);
    EXPECT_EQ(lines(), QStringList({"name,n", ",", "c,10", "b,9", "a,"}));
    stack.undo();
    EXPECT_EQ(model.getRowSortData().sortType, SortType::None);
    stack.undo();
    EXPECT_EQ(lines(), before);
    stack.redo();
    EXPECT_EQ(lines(), QStringList({"name,n", "b,9", "c,10", ",", "a,"}));
    EXPECT_FALSE(stack.isClean());
}

TEST_F(SortCommandTest, ColumnsSortByARowAndMarksAndConcealedLinesGoAlong) {
    load("k,c,a,b\n1,9,8,7\n2,x\n");
    model.setNumberOfHeaderCols(1);
    model.concealRawCols({2});
    sort(SortType::Ascending, Axis::Rows, 1); // marks column "c"
    sort(SortType::Ascending, Axis::Columns, 0);
    EXPECT_EQ(model.getRowSortData().index, 3); // where "c" stands now
    EXPECT_EQ(model.getTableData().getConcealedColsRaw(), std::vector<int>{1});
    EXPECT_EQ(lines(), QStringList({"k,b,c", "1,7,9", "2,,x"}));
    stack.undo();
    EXPECT_EQ(model.getRowSortData().index, 1);
    EXPECT_EQ(model.getTableData().getConcealedColsRaw(), std::vector<int>{2});
    EXPECT_EQ(lines(), QStringList({"k,c,b", "1,9,7", "2,x,"}));
}

TEST_F(SortCommandTest, ATransposedTableSortsWhatItShows) {
    load("h,1,2\n3,c,a\n5,b,d\n");
    model.toggleTranspose();
    EXPECT_EQ(lines(), QStringList({"h,3,5", "1,c,b", "2,a,d"}));
    sort(SortType::Ascending, Axis::Rows, 1);
    EXPECT_EQ(lines(), QStringList({"h,3,5", "2,a,d", "1,c,b"}));
    stack.undo();
    EXPECT_EQ(lines(), QStringList({"h,3,5", "1,c,b", "2,a,d"}));
}

TEST_F(SortCommandTest, ManyRowsSortInAThreadThatCanBeCanceled) {
    QByteArray content = "n\n";
    for (int i = 0; i < 120000; ++i)
        content += "w" + QByteArray::number(i * 7919LL % 120000) + (i % 5 == 0 ? "\n" : "x\n");
    load(content);
    QString const second = text(1, 0);
    auto const flag = std::make_shared<bool>(true);
    model.setCancelPointers(flag, std::make_shared<QMutex>());
    EXPECT_TRUE(SortCommand(&model, {SortType::Ascending, Axis::Rows, 0}).isCanceled());
    EXPECT_EQ(text(1, 0), second);

    *flag = false;
    bool turned = false; // the event loop goes on meanwhile
    QTimer::singleShot(0, [&] { turned = true; });
    sort(SortType::Ascending, Axis::Rows, 0);
    EXPECT_TRUE(turned);
    EXPECT_EQ(text(1, 0), "w0");
    EXPECT_EQ(text(120000, 0), "w119999x");
    stack.undo();
    EXPECT_EQ(text(1, 0), second);
}

TEST_F(SortCommandTest, ASortReturnsThatEndsJustWhenItsDialogWouldTakeInput) {
    QByteArray content = "n\n";
    for (int i = 0; i < 60000; ++i)
        content += QByteArray::number(i * 7919LL % 60000 + 1) + "\n";
    load(content);
    // So busy that the end of the sort and the end of that time arrive together.
    QTimer::singleShot(0, [] { QThread::msleep(500); });
    sort(SortType::Ascending, Axis::Rows, 0);
    EXPECT_EQ(text(1, 0), "1");
}

TEST_F(SortCommandTest, SelectedCellsSortAmongThemselves) {
    load("h,h,h\n3,1,2\nb,a,c\n9,8,7\n");
    auto const apply = [&](RangeVector const& ranges, Axis axis, SortType type) {
        CellPatch patch = sortedCells(model, ranges, axis, type);
        model.getTableData().exchange(patch);
    };
    apply({cell(1, 0), cell(1, 1), cell(1, 2), cell(2, 1), cell(2, 2)}, Axis::Rows, SortType::Ascending);
    EXPECT_EQ(lines(), QStringList({"h,h,h", "1,2,3", "b,a,c", "9,8,7"}));
    apply({cell(1, 0), cell(2, 0), cell(3, 0), cell(1, 2), cell(3, 2)}, Axis::Columns, SortType::Descending);
    EXPECT_EQ(lines(), QStringList({"h,h,h", "b,2,7", "9,a,c", "1,8,3"}));
    EXPECT_TRUE(sortedCells(model, {column(0)}, Axis::Rows, SortType::Ascending).empty());
    for (auto const& [caseSensitive, sorted] : {std::pair(true, "A,B,a,b"), std::pair(false, "A,a,b,B")}) {
        load("b,A,a,B\n");
        model.setCaseSensitiveSorting(caseSensitive);
        apply({row(0)}, Axis::Rows, SortType::Ascending);
        EXPECT_EQ(lines(), QStringList(sorted));
    }
}

TEST(Worker, TellsItsShareOfALargerJobUntilItIsCanceled) {
    auto const flag = std::make_shared<bool>(false);
    Worker worker(flag, std::make_shared<QMutex>(), nullptr);
    QSignalSpy told(&worker, &Worker::updateProgressSignal);
    worker.setProgressBounds(40, 60);
    EXPECT_TRUE(worker.updateProgress(0.5F));
    EXPECT_FLOAT_EQ(told.value(0).value(0).toFloat(), 50);
    *flag = true;
    EXPECT_FALSE(worker.updateProgress(0.6F));
    EXPECT_EQ(told.count(), 1);
    EXPECT_FALSE(Worker(nullptr).isCanceled());
}
