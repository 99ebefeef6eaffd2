#include "model/SelectionStatistics.h"

#include "model/SelectionMembership.h"
#include "tests/core/RangeMakers.h"
#include "tests/model/TableModelFixture.h"
#include "tests/support/HeldReads.h"

#include <QSignalSpy>
#include <QTest>

namespace {

/// All selected cells as the membership test knows them, row by row.
std::vector<std::pair<int, int>> expectedCells(RangeVector const& ranges, GridSize data) {
    std::vector<std::pair<int, int>> cells;
    for (int row = 0; row < data.rows; ++row) {
        for (int col = 0; col < data.cols; ++col) {
            if (std::any_of(ranges.begin(), ranges.end(),
                            [&](Range const& range) { return rangeCoversCell(range, row, col); }))
                cells.emplace_back(row, col);
        }
    }
    return cells;
}

std::vector<std::pair<int, int>> walkedCells(RangeVector const& ranges, GridSize data) {
    std::vector<std::pair<int, int>> cells;
    SelectedCellWalk walk(ranges, data);
    int row = 0;
    std::vector<int> cols;
    while (walk.next(row, cols)) {
        for (int const col : cols)
            cells.emplace_back(row, col);
    }
    return cells;
}

} // namespace

TEST(SelectedCellWalk, VisitsEachCellOnceInOrderWhateverRangesOverlap) {
    Range gapped = column(2);
    gapped.setExcludedRows({1, 3});
    Range lowerTable = table(4, 1);
    lowerTable.setExcludedCells({{5, 2}});
    std::vector<RangeVector> const selections = {
        {},
        {cell(3, 1), cell(0, 4), cell(3, 0)},
        {row(2), column(1), cell(2, 1), cell(5, 5)},
        {gapped, row(6)},
        {lowerTable, cell(0, 0), gapped},
        {table()},
        {cell(90, 1), column(40), row(70)}, // beyond the data
    };
    for (RangeVector const& ranges : selections) {
        for (GridSize const size : {GridSize{8, 6}, GridSize{1, 3}, GridSize{0, 0}})
            EXPECT_EQ(walkedCells(ranges, size), expectedCells(ranges, size));
    }
}

class SelectionStatisticsTest : public TableModelFixture {
protected:
    QString sumOf(RangeVector const& ranges) {
        model.setSelection(cell(std::max(ranges[0].row, 0), std::max(ranges[0].col, 0)), ranges);
        QSignalSpy finished(&statistics, &SelectionStatistics::finishedSignal);
        statistics.start(&model);
        EXPECT_TRUE(finished.wait());
        return finished.value(0).value(0).toString();
    }

    SelectionStatistics statistics;
};

/// Does something just before its object hears of what another thread has sent it.
class BeforeTheNextCall : public QObject {
public:
    BeforeTheNextCall(QObject& object, std::function<void()> doThis) : doThis(std::move(doThis)) {
        object.installEventFilter(this);
    }
    bool eventFilter(QObject* /*object*/, QEvent* event) override {
        if (event->type() == QEvent::MetaCall && doThis)
            std::exchange(doThis, {})();
        return false;
    }

private:
    std::function<void()> doThis;
};

TEST_F(SelectionStatisticsTest, SumsInTheBackgroundAsItDoesAtOnce) {
    QByteArray text;
    for (int i = 0; i < 3000; ++i)
        text += QByteArray::number(i) + ",x," + QByteArray::number(i * 0.25) + "\n";
    load(text);
    for (RangeVector const& ranges : {RangeVector{table()}, RangeVector{column(0)}, RangeVector{column(1)},
                                      RangeVector{column(2), row(7), cell(9, 2)}}) {
        QString const inBackground = sumOf(ranges);
        EXPECT_EQ(inBackground, model.getSelectionSumMeanStr());
    }
    EXPECT_EQ(sumOf({column(0)}), "Sum: 4,498,500      Mean: 1,499.5");
    EXPECT_EQ(sumOf({column(1)}), "Sum: -      Mean: -");
    model.setAndApplyHiddenRowsList({10, 2999});
    model.setAndApplyHiddenColsList({1});
    EXPECT_TRUE(sumOf({column(0)}).startsWith("Sum: 4,495,491 "));
    QString const inBackground = sumOf({column(1)});
    EXPECT_EQ(inBackground, model.getSelectionSumMeanStr());
    EXPECT_TRUE(inBackground.startsWith("Sum: 1,123,872.75 "));
    model.toggleTranspose();
    EXPECT_EQ(sumOf({row(1)}), inBackground);
}

TEST_F(SelectionStatisticsTest, ALaterSelectionTakesOverAndAReloadStopsTheSum) {
    QByteArray text;
    for (int i = 0; i < 200000; ++i)
        text += "1,2\n";
    load(text);
    model.setSelection({table()}, true);
    QSignalSpy finished(&statistics, &SelectionStatistics::finishedSignal);
    statistics.start(&model);
    QCoreApplication::processEvents();
    EXPECT_TRUE(statistics.isRunning());
    EXPECT_EQ(sumOf({column(1)}), "Sum: 400,000      Mean: 2");
    EXPECT_EQ(finished.count(), 1);

    finished.clear();
    model.setSelection(cell(0, 0));
    statistics.start(&model);
    BeforeTheNextCall const late(statistics, [this] {
        model.setSelection(cell(0, 1), {column(1)});
        statistics.start(&model);
    });
    QTRY_VERIFY(!statistics.isRunning());
    EXPECT_EQ(finished.count(), 1);
    EXPECT_EQ(finished.value(0).value(0).toString(), "Sum: 400,000      Mean: 2");

    HeldReads reads;
    QSignalSpy loaded(&model, &TableModel::loadFinishedSignal);
    reads.hold();
    load(text, true);
    statistics.start(&model);
    QTRY_VERIFY(!statistics.isRunning());
    EXPECT_EQ(finished.count(), 1);
    reads.release();
    EXPECT_TRUE(loaded.wait());
}
