#include "TableFixture.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/RemoveLinesCommand.h"

#include <QHeaderView>

#include <climits>
#include <numeric>

namespace {

/// Rows and columns behave alike; the sizes of a table of ten by ten are told apart by their lines.
class LineSizesTest : public TableFixture, public testing::WithParamInterface<Axis> {
protected:
    bool isRows() const { return GetParam() == Axis::Rows; }
    QHeaderView& header() { return isRows() ? *view.verticalHeader() : *view.horizontalHeader(); }
    void SetUp() override {
        load(10, 10);
        setSizes();
    }
    void setSizes() {
        for (int line = 0; line < 10; ++line)
            header().resizeSection(line, sizeOf(line));
    }
    static int sizeOf(int line) { return 100 + line; }
    int fallback() { return header().defaultSectionSize(); }
    std::vector<int> sizes(int count = 10) {
        std::vector<int> found;
        for (int line = 0; line < count; ++line) {
            int const size = header().sectionSize(line);
            found.push_back(size == fallback() ? -1 : size - 100);
        }
        return found;
    }
    RangeVector linesAt(std::vector<int> const& lines) {
        RangeVector ranges;
        for (int const line : lines)
            ranges.push_back(isRows() ? Range(line, 0, RangeIndexType::Model) : Range(0, line, RangeIndexType::Model));
        return ranges;
    }
    std::vector<int> const original{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
};

TEST_P(LineSizesTest, SizesGoWithTheirLines) {
    auto const check = [this](QUndoCommand* command, std::vector<int> const& expected, int count) {
        view.pushUndoCommand(command);
        EXPECT_EQ(sizes(count), expected) << qPrintable(command->text());
        view.undo();
        EXPECT_EQ(sizes(), original) << qPrintable(command->text());
        view.redo();
        EXPECT_EQ(sizes(count), expected) << qPrintable(command->text());
        view.undo();
    };
    Axis const axis = GetParam();
    check(new RemoveLinesCommand(axis, &model(), linesAt({1, 2, 5}), 1, true), {0, 3, 4, 6, 7, 8, 9}, 7);
    check(new RemoveLinesCommand(axis, &model(), linesAt({0}), 9, true), {9}, 1);
    check(new InsertLinesCommand(axis, &model(), linesAt({0, 4}), 2, true, true),
          {-1, -1, 0, 1, 2, 3, -1, -1, 4, 5, 6, 7, 8, 9}, 14);
    check(new MoveLinesRelativeCommand(axis, &model(), linesAt({0, 1, 5}), 2, true), {2, 3, 0, 1, 4, 6, 7, 5, 8, 9},
          10);
    check(new MoveLinesAbsoluteCommand(axis, &model(), linesAt({1, 8}), 5, true), {0, 2, 3, 4, 1, 8, 5, 6, 7, 9}, 10);
}

TEST_P(LineSizesTest, SizesGoWithTheirLinesPastConcealedOnes) {
    isRows() ? model().concealRawRows({0, 4}) : model().concealRawCols({0, 4});
    view.enforceTableSize();
    setSizes();
    std::vector<int> const shown = sizes(8);
    auto const check = [&](QUndoCommand* command, std::vector<int> const& expected) {
        view.pushUndoCommand(command);
        EXPECT_EQ(sizes(int(expected.size())), expected) << qPrintable(command->text());
        view.undo();
        EXPECT_EQ(sizes(8), shown);
    };
    Axis const axis = GetParam();
    std::vector<int> const rawLines{3, 4, 5}; // lines 2 and 3 as they are shown
    check(new RemoveLinesCommand(axis, &model(), linesAt({2, 3}), rawLines, true), {0, 1, 4, 5, 6, 7});
    check(new InsertLinesCommand(axis, &model(), linesAt({3}), 1, true, true), {0, 1, 2, -1, 3, 4, 5, 6, 7});
    check(new MoveLinesRelativeCommand(axis, &model(), linesAt({2}), 1, true), {0, 1, 3, 2, 4, 5, 6, 7});
    RangeType const line = isRows() ? RangeType::Row : RangeType::Column;
    model().setSelection(Range(2, 2, RangeIndexType::Model),
                         {Range(2, line, RangeIndexType::Model), Range(3, line, RangeIndexType::Model)});
    isRows() ? view.setRowHeights(105) : view.setColWidths(105);
    isRows() ? model().showAllRows() : model().showAllCols();
    view.enforceTableSize();
    EXPECT_EQ(sizes(), (std::vector<int>{0, 0, 1, 5, 4, 5, 4, 5, 6, 7}));
}

TEST_P(LineSizesTest, BoundsHold) {
    header().resizeSection(2, 1000);
    header().resizeSection(3, header().minimumSectionSize());
    if (isRows()) {
        view.enforceAutoFitRowHeight(false);
        EXPECT_EQ(header().sectionSize(2), 400);
        EXPECT_EQ(header().sectionSize(3), fallback());
        view.resizeRow(4, 2000);
        EXPECT_EQ(header().sectionSize(4), 400);
    } else {
        view.enforceMaximumColumnWidth();
        EXPECT_EQ(header().sectionSize(2), 800);
        view.enforceEmptyColumnWidth();
        EXPECT_EQ(header().sectionSize(3), header().minimumSectionSize()) << "it has text";
        model().removeColumns(3, 1);
        model().insertColumns(3, 1);
        header().resizeSection(3, header().minimumSectionSize());
        view.enforceEmptyColumnWidth(3);
        EXPECT_EQ(header().sectionSize(3), 80);
    }
    EXPECT_EQ(header().sectionSize(1), sizeOf(1));
}

TEST_P(LineSizesTest, AGridOfLargeLinesEndsWhereItsPixelsDo) {
    constexpr int large = 20000;
    constexpr int many = 200000;
    auto const setDefault = [this](int size) {
        isRows() ? view.setDefaultRowHeight(size) : view.setDefaultColumnWidth(size);
    };
    auto const fits = [this] { return qint64(header().count()) * fallback() < INT_MAX && header().length() > 0; };
    view.setMaximumRowHeight(large, false);
    setDefault(20);
    isRows() ? model().setMinNumTableRows(many) : model().setMinNumTableCols(many);
    EXPECT_EQ(header().count(), many);
    setDefault(large);
    EXPECT_TRUE(fits()) << header().count();
    EXPECT_EQ(fallback(), large);
    EXPECT_GT(header().count(), 10) << "as many as there is room for";
    setDefault(20);
    EXPECT_EQ(header().count(), many);
    // Data are not dropped. Their lines are smaller instead.
    view.pushUndoCommand(new InsertLinesCommand(GetParam(), &model(), linesAt({5}), many, true, true));
    setDefault(large);
    EXPECT_GT(header().count(), many);
    EXPECT_TRUE(fits()) << fallback();
    view.undo();
    EXPECT_TRUE(fits()) << fallback();
    EXPECT_EQ(fallback(), large);
    view.redo();
    EXPECT_TRUE(fits()) << fallback();
}

TEST_P(LineSizesTest, LinesTooLargeForAGridAreShownSmallerAndKeepTheirSizes) {
    constexpr int large = 500000;
    constexpr int many = 5000;
    view.setMaximumRowHeight(large, false);
    view.pushUndoCommand(new InsertLinesCommand(GetParam(), &model(), linesAt({5}), many, true, true));
    model().setSelection({Range(RangeType::Table, RangeIndexType::Model)}, true);
    isRows() ? view.setRowHeights(large) : view.setColWidths(large);
    isRows() ? view.enforceAutoFitRowHeights({}) : view.enforceAutoFitColWidths({});
    LineSizeStore const& kept = model().getTableData().lineSizes(GetParam());
    EXPECT_EQ(kept.sizedTotal(), qint64(large) * kept.sizedCount());
    qint64 shown = 0;
    for (int line = 0; line < header().count(); ++line)
        shown += header().sectionSize(line);
    EXPECT_EQ(shown, header().length());
    EXPECT_GE(kept.sizedCount(), many);
    EXPECT_GT(header().sectionSize(1), fallback());
    view.undo();
    isRows() ? view.enforceAutoFitRowHeights({}) : view.enforceAutoFitColWidths({});
    EXPECT_EQ(header().sectionSize(1), large);
}

TEST_P(LineSizesTest, SelectedLinesAndDefaultsAreSetByHand) {
    isRows() ? view.selectRow(2) : view.selectCol(2);
    isRows() ? view.setRowHeights(55) : view.setColWidths(55);
    EXPECT_EQ(header().sectionSize(2), 55);
    EXPECT_EQ(header().sectionSize(3), sizeOf(3));
    int const length = header().length();
    isRows() ? view.setDefaultRowHeight(60) : view.setDefaultColumnWidth(60);
    EXPECT_EQ(header().length(), 60 * header().count());
    EXPECT_NE(header().length(), length);
    QScrollBar const& bar = isRows() ? rowsBar() : colsBar();
    int const extent = isRows() ? view.viewport()->height() : view.viewport()->width();
    EXPECT_EQ(bar.maximum(), std::max(header().length() - extent, 0));
    if (isRows()) {
        view.setMaximumRowHeight(40, false);
        EXPECT_EQ(header().length(), 40 * header().count());
    }
}

TEST_P(LineSizesTest, LinesTheModelAsksForGrowAndCollapse) {
    int const count = header().count();
    isRows() ? model().insertRowsGui(3, 2) : model().insertColsGui(3, 2);
    EXPECT_EQ(header().sectionSize(3), 0);
    QTRY_COMPARE(header().sectionSize(3), fallback());
    EXPECT_EQ(header().sectionSize(5), sizeOf(3));
    std::vector<int> const lines{4, 3};
    isRows() ? model().removeRowsGui(lines) : model().removeColsGui(lines);
    EXPECT_EQ(header().count(), count + 2) << "they collapse first";
    QTRY_COMPARE(header().count(), count);
    EXPECT_EQ(sizes(), original);
    // The next change does not wait for the one that is still to be seen.
    isRows() ? model().removeRowsGui(0, 1) : model().removeColsGui(0, 1);
    isRows() ? model().removeRowsGui(0, 1) : model().removeColsGui(0, 1);
    EXPECT_EQ(header().count(), count - 1);
    view.undo();
    EXPECT_EQ(header().count(), count - 2);
    EXPECT_EQ(header().sectionSize(0), sizeOf(2));
}

TEST_P(LineSizesTest, LinesOutOfSightDoNotKeepTheUserWaiting) {
    std::vector<int> lines(400);
    std::iota(lines.begin(), lines.end(), 1);
    int const count = header().count();
    isRows() ? model().insertRowsGui(lines) : model().insertColsGui(lines);
    EXPECT_EQ(header().count(), count + 400);
    EXPECT_EQ(header().sectionSize(1), fallback());
    isRows() ? model().removeRowsGui(lines) : model().removeColsGui(lines);
    EXPECT_EQ(sizes(), original);
    isRows() ? model().insertRowsGui(9, 1) : model().insertColsGui(9, 1);
    EXPECT_EQ(header().sectionSize(9), fallback()) << "behind the edge";
}

INSTANTIATE_TEST_SUITE_P(Axes, LineSizesTest, testing::Values(Axis::Rows, Axis::Columns),
                         [](auto const& info) { return info.param == Axis::Rows ? "Rows" : "Columns"; });

} // namespace
