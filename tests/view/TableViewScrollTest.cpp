#include "tests/view/TableFixture.h"
#include "view/HeaderView.h"
#include "view/TLCornerButton.h"

#include <QHeaderView>
#include <QPointingDevice>

#include <vector>

namespace {

class TableViewScroll : public TableFixture {
protected:
    bool mainCellInSight() {
        Range const& cell = model().getMainCell();
        return view.viewport()->rect().contains(view.visualRect(model().index(cell.row, cell.col)));
    }
    int rowHeight() { return view.rowHeight(0); }
    int colWidth() { return view.columnWidth(0); }
};

} // namespace

TEST_F(TableViewScroll, TheWheelGoesByWholeRowsOrByPixels) {
    Settings settings;
    settings.setValue(SettingType::FreezeHeaderRows, false);
    settings.setValue(SettingType::AutoFitColumnWidth, false);
    settings.setValue(SettingType::SnapToColumnAfterScrolling, true);
    settings.setValue(SettingType::SnapToRowAfterScrolling, true);
    view.propagateSettings(settings);
    load(500, 60);
    wheel({0, -120});
    EXPECT_EQ(rowsBar().value(), 75 / rowHeight() * rowHeight());
    wheel({0, 120});
    EXPECT_EQ(rowsBar().value(), 0);
    wheel({0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(colsBar().value(), 250 / colWidth() * colWidth());
    view.scrollToTopLeft();
    settings.setValue(SettingType::SnapToColumnAfterScrolling, false);
    view.propagateSettings(settings);
    wheel({-120, 0});
    EXPECT_EQ(colsBar().value(), 75) << "columns go by the amount of rows here";
    wheel({0, -120});
    EXPECT_EQ(rowsBar().value(), 75 / rowHeight() * rowHeight());
    view.scrollToTopLeft();
    settings.setValue(SettingType::SnapToColumnAfterScrolling, true);
    settings.setValue(SettingType::SnapToRowAfterScrolling, false);
    view.propagateSettings(settings);
    wheel({0, -120});
    EXPECT_EQ(rowsBar().value(), 75);
    view.scrollToTopLeft();
    wheel({0, -120}, Qt::ControlModifier | Qt::ShiftModifier);
    int const page = int(view.viewport()->width() * 0.9);
    EXPECT_EQ(colsBar().value(), page / colWidth() * colWidth());
}

TEST_F(TableViewScroll, ATallRowIsPassedInOneTurn) {
    load(100, 3);
    view.setRowHeight(0, 300);
    wheel({0, -120});
    EXPECT_EQ(rowsBar().value(), 300);
    view.setRowHeight(50, view.viewport()->height() + 200);
    view.moveSelectionAbsolute(49, 0);
    view.scrollToMainCell(true, true);
    key(Qt::Key_Down);
    EXPECT_EQ(view.rowViewportPosition(50), 0) << "its top shows";
}

TEST_F(TableViewScroll, ATrackpadScrollsFreelyAndSnapsAtRest) {
    load(500, 60);
    QPointingDevice const trackpad(QStringLiteral("pad"), 7, QInputDevice::DeviceType::TouchPad,
                                   QPointingDevice::PointerType::Finger, QInputDevice::Capability::Scroll, 5, 0);
    wheel({4, -31}, Qt::NoModifier, &trackpad);
    EXPECT_EQ(rowsBar().value(), 31);
    EXPECT_TRUE(QTest::qWaitFor([&] { return rowsBar().value() == 31 / rowHeight() * rowHeight(); }));
    rowsBar().setValue(rowsBar().maximum());
    view.snapScrollBarPosition(Axis::Rows);
    EXPECT_EQ(rowsBar().value(), rowsBar().maximum());
    rowsBar().setValue(31);
    view.setContext(Context::CellEditing);
    view.snapScrollBarPosition(Axis::Both);
    EXPECT_EQ(rowsBar().value(), 31) << "the cell under the editor stays where it is";
}

TEST_F(TableViewScroll, MovesKeepTheMainCellInSight) {
    load(500, 60);
    for (int i = 0; i < 40; ++i) {
        key(Qt::Key_Down);
        key(Qt::Key_Right);
        ASSERT_TRUE(mainCellInSight()) << i;
    }
    for (int i = 0; i < 40; ++i)
        key(Qt::Key_Up);
    EXPECT_TRUE(mainCellInSight());
    view.goToBottom();
    EXPECT_EQ(model().getMainCell().row, 499);
    EXPECT_TRUE(mainCellInSight());
    view.goToFarRight();
    EXPECT_EQ(model().getMainCell().col, 59);
    EXPECT_TRUE(mainCellInSight());
    view.moveSelectionOneScreen(Direction::Up);
    EXPECT_LT(model().getMainCell().row, 499);
    EXPECT_TRUE(mainCellInSight());
    view.goToTop();
    view.goToFarLeft();
    EXPECT_EQ(rowsBar().value() + colsBar().value(), 0);
}

TEST_F(TableViewScroll, ReturnsOnceToWhereItWas) {
    load(500, 60);
    rowsBar().setValue(480);
    view.setInitialScrollBarLocations();
    view.scrollToCell(0, 0, true, true, Axis::Both);
    view.returnToInitialScrollBarLocations();
    EXPECT_EQ(rowsBar().value(), 480);
    rowsBar().setValue(0);
    view.returnToInitialScrollBarLocations();
    EXPECT_EQ(rowsBar().value(), 0);
}

TEST_F(TableViewScroll, RowLabelsAreAsWideAsTheLastOne) {
    view.setStyleSheet(Theme().getStyleSheet());
    load(12000, 2);
    QCoreApplication::processEvents();
    QHeaderView const& labels = *view.verticalHeader();
    QFont const font = qvariant_cast<QFont>(model().headerData(0, Qt::Vertical, Qt::FontRole));
    EXPECT_GT(labels.width(), QFontMetrics(font).horizontalAdvance(QStringLiteral("11999")));
    EXPECT_EQ(view.findChild<TLCornerButton*>()->width(), labels.width());
    EXPECT_FALSE(view.horizontalHeader()->accessibleName().isEmpty());
}

TEST_F(TableViewScroll, TypingIntoTheBufferGrowsGridAndBar) {
    load(50, 3);
    model().setNumBufferRows(5);
    view.goToBottom();
    for (int i = 0; i < 10; ++i) {
        key(Qt::Key_Return);
        ASSERT_TRUE(mainCellInSight()) << i;
    }
    EXPECT_GT(model().rowCount(), 55);
    view.enforceTableSize();
    EXPECT_EQ(rowsBar().maximum(), view.verticalHeader()->length() - view.viewport()->height());
}
