// The launcher: the list of commands, the lists behind the labels of the status bar, and the way out of them.

#include "app/MainWindow.h"
#include "app/PaneView.h"
#include "app/StatusBar.h"
#include "app/TabBar.h"
#include "app/launcher/PromptChain.h"
#include "app/prompts/TableSetting.h"

#include <QAction>
#include <QFileInfo>
#include <QKeyEvent>
#include <QPointer>

#include <algorithm>
#include <utility>

namespace {

/// What a press on a label of the status bar offers.
struct LabelPrompt {
    StatusBar::Label label;
    void (MainWindow::*ask)();
};

constexpr LabelPrompt labelPrompts[] = {
    {StatusBar::Label::TableSize, &MainWindow::onTableDimensionsOptionsPrompt},
    {StatusBar::Label::Filters, &MainWindow::onFiltersOptionsPrompt},
    {StatusBar::Label::Delimiter, &MainWindow::onDelimiterOptionsPrompt},
    {StatusBar::Label::Encoding, &MainWindow::onEncodingOptionsPrompt},
    {StatusBar::Label::LineEnding, &MainWindow::onLineEndingOptionsPrompt},
    {StatusBar::Label::Mode, &MainWindow::onFileModeOptionsPrompt},
};

QString makeCommandLauncherName(Command const& command) {
    return command.menuPath.isEmpty() ? command.name : QStringLiteral("%1: %2").arg(command.menuPath, command.name);
}

} // namespace

void MainWindow::setupLauncher() {
    prompts = new PromptChain(paneView, theme, this);
    connect(labelBar, &StatusBar::labelPressedSignal, this, [this](StatusBar::Label pressed) {
        auto const prompt = std::find_if(std::begin(labelPrompts), std::end(labelPrompts),
                                         [&](LabelPrompt const& each) { return each.label == pressed; });
        bool const needsEditing = pressed == StatusBar::Label::TableSize;
        if (prompt != std::end(labelPrompts) && !(needsEditing && hasAnyContext(context, Context::ReadOnly))) {
            (this->*prompt->ask)();
        }
    });
}

void MainWindow::ask(PromptStep step) {
    prompts->start(std::move(step));
}

void MainWindow::commandCommandLauncher() {
    onCommandLauncher();
}

void MainWindow::onCommandLauncher() {
    QStringList names;
    for (Command const& command : commands.sorted()) {
        if (command.shownInLauncher != 0) {
            names += command.name;
        }
    }
    askForCommand(tr("Command:"), names);
}

void MainWindow::askForCommand(QString const& title, QStringList const& names) {
    activeTable->stopEditing();
    PromptStep step;
    step.title = title;
    for (QString const& name : names) {
        Command const* const command = commands.find(name);
        if (command != nullptr && command->matchesContext(context)) {
            step.options.push_back(optionOf(*command));
        }
    }
    step.noMatch = tr("No command matches.");
    step.carryOut = [this](QString const& response, PromptAsker&) { onCommandLauncherResponseReceived(response); };
    ask(std::move(step));
}

OptionData MainWindow::optionOf(Command const& command) const {
    OptionData option(makeCommandLauncherName(command));
    option.shortcutPill = command.shortcut;
    option.valuePill = settingPill(command);
    return option;
}

void MainWindow::onCommandLauncherResponseReceived(QString const& response) {
    for (Command const& command : commands.sorted()) {
        if (makeCommandLauncherName(command) == response) {
            command.action->activate(QAction::Trigger);
            return;
        }
    }
}

QString MainWindow::settingPill(Command const& command) const {
    if (command.setting == SettingType::None) {
        return {};
    }
    Setting const setting = TableSetting::present(command.setting, settings, *activeTable);
    return setting.toString(setting);
}

void MainWindow::onDelimiterOptionsPrompt() {
    askForCommand(tr("Delimiter Commands:"),
                  {QStringLiteral("Reload File with Delimiter"), QStringLiteral("Set Delimiter for File Save"),
                   QStringLiteral("Toggle Save With Trailing Delimiters")});
}

void MainWindow::onEncodingOptionsPrompt() {
    askForCommand(tr("Encoding Commands:"),
                  {QStringLiteral("Reload File with Encoding"), QStringLiteral("Set Encoding for File Save"),
                   QStringLiteral("List Character Encodings")});
}

void MainWindow::onLineEndingOptionsPrompt() {
    askForCommand(tr("Line Ending Commands:"), {QStringLiteral("Set Line Ending for File Save")});
}

void MainWindow::onFiltersOptionsPrompt() {
    QStringList names;
    for (Command const& command : commands.sorted()) {
        if (command.menuPath == QLatin1String("Data/Filter")) {
            names += command.name;
        }
    }
    askForCommand(tr("Filter Commands:"), names);
}

void MainWindow::onFileModeOptionsPrompt() {
    askForCommand(tr("File Mode Commands:"), {QStringLiteral("Toggle Read-Only"),
                                              QStringLiteral("Set Minimum File Size for Read-Only Mode Query (MB)")});
}

void MainWindow::onTableDimensionsOptionsPrompt() {
    askForCommand(tr("Table Dimensions Commands:"),
                  {QStringLiteral("Set Minimum Number of Table Rows"),
                   QStringLiteral("Set Minimum Number of Table Columns"), QStringLiteral("Set Number of Buffer Rows"),
                   QStringLiteral("Set Number of Buffer Columns"),
                   QStringLiteral("Remove Extraneous Rows and Columns")});
}

void MainWindow::commandGoToFile() {
    PromptStep step;
    step.title = tr("Go to File:");
    step.noMatch = tr("No file matches.");
    std::vector<QPointer<TableView>> tables;
    for (int i = 0; i < tabBar->count(); ++i) {
        TableView* const table = tabBar->tableAt(i);
        QString const path = table->getFilepath();
        OptionData option(table->tableModel()->getTableName(),
                          path.isEmpty() ? path : QFileInfo(path).absoluteFilePath());
        option.response = QString::number(i); // several files may have one name
        step.options.push_back(option);
        tables.emplace_back(table);
    }
    step.carryOut = [this, tables](QString const& response, PromptAsker&) {
        bool isNumber = false;
        int const index = response.toInt(&isNumber);
        if (isNumber && index >= 0 && index < static_cast<int>(tables.size()) && tables[size_t(index)]) {
            setActiveTable(tables[size_t(index)]);
        }
    };
    ask(std::move(step));
}

void MainWindow::closeLauncher() {
    prompts->close();
}

// The order counts: Escape does one thing at a time.
void MainWindow::keyPressEvent(QKeyEvent* event) {
    bool const isLoading = activeTable->isLoading();
    bool const navigating = hasAnyContext(context, Context::Navigating);
    bool const launcherOpen = hasAnyContext(context, Context::LauncherOpen);
    bool const widgetOpen = launcherOpen || hasAnyContext(context, Context::FindReplaceOpen);
    if (event->key() != Qt::Key_Escape) {
        UnbuiltCommands::keyPressEvent(event);
    } else if (hasAnyContext(context, Context::CellEditing) && !hasAnyContext(context, Context::ReadOnly)) {
        activeTable->stopEditing();
    } else if ((navigating || isLoading) && launcherOpen) {
        closeLauncher();
    } else if (navigating && !widgetOpen && hasAnyContext(context, Context::MultiCellSelection)) {
        activeTable->setMainCellAsSelection(activeTable->getMainCell());
    } else {
        UnbuiltCommands::keyPressEvent(event);
    }
}
