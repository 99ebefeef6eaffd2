#pragma once

#include "storage/AbstractDataContainer.h"
#include "storage/CellRows.h"
#include "storage/TakenCols.h"
#include "storage/TakenRows.h"

#include <functional>
#include <memory>
#include <span>

class CellConversion;
class CellPatch;
class CellRegion;
class LineWriter;
class RoundTripCheck;
class ReplacedCells;
class ScannerFile;
struct CellRect;
struct LineDialect;
struct Reading;
struct LineWalk;
struct ScannerJob;

/// The normal home of a table: the whole file in memory, as ragged rows of byte cells. rows.size() can be below
/// numRows() and a row can be shorter than numCols(): what is not stored reads as empty. So a file with short rows, or
/// with a few very long ones, stays small.
class EditableDataContainer : public AbstractDataContainer {
    Q_OBJECT

public:
    explicit EditableDataContainer(QObject* parent = nullptr);
    ~EditableDataContainer() override;

    Bytes getValue(int row, int col, bool ignoreMaps = false) const override;
    /// As getValue, without a copy; valid until the row changes.
    std::string_view cellView(int row, int col) const;
    /// The first row of the walk whose cell of that column holds no bytes, or with `filled` false holds some; the end
    /// of the walk if there is none.
    int skipInCol(LineWalk const& walk, int col, bool filled) const;
    int numRows() const override { return numRowsStored; }
    int numCols() const override { return numColsStored; }
    int numColsInRow(int row) const override;
    std::vector<int> emptyRows(int startCol, GetRowColMaskType maskType, Mask const& mask) const override;
    std::vector<int> emptyCols(int startRow, GetRowColMaskType maskType, Mask const& mask) const override;
    int numEmptyRowsAtEnd() const override;
    int numEmptyColsAtEnd() const override;
    bool setValue(int const& row, int const& col, Bytes const& value) override;
    bool resizeRows(int count) override;
    bool resizeCols(int count) override;
    void clear() override;

    bool getRow(Cells& out, int row, bool ignoreMaps, GetRowColMaskType maskType, Mask const& mask) const override;
    bool getCol(Cells& out, int col, bool ignoreMaps, GetRowColMaskType maskType, Mask const& mask) const override;
    bool setRow(int row, Cells const& cells) override;
    bool setCol(int col, Cells const& cells) override;
    bool insertRow(int row, Cells const& cells) override;
    bool insertCol(int col, Cells const& cells) override;
    bool insertRows(int row, std::vector<Cells> const& rows) override;
    bool insertCols(int col, std::vector<Cells> const& cols) override;
    bool insertEmptyRows(int row, int count) override;
    bool insertEmptyCols(int col, int count) override;
    bool removeRows(int row, int count) override;
    bool removeCols(int col, int count) override;
    bool copyRowContentsToAnotherRow(int from, int to) override;
    bool copyColContentsToAnotherCol(int from, int to) override;

    /// Order lines so that line first + i is what was line order[i]; need a permutation of the lines that follow one
    /// another from `first` on. Lines outside of it stay.
    void permuteRows(std::vector<int> const& order, int first = 0);
    /// With `keepLengths` a row stores no fewer cells than before, else none behind its last filled one.
    void permuteCols(std::vector<int> const& order, int first = 0, bool keepLengths = false);

    // Many blocks of rows or columns at once, to be put back later. The blocks lie inside the table.

    void takeRows(TakenRows& taken, TakenRows::Blocks const& blocks);
    void takeCols(TakenCols& taken, TakenCols::Blocks const& blocks);
    void putBackRows(TakenRows& taken, TakenRows::Blocks const& blocks);
    void putBackCols(TakenCols& taken, TakenCols::Blocks const& blocks);

    // Many cells at once. Each row is rebuilt once, whatever the number of its cells. With content the table grows.

    /// Writes the cells of a patch, which holds what they had before afterwards. With `transposed` the rows of the
    /// patch are columns here.
    void exchange(CellPatch& patch, bool transposed);
    /// Writes one value to all cells of a region and adds what they had before to `old`, which has to be empty.
    void fill(CellRegion const& cells, std::string_view bytes, ReplacedCells& old);
    /// Takes a fill back, which must be the last change of these cells. Leaves `old` empty.
    void putBack(ReplacedCells& old);

    void getRowCSVString(Bytes& out, int row, GetRowColMaskType maskType, Mask const& mask) const override;
    void getRowCSVStringMultiByte(Bytes& out, int row, GetRowColMaskType maskType, Mask const& mask) const override;
    void getColCSVString(Bytes& out, int col, GetRowColMaskType maskType, Mask const& mask) const override;
    void getColCSVStringMultiByte(Bytes& out, int col, GetRowColMaskType maskType, Mask const& mask) const override;

    bool openForLoad() override;
    /// The size in bytes of the file at the last load.
    qint64 getFileSize() const { return fileSize; }

public slots:
    bool loadCSV() override;

protected:
    virtual bool loadCSVByteSequence();
    virtual bool loadCSVNoDelimiter();
    virtual bool loadCSVMultiByte();
    virtual bool loadCSVNoDelimiterMultiByte();

    SaveReport saveToPath(SaveRequest const& request, SavedPart const& part) override;

private:
    /// The ways of reading a file, by the width of its units and the length of its delimiter.
    enum class ScanKind { OneByte, NoDelimiter, ByteSequence, MultiByte, NoDelimiterMultiByte };

    ScanKind scanKindOf(Bytes const& readDelimiter) const;
    Reading readingAs(ScanKind kind, Bytes const& readDelimiter) const;
    bool loadAs(ScanKind kind);
    ScannerJob jobOf(ScannerFile& file);
    void keepWithinLimits();
    void announce(std::function<void()> const& emitSignal, int sleepMs);

    int storedRows() const { return static_cast<int>(rows.size()); }
    int cellsInRow(int row) const;
    void growStoredRows(int count);
    void storeCell(int row, int col, std::string_view bytes);
    void storeRow(int row, std::span<std::string_view const> cells);
    /// What a fill knows of the row that it is at; kept from row to row for its memory.
    struct RowScratch {
        std::vector<std::string_view> before;
        std::vector<std::string_view> after;
        std::vector<int> changed;
    };
    void fillRow(int row, std::span<CellRect const> runs, std::string_view bytes, ReplacedCells& old,
                 RowScratch& scratch);
    bool storeCols(int firstCol, std::span<Cells const* const> cols);

    SaveReport saveInPresentDialect(SaveRequest const& request, SavedPart const& part);
    LineDialect narrowDialect() const;
    LineDialect wideDialect() const;
    LineDialect dialectOfFile() const;
    /// The bytes of a cell in the encoding of the file that is written; valid until the next call.
    std::string_view cellOfFile(int row, int col) const;
    int cellsOfRowLine(int row) const;
    int cellsOfColLine(int col) const;
    bool writeLines(AtomicFileWriter& file, SavedPart const& part, RoundTripCheck* check) const;
    void checkLine(RoundTripCheck& check, int number, int line, SavedPart const& part) const;
    void writeRow(LineWriter& writer, int row, GetRowColMaskType maskType, Mask const& mask) const;
    void writeCol(LineWriter& writer, int col, GetRowColMaskType maskType, Mask const& mask) const;

    std::unique_ptr<ScannerFile> opened;        ///< for the load to come
    CellConversion const* conversion = nullptr; ///< while a save writes in another encoding than that of the cells
    mutable Bytes convertedCell;
    CellRows rows;
    qint64 fileSize = 0;
    int numRowsStored = 0;
    int numColsStored = 0;
};
