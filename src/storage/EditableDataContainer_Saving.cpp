#include "storage/AtomicFileWriter.h"
#include "storage/CellConversion.h"
#include "storage/EditableDataContainer.h"
#include "storage/LineWriter.h"
#include "storage/MaskCursor.h"

#include <QScopeGuard>

#include <algorithm>

namespace {

using Bytes = AbstractDataContainer::Bytes;
using Mask = AbstractDataContainer::Mask;

constexpr std::size_t fileBuffer = 1 << 20;
constexpr std::size_t lineBuffer = 1 << 12;

std::string toString(Bytes const& bytes) {
    return {bytes.begin(), bytes.end()};
}

LineWriter::Sink appendTo(Bytes& out) {
    return [&out](std::string_view bytes) {
        out.insert(out.end(), bytes.begin(), bytes.end());
        return true;
    };
}

/// Writes a line of `count` cells, and more empty ones up to `paddedCount`, as far as the mask lets them through. An
/// Include mask names its cells itself: those that are not stored are empty.
template <typename CellAt>
void writeLine(LineWriter& writer, int count, int paddedCount, GetRowColMaskType maskType, Mask const& mask,
               CellAt const& cellAt) {
    if (maskType == GetRowColMaskType::Include) {
        for (int const index : mask)
            writer.cell(cellAt(index));
    } else {
        MaskCursor excluded(maskType == GetRowColMaskType::Exclude ? &mask : nullptr);
        for (int index = 0; index < count; ++index)
            if (!excluded.contains(index))
                writer.cell(cellAt(index));
        for (int index = count; index < paddedCount; ++index)
            if (!excluded.contains(index))
                writer.cell({});
    }
    writer.endLine();
}

} // namespace

LineDialect EditableDataContainer::narrowDialect() const {
    LineDialect dialect{parsingStandard, toString(saveDelimiterBytes), "\"", "\r", "\n", "\n"};
    dialect.shifts = encoding == EncodingType::Iso2022Jp;
    if (lineEnding == LineEndingType::Windows)
        dialect.lineEnd = "\r\n";
    else if (lineEnding == LineEndingType::RecordSeparator)
        dialect.lineEnd = "\x1e";
    return dialect;
}

// A record separator has never been an end of line in a wide encoding, neither here nor on reading: it becomes LF.
LineDialect EditableDataContainer::wideDialect() const {
    Bytes readDelimiter, delimiterToWrite, cr, lf, rs, quote, doubledQuote;
    setKeyCharVecs(readDelimiter, delimiterToWrite, cr, lf, rs, quote, doubledQuote);
    LineDialect dialect{parsingStandard, toString(delimiterToWrite), toString(quote), toString(cr), toString(lf),
                        toString(lf)};
    if (lineEnding == LineEndingType::Windows)
        dialect.lineEnd.insert(0, dialect.carriageReturn);
    return dialect;
}

LineDialect EditableDataContainer::dialectOfFile() const {
    return bytesPerChar > 1 ? wideDialect() : narrowDialect();
}

std::string_view EditableDataContainer::cellOfFile(int row, int col) const {
    std::string_view const cell = cellView(row, col);
    if (conversion == nullptr || conversion->keeps(cell))
        return cell;
    convertedCell = conversion->convert(cell);
    return {convertedCell.data(), convertedCell.size()};
}

// Without trailing delimiters a line ends with its last filled cell; one without any keeps all its cells.
void EditableDataContainer::writeRow(LineWriter& writer, int row, GetRowColMaskType maskType, Mask const& mask) const {
    auto count = cellsInRow(row);
    auto paddedCount = count;
    if (saveWithTrailingDelimiters && writer.hasDelimiter())
        paddedCount = std::max(count, numColsStored);
    else if (!saveWithTrailingDelimiters)
        if (auto const filled = numColsInRow(row); filled > 0)
            count = paddedCount = filled;
    writeLine(writer, count, paddedCount, maskType, mask, [&](int col) { return cellOfFile(row, col); });
}

void EditableDataContainer::writeCol(LineWriter& writer, int col, GetRowColMaskType maskType, Mask const& mask) const {
    auto count = numRowsStored;
    if (!saveWithTrailingDelimiters) {
        auto filled = storedRows();
        while (filled > 0 && cellView(filled - 1, col).empty())
            --filled;
        count = filled > 0 ? filled : count;
    }
    writeLine(writer, count, count, maskType, mask, [&](int row) { return cellOfFile(row, col); });
}

void EditableDataContainer::getRowCSVString(Bytes& out, int row, GetRowColMaskType maskType, Mask const& mask) const {
    if (bytesPerChar > 1)
        return getRowCSVStringMultiByte(out, row, maskType, mask);
    LineWriter writer(narrowDialect(), appendTo(out), lineBuffer);
    writeRow(writer, row, maskType, mask);
    writer.flush();
}

void EditableDataContainer::getRowCSVStringMultiByte(Bytes& out, int row, GetRowColMaskType maskType,
                                                     Mask const& mask) const {
    LineWriter writer(wideDialect(), appendTo(out), lineBuffer);
    writeRow(writer, row, maskType, mask);
    writer.flush();
}

void EditableDataContainer::getColCSVString(Bytes& out, int col, GetRowColMaskType maskType, Mask const& mask) const {
    if (bytesPerChar > 1)
        return getColCSVStringMultiByte(out, col, maskType, mask);
    LineWriter writer(narrowDialect(), appendTo(out), lineBuffer);
    writeCol(writer, col, maskType, mask);
    writer.flush();
}

void EditableDataContainer::getColCSVStringMultiByte(Bytes& out, int col, GetRowColMaskType maskType,
                                                     Mask const& mask) const {
    LineWriter writer(wideDialect(), appendTo(out), lineBuffer);
    writeCol(writer, col, maskType, mask);
    writer.flush();
}

// Rows behind the stored ones make no lines. A transposed save leaves out columns only: each line has all its rows.
bool EditableDataContainer::saveCSV(bool, bool transposed, Mask const& rowMask, Mask const& colMask) {
    return replaceFile([&](AtomicFileWriter& file) {
        LineWriter writer(
            dialectOfFile(), [&file](std::string_view bytes) { return file.write(bytes); }, fileBuffer);
        MaskCursor skipped(transposed ? &colMask : &rowMask);
        auto const lines = transposed ? numColsStored : storedRows();
        for (int line = 0; line < lines; ++line) {
            if (skipped.contains(line))
                continue;
            if (transposed)
                writeCol(writer, line, GetRowColMaskType::NoMask, colMask);
            else
                writeRow(writer, line, GetRowColMaskType::Exclude, colMask);
        }
        return writer.flush();
    });
}

bool EditableDataContainer::saveCSV(QString const& path, bool ignoreMaps, bool transposed, Mask const& rowMask,
                                    Mask const& colMask) {
    return saveUnder(path, [&] { return saveCSV(ignoreMaps, transposed, rowMask, colMask); });
}

bool EditableDataContainer::saveCSV(QString const& path, ExtensionData const& dialect, bool transposed,
                                    Mask const& rowMask, Mask const& colMask) {
    auto const putBack = qScopeGuard([this, delimiter = delimiter, saveDelimiter = saveDelimiter,
                                      lineEnding = lineEnding, encoding = encoding, standard = parsingStandard] {
        conversion = nullptr;
        setDelimiter(delimiter, saveDelimiter);
        setLineEnding(lineEnding);
        setEncoding(encoding);
        setParsingStandard(standard);
    });
    CellConversion const toEncodingOfFile(encoding, dialect.encoding);
    if (dialect.encoding != encoding)
        conversion = &toEncodingOfFile;
    setDelimiter(delimiter, dialect.saveDelimiter);
    setLineEnding(dialect.lineEnding);
    setEncoding(dialect.encoding);
    setParsingStandard(dialect.parsingStandard);
    return saveCSV(path, false, transposed, rowMask, colMask);
}
