// How long a window takes to enable and disable its commands when its context changes; under a millisecond.
#include "commands/Commands.h"
#include "commands/Menus.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <benchmark/benchmark.h>

namespace {

void fill(QMenu& menu, MenuItem const& data, Commands const& commands) {
    for (MenuItem const& item : data.items) {
        switch (item.kind) {
        case MenuItem::Kind::Command: menu.addAction(commands.find(item.name)->action); break;
        case MenuItem::Kind::Menu: fill(*menu.addMenu(item.title), item, commands); break;
        case MenuItem::Kind::Separator: menu.addSeparator(); break;
        }
    }
}

void changeContext(benchmark::State& state, Context from, Context to) {
    QMainWindow window;
    Commands commands;
    commands.populate(&window);
    for (MenuItem const& menu : Menus::menuBar()) {
        fill(*window.menuBar()->addMenu(menu.title), menu, commands);
    }
    window.show();
    QApplication::processEvents();
    for ([[maybe_unused]] auto const round : state) {
        commands.enableMatching(from);
        commands.enableMatching(to);
    }
    state.SetItemsProcessed(2 * state.iterations());
}

constexpr Context navigated = Context::TableActive | Context::Navigating;
constexpr Context edited = Context::TableActive | Context::CellEditing;
constexpr Context full = navigated | Context::FileOnDisk | Context::FolderOpen | Context::MultiCellSelection |
                         Context::FiltersPresent | Context::FiltersOrHiddenPresent;

BENCHMARK_CAPTURE(changeContext, editing, navigated, edited)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeContext, readOnly, navigated, navigated | Context::ReadOnly)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(changeContext, firstTable, Context::None, full)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
