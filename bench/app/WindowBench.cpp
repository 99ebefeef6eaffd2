// How long a window of several tables keeps the user waiting: the longest gap between two turns of the event loop while
// a large file loads into a second tab (goal: 50 ms), and a switch between two tabs of a million rows each, from the
// request to the painted frame (goal: 30 ms). Files are those of gridwright_bench_generate.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "bench/app/NumbersFile.h"
#include "view/FrozenTableView.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>

namespace {

QString benchFile(char const* name) {
    QByteArray const folder = qgetenv("GRIDWRIGHT_BENCH_FOLDER");
    return QString::fromUtf8(folder.isEmpty() ? "/tmp/gridwright-bench" : folder) + '/' + name;
}

/// In milliseconds. The work is the processor time of the thread, which a busy machine does not lengthen.
struct Gap {
    double time = 0;
    double work = 0;
};

double threadWork() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
}

/// Runs the event loop until nothing of the window loads, and tells the longest time that it did not come round.
Gap longestGap(MainWindow const& window) {
    QElapsedTimer sinceTurn;
    Gap longest;
    auto const loading = [&] {
        auto const tables = window.getPaneView()->getTables();
        return std::any_of(tables.begin(), tables.end(), [](TableView const* table) { return table->isLoading(); });
    };
    bool lastTurns = false;
    for (int idle = 0; idle < 20; idle += lastTurns ? 1 : 0) {
        lastTurns = !loading();
        sinceTurn.start();
        double const before = threadWork();
        QApplication::processEvents(QEventLoop::AllEvents);
        longest.time = std::max(longest.time, double(sinceTurn.nsecsElapsed()) / 1e6);
        longest.work = std::max(longest.work, threadWork() - before);
    }
    return longest;
}

/// The argument says whether the header rows are frozen, in a band that learns of all rows too.
void loadInSecondTab(benchmark::State& state) {
    QTemporaryDir folder;
    double call = 0;
    Gap gap;
    for ([[maybe_unused]] auto const round : state) {
        MainWindow window;
        window.resize(1280, 800);
        window.show();
        window.openFile(numbersFile(folder, "small.csv", 1000));
        longestGap(window);
        QElapsedTimer opening;
        opening.start();
        window.openFile(benchFile("typical-1000.csv"));
        call = std::max(call, double(opening.nsecsElapsed()) / 1e6);
        if (state.range(0) == 0) {
            window.getActiveTable()->setFreezeHeaderRows(false, false);
            window.getActiveTable()->getHorizontalFrozenView()->setModel(nullptr);
        }
        gap = longestGap(window);
    }
    state.counters["open_call_ms"] = call;
    state.counters["longest_gap_ms"] = gap.time;
    state.counters["longest_gap_work_ms"] = gap.work;
}

void switchTabs(benchmark::State& state) {
    QTemporaryDir folder;
    MainWindow window;
    window.resize(1280, 800);
    window.show();
    int const rows = int(state.range(0));
    window.openFiles({numbersFile(folder, "a.csv", rows), numbersFile(folder, "b.csv", rows)});
    longestGap(window);
    for ([[maybe_unused]] auto const round : state) {
        window.commandSwitchToTabOnTheRight();
        QApplication::processEvents();
        window.getActiveTable()->viewport()->repaint();
    }
}

} // namespace

BENCHMARK(loadInSecondTab)
    ->Arg(0)
    ->Arg(1)
    ->ArgName("frozen")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Repetitions(3);
BENCHMARK(switchTabs)->Unit(benchmark::kMillisecond)->Arg(1000)->Arg(1000000);

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QT_QPA_PLATFORM").isEmpty() ? "offscreen" : qgetenv("QT_QPA_PLATFORM"));
    QStandardPaths::setTestModeEnabled(true);
    QApplication application(argc, argv);
    // The question about a large file is answered at once, for editing.
    MsgBox::setAnswer([](MsgBox const& box) { return box.buttons().value(1); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
