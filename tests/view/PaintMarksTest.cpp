#include "TableFixture.h"

#include <QImage>
#include <QSignalSpy>

namespace {

class PaintMarks : public TableFixture {
protected:
    void SetUp() override {
        load(30, 6);
        view.setCellBorderColor(Qt::blue);
    }
    QImage shot() { return view.viewport()->grab().toImage(); }
    QRect cell(int row, int col) { return view.visualRect(model().index(row, col)); }
    bool isRedAcross(QImage const& image, int y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) != Qt::red)
                return false;
        }
        return true;
    }
};

TEST_F(PaintMarks, LinesMarkTheEdgesOfUserRowsAndColumns) {
    QImage const plain = shot();
    model().setFirstRowIndex(1);
    view.setRowLineHighlightIndexes({1, 4});
    QImage image = shot();
    EXPECT_TRUE(isRedAcross(image, 0)) << "that of the first row is wholly inside";
    EXPECT_TRUE(isRedAcross(image, 3));
    int const edge = cell(3, 0).top();
    for (int const y : {edge - 2, edge + 1})
        EXPECT_TRUE(isRedAcross(image, y)) << y;
    for (int const y : {5, edge - 3, edge + 2})
        EXPECT_FALSE(isRedAcross(image, y)) << y;
    view.clearRowLineHighlightIndexes();
    EXPECT_EQ(shot(), plain);
    view.setColLineHighlightIndex(2);
    image = shot();
    EXPECT_EQ(image.pixelColor(cell(0, 2).left(), image.height() - 1), Qt::red);
    view.clearColLineHighlightIndexes();
    EXPECT_EQ(shot(), plain);
}

TEST_F(PaintMarks, LinesAboveTheViewportAreNotPainted) {
    view.scrollToRow(29, true, false);
    ASSERT_GT(rowsBar().value(), 0);
    QImage const plain = shot();
    view.setRowLineHighlightIndex(0);
    EXPECT_EQ(shot(), plain);
    view.setRowLineHighlightIndexes({5000, -1});
    EXPECT_EQ(shot(), plain);
}

TEST_F(PaintMarks, BordersSurroundCells) {
    QImage const plain = shot();
    view.setCellBorderRange(Range(2, 1, RangeIndexType::Model));
    QImage const image = shot();
    QRect const area(view.columnViewportPosition(1), view.rowViewportPosition(2), view.columnWidth(1),
                     view.rowHeight(2));
    for (QPoint const corner : {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
        EXPECT_EQ(image.pixelColor(corner), Qt::blue) << corner.x() << ' ' << corner.y();
    EXPECT_NE(image.pixelColor(area.center()), Qt::blue);
    Range row(2, 0, RangeIndexType::Model);
    row.type = RangeType::Row;
    view.setCellBorderRange(row);
    EXPECT_EQ(shot(), plain) << "lines have no border";
    view.clearCellBorderRange();
    EXPECT_TRUE(view.getCellBorderRanges().empty());
}

TEST_F(PaintMarks, HighlightsColourCellsAndClearAgain) {
    QImage const plain = shot();
    view.setHighlightedRange(Range(2, 1, RangeIndexType::Model));
    QRect const area = cell(2, 1);
    EXPECT_EQ(shot().pixelColor(area.right() - 3, area.bottom() - 3), model().getTheme().getHighlightedCellColor());
    EXPECT_EQ(shot().pixelColor(area.topLeft()), Qt::blue);
    view.clearHighlightedRange();
    EXPECT_EQ(shot(), plain);
}

TEST_F(PaintMarks, ColoursAnnounceTheirChange) {
    QSignalSpy const lines(&view, &AbstractTableView::highlightedLineColorChanged);
    QSignalSpy const borders(&view, &AbstractTableView::cellBorderColorChanged);
    for (int time = 0; time < 2; ++time) {
        view.setProperty("highlightedLineColor", QColor(Qt::green));
        view.setProperty("cellBorderColor", QColor(Qt::black));
    }
    EXPECT_EQ(lines.count(), 1);
    EXPECT_EQ(borders.count(), 1);
    EXPECT_EQ(view.property("highlightedLineColor").value<QColor>(), Qt::green);
}

TEST_F(PaintMarks, ShadesAndCrossLinesShowAtOnce) {
    select(3, 2);
    QPoint const besideMain = cell(3, 4).bottomRight() - QPoint(3, 3);
    QPoint const oddRow = cell(5, 4).bottomRight() - QPoint(3, 3);
    QColor const plain = shot().pixelColor(oddRow);
    view.setShadeEveryOtherRow(true);
    EXPECT_NE(shot().pixelColor(oddRow), plain);
    view.setShadeEveryOtherRow(false);
    view.setHighlightMainCellRow(true);
    EXPECT_NE(shot().pixelColor(besideMain), plain);
    EXPECT_EQ(shot().pixelColor(oddRow), plain);
}

} // namespace
