// The time of one typed character, through to the painted frame: below 8 ms with one cell selected, below 30 ms with
// 500.

#include "view/TableView.h"

#include <QApplication>
#include <QTest>
#include <benchmark/benchmark.h>

namespace {

constexpr int rows = 1000;
constexpr int cols = 20;

/// A shown table that keeps the state that its window would keep.
struct EditedTable {
    EditedTable() {
        QObject::connect(&view, &AbstractTableView::addContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() | flags); });
        QObject::connect(&view, &AbstractTableView::removeContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() & ~flags); });
        TableModel& model = *view.tableModel();
        model.setMinNumTableRows(rows);
        model.setMinNumTableCols(cols);
        for (int row = 0; row < rows; ++row) {
            for (int col = 0; col < cols; ++col)
                model.setDataDirectly(model.index(row, col), QStringLiteral("%1:%2").arg(row).arg(col));
        }
        view.resize(1920, 1080);
        view.show();
        static_cast<void>(QTest::qWaitForWindowExposed(&view));
        view.activateWindow();
        static_cast<void>(QTest::qWaitForWindowActive(&view));
        view.setFocus();
    }

    void select(int count) {
        RangeVector cells;
        for (int row = 0; row < count; ++row)
            cells.push_back(Range(row, 0, RangeIndexType::Model));
        cells.front().hasMainCell = true;
        view.tableModel()->setSelection(cells, true);
    }

    TableView view;
};

void typeOneCharacter(benchmark::State& state) {
    EditedTable table;
    table.select(int(state.range(0)));
    QTest::keyClick(&table.view, Qt::Key_A);
    QCoreApplication::processEvents();
    for (auto _ : state) {
        QTest::sendKeyEvent(QTest::Press, QApplication::focusWidget(), Qt::Key_A, u'a', Qt::NoModifier);
        QCoreApplication::processEvents();
    }
}

void endTheEdit(benchmark::State& state) {
    EditedTable table;
    table.select(int(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        QTest::keyClick(&table.view, Qt::Key_A);
        QCoreApplication::processEvents();
        state.ResumeTiming();
        table.view.stopEditing();
        QCoreApplication::processEvents();
    }
}

} // namespace

BENCHMARK(typeOneCharacter)->Arg(1)->Arg(500)->Arg(rows)->Unit(benchmark::kMillisecond);
BENCHMARK(endTheEdit)->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);
