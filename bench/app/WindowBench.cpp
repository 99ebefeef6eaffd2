// How long a window of several tables keeps the user waiting: the longest gap between two turns of the event loop while
// a large file loads into a second tab (goal: 50 ms), and a switch between two tabs of a million rows each, from the
// request to the painted frame (goal: 30 ms). Files are those of gridwright_bench_generate.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/TabBar.h"
#include "view/MsgBox.h"
#include "view/TableView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QElapsedTimer>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <algorithm>

namespace {

QString benchFile(char const* name) {
    QByteArray const folder = qgetenv("GRIDWRIGHT_BENCH_FOLDER");
    return QString::fromUtf8(folder.isEmpty() ? "/tmp/gridwright-bench" : folder) + '/' + name;
}

QString numbersFile(QTemporaryDir const& folder, QString const& name, int rows) {
    QFile file(folder.filePath(name));
    file.open(QIODevice::WriteOnly);
    for (int row = 0; row < rows; ++row) {
        QByteArray line;
        for (int col = 0; col < 12; ++col)
            line += (col > 0 ? "," : "") + QByteArray::number((row * 7919LL + col * 104729LL) % 999983);
        file.write(line + '\n');
    }
    return file.fileName();
}

/// Runs the event loop until nothing of the window loads, and tells the longest time that it did not come round.
double longestGap(MainWindow const& window) {
    QElapsedTimer sinceTurn;
    qint64 longest = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] { longest = std::max(longest, sinceTurn.nsecsElapsed()); });
    turn.start(0);
    auto const loading = [&] {
        auto const tables = window.getPaneView()->getTables();
        return std::any_of(tables.begin(), tables.end(), [](TableView const* table) { return table->isLoading(); });
    };
    bool lastTurns = false;
    for (int idle = 0; idle < 20; idle += lastTurns ? 1 : 0) {
        lastTurns = !loading();
        sinceTurn.start();
        QApplication::processEvents(QEventLoop::AllEvents);
        longest = std::max(longest, sinceTurn.nsecsElapsed());
    }
    return double(longest) / 1e6;
}

void loadInSecondTab(benchmark::State& state) {
    QTemporaryDir folder;
    double call = 0;
    double gap = 0;
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
        gap = std::max(gap, longestGap(window));
    }
    state.counters["open_call_ms"] = call;
    state.counters["longest_gap_ms"] = gap;
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

BENCHMARK(loadInSecondTab)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);
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
