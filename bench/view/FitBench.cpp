// What fitting rows and columns costs in a table of a million rows. A file of 100 MB is opened without and with column
// fit in the same run, and the two are to be compared.

#include "model/undo/InsertLinesCommand.h"
#include "view/TableView.h"

#include <QApplication>
#include <QTemporaryFile>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

namespace {

constexpr int millionRows = 1000000;

/// The texts are of six digits.
std::unique_ptr<QTemporaryFile> makeFile(int rows, int cols) {
    auto file = std::make_unique<QTemporaryFile>();
    file->open();
    for (int row = 0; row < rows; ++row) {
        QByteArray line;
        for (int col = 0; col < cols; ++col)
            line += (col > 0 ? "," : "") + QByteArray::number(100000 + (row * 7919LL + col * 104729LL) % 899983);
        file->write(line + '\n');
    }
    file->flush();
    return file;
}

void open(benchmark::State& state) {
    static auto const file = makeFile(millionRows, 14);
    for (auto _ : state) {
        auto view = std::make_unique<TableView>();
        view->setAutoFitColWidth(state.range(0) != 0, false);
        view->resize(1280, 800);
        view->loadCSV(file->fileName(), false);
        view->show();
        QApplication::processEvents();
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}

/// A shown table of a million rows and fifty columns.
TableView& wideTable() {
    static auto const file = makeFile(millionRows, 50);
    static TableView* const view = [] {
        auto* const made = new TableView();
        made->resize(1280, 800);
        made->loadCSV(file->fileName(), false);
        made->show();
        QApplication::processEvents();
        return made;
    }();
    return *view;
}

void fitFiftyColumns(benchmark::State& state) {
    TableView& view = wideTable();
    view.setAutoFitColWidth(true, false);
    for (auto _ : state) {
        view.setUpdatesEnabled(false);
        for (int col = 0; col < 50; ++col)
            view.setColumnWidth(col, 80);
        view.setUpdatesEnabled(true);
        view.enforceAutoFitColWidth(false);
        QApplication::processEvents();
    }
    view.setAutoFitColWidth(false, false);
}

void boundRowsOfDefaultHeight(benchmark::State& state) {
    TableView& view = wideTable();
    for (auto _ : state)
        view.enforceAutoFitRowHeight(false);
}

void boundRowsOneOfThemTall(benchmark::State& state) {
    TableView& view = wideTable();
    view.setRowHeight(1000, 100);
    for (auto _ : state)
        view.enforceAutoFitRowHeight(false);
    view.setRowHeight(1000, view.getDefaultRowHeight());
}

void insertARowAndUndo(benchmark::State& state) {
    TableView& view = wideTable();
    for (auto _ : state) {
        view.pushUndoCommand(
            new InsertLinesCommand(Axis::Rows, view.tableModel(), {Range(3, 0, RangeIndexType::Model)}, 1, true, true));
        view.undo();
        QApplication::processEvents();
    }
}

void fitAThousandRows(benchmark::State& state) {
    TableView& view = wideTable();
    std::vector<int> rows(1000);
    std::iota(rows.begin(), rows.end(), 0);
    for (auto _ : state) {
        int highest = 0;
        for (int const row : rows)
            highest = std::max(highest, view.calculateAutoFitRowHeight(row));
        benchmark::DoNotOptimize(highest);
    }
}

} // namespace

BENCHMARK(open)->Arg(0)->Arg(1)->Arg(0)->Arg(1)->Iterations(5)->Unit(benchmark::kMillisecond);
BENCHMARK(fitFiftyColumns)->Unit(benchmark::kMillisecond);
BENCHMARK(boundRowsOfDefaultHeight)->Unit(benchmark::kMillisecond);
BENCHMARK(boundRowsOneOfThemTall)->Unit(benchmark::kMillisecond);
BENCHMARK(insertARowAndUndo)->Unit(benchmark::kMillisecond);
BENCHMARK(fitAThousandRows)->Unit(benchmark::kMillisecond);
