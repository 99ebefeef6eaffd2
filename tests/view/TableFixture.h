#pragma once

#include "view/TableView.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTemporaryFile>
#include <QTest>
#include <gtest/gtest.h>

/// A shown table of `rows` by `cols` cells with the texts "row:column".
class TableFixture : public testing::Test {
protected:
    void load(int rows, int cols) {
        QByteArray text;
        for (int row = 0; row < rows; ++row) {
            for (int col = 0; col < cols; ++col)
                text += (col > 0 ? "," : "") + QByteArray::number(row) + ':' + QByteArray::number(col);
            text += '\n';
        }
        loadText(text);
    }
    void loadText(QByteArray const& text) {
        ASSERT_TRUE(file.open());
        file.write(text);
        file.flush();
        view.resize(640, 480);
        view.loadCSV(file.fileName(), false);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    TableModel& model() { return *view.tableModel(); }
    QScrollBar& rowsBar() { return *view.verticalScrollBar(); }
    QScrollBar& colsBar() { return *view.horizontalScrollBar(); }
    QPoint centreOf(int row, int col) { return view.visualRect(model().index(row, col)).center(); }
    void select(int row, int col) { view.moveSelectionAbsolute(row, col); }
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(&view, static_cast<Qt::Key>(key), modifiers);
    }
    void click(int row, int col, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, centreOf(row, col));
    }
    void press(int row, int col, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mousePress(view.viewport(), Qt::LeftButton, modifiers, centreOf(row, col));
    }
    /// With the left button down; also outside the viewport.
    void dragTo(QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QMouseEvent move(QEvent::MouseMove, point, view.viewport()->mapToGlobal(point), Qt::NoButton, Qt::LeftButton,
                         modifiers);
        QApplication::sendEvent(view.viewport(), &move);
    }
    void release(QPoint point, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, modifiers, point);
    }
    void wheel(QPoint turn, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
               QPointingDevice const* device = QPointingDevice::primaryPointingDevice()) {
        QPointF const point(50, 50);
        QWheelEvent event(point, view.viewport()->mapToGlobal(point), {}, turn, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false, Qt::MouseEventNotSynthesized, device);
        QApplication::sendEvent(view.viewport(), &event);
    }

    QTemporaryFile file;
    TableView view;
};
