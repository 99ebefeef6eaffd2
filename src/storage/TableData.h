#pragma once

#include "core/Enumerations.h"
#include "core/ExtensionData.h"
#include "core/Range.h"
#include "storage/AbstractDataContainer.h"
#include "storage/CellCodec.h"
#include "storage/ConcealedList.h"
#include "storage/LineSizeStore.h"

#include <QMutex>
#include <QObject>
#include <QString>
#include <QThread>
#include <QVariant>

#include <array>
#include <bitset>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class CellConversion;
class CellPatch;
class CellRegion;
struct LineWalk;
class EditableDataContainer;
class ReplacedCells;
class TakenLines;

/// Sits between the item model and the one data container of a table. It replaces the container on every load, with
/// the thread that goes with it; turns model coordinates (what the user sees) into raw ones (what is stored) in step
/// with concealed rows and columns and with the transpose flag; and is the place where bytes become text.
///
/// Every operation with a row and a column form takes `ignoreTranspose` last: on a transposed table and without it,
/// the row form answers for the stored columns, so a caller who says "row" means what the user sees as a row.
class TableData : public QObject {
    Q_OBJECT

public:
    enum class DataContainerType { Editable = 0, ReadOnly = 1, NotLoaded = 2 };
    using Indexes = std::vector<int>;

    explicit TableData(QObject* parent = nullptr);
    ~TableData() override;

    // Loading.

    /// Opens the file of the load to come, which may begin with what is to be lost only if it can be read. False leaves
    /// the table, and a load that runs, as they are and tells the reason by loadFailedSignal.
    bool openForLoad(QString const& path, DataContainerType type);
    /// Replaces the container by one that reads `path`, after openForLoad if that has not been called. With `useThread`
    /// the load runs on a thread of its own and loadFinishedSignal tells its end; meanwhile the table is empty and
    /// locked. A file that cannot be opened then leaves all as it was and gives false. Without a thread the table is
    /// filled on return, and a file that cannot be opened is an empty table. The concealed lists are left alone.
    bool loadCSV(QString const& path, bool useThread, DataContainerType type, QString const& delimiter,
                 QString const& saveDelimiter, EncodingType encoding, ParsingStandard standard);
    /// Ends the load thread; with `cancel` a running load is told to stop first.
    void stopLoadThread(bool cancel);
    /// Reloads the same file into a container of another type; unsaved edits are not carried over.
    void setDataContainerType(DataContainerType type);
    DataContainerType getDataContainerType() const { return dataContainerType; }
    /// Has a read-only table take changes from now on, with what it holds. False if its cells are not in memory.
    bool makeEditable();
    /// The pair that paces the scanners' progress to the GUI. Not owned.
    void setProgressUpdateMutex(QMutex* mutex, QWaitCondition* condition);
    bool isLoading() const { return coming != nullptr; }
    /// A locked table takes no change: what is asked of it does nothing and fails. A table that loads is locked; this
    /// keeps it so until all who show it have taken the load in.
    void setLocked(bool on) { locked = on; }
    bool isLocked() const { return isLoading() || locked; }
    /// A read-only table refuses every change of its cells; its lines can still be put in another order, concealed and
    /// transposed.
    void setReadOnly(bool on) { readOnly = on; }
    /// The container of the table as it is now: an empty one during a load, while the one that is being filled belongs
    /// to the load thread.
    AbstractDataContainer* getDataContainer() const { return dataContainer.get(); }
    QString getFilepath() const;
    QString getLastSaveError() const;
    /// How the last load has ended.
    LoadResult const& getLoadResult() const { return dataContainer->getLoadResult(); }
    void setLoadLimits(LoadLimits limits) { loadLimits = limits; }

    // Saving. A table that is locked is not saved, nor is one over its own file that goes on beyond the limits of the
    // load.

    SaveReport save(SaveRequest const& request);
    // Forms of it that save also what a load would not give back. False leaves the reason in getLastSaveError().
    bool saveCSV(bool ignoreMaps, bool skipConcealed);
    bool saveCSV(QString const& path, bool ignoreMaps, bool skipConcealed);
    bool saveCSV(QString const& path, ExtensionData const& dialect, bool skipConcealed);

    // Dialect: kept here for the next load and forwarded to the container.

    void setDelimiter(QString const& delimiter, QString const& saveDelimiter);
    void setLineEnding(LineEndingType type);
    void setParsingStandard(ParsingStandard standard);
    void setSaveWithTrailingDelimiters(bool on);
    void setExtension(QString const& extension);
    /// With `convertCells` every cell is rewritten in the new encoding if it is another one; without it only the
    /// reading changes.
    void setEncoding(EncodingType encoding, bool convertCells);
    QString getExtension() const { return extension; }
    QString getDelimiter() const { return delimiter; }
    QString getSaveDelimiter() const { return saveDelimiter; }
    LineEndingType getLineEnding() const { return lineEnding; }
    EncodingType getEncoding() const { return encoding; }
    ParsingStandard getParsingStandard() const { return parsingStandard; }

    // Counts and coordinates. Negative indexes map to -1; an index past the end maps past the end.

    int numRawRows(bool ignoreTranspose = false) const;
    int numRawCols(bool ignoreTranspose = false) const;
    int numModelRows(bool ignoreTranspose = false) const;
    int numModelCols(bool ignoreTranspose = false) const;
    int numConcealedRows(bool ignoreTranspose = false) const;
    int numConcealedCols(bool ignoreTranspose = false) const;
    int getRawFromModelRow(int model, bool ignoreTranspose = false) const;
    int getRawFromModelCol(int model, bool ignoreTranspose = false) const;
    /// -1 for a concealed row; with `nearest` the closest visible row above it.
    int getModelFromRawRow(int raw, bool nearest = false, bool ignoreTranspose = false) const;
    int getModelFromRawCol(int raw, bool nearest = false, bool ignoreTranspose = false) const;
    Range getRawFromModelRange(Range range) const;
    Range getModelFromRawRange(Range range, bool nearest) const;

    // Concealing.

    bool isRowConcealed(int raw, bool ignoreTranspose = false) const;
    bool isColConcealed(int raw, bool ignoreTranspose = false) const;
    /// The sorted raw indexes of what the model does not show.
    Indexes const& getConcealedRowsRaw(bool ignoreTranspose = false) const;
    Indexes const& getConcealedColsRaw(bool ignoreTranspose = false) const;
    void concealModelRow(int model, bool ignoreTranspose = false);
    void concealModelCol(int model, bool ignoreTranspose = false);
    void concealModelRows(Indexes const& models, bool ignoreTranspose = false);
    void concealModelCols(Indexes const& models, bool ignoreTranspose = false);
    void concealRawRow(int raw, bool ignoreTranspose = false);
    void concealRawCol(int raw, bool ignoreTranspose = false);
    void concealRawRows(Indexes const& raws, bool ignoreTranspose = false);
    void concealRawCols(Indexes const& raws, bool ignoreTranspose = false);
    void showRawRow(int raw, bool ignoreTranspose = false);
    void showRawCol(int raw, bool ignoreTranspose = false);
    void showRawRows(Indexes const& raws, bool ignoreTranspose = false);
    void showRawCols(Indexes const& raws, bool ignoreTranspose = false);
    void showAllRows(bool ignoreTranspose = false);
    void showAllCols(bool ignoreTranspose = false);

    // Rows and columns.

    bool insertRowsRaw(int row, int count, bool ignoreTranspose = false);
    bool insertColsRaw(int col, int count, bool ignoreTranspose = false);
    /// Inserts rows with content; unlike the form above it does not signal the size. Both answer true for a row
    /// that is negative or past the end, and then only the concealed rows at or behind it have moved.
    bool insertRowsRaw(int row, std::vector<AbstractDataContainer::Cells> const& rows, bool ignoreTranspose = false);
    bool insertColsRaw(int col, std::vector<AbstractDataContainer::Cells> const& cols, bool ignoreTranspose = false);
    bool insertRowsModel(int row, int count, bool ignoreTranspose = false);
    bool insertColsModel(int col, int count, bool ignoreTranspose = false);
    /// Removes stored rows. Does not signal the size, and rows that are concealed are to be shown first.
    bool removeRowsRaw(int row, int count, bool ignoreTranspose = false);
    bool removeColsRaw(int col, int count, bool ignoreTranspose = false);
    /// Removes rows that the model shows; concealed rows between them stay.
    bool removeRowsModel(int row, int count, bool ignoreTranspose = false);
    bool removeColsModel(int col, int count, bool ignoreTranspose = false);
    /// Takes whole rows or columns out of an editable table, shown or concealed ones, in one pass whatever their
    /// number. They have to lie inside the table.
    void take(TakenLines& lines);
    /// Puts lines back where they were taken, or inserts empty ones.
    void putBack(TakenLines& lines);
    /// Copies the content of model row `row` over the one `offset` rows away, growing the table to hold both.
    bool duplicateRow(int row, int offset, bool ignoreTranspose = false);
    bool duplicateCol(int col, int offset, bool ignoreTranspose = false);
    /// Moves model row `row` by `offset`, growing the table to hold the goal; concealed rows stay in place.
    bool moveRowRelative(int row, int offset, bool ignoreTranspose = false);
    bool moveColRelative(int col, int offset, bool ignoreTranspose = false);
    using LineMoves = std::vector<std::pair<int, int>>; ///< from where and to where, Model
    /// Moves many rows (columns) in one pass: each ends where it is told to, and the others keep their order around
    /// them. Concealed lines stay in place, and the table grows if a line goes behind its end. No line and no place may
    /// be named twice. The moves with `from` and `to` exchanged take it back. False if nothing was moved.
    bool moveLines(Axis axis, LineMoves const& moves);
    /// See AbstractDataContainer::emptyRows; start and mask are raw, the answer is of `indexType`. With Model it
    /// leaves out what is concealed.
    Indexes getEmptyRows(int startCol, RangeIndexType indexType, GetRowColMaskType maskType, Indexes const& mask,
                         bool ignoreTranspose = false) const;
    Indexes getEmptyCols(int startRow, RangeIndexType indexType, GetRowColMaskType maskType, Indexes const& mask,
                         bool ignoreTranspose = false) const;
    int numEmptyRowsRawAtEnd(bool ignoreTranspose = false) const;
    int numEmptyColsRawAtEnd(bool ignoreTranspose = false) const;
    /// Replaces `out` by the bytes of a raw row's cells, without separators.
    void getRowString(std::string& out, int row, GetRowColMaskType maskType, Indexes const& mask,
                      bool ignoreTranspose = false) const;
    void getColString(std::string& out, int col, GetRowColMaskType maskType, Indexes const& mask,
                      bool ignoreTranspose = false) const;
    /// The cells of a stored row, whether the table is transposed or not.
    bool getRow(AbstractDataContainer::Cells& out, int row, bool ignoreMaps, GetRowColMaskType maskType,
                Indexes const& mask) const;
    bool getCol(AbstractDataContainer::Cells& out, int col, bool ignoreMaps, GetRowColMaskType maskType,
                Indexes const& mask) const;
    void clear();
    void toggleTranspose();
    bool isTransposed() const { return transposed; }

    // Sizes on the screen, which follow the lines. A transposed table has others, which come and go with it.

    /// By raw line.
    LineSizeStore& lineSizes(Axis shown);
    LineSizeStore const& lineSizes(Axis shown) const;
    /// Another number whenever lines have come, gone, moved, or been concealed or shown, so that whoever shows sizes
    /// knows when to look again. A table that grows at its end keeps it.
    quint64 linesRevision(Axis shown) const { return along(storedAxis(shown, false)).revision; }

    // Cells.

    /// The text of a cell; a null text for an empty cell, an invalid value without a container.
    QVariant getValueRaw(int row, int col) const;
    QVariant getValueModel(int row, int col) const;
    AbstractDataContainer::Bytes getValueRawCharVec(int row, int col, bool ignoreMaps = false) const;
    /// Writes a cell, growing the table if the text is not empty. Returns whether the stored bytes changed.
    bool setValueRaw(int row, int col, QString const& text, bool ignoreTranspose = false);
    bool setValueModel(int row, int col, QString const& text);
    /// The bytes of a cell of an editable table, without a copy; valid until the table changes.
    std::string_view cellBytesRaw(int row, int col) const;
    /// What turns bytes of cells into text and back.
    CellCodec const& getCodec() const { return codec; }
    /// Writes the cells of an editable table, which grows to hold those with content, and takes over what they had.
    void exchange(CellPatch& patch);
    /// Writes one text to all cells of a region, which is Model, and notes what they held in `old`, which has to be
    /// empty. With content the table grows; the size is signalled at most once.
    void fill(CellRegion const& cells, QString const& text, ReplacedCells& old);
    /// Whether that would change anything, or would if the encoding could carry the text.
    bool wouldFillChange(CellRegion const& cells, QString const& text) const;
    /// Takes the last fill back. The table keeps its size.
    void putBack(ReplacedCells& old);
    /// The Raw cells of a Model region.
    CellRegion rawCells(CellRegion const& model) const;
    bool isCellPopulated(int modelRow, int modelCol) const;
    /// The row, or for Left and Right the column, of the jump of getNextBlockLocation from a Model cell.
    int nextBlockLine(int modelRow, int modelCol, Direction direction) const;
    /// The goal of a jump over a block of cells from the range's cell, as ctrl and an arrow key make it: a copy of the
    /// range with another row or column. Walks the model's cells for a Model range, raw cells otherwise. The answer
    /// can be -1 in the direction up or left, and one past the end in the others.
    Range getNextBlockLocation(Range const& range, Direction direction) const;
    /// Counts the container's rows and has no other effect.
    void cemTableContents() const;

    // Sorting.

    void setCaseSensitiveSorting(bool on) { caseSensitiveSorting = on; }
    bool getCaseSensitiveSorting() const { return caseSensitiveSorting; }
    /// The flag by which a sort is canceled; it belongs to the caller too.
    void setCancelPointers(std::shared_ptr<bool> flag, std::shared_ptr<QMutex> mutex);
    /// Fills `out` as TableDataWorker::getSortIndexes does. With `useThread` a thread does the work and this runs a
    /// local event loop meanwhile, which takes no input of the user for its first moments. False if canceled.
    bool getSortIndexes(Indexes& out, int key, Axis axis, SortType type, int start, bool useThread) const;
    /// Order the rows (columns) so that raw line i is what was line order[i]; concealed ones go with their content.
    void sortLines(Axis axis, Indexes const& order);
    /// Takes sortLines with the same order back.
    void unsortLines(Axis axis, Indexes const& order);

    // Words.

    void setWordDelimiters(QString const& characters);
    bool isWordDelimiter(QChar character) const;

signals:
    void startProgressUpdateSignal();
    void loadProgressUpdateSignal(int done, int steps, int sizeMiB);
    void loadFinishedSignal();
    /// A load could not begin, for a reason that is a sentence for the user.
    void loadFailedSignal(QString reason);
    void tableSizeChangedSignal(int rawRows, int rawCols, int modelRows, int modelCols);
    void saveStartedSignal(QString path);
    void saveFinishedSignal(QString path);
    void updateProgressSignal(float percent) const;

public slots:
    /// Ends the load thread and takes over the container that it has filled.
    void onLoadFinished();

private:
    /// The stored table along one axis.
    struct AxisState {
        ConcealedList concealed;
        std::array<LineSizeStore, 2> sizes; ///< by the axis as which it is shown
        quint64 revision = 0;               ///< another one after each change of the lines
    };
    using Cells = AbstractDataContainer::Cells;

    static std::unique_ptr<AbstractDataContainer> makeContainer(DataContainerType type);
    using Container = std::unique_ptr<AbstractDataContainer>;
    void setContainer(Container container);
    Container takeOpened(QString const& path, DataContainerType type);
    void passDialectTo(AbstractDataContainer& container) const;
    void startLoadThread(Container former);
    void takeOverLoaded();
    void endLoadThread(AbstractDataContainer* container);
    QString saveRefusalFor(QString const& path) const;
    bool refusesChanges() const { return readOnly || isLocked(); }

    // Every row and column pair above is a face of one of these. They know stored axes only.

    Axis storedAxis(Axis shown, bool ignoreTranspose) const;
    AxisState& along(Axis axis) { return axes[static_cast<std::size_t>(axis)]; }
    AxisState const& along(Axis axis) const { return axes[static_cast<std::size_t>(axis)]; }
    /// Only the container counts its lines.
    int countOf(Axis axis) const { return axis == Axis::Rows ? dataContainer->numRows() : dataContainer->numCols(); }
    int modelCount(Axis axis) const;
    int modelFromRaw(Axis axis, int raw, bool nearest) const;
    void concealModel(Axis axis, Indexes const& models);
    void concealRaw(Axis axis, Indexes const& raws);
    void showRaw(Axis axis, Indexes const& raws);
    void showAll(Axis axis);
    bool insertEmpty(Axis axis, int at, int count);
    bool insertFilled(Axis axis, int at, std::vector<Cells> const& filled);
    bool makeRoom(Axis axis, int at, int count);
    template <typename Follow>
    void noteLines(Axis axis, Follow follow);
    void noteOrder(Axis axis, Indexes const& order, int first = 0);
    void noteMapping(Axis axis);
    void resetSizes();
    bool removeRaw(Axis axis, int at, int count);
    bool removeModel(Axis axis, int model, int count);
    bool duplicate(Axis axis, int model, int offset);
    bool move(Axis axis, int model, int offset);
    bool moveAroundConcealed(Axis axis, int model, int offset, Cells const& cells);
    bool grow(Axis axis, int count);
    void growTo(Axis axis, int count);
    Indexes empty(Axis axis, int start, RangeIndexType indexType, GetRowColMaskType maskType,
                  Indexes const& mask) const;
    void joinCells(Axis axis, std::string& out, int at, GetRowColMaskType maskType, Indexes const& mask) const;
    bool readCells(Axis axis, Cells& out, int at, bool ignoreMaps, GetRowColMaskType maskType,
                   Indexes const& mask) const;

    Indexes skipMask(Axis axis, bool skipConcealed) const;
    bool growToHold(int row, int col, bool filled);
    void growToHold(CellPatch const& patch);
    CellRegion storedCells(CellRegion const& model) const;
    QString textAt(int row, int col) const;
    bool hasTextRaw(int row, int col) const;
    int skipShownRows(LineWalk walk, int rawCol, bool filled) const;
    int skipRawRows(LineWalk const& walk, int col, bool filled) const;
    void convertTable(CellConversion const& conversion);
    void rebuildWordDelimiterLookup();
    void signalSize();

    std::unique_ptr<AbstractDataContainer> dataContainer;
    std::unique_ptr<AbstractDataContainer> opened;      ///< with the file of the load to come
    std::unique_ptr<AbstractDataContainer> coming;      ///< being filled by the load thread, none unless a load runs
    EditableDataContainer* editableContainer = nullptr; ///< the same one if it is editable
    DataContainerType dataContainerType = DataContainerType::NotLoaded;
    std::array<AxisState, 2> axes; ///< by Axis
    quint64 lastRevision = 0;
    bool transposed = false;
    QString wordDelimiters = QStringLiteral("`~!@#$%^&*()+=\t[]{}\\|;:'\",\n./?<> ");
    std::bitset<256> wordDelimiterLookup;
    QMutex* progressMutex = nullptr;
    QWaitCondition* progressCondition = nullptr;
    bool saveWithTrailingDelimiters = true;
    bool caseSensitiveSorting = true;
    std::shared_ptr<bool> cancelFlag;
    std::shared_ptr<QMutex> cancelMutex;
    QString extension = QStringLiteral("csv");
    QString delimiter = QStringLiteral(",");
    QString saveDelimiter = QStringLiteral(",");
    LineEndingType lineEnding = LineEndingType::Unix;
    EncodingType encoding = EncodingType::Utf8;
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
    CellCodec codec;
    std::unique_ptr<QThread> loadThread; ///< none unless a load runs
    int loadNumber = 0;                  ///< tells the signals of the present load from late ones of an earlier load
    bool locked = false;
    bool readOnly = false;
    LoadLimits loadLimits;
    QString saveRefusal; ///< why the last save was refused, empty if it was not
};
