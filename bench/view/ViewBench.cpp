// Times of the table view from an event to the painted frame, in a window of 1280 by 800 in the built-in theme. The
// argument is the number of rows; what a screen shows must not cost more in the larger table.

#include "appearance/Theme.h"
#include "view/TableView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTemporaryFile>
#include <QWheelEvent>
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace {

constexpr int columns = 12;

/// Counts what is painted, so that no time is taken of a frame that was left out.
class PaintCounter : public QObject {
public:
    int paints = 0;

    bool eventFilter(QObject* watched, QEvent* event) override {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
};

struct Table {
    QTemporaryFile file;
    TableView view;
    PaintCounter counter;

    explicit Table(int rows) {
        file.open();
        for (int row = 0; row < rows; ++row) {
            QByteArray line;
            for (int col = 0; col < columns; ++col)
                line += (col > 0 ? "," : "") + QByteArray::number((row * 7919LL + col * 104729LL) % 999983);
            file.write(line + '\n');
        }
        file.flush();
        view.resize(1280, 800);
        view.loadCSV(file.fileName(), false);
        view.show();
        view.viewport()->installEventFilter(&counter);
        QApplication::processEvents();
    }
};

std::map<int64_t, std::unique_ptr<Table>> tables;

Table& tableOf(benchmark::State const& state) {
    auto& table = tables[state.range(0)];
    if (!table)
        table = std::make_unique<Table>(int(state.range(0)));
    table->view.moveSelectionAbsolute(int(state.range(0) / 2), 3);
    table->view.scrollToMainCell(true, false);
    QApplication::processEvents();
    return *table;
}

/// Runs `act` with a running number and waits for the frame that shows it.
template <typename Act>
void timeFrames(benchmark::State& state, Act act) {
    Table& table = tableOf(state);
    int number = 0;
    for (auto _ : state) {
        int const before = table.counter.paints;
        act(table.view, number++);
        QApplication::processEvents();
        if (table.counter.paints == before)
            state.SkipWithError("nothing was painted");
    }
}

/// Down and up by turns of a hundred, so that the table's end is not reached.
void keyPress(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int number) {
        QKeyEvent press(QEvent::KeyPress, number / 100 % 2 == 0 ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QApplication::sendEvent(&view, &press);
    });
}

void scrollScreen(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int number) {
        QPointF const point(100, 100);
        QWheelEvent wheel(point, view.viewport()->mapToGlobal(point), {}, {0, number / 10 % 2 == 0 ? -120 : 120},
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.viewport(), &wheel);
    });
}

/// A few rows on, with or without frozen bands, and all views painted.
void scrollStep(benchmark::State& state) {
    bool const frozen = state.range(1) != 0;
    TableView& view = tableOf(state).view;
    view.setNumberOfHeaderRows(1, false);
    view.setNumberOfHeaderColumns(2, false);
    view.setFreezeHeaderRows(frozen, false);
    view.setFreezeHeaderColumns(frozen, false);
    QApplication::processEvents();
    timeFrames(state, [](TableView& table, int number) {
        table.scroll(number / 100 % 2 == 0 ? Direction::Down : Direction::Up, false);
    });
    view.setFreezeHeaderRows(false, false);
    view.setFreezeHeaderColumns(false, false);
}

/// The bands are shown for the first time and take the table and its sizes over.
void firstFreeze(benchmark::State& state) {
    QTemporaryFile file;
    file.open();
    for (int row = 0; row < int(state.range(0)); ++row)
        file.write("1,2,3\n");
    file.flush();
    for (auto _ : state) {
        state.PauseTiming();
        auto view = std::make_unique<TableView>();
        view->resize(1280, 800);
        view->loadCSV(file.fileName(), false);
        view->setNumberOfHeaderColumns(2, false);
        view->setRowHeight(5000, 50);
        view->show();
        QApplication::processEvents();
        state.ResumeTiming();
        view->setFreezeHeaderRows(true, false);
        QApplication::processEvents();
        view->setFreezeHeaderColumns(true, false);
        QApplication::processEvents();
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
}

void selectAll(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int) { view.selectEntireTable(); });
}

void selectColumn(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int number) { view.selectCol(number % columns); });
}

void selectRow(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int number) { view.selectRow(number % 100); });
}

/// The grid gets one more empty row, as when the user goes on typing at the end of the table.
void growByARow(benchmark::State& state) {
    timeFrames(state, [](TableView& view, int number) {
        view.tableModel()->setNumBufferRows(number + 1);
        view.enforceTableSize();
        view.refreshView();
    });
}

} // namespace

BENCHMARK(keyPress)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollScreen)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollStep)
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->Args({1000000, 0})
    ->Args({1000000, 1})
    ->ArgNames({"rows", "frozen"})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(firstFreeze)->Arg(1000000)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(selectAll)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(selectColumn)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(selectRow)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(growByARow)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    application.setStyleSheet(Theme().getStyleSheet());
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    tables.clear(); // while the application still is
    return 0;
}
