#pragma once

#include "app/StatusBar.h"
#include "app/UnbuiltCommands.h"
#include "app/WatchedFiles.h"
#include "app/launcher/PromptStep.h"
#include "appearance/Theme.h"
#include "commands/Commands.h"
#include "commands/Settings.h"
#include "core/Context.h"
#include "core/ExtensionData.h"
#include "core/RangeSize.h"
#include "model/SelectionStatistics.h"
#include "view/ContextMenuEntries.h"

#include <QHash>
#include <QPoint>
#include <QStringList>

#include <vector>

class FileMetadataWidget;
class FindReplaceWidget;
class FindResultsWidget;
class PaneView;
class PreferenceWatcher;
class SideBar;
class PromptChain;
class TabBar;
class TableView;
class QMenu;
class QScrollArea;
struct MenuItem;
struct PendingSave;

/// One window of the program with all its open tables. A face: it owns the widgets and passes what a person asks on to
/// the unit that knows how.
class MainWindow : public UnbuiltCommands {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Files (MainWindow_Files.cpp).

    /// Opens each file in a tab, or goes to its tab if it is open already; what cannot be opened is told and skipped.
    /// The first one becomes the active table. True if any table was taken.
    bool openFiles(QStringList const& paths);
    bool openFile(QString const& path);
    /// Tells that a folder is no table.
    void openFolder(QString const& path);
    /// Closes a table; the window always keeps one.
    bool closeFile(TableView* table);

    // Saving (MainWindow_Save.cpp).

    /// Writes the table to its file; a failure is told and leaves both as they were.
    bool saveFile(TableView* table);
    /// Asks for a file and writes the table to it in the dialect of its extension. The table moves to that file, or
    /// with `visibleOnly` stays where it is and a copy without what is concealed opens in a tab of its own.
    bool saveFileAs(TableView* table, bool visibleOnly);
    /// The same to a file that is known.
    bool saveFileUnder(TableView* table, QString const& path, bool visibleOnly);
    /// The kinds of files that a file dialog offers: one for each row of the extension table.
    QString getFiletypeFilter() const;

    // Changes by other programs (MainWindow_Watch.cpp).

    /// How long windows that are made from now on wait with the changes of files.
    static void setWatchTimings(WatchedFiles::Timings timings) { watchTimings = timings; }

    // Preferences (MainWindow_Settings.cpp).

    Settings const& getSettings() const { return settings; }
    Commands& getCommands() { return commands; }
    std::vector<ExtensionData> const& getExtensions() const { return extensions; }
    /// Puts the settings in force in all parts of the window.
    void propagateSettings();
    /// While set, changes of the preference files are not looked at. The next propagateSettings only clears it.
    void setUpdating(bool on) { updating = on; }
    /// Toggles a setting of the whole program, in its file too.
    void toggleSetting(SettingType type);

    TableView* getActiveTable() const { return activeTable; }
    PaneView* getPaneView() const { return paneView; }
    StatusBar* getStatusBar() const { return labelBar; }
    Theme const& getTheme() const override { return theme; }
    /// Where the questions of commands are put.
    PromptChain* getPrompts() const { return prompts; }
    /// Begins a new chain of questions with `step`.
    void ask(PromptStep step);
    /// Carries the command of that name out, if it is live.
    void runCommand(QString const& name);

public slots:
    void setActiveTable(TableView* table);
    /// What the window and its table are doing now; commands are live or not by it.
    void setContext(Context newContext);

    // The commands, by their derived names. Those that are not built yet are in UnbuiltCommands.

    // Files (MainWindow_Files.cpp, MainWindow_Save.cpp).
    void commandNewFile();
    void commandNewWindow();
    void commandOpenFile();
    void commandSaveFile();
    void commandSaveFileAs();
    void commandSaveVisibleDataAs();
    void commandSaveAllFiles();
    void commandCloseFile();
    void commandCloseAllFiles();
    void commandExit();
    void commandReloadFileWithDelimiter();
    void commandReloadFileWithEncoding();
    void commandReloadFileWithParsingStandard();

    // The active table (MainWindow_Table.cpp).
    void commandUndo();
    void commandRedo();
    void commandEditSelectedCell();
    void commandStopEditing();
    void commandClearCellContentsNavigate();
    void commandInsertRowsBefore();
    void commandInsertColumnsBefore();
    void commandInsertRowsAfter();
    void commandInsertColumnsAfter();
    void commandRemoveRows();
    void commandRemoveColumns();
    void commandDuplicateRows();
    void commandDuplicateColumns();
    void commandMoveRowsUp();
    void commandMoveRowsDown();
    void commandMoveColumnsLeft();
    void commandMoveColumnsRight();
    void commandMoveCellContentsUp();
    void commandMoveCellContentsDown();
    void commandMoveCellContentsLeft();
    void commandMoveCellContentsRight();
    void commandTransposeTable();
    void commandToggleShowEditorPane();

    // Selecting and moving in the active table (MainWindow_Selection.cpp).
    void commandSelectUp();
    void commandSelectDown();
    void commandSelectLeft();
    void commandSelectRight();
    void commandSelectUpByABlock();
    void commandSelectDownByABlock();
    void commandSelectLeftByABlock();
    void commandSelectRightByABlock();
    void commandSelectUpToTopOfColumnHeaderExcluded();
    void commandSelectDownToBottomOfColumn();
    void commandSelectLeftToStartOfRowHeaderExcluded();
    void commandSelectRightToEndOfRow();
    void commandSelectEntireColumns();
    void commandSelectEntireColumnsHeaderExcluded();
    void commandSelectEntireRows();
    void commandSelectEntireRowsHeaderExcluded();
    void commandSelectEntireTable();
    void commandMoveSelectionUp();
    void commandMoveSelectionDown();
    void commandMoveSelectionLeft();
    void commandMoveSelectionRight();
    void commandMoveSelectionUpByABlock();
    void commandMoveSelectionDownByABlock();
    void commandMoveSelectionLeftByABlock();
    void commandMoveSelectionRightByABlock();
    void commandInvertSelectionByRowsHeaderExcluded();
    void commandInvertSelectionByColumnsHeaderExcluded();
    void commandGoUpOneScreen();
    void commandGoDownOneScreen();
    void commandGoLeftOneScreen();
    void commandGoRightOneScreen();
    void commandGoToTop();
    void commandGoToBottom();
    void commandGoToFarLeft();
    void commandGoToFarRight();
    void commandScrollUpOneScreen();
    void commandScrollDownOneScreen();
    void commandScrollLeftOneScreen();
    void commandScrollRightOneScreen();
    void commandSwitchToTabOnTheRight();
    void commandSwitchToTabOnTheLeft();

    // Preferences (MainWindow_Settings.cpp).
    void onPreferenceChanged(QString const& path);
    void commandToggleSaveAfterEachEdit() { toggleSetting(SettingType::SaveAfterEachEdit); }
    void commandToggleSaveWithTrailingDelimiters() { toggleSetting(SettingType::SaveWithTrailingDelimiters); }
    void commandToggleLetEditorPaneConsumeNavigationKeystrokes() {
        toggleSetting(SettingType::LetEditorPaneConsumeNavigationKeystrokes);
    }
    void commandToggleShowTabBar() { toggleSetting(SettingType::ShowTabBar); }
    void commandToggleRepresentColumnsAsLetters() { toggleSetting(SettingType::RepresentColumnsAsLetters); }
    void commandToggleShadeEveryOtherRow() { toggleSetting(SettingType::ShadeEveryOtherRow); }
    void commandToggleShadeEveryOtherColumn() { toggleSetting(SettingType::ShadeEveryOtherColumn); }
    void commandToggleHighlightMainSelectedCellsRow() { toggleSetting(SettingType::HighlightMainSelectedCellsRow); }
    void commandToggleHighlightMainSelectedCellsColumn() {
        toggleSetting(SettingType::HighlightMainSelectedCellsColumn);
    }
    void commandToggleSnapToRowAfterScrolling() { toggleSetting(SettingType::SnapToRowAfterScrolling); }
    void commandToggleSnapToColumnAfterScrolling() { toggleSetting(SettingType::SnapToColumnAfterScrolling); }
    void commandToggleRemoveExtraneousRowsColumnsOnFileSave() {
        toggleSetting(SettingType::RemoveExtraneousRowsColumnsOnFileSave);
    }
    void commandToggleRetainSortAndFiltersUponFileRefresh() {
        toggleSetting(SettingType::RetainSortAndFiltersUponFileRefresh);
    }
    void commandToggleReadOnly();
    void commandEditSettings();
    void commandEditKeyboardShortcuts();
    void commandEditFileExtensionOptions();
    void commandOpenPreferenceFileFolder();
    // The launcher (MainWindow_Launcher.cpp).
    void commandCommandLauncher();
    void commandGoToFile();
    void onDelimiterOptionsPrompt();
    void onEncodingOptionsPrompt();
    void onLineEndingOptionsPrompt();
    void onFiltersOptionsPrompt();
    void onFileModeOptionsPrompt();
    void onTableDimensionsOptionsPrompt();
    /// Ends the open chain of questions without an answer.
    void closeLauncher();

signals:
    void mainWindowClosedSignal();
    void mainWindowFocusChangedSignal();
    void setThemeSignal(Theme theme);
    void createNewInstanceSignal(bool centred, QStringList files);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildWidgets();
    void setupLauncher();
    void setupMenus();
    /// Reads the three preference files and watches them from now on.
    void loadPreferences();
    void loadCommandsFromFile();
    void loadSettingsFromFile();
    void setupExtensions();
    void openPreferenceFile(QString const& path);
    void addToMenu(QMenu& menu, std::vector<MenuItem> const& items);

    TableView* makeEmptyTableObject();
    TableView* addEmptyTableEditor();
    TableView* addTableEditorFromFile(QString const& path, bool readOnly, bool isPreferenceFile);
    void addTableEditorFromView(TableView* table);
    /// Opens one file of openFiles; null if it cannot be opened.
    TableView* takeTable(QString const& path);
    /// Asks about a file of many megabytes whether it is to be opened read-only; false if not at all.
    bool askHowToOpenLargeFile(QString const& path, bool& readOnly);
    void removeTable(TableView* table);
    bool closeFileNoSave(TableView* table);
    void onSavedStatusChanged(TableView* table, bool clean);
    /// The bits that the table brings to the window's context.
    Context contextOfTable(TableView const* table) const;
    /// Asks for one of `options` and gives its index; -1 if the user wants none.
    int askForOption(QString const& title, QStringList const& options, QString const& current);
    void reloadActiveFile(QString const& delimiter, EncodingType encoding, ParsingStandard standard);
    bool confirmDiscardUnsavedEditsForReload(TableView* table);
    /// Asks whether to save, to discard or to cancel; true if the changes are saved or the user lets them go.
    bool mayLoseChanges(TableView* table, QString const& question, QString const& discardLabel);
    /// Carries a command out on the active table's model and keeps it for undo.
    template <class Command, class... Arguments>
    void push(Arguments... arguments);
    void selectAlong(Direction direction, bool toBlockEdge);
    void switchToTab(int index);
    // Saving (MainWindow_Save.cpp).
    void removeExtraneousRowsAndColumns(TableView* table);
    /// False if the save waits for the user to say what becomes of line breaks, or is not to be.
    bool resolveDelimiterOnlyLineBreakSave(PendingSave const& save);
    void promptDelimiterOnlyLineBreakAction(PendingSave const& save, int count);
    bool resumePendingDelimiterOnlySave(PendingSave const& save);
    bool finishSaveFileAs(PendingSave const& save);
    bool moveTo(PendingSave const& save);
    bool saveCopy(PendingSave const& save);
    bool askHowToOpenSavedCopy(QString const& path, bool& readOnly);
    // Changes by other programs (MainWindow_Watch.cpp).
    void setupWatch();
    void watchTable(TableView* table);
    void unwatchTable(TableView const* table);
    void onWatchedFileGone(QString const& path);
    void askForReload(QString const& path);
    void askForReloadOverEdits(QString const& path);
    void askWhetherToReload(QString const& path, QString const& question, QString const& refusal);
    /// Reads a table's file again; its edits are lost.
    void reloadChangedFile(TableView* table);
    void endReload(TableView* table);
    bool isUntouchedEmptyTable(TableView const* table) const;
    void onTableLoaded(TableView* table);
    /// Warns of a table that may lack the end of its file.
    void tellIfNotReadWhole(TableView const* table);

    void onCommandLauncher();
    void onCommandLauncherResponseReceived(QString const& response);
    /// Offers the commands of those names that are live.
    void askForCommand(QString const& title, QStringList const& names);
    OptionData optionOf(Command const& command) const;
    /// The value of the command's setting in the launcher's words; empty for a command without one.
    QString settingPill(Command const& command) const;

    void updateWindowTitle();
    void updateStatusBar();
    void onSelectionSizeChanged(RangeSize const& size);
    void onMainCellLengthChanged(int length);
    void updateStatsLabel();
    void connectStatusBar(TableView* table);
    void onTableSizeChanged(int rows, int cols, int visibleRows, int visibleCols);

    Theme theme;
    Settings settings;
    bool updating = false;
    PreferenceWatcher* preferenceWatcher = nullptr;
    inline static WatchedFiles::Timings watchTimings;
    WatchedFiles* watchedFiles = nullptr;
    QHash<TableView const*, QPoint> scrollAfterReload; ///< the scroll bars' values before it
    std::vector<ExtensionData> extensions;
    PaneView* paneView = nullptr;
    Commands commands;
    CommandActions actions;                                       ///< of the commands, by their names
    Context context = Context::TableActive | Context::Navigating; ///< the state by which commands are live
    PromptChain* prompts = nullptr;
    TabBar* tabBar = nullptr;
    SideBar* sideBar = nullptr;
    FindReplaceWidget* findReplaceWidget = nullptr;
    FindResultsWidget* findResultsWidget = nullptr;
    FileMetadataWidget* fileMetadataWidget = nullptr;
    QScrollArea* metadataArea = nullptr;
    StatusBar* labelBar = nullptr;
    SelectionStatistics statistics; ///< of a large selection in the active table
    TableView* activeTable = nullptr;
};
