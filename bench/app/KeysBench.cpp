// Keys in a whole window with many cells selected, each from the press to the painted frame with the labels of the
// status bar, while the thread that sums the selection is at work. The argument is the number of rows of 12 columns.
// M in the counters is the median time as so many md5sums of the same file.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "bench/app/NumbersFile.h"
#include "view/TableView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

/// Counts the frames that a widget has painted.
class Frames : public QObject {
public:
    explicit Frames(QWidget* widget) : QObject(widget) { widget->installEventFilter(this); }
    int count = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

struct LargeWindow {
    explicit LargeWindow(int rows) : file(numbersFile(folder, QStringLiteral("numbers.csv"), rows)) {
        window.resize(1280, 800);
        window.show();
        window.activateWindow();
        window.openFile(file);
        while (table().isLoading())
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        frames = new Frames(table().viewport());
        table().setFocus();
        QTest::qWait(200);
    }

    TableView& table() { return *window.getActiveTable(); }

    /// Milliseconds from the press to the end of the turn that has painted.
    double press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QElapsedTimer clock;
        clock.start();
        int const before = frames->count;
        QString const text = modifiers == Qt::NoModifier && key < Qt::Key_Escape ? QString(QChar(key)) : QString();
        QTest::sendKeyEvent(QTest::Press, QApplication::focusWidget(), key, text, modifiers);
        while (frames->count == before && clock.elapsed() < 200000)
            QApplication::processEvents();
        return double(clock.nsecsElapsed()) / 1e6;
    }

    double md5sumMilliseconds() const {
        std::vector<double> times;
        for (int run = 0; run < 5; ++run) {
            QElapsedTimer clock;
            clock.start();
            QProcess md5sum;
            md5sum.start(QStringLiteral("md5sum"), {file});
            md5sum.waitForFinished(-1);
            times.push_back(double(clock.nsecsElapsed()) / 1e6);
        }
        std::nth_element(times.begin(), times.begin() + 2, times.end());
        return times[2];
    }

    QTemporaryDir folder;
    QString file;
    MainWindow window;
    Frames* frames = nullptr;
};

LargeWindow& largeWindow(int rows) {
    static std::map<int, LargeWindow*> windows; // which end with the process, for the application ends before them
    LargeWindow*& window = windows[rows];
    if (window == nullptr)
        window = new LargeWindow(rows);
    window->window.activateWindow();
    window->table().setFocus();
    QApplication::processEvents();
    return *window;
}

/// The states of a selection that a key is pressed in.
void selectColumn(LargeWindow& window) {
    window.table().moveSelectionAbsolute(0, 2);
    QTest::qWait(20);
    window.press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
}

void keyThatSelectsDown(benchmark::State& state) {
    LargeWindow& window = largeWindow(int(state.range(0)));
    for ([[maybe_unused]] auto const round : state) {
        window.table().moveSelectionAbsolute(0, 2);
        QTest::qWait(20);
        state.SetIterationTime(window.press(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier) / 1e3);
    }
}

struct KeyPress {
    char const* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers;
};

KeyPress const keysAfter[] = {
    {"shift+right", Qt::Key_Right, Qt::ShiftModifier}, {"shift+left", Qt::Key_Left, Qt::ShiftModifier},
    {"shift+down", Qt::Key_Down, Qt::ShiftModifier},   {"shift+up", Qt::Key_Up, Qt::ShiftModifier},
    {"right", Qt::Key_Right, Qt::NoModifier},          {"down", Qt::Key_Down, Qt::NoModifier},
    {"pagedown", Qt::Key_PageDown, Qt::NoModifier},
};

void keyAfter(benchmark::State& state, KeyPress const& key) {
    LargeWindow& window = largeWindow(int(state.range(0)));
    for ([[maybe_unused]] auto const round : state) {
        selectColumn(window);
        state.SetIterationTime(window.press(key.key, key.modifiers) / 1e3);
    }
}

void moveOfADrag(benchmark::State& state) {
    int const rows = int(state.range(0));
    LargeWindow& window = largeWindow(rows);
    selectColumn(window);
    TableModel& model = *window.table().tableModel();
    model.setPendingSelectionCorner(Range(0, 0, RangeIndexType::Model), true);
    int move = 0;
    for ([[maybe_unused]] auto const round : state) {
        model.setPendingSelectionCorner(Range(rows - 1 - (move++ % 2), 6, RangeIndexType::Model), false);
        window.table().refreshView();
        QApplication::processEvents();
    }
    model.setPendingCorners(Range(RangeType::None), Range(RangeType::None));
}

/// An edit by keys and its undo; the argument says which of the two is timed.
template <class Act>
void timeEdit(benchmark::State& state, LargeWindow& window, Act act) {
    bool const undo = state.range(1) != 0;
    double const unit = window.md5sumMilliseconds();
    std::vector<double> times;
    for ([[maybe_unused]] auto const round : state) {
        double const acted = act();
        QTest::qWait(20);
        double const undone = window.press(Qt::Key_Z, Qt::ControlModifier);
        times.push_back(undo ? undone : acted);
        state.SetIterationTime(times.back() / 1e3);
    }
    std::sort(times.begin(), times.end());
    state.counters["M"] = times[times.size() / 2] / unit;
}

void typeIntoColumn(benchmark::State& state) {
    LargeWindow& window = largeWindow(int(state.range(0)));
    selectColumn(window);
    timeEdit(state, window, [&] { return window.press(Qt::Key_A) + window.press(Qt::Key_Return); });
}

void deleteAll(benchmark::State& state) {
    LargeWindow& window = largeWindow(int(state.range(0)));
    timeEdit(state, window,
             [&] { return window.press(Qt::Key_A, Qt::ControlModifier) + window.press(Qt::Key_Delete); });
}

bool const registered = [] {
    for (KeyPress const& key : keysAfter) {
        benchmark::RegisterBenchmark((std::string("keyAfter/") + key.name).c_str(), keyAfter, key)
            ->Arg(1000)
            ->Arg(1000000)
            ->UseManualTime()
            ->Iterations(21)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

} // namespace

BENCHMARK(keyThatSelectsDown)->Arg(1000)->Arg(1000000)->UseManualTime()->Iterations(21)->Unit(benchmark::kMillisecond);
BENCHMARK(moveOfADrag)->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(typeIntoColumn)
    ->ArgsProduct({{1000000}, {0, 1}})
    ->ArgNames({"rows", "undo"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(deleteAll)
    ->ArgsProduct({{1000000}, {0, 1}})
    ->ArgNames({"rows", "undo"})
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);
