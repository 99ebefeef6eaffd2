// Times of the launcher over a table in a window of 1280 by 800, from the command or the key to the painted frame, with
// all commands of the program to choose from. Goals: open within 50 ms, a key answered within 10 ms.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/launcher/Launcher.h"
#include "app/launcher/OptionListWidget.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <benchmark/benchmark.h>

namespace {

std::vector<OptionData> allCommands() {
    Commands commands;
    commands.populate(nullptr);
    std::vector<OptionData> options;
    for (Command const& command : commands.sorted()) {
        OptionData option(QStringLiteral("%1: %2").arg(command.menuPath, command.name));
        option.shortcutPill = command.shortcut;
        option.valuePill = command.setting == SettingType::None ? QString() : QStringLiteral("true");
        options.push_back(option);
    }
    return options;
}

MainWindow& window() {
    static auto* const shown = [] {
        auto* const made = new MainWindow;
        qApp->setStyleSheet(made->getTheme().getStyleSheet());
        made->resize(1280, 800);
        made->show();
        QApplication::processEvents();
        return made;
    }();
    return *shown;
}

Launcher& open(std::vector<OptionData> const& options) {
    auto* const launcher = new Launcher(window().getTheme());
    launcher->setOptions(options);
    window().getPaneView()->setLauncher(launcher);
    launcher->grab(); // what is in sight is laid out and painted
    return *launcher;
}

void paintFrame() {
    QApplication::sendPostedEvents();
    QApplication::processEvents();
}

void openLauncher(benchmark::State& state) {
    auto const options = allCommands();
    window();
    for (auto _ : state) {
        open(options);
        state.PauseTiming();
        window().getPaneView()->closeLauncher();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

/// With all rows filled in, which is the slower case.
void typeAndErase(benchmark::State& state) {
    Launcher& launcher = open(allCommands());
    while (!launcher.getOptionList()->isFilled()) {
        QApplication::processEvents();
    }
    for (auto _ : state) {
        QTest::keyClick(launcher.getEditor(), Qt::Key_E);
        paintFrame();
        QTest::keyClick(launcher.getEditor(), Qt::Key_Q);
        paintFrame();
        QTest::keyClick(launcher.getEditor(), Qt::Key_Backspace);
        paintFrame();
        QTest::keyClick(launcher.getEditor(), Qt::Key_Backspace);
        paintFrame();
    }
    state.SetItemsProcessed(state.iterations() * 4);
    window().getPaneView()->closeLauncher();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

BENCHMARK(openLauncher)->Unit(benchmark::kMillisecond);
BENCHMARK(typeAndErase)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
