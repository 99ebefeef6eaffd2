#include "model/undo/InsertLinesCommand.h"
#include "tests/view/TableFixture.h"
#include "view/FrozenTableView.h"
#include "view/HeaderView.h"
#include "view/TLCornerButton.h"

#include <QLineEdit>

#include <functional>

namespace {

/// 300 rows by 40 columns with two header rows and three header columns, frozen.
class FrozenPanes : public TableFixture {
protected:
    void SetUp() override {
        load(300, 40);
        view.setNumberOfHeaderRows(2, false);
        view.setNumberOfHeaderColumns(3, false);
        view.setFreezeHeaderRows(true, false);
        view.setFreezeHeaderColumns(true, false);
        QApplication::processEvents();
    }
    FrozenTableView& top() { return *view.getHorizontalFrozenView(); }
    FrozenTableView& left() { return *view.getVerticalFrozenView(); }
    FrozenTableView& corner() { return *view.getCornerFrozenView(); }
    /// Where a view shows a cell, in pixels of the main view.
    QRect placeIn(AbstractTableView& shown, int row, int col) {
        QRect const rect = shown.visualRect(model().index(row, col));
        return {shown.viewport()->mapTo(&view, rect.topLeft()), rect.size()};
    }
    /// The bands show their cells at the sizes of, and exactly over, those of the main view.
    void expectInStep(char const* after) {
        SCOPED_TRACE(after);
        for (int const line : {3, 17, 30}) {
            EXPECT_EQ(placeIn(top(), 1, line).x(), placeIn(view, 1, line).x());
            EXPECT_EQ(placeIn(top(), 1, line).width(), placeIn(view, 1, line).width());
            EXPECT_EQ(placeIn(left(), line, 1).y(), placeIn(view, line, 1).y());
            EXPECT_EQ(placeIn(left(), line, 1).height(), placeIn(view, line, 1).height());
        }
        QPoint const body = view.viewport()->pos();
        int const row = view.getNumHeaderRows() - 1;
        int const col = view.getNumHeaderCols() - 1;
        QSize const cross(view.columnViewportPosition(col) + colsBar().value() + view.columnWidth(col),
                          view.rowViewportPosition(row) + rowsBar().value() + view.rowHeight(row));
        EXPECT_EQ(corner().geometry(), QRect(body, cross));
        EXPECT_EQ(top().y(), body.y());
        EXPECT_EQ(top().height(), cross.height() + 2);
        EXPECT_EQ(left().x(), body.x());
        EXPECT_EQ(left().width(), cross.width());
        EXPECT_EQ(placeIn(corner(), row, col), placeIn(top(), row, col).translated(colsBar().value(), 0));
        EXPECT_EQ(placeIn(corner(), row, col), placeIn(left(), row, col).translated(0, rowsBar().value()));
    }
    /// From a point of a band to another one, which can lie outside.
    void drag(AbstractTableView& band, QPoint from, QPoint to) {
        QTest::mousePress(band.viewport(), Qt::LeftButton, Qt::NoModifier, from);
        QMouseEvent move(QEvent::MouseMove, to, band.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(band.viewport(), &move);
        QTest::mouseRelease(band.viewport(), Qt::LeftButton, Qt::NoModifier, to);
    }
    QPoint inCorner(AbstractTableView& shown, int row, int col) {
        return corner().viewport()->mapFrom(&view, placeIn(shown, row, col).center());
    }
};

} // namespace

TEST_F(FrozenPanes, StayInStepWithTheViewBeneath) {
    expectInStep("freezing");
    view.wheelScroll(Axis::Rows, 1234);
    view.wheelScroll(Axis::Columns, 567);
    expectInStep("scrolling");
    view.setColumnWidth(1, 130);
    view.setColumnWidth(17, 44);
    view.setRowHeight(0, 51);
    view.setRowHeight(17, 33);
    QApplication::processEvents();
    expectInStep("resizing");
    model().insertRows(5, 3);
    model().insertColumns(5, 2);
    QApplication::processEvents();
    expectInStep("inserting");
    model().removeRows(1, 2);
    model().removeColumns(0, 1);
    QApplication::processEvents();
    expectInStep("removing");
    view.resize(500, 390);
    QApplication::processEvents();
    expectInStep("a smaller window");
    view.setShowRowLabels(false);
    view.setShowColLabels(false);
    QApplication::processEvents();
    expectInStep("hiding the labels");
    EXPECT_TRUE(view.findChild<TLCornerButton*>()->size().isEmpty());
    view.setShowRowLabels(true);
    view.setShowColLabels(true);
    view.setDefaultRowHeight(40);
    view.setFirstRowIndex(1000000, false);
    QApplication::processEvents();
    expectInStep("higher rows and wider labels");
    view.goToBottom();
    view.goToFarRight();
    expectInStep("the last cell");
}

TEST_F(FrozenPanes, KeysMoveThroughTwoHeaderRowsAndAHeaderColumnAndOutOfThemToTheStartOfTheBody) {
    view.setNumberOfHeaderColumns(1, false);
    struct {
        int row, col;
        Qt::Key key;
        int newRow, newCol;
        bool keepsRows, keepsCols; ///< where the body is scrolled to
    } const cases[] = {
        {0, 0, Qt::Key_Down, 1, 0, false, true},   {1, 0, Qt::Key_Down, 2, 0, false, true},
        {1, 0, Qt::Key_Right, 1, 1, true, false},  {0, 0, Qt::Key_Tab, 0, 1, true, false},
        {1, 0, Qt::Key_Return, 2, 0, false, true}, {1, 0, Qt::Key_Up, 0, 0, false, true},
        {0, 0, Qt::Key_Up, 0, 0, true, true},      {1, 0, Qt::Key_Left, 1, 0, true, true},
    };
    for (AbstractTableView* const shown :
         std::initializer_list<AbstractTableView*>{&view, &top(), &left(), &corner()}) {
        for (auto const& test : cases) {
            select(test.row, test.col);
            rowsBar().setValue(1200);
            colsBar().setValue(560);
            QTest::keyClick(shown, test.key);
            EXPECT_EQ(model().getMainCell(), Range(test.newRow, test.newCol, RangeIndexType::Model));
            EXPECT_EQ(rowsBar().value(), test.keepsRows ? 1200 : 0) << test.row << test.key;
            EXPECT_EQ(colsBar().value(), test.keepsCols ? 560 : 0) << test.row << test.key;
            QApplication::processEvents();
            expectInStep("a key");
        }
    }
    select(2, 1); // the first row and column that are no header
    for (auto const& [code, bar] : {std::pair(Qt::Key_Down, &rowsBar()), std::pair(Qt::Key_Right, &colsBar())}) {
        bar->setValue(560);
        key(code);
        EXPECT_GT(bar->value(), 0);
        EXPECT_LT(bar->value(), 560);
    }
    // A move in the body stops at the band, not beneath it.
    select(52, 5);
    rowsBar().setValue(view.verticalHeader()->sectionPosition(52) - top().height() + 2);
    key(Qt::Key_Up);
    EXPECT_GE(placeIn(view, 51, 5).top(), top().geometry().bottom() - 2);
    EXPECT_GT(rowsBar().value(), 0);
    QApplication::processEvents();
    expectInStep("a move up to the band");
}

TEST_F(FrozenPanes, TheBandsAreWhereTheViewIsBeforeAnyOfThemIsPainted) {
    struct PaintCheck : QObject {
        std::function<bool()> isInStep;
        int paints = 0;
        int late = 0;
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) {
                ++paints;
                late += isInStep() ? 0 : 1;
            }
            return QObject::eventFilter(watched, event);
        }
    } check;
    check.isInStep = [this] {
        return left().verticalScrollBar()->value() == rowsBar().value() &&
               top().horizontalScrollBar()->value() == colsBar().value();
    };
    for (AbstractTableView const* shown : std::initializer_list<AbstractTableView const*>{&view, &top(), &left()})
        shown->viewport()->installEventFilter(&check);
    for (int step = 0; step < 5; ++step) {
        wheel({0, -120});
        wheel({-120, 0});
        view.scrollToCell(299 - step, 39 - step, true, false, Axis::Both);
        QApplication::processEvents();
    }
    EXPECT_GE(check.paints, 15);
    EXPECT_EQ(check.late, 0);
    // A bar that moves unheard is seen when it is painted.
    rowsBar().blockSignals(true);
    rowsBar().setValue(480);
    rowsBar().blockSignals(false);
    QApplication::processEvents();
    EXPECT_EQ(left().verticalScrollBar()->value(), 480);
}

TEST_F(FrozenPanes, OnlyWhatIsFrozenIsShownAndTheCornerOnlyWhereBandsCross) {
    EXPECT_TRUE(corner().isVisible());
    QList<QObject*> const order = view.children();
    EXPECT_GT(order.indexOf(&corner()), order.indexOf(&top()));
    EXPECT_GT(order.indexOf(&corner()), order.indexOf(&left()));
    view.setFreezeHeaderColumns(false, false);
    EXPECT_FALSE(corner().isVisible() || left().isVisible());
    EXPECT_TRUE(top().isVisible());
    view.setFreezeHeaderColumns(true, false);
    view.setNumberOfHeaderColumns(0, false);
    EXPECT_FALSE(corner().isVisible());
    EXPECT_EQ(left().width(), 0);
    view.setNumberOfHeaderColumns(1, false);
    EXPECT_TRUE(corner().isVisible());
    view.setNumberOfHeaderRows(0, false);
    EXPECT_EQ(top().height(), 2);
    view.setNumberOfHeaderRows(1000, false); // no more than there is room for
    EXPECT_LE(top().height(), view.viewport()->height());
}

TEST_F(FrozenPanes, ConcealedHeaderRowsAreNotInTheBand) {
    model().concealRawRows({0});
    view.enforceTableSize();
    EXPECT_EQ(view.getNumHeaderRows(), 1);
    EXPECT_EQ(model().getNumHeaderRows(), 2);
    EXPECT_EQ(top().height(), view.rowHeight(0) + 2);
    model().showAllRows();
    view.setNumberOfHeaderRows(3, false);
    EXPECT_EQ(top().getNumRows(), 3);
}

TEST_F(FrozenPanes, LabelsInABandResizeAndSelectAndADragEndsWithTheBand) {
    QWidget* const labels = left().horizontalHeader()->viewport();
    int const edge = view.columnWidth(0) + view.columnWidth(1) - 2;
    QTest::mousePress(labels, Qt::LeftButton, Qt::NoModifier, {edge, 5});
    QMouseEvent move(QEvent::MouseMove, QPoint(edge + 25, 5), labels->mapToGlobal(QPoint(edge + 25, 5)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(labels, &move);
    QTest::mouseRelease(labels, Qt::LeftButton, Qt::NoModifier, {edge + 25, 5});
    QApplication::processEvents();
    EXPECT_EQ(view.columnWidth(1), 105);
    expectInStep("resizing by a label of a band");
    view.wheelScroll(Axis::Columns, 900);
    QTest::mousePress(labels, Qt::LeftButton, Qt::NoModifier, {20, 5});
    EXPECT_TRUE(model().isColSelected(0));
    for (int const x : {120, 2000}) {
        QMouseEvent drag(QEvent::MouseMove, QPoint(x, 5), labels->mapToGlobal(QPoint(x, 5)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(labels, &drag);
    }
    QTest::mouseRelease(labels, Qt::LeftButton, Qt::NoModifier, {120, 5});
    EXPECT_TRUE(model().isColSelected(1));
    EXPECT_FALSE(model().isColSelected(2) || model().isColSelected(3));
}

TEST_F(FrozenPanes, ADragOutOfABandGoesOnInTheBody) {
    view.wheelScroll(Axis::Rows, 240);
    QPoint const body = top().viewport()->mapFrom(&view, placeIn(view, 14, 6).center());
    drag(top(), top().visualRect(model().index(1, 5)).center(), body);
    EXPECT_TRUE(model().cellInSelection(Range(14, 6, RangeIndexType::Model)));
    EXPECT_EQ(model().numSelectedCells(), 14 * 2);
    EXPECT_EQ(model().getMainCell(), Range(1, 5, RangeIndexType::Model));
    drag(left(), left().visualRect(model().index(15, 2)).center(),
         left().viewport()->mapFrom(&view, placeIn(view, 16, 4).center()));
    EXPECT_EQ(model().numSelectedCells(), 2 * 3);
}

TEST_F(FrozenPanes, DragsFromTheCornerGoOnInWhatIsUnderThePointer) {
    view.scrollToCell(100, 20, false, false, Axis::Both);
    QApplication::processEvents();
    int const row = view.rowAt(view.viewport()->height() - 5) - 1;
    int const col = view.columnAt(view.viewport()->width() - 5) - 1;
    QPoint const scrolled(colsBar().value(), rowsBar().value());
    struct {
        AbstractTableView& under;
        int row, col;
    } const cases[] = {{top(), 1, col}, {left(), row, 2}, {view, row, col}, {corner(), 1, 1}};
    for (auto const& target : cases) {
        drag(corner(), inCorner(corner(), 0, 0), inCorner(target.under, target.row, target.col));
        EXPECT_EQ(model().numSelectedCells(), (target.row + 1) * (target.col + 1));
        EXPECT_TRUE(model().cellInSelection(Range(target.row, target.col, RangeIndexType::Model)));
        EXPECT_EQ(QPoint(colsBar().value(), rowsBar().value()), scrolled);
    }
}

TEST_F(FrozenPanes, DragsOnTheEdgeOfTheHeaderRowsDoNotScroll) {
    view.scrollToCell(100, 0, false, false, Axis::Both);
    int const scrolled = rowsBar().value();
    drag(top(), top().visualRect(model().index(1, 5)).center(), QPoint(5, top().viewport()->height() - 1));
    EXPECT_EQ(rowsBar().value(), scrolled);
    EXPECT_FALSE(model().cellInSelection(Range(2, 5, RangeIndexType::Model)));
    EXPECT_EQ(model().getMainCell(), Range(1, 5, RangeIndexType::Model));
}

TEST_F(FrozenPanes, ADragToTheFirstLineOfTheBodyShowsItWhole) {
    for (auto const& [row, col] : {std::pair(2, 8), std::pair(20, 3)}) {
        QScrollBar& bar = row == 2 ? rowsBar() : colsBar();
        bar.setValue(10); // beneath the band by so much
        press(10, 6);
        dragTo(view.visualRect(model().index(row, col)).bottomRight() - QPoint(1, 1));
        EXPECT_EQ(bar.value(), 0) << row;
        release({});
    }
}

TEST_F(FrozenPanes, AGrowingEditorOfABandStaysInSight) {
    view.setAutoFitColWidth(true, false);
    view.scrollToCell(100, 0, false, false, Axis::Rows);
    int const scrolled = rowsBar().value();
    for (int const col : {view.columnAt(view.viewport()->width() - 2), 1}) {
        view.scrollToCol(col, true, true);
        model().setSelection(Range(1, col, RangeIndexType::Model));
        view.startEditing(true);
        AbstractTableView& band = *view.getCurrentlyEditedView();
        auto* const editor = band.findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        rowsBar().setValue(scrolled);
        QTest::keyClicks(editor, QStringLiteral("word ").repeated(8));
        EXPECT_EQ(editor->width(), band.visualRect(model().index(1, col)).width());
        EXPECT_LE(editor->mapTo(&view, editor->rect().bottomRight()).x(), view.viewport()->geometry().right() + 1);
        EXPECT_LE(editor->geometry().right(), band.viewport()->width());
        EXPECT_EQ(rowsBar().value(), scrolled);
        view.stopEditing();
    }
}

TEST_F(FrozenPanes, ACellIsEditedInTheViewThatShowsIt) {
    struct {
        AbstractTableView& shown;
        int row, col;
    } const cases[] = {{corner(), 1, 2}, {top(), 1, 3}, {left(), 2, 2}, {view, 2, 3}};
    for (auto const& test : cases) {
        select(test.row, test.col);
        view.startEditing(true);
        EXPECT_EQ(view.getCurrentlyEditedView(), &test.shown);
        auto* const editor = test.shown.viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << test.row << ',' << test.col;
        QTest::keyClicks(editor, "new");
        view.stopEditing();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(model().index(test.row, test.col).data().toString(), "new");
    }
}

TEST_F(FrozenPanes, InsertingBeforeHeaderLinesKeepsTheBandsInStep) {
    view.setRowHeight(0, 60);
    view.setColumnWidth(1, 140);
    for (Axis const axis : {Axis::Rows, Axis::Columns}) {
        view.pushUndoCommand(
            new InsertLinesCommand(axis, &model(), {Range(0, 0, RangeIndexType::Model)}, 1, true, true));
        QApplication::processEvents();
        expectInStep("inserting before a header line");
    }
    EXPECT_EQ(top().rowHeight(1), 60);
    EXPECT_EQ(left().columnWidth(2), 140);
    view.undo();
    view.undo();
    QApplication::processEvents();
    expectInStep("undo");
    EXPECT_EQ(top().rowHeight(0), 60);
    EXPECT_EQ(corner().columnWidth(1), 140);
}

TEST_F(FrozenPanes, TheWheelOverABandScrollsTheView) {
    for (AbstractTableView const* band : std::initializer_list<AbstractTableView const*>{&top(), &left(), &corner()}) {
        rowsBar().setValue(0);
        QPointF const point(5, 5);
        QWheelEvent event(point, band->viewport()->mapToGlobal(point), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(band->viewport(), &event);
        EXPECT_GT(rowsBar().value(), 0);
        EXPECT_EQ(left().verticalScrollBar()->value(), rowsBar().value());
        EXPECT_EQ(top().verticalScrollBar()->value(), 0);
        EXPECT_EQ(corner().verticalScrollBar()->value(), 0);
    }
}

TEST(FrozenPanesStart, BandsTakeTheTableWhenTheyAreFirstShown) {
    TableView view;
    view.tableModel()->setMinNumTableRows(50);
    view.tableModel()->setMinNumTableCols(20);
    view.enforceTableSize();
    view.setColumnWidth(12, 33);
    view.setRowHeight(0, 60);
    view.setDefaultColumnWidth(90);
    EXPECT_FALSE(view.getHorizontalFrozenView()->hasModel());
    view.setFreezeHeaderRows(true, false);
    FrozenTableView const& band = *view.getHorizontalFrozenView();
    EXPECT_EQ(band.columnWidth(12), view.columnWidth(12));
    EXPECT_EQ(band.columnWidth(13), 90);
    EXPECT_EQ(band.rowHeight(0), 60);
    EXPECT_FALSE(view.getVerticalFrozenView()->hasModel());
}
