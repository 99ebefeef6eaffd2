#pragma once

#include "appearance/Theme.h"
#include "core/Context.h"
#include "core/Enumerations.h"
#include "core/RangeSize.h"
#include "core/RangeVector.h"
#include "core/SortData.h"
#include "model/CellColors.h"
#include "model/FileDialect.h"
#include "model/HeaderRowSearch.h"
#include "model/HighlightedCells.h"
#include "model/IndexSpaces.h"
#include "model/LostCharacters.h"
#include "model/ProvisionalText.h"
#include "model/Selection.h"
#include "model/TableShape.h"
#include "model/TableSize.h"
#include "storage/TableData.h"

#include <QAbstractTableModel>
#include <QBrush>
#include <QFont>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>
#include <QWaitCondition>

#include <functional>
#include <string>
#include <vector>

/// The one door between the view and the data of a table: says how large the grid is, what each cell shows and in
/// which colours, owns the selection, and converts between the index spaces. A TableView owns it, and it owns the
/// TableData. Lives in the GUI thread. The indexes of the item model are Model indexes; the grid is larger than the
/// data by empty rows and columns to type into. Unless a name or comment says otherwise, indexes are Model.
class TableModel : public QAbstractTableModel {
    Q_OBJECT

public:
    using Indexes = std::vector<int>;
    using Rows = std::vector<AbstractDataContainer::Cells>;

    /// Which parts of the file's dialect the user has set by a command, as opposed to what the file was opened with.
    struct DialectOrigin {
        bool delimiterSetByCommand = false;
        bool lineEndingSetByCommand = false;
        bool encodingSetByCommand = false;
        bool parsingStandardSetByCommand = false;
    };

    explicit TableModel(QObject* parent = nullptr);
    TableModel(bool readOnly, QObject* parent);
    ~TableModel() override;

    // Item model.

    /// Makes an index on this model without looking at the size of the grid.
    QModelIndex index(int row, int column, QModelIndex const& parent = QModelIndex()) const override;
    int rowCount(QModelIndex const& parent = QModelIndex()) const override;
    int columnCount(QModelIndex const& parent = QModelIndex()) const override;
    QVariant data(QModelIndex const& index, int role = Qt::DisplayRole) const override;
    bool setData(QModelIndex const& index, QVariant const& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    /// Stores nothing; announces a header that is to look different from `value`'s.
    bool setHeaderData(int section, Qt::Orientation orientation, QVariant const& value,
                       int role = Qt::EditRole) override;
    Qt::ItemFlags flags(QModelIndex const& index) const override;
    bool insertRows(int row, int count, QModelIndex const& parent = QModelIndex()) override;
    bool insertColumns(int col, int count, QModelIndex const& parent = QModelIndex()) override;
    bool removeRows(int row, int count, QModelIndex const& parent = QModelIndex()) override;
    bool removeColumns(int col, int count, QModelIndex const& parent = QModelIndex()) override;
    /// As setData, without a signal.
    bool setDataDirectly(QModelIndex const& index, QVariant const& value);
    /// `index` holds Raw numbers. A change in Model row 0 or column 0 is not signalled.
    bool setDataRaw(QModelIndex const& index, QVariant const& value);
    /// `index` holds Raw numbers; invalid for a negative one.
    QVariant dataRaw(QModelIndex const& index) const;
    /// Signals the change of a cell if it is visible.
    void emitCellChanged(Range const& cell);

    // Rows and columns.

    bool insertRowsRaw(int row, int count, QModelIndex const& parent = QModelIndex());
    bool insertColumnsRaw(int col, int count, QModelIndex const& parent = QModelIndex());
    /// The forms on ascending lists insert or remove one line an element; removal begins at the end.
    void insertRows(Indexes const& rows);
    void insertCols(Indexes const& cols);
    void removeRows(Indexes const& rows);
    void removeCols(Indexes const& cols);
    // Straight to the data; the caller brings the grid in step with enforceTableSize.
    bool insertRowsInDataRaw(int row, Rows const& rows);
    bool insertColumnsInDataRaw(int col, Rows const& cols);
    bool removeRowsFromDataRaw(int row, int count);
    bool removeColumnsFromDataRaw(int col, int count);
    /// Moves a row to another row of the data; false for negative rows.
    bool moveRowAbsolute(int from, int to);
    bool moveColumnAbsolute(int from, int to);
    /// Shows rows as columns and the reverse.
    void toggleTranspose();
    /// While set, inserting and removing rows and columns leaves the data alone and only tells the view.
    void setDataAlreadyChanged(bool on) { dataAlreadyChanged = on; }
    /// While set, inserts do not signal a change of layout.
    void setSkipLayoutSignals(bool on) { skipLayoutSignals = on; }

    // Sizes.

    int rowCountModel() const { return tableData.numModelRows(); }
    int columnCountModel() const { return tableData.numModelCols(); }
    int rowCountRaw() const { return tableData.numRawRows(); }
    int columnCountRaw() const { return tableData.numRawCols(); }
    int getSavedRowCountRaw() const { return savedRowCountRaw; } ///< at the last load or save
    int getSavedColCountRaw() const { return savedColCountRaw; }
    /// The size that the data would have if the text of a pending edit stood in the cells that show it.
    TableSize getShownSize() const;
    /// Makes the grid as large as data, selection, buffers and minimums ask, and keeps the main cell inside.
    void enforceTableSize();
    /// Pulls selection and grid back after rows have been removed from the data. `mainCellChanged` tells whether the
    /// main cell is another one now.
    void removeExtraneousRows(bool& mainCellChanged) { removeExtraneousLines(Axis::Rows, mainCellChanged); }
    void removeExtraneousCols(bool& mainCellChanged) { removeExtraneousLines(Axis::Columns, mainCellChanged); }
    void setMinNumTableRows(int count) { setSizeOption(minNumTableRows, count); }
    void setMinNumTableCols(int count) { setSizeOption(minNumTableCols, count); }
    void setNumBufferRows(int count) { setSizeOption(numBufferRows, count); }
    void setNumBufferCols(int count) { setSizeOption(numBufferCols, count); }
    int getMinNumTableRows() const { return minNumTableRows; }
    int getMinNumTableCols() const { return minNumTableCols; }
    int getNumBufferRows() const { return numBufferRows; }
    int getNumBufferCols() const { return numBufferCols; }

    // Concealing. The caller brings the grid in step with enforceTableSize when all changes are made.

    void concealRawRow(int row) { tableData.concealRawRow(row); }
    void concealRawCol(int col) { tableData.concealRawCol(col); }
    /// Also refreshes the count of visible header rows and the headers.
    void concealRawRows(Indexes const& rows);
    void concealRawCols(Indexes const& cols) { tableData.concealRawCols(cols); }
    void showRawRow(int row) { tableData.showRawRow(row); }
    void showRawCol(int col) { tableData.showRawCol(col); }
    void showRawRows(Indexes const& rows) { tableData.showRawRows(rows); }
    void showRawCols(Indexes const& cols) { tableData.showRawCols(cols); }
    void showAllRows() { tableData.showAllRows(); }
    void showAllCols() { tableData.showAllCols(); }

    // Hiding (TableModel_Hidden.cpp).

    /// Hides these (Raw) rows and shows all others; the grid follows.
    void setAndApplyHiddenRowsList(Indexes const& rows);
    void setAndApplyHiddenColsList(Indexes const& cols);
    bool hasHiddenLines() const { return tableData.numConcealedRows() > 0 || tableData.numConcealedCols() > 0; }
    /// Brings headers, context and grid in step with what is concealed now.
    void onConcealedLinesChanged();

    // Index conversion. See IndexSpaces for the arithmetic and for ranges without an index space.

    Indexes getRawFromModelRows(Indexes const& rows) const;
    Indexes getRawFromModelCols(Indexes const& cols) const;
    Indexes getModelFromRawRows(Indexes const& rows) const;
    Indexes getModelFromRawCols(Indexes const& cols) const;
    Indexes getRawFromUserRows(Indexes const& rows) const;
    Indexes getRawFromUserCols(Indexes const& cols) const;
    Indexes getUserFromRawRows(Indexes const& rows) const;
    Indexes getUserFromRawCols(Indexes const& cols) const;
    Indexes getModelFromUserRows(Indexes const& rows) const;
    Indexes getModelFromUserCols(Indexes const& cols) const;
    Indexes getUserFromModelRows(Indexes const& rows) const;
    Indexes getUserFromModelCols(Indexes const& cols) const;
    Range getRawFromModelRange(Range const& range) const;
    /// `nearest` gives concealed lines the closest visible one above instead of -1.
    Range getModelFromRawRange(Range const& range, bool nearest) const;
    Range getRawFromUserRange(Range const& range) const;
    Range getUserFromRawRange(Range const& range) const;
    Range getModelFromUserRange(Range const& range) const;
    Range getUserFromModelRange(Range const& range) const;
    Range getRawRange(Range const& range) const { return spaces().rawRange(range); }
    Range getModelRange(Range const& range) const { return spaces().modelRange(range); }
    Range getUserRange(Range const& range) const { return spaces().userRange(range); }
    RangeVector getRawRange(RangeVector const& ranges) const { return spaces().rawRange(ranges); }
    RangeVector getModelRange(RangeVector const& ranges) const { return spaces().modelRange(ranges); }
    RangeSet getModelRange(RangeSet const& ranges) const;
    RangeVector getUserRange(RangeVector const& ranges) const { return spaces().userRange(ranges); }
    Range convertRangeIndex(Range const& range, RangeIndexType target) const;
    RangeVector convertRangeIndex(RangeVector const& ranges, RangeIndexType target) const;
    Indexes convertRowIndexType(Indexes const& rows, RangeIndexType target, RangeIndexType source) const;
    Indexes convertColIndexType(Indexes const& cols, RangeIndexType target, RangeIndexType source) const;

    // Ranges of cells. Ranges are Model and are expanded to the size of the data.

    void getOrderedSetOfRows(Indexes& out, RangeVector const& ranges, RangeIndexType type) const;
    void getOrderedSetOfCols(Indexes& out, RangeVector const& ranges, RangeIndexType type) const;
    /// The flag plays no part.
    void getOrderedSetOfSelectedRows(Indexes& out, RangeIndexType type, bool withPending) const;
    /// `withPending` adds the columns between the corners of a drag.
    void getOrderedSetOfSelectedCols(Indexes& out, RangeIndexType type, bool withPending) const;
    /// One list of cells a row. The contents are as displayed, so long texts are cut.
    void getCellArrayByRows(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                            bool fillOld) const;
    void getCellArrayByRows(std::vector<RangeVector>& out, bool fillValue, bool fillOld) const;
    void getCellArrayByCols(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                            bool fillOld) const;
    void getCellArrayByCols(std::vector<RangeVector>& out, bool fillValue, bool fillOld) const;
    /// One list of cells for each run of neighbouring columns in a row; appended to `out`.
    void getCellBlockArrayHorizontal(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                                     bool fillOld) const;
    /// Leaves `out` as it is.
    void getCellBlockArrayVertical(std::vector<RangeVector>& out, RangeVector const& ranges, bool fillValue,
                                   bool fillOld) const;
    void convertCellArrayToCells(std::vector<RangeVector> const& array, RangeVector& out) const;
    /// Single cells with the contents that the ranges hold; the table is not read.
    void getCellOnlyRangeVector(RangeVector& out, RangeVector const& ranges) const;
    /// Appends the texts of all cells of the selection, whatever the argument.
    void getListOfCellValues(std::vector<QVariant>& out, RangeVector const& ranges) const;
    RangeVector getRelativeRangeVector(RangeVector const& ranges) const;
    bool areRangeVectorsSameShape(RangeVector const& a, RangeVector const& b) const;
    bool areRangeVectorsSameShapeRowWise(RangeVector const& a, RangeVector const& b) const;
    bool areRangeVectorsSameShapeColWise(RangeVector const& a, RangeVector const& b) const;
    // The outermost lines of ranges, which are sorted in place, or of the selection. See core/RangeShapes.h.
    int findTopOccupiedRow(RangeVector& ranges) const;
    int findBottomOccupiedRow(RangeVector& ranges, bool ignoreWhole) const;
    /// Fills an empty list with the selection first.
    int findLeftmostOccupiedCol(RangeVector& ranges) const;
    int findRightmostOccupiedCol(RangeVector& ranges, bool ignoreWhole) const;
    int findTopOccupiedRow() const;
    int findBottomOccupiedRow(bool ignoreWhole) const;
    int findLeftmostOccupiedCol() const;
    int findRightmostOccupiedCol(bool ignoreWhole) const;
    /// Writes what ranges hold into the table; see RangeContents.
    void populateModel(Range& range, bool useOldValues, Range const& skipCell, bool emitChanges);
    void populateModel(RangeVector& ranges, bool useOldValues, Range const& skipCell, bool emitChanges);
    /// Writes the Cells of a list without inserting anything.
    void populateExistingCells(RangeVector const& ranges, bool useOldValues);
    /// Reads the table into ranges.
    void populateCellDataValues(Range& range, bool fillValue, bool fillOld) const;
    void populateCellDataValues(RangeVector& ranges, bool fillValue, bool fillOld) const;

    // Selection. See Selection for the rules; ranges of any index space are taken and become Model ranges.

    /// Has the cells of an edit show its text, or with nothing shows what they hold again. The data stay, and views
    /// are not told: an open editor would take the change for one of its own cell.
    void setProvisionalText(std::optional<ProvisionalText> text);
    RangeSet const& getSelectedSet() const { return selection.set(); }
    /// The list form. For a large selection it is large, and made when it is asked for.
    RangeVector const& getSelection() const { return selection.ranges(); }
    Range const& getMainCell() const { return selection.mainCell(); }
    void setSelection(Range range);
    void setSelection(Range const& mainRange, RangeSet const& ranges);
    void setSelection(RangeVector const& ranges, bool resetShift);
    void setMainCell(Range const& range);
    /// Empties the selection; a valid `range` becomes the main cell.
    void clearSelection(Range const& range = Range(RangeType::None));
    bool addCellToSelection(Range const& range);
    bool addCellsToSelection(RangeSet const& ranges);
    bool removeCellFromSelection(int row, int col);
    void sanitizeSelection() { selection.sanitizeSelection(); }
    bool cellInSelection(Range const& range) const { return selection.cellInSelection(range); }
    bool isSelectionMultiCell() const { return selection.isSelectionMultiCell(); }
    bool isRowSelected(int row) const { return selection.isRowSelected(row); }
    bool isColSelected(int col) const { return selection.isColSelected(col); }
    qint64 numSelectedCells() const { return selection.numSelectedCells(gridSize()); }
    RangeSize getSelectionSize() { return selection.getSelectionSize(gridSize()); }
    QModelIndexList getSelectionIndexes() const;
    void setPendingCorners(Range const& start, Range const& end) { selection.setPendingCorners(start, end); }
    Range const& getPendingCornerStart() const { return selection.pendingCornerStart(); }
    Range const& getPendingCornerEnd() const { return selection.pendingCornerEnd(); }
    /// False if the second corner is there already.
    bool setPendingSelectionCorner(Range const& corner, bool isFirst);
    void moveSelectionRelative(int rows, int cols);
    void moveSelectionVertically(RangeSet const& ranges, int rows);
    void moveSelectionHorizontally(RangeSet const& ranges, int cols);
    bool selectUpOrDown(Direction direction, bool toBlockEdge, bool onlyTakeBack, bool* changed);
    bool selectLeftOrRight(Direction direction, bool toBlockEdge, bool onlyTakeBack, bool* changed);
    void selectUpOrDown(RangeSet const& base, std::vector<SelectionType> const& steps);
    void selectLeftOrRight(RangeSet const& base, std::vector<SelectionType> const& steps);
    /// "Sum: %1      Mean: %2" of the numbers among the selected cells, with "-" if there are none.
    QString getSelectionSumMeanStr() const;
    /// Announces those numbers; read-only tables have none.
    void updateStatusBarStats();
    void resetShiftSelectInfo() { selection.resetShiftSelectInfo(); }
    void invertSelectionByRowsHeaderExcluded();
    void invertSelectionByColumnsHeaderExcluded();
    /// Where a jump over a block of cells leads from `from`, as a Model cell inside the table.
    bool getNextBlockLocation(Range const& from, Range& to, Direction direction) const;
    /// Announces the main cell with its present content.
    void onMainCellChanged();

    // Search highlight.

    RangeVector const& getHighlightedRanges() const { return highlighted.rawRanges(); } ///< Raw
    void setHighlightedRange(RangeVector const& ranges) { highlighted.set(getRawRange(ranges)); }
    void setHighlightedRange(Range const& range) { setHighlightedRange(RangeVector{range}); }
    void clearHighlightedRange() { highlighted.set({}); }
    /// Whether a highlighted range holds the (Model) cell.
    bool cellInHighlightedRange(Range const& cell) const;
    /// While on, highlighted cells show the value of their range in place of their text.
    void setHighlightPreview(bool on) { highlightPreview = on; }
    /// Marks the Raw cells whose new texts the encoding could not carry, in place of those marked before, and tells of
    /// them by lostCharactersSignal.
    void markLostCharacters(CellRegion const& cells);

    // Loading, saving and the dialect of the file.

    /// Opens the file of the load to come; see TableData::openForLoad.
    bool openForLoad(QString const& path, bool readOnly);
    /// Replaces the table by a file. With `async` the file is read on a thread, loadFinishedSignal tells the end, and
    /// until then every change is refused; otherwise it is read on return. Selection and header settings stay. False
    /// for a file that cannot be opened: with `async` the table is then as it was, otherwise it is empty.
    bool loadCSV(QString const& path, bool async, bool readOnly, QString const& delimiter, QString const& saveDelimiter,
                 EncodingType encoding, ParsingStandard parsingStandard);
    void clearTable(QModelIndex const& parent = QModelIndex());
    /// Reads the table's file again under another dialect. False if that is the present one or there is no file.
    bool reloadFile(QString const& delimiter, EncodingType encoding, ParsingStandard parsingStandard);
    bool reloadFileWithDelimiter(QString const& newDelimiter);
    bool reloadFileWithEncoding(EncodingType newEncoding);
    bool reloadFileWithParsingStandard(ParsingStandard newStandard);
    /// See TableData::save.
    SaveReport save(SaveRequest const& request);
    bool saveCSV(bool ignoreMaps, bool skipConcealed);
    bool saveCSV(QString const& path, bool ignoreMaps, bool skipConcealed);
    bool saveCSV(QString const& path, ExtensionData const& dialect, bool skipConcealed);
    /// Saves after a change by a command if that option is on and the table has a file.
    void saveAfterEdit();
    /// From the begin of a load on a thread until the grid has all of its rows.
    bool isLoading() const { return tableData.isLocked(); }
    QString getFilepath() const { return tableData.getFilepath(); }
    QString getLastSaveError() const { return tableData.getLastSaveError(); }
    LoadResult const& getLoadResult() const { return tableData.getLoadResult(); }
    /// How many lines a load takes. The grid offers no empty lines beyond them either.
    void setLoadLimits(LoadLimits limits);
    LoadLimits const& getLoadLimits() const { return gridLimits; }
    /// The name of the file, "untitled" without one.
    QString getTableName() const;
    /// Lets a scanner that waits at a progress report go on.
    void wakeLoader() { progressCondition.wakeAll(); }

    void setExtension(QString const& newExtension);
    bool setDelimiter(QString const& newDelimiter, QString const& newSaveDelimiter);
    bool setLineEnding(LineEndingType type);
    /// Rewrites the cells in the new encoding.
    bool setEncoding(EncodingType type);
    bool setParsingStandard(ParsingStandard standard);
    void setSaveWithTrailingDelimiters(bool on);
    void setSaveAfterEachEdit(bool on) { saveAfterEachEdit = on; }
    /// True if that is a change.
    bool setReadOnly(bool on);
    // These ask the view to set the value by a command.
    bool setDelimiterForFileSaveCommand(QString const& newDelimiter);
    bool setLineEndingForFileSaveCommand(LineEndingType type);
    bool setEncodingForFileSaveCommand(EncodingType type);
    bool setParsingStandardForFileSaveCommand(ParsingStandard standard);
    bool isReadOnly() const { return readOnly; }
    bool getSaveAfterEachEdit() const { return saveAfterEachEdit; }
    bool getSaveWithTrailingDelimiters() const { return saveWithTrailingDelimiters; }
    QString getExtension() const { return extension; }
    QString getDelimiter() const { return delimiter; }
    QString getSaveDelimiter() const { return saveDelimiter; }
    LineEndingType getLineEnding() const { return lineEnding; }
    EncodingType getEncoding() const { return encoding; }
    EncodingType getLoadedEncoding() const { return loadedEncoding; }
    /// Before the file is read again: puts delimiter, encoding and parsing standard to what the file is in, where they
    /// have been changed for a save that has not come.
    void takeFileDialect();
    ParsingStandard getParsingStandard() const { return parsingStandard; }
    /// The table's file as it was read or written last; none if it has none.
    std::optional<FileStamp> getFileStamp() const { return tableData.getDataContainer()->getFileStamp(); }
    /// The file has been changed by others, and the next save may go over it.
    void takeFileAsItIs() { tableData.getDataContainer()->takeFileAsItIs(); }
    /// How a file with several names is to be written, if the user has said so.
    std::optional<AtomicFileWriter::Way> getWayOfFile(QString const& path) const {
        auto const way = ways.constFind(path);
        return way == ways.constEnd() ? std::nullopt : std::optional(*way);
    }
    void setWayOfFile(QString const& path, AtomicFileWriter::Way way) { ways.insert(path, way); }
    /// What the table's file is in; null if it has none.
    FileDialect const* getFileDialect() const;
    DialectOrigin& dialectOrigin() { return origin; }
    DialectOrigin const& dialectOrigin() const { return origin; }
    /// The storage, for sorting, searching and commands on raw data.
    TableData& getTableData() { return tableData; }
    TableData const& getTableData() const { return tableData; }
    void cemTableContents() const { tableData.cemTableContents(); }

    // Headers and labels.

    /// Makes the first `count` visible rows header rows. Concealed rows among them count as header rows too.
    void setNumberOfHeaderRows(int count);
    void setNumberOfHeaderCols(int count) { numHeaderCols() = std::max(count, 0); }
    void refreshVisibleHeaderRows();
    int getNumHeaderRows() const { return numHeaderRows; } ///< Raw
    int getNumVisibleHeaderRows() const { return colorOptions.headerRows; }
    int getNumHeaderCols() const { return colorOptions.headerCols; }
    void setFirstRowIndex(int index) { firstRowIndex = index; }
    void setFirstColIndex(int index) { firstColIndex = index; }
    int getFirstRowIndex() const { return firstRowIndex; }
    int getFirstColIndex() const { return firstColIndex; }
    void setRepresentColumnsAsLetters(bool on) { representColumnsAsLetters = on; }
    bool getRepresentColumnsAsLetters() const { return representColumnsAsLetters; }
    void setFreezeHeaderRows(bool on) { freezeHeaderRows = on; }
    void setFreezeHeaderColumns(bool on) { freezeHeaderColumns = on; }
    bool getFreezeHeaderRows() const { return freezeHeaderRows; }
    bool getFreezeHeaderColumns() const { return freezeHeaderColumns; }
    /// By what rows and columns are sorted; the headers mark it.
    void setRowSortData(SortData const& data);
    void setColSortData(SortData const& data);
    SortData const& getRowSortData() const { return rowSortData; }
    SortData const& getColSortData() const { return colSortData; }
    void setCaseSensitiveSorting(bool on) { tableData.setCaseSensitiveSorting(on); }
    bool getCaseSensitiveSorting() const { return tableData.getCaseSensitiveSorting(); }

    // Sorting (TableModel_Sorting.cpp).

    /// The flag by which a long job is canceled; it belongs to the caller too.
    void setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex);
    /// The raw indexes of all rows (columns) in the order that `sort` asks for, header lines in front. Empty if the
    /// sort was canceled. Long work is done in a thread, under a local event loop and with updateProgressSignal.
    Indexes getSortIndexes(SortData const& sort);
    /// Puts the rows (columns) in an order and marks the line that they are sorted by.
    void sortLines(Indexes const& order, SortData const& sort);
    /// Takes that back; then nothing marks a sort along this axis.
    void unsortLines(Indexes const& order, Axis axis);

    // A column's label is its text in the last visible header row. Lists are empty if the table has no such row.
    void getColumnLabels(QList<QString>& out, Indexes const& cols) const;
    QList<QString> getColumnLabels(Indexes const& cols) const;
    void getAllColumnLabels(QList<QString>& out) const;
    void getSelectedColumnLabels(QList<QString>& out) const;
    /// A column below -1 leaves `out` as it is.
    void getColumnLabel(QString& out, int col) const;
    /// Finds the first of `maxRows` rows that holds at least `required` of the names (-1: all) in its first `maxCols`
    /// columns: its index or -1, and the column of each name or -1.
    void getHeaderRowInformation(int& row, Indexes& columns, std::vector<QString> const& names, int required,
                                 int maxRows, int maxCols) const;

    // Empty lines and line contents; see TableData. The masks are of the index space in the name. The flags leave the
    // header columns (or rows) out of the test.
    Indexes getEmptyRowsModel(bool skipHeaderCols, GetRowColMaskType maskType, Indexes const& cols) const;
    Indexes getEmptyColumnsModel(bool skipHeaderRows, GetRowColMaskType maskType, Indexes const& rows) const;
    Indexes getEmptyRowsRaw(bool skipHeaderCols) const;
    Indexes getEmptyColumnsRaw(bool skipHeaderRows) const;
    int numEmptyRowsRawAtEnd() const { return tableData.numEmptyRowsRawAtEnd(); }
    int numEmptyColumnsRawAtEnd() const { return tableData.numEmptyColsRawAtEnd(); }
    void getRowString(std::string& out, int row, GetRowColMaskType maskType, Indexes const& mask) const;
    void getColumnString(std::string& out, int col, GetRowColMaskType maskType, Indexes const& mask) const;

    // Appearance.

    void setTheme(Theme const& newTheme);
    Theme const& getTheme() const { return theme; }
    void setFont(QFont const& newFont);
    /// In pixels.
    void setTextSize(int size);
    QFont getFont() const { return font; }
    int getTextSize() const { return textSize; }
    void setShadeEveryOtherRow(bool on) { colorOptions.shadeEveryOtherRow = on; }
    void setShadeEveryOtherColumn(bool on) { colorOptions.shadeEveryOtherColumn = on; }
    void setHighlightMainCellRow(bool on) { colorOptions.highlightMainCellRow = on; }
    void setHighlightMainCellColumn(bool on) { colorOptions.highlightMainCellColumn = on; }
    void setHighlightHeaderRows(bool on) { colorOptions.highlightHeaderRows = on; }
    void setHighlightHeaderColumns(bool on) { colorOptions.highlightHeaderColumns = on; }
    CellColorOptions const& getCellColorOptions() const { return colorOptions; }

    // What commands ask the view to do.

    void insertRowsGui(int row, int count) { emit insertRowsGuiSignal(row, count); }
    void insertRowsGui(Indexes const& rows) { emit insertRowsGuiSignal(rows); }
    void insertColsGui(int col, int count) { emit insertColsGuiSignal(col, count); }
    void insertColsGui(Indexes const& cols) { emit insertColsGuiSignal(cols); }
    void removeRowsGui(int row, int count) { emit removeRowsGuiSignal(row, count); }
    void removeRowsGui(Indexes const& rows) { emit removeRowsGuiSignal(rows); }
    void removeColsGui(int col, int count) { emit removeColsGuiSignal(col, count); }
    void removeColsGui(Indexes const& cols) { emit removeColsGuiSignal(cols); }
    void resizeRow(int row, int height) { emit resizeRowSignal(row, height); }
    void resizeRows(Indexes const& rows, int height) { emit resizeRowsSignal(rows, height); }
    void resizeCol(int col, int width) { emit resizeColSignal(col, width); }
    void resizeCols(Indexes const& cols, int width) { emit resizeColsSignal(cols, width); }
    void enforceAutoFitRowHeight(int row) { emit enforceAutoFitRowHeightSignal(row); }
    void enforceAutoFitRowHeights(Indexes const& rows) { emit enforceAutoFitRowHeightsSignal(rows); }
    void enforceAutoFitColWidth(int col) { emit enforceAutoFitColWidthSignal(col); }
    void enforceAutoFitColWidths(Indexes const& cols) { emit enforceAutoFitColWidthsSignal(cols); }
    void enforceAutoFit(Indexes const& rows, Indexes const& cols);
    /// Fits all rows (columns).
    void enforceAutoFitAll(Axis axis) { emit enforceAutoFitAllSignal(axis); }
    /// Fits the rows and columns that the ranges touch.
    void enforceAutoFitOnModel(RangeSet const& ranges);
    void scrollToMainCell(bool ifNeeded, bool minimal) { emit scrollToMainCellSignal(ifNeeded, minimal); }
    void scrollToRow(int row, bool ifNeeded, bool minimal) { emit scrollToRowSignal(row, ifNeeded, minimal); }
    void scrollToCol(int col, bool ifNeeded, bool minimal) { emit scrollToColSignal(col, ifNeeded, minimal); }
    void enforceTableSizeView() { emit enforceTableSizeSignal(); }

    /// The share, in per cent, of a job that the next updates stand for.
    void setProgressBounds(int low, int high);
    void updateProgress(float percent);

public slots:
    void onLoadFinished();
    void onSaveStarted(QString const& path);
    void onSaveFinished(QString const& path);

signals:
    void newDataCommittedSignal();
    void startProgressUpdateSignal();
    void loadFinishedSignal();
    void enforceTableSizeSignal();
    void toggleTransposeSignal();
    void selectionChangedSignal();
    void updateStatusBarSignal();
    void updateFindReplaceMatchesSignal();
    void refreshHeadersSignal();
    void loadProgressUpdateSignal(int done, int steps, int sizeMiB);
    void tableSizeChangedSignal(int rawRows, int rawCols, int modelRows, int modelCols);
    /// A load could not begin, for a reason that is a sentence for the user.
    void loadFailedSignal(QString reason);
    void saveStartedSignal(QString path);
    void saveFinishedSignal(QString path);
    /// An edit has given so many cells texts with characters that the encoding lacks. 0 when that is past.
    void lostCharactersSignal(qint64 cells);
    void autoSaveFailedSignal(QString path, QString error);
    /// An automatic save has found another file than the one that was read or written last.
    void fileIsAnotherSignal(QString path);
    /// What the file that an automatic save has written has not got of the former one, as sentences.
    void notKeptSignal(QStringList sentences);
    /// An automatic save was left out, since it would lose something; a sentence tells what.
    void autoSaveHeldBackSignal(QString sentence);
    void setDelimiterSignal(QString delimiter);
    void updateStatsLabelSignal(QString text);
    void mainCellChangedSignal(Range mainCell);
    void newPendingSelectionCornerSignal(Range corner);
    void setLineEndingSignal(LineEndingType type);
    void setEncodingSignal(EncodingType type);
    void setParsingStandardSignal(ParsingStandard standard);
    void selectionSizeChangedSignal(RangeSize size);
    void undoStackCleanChangedSignal(bool clean);
    void updateProgressSignal(float percent);
    void addContextSignal(Context context);
    void removeContextSignal(Context context);

    void insertRowsGuiSignal(int row, int count);
    void insertRowsGuiSignal(std::vector<int> rows);
    void insertColsGuiSignal(int col, int count);
    void insertColsGuiSignal(std::vector<int> cols);
    void removeRowsGuiSignal(int row, int count);
    void removeRowsGuiSignal(std::vector<int> rows);
    void removeColsGuiSignal(int col, int count);
    void removeColsGuiSignal(std::vector<int> cols);
    void resizeRowSignal(int row, int height);
    void resizeRowsSignal(std::vector<int> rows, int height);
    void resizeColSignal(int col, int width);
    void resizeColsSignal(std::vector<int> cols, int width);
    void enforceAutoFitRowHeightSignal(int row);
    void enforceAutoFitRowHeightsSignal(std::vector<int> rows);
    void enforceAutoFitColWidthSignal(int col);
    void enforceAutoFitColWidthsSignal(std::vector<int> cols);
    void enforceAutoFitAllSignal(Axis axis);
    void scrollToMainCellSignal(bool ifNeeded, bool minimal);
    void scrollToRowSignal(int row, bool ifNeeded, bool minimal);
    void scrollToColSignal(int col, bool ifNeeded, bool minimal);

private:
    IndexSpaces spaces() const { return {tableData, firstRowIndex, firstColIndex}; }
    GridSize gridSize() const { return {viewRowCount, viewColCount}; }
    QString labelAt(int col) const;
    bool hasLabelRow() const;

    QVariant cellValue(QModelIndex const& index) const;
    QVariant displayText(QModelIndex const& index) const;
    QVariant backgroundOf(QModelIndex const& index) const;
    QVariant foregroundOf(QModelIndex const& index) const;
    bool isMarked(int row, int col) const;
    bool isHeaderCell(QModelIndex const& index) const;
    void refreshBrushes();

    using ChangeData = std::function<bool()>;
    int& viewCount(Axis axis) { return axis == Axis::Rows ? viewRowCount : viewColCount; }
    bool insertLines(Axis axis, int line, int count, QModelIndex const& parent, ChangeData const& insertInData);
    bool insertLinesRaw(Axis axis, int rawLine, int count, QModelIndex const& parent);
    bool removeLines(Axis axis, int line, int count, QModelIndex const& parent);
    bool mayChangeData() const;
    void setViewCount(Axis axis, int count);
    TableShape shape(Axis axis);
    void setSizeOption(int& option, int value);
    void removeExtraneousLines(Axis axis, bool& mainCellChanged);
    void keepMainCellInGrid();
    bool moveLineAbsolute(Axis axis, int from, int to);
    void clearGrid();
    void showEverything();
    bool growTowardsLoadedRows();
    QString reasonAgainstAutoSave() const;
    SaveRequest requestOfAutoSave(bool heedsChanges) const;
    void endAutoSave(SaveReport const& report);
    int& numHeaderCols() { return colorOptions.headerCols; }
    void orderedSet(Axis axis, Indexes& out, RangeVector const& ranges, RangeIndexType type) const;
    void orderedSet(Axis axis, Indexes& out, RangeSet const& ranges, RangeIndexType type) const;
    void announce(SelectionChange const& change);
    ShiftBounds shiftBounds(Axis axis) const;

    QMutex progressMutex;
    QWaitCondition progressCondition;
    TableData tableData;
    Selection selection;
    std::optional<ProvisionalText> provisional;
    HighlightedCells highlighted;
    bool highlightPreview = false;
    LostCharacters lostCharacters{tableData};

    int viewRowCount = 0; ///< the size of the grid, which is not that of the data
    int viewColCount = 0;
    int savedRowCountRaw = 0;
    int savedColCountRaw = 0;
    int minNumTableRows = 0;
    int minNumTableCols = 0;
    int numBufferRows = 0;
    int numBufferCols = 0;
    LoadLimits gridLimits;
    bool dataAlreadyChanged = false;
    bool skipLayoutSignals = false;

    Theme theme;
    CellColorOptions colorOptions;
    QVariant textBrush; ///< brushes and fonts as data() hands them out
    QVariant highlightedTextBrush;
    QVariant fontValue;
    QVariant boldFontValue;
    QVariant headerFont;
    QFont font;
    QFont boldFont;
    int textSize = 0;

    bool readOnly = false;
    bool saveAfterEachEdit = false;
    bool saveWithTrailingDelimiters = true;
    QString extension = QStringLiteral("csv");
    QString delimiter = QStringLiteral(",");
    QString saveDelimiter = QStringLiteral(",");
    LineEndingType lineEnding = LineEndingType::Unix;
    EncodingType encoding = EncodingType::Utf8;
    EncodingType loadedEncoding = EncodingType::Utf8;
    QHash<QString, AtomicFileWriter::Way> ways; ///< by path
    QHash<QString, FileDialect> fileDialects;   ///< by path, what the last load or save says that the files are in
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
    DialectOrigin origin;

    int numHeaderRows = 1; ///< Raw; the visible ones among them are colorOptions.headerRows
    bool freezeHeaderRows = false;
    bool freezeHeaderColumns = false;
    int firstRowIndex = 0;
    int firstColIndex = 0;
    bool representColumnsAsLetters = false;
    SortData colSortData;
    SortData rowSortData;
    int loadNumber = 0;            ///< tells the steps after one load from those of an earlier one
    bool loadInBackground = false; ///< the last load
    int progressLow = 0;
    int progressHigh = 100;
};
