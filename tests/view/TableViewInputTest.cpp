#include "tests/model/SelectionText.h"
#include "tests/view/TableFixture.h"
#include "view/HeaderView.h"
#include "view/TLCornerButton.h"

#include <QAction>
#include <QMenu>

#include <algorithm>
#include <string>
#include <vector>

namespace {

class TableViewInput : public TableFixture {
protected:
    std::string selection() { return textOf(model().getSelection()); }
    void selectRanges(std::string const& ranges) { model().setSelection(rangesFrom(ranges), true); }
};

} // namespace

TEST_F(TableViewInput, EnterAfterTabsReturnsToTheColumnOfTheRecord) {
    load(20, 6);
    select(2, 1);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    EXPECT_EQ(selection(), "C2,3*");
    key(Qt::Key_Backtab, Qt::ShiftModifier); // goes back and forgets nothing
    EXPECT_EQ(selection(), "C2,2*");
    key(Qt::Key_Return);
    EXPECT_EQ(selection(), "C3,1*");
    key(Qt::Key_Return);
    EXPECT_EQ(selection(), "C4,1*");
    key(Qt::Key_Backtab, Qt::ShiftModifier); // and remembers nothing
    key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(selection(), "C5,0*");
}

TEST_F(TableViewInput, ArrowsMoveTheSelectionWholeOrNotAtAll) {
    load(20, 6);
    selectRanges("C0,2 C3,3*");
    key(Qt::Key_Up);
    EXPECT_EQ(selection(), "C0,2 C3,3*");
    key(Qt::Key_Down);
    EXPECT_EQ(selection(), "C1,2 C4,3*");
    key(Qt::Key_Left);
    key(Qt::Key_Left);
    key(Qt::Key_Left); // column 0 is reached
    EXPECT_EQ(selection(), "C1,0 C4,1*");
    select(19, 5);
    key(Qt::Key_Down);
    EXPECT_EQ(selection(), "C19,5*");
}

TEST_F(TableViewInput, TypingAsksForAnEdit) {
    load(20, 6);
    QSignalSpy const typed(&view, qOverload<bool, QKeyEvent*>(&TableView::startEditingSignal));
    QSignalSpy const asked(&view, qOverload<bool>(&TableView::startEditingSignal));
    key(Qt::Key_X);
    key(Qt::Key_F2);
    EXPECT_EQ(typed.count(), 1);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, centreOf(2, 2));
    ASSERT_EQ(asked.count(), 1);
    EXPECT_FALSE(asked.first().first().toBool()) << "the cell has a text to keep";
}

TEST_F(TableViewInput, KeysAreDeadWhileTheMouseDrags) {
    load(20, 6);
    QSignalSpy const typed(&view, qOverload<bool, QKeyEvent*>(&TableView::startEditingSignal));
    press(2, 2);
    key(Qt::Key_Down);
    key(Qt::Key_X);
    EXPECT_EQ(selection(), "C2,2*");
    EXPECT_EQ(typed.count(), 0);
    release(centreOf(2, 2));
    key(Qt::Key_Down);
    EXPECT_EQ(selection(), "C3,2*");
}

TEST_F(TableViewInput, KeysAreDeadWhileAFileLoads) {
    load(20, 6);
    QSignalSpy const typed(&view, qOverload<bool, QKeyEvent*>(&TableView::startEditingSignal));
    QSignalSpy finished(&view, &TableView::loadFinishedSignal);
    QObject::connect(&view, &TableView::startProgressUpdateSignal, &view, &TableView::onStartProgressUpdate);
    QObject::connect(&view, &TableView::loadProgressUpdateSignal, &view, &TableView::onLoadProgressUpdate);
    select(3, 3);
    view.loadCSV(file.fileName(), true);
    EXPECT_TRUE(view.isHidden());
    key(Qt::Key_X);
    key(Qt::Key_Return);
    key(Qt::Key_Down);
    ASSERT_TRUE(finished.count() > 0 || finished.wait());
    view.onLoadFinished();
    QCoreApplication::processEvents();
    EXPECT_TRUE(view.isVisible());
    EXPECT_EQ(typed.count(), 0);
    key(Qt::Key_Down);
    EXPECT_EQ(model().getMainCell().row, 4);
}

TEST_F(TableViewInput, ClicksSelectByTheirModifiers) {
    load(20, 6);
    click(2, 2);
    EXPECT_EQ(selection(), "C2,2*");
    click(4, 3, Qt::ControlModifier);
    EXPECT_EQ(selection(), "C2,2 C4,3*");
    click(8, 1, Qt::AltModifier); // not selected
    EXPECT_EQ(selection(), "C2,2 C4,3*");
    click(2, 2, Qt::AltModifier);
    EXPECT_EQ(selection(), "C4,3*");
    click(5, 4, Qt::ShiftModifier);
    EXPECT_EQ(cellsOf(model().getSelection(), {20, 6}), cellsOf(rangesFrom("C4,3 C4,4 C5,3 C5,4"), {20, 6}));
    EXPECT_EQ(model().getMainCell(), modelCell(4, 3));
    click(1, 1, Qt::MetaModifier);
    EXPECT_EQ(model().getSelection().size(), 4u) << "other modifiers do not select";
}

TEST_F(TableViewInput, ADragSelectsItsRectangle) {
    load(20, 6);
    press(4, 3);
    dragTo(centreOf(3, 2));
    EXPECT_EQ(selection(), "C4,3*") << "nothing is written while the drag goes on";
    release(centreOf(3, 2));
    EXPECT_EQ(cellsOf(model().getSelection(), {20, 6}), cellsOf(rangesFrom("C3,2 C3,3 C4,2 C4,3"), {20, 6}));
    EXPECT_EQ(model().getMainCell(), modelCell(4, 3));
    press(10, 0, Qt::ControlModifier);
    dragTo(centreOf(10, 1), Qt::ControlModifier);
    release(centreOf(10, 1), Qt::ControlModifier);
    EXPECT_EQ(model().getSelection().size(), 6u);
    EXPECT_EQ(model().getMainCell(), modelCell(10, 0));
}

TEST_F(TableViewInput, PressesThatBeginNoSelectionDrawNoRectangle) {
    load(20, 6);
    QSignalSpy const sizes(&view, &TableView::selectionSizeChangedSignal);
    auto const size = [&] { return sizes.last().first().value<RangeSize>(); };
    selectRanges("C2,2* C3,3 C4,4");
    press(3, 3, Qt::AltModifier);
    EXPECT_EQ(selection(), "C2,2* C4,4");
    EXPECT_EQ(size().cells, 2); // told at once
    dragTo(centreOf(6, 5), Qt::AltModifier);
    EXPECT_EQ(model().getPendingCornerEnd().row, -1);
    release(centreOf(6, 5), Qt::AltModifier);
    EXPECT_EQ(selection(), "C2,2* C4,4");
    EXPECT_EQ(size(), (RangeSize{.cells = 2}));

    click(5, 1);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, centreOf(5, 1));
    dragTo(centreOf(5, 1) + QPoint(1, 0));
    release(centreOf(5, 1) + QPoint(1, 0));
    EXPECT_EQ(model().getPendingCornerEnd().row, -1);
    EXPECT_EQ(size().cells, 1);
    view.stopEditing();
}

TEST_F(TableViewInput, ADragPastTheEdgeGoesOnAndScrolls) {
    load(200, 6);
    press(5, 1);
    int const lastSeen = view.rowAt(view.viewport()->height());
    dragTo({centreOf(5, 1).x(), view.viewport()->height() + 40});
    EXPECT_EQ(model().getPendingCornerEnd(), modelCell(lastSeen + 1, 1));
    EXPECT_GT(rowsBar().value(), 0);
    int const firstSeen = view.rowAt(0);
    ASSERT_GT(firstSeen, 0);
    dragTo({centreOf(5, 1).x(), -30});
    EXPECT_EQ(model().getPendingCornerEnd().row, firstSeen - 1);
    for (int i = 0; i < 30; ++i)
        dragTo({centreOf(5, 1).x(), -30});
    EXPECT_EQ(model().getPendingCornerEnd().row, 0);
    EXPECT_EQ(rowsBar().value(), 0);
    view.endCutOffDrag();
    EXPECT_EQ(model().getSelection().size(), 6u);
    EXPECT_EQ(model().getPendingCornerStart().row, -1);
}

TEST_F(TableViewInput, AnEmptyTableTakesAnyInput) {
    load(0, 0);
    view.enforceTableSize();
    for (int const code : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Tab, Qt::Key_Return, Qt::Key_End, Qt::Key_X})
        key(code);
    press(0, 0);
    dragTo({30, 900});
    release({30, 30});
    for (Direction const direction : {Direction::Up, Direction::Down, Direction::Left, Direction::Right}) {
        view.scroll(direction, true);
        view.moveSelectionOneScreen(direction);
        view.moveSelectionByBlock(direction);
        view.moveSelectionToEndOfTable(direction);
    }
    view.goToBottom();
    view.snapScrollBarPosition(Axis::Both);
    view.selectDownToBottomOfColumn();
    EXPECT_EQ(rowsBar().value(), 0);
    EXPECT_EQ(model().getMainCell(), modelCell(0, 0));
}

TEST_F(TableViewInput, JumpsMoveTheWholeSelection) {
    load(200, 6);
    selectRanges("C3,2 C5,3*");
    view.moveSelectionToEndOfTable(Direction::Down);
    EXPECT_EQ(selection(), "C197,2 C199,3*");
    view.moveSelectionByBlock(Direction::Up);
    EXPECT_EQ(selection(), "C0,2 C0,3*");
    model().setSelection(modelCell(4, 2), rangesFrom("R4,0")); // the main cell is not at its start
    view.moveSelectionByBlock(Direction::Down);
    EXPECT_EQ(selection(), "R199,0*");
    EXPECT_EQ(model().getMainCell(), modelCell(199, 2));
    select(-1, -1);
    EXPECT_EQ(model().getMainCell(), modelCell(199, 2));
    select(-1, 0);
    EXPECT_EQ(selection(), "C199,0*");
}

TEST_F(TableViewInput, LinesAndTablesAreSelectedAsOneRange) {
    load(20, 6);
    selectRanges("C3,2* C5,2");
    QSignalSpy const raised(&view, &TableView::addContextSignal);
    view.selectEntireRows();
    EXPECT_EQ(selection(), "R3,0* R5,0");
    EXPECT_EQ(raised.last().first().value<Context>(), Context::MultiCellSelection);
    EXPECT_EQ(model().getMainCell(), modelCell(3, 2));
    view.selectCol(4);
    EXPECT_EQ(selection(), "K4,0*");
    EXPECT_EQ(model().getMainCell(), modelCell(0, 4));
    view.setMainCellAsSelection(modelCell(3, 2));
    QTest::mouseClick(view.findChild<TLCornerButton*>(), Qt::LeftButton);
    EXPECT_EQ(selection(), "T0,0*");
    EXPECT_EQ(model().getMainCell(), modelCell(3, 2));
    view.setMainCellAsSelection(modelCell(3, 2));
    QTest::mouseClick(view.findChild<TLCornerButton*>(), Qt::RightButton);
    QTest::mouseClick(view.findChild<TLCornerButton*>(), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(selection(), "C3,2*");
    QTest::mouseClick(view.findChild<TLCornerButton*>(), Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(model().cellInSelection(modelCell(19, 5)) && model().cellInSelection(modelCell(0, 0)));
    view.setMainCellAsSelection(modelCell(3, 2));
    view.selectFromMainCellTo(-1, 4);
    EXPECT_EQ(selection(), "C3,2* C3,3 C3,4");
    view.selectFromMainCellTo(4, -1);
    EXPECT_EQ(selection(), "C3,2* C4,2");
    EXPECT_EQ(view.findFarthestSelectedCellInDirection(Direction::Down), modelCell(4, 2));
}

TEST_F(TableViewInput, FocusForNoReasonIsTakenOnlyWhenAnnounced) {
    load(5, 3);
    auto const currentAfterFocus = [this](Qt::FocusReason reason) {
        view.selectionModel()->clear();
        QFocusEvent focus(QEvent::FocusIn, reason);
        QApplication::sendEvent(&view, &focus);
        return view.currentIndex().isValid(); // Qt's handler gives the view a current cell
    };
    EXPECT_FALSE(currentAfterFocus(Qt::OtherFocusReason));
    view.setAcceptNextOtherFocus(true);
    EXPECT_TRUE(currentAfterFocus(Qt::OtherFocusReason));
    EXPECT_FALSE(currentAfterFocus(Qt::OtherFocusReason));
    view.setAcceptNextOtherFocus(true);
    EXPECT_TRUE(currentAfterFocus(Qt::TabFocusReason));
    EXPECT_FALSE(currentAfterFocus(Qt::OtherFocusReason));
}

TEST_F(TableViewInput, TheContextMenuHoldsTheCommandsThatExist) {
    load(20, 6);
    QAction copy(QStringLiteral("Copy"));
    QAction remove(QStringLiteral("Remove"));
    QAction follow(QStringLiteral("Follow"));
    view.setupContextMenus({{QStringLiteral("Copy Cell(s)"), &copy},
                            {QStringLiteral("Remove Row(s)"), &remove},
                            {QStringLiteral("Follow Selected Hyperlink(s)"), &follow}});
    selectRanges("C1,1* C2,1");
    emit view.customContextMenuRequested(centreOf(2, 1));
    EXPECT_EQ(selection(), "C1,1* C2,1");
    emit view.customContextMenuRequested(centreOf(4, 3));
    EXPECT_EQ(selection(), "C4,3*");
    auto* const menu = view.findChildren<QMenu*>().last();
    QList<QAction*> const entries = menu->actions();
    ASSERT_EQ(entries.size(), 5); // the three, and separators only between them
    EXPECT_EQ(entries[0], &copy);
    EXPECT_TRUE(entries[1]->isSeparator());
    EXPECT_EQ(entries[2], &remove);
    EXPECT_EQ(entries[4], &follow);
    qsizetype const menus = view.findChildren<QMenu*>().size();
    emit view.customContextMenuRequested({600, 5000});
    EXPECT_EQ(view.findChildren<QMenu*>().size(), menus) << "no menu beside the cells";
}

TEST_F(TableViewInput, TheMenuOfALabelIsThatOfItsAxis) {
    load(20, 6);
    QAction ofRows(QStringLiteral("Rows"));
    QAction ofCols(QStringLiteral("Columns"));
    view.setupContextMenus({{QStringLiteral("Remove Row(s)"), &ofRows}, {QStringLiteral("Remove Column(s)"), &ofCols}});
    for (HeaderView* const header : {view.getVerticalHeaderView(), view.getHorizontalHeaderView()}) {
        emit header->customContextMenuRequested({5000, 5000});
        EXPECT_TRUE(header->findChildren<QMenu*>().isEmpty()) << "no menu beside the labels";
        emit header->customContextMenuRequested({5, 5});
        ASSERT_EQ(header->findChildren<QMenu*>().size(), 1);
        QMenu& menu = *header->findChildren<QMenu*>().first();
        EXPECT_EQ(menu.actions().contains(&ofRows), header == view.getVerticalHeaderView());
        EXPECT_EQ(menu.actions().contains(&ofCols), header == view.getHorizontalHeaderView());
        menu.close();
    }
}

TEST_F(TableViewInput, UndoGoesToTheViewsOwnStack) {
    struct Count : QUndoCommand {
        explicit Count(int& number) : number(number) {}
        void redo() override { ++number; }
        void undo() override { --number; }
        int& number;
    };
    int number = 0;
    view.pushUndoCommand(new Count(number));
    EXPECT_EQ(number, 1);
    view.undo();
    EXPECT_EQ(number, 0);
    view.redo();
    EXPECT_EQ(number, 1);
}
