#include "core/EncodingUtilities.h"
#include "storage/CellConversion.h"
#include "storage/EditableDataContainer.h"
#include "storage/LineWriter.h"
#include "storage/MaskCursor.h"
#include "storage/RoundTripCheck.h"
#include "storage/SaveErrors.h"

#include <QCoreApplication>
#include <QFile>
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

/// Visits the cells of a line of `count` cells as far as the mask lets them through. An Include mask names its cells
/// itself, also such as are not stored.
template <typename Visit>
void forCells(int count, GetRowColMaskType maskType, Mask const& mask, Visit const& visit) {
    if (maskType == GetRowColMaskType::Include) {
        for (int const index : mask)
            visit(index);
        return;
    }
    MaskCursor excluded(maskType == GetRowColMaskType::Exclude ? &mask : nullptr);
    for (int index = 0; index < count; ++index)
        if (!excluded.contains(index))
            visit(index);
}

/// The length of the mark that a load finds at the start of a file. One of another encoding would have the file opened
/// in that one.
std::size_t lengthOfMark(std::string_view start, EncodingType encoding) {
    auto const marked = Utilities::getEncodingOfMark(start);
    if (Utilities::contradictsMark(encoding, marked))
        return Utilities::getEncodingBom(marked).size();
    EditableDataContainer loaded;
    loaded.setEncoding(encoding);
    return static_cast<std::size_t>(loaded.computeTableBomOffset(start, true));
}

/// Tells the user how many cells the file would not give back.
QString sentence(ChangedCells const& changed, QString const& path) {
    auto const tr = [](char const* text) { return QCoreApplication::translate("ChangedCells", text); };
    auto const file = pathForUser(QFile::encodeName(path));
    auto const count = changed.cells.count();
    if (count == 1 && !changed.goesOn)
        return tr("1 cell would not be read back from %1 as it is.").arg(file);
    auto const text = changed.goesOn ? tr("At least %L1 cells would not be read back from %2 as they are.")
                                     : tr("%L1 cells would not be read back from %2 as they are.");
    return text.arg(count).arg(file);
}

} // namespace

LineDialect EditableDataContainer::narrowDialect() const {
    LineDialect dialect{parsingStandard, toString(saveDelimiterBytes), "\"", "\r", "\n", "\n", "\x1e", 1};
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
    LineDialect dialect{parsingStandard,
                        toString(delimiterToWrite),
                        toString(quote),
                        toString(cr),
                        toString(lf),
                        toString(lf),
                        {},
                        static_cast<std::size_t>(bytesPerChar)};
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

// Without trailing delimiters a line ends with its last filled cell; one without any keeps all its cells. With them it
// is filled up with empty ones.
int EditableDataContainer::cellsOfRowLine(int row) const {
    auto const count = cellsInRow(row);
    if (saveWithTrailingDelimiters)
        return saveDelimiterBytes.empty() ? count : std::max(count, numColsStored);
    auto const filled = numColsInRow(row);
    return filled > 0 ? filled : count;
}

int EditableDataContainer::cellsOfColLine(int col) const {
    if (saveWithTrailingDelimiters)
        return numRowsStored;
    auto filled = storedRows();
    while (filled > 0 && cellView(filled - 1, col).empty())
        --filled;
    return filled > 0 ? filled : numRowsStored;
}

void EditableDataContainer::writeRow(LineWriter& writer, int row, GetRowColMaskType maskType, Mask const& mask) const {
    forCells(cellsOfRowLine(row), maskType, mask, [&](int col) { writer.cell(cellOfFile(row, col)); });
    writer.endLine();
}

void EditableDataContainer::writeCol(LineWriter& writer, int col, GetRowColMaskType maskType, Mask const& mask) const {
    forCells(cellsOfColLine(col), maskType, mask, [&](int row) { writer.cell(cellOfFile(row, col)); });
    writer.endLine();
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

SaveReport EditableDataContainer::saveInPresentDialect(SaveRequest const& request, SavedPart const& part) {
    ChangedCells changed;
    auto report = replaceFile(request.file, [&](AtomicFileWriter& file) {
        if (request.writeWhatWouldChange)
            return writeLines(file, part, nullptr);
        RoundTripCheck check(dialectOfFile(), readingAs(scanKindOf(saveDelimiterBytes), saveDelimiterBytes),
                             {hasBom && isBomConsistentWithEncoding(bom, encoding) ? toString(bom) : std::string(),
                              [this](auto start) { return lengthOfMark(start, encoding); }});
        bool const written = writeLines(file, part, &check);
        if (written)
            changed = check.changes();
        return written && changed.isEmpty();
    });
    if (changed.isEmpty())
        return report;
    return {SaveReport::Outcome::WouldChange, sentence(changed, filepath), {}, {}, changed};
}

// Rows behind the stored ones make no lines. A transposed save leaves out columns only: each line has all its rows.
// When a change has been found, the file will not be needed.
bool EditableDataContainer::writeLines(AtomicFileWriter& file, SavedPart const& part, RoundTripCheck* check) const {
    LineWriter writer(
        dialectOfFile(), [&](std::string_view bytes) { return (check && check->foundChanges()) || file.write(bytes); },
        fileBuffer);
    MaskCursor skipped(part.transposed ? &part.colMask : &part.rowMask);
    auto const lines = part.transposed ? numColsStored : storedRows();
    int written = 0;
    for (int line = 0; line < lines && !(check && check->isFull()); ++line) {
        if (skipped.contains(line))
            continue;
        if (part.transposed)
            writeCol(writer, line, GetRowColMaskType::NoMask, part.colMask);
        else
            writeRow(writer, line, GetRowColMaskType::Exclude, part.colMask);
        if (writer.takeDoubts() && check)
            checkLine(*check, written, line, part);
        ++written;
    }
    if (check)
        check->finish(written);
    return writer.flush();
}

void EditableDataContainer::checkLine(RoundTripCheck& check, int number, int line, SavedPart const& part) const {
    if (part.transposed) {
        check.beginLine(number, 0, line);
        forCells(cellsOfColLine(line), GetRowColMaskType::NoMask, part.colMask,
                 [&](int row) { check.cell(row, line, cellOfFile(row, line)); });
    } else {
        check.beginLine(number, line, 0);
        forCells(cellsOfRowLine(line), GetRowColMaskType::Exclude, part.colMask,
                 [&](int col) { check.cell(line, col, cellOfFile(line, col)); });
    }
    check.endLine();
}

SaveReport EditableDataContainer::saveToPath(SaveRequest const& request, SavedPart const& part) {
    if (!request.dialect)
        return saveInPresentDialect(request, part);
    auto const putBack = qScopeGuard([this, delimiter = delimiter, saveDelimiter = saveDelimiter,
                                      lineEnding = lineEnding, encoding = encoding, standard = parsingStandard] {
        conversion = nullptr;
        setDelimiter(delimiter, saveDelimiter);
        setLineEnding(lineEnding);
        setEncoding(encoding);
        setParsingStandard(standard);
    });
    CellConversion const toEncodingOfFile(encoding, request.dialect->encoding);
    if (request.dialect->encoding != encoding)
        conversion = &toEncodingOfFile;
    setDelimiter(delimiter, request.dialect->saveDelimiter);
    setLineEnding(request.dialect->lineEnding);
    setEncoding(request.dialect->encoding);
    setParsingStandard(request.dialect->parsingStandard);
    return saveInPresentDialect(request, part);
}
