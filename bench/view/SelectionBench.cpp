// Times of keys and edits with many cells selected, from the key to the painted frame, with the status bar's numbers.
// The argument is the number of rows of 12 columns. md5sum of the same file, in the same run, is the unit for what has
// to touch every cell: M in the counters is the median time as so many md5sums.

#include "appearance/Theme.h"
#include "model/undo/SetModelDataCommand.h"
#include "view/TableView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QProcess>
#include <QScrollBar>
#include <QTemporaryFile>
#include <QTest>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace {

constexpr int columns = 12;

double residentMegabytes() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (QByteArray const& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').front().toDouble() / 1024;
    }
    return 0;
}

/// A shown table of `rows` times `cols` cells that keeps the state its window would keep.
struct LargeTable {
    LargeTable(int rows, int cols) {
        file.open();
        for (int row = 0; row < rows; ++row) {
            QByteArray line;
            for (int col = 0; col < cols; ++col)
                line += (col > 0 ? "," : "") + QByteArray::number((row * 7919LL + col * 104729LL) % 9999983);
            file.write(line + '\n');
        }
        file.flush();
        QObject::connect(&view, &AbstractTableView::addContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() | flags); });
        QObject::connect(&view, &AbstractTableView::removeContextSignal, &view,
                         [this](Context flags) { view.setContext(view.getContext() & ~flags); });
        QObject::connect(&view, &TableView::selectionSizeChangedSignal, &view, [this](RangeSize const& size) {
            shownCells = size.cells;
            selectedCells = view.tableModel()->numSelectedCells();
        });
        view.resize(1280, 800);
        view.loadCSV(file.fileName(), false);
        view.show();
        view.activateWindow();
        view.setFocus();
        QApplication::processEvents();
    }

    double md5sumMilliseconds() const {
        std::vector<qint64> times;
        for (int run = 0; run < 5; ++run) {
            QElapsedTimer clock;
            clock.start();
            QProcess md5sum;
            md5sum.start(QStringLiteral("md5sum"), {file.fileName()});
            md5sum.waitForFinished(-1);
            times.push_back(clock.nsecsElapsed());
        }
        std::sort(times.begin(), times.end());
        return double(times[2]) / 1e6;
    }

    QTemporaryFile file;
    TableView view;
    int shownCells = 0;
    qint64 selectedCells = 0;
};

std::map<std::pair<int, int>, std::unique_ptr<LargeTable>> largeTables;

LargeTable& largeTable(int rows, int cols) {
    if (largeTables.empty())
        qAddPostRoutine([] { largeTables.clear(); }); // while the application still is
    auto& table = largeTables[{rows, cols}];
    if (!table)
        table = std::make_unique<LargeTable>(rows, cols);
    return *table;
}

void selectDownAndGoOn(benchmark::State& state) {
    LargeTable& table = largeTable(int(state.range(0)), columns);
    TableModel& model = *table.view.tableModel();
    for (auto _ : state) {
        table.view.moveSelectionAbsolute(0, 2);
        table.view.selectDownToBottomOfColumn();
        QApplication::processEvents();
        for (int key = 0; key < 4; ++key) {
            key % 2 ? model.selectLeftOrRight(Direction::Left, false, false, nullptr)
                    : model.selectLeftOrRight(Direction::Right, false, false, nullptr);
            table.view.refreshView();
            QApplication::processEvents();
        }
        table.view.moveSelectionRelative(0, 1);
        QApplication::processEvents();
    }
}

void dragOverRectangle(benchmark::State& state) {
    int const rows = int(state.range(0));
    LargeTable& table = largeTable(rows, columns);
    TableModel& model = *table.view.tableModel();
    model.setPendingSelectionCorner(Range(0, 0, RangeIndexType::Model), true);
    int move = 0;
    for (auto _ : state) {
        model.setPendingSelectionCorner(Range(rows - 1 - (move++ % 2), 6, RangeIndexType::Model), false);
        table.view.refreshView();
        QApplication::processEvents();
    }
    model.setPendingCorners(Range(RangeType::None), Range(RangeType::None));
}

/// The list form of a million single cells, which who asks for it gets made once.
void listOfCells(benchmark::State& state) {
    TableModel& model = *largeTable(1'000'000, columns).view.tableModel();
    double before = 0;
    double most = 0;
    for (auto _ : state) {
        state.PauseTiming();
        model.setSelection(Range(0, 2, RangeIndexType::Model), RangeSet(CellRegion({0, 2, 999'999, 2})));
        before = residentMegabytes();
        state.ResumeTiming();
        benchmark::DoNotOptimize(model.getSelection().size());
        most = residentMegabytes();
    }
    state.counters["extraMegabytes"] = most - before;
}

enum Step { ArrowKey, ShiftArrow, LabelRepaint, ScrolledFrame };

/// Every second row of a table of a million, whole or as one cell, and a step that is taken again and again with them.
void scatteredSelection(benchmark::State& state) {
    LargeTable& table = largeTable(1'000'000, columns);
    TableView& view = table.view;
    TableModel& model = *view.tableModel();
    bool const wholeRows = state.range(1) != 0;
    RangeVector ranges;
    for (int piece = 0; piece < int(state.range(0)); ++piece)
        ranges.push_back(wholeRows ? Range(2 * piece, RangeType::Row, RangeIndexType::Model)
                                   : Range(2 * piece, 3, RangeIndexType::Model));
    view.verticalScrollBar()->setValue(0);
    model.setSelection(Range(0, 3, RangeIndexType::Model), ranges);
    QApplication::processEvents();
    int count = 0;
    for (auto _ : state) {
        bool const there = count++ % 2 == 0;
        switch (Step(state.range(2))) {
        case ArrowKey: view.moveSelectionRelative(there ? 1 : -1, 0); break;
        case ShiftArrow:
            model.selectUpOrDown(there ? Direction::Down : Direction::Up, false, false, nullptr);
            view.refreshView();
            break;
        case LabelRepaint:
            view.verticalHeader()->viewport()->update();
            benchmark::DoNotOptimize(model.isRowSelected(500'000 + count));
            break;
        case ScrolledFrame: view.verticalScrollBar()->setValue(there ? 40 : 0); break;
        }
        QApplication::processEvents();
    }
}

/// Runs an act and another that takes it back; only the first, or only the second, is timed.
void timeActOrBack(benchmark::State& state, LargeTable& table, bool back, std::function<void()> const& act,
                   std::function<void()> const& takeBack) {
    double const unit = table.md5sumMilliseconds();
    std::vector<double> times;
    double const before = residentMegabytes();
    double most = before;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        act();
        QApplication::processEvents();
        double const acted = double(clock.nsecsElapsed()) / 1e9;
        most = std::max(most, residentMegabytes());
        clock.restart();
        takeBack();
        QApplication::processEvents();
        double const taken = double(clock.nsecsElapsed()) / 1e9;
        times.push_back(back ? taken : acted);
        state.SetIterationTime(times.back());
    }
    std::sort(times.begin(), times.end());
    state.counters["M"] = times[times.size() / 2] * 1e3 / unit;
    state.counters["extraPerByte"] = (most - before) * 1024 * 1024 / double(table.file.size());
}

void typeIntoColumn(benchmark::State& state) {
    LargeTable& table = largeTable(int(state.range(0)), columns);
    table.view.moveSelectionAbsolute(0, 2);
    table.view.selectDownToBottomOfColumn();
    timeActOrBack(
        state, table, state.range(1) != 0,
        [&] {
            QTest::sendKeyEvent(QTest::Press, QApplication::focusWidget(), Qt::Key_A, u'a', Qt::NoModifier);
            QCoreApplication::processEvents();
            table.view.stopEditing();
        },
        [&] { table.view.undo(); });
}

void fillSelection(benchmark::State& state, LargeTable& table, QString const& text) {
    table.view.selectEntireTable();
    QApplication::processEvents();
    TableModel* const model = table.view.tableModel();
    timeActOrBack(
        state, table, state.range(2) != 0,
        [&] { table.view.pushUndoCommand(new SetModelDataCommand(model, model->getSelectedSet(), text, true)); },
        [&] { table.view.undo(); });
}

void clearAll(benchmark::State& state) {
    fillSelection(state, largeTable(int(state.range(0)), int(state.range(1))), {});
}

void replaceAll(benchmark::State& state) {
    fillSelection(state, largeTable(int(state.range(0)), int(state.range(1))), QStringLiteral("longer than before"));
}

/// Tables with the same number of cells each: a table of 12 columns and wide rows.
void sameCells(benchmark::internal::Benchmark* bench) {
    for (int const back : {0, 1}) {
        for (auto const& [rows, cols] :
             {std::pair(33334, 12), std::pair(20, 20000), std::pair(16667, 12), std::pair(2, 100000)})
            bench->Args({rows, cols, back});
    }
}

} // namespace

BENCHMARK(selectDownAndGoOn)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(dragOverRectangle)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(listOfCells)->Unit(benchmark::kMillisecond);
BENCHMARK(scatteredSelection)
    ->ArgsProduct({{1000, 500'000}, {0, 1}, {ArrowKey, ShiftArrow, LabelRepaint, ScrolledFrame}})
    ->ArgNames({"pieces", "rows", "step"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(typeIntoColumn)
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->ArgNames({"rows", "undo"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(clearAll)
    ->Args({1000000, 12, 0})
    ->Args({1000000, 12, 1})
    ->Apply(sameCells)
    ->ArgNames({"rows", "cols", "undo"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(replaceAll)
    ->Apply(sameCells)
    ->ArgNames({"rows", "cols", "undo"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
