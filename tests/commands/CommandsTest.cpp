#include "commands/Commands.h"

#include "commands/HandlerName.h"
#include "commands/ShortcutGrammar.h"

#include <QAction>
#include <QMap>
#include <QPointer>
#include <QRegularExpression>
#include <QSet>
#include <QTest>
#include <QWidget>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr Context navigated = Context::TableActive | Context::Navigating;
constexpr Context edited = Context::TableActive | Context::CellEditing;

/// Stands for a window: two handlers, and no others.
class Window : public QObject {
    Q_OBJECT

public:
    QStringList called;

public slots:
    void commandCutCells() { called += "cut"; }
    void commandClearCellContentsNavigate() { called += "clear"; }
};

struct CommandsTest : testing::Test {
    QWidget window;
    Commands commands;

    CommandsTest() { commands.populate(&window); }

    QAction* action(char const* name) const { return commands.find(name)->action; }
};

bool pressesCollide(QKeySequence const& a, QKeySequence const& b) {
    return a.matches(b) != QKeySequence::NoMatch || b.matches(a) != QKeySequence::NoMatch;
}

TEST_F(CommandsTest, tableIsSound) {
    EXPECT_EQ(commands.sorted().size(), 327u);
    QRegularExpression const slotName("^command[A-Z][A-Za-z0-9]*$");
    QSet<QString> names, handlers;
    QSet<int> settings;
    for (Command const& command : commands.sorted()) {
        SCOPED_TRACE(qPrintable(command.name));
        QString const handler = commandHandlerName(command.name);
        EXPECT_TRUE(slotName.match(handler).hasMatch()) << qPrintable(handler);
        names += command.name;
        handlers += handler;
        EXPECT_EQ(command.scope == ScopeType::Command, command.setting == SettingType::None);
        if (command.setting != SettingType::None)
            settings += static_cast<int>(command.setting);
        EXPECT_EQ(command.shortcut, command.defaultShortcut);
        QList<QKeySequence> const written = getKeySequenceList(command.shortcut);
        EXPECT_EQ(written.size(), command.shortcut.isEmpty() ? 0 : command.shortcut.count('|') + 1);
        EXPECT_EQ(command.action->shortcuts().mid(0, written.size()), written); // the first is the one that menus show
        EXPECT_EQ(command.action->parent(), &window);
        EXPECT_EQ(command.shownInLauncher, 1);
    }
    EXPECT_EQ(names.size(), 327);
    EXPECT_EQ(handlers.size(), 327);
    // Each of the 59 settings has one command, but for the one that suppresses warnings.
    EXPECT_EQ(settings.size(), 58);
    EXPECT_FALSE(settings.contains(static_cast<int>(SettingType::SuppressAutoFitWarnings)));
    EXPECT_TRUE(std::is_sorted(commands.sorted().begin(), commands.sorted().end(), sortCommandByName));
}

TEST_F(CommandsTest, shortcutsCollideOnlyWhereContextsExcludeEachOther) {
    QStringList collisions;
    for (Command const& a : commands.sorted()) {
        for (Command const& b : commands.sorted()) {
            if (!sortCommandByName(a, b))
                continue;
            for (QKeySequence const& first : a.action->shortcuts()) {
                for (QKeySequence const& second : b.action->shortcuts()) {
                    if (!pressesCollide(first, second))
                        continue;
                    collisions += a.name + " / " + b.name;
                    EXPECT_FALSE(doContextsOverlap(a.requiredContext, b.requiredContext)) << qPrintable(a.name);
                }
            }
        }
    }
    EXPECT_EQ(collisions, QStringList("Edit Selected Cell / Stop Editing"));
}

TEST_F(CommandsTest, enterIsBothKeysUnlessAnotherCommandHasReturn) {
    auto const keys = [&](char const* name) { return QKeySequence::listToString(action(name)->shortcuts()); };
    EXPECT_EQ(keys("Insert Row(s) After"), "Ctrl+Enter; Ctrl+Return");
    EXPECT_EQ(keys("Insert Column(s) After"), "Ctrl+Shift+Enter; Ctrl+Shift+Return");
    EXPECT_EQ(keys("Find All Matches"), "Alt+Return");
    EXPECT_EQ(keys("Insert Cells, Move Rest of Row Right"), "Alt+Enter");
    commands.setShortcut("Find All Matches", "f9|ctrl+return");
    EXPECT_EQ(keys("Insert Cells, Move Rest of Row Right"), "Alt+Enter; Alt+Return");
    EXPECT_EQ(keys("Insert Row(s) After"), "Ctrl+Enter");
    commands.setShortcut("Insert Row(s) After", "alt+f8");
    EXPECT_EQ(keys("Insert Row(s) After"), "Alt+F8");
}

TEST_F(CommandsTest, everyShortcutTriggersItsCommandAlone) {
    QStringList triggered;
    for (Command const& command : commands.sorted()) {
        window.addAction(command.action);
        QObject::connect(command.action, &QAction::triggered, [&] { triggered += command.name; });
    }
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    constexpr Context everything = globalContextMask | (tableContextMask & ~Context::ReadOnly);
    for (Context const context : {everything & ~Context::CellEditing, everything & ~Context::Navigating}) {
        commands.enableMatching(context);
        for (Command const& command : commands.sorted()) {
            for (QKeySequence const& sequence : command.action->shortcuts()) {
                if (!command.action->isEnabled())
                    continue;
                triggered.clear();
                QTest::keySequence(&window, sequence);
                EXPECT_EQ(triggered, QStringList(command.name)) << qPrintable(sequence.toString());
            }
        }
    }
}

TEST_F(CommandsTest, menuTextsCarryMnemonics) {
    EXPECT_EQ(action("Save File As")->text(), "Save File &As");
    EXPECT_EQ(action("Rename File")->text(), "Rename File");
    EXPECT_EQ(action("List Character Encodings")->text(), "&List Character Encodings");
    EXPECT_EQ(action("Fill Selected Cells with UUID/GUID")->text(), "List Character &Encodings");
    for (Command const& command : commands.sorted()) {
        QString const text = command.action->text().remove('&');
        EXPECT_TRUE(text == command.name || command.name == "Fill Selected Cells with UUID/GUID") << qPrintable(text);
    }
}

TEST_F(CommandsTest, contextEnablesAndDisables) {
    struct Case {
        Context context;
        QStringList enabled;
        QStringList disabled;
    };
    Case const cases[] = {
        {Context::None, {"New File", "Set Minimum Number of Table Rows"}, {"Undo", "Copy Cell(s)", "Close Folder"}},
        {navigated, {"Select Up", "Edit Selected Cell", "Save File"}, {"Stop Editing", "Rename File"}},
        {edited, {"Stop Editing", "Save File"}, {"Select Up", "Edit Selected Cell", "Copy Cell(s)"}},
        {navigated | Context::ReadOnly,
         {"Copy Cell(s)", "Save File As", "New File"},
         {"Cut Cell(s)", "Save File", "Set Minimum Number of Table Rows"}},
        {navigated | Context::FileOnDisk, {"Rename File", "Reload File"}, {"Transpose Selected Cells"}},
        {navigated | Context::MultiCellSelection, {"Transpose Selected Cells"}, {"Save Visible Data As"}},
        {modifyContext(Context::HiddenPresent), {"Save Visible Data As"}, {"Copy Cell(s)"}},
        {modifyContext(Context::FolderOpen), {"Close Folder", "Copy Cell(s)"}, {"Reload File"}},
    };
    for (Case const& row : cases) {
        commands.enableMatching(row.context);
        for (Command const& command : commands.sorted()) {
            bool const enabled = command.action->isEnabled();
            EXPECT_FALSE(row.enabled.contains(command.name) && !enabled) << qPrintable(command.name);
            EXPECT_FALSE(row.disabled.contains(command.name) && enabled) << qPrintable(command.name);
            EXPECT_FALSE(enabled && hasAnyContext(row.context, command.excludedContext)) << qPrintable(command.name);
        }
    }
}

TEST_F(CommandsTest, whatChangesCellsIsNotLiveInAReadOnlyTable) {
    commands.enableMatching((globalContextMask | tableContextMask) & ~Context::CellEditing);
    std::string live;
    for (Command const& command : commands.sorted()) {
        QString const menu = command.menuPath.section('/', 0, 0);
        bool const hides = command.menuPath == "Data/Filter" || command.menuPath == "Data/Hide/Show";
        if ((menu == "Data" || menu == "Edit" || menu == "Find") && !hides && command.scope == ScopeType::Command &&
            command.action->isEnabled())
            live += command.name.toStdString() + '\n';
    }
    // A sort shows the cells in another order, and so does its undo.
    EXPECT_EQ(live, R"x(Copy Cell(s)
Copy Cell(s) to HTML
Copy Cell(s) to Markdown
Copy Cell(s) with Header
Find
Find All Matches
Find Next Match
Find Previous Match
Redo
Sort Selected Cells Horizontally - Ascending
Sort Selected Cells Horizontally - Descending
Sort Selected Cells Vertically - Ascending
Sort Selected Cells Vertically - Descending
Sort Selected Column - Ascending
Sort Selected Column - Descending
Sort Selected Row - Ascending
Sort Selected Row - Descending
Transpose Table
Undo
)x");
}

TEST_F(CommandsTest, userShortcutsReplaceTheDefault) {
    EXPECT_TRUE(commands.setShortcut("Cut Cell(s)", "ctrl+j|f9"));
    EXPECT_EQ(action("Cut Cell(s)")->shortcuts(), getKeySequenceList("ctrl+j|f9"));
    EXPECT_EQ(commands.find("Cut Cell(s)")->defaultShortcut, "ctrl+x");
    EXPECT_TRUE(commands.setShortcut("Undo", "nonsense"));
    EXPECT_TRUE(action("Undo")->shortcuts().isEmpty());
    EXPECT_FALSE(commands.setShortcut("undo", "ctrl+j"));
    EXPECT_EQ(commands.find("Cut"), nullptr);
}

TEST(Commands, triggerTheSlotOfTheirName) {
    Window window;
    Commands commands;
    commands.populate(&window);
    commands.enableMatching(navigated);
    for (char const* const name : {"Cut Cell(s)", "Clear Cell Contents", "Copy Cell(s)"})
        commands.find(name)->action->trigger();
    EXPECT_EQ(window.called, QStringList({"cut", "clear"}));
    commands.enableMatching(navigated | Context::ReadOnly);
    commands.find("Cut Cell(s)")->action->trigger();
    EXPECT_EQ(window.called.size(), 2);
}

TEST(Commands, withoutParentTheActionsLiveAsLongAsACopy) {
    auto commands = std::make_unique<Commands>();
    commands->populate(nullptr);
    QPointer<QAction> const action = commands->find("Undo")->action;
    Commands copy = *commands;
    commands.reset();
    ASSERT_TRUE(action);
    EXPECT_EQ(copy.find("Undo")->action, action);
    copy.clear();
    EXPECT_FALSE(action);
    EXPECT_EQ(copy.find("Undo"), nullptr);
}

TEST(Commands, handlersAreNamedAfterTheWordsOfTheCommand) {
    QMap<QString, QString> const handlers{
        {"Cut Cell(s)", "commandCutCells"},
        {"Open Terminal to File's Directory", "commandOpenTerminalToFilesDirectory"},
        {"Import from JSON or XML", "commandImport"},
        {"Export to JSON or XML", "commandExport"},
        {"Export to PDF", "commandExportToPdf"},
        {"Copy Cell(s) to HTML", "commandCopyCellsToHtml"},
        {"Clear Cell Contents", "commandClearCellContentsNavigate"},
        {"Fill Selected Cells with UUID/GUID", "commandFillSelectedCellsWithUuidGuid"},
        {"Toggle Remove Extraneous Rows/Columns on File Save", "commandToggleRemoveExtraneousRowsColumnsOnFileSave"},
        {"Reshape Selected Cells Row-Wise", "commandReshapeSelectedCellsRowWise"},
        {"Sort Selected Column - Ascending", "commandSortSelectedColumnAscending"},
        {"Move Cell Contents To ...", "commandMoveCellContentsTo"},
        {"Insert Cells, Move Rest of Row Right", "commandInsertCellsMoveRestOfRowRight"},
        {"Paste Cell(s) (Special)", "commandPasteCellsSpecial"},
    };
    for (auto row = handlers.begin(); row != handlers.end(); ++row)
        EXPECT_EQ(commandHandlerName(row.key()), row.value());
}

} // namespace

#include "CommandsTest.moc"
