#pragma once

#include "core/Enumerations.h"
#include "core/ExtensionData.h"
#include "storage/FileStamp.h"
#include "storage/LoadResult.h"
#include "storage/SaveReport.h"
#include "storage/SaveRequest.h"

#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QWaitCondition>

#include <atomic>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/// The contract of the two homes of a table, editable in memory and read-only from an index. Cells are bytes in the
/// file's own encoding; all indexes are raw, positions in the stored table. The base owns the dialect of the file
/// (delimiters, line ending, encoding, parsing standard, byte order mark) and the byte helpers that scanners and
/// writers share. A container belongs to the load thread during a load and to the GUI thread afterwards; only `quit`
/// is shared.
class AbstractDataContainer : public QObject {
    Q_OBJECT

public:
    using Bytes = std::vector<char>;
    using Cells = std::vector<Bytes>;
    using Mask = std::vector<int>; ///< sorted indexes

    explicit AbstractDataContainer(QObject* parent = nullptr);
    ~AbstractDataContainer() override;

    // Cells. The edits do nothing and report failure here, and so they do on a read-only table.

    /// The bytes of a cell, empty outside the stored area. `ignoreMaps` has a meaning on read-only tables only.
    virtual Bytes getValue(int row, int col, bool ignoreMaps = false) const = 0;
    virtual int numRows() const = 0;
    virtual int numCols() const = 0;
    /// The index of the last filled cell of `row` plus one.
    virtual int numColsInRow(int row) const = 0;
    /// The ascending indexes of the rows without a filled cell among the columns from `startCol` on that the mask
    /// allows (with Include: among the listed columns).
    virtual std::vector<int> emptyRows(int startCol, GetRowColMaskType maskType, Mask const& mask) const;
    virtual std::vector<int> emptyCols(int startRow, GetRowColMaskType maskType, Mask const& mask) const;
    virtual int numEmptyRowsAtEnd() const;
    virtual int numEmptyColsAtEnd() const;
    virtual bool setValue(int const& row, int const& col, Bytes const& value);
    virtual bool resizeRows(int count);
    virtual bool resizeCols(int count);
    virtual void clear();

    // Whole rows and columns.

    virtual bool getRow(Cells& out, int row, bool ignoreMaps, GetRowColMaskType maskType, Mask const& mask) const = 0;
    virtual bool getCol(Cells& out, int col, bool ignoreMaps, GetRowColMaskType maskType, Mask const& mask) const = 0;
    virtual bool setRow(int row, Cells const& cells);
    virtual bool setCol(int col, Cells const& cells);
    virtual bool insertRow(int row, Cells const& cells);
    virtual bool insertCol(int col, Cells const& cells);
    virtual bool insertRows(int row, std::vector<Cells> const& rows);
    virtual bool insertCols(int col, std::vector<Cells> const& cols);
    virtual bool insertEmptyRows(int row, int count);
    virtual bool insertEmptyCols(int col, int count);
    virtual bool removeRows(int row, int count);
    virtual bool removeCols(int col, int count);
    virtual bool copyRowContentsToAnotherRow(int from, int to);
    virtual bool copyColContentsToAnotherCol(int from, int to);

    // Saving.

    /// Writes a part of the table. Notes the reason of a failure and what was not kept for the two calls below too.
    SaveReport save(SaveRequest const& request, SavedPart const& part);
    /// The file as it was read or written last.
    std::optional<FileStamp> getFileStamp() const { return fileStamp; }
    /// Takes the file as it is now for known.
    void takeFileAsItIs() { fileStamp = FileStamp::of(filepath); }

    // Forms of it that save also what a load would not give back. False leaves the reason in getLastSaveError().

    bool saveCSV(bool ignoreMaps, bool transposed, Mask const& rowMask, Mask const& colMask);
    bool saveCSV(QString const& path, bool ignoreMaps, bool transposed, Mask const& rowMask, Mask const& colMask);
    bool saveCSV(QString const& path, ExtensionData const& dialect, bool transposed, Mask const& rowMask,
                 Mask const& colMask);

    // Dialect.

    virtual void setFilepath(QString const& path);
    virtual QString getFilepath() const;
    /// `delimiter` is for reading, `saveDelimiter` for writing; empty means none.
    virtual void setDelimiter(QString const& delimiter, QString const& saveDelimiter);
    virtual void setLineEnding(LineEndingType type);
    virtual void setEncoding(EncodingType type);
    virtual void setParsingStandard(ParsingStandard standard);
    virtual void setSaveWithTrailingDelimiters(bool on);
    /// Makes a running load stop at its next row. The only call that another thread may make during a load.
    virtual void setQuit(bool on);

    QString getDelimiter() const { return delimiter; }
    QString getSaveDelimiter() const { return saveDelimiter; }
    LineEndingType getLineEnding() const { return lineEnding; }
    EncodingType getEncoding() const { return encoding; }
    ParsingStandard getParsingStandard() const { return parsingStandard; }
    bool getHasBom() const { return hasBom; }
    Bytes const& getBom() const { return bom; }
    /// One sentence for the user about the last failed save, empty after a good one.
    QString getLastSaveError() const { return lastSaveError; }
    /// Sentences on what the last save could not keep of the former file's attributes.
    QStringList getNotKept() const { return notKept; }
    /// How the last load has ended.
    LoadResult const& getLoadResult() const { return loadResult; }
    void setLoadLimits(LoadLimits limits) { loadLimits = limits; }
    /// Opens the file for the load to come. False leaves the reason in getLoadResult().
    virtual bool openForLoad() { return true; }
    /// The pair that paces progress signals to the GUI. Not owned; may be null.
    void setProgressUpdateMutex(QMutex* mutex, QWaitCondition* condition);

    // One line of the file, appended to `out` with its line ending.

    virtual void getRowCSVString(Bytes& out, int row, GetRowColMaskType maskType, Mask const& mask) const = 0;
    virtual void getRowCSVStringMultiByte(Bytes& out, int row, GetRowColMaskType maskType, Mask const& mask) const = 0;
    virtual void getColCSVString(Bytes& out, int col, GetRowColMaskType maskType, Mask const& mask) const = 0;
    virtual void getColCSVStringMultiByte(Bytes& out, int col, GetRowColMaskType maskType, Mask const& mask) const = 0;

    // Byte machinery.

    /// Encodes a delimiter in the table's encoding; empty for an empty string.
    Bytes encodeDelimiter(QString const& text) const;
    /// Fills the byte sequences that multi-byte scanners and writers compare with. In an encoding of one-byte units
    /// `cr`, `lf`, `rs` and `quote` are left as they are.
    void setKeyCharVecs(Bytes& delimiterOut, Bytes& saveDelimiterOut, Bytes& cr, Bytes& lf, Bytes& rs, Bytes& quote,
                        Bytes& doubledQuote) const;
    /// The length in bytes of the mark of `type` at the start of `buffer`, else 0.
    static int computeBomOffset(std::string_view buffer, EncodingType type);
    /// The length in bytes of the table's mark at the start of the file's first block. Notes the mark if `record` is
    /// set, and always when it settles a byte order that was unknown.
    int computeTableBomOffset(std::string_view buffer, bool record);
    /// Whether a file of encoding `type` may start with `mark`.
    static bool isBomConsistentWithEncoding(Bytes const& mark, EncodingType type);
    /// Turns a device's error text into a sentence for the user without the file's path.
    QString formatSaveErrorReason(QString reason, QString const& fallback) const;

public slots:
    /// Reads the file into the table, after openForLoad() if that has not been called. True if it was read to its end;
    /// false if it could not be opened or the load was stopped, and then loadFinishedSignal does not come.
    virtual bool loadCSV() = 0;

signals:
    void startProgressUpdateSignal();
    /// Steps done, all steps (8 MiB each) and the size of the file in MiB.
    void loadProgressUpdateSignal(int done, int steps, int sizeMiB);
    void loadFinishedSignal();

protected:
    /// Encodes both delimiters anew after a change of delimiter or encoding.
    void updateDelimiterBytes();
    /// The save to `filepath`.
    virtual SaveReport saveToPath(SaveRequest const& request, SavedPart const& part) = 0;
    /// The frame of every save to `filepath`: writes the mark if the table keeps one, then what `writeLines` writes,
    /// and replaces the old file when all of it is on the disk.
    SaveReport replaceFile(AtomicFileWriter::Options const& options,
                           std::function<bool(AtomicFileWriter&)> const& writeLines);

    QString filepath;
    QString delimiter = QStringLiteral(",");
    QString saveDelimiter = QStringLiteral(",");
    Bytes delimiterBytes{','};
    Bytes saveDelimiterBytes{','};
    char delimiterChar = ','; ///< the one byte of delimiterBytes, 0 when it has another length
    char saveDelimiterChar = ',';
    LineEndingType lineEnding = LineEndingType::Unix;
    EncodingType encoding = EncodingType::Utf8;
    ParsingStandard parsingStandard = ParsingStandard::Rfc4180;
    int bytesPerChar = 1; ///< width of a code unit, 1, 2 or 4
    QMutex* progressMutex = nullptr;
    QWaitCondition* progressCondition = nullptr;
    bool saveWithTrailingDelimiters = true;
    bool hasBom = false;
    Bytes bom; ///< the mark found at the load; a save writes it back if it still fits the encoding
    QString lastSaveError;
    QStringList notKept; ///< of the last save
    LoadResult loadResult;
    std::optional<FileStamp> fileStamp;
    LoadLimits loadLimits;
    std::atomic<bool> quit = false;

private:
    SaveReport replaceFileUnlessFull(AtomicFileWriter::Options const& options,
                                     std::function<bool(AtomicFileWriter&)> const& writeLines);
    SaveReport failedSave(AtomicFileWriter const& file, QString const& fallback) const;
};
