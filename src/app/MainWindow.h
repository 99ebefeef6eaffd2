#pragma once

#include "app/SettingsWriter.h"
#include "app/StatusBar.h"
#include "app/UnbuiltCommands.h"
#include "app/WatchedFiles.h"
#include "app/files/SaveHost.h"
#include "app/launcher/PromptStep.h"
#include "appearance/Theme.h"
#include "commands/Commands.h"
#include "commands/Settings.h"
#include "core/Context.h"
#include "core/ExtensionData.h"
#include "core/RangeSize.h"
#include "core/SortData.h"
#include "model/CellShift.h"
#include "model/CellTexts.h"
#include "model/SelectionStatistics.h"
#include "view/ContextMenuEntries.h"

#include <QHash>
#include <QPoint>
#include <QSet>
#include <QStringList>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

class FileMetadataWidget;
class FindReplaceWidget;
class FindResultsWidget;
class GoneTables;
class NoticeLine;
class PaneView;
class PreferenceWatcher;
class SideBar;
class PromptChain;
class SaveFlow;
class TabBar;
class TableModel;
class TableView;
class QMenu;
class QScrollArea;
enum class DialectPart;
struct Dialect;
struct MenuItem;

/// One window of the program with all its open tables. A face: it owns the widgets and passes what a person asks on to
/// the unit that knows how.
class MainWindow : public UnbuiltCommands, private SaveHost {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Files (MainWindow_Files.cpp).

    /// Opens each file in a tab, or goes to its tab if it is open already, in any window; what cannot be opened is told
    /// and skipped. The first one becomes the active table. True if any table was taken or shown.
    bool openFiles(QStringList const& paths);
    bool openFile(QString const& path);
    /// Tells the window who else may have a file open: `holder` gives the other window that has it, or null. Such a
    /// file is shown there, and not saved to from here.
    void setFileHolder(std::function<MainWindow*(QString const& path)> holder) { fileHolder = std::move(holder); }
    /// Comes to the front with the table of that file, if it is open here.
    void showFile(QString const& path);
    /// Is not minimised any more, and in front of other windows.
    void comeToFront();
    /// Tells without a question that files which were to be opened do not exist.
    void tellMissing(QStringList const& paths);
    /// Tells that a folder is no table.
    void openFolder(QString const& path);
    /// Closes a table; the window always keeps one.
    bool closeFile(TableView* table);

    // Saving: see SaveFlow.

    bool saveFile(TableView* table);
    bool saveFileAs(TableView* table, bool visibleOnly);
    bool saveFileUnder(TableView* table, QString const& path, bool visibleOnly);

    // Changes by other programs (MainWindow_Watch.cpp).

    /// How long windows that are made from now on wait with the changes of files.
    static void setWatchTimings(WatchedFiles::Timings timings) { watchTimings = timings; }

    // Preferences (MainWindow_Settings.cpp).

    Settings const& getSettings() const override { return settings; }
    Commands& getCommands() { return commands; }
    std::vector<ExtensionData> const& getExtensions() const override { return extensions; }
    /// Puts the settings in force in all parts of the window.
    void propagateSettings();
    /// While set, changes of the preference files are not looked at. The next propagateSettings only clears it.
    void setUpdating(bool on) { updating = on; }
    /// Toggles a setting of the whole program, in its file too.
    void toggleSetting(SettingType type);

    TableView* getActiveTable() const override { return activeTable; }
    PaneView* getPaneView() const { return paneView; }
    StatusBar* getStatusBar() const { return labelBar; }
    Theme const& getTheme() const override { return theme; }
    /// Where the questions of commands are put.
    PromptChain* getPrompts() const { return prompts; }
    /// Begins a new chain of questions with `step`.
    void ask(PromptStep step) override;
    /// Carries the command of that name out, if it is live.
    void runCommand(QString const& name);

public slots:
    /// The user turns to a table: shows it and gives it the focus.
    void setActiveTable(TableView* table) override;
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

    // Header rows and columns of the active table (MainWindow_Headers.cpp).
    void commandSetHeaderRowsToSelectedRow();
    void commandSetHeaderColumnsToSelectedColumn();
    void commandSetHeadersToSelectedCell();
    void commandRemoveHeaderRows();
    void commandRemoveHeaderColumns();
    void commandRemoveAllHeaders();
    void commandToggleFreezeHeaderRowsAndColumns();
    void commandToggleFreezeHeaderRows();
    void commandToggleFreezeHeaderColumns();
    void commandToggleHighlightHeaderRows();
    void commandToggleHighlightHeaderColumns();

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
    // MainWindow_GridSize.cpp
    void commandToggleAutoFitRowHeight();
    void commandToggleAutoFitColumnWidth();

    // Preferences (MainWindow_Settings.cpp).
    void onPreferenceChanged(QString const& path);
    void commandToggleSaveAfterEachEdit() { toggleSetting(SettingType::SaveAfterEachEdit); }
    void commandToggleSaveWithTrailingDelimiters() { toggleSetting(SettingType::SaveWithTrailingDelimiters); }
    void commandToggleLetEditorPaneConsumeNavigationKeystrokes() {
        toggleSetting(SettingType::LetEditorPaneConsumeNavigationKeystrokes);
    }
    void commandToggleShowTabBar() { toggleSetting(SettingType::ShowTabBar); }
    void commandToggleShowRowLabels() { toggleSetting(SettingType::ShowRowLabels); }
    void commandToggleShowColumnLabels() { toggleSetting(SettingType::ShowColumnLabels); }
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

    // Texts and single cells of the active table (MainWindow_Cells.cpp).
    void commandUpperCase();
    void commandLowerCase();
    void commandTitleCase();
    void commandUpperCamelCase();
    void commandLowerCamelCase();
    void commandUpperSnakeCase();
    void commandLowerSnakeCase();
    void commandConvertToAcronym();
    void commandTrimSelectedCells();
    void commandRemoveLeadingZeros();
    void commandFillSelectedCellsWithUuidGuid();
    void commandCopyMainCellContentsToAllSelectedCells();
    void commandTransposeSelectedCells();
    void commandInsertCellsMoveRestOfRowRight();
    void commandInsertCellsMoveRestOfColumnDown();
    void commandRemoveSelectedCellsMoveRestOfRowLeft();
    void commandRemoveSelectedCellsMoveRestOfColumnUp();
    void commandRemoveSelectedCellsAndTheRestOfTheirRows();
    void commandRemoveSelectedCellsAndTheRestOfTheirColumns();
    void commandDuplicateSelectedCellContentsUp();
    void commandDuplicateSelectedCellContentsDown();
    void commandDuplicateSelectedCellContentsLeft();
    void commandDuplicateSelectedCellContentsRight();

    // Whole rows and columns of the active table (MainWindow_Lines.cpp).
    void commandRemoveDuplicateRows();
    void commandRemoveDuplicateColumns();
    void commandRemoveDuplicateRowsBasedOnSelectedColumnsOnly();
    void commandRemoveDuplicateColumnsBasedOnSelectedRowsOnly();
    void commandSelectDuplicateRows();
    void commandSelectDuplicateColumns();
    void commandSelectDuplicateRowsBasedOnSelectedColumnsOnly();
    void commandSelectDuplicateColumnsBasedOnSelectedRowsOnly();
    void commandRemoveEmptyRows();
    void commandRemoveEmptyColumns();
    void commandRemoveEmptyRowsBasedOnSelectedColumnsOnly();
    void commandRemoveEmptyColumnsBasedOnSelectedRowsOnly();
    void commandRemoveExtraneousRowsAndColumns();

    // Hiding in the active table (MainWindow_Hide.cpp).
    void commandHideSelectedRows();
    void commandHideSelectedColumns();
    void commandHideAllButSelectedRows();
    void commandHideAllButSelectedColumns();
    void commandHideEmptyRows();
    void commandHideEmptyColumns();
    void commandShowAllHiddenRows();
    void commandShowAllHiddenColumns();
    void commandShowHiddenRowsInSelection();
    void commandShowHiddenColumnsInSelection();
    void commandShowEmptyRows();
    void commandShowEmptyColumns();
    void commandRemoveAllFilteredOutAndHiddenData();

    // Where the file is (MainWindow_Clipboard.cpp).
    void commandCopyFilePathToClipboard();
    void commandCopyFolderPathToClipboard();
    void commandCopyFileNameToClipboard();

    // Tabs and scrolling (MainWindow_Tabs.cpp).
    void commandCloseAllFilesExceptCurrent();
    void commandSwitchToTab1();
    void commandSwitchToTab2();
    void commandSwitchToTab3();
    void commandSwitchToTab4();
    void commandSwitchToTab5();
    void commandSwitchToTab6();
    void commandSwitchToTab7();
    void commandSwitchToTab8();
    void commandSwitchToTab9();
    void commandSwitchToTab10();
    void commandScrollToTop();
    void commandScrollToBottom();
    void commandScrollToFarLeft();
    void commandScrollToFarRight();
    // Questions for a place or a count in the active table (MainWindow_GoTo.cpp).
    void commandGoToCell();
    void commandSelectFromMainCellTo();
    void commandMoveCellContentsTo();
    void commandDuplicateCellContentsTo();
    void commandMoveRowsJustAboveRow();
    void commandMoveColumnsToTheLeftOfColumn();
    void commandInsertRowsBeforeMultipleTimes();
    void commandInsertColumnsBeforeMultipleTimes();
    void commandDuplicateRowsMultipleTimes();
    void commandDuplicateColumnsMultipleTimes();

    // Questions for a dialect (MainWindow_Dialect.cpp).
    void commandReloadFile();
    void commandReloadFileWithDifferentParameters();
    void commandReloadFileWithDelimiter();
    void commandReloadFileWithEncoding();
    void commandReloadFileWithParsingStandard();
    void commandSetParametersForFileSave();
    void commandSetDelimiterForFileSave();
    void commandSetLineEndingForFileSave();
    void commandSetEncodingForFileSave();
    void commandSetParsingStandardForFileSave();
    void commandListCharacterEncodings();

    // Questions for a setting or a size (MainWindow_Prompts.cpp).
    void commandSetBehaviorWhenFileIsChangedExternally();
    void commandSetTextEditor();
    void commandSetMinimumFileSizeForReadOnlyModeQueryMB();
    void commandSetUUIDType();
    void commandSetSearchEngine();
    void commandSetOnlineMap();
    void commandSetFont();
    void commandSetTextSize();
    void commandSetTheme();
    void commandSetDefaultRowHeight();
    void commandSetDefaultColumnWidth();
    void commandSetMaximumRowHeightForAutoFit();
    void commandSetMaximumColumnWidthForAutoFit();
    void commandSetNumberOfHeaderRows();
    void commandSetNumberOfHeaderColumns();
    void commandSetFirstRowIndex();
    void commandSetFirstColumnIndex();
    void commandSetMinimumNumberOfTableRows();
    void commandSetMinimumNumberOfTableColumns();
    void commandSetNumberOfBufferRows();
    void commandSetNumberOfBufferColumns();
    void commandSetSelectedRowHeights();
    void commandSetSelectedColumnWidths();

    // Sorting (MainWindow_Sort.cpp).
    void commandSortSelectedColumnAscending();
    void commandSortSelectedColumnDescending();
    void commandSortSelectedRowAscending();
    void commandSortSelectedRowDescending();
    void commandSortSelectedCellsHorizontallyAscending();
    void commandSortSelectedCellsHorizontallyDescending();
    void commandSortSelectedCellsVerticallyAscending();
    void commandSortSelectedCellsVerticallyDescending();
    void commandToggleCaseSensitiveSorting() { toggleSetting(SettingType::CaseSensitiveSorting); }

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
    /// The user has said in a table's warning that no more are wanted.
    void onSuppressAutoFitWarningsChanged(bool suppress);
    void addToMenu(QMenu& menu, std::vector<MenuItem> const& items);

    // Which table is the active one, what is told about it, and where the keys go are three things. Only what the user
    // does moves the focus.

    /// Makes a table the active one. The focus stays where it is.
    void showTable(TableView* table);
    /// Brings context, title and status bar in step with the active table.
    void refreshActiveTable();
    TableView* makeEmptyTableObject();
    TableView* addEmptyTableEditor();
    TableView* addTableEditorFromFile(QString const& path, bool readOnly, bool isPreferenceFile);
    void addTableEditorFromView(TableView* table);
    /// Has the other window that holds the file show it, if there is one.
    bool showElsewhere(QString const& path);
    /// Opens one file of openFiles; null if it cannot be opened.
    TableView* takeTable(QString const& path);
    /// Asks about a file of many megabytes whether it is to be opened read-only; false if not at all.
    bool askHowToOpenLargeFile(QString const& path, bool& readOnly);
    /// Takes a table out of the window, whole; there may be no active one afterwards.
    std::unique_ptr<TableView> detachTable(TableView* table);
    /// Does the same and shows another table in the place of the active one.
    std::unique_ptr<TableView> takeOut(TableView* table);
    /// Whether the user, who did not ask for it just now, would go on with a text in another table than it is for.
    bool wouldCutText(TableView const* table) const;
    /// Tells that the table came, and gives that line the focus, so that the rest of the text does not come into it.
    void tellOpened(TableView const* table);
    /// Ends a table that nobody has put anything into, unless it is the one that shows.
    void dropUntouched(TableView* table);
    void onSavedStatusChanged(TableView* table, bool clean);
    /// The bits that the table brings to the window's context.
    Context contextOfTable(TableView const* table) const;
    void askHowToReload(std::vector<DialectPart> const& parts);
    void askForSaveDialect(std::vector<DialectPart> const& parts);
    void reloadTable(TableView* table, Dialect const& dialect);
    /// Asks for the value of a setting: of the active table for one of table scope, else of the window.
    void askForSetting(SettingType type);
    /// Keeps the value of a setting for the window and in the settings file, and puts it in force.
    void storeSetting(SettingType type, QString const& value);
    /// Lets all parts know of a setting that has changed, and writes it into its file.
    void putInForce(SettingType type);
    /// A failure is told.
    void writeSetting(SettingType type);
    void tellUnknownTheme();
    bool confirmDiscardUnsavedEditsForReload(TableView* table);
    /// Asks whether to save, to discard or to cancel; true if the changes are saved or the user lets them go.
    bool mayLoseChanges(TableView* table, QString const& question, QString const& discardLabel);
    /// Carries a command out on the active table's model and keeps it for undo.
    template <class Command, class... Arguments>
    void push(Arguments... arguments);
    void selectAlong(Direction direction, bool toBlockEdge);
    /// Sorts along an axis by the main cell's column or row.
    void sortBySelectedLine(Axis axis, SortType type);
    void sortSelectedCells(Axis axis, SortType type);

    // What commands on cells and lines share.

    /// The active table's model, after an open edit has ended.
    TableModel* settledModel();
    /// Writes the cells by a command; none if there are no changes.
    void writeCells(CellPatch patch);
    void changeSelectedTexts(TextChange const& change);
    void shiftSelectedCells(Axis axis, CellShift shift);
    void duplicateSelectedContents(Direction direction);
    enum class Basis { WholeLines, SelectedCellsOnly };
    std::vector<int> duplicateLines(Axis axis, Basis basis);
    void removeLines(Axis axis, std::vector<int> const& modelLines);
    void selectLines(Axis axis, std::vector<int> const& modelLines);
    void removeEmptyLines(Axis axis, Basis basis);
    void applyHidden(Axis axis, std::vector<int> const& hidden);
    void switchToExistingTab(int index);

    void switchToTab(int index);
    // What saves need of the window (MainWindow_Save.cpp).
    QWidget* asWidget() override { return this; }
    TableView* tableOfFile(QString const& path) const override;
    bool isOpenInOtherWindow(QString const& path) const override;
    TableView* openSavedCopy(QString const& path, bool readOnly) override;
    void readSavedCopy(TableView* table) override;
    void onTableSaved(TableView* table, QString const& before) override;
    void tellNotKept(QStringList const& sentences) override;
    void refreshTable(TableView* table) override;
    // Changes by other programs (MainWindow_Watch.cpp).
    void setupWatch();
    bool isTextOpen() const;
    void watchTable(TableView* table);
    void unwatchTable(TableView* table);
    void onWatchedFileGone(QString const& path);
    /// Opens a table whose file went as one without a file.
    void takeBack(TableView* table);
    void askForReload(QString const& path);
    void askForReloadOverEdits(QString const& path);
    void askWhetherToReload(QString const& path, QString const& question, QString const& refusal,
                            QString const& remark);
    /// Reads a table's file again; its edits are lost.
    void reloadChangedFile(TableView* table);
    void endReload(TableView* table);
    /// Sorts a table as it was before it was read again, when that disturbs nobody.
    void sortWhenStill(TableView* table);
    void sortAgain(TableView* table);
    void tellIfNotSorted(TableView const* table, SortData const& sort);
    static void scrollTo(TableView* table, QPoint const& place);
    /// Edits that a reload would lose: no sort that a reload has made and would make again.
    bool hasUnsavedEdits(TableView* table) const override;
    bool isUntouchedEmptyTable(TableView const* table) const;
    void onTableLoadBegun(TableView* table);
    void onTableLoaded(TableView* table);
    /// Tells why a table could not be read again, which keeps what it has.
    void onTableLoadFailed(TableView* table, QString const& reason);
    /// Warns of a table that lacks the end of its file.
    void tellIfNotReadWhole(TableView const* table);
    void tellThatItCannotBeOpened(QString const& path, QString const& reason);

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
    void tellLostCharacters(TableModel const& model, qint64 cells);
    void connectDialectLabels(TableView* table);
    void updateDialectLabels();
    void onTableSizeChanged(int rows, int cols, int visibleRows, int visibleCols);

    Theme theme;
    Settings settings;
    SettingsWriter settingsWriter;
    bool updating = false;
    PreferenceWatcher* preferenceWatcher = nullptr;
    inline static WatchedFiles::Timings watchTimings;
    WatchedFiles* watchedFiles = nullptr;
    SaveFlow* saves = nullptr;
    /// What a table takes over from before it was read again.
    struct Retained {
        QPoint scroll; ///< the scroll bars' values
        SortData rowSort;
        SortData colSort;
        bool isRead; ///< only the sort is still to come
    };
    QHash<TableView const*, Retained> reloads;    ///< of tables that are read, or to be sorted, again
    QSet<TableView const*> onlySortedSinceReload; ///< tables that differ from their files by the sort they took over
    std::vector<ExtensionData> extensions;
    std::function<MainWindow*(QString const& path)> fileHolder = [](QString const&) { return nullptr; };
    PaneView* paneView = nullptr;
    Commands commands;
    CommandActions actions;                                       ///< of the commands, by their names
    Context context = Context::TableActive | Context::Navigating; ///< the state by which commands are live
    PromptChain* prompts = nullptr;
    TabBar* tabBar = nullptr;
    SideBar* sideBar = nullptr;
    FindReplaceWidget* findReplaceWidget = nullptr;
    FindResultsWidget* findResultsWidget = nullptr;
    GoneTables* goneTables = nullptr;
    NoticeLine* saveRemarks = nullptr;  ///< tells what a saved file has not got of the former one
    NoticeLine* missingFiles = nullptr; ///< tells of paths that were to be opened and do not exist
    NoticeLine* openedFiles = nullptr;  ///< tells of tables that came while the user was in a text
    FileMetadataWidget* fileMetadataWidget = nullptr;
    QScrollArea* metadataArea = nullptr;
    StatusBar* labelBar = nullptr;
    QString lostCharactersNotice;   ///< the last one of its kind in the status bar
    SelectionStatistics statistics; ///< of a large selection in the active table
    TableView* activeTable = nullptr;
    bool closing = false; ///< the window asks about its tables, or will when another question is answered
};
