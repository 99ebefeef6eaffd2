#pragma once

#include "commands/Settings.h"
#include "core/ExtensionData.h"
#include "core/RangeSize.h"
#include "model/TableModel.h"
#include "view/AbstractTableView.h"
#include "view/CellEdit.h"
#include "view/ColumnSample.h"
#include "view/HeaderGestures.h"
#include "view/LineSizes.h"
#include "view/MeasuringTable.h"
#include "view/SelectionMoves.h"

#include <QTimer>
#include <QUndoStack>

#include <array>
#include <functional>
#include <optional>
#include <utility>

class FrozenTableView;
class HeaderView;
class HiddenNotice;
class LineAnimation;
class RowFit;
class ScrollAreaBottomRightCornerWidget;
class TLCornerButton;

/// Shows one table and lets the user work on it. Owns the table's model, its undo stack and the three bands that keep
/// header rows and columns in sight. Rows and columns are Model.
class TableView : public AbstractTableView {
    Q_OBJECT

public:
    /// A turn of the wheel, in pixels.
    static constexpr int wheelRowPixels = 75;
    static constexpr int wheelColPixels = 250;

    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    void setModel(QAbstractItemModel* model) override;
    void setContext(Context newContext) override;
    void setLetEditorPaneConsumeNavigationKeystrokes(bool on) override;
    void setupContextMenus(CommandActions const& actions) override;
    /// Colours the parts that the view itself paints.
    void setTheme(Theme const& theme);
    void refreshView() override;

    // The table and its file.

    /// Reads the file into the table by the options set before. In the background form the view is hidden until
    /// onLoadFinished, keys are dead and changes refused. False for a file that cannot be opened: in the background
    /// form the table is then as it was and loadFailedSignal tells why, in the other it is empty.
    bool loadCSV(QString const& path, bool background);
    /// Reads the table's file again in the dialect that it is in, on a thread. An open edit and the undo stack are
    /// dropped. False if the file cannot be opened; then the table is as it was, and so it is with the next two.
    bool readFileAgain();
    /// Reads the table's file again in another dialect, on a thread; the undo stack is cleared. False if that is the
    /// present dialect or there is no file.
    bool reloadFile(QString const& delimiter, EncodingType encoding, ParsingStandard standard);
    /// Reads the table's file again for reading only or for editing, on a thread; the undo stack is cleared. A table
    /// without a file only changes its mode.
    void reloadFileReadOnly(bool on);
    /// Gives the focus to the table, or to what stands for it while it is loaded.
    void takeFocus();
    bool hasFocusInside() const;
    void setReadOnly(bool on);
    /// Has a read-only table whose cells are in memory take changes from now on.
    void makeEditable();
    bool isReadOnly() const { return readOnly; }
    /// The options by which the table is loaded and saved; the delimiters must be settled.
    void setExtensionData(ExtensionData const& data);
    /// The path of the table's file, empty for a table that has none.
    QString getFilepath() const { return tableModel()->getFilepath(); }

    // What the user has set (TableView_Settings.cpp).

    /// Puts settings in force; those of table scope only the first time, as the defaults of a new table.
    void propagateSettings(Settings const& newSettings);
    /// The settings in force. Those of table scope are what the table began with; it may have changed since.
    Settings const& getSettings() const { return settings; }

    // Undo.

    QUndoStack* undoStack() { return &stack; }
    /// Carries the command out and keeps it for undo. Takes ownership. A table that is being loaded takes none, and a
    /// read-only one none that would change its cells, in undo and redo too.
    void pushUndoCommand(QUndoCommand* command);
    /// The same with several commands, which undo takes back together under the name `text`.
    void pushUndoCommands(QString const& text, std::vector<QUndoCommand*> const& commands);
    void undo();
    void redo();
    /// Whether the file lacks something that a save would put into it. A read-only table of a file is never saved.
    bool hasUnsavedChanges() const { return !stack.isClean() && !(readOnly && !getFilepath().isEmpty()); }

    // Editing. An edit takes place in an editor over the main cell, or in the editor pane while that is shown.

    /// The edit that is open, none otherwise.
    std::optional<CellEdit> const& getPendingEdit() const { return pendingEdit; }
    /// The view that holds the main cell of the edit, or the main cell while there is none.
    AbstractTableView* getCurrentlyEditedView();
    TableDelegate* getCurrentlyEditedDelegate() { return getCurrentlyEditedView()->tableDelegate(); }
    /// Whether the edit that begins in the pane is one of a long cell; true once for each such edit.
    bool takeLargeCellCursorAtFront() { return std::exchange(largeCellCursorAtFront, false); }
    /// The last save after an edit has failed, and the table has not been clean, saved or loaded since.
    bool hasAutoSaveFailed() const { return autoSaveFailed; }

    // Sorting (TableView_Sorting.cpp).

    /// Sorts the table, with a dialog to watch and to cancel it if it takes long. True if any line has moved.
    bool sortRowsOrCols(SortData const& sort);
    /// While true, events are handled but the table must not go or change.
    bool isSorting() const { return sorting; }

    // Moving.

    void moveSelectionRelative(int rows, int cols) override;
    void moveSelectionAbsolute(int row, int col) override;
    /// Moves the main cell by a screenful and selects it alone.
    void moveSelectionOneScreen(Direction direction);
    /// Moves the selection as far as the main cell's jump over a block of cells goes.
    void moveSelectionByBlock(Direction direction);
    /// Moves the selection so that the main cell is on the last line of the data.
    void moveSelectionToEndOfTable(Direction direction);
    void goToTop() { goToEdge(Direction::Up); }
    void goToBottom() { goToEdge(Direction::Down); }
    void goToFarLeft() { goToEdge(Direction::Left); }
    void goToFarRight() { goToEdge(Direction::Right); }

    // Scrolling. See ScrollGeometry for the rules.

    /// Moves an axis by pixels.
    void wheelScroll(Axis axis, int delta);
    /// Brings the first visible row or column wholly into sight, unless a cell is being edited.
    void snapScrollBarPosition(Axis axis);
    void setSnapToRowAfterScrolling(bool on) { snapToRowAfterScrolling = on; }
    void setSnapToColumnAfterScrolling(bool on) { snapToColumnAfterScrolling = on; }
    /// `ifNeeded` leaves a cell in sight where it is; `minimal` then goes no further than needed.
    void scrollToCell(int row, int col, bool ifNeeded, bool minimal, Axis axis);
    void scrollToTopLeft();
    /// Remembers where the view is scrolled to, for one return.
    void setInitialScrollBarLocations();
    void returnToInitialScrollBarLocations();

    // Selecting.

    Range getMainCell(bool withValue = false) const;
    void setMainCell(Range const& cell);
    void setMainCellAsSelection(Range const& cell);
    void selectRow(int row) { selectLine(Axis::Rows, row); }
    void selectCol(int col) { selectLine(Axis::Columns, col); }
    void selectEntireTable();
    void addWholeTableToSelection();
    void selectEntireRows() { selectWholeLines(Axis::Rows, 0); }
    void selectEntireCols() { selectWholeLines(Axis::Columns, 0); }
    void selectEntireRowsHeaderExcluded() { selectWholeLines(Axis::Rows, numHeaderCols); }
    void selectEntireColsHeaderExcluded() { selectWholeLines(Axis::Columns, numHeaderRows); }
    /// Selects the rectangle between the main cell and a cell; -1 stands for the main cell's row or column.
    void selectFromMainCellTo(int row, int col);
    void selectLeftToStartOfRowHeaderExcluded() { selectToEdge(Direction::Left); }
    void selectRightToEndOfRow() { selectToEdge(Direction::Right); }
    void selectUpToTopOfColumnHeaderExcluded() { selectToEdge(Direction::Up); }
    void selectDownToBottomOfColumn() { selectToEdge(Direction::Down); }
    /// The cell in the main cell's row or column on the line of SelectionMoves::farthestSelectedLine.
    Range findFarthestSelectedCellInDirection(Direction direction) const;

    // Header rows and columns, and the bands that keep them in sight. With `emitChange` a new value belongs to what is
    // kept about the file.

    /// Visible ones; see TableModel::setNumberOfHeaderRows for what counts.
    int getNumHeaderRows() const { return numHeaderRows; }
    int getNumHeaderCols() const { return numHeaderCols; }
    void setNumberOfHeaderRows(int count, bool emitChange);
    void setNumberOfHeaderColumns(int count, bool emitChange);
    /// Takes `count` visible header rows over from the model.
    void applyVisibleHeaderRows(int count, bool emitChange, bool autoFit);
    /// The same if the model has come to another count, as by concealing rows.
    void syncVisibleHeaderRowsFromModel(bool emitChange);
    bool areHeaderRowsFrozen() const { return freezeHeaderRows; }
    bool areHeaderColsFrozen() const { return freezeHeaderColumns; }
    void setFreezeHeaderRows(bool on, bool emitChange);
    void setFreezeHeaderColumns(bool on, bool emitChange);
    bool areHeaderRowsHighlighted() const { return tableModel()->getCellColorOptions().highlightHeaderRows; }
    bool areHeaderColsHighlighted() const { return tableModel()->getCellColorOptions().highlightHeaderColumns; }
    void setHighlightHeaderRows(bool on, bool emitChange);
    void setHighlightHeaderColumns(bool on, bool emitChange);
    FrozenTableView* getHorizontalFrozenView() const { return horizontalFrozenView; }
    FrozenTableView* getVerticalFrozenView() const { return verticalFrozenView; }
    FrozenTableView* getCornerFrozenView() const { return cornerFrozenView; }

    // Labels.

    void setShowRowLabels(bool on);
    void setShowColLabels(bool on);
    /// The number of the first row.
    void setFirstRowIndex(int index, bool emitChange);
    /// The number of the first column, kept aside while columns are letters, which begin at A. With `restore` the
    /// number that is kept counts again and `index` does not matter.
    void setFirstColIndex(int index, bool emitChange, bool restore);
    /// The number of the first column, also while it is kept aside.
    int getFirstColIndex() const { return firstColIndex; }
    void setRepresentColumnsAsLetters(bool on);

    // Sizes of rows and columns, in pixels.

    /// Also the least height of a row.
    int getDefaultRowHeight() const { return defaultRowHeight; }
    void setDefaultRowHeight(int height);
    /// Also the width of empty columns.
    int getDefaultColumnWidth() const { return defaultColumnWidth; }
    void setDefaultColumnWidth(int width);
    int getMaximumRowHeight() const { return maximumRowHeight; }
    /// With `emitChange` the new value belongs to what is kept about the file.
    void setMaximumRowHeight(int height, bool emitChange);
    int getMaximumColumnWidth() const { return maximumColumnWidth; }
    void setMaximumColumnWidth(int width, bool emitChange);
    /// Of the selected rows or columns.
    void setRowHeights(int height);
    void setColWidths(int width);
    void resizeRow(int row, int height) { resizeRows({row}, {height}); }
    void resizeCol(int col, int width) { resizeCols({col}, {width}); }
    /// Gives each row its height, no more than the maximum.
    void resizeRows(std::vector<int> const& rows, std::vector<int> const& heights);
    void resizeCols(std::vector<int> const& cols, std::vector<int> const& widths);
    void enforceMinimumRowHeight();
    void enforceMinimumRowHeight(int row);
    void enforceMaximumRowHeight();
    void enforceMaximumRowHeight(int row);
    void enforceMaximumColumnWidth();
    void enforceMaximumColumnWidth(int col);
    /// Rows that have all but vanished and are empty get the default height, as do the rows behind the data.
    void enforceEmptyRowHeight();
    void enforceEmptyRowHeight(int row);
    void enforceEmptyColumnWidth();
    void enforceEmptyColumnWidth(int col);

    // Auto-fit: rows are as high and columns as wide as their contents ask.

    bool isAutoFitRowHeight() const { return autoFitRowHeight; }
    void setAutoFitRowHeight(bool on, bool emitChange);
    bool isAutoFitColWidth() const { return autoFitColWidth; }
    void setAutoFitColWidth(bool on, bool emitChange);
    /// How many cells of a column, or of a row, a fit looks at beyond the first hundred. Not 0.
    void setResizeContentsPrecision(int precision);
    /// How often enforceAutoFitColWidth(bool) still acts; -1 for always.
    void setAutoFitColumnCountdown(int times) { autoFitColumnCountdown = times; }
    /// The height that shows a row's texts wrapped; 0 for a row without text.
    int calculateAutoFitRowHeight(int row) const;
    int calculateAutoFitRowHeight(int row, int precision) const;
    /// The width that shows the texts of a column below the header rows. -1 stands for no default and no maximum.
    int estimateMaxWidthForColumnMainTable(int col, int precision, int defaultWidth, int maxWidth, bool& allEmpty);
    void resizeColumnToContents(int col, int precision);
    void resizeColumnsToContents();
    /// Asks whether to fit the sizes of a large table, where a fit takes a while.
    void warnAutoFitIfLargeFile();
    /// Of all tables.
    static void setSuppressAutoFitWarnings(bool on) { suppressAutoFitWarnings = on; }

    // Marks. See AbstractTableView; the lines are User here, and all views show them.

    void setRowLineHighlightIndexes(std::vector<int> const& userRows) override;
    void setColLineHighlightIndexes(std::vector<int> const& userCols) override;
    void setCellBorderRange(RangeVector const& ranges) override;
    using AbstractTableView::setCellBorderRange;
    /// Highlights the cells and draws borders around them.
    void setHighlightedRange(RangeVector const& ranges);
    void setHighlightedRange(Range const& range) { setHighlightedRange(RangeVector{range}); }
    void clearHighlightedRange() { setHighlightedRange(RangeVector()); }

    // The look of cells.

    /// The size of the font is the text size, whatever that of `font`.
    void setFont(QFont const& font);
    /// In pixels.
    void setTextSize(int size);
    void setShadeEveryOtherRow(bool on);
    void setShadeEveryOtherColumn(bool on);
    void setHighlightMainCellRow(bool on);
    void setHighlightMainCellColumn(bool on);

public slots:
    // Presses on the labels. Sections are Model, -1 behind the last one.
    void onHorizontalSectionClicked(int col) { onSectionClicked(Axis::Columns, col); }
    void onHorizontalSectionCtrlClicked(int col) { onSectionCtrlClicked(Axis::Columns, col); }
    void onHorizontalSectionShiftClicked(int col) { onSectionShiftClicked(Axis::Columns, col); }
    void onHorizontalSectionRightClicked(int col) { onSectionRightClicked(Axis::Columns, col); }
    void onHorizontalSectionEntered(int col) { onSectionEntered(Axis::Columns, col); }
    void onHorizontalSectionDoubleClicked(int col) { onSectionDoubleClicked(Axis::Columns, col); }
    void onHorizontalMouseReleased() { gestures.release(Axis::Columns); }
    void onHorizontalGeometryChanged();
    void onVerticalSectionClicked(int row) { onSectionClicked(Axis::Rows, row); }
    void onVerticalSectionCtrlClicked(int row) { onSectionCtrlClicked(Axis::Rows, row); }
    void onVerticalSectionShiftClicked(int row) { onSectionShiftClicked(Axis::Rows, row); }
    void onVerticalSectionRightClicked(int row) { onSectionRightClicked(Axis::Rows, row); }
    void onVerticalSectionEntered(int row) { onSectionEntered(Axis::Rows, row); }
    void onVerticalSectionDoubleClicked(int row) { onSectionDoubleClicked(Axis::Rows, row); }
    void onVerticalMouseReleased() { gestures.release(Axis::Rows); }
    void onVerticalGeometryChanged();
    void onTopLeftCornerButtonClicked();
    void onTopLeftCornerButtonCtrlClicked();
    /// The labels, or which rows are header rows, may have changed.
    void refreshHeaders();
    // What the status bar and preferences set; the change belongs to what is kept about the file.
    void setNumHeaderRowsSlot(int count) { setNumberOfHeaderRows(count, true); }
    void setNumHeaderColsSlot(int count) { setNumberOfHeaderColumns(count, true); }
    void setHeaderRowsFrozenSlot(bool on) { setFreezeHeaderRows(on, true); }
    void setHeaderColsFrozenSlot(bool on) { setFreezeHeaderColumns(on, true); }
    void setHeaderRowsHighlightedSlot(bool on) { setHighlightHeaderRows(on, true); }
    void setHeaderColsHighlightedSlot(bool on) { setHighlightHeaderColumns(on, true); }

    // Where auto-fit is off these only keep the sizes within their bounds. With `scroll` the main cell is in sight
    // after.
    void enforceAutoFitRowHeight(bool scroll);
    void enforceAutoFitRowHeight(int row) { enforceAutoFitRowHeights({row}); }
    void enforceAutoFitRowHeights(std::vector<int> const& rows);
    void enforceAutoFitColWidth(bool scroll);
    void enforceAutoFitColWidth(int col) { enforceAutoFitColWidths({col}); }
    void enforceAutoFitColWidths(std::vector<int> const& cols);
    void moveSelectionRelativeSlot(int rows, int cols) { moveSelectionRelative(rows, cols); }
    /// Scrolls by whole rows or columns where snapping is on, else by pixels; with `page` by most of the viewport.
    void scroll(Direction direction, bool page, int rowPixels = wheelRowPixels, int colPixels = wheelColPixels);
    void scrollToRow(int row, bool ifNeeded, bool minimal);
    void scrollToCol(int col, bool ifNeeded, bool minimal);
    void scrollToMainCell(bool ifNeeded, bool minimal);
    /// Keeps the grid as large as its contents and buffers ask and the scroll bars in step with it.
    void enforceTableSize();
    /// Begins an edit of the main cell alone. `overwrite` replaces its text. Does nothing in a read-only table.
    void startEditing(bool overwrite, bool cursorAtEnd = true);
    /// Begins an edit of all selected cells with a key.
    void startEditing(bool overwrite, QKeyEvent* event);
    /// Ends the edit; without `commit` the cells get their texts back.
    void stopEditing(bool commit = true);
    /// The text of the edit is now `text`.
    void onCellTextEdited(QString const& text);
    void onCellEditingFinished();
    void onEditorClosed();
    void onCellEditorCreated(QWidget* editor);
    /// Reports a failed save after an edit, which stays.
    void onAutoSaveFailed(QString const& fileName, QString const& reason);
    void onAutoSaveHeldBack(QString const& sentence);
    void onNewPendingSelectionCorner(Range const& corner);
    /// Ends the edit of another cell, and passes the news on.
    void onMainCellChanged(Range const& mainCell);
    /// Inserts lines in the model, each of which will stand where the list says, and lets them grow.
    void insertRowsSlot(std::vector<int> const& rows) { insertLines(Axis::Rows, rows); }
    void insertColsSlot(std::vector<int> const& cols) { insertLines(Axis::Columns, cols); }
    /// Lets lines collapse and then removes them from the model.
    void removeRowsSlot(std::vector<int> rows);
    void removeColsSlot(std::vector<int> cols);
    void onStartProgressUpdate();
    void onLoadProgressUpdate(int done, int steps, int sizeMiB);
    void onLoadFinished();

signals:
    void startProgressUpdateSignal();
    void loadProgressUpdateSignal(int done, int steps, int sizeMiB);
    void loadFinishedSignal();
    /// A load in the background has begun.
    void loadBegunSignal();
    /// A load could not begin, for a reason that is a sentence for the user.
    void loadFailedSignal(QString reason);
    void tableSizeChangedSignal(int rawRows, int rawCols, int modelRows, int modelCols);
    void mainCellChangedSignal(Range mainCell);
    void selectionChangedSignal(TableView* view);
    void selectionSizeChangedSignal(RangeSize size);
    void updateStatusBarSignal();
    /// Something to be told in the status bar for a while.
    void messageSignal(QString text);
    /// The view has scrolled while the find and replace widget is open.
    void updateFindReplaceMatchesSignal();
    void undoStackCleanChangedSignal(bool clean);
    /// An edit begins that the editor pane is to take; the second form delivers the first key.
    void startOffCellEditSignal(bool overwrite, bool cursorAtEnd);
    void startOffCellEditSignal(bool overwrite, QKeyEvent* event);
    void showEditorPaneSignal(bool show, bool animate);
    void mainCellLengthChangedSignal(int length);
    void suppressAutoFitWarningsChangedSignal(bool suppress);
    /// What is kept about the file has changed.
    void fileMetadataChangedSignal();
    /// A Shift press on a label begins a drag of the selected rows or columns.
    void arrayDragStartSignal(Axis axis, int section);

protected:
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool edit(QModelIndex const& index, EditTrigger trigger, QEvent* event) override;
    void dropPendingEdit() override;
    void updateGeometries() override;

private:
    // Construction.
    void setupSections();
    void setupFrozenHeaders();
    void connectFrozenView(FrozenTableView* view);
    void connectHeader(HeaderView* header);
    void setupCorners();
    void setupScrollBars();
    void connectSignalsWithModel();
    void connectSizesWithModel();
    void connectSizesAlong(Axis axis);

    // Labels.
    void onSectionClicked(Axis axis, int section);
    void onSectionCtrlClicked(Axis axis, int section);
    void onSectionShiftClicked(Axis axis, int section);
    void onSectionRightClicked(Axis axis, int section);
    void onSectionEntered(Axis axis, int section);
    void onSectionDoubleClicked(Axis axis, int section);
    bool filterCornerButtonEvent(QObject const* watched, QEvent const* event);
    void onHeaderCountChanged(bool emitChange, bool autoFit);
    void onHighlightChanged(bool emitChange);
    void placeCornerButton();

    // Frozen bands.
    std::array<FrozenTableView*, 3> frozenViews() const;
    std::array<AbstractTableView*, 4> allViews();
    void onFreezeChanged(bool emitChange);
    void showFrozenViews();
    int headerExtent(Axis axis) const;
    int bandExtent(Axis axis) const;
    void placeFrozenViews();
    void setFrozenPos();
    void setHorizontalFrozenWidth();
    void setHorizontalFrozenHeight();
    void setVerticalFrozenWidth();
    void setVerticalFrozenHeight();
    void setCornerFrozenWidth();
    void setCornerFrozenHeight();
    void followScrollBar(Axis axis);
    bool filterFrozenEvent(QObject const* watched, QEvent* event);
    bool passDragOn(FrozenTableView const& from, QMouseEvent const& move);

    // Sizes.
    LineSizes& sizesOf(Axis axis) { return axis == Axis::Rows ? *rowSizes : *colSizes; }
    int maximumSize(Axis axis) const { return axis == Axis::Rows ? maximumRowHeight : maximumColumnWidth; }
    void setTableOfSizes();
    bool takeSizes();
    void showSizes();
    int shownRowHeight() const;
    void updateShownSize(Axis axis);
    void updateLoadLimits();
    void setDefaultSize(Axis axis, int size);
    void resizeLines(Axis axis, std::vector<int> const& lines, std::vector<int> const& sizes);
    void resizeSelectedLines(Axis axis, int size);
    void enforceEmptySizes(Axis axis);
    void enforceEmptySize(Axis axis, int line);
    bool isEmptyLine(Axis axis, int line) const;
    void widenTo(QString const& text, RangeSet const& ranges);
    int typedWidth(QString const& text, bool bold);
    void widenToLabels();
    void keepEditorInSight();
    void scrollAfterFit();
    void fitRow(RowFit const& fit, int row);
    void boundRow(int row);
    int headerRowsWidth(int col);
    void resizeTogether(std::function<void()> const& resize);
    void setupAnimations();
    LineAnimation& animationOf(Axis axis) { return axis == Axis::Rows ? *rowResizeAnimation : *colResizeAnimation; }
    /// Lines that still collapse are gone when the table is changed next.
    void finishAnimations();
    void insertLines(Axis axis, std::vector<int> lines);
    void hideRows(std::vector<int>& rows);
    void hideCols(std::vector<int>& cols);
    void performRemoveRows();
    void performRemoveCols();
    void applyFont();
    bool isLargeForAutoFit(Axis axis) const;
    bool askToDisableAutoFit(QString const& text);
    void fitAfterLoad();

    bool beginReload(bool asReadOnly);
    bool loadInBackground(std::function<bool()> const& load);
    void hideForLoad();
    void showAfterLoad();
    void takeReadOnlyFromModel();
    void applyGlobalSettings();
    void applyTableSettings();

    // Editing.
    void connectEditing();
    void connectEditingWithModel();
    void onTableSavedOrLoaded();
    /// Carries a change of the undo stack out. After a save by it the stack is clean.
    void endEditBeforeStep();
    void changeStack(std::function<void()> const& change);
    bool refuses(QUndoCommand const* command) const;
    void connectSignalsWithDelegate(TableDelegate* delegate);
    QModelIndex mainIndex() const;
    QString mainText() const;
    bool resolveEditPathForLargeMainCell(bool& usePane);
    bool askForEditorPane();
    void beginEdit();
    std::optional<LeftOut> askBeforeCommit(CellEdit const& edit);
    void endDragsLater();
    void openCellEditor(bool overwrite, bool startEmpty, QKeyEvent* event);
    void cancelEditingIfEditorWasNotCreated();
    void setEditStateOfAllViews(bool open, QuickEdit* editor);
    bool isEditorPaneShown() const { return hasContext(Context::EditorPaneShown); }

    // Both axes.
    HeaderAxis scrollAxis(Axis axis) const;
    Range lineCell(Axis axis, int line) const;
    bool isFrozenLine(Axis axis, int line) const;
    void setSlider(Axis axis, int position);
    void scrollToSection(Axis axis, int section, bool ifNeeded, bool minimal);
    void scrollAfterMove(Axis axis, int oldSection, int newSection);
    int lastDataLine(Axis axis) const;
    void goToEdge(Direction direction);
    void selectLine(Axis axis, int line);
    void selectWholeLines(Axis axis, int start);
    void selectToEdge(Direction direction);
    void setMultiCellSelection(Range const& mainCell, RangeSet const& ranges);
    void onScrollBarValueChanged();
    void onWheelSnapTimerStopped();

    QUndoStack stack;
    FrozenTableView* horizontalFrozenView = nullptr;
    FrozenTableView* verticalFrozenView = nullptr;
    FrozenTableView* cornerFrozenView = nullptr;
    TLCornerButton* topLeftCornerButton = nullptr;
    ScrollAreaBottomRightCornerWidget* bottomRightCorner = nullptr;
    HiddenNotice* hiddenNotice = nullptr;
    QTimer wheelSnapTimer;
    std::optional<CellEdit> pendingEdit;
    LineSizes* rowSizes = nullptr;
    LineSizes* colSizes = nullptr;
    LineAnimation* rowResizeAnimation = nullptr;
    LineAnimation* colResizeAnimation = nullptr;
    std::vector<int> rowsToRemove; ///< those that collapse
    std::vector<int> colsToRemove;
    MeasuringTable measuringTable{1};
    MeasuringTable columnSampleTable{int(ColumnSample::most)};
    static inline bool suppressAutoFitWarnings = false;
    int defaultRowHeight = 24;
    int defaultColumnWidth = 80;
    int maximumRowHeight = 400;
    int maximumColumnWidth = 800;
    bool autoFitRowHeight = false;
    bool autoFitColWidth = false;
    int resizeContentsPrecision = 500;
    int autoFitColumnCountdown = -1; ///< -1 for none
    QFont tableFont;
    int textSize = 12; ///< pixels
    int averageCharWidth = 0;
    int averageBoldCharWidth = 0;
    bool largeCellCursorAtFront = false;
    bool inLargeCellPrompt = false;
    bool autoSaveFailed = false;
    QString untoldFailure;  ///< of an automatic save, to be told when the keys are still
    bool autoSaved = false; ///< by the command that is being carried out
    bool sorting = false;
    bool readOnly = false;
    Settings settings;
    bool hasSettings = false;
    bool snapToRowAfterScrolling = true;
    bool snapToColumnAfterScrolling = true;
    bool freezeHeaderRows = false;
    bool freezeHeaderColumns = false;
    int numHeaderRows = 1; ///< visible header rows
    int numHeaderCols = 1;
    bool showRowLabels = true;
    bool showColLabels = true;
    bool representColumnsAsLetters = false;
    int firstColIndex = 0; ///< while columns are letters the model has 0
    HeaderGestures gestures;
    int initialVerticalScroll = -1; ///< -1 for none
    int initialHorizontalScroll = -1;
};
