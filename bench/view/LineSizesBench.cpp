// What changes of the lines of a table of a million rows cost, with rows of the default height, with one row that has
// been made higher by hand, and with bands of header rows and columns.

#include "model/undo/ApplyHiddenLinesCommand.h"
#include "model/undo/InsertLinesCommand.h"
#include "model/undo/MoveLinesCommand.h"
#include "model/undo/RemoveLinesCommand.h"
#include "model/undo/SortCommand.h"
#include "view/TableView.h"

#include <QApplication>
#include <QTemporaryFile>
#include <benchmark/benchmark.h>

#include <functional>
#include <numeric>
#include <vector>

namespace {

constexpr int millionRows = 1000000;

TableView& table() {
    static TableView* const view = [] {
        QTemporaryFile file;
        file.open();
        for (int row = 0; row < millionRows; ++row)
            file.write(QByteArray::number((row * 7919LL) % 899983) + ",a,b\n");
        file.flush();
        auto* const made = new TableView();
        made->resize(1280, 800);
        made->loadCSV(file.fileName(), false);
        made->show();
        QApplication::processEvents();
        return made;
    }();
    return *view;
}

enum Sizes { Default, OneTall, DefaultWithBands, OneTallWithBands };

/// Carries the command out and takes it back, each up to the painted frame.
void thereAndBack(benchmark::State& state, std::function<QUndoCommand*(TableModel*)> const& makeCommand) {
    TableView& view = table();
    bool const tall = state.range(0) == OneTall || state.range(0) == OneTallWithBands;
    bool const bands = state.range(0) == DefaultWithBands || state.range(0) == OneTallWithBands;
    view.setDefaultRowHeight(24);
    if (tall)
        view.setRowHeight(1000, 100);
    view.setFreezeHeaderRows(bands, false);
    view.setFreezeHeaderColumns(bands, false);
    QApplication::processEvents();
    for (auto _ : state) {
        view.pushUndoCommand(makeCommand(view.tableModel()));
        QApplication::processEvents();
        view.undo();
        QApplication::processEvents();
    }
}

RangeVector const rowThree{Range(3, 0, RangeIndexType::Model)};

void hideARow(benchmark::State& state) {
    thereAndBack(state, [](TableModel* model) {
        return new ApplyHiddenRowsCommand(model, model->getSelection(), std::vector<int>{5}, true);
    });
}

void hideHalfOfTheRows(benchmark::State& state) {
    std::vector<int> rows;
    for (int row = 1; row < millionRows; row += 2)
        rows.push_back(row);
    thereAndBack(
        state, [&](TableModel* model) { return new ApplyHiddenRowsCommand(model, model->getSelection(), rows, true); });
}

void insertARow(benchmark::State& state) {
    thereAndBack(state, [](TableModel* model) { return new InsertRowsCommand(model, rowThree, 1, true, true); });
}

void insertAtFortyPlaces(benchmark::State& state) {
    RangeVector places;
    for (int row = 0; row < 40; ++row)
        places.push_back(Range(row * 1000, 0, RangeIndexType::Model));
    thereAndBack(state, [&](TableModel* model) { return new InsertRowsCommand(model, places, 1, true, true); });
}

void removeARow(benchmark::State& state) {
    thereAndBack(state, [](TableModel* model) { return new RemoveRowsCommand(model, rowThree, 1, true); });
}

void moveARow(benchmark::State& state) {
    thereAndBack(state, [](TableModel* model) { return new MoveRowsRelativeCommand(model, rowThree, 2, true); });
}

void moveHalfOfTheRows(benchmark::State& state) {
    RangeVector rows;
    for (int row = 0; row < millionRows; row += 2)
        rows.push_back(Range(row, RangeType::Row, RangeIndexType::Model));
    thereAndBack(state, [&](TableModel* model) { return new MoveRowsRelativeCommand(model, rows, 1, true); });
}

void sortTheRows(benchmark::State& state) {
    thereAndBack(state, [](TableModel* model) {
        return new SortCommand(model, SortData{SortType::Ascending, Axis::Rows, 0});
    });
}

} // namespace

BENCHMARK(hideARow)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(hideHalfOfTheRows)->DenseRange(0, 3)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(insertARow)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(insertAtFortyPlaces)->DenseRange(0, 3)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(removeARow)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(moveARow)->DenseRange(0, 3)->Unit(benchmark::kMillisecond);
BENCHMARK(moveHalfOfTheRows)->DenseRange(0, 1)->Iterations(3)->Unit(benchmark::kMillisecond);
BENCHMARK(sortTheRows)->DenseRange(0, 1)->Iterations(2)->Unit(benchmark::kMillisecond);
