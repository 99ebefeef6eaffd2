#include "view/HeaderView.h"

#include "tests/view/TableFixture.h"

#include <QSignalSpy>

#include <string>

namespace {

/// Presses on labels; every case runs along rows and along columns, with lines of 80 pixels.
class HeaderGesture : public TableFixture, public testing::WithParamInterface<Axis> {
protected:
    void SetUp() override {
        load(8, 8);
        view.setDefaultRowHeight(80);
        view.resize(900, 900);
    }
    bool rows() const { return GetParam() == Axis::Rows; }
    HeaderView& header() { return rows() ? *view.getVerticalHeaderView() : *view.getHorizontalHeaderView(); }
    QPoint pointAt(int pixel) { return rows() ? QPoint(5, pixel) : QPoint(pixel, 5); }
    QPoint pointOn(int section) { return pointAt(header().sectionViewportPosition(section) + 40); }
    void press(int section, Qt::KeyboardModifiers modifiers = Qt::NoModifier, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(header().viewport(), button, modifiers, pointOn(section));
    }
    void dragOver(QPoint point) {
        QMouseEvent move(QEvent::MouseMove, point, header().viewport()->mapToGlobal(point), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(header().viewport(), &move);
    }
    void release(int section) {
        QTest::mouseRelease(header().viewport(), Qt::LeftButton, Qt::NoModifier, pointOn(section));
    }
    void click(int section, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        press(section, modifiers);
        release(section);
    }
    /// The selected lines, and the line of the main cell behind a star.
    std::string lines() {
        std::string text;
        for (int line = 0; line < 8; ++line) {
            if (rows() ? model().isRowSelected(line) : model().isColSelected(line))
                text += std::to_string(line);
        }
        Range const main = model().getMainCell();
        return text + '*' + std::to_string(rows() ? main.row : main.col);
    }
};

} // namespace

TEST_P(HeaderGesture, APressSelectsAndADragReachesBothWays) {
    press(3);
    EXPECT_EQ(lines(), "3*3");
    EXPECT_EQ(rows() ? model().getMainCell().col : model().getMainCell().row, 0);
    EXPECT_EQ(header().sectionResizeMode(0), QHeaderView::Fixed);
    dragOver(pointOn(5));
    EXPECT_EQ(lines(), "345*3");
    dragOver(pointOn(2));
    EXPECT_EQ(lines(), "23*3");
    dragOver(pointAt(2000)); // behind the last label
    EXPECT_EQ(lines(), "23*3");
    release(2);
    EXPECT_EQ(header().sectionResizeMode(0), QHeaderView::Interactive);
    dragOver(pointOn(7));
    EXPECT_EQ(lines(), "23*3");
}

TEST_P(HeaderGesture, CtrlAddsToWhatWasSelectedAtThePress) {
    click(1);
    press(4, Qt::ControlModifier);
    EXPECT_EQ(lines(), "14*1");
    dragOver(pointOn(6));
    EXPECT_EQ(lines(), "1456*1");
    dragOver(pointOn(5)); // takes back what the drag added and no more
    EXPECT_EQ(lines(), "145*1");
    release(5);
    QTest::mousePress(header().viewport(), Qt::RightButton, Qt::NoModifier, pointOn(4));
    EXPECT_EQ(lines(), "145*1");
    QTest::mousePress(header().viewport(), Qt::RightButton, Qt::NoModifier, pointOn(7));
    EXPECT_EQ(lines(), "7*7");
    QTest::mousePress(header().viewport(), Qt::RightButton, Qt::NoModifier, pointAt(2000));
    EXPECT_EQ(lines(), "7*7");
}

TEST_P(HeaderGesture, ShiftExtendsFromTheMainCellOrDragsTheSections) {
    QSignalSpy const drags(&view, &TableView::arrayDragStartSignal);
    QSignalSpy const ends(&header(), &HeaderView::arrayDragStopSignal);
    click(2);
    click(2, Qt::ShiftModifier); // alone and selected
    EXPECT_EQ(drags.size(), 1);
    EXPECT_EQ(ends.size(), 1);
    EXPECT_EQ(lines(), "2*2");
    click(6, Qt::ShiftModifier); // another line is selected
    EXPECT_EQ(lines(), "23456*2");
    click(0, Qt::ShiftModifier);
    EXPECT_EQ(lines(), "012*2");
    click(1, Qt::ShiftModifier); // among those selected
    EXPECT_EQ(drags.size(), 2);
    EXPECT_EQ(lines(), "012*2");
    select(3, 3); // no line at all
    click(5, Qt::ShiftModifier);
    EXPECT_EQ(drags.size(), 3);
    EXPECT_EQ(drags.back().at(1).toInt(), 5);
    EXPECT_EQ(lines(), "*3");
}

TEST_P(HeaderGesture, AGripResizesAndALabelSelects) {
    select(7, 7);
    struct Press {
        int fromStart; ///< of line 2
        int resized;   ///< the line, -1 for none
        char const* selected;
    };
    for (Press const& at :
         {Press{1, 1, "*7"}, {3, 1, "*7"}, {4, -1, "2*2"}, {76, -1, "23*2"}, {77, 2, "*7"}, {79, 2, "*7"}}) {
        SCOPED_TRACE(at.fromStart);
        header().resizeSection(1, 80);
        header().resizeSection(2, 80);
        select(7, 7);
        QPoint const from = pointAt(160 + at.fromStart);
        QTest::mousePress(header().viewport(), Qt::LeftButton, Qt::NoModifier, from);
        dragOver(from + pointAt(30) - pointAt(0));
        QTest::mouseRelease(header().viewport(), Qt::LeftButton, Qt::NoModifier, from);
        EXPECT_EQ(lines(), at.selected);
        EXPECT_EQ(header().sectionSize(1), at.resized == 1 ? 110 : 80);
        EXPECT_EQ(header().sectionSize(2), at.resized == 2 ? 110 : 80);
    }
}

TEST_P(HeaderGesture, DoubleClicksSortTheOtherWayEachTime) {
    if (rows())
        model().concealRawRows({1});
    else
        model().concealRawCols({1});
    view.enforceTableSize();
    auto const sorted = [this] { return rows() ? model().getColSortData() : model().getRowSortData(); };
    Axis const axis = rows() ? Axis::Columns : Axis::Rows;
    for (SortType const expected : {SortType::Ascending, SortType::Descending, SortType::Ascending}) {
        QTest::mouseDClick(header().viewport(), Qt::LeftButton, Qt::NoModifier, pointOn(2));
        EXPECT_EQ(sorted(), (SortData{expected, axis, 3}));
    }
    QTest::mouseDClick(header().viewport(), Qt::LeftButton, Qt::NoModifier, pointOn(3)); // another line
    EXPECT_EQ(sorted(), (SortData{SortType::Ascending, axis, 4}));
    QTest::mouseDClick(header().viewport(), Qt::LeftButton, Qt::NoModifier, pointAt(2000));
    EXPECT_EQ(view.undoStack()->count(), 4);
}

INSTANTIATE_TEST_SUITE_P(BothAxes, HeaderGesture, testing::Values(Axis::Rows, Axis::Columns),
                         [](auto const& info) { return info.param == Axis::Rows ? "Rows" : "Columns"; });

namespace {

class Labels : public TableFixture {
protected:
    QString label(Qt::Orientation orientation, int section) {
        return model().headerData(section, orientation, Qt::DisplayRole).toString();
    }
};

} // namespace

TEST_F(Labels, LettersBeginAtAAndGiveTheNumbersBack) {
    load(99, 4);
    view.setFirstColIndex(5, false, false);
    EXPECT_EQ(label(Qt::Horizontal, 0), "5");
    view.setRepresentColumnsAsLetters(true);
    EXPECT_EQ(label(Qt::Horizontal, 0), "A");
    EXPECT_EQ(model().getFirstColIndex(), 0);
    view.setFirstColIndex(7, false, false);
    EXPECT_EQ(label(Qt::Horizontal, 0), "A");
    view.setRepresentColumnsAsLetters(false);
    EXPECT_EQ(label(Qt::Horizontal, 0), "7");
    int const width = view.verticalHeader()->width();
    view.setFirstRowIndex(100000, false);
    EXPECT_EQ(label(Qt::Vertical, 0), "100000");
    EXPECT_GT(view.verticalHeader()->width(), width);
}

TEST_F(Labels, WhatIsKeptWithTheFileIsAnnouncedOnlyWhenAsked) {
    load(5, 5);
    QSignalSpy const changes(&view, &TableView::fileMetadataChangedSignal);
    for (bool const announce : {false, true}) {
        view.setNumberOfHeaderRows(2, announce);
        view.setNumberOfHeaderColumns(2, announce);
        view.setFreezeHeaderRows(true, announce);
        view.setFreezeHeaderColumns(true, announce);
        view.setHighlightHeaderRows(false, announce);
        view.setHighlightHeaderColumns(false, announce);
        view.setFirstRowIndex(1, announce);
        view.setFirstColIndex(1, announce, false);
        EXPECT_EQ(changes.size(), announce ? 8 : 0);
    }
    EXPECT_TRUE(model().getFreezeHeaderRows() && model().getFreezeHeaderColumns());
}
